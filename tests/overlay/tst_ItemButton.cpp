#include "tests/support/TestMain.h"

#include "tests/overlay/PixelPicture.h"

#include <zenu/overlay/KPainter.h>

#include <qdrawutil.h>

using namespace zenu;
using zenutest::DistinctPalette;
using zenutest::PixelPicture;

class tst_ItemButton : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void drawItemButton_everyState_leavesTheContentArea_data();
    void drawItemButton_everyState_leavesTheContentArea();
    void drawItemButton_flatAndPressed_movesTheContentButNotWhenHot();
    void drawItemButton_flat_paintsFaceAndTwoLines_data();
    void drawItemButton_flat_paintsFaceAndTwoLines();
    void drawItemButton_raised_paintsFaceAndButton_data();
    void drawItemButton_raised_paintsFaceAndButton();
    void drawItemButton_raised_isOnePixelHigherThanSunken();
    void drawItemButton_hotAndPressed_isBlack();
    void drawItemButton_hotOnEqualHighlight_takesTheLightColor();
    void drawItemButton_tinyRectangles_paintNothingOutside_data();
    void drawItemButton_tinyRectangles_paintNothingOutside();
};

namespace {

QSize const size(40, 30);
QColor const background(0, 90, 160);
QRect const item(4, 5, 25, 17);
double const ratios[] = {1, 1.25, 1.5, 2};

QColor fillOf(int state)
{
    if ((state & 4) == 0) {
        return DistinctPalette::active(QPalette::Button);
    }
    return (state & 1) != 0 ? QColor(0, 0, 0) : DistinctPalette::active(QPalette::Highlight);
}

void addStates(int required, int excluded)
{
    QTest::addColumn<int>("state");
    QTest::addColumn<double>("ratio");
    for (int state = 0; state < 32; ++state) {
        if ((state & required) != required || (state & excluded) != 0) {
            continue;
        }
        QByteArray name;
        char const * const names[] = {"pressed ", "no margin ", "hot ", "vertical ", "flat "};
        for (int bit = 0; bit < 5; ++bit) {
            name += (state >> bit & 1) != 0 ? names[bit] : "";
        }
        for (double ratio : ratios) {
            QTest::newRow((name + QByteArray::number(ratio)).constData()) << state << ratio;
        }
    }
}

auto drawing(int state, QRect const & rect)
{
    return [state, rect](QPaintDevice * device) {
        QRect changed = rect;
        KPainter(device).drawItemButton(&changed, state);
    };
}

} // namespace

void tst_ItemButton::drawItemButton_everyState_leavesTheContentArea_data()
{
    addStates(0, 0);
}

void tst_ItemButton::drawItemButton_everyState_leavesTheContentArea()
{
    QFETCH(int, state);
    int const margin = (state & ItemButtonNoMargin) != 0 ? 1 : 3;
    bool const moved = (state & (ItemButtonFlat | ItemButtonPressed | ItemButtonHot)) ==
                       (ItemButtonFlat | ItemButtonPressed);
    QRect expected(item.x() + margin, item.y() + 1, item.width() - 2 * margin, item.height() - 2);
    expected.translate(moved ? 1 : 0, moved ? 1 : 0);

    QImage image(size, QImage::Format_RGB32);
    QRect rect = item;
    KPainter(&image).drawItemButton(&rect, state);
    QCOMPARE(rect, expected);
}

void tst_ItemButton::drawItemButton_flatAndPressed_movesTheContentButNotWhenHot()
{
    QImage image(size, QImage::Format_RGB32);
    KPainter painter(&image);
    QRect pressed = item;
    painter.drawItemButton(&pressed, ItemButtonFlat | ItemButtonPressed);
    QRect hot = item;
    painter.drawItemButton(&hot, ItemButtonFlat | ItemButtonPressed | ItemButtonHot);
    QCOMPARE(hot, item.adjusted(3, 1, -3, -1));
    QCOMPARE(pressed, hot.translated(1, 1));
}

void tst_ItemButton::drawItemButton_flat_paintsFaceAndTwoLines_data()
{
    addStates(ItemButtonFlat, 0);
}

