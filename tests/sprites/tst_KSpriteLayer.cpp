#include "tests/sprites/SpriteHost.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

// What stands on the screen after updates outside of paint events.
class tst_KSpriteLayer : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void update_shown_isOnTheScreenWithoutAPaint();
    void update_hidden_restores();
    void update_moved_leavesNothingAtTheOldPlace();
    void update_overlappingSprites_noImageEntersABackground_data();
    void update_overlappingSprites_noImageEntersABackground();
    void update_priority_decidesWhichIsOnTop();
    void update_hiddenAndShownAgainAfterAMove_restoresEverything();
    void update_removed_leavesTheScreenAndTheLayer();
    void update_notifiesOnceForEachCommit();
    void update_fromWithinAnUpdate_runsAfterwards();
    void drawInBuffer_getsTheWidgetsOwnPixels();
    void drawInBuffer_shownAgainWithoutAMove_getsTheOtherBuffer();
    void drawInBuffer_runsForDirtyContentsOnly();

    void clobberRect_paintedUnderAStandingSprite_takesTheNewBackground();
    void clobberRect_isNotRestored();
    void clobberRect_hiddenLayer_isIgnored();

    void layerHide_restoresAll_layerShow_recapturesAll();
    void layerHide_bandLeavesAndComesBack();
    void band_isBelowSpritesAndLeavesNoTrace();
    void band_movedPart_isTouchedAlone();
    void band_noSprites_stillHandled();
    void band_coloursOnly_areExchanged();
    void band_movedSpriteUnderIt_backgroundIsClean();
    void holes_showTheWidgetAlone();
    void seeThrough_doesNotDarken();
    void manySprites_allMoved_leaveNothing();

    void spriteDestroyed_leavesTheScreenAtOnce();
    void layerDestroyedFirst_spritesLiveOn();
    void hostDestroyedFirst_nothingHappens();
    void hostDestroyed_withSpriteAsItsChild_isSafe();

private:
    std::unique_ptr<QWidget> m_window;
    SpriteHost * m_host = nullptr;
    std::unique_ptr<KSpriteLayer> m_layer;
    QImage m_empty; // the window without sprites
};

void tst_KSpriteLayer::init()
{
    Test::init();
    m_window = std::make_unique<QWidget>();
    m_window->resize(320, 240);
    m_host = new SpriteHost(m_window.get());
    m_host->setGeometry(24, 32, 240, 160);
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_host->layer = m_layer.get();
    QVERIFY(showAndSettle(*m_window));
    m_layer->update();
    m_host->paints = 0;
    m_empty = picture(*m_window);
}

void tst_KSpriteLayer::cleanup()
{
    m_layer.reset();
    m_window.reset();
}

void tst_KSpriteLayer::update_shown_isOnTheScreenWithoutAPaint()
{
    QRect const r(17, 9, 33, 32);
    TestSprite sprite(m_layer.get(), r);
    QVERIFY(sprite.aboutToShow());
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    m_layer->update();
    QVERIFY(!sprite.aboutToShow());
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, r, Qt::red)), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, r, Qt::red)), 0);
    QCOMPARE(m_host->paints, 0);
}

void tst_KSpriteLayer::update_hidden_restores()
{
    TestSprite sprite(m_layer.get(), QRect(17, 9, 33, 32));
    m_layer->update();
    sprite.hide();
    QVERIFY(sprite.aboutToHide());
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    QCOMPARE(m_host->paints, 0);
}

void tst_KSpriteLayer::update_moved_leavesNothingAtTheOldPlace()
{
    TestSprite sprite(m_layer.get(), QRect(0, 0, 32, 32));
    for (QPoint const p : {QPoint(1, 1), QPoint(5, 0), QPoint(100, 77), QPoint(-8, -8),
                           QPoint(231, 151), QPoint(300, 300)}) {
        sprite.moveTo(p);
        m_layer->update();
        QRect const seen = QRect(p, QSize(32, 32)) & m_host->rect();
        QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, seen, Qt::red)), 0);
    }
    QCOMPARE(sprite.draws, 1);
    QCOMPARE(m_host->paints, 0);
}

