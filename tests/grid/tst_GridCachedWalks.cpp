#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <algorithm>

using namespace zenu;
using zenutest::SmallTree;
using zenutest::TestGrid;

class tst_GridCachedWalks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void allRows_inTheLocatorsOrder_data();
    void allRows_inTheLocatorsOrder();
    void allRows_endAfter_data();
    void allRows_endAfter();
    void allRows_goOnAfterOtherChanges();
    void allRows_fromAnotherRow_end();
    void allRows_withoutFirst_areNull();
    void shownAndVisible_endAfterAChange_data();
    void shownAndVisible_endAfterAChange();
    void shown_stopsPastTheLastOnDisplay();
    void shownAndVisible_fromAnotherRow_end();
    void shownAndVisible_withoutRows_areNull();
    void selected_endWhenARowLeaves_data();
    void selected_endWhenARowLeaves();
    void selected_withoutFirst_areNull();
};

void tst_GridCachedWalks::allRows_inTheLocatorsOrder_data()
{
    QTest::addColumn<bool>("fast");
    QTest::newRow("by address") << false;
    QTest::newRow("depth first") << true;
}

void tst_GridCachedWalks::allRows_inTheLocatorsOrder()
{
    QFETCH(bool, fast);
    SmallTree tree(fast ? GCXS_FASTLOCATOR : 0u);
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    tag_HROW * const e = tree.grid.add("e", tree.a, GCI_FIRST);
    if (fast) {
        QCOMPARE(tree.grid.walk(GCN_ALL_FIRST), QStringLiteral("a e b c d"));
        return;
    }
    std::vector<tag_HROW *> rows{tree.a, tree.b, tree.c, tree.d, e};
    std::sort(rows.begin(), rows.end(), std::less<>());
    QStringList names;
    for (tag_HROW * const row : rows) {
        names << tree.grid.name(row);
    }
    QCOMPARE(tree.grid.walk(GCN_ALL_FIRST), names.join(u' '));
}

void tst_GridCachedWalks::allRows_endAfter_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<bool>("fast");
    char const * const names[] = {"an insertion",       "a deletion",          "a section",
                                  "a slim row",         "a failed slim batch", "deleting all rows",
                                  "a change of locator"};
    for (int change = 0; change < 7; ++change) {
        for (bool const fast : {false, true}) {
            if (change < 5 || !fast) {
                QTest::addRow("%s%s", names[change], fast ? ", fast" : "") << change << fast;
            }
        }
    }
}

void tst_GridCachedWalks::allRows_endAfter()
{
    QFETCH(int, change);
    QFETCH(bool, fast);
    SmallTree tree(fast ? GCXS_FASTLOCATOR : 0u);
    tag_HROW * const first = tree.grid.GetNextRow(GCN_ALL_FIRST);
    QVERIFY(first);
    GC_SLIMROWDATA data;
    switch (change) {
    case 0:
        tree.grid.InsertRow(tree.a, GCI_LAST);
        break;
    case 1:
        tree.grid.DeleteRow(tree.c);
        break;
    case 2:
        tree.grid.InsertSection(nullptr, GCI_LAST);
        break;
    case 3:
        tree.grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
        break;
    case 4:
        tree.grid.InsertSlimRows(1, &data, GC_ROOT, nullptr);
        break;
    case 5:
        tree.grid.DeleteAllRows();
        break;
    default:
        tree.grid.DeleteAllRows();
        tree.grid.SetGridExStyle(GCXS_FASTLOCATOR);
    }
    QVERIFY(!tree.grid.GetNextRow(GCN_ALL_NEXT, first));
    QVERIFY(!tree.grid.GetNextRow(GCN_ALL_NEXT, first));
}

