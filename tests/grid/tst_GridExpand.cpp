#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::SlimTree;
using zenutest::TestGrid;

namespace {

// a (b (c d) e) f (g)
struct Tree
{
    explicit Tree(TestGrid & grid)
    {
        grid.addColumns({50, 60});
        a = grid.add("a");
        b = grid.add("b", a);
        c = grid.add("c", b);
        d = grid.add("d", b);
        e = grid.add("e", a);
        f = grid.add("f");
        g = grid.add("g", f);
        grid.UpdateVisibleRows();
    }
    tag_HROW *a, *b, *c, *d, *e, *f, *g;
};

} // namespace

class tst_GridExpand : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void codes_onOneRow_data();
    void codes_onOneRow();
    void badHandle_isFalse_wholeTreeCodesReadNone();
    void veto_movesNothing();
    void noSink_expands();
    void unknownCode_asksAndDoesNothingElse();
    void collapse_movesTheFocusToTheRow_data();
    void collapse_movesTheFocusToTheRow();
    void collapse_vetoed_leavesTheFocus();
    void anyCode_onAnExpandedRow_movesTheFocus();
    void collapse_withoutFocusedColumn_leavesTheFocus();
    void expand_rowWithoutChildren();
    void expand_atTheBottom_bringsTheChildrenIn();
    void expand_noScroll_bringsNothingIn();
    void expand_notAtTheBottom_doesNotScroll();
    void expand_manyChildren_theRowItselfStaysOnDisplay();
    void expand_dropsTheChildWalk();
    void collapse_repaintsTheStripBelow();
    void collapse_keepsTheChildrenSelected();
    void collapseAll_tellsEachRowInOrder();
    void collapseAll_nothingExpanded_tellsNobodyAndKeepsWalks();
    void collapseAll_movesTheFocusToItsTopRow();
    void collapseAll_vetoes_skipThoseRows();
    void expandAll_expandsUnderCollapsedRows();
    void expandAll_vetoedRow_itsChildrenAreStillAsked();
    void expandAll_dropsAllChildWalks();
    void expandAll_loadsSlimRowsLevelByLevel();
    void expandAll_slimVeto_loadsNothingBelow();
    void expandAll_endlessSlimTree_endsByVeto();
    void setRow_expandsAndCollapses();
    void insideTheRebuild_expansionIsTakenUp();
};

void tst_GridExpand::codes_onOneRow_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<unsigned>("code");
    QTest::addColumn<bool>("after");
    QTest::addColumn<QString>("calls");
    QString const both = QStringLiteral("expanding a; expanded a");
    QString const asked = QStringLiteral("expanding a");
    for (unsigned const flag : {0u, 0x8000u}) {
        char const * const how = flag ? ", no scroll" : "";
        QTest::addRow("expand a collapsed row%s", how) << false << (0u | flag) << true << both;
        QTest::addRow("expand an expanded row%s", how) << true << (0u | flag) << true << asked;
        QTest::addRow("collapse an expanded row%s", how) << true << (1u | flag) << false << both;
        QTest::addRow("collapse a collapsed row%s", how) << false << (1u | flag) << false << asked;
        QTest::addRow("toggle an expanded row%s", how) << true << (2u | flag) << false << both;
        QTest::addRow("toggle a collapsed row%s", how) << false << (2u | flag) << true << both;
    }
    QTest::newRow("five") << true << 5u << true << asked;
    QTest::newRow("expand all with no scroll is no code") << false << 0x8003u << false << asked;
}

