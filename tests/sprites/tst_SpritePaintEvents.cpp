#include "tests/sprites/SpriteScene.h"

using namespace zenu;
using namespace zenutest;

// What happens in paint events of the host, and what the host says about them.
class tst_SpritePaintEvents : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void fullRepaint_keepsSpritesAndBand();
    void stripRepaint_keepsSpritesAndBand_data();
    void stripRepaint_keepsSpritesAndBand();
    void repaint_isOnePaintEvent();
    void repaint_uncommittedMove_comesRightAfter();
    void repaint_ofAnotherWidget_commitsAfterwards();
    void firstUpdateInAPaintEvent_showsTheLayerAfterwards();
    void layerHiddenInThePaintEvent_leavesAfterwards();
    void screenOfAnotherRatio_picturesAreDrawnAnew();

    void clobberRect_paintedUnderAStandingSprite_takesTheNewBackground();
    void clobberRect_isNotRestored();
    void clobberRect_hiddenLayer_isIgnored();
    void clobberRect_afterTheEvent_spriteAndBandComeBack();
    void clobberRect_widerThanAnInt_isCutByTheHost();
};

void tst_SpritePaintEvents::init()
{
    Test::init();
    QVERIFY(openScene());
}

void tst_SpritePaintEvents::fullRepaint_keepsSpritesAndBand()
{
    addSpritesAndBand();
    QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
    for (int i = 0; i < 3; ++i) {
        m_host->repaint();
        settle(*m_window);
        QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
    }
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SpritePaintEvents::stripRepaint_keepsSpritesAndBand_data()
{
    QTest::addColumn<bool>("clobbersAll");
    QTest::addColumn<bool>("painterOpen");
    QTest::newRow("tells what it paints") << false << false;
    QTest::newRow("tells more than it paints") << true << false;
    QTest::newRow("with its painter open") << false << true;
}

void tst_SpritePaintEvents::stripRepaint_keepsSpritesAndBand()
{
    addSpritesAndBand();
    QFETCH(bool, clobbersAll);
    QFETCH(bool, painterOpen);
    m_host->clobbersAll = clobbersAll;
    m_host->keepsPainterOpen = painterOpen;
    for (QRect const r : {QRect(0, 50, 240, 13), QRect(45, 0, 7, 160), QRect(60, 60, 3, 3)}) {
        m_host->repaint(r);
        QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
    }
    settle(*m_window);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SpritePaintEvents::repaint_isOnePaintEvent()
{
    addSpritesAndBand();
    m_lower->moveBy(QPoint(3, 3));
    m_host->update();
    settle(*m_window);
    QCOMPARE(m_host->paints, 1);
    m_layer->update();
    settle(*m_window);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpritePaintEvents::repaint_uncommittedMove_comesRightAfter()
{
    addSpritesAndBand();
    m_upper->moveTo(QPoint(120, 8));
    m_layer->setSelection(QRect());
    m_host->repaint();
    QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
    QCoreApplication::sendPostedEvents();
    QImage const expected = filled(m_empty, *m_host, lowerRect, Qt::red);
    QCOMPARE(wrongPixels(seen(), filled(expected, *m_host, m_upper->geometry(), Qt::blue)), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpritePaintEvents::repaint_ofAnotherWidget_commitsAfterwards()
{
    addSpritesAndBand();
    auto * const other = new SpriteHost(m_window.get());
    other->setGeometry(0, 0, 24, 24);
    other->show();
    settle(*m_window);
    QImage const before = seen();
    other->inPaintEvent = [&] {
        m_upper->moveTo(QPoint(120, 8));
        m_layer->update();
    };
    other->repaint();
    QCOMPARE(wrongPixels(seen(), before), 0);
    settle(*m_window);
    QRect const there = deviceRect(*m_host, m_upper->geometry());
    QCOMPARE(seen().pixelColor(there.center()), QColor(Qt::blue));
}

void tst_SpritePaintEvents::firstUpdateInAPaintEvent_showsTheLayerAfterwards()
{
    addSpritesAndBand();
    KSpriteLayer second(m_host);
    m_layer->hide();
    m_layer->update();
    m_host->layer = &second;
    TestSprite sprite(&second, QRect(8, 8, 20, 20), Qt::green);
    m_host->repaint();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, QRect(8, 8, 20, 20), Qt::green)), 0);
    m_host->layer = m_layer.get();
}

void tst_SpritePaintEvents::layerHiddenInThePaintEvent_leavesAfterwards()
{
    addSprites();
    m_host->inPaintEvent = [&] { m_layer->hide(); };
    m_host->repaint();
    m_host->inPaintEvent = nullptr;
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    QCOMPARE(m_host->paints, 1);
}

// The test sprites_two_screens has such a screen.
void tst_SpritePaintEvents::screenOfAnotherRatio_picturesAreDrawnAnew()
{
    addSpritesAndBand();
    auto const screens = QGuiApplication::screens();
    auto const other = std::find_if(screens.begin(), screens.end(), [&](QScreen const * screen) {
        return screen->devicePixelRatio() != ratioOf(*m_host);
    });
    if (other == screens.end())
        QSKIP("All screens have the same ratio");
    qreal const ratio = (*other)->devicePixelRatio();
    m_window->setScreen(*other);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    settle(*m_window);
    QCOMPARE(ratioOf(*m_host), ratio);
    QCOMPARE(m_lower->draws, 2);
    QCOMPARE(m_lower->bufferSize, lowerRect.size() * ratio);
    QImage const shown = seen();
    hideAll();
    m_empty = seen();
    QCOMPARE(m_empty.size(), m_window->size() * ratio);
    QCOMPARE(wrongPixels(shown, withSpritesAndBand()), 0);
    m_host->repaint();
    QCOMPARE(wrongPixels(m_empty, seen()), 0);
}

void tst_SpritePaintEvents::clobberRect_paintedUnderAStandingSprite_takesTheNewBackground()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_host->changePicture(QRect(32, 32, 24, 64), 3);
    m_host->repaint(QRect(32, 32, 24, 64));
    QImage const painted = seen();
    sprite.hide();
    m_layer->update();
    QImage const bare = seen();
    QCOMPARE(wrongPixels(painted, filled(bare, *m_host, QRect(40, 40, 32, 32), Qt::red)), 0);
    m_host->layer = nullptr;
    m_host->repaint();
    QCOMPARE(wrongPixels(bare, seen()), 0);
}

// Painted by the widget, told to the layer later, outside of the paint event.
void tst_SpritePaintEvents::clobberRect_isNotRestored()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->update();
    m_host->layer = nullptr;
    m_host->changePicture(QRect(32, 32, 24, 64), 3);
    m_host->repaint(QRect(32, 32, 24, 64));
    m_layer->clobberRect(QRect(32, 32, 24, 64));
    sprite.hide();
    m_layer->update();
    QImage const bare = seen();
    m_host->repaint();
    QCOMPARE(wrongPixels(bare, seen()), 0);
}

