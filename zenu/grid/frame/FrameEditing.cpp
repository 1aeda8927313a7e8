#include "zenu/grid/frame/KGridCtrlPrivate.h"

#include "zenu/grid/editing/CItemEditor.h"

namespace zenu {

bool KGridCtrl::PrivateData::StartEdit(IGCRow *, CGCColumn *)
{
    return false;
}

void KGridCtrl::PrivateData::ScheduleEdit(IGCRow *, CGCColumn *) {}

void KGridCtrl::PrivateData::CancelDelayedEdit()
{
    editTimer.stop();
    pendingEdit = {};
}

bool KGridCtrl::PrivateData::EndEdit(bool)
{
    return false;
}

bool KGridCtrl::PrivateData::IsEditing() const
{
    return editor != nullptr;
}

void KGridCtrl::PrivateData::StopEditing()
{
    CancelDelayedEdit();
    EndEdit(true);
}

void KGridCtrl::PrivateData::EditTimeOut() {}

void KGridCtrl::PrivateData::EndEditEvent(QEvent *) {}

void KGridCtrl::PrivateData::FlipCheckBoxes(IGCRow *, CGCColumn *) {}

} // namespace zenu
