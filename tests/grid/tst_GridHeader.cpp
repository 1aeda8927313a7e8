#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::TestGrid;

namespace {

int fmtOf(TestGrid const & grid, int index)
{
    return grid.getHeader()->getItem(index)->getFmt();
}

// Drags the divider at x (in the header) by some steps of the mouse.
void dragDivider(TestGrid & grid, int x, std::vector<int> const & steps)
{
    KHeader * const header = grid.getHeader();
    int const y = header->height() / 2;
    QTest::mouseMove(header, QPoint(x, y));
    QTest::mousePress(header, Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
    for (int const to : steps) {
        QTest::mouseMove(header, QPoint(to, y));
    }
    QTest::mouseRelease(header, Qt::LeftButton, Qt::NoModifier,
                        QPoint(steps.empty() ? x : steps.back(), y));
}

void setFormat(TestGrid & grid, tag_HCOLUMN * column, int format)
{
    GC_COLUMN record;
    record.mask = GCCM_FORMAT;
    record.format = format;
    QVERIFY(grid.SetColumn(column, &record));
}

} // namespace

class tst_GridHeader : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void created_isHorizontal_andResizesWhileDragged();
    void noHeader_isHidden_andTakesNoRoom();
    void items_haveTheColumnsFacts();
    void items_areLeftJustifiedWhateverTheFormat();
    void place_coversTheClientOrTheContents_data();
    void place_coversTheClientOrTheContents();
    void place_slidesWithTheOffset();
    void divider_withoutHeaderDrag_cantBeDragged();
    void divider_dragged_setsTheWidthAndTellsEachStep();
    void divider_ofAFixedColumn_cantBeDragged();
    void divider_whileScrolled_resizesTheColumnUnderIt();
    void divider_dragged_repaintsTheGrid();
    void headerDrag_isSetAndCleared();
    void headerDrag_withoutHeader_isDropped();
    void press_givesTheGridTheFocus();
    void doubleClicks_andItemClicks_doNothing();
    void sortArrows_outliveRebuilds();
    void sortArrows_ofADeletedColumn_areForgotten();
    void sortArrows_goWithAChangeOfFormat();
    void format_change_replacesAll_data();
    void format_change_replacesAll();
    void format_same_leavesTheHeader();
    void fixedBit_changed_takesTheAlignmentAway();
    void text_goesToTheHeader();
    void proportional_columnsTakeTheHeadersWidths();
    void proportional_resized_columnsFollow();
    void proportional_widthSet_repaintsRightOfIt();
};

void tst_GridHeader::created_isHorizontal_andResizesWhileDragged()
{
    TestGrid grid;
    KHeader const * const header = grid.getHeader();
    QCOMPARE(header->parentWidget(), &grid);
    QVERIFY(!header->isVert());
    QVERIFY(header->isDragWhenResized());
    QVERIFY(!header->isHidden());
}

void tst_GridHeader::noHeader_isHidden_andTakesNoRoom()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.addMany(2);
    QVERIFY(grid.showSized(200, 100));
    QVERIFY(!grid.getHeader()->isVisible());
    QCOMPARE(grid.headerHeight(), 0);
    QCOMPARE(grid.contentsHeight(), 2 * grid.rowHeight());
    QRect rect;
    grid.GetRowRect(grid.GetTopIndex(), &rect);
    QCOMPARE(rect.top(), 0);
    TestGrid with;
    with.addColumns({50});
    with.addMany(2);
    QVERIFY(with.showSized(200, 100));
    QVERIFY(with.headerHeight() > 5);
    QCOMPARE(with.contentsHeight(), 2 * with.rowHeight() + with.headerHeight());
}

