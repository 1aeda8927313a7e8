#include "tests/grid_painting/PictureGrid.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

namespace {

// Every kind of column, tree and section with texts that are too long, in rows of many heights.
void fillWithAll(PictureGrid & grid)
{
    grid.setImages(GCIL_NORMAL, QSize(16, 16), {Qt::red, Qt::blue});
    grid.setImages(GCIL_OVERLAY, QSize(20, 20), {QColor(0, 90, 0)});
    grid.setImages(GCIL_LEAD, QSize(12, 12), {Qt::yellow});
    unsigned const flags[] = {GCCF_TREE | GCCF_TREELINES, 0,         GCCF_FRAMED, GCCF_LEAD,
                              GCCF_TREE | GCCF_FRAMED,    GCCF_LEAD, 0,           0};
    for (int kind = GCCK_TEXT; kind <= GCCK_CHECKBOXWITHICON; ++kind) {
        grid.addColumn(15 + kind * 13, (kind + 1) % 8, flags[kind], kind % 5);
    }
    tag_HROW * parent = GC_ROOT;
    for (int i = 0; i < 24; ++i) {
        tag_HROW * const row =
            i % 7 == 3 ? grid.addSection("A section, fjord")
                       : grid.addRow(i % 2 ? "j" : "Wjf text, some of it cut off fjord", parent);
        parent = i % 5 == 4 ? GC_ROOT : i % 7 == 3 ? parent : row;
        for (CGCColumn const * column : grid.GetPriv().columns.all()) {
            grid.SetItem(row, column->Handle(), GCIM_IMAGE, nullptr, i % 2, 0);
            grid.SetItem(row, column->Handle(), GCIM_OVERLAY, nullptr, i % 3 - 1, 0);
        }
        if (i % 4 == 2) {
            grid.SetRowHeight(row, 1 + i * 2);
        }
    }
}

void addStyles()
{
    QTest::addColumn<int>("style");
    QTest::newRow("plain") << 0;
    QTest::newRow("lines") << int(GCS_VERTLINES | GCS_HORZLINES);
    QTest::newRow("whole rows") << int(GCS_WHOLEROWS | GCS_VERTLINES);
    QTest::newRow("no header") << int(GCS_NOHEADER | GCS_HORZLINES);
    QTest::newRow("selected") << int(GCS_SHOWSELALWAYS | GCS_VERTLINES);
}

// A hundred slim rows of 20 pixels in two columns.
struct SlimGrid
{
    explicit SlimGrid(int count = 100, long style = 0)
        : grid(style)
    {
        grid.SetSlimGridCallback(&slim);
        grid.SetDefaultHeight(threeRowsHeight);
        grid.addColumn(60);
        grid.addColumn(40);
        std::vector<GC_SLIMROWDATA> records(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < records.size(); ++i) {
            records[i].param = static_cast<long>(i);
        }
        grid.InsertSlimRows(count, records.data(), GC_ROOT, GCI_LAST);
    }
    bool show()
    {
        bool const shown = grid.showSized(300, grid.headerHeight() + 85);
        slim.calls.clear();
        return shown;
    }
    SlimRows slim;
    PictureGrid grid;
};

} // namespace

class tst_PaintedParts : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void emptyGrid_isBackground_data();
    void emptyGrid_isBackground();
    void columnHiddenByItsFlag_isBackground();
    void areaRightOfColumns_isBackground();
    void areaRightOfColumns_whenScrolled_isBackground();
    void areaBelowRows_isBackground_data();
    void areaBelowRows_isBackground();
    void everyPixel_isPainted_data();
    void everyPixel_isPainted();
    void paintOfAPart_equalsThatPartOfAll_data();
    void paintOfAPart_equalsThatPartOfAll();
    void slimCallbacks_bracketThePaint();
    void paintDuringAPaint_drawsNothing();
    void stripOfRows_asksForThoseAlone();
    void stripBelowAllRows_asksForNoneBeyondTheDisplay();
};

void tst_PaintedParts::emptyGrid_isBackground_data()
{
    QTest::addColumn<bool>("columns");
    QTest::addColumn<bool>("rows");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("columns without rows") << true << false;
    QTest::newRow("rows without columns") << false << true;
}

