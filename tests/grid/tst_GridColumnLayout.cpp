#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include "zenu/grid/geometry/CElementRects.h"

using namespace zenu;
using zenutest::checkGrid;
using zenutest::columnIdOf;
using zenutest::columnRecord;
using zenutest::headerItems;
using zenutest::Notes;
using zenutest::shownColumns;
using zenutest::TestGrid;

// Header, offset and bars when the set of shown columns or a width changes.
class tst_GridColumnLayout : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void insert_atMinusOne_isLast();
    void insert_itemsAreThereWhenTheLayoutAsks();
    void rebuild_headerOrdersAreThoseOfDisplay();
    void rebuild_endsABlockOfTheHeader();
    void rebuild_offsetPastTheEnd_isPulledBack_data();
    void rebuild_offsetPastTheEnd_isPulledBack();
    void rebuild_isPaintedOnce();
    void header_hasTheGridsFont();
    void header_shrunkWhileScrolled_coversTheClient();
    void header_clientWiderThanShrunkColumns_offsetIsZero();
    void delete_headerAndBarFollow();
    void delete_vetoedScroll_isNoVeto();
    void setColumn_ofAHiddenColumn_leavesTheHeader();
    void setColumn_sameKind_isARebuild();
    void invalidate_shownColumn_isItsStrip();
    void invalidate_hiddenColumn_isNothing();
    void divider_movedWithoutChange_isToldAllTheSame();
    void divider_told_widthIsThere();
    void divider_grabbedByAnotherButton_staysWhereItIs();
    void bestFit_takesNoAccountOfPlaceAndOffset();
    void bestFit_countsALeadImage();
    void columnsAddedInFrontOfTheFocus_focusStays();
};

void tst_GridColumnLayout::insert_atMinusOne_isLast()
{
    TestGrid grid;
    grid.addColumns({10, 20});
    GC_COLUMN record;
    record.mask = GCCM_WIDTH;
    record.width = 30;
    QCOMPARE(columnIdOf(grid.InsertColumn(-1, &record)), 2);
    QCOMPARE(columnRecord(grid, 2).order, 2);
    QCOMPARE(shownColumns(grid), QStringLiteral("0:10@0 1:20@10 2:30@30"));
    TestGrid empty;
    empty.InsertColumn(-1, &record);
    QCOMPARE(columnRecord(empty, 0).order, 0);
}

// Bars that show when needed ask for the rows' height, which rebuilds the order and tells the
// application of its first rows.
void tst_GridColumnLayout::insert_itemsAreThereWhenTheLayoutAsks()
{
    TestGrid grid;
    grid.setVScrollBarMode(KScrolledWidget::AsNeeded);
    grid.addColumns({10});
    QVERIFY(grid.showSized(100, 100));
    tag_HROW * const row = grid.add("a");
    Notes notes(&grid);
    bool asked = false;
    notes.act = [&](char const *, tag_HROW *) {
        asked = true;
        QVERIFY(grid.SetItemText(row, columnHandle(1), "from the call"));
        tag_HROW * const other = grid.InsertRow(GC_ROOT, GCI_LAST);
        QVERIFY(grid.SetItemText(other, columnHandle(1), "other"));
        notes.act = nullptr;
    };
    tag_HCOLUMN * const column = grid.AddColumn("new", 0, 20);
    QVERIFY(asked);
    QCOMPARE(grid.GetItemText(row, column), std::string("from the call"));
    QCOMPARE(checkGrid(grid), QString());
}

void tst_GridColumnLayout::rebuild_headerOrdersAreThoseOfDisplay()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    auto const orders = [&] {
        QStringList list;
        for (int i = 0; i < grid.getHeader()->getItemsCount(); ++i) {
            list << QString::number(grid.getHeader()->getItem(i)->getOrder());
        }
        return list.join(u' ');
    };
    QCOMPARE(orders(), QStringLiteral("0 1 2"));
    grid.InsertColumn(0, "front", 0, 5);
    QCOMPARE(orders(), QStringLiteral("0 1 2 3"));
    grid.getHeader()->setOrder(0, 3); // the header's own matter, until the next rebuild
    std::vector<tag_HCOLUMN *> ids{columns[2], columns[1], columns[0], columnHandle(3)};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 4));
    QCOMPARE(orders(), QStringLiteral("0 1 2 3"));
    grid.ShowColumn(columns[1], false);
    QCOMPARE(orders(), QStringLiteral("0 1 2"));
    grid.ShowColumn(columns[1], true);
    grid.DeleteColumn(columns[2]);
    QCOMPARE(orders(), QStringLiteral("0 1 2"));
}

