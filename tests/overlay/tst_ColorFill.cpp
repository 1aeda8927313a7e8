#include "tests/support/TestMain.h"

#include "tests/overlay/PixelPicture.h"

#include <zenu/overlay/KPainter.h>

#include <QBuffer>
#include <QPdfWriter>
#include <QRandomGenerator>
#include <QRegion>
#include <QWidget>

using namespace zenu;
using zenutest::PixelPicture;

class tst_ColorFill : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void changeColor_randomImages_followTheBitRule_data();
    void changeColor_randomImages_followTheBitRule();
    void changeColor_pixmaps_followTheBitRule_data();
    void changeColor_pixmaps_followTheBitRule();
    void changeColor_seeThroughPixels_keepTheirAlpha();
    void changeColor_exactColor_becomesTheOtherAndOthersKeepCommonBits();
    void changeColor_ratio_takesLogicalPixels_data() { zenutest::addRatios(); }
    void changeColor_ratio_takesLogicalPixels();
    void changeColor_paintersState_doesNotCountAndStays();
    void changeColor_emptyRectangle_changesNothing();
    void changeColor_paintEvent_works();
    void changeColor_deviceWithoutRasterOperations_isLeftAlone();
    void fastFill_tallerThanTwiceItsWidth_usesColumns_data();
    void fastFill_tallerThanTwiceItsWidth_usesColumns();
    void fastFill_topFour_fillsRowsFromEightToBottomPlusFour();
    void fastFill_ratio_takesLogicalPixels_data() { zenutest::addRatios(); }
    void fastFill_ratio_takesLogicalPixels();
    void fastFill_seeThroughColor_replacesWhatIsThere();
    void fastFill_openPainter_isUsedAndKeepsItsState();
    void fastFill_nothingToFill_isQuiet();
    void fastFill_widget_onlyInItsPaintEvent();
    void fillRegion_everyRectangle_isFilled();
    void fillRegion_nullPainterOrEmptyRegion_isQuiet();
};

namespace {

QSize const size(24, 18);
QColor const background(0, 90, 160);

QByteArray pixelBytes(QImage const & image, int x, int y)
{
    int const bytes = image.depth() / 8;
    return QByteArray(reinterpret_cast<char const *>(image.constScanLine(y)) + x * bytes, bytes);
}

// The words of a colour as the device stores it.
QByteArray storedBytes(QImage::Format format, QColor const & color)
{
    QImage pixel(1, 1, format);
    pixel.fill(color);
    return pixelBytes(pixel, 0, 0);
}

using Bits = unsigned char;

// The replacement as it is defined: four strips A, B, C, D and their raster operations, byte by
// byte.
QByteArray replaced(QByteArray const & line, QByteArray const & from, QByteArray const & to)
{
    QByteArray result = line;
    for (int i = 0; i < line.size(); ++i) {
        Bits a = Bits(from[i]);
        Bits b = Bits(to[i]);
        Bits c = Bits(~a);
        a = Bits(a & b);
        b = Bits(b & c);
        c = Bits(c | a);
        Bits d = Bits(~Bits(line[i]));
        d = Bits(d & b);
        result[i] = char((Bits(line[i]) & c) | d);
    }
    return result;
}

QColor randomColor(QRandomGenerator & random)
{
    return QColor::fromRgb(random.generate() | 0xff000000U);
}

QImage randomImage(QRandomGenerator & random, QImage::Format format)
{
    QImage image(13, 9, format);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixelColor(x, y, randomColor(random));
        }
    }
    return image;
}

// Empty when `actual` is `before` with the colour replaced in `rect` alone.
QByteArray wrongPixel(QImage const & before, QImage const & actual, QRect const & rect,
                      QColor const & from, QColor const & to)
{
    QByteArray const fromBytes = storedBytes(before.format(), from);
    QByteArray const toBytes = storedBytes(before.format(), to);
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            QByteArray const was = pixelBytes(before, x, y);
            QByteArray const is = pixelBytes(actual, x, y);
            QByteArray const wanted = rect.contains(x, y) ? replaced(was, fromBytes, toBytes) : was;
            if (is != wanted) {
                return QByteArray::number(x) + ' ' + QByteArray::number(y) + ": " + was.toHex() +
                       " became " + is.toHex() + " not " + wanted.toHex();
            }
        }
    }
    return QByteArray();
}

