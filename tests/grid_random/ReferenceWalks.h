#pragma once

#include "tests/grid_random/ReferenceGrid.h"

namespace gridrandom {

inline void ReferenceGrid::dropWalks()
{
    allWalk.reset();
    shownWalk.reset();
    visibleWalk.reset();
    selectionWalk.reset();
}

// By address, or, where handles are trusted, parents before children.
inline std::vector<tag_HROW *> ReferenceGrid::allRows()
{
    std::vector<tag_HROW *> rows;
    if (!fast) {
        for (auto const & each : live) {
            rows.push_back(each.first);
        }
        return rows;
    }
    std::function<void(ReferenceRow &)> const visit = [&](ReferenceRow & row) {
        rows.push_back(row.handle);
        int const count = childCount(row);
        for (int i = 0; i < count; ++i) {
            visit(*row.children[static_cast<std::size_t>(i)]);
        }
    };
    for (auto const & row : root.children) {
        visit(*row);
    }
    return rows;
}

inline tag_HROW * ReferenceGrid::nextSelected(tag_HROW * given)
{
    if (!selectionWalk || !given || *selectionWalk != given) {
        selectionWalk = selectionWalk ? std::optional<tag_HROW *>(nullptr) : std::nullopt;
        return nullptr;
    }
    auto const after = selection.upper_bound(given);
    selectionWalk = after == selection.end() ? nullptr : *after;
    return *selectionWalk;
}

// The walks over children that a grid keeps are hints, which change no answer.
inline tag_HROW * ReferenceGrid::sibling(ReferenceRow & row, int direction)
{
    ReferenceRow & owner = row.parent ? *row.parent : root;
    int const count = row.parent ? childCount(owner) : static_cast<int>(root.children.size());
    int const wanted = owner.placeOf(&row) + direction;
    return wanted >= 0 && wanted < count ? owner.children[static_cast<std::size_t>(wanted)]->handle
                                         : nullptr;
}

inline tag_HROW * ReferenceGrid::nextRow(unsigned flags, tag_HROW * handle)
{
    ReferenceRow * const row = locate(handle);
    auto const handlesOf = [](auto first, auto last) {
        std::vector<tag_HROW *> handles;
        for (; first != last; ++first) {
            handles.push_back((*first)->handle);
        }
        return handles;
    };
    switch (flags) {
    case zenu::GCN_ALL_FIRST: {
        allWalk.reset();
        std::vector<tag_HROW *> rows = allRows();
        allWalk = CachedWalk{std::move(rows)};
        return allWalk->first();
    }
    case zenu::GCN_ALL_NEXT:
        return allWalk ? allWalk->next(handle) : nullptr;
    case zenu::GCN_CHILD_FIRST: {
        if (!row && handle != zenu::GC_ROOT) {
            return nullptr;
        }
        ReferenceRow & owner = row ? *row : root;
        int const count = row ? childCount(owner) : static_cast<int>(root.children.size());
        return count ? owner.children.front()->handle : nullptr;
    }
    case zenu::GCN_CHILD_NEXT:
        return row ? sibling(*row, 1) : nullptr;
    case zenu::GCN_CHILD_PREV:
        return row ? sibling(*row, -1) : nullptr;
    case zenu::GCN_SHOWN_FIRST: {
        settle();
        if (order.empty()) {
            return nullptr;
        }
        auto const first = order.begin() + topIndexStored;
        auto const past = std::min(first + shownCount, order.end());
        shownWalk = CachedWalk{handlesOf(first, past)};
        return shownWalk->first();
    }
    case zenu::GCN_SHOWN_NEXT:
        settle();
        return shownWalk ? shownWalk->next(handle) : nullptr;
    case zenu::GCN_SELECTED_FIRST:
        selectionWalk = selection.empty() ? nullptr : *selection.begin();
        return *selectionWalk;
    case zenu::GCN_SELECTED_NEXT:
        return nextSelected(handle);
    case zenu::GCN_ROOT:
        return zenu::GC_ROOT;
    case zenu::GCN_PARENT:
        return !row ? nullptr : (row->parent ? row->parent->handle : zenu::GC_ROOT);
    case zenu::GCN_VISIBLE_PARENT: {
        ReferenceRow const * up = row ? row->parent : nullptr;
        while (up && indexOf(up) == -1) {
            up = up->parent;
        }
        return !row ? nullptr : (up ? up->handle : zenu::GC_ROOT);
    }
    case zenu::GCN_FOCUSED:
        return focusRow ? focusRow->handle : nullptr;
    case zenu::GCN_VISIBLE_FIRST:
        settle();
        if (order.empty()) {
            return nullptr;
        }
        visibleWalk = CachedWalk{handlesOf(order.begin(), order.end())};
        return visibleWalk->first();
    case zenu::GCN_VISIBLE_NEXT:
        settle();
        return visibleWalk ? visibleWalk->next(handle) : nullptr;
    case zenu::GCN_VISIBLE_PREV: {
        int const index = row ? indexOf(row) : -1;
        return index > 0 ? order[static_cast<std::size_t>(index - 1)]->handle : nullptr;
    }
    default:
        return nullptr;
    }
}

// Zero-width columns take no point.
inline std::pair<tag_HROW *, int> ReferenceGrid::hitTest(QPoint const & point)
{
    settle();
    int const x = point.x() + hScrollPos;
    long long const y = point.y() + topPosition() - around.headerHeight;
    // One below all rows is covered by none, and the header hides those that it lies over.
    if (order.empty() || point.x() < 0 || point.y() < std::max(around.headerHeight, 0) ||
        x >= contentsWidth || y < 0) {
        return {nullptr, -1};
    }
    int const index = indexFromY(y, 0, static_cast<int>(order.size()) - 1);
    for (int const id : shownColumns) {
        ReferenceColumn const & each = *column(id);
        if (index != -1 && x >= each.left && x < each.left + each.width) {
            return {order[static_cast<std::size_t>(index)]->handle, id};
        }
    }
    return {nullptr, -1};
}

// The trust in handles changes only while there are no rows; the word changes all the same.
inline void ReferenceGrid::setExStyle(unsigned word)
{
    bool const differs = ((word ^ exStyle) & zenu::GCXS_FASTLOCATOR) != 0;
    exStyle = word;
    if (differs && live.empty()) {
        dropWalks();
        fast = (word & zenu::GCXS_FASTLOCATOR) != 0;
    }
}

} // namespace gridrandom