void tst_GridHeader::items_haveTheColumnsFacts()
{
    TestGrid grid;
    GC_COLUMN record;
    record.mask = GCCM_FORMAT | GCCM_WIDTH | GCCM_TEXT | GCCM_FLAGS;
    record.format = 0x10006; // only the low three bits go to the header
    record.width = 44;
    record.text = const_cast<char *>("title");
    record.flags = GCCF_FIXEDWIDTH;
    grid.addColumns({10});
    tag_HCOLUMN * const column = grid.AddColumn(&record);
    KHeaderItem const * const item = grid.getHeader()->getItem(1);
    QCOMPARE(item->getLParam(), 1u);
    QCOMPARE(item->getWH(), 44);
    QCOMPARE(item->getMinWH(), 0);
    QCOMPARE(item->getText(), std::string("title"));
    QCOMPARE(item->getFmt(), 0x4000 | 0x10 | 0x6);
    QCOMPARE(grid.HeaderItem2Column(1), column);
    QCOMPARE(fmtOf(grid, 0), 0x4000);
}

void tst_GridHeader::items_areLeftJustifiedWhateverTheFormat()
{
    TestGrid grid;
    for (int format = 0; format < 8; ++format) {
        grid.AddColumn("t", format, 20);
        QCOMPARE(int(grid.getHeader()->getItem(format)->getJustify()), 1);
        QCOMPARE(fmtOf(grid, format), 0x4000 | format);
    }
}

void tst_GridHeader::place_coversTheClientOrTheContents_data()
{
    QTest::addColumn<int>("columnWidth");
    QTest::addColumn<int>("headerWidth");
    // A rectangle from 0 to the right edge is right minus left wide.
    QTest::newRow("narrow columns: to the client's right") << 50 << 199;
    QTest::newRow("as wide as the client's right edge") << 199 << 199;
    QTest::newRow("wide columns: all of them") << 450 << 450;
}

void tst_GridHeader::place_coversTheClientOrTheContents()
{
    QFETCH(int, columnWidth);
    QFETCH(int, headerWidth);
    TestGrid grid;
    grid.addColumns({columnWidth});
    QVERIFY(grid.showSized(200, 100));
    QRect const layout = grid.getHeader()->getLayout(QRect(0, 0, 200, 0));
    QCOMPARE(grid.headerHeight(), layout.bottom() - layout.top());
    QCOMPARE(grid.getHeader()->geometry(), QRect(0, 0, headerWidth, grid.headerHeight()));
}

void tst_GridHeader::place_slidesWithTheOffset()
{
    TestGrid grid;
    grid.addColumns({450});
    QVERIFY(grid.showSized(200, 100));
    grid.OnScroll(5, -1, 100, true);
    QCOMPARE(grid.getHeader()->geometry(), QRect(-100, 0, 450, grid.headerHeight()));
    grid.OnScroll(5, -1, 1000, true);
    QCOMPARE(grid.getHeader()->x(), -249);
    QVERIFY(grid.getHeader()->geometry().right() >= 199);
}

void tst_GridHeader::divider_withoutHeaderDrag_cantBeDragged()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60, 60});
    QVERIFY(grid.showSized(300, 100));
    Notes notes(&grid);
    dragDivider(grid, 60, {70, 90});
    QCOMPARE(grid.GetColumnWidth(columns[0]), 60);
    QCOMPARE(grid.getHeader()->getItem(0)->getWH(), 60);
    QCOMPARE(notes.taken(), QString());
}