void tst_GridExpand::codes_onOneRow()
{
    QFETCH(bool, before);
    QFETCH(unsigned, code);
    QFETCH(bool, after);
    QFETCH(QString, calls);
    TestGrid grid;
    Tree const tree(grid);
    grid.Expand(tree.a, before ? GCE_EXPAND : GCE_COLLAPSE);
    Notes notes(&grid);
    QVERIFY(grid.Expand(tree.a, code));
    QCOMPARE(rowHasState(grid, tree.a, GCRS_EXPANDED), after);
    QCOMPARE(notes.taken(), calls);
    QCOMPARE(grid.order(), after ? QStringLiteral("a b c d e f g") : QStringLiteral("a f g"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridExpand::badHandle_isFalse_wholeTreeCodesReadNone()
{
    TestGrid grid;
    Tree const tree(grid);
    for (tag_HROW * const row :
         {static_cast<tag_HROW *>(nullptr), GC_ROOT, reinterpret_cast<tag_HROW *>(&grid)}) {
        for (unsigned const code : {0u, 1u, 2u, 5u, 0x8003u, 0x8004u}) {
            QVERIFY(!grid.Expand(row, code));
        }
        QVERIFY(grid.Expand(row, GCE_COLLAPSEALL));
        QCOMPARE(grid.order(), QStringLiteral("a f"));
        QVERIFY(grid.Expand(row, GCE_EXPANDALL));
        QCOMPARE(grid.order(), QStringLiteral("a b c d e f g"));
    }
}

void tst_GridExpand::veto_movesNothing()
{
    TestGrid grid;
    Tree const tree(grid);
    Notes notes(&grid);
    notes.allowExpand = false;
    for (unsigned const code : {0u, 1u, 2u}) {
        QVERIFY(grid.Expand(tree.a, code));
        QCOMPARE(notes.taken(), QStringLiteral("expanding a"));
    }
    QVERIFY(rowHasState(grid, tree.a, GCRS_EXPANDED));
}

void tst_GridExpand::noSink_expands()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.setNotification(nullptr);
    QVERIFY(grid.Expand(tree.a, GCE_COLLAPSE));
    QCOMPARE(grid.order(), QStringLiteral("a f g"));
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(grid.order(), QStringLiteral("a b c d e f g"));
}

void tst_GridExpand::unknownCode_asksAndDoesNothingElse()
{
    TestGrid grid;
    Tree const tree(grid);
    QVERIFY(grid.showSized(100, 400));
    grid.UpdateVisibleRows();
    Notes notes(&grid);
    QVERIFY(grid.Expand(tree.a, 7));
    QCOMPARE(notes.taken(), QStringLiteral("expanding a"));
    QVERIFY(!grid.GetPriv().IsDirty());
}

void tst_GridExpand::collapse_movesTheFocusToTheRow_data()
{
    QTest::addColumn<char>("focused");
    QTest::addColumn<QString>("focus");
    QTest::newRow("the row itself") << 'a' << "a/1";
    QTest::newRow("a child") << 'e' << "a/1";
    QTest::newRow("a grandchild") << 'c' << "a/1";
    QTest::newRow("another row") << 'f' << "f/1";
    QTest::newRow("a child of another row") << 'g' << "g/1";
}

void tst_GridExpand::collapse_movesTheFocusToTheRow()
{
    QFETCH(char, focused);
    QFETCH(QString, focus);
    TestGrid grid;
    Tree const tree(grid);
    tag_HROW * const rows[] = {tree.a, tree.b, tree.c, tree.d, tree.e, tree.f, tree.g};
    grid.SetFocusedColumn(reinterpret_cast<tag_HCOLUMN *>(1));
    grid.SetRowSel(rows[focused - 'a'], true);
    grid.Expand(tree.a, GCE_COLLAPSE);
    QCOMPARE(grid.focus(), focus);
    QCOMPARE(grid.GetSelectedCount(), 1u);
}

void tst_GridExpand::collapse_vetoed_leavesTheFocus()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.SetRowSel(tree.c, true);
    Notes notes(&grid);
    notes.allowExpand = false;
    grid.Expand(tree.a, GCE_COLLAPSE);
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    QCOMPARE(grid.focus(), QStringLiteral("c/0"));
}

void tst_GridExpand::anyCode_onAnExpandedRow_movesTheFocus()
{
    for (unsigned const code : {0u, 2u, 9u}) {
        TestGrid grid;
        Tree const tree(grid);
        grid.SetRowSel(tree.c, true);
        grid.Expand(tree.b, code);
        QCOMPARE(grid.focus(), QStringLiteral("b/0"));
    }
    TestGrid grid;
    Tree const tree(grid);
    grid.Expand(tree.b, GCE_COLLAPSE);
    grid.SetRowSel(tree.b, true);
    grid.Expand(tree.b, GCE_EXPAND);
    QCOMPARE(grid.focus(), QStringLiteral("b/0"));
}

void tst_GridExpand::collapse_withoutFocusedColumn_leavesTheFocus()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.SetRowSel(tree.c, true);
    grid.GetPriv().focusColumn = -1;
    grid.Expand(tree.a, GCE_COLLAPSE);
    QCOMPARE(grid.GetNextRow(GCN_FOCUSED), tree.c);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridExpand::expand_rowWithoutChildren()
{
    TestGrid grid;
    Tree const tree(grid);
    Notes notes(&grid);
    grid.Expand(tree.e, GCE_COLLAPSE);
    QVERIFY(!rowHasState(grid, tree.e, GCRS_EXPANDED));
    QCOMPARE(notes.taken(), QStringLiteral("expanding e; expanded e"));
    grid.Expand(tree.e, GCE_EXPAND);
    QVERIFY(rowHasState(grid, tree.e, GCRS_EXPANDED));
}

void tst_GridExpand::expand_atTheBottom_bringsTheChildrenIn()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(5);
    grid.addMany(3, rows[4]);
    grid.Expand(rows[4], GCE_COLLAPSE);
    QVERIFY(grid.showSized(100, 101));
    QCOMPARE(grid.GetBottomIndex(), rows[4]);
    Notes notes(&grid);
    grid.Expand(rows[4], GCE_EXPAND);
    QCOMPARE(grid.place(), QStringLiteral("3 +5 0"));
    QCOMPARE(grid.name(grid.GetBottomIndex()), QStringLiteral("2"));
    QCOMPARE(notes.calls.first(), QStringLiteral("expanding 4"));
    QCOMPARE(notes.calls.last(), QStringLiteral("expanded 4"));
    QVERIFY(notes.calls.contains(QStringLiteral("scrolled")));
}

