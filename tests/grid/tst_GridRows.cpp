#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::Notes;
using zenutest::SlimTree;
using zenutest::TestGrid;

namespace {

GC_ROW rowOf(TestGrid const & grid, tag_HROW * row, unsigned mask = 0)
{
    GC_ROW record;
    record.mask = mask;
    grid.GetRow(row, &record);
    return record;
}

bool hasState(TestGrid const & grid, tag_HROW * row, unsigned bit)
{
    return (rowOf(grid, row).state & bit) != 0;
}

} // namespace

class tst_GridRows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void insert_defaultRecord_failsUntilTheParentIsSet();
    void insert_parentIsReadWhateverTheMaskSays();
    void insert_positions_data();
    void insert_positions();
    void insert_badAfter_failsAndLeavesTheButton();
    void insert_badAfterAtTheTop_changesNothing();
    void insert_underASlimRow_isRefused();
    void insert_appliesTheRecord();
    void insert_withFocusAndSelection_isDoneInOrder();
    void insert_newRowIsExpanded_itsParentGetsTheButton();
    void insert_underACollapsedParent_isNotInTheOrder();
    void insert_paintsNothing_untilTheNextRead();
    void insertMany_costOneRebuild();
    void section_hasNoTitle();
    void section_badAfter_isNull();
    void section_standsAtTheTopLevel();
    void slim_oneByOne_andInBatches();
    void slim_batch_fillsTheHandles_andTells();
    void slim_countZero_tellsOfNothing();
    void slim_badParentOrAfter_rollsBack_data();
    void slim_badParentOrAfter_rollsBack();
    void slim_rolledBackHeights_stay_butNoRowTakesThemOver();
    void slim_underAnOrdinaryRow();
    void slim_withoutCallback_answersQuietly();
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
    void heights_firstOneSwitchesTheForm_lastOneBack();
    void heights_minusOne_isAHeightHere_andNoneInSetRow();
    void heights_anyNumber_isBorne_data();
    void heights_anyNumber_isBorne();
    void heights_sumPastAnInt_saturates();
    void heights_pastAnInt_rowsScrollAndHit();
    void rowHeight_ofARowOutOfTheOrder_isZero();
    void top_isReadForVisibleRowsAlone();
    void readsInALoopOfInsertions_rebuildNothing();
    void rowRect_spansTheClient();
    void millionDeepChain_isDeletedWithoutRecursion();
};

void tst_GridRows::insert_defaultRecord_failsUntilTheParentIsSet()
{
    TestGrid grid;
    GC_ROW record;
    QVERIFY(!grid.InsertRow(&record, GCI_LAST));
    QVERIFY(!grid.InsertRow(static_cast<GC_ROW *>(nullptr), GCI_LAST));
    QCOMPARE(grid.GetRowCount(), 0u);
    record.parent = GC_ROOT;
    QVERIFY(grid.InsertRow(&record, GCI_LAST));
    QCOMPARE(grid.GetRowCount(), 1u);
}

void tst_GridRows::insert_parentIsReadWhateverTheMaskSays()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    GC_ROW record;
    record.mask = 0;
    record.parent = parent;
    tag_HROW * const row = grid.InsertRow(&record, GCI_LAST);
    QCOMPARE(grid.GetNextRow(GCN_PARENT, row), parent);
}

void tst_GridRows::insert_positions_data()
{
    QTest::addColumn<bool>("top");
    QTest::addColumn<int>("after");
    QTest::addColumn<QString>("children");
    for (bool const top : {true, false}) {
        char const * const level = top ? "top level" : "under a row";
        QTest::addRow("first, %s", level) << top << -2 << "new 0 1 2";
        QTest::addRow("last, %s", level) << top << -3 << "0 1 2 new";
        QTest::addRow("after the first, %s", level) << top << 0 << "0 new 1 2";
        QTest::addRow("after the last, %s", level) << top << 2 << "0 1 2 new";
    }
}

