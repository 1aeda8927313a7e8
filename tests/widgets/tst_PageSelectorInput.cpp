#include "tests/support/TestMain.h"
#include "tests/widgets/PageSelectorFixture.h"

using namespace zenu;
using namespace zenutest;

class tst_PageSelectorInput : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { initSelectorTest(); }
    void move_selectsThePageAndSaysSo_data();
    void move_selectsThePageAndSaysSo();
    void move_overTheShownPopup_repaints();
    void move_insideOnePage_repaintsNothing();
    void move_outOfTheArea_isNotClamped_data();
    void move_outOfTheArea_isNotClamped();
    void press_withoutMove_picksNothing();
    void press_afterMove_picksAndHides_data();
    void press_afterMove_picksAndHides();
    void pick_isToldBeforeTheMenuHides();
    void pick_closesTheMenusAbove();
    void click_isOneSignal();
    void release_whileOpen_picks();
    void pressOutside_closesWithoutSignal();
    void otherEvents_goOn();
    void reopened_keepsTheSelection();
    void exec_endsWithThePick();
    void receiver_deletesThePopup();
    void popup_deletedWhileOpen();
    void keys_selectAndPick();
    void keys_stayInTheGrid();
    void escape_closesWithoutSignal();
};

void tst_PageSelectorInput::move_selectsThePageAndSaysSo_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<QString>("text");
    QTest::newRow("first pixel") << QPointF(0, 0) << "1 x 1 pages";
    QTest::newRow("last pixel of the first page") << QPointF(20, 25) << "1 x 1 pages";
    QTest::newRow("between two pixels") << QPointF(20.5, 25.75) << "1 x 1 pages";
    QTest::newRow("second column") << QPointF(21, 25) << "1 x 2 pages";
    QTest::newRow("second row") << QPointF(20, 26) << "2 x 1 pages";
    QTest::newRow("last pixel") << QPointF(104, 103) << "4 x 5 pages";
}

void tst_PageSelectorInput::move_selectsThePageAndSaysSo()
{
    QFETCH(QPointF, position);
    Selector selector;
    selector.dragTo(position);
    QTEST(selector.label()->text(), "text");
}

void tst_PageSelectorInput::move_overTheShownPopup_repaints()
{
    Selector selector;
    selector.open();
    selector.moveTo(middle(1, 1));
    EventCounter const paints(selector.area(), QEvent::Paint);
    selector.moveTo(middle(3, 4));
    QCOMPARE(selector.label()->text(), QStringLiteral("3 x 4 pages"));
    QTRY_VERIFY(paints.count > 0);
    QCOMPARE(selector.picture(), gridImage(3, 4));
}

void tst_PageSelectorInput::move_insideOnePage_repaintsNothing()
{
    Selector selector;
    selector.open();
    selector.moveTo(middle(2, 2));
    QTest::qWait(50); // what is on its way
    EventCounter const moves(selector.area(), QEvent::MouseMove);
    EventCounter const paints(selector.area(), QEvent::Paint);
    EventCounter const updates(selector.area(), QEvent::UpdateRequest);
    EventCounter const labelPaints(selector.label(), QEvent::Paint);
    for (QPoint const & step : {QPoint(-8, -11), QPoint(8, 11), QPoint(3, 0)}) {
        selector.moveTo(middle(2, 2) + step);
    }
    QTest::qWait(50);
    QVERIFY(moves.count >= 3);
    QCOMPARE(paints.count, 0);
    QCOMPARE(updates.count, 0);
    QCOMPARE(labelPaints.count, 0);
}

void tst_PageSelectorInput::move_outOfTheArea_isNotClamped_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QString>("picked");
    QTest::newRow("just left") << QPoint(-1, 30) << "2,1";
    QTest::newRow("a page left, less one") << QPoint(-20, 30) << "2,1";
    QTest::newRow("a page left") << QPoint(-21, 30) << "2,0";
    QTest::newRow("two pages left") << QPoint(-42, 30) << "2,-1";
    QTest::newRow("just above") << QPoint(30, -1) << "1,2";
    QTest::newRow("a page above") << QPoint(30, -26) << "0,2";
    QTest::newRow("right") << QPoint(105, 0) << "1,6";
    QTest::newRow("far below") << QPoint(0, 1040) << "41,1";
}

