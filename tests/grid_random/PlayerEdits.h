#pragma once

#include "tests/grid_random/Player.h"

#include "zenu/grid/editing/CItemEditor.h"
#include "zenu/grid/editing/KItemLineEditor.h"
#include "zenu/grid/geometry/CElementRects.h"

#include <QKeyEvent>

namespace gridrandom {

inline bool Player::hasRoom(tag_HROW * row, int columnId) const
{
    zenu::KGridCtrl::PrivateData & frame = grid->GetPriv();
    zenu::IGCRow * const found = frame.LocateRow(row);
    zenu::CElementRects rects;
    return found && frame.ElementRects(found, frame.columns.find(column(columnId)), &rects) &&
           !rects.editorRect.isEmpty();
}

// The ends that editors have posted, and no other events.
inline void Player::deliverEnds()
{
    QCoreApplication::sendPostedEvents(grid.get(), zenu::KEndItemEditEvent::endAndSave);
    QCoreApplication::sendPostedEvents(grid.get(), zenu::KEndItemEditEvent::endAndDiscard);
}

inline void Player::pressInEditor(int key, QString const & text, Qt::KeyboardModifiers keys)
{
    for (QEvent::Type const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, keys, text);
        QCoreApplication::sendEvent(zenu::CItemEditorImpl::OpenWidget(), &event);
    }
}

// At the end of the text, or in its place.
inline void Player::typeText(char const * text, bool append)
{
    if (!ref.edit.row) {
        return;
    }
    if (append) {
        pressInEditor(Qt::Key_End);
    } else {
        pressInEditor(Qt::Key_A, QString(), Qt::ControlModifier);
        pressInEditor(Qt::Key_Delete);
        ref.edit.text.clear();
    }
    for (QChar const each : QString::fromLatin1(text)) {
        pressInEditor(0, each);
    }
    ref.edit.text += text ? text : "";
}

inline void Player::endEdit(int how)
{
    settleOrder();
    bool const discard = how % 2 == 0;
    switch (how) {
    case 0:
    case 1:
        same("EndEditItemNow", {grid->EndEditItemNow(discard), ref.endEdit(discard)});
        return;
    case 2:
        if (ref.edit.row) {
            pressInEditor(Qt::Key_Return);
            deliverEnds();
            ref.endEdit(false);
        }
        return;
    case 3:
        if (ref.edit.row) {
            pressInEditor(Qt::Key_Escape);
            deliverEnds();
        }
        return;
    default:
        QCoreApplication::postEvent(grid.get(),
                                    new QEvent(discard ? zenu::KEndItemEditEvent::endAndDiscard
                                                       : zenu::KEndItemEditEvent::endAndSave));
        deliverEnds();
        ref.endEdit(discard);
    }
}

// The time of an edit that waits is up, or something comes in its way.
inline void Player::finishWaiting(int columnId, bool begins)
{
    zenu::KGridCtrl::PrivateData & frame = grid->GetPriv();
    same("whether an edit waits", {frame.pendingEdit.row != nullptr, ref.pendingRow != nullptr});
    ReferenceRow * const row = std::exchange(ref.pendingRow, nullptr);
    if (row && begins) {
        frame.EditTimeOut();
        ref.startEdit(*row, columnId);
    } else {
        frame.CancelDelayedEdit();
    }
}

inline void Player::compareEdit() const
{
    zenu::KItemLineEditor const * const editor = zenu::CItemEditorImpl::OpenWidget();
    same("whether an edit is open", {grid->GetPriv().IsEditing(), ref.edit.row != nullptr});
    same("whether an editor is there", {editor != nullptr, ref.edit.row != nullptr});
    if (editor) {
        same("whether the editor has the keyboard", {editor->hasFocus(), ref.keyboardInEditor});
        QByteArray const text = editor->text().toLatin1();
        if (text != ref.edit.text.c_str()) {
            fail(QStringLiteral("the editor has \"%1\", not \"%2\"")
                     .arg(QLatin1String(text), QLatin1String(ref.edit.text.c_str())));
        }
    }
}

inline bool Player::runEdits(Action action, Args args)
{
    switch (action) {
    case Action::EditItem:
        settleOrder();
        same("EditItem", {grid->EditItem(handle(args[0]), column(args[1])),
                          ref.editItem(handle(args[0]), args[1])});
        return true;
    case Action::TypeText:
        typeText(plainTextOf(args[0]), args[1] != 0);
        return true;
    case Action::EndEdit:
        endEdit(args[0]);
        return true;
    default:
        return false;
    }
}

} // namespace gridrandom