void tst_GridCachedWalks::allRows_goOnAfterOtherChanges()
{
    SmallTree tree;
    tag_HROW * const first = tree.grid.GetNextRow(GCN_ALL_FIRST);
    tree.grid.Expand(tree.a, GCE_TOGGLE);
    tree.grid.Sort(tree.grid.firstColumn(), true);
    tree.grid.SetRowHeight(tree.b, 50);
    tree.grid.SelectAll();
    tree.grid.AddColumn("late", 0, 5);
    QVERIFY(tree.grid.GetNextRow(GCN_ALL_NEXT, first));
}

void tst_GridCachedWalks::allRows_fromAnotherRow_end()
{
    for (bool const fast : {false, true}) {
        SmallTree tree(fast ? GCXS_FASTLOCATOR : 0u);
        tag_HROW * const first = tree.grid.GetNextRow(GCN_ALL_FIRST);
        tag_HROW * const second = tree.grid.GetNextRow(GCN_ALL_NEXT, first);
        QVERIFY(second);
        QVERIFY(!tree.grid.GetNextRow(GCN_ALL_NEXT, first));  // not the row it gave last
        QVERIFY(!tree.grid.GetNextRow(GCN_ALL_NEXT, second)); // and now it is over
        QVERIFY(!tree.grid.GetNextRow(GCN_ALL_NEXT, nullptr));
    }
}

void tst_GridCachedWalks::allRows_withoutFirst_areNull()
{
    SmallTree const tree;
    QVERIFY(!tree.grid.GetNextRow(GCN_ALL_NEXT, tree.a));
    QVERIFY(!tree.grid.GetNextRow(GCN_SHOWN_NEXT, tree.a));
    QVERIFY(!tree.grid.GetNextRow(GCN_VISIBLE_NEXT, tree.a));
    TestGrid const empty;
    QVERIFY(!empty.GetNextRow(GCN_ALL_FIRST));
    QVERIFY(!empty.GetNextRow(GCN_CHILD_FIRST, GC_ROOT));
}

void tst_GridCachedWalks::shownAndVisible_endAfterAChange_data()
{
    QTest::addColumn<unsigned>("first");
    QTest::addColumn<int>("change");
    char const * const names[] = {"insertion", "deletion", "expansion", "sort", "height"};
    for (unsigned const first : {unsigned(GCN_SHOWN_FIRST), unsigned(GCN_VISIBLE_FIRST)}) {
        for (int change = 0; change < 5; ++change) {
            QTest::addRow("%s, %s", first == GCN_SHOWN_FIRST ? "shown" : "visible", names[change])
                << first << change;
        }
    }
}

void tst_GridCachedWalks::shownAndVisible_endAfterAChange()
{
    QFETCH(unsigned, first);
    QFETCH(int, change);
    SmallTree tree;
    QVERIFY(tree.grid.showSized(100, 200));
    QCOMPARE(tree.grid.walk(first), QStringLiteral("a b c d"));
    QCOMPARE(tree.next(first), QStringLiteral("a"));
    QCOMPARE(tree.next(first + 1, tree.a), QStringLiteral("b"));
    switch (change) {
    case 0:
        tree.grid.InsertRow(tree.d, GCI_LAST);
        break;
    case 1:
        tree.grid.DeleteRow(tree.d);
        break;
    case 2:
        tree.grid.Expand(tree.a, GCE_COLLAPSE);
        break;
    case 3:
        tree.grid.Sort(nullptr);
        break;
    default:
        tree.grid.SetRowHeight(tree.d, 50);
    }
    QVERIFY(!tree.grid.GetNextRow(first + 1, tree.b));
}

void tst_GridCachedWalks::shown_stopsPastTheLastOnDisplay()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    grid.addMany(30);
    QVERIFY(grid.showSized(100, 91));
    grid.OnScroll(-1, 5, 200, true);
    QCOMPARE(grid.walk(GCN_SHOWN_FIRST), QStringLiteral("10 11 12 13 14"));
    QCOMPARE(grid.walk(GCN_VISIBLE_FIRST).count(u' '), 29);
    // A scroll does not end a walk: it goes on over what was on display.
    tag_HROW * const row = grid.GetNextRow(GCN_SHOWN_FIRST);
    grid.OnScroll(-1, 7, 0, true);
    QCOMPARE(grid.name(grid.GetNextRow(GCN_SHOWN_NEXT, row)), QStringLiteral("11"));
}