void tst_PageSelectorInput::move_outOfTheArea_isNotClamped()
{
    QFETCH(QPoint, position);
    Selector selector;
    selector.open();
    selector.dragTo(position);
    QTest::mouseRelease(selector.area(), Qt::LeftButton, Qt::NoModifier, position);
    QTEST(selector.picked.join(QLatin1Char(' ')), "picked");
}

void tst_PageSelectorInput::press_withoutMove_picksNothing()
{
    Selector selector;
    selector.popup(QPoint(50, 40));
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(30, 30),
                      selector.area()->mapToGlobal(QPointF(30, 30)), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(selector.area(), &press);
    QCOMPARE(selector.picked, QStringList(QStringLiteral("0,0")));
    QVERIFY(!selector.isVisible());
}

void tst_PageSelectorInput::press_afterMove_picksAndHides_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void tst_PageSelectorInput::press_afterMove_picksAndHides()
{
    QFETCH(Qt::MouseButton, button);
    Selector selector;
    selector.open();
    selector.moveTo(middle(2, 3));
    QCOMPARE(selector.picked, QStringList());
    QTest::mousePress(selector.windowHandle(), button, Qt::NoModifier,
                      selector.inWindow(middle(2, 3)));
    QTRY_COMPARE(selector.picked, QStringList(QStringLiteral("2,3")));
    QVERIFY(!selector.isVisible());
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_PageSelectorInput::pick_isToldBeforeTheMenuHides()
{
    Selector selector;
    bool visible = false;
    connect(&selector, &KPageSelector::pageRangeSelected, this,
            [&] { visible = selector.isVisible(); });
    selector.open();
    selector.moveTo(middle(2, 3));
    QTest::mousePress(selector.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      selector.inWindow(middle(2, 3)));
    QTRY_COMPARE(selector.picked.size(), 1);
    QVERIFY(visible);
    QVERIFY(!selector.isVisible());
}

void tst_PageSelectorInput::pick_closesTheMenusAbove()
{
    Selector selector;
    QMenu outer;
    QMenu inner;
    outer.addMenu(&inner);
    inner.addMenu(&selector);
    outer.popup(QPoint(50, 40));
    QVERIFY(QTest::qWaitForWindowExposed(&outer));
    outer.setActiveAction(inner.menuAction());
    QTest::keyClick(&outer, Qt::Key_Right);
    QVERIFY(QTest::qWaitForWindowExposed(&inner));
    inner.setActiveAction(selector.menuAction());
    QTest::keyClick(&inner, Qt::Key_Right);
    QVERIFY(QTest::qWaitForWindowExposed(&selector));
    selector.moveTo(middle(2, 3));
    QTest::mouseClick(selector.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      selector.inWindow(middle(2, 3)));
    QTRY_COMPARE(selector.picked, QStringList(QStringLiteral("2,3")));
    QVERIFY(!selector.isVisible());
    QVERIFY(!inner.isVisible());
    QVERIFY(!outer.isVisible());
}

void tst_PageSelectorInput::click_isOneSignal()
{
    Selector selector;
    selector.open();
    selector.moveTo(middle(4, 1));
    QTest::mouseClick(selector.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      selector.inWindow(middle(4, 1)));
    QTest::qWait(20);
    QCOMPARE(selector.picked, QStringList(QStringLiteral("4,1")));
    QVERIFY(!selector.isVisible());
}

// The button was pressed on what opened the popup.
void tst_PageSelectorInput::release_whileOpen_picks()
{
    Selector selector;
    selector.open();
    selector.moveTo(middle(1, 2));
    QTest::mouseRelease(selector.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                        selector.inWindow(middle(1, 2)));
    QTRY_COMPARE(selector.picked, QStringList(QStringLiteral("1,2")));
    QVERIFY(!selector.isVisible());
}

void tst_PageSelectorInput::pressOutside_closesWithoutSignal()
{
    Selector selector;
    selector.open();
    QTest::mousePress(selector.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    QTRY_VERIFY(!selector.isVisible());
    QCOMPARE(selector.picked, QStringList());
}

void tst_PageSelectorInput::otherEvents_goOn()
{
    Selector selector;
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, QPointF(1, 1), QPointF(1, 1),
                            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QEvent leave(QEvent::Leave);
    QVERIFY(!selector.eventFilter(selector.label(), &press));
    QVERIFY(!selector.eventFilter(&selector, &press));
    QVERIFY(!selector.eventFilter(nullptr, &press));
    QVERIFY(!selector.eventFilter(selector.area(), &doubleClick));
    QVERIFY(!selector.eventFilter(selector.area(), &leave));
    QCOMPARE(selector.picked, QStringList());
    QVERIFY(selector.eventFilter(selector.area(), &press));
    QCOMPARE(selector.picked, QStringList(QStringLiteral("0,0")));
}

void tst_PageSelectorInput::reopened_keepsTheSelection()
{
    Selector selector;
    selector.open();
    selector.moveTo(middle(2, 2));
    selector.hide();
    selector.popup(QPoint(300, 300)); // away from the mouse
    QCOMPARE(selector.label()->text(), QStringLiteral("2 x 2 pages"));
    QCOMPARE(selector.picture(), gridImage(2, 2));
    QTest::mousePress(selector.area(), Qt::LeftButton);
    QCOMPARE(selector.picked, QStringList(QStringLiteral("2,2")));
}

void tst_PageSelectorInput::exec_endsWithThePick()
{
    Selector selector;
    QTimer::singleShot(0, &selector, [&selector] {
        selector.moveTo(middle(3, 3));
        QTest::mousePress(selector.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          selector.inWindow(middle(3, 3)));
    });
    QVERIFY(!selector.exec(QPoint(50, 40)));
    QCOMPARE(selector.picked, QStringList(QStringLiteral("3,3")));
}

void tst_PageSelectorInput::receiver_deletesThePopup()
{
    QPointer<Selector> const selector(new Selector);
    connect(selector, &KPageSelector::pageRangeSelected, [selector] { delete selector; });
    selector->open();
    selector->moveTo(middle(2, 3));
    QTest::mouseClick(selector->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      selector->inWindow(middle(2, 3)));
    QTRY_VERIFY(!selector);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_PageSelectorInput::popup_deletedWhileOpen()
{
    auto * const selector = new Selector;
    selector->open();
    selector->moveTo(middle(2, 3));
    delete selector;
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_PageSelectorInput::keys_selectAndPick()
{
    Selector selector;
    selector.open();
    QString text = selector.label()->text();
    QTest::keyClick(&selector, Qt::Key_Return); // nothing is selected
    QCOMPARE(selector.picked, QStringList());
    QVERIFY(selector.isVisible());
    struct
    {
        Qt::Key key;
        char const * text;
    } const steps[] = {
        {Qt::Key_Down, "1 x 1 pages"},  {Qt::Key_Down, "2 x 1 pages"},
        {Qt::Key_Right, "2 x 2 pages"}, {Qt::Key_Right, "2 x 3 pages"},
        {Qt::Key_Left, "2 x 2 pages"},  {Qt::Key_Up, "1 x 2 pages"},
    };
    for (auto const & step : steps) {
        QTest::keyClick(&selector, step.key);
        QCOMPARE(selector.label()->text(), QLatin1String(step.text));
    }
    QCOMPARE(selector.picture(), gridImage(1, 2));
    QTest::keyClick(&selector, Qt::Key_Return);
    QCOMPARE(selector.picked, QStringList(QStringLiteral("1,2")));
    QVERIFY(!selector.isVisible());
}

void tst_PageSelectorInput::keys_stayInTheGrid()
{
    Selector selector;
    selector.dragTo(QPointF(1000, 1000));
    selector.open();
    QTest::keyClick(&selector, Qt::Key_Right);
    QCOMPARE(selector.label()->text(), QStringLiteral("4 x 5 pages"));
    QTest::keyClick(&selector, Qt::Key_Down);
    QCOMPARE(selector.label()->text(), QStringLiteral("4 x 5 pages"));
    selector.dragTo(QPointF(0, 0));
    QTest::keyClick(&selector, Qt::Key_Left);
    QTest::keyClick(&selector, Qt::Key_Up);
    QCOMPARE(selector.label()->text(), QStringLiteral("1 x 1 pages"));
}

void tst_PageSelectorInput::escape_closesWithoutSignal()
{
    Selector selector;
    selector.open();
    selector.moveTo(middle(2, 3));
    QTest::keyClick(&selector, Qt::Key_Escape);
    QTRY_VERIFY(!selector.isVisible());
    QCOMPARE(selector.picked, QStringList());
}

ZENU_TEST(tst_PageSelectorInput)
#include "tst_PageSelectorInput.moc"