void tst_PaintedParts::emptyGrid_isBackground()
{
    QFETCH(bool, columns);
    QFETCH(bool, rows);
    PictureGrid grid(GCS_VERTLINES | GCS_HORZLINES);
    if (columns) {
        grid.addColumn(60);
    }
    if (rows) {
        grid.addRow();
        grid.addSection("Title");
    }
    QVERIFY(grid.showSized(300, 200));
    QVERIFY(isFilled(grid.paintAll(), grid.below(), PictureGrid::colorOf(GCC_BACKGROUND)));
    grid.SetBkColor(Qt::cyan);
    QVERIFY(isFilled(grid.paintAll(), grid.below(), Qt::cyan));
    QCOMPARE(grid.stalePixels(), QString());
}

// It keeps its place until the columns are laid out again, and is not drawn.
void tst_PaintedParts::columnHiddenByItsFlag_isBackground()
{
    ThreeRows content;
    PictureGrid & grid = content.grid;
    for (tag_HROW * const row : content.rows) {
        grid.SetItemText(row, content.first, "Text");
    }
    QVERIFY(grid.showSized(300, 200));
    QRect const cells = content.cell(0, content.first) | content.cell(2, content.first);
    QVERIFY(!isFilled(picture(grid), cells, PictureGrid::colorOf(GCC_BACKGROUND)));
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_HIDDEN;
    QVERIFY(grid.SetColumn(content.first, &record));
    settle(grid);
    QVERIFY(isFilled(picture(grid), cells, PictureGrid::colorOf(GCC_BACKGROUND)));
}

void tst_PaintedParts::areaRightOfColumns_isBackground()
{
    ThreeRows content(GCS_HORZLINES);
    PictureGrid & grid = content.grid;
    QVERIFY(grid.showSized(300, 200));
    int const top = grid.headerHeight();
    QVERIFY(isFilled(grid.paintAll(), QRect(100, top, 200, 200 - top),
                     PictureGrid::colorOf(GCC_BACKGROUND)));
    // A column that shrinks leaves nothing behind.
    grid.SetColumnWidth(content.second, 10);
    QCOMPARE(grid.stalePixels(), QString());
    QVERIFY(isFilled(picture(grid), QRect(70, top, 230, 200 - top),
                     PictureGrid::colorOf(GCC_BACKGROUND)));
}

void tst_PaintedParts::areaRightOfColumns_whenScrolled_isBackground()
{
    PictureGrid grid(GCS_HORZLINES);
    grid.addColumn(150);
    tag_HCOLUMN * const last = grid.addColumn(100);
    grid.addRow("Text");
    QVERIFY(grid.showSized(200, 100));
    // The column's right edge meets that of the client: a pixel beyond the columns comes in.
    grid.EnsureVisible(nullptr, last);
    QCOMPARE(grid.GetPriv().hScrollPos, 51);
    QCOMPARE(grid.stalePixels(), QString());
    int const top = grid.headerHeight();
    QVERIFY(isFilled(grid.paintAll(), QRect(199, top, 1, 100 - top),
                     PictureGrid::colorOf(GCC_BACKGROUND)));
}

void tst_PaintedParts::areaBelowRows_isBackground_data()
{
    QTest::addColumn<bool>("wholeRows");
    QTest::newRow("all rows fit") << false;
    QTest::newRow("a cut row is left out") << true;
}

void tst_PaintedParts::areaBelowRows_isBackground()
{
    QFETCH(bool, wholeRows);
    ThreeRows content(GCS_HORZLINES | (wholeRows ? GCS_WHOLEROWS : 0U));
    PictureGrid & grid = content.grid;
    for (tag_HROW * const row : content.rows) {
        grid.SetRowBkColor(row, Qt::red);
    }
    int const rows = wholeRows ? 2 : 3;
    QVERIFY(grid.showSized(300, wholeRows ? grid.headerHeight() + 55 : 200));
    int const top = grid.headerHeight() + rows * threeRowsHeight;
    QImage const picture = grid.paintAll();
    QVERIFY(isFilled(picture, QRect(0, top, 300, grid.height() - top),
                     PictureGrid::colorOf(GCC_BACKGROUND)));
    QVERIFY(isHalfTone(picture, QRect(0, top - 1, 100, 1), PictureGrid::colorOf(GCC_SEPARATOR)));
}

void tst_PaintedParts::everyPixel_isPainted_data()
{
    addStyles();
}

void tst_PaintedParts::everyPixel_isPainted()
{
    QFETCH(int, style);
    PictureGrid grid(style);
    fillWithAll(grid);
    QVERIFY(grid.showSized(333, 211));
    for (int i = 0; i < 12; ++i) {
        QRect const all = grid.onDevice(grid.below());
        COMPARE_PICTURES(grid.paintAll(Qt::magenta).copy(all), grid.paintAll(Qt::green).copy(all));
        grid.OnScroll(-1, i < 6 ? 3 : 4, 0, true);
        grid.OnScroll(i % 3 == 0 ? 3 : 4, -1, 0, true);
        grid.resize(333 + i * 40, 211 + i * 10);
    }
}

