#include "tests/sprites/PdfPage.h"
#include "tests/sprites/SpriteScene.h"

#include <QtGui/QPdfWriter>
#include <QtGui/QPicture>

using namespace zenu;
using namespace zenutest;

// What is printed, where and how.
struct Page
{
    QSize size;   // points
    QPoint place; // of what is printed
    int dotsAPoint;
    bool wholeWindow;
};

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
    void grab_painterLeftInSomeState_showsTheSpritesAllTheSame();
    void grab_hiddenLayer_showsTheHostAlone();
    void grab_neverShownHost_showsTheSprites();
    void grab_twoUpdatesInThePaintEvent_changeNothing();

    void render_intoAPainter_showsTheSprites();
    void render_ofTheWindow_showsTheSprites();
    void render_scaled_scalesSpritesAndBand_data();
    void render_scaled_scalesSpritesAndBand();
    void render_ofTheWindowMoved_movesTheSpritesAlong();
    void render_withThePainterOfTheHostOpen_showsTheSprites();
    void render_partElsewhere_showsTheSpritesInIt_data();
    void render_partElsewhere_showsTheSpritesInIt();

    void render_recorded_playsTheSprites();
    void print_showsTheCommittedScene_data();
    void print_showsTheCommittedScene();

private:
    QImage bareHost() const;
    QByteArray printed(Page const & page);
    QImage printedScene(Page const & page) const;
};

namespace {

QColor const veilColor(200, 40, 90, 96); // printed; on the screen its alpha counts for nothing
constexpr QRect seeThroughRect(80, 60, 50, 30);
constexpr QRect edgeRect(225, 150, 40, 30);
constexpr QRect childRect(36, 64, 20, 20);

} // namespace

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

void tst_SpritePictures::grab_painterLeftInSomeState_showsTheSpritesAllTheSame()
{
    m_host->keepsPainterOpen = true;
    m_host->painterState = [](QPainter & painter) {
        painter.translate(5, 7);
        painter.scale(2, 3);
        painter.setOpacity(0.5);
        painter.setClipRect(QRect(0, 0, 9, 9));
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
    };
    QCOMPARE(wrongPixels(grabbed(), ofHost(withSpritesAndBand())), 0);
    m_host->repaint();
    QCOMPARE(wrongPixels(seen(), withSpritesAndBand()), 0);
}

