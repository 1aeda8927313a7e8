#include "zenu/grid/handles/CSafeLocator.h"

namespace zenu {

std::unique_ptr<IRowCacheIterator> CSafeLocator::CreateWalk()
{
    return std::make_unique<CRowCacheIterator>(rows);
}

void CSafeLocator::RemoveRange(RowSpan removed)
{
    for (int i = 0; i < removed.count(); ++i) {
        rows.erase(removed[i]);
    }
}

IGCRow * CRowCacheIterator::First()
{
    currentRow = rows.first();
    return currentRow;
}

IGCRow * CRowCacheIterator::Next(IGCRow * current)
{
    currentRow = current && current == currentRow ? rows.next(current) : nullptr;
    return currentRow;
}

} // namespace zenu