void tst_KSpriteLayer::update_overlappingSprites_noImageEntersABackground_data()
{
    QTest::addColumn<int>("moved");
    QTest::newRow("the lower one moves") << 0;
    QTest::newRow("the upper one moves") << 1;
    QTest::newRow("both move") << 2;
}

void tst_KSpriteLayer::update_overlappingSprites_noImageEntersABackground()
{
    QFETCH(int, moved);
    TestSprite lower(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
    TestSprite upper(m_layer.get(), QRect(56, 56, 32, 32), Qt::blue, 2);
    m_layer->update();
    for (int i = 0; i < 12; ++i) {
        if (moved != 1)
            lower.moveBy(QPoint(5, 4));
        if (moved != 0)
            upper.moveBy(QPoint(-3, -2));
        m_layer->update();
        QImage expected = filled(m_empty, *m_host, lower.geometry(), Qt::red);
        expected = filled(expected, *m_host, upper.geometry(), Qt::blue);
        QCOMPARE(wrongPixels(picture(*m_window), expected), 0);
    }
    lower.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, upper.geometry(), Qt::blue)),
             0);
    upper.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_KSpriteLayer::update_priority_decidesWhichIsOnTop()
{
    TestSprite a(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
    TestSprite b(m_layer.get(), QRect(50, 50, 32, 32), Qt::blue, 2);
    m_layer->update();
    a.setPriority(3);
    QImage expected = filled(m_empty, *m_host, a.geometry(), Qt::red);
    QCOMPARE(wrongPixels(picture(*m_window), filled(expected, *m_host, b.geometry(), Qt::blue)), 0);
    m_layer->update();
    expected = filled(m_empty, *m_host, b.geometry(), Qt::blue);
    QCOMPARE(wrongPixels(picture(*m_window), filled(expected, *m_host, a.geometry(), Qt::red)), 0);
}

// A hidden sprite needs no background, but one that is seen at a new place does.
void tst_KSpriteLayer::update_hiddenAndShownAgainAfterAMove_restoresEverything()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    sprite.moveTo(QPoint(100, 60));
    sprite.hide();
    sprite.show();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, sprite.geometry(), Qt::red)),
             0);
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_KSpriteLayer::update_removed_leavesTheScreenAndTheLayer()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_layer->removeSprite(&sprite);
    QVERIFY(sprite.aboutToRemove());
    sprite.show();
    QVERIFY(sprite.aboutToHide());
    int const befores = sprite.befores;
    int const afters = sprite.afters;
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    QCOMPARE(sprite.befores, befores + 1);
    QCOMPARE(sprite.afters, afters); // it has left by then
    QCOMPARE(sprite.getLayer(), m_layer.get());
    m_layer->addSprite(&sprite); // it still has its layer
    sprite.show();
    m_layer->update();
    QCOMPARE(sprite.befores, befores + 1);
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_KSpriteLayer::update_notifiesOnceForEachCommit()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    QCOMPARE(sprite.befores, 0);
    m_layer->update();
    m_layer->update();
    QCOMPARE(sprite.befores, 2);
    QCOMPARE(sprite.afters, 2);
    m_host->repaint();
    QCOMPARE(sprite.befores, 2);
    QCOMPARE(sprite.afters, 2);
    sprite.moveTo(QPoint(1, 1));
    m_host->repaint();
    QCOMPARE(sprite.befores, 2);
    settle(*m_window);
    QCOMPARE(sprite.befores, 3);
    QCOMPARE(sprite.afters, 3);
}

void tst_KSpriteLayer::update_fromWithinAnUpdate_runsAfterwards()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    int calls = 0;
    sprite.whileDrawing = [&] {
        if (++calls == 1)
            m_layer->update();
    };
    m_layer->update();
    QCOMPARE(calls, 1);
    QCOMPARE(sprite.afters, 1);
    settle(*m_window);
    QCOMPARE(sprite.afters, 2);
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, sprite.geometry(), Qt::red)),
             0);
}

