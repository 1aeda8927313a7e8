#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

using namespace zenu;
using namespace zenutest;

class tst_Rows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void sizes_areWhatRowsMayCost();
    void newRow_anyClass_hasDefaults_data();
    void newRow_anyClass_hasDefaults();
    void visibleIndex_anyClass_keepsTheLastChildBit_data();
    void visibleIndex_anyClass_keepsTheLastChildBit();
    void lonelyRow_neverAsksTheApplication();
    void visitor_overridingOnlyVisit_isCalledForAllClasses();
    void visitor_ownOperation_isCalledInsteadOfVisit();
    void cellOperations_anyClass_touchOrdinaryRowsOnly_data();
    void cellOperations_anyClass_touchOrdinaryRowsOnly();
    void newRow_hasOneFreshItemForEachColumn();
    void newRow_isExpandedAndOutsideTheVisibleOrder();
    void addColumnItem_inExistingRow_isFreshAndShiftsNothingElse();
    void removeColumnItem_movesLaterItemsDownAndFreesTheText();
    void itemOf_columnWithoutItem_isNull();
    void destroyItems_twice_isHarmless();
    void destructor_leavesTextsToDestroyItems();
    void setHasChildren_changesThatBitAlone();
    void section_title_isCopiedAndNullIsKept();
    void section_hasCellsAndNoParent();
};

namespace {

class VisitOnly : public IGCRowVisitor
{
public:
    void Visit(IGCRow * row) override { visited.push_back(row); }
    std::vector<IGCRow *> visited;
};

class EachClass : public IGCRowVisitor
{
public:
    void Visit(IGCRow *) override { called += "row "; }
    void VisitOrdinary(CGCOrdinaryRow *) override { called += "ordinary "; }
    void VisitSlim(CGCSlimRow *) override { called += "slim "; }
    void VisitLonelySlim(CGCLonelySlimRow *) override { called += "lonely "; }
    void VisitSection(CGCSection *) override { called += "section "; }
    QByteArray called;
};

QByteArray dump(CGCOrdinaryRow const & row)
{
    QByteArray all;
    for (GridItem const & item : row.Items()) {
        all += zenutest::dump(item) + "; ";
    }
    return all;
}

} // namespace

void tst_Rows::sizes_areWhatRowsMayCost()
{
    if constexpr (sizeof(void *) == 8) {
        QCOMPARE(sizeof(CGCLonelySlimRow), std::size_t(32));
        QCOMPARE(sizeof(CGCSlimRow), std::size_t(40));
        QVERIFY(sizeof(CGCOrdinaryRow) <= 72);
        QVERIFY(sizeof(CGCSection) <= sizeof(CGCOrdinaryRow) + sizeof(void *));
    }
}

void tst_Rows::newRow_anyClass_hasDefaults_data()
{
    addRowClasses();
}

void tst_Rows::newRow_anyClass_hasDefaults()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    QVERIFY(!row->parent);
    QCOMPARE(row->param, 0UL);
    QVERIFY(!row->IsVisible());
    QVERIFY(!row->IsLastChild());
    QCOMPARE(row->SignedVisibleIndex(), -1);
    QCOMPARE(row->GetLevel(), 0);
    QCOMPARE(row->GetChildCount(&wrapper), 0);
    QCOMPARE(row->GetChildren(&wrapper).count(), 0);
    QVERIFY(!row->HasChildren(&wrapper));
    QCOMPARE(row->IsExpanded(), isOrdinary(rowClass));
    QVERIFY(reinterpret_cast<void *>(row->Handle()) == row);
    QVERIFY(row->AssertValid(rows.columns));
    row->Touch(3);
    if (!isOrdinary(rowClass)) {
        QVERIFY(!row->GetChild(0));
    }
}

void tst_Rows::visibleIndex_anyClass_keepsTheLastChildBit_data()
{
    addRowClasses();
}

void tst_Rows::visibleIndex_anyClass_keepsTheLastChildBit()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    for (bool last : {true, false}) {
        row->SetLastChild(last);
        for (std::uint32_t index : {0U, 1U, 0x3fffffffU}) {
            row->SetVisibleIndex(index);
            QVERIFY(row->IsVisible());
            QCOMPARE(row->SignedVisibleIndex(), int(index));
            QCOMPARE(row->IsLastChild(), last);
        }
        row->ClearVisibleIndex();
        QVERIFY(!row->IsVisible());
        QCOMPARE(row->SignedVisibleIndex(), -1);
        QCOMPARE(row->IsLastChild(), last);
        row->SetVisibleIndex(0xfffffffeU);
        QVERIFY(row->IsVisible());
        QCOMPARE(row->IsLastChild(), last);
    }
}

