#include "tests/grid_input/ClickScene.h"

#include "zenu/events/KEventMonitor.h"

using namespace zenu;
using namespace zenutest;

class tst_GridMouseMoves : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void firstMoveAfterAPress_isToldOnce();
    void firstMove_tellsTheButtons_ifThereIsAMonitor();
    void move_withoutAPress_tellsNothing();
    void move_afterTheRelease_tellsNothing();
    void move_afterAPressOnAnElement_tellsNothing_data();
    void move_afterAPressOnAnElement_tellsNothing();
    void move_toAPlaceOutsideTheCells_usesUpThePress();
    void move_withoutASink_usesUpThePress();
    void secondMove_fromWithinTheFirst_tellsNothing();
    void pressAfterTheLastRowWentAway_isOneOutsideTheCells();
    void sink_replacedOrTakenAwayInTheMiddle_data();
    void sink_replacedOrTakenAwayInTheMiddle();
    void hoverTimer_marksTheCellUnderTheMouse_andLeavingClearsIt();
    void events_ofAGridThatIsEmpty_areHarmless();
};

void tst_GridMouseMoves::firstMoveAfterAPress_isToldOnce()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    Qt::KeyboardModifiers const all[] = {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
    for (Qt::KeyboardModifiers const keys : all) {
        scene.press(scene.point(scene.b), Qt::LeftButton, keys);
        scene.notes.calls.clear();
        scene.move(scene.point(scene.c));
        QCOMPARE(scene.notes.text(), "hover c/0"); // the cell under the mouse, not that pressed
        scene.move(scene.point(scene.b));
        QCOMPARE(scene.notes.text(), QString());
        scene.release();
    }
}

void tst_GridMouseMoves::firstMove_tellsTheButtons_ifThereIsAMonitor()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    auto const buttonsTold = [&] {
        scene.press(scene.point(scene.b));
        scene.move(scene.point(scene.c));
        scene.release();
        return scene.notes.lastButtons;
    };
    QCOMPARE(buttonsTold(), 0);
    KEventMonitor::init();
    QCOMPARE(buttonsTold(), 1);
}

void tst_GridMouseMoves::move_withoutAPress_tellsNothing()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.move(scene.point(scene.b));
    scene.move(scene.point(scene.c));
    scene.press(scene.point(scene.c), Qt::RightButton);
    scene.notes.calls.clear();
    scene.move(scene.point(scene.b));
    QCOMPARE(scene.grid->GetPriv().mousePoint, scene.point(scene.b));
    scene.release(Qt::RightButton);
    QCOMPARE(scene.notes.text(), QString());
}

void tst_GridMouseMoves::move_afterTheRelease_tellsNothing()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.click(scene.point(scene.b));
    scene.notes.calls.clear();
    scene.move(scene.point(scene.c));
    QCOMPARE(scene.notes.text(), QString());
    // Another button's release ends nothing.
    scene.press(scene.point(scene.b));
    scene.notes.calls.clear();
    QPoint const point = scene.point(scene.b);
    QMouseEvent other(QEvent::MouseButtonRelease, point, scene.grid->mapToGlobal(point),
                      Qt::RightButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(scene.grid, &other);
    scene.move(scene.point(scene.c));
    QCOMPARE(scene.notes.text(), "hover c/0");
    scene.release();
}

void tst_GridMouseMoves::move_afterAPressOnAnElement_tellsNothing_data()
{
    QTest::addColumn<unsigned>("element");
    QTest::newRow("button") << 2U;
    QTest::newRow("check box") << 5U;
    QTest::newRow("lead image") << 7U;
}

void tst_GridMouseMoves::move_afterAPressOnAnElement_tellsNothing()
{
    QFETCH(unsigned, element);
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.press(scene.point(scene.a, element));
    scene.notes.calls.clear();
    scene.move(scene.point(scene.c));
    scene.release();
    QCOMPARE(scene.notes.text(), QString());
}

void tst_GridMouseMoves::move_toAPlaceOutsideTheCells_usesUpThePress()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.press(scene.point(scene.b));
    scene.notes.calls.clear();
    scene.move(QPoint(20, 190));
    scene.move(scene.point(scene.b));
    QCOMPARE(scene.notes.text(), QString());
    scene.release();
}

void tst_GridMouseMoves::move_withoutASink_usesUpThePress()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.press(scene.point(scene.b));
    scene.grid->setNotification(nullptr);
    scene.move(scene.point(scene.c));
    scene.grid->setNotification(&scene.notes);
    scene.notes.calls.clear();
    scene.move(scene.point(scene.b));
    QCOMPARE(scene.notes.text(), QString());
    scene.release();
}

// As a drag turns the event loop.
void tst_GridMouseMoves::secondMove_fromWithinTheFirst_tellsNothing()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.press(scene.point(scene.b));
    scene.notes.calls.clear();
    scene.notes.act = [&](QString const &) { scene.move(scene.point(scene.b)); };
    scene.move(scene.point(scene.c));
    QCOMPARE(scene.notes.text(), "hover c/0");
    scene.notes.act = nullptr;
    scene.release();
}

