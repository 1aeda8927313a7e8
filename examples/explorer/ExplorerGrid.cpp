#include "examples/explorer/ExplorerGrid.h"

#include "examples/explorer/rows/Icons.h"

#include <zenu/header/KHeader.h>

#include <QApplication>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace explorer {

namespace {

constexpr int rightAligned = 2; // in the format of a column
constexpr int smallestName = 160;
constexpr int smallestColumn = 40;
constexpr int rowMargin = 5;    // pixels above and below a text
constexpr int wheelNotch = 120; // eighths of a degree
constexpr unsigned gridStyle =
    zenu::GCS_FULLROWSELECT | zenu::GCS_SHOWSELALWAYS | zenu::GCS_SINGLESEL;

struct ColumnLook
{
    char const * title;
    int width; // in characters
    int kind;
    int format;
    unsigned flags;
};

constexpr ColumnLook looks[columnCount] = {
    {"Name", 40, zenu::GCCK_TEXTWITHICON, 0, zenu::GCCF_TREE | zenu::GCCF_TREELINES},
    {"Size\xa0", 14, zenu::GCCK_TEXT, rightAligned, 0},
    {"Kind", 22, zenu::GCCK_TEXT, 0, 0},
    {"Modified", 22, zenu::GCCK_TEXT, 0, 0},
    {"Runs", 6, zenu::GCCK_CHECKBOX, 0, 0},
};

QColor mix(QColor const & a, QColor const & b, double part)
{
    auto const channel = [part](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * part));
    };
    return QColor(channel(a.red(), b.red()), channel(a.green(), b.green()),
                  channel(a.blue(), b.blue()));
}

} // namespace

ExplorerGrid::ExplorerGrid(QWidget * parent)
    : KGridCtrl(parent, 0, "files", 0, gridStyle)
{
    setFocusPolicy(Qt::StrongFocus);
    setVScrollBarMode(AlwaysOn);
    setHScrollBarMode(AsNeeded);
    SetDefaultHeight(fontMetrics().height() + rowMargin);
    setIcons();
    setColors();
    addColumns();
}

void ExplorerGrid::addColumns()
{
    int const character = fontMetrics().averageCharWidth();
    for (ColumnLook const & look : looks) {
        std::string title = look.title;
        zenu::GC_COLUMN record;
        record.mask = zenu::GCCM_TEXT | zenu::GCCM_WIDTH | zenu::GCCM_KIND | zenu::GCCM_FORMAT |
                      zenu::GCCM_FLAGS;
        record.text = title.data();
        record.width = look.width * character;
        record.kind = look.kind;
        record.format = look.format;
        record.flags = look.flags;
        AddColumn(&record);
    }
    zenu::KHeader * const header = getHeader();
    header->setButtons(true);
    header->setFlatView(true);
    header->setJustify(Column2HeaderItem(handleOf(Column::Size)), zenu::HeaderJustifyRight);
    sortBy(Column::Name, true);
}

void ExplorerGrid::setIcons()
{
    QPixmap const strip = iconStrip(devicePixelRatioF());
    for (int const list : {zenu::GCIL_NORMAL, zenu::GCIL_SELECTED}) {
        SetImageList(list, strip, iconSize, iconSize, iconCount, false);
    }
}

// Sections get a shade of the selection's colour.
void ExplorerGrid::setColors()
{
    QColor const base = palette().color(QPalette::Active, QPalette::Base);
    QColor const highlight = palette().color(QPalette::Active, QPalette::Highlight);
    SetColor(zenu::GCC_SECTIONBACKGROUND, mix(base, highlight, 0.12));
    SetColor(zenu::GCC_SECTIONTOP, mix(base, highlight, 0.25));
    SetColor(zenu::GCC_SECTIONBOTTOM, mix(base, highlight, 0.25));
    SetColor(zenu::GCC_SECTIONTEXT, palette().color(QPalette::Active, QPalette::Text));
    SetColor(zenu::GCC_SELSECTIONBOTTOM, GetColor(zenu::GCC_SELSECTIONBACKGROUND));
}

void ExplorerGrid::addTopRow(RowSource * source)
{
    sorting.rows = source;
    SetSlimGridCallback(source);
    zenu::tag_HROW * const row =
        InsertSlimRow(RowSource::topRow, true, zenu::GC_ROOT, zenu::GCI_LAST);
    Expand(row, zenu::GCE_EXPAND | zenu::GCE_NOSCROLL);
    sortBy(sorting.column, sorting.ascending);
    ClearSelection();
    SetRowSel(row, true);
}

