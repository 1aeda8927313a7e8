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
    void visitor_overridingOnlyVisit_isCalledForAllClasses();
    void visitor_ownOperation_isCalledInsteadOfVisit();
    void cellOperations_anyClass_touchOrdinaryRowsOnly_data();
    void cellOperations_anyClass_touchOrdinaryRowsOnly();
    void insert_anyClass_answersAsTheClassDoes_data();
    void insert_anyClass_answersAsTheClassDoes();
    void getLevel_countsAncestors();
    void newRow_hasOneFreshItemForEachColumn();
    void newRow_isExpandedAndOutsideTheVisibleOrder();
    void insertChildren_writesTheParent();
    void insertChildren_badPosition_failsAndStillShowsTheButton();
    void removeChild_last_collapsesAndRemovesTheButton();
    void removeChild_ofAnother_isRefused();
    void firstChild_afterLosingTheLast_findsItsParentClosed();
    void deleteChild_thatIsNoChild_deletesItAndAnswersFalse_data();
    void deleteChild_thatIsNoChild_deletesItAndAnswersFalse();
    void deleteChild_child_deletesIt();
    void deleteChild_null_answersFalse();
    void deleteChild_ofSlimRow_deletesNothing();
    void deleteAllChildren_clearsBothBits();
    void addColumnItem_inExistingRow_isFreshAndShiftsNothingElse();
    void removeColumnItem_movesLaterItemsDownAndFreesTheText();
    void itemOf_columnWithoutItem_isNull();
    void destroyItems_twice_isHarmless();
    void setHasChildren_changesThatBitAlone();
    void section_title_isCopiedAndNullIsKept();
    void section_hasCellsAndNoParent();
    void chainOfAMillionRows_isDeletedWithoutRecursion();
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

// Says when it dies.
class MortalRow : public CGCOrdinaryRow
{
public:
    MortalRow(ColumnSet const & columns, int * deathCount)
        : CGCOrdinaryRow(nullptr, columns)
        , deaths(deathCount)
    {
    }
    ~MortalRow() override { ++*deaths; }

private:
    int * deaths;
};

void addClassRows()
{
    QTest::addColumn<int>("rowClass");
    for (int i = 0; i < 4; ++i) {
        QTest::newRow(rowClassNames[std::size_t(i)]) << i;
    }
}

bool isOrdinary(int rowClass)
{
    return rowClass < 2;
}

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
    addClassRows();
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
    addClassRows();
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
    addClassRows();
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
    if (cells) {
        QVERIFY(cells->Items()[0].isCallback());
        QCOMPARE(cells->Items()[6].text, "mine");
    }
    row->DestroyItems(rows.columns);
    QVERIFY(!cells || cells->Items().empty());
}

void tst_Rows::insert_anyClass_answersAsTheClassDoes_data()
{
    addClassRows();
}

void tst_Rows::insert_anyClass_answersAsTheClassDoes()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    IGCRow * const row = rows.all()[std::size_t(rowClass)];
    bool const takes = isOrdinary(rowClass);
    std::vector<IGCRow *> made;
    for (int i = 0; i < 4; ++i) {
        made.push_back(new CGCOrdinaryRow(nullptr, rows.columns));
    }
    QCOMPARE(row->InsertChildAfter(made[0], GCI_LAST), takes);
    QCOMPARE(row->InsertChildBefore(made[1], made[0]->Handle()), takes);
    QCOMPARE(row->InsertChildrenAfter({made[2]}, made[0]->Handle()), takes);
    QCOMPARE(row->InsertChildrenBefore({made[3]}, GCI_FIRST), takes);
    QCOMPARE(row->GetChildCount(&wrapper), takes ? 4 : 0);
    QCOMPARE(row->HasChildren(&wrapper), takes);
    if (takes) {
        QVERIFY(row->GetChild(0) == made[3]);
        QVERIFY(row->GetChild(1) == made[1]);
        QVERIFY(row->GetChild(2) == made[0]);
        QVERIFY(row->GetChild(3) == made[2]);
        QVERIFY(row->RemoveChild(made[3]));
        delete made[3];
        row->DeleteAllChildren();
        QCOMPARE(row->GetChildCount(&wrapper), 0);
    } else {
        row->DeleteAllChildren();
        for (IGCRow * const refused : made) {
            QVERIFY(!refused->parent);
            QVERIFY(!row->RemoveChild(refused));
            delete refused;
        }
    }
}

void tst_Rows::getLevel_countsAncestors()
{
    RowsOfAllClasses rows;
    auto * const child = new CGCOrdinaryRow(&rows.ordinary, rows.columns);
    QVERIFY(rows.ordinary.InsertChildAfter(child, GCI_LAST));
    auto * const grandchild = new CGCLonelySlimRow(child);
    QVERIFY(child->InsertChildAfter(grandchild, GCI_LAST));
    QCOMPARE(rows.ordinary.GetLevel(), 0);
    QCOMPARE(child->GetLevel(), 1);
    QCOMPARE(grandchild->GetLevel(), 2);
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

void tst_Rows::insertChildren_writesTheParent()
{
    RowsOfAllClasses rows;
    CGCOrdinaryRow wrong(nullptr, rows.columns);
    auto * const child = new CGCOrdinaryRow(&wrong, rows.columns);
    QVERIFY(rows.ordinary.InsertChildAfter(child, GCI_LAST));
    QVERIFY(child->parent == &rows.ordinary);
}

void tst_Rows::insertChildren_badPosition_failsAndStillShowsTheButton()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    CGCOrdinaryRow child(nullptr, rows.columns);
    CGCOrdinaryRow stranger(nullptr, rows.columns);
    QVERIFY(!rows.ordinary.InsertChildAfter(&child, stranger.Handle()));
    QVERIFY(!child.parent);
    QVERIFY(rows.ordinary.HasChildren(&wrapper));
    QCOMPARE(rows.ordinary.GetChildCount(&wrapper), 0);
    QVERIFY(!rows.ordinary.RemoveChild(&child));
    QVERIFY(rows.ordinary.HasChildren(&wrapper));
}

