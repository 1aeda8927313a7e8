#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::rowRecord;
using zenutest::TestGrid;

class tst_GridRowHeights : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void heights_firstOneSwitchesTheForm_lastOneBack();
    void heights_minusOne_isAHeightHere_andNoneInSetRow();
    void heights_anyNumber_isBorne_data();
    void heights_anyNumber_isBorne();
    void heights_sumPastAnInt_saturates();
    void heights_pastAnInt_rowsScrollAndHit();
    void rowHeight_ofARowOutOfTheOrder_isZero();
    void top_isReadForVisibleRowsAlone();
    void readsInALoopOfInsertions_rebuildNothing();
    void rowRect_spansTheClient();
};

void tst_GridRowHeights::heights_firstOneSwitchesTheForm_lastOneBack()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(4);
    QCOMPARE(grid.contentsHeight(), 80 + grid.headerHeight());
    grid.SetRowHeight(rows[1], 35);
    QVERIFY(grid.GetPriv().HasExplicitHeights());
    QCOMPARE(rowRecord(grid, rows[2], GCRM_TOP).top, 55);
    QCOMPARE(grid.contentsHeight(), 95 + grid.headerHeight());
    GC_ROW record;
    record.mask = GCRM_HEIGHT;
    record.height = -1;
    QVERIFY(grid.SetRow(rows[1], &record));
    QVERIFY(!grid.GetPriv().HasExplicitHeights());
    QCOMPARE(rowRecord(grid, rows[2], GCRM_TOP).top, 40);
    // In the uniform form a change of the default height is at once in the positions.
    grid.SetDefaultHeight(10);
    QCOMPARE(rowRecord(grid, rows[2], GCRM_TOP).top, 20);
    grid.SetRowHeight(rows[0], 1);
    QCOMPARE(rowRecord(grid, rows[2], GCRM_TOP).top, 11);
    grid.SetDefaultHeight(30);
    QCOMPARE(rowRecord(grid, rows[2], GCRM_TOP).top, 11); // at the next rebuild here
}

void tst_GridRowHeights::heights_minusOne_isAHeightHere_andNoneInSetRow()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    QVERIFY(grid.SetRowHeight(rows[1], -1));
    QVERIFY(grid.GetPriv().HasExplicitHeights());
    QCOMPARE(static_cast<int>(grid.GetRowHeight(rows[1])), -1);
    QCOMPARE(rowRecord(grid, rows[2], GCRM_TOP).top, grid.rowHeight() - 1);
    GC_ROW record;
    record.mask = GCRM_HEIGHT;
    record.height = -1;
    QVERIFY(grid.SetRow(rows[1], &record));
    QVERIFY(!grid.GetPriv().HasExplicitHeights());
    QCOMPARE(grid.GetRowHeight(rows[1]), static_cast<unsigned>(grid.rowHeight()));
}

void tst_GridRowHeights::heights_anyNumber_isBorne_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("isDefault");
    for (bool const isDefault : {false, true}) {
        for (int const height : {0, -2, -1000, INT_MIN, INT_MAX, 1}) {
            QTest::addRow("%d %s", height, isDefault ? "by default" : "for some rows")
                << height << isDefault;
        }
    }
}

void tst_GridRowHeights::heights_anyNumber_isBorne()
{
    QFETCH(int, height);
    QFETCH(bool, isDefault);
    TestGrid grid(GCS_VERTLINES | GCS_HORZLINES);
    grid.addKind(GCCK_TEXT, 80, GCCF_TREE | GCCF_TREELINES);
    tag_HROW * const parent = grid.add("p");
    std::vector<tag_HROW *> const rows = grid.addMany(30, parent);
    grid.InsertSection("s", GCI_FIRST);
    QVERIFY(grid.showSized(100, 100));
    if (isDefault) {
        grid.SetDefaultHeight(height);
        grid.GetPriv().Invalidate();
    } else {
        for (std::size_t i = 0; i < rows.size(); i += 3) {
            grid.SetRowHeight(rows[i], height);
        }
    }
    grid.update();
    zenutest::settle();
    for (int code = 0; code < 8; ++code) {
        grid.OnScroll(-1, code, 5000, true);
        grid.OnScroll(-1, code, 5000, false);
        zenutest::settle();
    }
    QRect rect;
    for (tag_HROW * const row : rows) {
        grid.EnsureVisible(row, grid.firstColumn());
        grid.GetRowRect(row, &rect);
        grid.GetItemRect(row, grid.firstColumn(), &rect);
        grid.GetItemEditorRect(row, grid.firstColumn(), &rect);
    }
    tag_HROW * hit = nullptr;
    for (int y = 0; y < 100; y += 7) {
        grid.HitTest(QPoint(5, y), &hit, nullptr);
    }
    grid.resize(90, 200);
    zenutest::settle();
    grid.Expand(parent, GCE_TOGGLE);
    grid.BestFit(grid.firstColumn());
    zenutest::settle();
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridRowHeights::heights_sumPastAnInt_saturates()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(10);
    for (tag_HROW * const row : rows) {
        grid.SetRowHeight(row, 1000000000);
    }
    QVERIFY(grid.showSized(100, 100));
    QCOMPARE(grid.contentsHeight(), INT_MAX);
    QCOMPARE(rowRecord(grid, rows[2], GCRM_TOP).top, 2000000000);
    QCOMPARE(rowRecord(grid, rows[3], GCRM_TOP).top, INT_MAX);
    QCOMPARE(rowRecord(grid, rows[9], GCRM_TOP).top, INT_MAX);
    QVERIFY(grid.getVScrollBar()->maximum() > 0);
}

