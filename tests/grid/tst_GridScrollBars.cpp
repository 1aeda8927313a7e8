#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <QStyleOptionSlider>

#include <climits>

using namespace zenu;
using zenutest::Notes;
using zenutest::TestGrid;

namespace {

void fill(TestGrid & grid, int count)
{
    grid.addColumns({100, 150, 120});
    grid.SetDefaultHeight(20);
    grid.addMany(count);
}

void showBars(TestGrid & grid, KScrolledWidget::EScrollMode mode)
{
    grid.setHScrollBarMode(mode);
    grid.setVScrollBarMode(mode);
    grid.contentsSizeChanged();
}

// The middle of a part of a bar.
QPoint partOf(QScrollBar * bar, QStyle::SubControl part)
{
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.orientation = bar->orientation();
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->sliderPosition();
    option.sliderValue = bar->value();
    option.singleStep = bar->singleStep();
    option.pageStep = bar->pageStep();
    option.subControls = QStyle::SC_All;
    if (bar->orientation() == Qt::Horizontal) {
        option.state |= QStyle::State_Horizontal;
    }
    return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar).center();
}

void clickPart(QScrollBar * bar, QStyle::SubControl part)
{
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, partOf(bar, part));
}

QString barState(QScrollBar const * bar)
{
    return QStringLiteral("%1..%2 page %3 value %4")
        .arg(bar->minimum())
        .arg(bar->maximum())
        .arg(bar->pageStep())
        .arg(bar->value());
}

} // namespace

class tst_GridScrollBars : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void verticalBar_rangeAndSteps_followTheFormulas_data();
    void verticalBar_rangeAndSteps_followTheFormulas();
    void horizontalBar_rangeAndSteps_followTheFormulas();
    void verticalBar_arrowsPagesAndThumb_moveRows();
    void verticalBar_thumbDraggedByTheMouse_goesToTheRow();
    void horizontalBar_arrowsPagesAndThumb_moveColumns();
    void bars_keys_moveAsTheRuleSays();
    void bars_veto_leavesBarAndRows_data();
    void bars_veto_leavesBarAndRows();
    void barsSetByTheGrid_areNoGesture();
    void asNeeded_barsComeAndGoWithRowsAndColumns();
    void asNeeded_barsThatCome_keepRowsOnDisplayRight();
    void rebuild_keepsTheTopRow_whenRowsAboveGo();
    void rebuild_keepsTheTopRow_whenRowsAboveCome();
    void rebuild_deletedTopRow_anotherTakesItsIndex();
    void rebuild_fewerThanAPage_topFalls_data();
    void rebuild_fewerThanAPage_topFalls();
    void rebuild_vetoed_goesOnAllTheSame();
    void rebuild_focusedRow_isNotBroughtBack();
    void firstRows_areToldAsAScroll();
    void resize_widerThanColumns_offsetIsZero();
    void resize_offsetPastTheEnd_isPulledBack();
    void resize_atTheEnd_rowsComeDown();
    void resize_moreFromTheTopThanHere_goesToTheEnd();
    void resize_inTheMiddle_topStays_andTheRestIsPainted();
    void resize_toNothing_andBack_isBorne();
    void defaultHeight_atOnceForPositions_laterForCounts();
};

void tst_GridScrollBars::verticalBar_rangeAndSteps_followTheFormulas_data()
{
    QTest::addColumn<long>("style");
    QTest::addColumn<int>("rows");
    QTest::newRow("rows fit") << 0L << 3;
    QTest::newRow("rows are more") << 0L << 50;
    QTest::newRow("without header") << long(GCS_NOHEADER) << 50;
    QTest::newRow("none") << 0L << 0;
}

