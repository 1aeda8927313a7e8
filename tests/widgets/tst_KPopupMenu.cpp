#include "tests/support/TestMain.h"

#include <zenu/command/ICommandHandler.h>
#include <zenu/command/KActionManager.h>
#include <zenu/widgets/KPopupMenu.h>

#include <QAction>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

#include <memory>
#include <vector>

using namespace zenu;

namespace {

enum Command : unsigned int
{
    CmdCut = 7,
    CmdCopy = 3,
    CmdUnknown = 99
};

// Enables nothing but what it was told to.
class Handler : public ICommandHandler
{
public:
    bool cmd(unsigned int id) override
    {
        performed.push_back(id);
        return true;
    }
    bool update(unsigned int id, ICommandUpdate * state) override
    {
        state->setEnabled(id == enabled);
        return true;
    }

    unsigned int enabled = CmdCut;
    std::vector<unsigned int> performed;
};

struct Scene
{
    Scene()
        : manager(&owner, &handler)
    {
        cut = new QAction(QStringLiteral("Cut"), &owner);
        copy = new QAction(QStringLiteral("Copy"), &owner);
        manager.addAction(cut, CmdCut);
        manager.addAction(copy, CmdCopy);
    }

    QObject owner;
    Handler handler;
    KActionManager manager;
    QAction * cut;
    QAction * copy;
};

// Runs `step` when the menu is open, and closes it.
template <typename Step>
void whenOpen(QMenu & menu, Step step)
{
    QTimer::singleShot(0, &menu, [&menu, step] {
        QVERIFY(menu.isVisible());
        step();
        menu.close();
    });
}

} // namespace

class tst_KPopupMenu : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void adders_chained_giveTheItemsInOrder();
    void addCommand_unknownId_addsTheEmptyAction();
    void addSubmenu_opensUnderItsText();
    void addSubmenu_sameMenuTwice_hasBothTexts();
    void addSubmenu_null_isAnItemThatDoesNothing();
    void addSubmenu_deletedMenu_isQuiet();
    void aboutToShow_stateIsBroughtUpToDate();
    void execAt_opensAtThePoint();
    void execAtCursor_zero_opensAtTheCursor();
    void execAtCursor_offset_isAdded();
    void click_performsTheCommand();
    void fresh_hasNoParent();
    void manager_null_isQuiet();
    void menu_deletedWhileOpen_isQuiet();
};

void tst_KPopupMenu::adders_chained_giveTheItemsInOrder()
{
    Scene scene;
    KPopupMenu menu(&scene.manager);
    KPopupMenu sub(&scene.manager);
    menu.addCommand(CmdCut).addSeparator().addCommand(CmdCopy).addSubmenu(&sub,
                                                                          QStringLiteral("More"));
    auto const items = menu.actions();
    QCOMPARE(items.size(), 4);
    QCOMPARE(items[0], scene.cut);
    QVERIFY(items[1]->isSeparator());
    QCOMPARE(items[2], scene.copy);
    QCOMPARE(items[3]->text(), QStringLiteral("More"));
    QCOMPARE(items[3]->menu<QMenu *>(), &sub);
}

void tst_KPopupMenu::addCommand_unknownId_addsTheEmptyAction()
{
    Scene scene;
    KPopupMenu menu(&scene.manager);
    menu.addCommand(CmdUnknown);
    QCOMPARE(menu.actions(), QList<QAction *>{scene.manager.getEmptyAction()});
}

void tst_KPopupMenu::addSubmenu_opensUnderItsText()
{
    Scene scene;
    KPopupMenu menu(&scene.manager);
    KPopupMenu sub(&scene.manager);
    sub.addCommand(CmdCut);
    menu.addSubmenu(&sub, QStringLiteral("More"));
    bool opened = false;
    whenOpen(menu, [&] {
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Right);
        opened = sub.isVisible();
        sub.close();
    });
    menu.execAt(QPoint(50, 50));
    QVERIFY(opened);
}

void tst_KPopupMenu::addSubmenu_sameMenuTwice_hasBothTexts()
{
    KPopupMenu menu(nullptr);
    KPopupMenu sub(nullptr);
    menu.addSubmenu(&sub, QStringLiteral("One")).addSubmenu(&sub, QStringLiteral("Two"));
    QCOMPARE(menu.actions()[0]->text(), QStringLiteral("One"));
    QCOMPARE(menu.actions()[1]->text(), QStringLiteral("Two"));
    QCOMPARE(menu.actions()[0]->menu<QMenu *>(), &sub);
    QCOMPARE(menu.actions()[1]->menu<QMenu *>(), &sub);
}

