#include "examples/explorer/ExplorerGrid.h"

#include "examples/explorer/ExplorerDrag.h"
#include "examples/explorer/HeaderClicks.h"
#include "examples/explorer/rows/Icons.h"

#include <zenu/header/KHeader.h>

#include <QApplication>
#include <QChildEvent>
#include <QLineEdit>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace explorer {

namespace {

constexpr int rightAligned = 2; // in the format of a column
constexpr int smallestName = 160;
constexpr int smallestColumn = 40;
constexpr int largestColumn = 10000;
constexpr int rowMargin = 5;    // pixels above and below a text
constexpr int wheelNotch = 120; // eighths of a degree
constexpr unsigned gridStyle = zenu::GCS_FULLROWSELECT | zenu::GCS_SHOWSELALWAYS;
constexpr unsigned stopsByKey = 0x4; // of a column: Left and Right go from one such to the next

struct ColumnLook
{
    char const * title;
    int width; // in characters
    int kind;
    int format;
    unsigned flags;
};

constexpr ColumnLook looks[columnCount] = {
    {"Name", 40, zenu::GCCK_TEXTWITHICON, 0,
     zenu::GCCF_TREE | zenu::GCCF_TREELINES | zenu::GCCF_EDITABLE | zenu::GCCF_DELAYEDEDIT |
         zenu::GCCF_TYPEAHEAD | stopsByKey},
    {"Size\xa0", 14, zenu::GCCK_TEXT, rightAligned, 0},
    {"Kind", 22, zenu::GCCK_TEXT, 0, 0},
    {"Modified", 22, zenu::GCCK_TEXT, 0, 0},
    {"Runs", 6, zenu::GCCK_CHECKBOX, 0, stopsByKey},
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
    , drags(new ExplorerDrag(this))
{
    SetGridExStyle(zenu::GCXS_HEADERDRAG);
    setFocusPolicy(Qt::StrongFocus);
    setVScrollBarMode(AlwaysOn);
    setHScrollBarMode(AsNeeded);
    SetDefaultHeight(fontMetrics().height() + rowMargin);
    setIcons();
    setColors();
    addColumns();
    watchHeader();
}

void ExplorerGrid::watchHeader()
{
    auto * const clicks = new HeaderClicks(getHeader());
    connect(clicks, &HeaderClicks::clicked, this,
            [this](int item) { Q_EMIT headerClicked(columnOf(HeaderItem2Column(item))); });
    connect(clicks, &HeaderClicks::dividerDoubleClicked, this,
            [this](int item) { Q_EMIT dividerDoubleClicked(columnOf(HeaderItem2Column(item))); });
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

void ExplorerGrid::selectOnly(zenu::tag_HROW * row)
{
    if (row) {
        ClearSelection();
        SetRowSel(row, true);
    }
}

void ExplorerGrid::setCurrentRow(zenu::tag_HROW * row)
{
    selectOnly(row);
    EnsureVisible(row, zenu::GC_NOCOLUMN);
}

QRect ExplorerGrid::rowsRect() const
{
    QRect rows = getClientRect();
    rows.setTop(getHeader()->height());
    return rows;
}

void ExplorerGrid::sortBy(Column column, bool ascending)
{
    sorting.column = column;
    sorting.ascending = ascending;
    if (column == Column::Name && ascending && (!sorting.rows || sorting.rows->isInNameOrder())) {
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
        fitColumn(static_cast<Column>(i));
    }
}

void ExplorerGrid::fitColumn(Column column)
{
    zenu::tag_HCOLUMN * const handle = handleOf(column);
    SetColumnWidth(handle, std::max(BestFit(handle), smallestColumn));
    stretches = false;
}

QList<int> ExplorerGrid::columnWidths() const
{
    QList<int> widths;
    for (int i = 0; i < columnCount && !stretches; ++i) {
        widths += GetColumnWidth(handleOf(static_cast<Column>(i)));
    }
    return widths;
}

void ExplorerGrid::setColumnWidths(QList<int> const & widths)
{
    auto const isWidth = [](int width) { return width >= 0 && width <= largestColumn; };
    if (widths.size() != columnCount || !std::ranges::all_of(widths, isWidth)) {
        return;
    }
    for (int i = 0; i < columnCount; ++i) {
        SetColumnWidth(handleOf(static_cast<Column>(i)), widths[i]);
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

bool ExplorerGrid::OnSelectionChanging(zenu::GC_SELECTIONCHANGE * change)
{
    return drags->maySelect(*change);
}

// No edit may open under a drag, and true vetoes.
bool ExplorerGrid::OnItemChanging(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column)
{
    return drags->isDragging() || !mayEdit || !mayEdit(row, columnOf(column));
}

void ExplorerGrid::OnKeyPressed(QKeyEvent * event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier &&
        GetFocusedColumn() == handleOf(Column::Executable)) {
        event->accept();
        Q_EMIT flipWanted();
    }
}

bool ExplorerGrid::OnClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN *, unsigned element)
{
    drags->press(row, element);
    return true;
}

// A menu that opened within the press would take the release.
bool ExplorerGrid::OnRightClick(zenu::tag_HROW *, zenu::tag_HCOLUMN *, unsigned)
{
    QTimer::singleShot(0, this, [this] { Q_EMIT menuWanted(mapToGlobal(pressPoint)); });
    return true;
}

// The second press on a check box or an expand button is the grid's as the first was.
bool ExplorerGrid::OnDoubleClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN *, unsigned element)
{
    if (element == zenu::GCEL_CHECK || element == zenu::GCEL_BUTTON) {
        return false;
    }
    if (row) {
        selectOnly(row);
        Q_EMIT rowDoubleClicked();
    }
    return true;
}

void ExplorerGrid::OnHover(zenu::tag_HROW *, zenu::tag_HCOLUMN *, int)
{
    drags->begin();
}

void ExplorerGrid::OnDragEnter(QDragEnterEvent * event, zenu::tag_HROW * row, zenu::tag_HCOLUMN *)
{
    drags->enter(event, row);
}

void ExplorerGrid::OnDragMove(QDragMoveEvent * event, zenu::tag_HROW * row, zenu::tag_HCOLUMN *)
{
    drags->moveOver(event, row);
}

void ExplorerGrid::OnDragLeave(QDragLeaveEvent *)
{
    drags->leave();
}

void ExplorerGrid::OnDrop(QDropEvent * event, zenu::tag_HROW * row, zenu::tag_HCOLUMN *)
{
    drags->drop(event, row);
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

void ExplorerGrid::mousePressEvent(QMouseEvent * event)
{
    pressPoint = event->position().toPoint();
    KGridCtrl::mousePressEvent(event);
    // Elsewhere in the row means the row, and letters that are typed then its name.
    if (currentRow() && GetFocusedColumn() != handleOf(Column::Executable)) {
        SetFocusedColumn(handleOf(Column::Name));
    }
}

// The grid tells of the first move after a press, and no hand is that steady: it hears of a move
// when it is one.
void ExplorerGrid::mouseMoveEvent(QMouseEvent * event)
{
    int const distance = (event->position().toPoint() - pressPoint).manhattanLength();
    if (event->buttons() == Qt::NoButton || distance >= QApplication::startDragDistance()) {
        KGridCtrl::mouseMoveEvent(event);
    }
}

void ExplorerGrid::mouseReleaseEvent(QMouseEvent * event)
{
    KGridCtrl::mouseReleaseEvent(event);
    drags->release();
}

// That of the mouse has come as a right click.
void ExplorerGrid::contextMenuEvent(QContextMenuEvent * event)
{
    zenu::tag_HROW * const row = currentRow();
    if (event->reason() != QContextMenuEvent::Mouse && row) {
        QRect place;
        GetItemRect(row, handleOf(Column::Name), &place);
        Q_EMIT menuWanted(mapToGlobal(QPoint(place.left() + place.height(), place.bottom())));
    }
}

// A window that moves to another screen may need sharper icons. An editor is a child that is
// polished when it is shown.
bool ExplorerGrid::event(QEvent * event)
{
    if (event->type() == QEvent::ScreenChangeInternal) {
        setIcons();
    } else if (event->type() == QEvent::PaletteChange) {
        setColors();
    } else if (event->type() == QEvent::ChildPolished) {
        auto * const child = static_cast<QChildEvent *>(event)->child();
        if (auto * const editor = qobject_cast<QLineEdit *>(child)) {
            Q_EMIT editorOpened(editor);
        }
    }
    return KGridCtrl::event(event);
}

} // namespace explorer
