#pragma once

#include "zenu/ZenuExport.h"

#include <QRegion>

#include <vector>

namespace zenu {

/// The union of rectangles, made in pairs: adding one after the other would take the square of
/// their number.
ZENU_TEST_EXPORT QRegion unionOf(std::vector<QRect> const & rects);

} // namespace zenu
