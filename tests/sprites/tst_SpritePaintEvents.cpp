#include "tests/sprites/SpriteHost.h"
#include "tests/support/TestMain.h"

#include <QtGui/QPdfWriter>
#include <QtGui/QPicture>
#include <QtWidgets/QGraphicsOpacityEffect>

#include <algorithm>

using namespace zenu;
using namespace zenutest;

// What happens in paint events of the host: on the screen and into pictures.
class tst_SpritePaintEvents : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void fullRepaint_keepsSpritesAndBand();
    void stripRepaint_keepsSpritesAndBand_data();
    void stripRepaint_keepsSpritesAndBand();
    void repaint_isOnePaintEvent();
    void repaint_uncommittedMove_comesRightAfter();
    void repaint_ofAnotherWidget_commitsAfterwards();
    void firstUpdateInAPaintEvent_showsTheLayerAfterwards();
    void committedWhileHidden_appearsWithTheHost();
    void committedWhileHidden_seesItsBackground();
    void coveredAndUncovered_leavesNothing();
    void destroyedInThePaintEvent_leavesRightAfter();
    void destroyedInThePaintEvent_paintedUnder_restoresTheNewPicture();
    void layerDestroyedAfterThePaintEvent_dropsThePostedUpdate();

    void grab_showsTheCommittedState_data();
    void grab_showsTheCommittedState();
    void grab_part_showsTheSpritesInIt();
    void grab_neverShownHost_showsTheSprites();
    void grab_twoUpdatesInThePaintEvent_changeNothing();
    void render_intoAPainter_showsTheSprites();
    void render_ofTheWindow_showsTheSprites();
    void render_intoAFileOfCommands_isSafe();
    void render_scaled_scalesSpritesAndBand_data();
    void render_scaled_scalesSpritesAndBand();
    void render_ofTheWindowMoved_movesTheSpritesAlong();
    void render_withThePainterOfTheHostOpen_showsTheSprites();
    void render_recorded_playsTheSprites();
    void graphicsEffect_spritesAreShownByRepainting();
    void screenOfAnotherRatio_picturesAreDrawnAnew();

private:
    QImage expectedPicture() const;
    QImage grabbed();

    std::unique_ptr<QWidget> m_window;
    SpriteHost * m_host = nullptr;
    std::unique_ptr<KSpriteLayer> m_layer;
    std::unique_ptr<TestSprite> m_lower;
    std::unique_ptr<TestSprite> m_upper;
    QImage m_empty;
};

namespace {

constexpr QRect lowerRect(40, 40, 32, 32);
constexpr QRect upperRect(56, 48, 40, 24);
constexpr QRect bandRect(16, 56, 160, 48);

} // namespace

void tst_SpritePaintEvents::init()
{
    Test::init();
    m_window = std::make_unique<QWidget>();
    m_window->resize(320, 240);
    m_host = new SpriteHost(m_window.get());
    m_host->setGeometry(24, 32, 240, 160);
    QVERIFY(showAndSettle(*m_window));
    m_empty = picture(*m_window);
    m_layer = std::make_unique<KSpriteLayer>(m_host);
    m_host->layer = m_layer.get();
    m_lower = std::make_unique<TestSprite>(m_layer.get(), lowerRect, Qt::red, 1);
    m_upper = std::make_unique<TestSprite>(m_layer.get(), upperRect, Qt::blue, 2);
    m_layer->setSelForeground(Qt::white);
    m_layer->setSelBackground(Qt::black);
    m_layer->setSelection(bandRect);
    m_layer->update();
    m_host->paints = 0;
}

void tst_SpritePaintEvents::cleanup()
{
    m_upper.reset();
    m_lower.reset();
    m_layer.reset();
    m_window.reset();
}

QImage tst_SpritePaintEvents::expectedPicture() const
{
    QImage image = inverted(m_empty, {deviceRect(*m_host, bandRect)});
    image = filled(image, *m_host, lowerRect, Qt::red);
    return filled(image, *m_host, upperRect, Qt::blue);
}

