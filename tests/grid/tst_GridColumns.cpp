#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/grid/rows/CGCSection.h"

#include <climits>

using namespace zenu;
using zenutest::TestGrid;

namespace {

tag_HCOLUMN * handle(int id)
{
    return reinterpret_cast<tag_HCOLUMN *>(static_cast<qintptr>(id));
}

int idOf(tag_HCOLUMN * column)
{
    return static_cast<int>(reinterpret_cast<qintptr>(column));
}

// Ids by display order, hidden columns included.
QString columnOrder(TestGrid const & grid)
{
    std::vector<tag_HCOLUMN *> ids(static_cast<std::size_t>(grid.GetColumnsCount()));
    QStringList list;
    if (grid.GetColumnOrderArray(ids.data(), grid.GetColumnsCount())) {
        for (tag_HCOLUMN * const id : ids) {
            list << QString::number(idOf(id));
        }
    }
    return list.join(u' ');
}

// "id:width@left" of the header's items and the shown columns, which go together.
QString shown(TestGrid const & grid)
{
    QStringList list;
    for (CGCColumn const * const column : grid.GetPriv().shownColumns) {
        list << QStringLiteral("%1:%2@%3").arg(column->id).arg(column->width).arg(column->left);
    }
    return list.join(u' ');
}

QString header(TestGrid const & grid)
{
    QStringList list;
    for (int i = 0; i < grid.getHeader()->getItemsCount(); ++i) {
        KHeaderItem const * const item = grid.getHeader()->getItem(i);
        list << QStringLiteral("%1:%2").arg(item->getLParam()).arg(item->getWH());
    }
    return list.join(u' ');
}

GC_COLUMN columnOf(TestGrid const & grid, int id)
{
    GC_COLUMN record;
    grid.GetColumn(handle(id), &record);
    return record;
}

} // namespace

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
    void hidden_hasNoHeaderItem();
    void allHidden_contentsWidthIsZero();
    void showColumn_asItIs_doesNothing();
    void setColumn_hiddenFlag_waitsForTheNextRebuild();
    void orderArray_count_data();
    void orderArray_count();
    void orderArray_includesHiddenColumns_andIsFollowed();
    void orderArray_unknownIds_areSkipped();
    void orderArray_focusedColumnKeepsTheFocus();
    void delete_closesTheGap();
    void delete_dropsTheItemsOfEachRow();
    void delete_withHiddenInFront_takesAnotherHeaderItem();
    void delete_lastColumn_leavesAnEmptyGrid();
    void delete_scrolledAway_pullsTheOffsetBack();
    void kind_changes_itemsStay_data();
    void kind_changes_itemsStay();
    void kind_sevenAndAbove_isRefusedAfterTheWidth_data();
    void kind_sevenAndAbove_isRefusedAfterTheWidth();
    void kind_ofTheFocusedAndHiddenColumn_keepsItsPlace();
    void width_changes_moveTheOthers();
    void width_anyNumber_isBorne_data();
    void width_anyNumber_isBorne();
    void width_same_repaintsNothing();
    void width_change_repaintsFromTheColumnOn();
    void focusedColumn_setsTheCreationIndex();
    void focusedColumn_hiddenOne_clampsToTheLast();
    void bestFit_isTheRule_andResizesNothing();
    void bestFit_withoutRows_isZero();
    void bestFit_emptyTextsAndSections();
    void bestFit_thenSetWidth_cutsNothing();
    void unknownIds_failQuietly_data();
    void unknownIds_failQuietly();
    void reset_startsIdsAnew();
};

