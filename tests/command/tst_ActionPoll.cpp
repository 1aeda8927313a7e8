#include "tests/command/ManagerFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/command/CommandHandlers.h>

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>

#include <atomic>

using namespace zenu;
using zenutest::Managed;
using zenutest::stateOf;
using zenutest::tick;

// The hooks of the address sanitizer, which see what the toolkit allocates too. Null without it.
extern "C" [[gnu::weak]] int
__sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(void const volatile *, std::size_t),
                                          void (*onFree)(void const volatile *));

namespace {

std::atomic<long> allocations = 0;

// Real widgets over a chain of all three handlers.
struct Window
{
    enum Ids : unsigned
    {
        First = 1,
        Second = 2,
        ModeA = 3,
        ModeB = 4
    };

    Window()
    {
        static SAction const table[] = {
            {.kind = ActionPlain,
             .id = First,
             .text = "First",
             .accel = (Qt::CTRL | Qt::Key_1).toCombined()},
            {.kind = ActionToggle, .id = Second, .text = "Second", .accel = Qt::Key_F7},
            {.kind = ActionToggle, .id = ModeA, .text = "A", .accel = Qt::Key_F2},
            {.kind = ActionToggle, .id = ModeB, .text = "B", .accel = Qt::Key_F3},
            {}};
        static KTranslatingHandler::IDPair const pairs[] = {
            {1, 101}, {2, 102}, {3, 103}, {4, 104}, {0, 0}};
        translator.addMappings(pairs);
        for (unsigned const id : {101U, 102U, 103U, 104U}) {
            dispatcher.addHandler(id, &demultiplexer);
        }
        dispatcher.addHandler(101, &watcher);
        for (unsigned const id : {201U, 202U, 301U, 302U}) {
            target.known[id];
        }
        target.isRecordingUpdates = false;
        watcher.isRecordingUpdates = false;
        manager.addActions(table, "Window");
        menu = window.menuBar()->addMenu(QStringLiteral("&Menu"));
        auto * const bar = window.addToolBar(QStringLiteral("bar"));
        for (unsigned id = First; id <= ModeB; ++id) {
            menu->addAction(manager.getAction(id));
            bar->addAction(manager.getAction(id));
        }
        manager.autoUpdateMenu(menu);
        window.resize(300, 100);
        window.show();
        window.activateWindow();
        button = qobject_cast<QToolButton *>(bar->widgetForAction(manager.getAction(First)));
    }

    QString states() const
    {
        QStringList list;
        for (unsigned id = First; id <= ModeB; ++id) {
            list << stateOf(manager.getAction(id));
        }
        return list.join(QLatin1Char('|'));
    }

    zenutest::Recorder target;
    zenutest::Recorder watcher;
    unsigned int const modes[10] = {2, 101, 102, 103, 201, 202, 104, 301, 302, 0};
    KDemultiplexingHandler demultiplexer{&target, modes};
    KDispatchHandler dispatcher;
    KTranslatingHandler translator{&dispatcher};
    QMainWindow window;
    KActionManager manager{&window, &translator};
    QMenu * menu = nullptr;
    QToolButton * button = nullptr;
};

} // namespace

class tst_ActionPoll : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void timer_runsAsLongAsTheManager();
    void timer_followsTheHandler();
    void timer_asksForOneActionATick();
    void tick_allocatesNothing();
    void chain_startsInTheFirstMode();
    void chain_modeChangesWhereCommandsGo();
    void chain_dispatcherTellsAllHandlers();
    void key_performsTheCommand();
    void key_ofADisabledAction_doesNot();
    void toolButton_performsAndFollows();
    void menu_isUpToDateWhenItOpens();
    void menu_commandMayDeleteItsActions();
    void toolButton_commandMayDeleteItsActions();
};

void tst_ActionPoll::timer_runsAsLongAsTheManager()
{
    Managed managed;
    managed.add(1);
    QTRY_VERIFY(managed.handler.calls.size() > 3);
    managed.manager->block(true);
    managed.manager->block(false);
    managed.manager->clearAll();
    managed.add(2);
    managed.handler.takeCalls();
    QTRY_VERIFY(managed.handler.calls.size() > 3);
    managed.manager.reset();
    managed.handler.takeCalls();
    QCoreApplication::processEvents();
    QCOMPARE(managed.handler.takeCalls(), QString());
}

void tst_ActionPoll::timer_followsTheHandler()
{
    Managed managed;
    QAction * const plain = managed.add(1);
    QAction * const toggle = managed.add(2, true);
    managed.handler.known[1] = {false, 0, false};
    managed.handler.known[2] = {true, 1, false};
    QTRY_COMPARE(stateOf(plain), QStringLiteral("off"));
    QTRY_COMPARE(stateOf(toggle), QStringLiteral("on checked"));
    managed.handler.known[1].enabled = true;
    managed.handler.known[2] = {false, 0, false};
    QTRY_COMPARE(stateOf(plain), QStringLiteral("on"));
    QTRY_COMPARE(stateOf(toggle), QStringLiteral("off"));
}

// At 3 milliseconds a tick, n ticks take at least 3 (n - 1) of them.
void tst_ActionPoll::timer_asksForOneActionATick()
{
    Managed managed;
    for (unsigned id = 1; id <= 50; ++id) {
        managed.add(id);
    }
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY(managed.handler.calls.contains(QStringLiteral("update 50")));
    QVERIFY(clock.elapsed() >= 3 * 48);
    QStringList expected;
    for (unsigned id = 1; id <= 50; ++id) {
        expected << QStringLiteral("update %1").arg(id);
    }
    QCOMPARE(managed.handler.calls.mid(0, 50), expected);
}

