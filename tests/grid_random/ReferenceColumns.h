#pragma once

#include "tests/grid_random/ReferenceGrid.h"

namespace gridrandom {

inline ReferenceColumn * ReferenceGrid::column(int id)
{
    auto const found = std::find_if(columns.begin(), columns.end(),
                                    [=](ReferenceColumn const & each) { return each.id == id; });
    return found == columns.end() ? nullptr : &*found;
}

inline ReferenceColumn * ReferenceGrid::shownColumn(int index)
{
    bool const inside = index >= 0 && static_cast<std::size_t>(index) < shownColumns.size();
    return inside ? column(shownColumns[static_cast<std::size_t>(index)]) : nullptr;
}

inline int ReferenceGrid::shownIndexOf(int id) const
{
    auto const found = std::find(shownColumns.begin(), shownColumns.end(), id);
    return found == shownColumns.end() ? -1 : static_cast<int>(found - shownColumns.begin());
}

inline int ReferenceGrid::focusedColumnId()
{
    ReferenceColumn const * const found = shownColumn(focusColumn);
    return found ? found->id : -1;
}

namespace detail {

inline void takeRecord(ReferenceColumn & column, GC_COLUMN const & record)
{
    if (record.mask & zenu::GCCM_FORMAT) {
        column.format = record.format;
    }
    if (record.mask & zenu::GCCM_WIDTH) {
        column.width = record.width;
    }
    if (record.mask & zenu::GCCM_KIND) {
        column.toldKind = record.kind;
    }
    if (record.mask & zenu::GCCM_FLAGS) {
        column.flags = record.flags;
    }
    bool const editable =
        column.toldKind == zenu::GCCK_TEXT || column.toldKind == zenu::GCCK_TEXTWITHICON ||
        column.toldKind == zenu::GCCK_LISTBOX || column.toldKind == zenu::GCCK_COMBOBOX;
    if (!editable) {
        column.flags &= ~0x4802U;
    }
    if (record.mask & zenu::GCCM_TEXT) {
        column.text = record.text ? std::optional<std::string>(record.text) : std::nullopt;
    }
}

} // namespace detail

inline int ReferenceGrid::insertColumn(int index, GC_COLUMN const & record)
{
    if (record.kind < 0 || record.kind > 7) {
        return -1;
    }
    ReferenceColumn made;
    made.id = nextColumnId++;
    made.place = static_cast<int>(columns.size());
    made.kind = record.kind;
    detail::takeRecord(made, record);
    int const count = made.place + 1;
    made.order = static_cast<unsigned>(index) > static_cast<unsigned>(count) ? count - 1 : index;
    for (ReferenceColumn & other : columns) {
        other.order += other.order >= made.order ? 1 : 0;
    }
    columns.push_back(made);
    forEachRow(root, [&](ReferenceRow & row) {
        if (!row.isSlim()) {
            ReferenceItem item;
            item.color = made.kind == zenu::GCCK_LISTBOX ? 0 : item.color;
            row.items.push_back(item);
        }
    });
    rebuildColumns();
    return made.id;
}

inline bool ReferenceGrid::deleteColumn(int id)
{
    ReferenceColumn const * const found = column(id);
    if (!found) {
        return false;
    }
    endEdit(true);
    ReferenceColumn const gone = *found;
    forEachRow(root, [&](ReferenceRow & row) {
        if (!row.isSlim()) {
            row.items.erase(row.items.begin() + gone.place);
        }
    });
    // By the order among all columns, hidden ones included: maybe another item goes.
    if (gone.order < static_cast<int>(headerItems.size())) {
        headerItems.erase(headerItems.begin() + gone.order);
    }
    std::erase(shownColumns, id);
    columns.erase(columns.begin() + gone.place);
    for (ReferenceColumn & other : columns) {
        other.place -= other.place > gone.place ? 1 : 0;
        other.order -= other.order > gone.order ? 1 : 0;
    }
    placeColumns();
    placeHeader();
    updateHorizontalBar();
    return true;
}

inline bool ReferenceGrid::setColumn(int id, GC_COLUMN const & record)
{
    ReferenceColumn * const changed = column(id);
    if (!changed) {
        return false;
    }
    if ((record.mask & zenu::GCCM_WIDTH) && changed->width != record.width) {
        changed->width = record.width;
        placeColumns();
        placeHeader();
        updateHorizontalBar();
    }
    if (record.mask & zenu::GCCM_KIND) {
        if (record.kind < 0 || record.kind >= 7) {
            return false;
        }
        changed->kind = record.kind;
        rebuildColumns();
    }
    detail::takeRecord(*changed, record);
    return true;
}

inline void ReferenceGrid::showColumn(int id, bool show)
{
    ReferenceColumn * const changed = column(id);
    if (changed && changed->hidden() == show) {
        changed->flags ^= zenu::GCCF_HIDDEN;
        rebuildColumns();
    }
}

inline bool ReferenceGrid::setColumnOrder(std::vector<int> const & ids)
{
    if (ids.size() != columns.size()) {
        return false;
    }
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (ReferenceColumn * const changed = column(ids[i])) {
            changed->order = static_cast<int>(i);
        }
    }
    rebuildColumns();
    return true;
}

inline void ReferenceGrid::setFocusedColumn(int id)
{
    if (ReferenceColumn const * const found = column(id)) {
        focusColumn = found->place;
    }
}

inline void ReferenceGrid::rebuildColumns()
{
    int const focused = focusedColumnId();
    shownColumns.clear();
    std::vector<ReferenceColumn> sorted = columns;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](auto const & a, auto const & b) { return a.order < b.order; });
    for (ReferenceColumn const & each : sorted) {
        if (!each.hidden()) {
            shownColumns.push_back(each.id);
        }
    }
    if (int const index = shownIndexOf(focused); index != -1) {
        focusColumn = index;
    }
    headerItems = shownColumns;
    placeColumns();
    focusColumn = std::min(focusColumn, static_cast<int>(shownColumns.size()) - 1);
    int const clientRight = around.client.right();
    if (contentsWidth - hScrollPos < clientRight) {
        hScrollPos = std::max(contentsWidth - clientRight, 0);
        ensureColumnVisible(shownColumn(focusColumn));
    }
    placeHeader();
    updateHorizontalBar();
}

inline void ReferenceGrid::placeColumns()
{
    contentsWidth = 0;
    for (int const id : shownColumns) {
        ReferenceColumn & each = *column(id);
        each.left = contentsWidth;
        contentsWidth += each.width;
    }
}

inline void ReferenceGrid::placeHeader()
{
    if (around.client.right() > contentsWidth) {
        hScrollPos = 0;
    }
    headerX = -hScrollPos;
}

} // namespace gridrandom
