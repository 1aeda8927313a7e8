#include "tests/grid_painting/PictureGrid.h"
#include "tests/support/TestMain.h"

#include <QLineEdit>

using namespace zenutest;

// What a shown grid paints, by pixels computed from the rules.
class tst_GridPicture : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void selection_followsFocusAndStyle_data();
    void selection_followsFocusAndStyle();
    void selectedSection_followsFocusAndStyle_data();
    void selectedSection_followsFocusAndStyle();
    void focusComesAndGoes_selectionIsRepainted();
    void anotherWindowIsActive_selectionIsRepainted();

    void focusLines_standRoundTheFocusedRow();
    void focusLines_withFramedColumn_areNotDrawn();
    void focusCell_leavesAFrame();
    void separators_standAtTheEndsOfCellsAndRows();
    void hiddenColumn_isSkipped();
    void section_spansAllColumns();
    void treeLines_endAtTheLastRow();
    void images_followSelection();
    void ownerDrawColumn_showsTreePartsOnly();

    void emptyGrid_isBackground_data();
    void emptyGrid_isBackground();
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

namespace {

constexpr int rowHeight = 20;

// Two columns of 60 and 40 pixels and three rows of 20, the second selected.
struct ThreeRows
{
    explicit ThreeRows(long style = 0, QWidget * parent = nullptr)
        : grid(style, parent)
    {
        grid.SetDefaultHeight(rowHeight);
        first = grid.addColumn(60);
        second = grid.addColumn(40);
        for (tag_HROW *& row : rows) {
            row = grid.addRow();
        }
    }
    // Of a cell of the row, in widget coordinates.
    QRect cell(int row, tag_HCOLUMN * column) const
    {
        QRect rect;
        grid.GetItemRect(rows[row], column, &rect);
        return rect.adjusted(0, 0, -1, 0);
    }

    PictureGrid grid;
    tag_HCOLUMN * first;
    tag_HCOLUMN * second;
    tag_HROW * rows[3] = {};
};

void addFocusAndStyle()
{
    QTest::addColumn<bool>("focus");
    QTest::addColumn<bool>("always");
    QTest::addColumn<int>("look"); // 0 none, 1 active, 2 inactive
    QTest::newRow("focus") << true << false << 1;
    QTest::newRow("focus, always shown") << true << true << 1;
    QTest::newRow("no focus") << false << false << 0;
    QTest::newRow("no focus, always shown") << false << true << 2;
}

// A grid above a line edit that can have the focus instead.
struct Window : QWidget
{
    explicit Window(long style)
        : content(style, this)
        , edit(this)
    {
        resize(300, 240);
        content.grid.setGeometry(0, 0, 300, 200);
        edit.setGeometry(0, 210, 300, 24);
    }
    bool focusOn(bool grid)
    {
        bool const active = content.grid.takeFocus();
        if (!grid) {
            edit.setFocus();
        }
        settle(*this);
        return active && content.grid.hasFocus() == grid;
    }
    ThreeRows content;
    QLineEdit edit;
};

} // namespace

void tst_GridPicture::selection_followsFocusAndStyle_data()
{
    addFocusAndStyle();
}

void tst_GridPicture::selection_followsFocusAndStyle()
{
    QFETCH(bool, focus);
    QFETCH(bool, always);
    QFETCH(int, look);
    Window window(GCS_FULLROWSELECT | (always ? GCS_SHOWSELALWAYS : 0U));
    ThreeRows & content = window.content;
    QVERIFY(showAndSettle(window));
    content.grid.SetRowSel(content.rows[1], true);
    content.grid.focusRow(content.rows[0]);
    QVERIFY(window.focusOn(focus));
    int const colors[] = {GCC_BACKGROUND, GCC_SELBACKGROUND, GCC_INACTIVESELBACKGROUND};
    QImage const picture = zenutest::picture(window);
    for (tag_HCOLUMN * const column : {content.first, content.second}) {
        QVERIFY(isFilled(picture, content.cell(1, column), PictureGrid::colorOf(colors[look])));
        QVERIFY(isFilled(picture, content.cell(2, column), PictureGrid::colorOf(GCC_BACKGROUND)));
    }
}

