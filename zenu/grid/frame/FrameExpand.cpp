#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include <algorithm>
#include <unordered_map>

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
// the tree: rows that die leave the walk and the list. A step costs the same however deep the walk
// is: a level is looked up again, and what has died in it is asked for, when the walk comes back to
// it.
class LoadingWalk final : public RowWatch
{
public:
    explicit LoadingWalk(KGridCtrl::PrivateData * walkedFrame)
        : RowWatch(walkedFrame)
    {
        levels.push_back(levelOf(frame->GetChildren(nullptr)));
    }

    // The next row, null at the end.
    IGCRow * next()
    {
        while (!levels.empty()) {
            if (hasLostParent()) {
                levels.pop_back();
                continue;
            }
            if (levels.back().version != frame->treeVersion) {
                lookAgain();
            }
            if (levels.empty()) {
                break; // the grid is gone
            }
            Level & level = levels.back();
            if (level.next < level.rows.count()) {
                currentRow = level.rows[level.next++];
                level.last = seen(currentRow);
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
        if (currentRow && children.count() != 0) {
            levels.push_back(levelOf(children));
        }
    }

    void noteChanged() { changed.push_back(seen(currentRow)); }
    std::size_t changedCount() const { return changed.size(); }
    // Null for a row that has died.
    IGCRow * changedRow(std::size_t i) const
    {
        return isDead(changed[i]) ? nullptr : changed[i].row;
    }

private:
    // A row, and when it was seen alive: a later row may stand at the address of a dead one.
    struct Seen
    {
        IGCRow * row = nullptr;
        std::size_t deathsBefore = 0;
    };
    struct Level
    {
        RowSpan rows;
        unsigned version; // of the tree, when the rows were looked up
        int next = 0;
        Seen last; // the row before next, the parent of the level behind this one
    };

    Level levelOf(RowSpan rows) const { return {rows, frame->treeVersion, 0, {}}; }
    Seen seen(IGCRow * row) const { return {row, deathCount}; }
    bool isDead(Seen const & row) const
    {
        if (row.deathsBefore == deathCount) {
            return false;
        }
        auto const death = lastDeath.find(row.row);
        return death != lastDeath.end() && death->second > row.deathsBefore;
    }
    bool hasLostParent() const
    {
        return levels.size() > 1 && isDead(levels[levels.size() - 2].last);
    }

    void rowDies(IGCRow const * row) override
    {
        lastDeath[row] = ++deathCount;
        currentRow = currentRow == row ? nullptr : currentRow;
    }

    void allRowsDie() override
    {
        levels.clear();
        changed.clear();
        currentRow = nullptr;
    }

    // The rows of the innermost level have moved, or some came or went.
    void lookAgain()
    {
        Level & level = levels.back();
        if (level.last.row && isDead(level.last)) {
            level.last = {};
            --level.next;
        }
        IGCRow * const parent = levels.size() > 1 ? levels[levels.size() - 2].last.row : nullptr;
        RowSpan const rows = childrenOf(parent);
        if (levels.empty()) {
            return;
        }
        level.rows = rows;
        level.version = frame->treeVersion;
        level.next = std::min(level.next, level.rows.count());
        if (level.last.row) {
            level.next = placeOf(level) + 1;
        }
    }

    // Under a lock, so that no row of the walk dies when the children have to be loaded.
    RowSpan childrenOf(IGCRow * parent)
    {
        if (!parent) {
            return frame->GetChildren(nullptr);
        }
        TreeLock const lock(frame);
        return parent->GetChildren(frame->Wrapper());
    }

    // Where the level's last row stands now, sought from its old place outwards.
    static int placeOf(Level const & level)
    {
        int const count = level.rows.count();
        for (int distance = 0; distance <= count; ++distance) {
            for (int const at : {level.next - 1 - distance, level.next - 1 + distance}) {
                if (at >= 0 && at < count && level.rows[at] == level.last.row) {
                    return at;
                }
            }
        }
        return level.next - 1;
    }

    IGCRow * currentRow = nullptr;
    std::vector<Level> levels;
    std::vector<Seen> changed;
    std::size_t deathCount = 0;                                // since the walk began
    std::unordered_map<IGCRow const *, std::size_t> lastDeath; // at each address, by number
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
        Repaint(QRect(0, total, grid->width(), grid->height() - total));
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
    Repaint();
}

} // namespace zenu