void tst_Rows::lonelyRow_neverAsksTheApplication()
{
    CGCLonelySlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.hasSubRows = true;
    wrapper.subRowCount = 5;
    QVERIFY(!row.HasChildren(&wrapper));
    row.ExpandRow(&wrapper);
    QVERIFY(!row.IsExpanded());
    row.CollapseRow();
    QCOMPARE(row.GetChildCount(&wrapper), 0);
    QCOMPARE(wrapper.hasAsked + wrapper.countAsked + wrapper.loads, 0);
}

void tst_Rows::visitor_overridingOnlyVisit_isCalledForAllClasses()
{
    RowsOfAllClasses rows;
    VisitOnly visitor;
    for (IGCRow * const row : rows.all()) {
        row->Accept(&visitor);
    }
    QCOMPARE(visitor.visited,
             (std::vector<IGCRow *>{&rows.ordinary, &rows.section, &rows.slim, &rows.lonely}));
}

void tst_Rows::visitor_ownOperation_isCalledInsteadOfVisit()
{
    RowsOfAllClasses rows;
    EachClass visitor;
    for (IGCRow * const row : rows.all()) {
        row->Accept(&visitor);
    }
    QCOMPARE(visitor.called, QByteArray("ordinary section slim lonely "));
}

void tst_Rows::cellOperations_anyClass_touchOrdinaryRowsOnly_data()
{
    addRowClasses();
}

void tst_Rows::cellOperations_anyClass_touchOrdinaryRowsOnly()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    auto * const cells = dynamic_cast<CGCOrdinaryRow *>(row);
    QCOMPARE(cells != nullptr, isOrdinary(rowClass));
    auto const flags = [&](int index) {
        return cells ? unsigned(cells->Items()[std::size_t(index)].flags) : 0U;
    };
    auto const expected = [&](unsigned bits) { return cells ? bits : 0U; };
    row->SetFocusCell(true, 1);
    row->SetFocusCell(true, 2);
    row->MarkCell(true, 2);
    row->SetHotCell(rows.column(3));
    QCOMPARE(flags(1), 0U);
    QCOMPARE(flags(2), expected(GCIS_FOCUSED | GCIS_MARKED));
    QCOMPARE(flags(3), expected(GCIS_HOT));
    row->SetFocusCell(false, 2);
    row->MarkCell(false, -1);
    row->ClearHotCell(rows.column(3));
    row->SetFocusCell(true, -1);
    row->SetFocusCell(true, kindCount);
    for (int i = 0; i < kindCount; ++i) {
        QCOMPARE(flags(i), 0U);
    }
    if (cells) {
        cells->Items()[0].text = duplicateText("copy");
        cells->Items()[0].setState(GCIS_CACHEDTEXT, true);
        cells->Items()[6].text = duplicateText("mine");
    }
    row->FreeGarbage(rows.columns);
    row->ColumnKindChanged(rows.column(0));
    row->AddColumnItem(makeColumn(GCCK_TEXT, 20, kindCount).get());
    row->RemoveColumnItem(rows.column(5));
    if (cells) {
        QVERIFY(cells->Items()[0].isCallback());
        QCOMPARE(cells->Items()[5].text, "mine");
        QCOMPARE(cells->Items().size(), std::size_t(kindCount));
    }
    row->DestroyItems(rows.columns);
    QVERIFY(!cells || cells->Items().empty());
}

void tst_Rows::newRow_hasOneFreshItemForEachColumn()
{
    RowsOfAllClasses rows;
    QCOMPARE(rows.ordinary.Items().size(), std::size_t(kindCount));
    QByteArray fresh;
    for (GridItem const & item : rows.columns.freshItems()) {
        fresh += zenutest::dump(item) + "; ";
    }
    QCOMPARE(dump(rows.ordinary), fresh);
    CGCOrdinaryRow const bare(nullptr, ColumnSet());
    QVERIFY(bare.Items().empty());
}

void tst_Rows::newRow_isExpandedAndOutsideTheVisibleOrder()
{
    RowsOfAllClasses rows;
    rows.ordinary.CollapseRow();
    auto * const child = new CGCOrdinaryRow(nullptr, rows.columns);
    QVERIFY(rows.ordinary.InsertChildAfter(child, GCI_LAST));
    QVERIFY(child->IsExpanded());
    QVERIFY(!child->IsVisible());
    QCOMPARE(rows.ordinary.textColor, GC_UNSETCOLOR);
    QCOMPARE(rows.ordinary.bkColor, GC_UNSETCOLOR);
    QVERIFY(!rows.ordinary.font);
    QCOMPARE(unsigned(child->rowFlags), 0x1U);
}

