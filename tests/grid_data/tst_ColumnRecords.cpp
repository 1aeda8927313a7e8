#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/columns/CGCColumnKinds.h"

using namespace zenu;
using namespace zenutest;

// Columns as they come and go, and what that does to the rows' items.
class tst_ColumnRecords : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void ids_riseFromZeroAndAreNotUsedAgain();
    void addColumn_unknownKind_createsNothing_data();
    void addColumn_unknownKind_createsNothing();
    void addColumn_kindWithoutItsBit_choosesTheClassAlone();
    void insertColumn_index_isAPositionOrTheLast_data();
    void insertColumn_index_isAPositionOrTheLast();
    void addColumn_afterRows_givesEachRowAFreshItem();
    void deleteColumn_closesBothGapsAndKeepsTheOtherItems();
    void setColumn_kind_keepsHandlePlaceTitleAndItems();
    void setColumn_kindAndBack_keepsAnOwnedText_data();
    void setColumn_kindAndBack_keepsAnOwnedText();
    void setColumn_kindOfSevenAndMore_isRefused_data();
    void setColumn_kindOfSevenAndMore_isRefused();
    void setColumn_otherKindThanText_losesTheEditFlags();
    void newRow_afterAChangeOfKind_hasTheFreshItemOfTheNewKind();
    void columns_badHandleOrRecord_answerTheFailureValue();
};

namespace {

// "id@order[item]" of all columns by id.
QString dump(TestGrid const & grid)
{
    QStringList all;
    for (CGCColumn const * const column : grid.GetPriv().columns.all()) {
        all << QStringLiteral("%1@%2[%3]")
                   .arg(column->id)
                   .arg(column->order)
                   .arg(column->itemIndex);
    }
    return all.join(u' ');
}

tag_HCOLUMN * handleOf(int id)
{
    return reinterpret_cast<tag_HCOLUMN *>(static_cast<long>(id));
}

GC_COLUMN recordOf(unsigned mask, int kind = GCCK_TEXT)
{
    GC_COLUMN record;
    record.mask = mask;
    record.kind = kind;
    return record;
}

} // namespace

void tst_ColumnRecords::ids_riseFromZeroAndAreNotUsedAgain()
{
    TestGrid grid;
    QVERIFY(grid.AddColumn("a", 0, 50) == handleOf(0));
    QVERIFY(grid.AddColumn("b", 0, 50) == handleOf(1));
    GC_COLUMN record;
    QVERIFY(grid.GetColumn(handleOf(0), &record));
    QVERIFY(!grid.GetColumn(GC_NOCOLUMN, &record));
    QVERIFY(grid.DeleteColumn(handleOf(1)));
    QVERIFY(!grid.GetColumn(handleOf(1), &record));
    QVERIFY(grid.AddColumn("c", 0, 50) == handleOf(2));
    QVERIFY(grid.Reset());
    QVERIFY(grid.AddColumn("d", 0, 50) == handleOf(0));
}

void tst_ColumnRecords::addColumn_unknownKind_createsNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("one past the last") << 8;
    QTest::newRow("below the first") << -1;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
}

void tst_ColumnRecords::addColumn_unknownKind_createsNothing()
{
    QFETCH(int, kind);
    TestGrid grid;
    GC_COLUMN const record = recordOf(GCCM_KIND, kind);
    QVERIFY(grid.AddColumn(&record) == GC_NOCOLUMN);
    QVERIFY(grid.InsertColumn(0, &record) == GC_NOCOLUMN);
    QVERIFY(grid.AddColumn(nullptr) == GC_NOCOLUMN);
    QCOMPARE(grid.GetColumnsCount(), 0);
    QVERIFY(grid.AddColumn("a", 0, 50) == handleOf(0)); // no id is used up
}

void tst_ColumnRecords::addColumn_kindWithoutItsBit_choosesTheClassAlone()
{
    TestGrid grid;
    GC_COLUMN record = recordOf(0, GCCK_CHECKBOX);
    tag_HCOLUMN * const column = grid.AddColumn(&record);
    QVERIFY(dynamic_cast<CGCCheckBoxColumn *>(grid.GetPriv().columns.find(column)));
    QVERIFY(grid.GetColumn(column, &record));
    QCOMPARE(record.kind, int(GCCK_TEXT));
}