void tst_GridCachedWalks::shownAndVisible_fromAnotherRow_end()
{
    for (unsigned const first : {unsigned(GCN_SHOWN_FIRST), unsigned(GCN_VISIBLE_FIRST)}) {
        SmallTree tree;
        QVERIFY(tree.grid.showSized(100, 200));
        tree.grid.GetNextRow(first);
        QVERIFY(!tree.grid.GetNextRow(first + 1, tree.b));
        QVERIFY(!tree.grid.GetNextRow(first + 1, tree.a));
    }
}

void tst_GridCachedWalks::shownAndVisible_withoutRows_areNull()
{
    TestGrid grid;
    QVERIFY(grid.showSized(100, 100));
    QVERIFY(!grid.GetNextRow(GCN_SHOWN_FIRST));
    QVERIFY(!grid.GetNextRow(GCN_VISIBLE_FIRST));
    QVERIFY(!grid.GetNextRow(GCN_SELECTED_FIRST));
    QVERIFY(!grid.GetNextRow(GCN_FOCUSED));
    QCOMPARE(grid.GetNextRow(GCN_ROOT), GC_ROOT);
}

void tst_GridCachedWalks::selected_endWhenARowLeaves_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<bool>("ends");
    QTest::newRow("a selected row is deleted") << 0 << true;
    QTest::newRow("a row is deselected") << 1 << true;
    QTest::newRow("the selection is cleared") << 2 << true;
    QTest::newRow("another row is deleted") << 3 << false;
    QTest::newRow("a row is selected") << 4 << false;
    QTest::newRow("a row is expanded") << 5 << false;
}

void tst_GridCachedWalks::selected_endWhenARowLeaves()
{
    QFETCH(int, change);
    QFETCH(bool, ends);
    SmallTree tree;
    tag_HROW * rows[] = {tree.a, tree.b, tree.c};
    tree.grid.SelectRows(3, rows);
    tag_HROW * const first = tree.grid.GetNextRow(GCN_SELECTED_FIRST);
    tag_HROW * const last = std::max({tree.a, tree.b, tree.c}, std::less<>());
    QVERIFY(first != last);
    switch (change) {
    case 0:
        tree.grid.DeleteRow(last == tree.a ? tree.b : last);
        break;
    case 1:
        tree.grid.SetRowSel(last, false);
        break;
    case 2:
        tree.grid.ClearSelection();
        break;
    case 3:
        tree.grid.DeleteRow(tree.d);
        break;
    case 4:
        tree.grid.SetRowSel(tree.d, true);
        break;
    default:
        tree.grid.Expand(tree.a, GCE_COLLAPSE);
    }
    QCOMPARE(tree.grid.GetNextRow(GCN_SELECTED_NEXT, first) == nullptr, ends);
}

void tst_GridCachedWalks::selected_withoutFirst_areNull()
{
    SmallTree tree;
    tree.grid.SelectAll();
    QVERIFY(!tree.grid.GetNextRow(GCN_SELECTED_NEXT, tree.a));
    QCOMPARE(tree.grid.selected(), QStringLiteral("a b c d"));
    tag_HROW * const first = tree.grid.GetNextRow(GCN_SELECTED_FIRST);
    tag_HROW * const second = tree.grid.GetNextRow(GCN_SELECTED_NEXT, first);
    QVERIFY(second > first);
    QVERIFY(!tree.grid.GetNextRow(GCN_SELECTED_NEXT, first));
    QVERIFY(!tree.grid.GetNextRow(GCN_SELECTED_NEXT, second));
}

ZENU_TEST(tst_GridCachedWalks)
#include "tst_GridCachedWalks.moc"
