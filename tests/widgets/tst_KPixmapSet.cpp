#include "tests/support/TestMain.h"

#include <zenu/widgets/KPixmapSet.h>

#include <QBitmap>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>

#include <climits>
#include <functional>
#include <memory>
#include <type_traits>

using namespace zenu;

class tst_KPixmapSet : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void isValid_data();
    void isValid();
    void isValid_stripRatio_countsLogicalPixels_data();
    void isValid_stripRatio_countsLogicalPixels();
    void getters_newSet_giveTheArguments();
    void copy_everything_isCopied();
    void assignment_everything_isCopied();
    void destructor_ownerDeletes_copiesKeepTheStrip();
    void setBkColor_anyColor_isKeptAndNotUsed();
    void useMask_background_becomesTransparent();
    void useMask_invalidSet_isMaskedAllTheSame();
    void nullStrip_everyOperation_isQuiet();
    void drawImage_everyIndex_drawsItsOwnPixels();
    void drawImage_badIndexOrPainter_isFalseAndDrawsNothing();
    void drawImage_smallerSize_drawsTheLeftTopPartUnscaled();
    void drawImage_zeroSize_drawsNothing();
    void drawImage_largerSize_showsTheNextImage();
    void drawImage_stripTooNarrow_invalidSetStillDrawsCutAtTheEnd();
    void drawImage_stripAndDeviceRatios_drawEachImageInItsPlace_data();
    void drawImage_stripAndDeviceRatios_drawEachImageInItsPlace();
    void drawImage_equalRatios_copyThePixels_data();
    void drawImage_equalRatios_copyThePixels();
    void drawImageMonoChrome_grey_isBlackAndWhite();
    void drawImageMonoChrome_blackAndWhite_stayAsTheyAre();
    void drawImageMonoChrome_transparentPixels_stayTransparent();
    void drawImageMonoChrome_badIndexOrPainter_isFalseAndDrawsNothing();
    void drawImageMonoChrome_smallerSizeAndStripEnd_cut();
    void drawImageMonoChrome_stripRatio_drawsLogicalSize();
    void retrieveOrCreateXpm_oneKeyTwoXpms_givesTheFirstImage();
    void retrieveOrCreateXpm_hit_sharesTheCachedPixmap();
    void retrieveOrCreateXpm_cacheCleared_decodesAgain();
    void retrieveOrCreateXpm_nullKeyOrXpm_isQuiet();
    void getDefaultColor_isDarkBlue();
};

namespace {

constexpr int imageWidth = 4;
constexpr int imageHeight = 3;

// Each pixel of the strip has a colour of its own.
QColor stripColor(int x, int y)
{
    return QColor(20 + 4 * x, 40 + 60 * y, 255 - 5 * x);
}

QPixmap makeStrip(int width, double ratio = 1)
{
    QImage image(qRound(width * ratio), qRound(imageHeight * ratio), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixelColor(x, y, stripColor(int(x / ratio), int(y / ratio)));
        }
    }
    QPixmap strip = QPixmap::fromImage(image);
    strip.setDevicePixelRatio(ratio);
    return strip;
}

KPixmapSet makeSet(int count = 3)
{
    return KPixmapSet(makeStrip(imageWidth * count), QSize(imageWidth, imageHeight), count, false);
}

QColor const background(1, 2, 3);

QImage drawn(std::function<void(QPainter *)> const & draw, double ratio = 1)
{
    QImage image(qRound(24 * ratio), qRound(12 * ratio), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(background);
    QPainter painter(&image);
    draw(&painter);
    return image;
}

// Empty when each pixel of `image` has the colour that `wanted` names, invalid for the background.
QByteArray wrongPixel(QImage const & image, std::function<QColor(int, int)> const & wanted)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QColor const color = wanted(x, y).isValid() ? wanted(x, y) : background;
            if (image.pixelColor(x, y) != color) {
                return QByteArray::number(x) + ' ' + QByteArray::number(y) + " is " +
                       image.pixelColor(x, y).name().toLatin1() + " not " + color.name().toLatin1();
            }
        }
    }
    return QByteArray();
}