class PaintingWidget : public QWidget
{
public:
    std::function<void(QWidget *)> paint;

protected:
    void paintEvent(QPaintEvent *) override { paint(this); }
};

} // namespace

void tst_ColorFill::changeColor_randomImages_followTheBitRule_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("RGB32") << QImage::Format_RGB32;
    QTest::newRow("ARGB32") << QImage::Format_ARGB32;
    QTest::newRow("ARGB32_Premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("RGBX8888") << QImage::Format_RGBX8888;
    QTest::newRow("RGBA8888_Premultiplied") << QImage::Format_RGBA8888_Premultiplied;
    QTest::newRow("RGB888") << QImage::Format_RGB888;
    QTest::newRow("RGB16") << QImage::Format_RGB16;
    QTest::newRow("RGB555") << QImage::Format_RGB555;
}

void tst_ColorFill::changeColor_randomImages_followTheBitRule()
{
    QFETCH(QImage::Format, format);
    QRandomGenerator random(7);
    for (int i = 0; i < 40; ++i) {
        QImage const before = randomImage(random, format);
        QColor const from = randomColor(random);
        QColor const to = randomColor(random);
        QImage after = before;
        {
            QPainter painter(&after);
            KPainter::changeColor(&painter, 2, 1, 8, 6, from, to);
        }
        QCOMPARE(wrongPixel(before, after, QRect(2, 1, 8, 6), from, to), QByteArray());
    }
}

void tst_ColorFill::changeColor_pixmaps_followTheBitRule_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("opaque") << QImage::Format_RGB32;
    QTest::newRow("with alpha") << QImage::Format_ARGB32_Premultiplied;
}

void tst_ColorFill::changeColor_pixmaps_followTheBitRule()
{
    QFETCH(QImage::Format, format);
    QRandomGenerator random(11);
    for (int i = 0; i < 40; ++i) {
        QImage const before = randomImage(random, format);
        QColor const from = randomColor(random);
        QColor const to = randomColor(random);
        QPixmap pixmap = QPixmap::fromImage(before, Qt::NoFormatConversion);
        {
            QPainter painter(&pixmap);
            KPainter::changeColor(&painter, 2, 1, 8, 6, from, to);
        }
        QImage const after = pixmap.toImage().convertToFormat(format);
        QCOMPARE(wrongPixel(before, after, QRect(2, 1, 8, 6), from, to), QByteArray());
    }
}

void tst_ColorFill::changeColor_seeThroughPixels_keepTheirAlpha()
{
    QImage image(3, 1, QImage::Format_ARGB32_Premultiplied);
    auto * const line = reinterpret_cast<QRgb *>(image.scanLine(0));
    line[0] = 0x00000000;
    line[1] = 0x80402010;
    line[2] = 0xff402010;
    QImage const before = image;
    QPainter painter(&image);
    QColor const from(0x40, 0x20, 0x10, 0x33);
    QColor const to(0x48, 0x21, 0x12, 0x66);
    KPainter::changeColor(&painter, 0, 0, 3, 1, from, to);
    painter.end();
    QCOMPARE(wrongPixel(before, image, image.rect(), QColor(from.rgb()), QColor(to.rgb())),
             QByteArray());
    auto const * const result = reinterpret_cast<QRgb const *>(image.constScanLine(0));
    QCOMPARE(result[1], 0x80482112U);
    QCOMPARE(result[2], 0xff482112U);
}

void tst_ColorFill::changeColor_exactColor_becomesTheOtherAndOthersKeepCommonBits()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(0x12, 0x34, 0x56));
    image.setPixel(1, 0, qRgb(0xff, 0x00, 0xaa));
    QPainter painter(&image);
    KPainter::changeColor(&painter, 0, 0, 2, 1, QColor(0x12, 0x34, 0x56), QColor(0x13, 0x30, 0x56));
    painter.end();
    QCOMPARE(image.pixel(0, 0), qRgb(0x13, 0x30, 0x56));
    // AND where `from` has ones: red 0xff loses none, blue keeps; green 0 stays; OR 1 in red.
    QCOMPARE(image.pixel(1, 0), qRgb(0xff, 0x00, 0xaa));
}