void tst_GridRows::insert_positions()
{
    QFETCH(bool, top);
    QFETCH(int, after);
    QFETCH(QString, children);
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = top ? GC_ROOT : grid.add("p");
    std::vector<tag_HROW *> const rows = grid.addMany(3, parent);
    tag_HROW * const position = after == -2   ? GCI_FIRST
                                : after == -3 ? GCI_LAST
                                              : rows[static_cast<std::size_t>(after)];
    QVERIFY(grid.add("new", parent, position));
    QCOMPARE(grid.children(parent), children);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::insert_badAfter_failsAndLeavesTheButton()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const other = grid.add("o");
    tag_HROW * const nephew = grid.add("n", other);
    for (tag_HROW * const after : {other, nephew, parent, static_cast<tag_HROW *>(nullptr), GC_ROOT,
                                   reinterpret_cast<tag_HROW *>(&grid)}) {
        QVERIFY(!grid.InsertRow(parent, after));
        QVERIFY(hasState(grid, parent, GCRS_HASCHILDREN));
        QVERIFY(!grid.GetNextRow(GCN_CHILD_FIRST, parent));
    }
    QCOMPARE(grid.GetRowCount(), 3u);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::insert_badAfterAtTheTop_changesNothing()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    for (tag_HROW * const after : {child, static_cast<tag_HROW *>(nullptr), GC_ROOT}) {
        QVERIFY(!grid.InsertRow(GC_ROOT, after));
        QVERIFY(!grid.InsertSection(nullptr, after));
    }
    QCOMPARE(grid.GetRowCount(), 2u);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::insert_underASlimRow_isRefused()
{
    TestGrid grid;
    SlimTree tree;
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    tag_HROW * const lonely = grid.InsertSlimRow(2, false, GC_ROOT, GCI_LAST);
    for (tag_HROW * const parent : {slim, lonely}) {
        QVERIFY(!grid.InsertRow(parent, GCI_LAST));
        QVERIFY(!grid.InsertSlimRow(3, true, parent, GCI_LAST));
        QVERIFY(!hasState(grid, parent, GCRS_HASCHILDREN));
    }
    QCOMPARE(grid.GetRowCount(), 2u);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::insert_appliesTheRecord()
{
    TestGrid grid;
    grid.addColumns({50});
    GC_ROW record;
    record.mask =
        GCRM_PARENT | GCRM_HEIGHT | GCRM_PARAM | GCRM_TEXTCOLOR | GCRM_BKCOLOR | GCRM_STATE;
    record.parent = GC_ROOT;
    record.height = 44;
    record.param = 77;
    record.textColor = Qt::red;
    record.bkColor = Qt::blue;
    record.stateMask = GCRS_HASCHILDREN | GCRS_EXPANDED;
    record.state = GCRS_HASCHILDREN;
    tag_HROW * const row = grid.InsertRow(&record, GCI_LAST);
    GC_ROW const read = rowOf(grid, row);
    QCOMPARE(read.height, 44);
    QCOMPARE(read.param, 77ul);
    QCOMPARE(read.textColor, QColor(Qt::red));
    QCOMPARE(read.bkColor, QColor(Qt::blue));
    QCOMPARE(read.state, unsigned(GCRS_HASCHILDREN | GCRS_VISIBLE));
    // A mask of the parent alone applies nothing.
    record.mask = GCRM_PARENT;
    tag_HROW * const plain = grid.InsertRow(&record, GCI_LAST);
    QCOMPARE(rowOf(grid, plain).param, 0ul);
    QCOMPARE(rowOf(grid, plain).height, grid.rowHeight());
}

void tst_GridRows::insert_withFocusAndSelection_isDoneInOrder()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetFocusedColumn(grid.firstColumn());
    Notes notes(&grid);
    GC_ROW record;
    record.mask = GCRM_STATE;
    record.parent = GC_ROOT;
    record.stateMask = GCRS_SELECTED | GCRS_FOCUSED | GCRS_EXPANDED;
    record.state = GCRS_SELECTED | GCRS_FOCUSED;
    grid.UpdateVisibleRows();
    tag_HROW * const row = grid.InsertRow(&record, GCI_LAST);
    QCOMPARE(notes.calls.first(), QStringLiteral("selected"));
    QVERIFY(notes.calls.contains(QStringLiteral("expanding ")));
    QVERIFY(notes.calls.contains(QStringLiteral("expanded ")));
    QCOMPARE(grid.GetNextRow(GCN_FOCUSED), row);
    QCOMPARE(rowOf(grid, row).state, unsigned(GCRS_SELECTED | GCRS_FOCUSED | GCRS_VISIBLE));
}

void tst_GridRows::insert_newRowIsExpanded_itsParentGetsTheButton()
{
    TestGrid grid;
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    QCOMPARE(rowOf(grid, row).state, unsigned(GCRS_EXPANDED | GCRS_VISIBLE));
    tag_HROW * const child = grid.InsertRow(row, GCI_LAST);
    QCOMPARE(rowOf(grid, row).state, unsigned(GCRS_EXPANDED | GCRS_VISIBLE | GCRS_HASCHILDREN));
    QCOMPARE(rowOf(grid, child).parent, row);
    QCOMPARE(rowOf(grid, row).parent, GC_ROOT);
}

void tst_GridRows::insert_underACollapsedParent_isNotInTheOrder()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    grid.Expand(parent, GCE_COLLAPSE);
    tag_HROW * const child = grid.add("c", parent);
    QCOMPARE(grid.order(), QStringLiteral("p"));
    QVERIFY(!hasState(grid, child, GCRS_VISIBLE));
    QCOMPARE(grid.GetRowHeight(child), 0u);
    QCOMPARE(grid.GetRowHeight(parent), static_cast<unsigned>(grid.rowHeight()));
    QRect rect(1, 2, 3, 4);
    QVERIFY(grid.GetRowRect(child, &rect));
    QCOMPARE(rect, QRect(0, 0, 0, 0));
    grid.Expand(parent, GCE_EXPAND);
    QCOMPARE(grid.order(), QStringLiteral("p c"));
}