// The strip from `stripX` on, `part` wide and high, with its left top at `at`.
QByteArray wrongPart(QImage const & image, QPoint const & at, int stripX, QSize const & part)
{
    return wrongPixel(image, [=](int x, int y) {
        return QRect(at, part).contains(x, y) ? stripColor(stripX + x - at.x(), y - at.y())
                                              : QColor();
    });
}

char const * redXpm[] = {"2 2 1 1", "a c #ff0000", "aa", "aa"};
char const * blueXpm[] = {"3 1 1 1", "a c #0000ff", "aaa"};

} // namespace

void tst_KPixmapSet::isValid_data()
{
    QTest::addColumn<QSize>("imageSize");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("valid");
    QTest::newRow("fits exactly") << QSize(4, 3) << 3 << true;
    QTest::newRow("strip wider") << QSize(4, 3) << 2 << true;
    QTest::newRow("one image too many") << QSize(4, 3) << 4 << false;
    QTest::newRow("one pixel too wide") << QSize(13, 3) << 1 << false;
    QTest::newRow("no width") << QSize(0, 3) << 3 << false;
    QTest::newRow("no height") << QSize(4, 0) << 3 << false;
    QTest::newRow("negative height") << QSize(4, -1) << 3 << false;
    QTest::newRow("null size") << QSize() << 3 << false;
    QTest::newRow("higher than the strip is no matter") << QSize(4, 99) << 3 << true;
    QTest::newRow("no images") << QSize(4, 3) << 0 << true;
    QTest::newRow("negative count") << QSize(4, 3) << -1 << true;
    QTest::newRow("product beyond an int") << QSize(65536, 3) << 65536 << false;
}

void tst_KPixmapSet::isValid()
{
    QFETCH(QSize, imageSize);
    QFETCH(int, count);
    QFETCH(bool, valid);
    KPixmapSet const set(makeStrip(12), imageSize, count, false);
    QCOMPARE(set.isValid(), valid);
    QCOMPARE(KPixmapSet(set).isValid(), valid);
}

void tst_KPixmapSet::isValid_stripRatio_countsLogicalPixels_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void tst_KPixmapSet::isValid_stripRatio_countsLogicalPixels()
{
    QFETCH(double, ratio);
    QVERIFY(KPixmapSet(makeStrip(48, ratio), QSize(16, 16), 3, false).isValid());
    QVERIFY(!KPixmapSet(makeStrip(47, ratio), QSize(16, 16), 3, false).isValid());
    QVERIFY(!KPixmapSet(makeStrip(48, ratio), QSize(16, 16), 4, false).isValid());
}

void tst_KPixmapSet::getters_newSet_giveTheArguments()
{
    QPixmap const strip = makeStrip(12);
    KPixmapSet const set(strip, QSize(4, 3), 3, false);
    QCOMPARE(set.getImagesCount(), 3);
    QCOMPARE(set.getImageSize(), QSize(4, 3));
    QCOMPARE(set.getPixmap().cacheKey(), strip.cacheKey());
    QVERIFY(!set.getBkColor().isValid());
}

void tst_KPixmapSet::copy_everything_isCopied()
{
    KPixmapSet set = makeSet();
    set.setBkColor(Qt::green);
    KPixmapSet const copy(set);
    QCOMPARE(copy.getImagesCount(), 3);
    QCOMPARE(copy.getImageSize(), QSize(4, 3));
    QCOMPARE(copy.getPixmap().cacheKey(), set.getPixmap().cacheKey());
    QCOMPARE(copy.getBkColor(), QColor(Qt::green));
    QVERIFY(copy.isValid());
}

void tst_KPixmapSet::assignment_everything_isCopied()
{
    KPixmapSet set = makeSet();
    set.setBkColor(Qt::green);
    KPixmapSet other(QPixmap(), QSize(), 0, false);
    QVERIFY(!other.isValid());
    KPixmapSet & result = (other = set);
    QCOMPARE(&result, &other);
    QCOMPARE(other.getImagesCount(), 3);
    QCOMPARE(other.getImageSize(), QSize(4, 3));
    QCOMPARE(other.getPixmap().cacheKey(), set.getPixmap().cacheKey());
    QCOMPARE(other.getBkColor(), QColor(Qt::green));
    QVERIFY(other.isValid());
}