void tst_GridPicture::selectedSection_followsFocusAndStyle_data()
{
    addFocusAndStyle();
}

void tst_GridPicture::selectedSection_followsFocusAndStyle()
{
    QFETCH(bool, focus);
    QFETCH(bool, always);
    QFETCH(int, look);
    Window window(always ? GCS_SHOWSELALWAYS : 0U);
    PictureGrid & grid = window.content.grid;
    tag_HROW * const section = grid.addSection("");
    QVERIFY(showAndSettle(window));
    grid.SetRowSel(section, true);
    grid.focusRow(window.content.rows[0]);
    QVERIFY(window.focusOn(focus));
    int const backgrounds[] = {GCC_SECTIONBACKGROUND, GCC_SELSECTIONBACKGROUND,
                               GCC_INACTIVESELSECTIONBACKGROUND};
    int const tops[] = {GCC_SECTIONTOP, GCC_SELSECTIONTOP, GCC_INACTIVESELSECTIONTOP};
    int const bottoms[] = {GCC_SECTIONBOTTOM, GCC_SELSECTIONBOTTOM, GCC_INACTIVESELSECTIONBOTTOM};
    QRect const row = grid.rowRect(section);
    QImage const picture = zenutest::picture(window);
    QVERIFY(isFilled(picture, QRect(0, row.top(), 100, 1), PictureGrid::colorOf(tops[look])));
    QVERIFY(isFilled(picture, QRect(0, row.top() + 1, 100, rowHeight - 2),
                     PictureGrid::colorOf(backgrounds[look])));
    QVERIFY(isFilled(picture, QRect(0, row.bottom(), 100, 1), PictureGrid::colorOf(bottoms[look])));
}

void tst_GridPicture::focusComesAndGoes_selectionIsRepainted()
{
    Window window(0);
    ThreeRows & content = window.content;
    QVERIFY(showAndSettle(window));
    content.grid.SetRowSel(content.rows[1], true);
    QVERIFY(window.focusOn(true));
    QCOMPARE(content.grid.stalePixels(), QString());
    QRect const cell = content.cell(1, content.second).adjusted(0, 1, 0, -1);
    QVERIFY(isFilled(picture(window), cell, PictureGrid::colorOf(GCC_SELBACKGROUND)));
    QVERIFY(window.focusOn(false));
    QCOMPARE(content.grid.stalePixels(), QString());
    QVERIFY(isFilled(picture(window), cell, PictureGrid::colorOf(GCC_BACKGROUND)));
    QVERIFY(window.focusOn(true));
    QCOMPARE(content.grid.stalePixels(), QString());
    QVERIFY(isFilled(picture(window), cell, PictureGrid::colorOf(GCC_SELBACKGROUND)));
}

void tst_GridPicture::anotherWindowIsActive_selectionIsRepainted()
{
    Window window(GCS_SHOWSELALWAYS);
    ThreeRows & content = window.content;
    QVERIFY(showAndSettle(window));
    content.grid.SetRowSel(content.rows[1], true);
    QVERIFY(window.focusOn(true));
    QWidget other;
    other.setGeometry(400, 0, 100, 100);
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    settle(window);
    QVERIFY(!content.grid.hasFocus());
    QVERIFY(isFilled(picture(window), content.cell(1, content.second),
                     PictureGrid::colorOf(GCC_INACTIVESELBACKGROUND)));
}

