#pragma once

#include "tests/grid_random/ReferenceGrid.h"

// What a person does: the reference's keys, presses and focus.

namespace gridrandom {

inline bool ReferenceGrid::asksForChange(std::vector<tag_HROW *> const & leaving,
                                         std::vector<tag_HROW *> const & entering)
{
    if (!hasSink) {
        return true;
    }
    Event event{Event::Selecting};
    for (tag_HROW * const row : leaving) {
        event.rows.emplace_back(row, 0);
    }
    for (tag_HROW * const row : entering) {
        event.rows.emplace_back(row, 1);
    }
    events.push_back(event);
    return vetoes.allowsSelecting();
}

inline void ReferenceGrid::selectOnly(std::vector<tag_HROW *> const & rows)
{
    if (asksForChange({selection.begin(), selection.end()}, rows)) {
        selectionWalk.reset();
        selection = {rows.begin(), rows.end()};
        tell(Event::Selected);
    }
}

inline void ReferenceGrid::selectAlso(tag_HROW * row)
{
    if (asksForChange({}, {row})) {
        selection.insert(row);
        tell(Event::Selected);
    }
}

inline void ReferenceGrid::deselectRow(tag_HROW * row)
{
    if (asksForChange({row}, {})) {
        selectionWalk.reset();
        selection.erase(row);
        tell(Event::Selected);
    }
}

// From the anchor, which is `start` if there is none.
inline void ReferenceGrid::selectRange(int start, int to)
{
    anchor = anchor == -1 ? start : anchor;
    anchor = std::min(anchor, static_cast<int>(order.size()) - 1);
    int const from = anchor == -1 ? to : anchor;
    std::vector<tag_HROW *> rows;
    for (int i = std::min(from, to); i <= std::max(from, to); ++i) {
        rows.push_back(order[static_cast<std::size_t>(i)]->handle);
    }
    selectOnly(rows);
}

inline void ReferenceGrid::gainFocus()
{
    settle();
    if (!focusRow && !order.empty() && !shownColumns.empty()) {
        moveFocus(0, 0);
        selectAlso(order.front()->handle);
    }
    tell(Event::FocusIn);
}

inline bool ReferenceGrid::matches(int index, int columnId, std::string const & prefix)
{
    std::string const text = textOf(*order[static_cast<std::size_t>(index)], columnId).value_or("");
    auto const folded = [](char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : int(c); };
    return !text.empty() && text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(),
                      [&](char a, char b) { return folded(a) == folded(b); });
}

inline void ReferenceGrid::search(std::string const & prefix)
{
    int const count = static_cast<int>(order.size());
    int const id = shownColumn(focusColumn)->id;
    int start = indexOf(focusRow);
    start += prefix.size() == 1 || start == -1 ? 1 : 0;
    int found = -1;
    for (int i = start; found == -1 && i < count; ++i) {
        found = matches(i, id, prefix) ? i : -1;
    }
    for (int i = 0; found == -1 && i < std::min(start, count); ++i) {
        found = matches(i, id, prefix) ? i : -1;
    }
    if (found != -1) {
        moveFocus(found, focusColumn);
        selectOnly({focusRow->handle});
        ensureRowVisible(focusRow);
        ensureColumnVisible(shownColumn(focusColumn));
    }
}

inline void ReferenceGrid::key(int key, bool shift, bool ctrl)
{
    settle();
    if (order.empty() || !focusRow || !shownColumn(focusColumn)) {
        return;
    }
    bool const letter = key >= Qt::Key_A && key <= Qt::Key_Z;
    if (letter && !ctrl && (shownColumn(focusColumn)->flags & zenu::GCCF_TYPEAHEAD)) {
        typeAhead += static_cast<char>(key - Qt::Key_A + 'a');
        search(typeAhead);
    }
    tag_HROW * const row = focusRow->handle;
    if (key == Qt::Key_Plus || key == Qt::Key_Minus) {
        bool const plus = key == Qt::Key_Plus;
        if (ctrl) {
            expand(nullptr, plus ? zenu::GCE_EXPANDALL : zenu::GCE_COLLAPSEALL);
        } else if (hasChildren(*focusRow)) {
            expand(row, plus ? zenu::GCE_EXPAND : zenu::GCE_COLLAPSE);
        }
    } else if (key == Qt::Key_Space) {
        if (ctrl && !singleSelection) {
            selection.count(row) ? deselectRow(row) : selectAlso(row);
        }
    } else if (key == Qt::Key_F2) {
        startEdit(*focusRow, shownColumn(focusColumn)->id);
    } else if (!letter) {
        moveByKey(key, shift, ctrl);
    }
    if (hasSink) {
        events.push_back({Event::Key, nullptr, key});
    }
}

