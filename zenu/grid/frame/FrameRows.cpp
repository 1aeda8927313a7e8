#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/TreeWalk.h"

#include "zenu/grid/data/DeleteItems.h"
#include "zenu/grid/frame/RowGuard.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

IGCRow * KGridCtrl::PrivateData::LocateSettled(tag_HROW * handle)
{
    if (!LocateRow(handle)) {
        return nullptr;
    }
    RowGuard const guard(this, reinterpret_cast<IGCRow *>(handle));
    UpdateNow();
    return guard.hasRow() ? LocateRow(handle) : nullptr;
}

void KGridCtrl::PrivateData::tellRowDies(IGCRow const * row)
{
    for (RowWatch * watch = watches; watch; watch = watch->outer) {
        watch->rowDies(row);
    }
}

void KGridCtrl::PrivateData::tellAllRowsDie()
{
    for (RowWatch * watch = watches; watch; watch = watch->outer) {
        watch->allRowsDie();
    }
}

// The row enters the locator; where it hangs is the caller's matter.
tag_HROW * KGridCtrl::PrivateData::enterRow(IGCRow * row)
{
    DropAllRowsWalk();
    dropOrphanHeight(row);
    locator->AddRow(row);
    return row->Handle();
}

// A row that could not be inserted leaves its height behind; no later row at its address shall have
// it.
void KGridCtrl::PrivateData::dropOrphanHeight(IGCRow const * row)
{
    if (hasOrphanHeights) {
        DropStaleHeight(row);
    }
}

tag_HROW * KGridCtrl::PrivateData::InsertRow(GC_ROW * record, tag_HROW * after)
{
    if (HasEdit()) {
        RowGuard const guard(this, nullptr);
        StopEditing();
        if (!guard.hasGrid()) {
            return nullptr;
        }
    }
    IGCRow * const parent = record->parent == GC_ROOT ? nullptr : LocateRow(record->parent);
    if ((!parent && record->parent != GC_ROOT) || IsTreeLocked()) {
        return nullptr;
    }
    auto row = std::make_unique<CGCOrdinaryRow>(parent, columns);
    if (parent) {
        if (!parent->InsertChildAfter(row.get(), after)) {
            return nullptr;
        }
        DropChildWalk(parent);
    } else {
        if (!rootRows.insert(row.get(), after, true)) {
            return nullptr;
        }
        rootChildWalk.reset();
    }
    IGCRow * const inserted = row.release();
    tag_HROW * const handle = enterRow(inserted);
    Invalidate(); // a record that gives the focus finds the row in the order
    if (record->mask > GCRM_PARENT) {
        RowGuard const guard(this, inserted);
        SetRowRecord(inserted, record, nullptr);
        if (!guard.hasRow()) {
            return nullptr;
        }
        // Once more: what was read on the way was sorted before the caller could give the row its
        // texts.
        Invalidate();
    }
    return handle;
}

tag_HROW * KGridCtrl::PrivateData::InsertSection(char const * text, tag_HROW * after)
{
    auto row = std::make_unique<CGCSection>(columns);
    if (IsTreeLocked() || !rootRows.insert(row.get(), after, true)) {
        return nullptr;
    }
    rootChildWalk.reset();
    IGCRow * const section = row.release();
    tag_HROW * const handle = enterRow(section);
    // The record's mask is empty, so the title is not taken: it is set by SetSection, as
    // applications do that rely on a section being created without one.
    GC_SECTION record;
    record.text = const_cast<char *>(text);
    SetRowRecord(section, &record, &record);
    Invalidate();
    return handle;
}

// Focus, selection, walks, height and locator let go of a row that dies; the row itself is the
// caller's matter.
void KGridCtrl::PrivateData::ForgetRow(IGCRow * row)
{
    if (watches) {
        tellRowDies(row);
    }
    ForgetCells(row);
    DropChildWalk(row);
    Forget(row);
    row->DestroyItems(columns);
    DropAllRowsWalk();
    locator->RemoveRow(row);
}

void KGridCtrl::PrivateData::ForgetCells(IGCRow const * row)
{
    for (HeldCell * const cell : {&hover, &pendingEdit}) {
        if (cell->row == row) {
            *cell = {};
        }
    }
    if (editor && edited.row == row) {
        dropEditor();
    }
    ForgetDropMark(row);
}

void KGridCtrl::PrivateData::ForgetAllCells()
{
    hover = pendingEdit = {};
    if (editor) {
        dropEditor();
    }
    ForgetDropMark(nullptr);
}

void KGridCtrl::PrivateData::SetInnermostWatch(RowWatch * watch)
{
    watches = watch;
}

bool KGridCtrl::PrivateData::DeleteRow(IGCRow * row)
{
    RowGuard const guard(this, row);
    LeaveHover();
    StopEditing();
    if (!guard.hasRow()) {
        return false; // told of the end of an edit, the application has deleted it
    }
    IGCRow * const parent = row->parent;
    if (IsTreeLocked() || IsLoading(row)) {
        return false;
    }
    if (parent && dynamic_cast<CGCSlimRow *>(parent)) {
        return false; // only its parent's block owns it
    }
    std::vector<IGCRow *> dying;
    {
        TreeLock const lock(this);
        dying = collectSubtree(row, Wrapper());
    }
    for (IGCRow * const each : dying) {
        if (IsFocused(each)) {
            DropFocus();
        }
        if (selection.erase(each)) {
            selectionWalk.reset();
        }
    }
    for (IGCRow * const each : dying) {
        ForgetRow(each);
    }
    if (parent) {
        DropChildWalk(parent);
        parent->DeleteChild(row);
    } else {
        rootChildWalk.reset();
        rootRows.remove(row);
        delete row;
    }
    Invalidate();
    return true;
}

bool KGridCtrl::PrivateData::DeleteAllRows()
{
    if (!destroying) {
        RowGuard const guard(this, nullptr);
        LeaveHover();
        StopEditing();
        if (!guard.hasGrid() || IsTreeLocked() || !loading.empty()) {
            return false;
        }
        ClearFocus();
    }
    ForgetAllCells();
    tellAllRowsDie();
    DropWalks();
    ForgetAll();
    RowSpan const rows = rootRows.span();
    CDeleteAllItem destroyer(columns, Wrapper());
    for (int i = 0; i < rows.count(); ++i) {
        rows[i]->Accept(&destroyer);
        delete rows[i];
    }
    rootRows.clear();
    selection.clear();
    locator->Clear();
    hasOrphanHeights = false;
    if (!destroying) {
        Invalidate();
    }
    return true;
}

} // namespace zenu
