#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/inner/LargeBlock.h"
#include "zenu/grid/rows/CGCSlimRow.h"

#include <algorithm>
#include <memory>
#include <span>

namespace zenu {

namespace {

// Fresh records for a level that is loaded, of which there may be ten million.
class SlimRecords
{
public:
    explicit SlimRecords(int recordCount)
        : records(static_cast<GC_SLIMROWDATA *>(
              LargeBlock::allocate(static_cast<std::size_t>(recordCount) * sizeof(GC_SLIMROWDATA))))
        , count(records ? static_cast<std::size_t>(recordCount) : 0)
    {
        std::uninitialized_default_construct_n(records.get(), count);
    }

    // None when there is no memory for them.
    std::span<GC_SLIMROWDATA> all() const { return {records.get(), count}; }

private:
    struct Release
    {
        void operator()(GC_SLIMROWDATA * block) const { LargeBlock::release(block); }
    };

    std::unique_ptr<GC_SLIMROWDATA, Release> records;
    std::size_t count;
};

} // namespace

void KGridCtrl::PrivateData::LoadSubRows(CGCSlimRow * row, bool expanded, int count)
{
    if (count < 1 || !slimCallback) {
        return;
    }
    SlimRecords const buffer(count);
    std::span<GC_SLIMROWDATA> const records = buffer.all();
    if (records.empty()) {
        return;
    }
    loading.push_back(row);
    {
        TreeLock const lock(this);
        slimCallback->GetSubRows(row->Handle(), static_cast<long>(row->param), count,
                                 records.data());
    }
    if (CGCSlimRow::CSubRows * const block = row->CreateBlock(expanded, records)) {
        enterSubRows(block->GetRows());
        if (block->anyHeight) {
            setSubRowHeights(block->GetRows(), records);
        }
        if (slimCallback) {
            RowGuard const guard(this, nullptr);
            slimCallback->OnSubRowsCreated(row->Handle(), static_cast<long>(row->param), count,
                                           records.data());
        }
    }
    loading.pop_back();
}

void KGridCtrl::PrivateData::enterSubRows(RowSpan rows)
{
    DropAllRowsWalk();
    locator->AddRange(rows);
    for (int i = 0; hasOrphanHeights && i < rows.count(); ++i) {
        dropOrphanHeight(rows[i]);
    }
}

void KGridCtrl::PrivateData::setSubRowHeights(RowSpan rows, std::span<GC_SLIMROWDATA const> records)
{
    for (int i = 0; i < rows.count(); ++i) {
        int const height = records[static_cast<std::size_t>(i)].height;
        if (height != -1) {
            SetRowHeight(rows[i], height);
        }
    }
}

bool KGridCtrl::PrivateData::IsLoading(IGCRow const * row) const
{
    return std::ranges::any_of(loading, [=](IGCRow const * each) {
        while (each && each != row) {
            each = each->parent;
        }
        return each != nullptr;
    });
}

bool KGridCtrl::PrivateData::InsertSlimRows(GC_INSERTSLIMROW * record)
{
    IGCRow * const parent = record->parent == GC_ROOT ? nullptr : LocateRow(record->parent);
    if ((!parent && record->parent != GC_ROOT) || record->count < 0 ||
        (record->count > 0 && !record->rows) || IsTreeLocked()) {
        return false;
    }
    std::span<GC_SLIMROWDATA> const records(record->rows, static_cast<std::size_t>(record->count));
    std::vector<IGCRow *, LargeBlockAllocator<IGCRow *>> rows;
    rows.reserve(records.size());
    if (!records.empty()) {
        DropAllRowsWalk();
    }
    for (GC_SLIMROWDATA & data : records) {
        IGCRow * row = nullptr;
        if (data.hasChildren) {
            row = new CGCSlimRow(parent);
        } else {
            row = new CGCLonelySlimRow(parent);
        }
        row->param = static_cast<unsigned long>(data.param);
        dropOrphanHeight(row);
        if (data.height != -1) {
            SetRowHeight(row, data.height);
        }
        data.row = row->Handle();
        rows.push_back(row);
    }
    locator->AddRange(RowSpan(rows.data(), record->count));
    bool const inserted = parent ? parent->InsertChildrenAfter(rows, record->after)
                                 : rootRows.insert(rows, record->after, true);
    if (!inserted) {
        DropAllRowsWalk();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            records[i].row = nullptr;
            locator->RemoveRow(rows[i]);
            // Heights stay behind: the order keeps the form that bears them. Nothing else of the
            // row does.
            hasOrphanHeights = hasOrphanHeights || records[i].height != -1;
            delete rows[i];
        }
        return false;
    }
    if (parent) {
        DropChildWalk(parent);
    } else {
        rootChildWalk.reset();
    }
    Invalidate();
    if (slimCallback) {
        RowGuard const guard(this, nullptr);
        slimCallback->OnSubRowsCreated(parent ? parent->Handle() : GC_ROOT,
                                       parent ? static_cast<long>(parent->param) : 0, record->count,
                                       record->rows);
        // Once more: what was read meanwhile was sorted before the application had taken note of
        // the rows.
        if (guard.hasGrid()) {
            Invalidate();
        }
    }
    return true;
}

