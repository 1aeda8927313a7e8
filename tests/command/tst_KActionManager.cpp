#include "tests/command/ManagerFixture.h"
#include "tests/support/TestMain.h"

#include <QtCore/QSignalMapper>
#include <QtWidgets/QMenu>
#include <QtWidgets/QWidget>

using namespace zenu;
using zenutest::Managed;
using zenutest::stateOf;
using zenutest::tick;

class tst_KActionManager : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void manager_hasNoParentAndNoName();
    void getAction_unknownId_isTheEmptyAction();
    void emptyAction_hasTheParentGivenAndStaysEnabled();
    void emptyAction_goneWithItsParent_isMadeAnew();
    void addAction_null_isSkipped();
    void addAction_sameId_replacesButStaysConnected();
    void addAction_sameActionTwice_sendsOneCommand();
    void addAction_actionUnderTwoIds_sendsTheLast();
    void addAction_largestId_arrivesWhole();
    void trigger_performsThenUpdatesAll();
    void trigger_ofAToggle_isPutRightByTheHandler();
    void updateAll_asksInAscendingIds();
    void updateAll_answerFalse_leavesEnabledAndSetsToggleOff();
    void updateAll_setsOnlyWhatDiffers();
    void updateAll_ignoresTheAnswerAndTakesTheObject();
    void updateAll_doesNotCheckPlainActions();
    void updateSingle_setsWithoutComparing();
    void updateSingle_walksInTurn();
    void updateSingle_withoutActions_doesNothing();
    void cursor_addAction_startsAgain();
    void cursor_clearAll_restsUntilAnActionComes();
    void block_disablesAndUnchecksAtOnce();
    void block_doesNotAskTheHandler();
    void block_walkKeepsForcing();
    void block_disabledActionSendsNothing();
    void block_actionThatIsEnabledByForce_sends();
    void unblock_restoresWhatTheHandlerSays();
    void clearAll_deletesActionsButNotTheEmptyOne();
    void destructor_leavesActionsToTheirParents();
    void destructor_deletesItsChildrenAndTheParentlessEmptyAction();
    void autoUpdateMenu_menuThatOpensIsUpToDate();
    void autoUpdateMenu_null_isSkipped();
    void connect_throughQObjectByName_works();
};

void tst_KActionManager::manager_hasNoParentAndNoName()
{
    QObject parent;
    Managed managed(&parent);
    QCOMPARE(managed.manager->parent(), nullptr);
    QCOMPARE(managed.manager->objectName(), QString());
    QCOMPARE(managed.manager->qObject(), managed.manager.get());
    QCOMPARE(managed.manager->size(), 0);
    QVERIFY(!managed.manager->isBlocked());
    QCOMPARE(managed.manager->findChildren<QSignalMapper *>().size(), 1);
}

void tst_KActionManager::getAction_unknownId_isTheEmptyAction()
{
    Managed managed;
    QVERIFY(managed.manager->getEmptyAction());
    QCOMPARE(managed.manager->getAction(5), managed.manager->getEmptyAction());
    QAction * const action = managed.add(5);
    QCOMPARE(managed.manager->getAction(5), action);
    QCOMPARE(managed.manager->getAction(6), managed.manager->getEmptyAction());
    QCOMPARE(managed.manager->size(), 1);
}

void tst_KActionManager::emptyAction_hasTheParentGivenAndStaysEnabled()
{
    QObject parent;
    Managed managed(&parent);
    QCOMPARE(managed.manager->getEmptyAction()->parent(), &parent);
    QCOMPARE(managed.manager->getEmptyAction()->objectName(), QString());
    managed.add(1);
    managed.manager->block(true);
    managed.ticks(3);
    QCOMPARE(stateOf(managed.manager->getEmptyAction()), QStringLiteral("on"));
    Managed alone;
    QCOMPARE(alone.manager->getEmptyAction()->parent(), nullptr);
}

void tst_KActionManager::emptyAction_goneWithItsParent_isMadeAnew()
{
    auto parent = std::make_unique<QObject>();
    Managed managed(parent.get());
    parent.reset();
    QVERIFY(managed.manager->getAction(1));
    QCOMPARE(managed.manager->getAction(1), managed.manager->getEmptyAction());
    SAction const table[] = {{.kind = ActionPlain, .id = 3, .text = "x"}, {}};
    managed.manager->addActions(table, "c");
    QCOMPARE(managed.manager->getAction(3)->parent(), managed.manager.get());
}

