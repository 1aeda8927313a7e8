#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtGui/QCursor>

#include <memory>

class QWidget;

namespace zenu {

/// The numbers of the events that KEventMonitor posts.
constexpr QEvent::Type CursorEventType = static_cast<QEvent::Type>(1117);
constexpr QEvent::Type MouseHoverEventType = static_cast<QEvent::Type>(1118);

/// The bits of KEventMonitor::buttonState.
enum EButtonStateBits
{
    ButtonStateLeft = 1,
    ButtonStateRight = 2,
    ButtonStateMiddle = 4,
    ButtonStateShift = 256,
    ButtonStateControl = 512,
    ButtonStateAlt = 1024,
    ButtonStateMeta = 2048
};

/// Asks a widget which cursor belongs to the place under the mouse. KEventMonitor posts it to a
/// widget after each press, release or move of the mouse, each key and each drag event that the
/// widget gets; it arrives in QObject::customEvent.
class ZENU_EXPORT KCursorEvent : public QEvent
{
public:
    /// `pos` is the place of the mouse in coordinates of the receiver.
    explicit KCursorEvent(QPoint const & pos);
    ~KCursorEvent() override;

    KCursorEvent * clone() const override;

    /// The answer of the receiver, an arrow at first. The event keeps it and sets it nowhere: who
    /// wants it shown calls QWidget::setCursor.
    void setCursor(QCursor const & cursor) { m_cursor = cursor; }
    QCursor cursor() const { return m_cursor; }

    /// The place of the mouse when the event was posted.
    QPoint pos() const { return m_pos; }

protected:
    KCursorEvent(KCursorEvent const &) = default;
    KCursorEvent & operator=(KCursorEvent const &) = default;

private:
    QCursor m_cursor;
    QPoint m_pos;
};

/// Tells a widget that the mouse has stood still over it for the time of a hover task. It arrives
/// in QObject::customEvent.
class ZENU_EXPORT KMouseHoverEvent : public QEvent
{
public:
    /// `pos` is in coordinates of the receiver, `id` is that of the task.
    KMouseHoverEvent(QPoint const & pos, int id);
    ~KMouseHoverEvent() override;

    KMouseHoverEvent * clone() const override;

    /// Where the mouse stands, and which task it is.
    QPoint pos() const { return m_pos; }
    int id() const { return m_id; }

protected:
    KMouseHoverEvent(KMouseHoverEvent const &) = default;
    KMouseHoverEvent & operator=(KMouseHoverEvent const &) = default;

private:
    QPoint m_pos;
    int m_id;
};

/// Watches all events of the application: it knows which mouse buttons and modifier keys are down,
/// posts a KCursorEvent after each input event of a widget, and runs hover tasks.
///
/// There is one, a child of the QApplication. Nothing in the library makes it: the application
/// calls `init` once, or adds a hover task. It consumes no event. Any event that is neither mouse,
/// key nor drag costs it one comparison of the type; its timer of 250 milliseconds runs as long as
/// it lives.
class ZENU_EXPORT KEventMonitor : public QObject
{
    Q_OBJECT
public:
    /// Makes the monitor, under the name "zenuEventMonitor", unless there is one. Does nothing
    /// without a QApplication.
    static void init();

    /// The buttons and modifier keys that are down, as bits of EButtonStateBits. A button or key
    /// changes its bit when it is pressed or released, a double click leaves the bits alone, and a
    /// mouse move brings them all up to date. 0 as long as there was no monitor.
    static int buttonState() { return s_buttonState; }

    /// Wants a KMouseHoverEvent for `widget` whenever the mouse has stood still over it for
    /// `milliseconds`, rounded up to 250; with 0 it never comes. Returns the id of the task: the
    /// number of tasks that there were. After a removal that can be the id of another task.
    ///
    /// The owner of the widget removes the task before the widget dies. The task of a widget that
    /// is gone, or of a null one, does nothing, but stays and counts. Makes the monitor if needed;
    /// returns -1 without a QApplication.
    static int addHoverTask(QWidget * widget, unsigned int milliseconds);

    /// Removes the task with this id, the oldest one if there are several; an unknown id is
    /// ignored. An event that is posted already still arrives. Makes the monitor if needed.
    static void removeHoverTask(int id);

    ~KEventMonitor() override;

protected:
    bool eventFilter(QObject * watched, QEvent * event) override;
    void timerEvent(QTimerEvent * event) override;

private:
    struct PrivateData;

    explicit KEventMonitor(QObject * parent);

    static KEventMonitor * s_pEventMonitor;
    static int s_buttonState;

    std::unique_ptr<PrivateData> d;
    int m_timerId;
};

} // namespace zenu
