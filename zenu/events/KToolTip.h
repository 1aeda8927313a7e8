#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

namespace zenu {

/// Asks by a signal what the tool tip of a widget says, instead of by a derived class.
///
/// Each request is asked afresh, so the answer can depend on the place under the mouse. It answers
/// every tip request of the widget and takes it away from the widget's own tool tip text and from
/// its parents, also when no tip appears. Whoever made it deletes it; it may outlive the widget and
/// then does nothing.
class ZENU_EXPORT KToolTip : public QObject
{
    Q_OBJECT
public:
    /// Attaches to `widget`, which stays the caller's. With null it never asks.
    explicit KToolTip(QWidget * widget);

    /// The object itself, for connecting.
    QObject * qObject() { return this; }

    /// Turns tip requests of the widget into maybeTip, and lets everything else pass.
    bool eventFilter(QObject * watched, QEvent * event) override;

Q_SIGNALS:
    /// A tip is wanted at `pos` of the widget. The receiver writes into the other three, and each
    /// receiver sees what the ones before it have written: the area of the widget in which the tip
    /// stays (null at first: it stays within the widget), the text (null at first: no tip) and
    /// whether there is no tip at all (false at first). Connect directly, not queued.
    void needToolTipText(const QPoint & pos, QRect & tipActiveRect, QString & strTextToDisplay,
                         bool & bCancelToolTip);

protected:
    /// Emits the signal for `p`, in coordinates of the widget, and shows the tip that was answered.
    virtual void maybeTip(QPoint const & p);

private:
    QPointer<QWidget> m_widget;
};

} // namespace zenu
