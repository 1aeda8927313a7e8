#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/data/ItemAccess.h"
#include "zenu/grid/data/ItemText.h"
#include "zenu/grid/data/RowAccess.h"
#include "zenu/grid/rows/CGCSection.h"

namespace zenu {

bool KGridCtrl::PrivateData::GetItem(IGCRow * row, CGCColumn * column, GC_ITEM * record)
{
    CGetItemData visitor(record, column);
    row->Accept(&visitor);
    return visitor.result;
}

// The same value set again paints nothing.
bool KGridCtrl::PrivateData::SetItem(IGCRow * row, CGCColumn * column, GC_ITEM * record)
{
    CSetItemData visitor(record, column);
    row->Accept(&visitor);
    if (visitor.changed) {
        if (visitor.wholeRow) {
            InvalidateRow(row);
        } else {
            InvalidateItem(row, column);
        }
    }
    return visitor.result;
}

char const * KGridCtrl::PrivateData::ItemText(IGCRow * row, CGCColumn * column)
{
    CGetItemText visitor(column, this, Wrapper());
    row->Accept(&visitor);
    return visitor.text;
}

// Also while the visible order waits for its rebuild, which a read must not cause: a loop that
// inserts and reads would rebuild each time.
bool KGridCtrl::PrivateData::IsRowVisible(IGCRow const * row) const
{
    if (!IsDirty()) {
        return row->IsVisible();
    }
    for (IGCRow const * ancestor = row->parent; ancestor; ancestor = ancestor->parent) {
        if (!ancestor->IsExpanded()) {
            return false;
        }
    }
    return true;
}

unsigned KGridCtrl::PrivateData::RowState(IGCRow * row)
{
    unsigned state = 0;
    state |= row->HasChildren(Wrapper()) ? GCRS_HASCHILDREN : 0U;
    state |= row->IsExpanded() ? GCRS_EXPANDED : 0U;
    state |= selection.contains(row) ? GCRS_SELECTED : 0U;
    state |= IsFocused(row) ? GCRS_FOCUSED : 0U;
    state |= IsRowVisible(row) ? GCRS_VISIBLE : 0U;
    return state;
}

bool KGridCtrl::PrivateData::GetRowRecord(IGCRow * row, GC_ROW * record, GC_SECTION * section)
{
    unsigned const state = RowState(row);
    int top = 0;
    if (record && (record->mask & GCRM_TOP) && (state & GCRS_VISIBLE)) {
        RowGuard const guard(this, row);
        UpdateNow();
        if (!guard.hasRow()) {
            return false;
        }
        int const index = IndexOf(row);
        top = index >= 0 ? GetTopOf(index) : 0;
    }
    CGetRowData visitor(record, section, top, GetRowHeight(row), state);
    row->Accept(&visitor);
    return visitor.result;
}

bool KGridCtrl::PrivateData::SetRowRecord(IGCRow * row, GC_ROW * record, GC_SECTION * section)
{
    CSetRowData visitor(record, section);
    row->Accept(&visitor);
    if (record && (record->mask & GCRM_HEIGHT)) {
        if (record->height == -1) {
            ResetRowHeight(row);
        } else {
            SetRowHeight(row, record->height);
        }
        Repaint();
    }
    bool const result = visitor.result;
    applyRequests(row, visitor);
    return result;
}

void KGridCtrl::PrivateData::applyRequests(IGCRow * row, CSetRowData const & requests)
{
    RowGuard const guard(this, row);
    if (requests.select && !selection.contains(row)) {
        AddToSelection({&row, 1});
        TellSelectionChanged();
    }
    if (requests.deselect && guard.hasRow() && selection.contains(row)) {
        RemoveFromSelection(row);
        TellSelectionChanged();
    }
    if (requests.focus && guard.hasRow() && focusColumn != -1) {
        UpdateNow();
        if (guard.hasRow()) {
            MoveFocus(IndexOf(row), focusColumn);
        }
    }
    if (requests.unfocus && guard.hasRow()) {
        ClearFocus();
    }
    if (requests.expand && guard.hasRow()) {
        Expand(row, GCE_EXPAND);
    }
    if (requests.collapse && guard.hasRow()) {
        Expand(row, GCE_COLLAPSE);
    }
    if (requests.repaint && guard.hasRow()) {
        InvalidateRow(row);
    }
}

char const * KGridCtrl::PrivateData::GetText(IGCRow * row, CGCColumn * column)
{
    TreeLock const lock(this);
    return textProc
               ? textProc(textParam, row->Handle(), column->Handle(), static_cast<long>(row->param))
               : nullptr;
}

} // namespace zenu
