#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::fillRows;
using zenutest::Notes;
using zenutest::TestGrid;

namespace {

// The rules of scrolling by rows over a plain list of heights, written down as they are said.
struct RowRules
{
    std::vector<int> heights;
    int page = 0;
    bool wholeOnly = false;

    int count() const { return static_cast<int>(heights.size()); }
    int top(int index) const
    {
        int y = 0;
        for (int i = 0; i < index; ++i) {
            y += heights[static_cast<std::size_t>(i)];
        }
        return y;
    }
    int bottom(int index) const { return top(index) + heights[static_cast<std::size_t>(index)]; }
    int rowUnder(int y) const
    {
        if (y < bottom(0)) {
            return 0;
        }
        for (int i = 0; i < count(); ++i) {
            if (y < bottom(i)) {
                return i;
            }
        }
        return count() - 1;
    }
    int firstForBottom(int index) const
    {
        int const y = bottom(index) - page;
        int const k = rowUnder(y);
        return top(k) >= y || k + 1 >= count() ? k : k + 1;
    }
    int countFrom(int first) const
    {
        int const y = top(first) + page;
        int k = rowUnder(y);
        if (wholeOnly && k >= 1 && bottom(k) > y) {
            --k;
        }
        return std::max(k - first + 1, 1);
    }
    // The top that a code asks for from `now`.
    int target(int code, int now, int pos, int barMaximum) const
    {
        int const final = count() - 1;
        int last = now + countFrom(now) - 1;
        if (last > 0 && last < count() && bottom(last) > top(now) + page) {
            --last;
        }
        switch (code) {
        case 0:
            return std::max(now - 1, 0);
        case 1:
            return firstForBottom(std::max(now - 1, 0));
        case 2: {
            int const next = std::min(last + 1, final);
            return next + countFrom(next) - 1 >= final ? firstForBottom(final) : next;
        }
        case 3:
            return firstForBottom(std::min(last + 1, final));
        case 4:
            return firstForBottom(final);
        case 5:
        case 6:
            return pos < barMaximum - 1 ? rowUnder(pos) : firstForBottom(final);
        default:
            return code == 7 ? 0 : now;
        }
    }
};

RowRules rulesOf(TestGrid & grid)
{
    RowRules rules;
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    for (int i = 0; i < frame.GetCount(); ++i) {
        rules.heights.push_back(frame.GetHeightAt(i));
    }
    rules.page = std::max(grid.getClientRect().bottom() - grid.headerHeight(), 0);
    rules.wholeOnly = frame.IsWholeRowsOnly();
    return rules;
}

} // namespace

class tst_GridScroll : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void page_isClientBottomMinusHeader_data();
    void page_isClientBottomMinusHeader();
    void verticalCodes_goWhereTheRuleSays_data();
    void verticalCodes_goWhereTheRuleSays();
    void positionCodes_everyPixel_goToTheRowUnderIt_data();
    void positionCodes_everyPixel_goToTheRowUnderIt();
    void horizontalCodes_goWhereTheRuleSays_data();
    void horizontalCodes_goWhereTheRuleSays();
    void asking_movesNothing_data();
    void asking_movesNothing();
    void asking_bothAxes_wantsBoth();
    void unknownCodes_moveNothing();
    void hugeNumbers_stayInTheRange();
    void noRows_onlyColumnsScroll();
    void narrowContents_offsetStaysZero();
    void bottomIndex_emptyGrid_isNull();
    void wholeRows_partlyShownLastRow_isNotCounted();
    void shownCount_isNeverBelowOne();
};

void tst_GridScroll::page_isClientBottomMinusHeader_data()
{
    QTest::addColumn<long>("style");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("shown");
    QTest::newRow("header") << 0L << 224 << -1;
    QTest::newRow("no header, the row at the page's end counts") << long(GCS_NOHEADER) << 201 << 11;
    QTest::newRow("no header, a pixel less") << long(GCS_NOHEADER) << 200 << 10;
    QTest::newRow("whole rows, exact page") << long(GCS_NOHEADER | GCS_WHOLEROWS) << 201 << 10;
    QTest::newRow("whole rows, a pixel less") << long(GCS_NOHEADER | GCS_WHOLEROWS) << 200 << 9;
    QTest::newRow("lower than a row") << long(GCS_NOHEADER) << 7 << 1;
}

