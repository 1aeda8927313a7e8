#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <QFontMetrics>

using namespace zenu;
using namespace zenutest;

// What a grid works out of font, images and its size.
class tst_GridMeasures : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void autoHeight_isTheLargerOfFontAndImage_data();
    void autoHeight_isTheLargerOfFontAndImage();
    void autoHeight_otherListsDoNotCount();
    void autoHeight_changedByImages_laysTheRowsOutAnew();
    void autoHeight_changedWhileHidden_laysTheRowsOutAnewWhenShown();
    void autoHeight_followsTheFont();
    void defaultHeight_winsUntilMinusOne();
    void defaultHeight_beforeTheRebuild_rowsOnDisplayStayWhereTheyAreSeen();
    void indent_narrowFontNoImagesNoTreeLines_isThirteen();
    void indent_isTheLargestOfFontImageAndLines_data();
    void indent_isTheLargestOfFontImageAndLines();
    void indent_linesOfAHiddenColumn_doNotCount();
    void indent_set_isStoredAndRepaints();
    void hScrollDelta_isTheLineStep();
    void pageHeight_belowAHigherHeader_isZero();
};

namespace {

QFont sized(QFont font, int pixels)
{
    font.setPixelSize(pixels);
    return font;
}

int advanceOfX(KGridCtrl const & grid)
{
    return QFontMetrics(grid.font(), &grid).horizontalAdvance(QLatin1Char('x'));
}

} // namespace

void tst_GridMeasures::autoHeight_isTheLargerOfFontAndImage_data()
{
    QTest::addColumn<long>("style");
    QTest::addColumn<int>("imageHeight");
    QTest::newRow("font alone") << 0L << 0;
    QTest::newRow("a low image") << 0L << 3;
    QTest::newRow("a high image") << 0L << 77;
    QTest::newRow("font and horizontal lines") << long(GCS_HORZLINES) << 0;
    QTest::newRow("a high image and horizontal lines") << long(GCS_HORZLINES) << 77;
    QTest::newRow("vertical lines add nothing") << long(GCS_VERTLINES) << 0;
}

void tst_GridMeasures::autoHeight_isTheLargerOfFontAndImage()
{
    QFETCH(long, style);
    QFETCH(int, imageHeight);
    TestGrid grid(style);
    int const text = QFontMetrics(grid.font(), &grid).height() + 4;
    int const lines = style & GCS_HORZLINES ? 3 : 0;
    QCOMPARE(grid.GetDefaultHeight(), text + lines);
    if (imageHeight != 0) {
        setImages(grid, QSize(5, imageHeight));
    }
    QCOMPARE(grid.GetDefaultHeight(), std::max(text, imageHeight) + lines);
    grid.addColumns({50});
    tag_HROW * const row = grid.add("a");
    QCOMPARE(grid.GetRowHeight(row), static_cast<unsigned>(grid.GetDefaultHeight()));
}

void tst_GridMeasures::autoHeight_otherListsDoNotCount()
{
    TestGrid grid;
    int const before = grid.GetDefaultHeight();
    for (int const list : {GCIL_SELECTED, GCIL_LEAD, GCIL_OVERLAY, GCIL_STATE}) {
        setImages(grid, QSize(77, 77), list);
    }
    QCOMPARE(grid.GetDefaultHeight(), before);
    QVERIFY(grid.GetIndent() < 77 / 2);
}

void tst_GridMeasures::autoHeight_changedByImages_laysTheRowsOutAnew()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.addMany(20);
    QVERIFY(grid.showSized(100, 100));
    setImages(grid, QSize(5, 40));
    QCOMPARE(grid.GetVisibleCount(), 3u);
    QCOMPARE(grid.contentsHeight(), 20 * 40);
}

// Images go with a reset, but the height of rows is worked out when images are set, and when the
// grid is shown or hidden.
void tst_GridMeasures::autoHeight_changedWhileHidden_laysTheRowsOutAnewWhenShown()
{
    TestGrid grid(GCS_NOHEADER);
    int const text = grid.GetDefaultHeight();
    setImages(grid, QSize(5, 60));
    for (bool const byShow : {true, false}) {
        setImages(grid, QSize(5, 60));
        QVERIFY(grid.Reset());
        grid.addColumns({50});
        grid.addMany(20);
        QCOMPARE(grid.contentsHeight(), 20 * 60);
        if (byShow) {
            QVERIFY(grid.showSized(100, 100));
        } else {
            grid.hide();
        }
        QCOMPARE(grid.GetDefaultHeight(), text);
        QCOMPARE(grid.contentsHeight(), 20 * text);
    }
}

void tst_GridMeasures::autoHeight_followsTheFont()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("a");
    QFont const font = sized(grid.font(), 50);
    grid.setFont(font);
    QCOMPARE(grid.GetDefaultHeight(), QFontMetrics(font, &grid).height() + 4);
    QCOMPARE(static_cast<int>(grid.GetRowHeight(row)), grid.GetDefaultHeight());
}

void tst_GridMeasures::defaultHeight_winsUntilMinusOne()
{
    TestGrid grid;
    int const automatic = grid.GetDefaultHeight();
    grid.SetDefaultHeight(33);
    QCOMPARE(grid.GetDefaultHeight(), 33);
    setImages(grid, QSize(5, 99));
    QCOMPARE(grid.GetDefaultHeight(), 33);
    grid.SetDefaultHeight(0);
    QCOMPARE(grid.GetDefaultHeight(), 0);
    grid.SetDefaultHeight(-1);
    QCOMPARE(grid.GetDefaultHeight(), 99);
    QVERIFY(automatic < 99);
}