void tst_ActionPoll::tick_allocatesNothing()
{
    if (!__sanitizer_install_malloc_and_free_hooks) {
        QSKIP("needs the address sanitizer");
    }
    // Hooks cannot be taken away again, so they count for the rest of the program.
    static bool const areInstalled = __sanitizer_install_malloc_and_free_hooks(
        [](void const volatile *, std::size_t) { ++allocations; }, [](void const volatile *) {});
    QVERIFY(areInstalled);
    Window window;
    window.manager.updateAll();
    long const before = allocations;
    for (int i = 0; i < 100; ++i) {
        tick(window.manager);
    }
    QCOMPARE(long(allocations) - before, 0L);
    // And the first of a fresh manager.
    Managed fresh;
    fresh.add(1, true);
    fresh.handler.isRecordingUpdates = false;
    long const beforeTheFirst = allocations;
    tick(*fresh.manager);
    QCOMPARE(long(allocations) - beforeTheFirst, 0L);
    fresh.add(2);
    QVERIFY(long(allocations) > beforeTheFirst); // the hooks do count
}

void tst_ActionPoll::chain_startsInTheFirstMode()
{
    Window window;
    QTRY_COMPARE(window.states(), QStringLiteral("on|on|on checked|on"));
    window.manager.getAction(Window::First)->trigger();
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 201"));
}

void tst_ActionPoll::chain_modeChangesWhereCommandsGo()
{
    Window window;
    window.target.known[302] = {false, 1, false};
    window.manager.getAction(Window::ModeB)->trigger();
    QCOMPARE(window.states(), QStringLiteral("on|off checked|on|on checked"));
    window.manager.getAction(Window::First)->trigger();
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 301"));
    window.manager.getAction(Window::ModeA)->trigger();
    QCOMPARE(window.states(), QStringLiteral("on|on|on checked|on"));
}

void tst_ActionPoll::chain_dispatcherTellsAllHandlers()
{
    Window window;
    window.manager.getAction(Window::First)->trigger();
    QCOMPARE(window.watcher.takeCalls(), QStringLiteral("cmd 101"));
    window.dispatcher.setExclusive(true);
    window.manager.getAction(Window::First)->trigger();
    QCOMPARE(window.watcher.takeCalls(), QString());
}

void tst_ActionPoll::key_performsTheCommand()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.window));
    QTest::keyClick(&window.window, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 201"));
    QTest::keyClick(&window.window, Qt::Key_F3);
    QTest::keyClick(&window.window, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 301"));
    QTest::keyClick(&window.window, Qt::Key_F7);
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 302"));
}

void tst_ActionPoll::key_ofADisabledAction_doesNot()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.window));
    window.target.known[201].enabled = false;
    QTRY_VERIFY(!window.manager.getAction(Window::First)->isEnabled());
    QTest::keyClick(&window.window, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(window.target.takeCalls(), QString());
    window.target.known[201].enabled = true;
    QTRY_VERIFY(window.manager.getAction(Window::First)->isEnabled());
    QTest::keyClick(&window.window, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 201"));
}

void tst_ActionPoll::toolButton_performsAndFollows()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowExposed(&window.window));
    QVERIFY(window.button);
    QTest::mouseClick(window.button, Qt::LeftButton);
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 201"));
    window.target.known[201].enabled = false;
    QTRY_VERIFY(!window.button->isEnabled());
    QTest::mouseClick(window.button, Qt::LeftButton);
    QCOMPARE(window.target.takeCalls(), QString());
    QCOMPARE(window.button->toolTip(), QStringLiteral("First (Ctrl+1)"));
}

void tst_ActionPoll::menu_isUpToDateWhenItOpens()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowExposed(&window.window));
    window.target.known[202] = {false, 1, false};
    window.menu->popup(window.window.mapToGlobal(QPoint(10, 40)));
    QCOMPARE(stateOf(window.manager.getAction(Window::Second)), QStringLiteral("off checked"));
    QTRY_VERIFY(window.menu->isVisible());
    QTest::mouseClick(window.menu, Qt::LeftButton, Qt::NoModifier,
                      window.menu->actionGeometry(window.manager.getAction(1)).center());
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 201"));
}

void tst_ActionPoll::menu_commandMayDeleteItsActions()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowExposed(&window.window));
    window.target.onCmd = [&](unsigned) { window.manager.clearAll(); };
    window.menu->popup(window.window.mapToGlobal(QPoint(10, 40)));
    QTRY_VERIFY(window.menu->isVisible());
    QTest::mouseClick(window.menu, Qt::LeftButton, Qt::NoModifier,
                      window.menu->actionGeometry(window.manager.getAction(1)).center());
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 201"));
    QCOMPARE(window.manager.size(), 0);
    QVERIFY(window.menu->isEmpty());
}

void tst_ActionPoll::toolButton_commandMayDeleteItsActions()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowExposed(&window.window));
    window.target.onCmd = [&](unsigned) { window.manager.clearAll(); };
    QTest::mouseClick(window.button, Qt::LeftButton);
    QCOMPARE(window.target.takeCalls(), QStringLiteral("cmd 201"));
    QCOMPARE(window.manager.size(), 0);
}

ZENU_TEST(tst_ActionPoll)
#include "tst_ActionPoll.moc"
