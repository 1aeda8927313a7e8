#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/rows/IGCRow.h"

namespace zenu {

// Adds a level and all rows under it to `rows`, each parent before its children. Loads the children
// of slim rows that were expanded and reset. No recursion.
ZENU_TEST_EXPORT void collectRows(RowSpan top, ISlimGridCallbackWrapper * wrapper,
                                  std::vector<IGCRow *> & rows);

} // namespace zenu
