#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::rowHasState;
using zenutest::SlimTree;
using zenutest::TestGrid;

class tst_GridRowDeletion : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void delete_takesTheWholeSubtree();
    void delete_lastChild_collapsesTheParent();
    void delete_ofTheFocusedRow_leavesNoFocus();
    void delete_ofAnAncestorOfTheFocus_leavesNoFocus();
    void delete_ofSelectedRows_tellsNobody();
    void delete_heightEntriesGo();
    void delete_slimChild_isRefused();
    void delete_slimSubtree_loadsAndForgetsIt();
    void delete_doesNotRepaint();
    void deleteAll_emptiesTheGridAndRepaints();
    void deleteAll_keepsColumnsAndTakesNewRows();
    void reset_clearsTheImages_unlessKept_data();
    void reset_clearsTheImages_unlessKept();
    void millionDeepChain_isDeletedWithoutRecursion();
};

void tst_GridRowDeletion::delete_takesTheWholeSubtree()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const a = grid.add("a");
    tag_HROW * const b = grid.add("b");
    tag_HROW * const c = grid.add("c", a);
    tag_HROW * const d = grid.add("d", c);
    QVERIFY(grid.DeleteRow(a));
    QCOMPARE(grid.order(), QStringLiteral("b"));
    QCOMPARE(grid.GetRowCount(), 1u);
    GC_ROW record;
    for (tag_HROW * const row : {a, c, d}) {
        QVERIFY(!grid.GetRow(row, &record));
        QVERIFY(!grid.DeleteRow(row));
    }
    QVERIFY(grid.GetRow(b, &record));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRowDeletion::delete_lastChild_collapsesTheParent()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    std::vector<tag_HROW *> const rows = grid.addMany(2, parent);
    grid.DeleteRow(rows[0]);
    QVERIFY(rowHasState(grid, parent, GCRS_EXPANDED | GCRS_HASCHILDREN));
    grid.DeleteRow(rows[1]);
    QVERIFY(!rowHasState(grid, parent, GCRS_EXPANDED | GCRS_HASCHILDREN));
    grid.add("c", parent); // finds the parent closed
    QCOMPARE(grid.order(), QStringLiteral("p"));
}

void tst_GridRowDeletion::delete_ofTheFocusedRow_leavesNoFocus()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    grid.SetRowSel(rows[1], true);
    QCOMPARE(grid.focus(), QStringLiteral("1/0"));
    grid.DeleteRow(rows[1]);
    QCOMPARE(grid.focus(), QStringLiteral("-/-"));
    grid.SetRowSel(rows[2], true);
    QCOMPARE(grid.focus(), QStringLiteral("2/0"));
    grid.DeleteRow(rows[0]);
    QCOMPARE(grid.focus(), QStringLiteral("2/0"));
}

void tst_GridRowDeletion::delete_ofAnAncestorOfTheFocus_leavesNoFocus()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    grid.SetRowSel(child, true);
    grid.DeleteRow(parent);
    QCOMPARE(grid.focus(), QStringLiteral("-/-"));
    QCOMPARE(grid.GetSelectedCount(), 0u);
}

void tst_GridRowDeletion::delete_ofSelectedRows_tellsNobody()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> rows = grid.addMany(3);
    grid.SelectRows(3, rows.data());
    Notes notes(&grid);
    grid.DeleteRow(rows[0]);
    QCOMPARE(grid.GetSelectedCount(), 2u);
    grid.DeleteAllRows();
    QCOMPARE(grid.GetSelectedCount(), 0u);
    QCOMPARE(notes.taken(), QString());
}

void tst_GridRowDeletion::delete_heightEntriesGo()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    grid.SetRowHeight(child, 50);
    QVERIFY(grid.GetPriv().HasExplicitHeights());
    grid.DeleteRow(parent);
    QVERIFY(!grid.GetPriv().HasExplicitHeights());
}