void tst_GridColumns::firstHandle_isZero_andMinusOneIsNone()
{
    TestGrid grid;
    QCOMPARE(idOf(grid.AddColumn("a", 0, 10)), 0);
    QCOMPARE(idOf(grid.AddColumn("b", 0, 10)), 1);
    GC_COLUMN record;
    QVERIFY(grid.GetColumn(handle(0), &record));
    QVERIFY(!grid.GetColumn(GC_NOCOLUMN, &record));
    QVERIFY(grid.DeleteColumn(handle(1)));
    QCOMPARE(idOf(grid.AddColumn("c", 0, 10)), 2); // ids only rise
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
    QCOMPARE(idOf(grid.AddColumn(&record)), 0);
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
    QVERIFY(grid.GetColumn(handle(0), &record));
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
    QCOMPARE(columnOf(grid, 0).format, 1);
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
    QCOMPARE(columnOf(grid, 0).flags, keeps ? 0x4802u | GCCF_TREE : unsigned(GCCF_TREE));
    GC_COLUMN record;
    record.mask = GCCM_WIDTH;
    record.width = 77;
    QVERIFY(grid.SetColumn(column, &record));
    QCOMPARE(columnOf(grid, 0).flags, keeps ? 0x4802u | GCCF_TREE : unsigned(GCCF_TREE));
    record.mask = GCCM_FLAGS;
    record.flags = 0x4802;
    QVERIFY(grid.SetColumn(column, &record));
    QCOMPARE(columnOf(grid, 0).flags, keeps ? 0x4802u : 0u);
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
    QCOMPARE(header(grid).count(u':'), 4);
    QStringList ids;
    for (QString const & item : header(grid).split(u' ')) {
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
    QCOMPARE(columnOf(grid, 2).order, 3);
    QCOMPARE(columnOrder(grid), QStringLiteral("0 1 2"));
    QCOMPARE(shown(grid), QStringLiteral("0:10@0 1:20@10 2:40@30"));
    grid.AddColumn("last", 0, 5); // stands at 3 as well, and so before the other
    QCOMPARE(columnOf(grid, 2).order, 4);
    QCOMPARE(columnOrder(grid), QStringLiteral("0 1 3 2"));
    QVERIFY(grid.DeleteColumn(handle(2)));
    QVERIFY(grid.DeleteColumn(handle(0)));
    QCOMPARE(shown(grid), QStringLiteral("1:20@0 3:5@20"));
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
    QVERIFY(grid.GetColumn(handle(0), &record));
    QCOMPARE(QByteArray(buffer), QByteArray("untouched"));
    QCOMPARE(record.width, 33);
    QVERIFY(!grid.GetColumn(handle(0), nullptr));
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
    QVERIFY(grid.GetColumn(handle(0), &record));
    QCOMPARE(QByteArray(buffer), QByteArray("titzzzz"));
    for (int const size : {0, -1}) {
        record.textMax = size;
        QVERIFY(grid.GetColumn(handle(0), &record));
        QCOMPARE(QByteArray(buffer), QByteArray("titzzzz"));
    }
    record.text = nullptr;
    record.textMax = 10;
    QVERIFY(grid.GetColumn(handle(0), &record));
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

void tst_GridColumns::hidden_hasNoHeaderItem()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.ShowColumn(columns[1], false);
    QCOMPARE(grid.Column2HeaderItem(columns[0]), 0);
    QCOMPARE(grid.Column2HeaderItem(columns[1]), -1);
    QCOMPARE(grid.Column2HeaderItem(columns[2]), 1);
    QCOMPARE(grid.HeaderItem2Column(1), columns[2]);
    QCOMPARE(header(grid), QStringLiteral("0:10 2:30"));
    QCOMPARE(shown(grid), QStringLiteral("0:10@0 2:30@10"));
    QCOMPARE(grid.contentsWidth(), 40);
    QCOMPARE(columnOf(grid, 1).flags, unsigned(GCCF_HIDDEN));
    // A column may be created hidden.
    tag_HCOLUMN * const column = grid.addKind(GCCK_TEXT, 50, GCCF_HIDDEN);
    QCOMPARE(grid.Column2HeaderItem(column), -1);
    grid.ShowColumn(column, true);
    QCOMPARE(grid.Column2HeaderItem(column), 2);
    QCOMPARE(grid.contentsWidth(), 90);
}

void tst_GridColumns::allHidden_contentsWidthIsZero()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 200});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, 50, true);
    for (tag_HCOLUMN * const column : columns) {
        grid.ShowColumn(column, false);
    }
    QCOMPARE(grid.contentsWidth(), 0);
    QCOMPARE(grid.GetPriv().hScrollPos, 0);
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    zenutest::settle();
    tag_HROW * row = nullptr;
    QVERIFY(!grid.HitTest(QPoint(1, grid.headerHeight() + 1), &row, nullptr));
    grid.ShowColumn(columns[1], true);
    QCOMPARE(shown(grid), QStringLiteral("1:200@0"));
}

