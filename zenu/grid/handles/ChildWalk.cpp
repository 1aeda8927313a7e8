#include "zenu/grid/handles/ChildWalk.h"

namespace zenu {

namespace {

bool isAt(RowSpan rows, std::ptrdiff_t index, IGCRow const * row)
{
    return index >= 0 && index < rows.count() && rows[static_cast<int>(index)] == row;
}

// Where the row is likely to stand: at its own mark, or, in a slim level, as far from the first as
// its address says. -1 when it is at neither.
int guessedIndex(RowSpan rows, IGCRow const * row)
{
    if (isAt(rows, row->childPlace, row)) {
        return static_cast<int>(row->childPlace);
    }
    if (rows.count() >= 2) {
        auto const address = [](IGCRow const * at) { return reinterpret_cast<std::intptr_t>(at); };
        std::intptr_t const stride = address(rows[1]) - address(rows[0]);
        if (stride > 0) {
            std::ptrdiff_t const index = (address(row) - address(rows[0])) / stride;
            return isAt(rows, index, row) ? static_cast<int>(index) : -1;
        }
    }
    return -1;
}

int indexOf(RowSpan rows, IGCRow const * row)
{
    if (!row || rows.count() == 0) {
        return -1;
    }
    if (int const guessed = guessedIndex(rows, row); guessed >= 0) {
        return guessed;
    }
    for (int i = 0; i < rows.count(); ++i) {
        if (rows[i] == row) {
            return i;
        }
    }
    return -1;
}

IGCRow * sibling(IGCRowParent * parent, ISlimGridCallbackWrapper * wrapper, IGCRow const * row,
                 int direction)
{
    RowSpan const children = parent->GetChildren(wrapper);
    int const index = indexOf(children, row);
    int const wanted = index + direction;
    return index >= 0 && wanted >= 0 && wanted < children.count() ? children[wanted] : nullptr;
}

} // namespace

ChildWalk::ChildWalk(IGCRowParent * walkedParent, ISlimGridCallbackWrapper * callback)
    : parent(walkedParent)
    , wrapper(callback)
{
}

IGCRow * ChildWalk::First()
{
    return take(parent->GetChildren(wrapper), 0);
}

IGCRow * ChildWalk::step(IGCRow const * row, int direction)
{
    RowSpan const children = parent->GetChildren(wrapper);
    if (!row || row != currentRow || !isAt(children, cursor, row)) {
        int const found = indexOf(children, row);
        if (found < 0) {
            currentRow = nullptr;
            return nullptr;
        }
        cursor = found;
    }
    return take(children, cursor + direction);
}

IGCRow * ChildWalk::take(RowSpan children, int index)
{
    cursor = index;
    currentRow = index >= 0 && index < children.count() ? children[index] : nullptr;
    return currentRow;
}

IGCRow * ChildWalk::NextSibling(IGCRowParent * parent, ISlimGridCallbackWrapper * wrapper,
                                IGCRow const * row)
{
    return sibling(parent, wrapper, row, 1);
}

IGCRow * ChildWalk::PreviousSibling(IGCRowParent * parent, ISlimGridCallbackWrapper * wrapper,
                                    IGCRow const * row)
{
    return sibling(parent, wrapper, row, -1);
}

} // namespace zenu