void tst_GridHeader::divider_dragged_setsTheWidthAndTellsEachStep()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60, 60});
    QVERIFY(grid.showSized(300, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    Notes notes(&grid);
    dragDivider(grid, 60, {70, 95, 40});
    QCOMPARE(notes.taken(), QStringLiteral("resized 0 70; resized 0 95; resized 0 40"));
    QCOMPARE(grid.GetColumnWidth(columns[0]), 40);
    QCOMPARE(grid.getHeader()->getItem(0)->getWH(), 40);
    QCOMPARE(grid.GetPriv().columns.find(1)->left, 40);
    QCOMPARE(grid.contentsWidth(), 100);
    dragDivider(grid, 100, {130});
    QCOMPARE(notes.taken(), QStringLiteral("resized 1 90"));
    grid.setNotification(nullptr);
    dragDivider(grid, 130, {110});
    QCOMPARE(grid.GetColumnWidth(columns[1]), 70);
}

void tst_GridHeader::divider_ofAFixedColumn_cantBeDragged()
{
    TestGrid grid;
    tag_HCOLUMN * const fixed = grid.addKind(GCCK_TEXT, 60, GCCF_FIXEDWIDTH);
    tag_HCOLUMN * const loose = grid.addKind(GCCK_TEXT, 60);
    QVERIFY(grid.showSized(300, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    dragDivider(grid, 60, {90});
    QCOMPARE(grid.GetColumnWidth(fixed), 60);
    dragDivider(grid, 120, {140});
    QCOMPARE(grid.GetColumnWidth(loose), 80);
    setFlags(grid, fixed, 0);
    dragDivider(grid, 60, {90});
    QCOMPARE(grid.GetColumnWidth(fixed), 90);
}

void tst_GridHeader::divider_whileScrolled_resizesTheColumnUnderIt()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({150, 150, 150});
    QVERIFY(grid.showSized(200, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    grid.OnScroll(5, -1, 200, true);
    dragDivider(grid, 300, {320}); // in the header, which has slid by 200
    QCOMPARE(grid.GetColumnWidth(columns[1]), 170);
    QCOMPARE(grid.GetPriv().hScrollPos, 200);
    QCOMPARE(grid.getHScrollBar()->maximum(), 470 - 200);
}

void tst_GridHeader::divider_dragged_repaintsTheGrid()
{
    TestGrid grid;
    grid.addColumns({60, 60});
    grid.addMany(3);
    QVERIFY(grid.showSized(300, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    grid.takePainted();
    dragDivider(grid, 60, {75});
    QVERIFY(grid.takePainted().contains(QRect(0, grid.headerHeight(), 300, 50)));
}

void tst_GridHeader::headerDrag_isSetAndCleared()
{
    TestGrid grid;
    QVERIFY(!grid.getHeader()->isDragDrop());
    QCOMPARE(grid.SetGridExStyle(GCXS_HEADERDRAG), 0ul);
    QVERIFY(grid.getHeader()->isDragDrop());
    QCOMPARE(grid.GetGridExStyle(), static_cast<unsigned long>(GCXS_HEADERDRAG));
    QCOMPARE(grid.GetExStyle(), static_cast<unsigned long>(GCXS_HEADERDRAG));
    QCOMPARE(grid.SetExStyle(0), static_cast<unsigned long>(GCXS_HEADERDRAG));
    QVERIFY(!grid.getHeader()->isDragDrop());
}

void tst_GridHeader::headerDrag_withoutHeader_isDropped()
{
    TestGrid grid(GCS_NOHEADER);
    grid.SetGridExStyle(GCXS_HEADERDRAG | GCXS_FASTLOCATOR);
    QCOMPARE(grid.GetGridExStyle(), static_cast<unsigned long>(GCXS_FASTLOCATOR));
    QVERIFY(!grid.getHeader()->isDragDrop());
}

void tst_GridHeader::press_givesTheGridTheFocus()
{
    for (Qt::MouseButton const button : {Qt::LeftButton, Qt::RightButton}) {
        QWidget window;
        window.resize(300, 200);
        auto * const grid = new KGridCtrl(&window);
        auto * const other = new QWidget(&window);
        grid->resize(300, 100);
        grid->AddColumn("a", 0, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other->setFocus();
        QVERIFY(!grid->hasFocus());
        QTest::mouseClick(grid->getHeader(), button, Qt::NoModifier, QPoint(30, 5));
        QVERIFY(grid->hasFocus());
    }
}

void tst_GridHeader::doubleClicks_andItemClicks_doNothing()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({60, 60});
    grid.add("b");
    grid.add("A");
    QVERIFY(grid.showSized(300, 100));
    grid.SetGridExStyle(GCXS_HEADERDRAG);
    QTest::mouseDClick(grid.getHeader(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 5));
    QTest::mouseClick(grid.getHeader(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 5));
    QTest::mouseClick(grid.getHeader(), Qt::RightButton, Qt::NoModifier, QPoint(30, 5));
    QTest::mouseDClick(grid.getHeader(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 5));
    QCOMPARE(grid.GetColumnWidth(columns[0]), 60);
    QCOMPARE(grid.order(), QStringLiteral("b A"));
    QCOMPARE(fmtOf(grid, 0), 0x4000);
}

void tst_GridHeader::sortArrows_outliveRebuilds()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20, 30});
    grid.getHeader()->setFormat(1, 0x4000 | HeaderFormatSortFirst);
    grid.getHeader()->setFormat(2, 0x4000 | HeaderFormatSortMask);
    grid.AddColumn("new", 0, 10);
    QCOMPARE(fmtOf(grid, 1), 0x4020);
    QCOMPARE(fmtOf(grid, 2), 0x4060);
    QCOMPARE(fmtOf(grid, 3), 0x4000);
    grid.ShowColumn(columns[0], false);
    QCOMPARE(fmtOf(grid, 0), 0x4020);
    std::vector<tag_HCOLUMN *> ids{columns[2], columns[1], columns[0], grid.HeaderItem2Column(2)};
    QVERIFY(grid.SetColumnOrderArray(ids.data(), 4));
    QCOMPARE(fmtOf(grid, 0), 0x4060);
    QCOMPARE(fmtOf(grid, 1), 0x4020);
    // Other bits that the application set are not kept.
    grid.getHeader()->setFormat(0, 0x4000 | HeaderFormatBitmap);
    grid.ShowColumn(columns[0], true);
    QCOMPARE(fmtOf(grid, 0), 0x4000);
    // Sorting does not touch the arrows.
    grid.Sort(columns[0], true);
    QCOMPARE(fmtOf(grid, 1), 0x4020);
}

void tst_GridHeader::sortArrows_ofADeletedColumn_areForgotten()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20});
    grid.getHeader()->setFormat(1, 0x4020);
    grid.ShowColumn(columns[1], false); // hidden: its item is gone, and its arrows with it
    grid.ShowColumn(columns[1], true);
    QCOMPARE(fmtOf(grid, 1), 0x4000);
}

