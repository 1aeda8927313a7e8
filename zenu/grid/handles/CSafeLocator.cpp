#include "zenu/grid/handles/CSafeLocator.h"

namespace zenu {

namespace {

std::ptrdiff_t distance(IGCRow const * from, IGCRow const * to)
{
    return reinterpret_cast<std::byte const *>(to) - reinterpret_cast<std::byte const *>(from);
}

} // namespace

std::unique_ptr<IRowCacheIterator> CSafeLocator::CreateWalk()
{
    return std::make_unique<CRowCacheIterator>(rows);
}

// Rows that were made together mostly lie in runs of equal distances, whether in the block of a
// slim level or fresh from the pool.
void CSafeLocator::AddRange(RowSpan added)
{
    int const count = added.count();
    for (int i = 0; i < count;) {
        int const first = i++;
        std::ptrdiff_t const stride = i < count ? distance(added[first], added[i]) : 0;
        if (stride <= 0) {
            rows.insert(added[first]);
            continue;
        }
        if (added.areLonely()) {
            i = count;
        }
        while (i < count && distance(added[i - 1], added[i]) == stride) {
            ++i;
        }
        rows.insertRange(added[first], static_cast<std::size_t>(stride), i - first);
    }
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
