#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/order/CVisibleRowsIterator.h"
#include "zenu/grid/order/EntryBuffer.h"
#include "zenu/grid/order/IRowsOrder.h"

namespace zenu {

class ISlimGridCallbackWrapper;

// The form for rows of one height: a bare pointer a row, and positions that are one multiplication.
// The default height is asked for each time, so a change of it moves all positions at once.
class ZENU_TEST_EXPORT CSimilarRows final : public IRowsOrder
{
public:
    explicit CSimilarRows(ISlimGridCallbackWrapper * heightSource)
        : wrapper(heightSource)
    {
    }

    void AddRow(IGCRow * row) override { rows.add(row); }
    void Clear() override { rows.clear(); }
    void Reserve(int count) override { rows.reserve(count); }
    int GetCount() const override { return rows.count(); }
    IGCRow * GetRowAt(int index) const override { return rows[index]; }
    long long GetTopOf(int index) const override;
    std::unique_ptr<CVisibleRowsIterator> CreateRangeWalk(int first, int count) override;
    std::unique_ptr<CVisibleRowsIterator> CreateWalk() override;
    // The map is not read: with an explicit height this form is not in use.
    long long ComputeTotalHeight(RowHeights const &) override;

    // Room for the rows of one more level.
    void MakeRoom(int more) { rows.makeRoom(more); }
    // Gives back the room that is left, but for a little.
    void Trim() { rows.trim(); }
    // All of them; null when there are none.
    IGCRow * const * GetRows() const { return rows.count() == 0 ? nullptr : &rows[0]; }
    int GetCapacity() const { return rows.capacity(); }

private:
    EntryBuffer<IGCRow *> rows;
    ISlimGridCallbackWrapper * wrapper;
};

using CSimilarIterator = OrderIterator<CSimilarRows>;

} // namespace zenu