void tst_GridColumnLayout::rebuild_endsABlockOfTheHeader()
{
    TestGrid grid;
    grid.getHeader()->blockControl(true);
    grid.addColumns({10});
    QVERIFY(!grid.getHeader()->blockControl(false));
}

void tst_GridColumnLayout::rebuild_offsetPastTheEnd_isPulledBack_data()
{
    QTest::addColumn<int>("focused");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("told");
    // Three columns of 100 remain; the client's right edge is 199, and 199 pixels are in view.
    QTest::newRow("no focused column: the contents' end") << -1 << 101 << "";
    QTest::newRow("focused column to the left: its left edge") << 0 << 0 << "scrolling 0; scrolled";
    QTest::newRow("focused column cut: its left edge") << 1 << 100 << "scrolling 0; scrolled";
    QTest::newRow("focused column in view") << 2 << 101 << "";
}

void tst_GridColumnLayout::rebuild_offsetPastTheEnd_isPulledBack()
{
    QFETCH(int, focused);
    QFETCH(int, offset);
    QFETCH(QString, told);
    TestGrid grid;
    grid.setFocusPolicy(Qt::NoFocus); // with the keyboard's, the first cell takes the focus
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 100, 100, 100});
    grid.addMany(2);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, 150, true);
    QCOMPARE(grid.GetPriv().hScrollPos, 150);
    if (focused != -1) {
        grid.SetFocusedColumn(columns[static_cast<std::size_t>(focused)]);
    }
    Notes notes(&grid);
    grid.ShowColumn(columns[3], false);
    QCOMPARE(grid.GetPriv().hScrollPos, offset);
    QCOMPARE(notes.taken(), told);
    QCOMPARE(grid.getHeader()->x(), -offset);
    QCOMPARE(grid.getHScrollBar()->maximum(), 300 - 199 - 1);
}

void tst_GridColumnLayout::rebuild_isPaintedOnce()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 50});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    std::vector<tag_HCOLUMN *> ids{columns[1], columns[0]};
    std::vector<std::function<void()>> const changes{
        [&] { grid.ShowColumn(columns[0], false); }, [&] { grid.ShowColumn(columns[0], true); },
        [&] { grid.SetColumnOrderArray(ids.data(), 2); }, [&] { grid.AddColumn("c", 0, 10); },
        [&] { grid.DeleteColumn(columns[1]); }};
    for (auto const & change : changes) {
        grid.takePainted();
        grid.paints = 0;
        change();
        QRect const below(0, grid.headerHeight(), 200, 100 - grid.headerHeight());
        QCOMPARE(grid.takePainted().intersected(below), QRegion(below));
        QCOMPARE(grid.paints, 1);
    }
}

void tst_GridColumnLayout::header_hasTheGridsFont()
{
    TestGrid grid;
    QCOMPARE(grid.getHeader()->getfont(), QApplication::font());
    QCOMPARE(grid.getHeader()->getNotification(),
             static_cast<IHeaderNotification *>(&grid.GetPriv()));
    QFont font = grid.font();
    font.setPixelSize(30);
    grid.setFont(font);
    QCOMPARE(grid.getHeader()->getfont().pixelSize(), 30);
    grid.addColumns({50});
    QCOMPARE(grid.headerHeight(), QFontMetrics(font, grid.getHeader()).height() * 3 / 2);
}

void tst_GridColumnLayout::header_shrunkWhileScrolled_coversTheClient()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({300});
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, 90, true);
    grid.SetColumnWidth(columns[0], 220);
    // The offset stays, and what is right of the columns belongs to the header as well.
    QCOMPARE(grid.GetPriv().hScrollPos, 90);
    QCOMPARE(grid.getHeader()->geometry(), QRect(-90, 0, 199 + 90, grid.headerHeight()));
}

void tst_GridColumnLayout::header_clientWiderThanShrunkColumns_offsetIsZero()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({300});
    grid.addMany(3);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, 90, true);
    grid.takePainted();
    grid.SetColumnWidth(columns[0], 198);
    QCOMPARE(grid.GetPriv().hScrollPos, 0);
    QCOMPARE(grid.getHeader()->geometry(), QRect(0, 0, 199, grid.headerHeight()));
    QVERIFY(grid.takePainted().contains(QRect(0, grid.headerHeight(), 200, 40)));
}

