#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::rowHasState;
using zenutest::rowRecord;
using zenutest::SlimTree;
using zenutest::TestGrid;

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
        QVERIFY(rowHasState(grid, parent, GCRS_HASCHILDREN));
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
        QVERIFY(!rowHasState(grid, parent, GCRS_HASCHILDREN));
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
    GC_ROW const read = rowRecord(grid, row);
    QCOMPARE(read.height, 44);
    QCOMPARE(read.param, 77ul);
    QCOMPARE(read.textColor, QColor(Qt::red));
    QCOMPARE(read.bkColor, QColor(Qt::blue));
    QCOMPARE(read.state, unsigned(GCRS_HASCHILDREN | GCRS_VISIBLE));
    // A mask of the parent alone applies nothing.
    record.mask = GCRM_PARENT;
    tag_HROW * const plain = grid.InsertRow(&record, GCI_LAST);
    QCOMPARE(rowRecord(grid, plain).param, 0ul);
    QCOMPARE(rowRecord(grid, plain).height, grid.rowHeight());
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
    QCOMPARE(rowRecord(grid, row).state, unsigned(GCRS_SELECTED | GCRS_FOCUSED | GCRS_VISIBLE));
}

void tst_GridRows::insert_newRowIsExpanded_itsParentGetsTheButton()
{
    TestGrid grid;
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    QCOMPARE(rowRecord(grid, row).state, unsigned(GCRS_EXPANDED | GCRS_VISIBLE));
    tag_HROW * const child = grid.InsertRow(row, GCI_LAST);
    QCOMPARE(rowRecord(grid, row).state, unsigned(GCRS_EXPANDED | GCRS_VISIBLE | GCRS_HASCHILDREN));
    QCOMPARE(rowRecord(grid, child).parent, row);
    QCOMPARE(rowRecord(grid, row).parent, GC_ROOT);
}

void tst_GridRows::insert_underACollapsedParent_isNotInTheOrder()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    grid.Expand(parent, GCE_COLLAPSE);
    tag_HROW * const child = grid.add("c", parent);
    QCOMPARE(grid.order(), QStringLiteral("p"));
    QVERIFY(!rowHasState(grid, child, GCRS_VISIBLE));
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

ZENU_TEST(tst_GridRows)
#include "tst_GridRows.moc"
