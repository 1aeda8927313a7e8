#include "tests/sprites/PdfPage.h"
#include "tests/sprites/SpriteScene.h"

#include <QtGui/QPdfWriter>
#include <QtGui/QPicture>

using namespace zenu;
using namespace zenutest;

// The host painted into something else: a picture, another painter, a file of drawing commands.
class tst_SpritePictures : public SceneTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { closeScene(); }

    void grab_showsTheCommittedState_data();
    void grab_showsTheCommittedState();
    void grab_part_showsTheSpritesInIt();
    void grab_neverShownHost_showsTheSprites();
    void grab_twoUpdatesInThePaintEvent_changeNothing();

    void render_intoAPainter_showsTheSprites();
    void render_ofTheWindow_showsTheSprites();
    void render_scaled_scalesSpritesAndBand_data();
    void render_scaled_scalesSpritesAndBand();
    void render_ofTheWindowMoved_movesTheSpritesAlong();
    void render_withThePainterOfTheHostOpen_showsTheSprites();

    void render_recorded_playsTheSprites();
    void print_showsTheCommittedScene_data();
    void print_showsTheCommittedScene();

private:
    QImage bareHost() const;
};

void tst_SpritePictures::init()
{
    Test::init();
    QVERIFY(openScene());
    addSpritesAndBand();
}

// The host without sprites, a pixel for each logical one.
QImage tst_SpritePictures::bareHost() const
{
    QImage image(m_host->size(), QImage::Format_RGB32);
    QPainter painter(&image);
    for (int y = 0; y < m_host->height(); y += SpriteHost::cell) {
        for (int x = 0; x < m_host->width(); x += SpriteHost::cell)
            painter.fillRect(x, y, SpriteHost::cell, SpriteHost::cell, m_host->colorAt(x, y));
    }
    return image;
}

void tst_SpritePictures::grab_showsTheCommittedState_data()
{
    QTest::addColumn<bool>("painterOpen");
    QTest::newRow("painter of the host closed") << false;
    QTest::newRow("painter of the host open") << true;
}

void tst_SpritePictures::grab_showsTheCommittedState()
{
    QFETCH(bool, painterOpen);
    m_host->keepsPainterOpen = painterOpen;
    QImage const before = seen();
    int const updates = m_upper->befores;
    m_upper->moveTo(QPoint(120, 8)); // is not committed
    QCOMPARE(wrongPixels(grabbed(), ofHost(withSpritesAndBand())), 0);
    settle(*m_window);
    QCOMPARE(wrongPixels(seen(), before), 0);
    QCOMPARE(m_upper->befores, updates);
    hideAll();
    QCOMPARE(wrongPixels(seen(), m_empty), 0);
}

void tst_SpritePictures::grab_part_showsTheSpritesInIt()
{
    QRect const part(48, 32, 64, 64);
    QImage image = m_host->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    QCOMPARE(wrongPixels(image, withSpritesAndBand().copy(deviceRect(*m_host, part))), 0);
}

void tst_SpritePictures::grab_neverShownHost_showsTheSprites()
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

void tst_SpritePictures::grab_twoUpdatesInThePaintEvent_changeNothing()
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

void tst_SpritePictures::render_intoAPainter_showsTheSprites()
{
    QImage image(deviceRect(*m_host, QRect(QPoint(), m_host->size())).size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratioOf(*m_host));
    image.fill(Qt::gray);
    QPainter painter(&image);
    m_host->render(&painter);
    painter.end();
    image.setDevicePixelRatio(1);
    QCOMPARE(wrongPixels(image, ofHost(withSpritesAndBand())), 0);
}

void tst_SpritePictures::render_ofTheWindow_showsTheSprites()
{
    QImage image = m_window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    QCOMPARE(wrongPixels(image, withSpritesAndBand()), 0);
}

void tst_SpritePictures::render_scaled_scalesSpritesAndBand_data()
{
    QTest::addColumn<bool>("painterOpen");
    QTest::addColumn<int>("size"); // of the picture, in sizes of the host
    QTest::newRow("painter of the host closed") << false << 2;
    QTest::newRow("painter of the host open") << true << 2;
    QTest::newRow("closed, picture of the size of the host") << false << 1;
    QTest::newRow("open, picture of the size of the host") << true << 1;
}

void tst_SpritePictures::render_scaled_scalesSpritesAndBand()
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
    QImage expected = inverted(bareHost(), {bandRect});
    QPainter painter(&expected);
    painter.fillRect(lowerRect, Qt::red);
    painter.fillRect(upperRect, Qt::blue);
    painter.end();
    expected = expected.scaled(expected.size() * scale).copy(image.rect());
    QCOMPARE(wrongPixels(image, expected), 0);
}

