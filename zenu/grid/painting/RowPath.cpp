#include "zenu/grid/painting/RowPath.h"

#include "zenu/grid/inner/IIsLastChild.h"
#include "zenu/grid/rows/IGCRow.h"

#include <algorithm>

namespace zenu {

void RowPath::enter(IGCRow const * row)
{
    IGCRow const * const parent = row->parent;
    int const parentLevel = parent ? findInWindow(parent) : -1;
    if (parent && parentLevel < 0) {
        climb(row);
        return;
    }
    depth = parentLevel + 1;
    windowAt(depth) = row;
    lowest = std::min(depth, std::max(lowest, depth - windowSize + 1));
    if (open.size() > static_cast<std::size_t>(depth)) {
        open.resize(static_cast<std::size_t>(depth));
    } else if (parent) {
        addOpen(parent, parentLevel);
    }
}

int RowPath::findInWindow(IGCRow const * row) const
{
    for (int at = depth; at >= lowest; --at) {
        if (window[static_cast<std::size_t>(at % windowSize)] == row) {
            return at;
        }
    }
    return -1;
}

void RowPath::climb(IGCRow const * row)
{
    depth = row->GetLevel();
    lowest = std::max(0, depth - windowSize + 1);
    open.assign(static_cast<std::size_t>(std::min(depth, limit)), 0);
    windowAt(depth) = row;
    IGCRow const * ancestor = row->parent;
    for (int at = depth - 1; at >= 0; --at, ancestor = ancestor->parent) {
        if (at >= lowest) {
            windowAt(at) = ancestor;
        }
        if (at < limit) {
            open[static_cast<std::size_t>(at)] = !(lastChild && lastChild->IsLastChild(ancestor));
        }
    }
}

// Levels are added one after the other: the levels above are there already.
void RowPath::addOpen(IGCRow const * ancestor, int ancestorLevel)
{
    if (ancestorLevel < limit && open.size() == static_cast<std::size_t>(ancestorLevel)) {
        open.push_back(!(lastChild && lastChild->IsLastChild(ancestor)));
    }
}

} // namespace zenu
