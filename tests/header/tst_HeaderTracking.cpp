#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::paintPending;
using zenutest::Recorder;
using zenutest::ShownHeader;

class tst_HeaderTracking : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void pressLeft_bodyOfButton_presses();
    void pressLeft_bodyWithoutButtons_onlyNotifiesThePress();
    void pressLeft_space_isTheLastDivider();
    void pressLeft_emptyHeader_onlyNotifiesThePress();
    void pressLeft_withinFourPixelsRightOfDivider_resizesTheItemAtTheLeft();
    void pressLeft_refusedByNotification_doesNotTrack();
    void pressLeft_fixedItem_doesNotTrack();
    void pressLeft_stickingLastItem_doesNotTrack();
    void pressLeft_notification_mayChangeTheSavedWidth();
    void pressLeft_dividerWithoutWidth_resizesThatItem();
    void press_itemsMoveInTheCall_leftKeepsItsHitAndRightTakesANewOne();
    void pressAndRelease_ofAButton_repaintTheHeader();
    void focusOut_pressAfterADrag_reportsTheWidthSavedThen();
    void focusOut_pressedButton_isNoLongerDrawnPressed();
    void pressRight_bodyAndDivider_onlyBodyIsReported();
    void pressMiddle_anywhere_isNotReported();
    void release_button_keepsPressedItemForFocus();
    void doubleClick_divider_changesNoSize();
    void doubleClick_body_isReportedInButtonModeOnly();
    void focus_gainAndLoss_areReported();
    void focusOut_pressedButton_reportsEndOnce();
    void focusOut_tracking_reportsNoEnd();
    void hotTrack_moves_followTheMouse();
    void hotTrack_anotherItemOrADivider_repaintsTheHeader();
    void hotTrack_leave_clears();
    void hotTrack_off_neverSets();
};

void tst_HeaderTracking::pressLeft_bodyOfButton_presses()
{
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.recorder.taken();
    shown.press(150);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; click 1"));
    shown.release(150);
    QCOMPARE(shown.recorder.taken(), QString());
}

void tst_HeaderTracking::pressLeft_bodyWithoutButtons_onlyNotifiesThePress()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.recorder.taken();
    shown.press(150);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left"));
}

void tst_HeaderTracking::pressLeft_space_isTheLastDivider()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.press(350);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 1 100"));
    shown.release(350);
}

void tst_HeaderTracking::pressLeft_emptyHeader_onlyNotifiesThePress()
{
    ShownHeader shown;
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.press(50);
    shown.move(60);
    shown.release(60);
    shown.doubleClick(50);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; double"));
}

void tst_HeaderTracking::pressLeft_withinFourPixelsRightOfDivider_resizesTheItemAtTheLeft()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(104);
    shown.move(114);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 0 100; track 0 110"));
    QCOMPARE(shown.header->widths(), QStringLiteral("110 100"));
}

void tst_HeaderTracking::pressLeft_refusedByNotification_doesNotTrack()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    shown.recorder.refuseBegin = true;
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(150);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 0 100"));
    QCOMPARE(shown.header->widths(), QStringLiteral("100 100"));
}

void tst_HeaderTracking::pressLeft_fixedItem_doesNotTrack()
{
    ShownHeader shown;
    shown.header->addItems({100, 100}, HeaderFormatFixed);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(150);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left"));
    QCOMPARE(shown.header->widths(), QStringLiteral("100 100"));
}

void tst_HeaderTracking::pressLeft_stickingLastItem_doesNotTrack()
{
    ShownHeader shown({100, 100});
    shown.header->setStickLastToEdge(true);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(398);
    shown.move(350);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left"));
    shown.press(100);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 0 100"));
    shown.release(100);
}

void tst_HeaderTracking::pressLeft_notification_mayChangeTheSavedWidth()
{
    class Widener : public Recorder
    {
    public:
        bool onBeginTrack(int, int * wh) override
        {
            *wh = 77;
            return false;
        }
    };
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    Widener widener;
    widener.cancelTrack = true;
    shown.header->setNotification(&widener);
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(120);
    QCOMPARE(shown.header->widths(), QStringLiteral("77 100"));
    shown.header->setNotification(nullptr);
}

void tst_HeaderTracking::pressLeft_dividerWithoutWidth_resizesThatItem()
{
    ShownHeader shown({100, 0, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.doubleClick(103);
    shown.press(103, Qt::RightButton);
    shown.release(103);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("double; divider 1; right"));
    shown.press(103);
    shown.move(133);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 1 0; track 1 30"));
    QCOMPARE(shown.header->widths(), QStringLiteral("100 30 100"));
}

void tst_HeaderTracking::press_itemsMoveInTheCall_leftKeepsItsHitAndRightTakesANewOne()
{
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.recorder.act = [&] { shown.header->setWH(0, 180); };
    shown.press(150);
    shown.release(150);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; click 1"));
    shown.header->setWH(0, 100);
    shown.press(150, Qt::RightButton);
    shown.release(150);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("right; rightclick 0"));
    shown.header->setWH(0, 100);
    shown.doubleClick(150);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("double; doubleclick 1"));
}