void tst_GridRowHeights::heights_pastAnInt_rowsScrollAndHit()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(40);
    grid.SetDefaultHeight(20);
    for (std::size_t i = 0; i < 10; ++i) {
        grid.SetRowHeight(rows[i], 1000000000);
    }
    QVERIFY(grid.showSized(100, grid.headerHeight() + 101));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.GetBottomIndex(), rows[39]);
    zenutest::settle();
    QRect first;
    QRect second;
    tag_HROW * const top = grid.GetTopIndex();
    QVERIFY(grid.GetRowRect(top, &first));
    QVERIFY(grid.GetRowRect(grid.GetNextRow(GCN_CHILD_NEXT, top), &second));
    QCOMPARE(first.top(), grid.headerHeight());
    QCOMPARE(second.top(), first.top() + 20);
    tag_HROW * hit = nullptr;
    QVERIFY(grid.HitTest(second.center(), &hit, nullptr));
    QCOMPARE(hit, grid.GetNextRow(GCN_CHILD_NEXT, top));
    grid.OnScroll(-1, 0, 0, true);
    QVERIFY(grid.GetTopIndex() != top);
    grid.EnsureVisible(rows[12], GC_NOCOLUMN);
    QCOMPARE(grid.GetTopIndex(), rows[12]);
}

void tst_GridRowHeights::rowHeight_ofARowOutOfTheOrder_isZero()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    grid.SetRowHeight(child, 44);
    QCOMPARE(grid.GetRowHeight(child), 44u);
    grid.Expand(parent, GCE_COLLAPSE);
    QCOMPARE(grid.GetRowHeight(child), 0u);
    QCOMPARE(rowRecord(grid, child).height, 44); // read by GetRow for any row
    QCOMPARE(grid.GetRowHeight(nullptr), 0u);
}

void tst_GridRowHeights::top_isReadForVisibleRowsAlone()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    QCOMPARE(rowRecord(grid, child, GCRM_TOP).top, 20);
    QCOMPARE(rowRecord(grid, child, 0).top, 0);
    grid.Expand(parent, GCE_COLLAPSE);
    QCOMPARE(rowRecord(grid, child, GCRM_TOP).top, 0);
}

void tst_GridRowHeights::readsInALoopOfInsertions_rebuildNothing()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    grid.UpdateVisibleRows();
    tag_HROW * const child = grid.add("c", parent);
    QVERIFY(grid.GetPriv().IsDirty());
    GC_ROW const record = rowRecord(grid, child);
    QVERIFY(record.state & GCRS_VISIBLE);
    QCOMPARE(record.height, grid.rowHeight());
    QCOMPARE(grid.GetRowHeight(child), static_cast<unsigned>(grid.rowHeight()));
    grid.SetRowHeight(child, 33);
    QCOMPARE(grid.GetRowHeight(child), 33u);
    grid.GetPriv().LocateRow(parent)->CollapseRow();
    QCOMPARE(grid.GetRowHeight(child), 0u);
    QVERIFY(!(rowRecord(grid, child).state & GCRS_VISIBLE));
    QVERIFY(grid.GetPriv().IsDirty());
    rowRecord(grid, parent, GCRM_TOP);
    QVERIFY(!grid.GetPriv().IsDirty());
}

void tst_GridRowHeights::rowRect_spansTheClient()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(60);
    QVERIFY(grid.showSized(300, 200));
    QRect rect;
    QVERIFY(grid.GetRowRect(rows[2], &rect));
    QCOMPARE(rect, QRect(0, grid.headerHeight() + 40, 300, 20));
    grid.OnScroll(-1, 5, 100, true);
    QVERIFY(grid.GetRowRect(rows[2], &rect));
    QCOMPARE(rect, QRect(0, grid.headerHeight() - 60, 300, 20));
    QVERIFY(!grid.GetRowRect(rows[2], nullptr));
    QVERIFY(!grid.GetRowRect(nullptr, &rect));
}

ZENU_TEST(tst_GridRowHeights)
#include "tst_GridRowHeights.moc"