void tst_SpritePaintEvents::clobberRect_hiddenLayer_isIgnored()
{
    TestSprite sprite(m_layer.get(), QRect(40, 40, 32, 32));
    m_layer->hide();
    m_layer->update();
    m_layer->clobberRect(m_host->rect());
    m_layer->show();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), filled(m_empty, *m_host, sprite.geometry(), Qt::red)), 0);
}

// The host has painted over a part of all, and says so later, outside of its paint event.
void tst_SpritePaintEvents::clobberRect_afterTheEvent_spriteAndBandComeBack()
{
    addSprites();
    addBand(bandRect);
    QRect const painted(32, 48, 80, 32);
    m_host->layer = nullptr;
    m_host->changePicture(painted, 5);
    m_host->repaint(painted);
    m_layer->clobberRect(painted);
    m_layer->update();
    QImage const shown = seen();
    hideAll();
    m_empty = seen();
    m_host->repaint();
    QCOMPARE(wrongPixels(m_empty, seen()), 0);
    QImage expected = withBand(bandRect);
    expected = filled(expected, *m_host, lowerRect, Qt::red);
    QCOMPARE(wrongPixels(shown, filled(expected, *m_host, upperRect, Qt::blue)), 0);
}

void tst_SpritePaintEvents::clobberRect_widerThanAnInt_isCutByTheHost()
{
    addSprites();
    m_host->inPaintEvent = [&] { m_layer->clobberRect(everywhere); };
    m_host->repaint(QRect(50, 50, 20, 5));
    m_host->grab();
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
    m_host->layer = nullptr;
    m_host->repaint();
    m_layer->clobberRect(everywhere); // told after the event
    m_host->layer = m_layer.get();
    m_lower->show();
    m_upper->show();
    m_layer->update();
    QCOMPARE(wrongPixels(seen(), withSprites()), 0);
}

ZENU_TEST(tst_SpritePaintEvents)
#include "tst_SpritePaintEvents.moc"