void tst_GridScrollBars::verticalBar_rangeAndSteps_followTheFormulas()
{
    QFETCH(long, style);
    QFETCH(int, rows);
    TestGrid grid(style);
    fill(grid, rows);
    QVERIFY(grid.showSized(200, 150));
    int const page = 149; // bottom minus top
    int const header = grid.headerHeight();
    QCOMPARE(header == 0, (style & GCS_NOHEADER) != 0);
    int const maximum = std::max(rows * 20 + header - page, 0);
    QString const range = QStringLiteral("0..%1 page %2 value ").arg(maximum).arg(page - header);
    QCOMPARE(barState(grid.getVScrollBar()), range + u'0');
    if (maximum != 0) {
        grid.OnScroll(-1, 3, 0, true);
        QCOMPARE(barState(grid.getVScrollBar()), range + QStringLiteral("20"));
    }
    grid.add("one more");
    grid.UpdateVisibleRows();
    QCOMPARE(grid.getVScrollBar()->maximum(), std::max((rows + 1) * 20 + header - page, 0));
}

void tst_GridScrollBars::horizontalBar_rangeAndSteps_followTheFormulas()
{
    TestGrid grid;
    fill(grid, 3);
    QVERIFY(grid.showSized(200, 150));
    QCOMPARE(barState(grid.getHScrollBar()), QStringLiteral("0..170 page 199 value 0"));
    grid.SetColumnWidth(grid.firstColumn(), 130);
    QCOMPARE(barState(grid.getHScrollBar()), QStringLiteral("0..200 page 199 value 0"));
    grid.OnScroll(3, -1, 0, true);
    QCOMPARE(barState(grid.getHScrollBar()), QStringLiteral("0..200 page 199 value 5"));
    grid.resize(401, 150);
    zenutest::settle();
    QCOMPARE(barState(grid.getHScrollBar()), QStringLiteral("0..0 page 400 value 0"));
}

void tst_GridScrollBars::verticalBar_arrowsPagesAndThumb_moveRows()
{
    TestGrid grid;
    fill(grid, 50);
    showBars(grid, KScrolledWidget::AlwaysOn);
    QVERIFY(grid.showSized(300, 250));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    QScrollBar * const bar = grid.getVScrollBar();
    Notes notes(&grid);
    // One click is one line: the cut last row becomes whole.
    clickPart(bar, QStyle::SC_ScrollBarAddLine);
    QCOMPARE(frame.GetTopIndex(), 1);
    QCOMPARE(bar->value(), 20);
    QCOMPARE(bar->sliderPosition(), 20);
    QCOMPARE(notes.taken(), QStringLiteral("scrolling 1; scrolled"));
    clickPart(bar, QStyle::SC_ScrollBarSubLine);
    QCOMPARE(frame.GetTopIndex(), 0);
    int const whole = (grid.getClientRect().bottom() - grid.headerHeight()) / 20;
    clickPart(bar, QStyle::SC_ScrollBarAddPage);
    QCOMPARE(frame.GetTopIndex(), whole);
    QCOMPARE(bar->value(), whole * 20);
    clickPart(bar, QStyle::SC_ScrollBarAddPage);
    QCOMPARE(frame.GetTopIndex(), 2 * whole);
    clickPart(bar, QStyle::SC_ScrollBarSubPage);
    QCOMPARE(bar->value(), frame.GetTopY());
    QVERIFY(frame.GetTopIndex() < whole + 2);
}

void tst_GridScrollBars::verticalBar_thumbDraggedByTheMouse_goesToTheRow()
{
    TestGrid grid;
    fill(grid, 50);
    showBars(grid, KScrolledWidget::AlwaysOn);
    QVERIFY(grid.showSized(300, 250));
    QScrollBar * const bar = grid.getVScrollBar();
    QPoint const from = partOf(bar, QStyle::SC_ScrollBarSlider);
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(bar, from + QPoint(0, 1000));
    QCOMPARE(grid.name(grid.GetBottomIndex()), QStringLiteral("49"));
    int const end = grid.GetPriv().GetTopIndex();
    QTest::mouseMove(bar, from + QPoint(0, 30));
    QVERIFY(grid.GetPriv().GetTopIndex() > 0);
    QVERIFY(grid.GetPriv().GetTopIndex() < end);
    QTest::mouseMove(bar, from);
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, from);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 0);
}

