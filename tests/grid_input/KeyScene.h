#pragma once

#include "tests/grid_input/InputFixture.h"

namespace zenutest {

// Row by row names; stops of the columns at 0, 2, 3 of five.
struct KeyScene : InputWindow
{
    explicit KeyScene(long style = 0, int rows = 30)
        : InputWindow(style)
        , notes(grid)
    {
        for (int i = 0; i < 5; ++i) {
            grid->addKind(zenu::GCCK_TEXT, 90, i == 0 || i == 2 || i == 3 ? 0x4 : 0);
        }
        for (int i = 0; i < rows; ++i) {
            names << QStringLiteral("r%1").arg(i, 2, 10, QLatin1Char('0'));
            list.push_back(grid->add(names.back().toLatin1().constData()));
        }
    }
    bool showFocused(int row = 0, int column = 0)
    {
        if (!show()) {
            return false;
        }
        grid->GetPriv().MoveFocus(row, column);
        focusGrid();
        notes.calls.clear();
        return true;
    }

    InputNotes notes;
    QStringList names;
    std::vector<zenu::tag_HROW *> list;
};

inline constexpr int movementKeys[] = {Qt::Key_Home,   Qt::Key_End,     Qt::Key_Left,
                                       Qt::Key_Up,     Qt::Key_Right,   Qt::Key_Down,
                                       Qt::Key_PageUp, Qt::Key_PageDown};

inline QString nameOf(int key)
{
    return QKeySequence(key).toString();
}

} // namespace zenutest