void tst_GridHeader::sortArrows_goWithAChangeOfFormat()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10});
    grid.getHeader()->setFormat(0, 0x4020);
    setFormat(grid, columns[0], 2);
    QCOMPARE(fmtOf(grid, 0), 0x4002);
    grid.getHeader()->setFormat(0, 0x4022);
    GC_COLUMN record;
    record.mask = GCCM_TEXT | GCCM_WIDTH;
    record.text = const_cast<char *>("t");
    record.width = 55;
    QVERIFY(grid.SetColumn(columns[0], &record));
    QCOMPARE(fmtOf(grid, 0), 0x4022);
}

void tst_GridHeader::format_change_replacesAll_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("fmt");
    QTest::newRow("right") << 2 << 0x4002;
    QTest::newRow("all low bits but the text's") << 0xffff << 0xffff;
    QTest::newRow("the text's bit alone") << 0x4000 << 0x4000;
    QTest::newRow("arrows by the format") << 0x60 << 0x4060;
    QTest::newRow("high bits alone are no change") << 0x10000 << 0x4000;
}

void tst_GridHeader::format_change_replacesAll()
{
    QFETCH(int, format);
    QFETCH(int, fmt);
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10});
    setFormat(grid, columns[0], format);
    QCOMPARE(fmtOf(grid, 0), fmt);
    GC_COLUMN record;
    QVERIFY(grid.GetColumn(columns[0], &record));
    QCOMPARE(record.format, format);
}

