#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

namespace {

// A row that is loaded at the next rebuild.
CGCSlimRow * addShell(TestFrame & frame, unsigned long param, IGCRow * parent = nullptr)
{
    CGCSlimRow * const row = frame.addSlimRow(param, parent);
    row->CreateBlock(true, true, 1);
    row->DropChildren();
    return row;
}

} // namespace

class tst_VisibleRowsRebuild : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void expandedShell_isLoadedByTheRebuild();
    void expandedShell_underACollapsedRow_isLoadedToo();
    void chainOfAMillionRows_isBuiltWithoutRecursion_data();
    void chainOfAMillionRows_isBuiltWithoutRecursion();
    void lonelyLevel_isFilledWithoutACallARow();
    void rebuild_readersFindAnEmptyOrder_andStartNoOther();
    void rebuild_heightSetFromWithin_isTakenUpByTheNext();
    void rebuild_dirtiedByEachComparison_ends();
    void rebuild_rowsInsertedByALoad_areAllThere_data();
    void rebuild_rowsInsertedByALoad_areAllThere();
    void rebuild_childrenExpandedByALoad_areShown();
    void rebuild_rowDeletedByALoad_leavesNoDeadRow();
    void rebuild_rowsDeletedByEveryLoad_ends();
    void deadRows_areNotLookedAt_untilTheRebuild();
};

void tst_VisibleRowsRebuild::expandedShell_isLoadedByTheRebuild()
{
    TestFrame frame;
    CGCSlimRow * const row = frame.addSlimRow(7);
    row->CreateBlock(true, true, 2);
    row->DropChildren();
    frame.wrapper.subRowCount = 3;
    QCOMPARE(frame.GetCount(), 4);
    QCOMPARE(frame.wrapper.loads, 1);
}

void tst_VisibleRowsRebuild::expandedShell_underACollapsedRow_isLoadedToo()
{
    TestFrame frame;
    IGCRow * const parent = frame.addRow(1);
    CGCSlimRow * const row = frame.addSlimRow(2, parent);
    row->CreateBlock(true, true, 2);
    row->DropChildren();
    frame.wrapper.subRowCount = 3;
    frame.expand(parent, false);
    QCOMPARE(frame.GetCount(), 1);
    QCOMPARE(frame.wrapper.loads, 1);
}

void tst_VisibleRowsRebuild::chainOfAMillionRows_isBuiltWithoutRecursion_data()
{
    QTest::addColumn<bool>("sorted");
    QTest::addColumn<bool>("hidden");
    QTest::newRow("shown") << false << false;
    QTest::newRow("shown and sorted") << true << false;
    QTest::newRow("under a collapsed row") << false << true;
}

void tst_VisibleRowsRebuild::chainOfAMillionRows_isBuiltWithoutRecursion()
{
    QFETCH(bool, sorted);
    QFETCH(bool, hidden);
    constexpr int depth = 1000000;
    TestFrame frame;
    frame.sorted = sorted;
    CGCSlimRow * const top = frame.addSlimRow(0);
    CGCSlimRow * row = top;
    for (int i = 1; i < depth; ++i) {
        row->CreateBlock(false, true, 1);
        row = static_cast<CGCSlimRow *>(row->GetChild(0));
    }
    frame.expand(top, !hidden);
    QCOMPARE(frame.GetCount(), hidden ? 1 : depth);
    QCOMPARE(frame.IndexOf(row), hidden ? -1 : depth - 1);
    QVERIFY(frame.IsLastChild(row) != hidden);
}

void tst_VisibleRowsRebuild::lonelyLevel_isFilledWithoutACallARow()
{
    TestFrame frame;
    CGCSlimRow * const row = frame.addSlimRow(7);
    row->CreateBlock(true, true, 100000);
    QCOMPARE(frame.GetCount(), 100001);
    RowSpan const level = row->GetChildren(&frame.wrapper);
    for (int i = 0; i < level.count(); i += 9999) {
        QCOMPARE(frame.GetRowAt(i + 1), level[i]);
        QCOMPARE(frame.IndexOf(level[i]), i + 1);
        QCOMPARE(frame.IsLastChild(level[i]), i + 1 == level.count());
    }
    frame.SetTop(60000);
    IGCRow * const top = frame.top();
    frame.addRow(1, nullptr, GCI_FIRST);
    QCOMPARE(frame.GetTopIndex(), 60001);
    QCOMPARE(frame.top(), top);
    frame.expand(row, false);
    QCOMPARE(frame.GetCount(), 2);
    QVERIFY(!level[99999]->IsVisible());
}

void tst_VisibleRowsRebuild::rebuild_readersFindAnEmptyOrder_andStartNoOther()
{
    TestFrame frame;
    frame.addRows(10);
    frame.SetFocusedIndex(4);
    IGCRow * const row = frame.GetRowAt(4);
    frame.sorted = true;
    frame.whileSorting = [&] {
        QVERIFY(frame.IsRebuilding());
        frame.UpdateNow();
        QCOMPARE(frame.GetCount(), 0);
        QVERIFY(!frame.GetRowAt(0));
        QCOMPARE(frame.IndexOf(row), -1);
        QCOMPARE(frame.GetFocusedIndex(), -1);
        QCOMPARE(frame.GetShownCount(), 0);
        QCOMPARE(frame.GetTopIndex(), 0);
        QCOMPARE(frame.IndexFromY(30), -1);
        QCOMPARE(frame.VisibleCountFrom(0), 0);
        QVERIFY(!frame.FirstVisible());
    };
    frame.Invalidate();
    QCOMPARE(frame.GetCount(), 10);
    QCOMPARE(frame.sortCalls, 1);
    QVERIFY(!frame.IsRebuilding());
    QCOMPARE(frame.GetFocusedIndex(), 4);
    frame.whileSorting = nullptr;
}

