#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/grid/GridRecords.h>

using namespace zenu;
using namespace zenutest;

class tst_SlimRows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void newRow_isCollapsedWithoutBlock();
    void hasChildren_withoutBlock_asksTheCallback();
    void hasChildren_withAnyBlock_isTrueUnasked();
    void expand_closedRow_loadsAndExpands();
    void expand_withNoSubRows_staysCollapsedWithoutBlock_data();
    void expand_withNoSubRows_staysCollapsedWithoutBlock();
    void expand_whenNothingIsLoaded_staysCollapsed();
    void expand_loadedRow_loadsNothing();
    void collapse_keepsTheChildren();
    void childCount_closedRow_loadsNothing();
    void childCount_ofShell_loadsAndStaysExpanded();
    void childCount_ofShellWithNoSubRows_keepsTheShell();
    void childCount_ofCollapsedShell_loadsAndStaysCollapsed();
    void expand_ofCollapsedShellWithNoSubRows_expandsTheShell();
    void load_whileRunning_rowIsClosed();
    void dropChildren_collapsedRow_forgetsAll();
    void dropChildren_expandedRow_keepsAShell();
    void dropChildren_withoutBlock_doesNothing();
    void block_ofEitherClass_holdsItsRowsInline_data();
    void block_ofEitherClass_holdsItsRowsInline();
    void block_ofRecords_isOfTheSmallestClassThatFits_data();
    void block_ofRecords_isOfTheSmallestClassThatFits();
    void block_replaced_freesDeeperBlocks();
    void chainOfAMillionSlimRows_isDroppedWithoutRecursion();
    void slimRowUnderOrdinary_goesWithItsParent();
};

void tst_SlimRows::newRow_isCollapsedWithoutBlock()
{
    CGCSlimRow row(nullptr);
    QVERIFY(!row.SubRows());
    QVERIFY(!row.IsExpanded());
    row.CollapseRow();
    QVERIFY(!row.GetChild(0));
    QVERIFY(!row.SubRows());
}

void tst_SlimRows::hasChildren_withoutBlock_asksTheCallback()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    QVERIFY(!row.HasChildren(&wrapper));
    wrapper.hasSubRows = true;
    QVERIFY(row.HasChildren(&wrapper));
    QCOMPARE(wrapper.hasAsked, 2);
}

void tst_SlimRows::hasChildren_withAnyBlock_isTrueUnasked()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    QVERIFY(row.CreateBlock(true, true, 2));
    QVERIFY(row.HasChildren(&wrapper));
    row.DropChildren();
    QVERIFY(row.SubRows());
    QVERIFY(row.HasChildren(&wrapper));
    QCOMPARE(wrapper.hasAsked, 0);
}

void tst_SlimRows::expand_closedRow_loadsAndExpands()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.subRowCount = 3;
    row.ExpandRow(&wrapper);
    QVERIFY(row.IsExpanded());
    QVERIFY(row.SubRows()->loaded);
    QCOMPARE(row.GetChildCount(&wrapper), 3);
    QCOMPARE(wrapper.loads, 1);
}

void tst_SlimRows::expand_withNoSubRows_staysCollapsedWithoutBlock_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("none") << 0;
    QTest::newRow("nonsense") << -7;
}

void tst_SlimRows::expand_withNoSubRows_staysCollapsedWithoutBlock()
{
    QFETCH(int, answer);
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.hasSubRows = true;
    wrapper.subRowCount = answer;
    row.ExpandRow(&wrapper);
    QVERIFY(!row.IsExpanded());
    QVERIFY(!row.SubRows());
    QCOMPARE(wrapper.loads, 0);
}

void tst_SlimRows::expand_whenNothingIsLoaded_staysCollapsed()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.subRowCount = 3;
    wrapper.createBlocks = false;
    row.ExpandRow(&wrapper);
    QVERIFY(!row.IsExpanded());
    QCOMPARE(row.GetChildCount(&wrapper), 0);
}

void tst_SlimRows::expand_loadedRow_loadsNothing()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    row.CreateBlock(false, false, 4);
    QVERIFY(!row.IsExpanded());
    row.ExpandRow(&wrapper);
    QVERIFY(row.IsExpanded());
    QCOMPARE(wrapper.countAsked, 0);
    QCOMPARE(wrapper.loads, 0);
}

void tst_SlimRows::collapse_keepsTheChildren()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.subRowCount = 3;
    row.ExpandRow(&wrapper);
    IGCRow * const child = row.GetChild(1);
    row.CollapseRow();
    QVERIFY(!row.IsExpanded());
    QCOMPARE(row.GetChildCount(&wrapper), 3);
    QVERIFY(row.GetChild(1) == child);
    row.ExpandRow(&wrapper);
    QCOMPARE(wrapper.loads, 1);
}

