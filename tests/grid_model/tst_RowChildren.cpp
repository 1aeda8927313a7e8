#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/rows/CollectRows.h"

using namespace zenu;
using namespace zenutest;

class tst_RowChildren : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void insert_anyClass_answersAsTheClassDoes_data();
    void insert_anyClass_answersAsTheClassDoes();
    void getLevel_countsAncestors();
    void insertChildren_atEitherEnd_afterAndBeforeAreTheSame_data();
    void insertChildren_atEitherEnd_afterAndBeforeAreTheSame();
    void insertChildren_writesTheParent();
    void insertChild_asksForTheInsertionOfOneRow();
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
    void chainOfAMillionRows_isDeletedWithoutRecursion();
    void collectRows_ofATree_parentsFirst();
    void collectRows_ofAReset_loadsItAgain();
};

namespace {

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

} // namespace

void tst_RowChildren::insert_anyClass_answersAsTheClassDoes_data()
{
    addRowClasses();
}

void tst_RowChildren::insert_anyClass_answersAsTheClassDoes()
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
    QCOMPARE(row->InsertChildrenAfter({&made[2], 1}, made[0]->Handle()), takes);
    QCOMPARE(row->InsertChildrenBefore({&made[3], 1}, GCI_FIRST), takes);
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

void tst_RowChildren::getLevel_countsAncestors()
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

void tst_RowChildren::insertChildren_atEitherEnd_afterAndBeforeAreTheSame_data()
{
    QTest::addColumn<bool>("after");
    QTest::addColumn<bool>("atFirst");
    QTest::addColumn<QByteArray>("order");
    QTest::newRow("after, first") << true << true << QByteArray("1 2 0 ");
    QTest::newRow("before, first") << false << true << QByteArray("1 2 0 ");
    QTest::newRow("after, last") << true << false << QByteArray("0 1 2 ");
    QTest::newRow("before, last") << false << false << QByteArray("0 1 2 ");
}

void tst_RowChildren::insertChildren_atEitherEnd_afterAndBeforeAreTheSame()
{
    QFETCH(bool, after);
    QFETCH(bool, atFirst);
    QFETCH(QByteArray, order);
    RowsOfAllClasses rows;
    std::vector<IGCRow *> made;
    for (unsigned long i = 0; i < 3; ++i) {
        made.push_back(new CGCLonelySlimRow(nullptr));
        made.back()->param = i;
    }
    QVERIFY(rows.ordinary.InsertChildAfter(made[0], GCI_LAST));
    std::span<IGCRow * const> const two(&made[1], 2);
    tag_HROW * const position = atFirst ? GCI_FIRST : GCI_LAST;
    QVERIFY(after ? rows.ordinary.InsertChildrenAfter(two, position)
                  : rows.ordinary.InsertChildrenBefore(two, position));
    QByteArray found;
    for (int i = 0; i < 3; ++i) {
        found += QByteArray::number(qulonglong(rows.ordinary.GetChild(i)->param)) + " ";
    }
    QCOMPARE(found, order);
}

void tst_RowChildren::insertChild_asksForTheInsertionOfOneRow()
{
    class Refusing : public CGCOrdinaryRow
    {
    public:
        using CGCOrdinaryRow::CGCOrdinaryRow;
        bool InsertChildren(std::span<IGCRow * const> rows, tag_HROW *, bool after) override
        {
            asked += QByteArray::number(int(rows.size())) + (after ? "after " : "before ");
            return false;
        }
        QByteArray asked;
    };
    RowsOfAllClasses rows;
    Refusing parent(nullptr, rows.columns);
    QVERIFY(!parent.InsertChildAfter(&rows.slim, GCI_LAST));
    QVERIFY(!parent.InsertChildBefore(&rows.slim, GCI_LAST));
    QCOMPARE(parent.asked, QByteArray("1after 1before "));
}

void tst_RowChildren::insertChildren_writesTheParent()
{
    RowsOfAllClasses rows;
    CGCOrdinaryRow wrong(nullptr, rows.columns);
    auto * const child = new CGCOrdinaryRow(&wrong, rows.columns);
    QVERIFY(rows.ordinary.InsertChildAfter(child, GCI_LAST));
    QVERIFY(child->parent == &rows.ordinary);
}

void tst_RowChildren::insertChildren_badPosition_failsAndStillShowsTheButton()
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

