#include "tests/grid_input/ClickScene.h"

using namespace zenu;
using namespace zenutest;

class tst_GridClicks : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void press_outsideAnyCell_isToldWithoutRowAndColumnAndSelectsNothing_data();
    void press_outsideAnyCell_isToldWithoutRowAndColumnAndSelectsNothing();
    void press_outsideAnyCell_givesTheFocusFirst();
    void press_onTheButton_leavesAMultipleSelection();
    void press_onASelectedRow_collapsesTheSelectionAtOnce();
    void ctrlPress_onASelectedRow_deselectsIfNoElementTakesIt_data();
    void ctrlPress_onASelectedRow_deselectsIfNoElementTakesIt();
    void ctrlPress_inASingleSelection_endsWithNothingSelected();
    void leftPress_isToldBeforeTheSelection_rightPressAfterIt();
    void rightPress_onAnUnselectedRow_selectsItAloneFirst();
    void rightPress_onASelectedRow_keepsTheSelection();
    void rightPress_answerIsIgnored();
    void leftPress_refused_changesNothingButTheKeyboardFocus();
    void refusedSelection_leavesTheFocusMoved();
    void doubleClick_byDefault_expandsNothing();
    void doubleClick_letThrough_togglesARowWhereverItFell();
    void doubleClick_withoutASink_doesNothing();
    void doubleClick_ofTheRightButton_isARightPressAlone();
    void doubleClick_leavesThePressState();
    void middlePress_tellsNothing();
    void leadImage_isToldOfWithoutAnElement();
    void button_ofARowWithoutChildren_isNoButton();
    void button_inAColumnWithoutTree_isNoButton();
};

void tst_GridClicks::press_outsideAnyCell_isToldWithoutRowAndColumnAndSelectsNothing_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("button");
    QTest::newRow("left, below the rows") << QPoint(20, 190) << int(Qt::LeftButton);
    QTest::newRow("right, below the rows") << QPoint(20, 190) << int(Qt::RightButton);
    QTest::newRow("left, right of the columns") << QPoint(200, 30) << int(Qt::LeftButton);
    QTest::newRow("right, right of the columns") << QPoint(200, 30) << int(Qt::RightButton);
}

void tst_GridClicks::press_outsideAnyCell_isToldWithoutRowAndColumnAndSelectsNothing()
{
    QFETCH(QPoint, point);
    QFETCH(int, button);
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.select({scene.b, scene.c});
    scene.press(point, static_cast<Qt::MouseButton>(button));
    QCOMPARE(scene.notes.text(), button == Qt::LeftButton ? "click -/-1 0" : "right -/-1 0");
    scene.move(point + QPoint(1, 1));
    scene.release(static_cast<Qt::MouseButton>(button));
    QCOMPARE(scene.notes.text(), QString());
    QCOMPARE(scene.grid->selected(), "b c");
    QCOMPARE(scene.grid->focus(), "a/0");
}

void tst_GridClicks::press_outsideAnyCell_givesTheFocusFirst()
{
    ClickScene scene;
    QVERIFY(scene.show());
    scene.click(QPoint(20, 190));
    QCOMPARE(scene.notes.text(), "selecting +a; selected; focusin; click -/-1 0");
    QVERIFY(scene.grid->hasFocus());
    scene.notes.stopDoubleClick = false;
    scene.doubleClick(QPoint(20, 190));
    QCOMPARE(scene.notes.text(), "click -/-1 0; double -/-1 0");
    QCOMPARE(scene.grid->selected(), "a");
}

void tst_GridClicks::press_onTheButton_leavesAMultipleSelection()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.select({scene.a, scene.c});
    scene.click(scene.point(scene.a, GCEL_BUTTON));
    QCOMPARE(scene.notes.text(), "click a/0 2; selecting +a; selected; expanding a; expanded a");
    QCOMPARE(scene.grid->order(), "a b c");
    QCOMPARE(scene.grid->selected(), "a c");
    // One on a row that is not selected selects it alone, and expands it all the same.
    scene.select({scene.b, scene.c});
    scene.click(scene.point(scene.a, GCEL_BUTTON));
    QCOMPARE(scene.grid->order(), "a a1 b c");
    QCOMPARE(scene.grid->selected(), "a");
}

void tst_GridClicks::press_onASelectedRow_collapsesTheSelectionAtOnce()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.select({scene.a, scene.b, scene.c});
    scene.press(scene.point(scene.b));
    QCOMPARE(scene.notes.text(),
             "click b/0 6; selecting +b; selected; selecting -a -b -c +b; selected");
    QCOMPARE(scene.grid->selected(), "b");
    scene.release();
    QCOMPARE(scene.notes.text(), QString());
}