// Who only points to a set does not keep it; the owner's copy is what lives on.
void tst_KPixmapSet::destructor_ownerDeletes_copiesKeepTheStrip()
{
    static_assert(std::has_virtual_destructor_v<KPixmapSet>);
    auto owned = std::make_unique<KPixmapSet>(makeSet());
    KPixmapSet const copy(*owned);
    owned.reset();
    QImage const image =
        drawn([&copy](QPainter * p) { QVERIFY(copy.drawImage(p, 2, 1, 1, -1, -1)); });
    QCOMPARE(wrongPart(image, QPoint(1, 1), 8, QSize(4, 3)), QByteArray());
}

void tst_KPixmapSet::setBkColor_anyColor_isKeptAndNotUsed()
{
    KPixmapSet set = makeSet();
    set.setBkColor(Qt::green);
    QCOMPARE(set.getBkColor(), QColor(Qt::green));
    QImage const image = drawn([&set](QPainter * p) { set.drawImage(p, 0, 2, 2, -1, -1); });
    QCOMPARE(wrongPart(image, QPoint(2, 2), 0, QSize(4, 3)), QByteArray());
}

void tst_KPixmapSet::useMask_background_becomesTransparent()
{
    QImage image(8, 4, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    image.setPixelColor(1, 1, Qt::red);
    image.setPixelColor(5, 2, Qt::blue);
    KPixmapSet const set(QPixmap::fromImage(image), QSize(4, 4), 2, true);
    QImage const result = drawn([&set](QPainter * p) { set.drawImage(p, 1, 0, 0, -1, -1); });
    QCOMPARE(result.pixelColor(1, 2), QColor(Qt::blue));
    QCOMPARE(result.pixelColor(3, 3), background);
    QCOMPARE(set.getPixmap().mask().toImage(),
             QPixmap::fromImage(image).createHeuristicMask(true).toImage());
    KPixmapSet const opaque(QPixmap::fromImage(image), QSize(4, 4), 2, false);
    QVERIFY(opaque.getPixmap().mask().isNull());
}

void tst_KPixmapSet::useMask_invalidSet_isMaskedAllTheSame()
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    image.setPixelColor(1, 1, Qt::red);
    KPixmapSet const set(QPixmap::fromImage(image), QSize(), 0, true);
    QVERIFY(!set.isValid());
    QVERIFY(set.getPixmap().hasAlpha());
}

void tst_KPixmapSet::nullStrip_everyOperation_isQuiet()
{
    for (bool useMask : {false, true}) {
        KPixmapSet const set(QPixmap(), QSize(4, 3), 3, useMask);
        QVERIFY(!set.isValid());
        QVERIFY(set.getPixmap().isNull());
        QImage const image = drawn([&set](QPainter * p) {
            QVERIFY(set.drawImage(p, 1, 2, 2, -1, -1));
            QVERIFY(set.drawImageMonoChrome(p, 1, 2, 2, -1, -1));
        });
        QCOMPARE(wrongPart(image, QPoint(), 0, QSize()), QByteArray());
    }
}

void tst_KPixmapSet::drawImage_everyIndex_drawsItsOwnPixels()
{
    KPixmapSet const set = makeSet();
    for (int index = 0; index < 3; ++index) {
        QImage const image =
            drawn([&](QPainter * p) { QVERIFY(set.drawImage(p, index, 5, 2, -1, -1)); });
        QCOMPARE(wrongPart(image, QPoint(5, 2), 4 * index, QSize(4, 3)), QByteArray());
    }
}

void tst_KPixmapSet::drawImage_badIndexOrPainter_isFalseAndDrawsNothing()
{
    KPixmapSet const set = makeSet();
    QImage const image = drawn([&set](QPainter * p) {
        for (int index : {INT_MIN, -1, 3, 4, INT_MAX}) {
            QVERIFY(!set.drawImage(p, index, 0, 0, -1, -1));
        }
        QVERIFY(!set.drawImage(nullptr, 0, 0, 0, -1, -1));
    });
    QCOMPARE(wrongPart(image, QPoint(), 0, QSize()), QByteArray());
}

void tst_KPixmapSet::drawImage_smallerSize_drawsTheLeftTopPartUnscaled()
{
    KPixmapSet const set = makeSet();
    QImage const image = drawn([&set](QPainter * p) { QVERIFY(set.drawImage(p, 1, 5, 2, 3, 2)); });
    QCOMPARE(wrongPart(image, QPoint(5, 2), 4, QSize(3, 2)), QByteArray());
}

