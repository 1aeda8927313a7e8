#pragma once

#include <zenu/events/KEventMonitor.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QTimerEvent>
#include <QtGui/QDragEnterEvent>
#include <QtWidgets/QWidget>

namespace zenutest {

// The monitor of the application, or null.
inline QObject * monitor()
{
    return qApp->findChild<QObject *>(QStringLiteral("zenuEventMonitor"));
}

// Writes down the events of the monitor as they arrive.
class Watched : public QWidget
{
public:
    explicit Watched(QWidget * parent = nullptr)
        : QWidget(parent)
    {
        setAcceptDrops(true);
    }

    QList<QPoint> cursorEvents;
    QStringList hovers; // "id x,y"

protected:
    void customEvent(QEvent * event) override
    {
        if (event->type() == zenu::CursorEventType)
            cursorEvents << static_cast<zenu::KCursorEvent *>(event)->pos();
        if (event->type() == zenu::MouseHoverEventType) {
            auto const & hover = *static_cast<zenu::KMouseHoverEvent *>(event);
            hovers << QStringLiteral("%1 %2,%3")
                          .arg(hover.id())
                          .arg(hover.pos().x())
                          .arg(hover.pos().y());
        }
    }
    void mousePressEvent(QMouseEvent *) override {}
    void mouseReleaseEvent(QMouseEvent *) override {}
    void keyPressEvent(QKeyEvent *) override {}
    void keyReleaseEvent(QKeyEvent *) override {}
    void wheelEvent(QWheelEvent *) override {}
    void dragEnterEvent(QDragEnterEvent * event) override { event->acceptProposedAction(); }
};

// Stands in for the monitor's clock: its timer does nothing any more, `tick` does.
class Clock : public QObject
{
public:
    explicit Clock(QObject * monitor)
        : m_monitor(monitor)
    {
        m_monitor->installEventFilter(this);
        auto const timers = QAbstractEventDispatcher::instance()->registeredTimers(m_monitor);
        if (timers.size() == 1)
            m_timerId = timers.first().timerId;
    }

    void tick(int count = 1)
    {
        for (int i = 0; i < count; ++i)
            send(m_timerId);
        QCoreApplication::sendPostedEvents(nullptr, zenu::MouseHoverEventType);
    }

    // A timer that is not the monitor's.
    void tickOfAnother() { send(m_timerId + 1); }

protected:
    bool eventFilter(QObject *, QEvent * event) override
    {
        return event->type() == QEvent::Timer && !m_ticking;
    }

private:
    void send(int id)
    {
        QTimerEvent event(id);
        m_ticking = true;
        QCoreApplication::sendEvent(m_monitor, &event);
        m_ticking = false;
    }

    QObject * m_monitor;
    int m_timerId = -1;
    bool m_ticking = false;
};

} // namespace zenutest
