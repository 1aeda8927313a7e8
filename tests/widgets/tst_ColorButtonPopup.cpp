#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

#include <QtWidgets/QStyle>

using namespace zenu;
using zenutest::Button;
using zenutest::Scene;
using zenutest::settle;
using zenutest::whenOpen;
using zenutest::Window;

namespace {

void sendPress(QWidget & receiver, QPoint const & global, QEvent::Type type, quint64 time = 0)
{
    QMouseEvent event(type, receiver.mapFromGlobal(global), global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    event.setTimestamp(time);
    QApplication::sendEvent(&receiver, &event);
}

} // namespace

class tst_ColorButtonPopup : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnOtherWarnings(); }
    void hold_opensAndReleaseKeepsItOpen();
    void hold_tooShort_clicks();
    void hold_longDelay_waits();
    void arrowPart_opensAtOnce();
    void arrowPart_restOfTheButton_clicks();
    void arrowPart_noMenu_isAPlainButton();
    void negativeDelay_opensAnywhereAtOnce();
    void rightButton_opensNothing();
    void secondClick_closesWithoutReopening_data();
    void secondClick_closesWithoutReopening();
    void doubleClick_fasterThanTheEventLoop_closes();
    void discard_takesThePressThatIsSentAgain_data();
    void discard_takesThePressThatIsSentAgain();
    void discard_takesBothHalvesOfADoubleClick();
    void discard_pressThatIsNotSentAgain_isForgotten();
    void discard_pressWhileASubmenuIsOpen_isDiscarded();
    void discard_pressElsewhere_isNotDiscarded();
    void whileOpen_autoRepeatIsOff();
    void whileOpen_theButtonIsNotFlat();
    void hover_endsWhenTheMouseHasLeft();
    void menu_deletedWhileOpen_isSafe_data();
    void menu_deletedWhileOpen_isSafe();
    void menu_deletedWhileHeld_isSafe();
    void button_deletedWhileOpen_isSafe_data();
    void button_deletedWhileOpen_isSafe();
    void menu_openByAnotherButton_isLeftAlone();
    void menu_exchanged_leavesTheOldOneAlone();
    void menu_reusedByTwoButtons();
};

void tst_ColorButtonPopup::hold_opensAndReleaseKeepsItOpen()
{
    Scene scene(10);
    Window & window = scene.window;
    QVERIFY(window.open());
    bool visible = false;
    QPoint pos;
    whenOpen(*scene.menu, [&] {
        pos = scene.menu->pos();
        window.release(window.onButton());
        settle();
        visible = scene.menu->isVisible();
        scene.menu->close();
    });
    window.press(window.onButton());
    QVERIFY(window.button->isDown());
    QTRY_COMPARE(scene.opened, 1);
    QTRY_VERIFY(!window.button->isDown());
    QVERIFY(visible);
    QCOMPARE(pos, window.button->mapToGlobal(window.button->rect().bottomLeft()));
    QCOMPARE(scene.clicked, 0);
}

void tst_ColorButtonPopup::hold_tooShort_clicks()
{
    Scene scene(100);
    QVERIFY(scene.window.open());
    scene.window.click(scene.window.onButton());
    QCOMPARE(scene.clicked, 1);
    QTest::qWait(200);
    QCOMPARE(scene.opened, 0);
}

void tst_ColorButtonPopup::hold_longDelay_waits()
{
    Scene scene(150);
    QVERIFY(scene.window.open());
    QElapsedTimer time;
    time.start();
    qint64 openedAfter = 0;
    whenOpen(*scene.menu, [&] {
        openedAfter = time.elapsed();
        scene.menu->close();
    });
    scene.window.press(scene.window.onButton());
    QTRY_VERIFY(openedAfter > 0);
    QVERIFY(openedAfter >= 140);
    scene.window.release(scene.window.onButton());
}

