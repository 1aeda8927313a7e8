#include "zenu/grid/editing/KItemLineEditor.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>

#include <limits>

namespace zenu {

namespace {

quint64 lastId = 0;

// Of a key that types or moves. With one of the others it is a command of the application.
bool isPlain(QKeyEvent const & event)
{
    return (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}

} // namespace

KItemLineEditor::KItemLineEditor(QWidget * parent)
    : QLineEdit(parent)
    , id(++lastId)
{
    setMaxLength(std::numeric_limits<int>::max()); // or Qt cuts the text, and that is saved
    lower();                                       // below header and bars
}

KItemLineEditor::~KItemLineEditor()
{
    if (!isClosed) {
        postEnd();
    }
}

void KItemLineEditor::Open()
{
    ++busy;
    show();
    setFocus();
    --busy;
}

void KItemLineEditor::Close()
{
    isClosed = true;
    if (busy == 0) {
        delete this;
        return;
    }
    clearFocus();
    hide();
    setParent(nullptr); // which may be deleted before this widget's event is done
    deleteLater();
}

void KItemLineEditor::CloseAllOf(QWidget * parent)
{
    for (KItemLineEditor * const editor :
         parent->findChildren<KItemLineEditor *>(QString(), Qt::FindDirectChildrenOnly)) {
        editor->Close();
    }
}

bool KItemLineEditor::event(QEvent * event)
{
    QPointer<KItemLineEditor> const self(this);
    ++busy;
    bool taken = QLineEdit::event(event);
    if (!self) {
        return true;
    }
    --busy;
    if (event->type() == QEvent::ShortcutOverride) {
        if (isPlain(*static_cast<QKeyEvent *>(event))) {
            event->accept(); // a shortcut must not take what is typed here
        }
    } else if (event->type() == QEvent::KeyRelease) {
        event->accept();
        taken = true;
    }
    return taken;
}

void KItemLineEditor::keyPressEvent(QKeyEvent * event)
{
    QLineEdit::keyPressEvent(event);
    event->accept(); // whether it is of use or not: a dialog would close at Escape
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        postEnd();
    }
}

void KItemLineEditor::focusOutEvent(QFocusEvent * event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason || !isOwnPopup(QApplication::activePopupWidget())) {
        postEnd();
    }
}

bool KItemLineEditor::isOwnPopup(QWidget const * popup) const
{
    while (popup && popup != this) {
        popup = popup->parentWidget();
    }
    return popup != nullptr;
}

void KItemLineEditor::postEnd()
{
    if (QWidget * const parent = parentWidget(); parent && !isClosed) {
        QCoreApplication::postEvent(parent, new KEndItemEditEvent(id));
    }
}

} // namespace zenu
