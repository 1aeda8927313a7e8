#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::rowHasState;
using zenutest::SlimTree;
using zenutest::TestGrid;

class tst_GridSlimInsertion : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void slim_oneByOne_andInBatches();
    void slim_batch_fillsTheHandles_andTells();
    void slim_countZero_tellsOfNothing();
    void slim_badParentOrAfter_rollsBack_data();
    void slim_badParentOrAfter_rollsBack();
    void slim_rolledBackHeights_stay_butNoRowTakesThemOver();
    void slim_underAnOrdinaryRow();
    void slim_withoutCallback_answersQuietly();
};

void tst_GridSlimInsertion::slim_oneByOne_andInBatches()
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

void tst_GridSlimInsertion::slim_batch_fillsTheHandles_andTells()
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

void tst_GridSlimInsertion::slim_countZero_tellsOfNothing()
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

void tst_GridSlimInsertion::slim_badParentOrAfter_rollsBack_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("unknown parent") << 0;
    QTest::newRow("null parent") << 1;
    QTest::newRow("after is no sibling") << 2;
    QTest::newRow("slim parent") << 3;
    QTest::newRow("after is no child") << 4;
}

void tst_GridSlimInsertion::slim_badParentOrAfter_rollsBack()
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

void tst_GridSlimInsertion::slim_rolledBackHeights_stay_butNoRowTakesThemOver()
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

void tst_GridSlimInsertion::slim_underAnOrdinaryRow()
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

void tst_GridSlimInsertion::slim_withoutCallback_answersQuietly()
{
    TestGrid grid;
    grid.addColumns({50});
    QVERIFY(!grid.GetSlimGridCallback());
    tag_HROW * const slim = grid.InsertSlimRow(7, true, GC_ROOT, GCI_LAST);
    QVERIFY(slim);
    QVERIFY(grid.showSized(100, 100));
    QCOMPARE(grid.GetItemText(slim, grid.firstColumn()), std::string());
    QVERIFY(!rowHasState(grid, slim, GCRS_HASCHILDREN));
    QVERIFY(grid.Expand(slim, GCE_EXPAND));
    QVERIFY(!rowHasState(grid, slim, GCRS_EXPANDED));
    QVERIFY(grid.Expand(nullptr, GCE_EXPANDALL));
    QVERIFY(grid.ResetSlimRow(slim));
    grid.Sort(grid.firstColumn(), true);
    zenutest::settle();
    QCOMPARE(grid.GetExpandedCount(), 1u);
}

ZENU_TEST(tst_GridSlimInsertion)
#include "tst_GridSlimInsertion.moc"