void tst_GridPicture::focusLines_standRoundTheFocusedRow()
{
    ThreeRows content(GCS_FULLROWSELECT);
    PictureGrid & grid = content.grid;
    QVERIFY(grid.showSized(300, 200));
    QVERIFY(grid.takeFocus());
    grid.SetRowSel(content.rows[1], true);
    QVERIFY(grid.GetNextRow(GCN_FOCUSED, nullptr) == content.rows[1]);
    QRect const row = grid.rowRect(content.rows[1]);
    // In the complement of the row's background before selection, over all columns.
    QColor const line = QColor::fromRgb(~PictureGrid::colorOf(GCC_BACKGROUND).rgb() & 0xffffff);
    QImage const withFocus = grid.paintAll();
    for (int const y : {row.top(), row.bottom()}) {
        QVERIFY(isHalfTone(withFocus, QRect(0, y, 100, 1), line));
        QCOMPARE(QColor(withFocus.pixel(100, y)), PictureGrid::colorOf(GCC_BACKGROUND));
    }
    QVERIFY(isFilled(withFocus, QRect(0, row.top() + 1, 100, rowHeight - 2),
                     PictureGrid::colorOf(GCC_SELBACKGROUND)));
    grid.clearFocus();
    QVERIFY(isFilled(grid.paintAll(), QRect(0, row.top(), 100, rowHeight),
                     PictureGrid::colorOf(GCC_BACKGROUND)));
}

void tst_GridPicture::focusLines_withFramedColumn_areNotDrawn()
{
    ThreeRows content(GCS_FULLROWSELECT);
    PictureGrid & grid = content.grid;
    tag_HCOLUMN * const framed = grid.addColumn(80, GCCK_TEXT, GCCF_FRAMED);
    grid.SetItemText(content.rows[1], framed, "Text");
    QVERIFY(grid.showSized(300, 200));
    QVERIFY(grid.takeFocus());
    grid.focusRow(content.rows[1]);
    QRect const row = grid.rowRect(content.rows[1]);
    QImage const picture = grid.paintAll();
    QColor const background = PictureGrid::colorOf(GCC_BACKGROUND);
    QVERIFY(isFilled(picture, QRect(0, row.top(), 100, rowHeight), background));
    // The frame starts at the cell's left edge, two pixels before the text.
    QColor const frame = QColor::fromRgb(~background.rgb() & 0xffffff);
    QFontMetrics const metrics(grid.font(), &grid);
    int const height = metrics.size(Qt::TextSingleLine, QStringLiteral("Text")).height();
    QRect const line(100, row.top() + (rowHeight - height) / 2, 1, height);
    QVERIFY(isHalfTone(picture, line, frame));
    QVERIFY(isFilled(picture, QRect(100, row.top(), 80, (rowHeight - height) / 2), background));
    // A hidden framed column keeps the lines away as well.
    grid.ShowColumn(framed, false);
    QVERIFY(isFilled(grid.paintAll(), QRect(0, row.top(), 100, rowHeight), background));
}

void tst_GridPicture::focusCell_leavesAFrame()
{
    ThreeRows content(GCS_SHOWSELALWAYS);
    PictureGrid & grid = content.grid;
    QVERIFY(grid.showSized(300, 200));
    grid.SetRowSel(content.rows[1], true);
    QVERIFY(grid.GetFocusedColumn() == content.first);
    QRect const cell = content.cell(1, content.first);
    QColor const selected = PictureGrid::colorOf(GCC_INACTIVESELBACKGROUND);
    grid.clearFocus();
    QImage const picture = grid.paintAll();
    QVERIFY(isFilled(picture, cell.adjusted(1, 1, -1, -1), PictureGrid::colorOf(GCC_BACKGROUND)));
    QVERIFY(isFilled(picture, QRect(cell.topLeft(), QSize(60, 1)), selected));
    QVERIFY(isFilled(picture, QRect(cell.bottomLeft(), QSize(60, 1)), selected));
    QVERIFY(isFilled(picture, QRect(cell.topLeft(), QSize(1, rowHeight)), selected));
    QVERIFY(isFilled(picture, QRect(cell.topRight(), QSize(1, rowHeight)), selected));
    QVERIFY(isFilled(picture, content.cell(1, content.second), selected));
    grid.SetColor(GCC_FOCUSBACKGROUND, Qt::yellow);
    QVERIFY(isFilled(grid.paintAll(), cell.adjusted(1, 1, -1, -1), Qt::yellow));
}