void tst_RowChildren::removeChild_last_collapsesAndRemovesTheButton()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    CGCOrdinaryRow first(nullptr, rows.columns);
    CGCOrdinaryRow second(nullptr, rows.columns);
    QVERIFY(rows.ordinary.InsertChildrenAfter(std::vector<IGCRow *>{&first, &second}, GCI_LAST));
    QVERIFY(rows.ordinary.RemoveChild(&first));
    QVERIFY(rows.ordinary.IsExpanded());
    QVERIFY(rows.ordinary.HasChildren(&wrapper));
    QVERIFY(rows.ordinary.RemoveChild(&second));
    QVERIFY(!rows.ordinary.IsExpanded());
    QVERIFY(!rows.ordinary.HasChildren(&wrapper));
    QCOMPARE(rows.ordinary.GetChildCount(&wrapper), 0);
    QCOMPARE(rows.ordinary.ChildBytes(), std::size_t(0));
}

void tst_RowChildren::removeChild_ofAnother_isRefused()
{
    RowsOfAllClasses rows;
    CGCOrdinaryRow child(nullptr, rows.columns);
    QVERIFY(!rows.ordinary.RemoveChild(&child));
    QVERIFY(!rows.ordinary.RemoveChild(nullptr));
    QVERIFY(rows.section.InsertChildAfter(&child, GCI_LAST));
    QVERIFY(!rows.ordinary.RemoveChild(&child));
    QVERIFY(rows.section.RemoveChild(&child));
}

void tst_RowChildren::firstChild_afterLosingTheLast_findsItsParentClosed()
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

void tst_RowChildren::deleteChild_thatIsNoChild_deletesItAndAnswersFalse_data()
{
    QTest::addColumn<int>("rowClass");
    QTest::newRow("ordinary") << 0;
    QTest::newRow("section") << 1;
    QTest::newRow("lonely") << 3;
}

void tst_RowChildren::deleteChild_thatIsNoChild_deletesItAndAnswersFalse()
{
    QFETCH(int, rowClass);
    RowsOfAllClasses rows;
    int deaths = 0;
    QVERIFY(!rows.all()[std::size_t(rowClass)]->DeleteChild(new MortalRow(rows.columns, &deaths)));
    QCOMPARE(deaths, 1);
}

void tst_RowChildren::deleteChild_child_deletesIt()
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

void tst_RowChildren::deleteChild_null_answersFalse()
{
    RowsOfAllClasses rows;
    for (IGCRow * const row : rows.all()) {
        QVERIFY(!row->DeleteChild(nullptr));
    }
}

void tst_RowChildren::deleteChild_ofSlimRow_deletesNothing()
{
    RowsOfAllClasses rows;
    int deaths = 0;
    MortalRow row(rows.columns, &deaths);
    QVERIFY(!rows.slim.DeleteChild(&row));
    QCOMPARE(deaths, 0);
}

void tst_RowChildren::deleteAllChildren_clearsBothBits()
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

void tst_RowChildren::chainOfAMillionRows_isDeletedWithoutRecursion()
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

void tst_RowChildren::collectRows_ofATree_parentsFirst()
{
    RowsOfAllClasses rows;
    FakeWrapper wrapper;
    auto * const child = new CGCOrdinaryRow(nullptr, rows.columns);
    auto * const grandchild = new CGCLonelySlimRow(nullptr);
    auto * const last = new CGCSlimRow(nullptr);
    QVERIFY(rows.ordinary.InsertChildAfter(child, GCI_LAST));
    QVERIFY(child->InsertChildAfter(grandchild, GCI_LAST));
    QVERIFY(rows.ordinary.InsertChildAfter(last, GCI_LAST));
    wrapper.hasSubRows = true;
    wrapper.subRowCount = 2;
    std::array<IGCRow *, 2> const top{&rows.ordinary, &rows.section};
    std::vector<IGCRow *> found{&rows.lonely};
    collectRows(RowSpan(top.data(), 2), &wrapper, found);
    QCOMPARE(found, (std::vector<IGCRow *>{&rows.lonely, &rows.ordinary, child, grandchild, last,
                                           &rows.section}));
    QCOMPARE(wrapper.loads, 0); // a closed slim row is not opened
    collectRows(RowSpan(), &wrapper, found);
    QCOMPARE(found.size(), std::size_t(6));
}

void tst_RowChildren::collectRows_ofAReset_loadsItAgain()
{
    CGCSlimRow row(nullptr);
    FakeWrapper wrapper;
    wrapper.subRowCount = 2;
    row.ExpandRow(&wrapper);
    row.DropChildren();
    IGCRow * const top = &row;
    std::vector<IGCRow *> found;
    collectRows(RowSpan(&top, 1), &wrapper, found);
    QCOMPARE(found, (std::vector<IGCRow *>{&row, row.GetChild(0), row.GetChild(1)}));
}

ZENU_TEST(tst_RowChildren)
#include "tst_RowChildren.moc"
