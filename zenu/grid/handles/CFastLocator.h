#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/handles/IRowLocator.h"

#include <vector>

namespace zenu {

class ISlimGridCallbackWrapper;

// Believes every handle and only counts rows: it costs them nothing, and a stale handle is the
// application's crash.
class ZENU_TEST_EXPORT CFastLocator : public IRowLocator
{
public:
    CFastLocator(ISlimGridCallbackWrapper * callback, IGCRowParent * tree)
        : wrapper(callback)
        , root(tree)
    {
    }

    // The handle itself, whatever it is.
    IGCRow * LocateRow(tag_HROW * handle) override { return reinterpret_cast<IGCRow *>(handle); }
    void AddRow(IGCRow *) override { ++count; }
    void RemoveRow(IGCRow *) override { --count; }
    // Parents before children, from a copy that is made now: a pointer a row.
    std::unique_ptr<IRowCacheIterator> CreateWalk() override;
    bool IsEmpty() const override { return count == 0; }
    int GetCount() const override { return count; }
    void Clear() override { count = 0; }
    void AddRange(RowSpan rows) override { count += rows.count(); }
    void RemoveRange(RowSpan rows) override { count -= rows.count(); }
    std::size_t Bytes() const override { return 0; }

private:
    ISlimGridCallbackWrapper * wrapper;
    IGCRowParent * root;
    int count = 0;
};

class ZENU_TEST_EXPORT CFastLocatorIterator : public IRowCacheIterator
{
public:
    explicit CFastLocatorIterator(std::vector<IGCRow *> snapshot)
        : rows(std::move(snapshot))
    {
    }
    IGCRow * First() override;
    IGCRow * Next(IGCRow * current) override;

private:
    std::vector<IGCRow *> rows;
    std::size_t cursor = 0;
    IGCRow * currentRow = nullptr;
};

} // namespace zenu
