#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include <algorithm>
#include <unordered_set>

namespace zenu {

namespace {

bool isSameOrUnder(IGCRow const * row, IGCRow const * ancestor)
{
    while (row && row != ancestor) {
        row = row->parent;
    }
    return row == ancestor;
}

// A walk over the whole tree, parents first, that loads slim rows as it comes to them, and the list
// of the rows that were changed on the way. The application is called in between and may change
// the tree: rows that die leave the walk and the list.
class LoadingWalk final : public RowWatch
{
public:
    explicit LoadingWalk(KGridCtrl::PrivateData * walkedFrame)
        : RowWatch(walkedFrame)
        , version(walkedFrame->treeVersion)
    {
        levels.push_back({nullptr, frame->GetChildren(nullptr)});
    }

    // The next row, null at the end.
    IGCRow * next()
    {
        if (version != frame->treeVersion) {
            lookUpLevels();
        }
        while (!levels.empty()) {
            Level & level = levels.back();
            if (level.next < level.rows.count()) {
                level.lastRow = level.rows[level.next++];
                currentRow = level.lastRow;
                return currentRow;
            }
            levels.pop_back();
        }
        return nullptr;
    }

    // The row that next() gave, null if it has died since.
    IGCRow * current() const { return currentRow; }

    // Goes on with the children of the current row.
    void enter()
    {
        RowSpan const children = currentRow->GetChildren(frame->Wrapper());
        if (children.count() != 0) {
            levels.push_back({currentRow, children});
        }
    }

    void noteChanged()
    {
        dropDead();
        changed.push_back(currentRow);
    }
    std::size_t changedCount() const { return changed.size(); }
    // Null for a row that has died.
    IGCRow * changedRow(std::size_t i) const
    {
        return dead.contains(changed[i]) ? nullptr : changed[i];
    }

private:
    struct Level
    {
        IGCRow * parent; // null: the root
        RowSpan rows;
        int next = 0;
        IGCRow * lastRow = nullptr; // the row before next, null once it is dead
    };

    void rowDies(IGCRow const * row) override
    {
        for (std::size_t i = 0; i < levels.size(); ++i) {
            if (levels[i].parent && levels[i].parent == row) {
                levels.resize(i);
                break;
            }
            if (levels[i].lastRow == row) {
                levels[i].lastRow = nullptr;
                --levels[i].next;
            }
        }
        currentRow = currentRow == row ? nullptr : currentRow;
        if (!changed.empty()) {
            dead.insert(row);
        }
    }

    void allRowsDie() override
    {
        levels.clear();
        changed.clear();
        dead.clear();
        currentRow = nullptr;
    }

    // Before a new row at the address of a dead one enters the list.
    void dropDead()
    {
        if (!dead.empty()) {
            std::erase_if(changed, [&](IGCRow const * row) { return dead.contains(row); });
            dead.clear();
        }
    }

    // Levels have moved, grown or shrunk.
    void lookUpLevels()
    {
        TreeLock const lock(frame);
        version = frame->treeVersion;
        for (Level & level : levels) {
            level.rows = level.parent ? level.parent->GetChildren(frame->Wrapper())
                                      : frame->GetChildren(nullptr);
            level.next = std::min(level.next, level.rows.count());
            if (level.lastRow) {
                level.next = placeOf(level) + 1;
            }
        }
    }

    // Where the level's last row stands now, sought from its old place outwards.
    static int placeOf(Level const & level)
    {
        int const count = level.rows.count();
        for (int distance = 0; distance <= count; ++distance) {
            for (int const at : {level.next - 1 - distance, level.next - 1 + distance}) {
                if (at >= 0 && at < count && level.rows[at] == level.lastRow) {
                    return at;
                }
            }
        }
        return level.next - 1;
    }

