#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/painting/DragIndicator.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>

#include <algorithm>

namespace zenu {

namespace {

// There is one drag at a time, and so one mark for all grids of the process.
struct DropMark
{
    KGridCtrl::PrivateData * frame = nullptr; // null while no mark is up
    tag_HROW * row = nullptr;                 // above the mark; GCI_FIRST for none, null: it died
    int y = 0;                                // where it was drawn
    DragIndicator pixels;
};

DropMark & dropMark()
{
    static DropMark mark;
    return mark;
}

} // namespace

template <typename Event>
void KGridCtrl::PrivateData::TellDrag(void (IGridNotification::*tell)(Event *, tag_HROW *,
                                                                      tag_HCOLUMN *),
                                      Event * event)
{
    RowGuard const guard(this, nullptr);
    QPoint const point = event->position().toPoint();
    Hit const hit = point.x() != -1 ? HitTest(point) : Hit();
    if (guard.hasGrid() && notification) {
        (notification->*tell)(event, hit.row ? hit.row->Handle() : nullptr,
                              hit.column ? hit.column->Handle() : GC_NOCOLUMN);
    }
}

template void KGridCtrl::PrivateData::TellDrag(
    void (IGridNotification::*)(QDragEnterEvent *, tag_HROW *, tag_HCOLUMN *), QDragEnterEvent *);
template void KGridCtrl::PrivateData::TellDrag(
    void (IGridNotification::*)(QDragMoveEvent *, tag_HROW *, tag_HCOLUMN *), QDragMoveEvent *);
template void KGridCtrl::PrivateData::TellDrag(void (IGridNotification::*)(QDropEvent *, tag_HROW *,
                                                                           tag_HCOLUMN *),
                                               QDropEvent *);

// The y below the row, or above all rows for GCI_FIRST. A row that is not to be seen any more
// answers with the place last known.
int KGridCtrl::PrivateData::dropLine(tag_HROW * row, int lastKnown)
{
    if (row == GCI_FIRST) {
        return cellCoordinate(headerHeight - TopPosition());
    }
    IGCRow const * const found = row ? LocateRow(row) : nullptr;
    int const index = found ? IndexOf(found) : -1;
    return index == -1 ? lastKnown : cellCoordinate(0LL + ViewTopOf(index) + ViewHeightAt(index));
}

void KGridCtrl::PrivateData::eraseDropMark()
{
    DropMark & mark = dropMark();
    if (mark.frame == this) {
        mark.pixels.erase(grid, dropLine(mark.row, mark.y));
        mark.frame = nullptr;
    }
}

bool KGridCtrl::PrivateData::DrawDragIndicator(tag_HROW * row, bool after)
{
    tag_HROW * marked = row;
    if (row && row != GCI_FIRST) {
        IGCRow * const found = LocateSettled(row);
        int const index = found ? IndexOf(found) : -1;
        if (index == -1) {
            return false;
        }
        IGCRow const * const above = GetRowAt(after ? index : index - 1);
        marked = above ? above->Handle() : GCI_FIRST;
    }
    DropMark & mark = dropMark();
    if (mark.frame) {
        mark.frame->eraseDropMark();
    }
    if (marked) {
        mark.frame = this;
        mark.row = marked;
        mark.y = dropLine(marked, 0);
        mark.pixels.draw(grid, mark.y, std::min(ClientRect().right(), contentsWidth - 1));
    }
    return true;
}

// Of the row, or of any with null: the mark stays where it is, and nobody looks for its row.
void KGridCtrl::PrivateData::ForgetDropMark(IGCRow const * row)
{
    DropMark & mark = dropMark();
    if (mark.frame == this && (!row || mark.row == row->Handle())) {
        mark.row = nullptr;
    }
}

void KGridCtrl::PrivateData::LoseDropMark()
{
    DropMark & mark = dropMark();
    if (mark.frame == this) {
        mark.frame = nullptr;
    }
}

} // namespace zenu