void tst_GridClicks::ctrlPress_onASelectedRow_deselectsIfNoElementTakesIt_data()
{
    QTest::addColumn<unsigned>("element");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("selected");
    QTest::newRow("the text") << 4U << "click a/0 4; selecting -a; selected"
                              << "c";
    QTest::newRow("beside the elements") << 6U << "click a/0 6; selecting -a; selected"
                                         << "c";
    QTest::newRow("the button") << 2U << "click a/0 2; expanding a; expanded a"
                                << "a c";
    QTest::newRow("the lead image") << 7U << "click a/0 7; lead a/0 0"
                                    << "a c";
    QTest::newRow("the check box") << 5U << "click a/0 5"
                                   << "a c";
}

void tst_GridClicks::ctrlPress_onASelectedRow_deselectsIfNoElementTakesIt()
{
    QFETCH(unsigned, element);
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.select({scene.a, scene.c});
    scene.click(scene.point(scene.a, element), Qt::LeftButton, Qt::ControlModifier);
    QTEST(scene.notes.text(), "told");
    QTEST(scene.grid->selected(), "selected");
}

void tst_GridClicks::ctrlPress_inASingleSelection_endsWithNothingSelected()
{
    ClickScene scene(GCS_SINGLESEL);
    QVERIFY(scene.showFocused());
    scene.select({scene.b});
    scene.click(scene.point(scene.b), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(scene.notes.text(), "click b/0 6; selecting -b +b; selected; selecting -b; selected");
    QCOMPARE(scene.grid->selected(), QString());
}

void tst_GridClicks::leftPress_isToldBeforeTheSelection_rightPressAfterIt()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    QStringList seen;
    scene.notes.act = [&](QString const & what) {
        if (what == QStringLiteral("click") || what == QStringLiteral("right")) {
            seen << what + u' ' + scene.grid->selected() + u' ' + scene.grid->focus();
        }
    };
    scene.click(scene.point(scene.b));
    scene.click(scene.point(scene.c), Qt::RightButton);
    QCOMPARE(seen, (QStringList{"click a a/0", "right c c/0"}));
}

void tst_GridClicks::rightPress_onAnUnselectedRow_selectsItAloneFirst()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.select({scene.a, scene.c});
    scene.click(scene.point(scene.b), Qt::RightButton);
    QCOMPARE(scene.notes.text(), "selecting -a -c +b; selected; right b/0 6");
    QCOMPARE(scene.grid->selected(), "b");
    QCOMPARE(scene.grid->focus(), "b/0");
}

void tst_GridClicks::rightPress_onASelectedRow_keepsTheSelection()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.select({scene.a, scene.c});
    scene.click(scene.point(scene.c, GCEL_CHECK), Qt::RightButton);
    QCOMPARE(scene.notes.text(), "selecting +c; selected; right c/0 5");
    QCOMPARE(scene.grid->selected(), "a c");
    scene.click(scene.point(scene.c), Qt::RightButton, Qt::ControlModifier);
    QCOMPARE(scene.notes.text(), "selecting -c; selected; right c/0 6");
    QCOMPARE(scene.grid->selected(), "a");
}

void tst_GridClicks::rightPress_answerIsIgnored()
{
    struct Yes : InputNotes
    {
        using InputNotes::InputNotes;
        bool OnRightClick(tag_HROW * row, tag_HCOLUMN * column, unsigned element) override
        {
            return !InputNotes::OnRightClick(row, column, element);
        }
    };
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.click(scene.point(scene.a, GCEL_BUTTON), Qt::RightButton);
    Yes yes(scene.grid);
    scene.click(scene.point(scene.a, GCEL_BUTTON), Qt::RightButton);
    QCOMPARE(scene.notes.text(), "selecting +a; selected; right a/0 2");
    QCOMPARE(yes.text(), "selecting +a; selected; right a/0 2");
    QCOMPARE(scene.grid->order(), "a a1 b c");
}

void tst_GridClicks::leftPress_refused_changesNothingButTheKeyboardFocus()
{
    ClickScene scene;
    QVERIFY(scene.show());
    scene.notes.allowClick = false;
    scene.grid->SetRowSel(scene.c, true);
    scene.notes.calls.clear();
    scene.click(scene.point(scene.a, GCEL_BUTTON));
    QCOMPARE(scene.notes.text(), "focusin; click a/0 2");
    QVERIFY(scene.grid->hasFocus());
    QCOMPARE(scene.grid->selected() + scene.grid->focus() + scene.grid->order(), "cc/0a a1 b c");
    scene.press(scene.point(scene.b));
    scene.move(scene.point(scene.c));
    QCOMPARE(scene.notes.text(), "click b/0 6");
    scene.release();
}