void tst_ColorButtonPopup::arrowPart_opensAtOnce()
{
    Scene scene(0);
    QVERIFY(scene.window.open());
    bool visible = false;
    whenOpen(*scene.menu, [&] {
        visible = scene.menu->isVisible();
        scene.menu->close();
    });
    scene.window.press(scene.window.onArrow());
    QCOMPARE(scene.opened, 1);
    QVERIFY(visible);
    QCOMPARE(scene.pressed, 0);
    QVERIFY(!scene.window.button->isDown());
}

void tst_ColorButtonPopup::arrowPart_restOfTheButton_clicks()
{
    Scene scene(0);
    QVERIFY(scene.window.open());
    scene.window.click(scene.window.onSwatch());
    settle();
    QCOMPARE(scene.clicked, 1);
    QCOMPARE(scene.opened, 0);
    // The part begins where the indicator of the style begins.
    Button & button = *scene.window.button;
    int const indicator = button.style()->pixelMetric(QStyle::PM_MenuButtonIndicator);
    scene.window.click(button.geometry().topRight() + QPoint(-indicator, 5));
    QCOMPARE(scene.clicked, 2);
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    scene.window.press(button.geometry().topRight() + QPoint(1 - indicator, 5));
    QCOMPARE(scene.opened, 1);
}

void tst_ColorButtonPopup::arrowPart_noMenu_isAPlainButton()
{
    Scene scene(0);
    QVERIFY(scene.window.open());
    scene.menu.reset();
    scene.window.click(scene.window.onArrow());
    QCOMPARE(scene.clicked, 1);
    scene.window.button->setPopupDelay(10);
    scene.window.press(scene.window.onArrow());
    settle();
    scene.window.release(scene.window.onArrow());
    QCOMPARE(scene.clicked, 2);
}

void tst_ColorButtonPopup::negativeDelay_opensAnywhereAtOnce()
{
    Scene scene(-1);
    QVERIFY(scene.window.open());
    for (QPoint const pos : {scene.window.onSwatch(), scene.window.onArrow()}) {
        scene.opened = 0;
        whenOpen(*scene.menu, [&] { scene.menu->close(); });
        scene.window.press(pos);
        QCOMPARE(scene.opened, 1);
    }
}

void tst_ColorButtonPopup::rightButton_opensNothing()
{
    for (int const delay : {10, 0, -1}) {
        Scene scene(delay);
        QVERIFY(scene.window.open());
        QTest::mouseClick(scene.window.windowHandle(), Qt::RightButton, {}, scene.window.onArrow());
        settle();
        QCOMPARE(scene.opened, 0);
    }
}

void tst_ColorButtonPopup::secondClick_closesWithoutReopening_data()
{
    QTest::addColumn<int>("delay");
    QTest::newRow("held") << 10;
    QTest::newRow("arrow part") << 0;
    QTest::newRow("at once") << -1;
}

void tst_ColorButtonPopup::secondClick_closesWithoutReopening()
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

void tst_ColorButtonPopup::doubleClick_fasterThanTheEventLoop_closes()
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

void tst_ColorButtonPopup::discard_takesThePressThatIsSentAgain_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("press") << QEvent::MouseButtonPress;
    QTest::newRow("double click") << QEvent::MouseButtonDblClick;
}

void tst_ColorButtonPopup::discard_takesThePressThatIsSentAgain()
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
void tst_ColorButtonPopup::discard_takesBothHalvesOfADoubleClick()
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

void tst_ColorButtonPopup::discard_pressThatIsNotSentAgain_isForgotten()
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

void tst_ColorButtonPopup::discard_pressWhileASubmenuIsOpen_isDiscarded()
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

void tst_ColorButtonPopup::discard_pressElsewhere_isNotDiscarded()
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

void tst_ColorButtonPopup::whileOpen_autoRepeatIsOff()
{
    for (bool const repeats : {true, false}) {
        Scene scene(10);
        QVERIFY(scene.window.open());
        scene.window.button->setAutoRepeat(repeats);
        bool whileOpen = true;
        whenOpen(*scene.menu, [&] {
            whileOpen = scene.window.button->autoRepeat();
            scene.menu->close();
        });
        scene.window.press(scene.window.onButton());
        QTRY_VERIFY(!whileOpen);
        QTRY_COMPARE(scene.window.button->autoRepeat(), repeats);
        scene.window.release(scene.window.onButton());
    }
}

