#include "tests/command/ManagerFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Managed;
using zenutest::stateOf;

// Handlers and slots that call the manager that is calling them.
class tst_ActionReentry : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void update_callsUpdateAllEachTime_isAskedTwiceAtMost();
    void update_callsUpdateAllOnce_allAreAskedAgain_data();
    void update_callsUpdateAllOnce_allAreAskedAgain();
    void update_callsUpdateAllAndDeletesTheManager();
    void update_blocks_disablesAllAtOnce_data();
    void update_blocks_disablesAllAtOnce();
    void update_blocksAndUnblocksEachTime_ends_data();
    void update_blocksAndUnblocksEachTime_ends();
    void update_blocksAndDeletesTheManager();
    void update_triggersACommand_isPerformedAtOnce();
    void toggled_callsUpdateAll_isDoneAtOnce();

private:
    static void walkRows();
    static void walk(Managed & managed);
};

void tst_ActionReentry::walkRows()
{
    QTest::addColumn<bool>("byTicks");
    QTest::newRow("updateAll") << false;
    QTest::newRow("ticks") << true;
}

void tst_ActionReentry::walk(Managed & managed)
{
    QFETCH(bool, byTicks);
    if (byTicks) {
        managed.ticks(2);
    } else {
        managed.manager->updateAll();
    }
}

void tst_ActionReentry::update_callsUpdateAllEachTime_isAskedTwiceAtMost()
{
    Managed managed;
    managed.add(1);
    managed.add(2, true);
    managed.handler.onUpdate = [&](unsigned) { managed.manager->updateAll(); };
    managed.manager->updateAll();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("update 1 update 2 update 1 update 2"));
    QCOMPARE(managed.ticks(1), QStringLiteral("1 1 2 1 2"));
    managed.handler.onUpdate = nullptr;
    QCOMPARE(managed.ticks(2), QStringLiteral("2 1")); // nothing is left over
}

void tst_ActionReentry::update_callsUpdateAllOnce_allAreAskedAgain_data()
{
    walkRows();
}

void tst_ActionReentry::update_callsUpdateAllOnce_allAreAskedAgain()
{
    Managed managed;
    QAction * const first = managed.add(1);
    managed.add(2);
    managed.handler.known[1];
    managed.handler.onUpdate = [&](unsigned id) {
        if (id == 2) {
            managed.handler.onUpdate = nullptr;
            managed.handler.known[1].enabled = false;
            managed.manager->updateAll();
            QCOMPARE(stateOf(first), QStringLiteral("on")); // it waits
        }
    };
    walk(managed);
    QCOMPARE(stateOf(first), QStringLiteral("off"));
}

void tst_ActionReentry::update_callsUpdateAllAndDeletesTheManager()
{
    for (bool const byTick : {false, true}) {
        Managed managed;
        managed.add(1, true);
        managed.add(2);
        managed.handler.onUpdate = [&](unsigned) {
            managed.manager->updateAll();
            managed.manager.reset();
        };
        if (byTick) {
            managed.ticks(1);
        } else {
            managed.manager->updateAll();
        }
        QVERIFY(!managed.manager);
    }
}

void tst_ActionReentry::update_blocks_disablesAllAtOnce_data()
{
    walkRows();
}

void tst_ActionReentry::update_blocks_disablesAllAtOnce()
{
    Managed managed;
    QAction * const first = managed.add(1, true);
    QAction * const second = managed.add(2, true);
    QAction * const third = managed.add(3);
    managed.handler.known[1] = {true, 1, false};
    managed.handler.known[2] = {true, 1, false};
    managed.handler.onUpdate = [&](unsigned id) {
        if (id == 2) {
            managed.handler.onUpdate = nullptr;
            managed.manager->block(true);
            QCOMPARE(stateOf(first) + stateOf(third), QStringLiteral("offoff"));
        }
    };
    walk(managed);
    QCOMPARE(stateOf(first), QStringLiteral("off"));
    QCOMPARE(stateOf(second), QStringLiteral("off")); // though the handler has answered
    QCOMPARE(stateOf(third), QStringLiteral("off"));
}

void tst_ActionReentry::update_blocksAndUnblocksEachTime_ends_data()
{
    walkRows();
}

void tst_ActionReentry::update_blocksAndUnblocksEachTime_ends()
{
    Managed managed;
    QAction * const first = managed.add(1, true);
    QAction * const second = managed.add(2);
    managed.handler.known[1].checked = 1;
    managed.handler.known[2].enabled = false;
    managed.handler.onUpdate = [&](unsigned) {
        managed.manager->block(true);
        managed.manager->block(false);
    };
    walk(managed);
    managed.handler.onUpdate = nullptr;
    managed.ticks(2);
    QCOMPARE(stateOf(first), QStringLiteral("on checked"));
    QCOMPARE(stateOf(second), QStringLiteral("off"));
}

void tst_ActionReentry::update_blocksAndDeletesTheManager()
{
    for (bool const byTick : {false, true}) {
        Managed managed;
        QAction * const first = managed.add(1);
        managed.add(2);
        managed.handler.onUpdate = [&](unsigned) {
            managed.manager->block(true);
            managed.manager.reset();
        };
        if (byTick) {
            managed.ticks(1);
        } else {
            managed.manager->updateAll();
        }
        QVERIFY(!managed.manager);
        QCOMPARE(stateOf(first), QStringLiteral("off"));
    }
}

void tst_ActionReentry::update_triggersACommand_isPerformedAtOnce()
{
    Managed managed;
    QAction * const first = managed.add(1);
    QAction * const second = managed.add(2);
    managed.handler.onUpdate = [&](unsigned id) {
        if (id == 1) {
            managed.handler.onUpdate = nullptr;
            second->trigger();
        }
    };
    managed.handler.onCmd = [&](unsigned) { managed.handler.known[1].enabled = false; };
    managed.manager->updateAll();
    QCOMPARE(managed.handler.takeCalls(),
             QStringLiteral("update 1 cmd 2 update 2 update 1 update 2"));
    QCOMPARE(stateOf(first), QStringLiteral("off"));
}

// Such a slot is called between the questions, where nothing has to wait.
void tst_ActionReentry::toggled_callsUpdateAll_isDoneAtOnce()
{
    Managed managed;
    QAction * const first = managed.add(1);
    QAction * const second = managed.add(2, true);
    managed.handler.known[1];
    managed.handler.known[2].checked = 1;
    connect(second, &QAction::toggled, &managed.owner, [&] {
        managed.handler.known[1].enabled = false;
        managed.manager->updateAll();
        QCOMPARE(stateOf(first), QStringLiteral("off"));
    });
    managed.manager->updateAll();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("update 1 update 2 update 1 update 2"));
    QCOMPARE(stateOf(second), QStringLiteral("on checked"));
}

ZENU_TEST(tst_ActionReentry)
#include "tst_ActionReentry.moc"
