#include "tests/sprites/SpriteScene.h"

using namespace zenu;
using namespace zenutest;

// Sprites and applications that do what is allowed and seldom done, above all while many sprites
// have one background in common.
class tst_SpriteExtremes : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void bufferReplacedBySmallerPixmap_isLaidOnItsOwnPlaceAlone();
    void bufferReplacedBySmallerPixmap_isGrownForTheNextDrawing();
    void pixmapsKept_stayAsTheyWere();
    void painterLeftOpen_changesNothingOnTheScreen();
    void movedWhileHidden_readsItsBackground();
    void aloneMoving_touchesItsPlaceAlone_data();
    void aloneMoving_touchesItsPlaceAlone();
    void dense_spriteTooLargeForAnyBuffer_othersLeaveNothing();
    void dense_hostMovesBeforeItPaints_leavesNothing();
    void dense_hostRepaintsInNotifications_leavesNothing();
    void dense_hostDiesInACallback_isSafe_data();
    void dense_hostDiesInACallback_isSafe();
    void dense_removedAndDestroyed_leavesNothing();
    void dense_sizesComeAndGo_leaveNothing();
    void dense_grab_showsTheCommittedState();
    void dense_clobberedOutsideOfPaintEvents_leavesNothing();
    void dense_storeOfAnotherFormat_leavesNothing();
    void dense_inTwoWindows_leaveNothing();

private:
    class ActingSprite;
    void addDense();
    void drift(int steps);
    void checkPicture() const;
    void checkNothingLeft();
    void repaintUnheard();

    std::vector<std::unique_ptr<ActingSprite>> m_many;
};

class tst_SpriteExtremes::ActingSprite : public TestSprite
{
public:
    using TestSprite::TestSprite;

    std::function<void()> before;
    std::function<void()> after;
    std::function<void(QPixmap *, QPixmap const *)> drawing; // after its own

    void drawInBuffer(QPixmap * buffer, QPixmap const * background) override
    {
        TestSprite::drawInBuffer(buffer, background);
        if (drawing)
            drawing(buffer, background);
    }
    void beforeLayerUpdate() override
    {
        if (before)
            before();
    }
    void afterLayerUpdate() override
    {
        if (after)
            after();
    }
};

void tst_SpriteExtremes::init()
{
    Test::init();
    QVERIFY(openScene());
}

void tst_SpriteExtremes::cleanup()
{
    m_many.clear();
    closeScene();
}

// So many in so small an area that they have one background soon.
void tst_SpriteExtremes::addDense()
{
    for (int i = 0; i < 60; ++i) {
        QRect const r(60 + i * 37 % 60, 40 + i * 23 % 40, 30, 30);
        QColor const color = QColor::fromHsv(i * 37 % 360, 200, 220);
        m_many.push_back(std::make_unique<ActingSprite>(m_layer.get(), r, color, i));
    }
    m_layer->update();
    drift(6);
}

void tst_SpriteExtremes::drift(int steps)
{
    for (int step = 0; step < steps; ++step) {
        int const by = step % 2 == 0 ? 1 : -1;
        for (size_t i = 0; i < m_many.size(); ++i)
            m_many[i]->moveBy(i % 3 == 0 ? QPoint(by, 0) : QPoint(-by, by));
        m_layer->update();
    }
}

void tst_SpriteExtremes::repaintUnheard()
{
    m_host->layer = nullptr;
    m_host->repaint();
    m_host->layer = m_layer.get();
}

void tst_SpriteExtremes::checkPicture() const
{
    QImage expected = m_empty;
    for (auto const & sprite : m_many)
        expected = filled(expected, *m_host, sprite->geometry(), sprite->color);
    QCOMPARE(difference(seen(), expected), QString());
}

// After all sprites are gone the window looks as if the host had just painted all of it.
void tst_SpriteExtremes::checkNothingLeft()
{
    m_many.clear();
    m_lower.reset();
    m_upper.reset();
    m_layer->update();
    QImage const left = seen();
    repaintUnheard();
    QCOMPARE(difference(left, seen()), QString());
}