void tst_KActionManager::addAction_null_isSkipped()
{
    Managed managed;
    managed.manager->addAction(nullptr, 1);
    QCOMPARE(managed.manager->size(), 0);
}

void tst_KActionManager::addAction_sameId_replacesButStaysConnected()
{
    Managed managed;
    QAction * const old = managed.add(1);
    QAction * const now = managed.add(1);
    managed.handler.known[1].enabled = false;
    QCOMPARE(managed.manager->size(), 1);
    QCOMPARE(managed.manager->getAction(1), now);
    managed.manager->updateAll();
    QCOMPARE(stateOf(now), QStringLiteral("off"));
    QCOMPARE(stateOf(old), QStringLiteral("on"));
    managed.handler.takeCalls();
    old->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1 update 1"));
}

void tst_KActionManager::addAction_sameActionTwice_sendsOneCommand()
{
    Managed managed;
    QAction * const action = managed.add(1);
    managed.manager->addAction(action, 1);
    QCOMPARE(managed.manager->size(), 1);
    action->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1 update 1"));
}

void tst_KActionManager::addAction_actionUnderTwoIds_sendsTheLast()
{
    Managed managed;
    QAction * const action = managed.add(2);
    managed.manager->addAction(action, 1);
    QCOMPARE(managed.manager->size(), 2);
    action->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1 update 1 update 2"));
    managed.manager->clearAll();
    QCOMPARE(managed.manager->size(), 0);
}

void tst_KActionManager::addAction_largestId_arrivesWhole()
{
    Managed managed;
    managed.add(4294967295U)->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 4294967295 update 4294967295"));
}

void tst_KActionManager::trigger_performsThenUpdatesAll()
{
    Managed managed;
    QAction * const first = managed.add(1);
    QAction * const second = managed.add(2);
    managed.handler.known[1];
    managed.handler.known[2];
    managed.handler.onCmd = [&](unsigned) { managed.handler.known[2].enabled = false; };
    first->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1 update 1 update 2"));
    QCOMPARE(stateOf(second), QStringLiteral("off"));
}

void tst_KActionManager::trigger_ofAToggle_isPutRightByTheHandler()
{
    Managed managed;
    QAction * const action = managed.add(1, true);
    managed.handler.known[1].checked = 0;
    action->trigger();
    QCOMPARE(stateOf(action), QStringLiteral("on"));
    managed.handler.known[1].checked = 1;
    action->trigger();
    QCOMPARE(stateOf(action), QStringLiteral("on checked"));
}

void tst_KActionManager::updateAll_asksInAscendingIds()
{
    Managed managed;
    for (unsigned const id : {4000000000U, 3U, 1U, 2U}) {
        managed.add(id);
    }
    managed.manager->updateAll();
    QCOMPARE(managed.handler.takeCalls(),
             QStringLiteral("update 1 update 2 update 3 update 4000000000"));
}

void tst_KActionManager::updateAll_answerFalse_leavesEnabledAndSetsToggleOff()
{
    Managed managed;
    QAction * const plain = managed.add(1);
    QAction * const toggle = managed.add(2, true);
    plain->setEnabled(false);
    toggle->setEnabled(false);
    toggle->setChecked(true);
    managed.manager->updateAll();
    QCOMPARE(stateOf(plain), QStringLiteral("on"));
    QCOMPARE(stateOf(toggle), QStringLiteral("on"));
    // The same by the timer.
    toggle->setChecked(true);
    plain->setEnabled(false);
    managed.ticks(2);
    QCOMPARE(stateOf(plain), QStringLiteral("on"));
    QCOMPARE(stateOf(toggle), QStringLiteral("on"));
}

void tst_KActionManager::updateAll_setsOnlyWhatDiffers()
{
    Managed managed;
    QAction * const action = managed.add(1, true);
    managed.manager->updateAll();
    QSignalSpy const changes(action, &QAction::changed);
    managed.manager->updateAll();
    QCOMPARE(changes.size(), 0);
    managed.handler.known[1] = {false, 3, true};
    managed.manager->updateAll();
    QCOMPARE(changes.size(), 2);
    QCOMPARE(stateOf(action), QStringLiteral("off checked"));
    managed.manager->updateAll();
    QCOMPARE(changes.size(), 2);
}

