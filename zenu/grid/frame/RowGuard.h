#pragma once

#include "zenu/grid/frame/KGridCtrlPrivate.h"

#include <QPointer>

namespace zenu {

// What is held over a call to the application: afterwards the row, or the grid with its frame, may
// be gone. A grid that trusts its handles (GCXS_FASTLOCATOR) can only tell the grid's own end.
class RowGuard
{
public:
    RowGuard(KGridCtrl::PrivateData * heldFrame, IGCRow const * heldRow)
        : grid(heldFrame->grid)
        , frame(heldFrame)
        , handle(heldRow ? heldRow->Handle() : nullptr)
    {
    }
    bool hasGrid() const { return !grid.isNull(); }
    bool hasRow() const { return hasGrid() && handle && frame->LocateRow(handle); }

private:
    QPointer<KGridCtrl> grid;
    KGridCtrl::PrivateData * frame;
    tag_HROW * handle;
};

} // namespace zenu