void tst_KSpriteLayer::drawInBuffer_getsTheWidgetsOwnPixels()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(QRect(50, 30, 60, 60));
    TestSprite other(m_layer.get(), QRect(48, 48, 40, 40), Qt::green, 2);
    m_layer->update();
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
    m_layer->update();
    QRect const device = deviceRect(*m_host, sprite.geometry());
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
    sprite.changeContents(QSize(40, 40));
    sprite.moveTo(QPoint(44, 36));
    m_layer->update();
    QRect const moved = deviceRect(*m_host, sprite.geometry());
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), moved.size())), m_empty.copy(moved)), 0);
}

// A sprite that blends with its background must move or change its contents.
void tst_KSpriteLayer::drawInBuffer_shownAgainWithoutAMove_getsTheOtherBuffer()
{
    QRect const second(96, 64, 32, 32);
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    for (QPoint const place : {second.topLeft(), QPoint(144, 16)}) {
        sprite.moveTo(place);
        m_layer->update();
    }
    sprite.show();
    m_layer->update();
    QRect const device = deviceRect(*m_host, second);
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
}

void tst_KSpriteLayer::drawInBuffer_runsForDirtyContentsOnly()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    QCOMPARE(sprite.draws, 1);
    m_layer->update();
    sprite.moveTo(QPoint(1, 2));
    m_layer->update();
    sprite.setPriority(7);
    m_layer->update();
    QCOMPARE(sprite.draws, 1);
    sprite.color = Qt::blue;
    sprite.changeContents(QSize(20, 20));
    m_layer->update();
    QCOMPARE(sprite.draws, 2);
    QCOMPARE(
        wrongPixels(picture(*m_window), filled(m_empty, *m_host, QRect(1, 2, 20, 20), Qt::blue)),
        0);
    sprite.hide();
    sprite.changeContents(QSize(20, 20));
    m_layer->update();
    QCOMPARE(sprite.draws, 2);
    sprite.show();
    m_layer->update();
    QCOMPARE(sprite.draws, 3);
}

void tst_KSpriteLayer::clobberRect_paintedUnderAStandingSprite_takesTheNewBackground()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_host->changePicture(QRect(32, 32, 24, 64), 3);
    m_host->repaint(QRect(32, 32, 24, 64));
    QImage const painted = picture(*m_window);
    sprite.hide();
    m_layer->update();
    QImage const bare = picture(*m_window);
    QCOMPARE(wrongPixels(painted, filled(bare, *m_host, QRect(40, 40, 32, 32), Qt::red)), 0);
    m_host->layer = nullptr;
    m_host->repaint();
    QCOMPARE(wrongPixels(bare, picture(*m_window)), 0);
}

// Painted by the widget, told to the layer later, outside of the paint event.
void tst_KSpriteLayer::clobberRect_isNotRestored()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_host->layer = nullptr;
    m_host->changePicture(QRect(32, 32, 24, 64), 3);
    m_host->repaint(QRect(32, 32, 24, 64));
    m_layer->clobberRect(QRect(32, 32, 24, 64));
    sprite.hide();
    m_layer->update();
    QImage const bare = picture(*m_window);
    m_host->repaint();
    QCOMPARE(wrongPixels(bare, picture(*m_window)), 0);
}

void tst_KSpriteLayer::clobberRect_hiddenLayer_isIgnored()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->hide();
    m_layer->update();
    m_layer->clobberRect(m_host->rect());
    m_layer->show();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, sprite.geometry(), Qt::red)),
             0);
}

void tst_KSpriteLayer::layerHide_restoresAll_layerShow_recapturesAll()
{
    TestSprite a(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
    TestSprite b(m_layer.get(), QRect(56, 48, 32, 32), Qt::blue, 2);
    m_layer->update();
    QImage const both = picture(*m_window);
    m_layer->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    m_host->changePicture(QRect(32, 32, 80, 80), 2);
    m_host->repaint();
    QImage const changed = picture(*m_window);
    m_layer->show();
    m_layer->update();
    QImage expected = filled(changed, *m_host, a.geometry(), Qt::red);
    expected = filled(expected, *m_host, b.geometry(), Qt::blue);
    QCOMPARE(wrongPixels(picture(*m_window), expected), 0);
    QVERIFY(wrongPixels(both, expected) > 0);
    a.hide();
    b.moveTo(QPoint(0, 0));
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), filled(changed, *m_host, b.geometry(), Qt::blue)), 0);
}

