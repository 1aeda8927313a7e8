#include "tests/grid_geometry/GeometryFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/grid/look/CDrawContext.h>
#include <zenu/grid/look/GridColors.h>
#include <zenu/grid/look/KGridImages.h>
#include <zenu/overlay/KPainter.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

using namespace zenu;

class tst_GridLook : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void colors_defaults_data();
    void colors_defaults();
    void colors_otherNumbers_areBlackAndStayAway();
    void colors_set_answersTheOldOne();
    void colors_fresh_areUnset();
    void colors_defaults_areReadFromThePalette();
    void context_fresh_isEmpty();
    void images_copy_duplicatesEachSet();
    void images_set_replacesAndRemoves();
    void images_listNumbers_data();
    void images_listNumbers();
    void images_otherNumber_readsNormalAndWritesNothing();
    void images_clearLists_keepsGlyphs();
    void images_missing_haveNoSize();
    void glyphs_pixels_areThoseOfTheText();
    void glyphs_atOtherRatios_showNothingOfTheirNeighbours_data();
    void glyphs_atOtherRatios_showNothingOfTheirNeighbours();
    void arrows_areRedAndPointAway();
};

void tst_GridLook::colors_defaults_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("systemColor");
    int const numbers[][2] = {{1, 1},  {2, 5},   {3, 10}, {6, 8},   {7, 6},   {8, 4},
                              {9, 1},  {10, 4},  {11, 1}, {12, 13}, {13, 11}, {14, 8},
                              {15, 6}, {16, 13}, {18, 4}, {19, 1},  {20, 13}, {21, 11}};
    for (auto const & [number, systemColor] : numbers) {
        QTest::addRow("%d", number) << number << systemColor;
    }
    QTest::newRow("focused-cell text is unset") << 4 << -1;
    QTest::newRow("focused-cell background is unset") << 5 << -1;
    QTest::newRow("the selected section's bottom line has no default") << 17 << -1;
}

void tst_GridLook::colors_defaults()
{
    QFETCH(int, number);
    QFETCH(int, systemColor);
    GridColors const colors = GridColors::fromPalette();
    if (systemColor >= 0) {
        QCOMPARE(colors.get(number), KPainter::getSysColor(systemColor));
    } else {
        QCOMPARE(colors.get(number).rgb(), GC_UNSETCOLOR);
        QVERIFY(!colors.isSet(static_cast<GCColor>(number)));
    }
    QCOMPARE(colors.get(number).isValid(), number != 17);
}

void tst_GridLook::colors_otherNumbers_areBlackAndStayAway()
{
    GridColors colors = GridColors::fromPalette();
    for (int const number : {0, 22, -1, -0x7fffffff - 1, 0x7fffffff}) {
        QCOMPARE(colors.get(number), QColor(Qt::black));
        QCOMPARE(colors.set(number, Qt::red), QColor(Qt::black));
        QCOMPARE(colors.get(number), QColor(Qt::black));
    }
}

void tst_GridLook::colors_set_answersTheOldOne()
{
    GridColors colors;
    for (int number = 1; number <= GCC_COUNT; ++number) {
        QCOMPARE(colors.set(number, QColor(number, 1, 2)).rgb(), GC_UNSETCOLOR);
        QCOMPARE(colors.set(number, QColor(number, 3, 4)), QColor(number, 1, 2));
    }
    for (int number = 1; number <= GCC_COUNT; ++number) {
        QCOMPARE(colors.get(number), QColor(number, 3, 4));
        QCOMPARE(colors[static_cast<GCColor>(number)], QColor(number, 3, 4));
        QVERIFY(colors.isSet(static_cast<GCColor>(number)));
    }
}

void tst_GridLook::colors_fresh_areUnset()
{
    GridColors const colors;
    for (int number = 1; number <= GCC_COUNT; ++number) {
        QVERIFY(!colors.isSet(static_cast<GCColor>(number)));
    }
}