void tst_GridScrollBars::horizontalBar_arrowsPagesAndThumb_moveColumns()
{
    TestGrid grid;
    grid.addColumns({600, 600});
    grid.addMany(3);
    showBars(grid, KScrolledWidget::AlwaysOn);
    QVERIFY(grid.showSized(300, 250));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    QScrollBar * const bar = grid.getHScrollBar();
    int const step = bar->pageStep();
    QCOMPARE(step, grid.getClientRect().right());
    clickPart(bar, QStyle::SC_ScrollBarAddLine);
    QCOMPARE(frame.hScrollPos, 5);
    clickPart(bar, QStyle::SC_ScrollBarAddPage);
    QCOMPARE(frame.hScrollPos, 5 + step);
    QCOMPARE(bar->value(), 5 + step);
    clickPart(bar, QStyle::SC_ScrollBarSubPage);
    QCOMPARE(frame.hScrollPos, 5);
    clickPart(bar, QStyle::SC_ScrollBarSubLine);
    QCOMPARE(frame.hScrollPos, 0);
    QPoint const from = partOf(bar, QStyle::SC_ScrollBarSlider);
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(bar, from + QPoint(2000, 0));
    QCOMPARE(frame.hScrollPos, bar->maximum() - 1); // the largest offset
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, from + QPoint(2000, 0));
    QCOMPARE(grid.getHeader()->x(), -frame.hScrollPos);
}

void tst_GridScrollBars::bars_keys_moveAsTheRuleSays()
{
    TestGrid grid;
    fill(grid, 50);
    showBars(grid, KScrolledWidget::AlwaysOn);
    QVERIFY(grid.showSized(300, 250));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    QScrollBar * const bar = grid.getVScrollBar();
    int const whole = (grid.getClientRect().bottom() - grid.headerHeight()) / 20;
    QTest::keyClick(bar, Qt::Key_Down);
    QCOMPARE(frame.GetTopIndex(), 1);
    QTest::keyClick(bar, Qt::Key_PageDown);
    QCOMPARE(frame.GetTopIndex(), 1 + whole);
    QTest::keyClick(bar, Qt::Key_Up);
    QCOMPARE(frame.GetTopIndex(), whole);
    QTest::keyClick(bar, Qt::Key_End);
    QCOMPARE(grid.name(grid.GetBottomIndex()), QStringLiteral("49"));
    QTest::keyClick(bar, Qt::Key_Home);
    QCOMPARE(frame.GetTopIndex(), 0);
}

void tst_GridScrollBars::bars_veto_leavesBarAndRows_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("part");
    for (bool const vertical : {true, false}) {
        for (int const part : {QStyle::SC_ScrollBarAddLine, QStyle::SC_ScrollBarSubLine,
                               QStyle::SC_ScrollBarAddPage, QStyle::SC_ScrollBarSubPage}) {
            QTest::addRow("%s part %d", vertical ? "vertical" : "horizontal", part)
                << vertical << part;
        }
    }
}

void tst_GridScrollBars::bars_veto_leavesBarAndRows()
{
    QFETCH(bool, vertical);
    QFETCH(int, part);
    TestGrid grid;
    grid.addColumns({600, 600});
    grid.SetDefaultHeight(20);
    grid.addMany(50);
    showBars(grid, KScrolledWidget::AlwaysOn);
    QVERIFY(grid.showSized(300, 250));
    grid.OnScroll(5, 5, 400, true);
    QScrollBar * const bar = vertical ? grid.getVScrollBar() : grid.getHScrollBar();
    QString const place = grid.place();
    int const value = bar->value();
    Notes notes(&grid);
    notes.allowScroll = false;
    clickPart(bar, static_cast<QStyle::SubControl>(part));
    QCOMPARE(notes.calls.size(), 1);
    QCOMPARE(grid.place(), place);
    QCOMPARE(bar->value(), value);
    QCOMPARE(bar->sliderPosition(), value);
}

