#pragma once

#include "tests/grid_random/ReferenceGrid.h"

namespace gridrandom {

inline ReferenceRow * ReferenceGrid::locate(tag_HROW * handle) const
{
    auto const found = live.find(handle);
    return found == live.end() ? nullptr : found->second;
}

inline std::unique_ptr<ReferenceRow> ReferenceGrid::makeRow(RowClass rowClass, tag_HROW * made)
{
    auto row = std::make_unique<ReferenceRow>();
    row->number = nextNumber++;
    row->rowClass = rowClass;
    row->handle = made;
    if (!row->isSlim()) {
        for (ReferenceColumn const & each : columns) {
            ReferenceItem item;
            if (each.kind == zenu::GCCK_LISTBOX) {
                item.color = 0;
            }
            row->items.push_back(item);
        }
    }
    return row;
}

// The row becomes one that handles find.
inline void ReferenceGrid::enter(ReferenceRow & row)
{
    allWalk.reset();
    if (!row.handle || live.contains(row.handle)) {
        throw Mismatch("a new row has no handle, or that of another row");
    }
    live[row.handle] = &row;
}

inline void ReferenceGrid::leave(ReferenceRow & row)
{
    allWalk.reset();
    live.erase(row.handle);
    heights.erase(&row);
    if (selection.erase(row.handle) != 0) {
        selectionWalk.reset();
    }
    if (topRow == &row) {
        topRow = nullptr;
    }
}

inline bool ReferenceGrid::insertUnder(ReferenceRow * parent,
                                       std::vector<std::unique_ptr<ReferenceRow>> & rows,
                                       tag_HROW * after)
{
    if (parent && parent->isSlim()) {
        return false;
    }
    ReferenceRow & owner = parent ? *parent : root;
    owner.hasButton = true;
    std::size_t at = owner.children.size();
    if (after == zenu::GCI_FIRST) {
        at = 0;
    } else if (after != zenu::GCI_LAST) {
        auto const found = std::find_if(owner.children.begin(), owner.children.end(),
                                        [=](auto const & each) { return each->handle == after; });
        if (found == owner.children.end()) {
            return false;
        }
        at = static_cast<std::size_t>(found - owner.children.begin()) + 1;
    }
    for (auto & row : rows) {
        row->parent = parent;
        owner.children.insert(owner.children.begin() + static_cast<std::ptrdiff_t>(at++),
                              std::move(row));
    }
    return true;
}

inline bool ReferenceGrid::insertRow(GC_ROW & record, tag_HROW * after, tag_HROW * made)
{
    endEdit(true);
    ReferenceRow * const parent = record.parent == zenu::GC_ROOT ? nullptr : locate(record.parent);
    if (!parent && record.parent != zenu::GC_ROOT) {
        return false;
    }
    std::vector<std::unique_ptr<ReferenceRow>> rows;
    rows.push_back(makeRow(RowClass::Ordinary, made));
    ReferenceRow & row = *rows.front();
    if (!insertUnder(parent, rows, after)) {
        return false;
    }
    enter(row);
    invalidate();
    if (record.mask > 1) {
        applyRow(row, record, nullptr);
        invalidate();
    }
    return true;
}

inline bool ReferenceGrid::insertSection(tag_HROW * after, tag_HROW * made)
{
    std::vector<std::unique_ptr<ReferenceRow>> rows;
    rows.push_back(makeRow(RowClass::Section, made));
    ReferenceRow & row = *rows.front();
    if (!insertUnder(nullptr, rows, after)) {
        return false;
    }
    enter(row);
    invalidate();
    return true;
}

inline bool ReferenceGrid::insertSlimRows(std::vector<GC_SLIMROWDATA> const & data,
                                          tag_HROW * parentHandle, tag_HROW * after,
                                          std::vector<tag_HROW *> const & made)
{
    ReferenceRow * const parent = parentHandle == zenu::GC_ROOT ? nullptr : locate(parentHandle);
    if (!parent && parentHandle != zenu::GC_ROOT) {
        return false;
    }
    std::vector<std::unique_ptr<ReferenceRow>> rows;
    std::vector<ReferenceRow *> entered;
    bool hasHeights = false;
    Event created{Event::Created, parentHandle, parent ? static_cast<long>(parent->param) : 0};
    for (std::size_t i = 0; i < data.size(); ++i) {
        rows.push_back(
            makeRow(data[i].hasChildren ? RowClass::Slim : RowClass::LonelySlim, made[i]));
        rows.back()->param = static_cast<unsigned long>(data[i].param);
        entered.push_back(rows.back().get());
        created.rows.emplace_back(made[i], data[i].param);
        allWalk.reset();
        if (data[i].height != -1) {
            invalidate();
            hasHeights = true;
        }
    }
    if (!insertUnder(parent, rows, after)) {
        heightsLeftBehind = heightsLeftBehind || hasHeights;
        return false;
    }
    for (std::size_t i = 0; i < data.size(); ++i) {
        enter(*entered[i]);
        if (data[i].height != -1) {
            heights[entered[i]] = data[i].height;
        }
    }
    events.push_back(created);
    invalidate();
    return true;
}

inline void ReferenceGrid::forEachRow(ReferenceRow & under,
                                      std::function<void(ReferenceRow &)> const & visit)
{
    for (auto const & child : under.children) {
        visit(*child);
        forEachRow(*child, visit);
    }
}

inline bool ReferenceGrid::deleteRow(tag_HROW * handle)
{
    ReferenceRow * const row = locate(handle);
    if (row) {
        endEdit(true);
    }
    if (!row || (row->parent && row->parent->isSlim())) {
        return false;
    }
    std::function<void(ReferenceRow &)> const loadBelow = [&](ReferenceRow & each) {
        int const count = childCount(each);
        for (int i = 0; i < count; ++i) {
            loadBelow(*each.children[static_cast<std::size_t>(i)]);
        }
    };
    loadBelow(*row);
    if (focusRow && focusRow->isSameOrUnder(row)) {
        clearFocus();
    }
    forEachRow(*row, [&](ReferenceRow & each) { leave(each); });
    leave(*row);
    ReferenceRow & owner = row->parent ? *row->parent : root;
    owner.children.erase(owner.children.begin() + owner.placeOf(row));
    if (owner.children.empty()) {
        owner.expanded = false;
        owner.hasButton = false;
    }
    invalidate();
    return true;
}

inline void ReferenceGrid::deleteAllRows()
{
    endEdit(true);
    clearFocus();
    dropWalks();
    heights.clear();
    topRow = nullptr;
    live.clear();
    selection.clear();
    root.children.clear();
    invalidate();
}

inline void ReferenceGrid::reset()
{
    endEdit(true);
    nextColumnId = 0;
    deleteAllRows();
    columns.clear();
    shownColumns.clear();
    headerItems.clear();
    focusColumn = -1;
    hScrollPos = 0;
    contentsWidth = 0;
    placeHeader();
    updateHorizontalBar();
}

inline void ReferenceGrid::expandRow(ReferenceRow & row)
{
    if (!row.isSlim()) {
        row.expanded = true;
    } else if (!row.isLonely()) {
        if (!row.hasBlock || !row.loaded) {
            load(row);
        }
        row.blockExpanded = row.hasBlock;
    }
}

inline void ReferenceGrid::collapseRow(ReferenceRow & row)
{
    row.expanded = false;
    row.blockExpanded = false;
}

inline bool ReferenceGrid::expand(tag_HROW * handle, unsigned code)
{
    if (code == zenu::GCE_EXPANDALL || code == zenu::GCE_COLLAPSEALL) {
        expandTree(code);
        return true;
    }
    ReferenceRow * const row = locate(handle);
    if (row) {
        expandOne(*row, code);
    }
    return row != nullptr;
}

inline void ReferenceGrid::expandOne(ReferenceRow & row, unsigned code)
{
    tell(Event::Expanding, row.handle);
    if (hasSink && !vetoes.allowsExpanding()) {
        return;
    }
    if (row.isExpanded() && focusRow && focusColumn != -1 && focusRow->isSameOrUnder(&row)) {
        moveFocus(indexOf(&row), focusColumn);
    }
    bool const reveal = (code & zenu::GCE_NOSCROLL) == 0;
    unsigned const low = code & ~static_cast<unsigned>(zenu::GCE_NOSCROLL);
    bool const was = row.isExpanded();
    bool changed = false;
    bool bringIn = false;
    if (low == zenu::GCE_EXPAND || (low == zenu::GCE_TOGGLE && !was)) {
        changed = low == zenu::GCE_TOGGLE || !was;
        expandRow(row);
        bringIn = reveal && changed && row.isExpanded() && indexOf(&row) == lastShown();
    } else if (low == zenu::GCE_COLLAPSE || low == zenu::GCE_TOGGLE) {
        changed = low == zenu::GCE_TOGGLE || was;
        collapseRow(row);
    }
    if (changed) {
        invalidate();
        int const count = bringIn ? childCount(row) : 0;
        if (count > 0) {
            ensureRowVisible(row.children[static_cast<std::size_t>(count - 1)].get());
            ensureRowVisible(&row);
        }
        tell(Event::Expanded, row.handle);
    }
    settle(); // the strip below the rows is repainted
}

inline void ReferenceGrid::expandTree(unsigned code)
{
    bool const expandAll = code == zenu::GCE_EXPANDALL;
    ReferenceRow const * keep = focusRow;
    while (keep && keep->parent) {
        keep = keep->parent;
    }
    std::vector<ReferenceRow *> changed;
    std::function<void(ReferenceRow &)> const visit = [&](ReferenceRow & row) {
        if (row.isExpanded() != expandAll && hasChildren(row)) {
            tell(Event::Expanding, row.handle);
            if (!hasSink || vetoes.allowsExpanding()) {
                if (&row == keep && !expandAll && focusColumn != -1) {
                    moveFocus(indexOf(&row), focusColumn);
                }
                collapseRow(row);
                if (expandAll) {
                    expandRow(row);
                }
                changed.push_back(&row);
            }
        }
        int const count = childCount(row);
        for (int i = 0; i < count; ++i) {
            visit(*row.children[static_cast<std::size_t>(i)]);
        }
    };
    for (auto const & row : root.children) {
        visit(*row);
    }
    if (!changed.empty()) {
        invalidate();
        for (ReferenceRow const * row : changed) {
            tell(Event::Expanded, row->handle);
        }
    }
}

} // namespace gridrandom
