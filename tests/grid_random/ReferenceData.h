#pragma once

#include "tests/grid_random/ReferenceGrid.h"

#include <cstring>

namespace gridrandom {

inline bool ReferenceGrid::setRow(tag_HROW * handle, GC_ROW & record, GC_SECTION const * section)
{
    ReferenceRow * const row = locate(handle);
    if (!row) {
        return false;
    }
    applyRow(*row, record, section);
    return !row->isSlim();
}

inline void ReferenceGrid::applyRow(ReferenceRow & row, GC_ROW & record, GC_SECTION const * section)
{
    if (record.mask & zenu::GCRM_PARAM) {
        row.param = record.param;
    }
    if (!row.isSlim()) {
        if ((record.mask & zenu::GCRM_STATE) && (record.stateMask & zenu::GCRS_HASCHILDREN)) {
            row.hasButton = (record.state & zenu::GCRS_HASCHILDREN) != 0;
        }
        if (record.mask & zenu::GCRM_TEXTCOLOR) {
            row.textColor = record.textColor.rgb();
        }
        if (record.mask & zenu::GCRM_BKCOLOR) {
            row.bkColor = record.bkColor.rgb();
        }
    }
    if (row.rowClass == RowClass::Section && section && (section->mask & zenu::GCRM_SECTIONTEXT)) {
        row.title = section->text ? std::optional<std::string>(section->text) : std::nullopt;
    }
    if (record.mask & zenu::GCRM_HEIGHT) {
        if (record.height == -1) {
            heights.erase(&row);
        } else {
            heights[&row] = record.height;
        }
        invalidate();
    }
    if (record.mask & zenu::GCRM_STATE) {
        applyState(row, record);
    }
}

inline void ReferenceGrid::applyState(ReferenceRow & row, GC_ROW const & record)
{
    unsigned const on = record.stateMask & record.state;
    unsigned const off = record.stateMask & ~record.state;
    bool const selected = selection.contains(row.handle);
    if ((on & zenu::GCRS_SELECTED) && !selected) {
        selection.insert(row.handle);
        tell(Event::Selected);
    }
    if ((off & zenu::GCRS_SELECTED) && selected) {
        selection.erase(row.handle);
        selectionWalk.reset();
        tell(Event::Selected);
    }
    if ((on & zenu::GCRS_FOCUSED) && focusColumn != -1) {
        moveFocus(indexOf(&row), focusColumn);
    }
    if (off & zenu::GCRS_FOCUSED) {
        clearFocus();
    }
    if (on & zenu::GCRS_EXPANDED) {
        expandOne(row, zenu::GCE_EXPAND);
    }
    if (off & zenu::GCRS_EXPANDED) {
        expandOne(row, zenu::GCE_COLLAPSE);
    }
}

inline unsigned ReferenceGrid::stateOf(ReferenceRow const & row)
{
    unsigned state = 0;
    state |= hasChildren(row) ? zenu::GCRS_HASCHILDREN : 0U;
    state |= row.isExpanded() ? zenu::GCRS_EXPANDED : 0U;
    state |= selection.contains(row.handle) ? zenu::GCRS_SELECTED : 0U;
    state |= focusRow == &row ? zenu::GCRS_FOCUSED : 0U;
    state |= indexOf(&row) != -1 ? zenu::GCRS_VISIBLE : 0U;
    return state;
}

inline ReferenceItem const * ReferenceGrid::itemOf(ReferenceRow const & row,
                                                   ReferenceColumn const & column) const
{
    auto const place = static_cast<std::size_t>(column.place);
    return place < row.items.size() ? &row.items[place] : nullptr;
}

inline std::optional<std::string> ReferenceGrid::textOf(ReferenceRow const & row, int columnId)
{
    ReferenceColumn const * const found = column(columnId);
    if (!found) {
        return std::nullopt;
    }
    if (row.isSlim()) {
        return source.text(static_cast<long>(row.param), columnId);
    }
    if (row.rowClass == RowClass::Section) {
        return row.title;
    }
    ReferenceItem const * const item = itemOf(row, *found);
    if (item && found->kind == zenu::GCCK_ICON) {
        return ""; // a text all the same, and an empty one
    }
    if (!item || !found->hasText() || item->textKind == ReferenceItem::Text::None) {
        return std::nullopt;
    }
    return item->textKind == ReferenceItem::Text::Own ? item->text
                                                      : callbackText(row.number, columnId);
}

// Writes what GetItem is to write. `kept` says that the real item holds a copy of callback text.
inline bool ReferenceGrid::getItem(ReferenceRow const & row, int columnId, GC_ITEM & record,
                                   bool kept)
{
    ReferenceColumn const & from = *column(columnId);
    bool result = true;
    auto const giveText = [&](std::optional<std::string> const & text) {
        if (record.mask & zenu::GCIM_TEXT) {
            std::memset(record.text, 0, static_cast<std::size_t>(record.textMax));
            std::strncpy(record.text, text.value_or("").c_str(),
                         static_cast<std::size_t>(record.textMax));
        }
        if (record.mask & zenu::GCIM_TEXTLEN) {
            record.value = static_cast<int>(text.value_or("").size());
        }
    };
    if (row.rowClass != RowClass::Ordinary) {
        if (row.rowClass == RowClass::Section) {
            giveText(row.title);
            record.textColor = QColor::fromRgb(row.textColor);
        }
        return false;
    }
    ReferenceItem const & item = *itemOf(row, from);
    record.state = item.flags & 0x1f;
    if (record.mask & zenu::GCIM_ALIGN) {
        record.value = static_cast<int>(item.flags >> 5) - 1;
    }
    if (from.hasText()) {
        bool const hidden = item.textKind == ReferenceItem::Text::Callback && !kept;
        giveText(hidden ? std::nullopt : textOf(row, columnId));
        result = !hidden || !(record.mask & zenu::GCIM_TEXT);
    }
    if (from.kind != zenu::GCCK_ICON) {
        record.textColor = QColor::fromRgb(item.color);
    }
    if (from.kind == zenu::GCCK_LISTBOX) {
        giveText(std::nullopt);               // no public operation gives a column choices
        record.value = item.images[0] & 0xff; // a byte of which one value is none
        record.value = record.value == 0xff ? -1 : record.value;
        record.value = (record.mask & zenu::GCIM_TEXTLEN) ? 0 : record.value;
    }
    if (from.hasCheck()) {
        bool const checked = (item.flags & zenu::GCIS_CHECKED) != 0;
        bool const gray = from.kind == zenu::GCCK_CHECKBOXWITHICON && item.grayed;
        record.value = (checked ? 1 : 0) | (gray ? 2 : 0);
        if (record.mask & zenu::GCIM_CHECKSTYLE) {
            record.value = item.hideCheck ? 2 : 0;
        }
    }
    if (from.hasImages()) {
        if (from.kind != zenu::GCCK_ICON || (record.mask & zenu::GCIM_IMAGE)) {
            record.image = item.images[0];
        }
        if (record.mask & zenu::GCIM_OVERLAY) {
            record.image = item.images[1];
        }
        if (record.mask & zenu::GCIM_STATEIMAGE) {
            record.image = item.images[2];
        }
    }
    return result;
}

inline bool ReferenceGrid::setItem(tag_HROW * handle, int columnId, GC_ITEM const & record)
{
    ReferenceRow * const row = locate(handle);
    ReferenceColumn const * const to = column(columnId);
    if (!row || !to || row->isSlim()) {
        return false;
    }
    if (row->rowClass == RowClass::Section) {
        if (record.mask & zenu::GCIM_TEXTCOLOR) {
            row->textColor = record.textColor.rgb();
        }
        if (record.mask & zenu::GCIM_TEXT) {
            row->title = record.text ? std::optional<std::string>(record.text) : std::nullopt;
        }
        return false;
    }
    ReferenceItem & item = row->items[static_cast<std::size_t>(to->place)];
    if (record.mask & zenu::GCIM_STATE) {
        item.flags = (item.flags & ~record.stateMask) | record.state;
    }
    if (record.mask & zenu::GCIM_ALIGN) {
        if (record.value < 0 || record.value > 7) {
            return false;
        }
        item.flags = (item.flags & 0x1f) | (static_cast<unsigned>(record.value + 1) << 5 & 0xe0);
    }
    if (to->kind != zenu::GCCK_ICON && (record.mask & zenu::GCIM_TEXTCOLOR)) {
        item.color = record.textColor.rgb();
    }
    if (to->hasText() && (record.mask & zenu::GCIM_TEXT)) {
        using Text = ReferenceItem::Text;
        bool const callback = record.text == zenu::GC_TEXTCALLBACK;
        item.textKind = callback ? Text::Callback : (record.text ? Text::Own : Text::None);
        item.text = item.textKind == Text::Own ? record.text : "";
    }
    if (to->kind == zenu::GCCK_LISTBOX) {
        if (record.mask & zenu::GCIM_VALUE) {
            item.images[0] = static_cast<signed char>(record.value);
        } else if (record.mask & zenu::GCIM_TEXT) {
            item.images[0] = -1;
            return false;
        }
    }
    if (to->hasCheck() && (record.mask & zenu::GCIM_VALUE)) {
        bool const both = to->kind == zenu::GCCK_CHECKBOXWITHICON;
        bool const checked = both ? (record.value & 1) != 0 : record.value > 0;
        item.flags = (item.flags & ~8U) | (checked ? 8U : 0U);
        item.grayed = both ? (record.value & 2) != 0 : item.grayed;
    }
    if (to->hasCheck() && (record.mask & zenu::GCIM_CHECKSTYLE)) {
        item.radio = (record.value & 1) != 0;
        item.hideCheck = (record.value & 2) != 0;
    }
    if (to->hasImages()) {
        constexpr unsigned bits[] = {zenu::GCIM_IMAGE, zenu::GCIM_OVERLAY, zenu::GCIM_STATEIMAGE};
        for (std::size_t i = 0; i < 3; ++i) {
            item.images[i] = (record.mask & bits[i]) ? record.image : item.images[i];
        }
    }
    return true;
}

inline bool ReferenceGrid::setRowSel(tag_HROW * handle, bool select)
{
    ReferenceRow * const row = locate(handle);
    if (!row || shownColumns.empty()) {
        return false;
    }
    if (select) {
        moveFocus(indexOf(row), shownColumn(focusColumn) ? focusColumn : 0);
        selection.insert(handle);
    } else if (selection.erase(handle) != 0) {
        selectionWalk.reset();
    }
    tell(Event::Selected);
    return true;
}

inline void ReferenceGrid::selectRows(std::vector<tag_HROW *> const & handles)
{
    for (tag_HROW * const handle : handles) {
        if (!locate(handle)) {
            break;
        }
        selection.insert(handle);
    }
    tell(Event::Selected);
}

inline void ReferenceGrid::selectAll()
{
    settle();
    for (ReferenceRow const * row : order) {
        selection.insert(row->handle);
    }
    tell(Event::Selected);
}

inline void ReferenceGrid::clearSelection()
{
    selectionWalk.reset();
    selection.clear();
    tell(Event::Selected);
}

inline void ReferenceGrid::sort(int columnId, bool ascending, std::optional<Comparison> comparison)
{
    sortColumn = columnId;
    sortAscending = ascending;
    sortComparison = comparison;
    invalidate();
}

inline void ReferenceGrid::moveFocus(int rowIndex, int columnIndex)
{
    settle();
    ReferenceColumn const * const to = shownColumn(columnIndex);
    if (rowIndex < 0 || rowIndex >= static_cast<int>(order.size()) || !to) {
        return;
    }
    auto const mark = [](ReferenceRow & row, int place) {
        for (std::size_t i = 0; i < row.items.size(); ++i) {
            row.items[i].flags &= ~1U;
            row.items[i].flags |= static_cast<int>(i) == place ? 1U : 0U;
        }
    };
    if (focusRow) {
        mark(*focusRow, -1);
    }
    focusColumn = columnIndex;
    focusRow = order[static_cast<std::size_t>(rowIndex)];
    mark(*focusRow, to->place);
    if (around.autoScroll) {
        int const id = to->id;
        ensureRowVisible(focusRow);
        ensureColumnVisible(column(id));
    }
}

inline void ReferenceGrid::clearFocus()
{
    if (focusRow) {
        for (ReferenceItem & item : focusRow->items) {
            item.flags &= ~1U;
        }
    }
    focusRow = nullptr;
    focusColumn = -1;
}

} // namespace gridrandom