void tst_GridScrollBars::barsSetByTheGrid_areNoGesture()
{
    TestGrid grid;
    fill(grid, 50);
    QVERIFY(grid.showSized(200, 150));
    grid.OnScroll(-1, 4, 0, true);
    Notes notes(&grid);
    // The range shrinks below the value, which the bar changes by itself.
    for (int i = 0; i < 48; ++i) {
        grid.DeleteRow(grid.GetNextRow(GCN_CHILD_FIRST, GC_ROOT));
    }
    grid.UpdateVisibleRows();
    QCOMPARE(notes.taken(), QStringLiteral("scrolling 48; scrolled")); // told by the rebuild
    QCOMPARE(grid.getVScrollBar()->value(), 0);
}

void tst_GridScrollBars::asNeeded_barsComeAndGoWithRowsAndColumns()
{
    TestGrid grid;
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    showBars(grid, KScrolledWidget::AsNeeded);
    QVERIFY(grid.showSized(300, 200));
    QScrollBar const * const v = grid.getVScrollBar();
    QScrollBar const * const h = grid.getHScrollBar();
    QVERIFY(!v->isVisible() && !h->isVisible());
    grid.addMany(40);
    zenutest::settle();
    QVERIFY(v->isVisible() && !h->isVisible());
    tag_HCOLUMN * const wide = grid.AddColumn("wide", 0, 300);
    QVERIFY(v->isVisible() && h->isVisible());
    grid.SetColumnWidth(wide, 50);
    QVERIFY(v->isVisible() && !h->isVisible());
    grid.SetColumnWidth(wide, 500);
    QVERIFY(h->isVisible());
    grid.ShowColumn(wide, false);
    QVERIFY(!h->isVisible());
    grid.ShowColumn(wide, true);
    QVERIFY(h->isVisible());
    grid.DeleteColumn(wide);
    QVERIFY(!h->isVisible());
    grid.DeleteAllRows();
    zenutest::settle();
    QVERIFY(!v->isVisible());
    tag_HROW * const parent = grid.add("p");
    grid.addMany(40, parent);
    grid.Expand(parent, GCE_EXPAND);
    QVERIFY(v->isVisible());
    grid.Expand(parent, GCE_COLLAPSE);
    QVERIFY(!v->isVisible());
    grid.Reset();
    zenutest::settle();
    QVERIFY(!v->isVisible() && !h->isVisible());
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridScrollBars::asNeeded_barsThatCome_keepRowsOnDisplayRight()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    grid.addMany(40);
    showBars(grid, KScrolledWidget::AsNeeded);
    QVERIFY(grid.showSized(300, 201));
    QCOMPARE(grid.GetVisibleCount(), 11u);
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 30);
    grid.AddColumn("wide", 0, 400);
    // A bar at the bottom takes some of the page.
    int const page = grid.getClientRect().bottom();
    QVERIFY(page < 200);
    QCOMPARE(static_cast<int>(grid.GetVisibleCount()), std::min(page / 20 + 1, 10));
    QCOMPARE(grid.GetPriv().GetPageHeight(), page);
    grid.OnScroll(-1, 4, 0, true);
    QRect last;
    grid.GetRowRect(grid.GetBottomIndex(), &last);
    QVERIFY(last.bottom() < page);
    QCOMPARE(grid.name(grid.GetBottomIndex()), QStringLiteral("39"));
}

void tst_GridScrollBars::rebuild_keepsTheTopRow_whenRowsAboveGo()
{
    TestGrid grid;
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 150));
    grid.OnScroll(-1, 5, 400, true);
    QCOMPARE(grid.GetTopIndex(), rows[20]);
    Notes notes(&grid);
    for (std::size_t i = 0; i < 7; ++i) {
        grid.DeleteRow(rows[i]);
    }
    QCOMPARE(grid.GetTopIndex(), rows[20]);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 13);
    QCOMPARE(grid.getVScrollBar()->value(), 13 * 20);
    QCOMPARE(notes.taken(), QString());
}

void tst_GridScrollBars::rebuild_keepsTheTopRow_whenRowsAboveCome()
{
    TestGrid grid;
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 150));
    grid.OnScroll(-1, 5, 400, true);
    grid.add("new", GC_ROOT, GCI_FIRST);
    grid.SetRowHeight(rows[3], 77);
    QCOMPARE(grid.GetTopIndex(), rows[20]);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 21);
    QCOMPARE(grid.GetPriv().GetTopY(), 21 * 20 + 57);
}

