#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using namespace zenutest;

class tst_CVisibleRows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void emptyOrder_everyReader_answersQuietly();
    void badArguments_everyReader_answersQuietly();
    void changes_areTakenUpByTheFirstReader_inOneRebuild();
    void order_isDepthFirst_throughExpandedRowsOnly();
    void order_holdsRowsOfAllClasses();
    void getRows_givesAPart_cutAtTheEnds_inBothForms();
    void indices_areThePositions_andMinusOneElsewhere();
    void lastChild_isTheLastOfItsLevel_inDisplayOrder();
    void lastChildMark_outlivesLeavingTheOrder();
    void sort_ordersEachLevel_andLeavesTheStoredOrder();
    void sort_whenNotSorted_isNotAsked();
    void focus_followsTheRow();
    void focus_ofARowOutOfTheOrder_hasNoIndex();
    void focus_badIndex_clearsIt();
    void forget_ofTheFocusedRow_clearsTheFocus();
};

void tst_CVisibleRows::emptyOrder_everyReader_answersQuietly()
{
    TestFrame frame;
    for (bool const dirty : {false, true}) {
        if (dirty) {
            QVERIFY(frame.Invalidate());
        }
        QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=0 last=0 count=0 height=0"));
        QVERIFY(frame.IsEmpty());
        QVERIFY(!frame.GetRowAt(0));
        QCOMPARE(frame.IndexOf(nullptr), -1);
        QCOMPARE(frame.GetTopOf(0), 0);
        QCOMPARE(frame.GetHeightAt(0), 0);
        QCOMPARE(frame.GetFocusedIndex(), -1);
        QCOMPARE(frame.IndexFromY(0), -1);
        QCOMPARE(frame.RowUnderY(0), -1);
        QCOMPARE(frame.FirstIndexForBottom(0), 0);
        QCOMPARE(frame.VisibleCountFrom(0), 0);
        QVERIFY(!frame.FirstShown());
        QVERIFY(!frame.FirstVisible());
        QVERIFY(!frame.IsLastChildAt(0));
        frame.SetTop(3);
        frame.SetFocusedIndex(0);
        QVERIFY(!frame.FocusedRow());
    }
}

void tst_CVisibleRows::badArguments_everyReader_answersQuietly()
{
    TestFrame frame;
    frame.addRows(3);
    for (int const index : {-1, 3, INT_MIN, INT_MAX}) {
        QVERIFY(!frame.GetRowAt(index));
        QCOMPARE(frame.GetTopOf(index), 0);
        QCOMPARE(frame.GetHeightAt(index), 0);
        QVERIFY(!frame.IsLastChildAt(index));
        QCOMPARE(frame.FirstIndexForBottom(index), 0);
        QCOMPARE(frame.VisibleCountFrom(index), index < 0 ? 3 : 1);
        frame.SetTop(index);
        QCOMPARE(frame.GetTopIndex(), 0);
    }
    QCOMPARE(frame.IndexFromY(5, INT_MIN, 2), 0);
    QCOMPARE(frame.IndexFromY(5, 2, 1), -1);
    QVERIFY(!frame.IsLastChild(nullptr));
    QVERIFY(!frame.IsFocused(nullptr));
    frame.SetRowHeight(nullptr, 5);
    frame.ResetRowHeight(nullptr);
    QCOMPARE(frame.GetRowHeight(nullptr), 20);
    QVERIFY(!frame.HasExplicitHeights());
    frame.Forget(nullptr);
    frame.UpdateNow();
    frame.SetShownCount(-4);
    QCOMPARE(frame.GetShownCount(), 0);
}

void tst_CVisibleRows::changes_areTakenUpByTheFirstReader_inOneRebuild()
{
    TestFrame frame;
    frame.addRows(50);
    QVERIFY(frame.IsDirty());
    QVERIFY(frame.journal.isEmpty());
    QCOMPARE(frame.GetCount(), 50);
    QVERIFY(!frame.IsDirty());
    QCOMPARE(frame.takeJournal(), QStringLiteral("changing 0, laid out, changed"));
    QCOMPARE(frame.GetTotalHeight(), 1000);
    QVERIFY(frame.journal.isEmpty());
    frame.InvalidateHeights();
    QCOMPARE(frame.GetTotalHeight(), 1000);
    QVERIFY(frame.journal.isEmpty());
}