void tst_GridRows::insert_paintsNothing_untilTheNextRead()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.add("a");
    QVERIFY(grid.showSized(100, 100));
    grid.InsertRow(GC_ROOT, GCI_LAST);
    QVERIFY(grid.takePainted().isEmpty());
    QCOMPARE(grid.GetExpandedCount(), 2u);
    QVERIFY(!grid.takePainted().isEmpty());
}

void tst_GridRows::insertMany_costOneRebuild()
{
    TestGrid grid;
    SlimTree tree;
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    tree.tree[1] = {};
    int compared = 0;
    static int * counter = nullptr;
    counter = &compared;
    grid.Sort([](unsigned long, tag_HROW *, long, tag_HROW *, long) { return ++*counter, 0; }, 0);
    for (int i = 0; i < 1000; ++i) {
        tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
        grid.SetRowParam(row, 5);
        grid.InvalidateRow(row);
    }
    QCOMPARE(compared, 0);
    QCOMPARE(grid.GetExpandedCount(), 1000u);
    int const once = compared;
    QVERIFY(once >= 999);
    QCOMPARE(grid.GetExpandedCount(), 1000u);
    QVERIFY(grid.GetTopIndex() && grid.GetBottomIndex());
    QCOMPARE(compared, once);
}

void tst_GridRows::section_hasNoTitle()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const section = grid.InsertSection("a title", GCI_LAST);
    char buffer[20] = "untouched";
    QVERIFY(grid.GetSectionText(section, buffer, sizeof buffer));
    QCOMPARE(QByteArray(buffer), QByteArray("untouched"));
    GC_SECTION record;
    record.mask = GCRM_SECTIONTEXT;
    record.text = buffer;
    record.textMax = sizeof buffer;
    QVERIFY(grid.GetSection(section, &record));
    QCOMPARE(QByteArray(buffer), QByteArray());
    record.text = const_cast<char *>("a title");
    QVERIFY(grid.SetSection(section, &record));
    QCOMPARE(grid.GetItemText(section, grid.firstColumn()), std::string("a title"));
}

