#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

using namespace zenu;
using zenutest::Button;
using zenutest::Scene;
using zenutest::sendPress;
using zenutest::settle;
using zenutest::whenOpen;
using zenutest::Window;

// How the menu of a button closes, and what becomes of the press that closed it.
class tst_ColorButtonClosing : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnOtherWarnings(); }
    void secondClick_closesWithoutReopening_data();
    void secondClick_closesWithoutReopening();
    void doubleClick_fasterThanTheEventLoop_closes();
    void discard_takesThePressThatIsSentAgain_data();
    void discard_takesThePressThatIsSentAgain();
    void discard_takesBothHalvesOfADoubleClick();
    void discard_pressThatIsNotSentAgain_isForgotten();
    void discard_pressWhileASubmenuIsOpen_isDiscarded();
    void discard_pressElsewhere_isNotDiscarded();
    void discard_menuOfAnotherButton_isForgotten();
    void menu_deletedWhileOpen_isSafe_data();
    void menu_deletedWhileOpen_isSafe();
    void menu_deletedWhileHeld_isSafe();
    void button_deletedWhileOpen_isSafe_data();
    void button_deletedWhileOpen_isSafe();
    void window_deletedWhileOpen_isSafe_data();
    void window_deletedWhileOpen_isSafe();
};

void tst_ColorButtonClosing::secondClick_closesWithoutReopening_data()
{
    QTest::addColumn<int>("delay");
    QTest::newRow("held") << 10;
    QTest::newRow("arrow part") << 0;
    QTest::newRow("at once") << -1;
}

void tst_ColorButtonClosing::secondClick_closesWithoutReopening()
{
    QFETCH(int, delay);
    Scene scene(delay);
    Window & window = scene.window;
    QVERIFY(window.open());
    for (int round = 1; round <= 3; ++round) {
        whenOpen(*scene.menu, [&] {
            window.release(window.onArrow());
            window.press(window.onArrow());
        });
        window.press(window.onArrow());
        QTRY_COMPARE(scene.opened, round);
        QTRY_VERIFY(!scene.menu->isVisible());
        settle(); // the press may be sent again
        window.release(window.onArrow());
        settle();
        QVERIFY(!scene.menu->isVisible());
        QCOMPARE(scene.opened, round);
        QCOMPARE(scene.clicked, 0);
        QVERIFY(!window.button->isDown());
    }
}

void tst_ColorButtonClosing::doubleClick_fasterThanTheEventLoop_closes()
{
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    whenOpen(*scene.menu, [&] {
        window.release(window.onArrow());
        QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, window.onArrow());
    });
    window.press(window.onArrow());
    settle();
    QCOMPARE(scene.opened, 1);
    QVERIFY(!scene.menu->isVisible());
    QCOMPARE(scene.pressed, 0);
}

void tst_ColorButtonClosing::discard_takesThePressThatIsSentAgain_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("press") << QEvent::MouseButtonPress;
    QTest::newRow("double click") << QEvent::MouseButtonDblClick;
}

void tst_ColorButtonClosing::discard_takesThePressThatIsSentAgain()
{
    QFETCH(QEvent::Type, type);
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    bool closed = false;
    whenOpen(*scene.menu, [&] {
        QPoint const global = window.mapToGlobal(window.onArrow());
        sendPress(*scene.menu, global, type);
        closed = !scene.menu->isVisible();
        sendPress(*window.button, global, type);
    });
    window.press(window.onArrow());
    QVERIFY(closed);
    QCOMPARE(scene.opened, 1);
    QCOMPARE(scene.pressed, 0);
    settle();
    // One press, not more.
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    sendPress(*window.button, window.mapToGlobal(window.onArrow()), type);
    QCOMPARE(scene.opened, 2);
}

// A platform reports the second press of a double click twice, at one time: to the menu and, when
// that has closed, to the button; and the press that closed the menu is sent again.
void tst_ColorButtonClosing::discard_takesBothHalvesOfADoubleClick()
{
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    QPoint const global = window.mapToGlobal(window.onArrow());
    whenOpen(*scene.menu, [&] {
        sendPress(*scene.menu, global, QEvent::MouseButtonPress, 77);
        sendPress(*window.button, global, QEvent::MouseButtonDblClick, 77);
    });
    window.press(window.onArrow());
    settle();
    sendPress(*window.button, global, QEvent::MouseButtonPress, 77);
    QCOMPARE(scene.opened, 1);
    QCOMPARE(scene.pressed, 0);
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    sendPress(*window.button, global, QEvent::MouseButtonPress, 78);
    QCOMPARE(scene.opened, 2);
}

void tst_ColorButtonClosing::discard_pressThatIsNotSentAgain_isForgotten()
{
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    QPoint const global = window.mapToGlobal(window.onArrow());
    whenOpen(*scene.menu, [&] { sendPress(*scene.menu, global, QEvent::MouseButtonPress, 77); });
    window.press(window.onArrow());
    QVERIFY(!scene.menu->isVisible());
    settle();
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    sendPress(*window.button, global, QEvent::MouseButtonPress, 78);
    QCOMPARE(scene.opened, 2);
}

