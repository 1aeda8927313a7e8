#pragma once

#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CollectRows.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <vector>

namespace zenu {

// The ordinary rows and sections under a level, parents first. Slim rows have no items and are not
// entered, so nothing is loaded.
template <typename Visit>
void forEachOrdinaryRow(RowSpan top, Visit const & visit)
{
    class Find : public IGCRowVisitor
    {
    public:
        void VisitOrdinary(CGCOrdinaryRow * row) override { found = row; }
        void VisitSection(CGCSection * row) override { found = row; }
        CGCOrdinaryRow * found = nullptr;
    };
    walkRows(top, [&](RowSpan, IGCRow * row) {
        Find find;
        row->Accept(&find);
        if (!find.found) {
            return RowSpan();
        }
        visit(find.found);
        return find.found->GetChildren(nullptr);
    });
}

// A row and all rows under it, parents first.
inline std::vector<IGCRow *> collectSubtree(IGCRow * top, ISlimGridCallbackWrapper * wrapper)
{
    std::vector<IGCRow *> rows;
    collectRows(RowSpan(&top, 1), wrapper, rows);
    return rows;
}

} // namespace zenu