void tst_KActionManager::updateAll_ignoresTheAnswerAndTakesTheObject()
{
    class SaysNo : public ICommandHandler
    {
    public:
        bool cmd(unsigned int) override { return false; }
        bool update(unsigned int, ICommandUpdate * state) override
        {
            state->setEnabled(false);
            return false;
        }
    };
    SaysNo handler;
    KActionManager manager(nullptr, &handler);
    QAction action;
    manager.addAction(&action, 1);
    manager.updateAll();
    QCOMPARE(stateOf(&action), QStringLiteral("off"));
}

void tst_KActionManager::updateAll_doesNotCheckPlainActions()
{
    Managed managed;
    QAction * const action = managed.add(1);
    managed.handler.known[1].checked = 1;
    managed.manager->updateAll();
    managed.ticks(1);
    QVERIFY(!action->isCheckable());
    // An unchecked state is kept inside an action that is no toggle.
    action->setCheckable(true);
    QVERIFY(!action->isChecked());
}

// An action of an invisible kind shows the difference: it is never enabled, so that a comparison
// would set it each time, and its own wish is set without one.
void tst_KActionManager::updateSingle_setsWithoutComparing()
{
    Managed managed;
    QAction * const action = managed.add(1);
    action->setVisible(false);
    QVERIFY(!action->isEnabled());
    managed.handler.known[1].enabled = false;
    managed.manager->updateAll(); // nothing differs, so nothing is set
    action->setVisible(true);
    QCOMPARE(stateOf(action), QStringLiteral("on"));
    action->setVisible(false);
    managed.ticks(1); // sets it all the same
    action->setVisible(true);
    QCOMPARE(stateOf(action), QStringLiteral("off"));
}

void tst_KActionManager::updateSingle_walksInTurn()
{
    Managed managed;
    for (unsigned const id : {30U, 10U, 20U}) {
        managed.add(id);
    }
    QCOMPARE(managed.ticks(7), QStringLiteral("10 20 30 10 20 30 10"));
}

void tst_KActionManager::updateSingle_withoutActions_doesNothing()
{
    Managed managed;
    QCOMPARE(managed.ticks(3), QString());
}

void tst_KActionManager::cursor_addAction_startsAgain()
{
    Managed managed;
    managed.add(10);
    managed.add(20);
    managed.add(30);
    QCOMPARE(managed.ticks(2), QStringLiteral("10 20"));
    managed.add(15);
    QCOMPARE(managed.ticks(4), QStringLiteral("10 15 20 30"));
    managed.ticks(1);
    managed.add(5);
    QCOMPARE(managed.ticks(3), QStringLiteral("5 10 15"));
    managed.add(30); // replaced
    QCOMPARE(managed.ticks(1), QStringLiteral("5"));
}

void tst_KActionManager::cursor_clearAll_restsUntilAnActionComes()
{
    Managed managed;
    managed.manager->clearAll();
    QCOMPARE(managed.ticks(2), QString());
    managed.add(1);
    managed.add(2);
    managed.ticks(1);
    managed.manager->clearAll();
    QCOMPARE(managed.ticks(2), QString());
    managed.add(3);
    QCOMPARE(managed.ticks(2), QStringLiteral("3 3"));
}

void tst_KActionManager::block_disablesAndUnchecksAtOnce()
{
    Managed managed;
    QAction * const plain = managed.add(1);
    QAction * const toggle = managed.add(2, true);
    managed.handler.known[2].checked = 1;
    managed.manager->updateAll();
    QCOMPARE(stateOf(toggle), QStringLiteral("on checked"));
    managed.manager->block(true);
    QVERIFY(managed.manager->isBlocked());
    QCOMPARE(stateOf(plain), QStringLiteral("off"));
    QCOMPARE(stateOf(toggle), QStringLiteral("off"));
}

void tst_KActionManager::block_doesNotAskTheHandler()
{
    Managed managed;
    managed.add(1);
    managed.manager->block(true);
    managed.manager->updateAll();
    QCOMPARE(managed.handler.takeCalls(), QString());
    QCOMPARE(managed.ticks(3), QString());
}

void tst_KActionManager::block_walkKeepsForcing()
{
    Managed managed;
    QAction * const toggle = managed.add(1, true);
    managed.handler.known[1].checked = 1;
    managed.manager->block(true);
    toggle->setEnabled(true);
    toggle->setChecked(true);
    managed.ticks(1);
    QCOMPARE(stateOf(toggle), QStringLiteral("off"));
    toggle->setEnabled(true);
    QTRY_COMPARE(stateOf(toggle), QStringLiteral("off")); // the timer runs on
}