void tst_CVisibleRows::order_isDepthFirst_throughExpandedRowsOnly()
{
    TestFrame frame;
    IGCRow * const a = frame.addRow(1);
    IGCRow * const b = frame.addRow(2);
    IGCRow * const deep = frame.addRow(11, a);
    frame.addRow(12, a);
    frame.addRow(21, b);
    frame.addRow(111, deep);
    QCOMPARE(frame.order(), QStringLiteral("1 11 111 12 2 21"));
    frame.expand(deep, false);
    QCOMPARE(frame.order(), QStringLiteral("1 11 12 2 21"));
    frame.expand(a, false);
    QCOMPARE(frame.order(), QStringLiteral("1 2 21"));
    frame.expand(a, true);
    QCOMPARE(frame.order(), QStringLiteral("1 11 12 2 21"));
}

void tst_CVisibleRows::order_holdsRowsOfAllClasses()
{
    TestFrame frame;
    auto * const section = new CGCSection(frame.columns);
    section->param = 1;
    frame.rootRows.insert({section}, GCI_LAST, true);
    CGCSlimRow * const slim = frame.addSlimRow(2);
    slim->CreateBlock(false, true, 2);
    slim->GetChild(0)->param = 21;
    slim->GetChild(1)->param = 22;
    static_cast<CGCSlimRow *>(slim->GetChild(0))->CreateBlock(true, true, 3);
    frame.Invalidate();
    QCOMPARE(frame.order(), QStringLiteral("1 2 21 0 0 0 22"));
    QVERIFY(frame.IsLastChildAt(5));
    QVERIFY(!frame.IsLastChildAt(4));
}

void tst_CVisibleRows::getRows_givesAPart_cutAtTheEnds_inBothForms()
{
    TestFrame frame;
    std::vector<IGCRow *> scratch;
    QCOMPARE(frame.GetRows(0, 5, scratch).count(), 0);
    frame.addRows(10);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(frame.GetRows(0, INT_MAX, scratch).count(), 10);
        QCOMPARE(frame.GetRows(-3, 2, scratch)[1], frame.GetRowAt(1));
        QCOMPARE(frame.GetRows(8, 5, scratch).count(), 2);
        QCOMPARE(frame.GetRows(8, 5, scratch)[0], frame.GetRowAt(8));
        QCOMPARE(frame.GetRows(10, 5, scratch).count(), 0);
        QCOMPARE(frame.GetRows(2, -5, scratch).count(), 0);
        frame.SetRowHeight(frame.rootRows.at(0), 5);
    }
}

void tst_CVisibleRows::indices_areThePositions_andMinusOneElsewhere()
{
    TestFrame frame;
    IGCRow * const parent = frame.addRow(1);
    IGCRow * const child = frame.addRow(2, parent);
    IGCRow * const sibling = frame.addRow(3);
    QCOMPARE(frame.IndexOf(child), 1);
    QCOMPARE(frame.IndexOf(sibling), 2);
    frame.expand(parent, false);
    QCOMPARE(frame.IndexOf(child), -1);
    QVERIFY(!child->IsVisible());
    QCOMPARE(frame.IndexOf(sibling), 1);
    CGCOrdinaryRow foreign(nullptr, frame.columns);
    QCOMPARE(frame.IndexOf(&foreign), -1);
    foreign.SetVisibleIndex(0);
    QCOMPARE(frame.IndexOf(&foreign), -1);
}