void tst_ColorButtonPopup::whileOpen_theButtonIsNotFlat()
{
    Scene scene(0);
    Window & window = scene.window;
    window.button->setAutoRaise(true);
    QVERIFY(window.open());
    bool raised = false;
    whenOpen(*scene.menu, [&] {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(window.button, &leave);
        raised = window.button->uses3D();
        scene.menu->close();
    });
    window.press(window.onArrow());
    QVERIFY(raised);
    QVERIFY(!window.button->uses3D());
}

void tst_ColorButtonPopup::hover_endsWhenTheMouseHasLeft()
{
    Scene scene(0);
    Window & window = scene.window;
    window.button->setAutoRaise(true);
    QVERIFY(window.open());
    QTest::mouseMove(window.windowHandle(), window.onArrow());
    QTRY_VERIFY(window.button->uses3D());
    whenOpen(*scene.menu, [&] { window.click(window.elsewhere()); });
    window.press(window.onArrow());
    QTRY_VERIFY(!window.button->uses3D());
}

void tst_ColorButtonPopup::menu_deletedWhileOpen_isSafe_data()
{
    secondClick_closesWithoutReopening_data();
}

void tst_ColorButtonPopup::menu_deletedWhileOpen_isSafe()
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

void tst_ColorButtonPopup::menu_deletedWhileHeld_isSafe()
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

void tst_ColorButtonPopup::button_deletedWhileOpen_isSafe_data()
{
    secondClick_closesWithoutReopening_data();
}

void tst_ColorButtonPopup::button_deletedWhileOpen_isSafe()
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

void tst_ColorButtonPopup::menu_openByAnotherButton_isLeftAlone()
{
    Scene scene(0);
    QVERIFY(scene.window.open());
    Button second(&scene.window);
    second.setPopup(scene.menu.get());
    second.setDown(true);
    bool stillOpen = false;
    whenOpen(*scene.menu, [&] {
        QMetaObject::invokeMethod(&second, "popupTimerDone");
        stillOpen = scene.menu->isVisible();
        scene.menu->close();
    });
    scene.window.press(scene.window.onArrow());
    QVERIFY(stillOpen);
    QCOMPARE(scene.opened, 1);
    QVERIFY(second.isDown());
}

void tst_ColorButtonPopup::menu_exchanged_leavesTheOldOneAlone()
{
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    whenOpen(*scene.menu, [&] { scene.menu->close(); });
    window.press(window.onArrow());
    QMenu second;
    second.addAction(QStringLiteral("Another"));
    window.button->setPopup(&second);
    // A press on the old menu no longer counts for the button.
    scene.menu->popup(window.mapToGlobal(window.elsewhere()));
    sendPress(*scene.menu, window.mapToGlobal(window.onArrow()), QEvent::MouseButtonPress);
    bool opened = false;
    whenOpen(second, [&] {
        opened = true;
        second.close();
    });
    window.press(window.onArrow());
    QVERIFY(opened);
}

void tst_ColorButtonPopup::menu_reusedByTwoButtons()
{
    Scene scene(0);
    Window & window = scene.window;
    auto * const second = new Button(&window);
    second->setGeometry(200, 100, 60, 30);
    second->setPopup(scene.menu.get());
    second->setPopupDelay(-1);
    QVERIFY(window.open());
    for (int round = 0; round < 2; ++round) {
        QPoint pos;
        whenOpen(*scene.menu, [&] {
            pos = scene.menu->pos();
            scene.menu->close();
        });
        window.press(window.onArrow());
        QCOMPARE(pos, window.button->mapToGlobal(window.button->rect().bottomLeft()));
        whenOpen(*scene.menu, [&] {
            pos = scene.menu->pos();
            scene.menu->close();
        });
        window.press(second->geometry().center());
        QCOMPARE(pos, second->mapToGlobal(second->rect().bottomLeft()));
    }
    QCOMPARE(scene.opened, 4);
}

ZENU_TEST(tst_ColorButtonPopup)
#include "tst_ColorButtonPopup.moc"