void tst_KPixmapSet::drawImage_zeroSize_drawsNothing()
{
    KPixmapSet const set = makeSet();
    QImage const image = drawn([&set](QPainter * p) {
        QVERIFY(set.drawImage(p, 1, 5, 2, 0, -1));
        QVERIFY(set.drawImage(p, 1, 5, 2, -1, 0));
        QVERIFY(set.drawImageMonoChrome(p, 1, 5, 2, 0, 0));
    });
    QCOMPARE(wrongPart(image, QPoint(), 0, QSize()), QByteArray());
}

void tst_KPixmapSet::drawImage_largerSize_showsTheNextImage()
{
    KPixmapSet const set = makeSet();
    QImage const image = drawn([&set](QPainter * p) { QVERIFY(set.drawImage(p, 1, 5, 2, 6, 9)); });
    QCOMPARE(wrongPart(image, QPoint(5, 2), 4, QSize(6, 3)), QByteArray());
}

void tst_KPixmapSet::drawImage_stripTooNarrow_invalidSetStillDrawsCutAtTheEnd()
{
    KPixmapSet const set(makeStrip(6), QSize(imageWidth, imageHeight), 3, false);
    QVERIFY(!set.isValid());
    QImage const cut = drawn([&set](QPainter * p) { QVERIFY(set.drawImage(p, 1, 5, 2, -1, -1)); });
    QCOMPARE(wrongPart(cut, QPoint(5, 2), 4, QSize(2, 3)), QByteArray());
    QImage const none = drawn([&set](QPainter * p) { QVERIFY(set.drawImage(p, 2, 5, 2, -1, -1)); });
    QCOMPARE(wrongPart(none, QPoint(), 0, QSize()), QByteArray());
}

void tst_KPixmapSet::drawImage_stripAndDeviceRatios_drawEachImageInItsPlace_data()
{
    QTest::addColumn<double>("stripRatio");
    QTest::addColumn<double>("ratio");
    for (double strip : {1.0, 1.25, 1.5, 2.0}) {
        for (double device : {1.0, 1.25, 1.5, 2.0}) {
            QTest::addRow("strip %g on %g", strip, device) << strip << device;
        }
    }
}

// One colour an image: no pixel of a neighbour may show, whatever the rounding.
void tst_KPixmapSet::drawImage_stripAndDeviceRatios_drawEachImageInItsPlace()
{
    QFETCH(double, stripRatio);
    QFETCH(double, ratio);
    QColor const colors[] = {Qt::red, Qt::green, Qt::blue};
    QImage image(qRound(48 * stripRatio), qRound(16 * stripRatio), QImage::Format_RGB32);
    QPainter painter(&image);
    for (int i = 0; i < 3; ++i) {
        painter.fillRect(qRound(16 * stripRatio) * i, 0, qRound(16 * stripRatio), 99, colors[i]);
    }
    painter.end();
    QPixmap strip = QPixmap::fromImage(image);
    strip.setDevicePixelRatio(stripRatio);
    KPixmapSet const set(strip, QSize(16, 16), 3, false);
    QVERIFY(set.isValid());
    for (int x = 0; x < 6; ++x) {
        for (int index = 0; index < 3; ++index) {
            QImage const result =
                drawn([&](QPainter * p) { set.drawImage(p, index, x, 1, -1, 10); }, ratio);
            int const left = qRound(x * ratio);
            int const right = qRound((x + 16) * ratio);
            int const top = qRound(ratio);
            int const bottom = qRound(11 * ratio);
            QCOMPARE(wrongPixel(result,
                                [&](int px, int py) {
                                    bool const inside =
                                        px >= left && px < right && py >= top && py < bottom;
                                    return inside ? colors[index] : QColor();
                                }),
                     QByteArray());
        }
    }
}

void tst_KPixmapSet::drawImage_equalRatios_copyThePixels_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