void tst_SlimRows::childCount_closedRow_loadsNothing()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.subRowCount = 3;
    QCOMPARE(row.GetChildCount(&wrapper), 0);
    QCOMPARE(wrapper.countAsked, 0);
}

void tst_SlimRows::childCount_ofShell_loadsAndStaysExpanded()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.subRowCount = 3;
    row.ExpandRow(&wrapper);
    row.DropChildren();
    wrapper.subRowCount = 5;
    QCOMPARE(row.GetChildCount(&wrapper), 5);
    QVERIFY(row.IsExpanded());
    QVERIFY(row.SubRows()->loaded);
    QCOMPARE(wrapper.loads, 2);
}

void tst_SlimRows::childCount_ofShellWithNoSubRows_keepsTheShell()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    row.CreateBlock(true, true, 1);
    row.DropChildren();
    CGCSlimRow::CSubRows const * const shell = row.SubRows();
    QCOMPARE(row.GetChildCount(&wrapper), 0);
    QVERIFY(row.SubRows() == shell);
    QVERIFY(row.IsExpanded());
    QCOMPARE(wrapper.loads, 0);
}

void tst_SlimRows::childCount_ofCollapsedShell_loadsAndStaysCollapsed()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    row.CreateBlock(true, true, 1);
    row.DropChildren();
    row.CollapseRow();
    QVERIFY(row.HasChildren(&wrapper));
    wrapper.subRowCount = 2;
    QCOMPARE(row.GetChildCount(&wrapper), 2);
    QVERIFY(!row.IsExpanded());
}

void tst_SlimRows::expand_ofCollapsedShellWithNoSubRows_expandsTheShell()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    row.CreateBlock(true, true, 1);
    row.DropChildren();
    row.CollapseRow();
    row.ExpandRow(&wrapper);
    QVERIFY(row.IsExpanded());
    QVERIFY(!row.SubRows()->loaded);
}

void tst_SlimRows::load_whileRunning_rowIsClosed()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    row.CreateBlock(true, true, 1);
    row.DropChildren();
    wrapper.subRowCount = 2;
    wrapper.whileLoading = [&](CGCSlimRow * loading) {
        QVERIFY(!loading->SubRows());
        QVERIFY(!loading->IsExpanded());
        QCOMPARE(loading->GetChildCount(&wrapper), 0);
    };
    QCOMPARE(row.GetChildCount(&wrapper), 2);
    QVERIFY(row.IsExpanded());
    QCOMPARE(wrapper.loads, 1);
}

void tst_SlimRows::dropChildren_collapsedRow_forgetsAll()
{
    CGCSlimRow row(nullptr);
    row.CreateBlock(false, false, 3);
    row.DropChildren();
    QVERIFY(!row.SubRows());
    QVERIFY(!row.IsExpanded());
}

void tst_SlimRows::dropChildren_expandedRow_keepsAShell()
{
    CGCSlimRow row(nullptr);
    row.CreateBlock(false, true, 3);
    row.DropChildren();
    QVERIFY(row.SubRows());
    QVERIFY(!row.SubRows()->loaded);
    QVERIFY(row.IsExpanded());
    row.DropChildren();
    QVERIFY(row.IsExpanded());
}

void tst_SlimRows::dropChildren_withoutBlock_doesNothing()
{
    CGCSlimRow row(nullptr);
    row.DropChildren();
    QVERIFY(!row.SubRows());
}

void tst_SlimRows::block_ofEitherClass_holdsItsRowsInline_data()
{
    QTest::addColumn<bool>("lonely");
    QTest::addColumn<int>("rowSize");
    QTest::newRow("lonely") << true << int(sizeof(CGCLonelySlimRow));
    QTest::newRow("all may have children, since one has") << false << int(sizeof(CGCSlimRow));
}

