#include "zenu/grid/order/OrderFill.h"

#include "zenu/grid/order/CSimilarRows.h"
#include "zenu/grid/order/CVariousRows.h"
#include "zenu/grid/order/CVisibleRows.h"

namespace zenu {

namespace {

void hide(RowSpan rows)
{
    for (int i = 0; i < rows.count(); ++i) {
        rows[i]->ClearVisibleIndex();
    }
}

} // namespace

int OrderFill::CountRows()
{
    int shownRows = 0;
    levels.clear();
    levels.push_back({root->GetChildren(wrapper)});
    while (!levels.empty()) {
        Level & level = levels.back();
        bool const shown = level.shown;
        if (level.next == 0) {
            shownRows += shown ? level.rows.count() : 0;
            if (level.rows.areLonely()) {
                if (!shown) {
                    hide(level.rows);
                }
                levels.pop_back();
                continue;
            }
        }
        RowSpan children;
        IGCRow * row = nullptr;
        while (children.count() == 0 && level.next < level.rows.count()) {
            row = level.rows[level.next++];
            if (!shown) {
                row->ClearVisibleIndex();
            }
            children = row->GetChildren(wrapper);
        }
        if (children.count() == 0) {
            levels.pop_back();
        } else {
            levels.push_back({children, 0, shown && row->IsExpanded()});
        }
    }
    return shownRows;
}

void OrderFill::pushSorted(RowSpan rows)
{
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

void OrderFill::popSorted()
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
        if (row == kept) {
            keptIndex = first + i;
        }
    }
    rows[rows.count() - 1]->SetLastChild(true);
    return keptIndex;
}

template <typename Form>
int OrderFill::FillRows(Form & form, IGCRow const * kept)
{
    int keptIndex = -1;
    sorted = root->IsSorted();
    levels.clear();
    pushSorted(root->GetChildren(wrapper));
    while (!levels.empty()) {
        Level & level = levels.back();
        int const count = level.rows.count();
        if (level.rows.areLonely() && count > 0) {
            keptIndex = std::max(keptIndex, fillLonely(form, level.rows, kept));
            popSorted();
            continue;
        }
        RowSpan children;
        while (children.count() == 0 && level.next < count) {
            IGCRow * const row = level.rows[level.next++];
            int const index = form.GetCount();
            row->SetVisibleIndex(static_cast<std::uint32_t>(index));
            row->SetLastChild(level.next == count);
            form.AddRow(row);
            if (row == kept) {
                keptIndex = index;
            }
            if (row->IsExpanded()) {
                children = row->GetChildren(wrapper);
            }
        }
        if (children.count() == 0) {
            popSorted();
        } else {
            pushSorted(children);
        }
    }
    return keptIndex;
}

template int OrderFill::FillRows(CSimilarRows &, IGCRow const *);
template int OrderFill::FillRows(CVariousRows &, IGCRow const *);

} // namespace zenu
