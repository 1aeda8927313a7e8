#include "zenu/grid/rows/ColumnSet.h"

#include "zenu/grid/rows/ItemLifetime.h"

namespace zenu {

namespace {

GridItem freshItem(CGCColumn * column)
{
    GridItem item;
    KItemConstructor constructor(&item);
    column->Accept(&constructor);
    return item;
}

} // namespace

CGCColumn * ColumnSet::find(int id) const
{
    auto const found = byId.find(id);
    return found == byId.end() ? nullptr : found->second.get();
}

CGCColumn * ColumnSet::add(std::unique_ptr<CGCColumn> column)
{
    CGCColumn * const added = column.get();
    byItemIndex.push_back(added);
    fresh.push_back(freshItem(added));
    byId[added->id] = std::move(column);
    return added;
}

CGCColumn * ColumnSet::replace(std::unique_ptr<CGCColumn> column)
{
    CGCColumn * const replacement = column.get();
    auto const index = static_cast<std::size_t>(replacement->itemIndex);
    byItemIndex[index] = replacement;
    fresh[index] = freshItem(replacement);
    byId[replacement->id] = std::move(column);
    return replacement;
}

std::unique_ptr<CGCColumn> ColumnSet::take(int id)
{
    auto const found = byId.find(id);
    if (found == byId.end()) {
        return nullptr;
    }
    std::unique_ptr<CGCColumn> taken = std::move(found->second);
    byId.erase(found);
    byItemIndex.erase(byItemIndex.begin() + taken->itemIndex);
    fresh.erase(fresh.begin() + taken->itemIndex);
    for (std::size_t i = static_cast<std::size_t>(taken->itemIndex); i < byItemIndex.size(); ++i) {
        byItemIndex[i]->itemIndex = static_cast<int>(i);
    }
    return taken;
}

void ColumnSet::clear()
{
    byId.clear();
    byItemIndex.clear();
    fresh.clear();
}

} // namespace zenu
