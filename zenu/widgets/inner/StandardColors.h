#pragma once

#include "zenu/ZenuExport.h"

#include <array>

namespace zenu {

// The colours of a popup that is given none, as 0xffrrggbb. A popup of 5 rows of 10 shows the first
// 50; applications with more rows read on.
constexpr int standardRows = 5;
constexpr int standardColumns = 10;
ZENU_TEST_EXPORT extern std::array<unsigned int, 65> const standardColors;

} // namespace zenu