void tst_GridExpand::expand_noScroll_bringsNothingIn()
{
    for (unsigned const code : {unsigned(GCE_EXPAND), unsigned(GCE_TOGGLE)}) {
        TestGrid grid(GCS_NOHEADER);
        grid.addColumns({50});
        grid.SetDefaultHeight(20);
        std::vector<tag_HROW *> const rows = grid.addMany(5);
        grid.addMany(3, rows[4]);
        grid.Expand(rows[4], GCE_COLLAPSE);
        QVERIFY(grid.showSized(100, 101));
        Notes notes(&grid);
        grid.Expand(rows[4], code | GCE_NOSCROLL);
        QCOMPARE(grid.GetPriv().GetTopIndex(), 0);
        QCOMPARE(notes.taken(), QStringLiteral("expanding 4; expanded 4"));
        grid.Expand(rows[4], GCE_COLLAPSE);
        grid.Expand(rows[4], code);
        QCOMPARE(grid.GetPriv().GetTopIndex(), 3);
    }
}

void tst_GridExpand::expand_notAtTheBottom_doesNotScroll()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(5);
    grid.addMany(30, rows[3]);
    grid.Expand(rows[3], GCE_COLLAPSE);
    QVERIFY(grid.showSized(100, 101));
    grid.Expand(rows[3], GCE_EXPAND);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 0);
}

void tst_GridExpand::expand_manyChildren_theRowItselfStaysOnDisplay()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(5);
    grid.addMany(30, rows[4]);
    grid.Expand(rows[4], GCE_COLLAPSE);
    QVERIFY(grid.showSized(100, 101));
    grid.Expand(rows[4], GCE_EXPAND);
    QCOMPARE(grid.GetTopIndex(), rows[4]); // after the last child, the row itself
}

void tst_GridExpand::expand_dropsTheChildWalk()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.GetNextRow(GCN_CHILD_FIRST, tree.a);
    grid.GetNextRow(GCN_CHILD_FIRST, tree.b);
    QCOMPARE(grid.GetPriv().childWalks.size(), std::size_t(2));
    grid.Expand(tree.a, GCE_EXPAND); // changes nothing, and yet
    QCOMPARE(grid.GetPriv().childWalks.size(), std::size_t(1));
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, tree.b), tree.e);
}

