#include "tests/sprites/SpriteScene.h"

using namespace zenu;
using namespace zenutest;

// What stands on the screen after updates outside of paint events.
class tst_KSpriteLayer : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void update_shown_isOnTheScreenWithoutAPaint();
    void update_hidden_restores();
    void update_moved_leavesNothingAtTheOldPlace();
    void update_overlappingSprites_noImageEntersABackground_data();
    void update_overlappingSprites_noImageEntersABackground();
    void update_priority_decidesWhichIsOnTop();
    void update_hiddenAndShownAgainAfterAMove_restoresEverything();
    void update_removed_leavesTheScreenAndTheLayer();

    void layerHide_restoresAll_layerShow_recapturesAll();
    void layerShow_spriteHiddenAndShownMeanwhile_recaptures();

    void holes_showTheWidgetAlone();
    void seeThrough_doesNotDarken();
    void manySprites_allMoved_leaveNothing();
    void manyMoves_noPaintEventReachesAnyWidget();
    void oneOfManyHides_touchesItsPlaceAlone();
};

namespace {

struct PaintCounter : QObject
{
    int paints = 0;
    bool eventFilter(QObject *, QEvent * event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

void tst_KSpriteLayer::init()
{
    Test::init();
    QVERIFY(openScene());
}

void tst_KSpriteLayer::update_shown_isOnTheScreenWithoutAPaint()
{
    QRect const r(17, 9, 33, 32);
    TestSprite sprite(m_layer.get(), r);
    QVERIFY(sprite.aboutToShow());
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    m_layer->update();
    QVERIFY(!sprite.aboutToShow());
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, r, Qt::red)), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, r, Qt::red)), 0);
    QCOMPARE(m_host->paints, 0);
}

void tst_KSpriteLayer::update_hidden_restores()
{
    TestSprite sprite(m_layer.get(), QRect(17, 9, 33, 32));
    m_layer->update();
    sprite.hide();
    QVERIFY(sprite.aboutToHide());
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    QCOMPARE(m_host->paints, 0);
}

void tst_KSpriteLayer::update_moved_leavesNothingAtTheOldPlace()
{
    TestSprite sprite(m_layer.get(), QRect(0, 0, 32, 32));
    for (QPoint const p : {QPoint(1, 1), QPoint(5, 0), QPoint(100, 77), QPoint(-8, -8),
                           QPoint(231, 151), QPoint(300, 300)}) {
        sprite.moveTo(p);
        m_layer->update();
        QRect const visible = QRect(p, QSize(32, 32)) & m_host->rect();
        QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, visible, Qt::red)), 0);
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
        QCOMPARE(wrongPixels(seen(), expected), 0);
    }
    lower.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, upper.geometry(), Qt::blue)), 0);
    upper.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_KSpriteLayer::update_priority_decidesWhichIsOnTop()
{
    TestSprite a(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
    TestSprite b(m_layer.get(), QRect(50, 50, 32, 32), Qt::blue, 2);
    m_layer->update();
    a.setPriority(3);
    QImage expected = filled(m_empty, *m_host, a.geometry(), Qt::red);
    QCOMPARE(wrongPixels(seen(), filled(expected, *m_host, b.geometry(), Qt::blue)), 0);
    m_layer->update();
    expected = filled(m_empty, *m_host, b.geometry(), Qt::blue);
    QCOMPARE(wrongPixels(seen(), filled(expected, *m_host, a.geometry(), Qt::red)), 0);
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
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, sprite.geometry(), Qt::red)), 0);
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
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
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    QCOMPARE(sprite.befores, befores + 1);
    QCOMPARE(sprite.afters, afters); // it has left by then
    QCOMPARE(sprite.getLayer(), m_layer.get());
    m_layer->addSprite(&sprite); // it still has its layer
    sprite.show();
    m_layer->update();
    QCOMPARE(sprite.befores, befores + 1);
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_KSpriteLayer::layerHide_restoresAll_layerShow_recapturesAll()
{
    TestSprite a(m_layer.get(), QRect(40, 40, 32, 32), Qt::red, 1);
    TestSprite b(m_layer.get(), QRect(56, 48, 32, 32), Qt::blue, 2);
    m_layer->update();
    QImage const both = seen();
    m_layer->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    m_host->changePicture(QRect(32, 32, 80, 80), 2);
    m_host->repaint();
    QImage const changed = seen();
    m_layer->show();
    m_layer->update();
    QImage expected = filled(changed, *m_host, a.geometry(), Qt::red);
    expected = filled(expected, *m_host, b.geometry(), Qt::blue);
    QCOMPARE(wrongPixels(seen(), expected), 0);
    QVERIFY(wrongPixels(both, expected) > 0);
    a.hide();
    b.moveTo(QPoint(0, 0));
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), filled(changed, *m_host, b.geometry(), Qt::blue)), 0);
}