void tst_GridRows::section_badAfter_isNull()
{
    TestGrid grid;
    QVERIFY(!grid.InsertSection("t", nullptr));
    QVERIFY(!grid.InsertSection("t", reinterpret_cast<tag_HROW *>(&grid)));
    QCOMPARE(grid.GetRowCount(), 0u);
    QVERIFY(grid.InsertSection(nullptr, GCI_FIRST));
}

void tst_GridRows::section_standsAtTheTopLevel()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("a");
    tag_HROW * const section = grid.InsertSection("t", row);
    QCOMPARE(grid.GetNextRow(GCN_PARENT, section), GC_ROOT);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, row), section);
    QVERIFY(grid.add("c", section)); // nothing forbids children
    QCOMPARE(grid.GetExpandedCount(), 3u);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::slim_oneByOne_andInBatches()
{
    TestGrid grid;
    SlimTree tree;
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    tag_HROW * const first = grid.InsertSlimRow(1, false, GC_ROOT, GCI_LAST, 33);
    QCOMPARE(grid.GetRowParam(first), 1ul);
    QCOMPARE(grid.GetRowHeight(first), 33u);
    std::vector<GC_SLIMROWDATA> records(3);
    for (int i = 0; i < 3; ++i) {
        records[static_cast<std::size_t>(i)].param = 10 + i;
    }
    QVERIFY(grid.InsertSlimRows(3, records.data(), GC_ROOT, GCI_FIRST));
    QCOMPARE(grid.order(), QStringLiteral("s10 s11 s12 s1"));
    GC_INSERTSLIMROW record;
    record.parent = GC_ROOT;
    record.after = records[0].row;
    record.count = 3;
    std::vector<GC_SLIMROWDATA> more(3);
    for (int i = 0; i < 3; ++i) {
        more[static_cast<std::size_t>(i)].param = 20 + i;
    }
    record.rows = more.data();
    QVERIFY(grid.InsertSlimRow(&record, true, first, GCI_FIRST, 99)); // the rest is ignored
    QCOMPARE(grid.order(), QStringLiteral("s10 s20 s21 s22 s11 s12 s1"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::slim_batch_fillsTheHandles_andTells()
{
    TestGrid grid;
    SlimTree tree;
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    std::vector<GC_SLIMROWDATA> records(2);
    records[0].param = 1;
    records[1].param = 2;
    QVERIFY(grid.InsertSlimRows(2, records.data(), GC_ROOT, GCI_LAST));
    QCOMPARE(tree.taken(), QStringLiteral("created 0"));
    QCOMPARE(tree.created.size(), std::size_t(2));
    QCOMPARE(tree.created[1].row, records[1].row);
    QCOMPARE(grid.name(records[1].row), QStringLiteral("s2"));
}

void tst_GridRows::slim_countZero_tellsOfNothing()
{
    TestGrid grid;
    SlimTree tree;
    grid.SetSlimGridCallback(&tree);
    QVERIFY(grid.InsertSlimRows(0, nullptr, GC_ROOT, GCI_LAST));
    QCOMPARE(tree.taken(), QStringLiteral("created 0"));
    QVERIFY(tree.created.empty());
    GC_SLIMROWDATA data;
    QVERIFY(!grid.InsertSlimRows(-1, &data, GC_ROOT, GCI_LAST));
    QVERIFY(!grid.InsertSlimRows(1, nullptr, GC_ROOT, GCI_LAST));
    QVERIFY(!grid.InsertSlimRows(0, nullptr, GC_ROOT, nullptr));
    QVERIFY(!grid.InsertSlimRow(static_cast<GC_INSERTSLIMROW *>(nullptr)));
    QCOMPARE(grid.GetRowCount(), 0u);
}

void tst_GridRows::slim_badParentOrAfter_rollsBack_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("unknown parent") << 0;
    QTest::newRow("null parent") << 1;
    QTest::newRow("after is no sibling") << 2;
    QTest::newRow("slim parent") << 3;
    QTest::newRow("after is no child") << 4;
}

void tst_GridRows::slim_badParentOrAfter_rollsBack()
{
    QFETCH(int, which);
    TestGrid grid;
    SlimTree tree;
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    tag_HROW * const ordinary = grid.add("o");
    tag_HROW * const child = grid.add("c", ordinary);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    struct Place
    {
        tag_HROW * parent;
        tag_HROW * after;
    };
    Place const places[] = {{reinterpret_cast<tag_HROW *>(&grid), GCI_LAST},
                            {nullptr, GCI_LAST},
                            {GC_ROOT, child},
                            {slim, GCI_LAST},
                            {ordinary, slim}};
    std::vector<GC_SLIMROWDATA> records(3);
    records[1].row = slim;
    tree.calls.clear();
    QVERIFY(!grid.InsertSlimRows(3, records.data(), places[which].parent, places[which].after));
    QCOMPARE(tree.taken(), QString());
    QCOMPARE(records[1].row, which < 2 ? slim : nullptr); // not looked at for a bad parent
    QCOMPARE(grid.GetRowCount(), 3u);
    QCOMPARE(grid.order(), QStringLiteral("o c s1"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::slim_rolledBackHeights_stay_butNoRowTakesThemOver()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("a");
    std::vector<GC_SLIMROWDATA> records(3);
    for (GC_SLIMROWDATA & record : records) {
        record.height = 99;
        record.hasChildren = false;
    }
    QVERIFY(!grid.GetPriv().HasExplicitHeights());
    QVERIFY(!grid.InsertSlimRows(3, records.data(), GC_ROOT, nullptr));
    QVERIFY(grid.GetPriv().HasExplicitHeights()); // of rows that are gone
    for (int i = 0; i < 20; ++i) {
        tag_HROW * const fresh = grid.InsertSlimRow(i, i % 2 != 0, GC_ROOT, GCI_LAST);
        QCOMPARE(grid.GetRowHeight(fresh), static_cast<unsigned>(grid.rowHeight()));
    }
    QCOMPARE(grid.GetRowHeight(row), static_cast<unsigned>(grid.rowHeight()));
    grid.DeleteAllRows();
    QVERIFY(!grid.GetPriv().HasExplicitHeights());
}

void tst_GridRows::slim_underAnOrdinaryRow()
{
    TestGrid grid;
    SlimTree tree;
    grid.addColumns({50});
    grid.SetSlimGridCallback(&tree);
    tag_HROW * const parent = grid.add("p");
    grid.SetRowParam(parent, 42);
    tag_HROW * const slim = grid.InsertSlimRow(7, true, parent, GCI_LAST);
    QCOMPARE(tree.taken(), QStringLiteral("created 42")); // the parent's param
    QCOMPARE(grid.order(), QStringLiteral("p s7"));
    QVERIFY(grid.add("o", parent, slim));
    QCOMPARE(grid.children(parent), QStringLiteral("s7 o"));
    QVERIFY(grid.DeleteRow(slim)); // it hangs under an ordinary row
    QCOMPARE(grid.children(parent), QStringLiteral("o"));
}

void tst_GridRows::slim_withoutCallback_answersQuietly()
{
    TestGrid grid;
    grid.addColumns({50});
    QVERIFY(!grid.GetSlimGridCallback());
    tag_HROW * const slim = grid.InsertSlimRow(7, true, GC_ROOT, GCI_LAST);
    QVERIFY(slim);
    QVERIFY(grid.showSized(100, 100));
    QCOMPARE(grid.GetItemText(slim, grid.firstColumn()), std::string());
    QVERIFY(!hasState(grid, slim, GCRS_HASCHILDREN));
    QVERIFY(grid.Expand(slim, GCE_EXPAND));
    QVERIFY(!hasState(grid, slim, GCRS_EXPANDED));
    QVERIFY(grid.Expand(nullptr, GCE_EXPANDALL));
    QVERIFY(grid.ResetSlimRow(slim));
    grid.Sort(grid.firstColumn(), true);
    zenutest::settle();
    QCOMPARE(grid.GetExpandedCount(), 1u);
}

void tst_GridRows::delete_takesTheWholeSubtree()
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

void tst_GridRows::delete_lastChild_collapsesTheParent()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    std::vector<tag_HROW *> const rows = grid.addMany(2, parent);
    grid.DeleteRow(rows[0]);
    QVERIFY(hasState(grid, parent, GCRS_EXPANDED | GCRS_HASCHILDREN));
    grid.DeleteRow(rows[1]);
    QVERIFY(!hasState(grid, parent, GCRS_EXPANDED | GCRS_HASCHILDREN));
    grid.add("c", parent); // finds the parent closed
    QCOMPARE(grid.order(), QStringLiteral("p"));
}

void tst_GridRows::delete_ofTheFocusedRow_leavesNoFocus()
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

void tst_GridRows::delete_ofAnAncestorOfTheFocus_leavesNoFocus()
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

void tst_GridRows::delete_ofSelectedRows_tellsNobody()
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

void tst_GridRows::delete_heightEntriesGo()
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

void tst_GridRows::delete_slimChild_isRefused()
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

void tst_GridRows::delete_slimSubtree_loadsAndForgetsIt()
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

void tst_GridRows::delete_doesNotRepaint()
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

void tst_GridRows::deleteAll_emptiesTheGridAndRepaints()
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

void tst_GridRows::deleteAll_keepsColumnsAndTakesNewRows()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.addMany(3);
    grid.DeleteAllRows();
    QCOMPARE(grid.GetColumnsCount(), 1);
    grid.add("new");
    QCOMPARE(grid.order(), QStringLiteral("new"));
}

void tst_GridRows::reset_clearsTheImages_unlessKept_data()
{
    QTest::addColumn<long>("style");
    QTest::addColumn<bool>("kept");
    QTest::newRow("cleared") << 0L << false;
    QTest::newRow("kept") << long(GCS_KEEPIMAGES) << true;
}

void tst_GridRows::reset_clearsTheImages_unlessKept()
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

void tst_GridRows::heights_firstOneSwitchesTheForm_lastOneBack()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(4);
    QCOMPARE(grid.contentsHeight(), 80 + grid.headerHeight());
    grid.SetRowHeight(rows[1], 35);
    QVERIFY(grid.GetPriv().HasExplicitHeights());
    QCOMPARE(rowOf(grid, rows[2], GCRM_TOP).top, 55);
    QCOMPARE(grid.contentsHeight(), 95 + grid.headerHeight());
    GC_ROW record;
    record.mask = GCRM_HEIGHT;
    record.height = -1;
    QVERIFY(grid.SetRow(rows[1], &record));
    QVERIFY(!grid.GetPriv().HasExplicitHeights());
    QCOMPARE(rowOf(grid, rows[2], GCRM_TOP).top, 40);
    // In the uniform form a change of the default height is at once in the positions.
    grid.SetDefaultHeight(10);
    QCOMPARE(rowOf(grid, rows[2], GCRM_TOP).top, 20);
    grid.SetRowHeight(rows[0], 1);
    QCOMPARE(rowOf(grid, rows[2], GCRM_TOP).top, 11);
    grid.SetDefaultHeight(30);
    QCOMPARE(rowOf(grid, rows[2], GCRM_TOP).top, 11); // at the next rebuild here
}

void tst_GridRows::heights_minusOne_isAHeightHere_andNoneInSetRow()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    QVERIFY(grid.SetRowHeight(rows[1], -1));
    QVERIFY(grid.GetPriv().HasExplicitHeights());
    QCOMPARE(static_cast<int>(grid.GetRowHeight(rows[1])), -1);
    QCOMPARE(rowOf(grid, rows[2], GCRM_TOP).top, grid.rowHeight() - 1);
    GC_ROW record;
    record.mask = GCRM_HEIGHT;
    record.height = -1;
    QVERIFY(grid.SetRow(rows[1], &record));
    QVERIFY(!grid.GetPriv().HasExplicitHeights());
    QCOMPARE(grid.GetRowHeight(rows[1]), static_cast<unsigned>(grid.rowHeight()));
}