void tst_ColumnRecords::insertColumn_index_isAPositionOrTheLast_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("columns");
    QTest::newRow("first") << 0 << "0@1[0] 1@2[1] 2@3[2] 3@0[3]";
    QTest::newRow("middle") << 1 << "0@0[0] 1@2[1] 2@3[2] 3@1[3]";
    QTest::newRow("last") << 3 << "0@0[0] 1@1[1] 2@2[2] 3@3[3]";
    QTest::newRow("the new count leaves a gap") << 4 << "0@0[0] 1@1[1] 2@2[2] 3@4[3]";
    QTest::newRow("past it, the last") << 5 << "0@0[0] 1@1[1] 2@2[2] 3@3[3]";
    QTest::newRow("append") << -1 << "0@0[0] 1@1[1] 2@2[2] 3@3[3]";
    QTest::newRow("far below") << std::numeric_limits<int>::min() << "0@0[0] 1@1[1] 2@2[2] 3@3[3]";
    QTest::newRow("far above") << std::numeric_limits<int>::max() << "0@0[0] 1@1[1] 2@2[2] 3@3[3]";
}

void tst_ColumnRecords::insertColumn_index_isAPositionOrTheLast()
{
    QFETCH(int, index);
    QFETCH(QString, columns);
    TestGrid grid;
    grid.addColumns({50, 50, 50});
    QVERIFY(grid.InsertColumn(index, "new", 2, 50) == handleOf(3));
    QCOMPARE(dump(grid), columns);
    QCOMPARE(checkGrid(grid), QString());
    GC_COLUMN record;
    QVERIFY(grid.GetColumn(handleOf(3), &record));
    QCOMPARE(record.format, 1); // the third argument is not read
}

void tst_ColumnRecords::addColumn_afterRows_givesEachRowAFreshItem()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("r");
    tag_HROW * const child = grid.add("c", row);
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_LAST);
    grid.Expand(row, GCE_COLLAPSE);
    tag_HCOLUMN * const column = grid.InsertColumn(0, "new", 0, 50);
    for (tag_HROW * const each : {row, child, section}) {
        auto * const cells = dynamic_cast<CGCOrdinaryRow *>(grid.GetPriv().LocateRow(each));
        QCOMPARE(cells->Items().size(), std::size_t(2));
        GridItem const & item = cells->Items()[1];
        QVERIFY(!item.text);
        QCOMPARE(unsigned(item.flags), 0U);
        QCOMPARE(item.textColor(), GC_UNSETCOLOR);
    }
    QCOMPARE(grid.GetItemText(child, column), std::string());
    QCOMPARE(grid.GetItemText(child, handleOf(0)), std::string("c"));
    QCOMPARE(checkGrid(grid), QString());
}

void tst_ColumnRecords::deleteColumn_closesBothGapsAndKeepsTheOtherItems()
{
    TestGrid grid;
    grid.addColumns({50, 50, 50, 50});
    tag_HROW * const row = grid.add("r");
    tag_HROW * const child = grid.add("c", row);
    for (int id = 0; id < 4; ++id) {
        for (tag_HROW * const each : {row, child}) {
            grid.SetItemText(each, handleOf(id), QByteArray::number(id).constData());
        }
    }
    QVERIFY(grid.DeleteColumn(handleOf(1)));
    QCOMPARE(dump(grid), QStringLiteral("0@0[0] 2@1[1] 3@2[2]"));
    QVERIFY(grid.DeleteColumn(handleOf(0)));
    QCOMPARE(dump(grid), QStringLiteral("2@0[0] 3@1[1]"));
    for (tag_HROW * const each : {row, child}) {
        QCOMPARE(grid.GetItemText(each, handleOf(2)), std::string("2"));
        QCOMPARE(grid.GetItemText(each, handleOf(3)), std::string("3"));
    }
    QCOMPARE(checkGrid(grid), QString());
}

void tst_ColumnRecords::setColumn_kind_keepsHandlePlaceTitleAndItems()
{
    TestGrid grid;
    grid.addColumns({50, 60, 70});
    tag_HROW * const row = grid.add("r");
    grid.SetItemText(row, handleOf(1), "mine");
    GC_COLUMN change = recordOf(GCCM_KIND, GCCK_CHECKBOX);
    QVERIFY(grid.SetColumn(handleOf(1), &change));
    QVERIFY(dynamic_cast<CGCCheckBoxColumn *>(grid.GetPriv().columns.find(handleOf(1))));
    QCOMPARE(dump(grid), QStringLiteral("0@0[0] 1@1[1] 2@2[2]"));
    char title[8] = "";
    GC_COLUMN record = recordOf(GCCM_TEXT);
    record.text = title;
    record.textMax = sizeof title;
    QVERIFY(grid.GetColumn(handleOf(1), &record));
    QCOMPARE(title, "C1");
    QCOMPARE(record.kind, int(GCCK_CHECKBOX));
    QCOMPARE(record.width, 60);
    QCOMPARE(grid.GetItemText(row, handleOf(1)), std::string("mine"));
    QCOMPARE(checkGrid(grid), QString());
}

void tst_ColumnRecords::setColumn_kindAndBack_keepsAnOwnedText_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("icon") << int(GCCK_ICON);
    QTest::newRow("list box") << int(GCCK_LISTBOX);
}

