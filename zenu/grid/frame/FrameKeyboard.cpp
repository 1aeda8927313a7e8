#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/data/ItemText.h"
#include "zenu/overlay/NarrowText.h"
#include "zenu/util/StringUtils.h"

#include <QKeyEvent>

#include <algorithm>
#include <string_view>

namespace zenu {

namespace {

// Where Left and Right stop. Nothing else asks for this flag of a column, and it bears no name.
constexpr unsigned stopsByKey = 0x4;

constexpr int searchPause = 500; // milliseconds between two keys of one prefix

// Whatever the locale: the bytes above 127 are none.
bool isLetterOrDigit(char c)
{
    unsigned char const folded = foldCase(c);
    return (folded >= 'a' && folded <= 'z') || (folded >= '0' && folded <= '9');
}

bool startsWith(char const * text, std::string const & prefix)
{
    std::string_view const whole(text ? text : "");
    return !whole.empty() && whole.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), whole.begin(),
                      [](char a, char b) { return foldCase(a) == foldCase(b); });
}

} // namespace

void KGridCtrl::PrivateData::GainFocus()
{
    RowGuard const guard(this, nullptr);
    UpdateNow();
    if (guard.hasGrid() && !FocusedRow() && !IsEmpty() && !shownColumns.empty()) {
        CellGuard const first(this, GetRowAt(0), shownColumns.front());
        MoveFocus(0, 0);
        if (first.row()) {
            SelectAlso(first.row());
        }
    }
    if (guard.hasGrid() && notification) {
        notification->OnFocusIn();
    }
    if (guard.hasGrid()) {
        repaintFocusColors();
    }
}

void KGridCtrl::PrivateData::LoseFocus()
{
    RowGuard const guard(this, nullptr);
    if (notification) {
        notification->OnFocusOut();
    }
    if (guard.hasGrid()) {
        repaintFocusColors();
    }
}

// Selected rows have other colours in a grid with the keyboard focus, and the focused cell a frame.
void KGridCtrl::PrivateData::repaintFocusColors()
{
    repaintSelectedRows();
    if (IGCRow * const row = FocusedRow()) {
        InvalidateRow(row);
    }
}

void KGridCtrl::PrivateData::PressKey(QKeyEvent * event)
{
    RowGuard const guard(this, nullptr);
    UpdateNow();
    if (!guard.hasGrid()) {
        return;
    }
    if (IsEmpty() || !FocusedRow() || !ShownColumn(focusColumn)) {
        event->ignore();
        return;
    }
    searchKey(event);
    if (guard.hasGrid()) {
        LeaveHover();
        actOnKey(event);
    }
    if (guard.hasGrid() && notification) {
        notification->OnKeyPressed(event);
    }
}

void KGridCtrl::PrivateData::ResetTypeAhead()
{
    searchTimer.stop();
    typeAhead.clear();
}

void KGridCtrl::PrivateData::searchKey(QKeyEvent const * event)
{
    std::string const text = event->text().toLatin1().toStdString();
    CGCColumn * const column = ShownColumn(focusColumn);
    // With Ctrl a key is a command, whether its text is a control character or the letter.
    if (text.empty() || !isLetterOrDigit(text.front()) || !column->HasFlag(GCCF_TYPEAHEAD) ||
        event->modifiers().testFlag(Qt::ControlModifier)) {
        return;
    }
    RowGuard const guard(this, nullptr);
    typeAhead += text;
    searchTimer.stop();
    search(FocusedRow(), column, std::string(typeAhead));
    if (guard.hasGrid()) {
        searchTimer.start(searchPause, Qt::PreciseTimer, grid);
    }
}

// The first key looks past the current row; a longer prefix can stay on it.
void KGridCtrl::PrivateData::search(IGCRow * row, CGCColumn * column, std::string const & prefix)
{
    CellGuard const searched(this, nullptr, column);
    int start = IndexOf(row);
    start += prefix.size() == 1 || start == -1 ? 1 : 0;
    int found = findPrefix(start, GetCount(), searched, prefix);
    if (found == -1) {
        found = findPrefix(0, std::min(start, GetCount()), searched, prefix);
    }
    IGCRow * const match = GetRowAt(found);
    if (!match || !searched.column()) {
        return;
    }
    CellGuard const cell(this, match, searched.column());
    MoveFocus(found, ShownIndexOf(searched.column()));
    if (cell.row()) {
        SelectOnly({&match, 1});
    }
    if (cell.row()) {
        EnsureRowVisible(match);
    }
    if (searched.hasGrid()) {
        EnsureColumnVisible(ShownColumn(focusColumn));
    }
}

