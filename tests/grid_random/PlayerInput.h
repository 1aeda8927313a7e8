#pragma once

#include "tests/grid_random/Player.h"

#include <QFocusEvent>
#include <QKeyEvent>
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
    bool const right = button == 1 || !ref.hasSink;
    bool const twice = !right && button == 2;
    Qt::MouseButton const held = right ? Qt::RightButton : Qt::LeftButton;
    Qt::KeyboardModifiers modifiers = at.shift ? Qt::ShiftModifier : Qt::NoModifier;
    modifiers |= at.ctrl ? Qt::ControlModifier : Qt::NoModifier;
    QPoint const global = grid->mapToGlobal(point);
    QMouseEvent press(twice ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, point, global,
                      held, held, modifiers);
    QCoreApplication::sendEvent(grid.get(), &press);
    QMouseEvent release(QEvent::MouseButtonRelease, point, global, held, Qt::NoButton, modifiers);
    QCoreApplication::sendEvent(grid.get(), &release);
    ref.press(right ? Event::RightClick : (twice ? Event::DoubleClick : Event::Click), at);
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
    default:
        return false;
    }
}

} // namespace gridrandom