void tst_ColorButtonClosing::discard_pressWhileASubmenuIsOpen_isDiscarded()
{
    Scene scene(0);
    Window & window = scene.window;
    QMenu submenu;
    submenu.addAction(QStringLiteral("Below"));
    scene.menu->addMenu(&submenu);
    QVERIFY(window.open());
    bool submenuWasOpen = false;
    whenOpen(*scene.menu, [&] {
        window.release(window.onArrow());
        scene.menu->setActiveAction(submenu.menuAction());
        QTest::keyClick(scene.menu->windowHandle(), Qt::Key_Right);
        submenuWasOpen = QTest::qWaitForWindowExposed(&submenu);
        window.press(window.onArrow());
    });
    window.press(window.onArrow());
    settle();
    QVERIFY(submenuWasOpen);
    QVERIFY(!submenu.isVisible());
    QVERIFY(!scene.menu->isVisible());
    QCOMPARE(scene.opened, 1);
}

void tst_ColorButtonClosing::discard_pressElsewhere_isNotDiscarded()
{
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    whenOpen(*scene.menu, [&] { window.click(window.elsewhere()); });
    window.press(window.onArrow());
    QVERIFY(!scene.menu->isVisible());
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    window.press(window.onArrow());
    QCOMPARE(scene.opened, 2);
}

// A platform that does not send the press again would leave it waiting for the next one.
void tst_ColorButtonClosing::discard_menuOfAnotherButton_isForgotten()
{
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    QPoint const global = window.mapToGlobal(window.onArrow());
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    window.press(window.onArrow()); // from now on the button looks at what the menu gets
    scene.menu->popup(window.mapToGlobal(window.elsewhere()));
    sendPress(*scene.menu, global, QEvent::MouseButtonPress, 77);
    QVERIFY(!scene.menu->isVisible());
    settle();
    QCOMPARE(scene.opened, 2);
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    sendPress(*window.button, global, QEvent::MouseButtonPress, 78);
    QCOMPARE(scene.opened, 3);
}

void tst_ColorButtonClosing::menu_deletedWhileOpen_isSafe_data()
{
    secondClick_closesWithoutReopening_data();
}

void tst_ColorButtonClosing::menu_deletedWhileOpen_isSafe()
{
    QFETCH(int, delay);
    Scene scene(delay);
    QVERIFY(scene.window.open());
    scene.window.button->setAutoRepeat(true);
    whenOpen(*scene.menu, [&] { scene.menu.reset(); });
    scene.window.press(scene.window.onArrow());
    QTRY_VERIFY(!scene.menu);
    QTRY_VERIFY(!scene.window.button->isDown());
    QTRY_VERIFY(scene.window.button->autoRepeat());
    scene.window.button->setAutoRepeat(false);
    QVERIFY(!scene.window.button->popup());
    scene.window.release(scene.window.onArrow());
    scene.window.click(scene.window.onArrow()); // a plain button now
    QCOMPARE(scene.clicked, 1);
}

void tst_ColorButtonClosing::menu_deletedWhileHeld_isSafe()
{
    Scene scene(30);
    QVERIFY(scene.window.open());
    scene.window.press(scene.window.onButton());
    scene.menu.reset();
    QTest::qWait(80);
    QVERIFY(scene.window.button->isDown());
    scene.window.release(scene.window.onButton());
    QCOMPARE(scene.clicked, 1);
}

void tst_ColorButtonClosing::button_deletedWhileOpen_isSafe_data()
{
    secondClick_closesWithoutReopening_data();
}

void tst_ColorButtonClosing::button_deletedWhileOpen_isSafe()
{
    QFETCH(int, delay);
    Scene scene(delay);
    QVERIFY(scene.window.open());
    QPoint const arrow = scene.window.onArrow();
    bool stillOpen = false;
    bool done = false;
    whenOpen(*scene.menu, [&] {
        delete scene.window.button;
        settle();
        stillOpen = scene.menu->isVisible();
        scene.menu->close();
        done = true;
    });
    scene.window.press(arrow);
    QTRY_VERIFY(done);
    QVERIFY(stillOpen);
    QVERIFY(!scene.window.button);
    scene.window.release(arrow);
    settle();
}

void tst_ColorButtonClosing::window_deletedWhileOpen_isSafe_data()
{
    secondClick_closesWithoutReopening_data();
}

void tst_ColorButtonClosing::window_deletedWhileOpen_isSafe()
{
    QFETCH(int, delay);
    QMenu menu;
    menu.addAction(QStringLiteral("An action"));
    auto * const window = new Window;
    QPointer<Button> const button(window->button);
    button->setPopup(&menu);
    button->setPopupDelay(delay);
    QVERIFY(window->open());
    bool done = false;
    whenOpen(menu, [&] {
        window->release(window->onArrow());
        delete window;
        settle();
        menu.close();
        done = true;
    });
    window->press(window->onArrow());
    QTRY_VERIFY(done);
    QVERIFY(!button);
    settle();
}

ZENU_TEST(tst_ColorButtonClosing)
#include "tst_ColorButtonClosing.moc"
