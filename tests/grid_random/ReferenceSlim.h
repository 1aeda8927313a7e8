#pragma once

#include "tests/grid_random/ReferenceGrid.h"

namespace gridrandom {

// The handles that the real grid told of, in the one event about this row that is not used yet.
inline std::vector<tag_HROW *> ReferenceGrid::handlesOfLoaded(ReferenceRow const & row,
                                                              std::size_t count) const
{
    for (Event const & event : *realEvents) {
        if (event.type != Event::Created || event.row != row.handle || event.rows.size() != count) {
            continue;
        }
        std::vector<tag_HROW *> handles;
        for (auto const & each : event.rows) {
            if (!live.contains(each.first)) {
                handles.push_back(each.first);
            }
        }
        if (handles.size() == count) {
            return handles;
        }
    }
    throw Mismatch("a slim row's children were not loaded");
}

inline void ReferenceGrid::load(ReferenceRow & row)
{
    auto const param = static_cast<long>(row.param);
    int const count = source.count(param);
    if (count <= 0) {
        return;
    }
    std::vector<Source::Child> const data = source.children(param, count);
    std::vector<tag_HROW *> const handles = handlesOfLoaded(row, data.size());
    bool const lonely = std::all_of(data.begin(), data.end(),
                                    [](Source::Child const & each) { return !each.hasChildren; });
    row.blockExpanded = row.hasBlock && row.blockExpanded;
    row.hasBlock = true;
    row.loaded = true;
    Event created{Event::Created, row.handle, param};
    for (std::size_t i = 0; i < data.size(); ++i) {
        auto child = makeRow(lonely ? RowClass::LonelySlim : RowClass::Slim, handles[i]);
        child->parent = &row;
        child->param = static_cast<unsigned long>(data[i].param);
        enter(*child);
        if (data[i].height != -1) {
            heights[child.get()] = data[i].height;
            invalidate();
        }
        created.rows.emplace_back(handles[i], data[i].param);
        row.children.push_back(std::move(child));
    }
    events.push_back({Event::Asked, row.handle, param});
    events.push_back(created);
}

inline int ReferenceGrid::childCount(ReferenceRow & row)
{
    if (row.hasBlock && !row.loaded) {
        load(row);
    }
    return static_cast<int>(row.children.size());
}

inline bool ReferenceGrid::hasChildren(ReferenceRow const & row) const
{
    if (row.rowClass == RowClass::Slim) {
        return row.hasBlock || source.hasSubRows(static_cast<long>(row.param));
    }
    return !row.isLonely() && row.hasButton;
}

inline bool ReferenceGrid::resetSlimRow(tag_HROW * handle)
{
    ReferenceRow * const row = locate(handle);
    if (!row || row->rowClass != RowClass::Slim) {
        return false;
    }
    endEdit(true);
    resetRow(*row);
    return true;
}

inline void ReferenceGrid::resetRow(ReferenceRow & row)
{
    childCount(row);
    Event deleted{Event::Deleted, row.handle, static_cast<long>(row.param)};
    for (auto const & child : row.children) {
        deleted.rows.emplace_back(child->handle, static_cast<long>(child->param));
        if (child->rowClass == RowClass::Slim) {
            resetRow(*child);
        }
        if (child.get() == focusRow) {
            clearFocus();
        }
        leave(*child);
    }
    events.push_back(deleted);
    row.children.clear();
    row.loaded = false;
    row.hasBlock = row.hasBlock && row.blockExpanded;
    invalidate();
}

} // namespace gridrandom