// What the sprite still has is older than what the host painted while the layer was off.
void tst_KSpriteLayer::layerShow_spriteHiddenAndShownMeanwhile_recaptures()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_layer->hide();
    m_layer->update();
    m_host->changePicture(QRect(32, 32, 80, 80), 2);
    m_host->repaint();
    QImage const bare = seen();
    m_layer->show();
    sprite.hide();
    sprite.show();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), filled(bare, *m_host, sprite.geometry(), Qt::red)), 0);
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), bare), 0);
}

void tst_KSpriteLayer::holes_showTheWidgetAlone()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    sprite.look = TestSprite::Look::Holes;
    for (int i = 0; i < 6; ++i) {
        m_layer->update();
        QRect const r = sprite.geometry();
        QRect const middle = deviceRect(*m_host, r.adjusted(6, 6, -6, -6));
        QCOMPARE(wrongPixels(seen().copy(middle), m_empty.copy(middle)), 0);
        sprite.moveBy(QPoint(3, 2));
    }
    sprite.hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_KSpriteLayer::seeThrough_doesNotDarken()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    sprite.look = TestSprite::Look::SeeThrough;
    TestSprite other(m_layer.get(), QRect(50, 50, 32, 32), Qt::blue, 1);
    other.look = TestSprite::Look::SeeThrough;
    m_layer->update();
    QImage const once = seen();
    for (int i = 0; i < 3; ++i) {
        m_layer->update();
        other.moveBy(QPoint(i, 0));
        m_layer->update();
        m_host->repaint(QRect(45, 45, 10, 10));
        other.moveTo(QPoint(50, 50));
        m_layer->update();
        QCOMPARE(wrongPixels(seen(), once), 0);
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
        QPainter painter(&expected);
        for (auto const & sprite : sprites)
            painter.fillRect(deviceRect(*m_host, sprite->geometry() & m_host->rect()),
                             sprite->color);
        painter.end();
        QCOMPARE(wrongPixels(seen(), expected), 0);
        for (size_t i = 0; i < sprites.size(); ++i) {
            if (step % 2 == 0 || i % 20 == 0)
                sprites[i]->moveBy(QPoint(static_cast<int>(i % 5) - 2, 2));
        }
    }
    sprites.clear();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    QCOMPARE(m_host->paints, 0);
}

void tst_KSpriteLayer::manyMoves_noPaintEventReachesAnyWidget()
{
    addSprites();
    PaintCounter counter;
    qApp->installEventFilter(&counter);
    for (int i = 0; i < 40; ++i) {
        m_lower->moveBy(QPoint(3, 1));
        m_upper->moveBy(QPoint(-1, 2));
        m_layer->setSelection(QRect(i, i, 50, 40));
        m_layer->update();
        settle(*m_window);
    }
    QCOMPARE(counter.paints, 0);
}

// The layer is not told that some sprites were painted over: what it touches is seen by that.
void tst_KSpriteLayer::oneOfManyHides_touchesItsPlaceAlone()
{
    addSprites();
    std::vector<std::unique_ptr<TestSprite>> others;
    for (int i = 0; i < 100; ++i) {
        QRect const r(i % 20 * 12, 96 + i / 20 * 12, 10, 10);
        others.push_back(std::make_unique<TestSprite>(m_layer.get(), r, Qt::green));
    }
    m_layer->update();
    m_host->layer = nullptr;
    m_host->repaint();
    m_host->layer = m_layer.get();
    QImage const expected = filled(m_empty, *m_host, upperRect & lowerRect, Qt::red);
    m_upper->hide();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), expected), 0);
}

ZENU_TEST(tst_KSpriteLayer)
#include "tst_KSpriteLayer.moc"
