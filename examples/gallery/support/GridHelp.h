#pragma once

#include <zenu/grid/KGridCtrl.h>

namespace gallery {

// Makes each column as wide as its texts and its title.
void fitColumns(zenu::KGridCtrl & grid);

// The height of a grid that shows so many rows of the default height.
int heightOf(zenu::KGridCtrl const & grid, int rows);

} // namespace gallery
