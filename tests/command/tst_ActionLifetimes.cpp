#include "tests/command/ManagerFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/command/CommandHandlers.h>

#include <QtCore/QEventLoop>
#include <QtCore/QSignalMapper>

using namespace zenu;
using zenutest::Managed;
using zenutest::stateOf;
using zenutest::tick;

// Actions and managers that go at bad moments.
class tst_ActionLifetimes : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void deletedAction_leavesTheMap();
    void deletedAction_disconnectedBefore_isNotTouched();
    void deletedAction_ofTheCursor_turnGoesToTheNext();
    void deletedAction_lastOfTheWalk_turnGoesToTheFirst();
    void deletedAction_beforeTheCursor_turnStays();
    void deletedActions_all_walkRests();
    void deletedAction_underTwoIds_leavesBoth();
    void deletedOwner_leavesNothing();
    void cmd_deletesTheAction();
    void cmd_clearsAll();
    void cmd_deletesTheManager();
    void cmd_closesTheWindowThatOwnsAll();
    void cmd_deletesTheManagerFromANestedLoop();
    void cmd_sendsAnotherCommand();
    void update_deletesTheManager_data();
    void update_deletesTheManager();
    void update_deletesItsAction_data();
    void update_deletesItsAction();
    void update_clearsAll_data();
    void update_clearsAll();
    void update_addsActions_data();
    void update_addsActions();
    void update_replacesItsAction_newOneGetsTheState();
    void toggled_deletesTheActionOrTheManager();
    void enabledChange_deletesTheAction();
    void clearAll_listenerAddsActions();
    void clearAll_listenerDeletesTheManager();
    void tick_inALoopWithinUpdate_asksForTheNext();

private:
    static void walkRows();
    static void walk(Managed & managed);
};

// The two ways to walk over the actions.
void tst_ActionLifetimes::walkRows()
{
    QTest::addColumn<bool>("byTicks");
    QTest::newRow("updateAll") << false;
    QTest::newRow("ticks") << true;
}

void tst_ActionLifetimes::walk(Managed & managed)
{
    QFETCH(bool, byTicks);
    if (byTicks) {
        managed.ticks(5);
    } else {
        managed.manager->updateAll();
    }
}

void tst_ActionLifetimes::deletedAction_leavesTheMap()
{
    Managed managed;
    managed.add(1);
    delete managed.add(2);
    QCOMPARE(managed.manager->size(), 1);
    QCOMPARE(managed.manager->getAction(2), managed.manager->getEmptyAction());
    managed.manager->updateAll();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("update 1"));
    managed.manager->block(true);
    managed.manager->clearAll();
}

void tst_ActionLifetimes::deletedAction_disconnectedBefore_isNotTouched()
{
    Managed managed;
    managed.add(1);
    QAction * const action = managed.add(2, true);
    action->disconnect();
    delete action;
    QCOMPARE(managed.manager->size(), 1);
    QCOMPARE(managed.manager->getAction(2), managed.manager->getEmptyAction());
    managed.manager->updateAll();
    managed.ticks(4);
    managed.manager->clearAll();
    QCOMPARE(managed.manager->size(), 0);
}

void tst_ActionLifetimes::deletedAction_ofTheCursor_turnGoesToTheNext()
{
    Managed managed;
    managed.add(1);
    QAction * const second = managed.add(2);
    managed.add(3);
    QCOMPARE(managed.ticks(1), QStringLiteral("1"));
    delete second;
    QCOMPARE(managed.ticks(3), QStringLiteral("3 1 3"));
}

void tst_ActionLifetimes::deletedAction_lastOfTheWalk_turnGoesToTheFirst()
{
    Managed managed;
    managed.add(1);
    managed.add(2);
    QAction * const third = managed.add(3);
    QCOMPARE(managed.ticks(2), QStringLiteral("1 2"));
    delete third;
    QCOMPARE(managed.ticks(3), QStringLiteral("1 2 1"));
}

void tst_ActionLifetimes::deletedAction_beforeTheCursor_turnStays()
{
    Managed managed;
    QAction * const first = managed.add(1);
    managed.add(2);
    managed.add(3);
    QCOMPARE(managed.ticks(2), QStringLiteral("1 2"));
    delete first;
    QCOMPARE(managed.ticks(3), QStringLiteral("3 2 3"));
}

void tst_ActionLifetimes::deletedActions_all_walkRests()
{
    Managed managed;
    QAction * const first = managed.add(1);
    QAction * const second = managed.add(2);
    delete first;
    delete second;
    QCOMPARE(managed.manager->size(), 0);
    QCOMPARE(managed.ticks(3), QString());
    managed.add(3);
    QCOMPARE(managed.ticks(2), QStringLiteral("3 3"));
}