void tst_ColorFill::changeColor_ratio_takesLogicalPixels()
{
    QFETCH(double, ratio);
    QColor const other(200, 30, 7);
    PixelPicture expected(size, ratio, background);
    expected.fill(3, 5, 7, 4, other);
    auto const draw = [&other](QPaintDevice * device) {
        QPainter painter(device);
        KPainter::changeColor(&painter, 3, 5, 7, 4, background, other);
    };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_ColorFill::changeColor_paintersState_doesNotCountAndStays()
{
    QColor const other(200, 30, 7);
    PixelPicture expected(size, 1, background);
    expected.fill(3, 5, 7, 4, other);
    auto const draw = [&other](QPaintDevice * device) {
        QPainter painter(device);
        painter.translate(5, 6);
        painter.setClipRect(0, 0, 1, 1);
        painter.setOpacity(0.25);
        KPainter::changeColor(&painter, 3, 5, 7, 4, background, other);
        QCOMPARE(painter.opacity(), 0.25);
        QCOMPARE(painter.clipBoundingRect(), QRectF(0, 0, 1, 1));
        QCOMPARE(painter.transform().dx(), 5.0);
        QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, expected);
}

void tst_ColorFill::changeColor_emptyRectangle_changesNothing()
{
    auto const draw = [](QPaintDevice * device) {
        QPainter painter(device);
        KPainter::changeColor(&painter, 3, 5, 0, 4, background, Qt::red);
        KPainter::changeColor(&painter, 3, 5, 4, -2, background, Qt::red);
        KPainter::changeColor(&painter, 300, 5, 4, 2, background, Qt::red);
    };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, PixelPicture(size, 1, background));
}

void tst_ColorFill::changeColor_paintEvent_works()
{
    PaintingWidget widget;
    widget.resize(size);
    widget.paint = [](QWidget * self) {
        QPainter painter(self);
        painter.fillRect(self->rect(), background);
        KPainter::changeColor(&painter, 3, 5, 7, 4, background, QColor(200, 30, 7));
    };
    PixelPicture expected(size, 1, background);
    expected.fill(3, 5, 7, 4, QColor(200, 30, 7));
    QCOMPARE(zenutest::difference(widget.grab().toImage(), expected.image()), QByteArray());

    // A child has an offset in what it paints on.
    QWidget window;
    window.resize(size * 2);
    widget.setParent(&window);
    widget.move(9, 8);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(zenutest::difference(window.grab().toImage().copy(QRect(QPoint(9, 8), size)),
                                  expected.image()),
             QByteArray());
    widget.setParent(nullptr);
}

void tst_ColorFill::changeColor_deviceWithoutRasterOperations_isLeftAlone()
{
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    KPainter::changeColor(&painter, 0, 0, 10, 10, Qt::red, Qt::blue);
    QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
}

void tst_ColorFill::fastFill_tallerThanTwiceItsWidth_usesColumns_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("filled");
    QTest::newRow("3 x 10 at the origin") << QRect(0, 0, 3, 10) << QRect(0, 0, 3, 10);
    QTest::newRow("5 x 10 at the origin") << QRect(0, 0, 5, 10) << QRect(0, 0, 5, 10);
    QTest::newRow("3 x 10, columns: left counts twice") << QRect(2, 3, 3, 10) << QRect(4, 3, 3, 10);
    QTest::newRow("5 x 10, rows: top counts twice") << QRect(2, 3, 5, 10) << QRect(2, 6, 5, 10);
    QTest::newRow("5 x 11, columns") << QRect(2, 3, 5, 11) << QRect(4, 3, 5, 11);
    QTest::newRow("beyond the device") << QRect(-2, -3, 50, 40) << QRect(-2, -6, 50, 40);
}

void tst_ColorFill::fastFill_tallerThanTwiceItsWidth_usesColumns()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, filled);
    PixelPicture expected(size, 1, background);
    expected.fill(filled.x(), filled.y(), filled.width(), filled.height(), Qt::red);
    auto const draw = [&rect](QPaintDevice * device) { fastFill(device, rect, Qt::red); };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, expected);
}