// The row on top stays there, the others stand below it in their new height, and what is seen can
// be hit, though the total and the counts are those of before.
void tst_GridMeasures::defaultHeight_beforeTheRebuild_rowsOnDisplayStayWhereTheyAreSeen()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(12);
    QVERIFY(grid.showSized(100, 101));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.GetTopIndex(), rows[7]);
    grid.SetDefaultHeight(50);
    QRect rect;
    QVERIFY(grid.GetRowRect(rows[7], &rect));
    QCOMPARE(rect, QRect(0, 0, 100, 50));
    QVERIFY(grid.GetRowRect(rows[8], &rect));
    QCOMPARE(rect, QRect(0, 50, 100, 50));
    tag_HROW * row = nullptr;
    QVERIFY(grid.HitTest(QPoint(5, 75), &row, nullptr)); // at 425, past the total of 240
    QCOMPARE(row, rows[8]);
    QCOMPARE(grid.contentsHeight(), 240);
    QCOMPARE(grid.GetVisibleCount(), 5u);
}

void tst_GridMeasures::indent_narrowFontNoImagesNoTreeLines_isThirteen()
{
    TestGrid grid;
    grid.addKind(GCCK_TEXT, 50, GCCF_TREE); // draws a tree, but no lines
    grid.setFont(sized(grid.font(), 5));
    QVERIFY(2 * advanceOfX(grid) < 13);
    QCOMPARE(grid.GetIndent(), 13);
    setFlags(grid, grid.firstColumn(), GCCF_TREELINES);
    QCOMPARE(grid.GetIndent(), 19);
}

void tst_GridMeasures::indent_isTheLargestOfFontImageAndLines_data()
{
    QTest::addColumn<int>("fontPixels");
    QTest::addColumn<int>("imageWidth");
    QTest::addColumn<bool>("lines");
    for (bool const lines : {false, true}) {
        char const * const with = lines ? "with lines" : "without lines";
        QTest::addRow("narrow font, %s", with) << 5 << 0 << lines;
        QTest::addRow("wide font, %s", with) << 60 << 0 << lines;
        QTest::addRow("narrow images, %s", with) << 5 << 11 << lines;
        QTest::addRow("images a little wider, %s", with) << 5 << 29 << lines;
        QTest::addRow("wide images, %s", with) << 5 << 101 << lines;
        QTest::addRow("wide font and images, %s", with) << 60 << 101 << lines;
    }
}

void tst_GridMeasures::indent_isTheLargestOfFontImageAndLines()
{
    QFETCH(int, fontPixels);
    QFETCH(int, imageWidth);
    QFETCH(bool, lines);
    TestGrid grid;
    grid.addKind(GCCK_TEXT, 50, lines ? GCCF_TREELINES : 0U);
    grid.setFont(sized(grid.font(), fontPixels));
    if (imageWidth != 0) {
        setImages(grid, QSize(imageWidth, 9));
    }
    QCOMPARE(grid.GetIndent(),
             std::max({2 * advanceOfX(grid), imageWidth / 2 + 6, lines ? 19 : 13}));
}

void tst_GridMeasures::indent_linesOfAHiddenColumn_doNotCount()
{
    TestGrid grid;
    grid.setFont(sized(grid.font(), 5));
    grid.addColumns({50});
    tag_HCOLUMN * const second = grid.addKind(GCCK_TEXT, 50, GCCF_TREELINES);
    QCOMPARE(grid.GetIndent(), 19); // any column's lines
    grid.ShowColumn(second, false);
    QCOMPARE(grid.GetIndent(), 13);
}

void tst_GridMeasures::indent_set_isStoredAndRepaints()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.add("a");
    QVERIFY(grid.showSized(100, 100));
    int const automatic = grid.GetIndent();
    for (unsigned const indent : {31U, 0U, 31U}) {
        grid.SetIndent(indent);
        QCOMPARE(grid.GetIndent(), static_cast<int>(indent));
        QVERIFY(!grid.takePainted().isEmpty());
    }
    grid.SetIndent(static_cast<unsigned>(-1));
    QCOMPARE(grid.GetIndent(), automatic);
    QVERIFY(!grid.takePainted().isEmpty());
}

void tst_GridMeasures::hScrollDelta_isTheLineStep()
{
    TestGrid grid;
    grid.addColumns({500});
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(3, -1, 0, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 5);
    grid.SetHScrollDelta(17);
    QCOMPARE(grid.GetHScrollDelta(), 17);
    grid.OnScroll(3, -1, 0, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 22);
    grid.OnScroll(0, -1, 0, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 5);
}

void tst_GridMeasures::pageHeight_belowAHigherHeader_isZero()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.addMany(5);
    QVERIFY(grid.showSized(100, 100));
    QCOMPARE(grid.GetPriv().GetPageHeight(), 99 - grid.headerHeight());
    grid.resize(100, grid.headerHeight() + 1);
    settle();
    QCOMPARE(grid.GetPriv().GetPageHeight(), 0);
    grid.resize(100, 3);
    settle();
    QCOMPARE(grid.GetPriv().GetPageHeight(), 0);
    QCOMPARE(grid.GetVisibleCount(), 1u);
}

ZENU_TEST(tst_GridMeasures)
#include "tst_GridMeasures.moc"