void tst_ActionLifetimes::deletedAction_underTwoIds_leavesBoth()
{
    Managed managed;
    QAction * const action = managed.add(1);
    managed.manager->addAction(action, 2);
    managed.add(3);
    delete action;
    QCOMPARE(managed.manager->size(), 1);
    QCOMPARE(managed.ticks(2), QStringLiteral("3 3"));
}

void tst_ActionLifetimes::deletedOwner_leavesNothing()
{
    zenutest::Recorder handler;
    auto owner = std::make_unique<QObject>();
    KActionManager manager(owner.get(), &handler);
    SAction const table[] = {{.kind = 0, .id = 1}, {.kind = 1, .id = 2}, {}};
    manager.addActions(table, "c");
    owner.reset();
    QCOMPARE(manager.size(), 0);
    manager.updateAll();
    tick(manager);
    QCOMPARE(handler.takeCalls(), QString());
}

void tst_ActionLifetimes::cmd_deletesTheAction()
{
    Managed managed;
    QPointer<QAction> const action = managed.add(1, true);
    managed.add(2);
    managed.handler.onCmd = [&](unsigned) { delete action; };
    action->trigger();
    QVERIFY(!action);
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1 update 2"));
}

void tst_ActionLifetimes::cmd_clearsAll()
{
    Managed managed;
    QAction * const action = managed.add(1, true);
    managed.add(2);
    managed.handler.onCmd = [&](unsigned) { managed.manager->clearAll(); };
    action->trigger();
    QCOMPARE(managed.manager->size(), 0);
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1"));
}

void tst_ActionLifetimes::cmd_deletesTheManager()
{
    Managed managed;
    QAction * const action = managed.add(1);
    QPointer<QSignalMapper> const mapper = managed.manager->findChild<QSignalMapper *>();
    managed.handler.onCmd = [&](unsigned) { managed.manager.reset(); };
    action->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1"));
    action->trigger();
    QCOMPARE(managed.handler.takeCalls(), QString());
    QTRY_VERIFY(!mapper);
}

void tst_ActionLifetimes::cmd_closesTheWindowThatOwnsAll()
{
    // Handlers, manager and actions in one object, as in a window that deletes itself.
    struct Window : QObject
    {
        zenutest::Recorder handler;
        KDispatchHandler dispatcher;
        KTranslatingHandler translator{&dispatcher};
        KActionManager manager{this, &translator};
    };
    auto * const window = new Window;
    QPointer<QObject> const guard = window;
    SAction const table[] = {{.kind = 0, .id = 1}, {.kind = 1, .id = 2}, {}};
    window->manager.addActions(table, "c");
    window->translator.addMapping(2, 20);
    window->dispatcher.addHandler(20, &window->handler);
    window->dispatcher.addHandler(20, &window->handler);
    window->handler.onCmd = [&](unsigned) { delete guard; };
    window->manager.getAction(2)->trigger();
    QVERIFY(!guard);
}

void tst_ActionLifetimes::cmd_deletesTheManagerFromANestedLoop()
{
    Managed managed;
    QAction * const outer = managed.add(1);
    QAction * const inner = managed.add(2);
    QPointer<QSignalMapper> const mapper = managed.manager->findChild<QSignalMapper *>();
    bool mapperLivedOn = false;
    managed.handler.onCmd = [&](unsigned id) {
        if (id == 2) {
            managed.manager.reset();
            return;
        }
        QTimer::singleShot(0, inner, &QAction::trigger);
        QEventLoop loop;
        QTimer::singleShot(50, &loop, &QEventLoop::quit);
        loop.exec();
        // The outer call is still inside of it.
        mapperLivedOn = !mapper.isNull();
    };
    outer->trigger();
    QVERIFY(!managed.manager);
    QVERIFY(mapperLivedOn);
    QTRY_VERIFY(!mapper);
}

void tst_ActionLifetimes::cmd_sendsAnotherCommand()
{
    Managed managed;
    QAction * const first = managed.add(1);
    QAction * const second = managed.add(2);
    managed.handler.onCmd = [&](unsigned id) {
        if (id == 1) {
            second->trigger();
        }
    };
    first->trigger();
    QCOMPARE(managed.handler.takeCalls(),
             QStringLiteral("cmd 1 cmd 2 update 1 update 2 update 1 update 2"));
    QPointer<QSignalMapper> const mapper = managed.manager->findChild<QSignalMapper *>();
    managed.manager.reset();
    QVERIFY(!mapper); // nothing was under way any more
}

void tst_ActionLifetimes::update_deletesTheManager_data()
{
    walkRows();
}

void tst_ActionLifetimes::update_deletesTheManager()
{
    Managed managed;
    managed.add(1, true);
    managed.add(2);
    managed.handler.onUpdate = [&](unsigned) { managed.manager.reset(); };
    walk(managed);
    QVERIFY(!managed.manager);
}