void tst_ColumnRecords::setColumn_kindAndBack_keepsAnOwnedText()
{
    QFETCH(int, kind);
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("mine");
    GC_COLUMN change = recordOf(GCCM_KIND, kind);
    QVERIFY(grid.SetColumn(handleOf(0), &change));
    QCOMPARE(grid.GetItemText(row, handleOf(0)), std::string());
    GC_ITEM item;
    item.mask = GCIM_IMAGE | GCIM_VALUE;
    item.image = 0x1f; // would be all the flags of an item
    item.value = 0x1f;
    QVERIFY(grid.SetItem(row, handleOf(0), &item));
    change.kind = GCCK_TEXT;
    QVERIFY(grid.SetColumn(handleOf(0), &change));
    GC_ITEM read;
    QVERIFY(grid.GetItem(row, handleOf(0), &read));
    QCOMPARE(read.state, 0U);
    QCOMPARE(grid.GetItemText(row, handleOf(0)), std::string("mine"));
}

void tst_ColumnRecords::setColumn_kindOfSevenAndMore_isRefused_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("check box with icon") << int(GCCK_CHECKBOXWITHICON);
    QTest::newRow("unknown") << 8;
    QTest::newRow("below the first") << -1;
}

void tst_ColumnRecords::setColumn_kindOfSevenAndMore_isRefused()
{
    QFETCH(int, kind);
    TestGrid grid;
    grid.addColumns({50});
    GC_COLUMN change = recordOf(GCCM_KIND | GCCM_WIDTH | GCCM_FORMAT, kind);
    change.width = 90;
    change.format = 2;
    QVERIFY(!grid.SetColumn(handleOf(0), &change));
    GC_COLUMN record;
    QVERIFY(grid.GetColumn(handleOf(0), &record));
    QCOMPARE(record.kind, int(GCCK_TEXT));
    QCOMPARE(record.width, 90); // taken before
    QCOMPARE(record.format, 0);
    QVERIFY(grid.AddColumn(&change) != GC_NOCOLUMN || kind != GCCK_CHECKBOXWITHICON);
}

void tst_ColumnRecords::setColumn_otherKindThanText_losesTheEditFlags()
{
    TestGrid grid;
    tag_HCOLUMN * const column = grid.addKind(GCCK_TEXT, 50, 0x4802 | GCCF_TREE);
    GC_COLUMN record;
    QVERIFY(grid.SetColumnWidth(column, 70));
    QVERIFY(grid.GetColumn(column, &record));
    QCOMPARE(record.flags, 0x4802U | GCCF_TREE);
    GC_COLUMN change = recordOf(GCCM_KIND, GCCK_ICON);
    QVERIFY(grid.SetColumn(column, &change));
    QVERIFY(grid.GetColumn(column, &record));
    QCOMPARE(record.flags, unsigned(GCCF_TREE));
    tag_HCOLUMN * const icon = grid.addKind(GCCK_ICON, 50, 0x4802);
    QVERIFY(grid.GetColumn(icon, &record));
    QCOMPARE(record.flags, 0U);
}

void tst_ColumnRecords::newRow_afterAChangeOfKind_hasTheFreshItemOfTheNewKind()
{
    TestGrid grid;
    grid.addColumns({50});
    GC_COLUMN change = recordOf(GCCM_KIND, GCCK_LISTBOX);
    QVERIFY(grid.SetColumn(handleOf(0), &change));
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    auto * const cells = dynamic_cast<CGCOrdinaryRow *>(grid.GetPriv().LocateRow(row));
    QCOMPARE(cells->Items()[0].textColor(), 0U); // black, not the default
    QCOMPARE(cells->Items()[0].listIndex(), -1);
}

void tst_ColumnRecords::columns_badHandleOrRecord_answerTheFailureValue()
{
    TestGrid grid;
    grid.addColumns({50});
    GC_COLUMN record = recordOf(~0U & ~unsigned(GCCM_TEXT));
    for (tag_HCOLUMN * const bad : {GC_NOCOLUMN, handleOf(1), handleOf(-7)}) {
        QVERIFY(!grid.GetColumn(bad, &record));
        QVERIFY(!grid.SetColumn(bad, &record));
        QVERIFY(!grid.DeleteColumn(bad));
        QCOMPARE(grid.GetColumnWidth(bad), 0);
        QVERIFY(!grid.SetColumnWidth(bad, 5));
    }
    QVERIFY(!grid.GetColumn(handleOf(0), nullptr));
    QVERIFY(!grid.SetColumn(handleOf(0), nullptr));
    QCOMPARE(grid.GetColumnsCount(), 1);
}

ZENU_TEST(tst_ColumnRecords)
#include "tst_ColumnRecords.moc"