// The host alone, with device pixels as its own.
QImage tst_SpritePaintEvents::grabbed()
{
    QImage image = m_host->grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

void tst_SpritePaintEvents::fullRepaint_keepsSpritesAndBand()
{
    QCOMPARE(wrongPixels(picture(*m_window), expectedPicture()), 0);
    for (int i = 0; i < 3; ++i) {
        m_host->repaint();
        settle(*m_window);
        QCOMPARE(wrongPixels(picture(*m_window), expectedPicture()), 0);
    }
    m_lower->hide();
    m_upper->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
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
    QFETCH(bool, clobbersAll);
    QFETCH(bool, painterOpen);
    m_host->clobbersAll = clobbersAll;
    m_host->keepsPainterOpen = painterOpen;
    for (QRect const r : {QRect(0, 50, 240, 13), QRect(45, 0, 7, 160), QRect(60, 60, 3, 3)}) {
        m_host->repaint(r);
        QCOMPARE(wrongPixels(picture(*m_window), expectedPicture()), 0);
    }
    settle(*m_window);
    m_lower->hide();
    m_upper->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_SpritePaintEvents::repaint_isOnePaintEvent()
{
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
    m_upper->moveTo(QPoint(120, 8));
    m_layer->setSelection(QRect());
    m_host->repaint();
    QCOMPARE(wrongPixels(picture(*m_window), expectedPicture()), 0);
    QCoreApplication::sendPostedEvents();
    QImage const expected = filled(m_empty, *m_host, lowerRect, Qt::red);
    QCOMPARE(
        wrongPixels(picture(*m_window), filled(expected, *m_host, m_upper->geometry(), Qt::blue)),
        0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpritePaintEvents::repaint_ofAnotherWidget_commitsAfterwards()
{
    auto * const other = new SpriteHost(m_window.get());
    other->setGeometry(0, 0, 24, 24);
    other->show();
    settle(*m_window);
    QImage const before = picture(*m_window);
    other->inPaintEvent = [&] {
        m_upper->moveTo(QPoint(120, 8));
        m_layer->update();
    };
    other->repaint();
    QCOMPARE(wrongPixels(picture(*m_window), before), 0);
    settle(*m_window);
    QRect const there = deviceRect(*m_host, m_upper->geometry());
    QCOMPARE(picture(*m_window).pixelColor(there.center()), QColor(Qt::blue));
}

void tst_SpritePaintEvents::firstUpdateInAPaintEvent_showsTheLayerAfterwards()
{
    KSpriteLayer second(m_host);
    m_layer->hide();
    m_layer->update();
    m_host->layer = &second;
    TestSprite sprite(&second, QRect(8, 8, 20, 20), Qt::green);
    m_host->repaint();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
    settle(*m_window);
    QCOMPARE(
        wrongPixels(picture(*m_window), filled(m_empty, *m_host, QRect(8, 8, 20, 20), Qt::green)),
        0);
    m_host->layer = m_layer.get();
}

void tst_SpritePaintEvents::committedWhileHidden_appearsWithTheHost()
{
    m_host->hide();
    settle(*m_window);
    m_lower->moveTo(QPoint(100, 100));
    m_layer->update();
    m_lower->moveTo(lowerRect.topLeft());
    m_layer->update();
    m_host->show();
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), expectedPicture()), 0);
    m_lower->hide();
    m_upper->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_SpritePaintEvents::committedWhileHidden_seesItsBackground()
{
    m_host->hide();
    TestSprite sprite(m_layer.get(), QRect(8, 8, 20, 20), Qt::green);
    m_layer->update();
    QCOMPARE(sprite.draws, 1);
    m_host->show();
    settle(*m_window);
    QCOMPARE(sprite.draws, 2);
    QRect const device = deviceRect(*m_host, sprite.geometry());
    QCOMPARE(wrongPixels(sprite.below.copy(QRect(QPoint(), device.size())), m_empty.copy(device)),
             0);
    m_host->repaint();
    QCOMPARE(sprite.draws, 2);
}

void tst_SpritePaintEvents::coveredAndUncovered_leavesNothing()
{
    QWidget cover(m_window.get());
    cover.setAutoFillBackground(true);
    cover.setGeometry(60, 60, 80, 60);
    cover.show();
    settle(*m_window);
    m_lower->moveBy(QPoint(9, 5));
    m_layer->update();
    cover.hide();
    m_lower->moveTo(lowerRect.topLeft()); // while the host has not painted yet
    m_layer->update();
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), expectedPicture()), 0);
}

void tst_SpritePaintEvents::destroyedInThePaintEvent_leavesRightAfter()
{
    m_host->inPaintEvent = [&] { m_upper.reset(); };
    m_host->repaint(QRect(50, 50, 12, 12));
    m_host->inPaintEvent = nullptr;
    settle(*m_window);
    QImage const expected = inverted(m_empty, {deviceRect(*m_host, bandRect)});
    QCOMPARE(wrongPixels(picture(*m_window), filled(expected, *m_host, lowerRect, Qt::red)), 0);
    QCOMPARE(m_host->paints, 1);
}

void tst_SpritePaintEvents::destroyedInThePaintEvent_paintedUnder_restoresTheNewPicture()
{
    QRect const r(56, 48, 16, 16);
    m_host->changePicture(r, 4);
    m_host->inPaintEvent = [&] { m_upper.reset(); };
    m_host->repaint(r);
    m_host->inPaintEvent = nullptr;
    m_lower->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
    QImage const bare = picture(*m_window);
    m_host->layer = nullptr;
    m_host->repaint();
    QCOMPARE(wrongPixels(bare, picture(*m_window)), 0);
    m_host->layer = m_layer.get();
}

