#include "zenu/scroll/KInPlaceCombo.h"

#include "zenu/overlay/NarrowText.h"
#include "zenu/scroll/KInPlaceEditor.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractItemView>

#include <string>
#include <utility>

namespace zenu {

namespace {

// Stands in for a null notification.
class Nobody : public IInPlaceEditorNotification
{
};

Nobody nobody;

} // namespace

KInPlaceCombo::KInPlaceCombo(QWidget * parent, char const * name)
    : QComboBox(parent)
{
    setObjectName(chars2qstring(name));
    connect(this, &QComboBox::textActivated, this, &KInPlaceCombo::activatedItem);
    hide();
}

KInPlaceCombo::~KInPlaceCombo() = default;

bool KInPlaceCombo::startEditing(IInPlaceEditorNotification * notification, int index,
                                 QRect const & rect)
{
    if (m_notification)
        return false;
    IInPlaceEditorNotification * const client = notification ? notification : &nobody;
    m_notification = client;
    QPointer<KInPlaceCombo> const self(this);
    // Slots hear of the string, and another editor loses the focus: any of them may end this edit,
    // or delete this combo box.
    auto const goesOn = [&] { return self && m_notification == client; };
    setGeometry(rect);
    if (goesOn())
        setCurrentIndex(index);
    if (goesOn())
        show();
    if (goesOn())
        KInPlaceEditor::moveFocus(this);
    if (goesOn())
        showPopup();
    return goesOn();
}

void KInPlaceCombo::cancelEditing()
{
    if (!m_notification)
        return;
    m_notification = nullptr;
    hide();
}

void KInPlaceCombo::insertItem(char const * text)
{
    addItem(chars2qstring(text));
}

void KInPlaceCombo::showPopup()
{
    QPointer<KInPlaceCombo> const self(this);
    QComboBox::showPopup();
    if (self)
        view()->installEventFilter(this);
}

// The list chooses when it is asked whether it wants Return, and then the press still goes to its
// window, which the client may have deleted, or to the widget that has the focus next. So it is
// asked only at the press.
bool KInPlaceCombo::eventFilter(QObject * watched, QEvent * event)
{
    bool const asks = event->type() == QEvent::ShortcutOverride;
    if (m_asksList || !(asks || event->type() == QEvent::KeyPress) || watched != view())
        return QComboBox::eventFilter(watched, event);
    auto const & key = *static_cast<QKeyEvent *>(event);
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter)
        return QComboBox::eventFilter(watched, event);
    event->accept();
    return asks || listTakes(key);
}

bool KInPlaceCombo::listTakes(QKeyEvent const & press)
{
    QPointer<KInPlaceCombo> const self(this);
    QKeyEvent question(QEvent::ShortcutOverride, press.key(), press.modifiers(), press.text());
    m_asksList = true;
    QCoreApplication::sendEvent(view(), &question);
    if (!self)
        return true;
    m_asksList = false;
    return !view()->isVisible();
}

void KInPlaceCombo::mousePressEvent(QMouseEvent * event)
{
    QPointer<KInPlaceCombo> const self(this);
    QComboBox::mousePressEvent(event);
    if (self)
        cancelEditing();
}

void KInPlaceCombo::focusOutEvent(QFocusEvent * event)
{
    QPointer<KInPlaceCombo> const self(this);
    QComboBox::focusOutEvent(event);
    if (self && isEditing() && !view()->isVisible())
        cancelEditing();
}

// Hides an edit that was started from within the notification as well, as KInPlaceEditor does.
void KInPlaceCombo::activatedItem(QString const & text)
{
    IInPlaceEditorNotification * const client = std::exchange(m_notification, nullptr);
    if (!client)
        return;
    QPointer<KInPlaceCombo> const self(this);
    std::string const latin1 = qstring2chars(text);
    client->completeEditing(latin1.c_str());
    if (self)
        hide();
}

} // namespace zenu
