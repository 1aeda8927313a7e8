#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::columnIdOf;
using zenutest::columnOrder;
using zenutest::columnRecord;
using zenutest::headerItems;
using zenutest::shownColumns;
using zenutest::TestGrid;

class tst_GridColumns : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void firstHandle_isZero_andMinusOneIsNone();
    void add_badKind_createsNothing();
    void add_ofATitle_isATextColumn();
    void insert_ofATitle_readsNoFormat();
    void iconColumn_losesTheEditBits_aTextColumnKeepsThem_data();
    void iconColumn_losesTheEditBits_aTextColumnKeepsThem();
    void insert_position_data();
    void insert_position();
    void insert_indexOfTheCount_leavesAHarmlessGap();
    void insert_givesEachRowAFreshItem();
    void get_fillsAllButTheTextWithoutItsBit();
    void get_shortBuffer_isFilledAsFarAsItGoes();
    void listItems_haveNoEffect();
    void unknownIds_failQuietly_data();
    void unknownIds_failQuietly();
    void reset_startsIdsAnew();
};

void tst_GridColumns::firstHandle_isZero_andMinusOneIsNone()
{
    TestGrid grid;
    QCOMPARE(columnIdOf(grid.AddColumn("a", 0, 10)), 0);
    QCOMPARE(columnIdOf(grid.AddColumn("b", 0, 10)), 1);
    GC_COLUMN record;
    QVERIFY(grid.GetColumn(columnHandle(0), &record));
    QVERIFY(!grid.GetColumn(GC_NOCOLUMN, &record));
    QVERIFY(grid.DeleteColumn(columnHandle(1)));
    QCOMPARE(columnIdOf(grid.AddColumn("c", 0, 10)), 2); // ids only rise
}

void tst_GridColumns::add_badKind_createsNothing()
{
    TestGrid grid;
    GC_COLUMN record;
    record.mask = GCCM_KIND;
    for (int const kind : {8, 9, -1, INT_MAX, INT_MIN}) {
        record.kind = kind;
        QCOMPARE(grid.AddColumn(&record), GC_NOCOLUMN);
        QCOMPARE(grid.InsertColumn(0, &record), GC_NOCOLUMN);
    }
    QCOMPARE(grid.GetColumnsCount(), 0);
    QCOMPARE(grid.getHeader()->getItemsCount(), 0);
    record.kind = GCCK_CHECKBOXWITHICON;
    QCOMPARE(columnIdOf(grid.AddColumn(&record)), 0);
    // The kind is taken whatever the mask says.
    record.mask = 0;
    record.kind = 8;
    QCOMPARE(grid.AddColumn(&record), GC_NOCOLUMN);
    QCOMPARE(grid.AddColumn(static_cast<GC_COLUMN const *>(nullptr)), GC_NOCOLUMN);
}

void tst_GridColumns::add_ofATitle_isATextColumn()
{
    TestGrid grid;
    grid.AddColumn("title", 2, 33);
    char buffer[20];
    GC_COLUMN record;
    record.mask = GCCM_TEXT;
    record.text = buffer;
    record.textMax = sizeof buffer;
    QVERIFY(grid.GetColumn(columnHandle(0), &record));
    QCOMPARE(QByteArray(buffer), QByteArray("title"));
    QCOMPARE(record.format, 2);
    QCOMPARE(record.width, 33);
    QCOMPARE(record.kind, int(GCCK_TEXT));
    QCOMPARE(record.order, 0);
    grid.AddColumn(nullptr, 0, 10);
    QCOMPARE(grid.getHeader()->getItem(1)->getText(), std::string());
}

void tst_GridColumns::insert_ofATitle_readsNoFormat()
{
    TestGrid grid;
    grid.InsertColumn(0, "title", 4, 33);
    QCOMPARE(columnRecord(grid, 0).format, 1);
}

void tst_GridColumns::iconColumn_losesTheEditBits_aTextColumnKeepsThem_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("keeps");
    QTest::newRow("text") << int(GCCK_TEXT) << true;
    QTest::newRow("text with icon") << int(GCCK_TEXTWITHICON) << true;
    QTest::newRow("icon") << int(GCCK_ICON) << false;
    QTest::newRow("owner draw") << int(GCCK_OWNERDRAW) << false;
    QTest::newRow("check box") << int(GCCK_CHECKBOX) << false;
    QTest::newRow("list box") << int(GCCK_LISTBOX) << true;
    QTest::newRow("combo box") << int(GCCK_COMBOBOX) << true;
    QTest::newRow("check box with icon") << int(GCCK_CHECKBOXWITHICON) << false;
}

