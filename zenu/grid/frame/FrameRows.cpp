#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/TreeWalk.h"

#include "zenu/grid/data/DeleteItems.h"
#include "zenu/grid/frame/RowGuard.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

// The row enters the locator; where it hangs is the caller's matter.
tag_HROW * KGridCtrl::PrivateData::enterRow(IGCRow * row)
{
    DropAllRowsWalk();
    locator->AddRow(row);
    return row->Handle();
}

bool KGridCtrl::PrivateData::InsertAtTop(std::vector<IGCRow *> const & rows, tag_HROW * after)
{
    if (!rootRows.insert(rows, after, true)) {
        return false;
    }
    for (IGCRow * const row : rows) {
        row->parent = nullptr;
    }
    return true;
}

tag_HROW * KGridCtrl::PrivateData::InsertRow(GC_ROW * record, tag_HROW * after)
{
    IGCRow * const parent = record->parent == GC_ROOT ? nullptr : LocateRow(record->parent);
    if (!parent && record->parent != GC_ROOT) {
        return nullptr;
    }
    auto row = std::make_unique<CGCOrdinaryRow>(parent, columns);
    if (parent) {
        if (!parent->InsertChildAfter(row.get(), after)) {
            return nullptr;
        }
        DropChildWalk(parent);
    } else {
        if (!InsertAtTop({row.get()}, after)) {
            return nullptr;
        }
        rootChildWalk.reset();
    }
    IGCRow * const inserted = row.release();
    tag_HROW * const handle = enterRow(inserted);
    Invalidate();
    if (record->mask > GCRM_PARENT) {
        RowGuard const guard(this, inserted);
        SetRowRecord(inserted, record, nullptr);
        if (!guard.hasRow()) {
            return nullptr;
        }
    }
    return handle;
}

tag_HROW * KGridCtrl::PrivateData::InsertSection(char const * text, tag_HROW * after)
{
    auto row = std::make_unique<CGCSection>(columns);
    if (!InsertAtTop({row.get()}, after)) {
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
    DropChildWalk(row);
    Forget(row);
    row->DestroyItems(columns);
    DropAllRowsWalk();
    locator->RemoveRow(row);
}

bool KGridCtrl::PrivateData::DeleteRow(IGCRow * row)
{
    IGCRow * const parent = row->parent;
    if (parent && dynamic_cast<CGCSlimRow *>(parent)) {
        return false; // only its parent's block owns it
    }
    std::vector<IGCRow *> const dying = collectSubtree(row, Wrapper());
    for (IGCRow * const each : dying) {
        if (IsFocused(each)) {
            ClearFocus();
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

void KGridCtrl::PrivateData::DeleteAllRows()
{
    if (!destroying) {
        ClearFocus();
    }
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
    if (!destroying) {
        Invalidate();
    }
}

} // namespace zenu