void tst_SpritePictures::grab_hiddenLayer_showsTheHostAlone()
{
    m_layer->hide(); // is not committed
    QCOMPARE(wrongPixels(grabbed(), ofHost(withSpritesAndBand())), 0);
    m_layer->update();
    QCOMPARE(wrongPixels(grabbed(), ofHost(m_empty)), 0);
    m_layer->show(); // is not committed
    QCOMPARE(wrongPixels(grabbed(), ofHost(m_empty)), 0);
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

void tst_SpritePictures::render_partElsewhere_showsTheSpritesInIt_data()
{
    QTest::addColumn<bool>("withPainter");
    QTest::addColumn<bool>("painterOpen");
    QTest::newRow("onto a device") << false << false;
    QTest::newRow("onto a device, painter of the host open") << false << true;
    QTest::newRow("by a painter") << true << false;
    QTest::newRow("by a painter, that of the host open") << true << true;
}

// The part begins within the sprites and the band, and goes to a place of its own.
void tst_SpritePictures::render_partElsewhere_showsTheSpritesInIt()
{
    QFETCH(bool, withPainter);
    QFETCH(bool, painterOpen);
    m_host->keepsPainterOpen = painterOpen;
    QRect const part(48, 48, 64, 48);
    QPoint const place(32, 16);
    qreal const ratio = ratioOf(*m_host);
    QImage image(QSize(200, 120) * ratio, QImage::Format_RGB32);
    image.fill(Qt::gray);
    QImage expected = image;
    image.setDevicePixelRatio(ratio);
    if (withPainter) {
        QPainter painter(&image);
        m_host->render(&painter, place, part);
    } else {
        m_host->render(&image, place, part);
    }
    image.setDevicePixelRatio(1);
    QPainter painter(&expected);
    painter.drawImage((QPointF(place) * ratio).toPoint(), withSpritesAndBand(),
                      deviceRect(*m_host, part));
    painter.end();
    QCOMPARE(difference(image, expected), QString());
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
    QTest::addColumn<Page>("page");
    QTest::addColumn<bool>("painterOpen");
    for (bool const open : {false, true}) {
        char const * const painter = open ? "open" : "closed";
        auto const add = [&](char const * name, Page const & page) {
            QTest::addRow("%s, painter of the host %s", name, painter) << page << open;
        };
        add("on a larger page", {QSize(320, 240), QPoint(30, 20), 1, false});
        add("finer than the screen", {QSize(320, 240), QPoint(30, 20), 8, false});
        add("on a page of its size", {hostRect.size(), QPoint(), 1, false});
        add("with its window", {QSize(400, 300), QPoint(10, 20), 2, true});
    }
}

// Sprites stand over each other, over the edge of the host and below a child of it.
void tst_SpritePictures::print_showsTheCommittedScene()
{
    QFETCH(Page, page);
    QFETCH(bool, painterOpen);
    m_host->keepsPainterOpen = painterOpen;
    m_layer->setSelForeground(veilColor);
    TestSprite seeThrough(m_layer.get(), seeThroughRect, Qt::green, 3);
    seeThrough.look = TestSprite::Look::SeeThrough;
    TestSprite const edge(m_layer.get(), edgeRect, Qt::cyan, -1);
    m_lower->setPriority(5);                           // over the other one
    m_lower->look = TestSprite::Look::Holes;           // so that one sees how its picture lies
    m_lower->changeContents(lowerRect.size() * 3 / 2); // and its buffers are larger than it
    m_layer->update();
    m_lower->changeContents(lowerRect.size());
    QWidget child(m_host);
    child.setGeometry(childRect);
    child.setAutoFillBackground(true);
    child.setPalette(QPalette(Qt::black, Qt::yellow));
    child.show();
    m_layer->update();
    settle(*m_window);
    QImage const before = seen();
    m_upper->moveTo(QPoint(120, 8)); // is not committed
    PdfPage shown(printed(page));
    QImage const image = shown.picture();
    QCOMPARE(shown.unknown, QList<QByteArray>());
    QCOMPARE(difference(image, printedScene(page), 2), QString()); // colors there are rounded
    QCOMPARE(wrongPixels(seen(), before), 0);
}

QByteArray tst_SpritePictures::printed(Page const & page)
{
    QByteArray bytes;
    QBuffer file(&bytes);
    if (!file.open(QIODevice::WriteOnly))
        return bytes;
    QPdfWriter writer(&file);
    writer.setPageSize(
        QPageSize(QSizeF(page.size), QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setResolution(72 * page.dotsAPoint);
    QPainter painter(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.scale(page.dotsAPoint, page.dotsAPoint);
    painter.translate(page.place);
    if (page.wholeWindow)
        m_window->render(&painter);
    else
        m_host->render(&painter);
    painter.end();
    return bytes;
}

// A file of drawing commands knows no XOR: the band is a veil there, outside of all sprites.
QImage tst_SpritePictures::printedScene(Page const & page) const
{
    QImage image(page.size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(page.place);
    if (page.wholeWindow) {
        painter.fillRect(m_window->rect(), m_window->palette().color(QPalette::Window));
        painter.translate(hostRect.topLeft());
    }
    painter.setClipRect(QRect(QPoint(), hostRect.size()));
    painter.drawImage(0, 0, bareHost());
    for (QRect const & r : QRegion(bandRect) - lowerRect - upperRect - seeThroughRect - edgeRect)
        painter.fillRect(r, veilColor);
    painter.fillRect(edgeRect, Qt::cyan);
    painter.fillRect(upperRect, Qt::blue);
    painter.fillRect(seeThroughRect, QColor(0, 255, 0, 100));
    for (QRect const & r : QRegion(lowerRect) - lowerRect.adjusted(4, 4, -4, -4))
        painter.fillRect(r, Qt::red);
    painter.fillRect(childRect, Qt::yellow);
    return image;
}

ZENU_TEST(tst_SpritePictures)
#include "tst_SpritePictures.moc"