void tst_GridExpand::collapse_repaintsTheStripBelow()
{
    TestGrid grid;
    Tree const tree(grid);
    QVERIFY(grid.showSized(100, 300));
    grid.Expand(tree.a, GCE_COLLAPSE);
    int const total = grid.contentsHeight() - grid.headerHeight();
    QVERIFY(grid.takePainted().contains(QRect(0, total, 100, 300 - total)));
}

void tst_GridExpand::collapse_keepsTheChildrenSelected()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.SelectAll();
    grid.Expand(tree.a, GCE_COLLAPSE);
    QCOMPARE(grid.GetSelectedCount(), 7u);
}

void tst_GridExpand::collapseAll_tellsEachRowInOrder()
{
    TestGrid grid;
    Tree const tree(grid);
    Notes notes(&grid);
    QVERIFY(grid.Expand(nullptr, GCE_COLLAPSEALL));
    // Rows without children are left alone; all are asked first, then all are told.
    QCOMPARE(notes.taken(), QStringLiteral("expanding a; expanding b; expanding f; "
                                           "expanded a; expanded b; expanded f"));
    QCOMPARE(grid.order(), QStringLiteral("a f"));
    QVERIFY(rowHasState(grid, tree.e, GCRS_EXPANDED));
    QVERIFY(grid.Expand(nullptr, GCE_EXPANDALL));
    QCOMPARE(notes.taken(), QStringLiteral("expanding a; expanding b; expanding f; "
                                           "expanded a; expanded b; expanded f"));
}

void tst_GridExpand::collapseAll_nothingExpanded_tellsNobodyAndKeepsWalks()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    grid.GetNextRow(GCN_CHILD_FIRST, tree.a);
    grid.UpdateVisibleRows();
    Notes notes(&grid);
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    QCOMPARE(notes.taken(), QString());
    QCOMPARE(grid.GetPriv().childWalks.size(), std::size_t(1));
    QVERIFY(!grid.GetPriv().IsDirty());
    TestGrid empty;
    QVERIFY(empty.Expand(nullptr, GCE_EXPANDALL));
    QVERIFY(empty.Expand(nullptr, GCE_COLLAPSEALL));
}

void tst_GridExpand::collapseAll_movesTheFocusToItsTopRow()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.SetRowSel(tree.c, true);
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    QCOMPARE(grid.focus(), QStringLiteral("a/0"));
    grid.Expand(nullptr, GCE_EXPANDALL);
    grid.SetRowSel(tree.c, true);
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(grid.focus(), QStringLiteral("c/0"));
}

void tst_GridExpand::collapseAll_vetoes_skipThoseRows()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.SetRowSel(tree.c, true);
    Notes notes(&grid);
    notes.expanding = [&](tag_HROW * row) { return row != tree.a; };
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    QCOMPARE(grid.order(), QStringLiteral("a b e f"));
    QCOMPARE(notes.taken(), QStringLiteral("expanding a; expanding b; expanding f; "
                                           "expanded b; expanded f"));
    QCOMPARE(grid.focus(), QStringLiteral("c/0")); // its top row was not collapsed
}

void tst_GridExpand::expandAll_expandsUnderCollapsedRows()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.Expand(tree.b, GCE_COLLAPSE);
    grid.Expand(tree.a, GCE_COLLAPSE);
    Notes notes(&grid);
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(notes.taken(), QStringLiteral("expanding a; expanding b; expanded a; expanded b"));
    QCOMPARE(grid.order(), QStringLiteral("a b c d e f g"));
}

void tst_GridExpand::expandAll_vetoedRow_itsChildrenAreStillAsked()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    Notes notes(&grid);
    notes.expanding = [&](tag_HROW * row) { return row != tree.a; };
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(grid.order(), QStringLiteral("a f g"));
    QVERIFY(rowHasState(grid, tree.b, GCRS_EXPANDED));
}

void tst_GridExpand::expandAll_dropsAllChildWalks()
{
    TestGrid grid;
    Tree const tree(grid);
    grid.Expand(tree.b, GCE_COLLAPSE);
    grid.GetNextRow(GCN_CHILD_FIRST, tree.a);
    grid.GetNextRow(GCN_CHILD_FIRST, tree.f);
    grid.Expand(nullptr, GCE_EXPANDALL);
    QVERIFY(grid.GetPriv().childWalks.empty());
}

