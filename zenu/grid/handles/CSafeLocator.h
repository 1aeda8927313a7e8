#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/handles/IRowLocator.h"
#include "zenu/grid/handles/RowSet.h"

namespace zenu {

// Remembers every live row, so that a dead or foreign handle is found out. It never reads memory
// behind a handle: any value may be asked for. About a byte a row.
class ZENU_TEST_EXPORT CSafeLocator : public IRowLocator
{
public:
    // Null for what is no live row.
    IGCRow * LocateRow(tag_HROW * handle) override
    {
        return rows.contains(handle) ? reinterpret_cast<IGCRow *>(handle) : nullptr;
    }
    void AddRow(IGCRow * row) override { rows.insert(row); }
    void RemoveRow(IGCRow * row) override { rows.erase(row); }
    // By address. The walk refers to this locator.
    std::unique_ptr<IRowCacheIterator> CreateWalk() override;
    bool IsEmpty() const override { return rows.isEmpty(); }
    int GetCount() const override { return rows.count(); }
    void Clear() override { rows.clear(); }
    void AddRange(RowSpan added) override { rows.insertAll(added); }
    void RemoveRange(RowSpan removed) override;
    std::size_t Bytes() const override { return rows.bytes(); }

private:
    RowSet rows;
};

// The walk of the safe locator, and of any other set of rows.
class ZENU_TEST_EXPORT CRowCacheIterator : public IRowCacheIterator
{
public:
    explicit CRowCacheIterator(RowSet const & walked)
        : rows(walked)
    {
    }
    IGCRow * First() override;
    IGCRow * Next(IGCRow * current) override;

private:
    RowSet const & rows;
    IGCRow * currentRow = nullptr;
};

} // namespace zenu