zenu::tag_HROW * ExplorerGrid::currentRow() const
{
    return GetNextRow(zenu::GCN_FOCUSED);
}

void ExplorerGrid::setCurrentRow(zenu::tag_HROW * row)
{
    ClearSelection();
    SetRowSel(row, true);
    EnsureVisible(row, zenu::GC_NOCOLUMN);
}

void ExplorerGrid::moveCurrentRow(int steps)
{
    zenu::tag_HROW * row = currentRow();
    for (; row && steps < 0; ++steps) {
        zenu::tag_HROW * const previous = GetNextRow(zenu::GCN_VISIBLE_PREV, row);
        row = previous ? previous : row;
    }
    for (; row && steps > 0; --steps) {
        row = rowBelow(row);
    }
    setCurrentRow(row);
}

// The row that is drawn below, which the grid has to show for that; the row itself at the end.
zenu::tag_HROW * ExplorerGrid::rowBelow(zenu::tag_HROW * row)
{
    EnsureVisible(row, zenu::GC_NOCOLUMN);
    if (row == GetBottomIndex()) {
        OnScroll(ScrollNothing, ScrollLineForward, 0, true);
    }
    QRect place;
    zenu::tag_HROW * below = nullptr;
    GetRowRect(row, &place);
    int const height = static_cast<int>(GetRowHeight(row));
    HitTest(QPoint(1, place.top() + height), &below, nullptr);
    return below ? below : row;
}

void ExplorerGrid::sortBy(Column column, bool ascending)
{
    sorting.column = column;
    sorting.ascending = ascending;
    if (column == Column::Name && ascending) {
        Sort(nullptr);
    } else {
        Sort(compareRows, reinterpret_cast<long>(&sorting));
    }
    for (int i = 0; i < columnCount; ++i) {
        bool const isSorted = i == static_cast<int>(column);
        auto const arrow = ascending ? zenu::HeaderSortFirst : zenu::HeaderSortSecond;
        getHeader()->setSortBitmap(Column2HeaderItem(handleOf(static_cast<Column>(i))),
                                   isSorted ? arrow : zenu::HeaderSortNone);
    }
}

void ExplorerGrid::fitColumns()
{
    for (int i = 0; i < columnCount; ++i) {
        zenu::tag_HCOLUMN * const column = handleOf(static_cast<Column>(i));
        SetColumnWidth(column, std::max(BestFit(column), smallestColumn));
    }
    stretches = false;
}

void ExplorerGrid::OnExpanded(zenu::tag_HROW *)
{
    Q_EMIT rowsChanged();
}

void ExplorerGrid::OnSelectionChanged()
{
    Q_EMIT rowsChanged();
}

void ExplorerGrid::OnColumnResized(zenu::tag_HCOLUMN *, int)
{
    stretches = false;
}

void ExplorerGrid::resizeEvent(QResizeEvent * event)
{
    KGridCtrl::resizeEvent(event);
    if (stretches) {
        stretchName();
    }
}

void ExplorerGrid::stretchName()
{
    int others = 0;
    for (int i = 1; i < columnCount; ++i) {
        others += GetColumnWidth(handleOf(static_cast<Column>(i)));
    }
    SetColumnWidth(handleOf(Column::Name),
                   std::max(getClientRect().width() - others - 1, smallestName));
}

void ExplorerGrid::wheelEvent(QWheelEvent * event)
{
    wheelSum += event->angleDelta().y() * QApplication::wheelScrollLines();
    int const code = wheelSum > 0 ? ScrollLineBack : ScrollLineForward;
    for (; std::abs(wheelSum) >= wheelNotch; wheelSum -= wheelSum > 0 ? wheelNotch : -wheelNotch) {
        OnScroll(ScrollNothing, code, 0, true);
    }
    event->accept();
}

// A window that moves to another screen may need sharper icons.
bool ExplorerGrid::event(QEvent * event)
{
    if (event->type() == QEvent::ScreenChangeInternal) {
        setIcons();
    } else if (event->type() == QEvent::PaletteChange) {
        setColors();
    }
    return KGridCtrl::event(event);
}

} // namespace explorer