void tst_GridLook::colors_defaults_areReadFromThePalette()
{
    QPalette const before = QApplication::palette();
    QPalette other = before;
    other.setColor(QPalette::Active, QPalette::Base, QColor(1, 2, 3));
    QApplication::setPalette(other);
    QColor const read = GridColors::fromPalette()[GCC_BACKGROUND];
    QApplication::setPalette(before);
    QCOMPARE(read, QColor(1, 2, 3));
}

void tst_GridLook::context_fresh_isEmpty()
{
    CDrawContext const context;
    QCOMPARE(context.hoverColumn, -1);
    QCOMPARE(context.focusColumn, -1);
    QVERIFY(!context.font && !context.images && !context.texts && !context.slimCallback);
    QVERIFY(!context.colors.isSet(GCC_TEXT));
}

void tst_GridLook::images_copy_duplicatesEachSet()
{
    KGridImages images;
    images.set(KGridImages::Normal, zenutest::images(16, 16));
    images.set(KGridImages::Radio, zenutest::images(9, 9));
    KGridImages const copy(images);
    KGridImages assigned;
    assigned.set(KGridImages::Lead, zenutest::images(3, 3));
    assigned = images;
    for (KGridImages const * other : {&copy, &std::as_const(assigned)}) {
        QVERIFY(other->get(KGridImages::Normal) != images.get(KGridImages::Normal));
        QCOMPARE(other->imageSize(KGridImages::Normal), QSize(16, 16));
        QCOMPARE(other->imageSize(KGridImages::Radio), QSize(9, 9));
        QVERIFY(!other->get(KGridImages::Lead));
    }
    images.set(KGridImages::Normal, nullptr);
    QCOMPARE(copy.imageSize(KGridImages::Normal), QSize(16, 16));
    KGridImages const & self = assigned;
    assigned = self;
    QCOMPARE(assigned.imageSize(KGridImages::Normal), QSize(16, 16));
}

void tst_GridLook::images_set_replacesAndRemoves()
{
    KGridImages images;
    images.set(KGridImages::State, zenutest::images(16, 16));
    images.set(KGridImages::State, zenutest::images(8, 8));
    QCOMPARE(images.imageSize(KGridImages::State), QSize(8, 8));
    images.set(KGridImages::State, nullptr);
    QVERIFY(!images.get(KGridImages::State));
}

void tst_GridLook::images_listNumbers_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("member");
    QTest::newRow("normal") << 0 << int{KGridImages::Normal};
    QTest::newRow("selected") << 1 << int{KGridImages::Selected};
    QTest::newRow("lead") << 2 << int{KGridImages::Lead};
    QTest::newRow("overlay") << 3 << int{KGridImages::Overlay};
    QTest::newRow("state") << 4 << int{KGridImages::State};
}

void tst_GridLook::images_listNumbers()
{
    QFETCH(int, number);
    QFETCH(int, member);
    KGridImages images;
    QVERIFY(images.setList(number, zenutest::images(7, 7)));
    QVERIFY(images.get(static_cast<KGridImages::Member>(member)));
    QCOMPARE(images.list(number), images.get(static_cast<KGridImages::Member>(member)));
}

void tst_GridLook::images_otherNumber_readsNormalAndWritesNothing()
{
    KGridImages images;
    images.set(KGridImages::Normal, zenutest::images(16, 16));
    for (int const number : {-1, 5, 6, 0x7fffffff}) {
        QCOMPARE(images.list(number), images.get(KGridImages::Normal));
        QVERIFY(!images.setList(number, zenutest::images(7, 7)));
        QCOMPARE(images.imageSize(KGridImages::Normal), QSize(16, 16));
    }
}

