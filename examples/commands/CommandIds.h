#pragma once

namespace editor {

// What the window's menus, buttons and keys stand for.
enum WindowCommand : unsigned
{
    Undo = 1,
    Redo,
    Back,
    Forward,
    Delete,
    Double,
    ByWords,
    ByLines,
    Wrap,
    ReadOnly,
    Larger,
    Smaller,
    Quit
};

// What the text understands. It knows nothing of the window's numbers.
enum TextCommand : unsigned
{
    // depend on the mode
    TextBack = 101,
    TextForward,
    TextDelete,
    TextDouble,
    // the modes
    WordMode = 111,
    LineMode,
    // what they stand for
    PreviousWord = 121,
    NextWord,
    DeleteWord,
    DoubleWord,
    PreviousLine,
    NextLine,
    DeleteLine,
    DoubleLine
};

} // namespace editor
