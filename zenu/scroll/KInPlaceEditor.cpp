#include "zenu/scroll/KInPlaceEditor.h"

#include "zenu/overlay/NarrowText.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleOptionFrame>

#include <string>
#include <utility>

namespace zenu {

namespace {

// Larger than any text, so that none is broken into lines.
constexpr QRect measuringArea(0, 0, 10000, 10000);
constexpr int roomBehindText = 5;

// Stands in for a null notification.
class Nobody : public IInPlaceEditorNotification
{
};

Nobody nobody;

// Whether a line edit inserts the text of a key press, by the rule that it has itself.
bool typesText(QKeyEvent const & press)
{
    QString const text = press.text();
    if (text.isEmpty())
        return false;
    QChar const first = text.at(0);
    if (first.category() == QChar::Other_Format)
        return true;
    Qt::KeyboardModifiers const keys = press.modifiers() & ~Qt::KeypadModifier;
    if (keys == Qt::ControlModifier || keys == (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    return first.isPrint() || first.category() == QChar::Other_PrivateUse ||
           (first.isHighSurrogate() && text.size() > 1 && text.at(1).isLowSurrogate());
}

// Where the keys for pasting take their text from.
QClipboard::Mode pasteMode(QKeyEvent const & press)
{
    bool const selection = press.key() == Qt::Key_Insert &&
                           press.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    return selection ? QClipboard::Selection : QClipboard::Clipboard;
}

// The item of a line edit's menu that pastes, or null.
QAction * pasteAction(QMenu const & menu)
{
    QString const text = QLineEdit::tr("&Paste");
    for (QAction * action : menu.actions()) {
        if (action->text().startsWith(text))
            return action;
    }
    return nullptr;
}

} // namespace

bool KInPlaceEditor::s_fOverwrite = false;

KInPlaceEditor::KInPlaceEditor(QWidget * parent, char const * name)
    : QLineEdit(parent)
{
    setObjectName(chars2qstring(name));
    setFrame(false);
    setBackgroundRole(QPalette::Window);
    connect(this, &QLineEdit::returnPressed, this, &KInPlaceEditor::pressedReturn);
    connect(this, &QLineEdit::textChanged, this, &KInPlaceEditor::changedText);
    hide();
}

KInPlaceEditor::~KInPlaceEditor() = default;

bool KInPlaceEditor::startEditing(IInPlaceEditorNotification * notification, char const * text,
                                  QRect const & rect)
{
    if (m_notification || m_ending == Ending::HiddenEdit)
        return false;
    IInPlaceEditorNotification * const client = notification ? notification : &nobody;
    m_notification = client;
    QPointer<KInPlaceEditor> const self(this);
    // Slots hear of the text, and another editor loses the focus: any of them may end this edit, or
    // delete this editor.
    auto const goesOn = [&] { return self && m_notification == client; };
    setGeometry(rect);
    if (goesOn())
        setText(chars2qstring(text));
    if (goesOn())
        changedText(QLineEdit::text()); // not signalled when it is that of the last edit
    if (goesOn())
        show();
    if (goesOn())
        moveFocus(this);
    if (goesOn())
        grabKeyboard();
    if (goesOn())
        selectAll();
    return goesOn();
}

void KInPlaceEditor::cancelEditing()
{
    endEditing(true);
}

void KInPlaceEditor::insert(QString const & text)
{
    makeRoom();
    QLineEdit::insert(text);
}

// The line edit still works on itself after it has told of Return, so the edit ends afterwards:
// the client may delete the editor.
void KInPlaceEditor::keyPressEvent(QKeyEvent * event)
{
    QPointer<KInPlaceEditor> const self(this);
    bool const inserts = typesText(*event) ||
                         (event->matches(QKeySequence::Paste) && canPasteFrom(pasteMode(*event)));
    if (inserts && !isReadOnly())
        makeRoom();
    m_keyIsDown = true;
    QLineEdit::keyPressEvent(event);
    if (!self)
        return;
    m_keyIsDown = false;
    if (std::exchange(m_returnPressed, false)) {
        endEditing(false);
    } else if (event->key() == Qt::Key_Insert) {
        s_fOverwrite = !s_fOverwrite;
        if (m_notification)
            m_notification->editingModeChanged(s_fOverwrite);
    }
}

// Composing takes selected text away before anything is committed, and then that is what the new
// text replaces.
void KInPlaceEditor::inputMethodEvent(QInputMethodEvent * event)
{
    bool const commits = !event->commitString().isEmpty();
    bool const composes = !event->preeditString().isEmpty();
    if ((commits || composes) && hasSelectedText())
        m_composesOverText = true;
    if (commits && !m_composesOverText && event->replacementLength() == 0)
        makeRoom();
    if (commits || !composes)
        m_composesOverText = false;
    QLineEdit::inputMethodEvent(event);
}

void KInPlaceEditor::focusOutEvent(QFocusEvent * event)
{
    QPointer<KInPlaceEditor> const self(this);
    QLineEdit::focusOutEvent(event);
    if (!self || event->reason() == Qt::PopupFocusReason)
        return;
    if (m_ending == Ending::Hiding)
        m_focusLost = true; // the editor can't be deleted in the middle of being hidden
    else
        endEditing(false);
}

void KInPlaceEditor::mouseReleaseEvent(QMouseEvent * event)
{
    if (event->button() == Qt::MiddleButton && !isReadOnly() &&
        canPasteFrom(QClipboard::Selection)) {
        deselect(); // as the line edit does before it pastes
        makeRoom();
    }
    QLineEdit::mouseReleaseEvent(event);
}

void KInPlaceEditor::contextMenuEvent(QContextMenuEvent * event)
{
    QMenu * const menu = createStandardContextMenu();
    if (!menu)
        return;
    if (QAction * const action = pasteAction(*menu)) {
        action->disconnect(this);
        connect(action, &QAction::triggered, this, [this] {
            if (canPasteFrom(QClipboard::Clipboard))
                makeRoom();
            paste();
        });
    }
    // The keys belong to the menu while it is open.
    releaseKeyboard();
    connect(menu, &QMenu::aboutToHide, this, [this] {
        if (isEditing())
            grabKeyboard();
    });
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

// A line edit fills itself with the base colour.
void KInPlaceEditor::initStyleOption(QStyleOptionFrame * option) const
{
    QLineEdit::initStyleOption(option);
    option->palette.setBrush(QPalette::Base, option->palette.window());
}

void KInPlaceEditor::pressedReturn()
{
    if (m_keyIsDown)
        m_returnPressed = true;
    else
        endEditing(false);
}

void KInPlaceEditor::changedText(QString const & text)
{
    if (!m_autoResizing)
        return;
    QRect needed =
        fontMetrics().boundingRect(measuringArea, int(Qt::AlignLeft | Qt::AlignTop), text);
    needed.setRight(needed.right() + roomBehindText);
    QSize grown = size().expandedTo(needed.size());
    if (QWidget const * const parent = parentWidget()) {
        QPoint const over = QRect(pos(), grown).bottomRight() - parent->rect().bottomRight();
        grown -= QSize(qMax(0, over.x()), qMax(0, over.y()));
    }
    resize(grown);
}

void KInPlaceEditor::endEditing(bool cancelled)
{
    releaseKeyboard();
    if (!m_notification)
        return;
    QPointer<KInPlaceEditor> const self(this);
    report(cancelled);
    if (self)
        hideAfterEdit();
}

// Gives the focus to `receiver`. The edit that it leaves ends before that: its client may delete
// the receiver, which Qt does not survive while it moves the focus there.
void KInPlaceEditor::moveFocus(QWidget * receiver)
{
    QPointer<QWidget> const next(receiver);
    QPointer<KInPlaceEditor> const editor(
        qobject_cast<KInPlaceEditor *>(QApplication::focusWidget()));
    bool const moves = receiver->isEnabled() && receiver->isActiveWindow();
    bool const ends = moves && editor && editor != receiver && editor->m_notification;
    if (ends) {
        editor->releaseKeyboard();
        editor->report(false);
    }
    if (next && !next->isHidden())
        next->setFocus();
    if (ends && editor)
        editor->hideAfterEdit();
}

// The client may start a new edit from within, so the old one is over before it hears of it.
void KInPlaceEditor::report(bool cancelled)
{
    IInPlaceEditorNotification * const client = std::exchange(m_notification, nullptr);
    if (cancelled) {
        client->cancelEditing();
        return;
    }
    std::string const latin1 = qstring2chars(text());
    client->completeEditing(latin1.c_str());
}

// Hides an edit that was started from within the notification as well. Clients rely on an editor
// that is gone when an edit has ended. If the focus goes with it, that edit ends, and starts no
// other: a client that always starts the next one would never come to an end.
void KInPlaceEditor::hideAfterEdit()
{
    if (m_ending != Ending::None) {
        hide();
        return;
    }
    QPointer<KInPlaceEditor> const self(this);
    m_ending = Ending::Hiding;
    m_focusLost = false;
    hide();
    if (!self)
        return;
    if (m_focusLost && m_notification && isHidden()) {
        m_ending = Ending::HiddenEdit;
        endEditing(false);
        if (!self)
            return;
    }
    m_ending = Ending::None;
}

// Takes away the character at the cursor, in overwrite mode and unless selected text makes room.
void KInPlaceEditor::makeRoom()
{
    if (s_fOverwrite && !hasSelectedText())
        del();
}

bool KInPlaceEditor::canPasteFrom(QClipboard::Mode mode) const
{
    QClipboard const & clipboard = *QGuiApplication::clipboard();
    return (mode != QClipboard::Selection || clipboard.supportsSelection()) &&
           !clipboard.text(mode).isEmpty();
}

} // namespace zenu