void tst_KSpriteLayer::layerHide_bandLeavesAndComesBack()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(QRect(10, 10, 50, 40));
    m_layer->update();
    QImage const shown = picture(*m_window);
    QCOMPARE(wrongPixels(shown, inverted(m_empty, {deviceRect(*m_host, QRect(10, 10, 50, 40))})),
             0);
    m_layer->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    m_layer->show();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), shown), 0);
}

void tst_KSpriteLayer::band_isBelowSpritesAndLeavesNoTrace()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    TestSprite sprite(m_layer.get(), QRect(20, 20, 32, 32));
    for (QRect const r : {QRect(10, 10, 50, 40), QRect(15, 5, 60, 30), QRect(22, 22, 8, 8),
                          QRect(100, 90, 20, 20), QRect(0, 0, 240, 160)}) {
        m_layer->setSelection(r);
        m_layer->update();
        QImage const expected = inverted(m_empty, {deviceRect(*m_host, r)});
        QCOMPARE(
            wrongPixels(picture(*m_window), filled(expected, *m_host, sprite.geometry(), Qt::red)),
            0);
        sprite.moveBy(QPoint(3, 5));
    }
    m_layer->setSelection(QRect());
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_KSpriteLayer::band_movedPart_isTouchedAlone()
{
    m_layer->setSelForeground(QColor(200, 100, 50));
    m_layer->setSelBackground(QColor(10, 20, 30));
    m_layer->setSelection(QRect(10, 10, 50, 40));
    m_layer->update();
    m_layer->setSelection(QRect(12, 10, 50, 40));
    m_layer->update();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_KSpriteLayer::band_noSprites_stillHandled()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(QRect(0, 0, 30, 30));
    QCOMPARE(m_layer->getSelection(), QRect());
    m_layer->update();
    QCOMPARE(m_layer->getSelection(), QRect(0, 0, 30, 30));
    QCOMPARE(wrongPixels(picture(*m_window),
                         inverted(m_empty, {deviceRect(*m_host, QRect(0, 0, 30, 30))})),
             0);
}

void tst_KSpriteLayer::band_coloursOnly_areExchanged()
{
    QRect const r(10, 10, 50, 40);
    m_layer->setSelForeground(Qt::red);
    m_layer->setSelBackground(Qt::blue);
    m_layer->setSelection(r);
    m_layer->update();
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), inverted(m_empty, {deviceRect(*m_host, r)})), 0);
}

void tst_KSpriteLayer::band_movedSpriteUnderIt_backgroundIsClean()
{
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(QRect(10, 10, 100, 100));
    m_layer->update();
    TestSprite sprite(m_layer.get(), QRect(20, 20, 32, 32));
    m_layer->update();
    sprite.moveTo(QPoint(60, 60));
    m_layer->update();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, sprite.geometry(), Qt::red)),
             0);
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_KSpriteLayer::holes_showTheWidgetAlone()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    sprite.look = TestSprite::Look::Holes;
    for (int i = 0; i < 6; ++i) {
        m_layer->update();
        QRect const r = sprite.geometry();
        QRect const middle = deviceRect(*m_host, r.adjusted(6, 6, -6, -6));
        QCOMPARE(wrongPixels(picture(*m_window).copy(middle), m_empty.copy(middle)), 0);
        sprite.moveBy(QPoint(3, 2));
    }
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_KSpriteLayer::seeThrough_doesNotDarken()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    sprite.look = TestSprite::Look::SeeThrough;
    TestSprite other(m_layer.get(), QRect(50, 50, 32, 32), Qt::blue, 1);
    other.look = TestSprite::Look::SeeThrough;
    m_layer->update();
    QImage const once = picture(*m_window);
    for (int i = 0; i < 3; ++i) {
        m_layer->update();
        other.moveBy(QPoint(i, 0));
        m_layer->update();
        m_host->repaint(QRect(45, 45, 10, 10));
        other.moveTo(QPoint(50, 50));
        m_layer->update();
        QCOMPARE(wrongPixels(picture(*m_window), once), 0);
    }
}

