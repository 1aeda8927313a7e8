#pragma once

#include "zenu/grid/frame/KGridCtrlPrivate.h"

#include <unordered_set>

namespace zenu {

// Hears of each row that dies and of the grid's own end. It stands on the stack over a call to the
// application; while none does, a row's death costs one test. Each such call is made under a watch
// or a TreeLock, unless it is the last thing that an operation does: they tell the frame that it is
// in use.
class RowWatch
{
public:
    explicit RowWatch(KGridCtrl::PrivateData * watchedFrame)
        : frame(watchedFrame->grid ? watchedFrame : nullptr)
        , outer(watchedFrame->watches)
    {
        watchedFrame->SetInnermostWatch(frame ? this : outer);
    }
    RowWatch(RowWatch const &) = delete;
    RowWatch & operator=(RowWatch const &) = delete;

    bool hasGrid() const { return frame != nullptr; }

protected:
    // Watches stand on the stack, so the last one made goes first.
    ~RowWatch()
    {
        if (frame) {
            frame->SetInnermostWatch(outer);
        }
    }
    // The row is still whole, and hangs where it did.
    virtual void rowDies(IGCRow const * row) = 0;
    virtual void allRowsDie() = 0;

    KGridCtrl::PrivateData * frame; // null once the grid is gone

private:
    friend class KGridCtrl::PrivateData;
    RowWatch * outer;
};

// Tells after a call to the application whether the row, and the grid, are still there. Works by
// the row, not by its handle: a grid may trust its handles.
class RowGuard final : public RowWatch
{
public:
    RowGuard(KGridCtrl::PrivateData * heldFrame, IGCRow const * heldRow)
        : RowWatch(heldFrame)
        , row(frame ? heldRow : nullptr)
    {
    }
    bool hasRow() const { return row != nullptr; }

private:
    void rowDies(IGCRow const * dying) override { row = row == dying ? nullptr : row; }
    void allRowsDie() override { row = nullptr; }

    IGCRow const * row;
};

// The same for a cell: its column is looked up at each question, by its handle.
class CellGuard final : public RowWatch
{
public:
    CellGuard(KGridCtrl::PrivateData * heldFrame, IGCRow * row, CGCColumn const * column)
        : RowWatch(heldFrame)
        , heldRow(frame ? row : nullptr)
        , handle(column ? column->Handle() : GC_NOCOLUMN)
    {
    }
    // Null once it is gone, and when there was none.
    IGCRow * row() const { return heldRow; }
    CGCColumn * column() const { return frame ? frame->columns.find(handle) : nullptr; }
    bool hasCell() const { return heldRow && column(); }

private:
    void rowDies(IGCRow const * dying) override { heldRow = heldRow == dying ? nullptr : heldRow; }
    void allRowsDie() override { heldRow = nullptr; }

    IGCRow * heldRow;
    tag_HCOLUMN * handle;
};

// The same for many rows.
class RowListGuard final : public RowWatch
{
public:
    RowListGuard(KGridCtrl::PrivateData * heldFrame, std::span<IGCRow * const> rows)
        : RowWatch(heldFrame)
    {
        if (frame) {
            held.assign(rows.begin(), rows.end());
        }
    }
    // Those that live, in their order.
    std::vector<IGCRow *> const & rows()
    {
        if (!dead.empty()) {
            std::erase_if(held, [&](IGCRow const * row) { return dead.contains(row); });
            dead.clear();
        }
        return held;
    }

private:
    void rowDies(IGCRow const * dying) override { dead.insert(dying); }
    void allRowsDie() override
    {
        held.clear();
        dead.clear();
    }

    std::vector<IGCRow *> held;
    std::unordered_set<IGCRow const *> dead;
};

// While one stands, nothing may come or go: whoever set it goes through rows or columns and asks
// the application on the way. Operations that would add or remove some fail quietly.
class TreeLock
{
public:
    explicit TreeLock(KGridCtrl::PrivateData * lockedFrame)
        : frame(lockedFrame)
    {
        ++frame->treeLocks;
    }
    ~TreeLock() { --frame->treeLocks; }
    TreeLock(TreeLock const &) = delete;
    TreeLock & operator=(TreeLock const &) = delete;

private:
    KGridCtrl::PrivateData * frame;
};

} // namespace zenu
