#pragma once

#include "tests/grid_random/Player.h"

namespace gridrandom {

namespace detail {

inline QColor colorOf(int number)
{
    return QColor::fromRgb(mixed(static_cast<unsigned>(number), 5) | 0xff000000U);
}

inline GC_ROW rowRecord(int mask, int state, int stateMask, int height, int param, int color)
{
    GC_ROW record;
    record.mask = static_cast<unsigned>(mask);
    record.state = static_cast<unsigned>(state);
    record.stateMask = static_cast<unsigned>(stateMask);
    record.height = height;
    record.param = static_cast<unsigned long>(param);
    record.textColor = colorOf(color);
    record.bkColor = colorOf(color + 1);
    return record;
}

} // namespace detail

inline void Player::run(Operation const & operation)
{
    Action const action = operation.action;
    Args args = operation.args;
    bool const done = runRows(action, args) || runRowData(action, args) ||
                      runSelection(action, args) || runColumns(action, args) ||
                      runScrolling(action, args) || runInput(action, args) ||
                      runEdits(action, args);
    if (!done) {
        runRest(action, args);
    }
}

inline void Player::insertRow(Args args, bool withRecord)
{
    GC_ROW record;
    record.mask = zenu::GCRM_PARENT;
    if (withRecord) {
        record = detail::rowRecord(args[2], args[3], args[4], args[5], args[6], args[7]);
    }
    record.parent = handle(args[0]);
    tag_HROW * const made = withRecord ? grid->InsertRow(&record, handle(args[1]))
                                       : grid->InsertRow(record.parent, handle(args[1]));
    same("success of InsertRow",
         {made != nullptr, made ? ref.insertRow(record, handle(args[1]), made)
                                : ref.insertRow(record, handle(args[1]), foreignHandle())});
}

inline void Player::insertSlimRows(Args args)
{
    std::vector<GC_SLIMROWDATA> data(static_cast<std::size_t>(args[0]));
    for (std::size_t i = 0; i < data.size(); ++i) {
        data[i].param = (args[1] + static_cast<long>(i) * 7) % 1000;
        data[i].hasChildren = (args[1] + static_cast<int>(i)) % 2;
        data[i].height = data[i].param % 11 == 0 ? 25 : -1;
    }
    std::vector<GC_SLIMROWDATA> real = data;
    bool const done = grid->InsertSlimRows(args[0], real.data(), handle(args[2]), handle(args[3]));
    std::vector<tag_HROW *> made;
    for (GC_SLIMROWDATA const & each : real) {
        if ((each.row != nullptr) != done && args[2] != nullRow) {
            fail(QStringLiteral("InsertSlimRows left a handle that does not fit its answer"));
        }
        made.push_back(each.row);
    }
    same("success of InsertSlimRows",
         {done, ref.insertSlimRows(data, handle(args[2]), handle(args[3]), made)});
}

inline bool Player::runRows(Action action, Args args)
{
    switch (action) {
    case Action::InsertRow:
    case Action::InsertRowRecord:
        insertRow(args, action == Action::InsertRowRecord);
        return true;
    case Action::InsertSection: {
        tag_HROW * const made = grid->InsertSection(plainTextOf(args[1]), handle(args[0]));
        same("success of InsertSection",
             {made != nullptr, ref.insertSection(handle(args[0]), made ? made : foreignHandle())});
        return true;
    }
    case Action::InsertSlimRow: {
        tag_HROW * const made =
            grid->InsertSlimRow(args[0], args[1] != 0, handle(args[2]), handle(args[3]), args[4]);
        GC_SLIMROWDATA data;
        data.param = args[0];
        data.hasChildren = args[1];
        data.height = args[4];
        same("success of InsertSlimRow",
             {made != nullptr, ref.insertSlimRows({data}, handle(args[2]), handle(args[3]),
                                                  {made ? made : foreignHandle()})});
        return true;
    }
    case Action::InsertSlimRows:
        insertSlimRows(args);
        return true;
    case Action::DeleteRow: {
        tag_HROW * const row = handle(args[0]);
        same("DeleteRow", {grid->DeleteRow(row), ref.deleteRow(row)});
        return true;
    }
    case Action::DeleteAllRows:
        grid->DeleteAllRows();
        ref.deleteAllRows();
        return true;
    case Action::Reset:
        grid->Reset();
        ref.reset();
        return true;
    case Action::ResetSlimRow: {
        tag_HROW * const row = handle(args[0]);
        same("ResetSlimRow", {grid->ResetSlimRow(row), ref.resetSlimRow(row)});
        return true;
    }
    case Action::Expand: {
        auto const code = static_cast<unsigned>(args[1]);
        tag_HROW * const row = handle(args[0]);
        same("Expand", {grid->Expand(row, code), ref.expand(row, code)});
        return true;
    }
    default:
        return false;
    }
}

inline void Player::setItem(tag_HROW * row, int columnId, GC_ITEM & record)
{
    ReferenceRow const * const found = ref.locate(row);
    if (found && found->rowClass == RowClass::Section && record.text == zenu::GC_TEXTCALLBACK) {
        record.text = nullptr; // a title is no item: nothing says what the mark means there
    }
    bool const real = grid->SetItem(row, column(columnId), &record);
    same("SetItem", {real, ref.setItem(row, columnId, record)});
}

// Rows without a text stand in no certain order when they are sorted by it.
inline void Player::fillTexts(int columnId)
{
    std::vector<ReferenceRow *> rows;
    ref.forEachRow(ref.root, [&](ReferenceRow & row) { rows.push_back(&row); });
    for (ReferenceRow * const row : rows) {
        if (!row->isSlim() && !ref.textOf(*row, columnId)) {
            GC_ITEM record;
            record.mask = zenu::GCIM_TEXT;
            record.text = const_cast<char *>(gridrandom::textOf(3 + row->number % 17));
            setItem(row->handle, columnId, record);
        }
    }
}

inline bool Player::runRowData(Action action, Args args)
{
    tag_HROW * const row = handle(args[0]);
    GC_ITEM item;
    switch (action) {
    case Action::SetRow: {
        GC_ROW record = detail::rowRecord(args[1], args[2], args[3], args[4], args[5], args[6]);
        same("SetRow", {grid->SetRow(row, &record), ref.setRow(row, record, nullptr)});
        return true;
    }
    case Action::SetSection: {
        GC_SECTION record;
        static_cast<GC_ROW &>(record) = detail::rowRecord(args[1], 0, 0, 30, 5, 6);
        record.text = const_cast<char *>(plainTextOf(args[2]));
        same("SetSection", {grid->SetSection(row, &record), ref.setRow(row, record, &record)});
        return true;
    }
    case Action::SetSectionText: {
        GC_ROW nothing;
        same("SetSectionText",
             {grid->SetSectionText(row, plainTextOf(args[1])), ref.setRow(row, nothing, nullptr)});
        return true;
    }
    case Action::SetRowParam: {
        auto const param = static_cast<unsigned long>(args[1]);
        ReferenceRow * const found = ref.locate(row);
        same("SetRowParam", {grid->SetRowParam(row, param), found != nullptr});
        if (found) {
            found->param = param;
        }
        return true;
    }
    case Action::SetRowHeight: {
        ReferenceRow * const found = ref.locate(row);
        same("SetRowHeight", {grid->SetRowHeight(row, args[1]), found != nullptr});
        if (found) {
            ref.heights[found] = args[1];
            ref.invalidate();
        }
        return true;
    }
    case Action::SetRowTextColor:
    case Action::SetRowBkColor: {
        GC_ROW record;
        record.mask = zenu::GCRM_TEXTCOLOR; // the background's operation too, without a colour
        QColor const color = detail::colorOf(args[1]);
        bool const ofText = action == Action::SetRowTextColor;
        record.textColor = ofText ? color : QColor();
        same("setting a row's colour",
             {ofText ? grid->SetRowTextColor(row, color) : grid->SetRowBkColor(row, color),
              ref.setRow(row, record, nullptr)});
        return true;
    }
    case Action::SetItem:
        item.mask = static_cast<unsigned>(args[2]);
        item.state = static_cast<unsigned>(args[3]);
        item.stateMask = static_cast<unsigned>(args[4]);
        item.text = const_cast<char *>(gridrandom::textOf(args[5]));
        item.value = args[6];
        item.image = args[7];
        item.textColor = detail::colorOf(args[6]);
        setItem(row, args[1], item);
        return true;
    case Action::SetItemText:
        item.mask = zenu::GCIM_TEXT;
        item.text = const_cast<char *>(gridrandom::textOf(args[2]));
        setItem(row, args[1], item);
        return true;
    case Action::FillTexts:
        fillTexts(args[0]);
        return true;
    default:
        return false;
    }
}

inline bool Player::runSelection(Action action, Args args)
{
    switch (action) {
    case Action::SetRowSel:
        same("SetRowSel", {grid->SetRowSel(handle(args[0]), args[1] != 0),
                           ref.setRowSel(handle(args[0]), args[1] != 0)});
        return true;
    case Action::SelectRows: {
        std::vector<tag_HROW *> rows{handle(args[0]), handle(args[1]), handle(args[2]),
                                     handle(args[3])};
        grid->SelectRows(static_cast<int>(rows.size()), rows.data());
        ref.selectRows(rows);
        return true;
    }
    case Action::SelectAll:
        grid->SelectAll();
        ref.selectAll();
        return true;
    case Action::ClearSelection:
        grid->ClearSelection();
        ref.clearSelection();
        return true;
    case Action::SortByColumn:
        if (args[2]) {
            fillTexts(args[0]);
        }
        grid->Sort(column(args[0]), args[1] != 0);
        ref.sort(args[0], args[1] != 0, std::nullopt);
        return true;
    case Action::SortByCompare:
        grid->Sort(compareRows, args[0]);
        ref.sort(-1, false, static_cast<Comparison>(args[0]));
        return true;
    case Action::SortEnd:
        grid->Sort(nullptr);
        ref.sort(-1, ref.sortAscending, std::nullopt);
        return true;
    default:
        return false;
    }
}

} // namespace gridrandom