    unsigned version;
    IGCRow * currentRow = nullptr;
    std::vector<Level> levels;
    std::vector<IGCRow *> changed;
    std::unordered_set<IGCRow const *> dead; // rows of the list that are gone
};

} // namespace

// A collapse must not hide the focus: it goes to the row itself, whatever is asked for.
void KGridCtrl::PrivateData::moveFocusOutOf(IGCRow * row)
{
    if (row->IsExpanded() && FocusedRow() && focusColumn != -1 &&
        isSameOrUnder(FocusedRow(), row)) {
        RowGuard const guard(this, row);
        UpdateNow();
        if (guard.hasRow()) {
            MoveFocus(IndexOf(row), focusColumn);
        }
    }
}

// Shows the children of a row that was opened at the display's bottom, and the row itself.
void KGridCtrl::PrivateData::revealChildren(IGCRow * row)
{
    RowGuard const guard(this, row);
    UpdateNow();
    int const count = guard.hasRow() ? row->GetChildCount(Wrapper()) : 0;
    if (count != 0) {
        EnsureRowVisible(row->GetChild(count - 1));
        if (guard.hasRow()) {
            EnsureRowVisible(row);
        }
    }
}

void KGridCtrl::PrivateData::Expand(IGCRow * row, unsigned code)
{
    RowGuard const guard(this, row);
    if (notification && !notification->OnExpanding(row->Handle())) {
        return;
    }
    if (guard.hasRow()) {
        moveFocusOutOf(row);
    }
    if (guard.hasRow()) {
        expandOne(row, code);
    }
    if (guard.hasGrid()) {
        updateBelowRows();
    }
}

void KGridCtrl::PrivateData::expandOne(IGCRow * row, unsigned code)
{
    RowGuard const guard(this, row);
    DropChildWalk(row);
    bool const wasExpanded = row->IsExpanded();
    bool changed = false;
    bool bringIn = false;
    unsigned const action = code & ~static_cast<unsigned>(GCE_NOSCROLL);
    if (action == GCE_EXPAND || (action == GCE_TOGGLE && !wasExpanded)) {
        changed = action == GCE_TOGGLE || !wasExpanded;
        row->ExpandRow(Wrapper());
        if (changed && (code & GCE_NOSCROLL) == 0 && row->IsExpanded()) {
            UpdateNow();
            bringIn = guard.hasRow() && row->IsExpanded() && IndexOf(row) == GetLastShownIndex();
        }
    } else if (action == GCE_COLLAPSE || action == GCE_TOGGLE) {
        changed = action == GCE_TOGGLE || wasExpanded;
        row->CollapseRow();
    }
    if (!changed || !guard.hasGrid()) {
        return;
    }
    Invalidate();
    if (bringIn) {
        revealChildren(row);
    }
    if (guard.hasRow() && notification) {
        notification->OnExpanded(row->Handle());
    }
}

// The bars follow, and the strip that a collapse uncovers is repainted.
void KGridCtrl::PrivateData::updateBelowRows()
{
    RowGuard const guard(this, nullptr);
    grid->contentsSizeChanged();
    if (guard.hasGrid()) {
        int const total = std::clamp(GetTotalHeight(), 0, grid->height());
        grid->update(QRect(0, total, grid->width(), grid->height() - total));
    }
}

// One row of a whole tree; false when the row, or the grid, is gone.
bool KGridCtrl::PrivateData::expandInTree(IGCRow * row, bool expand, bool movesFocus)
{
    RowGuard const guard(this, row);
    if (movesFocus) {
        UpdateNow();
        if (guard.hasRow()) {
            MoveFocus(IndexOf(row), focusColumn);
        }
    }
    if (guard.hasRow()) {
        row->CollapseRow();
        if (expand) {
            row->ExpandRow(Wrapper());
        }
    }
    return guard.hasRow();
}

void KGridCtrl::PrivateData::ExpandTree(unsigned code)
{
    bool const expand = code == GCE_EXPANDALL;
    IGCRow const * keep = FocusedRow();
    while (keep && keep->parent) {
        keep = keep->parent;
    }
    LoadingWalk walk(this);
    while (IGCRow * const row = walk.next()) {
        if (row->IsExpanded() != expand && row->HasChildren(Wrapper())) {
            bool const allowed = !notification || notification->OnExpanding(row->Handle());
            bool const movesFocus = row == keep && !expand && focusColumn != -1;
            if (walk.current() && allowed && expandInTree(row, expand, movesFocus)) {
                walk.noteChanged();
            }
        }
        if (!walk.hasGrid()) {
            return;
        }
        if (walk.current()) {
            walk.enter();
        }
    }
    if (walk.changedCount() == 0) {
        return;
    }
    Invalidate();
    for (std::size_t i = 0; i < walk.changedCount() && notification; ++i) {
        if (IGCRow * const row = walk.changedRow(i)) {
            notification->OnExpanded(row->Handle());
        }
        if (!walk.hasGrid()) {
            return;
        }
    }
    childWalks.clear();
    grid->update();
}

} // namespace zenu