void tst_GridPicture::separators_standAtTheEndsOfCellsAndRows()
{
    ThreeRows content(GCS_VERTLINES | GCS_HORZLINES);
    PictureGrid & grid = content.grid;
    QVERIFY(grid.showSized(300, 200));
    QImage const picture = grid.paintAll();
    QColor const separator = PictureGrid::colorOf(GCC_SEPARATOR);
    QColor const background = PictureGrid::colorOf(GCC_BACKGROUND);
    for (int i = 0; i < 3; ++i) {
        QRect const row = grid.rowRect(content.rows[i]);
        QVERIFY(isHalfTone(picture, QRect(0, row.bottom(), 100, 1), separator));
        QCOMPARE(QColor(picture.pixel(100, row.bottom())), background);
        for (int const right : {59, 99}) {
            QVERIFY(isHalfTone(picture, QRect(right, row.top(), 1, rowHeight - 1), separator));
        }
        QVERIFY(isFilled(picture, QRect(0, row.top(), 59, rowHeight - 1), background));
        QVERIFY(isFilled(picture, QRect(60, row.top(), 39, rowHeight - 1), background));
    }
}

void tst_GridPicture::hiddenColumn_isSkipped()
{
    PictureGrid with(GCS_VERTLINES);
    PictureGrid without(GCS_VERTLINES);
    with.addColumn(60);
    tag_HCOLUMN * const hidden = with.addColumn(50);
    with.addColumn(40);
    without.addColumn(60);
    without.addColumn(40);
    with.addRow("Text");
    without.addRow("Text");
    with.ShowColumn(hidden, false);
    QVERIFY(with.showSized(300, 200));
    QVERIFY(without.showSized(300, 200));
    COMPARE_PICTURES(with.paintAll(), without.paintAll());
    with.ShowColumn(hidden, true);
    QVERIFY(difference(with.paintAll(), without.paintAll()) != QString());
}

void tst_GridPicture::section_spansAllColumns()
{
    ThreeRows content(GCS_VERTLINES | GCS_HORZLINES);
    PictureGrid & grid = content.grid;
    tag_HROW * const section = grid.addSection("Hill");
    QVERIFY(grid.showSized(300, 200));
    QImage const picture = grid.paintAll();
    QRect const row = grid.rowRect(section);
    QVERIFY(isFilled(picture, QRect(0, row.top(), 100, 1), PictureGrid::colorOf(GCC_SECTIONTOP)));
    // The title starts at 15; no vertical line crosses the section.
    QColor const ground = PictureGrid::colorOf(GCC_SECTIONBACKGROUND);
    QVERIFY(isFilled(picture, QRect(0, row.top() + 1, 15, rowHeight - 2), ground));
    QVERIFY(isFilled(picture, QRect(60, row.top() + 1, 40, rowHeight - 2), ground));
    QVERIFY(!isFilled(picture, QRect(15, row.top() + 1, 45, rowHeight - 2), ground));
    // The horizontal line covers the bottom line.
    QVERIFY(
        isHalfTone(picture, QRect(0, row.bottom(), 100, 1), PictureGrid::colorOf(GCC_SEPARATOR)));
    QCOMPARE(QColor(picture.pixel(100, row.top() + 5)), PictureGrid::colorOf(GCC_BACKGROUND));
}

