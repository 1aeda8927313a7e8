#include "tests/support/TestMain.h"
#include "tests/surface/SurfaceHost.h"

#include <zenu/overlay/KDataTip.h>
#include <zenu/overlay/KSpriteLayer.h>
#include <zenu/widgets/KPixmapSet.h>

#include <QApplication>

using namespace zenu;
using zenutest::SurfaceHost;

namespace {

constexpr QSize imageSize(10, 30); // higher than a line of text
constexpr int listMargin = 9;
constexpr int pictureMargin = 4;
constexpr char const * someText = "12.5 ms\nover zero";

QColor const textColor(0, 0, 250);
QColor const bkColor(250, 250, 0);
QColor const marginColor(0, 250, 0);
QColor const borderColor(250, 0, 0);

// Two images of one colour each.
KPixmapSet images()
{
    QPixmap strip(imageSize.width() * 2, imageSize.height());
    strip.fill(QColor(10, 20, 30));
    QPainter painter(&strip);
    painter.fillRect(QRect(QPoint(imageSize.width(), 0), imageSize), QColor(90, 80, 70));
    return KPixmapSet(strip, imageSize, 2, false);
}

QSize textSize(char const * text)
{
    return QFontMetrics(QApplication::font()).size(0, QString::fromLatin1(text));
}

// What a tip draws, in device pixels.
QImage drawn(KDataTip & tip, QSize const & size, qreal ratio)
{
    QPixmap buffer((QSizeF(size) * ratio).toSize());
    buffer.setDevicePixelRatio(ratio);
    buffer.fill(Qt::cyan);
    tip.drawInBuffer(&buffer, nullptr);
    QImage image = buffer.toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

void setTestColors(KDataTip & tip)
{
    tip.setTextColor(textColor);
    tip.setBkColor(bkColor);
    tip.setMarginColor(marginColor);
    tip.setBorderColor(borderColor);
}

} // namespace

class tst_KDataTip : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fresh_hasItsDefaults();
    void storedValues_comeBack();
    void setText_size_isThatOfTheTextAndItsMargins();
    void setText_lowerThanAnImage_isAsHighAsTheImage();
    void setText_null_isEmpty();
    void setText_latin1_comesBack();
    void setImageList_thenSetPicture_theSecondDecidesTheStrip();
    void setPicture_negative_changesTheSizeAtTheNextTextOnly();
    void setImageList_null_leavesTheStrip();
    void setPicture_withoutImageList_makesAStripOfFourAndDrawsNothing();
    void setPictureFlag_changesNothingInThePicture();
    void drawing_everyArea_hasItsColour_data();
    void drawing_everyArea_hasItsColour();
    void drawing_picture_isCentredInTheStrip();
    void drawing_text_startsInItsMargins();
    void drawing_null_isQuiet();
    void colours_changedLater_showAtTheNextText();
    void tip_onTheScreen_looksAsDrawn();
};

void tst_KDataTip::fresh_hasItsDefaults()
{
    KDataTip tip(nullptr);
    QCOMPARE(tip.getTextColor(), QColor(128, 0, 0));
    QCOMPARE(tip.getBkColor(), QColor(255, 255, 255));
    QCOMPARE(tip.getMarginColor(), QColor(255, 211, 76));
    QCOMPARE(tip.getBorderColor(), QColor(128, 128, 128));
    QCOMPARE(tip.getTimeout(), 3000);
    QVERIFY(!tip.isPicture() && !tip.isTimeoutHide() && !tip.isKeyEventHide() && !tip.isAutoWrap());
    QVERIFY(!tip.getImageList());
    QCOMPARE(tip.getText(), "");
    QVERIFY(tip.size().isEmpty());
}

void tst_KDataTip::storedValues_comeBack()
{
    KDataTip tip(nullptr);
    setTestColors(tip);
    QCOMPARE(tip.getTextColor(), textColor);
    QCOMPARE(tip.getBkColor(), bkColor);
    QCOMPARE(tip.getMarginColor(), marginColor);
    QCOMPARE(tip.getBorderColor(), borderColor);
    tip.setTimeout(-5);
    QCOMPARE(tip.getTimeout(), -5);
    // Each flag alone, so that none stands in another's place.
    for (int flag = 0; flag < 4; ++flag) {
        tip.setPicture(flag == 0);
        tip.setTimeoutHide(flag == 1);
        tip.setKeyEventHide(flag == 2);
        tip.setAutoWrap(flag == 3);
        QCOMPARE(tip.isPicture(), flag == 0);
        QCOMPARE(tip.isTimeoutHide(), flag == 1);
        QCOMPARE(tip.isKeyEventHide(), flag == 2);
        QCOMPARE(tip.isAutoWrap(), flag == 3);
    }
    KPixmapSet set = images();
    tip.setImageList(&set);
    QCOMPARE(tip.getImageList(), &set);
}

