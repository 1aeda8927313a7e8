#pragma once

#include "zenu/grid/GridTypes.h"
#include "zenu/grid/rows/IGCRow.h"

#include <memory>

namespace zenu {

// A walk over all rows of a grid. It goes on only from the row that it gave out last.
class IRowCacheIterator
{
public:
    virtual ~IRowCacheIterator() = default;
    virtual IGCRow * First() = 0;
    // The row after `current`, null at the end. Null too when `current` is not the row given out
    // last, and then for good.
    virtual IGCRow * Next(IGCRow * current) = 0;
    virtual void Touch(int) {}
};

// Turns handles into rows, and knows how many rows there are. The grid tells it of every row that
// comes and goes, and drops its walk on all rows before that.
class IRowLocator
{
public:
    virtual ~IRowLocator() = default;
    virtual IGCRow * LocateRow(tag_HROW * handle) = 0;
    virtual void AddRow(IGCRow * row) = 0;
    virtual void RemoveRow(IGCRow * row) = 0;
    virtual std::unique_ptr<IRowCacheIterator> CreateWalk() = 0;
    virtual bool IsEmpty() const = 0;
    virtual int GetCount() const = 0;
    virtual void Clear() = 0;

    // The rows of one level, in one call.
    virtual void AddRange(RowSpan rows) = 0;
    virtual void RemoveRange(RowSpan rows) = 0;
    // What the rows cost here, in bytes.
    virtual std::size_t Bytes() const = 0;
};

} // namespace zenu