void tst_GridHeader::format_same_leavesTheHeader()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10});
    setFormat(grid, columns[0], 2);
    grid.getHeader()->setFormat(0, 0x4062);
    setFormat(grid, columns[0], 2);
    QCOMPARE(fmtOf(grid, 0), 0x4062);
    setFormat(grid, columns[0], 0x10002);
    QCOMPARE(fmtOf(grid, 0), 0x4062);
    setFlags(grid, columns[0], GCCF_TREE);
    QCOMPARE(fmtOf(grid, 0), 0x4062);
}

void tst_GridHeader::fixedBit_changed_takesTheAlignmentAway()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10});
    setFormat(grid, columns[0], 2);
    setFlags(grid, columns[0], GCCF_FIXEDWIDTH);
    QCOMPARE(fmtOf(grid, 0), 0x4010);
    setFormat(grid, columns[0], 4);
    QCOMPARE(fmtOf(grid, 0), 0x4004); // and the other way round
    GC_COLUMN both;
    both.mask = GCCM_FLAGS | GCCM_FORMAT;
    both.format = 1;
    QVERIFY(grid.SetColumn(columns[0], &both));
    QCOMPARE(fmtOf(grid, 0), 0x4001);
    // A rebuild takes both from the column.
    setFlags(grid, columns[0], GCCF_FIXEDWIDTH);
    grid.AddColumn("b", 0, 10);
    QCOMPARE(fmtOf(grid, 0), 0x4011);
}

void tst_GridHeader::text_goesToTheHeader()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20});
    GC_COLUMN record;
    record.mask = GCCM_TEXT;
    record.text = const_cast<char *>("changed");
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(grid.getHeader()->getItem(1)->getText(), std::string("changed"));
    record.text = nullptr;
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(grid.getHeader()->getItem(1)->getText(), std::string());
    grid.ShowColumn(columns[1], false);
    record.text = const_cast<char *>("while hidden");
    QVERIFY(grid.SetColumn(columns[1], &record));
    QCOMPARE(grid.getHeader()->getItem(0)->getText(), std::string("C0"));
    grid.ShowColumn(columns[1], true);
    QCOMPARE(grid.getHeader()->getItem(1)->getText(), std::string("while hidden"));
}

void tst_GridHeader::proportional_columnsTakeTheHeadersWidths()
{
    TestGrid grid;
    QVERIFY(grid.showSized(300, 100));
    grid.getHeader()->setProportional(true);
    grid.addColumns({50, 50});
    int sum = 0;
    for (CGCColumn const * const column : grid.GetPriv().shownColumns) {
        QCOMPARE(column->width, grid.getHeader()->getItem(column->id)->getWH());
        sum += column->width;
    }
    QCOMPARE(grid.contentsWidth(), sum);
    QVERIFY(std::abs(sum - 299) <= 2);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridHeader::proportional_resized_columnsFollow()
{
    TestGrid grid;
    QVERIFY(grid.showSized(300, 100));
    grid.getHeader()->setProportional(true);
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 50});
    grid.addMany(3);
    grid.resize(400, 100);
    zenutest::settle();
    int sum = 0;
    for (tag_HCOLUMN * const column : columns) {
        QCOMPARE(grid.GetColumnWidth(column),
                 grid.getHeader()->getItem(grid.Column2HeaderItem(column))->getWH());
        sum += grid.GetColumnWidth(column);
    }
    QVERIFY2(std::abs(sum - 399) <= 2, qPrintable(QString::number(sum)));
}

void tst_GridHeader::proportional_widthSet_repaintsRightOfIt()
{
    TestGrid grid;
    QVERIFY(grid.showSized(300, 100));
    grid.getHeader()->setProportional(true);
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 50, 50});
    grid.addMany(3);
    grid.takePainted();
    int const left = grid.GetPriv().columns.find(1)->left;
    grid.SetColumnWidth(columns[1], grid.GetColumnWidth(columns[1]) + 20);
    QVERIFY(grid.takePainted().contains(QRect(left, 50, 300 - left, 10)));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

ZENU_TEST(tst_GridHeader)
#include "tst_GridHeader.moc"