void tst_GridExpand::expandAll_loadsSlimRowsLevelByLevel()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11, 12};
    source.tree[11] = {111};
    source.tree[12] = {121, 122};
    source.tree[122] = {1221};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    tag_HROW * const plain = grid.add("p");
    grid.InsertSlimRow(12, true, plain, GCI_LAST);
    source.calls.clear();
    Notes notes(&grid);
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(grid.order(), QStringLiteral("s1 s11 s111 s12 s121 s122 s1221 p s12 s121 s122 s1221"));
    QCOMPARE(source.taken(),
             QStringLiteral("count 1; rows 1; created 1; count 11; rows 11; created 11; "
                            "count 12; rows 12; created 12; count 122; rows 122; created 122; "
                            "count 12; rows 12; created 12; count 122; rows 122; created 122"));
    QCOMPARE(notes.calls.filter(QStringLiteral("expanded")).join(u' '),
             QStringLiteral("expanded s1 expanded s11 expanded s12 expanded s122 "
                            "expanded s12 expanded s122"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
    // Collapsed, the rows stay loaded.
    grid.Expand(nullptr, GCE_COLLAPSEALL);
    QCOMPARE(grid.order(), QStringLiteral("s1 p"));
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(source.taken(), QString());
    QCOMPARE(grid.GetRowCount(), 12u);
}

void tst_GridExpand::expandAll_slimVeto_loadsNothingBelow()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11, 12};
    source.tree[11] = {111};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    Notes notes(&grid);
    notes.expanding = [&](tag_HROW * row) { return grid.GetRowParam(row) != 11; };
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(grid.order(), QStringLiteral("s1 s11 s12"));
    QVERIFY(!source.taken().contains(QStringLiteral("rows 11")));
}

void tst_GridExpand::expandAll_endlessSlimTree_endsByVeto()
{
    TestGrid grid;
    SlimTree source; // each row has one child, itself again: a circle of links
    source.tree[1] = {1};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    Notes notes(&grid);
    int allowed = 5000;
    notes.expanding = [&](tag_HROW *) { return allowed-- > 0; };
    grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(grid.GetRowCount(), 5001u);
}

void tst_GridExpand::setRow_expandsAndCollapses()
{
    TestGrid grid;
    Tree const tree(grid);
    Notes notes(&grid);
    GC_ROW record;
    record.mask = GCRM_STATE;
    record.stateMask = GCRS_EXPANDED;
    QVERIFY(grid.SetRow(tree.a, &record));
    QCOMPARE(notes.taken(), QStringLiteral("expanding a; expanded a"));
    QCOMPARE(grid.order(), QStringLiteral("a f g"));
    record.state = GCRS_EXPANDED;
    QVERIFY(grid.SetRow(tree.a, &record));
    QCOMPARE(grid.order(), QStringLiteral("a b c d e f g"));
    notes.taken();
    notes.allowExpand = false;
    record.state = 0;
    QVERIFY(grid.SetRow(tree.a, &record));
    QCOMPARE(notes.taken(), QStringLiteral("expanding a"));
    QVERIFY(rowHasState(grid, tree.a, GCRS_EXPANDED));
}

void tst_GridExpand::insideTheRebuild_expansionIsTakenUp()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11};
    source.tree[11] = {111};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const other = grid.add("o");
    grid.add("c", other);
    grid.Expand(other, GCE_COLLAPSE);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    grid.ResetSlimRow(slim); // expanded without children: the next rebuild loads them
    source.act = [&](char const * what, tag_HROW *, long param) {
        if (qstrcmp(what, "created") == 0 && param == 1) {
            QVERIFY(grid.Expand(other, GCE_EXPAND));
            QVERIFY(grid.Expand(source.created[0].row, GCE_EXPAND));
        }
    };
    QCOMPARE(grid.order(), QStringLiteral("o c s1 s11 s111"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

ZENU_TEST(tst_GridExpand)
#include "tst_GridExpand.moc"
