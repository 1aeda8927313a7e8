#pragma once

#include "tests/grid_random/Player.h"

#include <QDragEnterEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>

namespace gridrandom {

// A sort that allows for any order is settled first, so that both go on from the same one.
inline void Player::settleOrder()
{
    grid->UpdateVisibleRows();
    ref.settle();
    if (ref.loose) {
        nameRows();
        compareEvents();
        adoptOrder();
        recorder.events.clear();
        ref.events.clear();
    }
}

inline void Player::sendKey(int number, int keys)
{
    constexpr int all[] = {Qt::Key_Home,  Qt::Key_End,   Qt::Key_Left,   Qt::Key_Up,
                           Qt::Key_Right, Qt::Key_Down,  Qt::Key_PageUp, Qt::Key_PageDown,
                           Qt::Key_Plus,  Qt::Key_Minus, Qt::Key_Space,  Qt::Key_A,
                           Qt::Key_B,     Qt::Key_L,     Qt::Key_Z,      Qt::Key_F2};
    int const key = all[static_cast<std::size_t>(number) % std::size(all)];
    bool const shift = (keys & 1) != 0;
    bool const ctrl = (keys & 2) != 0;
    Qt::KeyboardModifiers modifiers = shift ? Qt::ShiftModifier : Qt::NoModifier;
    modifiers |= ctrl ? Qt::ControlModifier : Qt::NoModifier;
    QString const text =
        key >= Qt::Key_A && key <= Qt::Key_Z ? QString(QChar(key).toLower()) : QString();
    // The prefix ends by the clock; here every fourth key goes on with it.
    if (keys < 12) {
        grid->GetPriv().ResetTypeAhead();
        ref.typeAhead.clear();
    }
    settleOrder();
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(grid.get(), &event);
    grid->GetPriv().searchTimer.stop();
    ref.key(key, shift, ctrl);
}

// A press takes the keyboard from an open editor, and that ends the edit afterwards.
inline void Player::sendPress(QPoint const & point, int button, int keys, bool stops)
{
    settleOrder();
    bool const leavesEditor = ref.keyboardInEditor;
    grid->setFocus();
    ref.takeKeyboard();
    auto const [row, columnId] = ref.hitTest(point);
    zenu::KGridCtrl::PrivateData & frame = grid->GetPriv();
    ReferenceGrid::Pressed at;
    at.row = ref.locate(row);
    at.columnId = columnId;
    at.element = frame.HitElementAt(frame.HitTest(point), point);
    at.shift = (keys & 1) != 0;
    at.ctrl = (keys & 2) != 0;
    at.stops = stops;
    recorder.stopsPresses = stops;
    int const moves = (keys & 8) != 0 ? 2 : 0; // the first alone counts
    bool const right = button == 1 || !ref.hasSink;
    bool const twice = !right && button == 2;
    Qt::MouseButton const held = right ? Qt::RightButton : Qt::LeftButton;
    Qt::KeyboardModifiers modifiers = at.shift ? Qt::ShiftModifier : Qt::NoModifier;
    modifiers |= at.ctrl ? Qt::ControlModifier : Qt::NoModifier;
    QPoint const global = grid->mapToGlobal(point);
    QMouseEvent press(twice ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, point, global,
                      held, held, modifiers);
    QCoreApplication::sendEvent(grid.get(), &press);
    QPoint const next = point + QPoint(3, 7);
    for (int i = 0; i < moves; ++i) {
        QMouseEvent move(QEvent::MouseMove, next, grid->mapToGlobal(next), Qt::NoButton, held,
                         modifiers);
        QCoreApplication::sendEvent(grid.get(), &move);
    }
    QMouseEvent release(QEvent::MouseButtonRelease, point, global, held, Qt::NoButton, modifiers);
    QCoreApplication::sendEvent(grid.get(), &release);
    ref.press(right ? Event::RightClick : (twice ? Event::DoubleClick : Event::Click), at);
    if (moves != 0) {
        ref.moveMouse(next);
    }
    finishWaiting(columnId, (keys & 4) != 0);
    deliverEnds();
    if (leavesEditor) {
        ref.endEdit(false);
    }
}

inline void Player::sendFocus(bool in)
{
    settleOrder();
    QFocusEvent event(in ? QEvent::FocusIn : QEvent::FocusOut);
    QCoreApplication::sendEvent(grid.get(), &event);
    if (in) {
        ref.gainFocus();
    } else {
        ref.loseFocus();
    }
}

inline void Player::sendDrag(int step, QPoint const & point)
{
    settleOrder();
    QMimeData const data;
    constexpr Qt::DropActions copy = Qt::CopyAction;
    QDragEnterEvent enter(point, copy, &data, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(point, copy, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(point, copy, &data, Qt::LeftButton, Qt::NoModifier);
    QDragLeaveEvent leave;
    QEvent * const sent[] = {&enter, &move, &drop, &leave};
    constexpr Event::Type told[] = {Event::DragEnter, Event::DragMove, Event::Drop,
                                    Event::DragLeave};
    static_cast<QObject &>(*grid).event(sent[step]);
    ref.drag(told[step], point);
}

// The mark stays up over the operations that follow.
inline void Player::drawMark(tag_HROW * row, bool after)
{
    settleOrder();
    bool const needsNoRow = !row || row == zenu::GCI_FIRST;
    same("DrawDragIndicator",
         {grid->DrawDragIndicator(row, after), needsNoRow || ref.indexOf(ref.locate(row)) != -1});
}

inline bool Player::runInput(Action action, Args args)
{
    switch (action) {
    case Action::PressKey:
        sendKey(args[0], args[1]);
        return true;
    case Action::PressMouse:
        sendPress(QPoint(args[0], args[1]), args[2], args[3], args[4] != 0);
        return true;
    case Action::Focus:
        sendFocus(args[0] != 0);
        return true;
    case Action::Drag:
        sendDrag(args[0], QPoint(args[1], args[2]));
        return true;
    case Action::DragMark:
        drawMark(handle(args[0]), args[1] != 0);
        return true;
    default:
        return false;
    }
}

} // namespace gridrandom