// -1 for none.
int KGridCtrl::PrivateData::findPrefix(int first, int past, CellGuard const & searched,
                                       std::string const & prefix)
{
    for (int i = first; i < past; ++i) {
        IGCRow * const row = GetRowAt(i);
        CGCColumn * const column = searched.column();
        if (!row || !column) {
            break; // the text function of the application collapsed rows, or worse
        }
        if (startsWith(ItemText(row, column), prefix)) {
            return i;
        }
    }
    return -1;
}

void KGridCtrl::PrivateData::actOnKey(QKeyEvent * event)
{
    bool const ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    IGCRow * const row = FocusedRow();
    CGCColumn * const column = ShownColumn(focusColumn);
    if (!row || !column) {
        return; // what the search told of has taken it away
    }
    switch (event->key()) {
    case Qt::Key_Plus:
        expandByKey(ctrl, GCE_EXPAND, GCE_EXPANDALL);
        break;
    case Qt::Key_Minus:
        expandByKey(ctrl, GCE_COLLAPSE, GCE_COLLAPSEALL);
        break;
    case Qt::Key_Space:
        if (ctrl && !HasStyle(GCS_SINGLESEL)) {
            invertSelection();
        }
        break;
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        moveByKey(event->key(), event->modifiers());
        break;
    case Qt::Key_F2:
        StartEdit(row, column);
        break;
    default:
        grid->QWidget::keyPressEvent(event);
    }
}

void KGridCtrl::PrivateData::expandByKey(bool ctrl, unsigned one, unsigned all)
{
    IGCRow * const row = FocusedRow();
    if (ctrl) {
        ExpandTree(all);
    } else if (row->HasChildren(Wrapper())) {
        Expand(row, one);
    }
}

void KGridCtrl::PrivateData::invertSelection()
{
    IGCRow * const row = FocusedRow();
    if (selection.contains(row)) {
        DeselectRow(row);
    } else {
        SelectAlso(row);
    }
}

// From a column on, -1 for none.
int KGridCtrl::PrivateData::lookForColumn(int from, int step) const
{
    while (ShownColumn(from) && (ShownColumn(from)->flags & stopsByKey) == 0) {
        from += step;
    }
    return ShownColumn(from) ? from : -1;
}

void KGridCtrl::PrivateData::moveByKey(int key, Qt::KeyboardModifiers keys)
{
    int const fromRow = GetFocusedIndex();
    int const fromColumn = focusColumn;
    int const step =
        std::max(key == Qt::Key_PageUp || key == Qt::Key_PageDown ? GetShownCount() : 1, 0);
    int row = fromRow;
    int column = -1;
    switch (key) {
    case Qt::Key_Left:
        column = lookForColumn(fromColumn - 1, -1);
        break;
    case Qt::Key_Right:
        column = lookForColumn(fromColumn + 1, 1);
        break;
    case Qt::Key_Home:
        row = 0;
        break;
    case Qt::Key_End:
        row = GetCount() - 1;
        break;
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        row -= step;
        break;
    default:
        row += step;
    }
    row = std::clamp(row, 0, GetCount() - 1);
    column = column == -1 ? fromColumn : column;
    if (row == fromRow && column == fromColumn) {
        return;
    }
    CellGuard const cell(this, GetRowAt(row), ShownColumn(column));
    MoveFocus(row, column);
    if (cell.row() && row != fromRow) {
        selectMovedTo(cell, fromRow, keys);
    }
    if (cell.row()) {
        EnsureRowVisible(cell.row());
    }
    if (cell.hasGrid() && HasStyle(GCS_AUTOHSCROLL)) {
        EnsureColumnVisible(cell.column());
    }
}

void KGridCtrl::PrivateData::selectMovedTo(CellGuard const & cell, int from,
                                           Qt::KeyboardModifiers keys)
{
    IGCRow * const row = cell.row();
    bool const shift = keys.testFlag(Qt::ShiftModifier);
    if (HasStyle(GCS_SINGLESEL)) {
        SelectOnly({&row, 1});
        return;
    }
    if (!shift) {
        anchorIndex = -1;
    }
    if (keys.testFlag(Qt::ControlModifier)) {
        return; // the focus moves alone
    }
    if (shift) {
        SetAnchor(from);
        SelectRange(row);
    } else {
        SelectOnly({&row, 1});
    }
}

} // namespace zenu