void tst_GridScroll::page_isClientBottomMinusHeader()
{
    QFETCH(long, style);
    QFETCH(int, height);
    QFETCH(int, shown);
    TestGrid grid(style);
    fillRows(grid, 100, false);
    QVERIFY(grid.showSized(200, height));
    QCOMPARE(grid.GetPriv().GetPageHeight(), height - 1 - grid.headerHeight());
    if (shown != -1) {
        QCOMPARE(grid.headerHeight(), 0);
        QCOMPARE(static_cast<int>(grid.GetVisibleCount()), shown);
    }
    QCOMPARE(static_cast<int>(grid.GetVisibleCount()), rulesOf(grid).countFrom(0));
}

void tst_GridScroll::verticalCodes_goWhereTheRuleSays_data()
{
    QTest::addColumn<long>("style");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("various");
    for (bool const various : {false, true}) {
        for (long const style : {0L, long(GCS_NOHEADER), long(GCS_WHOLEROWS)}) {
            for (int const height : {60, 201, 333}) {
                for (int const rows : {1, 9, 60}) {
                    QTest::addRow("%s rows %d, style %lx, height %d",
                                  various ? "various" : "uniform", rows,
                                  static_cast<unsigned long>(style), height)
                        << style << height << rows << various;
                }
            }
        }
    }
}

void tst_GridScroll::verticalCodes_goWhereTheRuleSays()
{
    QFETCH(long, style);
    QFETCH(int, height);
    QFETCH(int, rows);
    QFETCH(bool, various);
    TestGrid grid(style);
    fillRows(grid, rows, various);
    QVERIFY(grid.showSized(200, height));
    RowRules const rules = rulesOf(grid);
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    int const limit = rules.firstForBottom(rows - 1);
    for (int start = 0; start <= limit; ++start) {
        for (int code = -1; code <= 8; ++code) {
            frame.SetTop(start);
            frame.UpdateVerticalBar();
            QCOMPARE(frame.GetTopIndex(), start);
            int const pos = (start * 37 + code) % (rules.bottom(rows - 1) + 9);
            int const target = rules.target(code, start, pos, grid.getVScrollBar()->maximum());
            bool const would = grid.OnScroll(-1, code, static_cast<unsigned>(pos), false);
            QCOMPARE(would, code != -1 && target != start);
            QCOMPARE(frame.GetTopIndex(), start);
            QVERIFY(grid.OnScroll(-1, code, static_cast<unsigned>(pos), true));
            QString const where =
                QStringLiteral("from %1 by %2, pos %3").arg(start).arg(code).arg(pos);
            QVERIFY2(frame.GetTopIndex() == std::min(target, limit), qPrintable(where));
            QCOMPARE(frame.GetShownCount(), rules.countFrom(frame.GetTopIndex()));
            QCOMPARE(frame.GetTopY(), rules.top(frame.GetTopIndex()));
            QCOMPARE(grid.getVScrollBar()->value(),
                     std::min(frame.GetTopY(), grid.getVScrollBar()->maximum()));
        }
    }
}

void tst_GridScroll::positionCodes_everyPixel_goToTheRowUnderIt_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("various");
    QTest::newRow("to a position") << 5 << false;
    QTest::newRow("tracking") << 6 << false;
    QTest::newRow("to a position, various") << 5 << true;
}

void tst_GridScroll::positionCodes_everyPixel_goToTheRowUnderIt()
{
    QFETCH(int, code);
    QFETCH(bool, various);
    TestGrid grid(GCS_NOHEADER);
    fillRows(grid, 15, various);
    QVERIFY(grid.showSized(200, 101));
    RowRules const rules = rulesOf(grid);
    int const maximum = grid.getVScrollBar()->maximum();
    QCOMPARE(maximum, rules.bottom(14) - 100);
    int const limit = rules.firstForBottom(14);
    for (int pos = 0; pos < maximum + 30; ++pos) {
        grid.OnScroll(-1, code, static_cast<unsigned>(pos), true);
        int const target = pos < maximum - 1 ? rules.rowUnder(pos) : limit;
        QCOMPARE(grid.GetPriv().GetTopIndex(), std::min(target, limit));
    }
}

