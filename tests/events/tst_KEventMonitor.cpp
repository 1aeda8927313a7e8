#include "tests/events/MonitorFixture.h"
#include "tests/support/TestMain.h"

#include <QtGui/QDropEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

using namespace zenu;
using zenutest::monitor;
using zenutest::Watched;

class tst_KEventMonitor : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void beforeInit_stateIsZeroAndNothingIsPosted();
    void init_makesOneNamedChildOfTheApplication();
    void init_again_doesNothing();
    void monitorDeleted_initMakesANewOne();
    void timer_is250Milliseconds();
    void cursorEvent_keepsWhatTheReceiverSets();
    void events_areCopiedWithTheirFields();
    void state_button_data();
    void state_button();
    void state_key_data();
    void state_key();
    void state_otherButtonsAndKeys_leaveItAlone();
    void state_doubleClick_leavesIt();
    void state_mouseMove_bringsAllUpToDate();
    void state_realEventsOfAWindow();
    void state_realDoubleClick_atEachEventOfTheWidget();
    void state_eventsOfAnyObject();
    void cursorEvent_eachInputEvent_data();
    void cursorEvent_eachInputEvent();
    void cursorEvent_dragEvents();
    void otherEvents_postNothingAndChangeNothing();
    void cursorEvent_isPostedNotSent();
    void cursorEvent_posIsThatOfTheCursorInTheReceiver();
    void cursorEvent_objectsThatAreNoWidgets_getNone();
    void filter_consumesNothing();
    void receiverDiesBeforeItsEvent_isSafe();

private:
    void post() { QCoreApplication::sendPostedEvents(m_widget.get(), CursorEventType); }

    std::unique_ptr<Watched> m_widget;
};

namespace {

QMouseEvent mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons = {},
                  Qt::KeyboardModifiers modifiers = {})
{
    return QMouseEvent(type, QPointF(1, 1), QPointF(1, 1), button, buttons, modifiers);
}

void sendMouse(QObject * to, QEvent::Type type, Qt::MouseButton button,
               Qt::MouseButtons buttons = {}, Qt::KeyboardModifiers modifiers = {})
{
    QMouseEvent event = mouse(type, button, buttons, modifiers);
    QCoreApplication::sendEvent(to, &event);
}

void sendKey(QObject * to, QEvent::Type type, int key)
{
    QKeyEvent event(type, key, Qt::NoModifier);
    QCoreApplication::sendEvent(to, &event);
}

} // namespace

void tst_KEventMonitor::init()
{
    Test::init();
    m_widget = std::make_unique<Watched>();
    m_widget->setGeometry(100, 80, 200, 120);
    m_widget->show();
    m_widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_widget.get()));
}

// The state outlives a monitor: a mouse move without buttons clears it for the next test.
void tst_KEventMonitor::cleanup()
{
    KEventMonitor::init();
    sendMouse(m_widget.get(), QEvent::MouseMove, Qt::NoButton);
    QCOMPARE(KEventMonitor::buttonState(), 0);
    delete monitor();
    m_widget.reset();
}

void tst_KEventMonitor::beforeInit_stateIsZeroAndNothingIsPosted()
{
    QVERIFY(!monitor());
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    sendKey(m_widget.get(), QEvent::KeyPress, Qt::Key_Shift);
    post();
    QCOMPARE(KEventMonitor::buttonState(), 0);
    QVERIFY(m_widget->cursorEvents.isEmpty());
}

void tst_KEventMonitor::init_makesOneNamedChildOfTheApplication()
{
    KEventMonitor::init();
    QVERIFY(monitor());
    QCOMPARE(monitor()->parent(), static_cast<QObject *>(qApp));
    QVERIFY(qobject_cast<KEventMonitor *>(monitor()));
}

void tst_KEventMonitor::init_again_doesNothing()
{
    KEventMonitor::init();
    QObject * const first = monitor();
    KEventMonitor::init();
    QCOMPARE(qApp->findChildren<QObject *>(QStringLiteral("zenuEventMonitor")),
             QList<QObject *>({first}));
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    post();
    QCOMPARE(m_widget->cursorEvents.size(), 1);
}

void tst_KEventMonitor::monitorDeleted_initMakesANewOne()
{
    KEventMonitor::init();
    delete monitor();
    QVERIFY(!monitor());
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(KEventMonitor::buttonState(), 0);
    KEventMonitor::init();
    QVERIFY(monitor());
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(KEventMonitor::buttonState(), 1);
}