// A part of the sprite that the pixmap does not reach is drawn anew.
void tst_SpriteExtremes::bufferReplacedBySmallerPixmap_isLaidOnItsOwnPlaceAlone()
{
    ActingSprite sprite(m_layer.get());
    sprite.drawing = [](QPixmap * buffer, QPixmap const *) {
        *buffer = QPixmap(8, 8);
        buffer->fill(Qt::red);
    };
    QRect const r(40, 40, 60, 60);
    sprite.changeContents(r.size());
    sprite.moveTo(r.topLeft());
    sprite.show();
    m_layer->update();
    QImage const alone = seen();
    TestSprite other(m_layer.get(), QRect(84, 84, 30, 30), Qt::blue, 1);
    for (int i = 0; i < 20; ++i) // or else everything is drawn
        m_many.push_back(std::make_unique<ActingSprite>(m_layer.get(), QRect(180, 10, 4, 4)));
    m_layer->update();
    for (auto const & one : m_many)
        one->hide();
    m_layer->update();
    other.hide();
    m_layer->update();
    QCOMPARE(difference(seen(), alone), QString());
    QVERIFY(!difference(alone, m_empty).isEmpty());
}

void tst_SpriteExtremes::bufferReplacedBySmallerPixmap_isGrownForTheNextDrawing()
{
    ActingSprite sprite(m_layer.get(), QRect(40, 40, 60, 60));
    sprite.drawing = [](QPixmap * buffer, QPixmap const *) { *buffer = QPixmap(8, 8); };
    m_layer->update();
    sprite.drawing = nullptr;
    sprite.show();
    m_layer->update();
    QCOMPARE(difference(seen(), filled(m_empty, *m_host, sprite.geometry(), Qt::red)), QString());
}

void tst_SpriteExtremes::pixmapsKept_stayAsTheyWere()
{
    ActingSprite sprite(m_layer.get(), QRect(40, 40, 40, 40));
    QPixmap keptBuffer;
    QPixmap keptBackground;
    sprite.drawing = [&](QPixmap * buffer, QPixmap const * background) {
        keptBuffer = *buffer;
        keptBackground = *background;
    };
    m_layer->update();
    sprite.drawing = nullptr;
    QImage const bufferThen = keptBuffer.toImage().copy();
    QImage const backgroundThen = keptBackground.toImage().copy();
    QVERIFY(!backgroundThen.isNull());
    for (int i = 0; i < 8; ++i) {
        sprite.color = i % 2 == 0 ? Qt::blue : Qt::green;
        if (i % 3 == 0)
            sprite.show();
        sprite.moveBy(QPoint(7, 5));
        m_layer->update();
        m_host->repaint(QRect(0, 0, 100, 100));
    }
    QCOMPARE(keptBuffer.toImage(), bufferThen);
    QCOMPARE(keptBackground.toImage(), backgroundThen);
    QImage const before = seen();
    QPainter(&keptBuffer).fillRect(0, 0, 40, 40, Qt::yellow);
    keptBackground.fill(Qt::yellow);
    m_host->repaint();
    QCOMPARE(difference(seen(), before), QString());
    sprite.hide();
    m_layer->update();
    QCOMPARE(difference(seen(), m_empty), QString());
}

void tst_SpriteExtremes::painterLeftOpen_changesNothingOnTheScreen()
{
    ActingSprite sprite(m_layer.get(), QRect(40, 40, 40, 40));
    std::unique_ptr<QPainter> painter;
    sprite.drawing = [&](QPixmap * buffer, QPixmap const *) {
        painter = std::make_unique<QPainter>(buffer);
    };
    m_layer->update();
    QVERIFY(painter->isActive());
    painter->fillRect(0, 0, 40, 40, Qt::yellow);
    sprite.moveBy(QPoint(9, 9));
    m_layer->update();
    m_host->repaint();
    QCOMPARE(difference(seen(), filled(m_empty, *m_host, sprite.geometry(), Qt::red)), QString());
    painter.reset();
    sprite.drawing = nullptr;
    sprite.show();
    m_layer->update();
    QCOMPARE(difference(seen(), filled(m_empty, *m_host, sprite.geometry(), Qt::red)), QString());
}

// Shown twice after that, it sees what was read then.
void tst_SpriteExtremes::movedWhileHidden_readsItsBackground()
{
    ActingSprite sprite(m_layer.get());
    sprite.changeContents(QSize(32, 32));
    sprite.moveTo(QPoint(40, 40));
    m_layer->update();
    sprite.show();
    m_layer->update();
    sprite.show();
    m_layer->update();
    QImage const expected = m_empty.copy(deviceRect(*m_host, sprite.geometry()));
    QCOMPARE(sprite.draws, 2);
    QCOMPARE(difference(sprite.below.copy(expected.rect()), expected), QString());
}