// The host is a child there, at a place of its own.
void tst_SpritePictures::render_ofTheWindowMoved_movesTheSpritesAlong()
{
    constexpr int moved = 16; // whole device pixels at every ratio
    qreal const ratio = ratioOf(*m_host);
    int const deviceMoved = qRound(moved * ratio);
    QImage const there = withSpritesAndBand();
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

void tst_SpritePictures::render_withThePainterOfTheHostOpen_showsTheSprites()
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
    QCOMPARE(wrongPixels(image, ofHost(withSpritesAndBand())), 0);
}

// A device that keeps commands: nobody knows yet what they will be played on.
void tst_SpritePictures::render_recorded_playsTheSprites()
{
    QPicture record;
    {
        QPainter painter(&record);
        m_host->render(&painter);
    }
    QImage image(m_host->size(), QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.drawPicture(0, 0, record);
    }
    QImage expected = bareHost();
    QPainter painter(&expected);
    for (QRect const & r : QRegion(bandRect) - lowerRect - upperRect)
        painter.fillRect(r, QColor(255, 255, 255, 96));
    painter.fillRect(lowerRect, Qt::red);
    painter.fillRect(upperRect, Qt::blue);
    painter.end();
    QCOMPARE(wrongPixels(image, expected), 0);
}

void tst_SpritePictures::print_showsTheCommittedScene_data()
{
    QTest::addColumn<QSize>("page"); // points
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<int>("dotsAPoint");
    QTest::addColumn<bool>("painterOpen");
    QSize const large(320, 240);
    QTest::newRow("on a larger page") << large << QPoint(30, 20) << 1 << false;
    QTest::newRow("on a larger page, painter of the host open")
        << large << QPoint(30, 20) << 1 << true;
    QTest::newRow("finer than the screen") << large << QPoint(30, 20) << 8 << false;
    QTest::newRow("finer than the screen, open") << large << QPoint(30, 20) << 8 << true;
    QTest::newRow("on a page of its size") << hostRect.size() << QPoint() << 1 << false;
    QTest::newRow("on a page of its size, open") << hostRect.size() << QPoint() << 1 << true;
}

// Sprites stand over each other, over the edge of the host and below a child of it. A file of
// drawing commands knows no XOR: the band is a veil there, outside of all sprites.
void tst_SpritePictures::print_showsTheCommittedScene()
{
    QFETCH(QSize, page);
    QFETCH(QPoint, place);
    QFETCH(int, dotsAPoint);
    QFETCH(bool, painterOpen);
    QColor const veil(200, 40, 90, 96);
    QRect const seeThroughRect(80, 60, 50, 30);
    QRect const edgeRect(225, 150, 40, 30);
    QRect const childRect(36, 64, 20, 20);
    m_host->keepsPainterOpen = painterOpen;
    m_layer->setSelForeground(QColor(200, 40, 90));
    TestSprite seeThrough(m_layer.get(), seeThroughRect, Qt::green, 3);
    seeThrough.look = TestSprite::Look::SeeThrough;
    TestSprite const edge(m_layer.get(), edgeRect, Qt::cyan, -1);
    m_lower->setPriority(5); // over the other one
    QWidget child(m_host);
    child.setGeometry(childRect);
    child.setAutoFillBackground(true);
    child.setPalette(QPalette(Qt::black, Qt::yellow));
    child.show();
    m_layer->update();
    settle(*m_window);
    QImage const before = seen();
    m_upper->moveTo(QPoint(120, 8)); // is not committed

    QByteArray bytes;
    QBuffer file(&bytes);
    QVERIFY(file.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&file);
        writer.setPageSize(
            QPageSize(QSizeF(page), QPageSize::Point, QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        writer.setResolution(72 * dotsAPoint);
        QPainter painter(&writer);
        painter.setRenderHint(QPainter::LosslessImageRendering);
        painter.scale(dotsAPoint, dotsAPoint);
        painter.translate(place);
        m_host->render(&painter);
    }
    PdfPage shown(bytes);
    QImage const image = shown.picture();
    QCOMPARE(shown.unknown, QList<QByteArray>());

    QImage expected(page, QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    painter.translate(place);
    painter.setClipRect(QRect(QPoint(), m_host->size()));
    painter.drawImage(0, 0, bareHost());
    for (QRect const & r : QRegion(bandRect) - lowerRect - upperRect - seeThroughRect - edgeRect)
        painter.fillRect(r, veil);
    painter.fillRect(edgeRect, Qt::cyan);
    painter.fillRect(upperRect, Qt::blue);
    painter.fillRect(seeThroughRect, QColor(0, 255, 0, 100));
    painter.fillRect(lowerRect, Qt::red);
    painter.fillRect(childRect, Qt::yellow);
    painter.end();
    QCOMPARE(difference(image, expected, 2), QString()); // colours in files are rounded
    QCOMPARE(wrongPixels(seen(), before), 0);
}

ZENU_TEST(tst_SpritePictures)
#include "tst_SpritePictures.moc"