void tst_KActionManager::block_disabledActionSendsNothing()
{
    Managed managed;
    QAction * const action = managed.add(1);
    managed.manager->block(true);
    action->trigger();
    QCOMPARE(managed.handler.takeCalls(), QString());
}

void tst_KActionManager::block_actionThatIsEnabledByForce_sends()
{
    Managed managed;
    QAction * const action = managed.add(1);
    managed.manager->block(true);
    action->setEnabled(true);
    action->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 1"));
    QCOMPARE(stateOf(action), QStringLiteral("off"));
}

void tst_KActionManager::unblock_restoresWhatTheHandlerSays()
{
    Managed managed;
    QAction * const first = managed.add(1, true);
    QAction * const second = managed.add(2);
    managed.handler.known[1] = {true, 1, false};
    managed.handler.known[2] = {false, 0, false};
    managed.manager->block(true);
    managed.manager->block(false);
    QVERIFY(!managed.manager->isBlocked());
    QCOMPARE(stateOf(first), QStringLiteral("on checked"));
    QCOMPARE(stateOf(second), QStringLiteral("off"));
    first->trigger();
    QVERIFY(managed.handler.takeCalls().contains(QStringLiteral("cmd 1")));
}

void tst_KActionManager::clearAll_deletesActionsButNotTheEmptyOne()
{
    Managed managed;
    QPointer<QAction> const first = managed.add(1);
    QPointer<QAction> const second = managed.add(2);
    QPointer<QAction> const replaced = managed.add(3);
    managed.add(3);
    QAction * const empty = managed.manager->getEmptyAction();
    managed.manager->clearAll();
    QCOMPARE(managed.manager->size(), 0);
    QVERIFY(!first && !second && replaced);
    QCOMPARE(managed.manager->getAction(1), empty);
    QCOMPARE(managed.manager->getEmptyAction(), empty);
    replaced->trigger();
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("cmd 3"));
}

void tst_KActionManager::destructor_leavesActionsToTheirParents()
{
    Managed managed;
    QPointer<QAction> const action = managed.add(1);
    managed.manager.reset();
    QVERIFY(action);
    action->trigger();
    QCOMPARE(managed.handler.takeCalls(), QString());
}

void tst_KActionManager::destructor_deletesItsChildrenAndTheParentlessEmptyAction()
{
    Managed managed;
    SAction const table[] = {{.kind = ActionPlain, .id = 1, .text = "x"}, {}};
    managed.manager->addActions(table, "c");
    QPointer<QAction> const made = managed.manager->getAction(1);
    QPointer<QAction> const empty = managed.manager->getEmptyAction();
    QCOMPARE(made->parent(), managed.manager.get());
    managed.manager.reset();
    QVERIFY(!made);
    QVERIFY(!empty);
}

void tst_KActionManager::autoUpdateMenu_menuThatOpensIsUpToDate()
{
    Managed managed;
    QMenu menu;
    QAction * const action = managed.add(1);
    menu.addAction(action);
    managed.manager->autoUpdateMenu(&menu);
    managed.manager->autoUpdateMenu(&menu);
    managed.handler.known[1].enabled = false;
    QVERIFY(action->isEnabled());
    bool wasRight = false;
    connect(&menu, &QMenu::aboutToShow, this, [&] { wasRight = !action->isEnabled(); });
    Q_EMIT menu.aboutToShow();
    QVERIFY(wasRight);
    QCOMPARE(managed.handler.takeCalls(), QStringLiteral("update 1"));
}

void tst_KActionManager::autoUpdateMenu_null_isSkipped()
{
    Managed managed;
    managed.manager->autoUpdateMenu(nullptr);
}

void tst_KActionManager::connect_throughQObjectByName_works()
{
    Managed managed;
    QTimer source;
    managed.add(1);
    QVERIFY(connect(&source, SIGNAL(timeout()), managed.manager->qObject(), SLOT(updateAll())));
    source.setSingleShot(true);
    source.start(0);
    managed.handler.takeCalls();
    QTRY_VERIFY(managed.handler.calls.contains(QStringLiteral("update 1")));
}

ZENU_TEST(tst_KActionManager)
#include "tst_KActionManager.moc"
