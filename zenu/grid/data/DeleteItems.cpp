#include "zenu/grid/data/DeleteItems.h"

#include "zenu/grid/rows/CGCSection.h"

namespace zenu {

void CDeleteAllItem::VisitOrdinary(CGCOrdinaryRow * row)
{
    row->DestroyItems(columns);
    if (row->GetChildCount(wrapper) > 0) {
        parents.push_back(row);
    }
    if (walking) {
        return; // whoever walks comes to the children
    }
    walking = true;
    while (!parents.empty()) {
        RowSpan const children = parents.back()->GetChildren(wrapper);
        parents.pop_back();
        for (int i = 0; i < children.count(); ++i) {
            children[i]->Accept(this);
        }
    }
    walking = false;
}

void CDeleteAllItem::VisitSection(CGCSection * row)
{
    VisitOrdinary(row);
}

} // namespace zenu
