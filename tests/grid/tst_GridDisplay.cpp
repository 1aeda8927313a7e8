#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::TestGrid;

// What is on display after a scroll, a rebuild and a resize, and what is told of it.
class tst_GridDisplay : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void wholeRows_rowsThatFitExactly_areAllCounted();
    void resize_atTheEnd_rowsComeDown_thoughFewerFitFromTheTop();
    void resize_atTheEnd_lowerThanBefore_keepsTheTop();
    void scrolling_comesBeforeTheMove_scrolledAfterIt();
    void scroll_endsTheHover_unlessVetoed_data();
    void scroll_endsTheHover_unlessVetoed();
    void rebuild_asksBeforeTheBarFollows_tellsAfterwards();
    void vetoedThumb_leavesRowsAndOffset_data();
    void vetoedThumb_leavesRowsAndOffset();
};

void tst_GridDisplay::wholeRows_rowsThatFitExactly_areAllCounted()
{
    TestGrid grid(GCS_NOHEADER | GCS_WHOLEROWS);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    grid.addMany(5);
    QVERIFY(grid.showSized(100, 101)); // a page of 100
    QCOMPARE(grid.GetVisibleCount(), 5u);
    grid.resize(100, 100);
    zenutest::settle();
    QCOMPARE(grid.GetVisibleCount(), 4u);
}

void tst_GridDisplay::resize_atTheEnd_rowsComeDown_thoughFewerFitFromTheTop()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(30);
    for (std::size_t i = 0; i < 5; ++i) {
        grid.SetRowHeight(rows[i], 60);
    }
    QVERIFY(grid.showSized(100, 101));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.place(), QStringLiteral("25 +5 0"));
    grid.resize(100, 161);
    zenutest::settle();
    QCOMPARE(grid.place(), QStringLiteral("22 +8 0"));
}

void tst_GridDisplay::resize_atTheEnd_lowerThanBefore_keepsTheTop()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    grid.addMany(50);
    QVERIFY(grid.showSized(100, 101));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.place(), QStringLiteral("45 +5 0"));
    grid.resize(100, 71);
    zenutest::settle();
    QCOMPARE(grid.place(), QStringLiteral("45 +4 0"));
}

void tst_GridDisplay::scrolling_comesBeforeTheMove_scrolledAfterIt()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({500});
    grid.SetDefaultHeight(20);
    grid.addMany(50);
    QVERIFY(grid.showSized(200, 101));
    Notes notes(&grid);
    QStringList seen;
    notes.act = [&](char const * what, tag_HROW *) {
        seen << QStringLiteral("%1 %2 %3 %4")
                    .arg(QLatin1String(what), grid.place())
                    .arg(grid.getVScrollBar()->value())
                    .arg(grid.getHScrollBar()->value());
    };
    grid.OnScroll(3, 3, 0, true);
    QCOMPARE(seen.join(u','), QStringLiteral("scrolling 0 +6 0 0 0,scrolled 1 +6 5 20 5"));
}

void tst_GridDisplay::scroll_endsTheHover_unlessVetoed_data()
{
    QTest::addColumn<int>("hCode");
    QTest::addColumn<int>("vCode");
    QTest::newRow("rows") << -1 << 3;
    QTest::newRow("columns") << 3 << -1;
}

void tst_GridDisplay::scroll_endsTheHover_unlessVetoed()
{
    QFETCH(int, hCode);
    QFETCH(int, vCode);
    TestGrid grid;
    grid.addColumns({500});
    tag_HROW * const row = grid.addMany(50)[1];
    QVERIFY(grid.showSized(200, 101));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    frame.hover.row = frame.LocateRow(row);
    frame.hover.column = grid.firstColumn();
    Notes notes(&grid);
    notes.allowScroll = false;
    grid.OnScroll(hCode, vCode, 0, true);
    QCOMPARE(frame.hover.row, frame.LocateRow(row));
    notes.allowScroll = true;
    grid.OnScroll(hCode, vCode, 0, true);
    QVERIFY(!frame.hover.row);
}

void tst_GridDisplay::rebuild_asksBeforeTheBarFollows_tellsAfterwards()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 101));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.getVScrollBar()->value(), 900);
    Notes notes(&grid);
    QStringList seen;
    notes.act = [&](char const * what, tag_HROW *) {
        seen << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(grid.getVScrollBar()->value());
    };
    for (std::size_t i = 20; i < 50; ++i) {
        grid.DeleteRow(rows[i]);
    }
    QVERIFY(seen.isEmpty());
    grid.UpdateVisibleRows();
    QCOMPARE(seen.join(u','), QStringLiteral("scrolling 900,scrolled 300"));
}

void tst_GridDisplay::vetoedThumb_leavesRowsAndOffset_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::newRow("vertical") << true;
    QTest::newRow("horizontal") << false;
}

void tst_GridDisplay::vetoedThumb_leavesRowsAndOffset()
{
    QFETCH(bool, vertical);
    TestGrid grid;
    grid.addColumns({600, 600});
    grid.SetDefaultHeight(20);
    grid.addMany(50);
    grid.setHScrollBarMode(KScrolledWidget::AlwaysOn);
    grid.setVScrollBarMode(KScrolledWidget::AlwaysOn);
    QVERIFY(grid.showSized(300, 250));
    grid.OnScroll(5, 5, 400, true);
    QString const place = grid.place();
    Notes notes(&grid);
    notes.allowScroll = false;
    QScrollBar * const bar = vertical ? grid.getVScrollBar() : grid.getHScrollBar();
    bar->setSliderDown(true);
    bar->setSliderPosition(0); // where the thumb now is, whatever the application says
    bar->setSliderDown(false);
    QVERIFY(!notes.calls.isEmpty());
    QCOMPARE(notes.calls.first().left(9), QStringLiteral("scrolling"));
    QVERIFY(!notes.calls.contains(QStringLiteral("scrolled")));
    QCOMPARE(grid.place(), place);
    // Allowed again, the grid and the bar agree.
    notes.allowScroll = true;
    grid.OnScroll(vertical ? -1 : 3, vertical ? 3 : -1, 0, true);
    QCOMPARE(bar->value(), vertical ? grid.GetPriv().GetTopY() : grid.GetPriv().hScrollPos);
}

ZENU_TEST(tst_GridDisplay)
#include "tst_GridDisplay.moc"