void tst_SpriteExtremes::aloneMoving_touchesItsPlaceAlone_data()
{
    QTest::addColumn<QRect>("place");
    QTest::newRow("small") << QRect(40, 40, 32, 32);
    QTest::newRow("line") << QRect(40, 0, 1, 160);
}

void tst_SpriteExtremes::aloneMoving_touchesItsPlaceAlone()
{
    QFETCH(QRect, place);
    TestSprite sprite(m_layer.get(), place);
    m_layer->update();
    for (int i = 0; i < 8; ++i) {
        sprite.moveBy(QPoint(1, 0));
        m_layer->update();
    }
    m_host->changePicture(m_host->rect(), 3);
    repaintUnheard();
    QImage const before = seen();
    QRect const touched = sprite.geometry().adjusted(0, 0, 1, 0);
    sprite.moveBy(QPoint(1, 0));
    m_layer->update();
    QImage const after = seen();
    QCOMPARE(difference(filled(after, *m_host, touched, Qt::red),
                        filled(before, *m_host, touched, Qt::red)),
             QString());
}

void tst_SpriteExtremes::dense_spriteTooLargeForAnyBuffer_othersLeaveNothing()
{
    struct Giant : KSprite
    {
        using KSprite::KSprite;
        void drawInBuffer(QPixmap *, QPixmap const *) override {}
    } giant(m_layer.get());
    giant.changeContents(QSize(most, most));
    giant.moveTo(QPoint(-1000, -1000));
    giant.show();
    m_layer->update();
    m_lower = std::make_unique<TestSprite>(m_layer.get(), lowerRect, Qt::red, 1);
    m_layer->update();
    for (int i = 0; i < 8; ++i) {
        giant.moveBy(QPoint(1, 1));
        m_lower->moveBy(QPoint(7, 3));
        m_layer->update();
    }
    QCOMPARE(difference(seen(), withLower()), QString());
    checkNothingLeft();
}

void tst_SpriteExtremes::dense_hostMovesBeforeItPaints_leavesNothing()
{
    addDense();
    for (int i = 0; i < 7; ++i) {
        m_host->move(m_host->pos() + QPoint(1, i % 2));
        drift(1 + i);
        settle(*m_window);
        drift(i);
    }
    checkNothingLeft();
}

void tst_SpriteExtremes::dense_hostRepaintsInNotifications_leavesNothing()
{
    addDense();
    int version = 0;
    auto const repaint = [&] {
        m_host->changePicture(QRect(72, 56, 40, 24), ++version);
        m_host->repaint(QRect(72, 56, 40, 24));
    };
    m_many[3]->before = repaint;
    drift(5);
    m_many[3]->before = nullptr;
    m_many[7]->after = repaint;
    drift(5);
    m_many[7]->after = nullptr;
    drift(6);
    m_many[9]->drawing = [&](QPixmap *, QPixmap const *) { repaint(); };
    m_many[9]->show();
    drift(6);
    m_many[9]->drawing = nullptr;
    drift(6);
    checkNothingLeft();
}

void tst_SpriteExtremes::dense_hostDiesInACallback_isSafe_data()
{
    QTest::addColumn<int>("callback");
    QTest::newRow("before") << 0;
    QTest::newRow("drawing") << 1;
    QTest::newRow("after") << 2;
}

void tst_SpriteExtremes::dense_hostDiesInACallback_isSafe()
{
    QFETCH(int, callback);
    addDense();
    auto const kill = [&] {
        delete m_host;
        m_host = nullptr;
        m_many[5]->before = m_many[5]->after = nullptr;
    };
    if (callback == 0)
        m_many[5]->before = kill;
    else if (callback == 2)
        m_many[5]->after = kill;
    else
        m_many[5]->drawing = [&](QPixmap *, QPixmap const *) { kill(); };
    if (callback == 1)
        m_many[5]->show();
    for (auto const & sprite : m_many)
        sprite->moveBy(QPoint(2, 2));
    m_layer->update();
    QVERIFY(!m_host);
    m_many[5]->drawing = nullptr;
    drift(6);
    QVERIFY(m_many[0]->getLayer());
    m_many.clear();
}