void tst_KEventMonitor::timer_is250Milliseconds()
{
    KEventMonitor::init();
    auto const timers = QAbstractEventDispatcher::instance()->registeredTimers(monitor());
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().interval, 250);
    QCOMPARE(timers.first().timerType, Qt::PreciseTimer);
}

void tst_KEventMonitor::cursorEvent_keepsWhatTheReceiverSets()
{
    KCursorEvent event(QPoint(3, 4));
    QCOMPARE(int(event.type()), 1117);
    QCOMPARE(event.pos(), QPoint(3, 4));
    QCOMPARE(event.cursor().shape(), Qt::ArrowCursor);
    event.setCursor(QCursor(Qt::SizeHorCursor));
    QCOMPARE(event.cursor().shape(), Qt::SizeHorCursor);
    KMouseHoverEvent const hover(QPoint(5, 6), 7);
    QCOMPARE(int(hover.type()), 1118);
    QCOMPARE(hover.pos(), QPoint(5, 6));
    QCOMPARE(hover.id(), 7);
}

void tst_KEventMonitor::events_areCopiedWithTheirFields()
{
    KCursorEvent event(QPoint(3, 4));
    event.setCursor(QCursor(Qt::WaitCursor));
    std::unique_ptr<KCursorEvent> const copy(event.clone());
    QCOMPARE(copy->type(), CursorEventType);
    QCOMPARE(copy->pos(), QPoint(3, 4));
    QCOMPARE(copy->cursor().shape(), Qt::WaitCursor);
    std::unique_ptr<KMouseHoverEvent> const hover(KMouseHoverEvent(QPoint(5, 6), 7).clone());
    QCOMPARE(hover->type(), MouseHoverEventType);
    QCOMPARE(hover->pos(), QPoint(5, 6));
    QCOMPARE(hover->id(), 7);
}

void tst_KEventMonitor::state_button_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("bit");
    QTest::newRow("left") << Qt::LeftButton << 1;
    QTest::newRow("right") << Qt::RightButton << 2;
    QTest::newRow("middle") << Qt::MiddleButton << 4;
}

void tst_KEventMonitor::state_button()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, bit);
    KEventMonitor::init();
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, button, button);
    QCOMPARE(KEventMonitor::buttonState(), bit);
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, button, button);
    QCOMPARE(KEventMonitor::buttonState(), bit);
    sendKey(m_widget.get(), QEvent::KeyPress, Qt::Key_Control);
    QCOMPARE(KEventMonitor::buttonState(), bit | 512);
    sendMouse(m_widget.get(), QEvent::MouseButtonRelease, button);
    QCOMPARE(KEventMonitor::buttonState(), 512);
}

void tst_KEventMonitor::state_key_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("bit");
    QTest::newRow("shift") << int(Qt::Key_Shift) << 256;
    QTest::newRow("control") << int(Qt::Key_Control) << 512;
    QTest::newRow("alt") << int(Qt::Key_Alt) << 1024;
    QTest::newRow("meta") << int(Qt::Key_Meta) << 2048;
}

void tst_KEventMonitor::state_key()
{
    QFETCH(int, key);
    QFETCH(int, bit);
    KEventMonitor::init();
    sendKey(m_widget.get(), QEvent::KeyPress, key);
    QCOMPARE(KEventMonitor::buttonState(), bit);
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton);
    QCOMPARE(KEventMonitor::buttonState(), bit | 2);
    sendKey(m_widget.get(), QEvent::KeyRelease, key);
    QCOMPARE(KEventMonitor::buttonState(), 2);
}

void tst_KEventMonitor::state_otherButtonsAndKeys_leaveItAlone()
{
    KEventMonitor::init();
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::BackButton, Qt::BackButton);
    sendKey(m_widget.get(), QEvent::KeyPress, Qt::Key_A);
    sendKey(m_widget.get(), QEvent::KeyPress, Qt::Key_CapsLock);
    QCOMPARE(KEventMonitor::buttonState(), 1);
    sendMouse(m_widget.get(), QEvent::MouseButtonRelease, Qt::BackButton);
    sendKey(m_widget.get(), QEvent::KeyRelease, Qt::Key_A);
    QCOMPARE(KEventMonitor::buttonState(), 1);
    sendMouse(m_widget.get(), QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::BackButton,
              Qt::KeypadModifier);
    QCOMPARE(KEventMonitor::buttonState(), 1);
}