void tst_KDataTip::setText_size_isThatOfTheTextAndItsMargins()
{
    KDataTip tip(nullptr);
    for (char const * text : {"x", someText, "a rather long text in one line"}) {
        tip.setText(text);
        QCOMPARE(tip.size(), textSize(text) + QSize(8, 8));
    }
}

void tst_KDataTip::setText_lowerThanAnImage_isAsHighAsTheImage()
{
    KPixmapSet set = images();
    KDataTip tip(nullptr);
    tip.setImageList(&set);
    tip.setText("x");
    QVERIFY(textSize("x").height() < imageSize.height());
    QCOMPARE(tip.size().height(), imageSize.height() + 8);
}

void tst_KDataTip::setText_null_isEmpty()
{
    KDataTip tip(nullptr);
    tip.setText("x");
    tip.setText(nullptr);
    QCOMPARE(tip.getText(), "");
    QCOMPARE(tip.size(), textSize("") + QSize(8, 8));
}

void tst_KDataTip::setText_latin1_comesBack()
{
    KDataTip tip(nullptr);
    tip.setText("5 \xb5s");
    QCOMPARE(tip.getText(), "5 \xb5s");
}

void tst_KDataTip::setImageList_thenSetPicture_theSecondDecidesTheStrip()
{
    KPixmapSet set = images();
    KDataTip tip(nullptr);
    int const bare = textSize("x").width() + 8;
    tip.setImageList(&set);
    tip.setText("x");
    QCOMPARE(tip.size().width(), bare + imageSize.width() + listMargin);
    tip.setPicture(1);
    tip.setText("x");
    QCOMPARE(tip.size().width(), bare + imageSize.width() + pictureMargin);
    tip.setImageList(&set);
    tip.setText("x");
    QCOMPARE(tip.size().width(), bare + imageSize.width() + listMargin);
}

void tst_KDataTip::setPicture_negative_changesTheSizeAtTheNextTextOnly()
{
    KPixmapSet set = images();
    KDataTip tip(nullptr);
    tip.setImageList(&set);
    tip.setText("x");
    QSize const before = tip.size();
    tip.setPicture(-1);
    QCOMPARE(tip.size(), before);
    tip.setText("x");
    QCOMPARE(tip.size().width(), textSize("x").width() + 8);
}

void tst_KDataTip::setImageList_null_leavesTheStrip()
{
    KPixmapSet set = images();
    KDataTip tip(nullptr);
    tip.setImageList(&set);
    tip.setText("x");
    QSize const before = tip.size();
    tip.setImageList(nullptr);
    QVERIFY(!tip.getImageList());
    tip.setText("x");
    QCOMPARE(tip.size(), before);
}

void tst_KDataTip::setPicture_withoutImageList_makesAStripOfFourAndDrawsNothing()
{
    KDataTip tip(nullptr);
    setTestColors(tip);
    tip.setPicture(0);
    tip.setText("x");
    QCOMPARE(tip.size().width(), textSize("x").width() + 8 + 4);
    QImage const image = drawn(tip, tip.size(), 1);
    for (int y = 1; y < image.height() - 1; ++y) {
        for (int x = 1; x < 4; ++x) {
            QCOMPARE(image.pixelColor(x, y), marginColor);
        }
        QCOMPARE(image.pixelColor(4, y), bkColor);
    }
}

void tst_KDataTip::setPictureFlag_changesNothingInThePicture()
{
    KPixmapSet set = images();
    KDataTip tip(nullptr);
    tip.setImageList(&set);
    tip.setPicture(1);
    tip.setText("x");
    QImage const before = drawn(tip, tip.size(), 1);
    tip.setPicture(true);
    QVERIFY(tip.isPicture());
    QCOMPARE(drawn(tip, tip.size(), 1), before);
}

void tst_KDataTip::drawing_everyArea_hasItsColour_data()
{
    QTest::addColumn<int>("ratio");
    QTest::newRow("ratio 1") << 1;
    QTest::newRow("ratio 2") << 2;
    QTest::newRow("ratio 3") << 3;
}

