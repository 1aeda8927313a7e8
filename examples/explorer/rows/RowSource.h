#pragma once

#include "examples/explorer/rows/Columns.h"

#include <zenu/grid/ISlimGridCallback.h>

#include <string>

namespace explorer {

/// Where the slim rows of the explorer come from. Their params count from 0, the top row's;
/// negative ones belong to other rows of the grid.
class RowSource : public zenu::ISlimGridCallback
{
public:
    static constexpr long topRow = 0;

    /// The order of two rows; negative means that `a` comes first.
    virtual int compare(long a, long b, Column column, bool ascending) = 0;

    /// Whether rows come in the order of their names, so that nothing has to be sorted for that.
    virtual bool isInNameOrder() { return true; }

    /// What a status line tells about a row, in the bytes of the file system.
    virtual std::string describe(long param) = 0;
};

/// What a grid is sorted by; it has to live as long as the grid is sorted by it.
struct Sorting
{
    RowSource * rows = nullptr;
    Column column = Column::Name;
    bool ascending = true;
};

/// Compares two rows of a grid that is sorted by `sorting`, the address of a Sorting. Rows that do
/// not come from its source keep their order.
inline int compareRows(unsigned long sorting, zenu::tag_HROW *, long a, zenu::tag_HROW *, long b)
{
    static_assert(sizeof(sorting) == sizeof(Sorting const *));
    auto const * const by = reinterpret_cast<Sorting const *>(sorting);
    return a < 0 || b < 0 ? 0 : by->rows->compare(a, b, by->column, by->ascending);
}

} // namespace explorer
