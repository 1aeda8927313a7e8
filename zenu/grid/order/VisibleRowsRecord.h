#pragma once

#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/order/CSimilarRows.h"
#include "zenu/grid/order/CVariousRows.h"
#include "zenu/grid/order/CVisibleRows.h"
#include "zenu/grid/order/OrderFill.h"
#include "zenu/grid/order/RowSearch.h"

namespace zenu {

// Positions as either form keeps them.
struct VariousPositions
{
    CVariousRows const & rows;
    long long totalHeight;

    int count() const { return rows.GetCount(); }
    long long topOf(int index) const { return rows.GetTopOf(index); }
    long long bottomOf(int index) const
    {
        return index + 1 < rows.GetCount() ? rows.GetTopOf(index + 1) : totalHeight;
    }
    int search(long long y, int low, int high) const
    {
        return RowSearch::binarySearch(*this, y, low, high);
    }
};

// The state of CVisibleRows.
struct CVisibleRows::Record
{
    explicit Record(ISlimGridCallbackWrapper * callback)
        : various(callback)
        , similar(callback)
        , wrapper(callback)
    {
    }

    // Calls `work` with the positions of the form in use.
    template <typename Work>
    auto withPositions(Work && work) const
    {
        if (order == &similar) {
            return work(
                RowSearch::UniformPositions{similar.GetCount(), wrapper->GetDefaultRowHeight()});
        }
        return work(VariousPositions{various, totalHeight});
    }

    // As order->GetRowAt, without a virtual call.
    IGCRow * rowAt(int index) const
    {
        return order == &similar ? similar.GetRowAt(index) : various.GetRowAt(index);
    }

    CVariousRows various;
    CSimilarRows similar;
    IRowsOrder * order = &similar; // while a rebuild fills one form, the other, which is empty
    RowHeights heights;
    int topY = 0;
    long long totalHeight = 0;
    int topIndex = 0;
    int shownCount = 0;
    IGCRow * topRow = nullptr; // the row at topIndex, null once it is forgotten
    IGCRow * focusRow = nullptr;
    std::unique_ptr<CVisibleRowsIterator> shownWalk;
    std::unique_ptr<CVisibleRowsIterator> visibleWalk;
    ISlimGridCallbackWrapper * wrapper;
    bool layoutDirty = false;
    bool heightsDirty = false;
    bool rebuilding = false;
    OrderFill::Changes changes; // by calls from within the rebuild
    bool telling = false;
    bool untoldRebuild = false;
    bool untoldTopRow = false;
};

} // namespace zenu
