#include "tests/grid_model/ModelFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

class tst_ColumnSet : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void newSet_isEmpty();
    void find_byIdAndHandle_answersTheColumn();
    void find_unknown_isNull_data();
    void find_unknown_isNull();
    void take_middle_closesTheGap();
    void take_unknown_isNull();
    void replace_keepsPlaceAndTakesFreshItemOfNewKind();
    void add_afterTake_goesOn();
    void clear_forgetsAll();
};

namespace {

// "id:itemIndex" of each column in item order, with the colour of its fresh item.
QByteArray dump(ColumnSet const & columns)
{
    QByteArray all;
    for (CGCColumn const * const column : columns.all()) {
        all += QByteArray::number(column->id) + ":" + QByteArray::number(column->itemIndex) + " ";
    }
    return all;
}

} // namespace

void tst_ColumnSet::newSet_isEmpty()
{
    ColumnSet const columns;
    QCOMPARE(columns.count(), 0);
    QVERIFY(columns.all().empty());
    QVERIFY(columns.freshItems().empty());
    QVERIFY(!columns.find(0));
}

void tst_ColumnSet::find_byIdAndHandle_answersTheColumn()
{
    ColumnSet columns;
    addAllKinds(columns);
    QCOMPARE(columns.count(), kindCount);
    for (int id = 0; id < kindCount; ++id) {
        QCOMPARE(columns.find(id)->id, id);
        QVERIFY(columns.find(columnHandle(id)) == columns.find(id));
        QVERIFY(columns.all()[std::size_t(id)] == columns.find(id));
    }
}

void tst_ColumnSet::find_unknown_isNull_data()
{
    QTest::addColumn<qlonglong>("handle");
    QTest::newRow("no column") << -1LL;
    QTest::newRow("past the last") << 8LL;
    QTest::newRow("an id cut to 32 bits") << 0x100000000LL;
    QTest::newRow("negative") << -0x100000000LL;
}

void tst_ColumnSet::find_unknown_isNull()
{
    QFETCH(qlonglong, handle);
    ColumnSet columns;
    addAllKinds(columns);
    QVERIFY(!columns.find(reinterpret_cast<tag_HCOLUMN *>(static_cast<long>(handle))));
}

void tst_ColumnSet::take_middle_closesTheGap()
{
    ColumnSet columns;
    addAllKinds(columns);
    std::unique_ptr<CGCColumn> const taken = columns.take(GCCK_OWNERDRAW);
    QCOMPARE(taken->id, int(GCCK_OWNERDRAW));
    QVERIFY(!columns.find(GCCK_OWNERDRAW));
    QCOMPARE(dump(columns), QByteArray("0:0 1:1 2:2 4:3 5:4 6:5 7:6 "));
    // The fresh items move along: only a list item is black.
    QCOMPARE(columns.freshItems().size(), std::size_t(7));
    QCOMPARE(columns.freshItems()[4].textColor(), 0U);
    QCOMPARE(columns.freshItems()[5].textColor(), GC_UNSETCOLOR);
}

void tst_ColumnSet::take_unknown_isNull()
{
    ColumnSet columns;
    QVERIFY(!columns.take(0));
    addAllKinds(columns);
    QVERIFY(!columns.take(-1));
    QVERIFY(!columns.take(8));
    QCOMPARE(columns.count(), kindCount);
}

void tst_ColumnSet::replace_keepsPlaceAndTakesFreshItemOfNewKind()
{
    ColumnSet columns;
    addAllKinds(columns);
    QByteArray const before = dump(columns);
    CGCColumn * const list =
        columns.replace(makeColumnFrom(GCCK_LISTBOX, *columns.find(GCCK_ICON)));
    QVERIFY(columns.find(GCCK_ICON) == list);
    QVERIFY(columns.all()[GCCK_ICON] == list);
    QVERIFY(dynamic_cast<CGCListBoxColumn *>(list));
    QCOMPARE(dump(columns), before);
    QCOMPARE(columns.freshItems()[GCCK_ICON].textColor(), 0U);
}

void tst_ColumnSet::add_afterTake_goesOn()
{
    ColumnSet columns;
    addAllKinds(columns);
    columns.take(0);
    CGCColumn * const added = columns.add(makeColumn(GCCK_LISTBOX, 20, columns.count()));
    QVERIFY(columns.find(20) == added);
    QCOMPARE(dump(columns), QByteArray("1:0 2:1 3:2 4:3 5:4 6:5 7:6 20:7 "));
}

void tst_ColumnSet::clear_forgetsAll()
{
    ColumnSet columns;
    addAllKinds(columns);
    columns.clear();
    QCOMPARE(columns.count(), 0);
    QVERIFY(!columns.find(0));
    QVERIFY(columns.freshItems().empty());
}

ZENU_TEST(tst_ColumnSet)
#include "tst_ColumnSet.moc"