void tst_GridColumns::showColumn_asItIs_doesNothing()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 200});
    QVERIFY(grid.showSized(200, 100));
    KHeaderItem const * const item = grid.getHeader()->getItem(0);
    grid.ShowColumn(columns[0], true);
    QCOMPARE(grid.getHeader()->getItem(0), item); // not rebuilt
    QVERIFY(grid.takePainted().isEmpty());
    grid.ShowColumn(GC_NOCOLUMN, true);
    grid.ShowColumn(handle(99), false);
    QVERIFY(grid.takePainted().isEmpty());
}

void tst_GridColumns::setColumn_hiddenFlag_waitsForTheNextRebuild()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 200});
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_HIDDEN;
    QVERIFY(grid.SetColumn(columns[0], &record));
    QCOMPARE(shown(grid), QStringLiteral("0:100@0 1:200@100"));
    grid.AddColumn("c", 0, 5);
    QCOMPARE(shown(grid), QStringLiteral("1:200@0 2:5@200"));
}

void tst_GridColumns::orderArray_count_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("gets");
    QTest::addColumn<bool>("sets");
    QTest::newRow("exact") << 3 << true << true;
    QTest::newRow("fewer") << 2 << false << false;
    QTest::newRow("more") << 4 << true << false;
    QTest::newRow("none") << 0 << false << false;
    QTest::newRow("negative") << -1 << false << false;
}

void tst_GridColumns::orderArray_count()
{
    QFETCH(int, count);
    QFETCH(bool, gets);
    QFETCH(bool, sets);
    TestGrid grid;
    grid.addColumns({10, 20, 30});
    std::vector<tag_HCOLUMN *> ids(8, handle(77));
    QCOMPARE(grid.GetColumnOrderArray(ids.data(), count), gets);
    QCOMPARE(idOf(ids[0]), gets ? 0 : 77);
    QCOMPARE(idOf(ids[3]), 77); // never more than there are
    ids = {handle(2), handle(0), handle(1), handle(0)};
    QCOMPARE(grid.SetColumnOrderArray(ids.data(), count), sets);
    QCOMPARE(columnOrder(grid), sets ? QStringLiteral("2 0 1") : QStringLiteral("0 1 2"));
    QVERIFY(!grid.GetColumnOrderArray(nullptr, 3));
    QVERIFY(!grid.SetColumnOrderArray(nullptr, 3));
    TestGrid empty;
    QVERIFY(!empty.GetColumnOrderArray(ids.data(), 3));
    QVERIFY(!empty.GetColumnOrderArray(ids.data(), 0));
    QVERIFY(empty.SetColumnOrderArray(ids.data(), 0));
}

void tst_GridColumns::orderArray_includesHiddenColumns_andIsFollowed()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.ShowColumn(columns[1], false);
    std::vector<tag_HCOLUMN *> ids{columns[2], columns[1], columns[0]};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 3));
    QCOMPARE(columnOrder(grid), QStringLiteral("2 1 0"));
    QCOMPARE(shown(grid), QStringLiteral("2:30@0 0:10@30"));
    QCOMPARE(header(grid), QStringLiteral("2:30 0:10"));
    grid.ShowColumn(columns[1], true);
    QCOMPARE(shown(grid), QStringLiteral("2:30@0 1:20@30 0:10@50"));
    // Cells keep to their columns.
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    grid.SetItemText(row, columns[0], "zero");
    ids = {columns[0], columns[1], columns[2]};
    grid.SetColumnOrderArray(ids.data(), 3);
    QCOMPARE(grid.GetItemText(row, columns[0]), std::string("zero"));
}

void tst_GridColumns::orderArray_unknownIds_areSkipped()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    std::vector<tag_HCOLUMN *> ids{GC_NOCOLUMN, handle(77), columns[0]};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 3));
    QCOMPARE(columnOf(grid, 0).order, 2);
    QCOMPARE(grid.getHeader()->getItemsCount(), 3);
    ids = {columns[1], columns[1], columns[1]};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 3));
    QCOMPARE(grid.getHeader()->getItemsCount(), 3);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridColumns::orderArray_focusedColumnKeepsTheFocus()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.SetFocusedColumn(columns[2]);
    QCOMPARE(grid.GetFocusedColumn(), columns[2]);
    std::vector<tag_HCOLUMN *> ids{columns[2], columns[1], columns[0]};
    grid.SetColumnOrderArray(ids.data(), 3);
    QCOMPARE(grid.GetFocusedColumn(), columns[2]);
    QCOMPARE(grid.GetPriv().focusColumn, 0);
    grid.ShowColumn(columns[1], false);
    grid.InsertColumn(0, "new", 0, 5);
    QCOMPARE(grid.GetFocusedColumn(), columns[2]);
}

