#pragma once

#include <memory>
#include <unordered_map>

namespace zenu {

class CVisibleRowsIterator;
class IGCRow;

// Rows with a height of their own. Nothing depends on the map's order.
using RowHeights = std::unordered_map<IGCRow const *, int>;

// The rows of the visible order by index, in one of two forms. It never looks at a row: after a
// deletion, until the rebuild, some of its pointers dangle. Both forms are parts of CVisibleRows,
// so nothing is deleted through this interface.
class IRowsOrder
{
public:
    virtual void AddRow(IGCRow * row) = 0;
    virtual void Clear() = 0;
    virtual void Reserve(int count) = 0;
    virtual int GetCount() const = 0;
    // `index` is below the count.
    virtual IGCRow * GetRowAt(int index) const = 0;
    // y of the row's first pixel in contents coordinates. O(1).
    virtual long long GetTopOf(int index) const = 0;
    // A walk over `count` rows from `first` on.
    virtual std::unique_ptr<CVisibleRowsIterator> CreateRangeWalk(int first, int count) = 0;
    virtual std::unique_ptr<CVisibleRowsIterator> CreateWalk() = 0;
    // Brings the positions up to date; the height of all rows, 0 for none.
    virtual long long ComputeTotalHeight(RowHeights const & heights) = 0;

protected:
    ~IRowsOrder() = default;
};

} // namespace zenu
