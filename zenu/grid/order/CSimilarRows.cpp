#include "zenu/grid/order/CSimilarRows.h"

#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"

namespace zenu {

long long CSimilarRows::GetTopOf(int index) const
{
    return static_cast<long long>(index) * wrapper->GetDefaultRowHeight();
}

std::unique_ptr<CVisibleRowsIterator> CSimilarRows::CreateRangeWalk(int first, int count)
{
    return std::make_unique<CSimilarIterator>(*this, first, count);
}

std::unique_ptr<CVisibleRowsIterator> CSimilarRows::CreateWalk()
{
    return CreateRangeWalk(0, GetCount());
}

long long CSimilarRows::ComputeTotalHeight(RowHeights const &)
{
    return GetTopOf(GetCount());
}

} // namespace zenu
