#include "zenu/grid/handles/CFastLocator.h"

namespace zenu {

namespace {

// Depth first, parents before children, without recursion.
std::vector<IGCRow *> allRows(IGCRowParent * root, ISlimGridCallbackWrapper * wrapper)
{
    struct Level
    {
        RowSpan rows;
        int next;
    };
    std::vector<IGCRow *> rows;
    std::vector<Level> levels{{root->GetChildren(wrapper), 0}};
    while (!levels.empty()) {
        Level & level = levels.back();
        if (level.next == level.rows.count()) {
            levels.pop_back();
            continue;
        }
        IGCRow * const row = level.rows[level.next++];
        rows.push_back(row);
        if (level.rows.areLonely()) {
            continue;
        }
        if (RowSpan const children = row->GetChildren(wrapper); children.count() != 0) {
            levels.push_back({children, 0});
        }
    }
    return rows;
}

} // namespace

std::unique_ptr<IRowCacheIterator> CFastLocator::CreateWalk()
{
    return std::make_unique<CFastLocatorIterator>(allRows(root, wrapper));
}

IGCRow * CFastLocatorIterator::First()
{
    cursor = 0;
    currentRow = rows.empty() ? nullptr : rows.front();
    return currentRow;
}

IGCRow * CFastLocatorIterator::Next(IGCRow * current)
{
    bool const goesOn = current && current == currentRow && ++cursor < rows.size();
    currentRow = goesOn ? rows[cursor] : nullptr;
    return currentRow;
}

} // namespace zenu