void tst_KEventMonitor::state_doubleClick_leavesIt()
{
    KEventMonitor::init();
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(KEventMonitor::buttonState(), 1);
    sendMouse(m_widget.get(), QEvent::MouseButtonRelease, Qt::LeftButton);
    QCOMPARE(KEventMonitor::buttonState(), 0);
    sendMouse(m_widget.get(), QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(KEventMonitor::buttonState(), 0);
    sendMouse(m_widget.get(), QEvent::MouseButtonRelease, Qt::LeftButton);
    QCOMPARE(KEventMonitor::buttonState(), 0);
}

void tst_KEventMonitor::state_mouseMove_bringsAllUpToDate()
{
    KEventMonitor::init();
    sendKey(m_widget.get(), QEvent::KeyPress, Qt::Key_Shift);
    sendMouse(m_widget.get(), QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton);
    sendMouse(m_widget.get(), QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::MiddleButton,
              Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    QCOMPARE(KEventMonitor::buttonState(), 1 | 4 | 512 | 1024 | 2048);
    sendMouse(m_widget.get(), QEvent::MouseMove, Qt::NoButton, Qt::RightButton, Qt::ShiftModifier);
    QCOMPARE(KEventMonitor::buttonState(), 2 | 256);
}

void tst_KEventMonitor::state_realEventsOfAWindow()
{
    KEventMonitor::init();
    QWindow * const window = m_widget->windowHandle();
    QPoint const at(30, 40);
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    QCOMPARE(KEventMonitor::buttonState(), 1);
    QTest::keyPress(window, Qt::Key_Shift);
    QCOMPARE(KEventMonitor::buttonState(), 1 | 256);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::ShiftModifier, at);
    QCOMPARE(KEventMonitor::buttonState(), 256);
    QTest::keyRelease(window, Qt::Key_Shift);
    QCOMPARE(KEventMonitor::buttonState(), 0);
}

void tst_KEventMonitor::state_realDoubleClick_atEachEventOfTheWidget()
{
    class States : public QWidget
    {
    public:
        QStringList seen; // "type state"
        bool event(QEvent * event) override
        {
            bool const counts = event->type() == QEvent::MouseButtonPress ||
                                event->type() == QEvent::MouseButtonRelease ||
                                event->type() == QEvent::MouseButtonDblClick;
            if (counts)
                seen
                    << QStringLiteral("%1 %2").arg(event->type()).arg(KEventMonitor::buttonState());
            return counts || QWidget::event(event);
        }
    };
    KEventMonitor::init();
    States widget;
    widget.setParent(m_widget.get());
    widget.setGeometry(0, 0, 100, 100);
    widget.show();
    // The window gets its second press as a press, before the widget gets it as a double click.
    QTest::mouseDClick(m_widget->windowHandle(), Qt::LeftButton, {}, QPoint(30, 40));
    QCOMPARE(widget.seen, QStringList({"2 1", "3 0", "4 1", "3 0"}));
    QCOMPARE(KEventMonitor::buttonState(), 0);
}

void tst_KEventMonitor::state_eventsOfAnyObject()
{
    KEventMonitor::init();
    QObject object;
    sendMouse(&object, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    sendKey(&object, QEvent::KeyPress, Qt::Key_Alt);
    QCOMPARE(KEventMonitor::buttonState(), 1 | 1024);
    sendMouse(&object, QEvent::MouseMove, Qt::NoButton, Qt::MiddleButton);
    QCOMPARE(KEventMonitor::buttonState(), 4);
}

void tst_KEventMonitor::cursorEvent_eachInputEvent_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("press") << QEvent::MouseButtonPress;
    QTest::newRow("release") << QEvent::MouseButtonRelease;
    QTest::newRow("move") << QEvent::MouseMove;
    QTest::newRow("key press") << QEvent::KeyPress;
    QTest::newRow("key release") << QEvent::KeyRelease;
}

void tst_KEventMonitor::cursorEvent_eachInputEvent()
{
    QFETCH(QEvent::Type, type);
    KEventMonitor::init();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease)
        sendKey(m_widget.get(), type, Qt::Key_A);
    else
        sendMouse(m_widget.get(), type, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton);
    post();
    QCOMPARE(m_widget->cursorEvents.size(), 1);
}

