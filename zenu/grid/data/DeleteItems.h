#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <vector>

namespace zenu {

class ColumnSet;
class ISlimGridCallbackWrapper;

// Destroys the items of a row and of all rows under it, before the rows are deleted. Slim rows have
// no items and are not entered. One visitor serves any number of rows one after the other; a walk
// uses no more stack for a deep tree than for a flat one.
class ZENU_TEST_EXPORT CDeleteAllItem : public IGCRowVisitor
{
public:
    CDeleteAllItem(ColumnSet const & gridColumns, ISlimGridCallbackWrapper * slimWrapper)
        : columns(gridColumns)
        , wrapper(slimWrapper)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSection(CGCSection * row) override;

private:
    ColumnSet const & columns;
    ISlimGridCallbackWrapper * wrapper;
    std::vector<CGCOrdinaryRow *> parents; // whose children wait
    bool walking = false;
};

} // namespace zenu
