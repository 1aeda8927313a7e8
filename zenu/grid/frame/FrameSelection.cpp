#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include <algorithm>

namespace zenu {

// A few rows are repainted one by one, many with the whole widget: Qt's region of what is to be
// painted gets no shorter by a million rectangles.
void KGridCtrl::PrivateData::AddToSelection(std::span<IGCRow * const> rows)
{
    bool const few = rows.size() <= static_cast<std::size_t>(std::max(shownRows(), 1));
    bool changed = false;
    for (IGCRow * const row : rows) {
        if (selection.insert(row)) {
            changed = true;
            if (few) {
                InvalidateRow(row);
            }
        }
    }
    if (changed && !few) {
        Repaint();
    }
}

void KGridCtrl::PrivateData::RemoveFromSelection(IGCRow * row)
{
    if (selection.erase(row)) {
        selectionWalk.reset();
        InvalidateRow(row);
    }
}

void KGridCtrl::PrivateData::ClearSelectedRows()
{
    selectionWalk.reset();
    if (selection.isEmpty()) {
        return;
    }
    repaintSelectedRows();
    selection.clear();
}

// The selected rows on display.
void KGridCtrl::PrivateData::repaintSelectedRows()
{
    if (IsDirty()) {
        Repaint(); // what is on display is not known yet
        return;
    }
    int const past = std::min(GetTopIndex() + GetShownCount(), GetCount());
    for (int i = GetTopIndex(); i < past; ++i) {
        if (IGCRow * const row = GetRowAt(i); selection.contains(row)) {
            InvalidateRow(row);
        }
    }
}

void KGridCtrl::PrivateData::SelectAllVisible()
{
    std::vector<IGCRow *> scratch;
    RowSpan const rows = GetRows(0, GetCount(), scratch);
    selection.insertAll(rows);
    if (rows.count() != 0) {
        Repaint();
    }
}

int KGridCtrl::PrivateData::shownRows()
{
    return IsDirty() ? 0 : GetShownCount();
}

// No notification guards the focus: it has moved before anything is asked.
void KGridCtrl::PrivateData::MoveFocus(int rowIndex, int columnIndex)
{
    CGCColumn * const column = ShownColumn(columnIndex);
    if (rowIndex < 0 || rowIndex >= GetCount() || !column) {
        return;
    }
    if (IGCRow * const before = FocusedRow()) {
        before->SetFocusCell(false, -1);
        InvalidateRow(before);
    }
    IGCRow * const row = GetRowAt(rowIndex);
    focusColumn = columnIndex;
    SetFocusedIndex(rowIndex);
    row->SetFocusCell(true, column->itemIndex);
    InvalidateRow(row);
    if (HasStyle(GCS_AUTOHSCROLL)) {
        RowGuard const guard(this, row);
        EnsureRowVisible(row);
        if (guard.hasGrid()) {
            EnsureColumnVisible(ShownColumn(columnIndex));
        }
    }
}

void KGridCtrl::PrivateData::ClearFocus()
{
    if (IGCRow * const row = FocusedRow()) {
        InvalidateRow(row);
    }
    DropFocus();
}

void KGridCtrl::PrivateData::DropFocus()
{
    if (IGCRow * const row = FocusedRow()) {
        row->SetFocusCell(false, -1);
    }
    focusColumn = -1;
    SetFocusedIndex(-1);
}

void KGridCtrl::PrivateData::TellSelectionChanged()
{
    if (notification) {
        notification->OnSelectionChanged();
    }
}

bool KGridCtrl::PrivateData::asksForChange(std::span<IGCRow * const> leaving,
                                           std::span<IGCRow * const> entering)
{
    if (!notification) {
        return true;
    }
    auto const handles = [](std::span<IGCRow * const> rows) {
        std::vector<tag_HROW *> result(rows.size());
        std::ranges::transform(rows, result.begin(), &IGCRow::Handle);
        return result;
    };
    std::vector<tag_HROW *> deselected = handles(leaving);
    std::vector<tag_HROW *> selected = handles(entering);
    GC_SELECTIONCHANGE change;
    change.deselectedCount = static_cast<int>(deselected.size());
    change.deselected = deselected.empty() ? nullptr : deselected.data();
    change.selectedCount = static_cast<int>(selected.size());
    change.selected = selected.empty() ? nullptr : selected.data();
    return notification->OnSelectionChanging(&change);
}

void KGridCtrl::PrivateData::SelectOnly(std::span<IGCRow * const> rows)
{
    RowListGuard entering(this, rows);
    std::vector<IGCRow *> leaving;
    if (notification) {
        leaving.reserve(static_cast<std::size_t>(selection.count()));
        selection.forEach([&](IGCRow * row) { leaving.push_back(row); });
    }
    if (asksForChange(leaving, rows) && entering.hasGrid()) {
        ClearSelectedRows();
        AddToSelection(entering.rows());
        TellSelectionChanged();
    }
}

void KGridCtrl::PrivateData::SelectAlso(IGCRow * row)
{
    RowGuard const guard(this, row);
    if (asksForChange({}, {&row, 1}) && guard.hasGrid()) {
        if (guard.hasRow()) {
            AddToSelection({&row, 1});
        }
        TellSelectionChanged();
    }
}

void KGridCtrl::PrivateData::DeselectRow(IGCRow * row)
{
    RowGuard const guard(this, row);
    if (asksForChange({&row, 1}, {}) && guard.hasGrid()) {
        if (guard.hasRow()) {
            RemoveFromSelection(row);
        }
        TellSelectionChanged();
    }
}

void KGridCtrl::PrivateData::SelectRange(IGCRow * row)
{
    int const to = IndexOf(row);
    if (anchorIndex == -1 || to == -1) {
        SelectOnly({&row, 1});
        return;
    }
    auto const [first, last] = std::minmax(anchorIndex, to);
    std::vector<IGCRow *> scratch;
    RowSpan const span = GetRows(first, last - first + 1, scratch);
    std::vector<IGCRow *> rows(static_cast<std::size_t>(span.count()));
    for (int i = 0; i < span.count(); ++i) {
        rows[static_cast<std::size_t>(i)] = span[i];
    }
    SelectOnly(rows);
}

void KGridCtrl::PrivateData::SetAnchor(int start)
{
    anchorIndex = anchorIndex == -1 ? start : anchorIndex;
    anchorIndex = std::min(anchorIndex, GetCount() - 1);
}

} // namespace zenu