void tst_ActionLifetimes::update_deletesItsAction_data()
{
    walkRows();
}

void tst_ActionLifetimes::update_deletesItsAction()
{
    Managed managed;
    managed.add(1);
    managed.add(3);
    QAction * const action = managed.add(2, true);
    managed.handler.onUpdate = [&](unsigned id) {
        if (id == 2) {
            delete action;
            managed.handler.onUpdate = nullptr;
        }
    };
    walk(managed);
    QCOMPARE(managed.manager->size(), 2);
    QCOMPARE(managed.ticks(3).size(), 5);
}

void tst_ActionLifetimes::update_clearsAll_data()
{
    walkRows();
}

void tst_ActionLifetimes::update_clearsAll()
{
    Managed managed;
    managed.add(1, true);
    managed.add(2);
    managed.handler.onUpdate = [&](unsigned) { managed.manager->clearAll(); };
    walk(managed);
    QCOMPARE(managed.manager->size(), 0);
    QCOMPARE(managed.ticks(2), QString());
}

void tst_ActionLifetimes::update_addsActions_data()
{
    walkRows();
}

void tst_ActionLifetimes::update_addsActions()
{
    Managed managed;
    managed.add(10);
    managed.handler.known[20].enabled = false;
    managed.handler.onUpdate = [&](unsigned) {
        managed.handler.onUpdate = nullptr;
        for (unsigned id = 1; id < 30; ++id) {
            managed.add(id);
        }
    };
    walk(managed);
    QCOMPARE(managed.manager->size(), 29);
    QFETCH(bool, byTicks);
    QCOMPARE(stateOf(managed.manager->getAction(20)), byTicks ? "on" : "off");
}

void tst_ActionLifetimes::update_replacesItsAction_newOneGetsTheState()
{
    Managed managed;
    QAction * const old = managed.add(1);
    QAction * now = nullptr;
    managed.handler.known[1].enabled = false;
    managed.handler.onUpdate = [&](unsigned) {
        managed.handler.onUpdate = nullptr;
        now = managed.add(1);
    };
    managed.manager->updateAll();
    QCOMPARE(stateOf(now), QStringLiteral("off"));
    QCOMPARE(stateOf(old), QStringLiteral("on"));
}

void tst_ActionLifetimes::toggled_deletesTheActionOrTheManager()
{
    for (bool const byTick : {false, true}) {
        for (bool const ofManager : {false, true}) {
            Managed managed;
            QPointer<QAction> const action = managed.add(1, true);
            managed.add(2);
            managed.handler.known[1].checked = 1;
            connect(action, &QAction::toggled, &managed.owner, [&] {
                if (ofManager) {
                    managed.manager.reset();
                } else {
                    delete action;
                }
            });
            if (byTick) {
                tick(*managed.manager);
            } else {
                managed.manager->updateAll();
            }
            QCOMPARE(!managed.manager, ofManager);
            QCOMPARE(!action, !ofManager);
        }
    }
}

void tst_ActionLifetimes::enabledChange_deletesTheAction()
{
    for (bool const byTick : {false, true}) {
        Managed managed;
        QPointer<QAction> const action = managed.add(1, true);
        managed.handler.known[1] = {false, 1, false};
        connect(action, &QAction::enabledChanged, &managed.owner, [&] { delete action; });
        if (byTick) {
            tick(*managed.manager);
        } else {
            managed.manager->updateAll();
        }
        QVERIFY(!action);
        QCOMPARE(managed.manager->size(), 0);
    }
}

void tst_ActionLifetimes::clearAll_listenerAddsActions()
{
    Managed managed;
    connect(managed.add(1), &QObject::destroyed, &managed.owner, [&] { managed.add(5); });
    managed.add(2);
    managed.manager->clearAll();
    QCOMPARE(managed.manager->size(), 1);
    QCOMPARE(managed.ticks(2), QStringLiteral("5 5"));
}

void tst_ActionLifetimes::clearAll_listenerDeletesTheManager()
{
    Managed managed;
    connect(managed.add(1), &QObject::destroyed, &managed.owner, [&] { managed.manager.reset(); });
    QPointer<QAction> const second = managed.add(2);
    managed.manager->clearAll();
    QVERIFY(!managed.manager);
    QVERIFY(!second);
}

void tst_ActionLifetimes::tick_inALoopWithinUpdate_asksForTheNext()
{
    Managed managed;
    managed.add(1);
    managed.add(2);
    managed.add(3);
    managed.handler.onUpdate = [&](unsigned id) {
        if (id == 1) {
            managed.handler.onUpdate = nullptr;
            tick(*managed.manager);
        }
    };
    QCOMPARE(managed.ticks(2), QStringLiteral("1 2 3"));
}

ZENU_TEST(tst_ActionLifetimes)
#include "tst_ActionLifetimes.moc"