void tst_VisibleRowsRebuild::rebuild_heightSetFromWithin_isTakenUpByTheNext()
{
    TestFrame frame;
    frame.addRows(3);
    frame.sorted = true;
    frame.whileSorting = [&] {
        if (frame.sortCalls == 1) {
            frame.SetRowHeight(frame.rootRows.at(1), 50);
        }
    };
    QCOMPARE(frame.GetTotalHeight(), 90);
    QCOMPARE(frame.GetTopOf(2), 70);
    QCOMPARE(frame.sortCalls, 2);
    QVERIFY(!frame.IsDirty());
}

void tst_VisibleRowsRebuild::rebuild_dirtiedByEachComparison_ends()
{
    TestFrame frame;
    frame.addRows(10);
    frame.sorted = true;
    frame.whileSorting = [&] { frame.Invalidate(); };
    QCOMPARE(frame.GetCount(), 10);
    QVERIFY(frame.IsDirty());
    frame.whileSorting = nullptr;
    QCOMPARE(frame.GetCount(), 10);
    QVERIFY(!frame.IsDirty());
}

void tst_VisibleRowsRebuild::rebuild_rowsInsertedByALoad_areAllThere_data()
{
    QTest::addColumn<bool>("sorted");
    QTest::addColumn<bool>("hidden");
    QTest::newRow("shown") << false << false;
    QTest::newRow("sorted") << true << false;
    QTest::newRow("hidden") << false << true;
}

void tst_VisibleRowsRebuild::rebuild_rowsInsertedByALoad_areAllThere()
{
    QFETCH(bool, sorted);
    QFETCH(bool, hidden);
    TestFrame frame;
    frame.sorted = sorted;
    IGCRow * const parent = frame.addRow(1);
    for (unsigned long i = 0; i < 4; ++i) {
        addShell(frame, 10 + i, parent);
    }
    frame.addRow(20, parent);
    frame.wrapper.subRowCount = 1;
    frame.wrapper.lonely = true;
    frame.wrapper.whileLoading = [&](CGCSlimRow * row) {
        for (int i = 0; i < 100; ++i) { // the arrays of both levels move
            frame.addRow(30, parent, row->param == 11 ? GCI_FIRST : GCI_LAST);
            frame.addRow(40);
        }
    };
    frame.expand(parent, !hidden);
    QCOMPARE(frame.GetCount(), hidden ? 401 : 401 + 4 + 4 + 1 + 400);
    QVERIFY(!frame.IsDirty());
    QCOMPARE(frame.wrapper.loads, 4);
    for (int i = 0; i < frame.GetCount(); ++i) {
        QCOMPARE(frame.IndexOf(frame.GetRowAt(i)), i);
    }
}

void tst_VisibleRowsRebuild::rebuild_childrenExpandedByALoad_areShown()
{
    TestFrame frame;
    addShell(frame, 1);
    frame.addRow(2);
    IGCRow * const other = frame.addRow(3);
    frame.addRow(31, other);
    frame.expand(other, false);
    frame.wrapper.subRowCount = 1;
    frame.wrapper.lonely = true;
    frame.wrapper.whileLoading = [&](CGCSlimRow *) { frame.expand(other, true); };
    QCOMPARE(frame.order(), QStringLiteral("1 0 2 3 31"));
}

void tst_VisibleRowsRebuild::rebuild_rowDeletedByALoad_leavesNoDeadRow()
{
    TestFrame frame;
    frame.addRows(3);
    IGCRow * const doomed = frame.rootRows.at(1);
    addShell(frame, 7);
    frame.wrapper.subRowCount = 1;
    frame.wrapper.lonely = true;
    frame.wrapper.whileLoading = [&](CGCSlimRow *) { frame.remove(doomed); };
    QCOMPARE(frame.order(), QStringLiteral("0 2 7 0"));
    QVERIFY(!frame.IsDirty());
}

void tst_VisibleRowsRebuild::rebuild_rowsDeletedByEveryLoad_ends()
{
    TestFrame frame;
    frame.addRows(100);
    for (unsigned long i = 0; i < 50; ++i) {
        addShell(frame, 200 + i);
    }
    frame.wrapper.subRowCount = 1;
    frame.wrapper.lonely = true;
    frame.wrapper.whileLoading = [&](CGCSlimRow *) { frame.remove(frame.rootRows.at(0)); };
    frame.UpdateNow(); // gives up for now, with an empty order and without a dead row
    while (frame.IsDirty()) {
        frame.UpdateNow();
    }
    QCOMPARE(frame.wrapper.loads, 50);
    QCOMPARE(frame.GetCount(), 50 + 50 + 50);
}

void tst_VisibleRowsRebuild::deadRows_areNotLookedAt_untilTheRebuild()
{
    // Under the address sanitizer a look at one of them ends the program.
    TestFrame frame;
    frame.addRows(100);
    frame.SetTop(40);
    frame.SetFocusedIndex(50);
    frame.FirstShown();
    while (frame.rootRows.count() != 1) {
        frame.remove(frame.rootRows.at(0));
    }
    QVERIFY(!frame.IsFocused(frame.rootRows.at(0)));
    QCOMPARE(frame.GetRowHeight(frame.rootRows.at(0)), 20);
    QVERIFY(!frame.NextShown(frame.rootRows.at(0)));
    QCOMPARE(frame.order(), QStringLiteral("99"));
}

ZENU_TEST(tst_VisibleRowsRebuild)
#include "tst_VisibleRowsRebuild.moc"