void tst_GridScrollBars::rebuild_deletedTopRow_anotherTakesItsIndex()
{
    TestGrid grid;
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 150));
    grid.OnScroll(-1, 5, 400, true);
    Notes notes(&grid);
    grid.DeleteRow(rows[20]);
    QCOMPARE(notes.taken(), QString()); // nothing before the first read
    QCOMPARE(grid.GetTopIndex(), rows[21]);
    QCOMPARE(notes.taken(), QStringLiteral("scrolling 21; scrolled"));
}

void tst_GridScrollBars::rebuild_fewerThanAPage_topFalls_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("top");
    QTest::newRow("as many as before") << 50 << 45;
    QTest::newRow("some less") << 47 << 42;
    QTest::newRow("about a page") << 6 << 1;
    QTest::newRow("exactly a page") << 5 << 0;
    QTest::newRow("few") << 2 << 0;
}

void tst_GridScrollBars::rebuild_fewerThanAPage_topFalls()
{
    QFETCH(int, left);
    QFETCH(int, top);
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 111));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 45);
    for (std::size_t i = 50; i > static_cast<std::size_t>(left); --i) {
        grid.DeleteRow(rows[i - 1]);
    }
    QCOMPARE(grid.GetPriv().GetTopIndex(), top);
    QRect last;
    QVERIFY(grid.GetRowRect(rows[static_cast<std::size_t>(left) - 1], &last));
    QVERIFY(last.bottom() < 110); // whole on the page
    QCOMPARE(static_cast<int>(grid.GetVisibleCount()), left - top);
}

void tst_GridScrollBars::rebuild_vetoed_goesOnAllTheSame()
{
    TestGrid grid;
    fill(grid, 50);
    QVERIFY(grid.showSized(200, 111));
    grid.OnScroll(-1, 4, 0, true);
    Notes notes(&grid);
    notes.allowScroll = false;
    tag_HROW * const gone = grid.GetTopIndex();
    grid.DeleteRow(gone);
    QVERIFY(grid.GetTopIndex() != gone);
    QCOMPARE(notes.calls.size(), 2);
    QVERIFY(notes.calls[0].startsWith(QStringLiteral("scrolling")));
    QCOMPARE(notes.calls[1], QStringLiteral("scrolled"));
}

void tst_GridScrollBars::rebuild_focusedRow_isNotBroughtBack()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 111));
    grid.SetRowSel(rows[3], true);
    tag_HROW * after = rows[0];
    for (int i = 0; i < 30; ++i) {
        after = grid.add("n", GC_ROOT, after);
    }
    QCOMPARE(grid.GetTopIndex(), rows[0]);
    QCOMPARE(grid.GetPriv().GetFocusedIndex(), 33);
}

void tst_GridScrollBars::firstRows_areToldAsAScroll()
{
    TestGrid grid;
    grid.addColumns({100});
    Notes notes(&grid);
    grid.add("a");
    QCOMPARE(notes.taken(), QString());
    grid.UpdateVisibleRows();
    QCOMPARE(notes.taken(), QStringLiteral("scrolling a; scrolled"));
    grid.add("b");
    grid.UpdateVisibleRows();
    QCOMPARE(notes.taken(), QString());
}

void tst_GridScrollBars::resize_widerThanColumns_offsetIsZero()
{
    TestGrid grid;
    fill(grid, 5);
    QVERIFY(grid.showSized(200, 150));
    grid.OnScroll(5, -1, 100, true);
    grid.resize(370, 150);
    zenutest::settle();
    QCOMPARE(grid.GetPriv().hScrollPos, 0);
    QCOMPARE(grid.getHeader()->x(), 0);
    QCOMPARE(grid.getHScrollBar()->value(), 0);
}