void tst_GridScroll::horizontalCodes_goWhereTheRuleSays_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("wanted");
    // Contents of 370 in a client of 200: page step 199, maximum 170, largest offset 169.
    QTest::newRow("line back") << 50 << 0 << 0 << 45;
    QTest::newRow("line back at the begin") << 3 << 0 << 0 << 0;
    QTest::newRow("page back") << 169 << 1 << 0 << 0;
    QTest::newRow("page forward") << 10 << 2 << 0 << 169;
    QTest::newRow("line forward") << 50 << 3 << 0 << 55;
    QTest::newRow("line forward at the end") << 167 << 3 << 0 << 169;
    QTest::newRow("to the end: maximum less a page") << 50 << 4 << 0 << 0;
    QTest::newRow("to a position") << 50 << 5 << 77 << 77;
    QTest::newRow("to a position past the end") << 50 << 5 << 1000 << 169;
    QTest::newRow("tracking") << 50 << 6 << 78 << 78;
    QTest::newRow("to the begin") << 50 << 7 << 0 << 0;
}

void tst_GridScroll::horizontalCodes_goWhereTheRuleSays()
{
    QFETCH(int, start);
    QFETCH(int, code);
    QFETCH(int, pos);
    QFETCH(int, wanted);
    TestGrid grid;
    fillRows(grid, 5, false);
    QVERIFY(grid.showSized(200, 100));
    QCOMPARE(grid.getHScrollBar()->pageStep(), 199);
    QCOMPARE(grid.getHScrollBar()->maximum(), 170);
    grid.OnScroll(5, -1, static_cast<unsigned>(start), true);
    QCOMPARE(grid.GetPriv().hScrollPos, start);
    QVERIFY(grid.OnScroll(code, -1, static_cast<unsigned>(pos), true));
    QCOMPARE(grid.GetPriv().hScrollPos, wanted);
    QCOMPARE(grid.getHScrollBar()->value(), wanted);
    QCOMPARE(grid.getHeader()->x(), -wanted);
}

void tst_GridScroll::asking_movesNothing_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("answer");
    // The offset plus the client's right edge, 199, must not be past the contents of 370.
    QTest::newRow("line forward inside") << 100 << 3 << true;
    QTest::newRow("line forward to the very edge") << 166 << 3 << true;
    QTest::newRow("line forward past the edge") << 167 << 3 << false;
    QTest::newRow("line back at the begin, below zero") << 0 << 0 << true;
    QTest::newRow("page forward past the edge") << 1 << 2 << false;
    QTest::newRow("unknown code") << 100 << 9 << true;
}

void tst_GridScroll::asking_movesNothing()
{
    QFETCH(int, start);
    QFETCH(int, code);
    QFETCH(bool, answer);
    TestGrid grid;
    fillRows(grid, 5, false);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, static_cast<unsigned>(start), true);
    Notes notes(&grid);
    QCOMPARE(grid.OnScroll(code, -1, 0, false), answer);
    QCOMPARE(grid.GetPriv().hScrollPos, start);
    QCOMPARE(notes.taken(), QString());
    QVERIFY(!grid.OnScroll(-1, -1, 0, false));
}

void tst_GridScroll::asking_bothAxes_wantsBoth()
{
    TestGrid grid;
    fillRows(grid, 50, false);
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(grid.OnScroll(3, 3, 0, false));
    QVERIFY(!grid.OnScroll(0, 3, 0, false)); // to the left of zero
    QVERIFY(!grid.OnScroll(3, 0, 0, false)); // no row above
    QVERIFY(!grid.OnScroll(2, 3, 0, false)); // past the right edge
    QCOMPARE(grid.place(), QStringLiteral("0 +%1 0").arg(grid.GetVisibleCount()));
    QVERIFY(grid.OnScroll(3, 3, 0, true));
    QCOMPARE(grid.GetPriv().hScrollPos, 5);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 1);
}