void tst_GridColumns::iconColumn_losesTheEditBits_aTextColumnKeepsThem()
{
    QFETCH(int, kind);
    QFETCH(bool, keeps);
    TestGrid grid;
    tag_HCOLUMN * const column = grid.addKind(kind, 10, 0x4802 | GCCF_TREE);
    QCOMPARE(columnRecord(grid, 0).flags, keeps ? 0x4802u | GCCF_TREE : unsigned(GCCF_TREE));
    GC_COLUMN record;
    record.mask = GCCM_WIDTH;
    record.width = 77;
    QVERIFY(grid.SetColumn(column, &record));
    QCOMPARE(columnRecord(grid, 0).flags, keeps ? 0x4802u | GCCF_TREE : unsigned(GCCF_TREE));
    record.mask = GCCM_FLAGS;
    record.flags = 0x4802;
    QVERIFY(grid.SetColumn(column, &record));
    QCOMPARE(columnRecord(grid, 0).flags, keeps ? 0x4802u : 0u);
}

void tst_GridColumns::insert_position_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("order");
    QTest::newRow("-1 is last") << -1 << "0 1 2 3";
    QTest::newRow("first") << 0 << "3 0 1 2";
    QTest::newRow("inside") << 2 << "0 1 3 2";
    QTest::newRow("one too large") << 5 << "0 1 2 3";
    QTest::newRow("huge") << INT_MAX << "0 1 2 3";
    QTest::newRow("very negative") << INT_MIN << "0 1 2 3";
}

void tst_GridColumns::insert_position()
{
    QFETCH(int, index);
    QFETCH(QString, order);
    TestGrid grid;
    grid.addColumns({10, 20, 30});
    grid.addMany(2);
    grid.InsertColumn(index, "new", 0, 40);
    QCOMPARE(columnOrder(grid), order);
    QCOMPARE(headerItems(grid).count(u':'), 4);
    QStringList ids;
    for (QString const & item : headerItems(grid).split(u' ')) {
        ids << item.section(u':', 0, 0);
    }
    QCOMPARE(ids.join(u' '), order);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridColumns::insert_indexOfTheCount_leavesAHarmlessGap()
{
    TestGrid grid;
    grid.addColumns({10, 20});
    grid.InsertColumn(3, "new", 0, 40); // there are three with it
    QCOMPARE(columnRecord(grid, 2).order, 3);
    QCOMPARE(columnOrder(grid), QStringLiteral("0 1 2"));
    QCOMPARE(shownColumns(grid), QStringLiteral("0:10@0 1:20@10 2:40@30"));
    grid.AddColumn("last", 0, 5); // stands at 3 as well, and so before the other
    QCOMPARE(columnRecord(grid, 2).order, 4);
    QCOMPARE(columnOrder(grid), QStringLiteral("0 1 3 2"));
    QVERIFY(grid.DeleteColumn(columnHandle(2)));
    QVERIFY(grid.DeleteColumn(columnHandle(0)));
    QCOMPARE(shownColumns(grid), QStringLiteral("1:20@0 3:5@20"));
}

void tst_GridColumns::insert_givesEachRowAFreshItem()
{
    TestGrid grid;
    grid.addColumns({10});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_LAST);
    grid.Expand(parent, GCE_COLLAPSE);
    tag_HCOLUMN * const column = grid.InsertColumn(0, "new", 0, 10);
    QCOMPARE(zenutest::checkGrid(grid), QString());
    for (tag_HROW * const row : {parent, child}) {
        QCOMPARE(grid.GetItemText(row, column), std::string());
        GC_ITEM item;
        QVERIFY(grid.GetItem(row, column, &item));
        QCOMPARE(item.textColor.rgb(), 0xff000000u);
        QVERIFY(grid.SetItemText(row, column, "x"));
        QCOMPARE(grid.GetItemText(row, column), std::string("x"));
    }
    QCOMPARE(grid.name(child), QStringLiteral("c"));
    QVERIFY(section);
}

void tst_GridColumns::get_fillsAllButTheTextWithoutItsBit()
{
    TestGrid grid;
    grid.AddColumn("title", 4, 33);
    char buffer[20] = "untouched";
    GC_COLUMN record;
    record.text = buffer;
    record.textMax = sizeof buffer;
    QVERIFY(grid.GetColumn(columnHandle(0), &record));
    QCOMPARE(QByteArray(buffer), QByteArray("untouched"));
    QCOMPARE(record.width, 33);
    QVERIFY(!grid.GetColumn(columnHandle(0), nullptr));
}