void tst_GridPicture::treeLines_endAtTheLastRow()
{
    PictureGrid grid;
    grid.SetDefaultHeight(rowHeight);
    grid.SetIndent(16);
    grid.addColumn(100, GCCK_TEXT, GCCF_TREE | GCCF_TREELINES);
    tag_HROW * const top = grid.addRow();
    tag_HROW * const child = grid.addRow("", top);
    tag_HROW * const last = grid.addRow();
    QVERIFY(grid.showSized(300, 200));
    QImage const picture = grid.paintAll();
    QColor const line = lineColor();
    QColor const ground = PictureGrid::colorOf(GCC_BACKGROUND);
    int const middle = (rowHeight - 9) / 2 + 4;
    auto const vertical = [&](tag_HROW * row, int x, int from, int to, QColor const & color) {
        return isFilled(picture, QRect(x, grid.rowRect(row).top() + from, 1, to - from), color);
    };
    // The button covers the rest.
    QVERIFY(vertical(top, 6, 0, middle - 4, ground));
    QVERIFY(vertical(top, 6, middle + 5, rowHeight, line));
    QVERIFY(vertical(child, 6, 0, rowHeight, line));
    QVERIFY(vertical(child, 22, 0, middle + 1, line));
    QVERIFY(vertical(child, 22, middle + 1, rowHeight, ground));
    QVERIFY(vertical(last, 6, 0, middle + 1, line));
    QVERIFY(vertical(last, 6, middle + 1, rowHeight, ground));
    // A lone row has none but the one to its text, half an indentation less 2 long.
    PictureGrid other;
    other.SetDefaultHeight(rowHeight);
    other.SetIndent(16);
    other.addColumn(100, GCCK_TEXT, GCCF_TREE | GCCF_TREELINES);
    int const y = other.rowRect(other.addRow()).top();
    QVERIFY(other.showSized(300, 200));
    QImage const lone = other.paintAll();
    QVERIFY(isFilled(lone, QRect(6, y, 1, middle), ground));
    QVERIFY(isFilled(lone, QRect(6, y + middle, 16 / 2 - 2, 1), line));
    QVERIFY(isFilled(lone, QRect(6, y + middle + 1, 1, rowHeight - middle - 1), ground));
    QCOMPARE(QColor(lone.pixel(12, y + middle)), ground);
}

void tst_GridPicture::images_followSelection()
{
    PictureGrid grid;
    grid.SetDefaultHeight(rowHeight);
    tag_HCOLUMN * const column = grid.addColumn(60, GCCK_ICON);
    tag_HROW * const row = grid.addRow();
    grid.setImages(GCIL_NORMAL, QSize(16, 16), {Qt::red, Qt::darkRed});
    grid.setImages(GCIL_SELECTED, QSize(16, 16), {Qt::blue, Qt::darkBlue});
    grid.setImages(GCIL_OVERLAY, QSize(6, 6), {Qt::yellow});
    grid.setImages(GCIL_STATE, QSize(3, 3), {Qt::black});
    auto const setImage = [&](unsigned mask, int image) {
        grid.SetItem(row, column, mask, nullptr, image, 0);
    };
    setImage(GCIM_IMAGE, 1);
    QVERIFY(grid.showSized(300, 200));
    QRect const image(2, grid.rowRect(row).top() + 2, 16, 16);
    QVERIFY(isFilled(grid.paintAll(), image, Qt::darkRed));
    setImage(GCIM_OVERLAY, 0);
    setImage(GCIM_STATEIMAGE, 0);
    QImage const layered = grid.paintAll();
    QCOMPARE(QColor(layered.pixel(image.topLeft())), QColor(Qt::black));
    QCOMPARE(QColor(layered.pixel(image.topLeft() + QPoint(4, 4))), QColor(Qt::yellow));
    QCOMPARE(QColor(layered.pixel(image.topLeft() + QPoint(7, 7))), QColor(Qt::darkRed));
    setImage(GCIM_OVERLAY, -1);
    setImage(GCIM_STATEIMAGE, -1);
    QVERIFY(grid.takeFocus());
    grid.SetRowSel(row, true);
    QVERIFY(isFilled(grid.paintAll(), image, Qt::darkBlue));
    grid.clearFocus();
    QVERIFY(isFilled(grid.paintAll(), image, Qt::darkRed));
    QCOMPARE(QColor(grid.paintAll().pixel(image.topRight() + QPoint(1, 4))),
             PictureGrid::colorOf(GCC_BACKGROUND));
}

