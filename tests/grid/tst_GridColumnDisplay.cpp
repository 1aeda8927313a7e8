#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::columnIdOf;
using zenutest::columnOrder;
using zenutest::columnRecord;
using zenutest::headerItems;
using zenutest::shownColumns;
using zenutest::TestGrid;

class tst_GridColumnDisplay : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void hidden_hasNoHeaderItem();
    void allHidden_contentsWidthIsZero();
    void showColumn_asItIs_doesNothing();
    void setColumn_hiddenFlag_waitsForTheNextRebuild();
    void orderArray_count_data();
    void orderArray_count();
    void orderArray_includesHiddenColumns_andIsFollowed();
    void orderArray_unknownIds_areSkipped();
    void orderArray_focusedColumnKeepsTheFocus();
    void focusedColumn_setsTheCreationIndex();
    void focusedColumn_hiddenOne_clampsToTheLast();
};

void tst_GridColumnDisplay::hidden_hasNoHeaderItem()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.ShowColumn(columns[1], false);
    QCOMPARE(grid.Column2HeaderItem(columns[0]), 0);
    QCOMPARE(grid.Column2HeaderItem(columns[1]), -1);
    QCOMPARE(grid.Column2HeaderItem(columns[2]), 1);
    QCOMPARE(grid.HeaderItem2Column(1), columns[2]);
    QCOMPARE(headerItems(grid), QStringLiteral("0:10 2:30"));
    QCOMPARE(shownColumns(grid), QStringLiteral("0:10@0 2:30@10"));
    QCOMPARE(grid.contentsWidth(), 40);
    QCOMPARE(columnRecord(grid, 1).flags, unsigned(GCCF_HIDDEN));
    // A column may be created hidden.
    tag_HCOLUMN * const column = grid.addKind(GCCK_TEXT, 50, GCCF_HIDDEN);
    QCOMPARE(grid.Column2HeaderItem(column), -1);
    grid.ShowColumn(column, true);
    QCOMPARE(grid.Column2HeaderItem(column), 2);
    QCOMPARE(grid.contentsWidth(), 90);
}

void tst_GridColumnDisplay::allHidden_contentsWidthIsZero()
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
    QCOMPARE(shownColumns(grid), QStringLiteral("1:200@0"));
}

void tst_GridColumnDisplay::showColumn_asItIs_doesNothing()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 200});
    QVERIFY(grid.showSized(200, 100));
    KHeaderItem const * const item = grid.getHeader()->getItem(0);
    grid.ShowColumn(columns[0], true);
    QCOMPARE(grid.getHeader()->getItem(0), item); // not rebuilt
    QVERIFY(grid.takePainted().isEmpty());
    grid.ShowColumn(GC_NOCOLUMN, true);
    grid.ShowColumn(columnHandle(99), false);
    QVERIFY(grid.takePainted().isEmpty());
}

void tst_GridColumnDisplay::setColumn_hiddenFlag_waitsForTheNextRebuild()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 200});
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_HIDDEN;
    QVERIFY(grid.SetColumn(columns[0], &record));
    QCOMPARE(shownColumns(grid), QStringLiteral("0:100@0 1:200@100"));
    grid.AddColumn("c", 0, 5);
    QCOMPARE(shownColumns(grid), QStringLiteral("1:200@0 2:5@200"));
}

void tst_GridColumnDisplay::orderArray_count_data()
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

void tst_GridColumnDisplay::orderArray_count()
{
    QFETCH(int, count);
    QFETCH(bool, gets);
    QFETCH(bool, sets);
    TestGrid grid;
    grid.addColumns({10, 20, 30});
    std::vector<tag_HCOLUMN *> ids(8, columnHandle(77));
    QCOMPARE(grid.GetColumnOrderArray(ids.data(), count), gets);
    QCOMPARE(columnIdOf(ids[0]), gets ? 0 : 77);
    QCOMPARE(columnIdOf(ids[3]), 77); // never more than there are
    ids = {columnHandle(2), columnHandle(0), columnHandle(1), columnHandle(0)};
    QCOMPARE(grid.SetColumnOrderArray(ids.data(), count), sets);
    QCOMPARE(columnOrder(grid), sets ? QStringLiteral("2 0 1") : QStringLiteral("0 1 2"));
    QVERIFY(!grid.GetColumnOrderArray(nullptr, 3));
    QVERIFY(!grid.SetColumnOrderArray(nullptr, 3));
    TestGrid empty;
    QVERIFY(!empty.GetColumnOrderArray(ids.data(), 3));
    QVERIFY(!empty.GetColumnOrderArray(ids.data(), 0));
    QVERIFY(empty.SetColumnOrderArray(ids.data(), 0));
}

void tst_GridColumnDisplay::orderArray_includesHiddenColumns_andIsFollowed()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.ShowColumn(columns[1], false);
    std::vector<tag_HCOLUMN *> ids{columns[2], columns[1], columns[0]};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 3));
    QCOMPARE(columnOrder(grid), QStringLiteral("2 1 0"));
    QCOMPARE(shownColumns(grid), QStringLiteral("2:30@0 0:10@30"));
    QCOMPARE(headerItems(grid), QStringLiteral("2:30 0:10"));
    grid.ShowColumn(columns[1], true);
    QCOMPARE(shownColumns(grid), QStringLiteral("2:30@0 1:20@30 0:10@50"));
    // Cells keep to their columns.
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    grid.SetItemText(row, columns[0], "zero");
    ids = {columns[0], columns[1], columns[2]};
    grid.SetColumnOrderArray(ids.data(), 3);
    QCOMPARE(grid.GetItemText(row, columns[0]), std::string("zero"));
}

void tst_GridColumnDisplay::orderArray_unknownIds_areSkipped()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    std::vector<tag_HCOLUMN *> ids{GC_NOCOLUMN, columnHandle(77), columns[0]};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 3));
    QCOMPARE(columnRecord(grid, 0).order, 2);
    QCOMPARE(grid.getHeader()->getItemsCount(), 3);
    ids = {columns[1], columns[1], columns[1]};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 3));
    QCOMPARE(grid.getHeader()->getItemsCount(), 3);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridColumnDisplay::orderArray_focusedColumnKeepsTheFocus()
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

void tst_GridColumnDisplay::focusedColumn_setsTheCreationIndex()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    std::vector<tag_HCOLUMN *> ids{columns[2], columns[1], columns[0]};
    grid.SetColumnOrderArray(ids.data(), 3);
    grid.SetFocusedColumn(columns[0]); // created first, and so the first on display
    QCOMPARE(grid.GetFocusedColumn(), columns[2]);
    grid.SetFocusedColumn(GC_NOCOLUMN);
    grid.SetFocusedColumn(columnHandle(55));
    QCOMPARE(grid.GetFocusedColumn(), columns[2]);
}

void tst_GridColumnDisplay::focusedColumn_hiddenOne_clampsToTheLast()
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

ZENU_TEST(tst_GridColumnDisplay)
#include "tst_GridColumnDisplay.moc"