void tst_GridClicks::refusedSelection_leavesTheFocusMoved()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.notes.allowSelection = false;
    scene.click(scene.point(scene.c));
    QCOMPARE(scene.notes.text(), "click c/0 6; selecting -a +c; selecting -a +c");
    QCOMPARE(scene.grid->selected(), "a");
    QCOMPARE(scene.grid->focus(), "c/0");
    // What the press hits acts all the same.
    scene.click(scene.point(scene.a, GCEL_BUTTON));
    QCOMPARE(scene.notes.text(), "click a/0 2; selecting +a; expanding a; expanded a");
}

void tst_GridClicks::doubleClick_byDefault_expandsNothing()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    IGridNotification plain;
    scene.grid->setNotification(&plain);
    scene.doubleClick(scene.point(scene.a));
    QCOMPARE(scene.grid->order(), "a a1 b c");
    scene.grid->setNotification(scene.grid); // a grid is its own sink at first
    scene.doubleClick(scene.point(scene.a));
    QCOMPARE(scene.grid->order(), "a a1 b c");
}

void tst_GridClicks::doubleClick_letThrough_togglesARowWhereverItFell()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.notes.stopDoubleClick = false;
    unsigned const elements[] = {GCEL_CELL, GCEL_TEXT, GCEL_CHECK, GCEL_LEAD};
    bool expanded = true;
    for (unsigned const element : elements) {
        scene.doubleClick(scene.point(scene.a, element));
        expanded = !expanded;
        QCOMPARE(scene.grid->order(), expanded ? "a a1 b c" : "a b c");
    }
    // On the button the first press toggles already.
    scene.doubleClick(scene.point(scene.a, GCEL_BUTTON));
    QCOMPARE(scene.grid->order(), "a a1 b c");
    scene.notes.calls.clear();
    scene.doubleClick(scene.point(scene.b, GCEL_LEAD));
    QCOMPARE(scene.notes.text(), "click b/0 7; selecting -a +b; selected; lead b/0 0; "
                                 "double b/0 7; selecting +b; selected; lead b/0 0");
}

void tst_GridClicks::doubleClick_withoutASink_doesNothing()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.grid->setNotification(nullptr);
    scene.doubleClick(scene.point(scene.a));
    QCOMPARE(scene.grid->order(), "a a1 b c");
    scene.click(scene.point(scene.a, GCEL_BUTTON)); // a press needs none
    QCOMPARE(scene.grid->order(), "a b c");
    scene.click(scene.point(scene.b), Qt::RightButton);
    QCOMPARE(scene.grid->selected(), "b");
}

void tst_GridClicks::doubleClick_ofTheRightButton_isARightPressAlone()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.notes.stopDoubleClick = false;
    scene.doubleClick(scene.point(scene.a), Qt::RightButton);
    QCOMPARE(scene.notes.text(), "selecting +a; selected; right a/0 6");
}

void tst_GridClicks::doubleClick_leavesThePressState()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.notes.stopDoubleClick = false;
    QPoint const point = scene.point(scene.b);
    scene.click(point);
    scene.notes.calls.clear();
    // The press of a double click, without its release.
    QMouseEvent twice(QEvent::MouseButtonDblClick, point, scene.grid->mapToGlobal(point),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(scene.grid, &twice);
    QCOMPARE(scene.notes.text(), "double b/0 6; selecting +b; selected");
    scene.move(scene.point(scene.c));
    QCOMPARE(scene.notes.text(), QString());
}

void tst_GridClicks::middlePress_tellsNothing()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.click(scene.point(scene.b), Qt::MiddleButton);
    scene.doubleClick(scene.point(scene.b), Qt::MiddleButton);
    QCOMPARE(scene.notes.text(), QString());
    QCOMPARE(scene.grid->selected(), "a");
}

void tst_GridClicks::leadImage_isToldOfWithoutAnElement()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.select({scene.b, scene.c});
    scene.click(scene.point(scene.b, GCEL_LEAD));
    QCOMPARE(scene.notes.text(), "click b/0 7; selecting +b; selected; lead b/0 0");
    QCOMPARE(scene.grid->selected(), "b c");
}

void tst_GridClicks::button_ofARowWithoutChildren_isNoButton()
{
    ClickScene scene;
    QVERIFY(scene.showFocused());
    scene.click(scene.point(scene.b, GCEL_BUTTON));
    QCOMPARE(scene.notes.text(),
             "click b/0 2; selecting -a +b; selected; selecting -b +b; selected");
}

void tst_GridClicks::button_inAColumnWithoutTree_isNoButton()
{
    ClickScene scene(0, 0);
    QVERIFY(scene.showFocused());
    QCOMPARE(scene.point(scene.a, GCEL_BUTTON), QPoint(-1, -1));
    scene.click(QPoint(4, scene.point(scene.a).y()));
    QCOMPARE(scene.grid->order(), "a a1 b c");
}

ZENU_TEST(tst_GridClicks)
#include "tst_GridClicks.moc"
