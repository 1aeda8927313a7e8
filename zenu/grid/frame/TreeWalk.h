#pragma once

#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CollectRows.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <vector>

namespace zenu {

// The ordinary rows and sections under a level, parents first. Slim rows have no items and are not
// entered, so nothing is loaded. Memory for a level a depth, no recursion.
template <typename Visit>
void forEachOrdinaryRow(RowSpan top, Visit const & visit)
{
    struct Level
    {
        RowSpan rows;
        int next;
    };
    class Find : public IGCRowVisitor
    {
    public:
        void VisitOrdinary(CGCOrdinaryRow * row) override { found = row; }
        void VisitSection(CGCSection * row) override { found = row; }
        CGCOrdinaryRow * found = nullptr;
    };
    std::vector<Level> levels{{top, 0}};
    while (!levels.empty()) {
        Level & level = levels.back();
        if (level.next == level.rows.count()) {
            levels.pop_back();
            continue;
        }
        Find find;
        level.rows[level.next++]->Accept(&find);
        if (find.found) {
            visit(find.found);
            if (RowSpan const children = find.found->GetChildren(nullptr); children.count() != 0) {
                levels.push_back({children, 0});
            }
        }
    }
}

// A row and all rows under it, parents first.
inline std::vector<IGCRow *> collectSubtree(IGCRow * top, ISlimGridCallbackWrapper * wrapper)
{
    std::vector<IGCRow *> rows;
    collectRows(RowSpan(&top, 1), wrapper, rows);
    return rows;
}

} // namespace zenu