void tst_ColorFill::fastFill_topFour_fillsRowsFromEightToBottomPlusFour()
{
    QRect const rect(1, 4, 9, 6);
    PixelPicture expected(size, 1, background);
    for (int y = 8; y <= rect.bottom() + 4; ++y) {
        expected.fill(1, y, 9, 1, Qt::red);
    }
    auto const draw = [&rect](QPaintDevice * device) { fastFill(device, rect, Qt::red); };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, expected);
}

void tst_ColorFill::fastFill_ratio_takesLogicalPixels()
{
    QFETCH(double, ratio);
    PixelPicture expected(size, ratio, background);
    expected.fill(3, 4, 9, 7, Qt::red);
    auto const draw = [](QPaintDevice * device) { fastFill(device, QRect(3, 2, 9, 7), Qt::red); };
    ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected);
}

void tst_ColorFill::fastFill_seeThroughColor_replacesWhatIsThere()
{
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    fastFill(&image, QRect(0, 0, 2, 2), Qt::transparent);
    QCOMPARE(image.pixel(0, 0), 0U);
    QCOMPARE(image.pixel(3, 3), 0xffffffffU);
}

void tst_ColorFill::fastFill_openPainter_isUsedAndKeepsItsState()
{
    PixelPicture expected(size, 1, background);
    expected.fill(0, 0, 9, 7, Qt::red);
    expected.fill(20, 15, 2, 2, Qt::green);
    auto const draw = [](QPaintDevice * device) {
        QPainter painter(device);
        painter.translate(5, 5);
        painter.setClipRect(15, 10, 2, 2);
        fastFill(device, QRect(0, 0, 9, 7), Qt::red);
        QVERIFY(painter.isActive());
        painter.fillRect(-100, -100, 200, 200, Qt::green);
    };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, expected);
}

void tst_ColorFill::fastFill_nothingToFill_isQuiet()
{
    fastFill(nullptr, QRect(0, 0, 2, 2), Qt::red);
    QPixmap null;
    fastFill(&null, QRect(0, 0, 2, 2), Qt::red);
    QVERIFY(null.isNull());
    auto const draw = [](QPaintDevice * device) {
        fastFill(device, QRect(), Qt::red);
        fastFill(device, QRect(2, 2, -3, 5), Qt::red);
    };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, PixelPicture(size, 1, background));
}

void tst_ColorFill::fastFill_widget_onlyInItsPaintEvent()
{
    PaintingWidget widget;
    widget.resize(size);
    widget.paint = [](QWidget * self) {
        fastFill(self, self->rect(), background);
        fastFill(self, QRect(0, 0, 5, 4), Qt::red);
    };
    fastFill(&widget, QRect(0, 0, 5, 4), Qt::red);
    PixelPicture expected(size, 1, background);
    expected.fill(0, 0, 5, 4, Qt::red);
    QCOMPARE(zenutest::difference(widget.grab().toImage(), expected.image()), QByteArray());
}

void tst_ColorFill::fillRegion_everyRectangle_isFilled()
{
    PixelPicture expected(size, 1, background);
    expected.fill(1, 1, 6, 6, Qt::red);
    expected.fill(4, 4, 9, 9, Qt::red);
    auto const draw = [](QPaintDevice * device) {
        QPainter painter(device);
        painter.setBrush(Qt::green);
        fillRegion(&painter, QRegion(1, 1, 6, 6) + QRegion(4, 4, 9, 9), QBrush(Qt::red));
        QCOMPARE(painter.brush(), QBrush(Qt::green));
    };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, expected);
}

void tst_ColorFill::fillRegion_nullPainterOrEmptyRegion_isQuiet()
{
    fillRegion(nullptr, QRegion(0, 0, 2, 2), QBrush(Qt::red));
    auto const draw = [](QPaintDevice * device) {
        QPainter painter(device);
        fillRegion(&painter, QRegion(), QBrush(Qt::red));
    };
    ZENU_COMPARE_PAINTED(size, 1, background, draw, PixelPicture(size, 1, background));
}

ZENU_TEST(tst_ColorFill)
#include "tst_ColorFill.moc"