void tst_ItemButton::drawItemButton_flat_paintsFaceAndTwoLines()
{
    QFETCH(int, state);
    QFETCH(double, ratio);
    DistinctPalette const palette;
    QColor const light = DistinctPalette::active(QPalette::Light);
    QColor const dark = DistinctPalette::active(QPalette::Dark);
    PixelPicture expected(size, ratio, background);
    expected.fill(4, 5, 24, 16, fillOf(state));
    if ((state & ItemButtonVertical) != 0) {
        expected.fill(5, 5, 22, 1, light);
        expected.fill(5, 20, 22, 1, dark);
    } else {
        expected.fill(4, 6, 1, 14, light);
        expected.fill(27, 6, 1, 14, dark);
    }
    ZENU_COMPARE_PAINTED(size, ratio, background, drawing(state, item), expected);
}

void tst_ItemButton::drawItemButton_raised_paintsFaceAndButton_data()
{
    addStates(0, ItemButtonFlat);
}

void tst_ItemButton::drawItemButton_raised_paintsFaceAndButton()
{
    QFETCH(int, state);
    QFETCH(double, ratio);
    DistinctPalette const palette;
    bool const pressed = (state & ItemButtonPressed) != 0;
    auto const reference = [&](QPaintDevice * device) {
        QPainter painter(device);
        painter.fillRect(4, 5, 24, 16, fillOf(state));
        QPalette active = QApplication::palette();
        active.setCurrentColorGroup(QPalette::Active);
        qDrawWinButton(&painter, 4, 5, 24, pressed ? 16 : 17, active, pressed, nullptr);
    };
    auto const draw = drawing(state, item);
    QCOMPARE(zenutest::difference(zenutest::painted<QImage>(size, ratio, background, draw),
                                  zenutest::painted<QImage>(size, ratio, background, reference)),
             QByteArray());
    QCOMPARE(zenutest::difference(zenutest::painted<QPixmap>(size, ratio, background, draw),
                                  zenutest::painted<QPixmap>(size, ratio, background, reference)),
             QByteArray());
}

void tst_ItemButton::drawItemButton_raised_isOnePixelHigherThanSunken()
{
    DistinctPalette const palette;
    QImage const raised = zenutest::painted<QImage>(size, 1, background, drawing(0, item));
    QImage const sunken =
        zenutest::painted<QImage>(size, 1, background, drawing(ItemButtonPressed, item));
    int const middle = item.center().x();
    QVERIFY(raised.pixel(middle, item.bottom()) != background.rgb());
    QCOMPARE(raised.pixel(middle, item.bottom() + 1), background.rgb());
    QVERIFY(sunken.pixel(middle, item.bottom() - 1) != background.rgb());
    QCOMPARE(sunken.pixel(middle, item.bottom()), background.rgb());
    // Neither reaches the last column.
    QCOMPARE(raised.pixel(item.right(), item.center().y()), background.rgb());
    QVERIFY(raised.pixel(item.right() - 1, item.center().y()) != background.rgb());
}

void tst_ItemButton::drawItemButton_hotAndPressed_isBlack()
{
    for (int style : {0, int(ItemButtonFlat)}) {
        QImage const image = zenutest::painted<QImage>(
            size, 1, background, drawing(style | ItemButtonHot | ItemButtonPressed, item));
        QCOMPARE(image.pixel(item.center()), QColor(0, 0, 0).rgb());
    }
}

void tst_ItemButton::drawItemButton_hotOnEqualHighlight_takesTheLightColor()
{
    DistinctPalette const restoring;
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Active, QPalette::Highlight,
                     palette.color(QPalette::Active, QPalette::Button));
    QApplication::setPalette(palette);
    QImage const image = zenutest::painted<QImage>(size, 1, background,
                                                   drawing(ItemButtonHot | ItemButtonFlat, item));
    QCOMPARE(image.pixelColor(item.center()), DistinctPalette::active(QPalette::Light));
}

void tst_ItemButton::drawItemButton_tinyRectangles_paintNothingOutside_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("state");
    for (int w : {-3, 0, 1, 2, 3}) {
        for (int h : {-3, 0, 1, 2, 3}) {
            for (int state : {0, 1, 4, 16, 17, 24}) {
                QTest::addRow("%dx%d in state %d", w, h, state) << QRect(10, 10, w, h) << state;
            }
        }
    }
}

void tst_ItemButton::drawItemButton_tinyRectangles_paintNothingOutside()
{
    QFETCH(QRect, rect);
    QFETCH(int, state);
    QImage const image = zenutest::painted<QImage>(size, 1, background, drawing(state, rect));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QVERIFY2(rect.contains(x, y) || image.pixel(x, y) == background.rgb(),
                     qPrintable(QStringLiteral("%1 %2").arg(x).arg(y)));
        }
    }
}

ZENU_TEST(tst_ItemButton)
#include "tst_ItemButton.moc"
