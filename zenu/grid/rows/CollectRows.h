#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/rows/IGCRow.h"

#include <vector>

namespace zenu {

// Walks over a level and what is under it, each parent before its children. `visit` takes a level
// and a row of it, and answers the children to go on to. Memory for a level a depth, no recursion.
template <typename Visit>
void walkRows(RowSpan top, Visit const & visit)
{
    struct Level
    {
        RowSpan rows;
        int next;
    };
    std::vector<Level> levels{{top, 0}};
    while (!levels.empty()) {
        Level & level = levels.back();
        if (level.next == level.rows.count()) {
            levels.pop_back();
            continue;
        }
        IGCRow * const row = level.rows[level.next++];
        if (RowSpan const children = visit(level.rows, row); children.count() != 0) {
            levels.push_back({children, 0});
        }
    }
}

// Adds a level and all rows under it to `rows`, each parent before its children. Loads the children
// of slim rows that were expanded and reset.
ZENU_TEST_EXPORT void collectRows(RowSpan top, ISlimGridCallbackWrapper * wrapper,
                                  std::vector<IGCRow *> & rows);

} // namespace zenu
