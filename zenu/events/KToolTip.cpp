#include "zenu/events/KToolTip.h"

#include <QtCore/QEvent>
#include <QtGui/QHelpEvent>
#include <QtWidgets/QToolTip>

namespace zenu {

KToolTip::KToolTip(QWidget * widget)
    : m_widget(widget)
{
    if (widget)
        widget->installEventFilter(this);
}

bool KToolTip::eventFilter(QObject * watched, QEvent * event)
{
    if (watched != m_widget || event->type() != QEvent::ToolTip)
        return QObject::eventFilter(watched, event);
    maybeTip(static_cast<QHelpEvent *>(event)->pos());
    return true;
}

void KToolTip::maybeTip(QPoint const & p)
{
    QString text;
    QRect area;
    bool cancel = false;
    // A receiver may delete the widget, this object or both.
    QPointer<KToolTip> const self(this);
    Q_EMIT needToolTipText(p, area, text, cancel);
    if (!self || !m_widget)
        return;
    if (cancel || text.isNull())
        QToolTip::hideText(); // one without an area may still stand from another place
    else
        QToolTip::showText(m_widget->mapToGlobal(p), text, m_widget, area);
}

} // namespace zenu
