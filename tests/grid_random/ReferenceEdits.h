#pragma once

#include "tests/grid_random/ReferenceGrid.h"

// The reference's edits and check boxes.

namespace gridrandom {

inline bool ReferenceGrid::asksForItem(tag_HROW * row, int columnId)
{
    if (!hasSink) {
        return true;
    }
    events.push_back({Event::ItemChanging, row, columnId});
    return vetoes.allowsChanging();
}

inline bool ReferenceGrid::canEdit(ReferenceRow const & row, ReferenceColumn const & column) const
{
    return column.hasEditor() && (column.flags & zenu::GCCF_EDITABLE) &&
           row.rowClass != RowClass::Section;
}

inline void ReferenceGrid::markEdited(ReferenceRow & row, int columnId, bool on)
{
    if (row.rowClass == RowClass::Ordinary) {
        unsigned & flags = row.items[static_cast<std::size_t>(column(columnId)->place)].flags;
        flags = on ? flags | zenu::GCIS_MARKED : flags & ~unsigned(zenu::GCIS_MARKED);
    }
}

inline bool ReferenceGrid::editItem(tag_HROW * handle, int columnId)
{
    ReferenceRow * const row = locate(handle);
    if (!row || !column(columnId)) {
        return false;
    }
    moveFocus(indexOf(row), shownIndexOf(columnId));
    selectionWalk.reset();
    selection = {handle};
    return startEdit(*row, columnId);
}

inline bool ReferenceGrid::startEdit(ReferenceRow & row, int columnId)
{
    endEdit(false);
    if (!canEdit(row, *column(columnId))) {
        return false;
    }
    settle();
    ensureRowVisible(&row);
    ensureColumnVisible(column(columnId));
    // A flag alone neither lays a column out nor takes it out of the layout.
    bool const isShown =
        indexOf(&row) != -1 && shownIndexOf(columnId) != -1 && !column(columnId)->hidden();
    if (!isShown || !hasRoom(row.handle, columnId) || !asksForItem(row.handle, columnId)) {
        return false;
    }
    edit = {&row, columnId, textOf(row, columnId).value_or("")};
    markEdited(row, columnId, true);
    if (windowIsActive) {
        keyboardInEditor = true;
        loseFocus();
    }
    return true;
}

inline bool ReferenceGrid::endEdit(bool discard)
{
    if (!edit.row) {
        return !discard;
    }
    Edit const ended = std::exchange(edit, {});
    ReferenceRow & row = *ended.row;
    if (!discard && row.isSlim()) {
        events.push_back(
            {Event::TextWritten, row.handle, ended.columnId, {{nullptr, numberOf(ended.text)}}});
    } else if (!discard) {
        GC_ITEM record;
        record.mask = zenu::GCIM_TEXT;
        record.text = const_cast<char *>(ended.text.c_str());
        setItem(row.handle, ended.columnId, record);
    }
    markEdited(row, ended.columnId, false);
    if (hasSink) {
        events.push_back({Event::ItemChanged, row.handle, ended.columnId});
    }
    takeKeyboard();
    return true;
}

// From the editor back to the grid.
inline void ReferenceGrid::takeKeyboard()
{
    if (std::exchange(keyboardInEditor, false)) {
        gainFocus();
    }
}

inline void ReferenceGrid::editPressed(Pressed const & at, bool wasSelected)
{
    unsigned const flags = column(at.columnId)->flags;
    bool const mayEdit = wasSelected || (flags & zenu::GCCF_CLICKEDIT);
    bool const aside = at.element >= 1 && at.element <= 3;
    if (!mayEdit || aside || selection.size() > 1 || edit.row) {
        return;
    }
    if (!(flags & zenu::GCCF_DELAYEDEDIT)) {
        startEdit(*at.row, at.columnId);
    } else if (canEdit(*at.row, *column(at.columnId))) {
        pendingRow = at.row;
    }
}

inline void ReferenceGrid::flipBoxes(ReferenceRow const & clicked, int columnId)
{
    auto const place = static_cast<std::size_t>(column(columnId)->place);
    int const state = clicked.isSlim()
                          ? source.checkState(static_cast<long>(clicked.param), columnId)
                      : clicked.rowClass == RowClass::Section           ? 0
                      : clicked.items[place].flags & zenu::GCIS_CHECKED ? 1
                                                                        : 0;
    bool const checks = state != 1;
    for (tag_HROW * const handle : selection) {
        if (!asksForItem(handle, columnId)) {
            continue;
        }
        ReferenceRow & row = *locate(handle);
        if (row.isSlim()) {
            events.push_back({Event::CheckWritten, handle, columnId * 2L + (checks ? 1 : 0)});
        } else if (row.rowClass == RowClass::Ordinary) {
            unsigned & flags = row.items[place].flags;
            flags = checks ? flags | zenu::GCIS_CHECKED : flags & ~unsigned(zenu::GCIS_CHECKED);
        }
        if (hasSink) {
            events.push_back({Event::ItemChanged, handle, columnId});
        }
    }
}

} // namespace gridrandom