void tst_GridRows::heights_anyNumber_isBorne_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("isDefault");
    for (bool const isDefault : {false, true}) {
        for (int const height : {0, -2, -1000, INT_MIN, INT_MAX, 1}) {
            QTest::addRow("%d %s", height, isDefault ? "by default" : "for some rows")
                << height << isDefault;
        }
    }
}

void tst_GridRows::heights_anyNumber_isBorne()
{
    QFETCH(int, height);
    QFETCH(bool, isDefault);
    TestGrid grid(GCS_VERTLINES | GCS_HORZLINES);
    grid.addKind(GCCK_TEXT, 80, GCCF_TREE | GCCF_TREELINES);
    tag_HROW * const parent = grid.add("p");
    std::vector<tag_HROW *> const rows = grid.addMany(30, parent);
    grid.InsertSection("s", GCI_FIRST);
    QVERIFY(grid.showSized(100, 100));
    if (isDefault) {
        grid.SetDefaultHeight(height);
        grid.GetPriv().Invalidate();
    } else {
        for (std::size_t i = 0; i < rows.size(); i += 3) {
            grid.SetRowHeight(rows[i], height);
        }
    }
    grid.update();
    zenutest::settle();
    for (int code = 0; code < 8; ++code) {
        grid.OnScroll(-1, code, 5000, true);
        grid.OnScroll(-1, code, 5000, false);
        zenutest::settle();
    }
    QRect rect;
    for (tag_HROW * const row : rows) {
        grid.EnsureVisible(row, grid.firstColumn());
        grid.GetRowRect(row, &rect);
        grid.GetItemRect(row, grid.firstColumn(), &rect);
        grid.GetItemEditorRect(row, grid.firstColumn(), &rect);
    }
    tag_HROW * hit = nullptr;
    for (int y = 0; y < 100; y += 7) {
        grid.HitTest(QPoint(5, y), &hit, nullptr);
    }
    grid.resize(90, 200);
    zenutest::settle();
    grid.Expand(parent, GCE_TOGGLE);
    grid.BestFit(grid.firstColumn());
    zenutest::settle();
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRows::heights_sumPastAnInt_saturates()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(10);
    for (tag_HROW * const row : rows) {
        grid.SetRowHeight(row, 1000000000);
    }
    QVERIFY(grid.showSized(100, 100));
    QCOMPARE(grid.contentsHeight(), INT_MAX);
    QCOMPARE(rowOf(grid, rows[2], GCRM_TOP).top, 2000000000);
    QCOMPARE(rowOf(grid, rows[3], GCRM_TOP).top, INT_MAX);
    QCOMPARE(rowOf(grid, rows[9], GCRM_TOP).top, INT_MAX);
    QVERIFY(grid.getVScrollBar()->maximum() > 0);
}