// Without text: a frame one logical pixel wide, the strip up to the margin's width, the rest.
void tst_KDataTip::drawing_everyArea_hasItsColour()
{
    QFETCH(int, ratio);
    KPixmapSet set = images();
    KDataTip tip(nullptr);
    setTestColors(tip);
    tip.setImageList(&set);
    tip.setText("");
    int const margin = imageSize.width() + listMargin;
    QSize const size = tip.size();
    QImage const image = drawn(tip, size, ratio);
    QCOMPARE(image.size(), size * ratio);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QPoint const place(x / ratio, y / ratio);
            bool const inside = QRect(QPoint(0, 0), size).adjusted(1, 1, -1, -1).contains(place);
            QColor const expected = !inside              ? borderColor
                                    : place.x() < margin ? marginColor
                                                         : bkColor;
            QVERIFY2(image.pixelColor(x, y) == expected,
                     qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
        }
    }
}

void tst_KDataTip::drawing_picture_isCentredInTheStrip()
{
    KPixmapSet set = images();
    KDataTip tip(nullptr);
    setTestColors(tip);
    tip.setImageList(&set);
    tip.setPicture(1);
    tip.setText("x");
    QImage const image = drawn(tip, tip.size(), 1);
    int const margin = imageSize.width() + pictureMargin;
    QRect const place(QPoint((margin - imageSize.width()) / 2,
                             (tip.size().height() - 1 - imageSize.height()) / 2),
                      imageSize);
    for (int y = 1; y < image.height() - 1; ++y) {
        for (int x = 1; x < margin; ++x) {
            QCOMPARE(image.pixelColor(x, y),
                     place.contains(x, y) ? QColor(90, 80, 70) : marginColor);
        }
    }
}

void tst_KDataTip::drawing_text_startsInItsMargins()
{
    KDataTip tip(nullptr);
    setTestColors(tip);
    tip.setText(someText);
    QSize const size = tip.size();
    QPixmap expected(size);
    expected.fill(bkColor);
    {
        QPainter painter(&expected);
        painter.setPen(textColor);
        painter.setFont(QApplication::font());
        painter.drawText(QRect(4, 4, size.width() - 8, size.height()), Qt::AlignLeft | Qt::AlignTop,
                         QString::fromLatin1(someText));
    }
    QRect const inside = QRect(QPoint(0, 0), size).adjusted(1, 1, -1, -1);
    QImage const image = drawn(tip, size, 1).copy(inside);
    QCOMPARE(image, expected.toImage().convertToFormat(QImage::Format_RGB32).copy(inside));
    bool textSeen = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            textSeen = textSeen || image.pixelColor(x, y) != bkColor;
        }
    }
    QVERIFY(textSeen);
}

void tst_KDataTip::drawing_null_isQuiet()
{
    KDataTip tip(nullptr);
    tip.setText("x");
    tip.drawInBuffer(nullptr, nullptr);
    QPixmap empty;
    tip.drawInBuffer(&empty, nullptr);
}

void tst_KDataTip::colours_changedLater_showAtTheNextText()
{
    SurfaceHost host;
    host.resize(160, 100);
    QVERIFY(zenutest::showAndSettle(host));
    KSpriteLayer layer(&host);
    KDataTip tip(&layer);
    tip.setText("x");
    tip.show();
    layer.update();
    QImage const before = zenutest::picture(host);
    tip.setBkColor(bkColor);
    layer.update();
    QCOMPARE(zenutest::wrongPixels(zenutest::picture(host), before), 0);
    tip.setText("x");
    layer.update();
    QVERIFY(zenutest::wrongPixels(zenutest::picture(host), before) > 0);
}

void tst_KDataTip::tip_onTheScreen_looksAsDrawn()
{
    SurfaceHost host;
    host.resize(160, 100);
    QVERIFY(zenutest::showAndSettle(host));
    host.paints = 0;
    KPixmapSet set = images();
    KSpriteLayer layer(&host);
    KDataTip tip(&layer);
    setTestColors(tip);
    tip.setImageList(&set);
    tip.setPicture(0);
    tip.setText(someText);
    tip.moveTo(QPoint(20, 16)); // whole device pixels at every ratio
    tip.show();
    layer.update();
    qreal const ratio = host.devicePixelRatioF();
    QImage const expected = drawn(tip, tip.size(), ratio);
    QImage const shown =
        zenutest::picture(host).copy(QRect((QPointF(20, 16) * ratio).toPoint(), expected.size()));
    // At a fractional ratio the last line of the buffer may be cut off.
    QRect const whole(QPoint(0, 0), expected.size() - QSize(1, 1));
    QCOMPARE(zenutest::wrongPixels(shown.copy(whole), expected.copy(whole)), 0);
    QCOMPARE(host.paints, 0);
}

ZENU_TEST(tst_KDataTip)
#include "tst_KDataTip.moc"