void tst_GridColumns::delete_closesTheGap()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30, 40});
    QVERIFY(grid.DeleteColumn(columns[1]));
    QCOMPARE(grid.GetColumnsCount(), 3);
    QCOMPARE(shown(grid), QStringLiteral("0:10@0 2:30@10 3:40@40"));
    QCOMPARE(header(grid), QStringLiteral("0:10 2:30 3:40"));
    QCOMPARE(columnOf(grid, 2).order, 1);
    QCOMPARE(columnOf(grid, 3).order, 2);
    QCOMPARE(grid.GetPriv().columns.find(3)->itemIndex, 2);
    QVERIFY(!grid.DeleteColumn(columns[1]));
}

void tst_GridColumns::delete_dropsTheItemsOfEachRow()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    for (tag_HROW * const row : {parent, child}) {
        grid.SetItemText(row, columns[1], "middle");
        grid.SetItemText(row, columns[2], "last");
    }
    grid.DeleteColumn(columns[1]);
    QCOMPARE(zenutest::checkGrid(grid), QString());
    for (tag_HROW * const row : {parent, child}) {
        QCOMPARE(grid.GetItemText(row, columns[2]), std::string("last"));
        QCOMPARE(grid.GetItemText(row, columns[1]), std::string());
    }
}

void tst_GridColumns::delete_withHiddenInFront_takesAnotherHeaderItem()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.ShowColumn(columns[0], false);
    QCOMPARE(header(grid), QStringLiteral("1:20 2:30"));
    grid.DeleteColumn(columns[1]);
    QCOMPARE(header(grid), QStringLiteral("1:20")); // the item at the order, 1, went
    QCOMPARE(shown(grid), QStringLiteral("2:30@0"));
    grid.ShowColumn(columns[0], true);
    QCOMPARE(header(grid), QStringLiteral("0:10 2:30")); // mended
}

void tst_GridColumns::delete_lastColumn_leavesAnEmptyGrid()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10});
    tag_HROW * const row = grid.add("a");
    QVERIFY(grid.showSized(100, 100));
    grid.SetRowSel(row, true);
    QVERIFY(grid.DeleteColumn(columns[0]));
    zenutest::settle();
    QCOMPARE(grid.contentsWidth(), 0);
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    QCOMPARE(grid.GetRowCount(), 1u);
    QVERIFY(grid.InsertRow(GC_ROOT, GCI_LAST));
    grid.AddColumn("back", 0, 50);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridColumns::delete_scrolledAway_pullsTheOffsetBack()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 400});
    grid.addMany(2);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, 250, true);
    grid.DeleteColumn(columns[1]);
    QCOMPARE(grid.GetPriv().hScrollPos, 0);
    QCOMPARE(grid.getHScrollBar()->maximum(), 0);
    QCOMPARE(grid.getHeader()->x(), 0);
}

void tst_GridColumns::kind_changes_itemsStay_data()
{
    QTest::addColumn<int>("to");
    for (int kind = 0; kind < GCCK_CHECKBOXWITHICON; ++kind) {
        QTest::addRow("to kind %d", kind) << kind;
    }
}

void tst_GridColumns::kind_changes_itemsStay()
{
    QFETCH(int, to);
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20});
    tag_HROW * const row = grid.add("a");
    grid.SetItemText(row, columns[1], "owned text");
    QVERIFY(grid.showSized(100, 100));
    GC_COLUMN record;
    record.mask = GCCM_KIND;
    record.kind = to;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(columnOf(grid, 1).kind, to);
    QCOMPARE(columnOf(grid, 1).width, 20);
    QCOMPARE(grid.Column2HeaderItem(columns[1]), 1);
    QCOMPARE(zenutest::checkGrid(grid), QString());
    zenutest::settle();
    record.kind = GCCK_TEXT;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(grid.GetItemText(row, columns[1]), std::string("owned text"));
}

void tst_GridColumns::kind_sevenAndAbove_isRefusedAfterTheWidth_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("check box with icon") << int(GCCK_CHECKBOXWITHICON);
    QTest::newRow("eight") << 8;
    QTest::newRow("negative") << -1;
}