void tst_GridLook::images_clearLists_keepsGlyphs()
{
    KGridImages images;
    for (int number = 0; number < 5; ++number) {
        images.setList(number, zenutest::images(7, 7));
    }
    images.set(KGridImages::Buttons, makeGridGlyphs());
    images.clearLists();
    for (int number = 0; number < 5; ++number) {
        QVERIFY(!images.list(number));
    }
    QVERIFY(images.get(KGridImages::Buttons));
}

void tst_GridLook::images_missing_haveNoSize()
{
    QCOMPARE(KGridImages().imageSize(KGridImages::Lead), QSize(0, 0));
}

void tst_GridLook::glyphs_pixels_areThoseOfTheText()
{
    std::unique_ptr<KPixmapSet> const glyphs = makeGridGlyphs();
    QCOMPARE(glyphs->getImageSize(), QSize(9, 9));
    QCOMPARE(glyphs->getImagesCount(), 5);
    QImage image(36, 9, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (int cell = 0; cell < 5; ++cell) {
        QVERIFY(glyphs->drawImage(&painter, cell, cell * 9, 0, -1, -1));
    }
    painter.end();
    // Both boxes, with a plus and a minus.
    QRgb const gray = 0xff808080U;
    QRgb const black = 0xff000000U;
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 18; ++x) {
            int const column = x % 9;
            bool const outline = y == 0 || y == 8 || column == 0 || column == 8;
            bool const bar = y == 4 && column >= 2 && column <= 6;
            bool const post = x < 9 && column == 4 && y >= 2 && y <= 6;
            QRgb const expected = outline ? gray : (bar || post ? black : 0);
            QVERIFY2(image.pixel(x, y) == expected,
                     qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
        }
    }
    // The same check mark in black and in gray.
    char const * const mark[] = {".........", ".......*.", "......**.", ".*...***.", ".**.***..",
                                 ".*****...", "..***....", "...*.....", "........."};
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 9; ++x) {
            bool const set = mark[y][x] == '*';
            QCOMPARE(image.pixel(18 + x, y), set ? black : 0U);
            QCOMPARE(image.pixel(27 + x, y), set ? gray : 0U);
        }
    }
}

void tst_GridLook::glyphs_atOtherRatios_showNothingOfTheirNeighbours_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void tst_GridLook::glyphs_atOtherRatios_showNothingOfTheirNeighbours()
{
    QFETCH(qreal, ratio);
    std::unique_ptr<KPixmapSet> const glyphs = makeGridGlyphs();
    for (int cell = 0; cell < 4; ++cell) {
        QPixmap alone = glyphs->getPixmap().copy(cell * 9, 0, 9, 9);
        QImage expected(40, 40, QImage::Format_ARGB32);
        expected.setDevicePixelRatio(ratio);
        expected.fill(Qt::white);
        QImage actual = expected;
        QPainter expectedPainter(&expected);
        expectedPainter.drawPixmap(QRectF(3, 3, 9, 9), alone, QRectF(0, 0, 9, 9));
        expectedPainter.end();
        QPainter painter(&actual);
        glyphs->drawImage(&painter, cell, 3, 3, -1, -1);
        painter.end();
        QVERIFY2(actual == expected, qPrintable(QString::number(cell)));
    }
}

void tst_GridLook::arrows_areRedAndPointAway()
{
    QImage const left = makeLeftArrow().toImage().convertToFormat(QImage::Format_ARGB32);
    QImage const right = makeRightArrow().toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(left.size(), QSize(12, 11));
    QCOMPARE(right, left.mirrored(true, false));
    for (int y = 0; y < 11; ++y) {
        for (int x = 0; x < 12; ++x) {
            QRgb const pixel = left.pixel(x, y);
            QVERIFY(pixel == 0xffff0000U || qAlpha(pixel) == 0);
        }
    }
    // The tip.
    QCOMPARE(left.pixel(0, 5), 0xffff0000U);
    QCOMPARE(qAlpha(left.pixel(0, 4)), 0);
}

ZENU_TEST(tst_GridLook)
#include "tst_GridLook.moc"