void tst_GridColumns::get_shortBuffer_isFilledAsFarAsItGoes()
{
    TestGrid grid;
    grid.AddColumn("title", 4, 33);
    char buffer[8] = "zzzzzzz";
    GC_COLUMN record;
    record.mask = GCCM_TEXT;
    record.text = buffer;
    record.textMax = 3;
    QVERIFY(grid.GetColumn(columnHandle(0), &record));
    QCOMPARE(QByteArray(buffer), QByteArray("titzzzz"));
    for (int const size : {0, -1}) {
        record.textMax = size;
        QVERIFY(grid.GetColumn(columnHandle(0), &record));
        QCOMPARE(QByteArray(buffer), QByteArray("titzzzz"));
    }
    record.text = nullptr;
    record.textMax = 10;
    QVERIFY(grid.GetColumn(columnHandle(0), &record));
}

void tst_GridColumns::listItems_haveNoEffect()
{
    TestGrid grid;
    char choices[] = "red;green;";
    GC_COLUMN record;
    record.mask = GCCM_KIND | GCCM_LISTITEMS | GCCM_WIDTH;
    record.kind = GCCK_LISTBOX;
    record.listItems = choices;
    record.width = 50;
    tag_HCOLUMN * const column = grid.AddColumn(&record);
    QVERIFY(grid.SetColumn(column, &record));
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = const_cast<char *>("red");
    QVERIFY(!grid.SetItem(row, column, &item));
    QCOMPARE(grid.GetItemText(row, column), std::string());
}

void tst_GridColumns::unknownIds_failQuietly_data()
{
    QTest::addColumn<qlonglong>("value");
    QTest::newRow("none") << qlonglong(-1);
    QTest::newRow("never given out") << qlonglong(77);
    QTest::newRow("deleted") << qlonglong(0);
    QTest::newRow("beyond an int") << qlonglong(0x100000001);
    QTest::newRow("very negative") << qlonglong(LLONG_MIN);
}

void tst_GridColumns::unknownIds_failQuietly()
{
    QFETCH(qlonglong, value);
    TestGrid grid;
    grid.addColumns({10, 20});
    grid.DeleteColumn(columnHandle(0));
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    auto * const column = reinterpret_cast<tag_HCOLUMN *>(static_cast<qintptr>(value));
    GC_COLUMN record;
    record.mask = 0x3f;
    record.width = 1234;
    QVERIFY(!grid.GetColumn(column, &record));
    QCOMPARE(record.width, 1234);
    QVERIFY(!grid.SetColumn(column, &record));
    QVERIFY(!grid.DeleteColumn(column));
    QCOMPARE(grid.GetColumnWidth(column), 0);
    QVERIFY(!grid.SetColumnWidth(column, 5));
    QCOMPARE(grid.BestFit(column), 0);
    grid.ShowColumn(column, false);
    QCOMPARE(grid.Column2HeaderItem(column), -1);
    grid.InvalidateColumn(column);
    grid.SetFocusedColumn(column);
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    GC_ITEM item;
    item.mask = 0xffff;
    QVERIFY(!grid.GetItem(row, column, &item));
    QVERIFY(!grid.SetItem(row, column, &item));
    QCOMPARE(grid.GetItemText(row, column), std::string());
    QCOMPARE(grid.GetItemTextLen(row, column), 0);
    QVERIFY(!grid.SetItemText(row, column, "x"));
    QRect rect;
    QVERIFY(!grid.GetItemRect(row, column, &rect));
    QVERIFY(!grid.GetItemEditorRect(row, column, &rect));
    grid.InvalidateItem(row, column);
    grid.EnsureVisible(nullptr, column);
    grid.Sort(column, true);
    QCOMPARE(grid.GetExpandedCount(), 1u);
    for (int const index : {-1, 1, 99, INT_MAX, INT_MIN}) {
        QCOMPARE(grid.HeaderItem2Column(index), GC_NOCOLUMN);
    }
    QCOMPARE(shownColumns(grid), QStringLiteral("1:20@0"));
}

void tst_GridColumns::reset_startsIdsAnew()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20});
    grid.addMany(3);
    grid.SetFocusedColumn(columns[1]);
    QVERIFY(grid.Reset());
    QCOMPARE(grid.GetColumnsCount(), 0);
    QCOMPARE(grid.GetRowCount(), 0u);
    QCOMPARE(grid.getHeader()->getItemsCount(), 0);
    QCOMPARE(grid.contentsWidth(), 0);
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    QCOMPARE(grid.AddColumn("new", 0, 30), columns[0]); // a stale handle names a new column
    QCOMPARE(grid.GetColumnWidth(columns[0]), 30);
    QVERIFY(!grid.GetColumnWidth(columns[1]));
}

ZENU_TEST(tst_GridColumns)
#include "tst_GridColumns.moc"
