#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zenu {

// Sums and products of pixels that stay at the limits of an int instead of passing them.

inline int saturated(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

inline int saturatedSum(int a, int b)
{
    return saturated(std::int64_t{a} + b);
}

// Within a cell coordinates stay this far from zero at most, so that every difference and every
// QRect::width of two of them is an int.
constexpr int cellLimit = 0x3fffffff;

inline int cellCoordinate(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, -cellLimit, cellLimit));
}

} // namespace zenu