void tst_SpriteExtremes::dense_removedAndDestroyed_leavesNothing()
{
    addDense();
    for (size_t i = 0; i < 10; ++i) {
        auto const dying = std::move(m_many[i * 2]);
        m_many.erase(m_many.begin() + static_cast<std::ptrdiff_t>(i * 2));
        m_layer->removeSprite(dying.get());
        if (i % 2 == 0)
            drift(2);
    }
    m_layer->update();
    checkPicture();
    drift(5);
    checkPicture();
    checkNothingLeft();
}

void tst_SpriteExtremes::dense_sizesComeAndGo_leaveNothing()
{
    addDense();
    QSize const whole(30, 30);
    for (QSize const size : {QSize(0, 0), QSize(0, 9), QSize(-4, 5), QSize(9, 0)}) {
        m_many[4]->changeContents(size);
        drift(6);
        checkPicture();
        m_many[4]->changeContents(whole);
        drift(6);
        checkPicture();
    }
    checkNothingLeft();
}

void tst_SpriteExtremes::dense_grab_showsTheCommittedState()
{
    addDense();
    for (auto const & sprite : m_many)
        sprite->moveBy(QPoint(3, 3));
    QImage const before = seen();
    QImage const grab = grabbed();
    QCOMPARE(difference(seen(), before), QString());
    QImage const shown = ofHost(before);
    QCOMPARE(difference(grab.copy(shown.rect()), shown), QString());
    m_layer->update();
    drift(5);
    checkPicture();
    checkNothingLeft();
}

void tst_SpriteExtremes::dense_clobberedOutsideOfPaintEvents_leavesNothing()
{
    addDense();
    QRect const r(72, 32, 200, 56); // reaches beyond the host
    for (int i = 0; i < 4; ++i) {
        m_host->changePicture(r, i + 1);
        m_host->layer = nullptr;
        m_host->repaint(r);
        m_host->layer = m_layer.get();
        m_layer->clobberRect(r);
        if (i % 2 == 0)
            m_many.pop_back();
        drift(5);
    }
    checkNothingLeft();
}

// Only a display server has a store with alpha for the window.
void tst_SpriteExtremes::dense_storeOfAnotherFormat_leavesNothing()
{
    addDense();
    for (bool const seeThrough : {true, false}) {
        QVERIFY(hideAndSettle(*m_window));
        m_window->setAttribute(Qt::WA_TranslucentBackground, seeThrough);
        m_window->setAttribute(Qt::WA_NoSystemBackground, seeThrough);
        drift(seeThrough ? 5 : 0);
        QVERIFY(showAndSettle(*m_window));
        for (int i = 0; i < 3; ++i) {
            drift(6);
            m_many[3]->show();
            m_host->repaint(QRect(70, 50, 20, 20));
        }
        QImage const withSprites = seen();
        repaintUnheard();
        m_empty = seen();
        for (QRect const & r : QRegion(m_host->rect()))
            m_layer->clobberRect(r);
        m_layer->update();
        QCOMPARE(difference(seen(), withSprites), QString());
        checkPicture();
    }
    checkNothingLeft();
}

void tst_SpriteExtremes::dense_inTwoWindows_leaveNothing()
{
    m_window->move(400, 0); // side by side
    addDense();
    QWidget window;
    window.resize(320, 240);
    SpriteHost host(&window);
    host.setGeometry(hostRect);
    KSpriteLayer layer(&host);
    host.layer = &layer;
    QVERIFY(showAndSettle(window));
    QImage const empty = picture(window);
    std::vector<std::unique_ptr<TestSprite>> others;
    for (int i = 0; i < 60; ++i) {
        QRect const r(30 + i * 31 % 90, 20 + i * 29 % 70, 30, 30);
        others.push_back(std::make_unique<TestSprite>(&layer, r, Qt::blue, i));
    }
    for (int step = 0; step < 8; ++step) {
        for (auto const & one : others)
            one->moveBy(QPoint(2, 1));
        layer.update();
        drift(1);
    }
    checkPicture();
    others.clear();
    QCOMPARE(difference(picture(window), empty), QString());
    checkNothingLeft();
}

ZENU_TEST(tst_SpriteExtremes)
#include "tst_SpriteExtremes.moc"
