#include "zenu/grid/handles/CFastLocator.h"

#include "zenu/grid/rows/CollectRows.h"

#include <utility>

namespace zenu {

std::unique_ptr<IRowCacheIterator> CFastLocator::CreateWalk()
{
    std::vector<IGCRow *> rows;
    collectRows(root->GetChildren(wrapper), wrapper, rows);
    return std::make_unique<CFastLocatorIterator>(std::move(rows));
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
