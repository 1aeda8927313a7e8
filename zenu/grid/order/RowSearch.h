#pragma once

#include <algorithm>
#include <climits>

namespace zenu {

// From y to row and from row to the top of a page, as arithmetic over positions alone. `Positions`
// offers count(), topOf(index) and bottomOf(index), where the bottom is the first pixel below the
// row, and, for a single row, search(y, low, high). Heights of 0 and below are borne: every search
// ends, and answers an index or -1.
namespace RowSearch {

constexpr int toInt(long long position)
{
    return static_cast<int>(std::clamp<long long>(position, INT_MIN, INT_MAX));
}

// The row from `low` to `high` that covers y; -1 when none of them does. `high` may be the count
// itself; an index further out may be met on the way and answers -1, even for a y that a row
// covers.
template <typename Positions>
int binarySearch(Positions const & positions, long long y, int low, int high)
{
    int const count = positions.count();
    while (low < high) {
        int const mid = (high - low) / 2 + low;
        if (mid >= count) {
            return -1;
        }
        if (y < positions.topOf(mid)) {
            high = mid;
        } else if (y < positions.bottomOf(mid)) {
            return mid;
        } else {
            low = mid + 1;
        }
    }
    bool const covered =
        low == high && low < count && y >= positions.topOf(low) && y < positions.bottomOf(low);
    return covered ? low : -1;
}

// `high` -1 stands for the last row.
template <typename Positions>
int indexFromY(Positions const & positions, long long y, int low, int high)
{
    return positions.search(y, std::max(low, 0), high == -1 ? positions.count() - 1 : high);
}

// Like indexFromY over all rows, but a y above the rows answers 0, one below them the last index.
// There is at least one row.
template <typename Positions>
int rowUnderY(Positions const & positions, long long y)
{
    int const last = positions.count() - 1;
    if (y < positions.bottomOf(0)) {
        return 0;
    }
    return y >= positions.topOf(last) ? last : positions.search(y, 0, last);
}

// The smallest top index that shows row `index` whole at the bottom of a page. Rows that all fit
// answer 0. `index` is a row's.
template <typename Positions>
int firstIndexForBottom(Positions const & positions, int index, int pageHeight)
{
    long long const y = positions.bottomOf(index) - pageHeight;
    int const under = std::max(rowUnderY(positions, y), 0);
    if (positions.topOf(under) >= y || under + 1 >= positions.count()) {
        return under;
    }
    return under + 1;
}

// How many rows a page shows from row `first` on, at least 1. The row that begins where the page
// ends counts, unless only whole rows do.
template <typename Positions>
int visibleCountFrom(Positions const & positions, int first, int pageHeight, bool wholeRowsOnly)
{
    long long const y = positions.topOf(first) + pageHeight;
    int under = rowUnderY(positions, y);
    if (under < 0) {
        under = positions.count() - 1;
    }
    if (wholeRowsOnly && under >= 1 && positions.bottomOf(under) > y) {
        --under;
    }
    return std::max(under - first + 1, 1);
}

// The largest index that may stand on top: the last row then ends on or above the page's bottom.
template <typename Positions>
int largestTopIndex(Positions const & positions, int pageHeight)
{
    int const count = positions.count();
    long long const bottomY = positions.bottomOf(count - 1) - pageHeight;
    int limit = count - 1;
    if (bottomY < positions.bottomOf(0)) {
        limit = 0;
    } else if (bottomY < positions.topOf(count - 1)) {
        limit = std::max(positions.search(bottomY, 0, count), 0);
    }
    if (positions.topOf(limit) < bottomY && limit + 1 < count) {
        ++limit;
    }
    return limit;
}

// Rows of one height. The search is a division where it answers as the binary search would.
struct UniformPositions
{
    int rowCount;
    int height;

    int count() const { return rowCount; }
    long long topOf(int index) const { return static_cast<long long>(index) * height; }
    long long bottomOf(int index) const { return topOf(index) + height; }
    int search(long long y, int low, int high) const
    {
        if (height <= 0 || high > rowCount) {
            return binarySearch(*this, y, low, high);
        }
        // y is a far smaller number than its type allows, and a short division is a fast one.
        if (y < 0 || low > high) {
            return -1;
        }
        long long const index =
            y <= UINT_MAX ? static_cast<unsigned>(y) / static_cast<unsigned>(height) : y / height;
        return index >= low && index <= high && index < rowCount ? static_cast<int>(index) : -1;
    }
};

} // namespace RowSearch

} // namespace zenu