void tst_GridMouseMoves::pressAfterTheLastRowWentAway_isOneOutsideTheCells()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    QPoint const point = scene.point(scene.c);
    scene.press(point);
    scene.grid->DeleteAllRows();
    scene.notes.calls.clear();
    scene.move(point + QPoint(2, 2));
    scene.release();
    QCOMPARE(scene.notes.text(), QString());
    scene.click(point);
    scene.click(point, Qt::RightButton);
    scene.notes.stopDoubleClick = false;
    scene.doubleClick(point);
    QCOMPARE(scene.notes.text(), "click -/-1 0; right -/-1 0; click -/-1 0; double -/-1 0");
    scene.grid->addMany(2);
    while (scene.grid->GetColumnsCount() != 0) {
        scene.grid->DeleteColumn(scene.grid->firstColumn());
    }
    scene.click(point);
    QCOMPARE(scene.notes.text(), "click -/-1 0");
}

void tst_GridMouseMoves::sink_replacedOrTakenAwayInTheMiddle_data()
{
    QTest::addColumn<QString>("when");
    QTest::addColumn<bool>("replaced");
    for (char const * const when : {"click", "selecting", "selected", "expanding", "hover"}) {
        QTest::addRow("taken away in %s", when) << when << false;
        QTest::addRow("replaced in %s", when) << when << true;
    }
}

// What follows goes to whichever sink is there then.
void tst_GridMouseMoves::sink_replacedOrTakenAwayInTheMiddle()
{
    QFETCH(QString, when);
    QFETCH(bool, replaced);
    ClickScene scene;
    QVERIFY(scene.showFocused());
    auto first = std::make_unique<InputNotes>(scene.grid);
    InputNotes second(scene.grid);
    scene.grid->setNotification(first.get());
    QStringList before;
    first->act = [&](QString const & what) {
        if (what == when) {
            before = first->calls;
            scene.grid->setNotification(replaced ? &second : nullptr);
            first.reset();
        }
    };
    bool const hovers = when == QStringLiteral("hover");
    scene.press(scene.point(hovers ? scene.b : scene.a, hovers ? GCEL_CELL : GCEL_BUTTON));
    scene.move(scene.point(scene.c));
    scene.release();
    QVERIFY(!first);
    QStringList const all = hovers ? QStringList{"click b/0 6",     "selecting -a +b", "selected",
                                                 "selecting -b +b", "selected",        "hover c/0"}
                                   : QStringList{"click a/0 2", "selecting +a", "selected",
                                                 "expanding a", "expanded a"};
    QCOMPARE(before + second.calls, replaced ? all : before);
    QCOMPARE(before, all.mid(0, before.size()));
    QCOMPARE(scene.grid->order(), hovers ? "a a1 b c" : "a b c");
    scene.grid->setNotification(nullptr);
}

void tst_GridMouseMoves::hoverTimer_marksTheCellUnderTheMouse_andLeavingClearsIt()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
    auto const isHot = [&](tag_HROW * row) {
        GC_ITEM item;
        item.mask = GCIM_STATE;
        item.stateMask = GCIS_HOT;
        scene.grid->GetItem(row, scene.column, &item);
        return (item.state & GCIS_HOT) != 0;
    };
    auto const hover = [&](tag_HROW * row) {
        scene.move(scene.point(row));
        frame.hoverTimer.start(0, scene.grid);
        return QTest::qWaitFor([&] { return !frame.hoverTimer.isActive(); });
    };
    QVERIFY(hover(scene.b));
    QVERIFY(isHot(scene.b) && !isHot(scene.c));
    scene.key(Qt::Key_Down);
    QVERIFY(!isHot(scene.b));

    QVERIFY(hover(scene.c));
    QVERIFY(isHot(scene.c));
    scene.move(scene.grid->mapFrom(&scene.window, scene.other->geometry().center()));
    QVERIFY(!isHot(scene.c)); // the mouse has left

    QVERIFY(hover(scene.b));
    scene.grid->DeleteRow(scene.c);
    QVERIFY(!isHot(scene.b));
    QVERIFY(hover(scene.b));
    scene.grid->DeleteRow(scene.b);
    QVERIFY(!frame.hover.row);
    scene.move(QPoint(20, 190));
    frame.hoverTimer.start(0, scene.grid);
    QTRY_VERIFY(!frame.hoverTimer.isActive());
    QVERIFY(!frame.hover.row);
}

void tst_GridMouseMoves::events_ofAGridThatIsEmpty_areHarmless()
{
    InputWindow scene;
    InputNotes notes(scene.grid);
    QVERIFY(scene.show());
    notes.stopDoubleClick = false;
    scene.click(QPoint(10, 80));
    scene.doubleClick(QPoint(10, 80));
    scene.press(QPoint(10, 80));
    scene.move(QPoint(20, 90));
    scene.release();
    scene.click(QPoint(10, 80), Qt::RightButton, Qt::ShiftModifier);
    QCOMPARE(notes.text(), "focusin; click -/-1 0; click -/-1 0; double -/-1 0; click -/-1 0; "
                           "right -/-1 0");
    QCOMPARE(checkGrid(*scene.grid), QString());
}

ZENU_TEST(tst_GridMouseMoves)
#include "tst_GridMouseMoves.moc"