void tst_GridColumns::kind_sevenAndAbove_isRefusedAfterTheWidth()
{
    QFETCH(int, kind);
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10});
    GC_COLUMN record;
    record.mask = GCCM_KIND | GCCM_WIDTH | GCCM_TEXT | GCCM_FORMAT;
    record.kind = kind;
    record.width = 44;
    record.format = 2;
    record.text = const_cast<char *>("new");
    QVERIFY(!grid.SetColumn(columns[0], &record));
    QCOMPARE(columnOf(grid, 0).width, 44);
    QCOMPARE(columnOf(grid, 0).kind, int(GCCK_TEXT));
    QCOMPARE(columnOf(grid, 0).format, 0);
    QCOMPARE(grid.getHeader()->getItem(0)->getText(), std::string("C0"));
    QCOMPARE(grid.getHeader()->getItem(0)->getWH(), 44);
}

void tst_GridColumns::kind_ofTheFocusedAndHiddenColumn_keepsItsPlace()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.SetFocusedColumn(columns[1]);
    grid.ShowColumn(columns[2], false);
    GC_COLUMN record;
    record.mask = GCCM_KIND;
    record.kind = GCCK_ICON;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QVERIFY(grid.SetColumn(columns[2], &record));
    QCOMPARE(grid.GetFocusedColumn(), columns[1]);
    QCOMPARE(shown(grid), QStringLiteral("0:10@0 1:20@10"));
    grid.ShowColumn(columns[2], true);
    QCOMPARE(columnOf(grid, 2).kind, int(GCCK_ICON));
}

void tst_GridColumns::width_changes_moveTheOthers()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    QVERIFY(grid.SetColumnWidth(columns[1], 25));
    QCOMPARE(grid.GetColumnWidth(columns[1]), 25);
    QCOMPARE(shown(grid), QStringLiteral("0:10@0 1:25@10 2:30@35"));
    QCOMPARE(header(grid), QStringLiteral("0:10 1:25 2:30"));
    QCOMPARE(grid.contentsWidth(), 65);
    grid.ShowColumn(columns[0], false);
    QVERIFY(grid.SetColumnWidth(columns[0], 99));
    QCOMPARE(shown(grid), QStringLiteral("1:25@0 2:30@25"));
    grid.ShowColumn(columns[0], true);
    QCOMPARE(grid.contentsWidth(), 154);
}

void tst_GridColumns::width_anyNumber_isBorne_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -50;
    QTest::newRow("smallest") << INT_MIN;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("beyond a widget's size") << 20000000;
}

void tst_GridColumns::width_anyNumber_isBorne()
{
    QFETCH(int, width);
    TestGrid grid(GCS_VERTLINES | GCS_HORZLINES);
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 100, 100});
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    grid.InsertSection("s", GCI_LAST);
    QVERIFY(grid.showSized(200, 150));
    for (tag_HCOLUMN * const column : columns) {
        grid.SetColumnWidth(column, width);
        QCOMPARE(grid.GetColumnWidth(column), width);
        zenutest::settle();
        for (int code = 0; code < 8; ++code) {
            grid.OnScroll(code, -1, 1000000000, true);
            zenutest::settle();
        }
        QRect rect;
        QVERIFY(grid.GetItemRect(rows[0], column, &rect));
        QVERIFY(grid.GetItemEditorRect(rows[0], column, &rect));
        grid.EnsureVisible(rows[0], column);
        grid.BestFit(column);
        tag_HROW * hit = nullptr;
        grid.HitTest(QPoint(50, 60), &hit, nullptr);
    }
}

void tst_GridColumns::width_same_repaintsNothing()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 60});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(grid.SetColumnWidth(columns[0], 50));
    QVERIFY(grid.takePainted().isEmpty());
}

void tst_GridColumns::width_change_repaintsFromTheColumnOn()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 60});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(grid.SetColumnWidth(columns[1], 80));
    QCOMPARE(grid.takePainted().boundingRect(), QRect(50, 0, 150, 100));
    // A section draws across all columns, and so it is painted whole.
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_FIRST);
    zenutest::settle();
    grid.takePainted();
    QVERIFY(grid.SetColumnWidth(columns[1], 70));
    QRect rect;
    grid.GetRowRect(section, &rect);
    QVERIFY(grid.takePainted().contains(QPoint(5, rect.center().y())));
}