void tst_GridRowDeletion::delete_slimChild_isRefused()
{
    TestGrid grid;
    SlimTree tree;
    tree.tree[1] = {11, 12};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    tag_HROW * const child = grid.GetNextRow(GCN_CHILD_FIRST, slim);
    QVERIFY(child);
    QVERIFY(!grid.DeleteRow(child));
    QCOMPARE(grid.order(), QStringLiteral("s1 s11 s12"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRowDeletion::delete_slimSubtree_loadsAndForgetsIt()
{
    TestGrid grid;
    SlimTree tree;
    tree.tree[1] = {11, 12};
    tree.tree[11] = {111};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(grid.GetRowCount(), 4u);
    tag_HROW * const deep =
        grid.GetNextRow(GCN_CHILD_FIRST, grid.GetNextRow(GCN_CHILD_FIRST, slim));
    grid.SetRowSel(deep, true);
    QVERIFY(grid.DeleteRow(slim));
    QCOMPARE(grid.GetRowCount(), 0u);
    QCOMPARE(grid.GetSelectedCount(), 0u);
    QCOMPARE(grid.focus(), QStringLiteral("-/-"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRowDeletion::delete_doesNotRepaint()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    QVERIFY(grid.showSized(100, 100));
    grid.DeleteRow(rows[1]);
    QVERIFY(grid.takePainted().isEmpty());
    grid.UpdateVisibleRows();
    QVERIFY(!grid.takePainted().isEmpty());
}

void tst_GridRowDeletion::deleteAll_emptiesTheGridAndRepaints()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(300);
    QVERIFY(grid.showSized(100, 100));
    grid.OnScroll(-1, 4, 0, true);
    grid.SetRowSel(rows[200], true);
    grid.SetRowHeight(rows[1], 50);
    grid.takePainted();
    QVERIFY(grid.DeleteAllRows());
    QVERIFY(!grid.takePainted().isEmpty());
    QCOMPARE(grid.place(), QStringLiteral("0 +0 0"));
    QCOMPARE(grid.focus(), QStringLiteral("-/-"));
    QCOMPARE(grid.getVScrollBar()->maximum(), 0);
    QCOMPARE(grid.contentsHeight(), grid.headerHeight());
    QCOMPARE(zenutest::checkGrid(grid), QString());
    QVERIFY(grid.DeleteAllRows());
}

void tst_GridRowDeletion::deleteAll_keepsColumnsAndTakesNewRows()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.addMany(3);
    grid.DeleteAllRows();
    QCOMPARE(grid.GetColumnsCount(), 1);
    grid.add("new");
    QCOMPARE(grid.order(), QStringLiteral("new"));
}

void tst_GridRowDeletion::reset_clearsTheImages_unlessKept_data()
{
    QTest::addColumn<long>("style");
    QTest::addColumn<bool>("kept");
    QTest::newRow("cleared") << 0L << false;
    QTest::newRow("kept") << long(GCS_KEEPIMAGES) << true;
}

void tst_GridRowDeletion::reset_clearsTheImages_unlessKept()
{
    QFETCH(long, style);
    QFETCH(bool, kept);
    TestGrid grid(style);
    QPixmap strip(32, 16);
    strip.fill(Qt::red);
    grid.SetImageList(GCIL_NORMAL, strip, 16, 16, 2, false);
    QVERIFY(grid.GetImageList(GCIL_NORMAL));
    QVERIFY(grid.Reset());
    QCOMPARE(grid.GetImageList(GCIL_NORMAL) != nullptr, kept);
    // The grid's own glyphs stay: a tree still draws its buttons.
    grid.addKind(GCCK_TEXT, 80, GCCF_TREE);
    grid.add("c", grid.add("p"));
    QVERIFY(grid.showSized(100, 100));
}

void tst_GridRowDeletion::millionDeepChain_isDeletedWithoutRecursion()
{
    constexpr int depth = 200000;
    for (bool const oneByOne : {true, false}) {
        TestGrid grid;
        grid.addKind(GCCK_TEXT, 80, GCCF_TREE | GCCF_TREELINES);
        tag_HROW * const top = grid.InsertRow(GC_ROOT, GCI_LAST);
        tag_HROW * row = top;
        for (int i = 1; i < depth; ++i) {
            row = grid.InsertRow(row, GCI_LAST);
        }
        QVERIFY(grid.showSized(100, 100));
        QCOMPARE(grid.GetExpandedCount(), static_cast<unsigned>(depth));
        grid.EnsureVisible(row, grid.firstColumn());
        zenutest::settle();
        grid.Expand(nullptr, GCE_COLLAPSEALL);
        QCOMPARE(grid.GetExpandedCount(), 1u);
        grid.Expand(nullptr, GCE_EXPANDALL);
        QCOMPARE(grid.GetExpandedCount(), static_cast<unsigned>(depth));
        grid.AddColumn("late", 0, 20);
        if (oneByOne) {
            QVERIFY(grid.DeleteRow(top));
            QCOMPARE(grid.GetRowCount(), 0u);
        }
    }
}

ZENU_TEST(tst_GridRowDeletion)
#include "tst_GridRowDeletion.moc"