void tst_Rows::removeChild_last_collapsesAndRemovesTheButton()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    CGCOrdinaryRow first(nullptr, rows.columns);
    CGCOrdinaryRow second(nullptr, rows.columns);
    QVERIFY(rows.ordinary.InsertChildrenAfter({&first, &second}, GCI_LAST));
    QVERIFY(rows.ordinary.RemoveChild(&first));
    QVERIFY(rows.ordinary.IsExpanded());
    QVERIFY(rows.ordinary.HasChildren(&wrapper));
    QVERIFY(rows.ordinary.RemoveChild(&second));
    QVERIFY(!rows.ordinary.IsExpanded());
    QVERIFY(!rows.ordinary.HasChildren(&wrapper));
    QCOMPARE(rows.ordinary.GetChildCount(&wrapper), 0);
    QCOMPARE(rows.ordinary.ChildBytes(), std::size_t(0));
}

void tst_Rows::removeChild_ofAnother_isRefused()
{
    RowsOfAllClasses rows;
    CGCOrdinaryRow child(nullptr, rows.columns);
    QVERIFY(!rows.ordinary.RemoveChild(&child));
    QVERIFY(!rows.ordinary.RemoveChild(nullptr));
    QVERIFY(rows.section.InsertChildAfter(&child, GCI_LAST));
    QVERIFY(!rows.ordinary.RemoveChild(&child));
    QVERIFY(rows.section.RemoveChild(&child));
}

void tst_Rows::firstChild_afterLosingTheLast_findsItsParentClosed()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    CGCOrdinaryRow child(nullptr, rows.columns);
    QVERIFY(rows.ordinary.InsertChildAfter(&child, GCI_LAST));
    QVERIFY(rows.ordinary.RemoveChild(&child));
    QVERIFY(rows.ordinary.InsertChildAfter(&child, GCI_LAST));
    QVERIFY(!rows.ordinary.IsExpanded());
    QVERIFY(rows.ordinary.HasChildren(&wrapper));
    QVERIFY(rows.ordinary.RemoveChild(&child));
}

void tst_Rows::deleteChild_thatIsNoChild_deletesItAndAnswersFalse_data()
{
    QTest::addColumn<int>("rowClass");
    QTest::newRow("ordinary") << 0;
    QTest::newRow("section") << 1;
    QTest::newRow("lonely") << 3;
}

void tst_Rows::deleteChild_thatIsNoChild_deletesItAndAnswersFalse()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    int deaths = 0;
    QVERIFY(!rows.all()[std::size_t(rowClass)]->DeleteChild(new MortalRow(rows.columns, &deaths)));
    QCOMPARE(deaths, 1);
}

void tst_Rows::deleteChild_child_deletesIt()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    int deaths = 0;
    auto * const child = new MortalRow(rows.columns, &deaths);
    QVERIFY(child->InsertChildAfter(new MortalRow(rows.columns, &deaths), GCI_LAST));
    QVERIFY(rows.ordinary.InsertChildAfter(child, GCI_LAST));
    QVERIFY(rows.ordinary.DeleteChild(child));
    QCOMPARE(deaths, 2);
    QVERIFY(!rows.ordinary.HasChildren(&wrapper));
}

void tst_Rows::deleteChild_null_answersFalse()
{
    RowsOfAllClasses rows;
    for (IGCRow * const row : rows.all()) {
        QVERIFY(!row->DeleteChild(nullptr));
    }
}

void tst_Rows::deleteChild_ofSlimRow_deletesNothing()
{
    RowsOfAllClasses rows;
    int deaths = 0;
    MortalRow row(rows.columns, &deaths);
    QVERIFY(!rows.slim.DeleteChild(&row));
    QCOMPARE(deaths, 0);
}

void tst_Rows::deleteAllChildren_clearsBothBits()
{
    RowsOfAllClasses rows;
    int deaths = 0;
    rows.ordinary.DeleteAllChildren();
    QCOMPARE(unsigned(rows.ordinary.rowFlags), 0U);
    for (int i = 0; i < 3; ++i) {
        QVERIFY(rows.ordinary.InsertChildAfter(new MortalRow(rows.columns, &deaths), GCI_LAST));
    }
    rows.ordinary.ExpandRow(nullptr);
    rows.ordinary.DeleteAllChildren();
    QCOMPARE(deaths, 3);
    QCOMPARE(unsigned(rows.ordinary.rowFlags), 0U);
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

void tst_Rows::chainOfAMillionRows_isDeletedWithoutRecursion()
{
    int const depth = 1000000;
    ColumnSet const columns;
    auto * const top = new CGCOrdinaryRow(nullptr, columns);
    CGCOrdinaryRow * parent = top;
    for (int i = 1; i < depth; ++i) {
        auto * const child = new CGCOrdinaryRow(parent, columns);
        parent->InsertChildAfter(child, GCI_LAST);
        parent = child;
    }
    QCOMPARE(parent->GetLevel(), depth - 1);
    delete top;
}

ZENU_TEST(tst_Rows)
#include "tst_Rows.moc"
