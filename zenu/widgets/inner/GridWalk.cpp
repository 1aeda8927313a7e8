#include "zenu/widgets/inner/GridWalk.h"

namespace zenu {

int gridWalk(int index, int key, int rows, int columns, bool reversed)
{
    if (columns < 1 || index < 0)
        return -1;
    int row = index / columns;
    int column = index % columns;
    switch (key) {
    case Qt::Key_Up:
        --row;
        break;
    case Qt::Key_Down:
        ++row;
        break;
    case Qt::Key_Left:
        column += reversed ? 1 : -1;
        break;
    case Qt::Key_Right:
        column += reversed ? -1 : 1;
        break;
    default:
        return -1;
    }
    bool const inside = row >= 0 && row < rows && column >= 0 && column < columns;
    return inside ? row * columns + column : -1;
}

} // namespace zenu
