#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::fillRows;
using zenutest::Notes;
using zenutest::TestGrid;

class tst_GridScrollCalls : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void scroll_asksWithTheNewTop_andTellsAfterwards();
    void scroll_pastTheRows_asksWithNull();
    void veto_leavesEverything_data();
    void veto_leavesEverything();
    void nullSink_scrolls();
    void ensureVisible_row_data();
    void ensureVisible_row();
    void ensureVisible_column();
    void ensureVisible_badHandles_doNothing();
    void wheel_gathersOverAllGrids_aLineATurn();
};

void tst_GridScrollCalls::scroll_asksWithTheNewTop_andTellsAfterwards()
{
    TestGrid grid;
    fillRows(grid, 50, false);
    QVERIFY(grid.showSized(200, 100));
    Notes notes(&grid);
    grid.OnScroll(-1, 3, 0, true);
    QCOMPARE(notes.taken(), QStringLiteral("scrolling 1; scrolled"));
    grid.OnScroll(3, -1, 0, true);
    QCOMPARE(notes.taken(), QStringLiteral("scrolling 1; scrolled"));
    grid.OnScroll(-1, 7, 0, true);
    QCOMPARE(notes.taken(), QStringLiteral("scrolling 0; scrolled"));
    grid.OnScroll(-1, 7, 0, true);
    QCOMPARE(notes.taken(), QString());
}

void tst_GridScrollCalls::scroll_pastTheRows_asksWithNull()
{
    TestGrid grid;
    fillRows(grid, 50, false);
    QVERIFY(grid.showSized(200, 100));
    Notes notes(&grid);
    notes.allowScroll = false;
    QVERIFY(!grid.GetPriv().ScrollTo(0, 50));
    QCOMPARE(notes.taken(), QStringLiteral("scrolling -"));
}

void tst_GridScrollCalls::veto_leavesEverything_data()
{
    QTest::addColumn<int>("hCode");
    QTest::addColumn<int>("vCode");
    for (int code = 0; code < 8; ++code) {
        QTest::addRow("vertical %d", code) << -1 << code;
        QTest::addRow("horizontal %d", code) << code << -1;
    }
}

void tst_GridScrollCalls::veto_leavesEverything()
{
    QFETCH(int, hCode);
    QFETCH(int, vCode);
    TestGrid grid;
    fillRows(grid, 50, false);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, 5, 60, true);
    grid.takePainted();
    QString const place = grid.place();
    int const h = grid.getHScrollBar()->value();
    int const v = grid.getVScrollBar()->value();
    Notes notes(&grid);
    notes.allowScroll = false;
    QVERIFY(grid.OnScroll(hCode, vCode, 100, true));
    QCOMPARE(notes.calls.size(), 1);
    QCOMPARE(grid.place(), place);
    QCOMPARE(grid.getHScrollBar()->value(), h);
    QCOMPARE(grid.getVScrollBar()->value(), v);
    QVERIFY(grid.takePainted().isEmpty());
}

void tst_GridScrollCalls::nullSink_scrolls()
{
    TestGrid grid;
    fillRows(grid, 50, false);
    grid.setNotification(nullptr);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(3, 3, 0, true);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 1);
    QCOMPARE(grid.GetPriv().hScrollPos, 5);
}

void tst_GridScrollCalls::ensureVisible_row_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("top");
    QTest::addColumn<QString>("calls");
    // Rows 10 to 15 are on display, the last of them in part.
    QTest::newRow("above") << 4 << 4 << "scrolling 4; scrolled";
    QTest::newRow("top row") << 10 << 10 << "";
    QTest::newRow("inside") << 13 << 10 << "";
    QTest::newRow("the last one, in part") << 15 << 11 << "scrolling 11; scrolled";
    QTest::newRow("below") << 30 << 26 << "scrolling 26; scrolled";
    QTest::newRow("final row") << 49 << 45 << "scrolling 45; scrolled";
}

void tst_GridScrollCalls::ensureVisible_row()
{
    QFETCH(int, row);
    QFETCH(int, top);
    QFETCH(QString, calls);
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 111));
    grid.OnScroll(-1, 5, 200, true);
    QCOMPARE(grid.place(), QStringLiteral("10 +6 0"));
    Notes notes(&grid);
    grid.EnsureVisible(rows[static_cast<std::size_t>(row)], GC_NOCOLUMN);
    QCOMPARE(grid.GetPriv().GetTopIndex(), top);
    QCOMPARE(notes.taken(), calls);
    notes.allowScroll = false;
    grid.EnsureVisible(rows[0], GC_NOCOLUMN);
    QCOMPARE(grid.GetPriv().GetTopIndex(), top);
}

void tst_GridScrollCalls::ensureVisible_column()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 150, 120, 300});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    // Its right edge meets the view's, which is right minus left wide.
    grid.EnsureVisible(nullptr, columns[1]);
    QCOMPARE(frame.hScrollPos, 250 - 199);
    grid.EnsureVisible(nullptr, columns[0]);
    QCOMPARE(frame.hScrollPos, 0);
    // Wider than the view: its left edge.
    grid.EnsureVisible(nullptr, columns[3]);
    QCOMPARE(frame.hScrollPos, 0);
    grid.OnScroll(5, -1, 450, true);
    QCOMPARE(frame.hScrollPos, 450);
    grid.EnsureVisible(nullptr, columns[3]);
    QCOMPARE(frame.hScrollPos, 370);
    Notes notes(&grid);
    notes.allowScroll = false;
    grid.EnsureVisible(nullptr, columns[0]);
    QCOMPARE(frame.hScrollPos, 370);
    grid.ShowColumn(columns[0], false);
    notes.taken();
    grid.EnsureVisible(nullptr, columns[0]);
    QCOMPARE(notes.taken(), QString());
}

void tst_GridScrollCalls::ensureVisible_badHandles_doNothing()
{
    TestGrid grid;
    fillRows(grid, 50, false);
    QVERIFY(grid.showSized(200, 100));
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    grid.Expand(parent, GCE_COLLAPSE);
    Notes notes(&grid);
    grid.EnsureVisible(child, GC_NOCOLUMN);
    grid.EnsureVisible(nullptr, nullptr);
    grid.EnsureVisible(GC_ROOT, GC_NOCOLUMN);
    grid.EnsureVisible(reinterpret_cast<tag_HROW *>(&grid), reinterpret_cast<tag_HCOLUMN *>(77));
    QCOMPARE(notes.taken(), QString());
}

void tst_GridScrollCalls::wheel_gathersOverAllGrids_aLineATurn()
{
    TestGrid grid;
    TestGrid other;
    fillRows(grid, 50, false);
    fillRows(other, 50, false);
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(other.showSized(200, 100));
    grid.GetPriv().Wheel(-60);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 0);
    other.GetPriv().Wheel(-60);
    QCOMPARE(other.GetPriv().GetTopIndex(), 1);
    grid.GetPriv().Wheel(-600);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 1);
    grid.GetPriv().Wheel(120);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 0);
    // The grid itself takes no wheel.
    QWheelEvent event(QPointF(5, 60), QPointF(5, 60), QPoint(), QPoint(0, -240), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&grid, &event);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 0);
}

ZENU_TEST(tst_GridScrollCalls)
#include "tst_GridScrollCalls.moc"