// A deletion leaves no bar and no header that tell of a column that is gone.
void tst_GridColumnLayout::delete_headerAndBarFollow()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({150, 150, 150});
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(grid.DeleteColumn(columns[0]));
    QCOMPARE(grid.getHeader()->width(), 300);
    QCOMPARE(grid.getHScrollBar()->maximum(), 300 - 199 - 1);
    QVERIFY(grid.DeleteColumn(columns[1]));
    QCOMPARE(grid.getHeader()->width(), 199);
    QCOMPARE(grid.getHScrollBar()->maximum(), 0);
}

void tst_GridColumnLayout::delete_vetoedScroll_isNoVeto()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({100, 400});
    grid.addMany(2);
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, 250, true);
    Notes notes(&grid);
    notes.allowScroll = false;
    QVERIFY(grid.DeleteColumn(columns[1]));
    QCOMPARE(grid.GetPriv().hScrollPos, 0);
    QCOMPARE(notes.taken(), QString());
}

void tst_GridColumnLayout::setColumn_ofAHiddenColumn_leavesTheHeader()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.ShowColumn(columns[1], false);
    GC_COLUMN record;
    record.mask = GCCM_TEXT | GCCM_WIDTH | GCCM_FORMAT | GCCM_FLAGS;
    record.text = const_cast<char *>("hidden");
    record.width = 77;
    record.format = 2;
    record.flags = GCCF_HIDDEN | GCCF_FIXEDWIDTH;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(headerItems(grid), QStringLiteral("0:10 2:30"));
    for (int i = 0; i < 2; ++i) {
        KHeaderItem const * const item = grid.getHeader()->getItem(i);
        QCOMPARE(item->getFmt(), 0x4000);
        QVERIFY(item->getText() != "hidden");
    }
    grid.ShowColumn(columns[1], true);
    QCOMPARE(headerItems(grid), QStringLiteral("0:10 1:77 2:30"));
    QCOMPARE(grid.getHeader()->getItem(1)->getFmt(), 0x4012);
    QCOMPARE(grid.getHeader()->getItem(1)->getText(), std::string("hidden"));
}

void tst_GridColumnLayout::setColumn_sameKind_isARebuild()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20});
    grid.getHeader()->setFormat(1, 0x4000 | HeaderFormatBitmap | HeaderFormatSortFirst);
    GC_COLUMN record;
    record.mask = GCCM_KIND;
    record.kind = GCCK_TEXT;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(grid.getHeader()->getItem(1)->getFmt(), 0x4000 | HeaderFormatSortFirst);
    record.kind = GCCK_ICON;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(grid.getHeader()->getItem(1)->getFmt(), 0x4000 | HeaderFormatSortFirst);
}

void tst_GridColumnLayout::invalidate_shownColumn_isItsStrip()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({150, 60, 150});
    grid.addMany(2);
    QVERIFY(grid.showSized(200, 100));
    grid.InvalidateColumn(columns[1]);
    // Over the whole height of the client; what the header covers is not the grid's to paint.
    QRegion const strip(150, grid.headerHeight(), 50, 100 - grid.headerHeight());
    QCOMPARE(grid.takePainted().subtracted(QRect(150, 0, 50, 100)), QRegion());
    grid.InvalidateColumn(columns[1]);
    QCOMPARE(strip.subtracted(grid.takePainted()), QRegion());
    grid.OnScroll(5, -1, 100, true);
    grid.takePainted();
    grid.InvalidateColumn(columns[1]);
    QRegion const painted = grid.takePainted();
    QCOMPARE(painted.subtracted(QRect(50, 0, 60, 100)), QRegion());
    QVERIFY(painted.contains(QRect(50, grid.headerHeight(), 60, 20)));
    grid.InvalidateColumn(columns[0]);
    QCOMPARE(grid.takePainted().boundingRect().right(), 49);
}

void tst_GridColumnLayout::invalidate_hiddenColumn_isNothing()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 60, 70});
    QVERIFY(grid.showSized(200, 100));
    grid.ShowColumn(columns[0], false);
    grid.takePainted();
    grid.InvalidateColumn(columns[0]);
    grid.InvalidateColumn(GC_NOCOLUMN);
    QCOMPARE(grid.takePainted(), QRegion());
}

