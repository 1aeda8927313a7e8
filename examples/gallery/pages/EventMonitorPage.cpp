#include "examples/gallery/Page.h"

#include <zenu/events/KEventMonitor.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

namespace gallery {

namespace {

// [code]
// Shows what is held down, which cursor belongs to the place, and where the mouse rests.
class Watched : public QWidget
{
public:
    Watched()
    {
        setMouseTracking(true);
        zenu::KEventMonitor::init();
        m_task = zenu::KEventMonitor::addHoverTask(this, 500);
    }
    ~Watched() override { zenu::KEventMonitor::removeHoverTask(m_task); }

private:
    void customEvent(QEvent * event) override
    {
        if (event->type() == zenu::CursorEventType) {
            auto * const question = static_cast<zenu::KCursorEvent *>(event);
            bool const left = question->pos().x() < width() / 2;
            question->setCursor(left ? Qt::PointingHandCursor : Qt::CrossCursor);
            setCursor(question->cursor());
            m_down = zenu::KEventMonitor::buttonState();
        } else if (event->type() == zenu::MouseHoverEventType) {
            m_rest = static_cast<zenu::KMouseHoverEvent *>(event)->pos();
        }
        update();
    }

    int m_task = -1;
    int m_down = 0;
    QPoint m_rest;
    // [code]

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        QRect const left(0, 0, width() / 2, height());
        painter.fillRect(rect(), palette().base());
        painter.fillRect(left, palette().alternateBase());
        painter.drawText(rect().adjusted(0, 8, 0, 0), Qt::AlignHCenter,
                         tr("Buttons and keys %1").arg(m_down));
        painter.drawText(left, Qt::AlignCenter, tr("A hand"));
        painter.drawText(rect().adjusted(width() / 2, 0, 0, 0), Qt::AlignCenter, tr("A cross"));
        if (!m_rest.isNull()) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawEllipse(m_rest, 10, 10);
            painter.drawText(m_rest + QPoint(16, 5), tr("Rested here"));
        }
    }

    QSize sizeHint() const override { return QSize(400, 160); }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    int task() const { return m_task; }
};

class WatchedPage : public Watched, public PictureScene
{
    void pose() override
    {
        QPointF const place(90, 120);
        QMouseEvent press(QEvent::MouseButtonPress, place, mapToGlobal(place), Qt::LeftButton,
                          Qt::LeftButton, Qt::ControlModifier);
        QCoreApplication::sendEvent(this, &press);
        zenu::KMouseHoverEvent rest(place.toPoint(), task());
        QCoreApplication::sendEvent(this, &rest);
        QCoreApplication::sendPostedEvents(this);
        QMouseEvent release(QEvent::MouseButtonRelease, place, mapToGlobal(place), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &release);
        QCoreApplication::removePostedEvents(this, zenu::CursorEventType);
    }
};

QWidget * makeWatched()
{
    return new WatchedPage;
}

} // namespace

Page eventMonitorPage()
{
    return {"EventMonitor",
            "Which buttons and keys are down, which cursor belongs where, and where the mouse "
            "rests: hold keys and buttons, move, and wait.",
            {"KEventMonitor", "KCursorEvent", "KMouseHoverEvent"},
            makeWatched};
}

} // namespace gallery
