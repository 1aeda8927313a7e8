#include "zenu/grid/rows/CGCOrdinaryRow.h"

#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/rows/ColumnSet.h"
#include "zenu/grid/rows/IGCRowVisitor.h"
#include "zenu/grid/rows/ItemLifetime.h"

#include <algorithm>
#include <cstring>

namespace zenu {

CGCOrdinaryRow::CGCOrdinaryRow(IGCRow * parentRow, ColumnSet const & columns)
    : IGCRow(parentRow)
{
    std::span<GridItem const> const fresh = columns.freshItems();
    if (!fresh.empty()) {
        items = static_cast<GridItem *>(SlabPool::allocate(fresh.size_bytes()));
        itemCount = static_cast<std::uint32_t>(fresh.size());
        std::memcpy(static_cast<void *>(items), fresh.data(), fresh.size_bytes());
    }
}

CGCOrdinaryRow::~CGCOrdinaryRow()
{
    CGCOrdinaryRow::DeleteAllChildren();
    SlabPool::release(items, itemCount * sizeof(GridItem));
}

int CGCOrdinaryRow::GetChildCount(ISlimGridCallbackWrapper *)
{
    return children ? children->count() : 0;
}

IGCRow * CGCOrdinaryRow::GetChild(int index)
{
    return children->at(index);
}

RowSpan CGCOrdinaryRow::GetChildren(ISlimGridCallbackWrapper *)
{
    return children ? children->span() : RowSpan();
}

bool CGCOrdinaryRow::HasChildren(ISlimGridCallbackWrapper *)
{
    return (rowFlags & hasChildrenFlag) != 0;
}

void CGCOrdinaryRow::ExpandRow(ISlimGridCallbackWrapper *)
{
    rowFlags |= expandedFlag;
}

void CGCOrdinaryRow::CollapseRow()
{
    rowFlags = static_cast<std::uint8_t>(rowFlags & ~expandedFlag);
}

bool CGCOrdinaryRow::IsExpanded() const
{
    return (rowFlags & expandedFlag) != 0;
}

bool CGCOrdinaryRow::InsertChildrenAfter(std::span<IGCRow * const> rows, tag_HROW * position)
{
    return InsertChildren(rows, position, true);
}

bool CGCOrdinaryRow::InsertChildrenBefore(std::span<IGCRow * const> rows, tag_HROW * position)
{
    return InsertChildren(rows, position, false);
}

bool CGCOrdinaryRow::InsertChildAfter(IGCRow * row, tag_HROW * position)
{
    return InsertChildrenAfter({&row, 1}, position);
}

bool CGCOrdinaryRow::InsertChildBefore(IGCRow * row, tag_HROW * position)
{
    return InsertChildrenBefore({&row, 1}, position);
}

bool CGCOrdinaryRow::DeleteChild(IGCRow * row)
{
    bool const removed = RemoveChild(row);
    delete row;
    return removed;
}

bool CGCOrdinaryRow::RemoveChild(IGCRow * row)
{
    if (!row || !children || !children->remove(row)) {
        return false;
    }
    if (children->isEmpty()) {
        children.reset();
        rowFlags = static_cast<std::uint8_t>(rowFlags & ~(expandedFlag | hasChildrenFlag));
    }
    return true;
}

void CGCOrdinaryRow::DeleteAllChildren()
{
    if (children) {
        std::vector<IGCRow *> pending;
        TakeChildren(pending);
        while (!pending.empty()) {
            IGCRow * const row = pending.back();
            pending.pop_back();
            row->TakeChildren(pending);
            delete row;
        }
    }
    rowFlags = static_cast<std::uint8_t>(rowFlags & ~(expandedFlag | hasChildrenFlag));
}

void CGCOrdinaryRow::TakeChildren(std::vector<IGCRow *> & out)
{
    if (children) {
        RowSpan const span = children->span();
        for (int i = 0; i < span.count(); ++i) {
            out.push_back(span[i]);
        }
        children.reset();
    }
}

void CGCOrdinaryRow::AddColumnItem(CGCColumn * column)
{
    auto const at = std::min(static_cast<std::uint32_t>(column->itemIndex), itemCount);
    auto * const grown =
        static_cast<GridItem *>(SlabPool::allocate((itemCount + 1) * sizeof(GridItem)));
    std::copy(items, items + at, grown);
    std::copy(items + at, items + itemCount, grown + at + 1);
    KItemConstructor constructor(grown + at);
    column->Accept(&constructor);
    SlabPool::release(items, itemCount * sizeof(GridItem));
    items = grown;
    ++itemCount;
}

void CGCOrdinaryRow::RemoveColumnItem(CGCColumn * column)
{
    auto const at = static_cast<std::uint32_t>(column->itemIndex);
    if (at >= itemCount) {
        return;
    }
    destroyItem(items[at]);
    GridItem * shrunk = nullptr;
    if (itemCount > 1) {
        shrunk = static_cast<GridItem *>(SlabPool::allocate((itemCount - 1) * sizeof(GridItem)));
        std::copy(items, items + at, shrunk);
        std::copy(items + at + 1, items + itemCount, shrunk + at);
    }
    SlabPool::release(items, itemCount * sizeof(GridItem));
    items = shrunk;
    --itemCount;
}

void CGCOrdinaryRow::DestroyItems(ColumnSet const &)
{
    for (GridItem & item : Items()) {
        destroyItem(item);
    }
    SlabPool::release(items, itemCount * sizeof(GridItem));
    items = nullptr;
    itemCount = 0;
}

void CGCOrdinaryRow::setItemFlag(GCItemState flag, bool on, int itemIndex)
{
    for (GridItem & item : Items()) {
        item.setState(flag, false);
    }
    if (on && itemIndex >= 0 && static_cast<std::uint32_t>(itemIndex) < itemCount) {
        items[itemIndex].setState(flag, true);
    }
}

void CGCOrdinaryRow::SetFocusCell(bool on, int itemIndex)
{
    setItemFlag(GCIS_FOCUSED, on, itemIndex);
}

void CGCOrdinaryRow::MarkCell(bool on, int itemIndex)
{
    setItemFlag(GCIS_MARKED, on, itemIndex);
}

void CGCOrdinaryRow::SetHotCell(CGCColumn * column)
{
    if (GridItem * const item = ItemOf(column)) {
        item->setState(GCIS_HOT, true);
    }
}

void CGCOrdinaryRow::ClearHotCell(CGCColumn * column)
{
    if (GridItem * const item = ItemOf(column)) {
        item->setState(GCIS_HOT, false);
    }
}

void CGCOrdinaryRow::FreeGarbage(ColumnSet const &)
{
    for (GridItem & item : Items()) {
        freeItemGarbage(item);
    }
}

void CGCOrdinaryRow::Accept(IGCRowVisitor * visitor)
{
    visitor->VisitOrdinary(this);
}

bool CGCOrdinaryRow::AssertValid(ColumnSet const & columns)
{
    for (CGCColumn * const column : columns.all()) {
        if (GridItem const * const item = ItemOf(column)) {
            KAssertValid check(item);
            column->Accept(&check);
        }
    }
    return true;
}

GridItem * CGCOrdinaryRow::ItemOf(CGCColumn const * column) const
{
    auto const index = static_cast<std::uint32_t>(column->itemIndex);
    return index < itemCount ? items + index : nullptr;
}

std::size_t CGCOrdinaryRow::ChildBytes() const
{
    return children ? sizeof(ChildRows) + children->bytes() : 0;
}

bool CGCOrdinaryRow::InsertChildren(std::span<IGCRow * const> rows, tag_HROW * position, bool after)
{
    rowFlags |= hasChildrenFlag;
    if (!children) {
        children = std::make_unique<ChildRows>();
    }
    if (!children->insert(rows, position, after)) {
        return false;
    }
    for (IGCRow * const row : rows) {
        row->parent = this;
    }
    return true;
}

} // namespace zenu