// Wherever an image is as wide on the device as in the strip, it is copied pixel by pixel.
void tst_KPixmapSet::drawImage_equalRatios_copyThePixels()
{
    QFETCH(double, ratio);
    int const side = qRound(8 * ratio);
    QImage strip(2 * side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < 2 * side; ++x) {
            strip.setPixelColor(x, y, QColor(7 * x, 15 * y, 200));
        }
    }
    QPixmap pixmap = QPixmap::fromImage(strip);
    pixmap.setDevicePixelRatio(ratio);
    KPixmapSet const set(pixmap, QSize(8, 8), 2, false);
    for (int at = 0; at < 4; ++at) {
        int const left = qRound(at * ratio);
        if (qRound((at + 8) * ratio) - left != side) {
            continue;
        }
        QImage const image =
            drawn([&](QPainter * p) { set.drawImage(p, 1, at, at, -1, -1); }, ratio);
        QCOMPARE(wrongPixel(image,
                            [&](int x, int y) {
                                bool const inside = QRect(left, left, side, side).contains(x, y);
                                return inside ? strip.pixelColor(side + x - left, y - left)
                                              : QColor();
                            }),
                 QByteArray());
    }
}

void tst_KPixmapSet::drawImageMonoChrome_grey_isBlackAndWhite()
{
    QPixmap strip(32, 16);
    strip.fill(QColor(128, 128, 128));
    KPixmapSet const set(strip, QSize(16, 16), 2, false);
    QImage const image =
        drawn([&set](QPainter * p) { QVERIFY(set.drawImageMonoChrome(p, 1, 4, 0, -1, 12)); });
    int black = 0;
    int white = 0;
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 24; ++x) {
            QColor const pixel = image.pixelColor(x, y);
            black += pixel == QColor(0, 0, 0) ? 1 : 0;
            white += pixel == QColor(255, 255, 255) ? 1 : 0;
            QCOMPARE(pixel == background, x < 4 || x >= 20);
        }
    }
    QCOMPARE(black + white, 16 * 12);
    QVERIFY2(black > 60 && white > 60, "grey is mixed from both");
}

void tst_KPixmapSet::drawImageMonoChrome_blackAndWhite_stayAsTheyAre()
{
    QImage strip(8, 3, QImage::Format_RGB32);
    strip.fill(Qt::white);
    strip.setPixelColor(5, 1, Qt::black);
    KPixmapSet const set(QPixmap::fromImage(strip), QSize(4, 3), 2, false);
    QImage const image =
        drawn([&set](QPainter * p) { QVERIFY(set.drawImageMonoChrome(p, 1, 2, 3, -1, -1)); });
    QCOMPARE(wrongPixel(image,
                        [](int x, int y) {
                            if (!QRect(2, 3, 4, 3).contains(x, y)) {
                                return QColor();
                            }
                            return QColor(x == 3 && y == 4 ? Qt::black : Qt::white);
                        }),
             QByteArray());
}

void tst_KPixmapSet::drawImageMonoChrome_transparentPixels_stayTransparent()
{
    QImage strip(4, 3, QImage::Format_ARGB32_Premultiplied);
    strip.fill(Qt::transparent);
    strip.setPixelColor(1, 1, Qt::white);
    KPixmapSet const set(QPixmap::fromImage(strip), QSize(4, 3), 1, false);
    QImage const image =
        drawn([&set](QPainter * p) { QVERIFY(set.drawImageMonoChrome(p, 0, 0, 0, -1, -1)); });
    QCOMPARE(
        wrongPixel(image,
                   [](int x, int y) { return x == 1 && y == 1 ? QColor(Qt::white) : QColor(); }),
        QByteArray());
}

void tst_KPixmapSet::drawImageMonoChrome_badIndexOrPainter_isFalseAndDrawsNothing()
{
    KPixmapSet const set = makeSet();
    QImage const image = drawn([&set](QPainter * p) {
        for (int index : {INT_MIN, -1, 3, INT_MAX}) {
            QVERIFY(!set.drawImageMonoChrome(p, index, 0, 0, -1, -1));
        }
        QVERIFY(!set.drawImageMonoChrome(nullptr, 0, 0, 0, -1, -1));
    });
    QCOMPARE(wrongPart(image, QPoint(), 0, QSize()), QByteArray());
}

