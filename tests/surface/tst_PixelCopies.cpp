#include "tests/support/TestMain.h"

#include <zenu/overlay/surface/PixelCopies.h>

using namespace zenu;

class tst_PixelCopies : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void flip_turnsOneColourIntoTheOtherAndBack_data();
    void flip_turnsOneColourIntoTheOtherAndBack();
    void flip_leavesTheRest();
    void pixelDifference_takesColoursAsOpaque();
    void copyPixels_isCutByBothImages();
};

void tst_PixelCopies::flip_turnsOneColourIntoTheOtherAndBack_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("RGB32") << int(QImage::Format_RGB32);
    QTest::newRow("ARGB32 premultiplied") << int(QImage::Format_ARGB32_Premultiplied);
    QTest::newRow("RGBA8888, alpha in the last byte") << int(QImage::Format_RGBA8888);
    QTest::newRow("16 bits") << int(QImage::Format_RGB16);
    QTest::newRow("24 bits") << int(QImage::Format_RGB888);
}

void tst_PixelCopies::flip_turnsOneColourIntoTheOtherAndBack()
{
    QFETCH(int, format);
    QColor const a(Qt::red);
    QColor const b(Qt::cyan);
    QImage image(5, 3, static_cast<QImage::Format>(format));
    image.fill(a);
    PixelBits const bits = pixelDifference(a, b, image.format());
    flipPixels(image, image.rect(), bits);
    for (int x = 0; x < 5; ++x)
        QCOMPARE(image.pixelColor(x, 2), b);
    flipPixels(image, image.rect(), bits);
    QCOMPARE(image.pixelColor(4, 0), a);
}

void tst_PixelCopies::flip_leavesTheRest()
{
    QImage image(6, 6, QImage::Format_RGB32);
    image.fill(Qt::black);
    flipPixels(image, QRect(4, -10, 100, 12),
               pixelDifference(Qt::white, Qt::black, image.format()));
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 6; ++x)
            QCOMPARE(image.pixelColor(x, y), QColor(x >= 4 && y < 2 ? Qt::white : Qt::black));
    }
}

void tst_PixelCopies::pixelDifference_takesColoursAsOpaque()
{
    auto const format = QImage::Format_ARGB32_Premultiplied;
    QCOMPARE(pixelDifference(QColor(255, 255, 255, 10), QColor(0, 0, 0, 200), format),
             pixelDifference(Qt::white, Qt::black, format));
    QCOMPARE(pixelDifference(QColor(), Qt::black, format), PixelBits{});
}

void tst_PixelCopies::copyPixels_isCutByBothImages()
{
    QImage to(4, 4, QImage::Format_RGB32);
    to.fill(Qt::black);
    QImage from(4, 4, QImage::Format_RGB32);
    from.fill(Qt::white);
    from.setPixelColor(1, 1, Qt::red);
    copyPixels(to, QPoint(2, 2), from, QPoint(1, 1), QSize(100, 100));
    QCOMPARE(to.pixelColor(2, 2), QColor(Qt::red));
    QCOMPARE(to.pixelColor(3, 3), QColor(Qt::white));
    QCOMPARE(to.pixelColor(1, 2), QColor(Qt::black));
    to.fill(Qt::black);
    copyPixels(to, QPoint(-3, -3), from, QPoint(-2, -2), QSize(5, 5));
    QCOMPARE(to.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(to.pixelColor(2, 2), QColor(Qt::black));
    copyPixels(to, QPoint(10, 10), from, QPoint(), QSize(5, 5));
    copyPixels(to, QPoint(), from, QPoint(10, 10), QSize(5, 5));
    copyPixels(to, QPoint(), from, QPoint(), QSize(-5, 0));
    QCOMPARE(to.pixelColor(2, 2), QColor(Qt::black));
}

ZENU_TEST(tst_PixelCopies)
#include "tst_PixelCopies.moc"