inline int ReferenceGrid::columnMarked(int from, int step)
{
    while (shownColumn(from) && !(shownColumn(from)->flags & 0x4U)) {
        from += step;
    }
    return shownColumn(from) ? from : focusColumn;
}

inline void ReferenceGrid::moveByKey(int key, bool shift, bool ctrl)
{
    int const last = static_cast<int>(order.size()) - 1;
    int const from = indexOf(focusRow);
    std::map<int, int> const targets{{Qt::Key_Home, 0},
                                     {Qt::Key_End, last},
                                     {Qt::Key_Up, from - 1},
                                     {Qt::Key_Down, from + 1},
                                     {Qt::Key_PageUp, from - shownCount},
                                     {Qt::Key_PageDown, from + shownCount}};
    auto const target = targets.find(key);
    int const to = std::clamp(target == targets.end() ? from : target->second, 0, last);
    int const oldColumn = focusColumn;
    int const newColumn = key == Qt::Key_Left    ? columnMarked(focusColumn - 1, -1)
                          : key == Qt::Key_Right ? columnMarked(focusColumn + 1, 1)
                                                 : focusColumn;
    if (to == from && newColumn == oldColumn) {
        return;
    }
    moveFocus(to, newColumn);
    if (to != from) {
        if (singleSelection) {
            selectOnly({focusRow->handle});
        } else {
            anchor = shift ? anchor : -1;
            if (!ctrl && shift) {
                selectRange(from, to);
            } else if (!ctrl) {
                selectOnly({focusRow->handle});
            }
        }
    }
    ensureRowVisible(focusRow);
    if (around.autoScroll) {
        ensureColumnVisible(shownColumn(newColumn));
    }
}

inline void ReferenceGrid::tellPress(Event::Type type, Pressed const & at, unsigned element)
{
    if (hasSink) {
        long const place = at.columnId * 16L + static_cast<long>(element);
        events.push_back({type, at.row ? at.row->handle : nullptr, place});
    }
}

inline bool ReferenceGrid::selectByPress(Event::Type type, Pressed const & at)
{
    tag_HROW * const row = at.row->handle;
    anchor = at.shift ? anchor : -1;
    bool const wasSelected = selection.count(row) != 0;
    int const before = indexOf(focusRow);
    int const index = indexOf(at.row);
    moveFocus(index, shownIndexOf(at.columnId));
    if (singleSelection) {
        selectOnly({row});
    } else if (at.ctrl) {
        if (!wasSelected) {
            selectAlso(row);
        } else if (type == Event::RightClick) {
            deselectRow(row);
        }
    } else if (at.shift) {
        selectRange(before, index);
    } else if (wasSelected) {
        selectAlso(row);
    } else {
        selectOnly({row});
    }
    return wasSelected;
}

inline void ReferenceGrid::press(Event::Type type, Pressed const & at)
{
    settle();
    awaitsMove = false; // the button was up
    typeAhead.clear();
    if (type != Event::RightClick || !at.row) {
        tellPress(type, at, at.element);
    }
    bool const passes = type == Event::Click         ? !hasSink || !at.stops
                        : type == Event::DoubleClick ? hasSink && !at.stops
                                                     : true;
    if (!passes || !at.row) {
        return;
    }
    bool const wasSelected = selectByPress(type, at);
    if (type == Event::RightClick) {
        tellPress(type, at, at.element);
        return;
    }
    bool const twice = type == Event::DoubleClick;
    ReferenceColumn const & hit = *column(at.columnId);
    bool const onButton = at.element == zenu::GCEL_BUTTON && (hit.flags & zenu::GCCF_TREE);
    tag_HROW * const row = at.row->handle;
    if ((twice || onButton) && hasChildren(*at.row)) {
        expand(row, zenu::GCE_TOGGLE);
    } else if (at.element == zenu::GCEL_LEAD) {
        tellPress(Event::LeadClick, at, zenu::GCEL_NONE);
    } else if (hit.hasCheck() && (twice || at.element == zenu::GCEL_CHECK)) {
        flipBoxes(*at.row, at.columnId);
    } else {
        if (at.ctrl) {
            if (wasSelected) {
                deselectRow(row);
            }
        } else if (!at.shift) {
            selectOnly({row});
            editPressed(at, wasSelected);
        }
        awaitsMove = !twice;
    }
}

inline void ReferenceGrid::moveMouse(QPoint const & point)
{
    auto const [row, columnId] = hitTest(point);
    if (std::exchange(awaitsMove, false) && row && hasSink) {
        events.push_back({Event::Hover, row, columnId});
    }
}

inline void ReferenceGrid::drag(Event::Type type, QPoint const & point)
{
    auto const [row, columnId] = hitTest(point);
    if (hasSink && type == Event::DragLeave) {
        events.push_back({type});
    } else if (hasSink) {
        events.push_back({type, row, columnId});
    }
}

} // namespace gridrandom
