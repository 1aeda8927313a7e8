#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

namespace zenu {

namespace {

bool isSameOrUnder(IGCRow const * row, IGCRow const * ancestor)
{
    while (row && row != ancestor) {
        row = row->parent;
    }
    return row == ancestor;
}

// A walk over the whole tree, parents first, that loads slim rows as it comes to them. The
// application is called in between and may change the tree: then the walk looks up again, by
// handle, which of its levels are still there.
class LoadingWalk
{
public:
    explicit LoadingWalk(KGridCtrl::PrivateData * walkedFrame)
        : frame(walkedFrame)
        , version(walkedFrame->treeVersion)
    {
        levels.push_back({nullptr, frame->GetChildren(nullptr), 0});
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
                return level.rows[level.next++];
            }
            levels.pop_back();
        }
        return nullptr;
    }

    // Goes on with the children of the row that next() gave.
    void enter(IGCRow * row)
    {
        RowSpan const children = row->GetChildren(frame->Wrapper());
        if (children.count() != 0) {
            levels.push_back({row->Handle(), children, 0});
        }
    }

    // After the application was called: the row that next() gave, null if it is gone.
    IGCRow * lookUp(IGCRow * row)
    {
        if (version == frame->treeVersion) {
            return row;
        }
        interrupted = true;
        return frame->LocateRow(row->Handle());
    }

    // The application changed the tree meanwhile: rows that were given out may be gone.
    bool wasInterrupted() const { return interrupted; }

private:
    struct Level
    {
        tag_HROW * parent; // null: the root
        RowSpan rows;
        int next;
    };

    void lookUpLevels()
    {
        version = frame->treeVersion;
        for (std::size_t i = 0; i < levels.size(); ++i) {
            IGCRow * const parent = frame->LocateRow(levels[i].parent);
            if (!parent && levels[i].parent) {
                levels.resize(i);
                return;
            }
            levels[i].rows =
                parent ? parent->GetChildren(frame->Wrapper()) : frame->GetChildren(nullptr);
        }
    }

    KGridCtrl::PrivateData * frame;
    unsigned version;
    bool interrupted = false;
    std::vector<Level> levels;
};

} // namespace

// A collapse must not hide the focus: it goes to the row itself, whatever is asked for.
void KGridCtrl::PrivateData::moveFocusOutOf(IGCRow * row)
{
    if (row->IsExpanded() && FocusedRow() && focusColumn != -1 &&
        isSameOrUnder(FocusedRow(), row)) {
        MoveFocus(IndexOf(row), focusColumn);
    }
}

// Shows the children of a row that was opened at the display's bottom, and the row itself.
void KGridCtrl::PrivateData::revealChildren(IGCRow * row)
{
    int const count = row->GetChildCount(Wrapper());
    if (count == 0) {
        return;
    }
    RowGuard const guard(this, row);
    EnsureRowVisible(row->GetChild(count - 1));
    if (guard.hasRow()) {
        EnsureRowVisible(row);
    }
}

void KGridCtrl::PrivateData::Expand(IGCRow * row, unsigned code)
{
    RowGuard const guard(this, row);
    if (notification && !notification->OnExpanding(row->Handle())) {
        return;
    }
    if (!guard.hasRow()) {
        return;
    }
    moveFocusOutOf(row);
    if (!guard.hasRow()) {
        return;
    }
    DropChildWalk(row);
    bool const wasExpanded = row->IsExpanded();
    bool changed = false;
    bool bringIn = false;
    unsigned const action = code & ~static_cast<unsigned>(GCE_NOSCROLL);
    if (action == GCE_EXPAND || (action == GCE_TOGGLE && !wasExpanded)) {
        changed = action == GCE_TOGGLE || !wasExpanded;
        row->ExpandRow(Wrapper());
        bool const reveal = (code & GCE_NOSCROLL) == 0 && changed;
        bringIn = reveal && row->IsExpanded() && IndexOf(row) == GetLastShownIndex();
    } else if (action == GCE_COLLAPSE || action == GCE_TOGGLE) {
        changed = action == GCE_TOGGLE || wasExpanded;
        row->CollapseRow();
    }
    if (changed) {
        Invalidate();
        if (bringIn) {
            revealChildren(row);
        }
        if (guard.hasRow() && notification) {
            notification->OnExpanded(row->Handle());
        }
    }
    if (guard.hasGrid()) {
        updateBelowRows();
    }
}

// The bars follow, and the strip that a collapse uncovers is repainted.
void KGridCtrl::PrivateData::updateBelowRows()
{
    grid->contentsSizeChanged();
    int const total = GetTotalHeight();
    grid->update(QRect(0, total, grid->width(), grid->height() - total));
}

void KGridCtrl::PrivateData::ExpandTree(unsigned code)
{
    bool const expand = code == GCE_EXPANDALL;
    IGCRow const * keep = FocusedRow();
    while (keep && keep->parent) {
        keep = keep->parent;
    }
    RowGuard const guard(this, nullptr);
    std::vector<IGCRow *> changed;
    LoadingWalk walk(this);
    while (IGCRow * row = walk.next()) {
        if (row->IsExpanded() != expand && row->HasChildren(Wrapper())) {
            bool const allowed = !notification || notification->OnExpanding(row->Handle());
            if (!guard.hasGrid()) {
                return;
            }
            row = walk.lookUp(row);
            if (!row) {
                continue;
            }
            if (allowed) {
                if (row == keep && !expand && focusColumn != -1) {
                    MoveFocus(IndexOf(row), focusColumn);
                }
                row->CollapseRow();
                if (expand) {
                    row->ExpandRow(Wrapper());
                }
                changed.push_back(row);
            }
        }
        walk.enter(row);
    }
    if (changed.empty()) {
        return;
    }
    Invalidate();
    unsigned const version = walk.wasInterrupted() ? treeVersion - 1 : treeVersion;
    for (IGCRow * const row : changed) {
        if (!notification) {
            break;
        }
        if (version == treeVersion || LocateRow(row->Handle())) {
            notification->OnExpanded(row->Handle());
        }
        if (!guard.hasGrid()) {
            return;
        }
    }
    childWalks.clear();
    grid->update();
}

} // namespace zenu