void tst_HeaderTracking::pressAndRelease_ofAButton_repaintTheHeader()
{
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    paintPending();
    shown.header->painted = QRegion();
    shown.press(50);
    paintPending();
    QCOMPARE(shown.header->painted.boundingRect(), shown.header->rect());
    shown.header->painted = QRegion();
    shown.release(50);
    paintPending();
    QCOMPARE(shown.header->painted.boundingRect(), shown.header->rect());
}

void tst_HeaderTracking::focusOut_pressAfterADrag_reportsTheWidthSavedThen()
{
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.press(100);
    shown.move(130);
    shown.release(130);
    shown.press(50);
    shown.recorder.taken();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("out; end 0 100"));
}

void tst_HeaderTracking::focusOut_pressedButton_isNoLongerDrawnPressed()
{
    ShownHeader shown;
    shown.header->addItems({100, 100}, HeaderFormatOwnerDraw);
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.press(50);
    paintPending();
    QVERIFY(shown.recorder.taken().contains(QStringLiteral("draw 0 1 0")));
    shown.header->clearFocus();
    shown.recorder.taken();
    paintPending();
    QVERIFY(shown.recorder.taken().contains(QStringLiteral("draw 0 0 0")));
}

void tst_HeaderTracking::pressRight_bodyAndDivider_onlyBodyIsReported()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.recorder.taken();
    shown.press(50, Qt::RightButton);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("right; rightclick 0"));
    shown.press(100, Qt::RightButton);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("right"));
}

void tst_HeaderTracking::pressMiddle_anywhere_isNotReported()
{
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.press(50, Qt::MiddleButton);
    shown.press(100, Qt::MiddleButton);
    QCOMPARE(shown.recorder.taken(), QString());
}

// --- Cursor

void tst_HeaderTracking::release_button_keepsPressedItemForFocus()
{
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.press(50);
    int const cursorCalls = shown.header->cursorCalls;
    shown.release(50);
    QCOMPARE(shown.header->cursorCalls, cursorCalls + 1);
    shown.recorder.taken();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("out; end 0 0"));
}

void tst_HeaderTracking::doubleClick_divider_changesNoSize()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.doubleClick(100);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("double; divider 0"));
    QCOMPARE(shown.header->widths(), QStringLiteral("100 100"));
}

void tst_HeaderTracking::doubleClick_body_isReportedInButtonModeOnly()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.doubleClick(50);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("double"));
    shown.header->setButtons(true);
    shown.doubleClick(50);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("double; doubleclick 0"));
}

void tst_HeaderTracking::focus_gainAndLoss_areReported()
{
    ShownHeader shown({100});
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("in; out"));
}

void tst_HeaderTracking::focusOut_pressedButton_reportsEndOnce()
{
    ShownHeader shown({100, 100});
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.press(50);
    shown.recorder.taken();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("out; end 0 0"));
    shown.header->setFocus();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("in; out"));
}

void tst_HeaderTracking::focusOut_tracking_reportsNoEnd()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.press(100);
    shown.recorder.taken();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("out"));
}

void tst_HeaderTracking::hotTrack_moves_followTheMouse()
{
    ShownHeader shown({100, 100});
    shown.header->setHotTrack(true);
    QVERIFY(shown.show());
    shown.move(50);
    QCOMPARE(shown.header->getItemOver(), 0);
    shown.move(150);
    QCOMPARE(shown.header->getItemOver(), 1);
    shown.move(100);
    QCOMPARE(shown.header->getItemOver(), -1);
    shown.move(151);
    paintPending();
    shown.header->painted = QRegion();
    shown.move(152);
    paintPending();
    QVERIFY(shown.header->painted.isEmpty());
}

void tst_HeaderTracking::hotTrack_anotherItemOrADivider_repaintsTheHeader()
{
    ShownHeader shown({100, 100});
    shown.header->setHotTrack(true);
    QVERIFY(shown.show());
    for (int const x : {50, 150, 100, 101}) {
        paintPending();
        shown.header->painted = QRegion();
        shown.move(x);
        paintPending();
        QCOMPARE(shown.header->painted.boundingRect(), shown.header->rect());
    }
}

void tst_HeaderTracking::hotTrack_leave_clears()
{
    ShownHeader shown({100, 100});
    shown.header->setHotTrack(true);
    QVERIFY(shown.show());
    shown.move(50);
    paintPending();
    shown.header->painted = QRegion();
    shown.leave();
    QCOMPARE(shown.header->getItemOver(), -1);
    paintPending();
    QCOMPARE(shown.header->painted.boundingRect(), shown.header->rect());
}

void tst_HeaderTracking::hotTrack_off_neverSets()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.move(50);
    QCOMPARE(shown.header->getItemOver(), -1);
}

// --- Applications that pull the rug

ZENU_TEST(tst_HeaderTracking)
#include "tst_HeaderTracking.moc"