void tst_KSpriteLayer::manySprites_allMoved_leaveNothing()
{
    std::vector<std::unique_ptr<TestSprite>> sprites;
    for (int i = 0; i < 300; ++i) {
        QRect const r((i * 37) % 230, (i * 53) % 150, 12, 10);
        sprites.push_back(
            std::make_unique<TestSprite>(m_layer.get(), r, QColor::fromHsv(i, 200, 200), i));
    }
    for (int step = 0; step < 5; ++step) {
        m_layer->update();
        QImage expected = m_empty;
        for (auto const & sprite : sprites)
            expected =
                filled(expected, *m_host, sprite->geometry() & m_host->rect(), sprite->color);
        QCOMPARE(wrongPixels(picture(*m_window), expected), 0);
        for (size_t i = 0; i < sprites.size(); ++i) {
            if (step % 2 == 0 || i % 20 == 0)
                sprites[i]->moveBy(QPoint(static_cast<int>(i % 5) - 2, 2));
        }
    }
    sprites.clear();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    QCOMPARE(m_host->paints, 0);
}

void tst_KSpriteLayer::spriteDestroyed_leavesTheScreenAtOnce()
{
    TestSprite below(m_layer.get(), QRect(50, 50, 32, 32), Qt::blue);
    {
        TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
        m_layer->update();
    }
    QCOMPARE(wrongPixels(picture(*m_window), filled(m_empty, *m_host, below.geometry(), Qt::blue)),
             0);
}

void tst_KSpriteLayer::layerDestroyedFirst_spritesLiveOn()
{
    auto removed = std::make_unique<TestSprite>(m_layer.get(), QRect(0, 0, 9, 9));
    auto sprite = std::make_unique<TestSprite>(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_layer->removeSprite(removed.get());
    m_layer->update();
    QImage const shown = picture(*m_window);
    m_host->layer = nullptr;
    m_layer.reset();
    QVERIFY(!sprite->getLayer());
    QVERIFY(!removed->getLayer());
    sprite->moveTo(QPoint(1, 1));
    sprite->setEnsureVisible(true);
    sprite->moveTo(QPoint(2, 2));
    sprite.reset();
    removed.reset();
    QCOMPARE(wrongPixels(picture(*m_window), shown), 0);
}

void tst_KSpriteLayer::hostDestroyedFirst_nothingHappens()
{
    auto sprite = std::make_unique<TestSprite>(m_layer.get(), QRect(40, 40, 32, 32));
    sprite->setEnsureVisible(true);
    m_layer->setSelection(QRect(0, 0, 9, 9));
    m_layer->update();
    delete m_host;
    QCOMPARE(m_layer->getWidget(), nullptr);
    QCOMPARE(m_layer->size(), QSize());
    sprite->moveTo(QPoint(5, 5));
    sprite->changeContents(QSize(7, 7));
    m_layer->setSelection(QRect(0, 0, 5, 5));
    m_layer->clobberRect(QRect(0, 0, 100, 100));
    m_layer->update();
    QCOMPARE(m_layer->getSelection(), QRect(0, 0, 5, 5));
    sprite.reset();
    m_layer->update();
}

// A caret is a QObject, and dies with the children of its widget.
void tst_KSpriteLayer::hostDestroyed_withSpriteAsItsChild_isSafe()
{
    struct Owned : QObject, TestSprite
    {
        Owned(QObject * parent, KSpriteLayer * layer)
            : QObject(parent)
            , TestSprite(layer, QRect(40, 40, 32, 32))
        {
        }
    };
    new Owned(m_host, m_layer.get());
    new Owned(m_window.get(), m_layer.get());
    m_layer->update();
    m_host->layer = nullptr;
    delete m_host;
    m_window.reset();
    m_layer->update();
}

ZENU_TEST(tst_KSpriteLayer)
#include "tst_KSpriteLayer.moc"
