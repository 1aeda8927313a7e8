#pragma once

#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/columns/GridItem.h"

#include <memory>
#include <span>
#include <vector>

namespace zenu {

// The columns of a grid, hidden ones included: owns them, finds them by id, lists them by item
// index, and holds a fresh item of each, so that a row starts with one copy of plain bytes.
class ZENU_TEST_EXPORT ColumnSet
{
public:
    int count() const { return static_cast<int>(byItemIndex.size()); }
    // Null for an unknown id. O(log n), O(1) for the column found last and the one after it.
    CGCColumn * find(int id) const;
    CGCColumn * find(tag_HCOLUMN * handle) const { return find(columnId(handle)); }
    // In item order: the column at i has the itemIndex i.
    std::span<CGCColumn * const> all() const { return byItemIndex; }
    std::span<GridItem const> freshItems() const { return fresh; }

    // The column's itemIndex is count().
    CGCColumn * add(std::unique_ptr<CGCColumn> column);
    // Replaces the column of the same id and item index.
    CGCColumn * replace(std::unique_ptr<CGCColumn> column);
    // Closes the gap in the item indices of the others. Null for an unknown id.
    std::unique_ptr<CGCColumn> take(int id);
    void clear();

private:
    struct Entry
    {
        int id;
        std::unique_ptr<CGCColumn> column;
    };

    std::size_t placeOf(int id) const;
    void store(std::unique_ptr<CGCColumn> column);

    std::vector<Entry> byId;
    mutable std::size_t lastPlace = 0; // in byId, a guess
    std::vector<CGCColumn *> byItemIndex;
    std::vector<GridItem> fresh;
};

} // namespace zenu
