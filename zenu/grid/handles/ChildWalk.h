#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/rows/IGCRow.h"

namespace zenu {

// A place among the children of one parent, so that a step to the next sibling needs no search. A
// hint only: a step from another sibling finds that one first, and the answers are right in any
// case. Whoever holds it drops it when the children change.
class ZENU_TEST_EXPORT ChildWalk
{
public:
    ChildWalk(IGCRowParent * walkedParent, ISlimGridCallbackWrapper * callback);

    // Starts anew at the first child; null without children.
    IGCRow * First();
    // The siblings of `row`, which is alive. Null at the end, and when it is no child.
    IGCRow * Next(IGCRow const * row) { return step(row, 1); }
    IGCRow * Previous(IGCRow const * row) { return step(row, -1); }

    // The same without a walk.
    static IGCRow * NextSibling(IGCRowParent * parent, ISlimGridCallbackWrapper * wrapper,
                                IGCRow const * row);
    static IGCRow * PreviousSibling(IGCRowParent * parent, ISlimGridCallbackWrapper * wrapper,
                                    IGCRow const * row);

private:
    IGCRow * step(IGCRow const * row, int direction);
    IGCRow * take(RowSpan children, int index);

    IGCRowParent * parent;
    ISlimGridCallbackWrapper * wrapper;
    int cursor = 0;
    IGCRow * currentRow = nullptr;
};

} // namespace zenu
