#include "zenu/events/KEventMonitor.h"

#include <QtCore/QPointer>
#include <QtCore/QTimerEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zenu {

namespace {

constexpr int tickMilliseconds = 250;
constexpr double ticksPerMillisecond = 0.004;

// Whether the mouse moves, has been seen still once, or stands.
enum class Phase
{
    Moving,
    Settling,
    Still
};

struct HoverTask
{
    int id;
    unsigned int ticksLeft; // 0: has fired, or never will
    unsigned int ticks;
    QPointer<QWidget> widget;
};

unsigned int ticksOf(unsigned int milliseconds)
{
    return static_cast<unsigned int>(std::ceil(milliseconds * ticksPerMillisecond));
}

int buttonBit(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return ButtonStateLeft;
    case Qt::RightButton:
        return ButtonStateRight;
    case Qt::MiddleButton:
        return ButtonStateMiddle;
    default:
        return 0;
    }
}

int keyBit(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return ButtonStateShift;
    case Qt::Key_Control:
        return ButtonStateControl;
    case Qt::Key_Alt:
        return ButtonStateAlt;
    case Qt::Key_Meta:
        return ButtonStateMeta;
    default:
        return 0;
    }
}

int stateOf(QMouseEvent const & move)
{
    Qt::MouseButtons const buttons = move.buttons();
    Qt::KeyboardModifiers const keys = move.modifiers();
    return (buttons & Qt::LeftButton ? ButtonStateLeft : 0) |
           (buttons & Qt::RightButton ? ButtonStateRight : 0) |
           (buttons & Qt::MiddleButton ? ButtonStateMiddle : 0) |
           (keys & Qt::ShiftModifier ? ButtonStateShift : 0) |
           (keys & Qt::ControlModifier ? ButtonStateControl : 0) |
           (keys & Qt::AltModifier ? ButtonStateAlt : 0) |
           (keys & Qt::MetaModifier ? ButtonStateMeta : 0);
}

void setBit(int & state, int bit, bool on)
{
    state = on ? state | bit : state & ~bit;
}

void postCursorEvent(QObject * receiver)
{
    if (!receiver->isWidgetType())
        return;
    auto const * const widget = static_cast<QWidget const *>(receiver);
    QCoreApplication::postEvent(receiver, new KCursorEvent(widget->mapFromGlobal(QCursor::pos())));
}

} // namespace

KCursorEvent::KCursorEvent(QPoint const & pos)
    : QEvent(CursorEventType)
    , m_cursor(Qt::ArrowCursor)
    , m_pos(pos)
{
}

KCursorEvent::~KCursorEvent() = default;

KCursorEvent * KCursorEvent::clone() const
{
    return new KCursorEvent(*this);
}

KMouseHoverEvent::KMouseHoverEvent(QPoint const & pos, int id)
    : QEvent(MouseHoverEventType)
    , m_pos(pos)
    , m_id(id)
{
}

KMouseHoverEvent::~KMouseHoverEvent() = default;

KMouseHoverEvent * KMouseHoverEvent::clone() const
{
    return new KMouseHoverEvent(*this);
}

struct ZENU_HIDDEN KEventMonitor::PrivateData
{
    void mouseMoved();
    void tick();
    void serve(HoverTask & task) const;

    Phase phase = Phase::Moving;
    QPoint position; // where the mouse settled, global
    std::vector<HoverTask> tasks;
};

// Arms the tasks again. While the mouse only settles none has been served.
void KEventMonitor::PrivateData::mouseMoved()
{
    if (phase == Phase::Still) {
        for (HoverTask & task : tasks)
            task.ticksLeft = task.ticks;
    }
    phase = Phase::Moving;
}

void KEventMonitor::PrivateData::tick()
{
    if (phase == Phase::Moving) {
        position = QCursor::pos();
        phase = Phase::Settling;
        return;
    }
    for (HoverTask & task : tasks)
        serve(task);
    phase = Phase::Still;
}

// A task whose widget does not hold the mouse spends its count all the same, and so do all tasks
// while a modal dialog is open.
void KEventMonitor::PrivateData::serve(HoverTask & task) const
{
    if (task.ticksLeft == 0 || --task.ticksLeft != 0 || !task.widget)
        return;
    QPoint const pos = task.widget->mapFromGlobal(position);
    if (task.widget->rect().contains(pos) && !QApplication::activeModalWidget())
        QCoreApplication::postEvent(task.widget, new KMouseHoverEvent(pos, task.id));
}

KEventMonitor * KEventMonitor::s_pEventMonitor = nullptr;
int KEventMonitor::s_buttonState = 0;

void KEventMonitor::init()
{
    auto * const application = qobject_cast<QApplication *>(QCoreApplication::instance());
    if (s_pEventMonitor || !application)
        return;
    s_pEventMonitor = new KEventMonitor(application);
    application->installEventFilter(s_pEventMonitor);
}

int KEventMonitor::addHoverTask(QWidget * widget, unsigned int milliseconds)
{
    init();
    if (!s_pEventMonitor)
        return -1;
    std::vector<HoverTask> & tasks = s_pEventMonitor->d->tasks;
    int const id = static_cast<int>(tasks.size());
    unsigned int const ticks = ticksOf(milliseconds);
    tasks.push_back({id, ticks, ticks, widget});
    return id;
}

void KEventMonitor::removeHoverTask(int id)
{
    if (!s_pEventMonitor) {
        init();
        return;
    }
    std::vector<HoverTask> & tasks = s_pEventMonitor->d->tasks;
    auto const found = std::find_if(tasks.begin(), tasks.end(),
                                    [id](HoverTask const & task) { return task.id == id; });
    if (found != tasks.end())
        tasks.erase(found);
}

KEventMonitor::KEventMonitor(QObject * parent)
    : QObject(parent)
    , d(std::make_unique<PrivateData>())
    , m_timerId(startTimer(tickMilliseconds, Qt::PreciseTimer))
{
    setObjectName(QStringLiteral("zenuEventMonitor"));
}

KEventMonitor::~KEventMonitor()
{
    if (s_pEventMonitor == this)
        s_pEventMonitor = nullptr;
}

bool KEventMonitor::eventFilter(QObject * watched, QEvent * event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        setBit(s_buttonState, keyBit(static_cast<QKeyEvent *>(event)->key()),
               event->type() == QEvent::KeyPress);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        setBit(s_buttonState, buttonBit(static_cast<QMouseEvent *>(event)->button()),
               event->type() == QEvent::MouseButtonPress);
        break;
    case QEvent::MouseMove:
        s_buttonState = stateOf(*static_cast<QMouseEvent *>(event));
        d->mouseMoved();
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        break;
    default:
        return false;
    }
    postCursorEvent(watched);
    return false;
}

void KEventMonitor::timerEvent(QTimerEvent * event)
{
    if (event->timerId() == m_timerId)
        d->tick();
}

} // namespace zenu