void tst_SpritePaintEvents::layerDestroyedAfterThePaintEvent_dropsThePostedUpdate()
{
    m_upper->moveBy(QPoint(50, 50));
    m_host->repaint();
    m_host->layer = nullptr;
    m_layer.reset();
    settle(*m_window);
    QVERIFY(!m_upper->getLayer());
}

void tst_SpritePaintEvents::grab_showsTheCommittedState_data()
{
    QTest::addColumn<bool>("painterOpen");
    QTest::newRow("painter of the host closed") << false;
    QTest::newRow("painter of the host open") << true;
}

void tst_SpritePaintEvents::grab_showsTheCommittedState()
{
    QFETCH(bool, painterOpen);
    m_host->keepsPainterOpen = painterOpen;
    QImage const before = picture(*m_window);
    m_upper->moveTo(QPoint(120, 8)); // is not committed
    QCOMPARE(wrongPixels(grabbed(), expectedPicture().copy(deviceRect(*m_host, m_host->rect()))),
             0);
    settle(*m_window);
    QCOMPARE(wrongPixels(picture(*m_window), before), 0);
    QCOMPARE(m_upper->befores, 1);
    m_upper->hide();
    m_lower->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
    QCOMPARE(wrongPixels(picture(*m_window), m_empty), 0);
}

void tst_SpritePaintEvents::grab_part_showsTheSpritesInIt()
{
    QRect const part(48, 32, 64, 64);
    QImage image = m_host->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    QCOMPARE(wrongPixels(image, expectedPicture().copy(deviceRect(*m_host, part))), 0);
}

void tst_SpritePaintEvents::grab_neverShownHost_showsTheSprites()
{
    SpriteHost host;
    host.resize(64, 64);
    KSpriteLayer layer(&host);
    host.layer = &layer;
    TestSprite sprite(&layer, QRect(8, 8, 16, 16), Qt::green);
    layer.update();
    QImage const image = host.grab().toImage();
    qreal const ratio = image.devicePixelRatio();
    QCOMPARE(image.pixelColor(QPoint(qRound(16 * ratio), qRound(16 * ratio))), QColor(Qt::green));
    QCOMPARE(image.pixelColor(QPoint(qRound(40 * ratio), qRound(40 * ratio))),
             host.colorAt(40, 40));
}

void tst_SpritePaintEvents::grab_twoUpdatesInThePaintEvent_changeNothing()
{
    m_lower->look = TestSprite::Look::SeeThrough;
    m_lower->changeContents(lowerRect.size());
    m_layer->update();
    QImage const once = grabbed();
    m_host->inPaintEvent = [&] {
        m_layer->clobberRect(m_host->rect());
        m_layer->update();
        m_layer->update();
    };
    m_host->layer = nullptr;
    QCOMPARE(wrongPixels(grabbed(), once), 0);
    m_host->layer = m_layer.get();
}

void tst_SpritePaintEvents::render_intoAPainter_showsTheSprites()
{
    QImage image(deviceRect(*m_host, QRect(QPoint(), m_host->size())).size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratioOf(*m_host));
    image.fill(Qt::gray);
    QPainter painter(&image);
    m_host->render(&painter);
    painter.end();
    image.setDevicePixelRatio(1);
    QCOMPARE(wrongPixels(image, expectedPicture().copy(deviceRect(*m_host, m_host->rect()))), 0);
}

void tst_SpritePaintEvents::render_ofTheWindow_showsTheSprites()
{
    QImage image = m_window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    QCOMPARE(wrongPixels(image, expectedPicture()), 0);
}

void tst_SpritePaintEvents::render_intoAFileOfCommands_isSafe()
{
    QByteArray bytes;
    QBuffer file(&bytes);
    QVERIFY(file.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&file);
        QPainter painter(&writer);
        m_host->render(&painter);
    }
    QVERIFY(bytes.size() > 1000);
    QCOMPARE(wrongPixels(picture(*m_window), expectedPicture()), 0);
}

void tst_SpritePaintEvents::render_scaled_scalesSpritesAndBand_data()
{
    QTest::addColumn<bool>("painterOpen");
    QTest::addColumn<int>("size"); // of the picture, in sizes of the host
    QTest::newRow("painter of the host closed") << false << 2;
    QTest::newRow("painter of the host open") << true << 2;
    QTest::newRow("closed, picture of the size of the host") << false << 1;
    QTest::newRow("open, picture of the size of the host") << true << 1;
}

