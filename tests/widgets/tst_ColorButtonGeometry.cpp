#include "tests/support/TestMain.h"

#include <zenu/widgets/inner/ColorButtonGeometry.h>
#include <zenu/widgets/inner/GridWalk.h>

#include <climits>

using namespace zenu;

Q_DECLARE_METATYPE(zenu::ColorButtonContent)

namespace {

// The numbers of a button that shows a swatch and a label of 20 x 10 apart by 5, margin 3.
ColorButtonContent swatchAndLabel()
{
    ColorButtonContent content;
    content.showsSwatch = true;
    content.showsLabel = true;
    content.label = QSize(20, 10);
    content.margin = 3;
    content.spacing = 5;
    content.minSwatch = QSize(8, 6);
    content.maxSwatch = QSize(1000, 1000);
    return content;
}

ColorButtonContent with(std::function<void(ColorButtonContent &)> const & change)
{
    ColorButtonContent content = swatchAndLabel();
    change(content);
    return content;
}

} // namespace

class tst_ColorButtonGeometry : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void neededSize_byTheRule_data();
    void neededSize_byTheRule();
    void placesIn_byTheRule_data();
    void placesIn_byTheRule();
    void sums_ofHugeNumbers_saturate();
    void popupPosition_byTheRule_data();
    void popupPosition_byTheRule();
    void gridWalk_byTheRule_data();
    void gridWalk_byTheRule();
};

void tst_ColorButtonGeometry::neededSize_byTheRule_data()
{
    QTest::addColumn<ColorButtonContent>("content");
    QTest::addColumn<QSize>("size");
    QTest::newRow("all of it") << swatchAndLabel() << QSize(8 + 20 + 2 * 3 + 5, 10 + 2 * 3);
    QTest::newRow("a higher swatch") << with([](auto & c) { c.minSwatch = QSize(8, 16); })
                                     << QSize(8 + 20 + 2 * 3 + 5, 16 + 2 * 3);
    QTest::newRow("no swatch: no spacing, its smallest size counts all the same")
        << with([](auto & c) { c.showsSwatch = false; }) << QSize(8 + 20 + 2 * 3, 10 + 2 * 3);
    QTest::newRow("no label: no spacing") << with([](auto & c) {
        c.showsLabel = false;
        c.label = QSize(0, 0);
    }) << QSize(8 + 2 * 3, 6 + 2 * 3);
    QTest::newRow("nothing") << ColorButtonContent{} << QSize(-1 + -1 + 4, -1 + 4);
}

void tst_ColorButtonGeometry::neededSize_byTheRule()
{
    QFETCH(ColorButtonContent, content);
    QTEST(neededSize(content), "size");
}

void tst_ColorButtonGeometry::placesIn_byTheRule_data()
{
    QTest::addColumn<ColorButtonContent>("content");
    QTest::addColumn<QSize>("button");
    QTest::addColumn<QRect>("swatch");
    QTest::addColumn<QPoint>("label");
    // w = 100 - 20 - 6 - 5 = 69; h = 40 - 6 = 34
    QTest::newRow("no largest size: the swatch fills")
        << swatchAndLabel() << QSize(100, 40) << QRect(3, 3, 69, 34) << QPoint(5 + 69 + 3, 15);
    // x = (100 - 20 - 3 - 12) / 2 = 32; y = (40 - 12) / 2
    QTest::newRow("largest size: centred by the margin, not the spacing")
        << with([](auto & c) { c.maxSwatch = QSize(12, 12); }) << QSize(100, 40)
        << QRect(32, 14, 12, 12) << QPoint(5 + 12 + 32, 15);
    QTest::newRow("largest width as wide as the room: nothing is centred")
        << with([](auto & c) { c.maxSwatch = QSize(69, 12); }) << QSize(100, 40)
        << QRect(3, 14, 69, 12) << QPoint(5 + 69 + 3, 15);
    QTest::newRow("odd heights round down")
        << with([](auto & c) { c.maxSwatch = QSize(12, 11); }) << QSize(100, 40)
        << QRect(32, 14, 12, 11) << QPoint(49, 15);
    // x = (101 - 20 - 3 - 12) / 2 = 33
    QTest::newRow("odd widths round towards zero")
        << with([](auto & c) { c.maxSwatch = QSize(12, 11); }) << QSize(102, 40)
        << QRect(33, 14, 12, 11) << QPoint(50, 15);
    QTest::newRow("too low: the smallest height, over the edges")
        << with([](auto & c) { c.minSwatch = QSize(8, 20); }) << QSize(100, 10)
        << QRect(3, -5, 69, 20) << QPoint(77, 0);
    QTest::newRow("swatch alone") << with([](auto & c) {
        c.showsLabel = false;
        c.label = QSize(0, 0);
        c.margin = 1;
        c.maxSwatch = QSize(12, 12);
    }) << QSize(16, 16) << QRect(2, 2, 12, 12)
                                  << QPoint(5 + 12 + 2, 8);
    // w would be 100 - 20 - 6, the largest size decides
    QTest::newRow("label alone") << with([](auto & c) {
        c.showsSwatch = false;
        c.maxSwatch = QSize(0, 0);
    }) << QSize(100, 40) << QRect(40, 20, 0, 0)
                                 << QPoint(40, 15);
}

