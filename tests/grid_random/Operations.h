#pragma once

#include <QString>

#include <array>
#include <span>
#include <vector>

// Public operations of a grid as values, so that a part of a sequence can be played again.

namespace gridrandom {

// What an operation does; see the table in `actionTable` for its arguments.
enum class Action
{
    InsertRow,
    InsertRowRecord,
    InsertSection,
    InsertSlimRow,
    InsertSlimRows,
    DeleteRow,
    DeleteAllRows,
    Reset,
    ResetSlimRow,
    Expand,
    SortByColumn,
    SortByCompare,
    SortEnd,
    SetRow,
    SetSection,
    SetSectionText,
    SetRowParam,
    SetRowHeight,
    SetRowTextColor,
    SetRowBkColor,
    SetItem,
    SetItemText,
    FillTexts,
    SetRowSel,
    SelectRows,
    SelectAll,
    ClearSelection,
    AddColumn,
    AddTextColumn,
    InsertColumn,
    InsertTextColumn,
    DeleteColumn,
    SetColumn,
    SetColumnWidth,
    ShowColumn,
    SetColumnOrder,
    SetFocusedColumn,
    Scroll,
    DragBar,
    BarAction,
    EnsureVisible,
    Walk,
    WalkOn,
    SetDefaultHeight,
    SetHScrollDelta,
    Resize,
    Paint,
    SetSink,
    SetSource,
    SetExStyle,
    HitTest,
    PressKey,
    PressMouse,
    Focus,
    EditItem,
    TypeText,
    EndEdit,
    Drag,
    DragMark
};

// What the numbers of an operation mean; they are drawn and printed by it.
enum class Arg
{
    None,
    Row,
    Parent,
    After,
    Column,
    Kind,
    ColumnFlags,
    ColumnMask,
    Format,
    Width,
    Index,
    Code,
    Bool,
    RowMask,
    RowState,
    Height,
    Param,
    Color,
    ItemMask,
    ItemState,
    Text,
    Value,
    Image,
    Count,
    ScrollCode,
    Position,
    WalkFlag,
    NextFlag,
    Size,
    Compare,
    Generation,
    ExStyle,
    BarStep,
    Seed,
    Key,
    Modifiers,
    Point,
    Button,
    EditColumn,
    EditEnd,
    DragStep
};

// Rows that are no rows, where an operation names one. Every other number is one of creation: the
// operation's times `rowsPerOperation` plus how many it made before.
enum RowName
{
    rootRow = -1,
    firstRow = -2,
    lastRow = -3,
    nullRow = -4,
    foreignRow = -5
};
constexpr int rowsPerOperation = 1000;

constexpr int largestArgCount = 8;
using Arguments = std::array<int, largestArgCount>;

struct Operation
{
    int id = 0;
    Action action = Action::InsertRow;
    Arguments args{};
    // Bit i of the low byte vetoes the i-th OnExpanding of the operation, of the next byte the i-th
    // OnScrolling, of the third the i-th OnSelectionChanging, of the fourth the i-th
    // OnItemChanging.
    unsigned vetoes = 0;
    bool checked = true; // everything is compared afterwards
};

struct ActionInfo
{
    Action action;
    char const * name;
    int weight;
    std::array<Arg, largestArgCount> args;
};

inline std::span<ActionInfo const> actionTable()
{
    using enum Arg;
    static constexpr ActionInfo table[] = {
        {Action::InsertRow, "InsertRow", 70, {Parent, After}},
        {Action::InsertRowRecord,
         "InsertRow",
         25,
         {Parent, After, RowMask, RowState, RowState, Height, Param, Color}},
        {Action::InsertSection, "InsertSection", 15, {After, Text}},
        {Action::InsertSlimRow, "InsertSlimRow", 30, {Param, Bool, Parent, After, Height}},
        {Action::InsertSlimRows, "InsertSlimRows", 15, {Count, Param, Parent, After}},
        {Action::DeleteRow, "DeleteRow", 30, {Row}},
        {Action::DeleteAllRows, "DeleteAllRows", 1, {}},
        {Action::Reset, "Reset", 1, {}},
        {Action::ResetSlimRow, "ResetSlimRow", 25, {Row}},
        {Action::Expand, "Expand", 120, {Row, Code}},
        {Action::SortByColumn, "Sort(column)", 12, {Column, Bool, Bool}},
        {Action::SortByCompare, "Sort(compare)", 8, {Compare, Param}},
        {Action::SortEnd, "Sort(null)", 12, {}},
        {Action::SetRow, "SetRow", 50, {Row, RowMask, RowState, RowState, Height, Param, Color}},
        {Action::SetSection, "SetSection", 12, {Row, RowMask, Text}},
        {Action::SetSectionText, "SetSectionText", 2, {Row, Text}},
        {Action::SetRowParam, "SetRowParam", 8, {Row, Param}},
        {Action::SetRowHeight, "SetRowHeight", 12, {Row, Height}},
        {Action::SetRowTextColor, "SetRowTextColor", 3, {Row, Color}},
        {Action::SetRowBkColor, "SetRowBkColor", 3, {Row, Color}},
        {Action::SetItem,
         "SetItem",
         50,
         {Row, Column, ItemMask, ItemState, ItemState, Text, Value, Image}},
        {Action::SetItemText, "SetItemText", 30, {Row, Column, Text}},
        {Action::FillTexts, "FillTexts", 4, {Column}},
        {Action::SetRowSel, "SetRowSel", 30, {Row, Bool}},
        {Action::SelectRows, "SelectRows", 12, {Row, Row, Row, Row}},
        {Action::SelectAll, "SelectAll", 4, {}},
        {Action::ClearSelection, "ClearSelection", 6, {}},
        {Action::AddColumn, "AddColumn", 6, {Kind, ColumnFlags, Width, Text, Format, Bool}},
        {Action::AddTextColumn, "AddColumn", 3, {Text, Format, Width}},
        {Action::InsertColumn, "InsertColumn", 5, {Index, Kind, ColumnFlags, Width, Text, Bool}},
        {Action::InsertTextColumn, "InsertColumn", 3, {Index, Text, Width}},
        {Action::DeleteColumn, "DeleteColumn", 8, {Column}},
        {Action::SetColumn,
         "SetColumn",
         15,
         {Column, ColumnMask, Kind, ColumnFlags, Width, Text, Format}},
        {Action::SetColumnWidth, "SetColumnWidth", 8, {Column, Width}},
        {Action::ShowColumn, "ShowColumn", 12, {Column, Bool}},
        {Action::SetColumnOrder, "SetColumnOrderArray", 6, {Seed, Bool}},
        {Action::SetFocusedColumn, "SetFocusedColumn", 8, {Column}},
        {Action::Scroll, "OnScroll", 60, {ScrollCode, ScrollCode, Position, Bool}},
        {Action::DragBar, "DragBar", 12, {Bool, Position}},
        {Action::BarAction, "BarAction", 12, {Bool, BarStep}},
        {Action::EnsureVisible, "EnsureVisible", 40, {Row, Column}},
        {Action::Walk, "GetNextRow", 40, {WalkFlag, Row}},
        {Action::WalkOn, "GetNextRow(last)", 30, {NextFlag}},
        {Action::SetDefaultHeight, "SetDefaultHeight", 3, {Height}},
        {Action::SetHScrollDelta, "SetHScrollDelta", 2, {Width}},
        {Action::Resize, "resize", 12, {Size, Size}},
        {Action::Paint, "paint", 6, {Bool}},
        {Action::SetSink, "setNotification", 3, {Bool}},
        {Action::SetSource, "SetSource", 10, {Generation}},
        {Action::SetExStyle, "SetExStyle", 1, {ExStyle}},
        {Action::HitTest, "HitTest", 12, {Position, Position}},
        {Action::PressKey, "key", 120, {Key, Modifiers}},
        {Action::PressMouse, "press", 90, {Point, Point, Button, Modifiers, Bool}},
        {Action::Focus, "focus", 10, {Bool}},
        {Action::EditItem, "EditItem", 60, {Row, EditColumn}},
        {Action::TypeText, "type", 50, {Text, Bool}},
        {Action::EndEdit, "end the edit", 25, {EditEnd}},
        {Action::Drag, "drag", 20, {DragStep, Point, Point}},
        {Action::DragMark, "DrawDragIndicator", 15, {Row, Bool}},
    };
    return table;
}

inline ActionInfo const & infoOf(Action action)
{
    return actionTable()[static_cast<std::size_t>(action)];
}

inline QString rowName(int row)
{
    switch (row) {
    case rootRow:
        return QStringLiteral("root");
    case firstRow:
        return QStringLiteral("first");
    case lastRow:
        return QStringLiteral("last");
    case nullRow:
        return QStringLiteral("null");
    case foreignRow:
        return QStringLiteral("foreign");
    default:
        return QStringLiteral("#%1.%2").arg(row / rowsPerOperation).arg(row % rowsPerOperation);
    }
}

inline QString argText(Arg arg, int value)
{
    switch (arg) {
    case Arg::Row:
    case Arg::Parent:
    case Arg::After:
        return (arg == Arg::After ? QStringLiteral("after ") : QString()) + rowName(value);
    case Arg::Column:
    case Arg::EditColumn:
        return QStringLiteral("column %1").arg(value);
    case Arg::Bool:
        return value ? QStringLiteral("true") : QStringLiteral("false");
    case Arg::RowMask:
    case Arg::ItemMask:
    case Arg::ColumnMask:
    case Arg::ColumnFlags:
        return QStringLiteral("0x%1").arg(value, 0, 16);
    default:
        return QString::number(value);
    }
}

// "17: Expand(#3.0, 2) vetoes 0x1", where #3.0 is the first row that operation 3 made.
inline QString describe(Operation const & operation)
{
    ActionInfo const & info = infoOf(operation.action);
    QStringList parts;
    for (std::size_t i = 0; i < info.args.size() && info.args[i] != Arg::None; ++i) {
        parts.append(argText(info.args[i], operation.args[i]));
    }
    QString line = QStringLiteral("%1: %2(%3)")
                       .arg(operation.id)
                       .arg(QLatin1String(info.name), parts.join(QStringLiteral(", ")));
    if (operation.vetoes != 0) {
        line += QStringLiteral(" vetoes 0x%1").arg(operation.vetoes, 0, 16);
    }
    return operation.checked ? line : line + QStringLiteral(" unchecked");
}

} // namespace gridrandom
