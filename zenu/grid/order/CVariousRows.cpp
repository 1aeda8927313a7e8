#include "zenu/grid/order/CVariousRows.h"

#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"

namespace zenu {

std::unique_ptr<CVisibleRowsIterator> CVariousRows::CreateRangeWalk(int first, int count)
{
    return std::make_unique<CVariousIterator>(*this, first, count);
}

std::unique_ptr<CVisibleRowsIterator> CVariousRows::CreateWalk()
{
    return CreateRangeWalk(0, GetCount());
}

long long CVariousRows::ComputeTotalHeight(RowHeights const & heights)
{
    int const defaultHeight = wrapper->GetDefaultRowHeight();
    long long y = 0;
    for (int i = 0; i < entries.count(); ++i) {
        Entry & entry = entries[i];
        entry.y = y;
        auto const found = heights.find(entry.row);
        y += found == heights.end() ? defaultHeight : found->second;
    }
    return y;
}

} // namespace zenu
