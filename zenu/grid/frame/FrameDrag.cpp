#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>

namespace zenu {

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

} // namespace zenu