void tst_GridScrollBars::resize_offsetPastTheEnd_isPulledBack()
{
    TestGrid grid;
    fill(grid, 5);
    QVERIFY(grid.showSized(200, 150));
    grid.OnScroll(5, -1, 160, true);
    grid.resize(220, 150);
    zenutest::settle();
    QCOMPARE(grid.GetPriv().hScrollPos, 150);
    QCOMPARE(grid.getHScrollBar()->value(), 150);
    grid.resize(205, 150);
    zenutest::settle();
    QCOMPARE(grid.GetPriv().hScrollPos, 150);
}

void tst_GridScrollBars::resize_atTheEnd_rowsComeDown()
{
    TestGrid grid(GCS_NOHEADER);
    fill(grid, 50);
    QVERIFY(grid.showSized(200, 111));
    grid.OnScroll(-1, 4, 0, true);
    QCOMPARE(grid.place(), QStringLiteral("45 +5 0"));
    grid.resize(200, 171);
    zenutest::settle();
    QCOMPARE(grid.place(), QStringLiteral("42 +8 0"));
    QCOMPARE(grid.getVScrollBar()->value(), 830); // the top is past the largest value
    grid.resize(200, 2000);
    zenutest::settle();
    QCOMPARE(grid.place(), QStringLiteral("0 +50 0"));
}

void tst_GridScrollBars::resize_moreFromTheTopThanHere_goesToTheEnd()
{
    // Rows on top are low: from there more fit than from here, and so the end is shown, though
    // there are rows enough below. That is the rule.
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({100});
    grid.SetDefaultHeight(40);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    for (std::size_t i = 0; i < 10; ++i) {
        grid.SetRowHeight(rows[i], 5);
    }
    QVERIFY(grid.showSized(200, 101));
    grid.GetPriv().SetTop(20);
    grid.resize(200, 110);
    zenutest::settle();
    QCOMPARE(grid.name(grid.GetBottomIndex()), QStringLiteral("49"));
}

void tst_GridScrollBars::resize_inTheMiddle_topStays_andTheRestIsPainted()
{
    TestGrid grid(GCS_NOHEADER);
    fill(grid, 50);
    QVERIFY(grid.showSized(200, 111));
    grid.OnScroll(-1, 5, 200, true);
    grid.takePainted();
    grid.resize(200, 171);
    QVERIFY(grid.takePainted().contains(QRect(0, 100, 200, 71)));
    QCOMPARE(grid.place(), QStringLiteral("10 +9 0"));
    grid.resize(200, 91);
    zenutest::settle();
    QCOMPARE(grid.place(), QStringLiteral("10 +5 0"));
}

void tst_GridScrollBars::resize_toNothing_andBack_isBorne()
{
    TestGrid grid;
    fill(grid, 50);
    QVERIFY(grid.showSized(200, 150));
    grid.OnScroll(5, 5, 400, true);
    for (QSize const & size : {QSize(1, 1), QSize(0, 0), QSize(200, 3), QSize(3, 200)}) {
        grid.resize(size);
        zenutest::settle();
        QVERIFY(grid.GetVisibleCount() >= 1);
        QCOMPARE(zenutest::checkGrid(grid), QString());
    }
    grid.resize(200, 150);
    zenutest::settle();
    QVERIFY(grid.GetVisibleCount() > 3);
}

void tst_GridScrollBars::defaultHeight_atOnceForPositions_laterForCounts()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({100});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 111));
    grid.SetDefaultHeight(10);
    GC_ROW record;
    record.mask = GCRM_TOP;
    grid.GetRow(rows[4], &record);
    QCOMPARE(record.top, 40);
    QCOMPARE(record.height, 10);
    QCOMPARE(grid.GetVisibleCount(), 6u);
    QCOMPARE(grid.contentsHeight(), 1000);
    grid.InsertRow(GC_ROOT, GCI_LAST);
    QCOMPARE(grid.GetVisibleCount(), 12u);
    QCOMPARE(grid.contentsHeight(), 510);
    grid.SetDefaultHeight(-1);
    QCOMPARE(grid.GetDefaultHeight(), grid.GetPriv().autoHeight);
}

ZENU_TEST(tst_GridScrollBars)
#include "tst_GridScrollBars.moc"