void tst_GridRows::heights_pastAnInt_rowsScrollAndHit()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(40);
    grid.SetDefaultHeight(20);
    for (std::size_t i = 0; i < 10; ++i) {
        grid.SetRowHeight(rows[i], 1000000000);
    }
    QVERIFY(grid.showSized(100, grid.headerHeight() + 101));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.GetBottomIndex(), rows[39]);
    zenutest::settle();
    QRect first;
    QRect second;
    tag_HROW * const top = grid.GetTopIndex();
    QVERIFY(grid.GetRowRect(top, &first));
    QVERIFY(grid.GetRowRect(grid.GetNextRow(GCN_CHILD_NEXT, top), &second));
    QCOMPARE(first.top(), grid.headerHeight());
    QCOMPARE(second.top(), first.top() + 20);
    tag_HROW * hit = nullptr;
    QVERIFY(grid.HitTest(second.center(), &hit, nullptr));
    QCOMPARE(hit, grid.GetNextRow(GCN_CHILD_NEXT, top));
    grid.OnScroll(-1, 0, 0, true);
    QVERIFY(grid.GetTopIndex() != top);
    grid.EnsureVisible(rows[12], GC_NOCOLUMN);
    QCOMPARE(grid.GetTopIndex(), rows[12]);
}

void tst_GridRows::rowHeight_ofARowOutOfTheOrder_isZero()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    grid.SetRowHeight(child, 44);
    QCOMPARE(grid.GetRowHeight(child), 44u);
    grid.Expand(parent, GCE_COLLAPSE);
    QCOMPARE(grid.GetRowHeight(child), 0u);
    QCOMPARE(rowOf(grid, child).height, 44); // read by GetRow for any row
    QCOMPARE(grid.GetRowHeight(nullptr), 0u);
}

