#include "zenu/grid/order/OrderFill.h"

#include "zenu/grid/order/CSimilarRows.h"
#include "zenu/grid/order/CVariousRows.h"
#include "zenu/grid/order/CVisibleRows.h"

namespace zenu {

template <typename Form>
int OrderFill::FillRows(Form & form, IGCRow const * kept)
{
    int keptIndex = -1;
    sorted = root->IsSorted();
    pushLevel(form, root->GetChildren(wrapper));
    while (!levels.empty()) {
        Level & level = levels.back();
        int const count = level.rows.count();
        if (level.rows.areLonely() && count != 0) {
            keptIndex = std::max(keptIndex, fillLonely(form, level.rows, kept));
            popLevel();
            continue;
        }
        RowSpan children;
        while (level.next < count) {
            IGCRow * const row = level.rows[level.next++];
            int const index = form.GetCount();
            row->SetVisibleIndex(static_cast<std::uint32_t>(index));
            row->SetLastChild(level.next == count);
            form.AddRow(row);
            keptIndex = row == kept ? index : keptIndex;
            children = row->GetChildren(wrapper);
            if (children.count() == 0) {
                continue;
            }
            if (row->IsExpanded()) {
                break;
            }
            hideBranch(children);
            children = RowSpan();
        }
        if (children.count() == 0) {
            popLevel();
        } else {
            pushLevel(form, children);
        }
    }
    form.Trim();
    return keptIndex;
}

template int OrderFill::FillRows(CSimilarRows &, IGCRow const *);
template int OrderFill::FillRows(CVariousRows &, IGCRow const *);

template <typename Form>
void OrderFill::pushLevel(Form & form, RowSpan rows)
{
    form.MakeRoom(rows.count());
    if (sorted) {
        std::vector<IGCRow *> & copy = copies.emplace_back(static_cast<std::size_t>(rows.count()));
        for (int i = 0; i < rows.count(); ++i) {
            copy[static_cast<std::size_t>(i)] = rows[i];
        }
        root->SortRows(copy);
        rows = RowSpan(copy.data(), static_cast<int>(copy.size()));
    }
    levels.push_back({rows});
}

void OrderFill::popLevel()
{
    levels.pop_back();
    if (sorted) {
        copies.pop_back();
    }
}

template <typename Form>
int OrderFill::fillLonely(Form & form, RowSpan rows, IGCRow const * kept)
{
    int const first = form.GetCount();
    int keptIndex = -1;
    for (int i = 0; i < rows.count(); ++i) {
        IGCRow * const row = rows[i];
        row->SetVisibleIndex(static_cast<std::uint32_t>(first + i));
        row->SetLastChild(false);
        form.AddRow(row);
        keptIndex = row == kept ? first + i : keptIndex;
    }
    rows[rows.count() - 1]->SetLastChild(true);
    return keptIndex;
}

void OrderFill::hideBranch(RowSpan rows)
{
    hiddenLevels.push_back({rows});
    while (!hiddenLevels.empty()) {
        Level & level = hiddenLevels.back();
        RowSpan children;
        while (children.count() == 0 && level.next < level.rows.count()) {
            IGCRow * const row = level.rows[level.next++];
            row->ClearVisibleIndex();
            if (!level.rows.areLonely()) {
                children = row->GetChildren(wrapper);
            }
        }
        if (children.count() == 0) {
            hiddenLevels.pop_back();
        } else {
            hiddenLevels.push_back({children});
        }
    }
}

} // namespace zenu
