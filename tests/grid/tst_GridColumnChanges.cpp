#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::columnRecord;
using zenutest::headerItems;
using zenutest::shownColumns;
using zenutest::TestGrid;

class tst_GridColumnChanges : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
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
};

void tst_GridColumnChanges::delete_closesTheGap()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30, 40});
    QVERIFY(grid.DeleteColumn(columns[1]));
    QCOMPARE(grid.GetColumnsCount(), 3);
    QCOMPARE(shownColumns(grid), QStringLiteral("0:10@0 2:30@10 3:40@40"));
    QCOMPARE(headerItems(grid), QStringLiteral("0:10 2:30 3:40"));
    QCOMPARE(columnRecord(grid, 2).order, 1);
    QCOMPARE(columnRecord(grid, 3).order, 2);
    QCOMPARE(grid.GetPriv().columns.find(3)->itemIndex, 2);
    QVERIFY(!grid.DeleteColumn(columns[1]));
}

void tst_GridColumnChanges::delete_dropsTheItemsOfEachRow()
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

void tst_GridColumnChanges::delete_withHiddenInFront_takesAnotherHeaderItem()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.ShowColumn(columns[0], false);
    QCOMPARE(headerItems(grid), QStringLiteral("1:20 2:30"));
    grid.DeleteColumn(columns[1]);
    QCOMPARE(headerItems(grid), QStringLiteral("1:20")); // the item at the order, 1, went
    QCOMPARE(shownColumns(grid), QStringLiteral("2:30@0"));
    grid.ShowColumn(columns[0], true);
    QCOMPARE(headerItems(grid), QStringLiteral("0:10 2:30")); // mended
}

void tst_GridColumnChanges::delete_lastColumn_leavesAnEmptyGrid()
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

void tst_GridColumnChanges::delete_scrolledAway_pullsTheOffsetBack()
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

void tst_GridColumnChanges::kind_changes_itemsStay_data()
{
    QTest::addColumn<int>("to");
    for (int kind = 0; kind < GCCK_CHECKBOXWITHICON; ++kind) {
        QTest::addRow("to kind %d", kind) << kind;
    }
}

void tst_GridColumnChanges::kind_changes_itemsStay()
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
    QCOMPARE(columnRecord(grid, 1).kind, to);
    QCOMPARE(columnRecord(grid, 1).width, 20);
    QCOMPARE(grid.Column2HeaderItem(columns[1]), 1);
    QCOMPARE(zenutest::checkGrid(grid), QString());
    zenutest::settle();
    record.kind = GCCK_TEXT;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(grid.GetItemText(row, columns[1]), std::string("owned text"));
}

void tst_GridColumnChanges::kind_sevenAndAbove_isRefusedAfterTheWidth_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("check box with icon") << int(GCCK_CHECKBOXWITHICON);
    QTest::newRow("eight") << 8;
    QTest::newRow("negative") << -1;
}

void tst_GridColumnChanges::kind_sevenAndAbove_isRefusedAfterTheWidth()
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
    QCOMPARE(columnRecord(grid, 0).width, 44);
    QCOMPARE(columnRecord(grid, 0).kind, int(GCCK_TEXT));
    QCOMPARE(columnRecord(grid, 0).format, 0);
    QCOMPARE(grid.getHeader()->getItem(0)->getText(), std::string("C0"));
    QCOMPARE(grid.getHeader()->getItem(0)->getWH(), 44);
}

void tst_GridColumnChanges::kind_ofTheFocusedAndHiddenColumn_keepsItsPlace()
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
    QCOMPARE(shownColumns(grid), QStringLiteral("0:10@0 1:20@10"));
    grid.ShowColumn(columns[2], true);
    QCOMPARE(columnRecord(grid, 2).kind, int(GCCK_ICON));
}

void tst_GridColumnChanges::width_changes_moveTheOthers()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    QVERIFY(grid.SetColumnWidth(columns[1], 25));
    QCOMPARE(grid.GetColumnWidth(columns[1]), 25);
    QCOMPARE(shownColumns(grid), QStringLiteral("0:10@0 1:25@10 2:30@35"));
    QCOMPARE(headerItems(grid), QStringLiteral("0:10 1:25 2:30"));
    QCOMPARE(grid.contentsWidth(), 65);
    grid.ShowColumn(columns[0], false);
    QVERIFY(grid.SetColumnWidth(columns[0], 99));
    QCOMPARE(shownColumns(grid), QStringLiteral("1:25@0 2:30@25"));
    grid.ShowColumn(columns[0], true);
    QCOMPARE(grid.contentsWidth(), 154);
}

void tst_GridColumnChanges::width_anyNumber_isBorne_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -50;
    QTest::newRow("smallest") << INT_MIN;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("beyond a widget's size") << 20000000;
}

void tst_GridColumnChanges::width_anyNumber_isBorne()
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

void tst_GridColumnChanges::width_same_repaintsNothing()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 60});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(grid.SetColumnWidth(columns[0], 50));
    QVERIFY(grid.takePainted().isEmpty());
}

void tst_GridColumnChanges::width_change_repaintsFromTheColumnOn()
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

ZENU_TEST(tst_GridColumnChanges)
#include "tst_GridColumnChanges.moc"
