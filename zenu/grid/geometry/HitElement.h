#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridTypes.h"

class QPoint;

namespace zenu {

struct CElementRects;

// The element of a cell under a point, in the rectangles' own coordinates. Elements may overlap:
// indentation, button, image, text, check box and lead image are tried in this order. A point on
// none of them is GCEL_CELL.
ZENU_TEST_EXPORT GCElement hitElement(CElementRects const & rects, QPoint const & point);

} // namespace zenu
