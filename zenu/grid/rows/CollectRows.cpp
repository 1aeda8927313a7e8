#include "zenu/grid/rows/CollectRows.h"

namespace zenu {

void collectRows(RowSpan top, ISlimGridCallbackWrapper * wrapper, std::vector<IGCRow *> & rows)
{
    walkRows(top, [&](RowSpan level, IGCRow * row) {
        rows.push_back(row);
        return level.areLonely() ? RowSpan() : row->GetChildren(wrapper);
    });
}

} // namespace zenu