void tst_PaintedParts::paintOfAPart_equalsThatPartOfAll_data()
{
    addStyles();
}

void tst_PaintedParts::paintOfAPart_equalsThatPartOfAll()
{
    QFETCH(int, style);
    PictureGrid grid(style);
    fillWithAll(grid);
    QVERIFY(grid.showSized(333, 211));
    grid.SelectAll();
    grid.focusRow(grid.GetNextRow(GCN_VISIBLE_FIRST, nullptr));
    QRandomGenerator random(7);
    for (int i = 0; i < 150; ++i) {
        if (i % 10 == 0) {
            grid.OnScroll(-1, KScrolledWidget::ScrollToPosition,
                          static_cast<unsigned>(random.bounded(200)), true);
            grid.OnScroll(KScrolledWidget::ScrollToPosition, -1,
                          static_cast<unsigned>(random.bounded(300)), true);
        }
        QImage const all = grid.paintAll();
        QRegion part;
        for (int pieces = random.bounded(1, 8); pieces > 0; --pieces) {
            part += QRect(random.bounded(333), random.bounded(211), random.bounded(1, 90),
                          random.bounded(1, 40)) &
                    grid.rect();
        }
        QImage const painted = grid.paintPart(part);
        QImage expected = grid.blank();
        for (QRect const & piece : part) {
            QRect const device = grid.onDevice(piece);
            for (int y = device.top(); y <= device.bottom(); ++y) {
                for (int x = device.left(); x <= device.right(); ++x) {
                    expected.setPixel(x, y, all.pixel(x, y));
                }
            }
        }
        COMPARE_PICTURES(painted, expected);
    }
}

void tst_PaintedParts::slimCallbacks_bracketThePaint()
{
    SlimGrid content;
    QVERIFY(content.show());
    content.grid.paintAll();
    QByteArrayList expected = {"begin"};
    for (int i = 0; i < 5; ++i) {
        expected << "row"
                 << "children"
                 << "item"
                 << "text"
                 << "item"
                 << "text"
                 << "release";
    }
    expected << "end";
    QCOMPARE(content.slim.calls, expected);
    // The brackets stand round a paint without rows too.
    content.grid.DeleteAllRows();
    content.slim.calls.clear();
    content.grid.paintAll();
    QCOMPARE(content.slim.calls, QByteArrayList({"begin", "end"}));
}

void tst_PaintedParts::paintDuringAPaint_drawsNothing()
{
    SlimGrid content;
    QVERIFY(content.show());
    QImage const expected = content.grid.paintAll();
    content.slim.calls.clear();
    content.slim.hook = [&](char const *) { content.grid.paintNested(); };
    QImage const picture = content.grid.paintAll();
    COMPARE_PICTURES(picture, expected);
    QCOMPARE(content.slim.count("begin"), 1);
    QCOMPARE(content.slim.count("row"), 5);
    // After it the next one draws again.
    content.slim.hook = nullptr;
    COMPARE_PICTURES(content.grid.paintAll(), expected);
}

void tst_PaintedParts::stripOfRows_asksForThoseAlone()
{
    SlimGrid content;
    QVERIFY(content.show());
    int const top = content.grid.headerHeight();
    content.grid.paintPart(QRect(70, top + 25, 10, 30));
    QCOMPARE(content.slim.count("row"), 2);
    QCOMPARE(content.slim.count("item"), 2);
    content.slim.calls.clear();
    content.grid.paintPart(QRect(59, top + 19, 2, 2));
    QCOMPARE(content.slim.count("row"), 2);
    QCOMPARE(content.slim.count("item"), 4);
    content.slim.calls.clear();
    content.grid.paintPart(QRect(0, 0, 300, top));
    QCOMPARE(content.slim.count("row"), 0);
}

void tst_PaintedParts::stripBelowAllRows_asksForNoneBeyondTheDisplay()
{
    SlimGrid content(100'000, GCS_WHOLEROWS);
    QVERIFY(content.show());
    content.grid.OnScroll(-1, KScrolledWidget::ScrollToEnd, 0, true);
    settle(content.grid);
    content.slim.calls.clear();
    content.grid.paintPart(QRect(0, content.grid.height() - 2, 300, 2));
    QVERIFY2(content.slim.count("row") <= 5,
             qPrintable(QString::number(content.slim.count("row"))));
}

ZENU_TEST(tst_PaintedParts)
#include "tst_PaintedParts.moc"