void tst_ColorButtonGeometry::placesIn_byTheRule()
{
    QFETCH(ColorButtonContent, content);
    QFETCH(QSize, button);
    ColorButtonPlaces const places = placesIn(button, content);
    QFETCH(QRect, swatch);
    if (content.showsSwatch)
        QCOMPARE(places.swatch, swatch);
    QFETCH(QPoint, label);
    QCOMPARE(places.label, QRect(label, content.label));
}

void tst_ColorButtonGeometry::sums_ofHugeNumbers_saturate()
{
    for (int const huge : {INT_MAX, INT_MIN}) {
        ColorButtonContent const content = with([huge](auto & c) {
            c.margin = huge;
            c.spacing = huge;
            c.minSwatch = c.maxSwatch = QSize(huge, huge);
        });
        QSize const size = neededSize(content);
        QCOMPARE(size.width() > 0, huge > 0);
        ColorButtonPlaces const places = placesIn(QSize(100, 40), content);
        QVERIFY(places.swatch.width() <= INT_MAX / 4);
    }
}

void tst_ColorButtonGeometry::popupPosition_byTheRule_data()
{
    QTest::addColumn<QRect>("button");
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("reversed");
    QTest::addColumn<QPoint>("pos");
    // The menu is 100 x 80. The same rules on a screen that begins elsewhere.
    for (QPoint const origin : {QPoint(0, 0), QPoint(1000, 200), QPoint(-900, -700)}) {
        QRect const screen(origin, QSize(800, 600));
        auto const row = [&](char const * rule, QRect const & button, bool vertical, bool reversed,
                             QPoint const & pos) {
            QTest::addRow("%s, screen at %d %d", rule, origin.x(), origin.y())
                << button.translated(origin) << screen << vertical << reversed << pos + origin;
        };
        QRect const middle(300, 300, 60, 30); // right 359, bottom 329
        row("below", middle, false, false, QPoint(300, 329));
        row("below, just fits", QRect(300, 491, 60, 30), false, false, QPoint(300, 520));
        row("above", QRect(300, 492, 60, 30), false, false, QPoint(300, 492 - 80));
        row("below, reversed", middle, false, true, QPoint(359 - 100, 329));
        row("below, reversed, just fits", QRect(300, 491, 60, 30), false, true, QPoint(259, 520));
        row("above, reversed", QRect(300, 492, 60, 30), false, true, QPoint(259, 412));
        row("beside", middle, true, false, QPoint(359, 300));
        row("beside, just fits", QRect(641, 300, 60, 30), true, false, QPoint(700, 300));
        row("beside, to the left", QRect(642, 300, 60, 30), true, false, QPoint(542, 300));
        row("beside, reversed", middle, true, true, QPoint(200, 300));
        row("beside, reversed, just fits", QRect(101, 300, 60, 30), true, true, QPoint(1, 300));
        row("beside, reversed, to the right", QRect(100, 300, 60, 30), true, true,
            QPoint(159, 300));
    }
}

void tst_ColorButtonGeometry::popupPosition_byTheRule()
{
    QFETCH(QRect, button);
    QFETCH(QRect, screen);
    QFETCH(bool, vertical);
    QFETCH(bool, reversed);
    QTEST(popupPosition(button, QSize(100, 80), screen, {vertical, reversed}), "pos");
}

void tst_ColorButtonGeometry::gridWalk_byTheRule_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("reversed");
    QTest::addColumn<int>("to");
    // 3 rows of 4.
    QTest::newRow("right") << 5 << int(Qt::Key_Right) << false << 6;
    QTest::newRow("left") << 5 << int(Qt::Key_Left) << false << 4;
    QTest::newRow("up") << 5 << int(Qt::Key_Up) << false << 1;
    QTest::newRow("down") << 5 << int(Qt::Key_Down) << false << 9;
    QTest::newRow("right, reversed") << 5 << int(Qt::Key_Right) << true << 4;
    QTest::newRow("left, reversed") << 5 << int(Qt::Key_Left) << true << 6;
    QTest::newRow("out at the right") << 7 << int(Qt::Key_Right) << false << -1;
    QTest::newRow("out at the left") << 4 << int(Qt::Key_Left) << false << -1;
    QTest::newRow("out at the top") << 2 << int(Qt::Key_Up) << false << -1;
    QTest::newRow("out at the bottom") << 10 << int(Qt::Key_Down) << false << -1;
    QTest::newRow("another key") << 5 << int(Qt::Key_A) << false << -1;
    QTest::newRow("from nowhere") << -1 << int(Qt::Key_Down) << false << -1;
}

void tst_ColorButtonGeometry::gridWalk_byTheRule()
{
    QFETCH(int, from);
    QFETCH(int, key);
    QFETCH(bool, reversed);
    QTEST(gridWalk(from, key, 3, 4, reversed), "to");
    QCOMPARE(gridWalk(from, key, 0, 0, reversed), -1);
}

ZENU_TEST(tst_ColorButtonGeometry)
#include "tst_ColorButtonGeometry.moc"
