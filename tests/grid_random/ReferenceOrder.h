#pragma once

#include "tests/grid_random/ReferenceGrid.h"

namespace gridrandom {

inline void ReferenceGrid::settle()
{
    if (dirty) {
        rebuild();
    }
}

inline void ReferenceGrid::rebuild()
{
    shownWalk.reset();
    visibleWalk.reset();
    std::function<void(ReferenceRow &)> const loadShells = [&](ReferenceRow & row) {
        int const count = childCount(row);
        for (int i = 0; i < count; ++i) {
            loadShells(*row.children[static_cast<std::size_t>(i)]);
        }
    };
    for (auto const & row : root.children) {
        loadShells(*row);
    }
    ReferenceRow const * const before = topRow;
    dirty = false;
    order.clear();
    fill(root);
    tops.clear();
    totalHeight = 0;
    for (ReferenceRow const * row : order) {
        tops.push_back(totalHeight);
        totalHeight += heightOf(row);
    }
    if (heights.empty()) {
        tops.clear();
    }
    if (int const kept = indexOf(before); kept >= 0) {
        topIndexStored = kept;
    }
    if (order.empty()) {
        topRow = nullptr;
        topIndexStored = 0;
        shownCount = 0;
        topY = 0;
        updateVerticalBar();
        return;
    }
    place(std::min(topIndexStored, largestTopIndex()));
    if (topRow == before) {
        updateVerticalBar();
        return;
    }
    tellScrolling(topRow->handle); // the answer is not looked at
    updateVerticalBar();
    tell(Event::Scrolled);
}

// Takes an order of the same rows with this row on top.
inline void ReferenceGrid::adopt(std::vector<ReferenceRow *> const & newOrder, tag_HROW * top)
{
    order = newOrder;
    totalHeight = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (!tops.empty()) {
            tops[i] = totalHeight;
        }
        totalHeight += heightOf(order[i]);
        order[i]->mayKeepTexts = true;
    }
    for (unsigned const flags : {zenu::GCN_VISIBLE_FIRST, zenu::GCN_SHOWN_FIRST}) {
        for (tag_HROW * row = nextRow(flags, nullptr); row; row = nextRow(flags + 1, row)) {
        }
    }
    if (!order.empty()) {
        place(indexOf(locate(top)));
    }
    updateVerticalBar();
}

inline void ReferenceGrid::fill(ReferenceRow & parent)
{
    std::vector<ReferenceRow *> rows;
    for (auto const & child : parent.children) {
        rows.push_back(child.get());
    }
    sortGroup(rows);
    for (ReferenceRow * const row : rows) {
        order.push_back(row);
        if (row->isExpanded()) {
            fill(*row);
        }
    }
}

inline void ReferenceGrid::sortGroup(std::vector<ReferenceRow *> & rows)
{
    if (sortColumn != -1) {
        if (column(sortColumn)) {
            sortGroupByText(rows);
        }
    } else if (sortComparison) {
        loose = loose || (isNonsense(*sortComparison) && rows.size() > 1);
        std::stable_sort(rows.begin(), rows.end(),
                         [&](ReferenceRow const * a, ReferenceRow const * b) {
                             return !isNonsense(*sortComparison) &&
                                    compareParams(*sortComparison, static_cast<long>(a->param),
                                                  static_cast<long>(b->param)) < 0;
                         });
    }
}

// A row without text compares as equal to any other, which is no order when there are texts beside.
inline void ReferenceGrid::sortGroupByText(std::vector<ReferenceRow *> & rows)
{
    auto const folded = [](std::string text) {
        for (char & each : text) {
            each = each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
        }
        return text;
    };
    std::map<ReferenceRow const *, std::string> texts;
    for (ReferenceRow const * row : rows) {
        if (std::optional<std::string> const text = textOf(*row, sortColumn)) {
            texts[row] = folded(*text);
        }
    }
    if (texts.size() != rows.size()) {
        loose = loose || (!texts.empty() && rows.size() > 2);
        return;
    }
    std::stable_sort(rows.begin(), rows.end(), [&](ReferenceRow const * a, ReferenceRow const * b) {
        int const compared = texts[a].compare(texts[b]);
        return sortAscending ? compared < 0 : compared > 0;
    });
}

inline int ReferenceGrid::indexOf(ReferenceRow const * row)
{
    settle();
    auto const found = std::find(order.begin(), order.end(), row);
    return found == order.end() ? -1 : static_cast<int>(found - order.begin());
}

inline int ReferenceGrid::heightOf(ReferenceRow const * row) const
{
    auto const found = heights.find(row);
    return found == heights.end() ? around.defaultHeight : found->second;
}

inline long long ReferenceGrid::topOf(int index) const
{
    return tops.empty() ? static_cast<long long>(index) * around.defaultHeight
                        : tops[static_cast<std::size_t>(index)];
}

inline long long ReferenceGrid::bottomOf(int index) const
{
    return topOf(index) + heightOf(order[static_cast<std::size_t>(index)]);
}

inline int ReferenceGrid::pageHeight() const
{
    return std::max(around.client.bottom() - around.headerHeight, 0);
}

inline int ReferenceGrid::topIndex()
{
    settle();
    return shownCount == 0 ? 0 : topIndexStored;
}

inline int ReferenceGrid::lastShown()
{
    settle();
    return shownCount == 0 ? 0 : topIndexStored + shownCount - 1;
}

inline int ReferenceGrid::indexFromY(long long y, int low, int high) const
{
    int const count = static_cast<int>(order.size());
    if (high < low) {
        return -1;
    }
    if (low == high) {
        return low < count && y >= topOf(low) && y < bottomOf(low) ? low : -1;
    }
    int const mid = (high - low) / 2 + low;
    if (mid >= count) {
        return -1;
    }
    if (y < topOf(mid)) {
        return indexFromY(y, low, mid);
    }
    return y < bottomOf(mid) ? mid : indexFromY(y, mid + 1, high);
}

inline int ReferenceGrid::rowUnder(long long y) const
{
    int const last = static_cast<int>(order.size()) - 1;
    if (y < bottomOf(0)) {
        return 0;
    }
    return y >= topOf(last) ? last : indexFromY(y, 0, last);
}

inline int ReferenceGrid::firstIndexForBottom(int index) const
{
    int const count = static_cast<int>(order.size());
    long long const y = bottomOf(index) - pageHeight();
    int const under = std::max(rowUnder(y), 0);
    return topOf(under) >= y || under + 1 >= count ? under : under + 1;
}

inline int ReferenceGrid::visibleCountFrom(int first) const
{
    long long const y = topOf(first) + pageHeight();
    int under = rowUnder(y);
    if (under < 0) {
        under = static_cast<int>(order.size()) - 1;
    }
    if (around.wholeRows && under >= 1 && bottomOf(under) > y) {
        --under;
    }
    return std::max(under - first + 1, 1);
}

inline int ReferenceGrid::largestTopIndex() const
{
    int const last = static_cast<int>(order.size()) - 1;
    long long const bottomY = bottomOf(last) - pageHeight();
    int limit = last;
    if (bottomY < bottomOf(0)) {
        limit = 0;
    } else if (bottomY < topOf(last)) {
        limit = std::max(indexFromY(bottomY, 0, last + 1), 0);
    }
    return topOf(limit) < bottomY && limit < last ? limit + 1 : limit;
}

inline void ReferenceGrid::place(int index)
{
    topIndexStored = index;
    topRow = order[static_cast<std::size_t>(index)];
    topY = topOf(index);
    shownCount = visibleCountFrom(index);
}

} // namespace gridrandom
