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
    pushLevel(form, root, root->GetChildren(wrapper));
    while (!levels.empty() && !changes.deaths) {
        keptIndex = std::max(keptIndex, fillLevel(form, kept));
    }
    if (changes.deaths) {
        form.Clear();
        return -1;
    }
    form.Trim();
    return keptIndex;
}

template int OrderFill::FillRows(CSimilarRows &, IGCRow const *);
template int OrderFill::FillRows(CVariousRows &, IGCRow const *);

OrderFill::Level OrderFill::levelOf(IGCRowParent * parent, RowSpan rows) const
{
    return {parent, rows, changes.number};
}

// Rows may have come to a level in the tree, so that its array lies elsewhere; a sorted copy stays.
// A row may then be missed or met twice; the change makes the order dirty, and the next rebuild
// puts it right.
void OrderFill::lookAgain(Level & level, bool inTree) const
{
    if (inTree) {
        level.rows = level.parent->GetChildren(wrapper);
        level.next = std::min(level.next, level.rows.count());
    }
    level.seenChanges = changes.number;
}

template <typename Form>
void OrderFill::pushLevel(Form & form, IGCRowParent * parent, RowSpan rows)
{
    form.MakeRoom(rows.count());
    levels.push_back(levelOf(parent, rows));
    if (sorted) {
        std::vector<IGCRow *> & copy = copies.emplace_back(static_cast<std::size_t>(rows.count()));
        for (int i = 0; i < rows.count(); ++i) {
            copy[static_cast<std::size_t>(i)] = rows[i];
        }
        root->SortRows(copy);
        levels.back().rows = RowSpan(copy.data(), static_cast<int>(copy.size()));
    }
}

void OrderFill::popLevel()
{
    levels.pop_back();
    if (sorted) {
        copies.pop_back();
    }
}

// Adds rows of the innermost level up to one whose children come next, or to its end.
template <typename Form>
int OrderFill::fillLevel(Form & form, IGCRow const * kept)
{
    Level & level = levels.back();
    if (level.seenChanges != changes.number) {
        lookAgain(level, !sorted);
    }
    if (level.rows.areLonely() && level.next < level.rows.count()) {
        int const keptIndex = fillLonely(form, level.rows, kept);
        popLevel();
        return keptIndex;
    }
    int keptIndex = -1;
    while (level.next < level.rows.count()) {
        IGCRow * const row = level.rows[level.next++];
        int const index = form.GetCount();
        row->SetVisibleIndex(static_cast<std::uint32_t>(index));
        row->SetLastChild(level.next == level.rows.count());
        form.AddRow(row);
        keptIndex = row == kept ? index : keptIndex;
        RowSpan const children = row->GetChildren(wrapper);
        if (children.count() != 0) {
            if (changes.deaths) {
                return -1;
            }
            if (row->IsExpanded()) {
                pushLevel(form, row, children);
                return keptIndex;
            }
            hideBranch(row, children);
        }
        if (changes.number != level.seenChanges || changes.deaths) {
            return keptIndex;
        }
    }
    popLevel();
    return keptIndex;
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

void OrderFill::hideBranch(IGCRowParent * parent, RowSpan rows)
{
    hiddenLevels.push_back(levelOf(parent, rows));
    while (!hiddenLevels.empty() && !changes.deaths) {
        Level & level = hiddenLevels.back();
        if (level.seenChanges != changes.number) {
            lookAgain(level, true);
        }
        RowSpan children;
        IGCRow * row = nullptr;
        while (children.count() == 0 && level.next < level.rows.count() &&
               level.seenChanges == changes.number) {
            row = level.rows[level.next++];
            row->ClearVisibleIndex();
            if (!level.rows.areLonely()) {
                children = row->GetChildren(wrapper);
            }
        }
        if (children.count() != 0) {
            hiddenLevels.push_back(levelOf(row, children));
        } else if (level.next == level.rows.count()) {
            hiddenLevels.pop_back();
        }
    }
}

} // namespace zenu
