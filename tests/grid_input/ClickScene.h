#pragma once

#include "tests/grid_input/InputFixture.h"

namespace zenutest {

struct ClickScene : InputWindow
{
    explicit ClickScene(long style = 0,
                        unsigned flags = zenu::GCCF_TREE | zenu::GCCF_TREELINES | zenu::GCCF_LEAD)
        : InputWindow(style)
        , notes(grid)
    {
        grid->SetImageList(zenu::GCIL_LEAD, QPixmap(8, 8), 8, 8, 1, false);
        column = grid->addKind(zenu::GCCK_CHECKBOX, 160, flags);
        a = grid->add("a");
        a1 = grid->add("a1", a);
        b = grid->add("b");
        c = grid->add("c");
    }
    bool showFocused()
    {
        if (!show()) {
            return false;
        }
        focusGrid();
        notes.calls.clear();
        return true;
    }
    void select(std::initializer_list<zenu::tag_HROW *> list)
    {
        std::vector<zenu::tag_HROW *> rows(list);
        grid->ClearSelection();
        grid->SelectRows(static_cast<int>(rows.size()), rows.data());
        notes.calls.clear();
    }
    QPoint point(zenu::tag_HROW * row, unsigned element = zenu::GCEL_CELL) const
    {
        return elementPoint(*grid, row, column, element);
    }

    InputNotes notes;
    zenu::tag_HCOLUMN * column;
    zenu::tag_HROW * a;
    zenu::tag_HROW * a1;
    zenu::tag_HROW * b;
    zenu::tag_HROW * c;
};

} // namespace zenutest