void tst_KPixmapSet::drawImageMonoChrome_smallerSizeAndStripEnd_cut()
{
    QPixmap strip(6, 3);
    strip.fill(Qt::white);
    KPixmapSet const set(strip, QSize(4, 3), 3, false);
    auto const covered = [](QRect const & rect) {
        return [rect](int x, int y) { return rect.contains(x, y) ? QColor(Qt::white) : QColor(); };
    };
    QImage const part = drawn([&set](QPainter * p) { set.drawImageMonoChrome(p, 0, 1, 1, 2, 2); });
    QCOMPARE(wrongPixel(part, covered(QRect(1, 1, 2, 2))), QByteArray());
    QImage const cut = drawn([&set](QPainter * p) { set.drawImageMonoChrome(p, 1, 1, 1, -1, -1); });
    QCOMPARE(wrongPixel(cut, covered(QRect(1, 1, 2, 3))), QByteArray());
    QImage const none = drawn([&set](QPainter * p) { set.drawImageMonoChrome(p, 2, 1, 1, -1, 9); });
    QCOMPARE(wrongPixel(none, covered(QRect())), QByteArray());
}

void tst_KPixmapSet::drawImageMonoChrome_stripRatio_drawsLogicalSize()
{
    QPixmap strip(16, 6);
    strip.fill(Qt::white);
    strip.setDevicePixelRatio(2);
    KPixmapSet const set(strip, QSize(4, 3), 2, false);
    QImage const image =
        drawn([&set](QPainter * p) { set.drawImageMonoChrome(p, 1, 3, 2, -1, -1); });
    QCOMPARE(wrongPixel(image,
                        [](int x, int y) {
                            return QRect(3, 2, 4, 3).contains(x, y) ? QColor(Qt::white) : QColor();
                        }),
             QByteArray());
}

void tst_KPixmapSet::retrieveOrCreateXpm_oneKeyTwoXpms_givesTheFirstImage()
{
    QPixmap const first = retrieveOrCreateXpm("tst_KPixmapSet:one", redXpm);
    QCOMPARE(first.size(), QSize(2, 2));
    QCOMPARE(first.toImage().pixelColor(1, 1), QColor(Qt::red));
    QPixmap const second = retrieveOrCreateXpm("tst_KPixmapSet:one", blueXpm);
    QCOMPARE(second.size(), QSize(2, 2));
    QCOMPARE(second.toImage().pixelColor(1, 1), QColor(Qt::red));
    QCOMPARE(retrieveOrCreateXpm("tst_KPixmapSet:other", blueXpm).size(), QSize(3, 1));
}

void tst_KPixmapSet::retrieveOrCreateXpm_hit_sharesTheCachedPixmap()
{
    QPixmap const first = retrieveOrCreateXpm("tst_KPixmapSet:share", redXpm);
    QPixmap cached;
    QVERIFY(QPixmapCache::find(QStringLiteral("tst_KPixmapSet:share"), &cached));
    QCOMPARE(cached.cacheKey(), first.cacheKey());
    QCOMPARE(retrieveOrCreateXpm("tst_KPixmapSet:share", nullptr).cacheKey(), first.cacheKey());
}

void tst_KPixmapSet::retrieveOrCreateXpm_cacheCleared_decodesAgain()
{
    QCOMPARE(retrieveOrCreateXpm("tst_KPixmapSet:clear", redXpm).size(), QSize(2, 2));
    QPixmapCache::clear();
    QCOMPARE(retrieveOrCreateXpm("tst_KPixmapSet:clear", blueXpm).size(), QSize(3, 1));
}

void tst_KPixmapSet::retrieveOrCreateXpm_nullKeyOrXpm_isQuiet()
{
    QCOMPARE(retrieveOrCreateXpm(nullptr, redXpm).size(), QSize(2, 2));
    QCOMPARE(retrieveOrCreateXpm(nullptr, blueXpm).size(), QSize(3, 1));
    QVERIFY(retrieveOrCreateXpm("tst_KPixmapSet:null", nullptr).isNull());
    QCOMPARE(retrieveOrCreateXpm("tst_KPixmapSet:null", redXpm).size(), QSize(2, 2));
}

void tst_KPixmapSet::getDefaultColor_isDarkBlue()
{
    QCOMPARE(getDefaultColor(), QColor(0, 0, 127));
}

ZENU_TEST(tst_KPixmapSet)
#include "tst_KPixmapSet.moc"