void tst_Rows::addColumnItem_inExistingRow_isFreshAndShiftsNothingElse()
{
    RowsOfAllClasses rows;
    rows.ordinary.Items()[7].images = {1, 2, 3};
    rows.ordinary.Items()[0].text = duplicateText("mine");
    QByteArray const before = dump(rows.ordinary);
    std::unique_ptr<CGCColumn> const list = makeColumn(GCCK_LISTBOX, 20, kindCount);
    rows.ordinary.AddColumnItem(list.get());
    QCOMPARE(dump(rows.ordinary), before + "flags=0 images=-1,-1,-1 color=0 style=0 text=(null); ");
    std::unique_ptr<CGCColumn> const front = makeColumn(GCCK_TEXT, 21, 0);
    rows.ordinary.AddColumnItem(front.get());
    QVERIFY(!rows.ordinary.Items()[0].text);
    QCOMPARE(rows.ordinary.Items()[1].text, "mine");
    QCOMPARE(int(rows.ordinary.Items()[8].images[2]), 3);
    CGCOrdinaryRow bare(nullptr, ColumnSet());
    bare.AddColumnItem(front.get());
    QCOMPARE(bare.Items().size(), std::size_t(1));
}

void tst_Rows::removeColumnItem_movesLaterItemsDownAndFreesTheText()
{
    RowsOfAllClasses rows;
    for (int i = 0; i < kindCount; ++i) {
        rows.ordinary.Items()[std::size_t(i)].text =
            duplicateText(QByteArray::number(i).constData());
    }
    rows.ordinary.RemoveColumnItem(rows.column(3));
    QCOMPARE(rows.ordinary.Items().size(), std::size_t(7));
    QCOMPARE(rows.ordinary.Items()[2].text, "2");
    QCOMPARE(rows.ordinary.Items()[3].text, "4");
    QCOMPARE(rows.ordinary.Items()[6].text, "7");
    rows.ordinary.RemoveColumnItem(rows.column(7)); // has no item any more
    QCOMPARE(rows.ordinary.Items().size(), std::size_t(7));
    for (int i = 0; i < 7; ++i) {
        rows.ordinary.RemoveColumnItem(rows.column(0));
    }
    QVERIFY(rows.ordinary.Items().empty());
}

void tst_Rows::itemOf_columnWithoutItem_isNull()
{
    RowsOfAllClasses rows;
    QVERIFY(rows.ordinary.ItemOf(rows.column(7)) == &rows.ordinary.Items()[7]);
    QVERIFY(!rows.ordinary.ItemOf(makeColumn(GCCK_TEXT, 9, 8).get()));
    QVERIFY(!rows.ordinary.ItemOf(makeColumn(GCCK_TEXT, 9, -1).get()));
    std::unique_ptr<CGCColumn> const column = makeColumn(GCCK_TEXT, 9, 8);
    rows.ordinary.SetHotCell(column.get());
    rows.ordinary.ClearHotCell(column.get());
}

void tst_Rows::destroyItems_twice_isHarmless()
{
    RowsOfAllClasses rows;
    rows.ordinary.Items()[0].text = duplicateText("mine");
    rows.ordinary.DestroyItems(rows.columns);
    rows.ordinary.DestroyItems(rows.columns);
    QVERIFY(rows.ordinary.Items().empty());
    QVERIFY(rows.ordinary.AssertValid(rows.columns));
    rows.ordinary.FreeGarbage(rows.columns);
}

void tst_Rows::destructor_leavesTextsToDestroyItems()
{
    RowsOfAllClasses rows;
    for (int i = 0; i < 2; ++i) {
        auto row = i == 0 ? std::make_unique<CGCOrdinaryRow>(nullptr, rows.columns)
                          : std::make_unique<CGCSection>(rows.columns);
        char * const text = duplicateText("a text of the caller's");
        row->Items()[0].text = text;
        row.reset();
        QCOMPARE(text, "a text of the caller's");
        releaseText(text);
    }
}

void tst_Rows::setHasChildren_changesThatBitAlone()
{
    RowsOfAllClasses rows;
    rows.ordinary.SetHasChildren(true);
    QCOMPARE(unsigned(rows.ordinary.rowFlags), 0x11U);
    rows.ordinary.CollapseRow();
    QCOMPARE(unsigned(rows.ordinary.rowFlags), 0x10U);
    rows.ordinary.SetHasChildren(false);
    QCOMPARE(unsigned(rows.ordinary.rowFlags), 0U);
}

void tst_Rows::section_title_isCopiedAndNullIsKept()
{
    RowsOfAllClasses rows;
    QVERIFY(!rows.section.Text());
    QByteArray title = "title";
    rows.section.SetText(title.constData());
    title[0] = 'x';
    QCOMPARE(rows.section.Text(), "title");
    rows.section.SetText(rows.section.Text());
    QCOMPARE(rows.section.Text(), "title");
    rows.section.SetText(nullptr);
    QVERIFY(!rows.section.Text());
}

void tst_Rows::section_hasCellsAndNoParent()
{
    RowsOfAllClasses rows;
    QVERIFY(!rows.section.parent);
    QCOMPARE(dump(rows.section), dump(rows.ordinary));
}

ZENU_TEST(tst_Rows)
#include "tst_Rows.moc"