void tst_GridScroll::unknownCodes_moveNothing()
{
    TestGrid grid;
    fillRows(grid, 50, false);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, 5, 60, true);
    QString const place = grid.place();
    Notes notes(&grid);
    for (int const code : {-2, 8, 99, INT_MAX, INT_MIN}) {
        QVERIFY(grid.OnScroll(code, code, 0, true));
    }
    QCOMPARE(grid.place(), place);
    QCOMPARE(notes.taken(), QString());
}

void tst_GridScroll::hugeNumbers_stayInTheRange()
{
    TestGrid grid;
    fillRows(grid, 50, false);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, 5, UINT_MAX, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 169);
    QCOMPARE(grid.name(grid.GetBottomIndex()), QStringLiteral("49"));
    QVERIFY(!grid.OnScroll(5, -1, UINT_MAX, false));
    grid.SetHScrollDelta(INT_MAX);
    grid.OnScroll(3, -1, 0, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 169);
    QVERIFY(!grid.OnScroll(3, -1, 0, false));
    grid.SetHScrollDelta(INT_MIN);
    grid.OnScroll(3, -1, 0, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 0);
    grid.OnScroll(0, -1, 0, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 169);
}

void tst_GridScroll::noRows_onlyColumnsScroll()
{
    TestGrid grid;
    grid.addColumns({370});
    QVERIFY(grid.showSized(200, 100));
    Notes notes(&grid);
    for (int code = 0; code < 8; ++code) {
        QVERIFY(!grid.OnScroll(-1, code, 0, false));
        QVERIFY(grid.OnScroll(-1, code, 0, true));
    }
    QCOMPARE(notes.taken(), QString());
    QVERIFY(grid.OnScroll(3, 3, 0, true));
    QCOMPARE(notes.taken(), QStringLiteral("scrolling -; scrolled"));
    QCOMPARE(grid.GetPriv().hScrollPos, 5);
}

void tst_GridScroll::narrowContents_offsetStaysZero()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    for (int code = 0; code < 8; ++code) {
        grid.OnScroll(code, -1, 500, true);
        QCOMPARE(grid.GetPriv().hScrollPos, 0);
    }
    QCOMPARE(grid.getHScrollBar()->maximum(), 0);
}

void tst_GridScroll::bottomIndex_emptyGrid_isNull()
{
    TestGrid grid;
    grid.addColumns({50});
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(!grid.GetBottomIndex());
    QVERIFY(!grid.GetTopIndex());
    QCOMPARE(grid.GetVisibleCount(), 0u);
    tag_HROW * const row = grid.add("a");
    QCOMPARE(grid.GetTopIndex(), row);
    QCOMPARE(grid.GetBottomIndex(), row);
}

void tst_GridScroll::wholeRows_partlyShownLastRow_isNotCounted()
{
    for (bool const whole : {false, true}) {
        TestGrid grid((whole ? long(GCS_WHOLEROWS) : 0L) | GCS_NOHEADER);
        fillRows(grid, 50, false);
        QVERIFY(grid.showSized(200, 111));
        QCOMPARE(grid.GetVisibleCount(), whole ? 5u : 6u);
        QCOMPARE(grid.name(grid.GetBottomIndex()), QString(whole ? u'4' : u'5'));
    }
}

void tst_GridScroll::shownCount_isNeverBelowOne()
{
    TestGrid grid(GCS_WHOLEROWS);
    fillRows(grid, 50, false);
    grid.SetRowHeight(grid.GetNextRow(GCN_VISIBLE_FIRST), 500);
    QVERIFY(grid.showSized(200, 80));
    QCOMPARE(grid.GetVisibleCount(), 1u);
    QCOMPARE(grid.GetTopIndex(), grid.GetBottomIndex());
}

ZENU_TEST(tst_GridScroll)
#include "tst_GridScroll.moc"
