#include "zenu/grid/rows/ColumnSet.h"

#include "zenu/grid/rows/ItemLifetime.h"

#include <algorithm>

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

// Of the first entry that is not below the id.
std::size_t ColumnSet::placeOf(int id) const
{
    auto const found =
        std::lower_bound(byId.begin(), byId.end(), id,
                         [](Entry const & entry, int wanted) { return entry.id < wanted; });
    return static_cast<std::size_t>(found - byId.begin());
}

// A row is mostly filled cell by cell, from the first column to the last.
CGCColumn * ColumnSet::find(int id) const
{
    for (std::size_t place = lastPlace; place < std::min(lastPlace + 2, byId.size()); ++place) {
        if (byId[place].id == id) {
            lastPlace = place;
            return byId[place].column.get();
        }
    }
    std::size_t const place = placeOf(id);
    if (place == byId.size() || byId[place].id != id) {
        return nullptr;
    }
    lastPlace = place;
    return byId[place].column.get();
}

void ColumnSet::store(std::unique_ptr<CGCColumn> column)
{
    std::size_t const place = placeOf(column->id);
    if (place == byId.size() || byId[place].id != column->id) {
        byId.insert(byId.begin() + static_cast<std::ptrdiff_t>(place), Entry{column->id, nullptr});
    }
    byId[place].column = std::move(column);
}

CGCColumn * ColumnSet::add(std::unique_ptr<CGCColumn> column)
{
    CGCColumn * const added = column.get();
    byItemIndex.push_back(added);
    fresh.push_back(freshItem(added));
    store(std::move(column));
    return added;
}

CGCColumn * ColumnSet::replace(std::unique_ptr<CGCColumn> column)
{
    CGCColumn * const replacement = column.get();
    auto const index = static_cast<std::size_t>(replacement->itemIndex);
    byItemIndex[index] = replacement;
    fresh[index] = freshItem(replacement);
    store(std::move(column));
    return replacement;
}

std::unique_ptr<CGCColumn> ColumnSet::take(int id)
{
    std::size_t const place = placeOf(id);
    if (place == byId.size() || byId[place].id != id) {
        return nullptr;
    }
    std::unique_ptr<CGCColumn> taken = std::move(byId[place].column);
    byId.erase(byId.begin() + static_cast<std::ptrdiff_t>(place));
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
