#include "zenu/grid/rows/CollectRows.h"

namespace zenu {

namespace {

struct Level
{
    RowSpan rows;
    int next;
};

} // namespace

void collectRows(RowSpan top, ISlimGridCallbackWrapper * wrapper, std::vector<IGCRow *> & rows)
{
    std::vector<Level> levels{{top, 0}};
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
}

} // namespace zenu
