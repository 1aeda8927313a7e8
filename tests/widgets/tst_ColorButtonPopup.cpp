#include "tests/support/TestMain.h"
#include "tests/widgets/ColorFixture.h"

#include <QtWidgets/QStyle>

using namespace zenu;
using zenutest::Button;
using zenutest::Scene;
using zenutest::sendPress;
using zenutest::settle;
using zenutest::whenOpen;
using zenutest::Window;

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
    void whileOpen_autoRepeatIsOff();
    void whileOpen_theButtonIsNotFlat();
    void opening_repaintsBeforeAndAfter();
    void hover_endsWhenTheMouseHasLeft();
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

void tst_ColorButtonPopup::opening_repaintsBeforeAndAfter()
{
    Scene scene(0);
    Window & window = scene.window;
    QVERIFY(window.open());
    settle();
    int drawnWhileOpen = 0;
    window.button->drawn = 0;
    whenOpen(*scene.menu, [&] {
        settle();
        drawnWhileOpen = std::exchange(window.button->drawn, 0);
        scene.menu->close();
    });
    window.press(window.onArrow());
    QVERIFY(drawnWhileOpen > 0); // the arrow part is down
    QTRY_VERIFY(window.button->drawn > 0);
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