void tst_CVisibleRows::lastChild_isTheLastOfItsLevel_inDisplayOrder()
{
    TestFrame frame;
    IGCRow * const parent = frame.addRow(1);
    frame.addRow(2);
    IGCRow * const small = frame.addRow(3, parent);
    IGCRow * const large = frame.addRow(4, parent);
    frame.UpdateNow();
    QVERIFY(frame.IsLastChild(large) && !frame.IsLastChild(small));
    frame.sorted = true;
    frame.descending = true;
    frame.Invalidate();
    frame.UpdateNow();
    QCOMPARE(frame.order(), QStringLiteral("2 1 4 3"));
    QVERIFY(!frame.IsLastChild(large) && frame.IsLastChild(small));
    QVERIFY(frame.IsLastChildAt(1) && frame.IsLastChildAt(3));
}

void tst_CVisibleRows::lastChildMark_outlivesLeavingTheOrder()
{
    TestFrame frame;
    IGCRow * const parent = frame.addRow(1);
    IGCRow * const child = frame.addRow(2, parent);
    frame.UpdateNow();
    frame.expand(parent, false);
    frame.UpdateNow();
    QVERIFY(frame.IsLastChild(child));
    QCOMPARE(child->SignedVisibleIndex(), -1);
}

void tst_CVisibleRows::sort_ordersEachLevel_andLeavesTheStoredOrder()
{
    TestFrame frame;
    frame.addRow(2);
    IGCRow * const parent = frame.addRow(1);
    frame.addRow(12, parent);
    frame.addRow(11, parent);
    frame.sorted = true;
    QCOMPARE(frame.order(), QStringLiteral("1 11 12 2"));
    QCOMPARE(frame.sortCalls, 2);
    QCOMPARE(frame.rootRows.at(0)->param, 2UL);
    QCOMPARE(parent->GetChild(0)->param, 12UL);
    frame.sorted = false;
    frame.Invalidate();
    QCOMPARE(frame.order(), QStringLiteral("2 1 12 11"));
}

void tst_CVisibleRows::sort_whenNotSorted_isNotAsked()
{
    TestFrame frame;
    frame.addRows(4);
    frame.UpdateNow();
    QCOMPARE(frame.sortCalls, 0);
}

void tst_CVisibleRows::focus_followsTheRow()
{
    TestFrame frame;
    frame.addRows(5);
    frame.SetFocusedIndex(3);
    IGCRow * const focused = frame.FocusedRow();
    QVERIFY(frame.IsFocused(focused));
    QCOMPARE(frame.GetFocusedIndex(), 3);
    frame.remove(frame.GetRowAt(0));
    QVERIFY(frame.IsFocused(focused));
    QVERIFY(frame.IsDirty());
    QCOMPARE(frame.GetFocusedIndex(), 2);
}

void tst_CVisibleRows::focus_ofARowOutOfTheOrder_hasNoIndex()
{
    TestFrame frame;
    IGCRow * const parent = frame.addRow(1);
    IGCRow * const child = frame.addRow(2, parent);
    frame.SetFocusedIndex(1);
    frame.expand(parent, false);
    QCOMPARE(frame.GetFocusedIndex(), -1);
    QCOMPARE(frame.FocusedRow(), child);
}

void tst_CVisibleRows::focus_badIndex_clearsIt()
{
    TestFrame frame;
    frame.addRows(2);
    for (int const bad : {-1, 2, -7}) {
        frame.SetFocusedIndex(1);
        QVERIFY(frame.FocusedRow());
        frame.SetFocusedIndex(bad);
        QVERIFY(!frame.FocusedRow());
        QCOMPARE(frame.GetFocusedIndex(), -1);
    }
}

void tst_CVisibleRows::forget_ofTheFocusedRow_clearsTheFocus()
{
    TestFrame frame;
    frame.addRows(3);
    frame.SetFocusedIndex(1);
    frame.remove(frame.GetRowAt(0));
    QVERIFY(frame.FocusedRow());
    frame.remove(frame.FocusedRow());
    QVERIFY(!frame.FocusedRow());
    QCOMPARE(frame.GetFocusedIndex(), -1);
}

ZENU_TEST(tst_CVisibleRows)
#include "tst_CVisibleRows.moc"