bool KGridCtrl::PrivateData::ResetSlimRow(IGCRow * row)
{
    auto * const slim = dynamic_cast<CGCSlimRow *>(row);
    if (!slim) {
        return false;
    }
    RowGuard const guard(this, row);
    LeaveHover();
    StopEditing();
    if (!guard.hasRow() || IsTreeLocked() || IsLoading(slim)) {
        return false;
    }
    resetSubRows(slim);
    return true;
}

namespace {

// A slim row whose children are being dropped, and how far.
struct ResetLevel
{
    explicit ResetLevel(CGCSlimRow * resetRow, RowSpan rows)
        : row(resetRow)
        , children(rows)
        , records(static_cast<std::size_t>(rows.count()))
    {
    }
    CGCSlimRow * row;
    RowSpan children;
    std::vector<GC_SLIMROWDATA> records;
    int next = 0;
    bool childIsEmpty = false; // the children of the next child are dropped already
};

} // namespace

// Depth first: a row's children go before the row itself does.
void KGridCtrl::PrivateData::resetSubRows(CGCSlimRow * top)
{
    std::vector<ResetLevel> levels;
    auto const open = [&](CGCSlimRow * row) {
        TreeLock const lock(this);
        DropChildWalk(row);
        levels.emplace_back(row, row->GetChildren(Wrapper()));
    };
    open(top);
    while (!levels.empty()) {
        ResetLevel & level = levels.back();
        if (level.next < level.children.count()) {
            IGCRow * const child = level.children[level.next];
            if (!level.childIsEmpty && !level.children.areLonely()) {
                level.childIsEmpty = true;
                open(static_cast<CGCSlimRow *>(child));
                continue;
            }
            GC_SLIMROWDATA & record = level.records[static_cast<std::size_t>(level.next)];
            record.row = child->Handle();
            record.param = static_cast<long>(child->param);
            if (selection.erase(child)) {
                selectionWalk.reset();
            }
            if (IsFocused(child)) {
                ClearFocus();
            }
            if (watches) {
                tellRowDies(child);
            }
            ForgetCells(child);
            DropChildWalk(child);
            Forget(child);
            DropAllRowsWalk();
            locator->RemoveRow(child);
            level.childIsEmpty = false;
            ++level.next;
            continue;
        }
        Invalidate();
        if (slimCallback) {
            RowGuard const guard(this, nullptr);
            ++treeLocks;
            slimCallback->OnSubRowsDeleted(level.row->Handle(), static_cast<long>(level.row->param),
                                           level.children.count(),
                                           level.records.empty() ? nullptr : level.records.data());
            if (!guard.hasGrid()) {
                return;
            }
            --treeLocks;
        }
        level.row->DropChildren();
        Invalidate(); // also what was read meanwhile
        levels.pop_back();
    }
}

} // namespace zenu
