#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/order/CVisibleRowsIterator.h"
#include "zenu/grid/order/EntryBuffer.h"
#include "zenu/grid/order/IRowsOrder.h"

namespace zenu {

class ISlimGridCallbackWrapper;

// The form for rows of different heights: each row's y stands beside its pointer, 16 bytes a row.
// A change of the default height moves the rows at the next ComputeTotalHeight.
class ZENU_TEST_EXPORT CVariousRows final : public IRowsOrder
{
public:
    explicit CVariousRows(ISlimGridCallbackWrapper * heightSource)
        : wrapper(heightSource)
    {
    }

    // The row's y is -1 until ComputeTotalHeight.
    void AddRow(IGCRow * row) override { entries.add({row, -1}); }
    void Clear() override { entries.clear(); }
    void Reserve(int count) override { entries.reserve(count); }
    int GetCount() const override { return entries.count(); }
    IGCRow * GetRowAt(int index) const override { return entries[index].row; }
    long long GetTopOf(int index) const override { return entries[index].y; }
    std::unique_ptr<CVisibleRowsIterator> CreateRangeWalk(int first, int count) override;
    std::unique_ptr<CVisibleRowsIterator> CreateWalk() override;
    long long ComputeTotalHeight(RowHeights const & heights) override;

    // Room for the rows of one more level.
    void MakeRoom(int more) { entries.makeRoom(more); }
    // Gives back the room that is left, but for a little.
    void Trim() { entries.trim(); }
    int GetCapacity() const { return entries.capacity(); }

private:
    struct Entry
    {
        IGCRow * row;
        long long y;
    };

    EntryBuffer<Entry> entries;
    ISlimGridCallbackWrapper * wrapper;
};

using CVariousIterator = OrderIterator<CVariousRows>;

} // namespace zenu