namespace {

void moveDivider(TestGrid & grid, int from, std::vector<int> const & steps)
{
    KHeader * const strip = grid.getHeader();
    QTest::mousePress(strip, Qt::LeftButton, Qt::NoModifier, QPoint(from, 3));
    for (int const to : steps) {
        QTest::mouseMove(strip, QPoint(to, 3));
    }
    QTest::mouseRelease(strip, Qt::LeftButton, Qt::NoModifier, QPoint(steps.back(), 3));
}

} // namespace

void tst_GridColumnLayout::divider_movedWithoutChange_isToldAllTheSame()
{
    TestGrid grid;
    grid.addColumns({60, 60});
    QVERIFY(grid.showSized(300, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    Notes notes(&grid);
    moveDivider(grid, 60, {60, 80, 80});
    QCOMPARE(notes.taken(), QStringLiteral("resized 0 60; resized 0 80; resized 0 80"));
}

void tst_GridColumnLayout::divider_told_widthIsThere()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60, 60});
    tag_HROW * const row = grid.add("a");
    QVERIFY(grid.showSized(300, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    Notes notes(&grid);
    QStringList seen;
    notes.act = [&](char const *, tag_HROW *) {
        QRect rect;
        grid.GetItemRect(row, columns[1], &rect);
        seen << QStringLiteral("%1 %2").arg(grid.GetColumnWidth(columns[0])).arg(rect.left());
    };
    moveDivider(grid, 60, {80, 45});
    QCOMPARE(seen.join(QStringLiteral("; ")), QStringLiteral("80 80; 45 45"));
}

void tst_GridColumnLayout::divider_grabbedByAnotherButton_staysWhereItIs()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60, 60});
    QVERIFY(grid.showSized(300, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    QTest::mousePress(grid.getHeader(), Qt::RightButton, Qt::NoModifier, QPoint(60, 3));
    QTest::mouseMove(grid.getHeader(), QPoint(90, 3));
    QTest::mouseRelease(grid.getHeader(), Qt::RightButton, Qt::NoModifier, QPoint(90, 3));
    QCOMPARE(grid.GetColumnWidth(columns[0]), 60);
}

void tst_GridColumnLayout::bestFit_takesNoAccountOfPlaceAndOffset()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({150, 150, 150});
    tag_HROW * const row = grid.add("the same text");
    grid.SetItemText(row, columns[2], "the same text");
    QVERIFY(grid.showSized(200, 100));
    int const fit = grid.BestFit(columns[0]);
    QVERIFY(fit > 20);
    QCOMPARE(grid.BestFit(columns[2]), fit);
    grid.OnScroll(5, -1, 120, true);
    QCOMPARE(grid.BestFit(columns[0]), fit);
    QCOMPARE(grid.BestFit(columns[2]), fit);
    grid.SetColumnWidth(columns[2], 3); // how much fits now does not count
    QCOMPARE(grid.BestFit(columns[2]), fit);
}

void tst_GridColumnLayout::bestFit_countsALeadImage()
{
    TestGrid grid;
    QPixmap strip(14, 14);
    strip.fill(Qt::red);
    grid.SetImageList(GCIL_LEAD, strip, 14, 14, 1, false);
    tag_HCOLUMN * const plain = grid.addKind(GCCK_TEXT, 150);
    tag_HCOLUMN * const lead = grid.addKind(GCCK_TEXT, 150, GCCF_LEAD);
    tag_HROW * const row = grid.add("text");
    grid.SetItemText(row, lead, "text");
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    CElementRects rects;
    QVERIFY(frame.ElementRects(frame.LocateRow(row), frame.columns.find(lead), &rects));
    QVERIFY(rects.leadRect.width() >= 14);
    QCOMPARE(grid.BestFit(lead) - grid.BestFit(plain), rects.leadRect.width());
}

void tst_GridColumnLayout::columnsAddedInFrontOfTheFocus_focusStays()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20});
    tag_HROW * const row = grid.add("a");
    grid.SetRowSel(row, true);
    grid.SetFocusedColumn(columns[1]);
    grid.InsertColumn(0, "front", 0, 10);
    QCOMPARE(grid.GetFocusedColumn(), columns[1]);
    grid.InsertColumn(-1, "back", 0, 10);
    QCOMPARE(grid.GetFocusedColumn(), columns[1]);
}

ZENU_TEST(tst_GridColumnLayout)
#include "tst_GridColumnLayout.moc"
