#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/events/KEventMonitor.h"
#include "zenu/grid/data/CheckState.h"

#include <QMouseEvent>
#include <QTimerEvent>

namespace zenu {

namespace {

enum ClickKind
{
    Click,
    RightClick,
    DoubleClicked,
    LeadClick
};

// Mouse positions are told in whole pixels.
QPoint pointOf(QMouseEvent const * event)
{
    return event->position().toPoint();
}

} // namespace

// True without a sink.
bool KGridCtrl::PrivateData::notifyClick(int kind, Hit const & hit, unsigned element)
{
    if (!notification) {
        return true;
    }
    tag_HROW * const row = hit.row ? hit.row->Handle() : nullptr;
    tag_HCOLUMN * const column = hit.column ? hit.column->Handle() : GC_NOCOLUMN;
    switch (kind) {
    case RightClick:
        return notification->OnRightClick(row, column, element);
    case DoubleClicked:
        return notification->OnDoubleClick(row, column, element);
    case LeadClick:
        return notification->OnLeadClick(row, column, element);
    default:
        return notification->OnClick(row, column, element);
    }
}

// What every press begins with; false when the grid did not outlive it.
bool KGridCtrl::PrivateData::beginPress(QPoint const & point, Hit * hit, unsigned * element)
{
    RowGuard const guard(this, nullptr);
    CancelDelayedEdit();
    ResetTypeAhead();
    grid->setFocus(Qt::MouseFocusReason);
    if (guard.hasGrid()) {
        *hit = HitTest(point);
    }
    if (guard.hasGrid()) {
        *element = HitElementAt(*hit, point);
    }
    return guard.hasGrid();
}

// The selection as a press of any button makes it; whether the row was selected before. A press on
// a selected row keeps a multiple selection for now: check boxes and buttons act on it.
bool KGridCtrl::PrivateData::selectByPress(CellGuard const & cell, Qt::KeyboardModifiers keys,
                                           bool deselects)
{
    UpdateNow();
    if (!cell.hasCell()) {
        return false;
    }
    bool const shift = keys.testFlag(Qt::ShiftModifier);
    if (!shift) {
        anchorIndex = -1;
    }
    IGCRow * const row = cell.row();
    bool const wasSelected = selection.contains(row);
    int const oldIndex = GetFocusedIndex();
    MoveFocus(IndexOf(row), ShownIndexOf(cell.column()));
    if (!cell.hasCell()) {
        return wasSelected;
    }
    if (HasStyle(GCS_SINGLESEL)) {
        SelectOnly({&row, 1});
    } else if (keys.testFlag(Qt::ControlModifier)) {
        if (!wasSelected) {
            SelectAlso(row);
        } else if (deselects) {
            DeselectRow(row);
        }
    } else if (shift) {
        SetAnchor(oldIndex);
        SelectRange(row);
    } else if (wasSelected) {
        SelectAlso(row);
    } else {
        SelectOnly({&row, 1});
    }
    return wasSelected;
}

// Buttons, lead images and check boxes take the press for themselves. `twice`: a double click,
// which need not hit the button or the box.
bool KGridCtrl::PrivateData::pressElement(CellGuard const & cell, unsigned element, bool twice)
{
    IGCRow * const row = cell.row();
    CGCColumn * const column = cell.column();
    bool const onButton = element == GCEL_BUTTON && column->HasFlag(GCCF_TREE);
    if ((twice || onButton) && row->HasChildren(Wrapper())) {
        Expand(row, GCE_TOGGLE);
        return true;
    }
    if (element == GCEL_LEAD) {
        notifyClick(LeadClick, {row, column}, GCEL_NONE);
        return true;
    }
    KHasCheckBox box;
    column->Accept(&box);
    if (box.result && (twice || element == GCEL_CHECK)) {
        FlipCheckBoxes(row, column);
        return true;
    }
    return false;
}

// What the press had put off, now that no element took it.
void KGridCtrl::PrivateData::selectPressed(CellGuard const & cell, Qt::KeyboardModifiers keys,
                                           unsigned element, bool wasSelected)
{
    IGCRow * const row = cell.row();
    if (keys.testFlag(Qt::ControlModifier)) {
        if (wasSelected) {
            DeselectRow(row);
        }
    } else if (!keys.testFlag(Qt::ShiftModifier)) {
        SelectOnly({&row, 1});
        if (cell.hasCell()) {
            editPressed(cell, element, wasSelected);
        }
    }
}

void KGridCtrl::PrivateData::editPressed(CellGuard const & cell, unsigned element, bool wasSelected)
{
    CGCColumn * const column = cell.column();
    bool const mayEdit = wasSelected || column->HasFlag(GCCF_CLICKEDIT);
    bool const aside = element == GCEL_INDENT || element == GCEL_BUTTON || element == GCEL_IMAGE;
    if (!mayEdit || aside || selection.count() > 1 || IsEditing()) {
        return;
    }
    if (column->HasFlag(GCCF_DELAYEDEDIT)) {
        ScheduleEdit(cell.row(), column);
    } else {
        StartEdit(cell.row(), column);
    }
}

void KGridCtrl::PrivateData::PressLeft(QMouseEvent const * event)
{
    Hit hit;
    unsigned element = GCEL_NONE;
    if (!beginPress(pointOf(event), &hit, &element)) {
        return;
    }
    CellGuard const cell(this, hit.row, hit.column);
    if (!notifyClick(Click, hit, element) || !cell.hasCell()) {
        return;
    }
    bool const wasSelected = selectByPress(cell, event->modifiers(), false);
    if (!cell.hasCell() || pressElement(cell, element, false) || !cell.hasCell()) {
        return;
    }
    selectPressed(cell, event->modifiers(), element, wasSelected);
    if (cell.hasGrid()) {
        pressState = PressState::AwaitsMove;
    }
}

void KGridCtrl::PrivateData::DoubleClick(QMouseEvent const * event)
{
    Hit hit;
    unsigned element = GCEL_NONE;
    if (!beginPress(pointOf(event), &hit, &element)) {
        return;
    }
    CellGuard const cell(this, hit.row, hit.column);
    if (notifyClick(DoubleClicked, hit, element) || !cell.hasCell()) {
        return;
    }
    bool const wasSelected = selectByPress(cell, event->modifiers(), false);
    if (cell.hasCell() && !pressElement(cell, element, true) && cell.hasCell()) {
        selectPressed(cell, event->modifiers(), element, wasSelected);
    }
}

// Told after the selection has changed, so that a context menu acts on the new one.
void KGridCtrl::PrivateData::PressRight(QMouseEvent const * event)
{
    Hit hit;
    unsigned element = GCEL_NONE;
    if (!beginPress(pointOf(event), &hit, &element)) {
        return;
    }
    CellGuard const cell(this, hit.row, hit.column);
    if (hit.row) {
        selectByPress(cell, event->modifiers(), true);
        if (!cell.hasCell()) {
            return;
        }
    }
    notifyClick(RightClick, {cell.row(), cell.column()}, element);
}

// The first move after a press is where an application begins a drag.
void KGridCtrl::PrivateData::MoveMouse(QPoint const & point)
{
    mousePoint = point;
    if (pressState != PressState::AwaitsMove) {
        return;
    }
    RowGuard const guard(this, nullptr);
    pressState = PressState::Moves;
    Hit const hit = HitTest(point);
    if (guard.hasGrid() && hit.row && notification) {
        notification->OnHover(hit.row->Handle(), hit.column->Handle(),
                              KEventMonitor::buttonState());
    }
    if (guard.hasGrid()) {
        pressState = PressState::Idle;
    }
}

void KGridCtrl::PrivateData::hoverTimeOut()
{
    RowGuard const guard(this, nullptr);
    Hit const hit = HitTest(mousePoint);
    if (!guard.hasGrid()) {
        return;
    }
    if (hit.row) {
        hit.row->SetHotCell(hit.column);
        InvalidateItem(hit.row, hit.column);
        hover = {hit.row, hit.column->Handle()};
    }
    hoverTimer.stop();
}

void KGridCtrl::PrivateData::LeaveHover()
{
    CGCColumn * const column = columns.find(hover.column);
    if (hover.row && column) {
        hover.row->ClearHotCell(column);
        InvalidateItem(hover.row, column);
    }
    hover = {};
    hoverTimer.stop();
}

void KGridCtrl::PrivateData::TimeOut(QTimerEvent const * event)
{
    if (event->timerId() == hoverTimer.timerId()) {
        hoverTimeOut();
    } else if (event->timerId() == editTimer.timerId()) {
        EditTimeOut();
    } else if (event->timerId() == searchTimer.timerId()) {
        ResetTypeAhead();
    }
}

} // namespace zenu