void tst_GridColumns::focusedColumn_setsTheCreationIndex()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    std::vector<tag_HCOLUMN *> ids{columns[2], columns[1], columns[0]};
    grid.SetColumnOrderArray(ids.data(), 3);
    grid.SetFocusedColumn(columns[0]); // created first, and so the first on display
    QCOMPARE(grid.GetFocusedColumn(), columns[2]);
    grid.SetFocusedColumn(GC_NOCOLUMN);
    grid.SetFocusedColumn(handle(55));
    QCOMPARE(grid.GetFocusedColumn(), columns[2]);
}

void tst_GridColumns::focusedColumn_hiddenOne_clampsToTheLast()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.SetFocusedColumn(columns[2]);
    grid.ShowColumn(columns[2], false);
    QCOMPARE(grid.GetFocusedColumn(), columns[1]);
    grid.ShowColumn(columns[2], true);
    QCOMPARE(grid.GetFocusedColumn(), columns[1]);
    grid.DeleteColumn(columns[2]);
    grid.DeleteColumn(columns[1]);
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN); // the index is out of range now
}

void tst_GridColumns::bestFit_isTheRule_andResizesNothing()
{
    TestGrid grid;
    grid.addKind(GCCK_TEXT, 60, GCCF_TREE | GCCF_TREELINES);
    tag_HROW * const parent = grid.add("short");
    tag_HROW * const child = grid.add("a child with a much longer text", parent);
    QVERIFY(grid.showSized(200, 100));
    int widest = 0;
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    CGCColumn * const column = frame.columns.find(0);
    for (tag_HROW * const row : {parent, child}) {
        CElementRects rects;
        QVERIFY(frame.ElementRects(frame.LocateRow(row), column, &rects));
        widest = std::max(widest, rects.leadRect.width() + rects.fullTextRect.width() +
                                      rects.textRect.left() + 2 - column->left);
    }
    QVERIFY(widest > 100);
    QCOMPARE(grid.BestFit(grid.firstColumn()), widest);
    QCOMPARE(grid.GetColumnWidth(grid.firstColumn()), 60);
    QVERIFY(grid.takePainted().isEmpty());
    // Rows out of the visible order do not count.
    grid.Expand(parent, GCE_COLLAPSE);
    QVERIFY(grid.BestFit(grid.firstColumn()) < widest);
}

void tst_GridColumns::bestFit_withoutRows_isZero()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60});
    QCOMPARE(grid.BestFit(columns[0]), 0);
    grid.addMany(2);
    QVERIFY(grid.BestFit(columns[0]) > 0);
    QCOMPARE(grid.BestFit(GC_NOCOLUMN), 0);
}

void tst_GridColumns::bestFit_emptyTextsAndSections()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60, 60});
    grid.InsertRow(GC_ROOT, GCI_LAST);
    QCOMPARE(grid.BestFit(columns[0]), 2); // no rectangle: what remains is the rule's two pixels
    QCOMPARE(grid.BestFit(columns[1]), 0); // less than nothing
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_LAST);
    GC_SECTION record;
    record.mask = GCRM_SECTIONTEXT;
    record.text = const_cast<char *>("A title that is somewhat longer than the rest");
    grid.SetSection(section, &record);
    QVERIFY(grid.BestFit(columns[0]) > 100);
}

void tst_GridColumns::bestFit_thenSetWidth_cutsNothing()
{
    TestGrid grid;
    grid.addKind(GCCK_TEXT, 30);
    GC_COLUMN right;
    right.mask = GCCM_FORMAT;
    right.format = 0;
    for (char const * const text : {"Hjg", "WWWWW wide", "iii lll"}) {
        grid.add(text);
    }
    QVERIFY(grid.showSized(200, 100));
    grid.SetColumnWidth(grid.firstColumn(), grid.BestFit(grid.firstColumn()));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    for (auto row = grid.begin(GCN_VISIBLE_FIRST); row != grid.end(); ++row) {
        CElementRects rects;
        frame.ElementRects(frame.LocateRow(*row), frame.columns.find(0), &rects);
        QCOMPARE(rects.fitCount, grid.GetItemTextLen(*row, grid.firstColumn()));
    }
    QVERIFY(grid.SetColumn(grid.firstColumn(), &right));
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
    grid.DeleteColumn(handle(0));
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
    QCOMPARE(shown(grid), QStringLiteral("1:20@0"));
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
