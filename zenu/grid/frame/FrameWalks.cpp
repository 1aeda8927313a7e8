#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/handles/CSafeLocator.h"

namespace zenu {

void KGridCtrl::PrivateData::DropAllRowsWalk()
{
    allRowsWalk.reset();
    ++treeVersion;
}

void KGridCtrl::PrivateData::DropChildWalk(IGCRow * parent)
{
    if (!childWalks.empty()) {
        childWalks.erase(parent);
    }
}

void KGridCtrl::PrivateData::DropWalks()
{
    DropAllRowsWalk();
    selectionWalk.reset();
    rootChildWalk.reset();
    childWalks.clear();
    CVisibleRows::DropWalks();
}

IGCRow * KGridCtrl::PrivateData::nextInWalk(unsigned flags, tag_HROW * handle)
{
    // NEXT compares the handle with the row that the walk gave out last, and nothing else.
    auto * const given = reinterpret_cast<IGCRow *>(handle);
    switch (flags) {
    case GCN_ALL_FIRST:
        allRowsWalk.reset();
        return firstOfAll();
    case GCN_ALL_NEXT:
        return allRowsWalk ? allRowsWalk->Next(given) : nullptr;
    case GCN_SHOWN_FIRST:
        return FirstShown();
    case GCN_SHOWN_NEXT:
        return NextShown(given);
    case GCN_SELECTED_FIRST:
        selectionWalk = std::make_unique<CRowCacheIterator>(selection);
        return selectionWalk->First();
    case GCN_SELECTED_NEXT:
        return selectionWalk ? selectionWalk->Next(given) : nullptr;
    case GCN_VISIBLE_FIRST:
        return FirstVisible();
    case GCN_VISIBLE_NEXT:
        return NextVisible(given);
    case GCN_FOCUSED:
        return FocusedRow();
    default:
        return nullptr;
    }
}

// A walk that loads rows while it is made is dropped by what it loads.
IGCRow * KGridCtrl::PrivateData::firstOfAll()
{
    TreeLock const lock(this);
    std::unique_ptr<IRowCacheIterator> walk = locator->CreateWalk();
    allRowsWalk = std::move(walk);
    return allRowsWalk->First();
}

IGCRow * KGridCtrl::PrivateData::firstChild(tag_HROW * handle)
{
    TreeLock const lock(this);
    if (handle == GC_ROOT) {
        rootChildWalk = std::make_unique<ChildWalk>(this, Wrapper());
        return rootChildWalk->First();
    }
    IGCRow * const row = LocateRow(handle);
    if (!row) {
        return nullptr;
    }
    // It enters the map afterwards: what it loads may drop walks. Whoever visits a million rows
    // asks each for its children, and most have none.
    ChildWalk walk(row, Wrapper());
    IGCRow * const first = walk.First();
    if (first) {
        childWalks.insert_or_assign(row, walk);
    } else {
        DropChildWalk(row);
    }
    return first;
}

// The next or previous sibling. A walk over the parent's children is a hint that makes the step
// O(1); without one the sibling is searched.
IGCRow * KGridCtrl::PrivateData::sibling(IGCRow * row, bool next)
{
    TreeLock const lock(this);
    ChildWalk * walk = rootChildWalk.get();
    if (row->parent) {
        auto const found = childWalks.find(row->parent);
        walk = found == childWalks.end() ? nullptr : &found->second;
    }
    if (walk) {
        return next ? walk->Next(row) : walk->Previous(row);
    }
    IGCRowParent * const parent = row->parent ? static_cast<IGCRowParent *>(row->parent) : this;
    return next ? ChildWalk::NextSibling(parent, Wrapper(), row)
                : ChildWalk::PreviousSibling(parent, Wrapper(), row);
}

tag_HROW * KGridCtrl::PrivateData::relative(unsigned flags, IGCRow * row)
{
    auto const handleOf = [](IGCRow const * found) { return found ? found->Handle() : nullptr; };
    switch (flags) {
    case GCN_CHILD_NEXT:
        return handleOf(sibling(row, true));
    case GCN_CHILD_PREV:
        return handleOf(sibling(row, false));
    case GCN_PARENT:
        return row->parent ? row->parent->Handle() : GC_ROOT;
    case GCN_VISIBLE_PARENT: {
        // A row at the top level has no need of the order.
        if (row->parent && !LocateSettled(row->Handle())) {
            return nullptr;
        }
        IGCRow const * ancestor = row->parent;
        while (ancestor && IndexOf(ancestor) == -1) {
            ancestor = ancestor->parent;
        }
        return ancestor ? ancestor->Handle() : GC_ROOT;
    }
    case GCN_VISIBLE_PREV: {
        int const index = LocateSettled(row->Handle()) ? IndexOf(row) : -1;
        return index > 0 ? handleOf(GetRowAt(index - 1)) : nullptr;
    }
    default:
        return nullptr;
    }
}

tag_HROW * KGridCtrl::PrivateData::NextRow(unsigned flags, tag_HROW * handle)
{
    IGCRow * found = nullptr;
    switch (flags) {
    case GCN_ROOT:
        return GC_ROOT;
    case GCN_CHILD_FIRST:
        found = firstChild(handle);
        break;
    case GCN_CHILD_NEXT:
    case GCN_CHILD_PREV:
    case GCN_PARENT:
    case GCN_VISIBLE_PARENT:
    case GCN_VISIBLE_PREV: {
        IGCRow * const row = LocateRow(handle);
        return row ? relative(flags, row) : nullptr;
    }
    default:
        found = nextInWalk(flags, handle);
        break;
    }
    return found ? found->Handle() : nullptr;
}

} // namespace zenu
