#include "zenu/overlay/sprites/RegionUnion.h"

#include <span>

namespace zenu {

namespace {

QRegion unionOfPairs(std::span<QRect const> rects)
{
    constexpr size_t few = 4;
    if (rects.size() > few) {
        size_t const half = rects.size() / 2;
        return unionOfPairs(rects.first(half)) + unionOfPairs(rects.subspan(half));
    }
    QRegion sum;
    for (QRect const & r : rects)
        sum += r;
    return sum;
}

} // namespace

QRegion unionOf(std::vector<QRect> const & rects)
{
    return unionOfPairs(rects);
}

} // namespace zenu
