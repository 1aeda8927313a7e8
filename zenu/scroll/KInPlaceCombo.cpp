#include "zenu/scroll/KInPlaceCombo.h"

#include "zenu/overlay/NarrowText.h"

#include <QtCore/QPointer>
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
    m_notification = notification ? notification : &nobody;
    setGeometry(rect);
    setCurrentIndex(index);
    show();
    setFocus();
    if (!m_notification) // another editor lost the focus, and its client has ended this edit
        return false;
    showPopup();
    return true;
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

void KInPlaceCombo::mousePressEvent(QMouseEvent * event)
{
    QComboBox::mousePressEvent(event);
    cancelEditing();
}

void KInPlaceCombo::focusOutEvent(QFocusEvent * event)
{
    QComboBox::focusOutEvent(event);
    if (isEditing() && !view()->isVisible())
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
