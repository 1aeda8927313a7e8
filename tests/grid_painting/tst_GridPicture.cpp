#include "tests/grid_painting/PictureGrid.h"
#include "tests/support/TestMain.h"

#include <QLineEdit>

using namespace zenutest;

namespace {

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
};

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
    QVERIFY(isFilled(picture, QRect(0, row.top() + 1, 100, threeRowsHeight - 2),
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
    QVERIFY(isFilled(withFocus, QRect(0, row.top() + 1, 100, threeRowsHeight - 2),
                     PictureGrid::colorOf(GCC_SELBACKGROUND)));
    grid.clearFocus();
    QVERIFY(isFilled(grid.paintAll(), QRect(0, row.top(), 100, threeRowsHeight),
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
    QVERIFY(isFilled(picture, QRect(0, row.top(), 100, threeRowsHeight), background));
    // The frame starts at the cell's left edge, two pixels before the text.
    QColor const frame = QColor::fromRgb(~background.rgb() & 0xffffff);
    QFontMetrics const metrics(grid.font(), &grid);
    int const height = metrics.size(Qt::TextSingleLine, QStringLiteral("Text")).height();
    QRect const line(100, row.top() + (threeRowsHeight - height) / 2, 1, height);
    QVERIFY(isHalfTone(picture, line, frame));
    QVERIFY(
        isFilled(picture, QRect(100, row.top(), 80, (threeRowsHeight - height) / 2), background));
    // A hidden framed column keeps the lines away as well.
    grid.ShowColumn(framed, false);
    QVERIFY(isFilled(grid.paintAll(), QRect(0, row.top(), 100, threeRowsHeight), background));
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
    QVERIFY(isFilled(picture, QRect(cell.topLeft(), QSize(1, threeRowsHeight)), selected));
    QVERIFY(isFilled(picture, QRect(cell.topRight(), QSize(1, threeRowsHeight)), selected));
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
            QVERIFY(
                isHalfTone(picture, QRect(right, row.top(), 1, threeRowsHeight - 1), separator));
        }
        QVERIFY(isFilled(picture, QRect(0, row.top(), 59, threeRowsHeight - 1), background));
        QVERIFY(isFilled(picture, QRect(60, row.top(), 39, threeRowsHeight - 1), background));
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
    QVERIFY(isFilled(picture, QRect(0, row.top() + 1, 15, threeRowsHeight - 2), ground));
    QVERIFY(isFilled(picture, QRect(60, row.top() + 1, 40, threeRowsHeight - 2), ground));
    QVERIFY(!isFilled(picture, QRect(15, row.top() + 1, 45, threeRowsHeight - 2), ground));
    // The horizontal line covers the bottom line.
    QVERIFY(
        isHalfTone(picture, QRect(0, row.bottom(), 100, 1), PictureGrid::colorOf(GCC_SEPARATOR)));
    QCOMPARE(QColor(picture.pixel(100, row.top() + 5)), PictureGrid::colorOf(GCC_BACKGROUND));
}

void tst_GridPicture::treeLines_endAtTheLastRow()
{
    PictureGrid grid;
    grid.SetDefaultHeight(threeRowsHeight);
    grid.SetIndent(16);
    grid.addColumn(100, GCCK_TEXT, GCCF_TREE | GCCF_TREELINES);
    tag_HROW * const top = grid.addRow();
    tag_HROW * const child = grid.addRow("", top);
    tag_HROW * const last = grid.addRow();
    QVERIFY(grid.showSized(300, 200));
    QImage const picture = grid.paintAll();
    QColor const line = lineColor();
    QColor const ground = PictureGrid::colorOf(GCC_BACKGROUND);
    int const middle = (threeRowsHeight - 9) / 2 + 4;
    auto const vertical = [&](tag_HROW * row, int x, int from, int to, QColor const & color) {
        return isFilled(picture, QRect(x, grid.rowRect(row).top() + from, 1, to - from), color);
    };
    // The button covers the rest.
    QVERIFY(vertical(top, 6, 0, middle - 4, ground));
    QVERIFY(vertical(top, 6, middle + 5, threeRowsHeight, line));
    QVERIFY(vertical(child, 6, 0, threeRowsHeight, line));
    QVERIFY(vertical(child, 22, 0, middle + 1, line));
    QVERIFY(vertical(child, 22, middle + 1, threeRowsHeight, ground));
    QVERIFY(vertical(last, 6, 0, middle + 1, line));
    QVERIFY(vertical(last, 6, middle + 1, threeRowsHeight, ground));
    // A lone row has none but the one to its text, half an indentation less 2 long.
    PictureGrid other;
    other.SetDefaultHeight(threeRowsHeight);
    other.SetIndent(16);
    other.addColumn(100, GCCK_TEXT, GCCF_TREE | GCCF_TREELINES);
    int const y = other.rowRect(other.addRow()).top();
    QVERIFY(other.showSized(300, 200));
    QImage const lone = other.paintAll();
    QVERIFY(isFilled(lone, QRect(6, y, 1, middle), ground));
    QVERIFY(isFilled(lone, QRect(6, y + middle, 16 / 2 - 2, 1), line));
    QVERIFY(isFilled(lone, QRect(6, y + middle + 1, 1, threeRowsHeight - middle - 1), ground));
    QCOMPARE(QColor(lone.pixel(12, y + middle)), ground);
}

void tst_GridPicture::images_followSelection()
{
    PictureGrid grid;
    grid.SetDefaultHeight(threeRowsHeight);
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
    grid.SetDefaultHeight(threeRowsHeight);
    grid.addColumn(100, GCCK_OWNERDRAW, GCCF_TREE);
    tag_HROW * const row = grid.addRow("Text");
    grid.addRow("Text", row);
    QVERIFY(grid.showSized(300, 200));
    QRect const button(2, grid.rowRect(row).top() + 5, 9, 9);
    QImage expected = grid.paintAll();
    QPainter painter(&expected);
    painter.fillRect(0, grid.rowRect(row).top(), 100, 2 * threeRowsHeight,
                     PictureGrid::colorOf(GCC_BACKGROUND));
    glyph(painter, GlyphExpanded, button.topLeft());
    painter.end();
    COMPARE_PICTURES(grid.paintAll(), expected);
}

ZENU_TEST(tst_GridPicture)
#include "tst_GridPicture.moc"
