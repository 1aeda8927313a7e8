#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/geometry/CElementRects.h"

using namespace zenu;
using zenutest::TestGrid;

class tst_GridBestFit : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void bestFit_isTheRule_andResizesNothing();
    void bestFit_withoutRows_isZero();
    void bestFit_emptyTextsAndSections();
    void bestFit_thenSetWidth_cutsNothing();
};

void tst_GridBestFit::bestFit_isTheRule_andResizesNothing()
{
    TestGrid grid;
    grid.addKind(GCCK_TEXT, 60, GCCF_TREE | GCCF_TREELINES);
    tag_HROW * const parent = grid.add("short");
    tag_HROW * const child = grid.add("a child with a much longer text", parent);
    QVERIFY(grid.showSized(200, 100));
    int widest = 0;
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    CGCColumn * const column = frame.columns.find(0);
    for (tag_HROW * const row : {parent, child}) {
        CElementRects rects;
        QVERIFY(frame.ElementRects(frame.LocateRow(row), column, &rects));
        widest = std::max(widest, rects.leadRect.width() + rects.fullTextRect.width() +
                                      rects.textRect.left() + 2 - column->left);
    }
    QVERIFY(widest > 100);
    QCOMPARE(grid.BestFit(grid.firstColumn()), widest);
    QCOMPARE(grid.GetColumnWidth(grid.firstColumn()), 60);
    QVERIFY(grid.takePainted().isEmpty());
    // Rows out of the visible order do not count.
    grid.Expand(parent, GCE_COLLAPSE);
    QVERIFY(grid.BestFit(grid.firstColumn()) < widest);
}

void tst_GridBestFit::bestFit_withoutRows_isZero()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60});
    QCOMPARE(grid.BestFit(columns[0]), 0);
    grid.addMany(2);
    QVERIFY(grid.BestFit(columns[0]) > 0);
    QCOMPARE(grid.BestFit(GC_NOCOLUMN), 0);
}

void tst_GridBestFit::bestFit_emptyTextsAndSections()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60, 60});
    grid.InsertRow(GC_ROOT, GCI_LAST);
    QCOMPARE(grid.BestFit(columns[0]), 2); // no rectangle: what remains is the rule's two pixels
    QCOMPARE(grid.BestFit(columns[1]), 0); // less than nothing
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_LAST);
    GC_SECTION record;
    record.mask = GCRM_SECTIONTEXT;
    record.text = const_cast<char *>("A title that is somewhat longer than the rest");
    grid.SetSection(section, &record);
    QVERIFY(grid.BestFit(columns[0]) > 100);
}

void tst_GridBestFit::bestFit_thenSetWidth_cutsNothing()
{
    TestGrid grid;
    grid.addKind(GCCK_TEXT, 30);
    GC_COLUMN right;
    right.mask = GCCM_FORMAT;
    right.format = 0;
    for (char const * const text : {"Hjg", "WWWWW wide", "iii lll"}) {
        grid.add(text);
    }
    QVERIFY(grid.showSized(200, 100));
    grid.SetColumnWidth(grid.firstColumn(), grid.BestFit(grid.firstColumn()));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    for (auto row = grid.begin(GCN_VISIBLE_FIRST); row != grid.end(); ++row) {
        CElementRects rects;
        frame.ElementRects(frame.LocateRow(*row), frame.columns.find(0), &rects);
        QCOMPARE(rects.fitCount, grid.GetItemTextLen(*row, grid.firstColumn()));
    }
    QVERIFY(grid.SetColumn(grid.firstColumn(), &right));
}

ZENU_TEST(tst_GridBestFit)
#include "tst_GridBestFit.moc"