void tst_KPopupMenu::addSubmenu_null_isAnItemThatDoesNothing()
{
    KPopupMenu menu(nullptr);
    menu.addSubmenu(nullptr, QStringLiteral("Nothing"));
    QCOMPARE(menu.actions().size(), 1);
    QVERIFY(!menu.actions().first()->menu<QMenu *>());
    menu.actions().first()->trigger();
}

void tst_KPopupMenu::addSubmenu_deletedMenu_isQuiet()
{
    KPopupMenu menu(nullptr);
    auto sub = std::make_unique<KPopupMenu>(nullptr);
    menu.addSubmenu(sub.get(), QStringLiteral("Gone"));
    sub.reset();
    bool opened = false;
    whenOpen(menu, [&] {
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Right);
        opened = true;
    });
    menu.execAt(QPoint(50, 50));
    QVERIFY(opened);
}

// The poll walks over one action a tick; the menu has all of them right at once.
void tst_KPopupMenu::aboutToShow_stateIsBroughtUpToDate()
{
    Scene scene;
    KPopupMenu menu(&scene.manager);
    menu.addCommand(CmdCut).addCommand(CmdCopy);
    scene.manager.updateAll();
    QVERIFY(scene.cut->isEnabled());
    QVERIFY(!scene.copy->isEnabled());
    scene.handler.enabled = CmdCopy;
    Q_EMIT menu.aboutToShow();
    QVERIFY(!scene.cut->isEnabled());
    QVERIFY(scene.copy->isEnabled());
}

void tst_KPopupMenu::execAt_opensAtThePoint()
{
    Scene scene;
    KPopupMenu menu(&scene.manager);
    menu.addCommand(CmdCut);
    QPoint place;
    whenOpen(menu, [&] { place = menu.pos(); });
    menu.execAt(QPoint(123, 77));
    QCOMPARE(place, QPoint(123, 77));
}

void tst_KPopupMenu::execAtCursor_zero_opensAtTheCursor()
{
    KPopupMenu menu(nullptr);
    menu.addSubmenu(nullptr, QStringLiteral("Item"));
    QCursor::setPos(200, 150);
    QPoint place;
    whenOpen(menu, [&] { place = menu.pos(); });
    menu.execAtCursor(0, 0);
    QCOMPARE(place, QCursor::pos());
}

void tst_KPopupMenu::execAtCursor_offset_isAdded()
{
    KPopupMenu menu(nullptr);
    menu.addSubmenu(nullptr, QStringLiteral("Item"));
    QCursor::setPos(200, 150);
    QPoint place;
    whenOpen(menu, [&] { place = menu.pos(); });
    menu.execAtCursor(-30, 17);
    QCOMPARE(place, QCursor::pos() + QPoint(-30, 17));
}

void tst_KPopupMenu::click_performsTheCommand()
{
    Scene scene;
    KPopupMenu menu(&scene.manager);
    menu.addCommand(CmdCut).addCommand(CmdCopy);
    whenOpen(menu, [&] {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(scene.cut).center());
    });
    menu.execAt(QPoint(50, 50));
    QCOMPARE(scene.handler.performed, std::vector<unsigned int>{CmdCut});
}

void tst_KPopupMenu::fresh_hasNoParent()
{
    Scene scene;
    KPopupMenu const menu(&scene.manager);
    QVERIFY(!menu.parent());
    QVERIFY(menu.actions().isEmpty());
}

void tst_KPopupMenu::manager_null_isQuiet()
{
    KPopupMenu menu(nullptr);
    menu.addCommand(CmdCut).addSeparator();
    QCOMPARE(menu.actions().size(), 1);
    Q_EMIT menu.aboutToShow();
}

void tst_KPopupMenu::menu_deletedWhileOpen_isQuiet()
{
    Scene scene;
    QPointer<KPopupMenu> const menu(new KPopupMenu(&scene.manager));
    menu->addCommand(CmdCut);
    QTimer::singleShot(0, menu, [&] { delete menu; });
    menu->execAt(QPoint(50, 50));
    QVERIFY(!menu);
}

ZENU_TEST(tst_KPopupMenu)
#include "tst_KPopupMenu.moc"
