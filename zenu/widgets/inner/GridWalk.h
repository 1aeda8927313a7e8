#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/qnamespace.h>

namespace zenu {

// Where an arrow key leads from a cell of a grid that is filled row by row, or -1 where it leads
// out. With `reversed` the columns run from right to left.
ZENU_TEST_EXPORT int gridWalk(int index, int key, int rows, int columns, bool reversed);

} // namespace zenu