void tst_SlimRows::block_ofEitherClass_holdsItsRowsInline()
{
    QFETCH(bool, lonely);
    QFETCH(int, rowSize);
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    int const count = 1000;
    QVERIFY(row.CreateBlock(lonely, false, count));
    QCOMPARE(row.SubRows()->count, count);
    RowSpan const span = row.GetChildren(&wrapper);
    QCOMPARE(span.count(), count);
    QCOMPARE(span.areLonely(), lonely);
    auto const address = [&](int i) { return reinterpret_cast<char *>(row.GetChild(i)); };
    for (int i = 0; i < count; ++i) {
        IGCRow * const child = row.GetChild(i);
        QVERIFY(span[i] == child);
        QCOMPARE(address(i) - address(0), std::ptrdiff_t(rowSize) * i);
        QVERIFY(child->parent == &row);
        QCOMPARE(child->param, 0UL);
        QVERIFY(!child->IsVisible());
        QCOMPARE(dynamic_cast<CGCLonelySlimRow *>(child) != nullptr, lonely);
        QVERIFY(!child->HasChildren(&wrapper));
    }
    QCOMPARE(address(0) - reinterpret_cast<char *>(row.SubRows()), std::ptrdiff_t(16));
}

void tst_SlimRows::block_ofRecords_isOfTheSmallestClassThatFits_data()
{
    QTest::addColumn<int>("withChildren"); // which of the five records, -1 for none
    QTest::addColumn<int>("withHeight");
    QTest::newRow("no children: lonely rows") << -1 << -1;
    QTest::newRow("children of the first: larger rows") << 0 << -1;
    QTest::newRow("children of the last: larger rows, the first ones too") << 4 << -1;
    QTest::newRow("a height of its own is noted") << -1 << 2;
    QTest::newRow("a height after children is noted") << 1 << 4;
}

void tst_SlimRows::block_ofRecords_isOfTheSmallestClassThatFits()
{
    QFETCH(int, withChildren);
    QFETCH(int, withHeight);
    std::vector<GC_SLIMROWDATA> records(5);
    for (int i = 0; i < 5; ++i) {
        records[static_cast<std::size_t>(i)] = {nullptr, 70 + i, i == withChildren,
                                                i == withHeight ? 30 : -1};
    }
    CGCSlimRow row(nullptr);
    CGCSlimRow::CSubRows * const block = row.CreateBlock(true, records);
    QVERIFY(block && block == row.SubRows() && block->loaded && block->expanded);
    QCOMPARE(block->anyHeight, withHeight != -1);
    QCOMPARE(block->GetRows().count(), 5);
    QCOMPARE(block->GetRows().areLonely(), withChildren == -1);
    for (int i = 0; i < 5; ++i) {
        IGCRow * const child = block->GetRow(i);
        QCOMPARE(dynamic_cast<CGCLonelySlimRow *>(child) != nullptr, withChildren == -1);
        QCOMPARE(child->parent, &row);
        QCOMPARE(child->param, static_cast<unsigned long>(70 + i));
        QCOMPARE(records[static_cast<std::size_t>(i)].row, child->Handle());
    }
}

void tst_SlimRows::block_replaced_freesDeeperBlocks()
{
    CGCSlimRow row(nullptr);
    row.CreateBlock(false, true, 3);
    for (int i = 0; i < 3; ++i) {
        auto * const child = static_cast<CGCSlimRow *>(row.GetChild(i));
        child->CreateBlock(false, true, 2);
        static_cast<CGCSlimRow *>(child->GetChild(1))->CreateBlock(true, false, 9);
    }
    row.CreateBlock(true, true, 1); // what was below is watched for leaks
    FakeWrapper wrapper;
    QCOMPARE(row.GetChildCount(&wrapper), 1);
}

void tst_SlimRows::chainOfAMillionSlimRows_isDroppedWithoutRecursion()
{
    int const depth = 1000000;
    CGCSlimRow top(nullptr);
    for (bool drop : {true, false}) {
        CGCSlimRow * row = &top;
        for (int i = 0; i < depth; ++i) {
            QVERIFY(row->CreateBlock(false, true, 1));
            row = static_cast<CGCSlimRow *>(row->GetChild(0));
        }
        QCOMPARE(row->GetLevel(), depth);
        if (drop) {
            top.DropChildren();
        }
    }
}

void tst_SlimRows::slimRowUnderOrdinary_goesWithItsParent()
{
    ColumnSet const columns;
    CGCOrdinaryRow parent(nullptr, columns);
    auto * const slim = new CGCSlimRow(&parent);
    QVERIFY(parent.InsertChildAfter(slim, GCI_LAST));
    QVERIFY(parent.InsertChildAfter(new CGCLonelySlimRow(&parent), GCI_LAST));
    slim->CreateBlock(false, true, 4);
    static_cast<CGCSlimRow *>(slim->GetChild(3))->CreateBlock(true, false, 4);
    parent.DeleteAllChildren();
    FakeWrapper wrapper;
    QCOMPARE(parent.GetChildCount(&wrapper), 0);
}

ZENU_TEST(tst_SlimRows)
#include "tst_SlimRows.moc"