void tst_SpritePaintEvents::render_scaled_scalesSpritesAndBand()
{
    QFETCH(bool, painterOpen);
    QFETCH(int, size);
    constexpr int scale = 2;
    m_host->keepsPainterOpen = painterOpen;
    QImage image(m_host->size() * size, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.scale(scale, scale);
        m_host->render(&painter);
    }
    auto const scaled = [](QRect const & r) {
        return QRect(r.topLeft() * scale, r.size() * scale);
    };
    QImage expected(image.size(), image.format());
    QPainter painter(&expected);
    for (int y = 0; y < m_host->height(); y += SpriteHost::cell) {
        for (int x = 0; x < m_host->width(); x += SpriteHost::cell)
            painter.fillRect(scaled(QRect(x, y, SpriteHost::cell, SpriteHost::cell)),
                             m_host->colorAt(x, y));
    }
    painter.end();
    expected = inverted(expected, {scaled(bandRect)});
    painter.begin(&expected);
    painter.fillRect(scaled(lowerRect), Qt::red);
    painter.fillRect(scaled(upperRect), Qt::blue);
    painter.end();
    QCOMPARE(wrongPixels(image, expected), 0);
}

// The host is a child there, at a place of its own.
void tst_SpritePaintEvents::render_ofTheWindowMoved_movesTheSpritesAlong()
{
    constexpr int moved = 16; // whole device pixels at every ratio
    qreal const ratio = ratioOf(*m_host);
    int const deviceMoved = qRound(moved * ratio);
    QImage const there = expectedPicture();
    for (bool const open : {false, true}) {
        m_host->keepsPainterOpen = open;
        QImage image(there.size() + QSize(deviceMoved, deviceMoved), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::gray);
        QPainter painter(&image);
        painter.translate(moved, moved);
        m_window->render(&painter);
        painter.end();
        image.setDevicePixelRatio(1);
        QCOMPARE(
            wrongPixels(image.copy(QRect(QPoint(deviceMoved, deviceMoved), there.size())), there),
            0);
    }
}

void tst_SpritePaintEvents::render_withThePainterOfTheHostOpen_showsTheSprites()
{
    m_host->keepsPainterOpen = true;
    QImage image(deviceRect(*m_host, QRect(QPoint(), m_host->size())).size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratioOf(*m_host));
    image.fill(Qt::gray);
    QPainter painter(&image);
    painter.setPen(Qt::magenta);
    m_host->render(&painter);
    QCOMPARE(painter.pen().color(), QColor(Qt::magenta));
    painter.end();
    image.setDevicePixelRatio(1);
    QCOMPARE(wrongPixels(image, expectedPicture().copy(deviceRect(*m_host, m_host->rect()))), 0);
}

// A device that keeps commands, as a printer does.
void tst_SpritePaintEvents::render_recorded_playsTheSprites()
{
    QPicture record;
    {
        QPainter painter(&record);
        m_host->render(&painter);
    }
    QImage image(m_host->size(), QImage::Format_RGB32);
    image.fill(Qt::gray);
    {
        QPainter painter(&image);
        painter.drawPicture(0, 0, record);
    }
    QCOMPARE(image.pixelColor(upperRect.center()), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(lowerRect.topLeft() + QPoint(4, 4)), QColor(Qt::red));
    QCOMPARE(image.pixelColor(200, 20), m_host->colorAt(200, 20));
}

// There is no surface under an effect: the host paints, and the sprites with it.
void tst_SpritePaintEvents::graphicsEffect_spritesAreShownByRepainting()
{
    auto * const effect = new QGraphicsOpacityEffect;
    effect->setOpacity(0.999);
    m_host->setGraphicsEffect(effect);
    settle(*m_window);
    m_upper->moveTo(QPoint(120, 8));
    m_layer->update();
    settle(*m_window);
    QPoint const there = deviceRect(*m_host, m_upper->geometry()).center();
    QColor const seen = picture(*m_window).pixelColor(there);
    QVERIFY(seen.blue() > 200 && seen.red() < 50 && seen.green() < 50);
}

// The test sprites_two_screens has such a screen.
void tst_SpritePaintEvents::screenOfAnotherRatio_picturesAreDrawnAnew()
{
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
    QImage const shown = picture(*m_window);
    m_lower->hide();
    m_upper->hide();
    m_layer->setSelection(QRect());
    m_layer->update();
    m_empty = picture(*m_window);
    QCOMPARE(m_empty.size(), m_window->size() * ratio);
    QCOMPARE(wrongPixels(shown, expectedPicture()), 0);
    m_host->repaint();
    QCOMPARE(wrongPixels(m_empty, picture(*m_window)), 0);
}

ZENU_TEST(tst_SpritePaintEvents)
#include "tst_SpritePaintEvents.moc"