void tst_GridRows::top_isReadForVisibleRowsAlone()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    QCOMPARE(rowOf(grid, child, GCRM_TOP).top, 20);
    QCOMPARE(rowOf(grid, child, 0).top, 0);
    grid.Expand(parent, GCE_COLLAPSE);
    QCOMPARE(rowOf(grid, child, GCRM_TOP).top, 0);
}

void tst_GridRows::readsInALoopOfInsertions_rebuildNothing()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    grid.UpdateVisibleRows();
    tag_HROW * const child = grid.add("c", parent);
    QVERIFY(grid.GetPriv().IsDirty());
    GC_ROW const record = rowOf(grid, child);
    QVERIFY(record.state & GCRS_VISIBLE);
    QCOMPARE(record.height, grid.rowHeight());
    QCOMPARE(grid.GetRowHeight(child), static_cast<unsigned>(grid.rowHeight()));
    grid.SetRowHeight(child, 33);
    QCOMPARE(grid.GetRowHeight(child), 33u);
    grid.GetPriv().LocateRow(parent)->CollapseRow();
    QCOMPARE(grid.GetRowHeight(child), 0u);
    QVERIFY(!(rowOf(grid, child).state & GCRS_VISIBLE));
    QVERIFY(grid.GetPriv().IsDirty());
    rowOf(grid, parent, GCRM_TOP);
    QVERIFY(!grid.GetPriv().IsDirty());
}

void tst_GridRows::rowRect_spansTheClient()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(60);
    QVERIFY(grid.showSized(300, 200));
    QRect rect;
    QVERIFY(grid.GetRowRect(rows[2], &rect));
    QCOMPARE(rect, QRect(0, grid.headerHeight() + 40, 300, 20));
    grid.OnScroll(-1, 5, 100, true);
    QVERIFY(grid.GetRowRect(rows[2], &rect));
    QCOMPARE(rect, QRect(0, grid.headerHeight() - 60, 300, 20));
    QVERIFY(!grid.GetRowRect(rows[2], nullptr));
    QVERIFY(!grid.GetRowRect(nullptr, &rect));
}

void tst_GridRows::millionDeepChain_isDeletedWithoutRecursion()
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

ZENU_TEST(tst_GridRows)
#include "tst_GridRows.moc"