void tst_KEventMonitor::cursorEvent_dragEvents()
{
    KEventMonitor::init();
    QMimeData data;
    data.setText(QStringLiteral("dragged"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_widget.get(), &enter);
    post();
    QCOMPARE(m_widget->cursorEvents.size(), 1);
    QDragMoveEvent move(QPoint(6, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_widget.get(), &move);
    post();
    QCOMPARE(m_widget->cursorEvents.size(), 2);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_widget.get(), &leave);
    post();
    QCOMPARE(m_widget->cursorEvents.size(), 3);
    QCoreApplication::sendEvent(m_widget.get(), &enter);
    QDropEvent drop(QPointF(6, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_widget.get(), &drop);
    post();
    QCOMPARE(m_widget->cursorEvents.size(), 5);
}

void tst_KEventMonitor::otherEvents_postNothingAndChangeNothing()
{
    KEventMonitor::init();
    QPointF const at(1, 1);
    QMouseEvent doubleClick = mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
    QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Shift, Qt::ShiftModifier);
    QHoverEvent hover(QEvent::HoverMove, at, at, QPointF(2, 2));
    QEnterEvent enter(at, at, at);
    QWheelEvent wheel(at, at, QPoint(), QPoint(0, 120), Qt::LeftButton, Qt::ShiftModifier,
                      Qt::NoScrollPhase, false);
    QFocusEvent focus(QEvent::FocusIn);
    QEvent leave(QEvent::Leave);
    QEvent own(QEvent::Type(1119));
    KMouseHoverEvent ownHover(QPoint(1, 1), 0);
    QEvent * const events[] = {&doubleClick, &shortcut, &hover, &enter,   &wheel,
                               &focus,       &leave,    &own,   &ownHover};
    for (QEvent * event : events)
        QCoreApplication::sendEvent(m_widget.get(), event);
    post();
    QVERIFY(m_widget->cursorEvents.isEmpty());
    QCOMPARE(KEventMonitor::buttonState(), 0);
}

void tst_KEventMonitor::cursorEvent_isPostedNotSent()
{
    KEventMonitor::init();
    sendKey(m_widget.get(), QEvent::KeyPress, Qt::Key_A);
    QVERIFY(m_widget->cursorEvents.isEmpty());
    post();
    QCOMPARE(m_widget->cursorEvents.size(), 1);
}

void tst_KEventMonitor::cursorEvent_posIsThatOfTheCursorInTheReceiver()
{
    KEventMonitor::init();
    Watched child(m_widget.get());
    child.setGeometry(20, 10, 50, 50);
    child.show();
    QCursor::setPos(m_widget->mapToGlobal(QPoint(25, 30)));
    QTRY_COMPARE(QCursor::pos(), m_widget->mapToGlobal(QPoint(25, 30)));
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(&child, CursorEventType); // of the move
    child.cursorEvents.clear();
    sendKey(&child, QEvent::KeyPress, Qt::Key_A);
    QCoreApplication::sendPostedEvents(&child, CursorEventType);
    QCOMPARE(child.cursorEvents, QList<QPoint>({QPoint(5, 20)}));
}

void tst_KEventMonitor::cursorEvent_objectsThatAreNoWidgets_getNone()
{
    class Recorder : public QObject
    {
    public:
        int customEvents = 0;
        void customEvent(QEvent *) override { ++customEvents; }
    };
    KEventMonitor::init();
    Recorder object;
    sendKey(&object, QEvent::KeyPress, Qt::Key_A);
    QCoreApplication::sendPostedEvents(&object);
    QCOMPARE(object.customEvents, 0);
}

void tst_KEventMonitor::filter_consumesNothing()
{
    class Keys : public QWidget
    {
    public:
        int keys = 0;
        int presses = 0;
        void keyPressEvent(QKeyEvent *) override { ++keys; }
        void mousePressEvent(QMouseEvent *) override { ++presses; }
    };
    KEventMonitor::init();
    Keys widget;
    sendKey(&widget, QEvent::KeyPress, Qt::Key_Shift);
    sendMouse(&widget, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(widget.keys, 1);
    QCOMPARE(widget.presses, 1);
}

void tst_KEventMonitor::receiverDiesBeforeItsEvent_isSafe()
{
    KEventMonitor::init();
    {
        Watched widget;
        sendKey(&widget, QEvent::KeyPress, Qt::Key_A);
    }
    QCoreApplication::processEvents();
    QVERIFY(monitor());
}

ZENU_TEST(tst_KEventMonitor)
#include "tst_KEventMonitor.moc"