void tst_GridPicture::ownerDrawColumn_showsTreePartsOnly()
{
    PictureGrid grid;
    grid.SetDefaultHeight(rowHeight);
    grid.addColumn(100, GCCK_OWNERDRAW, GCCF_TREE);
    tag_HROW * const row = grid.addRow("Text");
    grid.addRow("Text", row);
    QVERIFY(grid.showSized(300, 200));
    QRect const button(2, grid.rowRect(row).top() + 5, 9, 9);
    QImage expected = grid.paintAll();
    QPainter painter(&expected);
    painter.fillRect(0, grid.rowRect(row).top(), 100, 2 * rowHeight,
                     PictureGrid::colorOf(GCC_BACKGROUND));
    glyph(painter, GlyphExpanded, button.topLeft());
    painter.end();
    COMPARE_PICTURES(grid.paintAll(), expected);
}

void tst_GridPicture::emptyGrid_isBackground_data()
{
    QTest::addColumn<bool>("columns");
    QTest::addColumn<bool>("rows");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("columns without rows") << true << false;
    QTest::newRow("rows without columns") << false << true;
}

void tst_GridPicture::emptyGrid_isBackground()
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

void tst_GridPicture::areaRightOfColumns_isBackground()
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

void tst_GridPicture::areaRightOfColumns_whenScrolled_isBackground()
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

void tst_GridPicture::areaBelowRows_isBackground_data()
{
    QTest::addColumn<bool>("wholeRows");
    QTest::newRow("all rows fit") << false;
    QTest::newRow("a cut row is left out") << true;
}

void tst_GridPicture::areaBelowRows_isBackground()
{
    QFETCH(bool, wholeRows);
    ThreeRows content(GCS_HORZLINES | (wholeRows ? GCS_WHOLEROWS : 0U));
    PictureGrid & grid = content.grid;
    for (tag_HROW * const row : content.rows) {
        grid.SetRowBkColor(row, Qt::red);
    }
    int const rows = wholeRows ? 2 : 3;
    QVERIFY(grid.showSized(300, wholeRows ? grid.headerHeight() + 55 : 200));
    int const top = grid.headerHeight() + rows * rowHeight;
    QImage const picture = grid.paintAll();
    QVERIFY(isFilled(picture, QRect(0, top, 300, grid.height() - top),
                     PictureGrid::colorOf(GCC_BACKGROUND)));
    QVERIFY(isHalfTone(picture, QRect(0, top - 1, 100, 1), PictureGrid::colorOf(GCC_SEPARATOR)));
}

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

} // namespace

void tst_GridPicture::everyPixel_isPainted_data()
{
    addStyles();
}

void tst_GridPicture::everyPixel_isPainted()
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

void tst_GridPicture::paintOfAPart_equalsThatPartOfAll_data()
{
    addStyles();
}

void tst_GridPicture::paintOfAPart_equalsThatPartOfAll()
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

namespace {

// A hundred slim rows of 20 pixels in two columns.
struct SlimGrid
{
    explicit SlimGrid(int count = 100, long style = 0)
        : grid(style)
    {
        grid.SetSlimGridCallback(&slim);
        grid.SetDefaultHeight(rowHeight);
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

void tst_GridPicture::slimCallbacks_bracketThePaint()
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

void tst_GridPicture::paintDuringAPaint_drawsNothing()
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

void tst_GridPicture::stripOfRows_asksForThoseAlone()
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

void tst_GridPicture::stripBelowAllRows_asksForNoneBeyondTheDisplay()
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

ZENU_TEST(tst_GridPicture)
#include "tst_GridPicture.moc"
