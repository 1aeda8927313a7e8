#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

#include <zenu/overlay/surface/WidgetSurface.h>

#include <QApplication>
#include <QScreen>

using namespace zenu;
using zenutest::paintPending;
using zenutest::resizeCursorShown;
using zenutest::ShownHeader;
using zenutest::TestHeader;

class tst_HeaderDrag : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void drag_whenResized_setsWidthAtEachMove();
    void drag_whenResized_releaseKeepsWidth();
    void drag_whenResized_notificationSeesTheNewWidth();
    void drag_lineModeBelowMinimum_lineFollowsTheMouse();
    void drag_lineModeProportional_refusedMoveLeavesTheLine();
    void drag_proportional_newWidthsAreTheNewShares();
    void drag_belowMinimum_stopsThere();
    void drag_leftOfItem_stopsAtZero();
    void drag_whenResized_repaintsToTheEnd();
    void drag_lineMode_changesNoWidth();
    void drag_lineMode_lineIsInvertedOnTheScreen();
    void drag_lineMode_lineFollowsAndVanishes();
    void drag_lineMode_lineSurvivesRepaint();
    void drag_lineMode_lineStopsAtTheItemsLeft();
    void drag_proportionalPastTheEdge_isRefused();
    void drag_proportional_raisesItemsBehindToMinima();
    void drag_proportional_computesTrackShares();
    void drag_cancelledByNotification_restoresWidth();
    void drag_vertical_hasNoDividers();
    void drag_leave_ends();
    void drag_lostFocus_ends();
    void drag_hidden_endsAndGivesCursorBack();
    void drag_withoutNotification_works();
    void drawDragLine_twice_erases();
    void drawDragLine_hiddenHeader_doesNothing();
};

namespace {

// The header as it stands on the screen, without a paint event.
QImage screen(TestHeader & header)
{
    WidgetSurface surface(&header);
    if (!surface.begin(header.rect())) {
        return QImage();
    }
    return surface.copy(header.rect()).convertToFormat(QImage::Format_RGB32);
}

// The header stands at the left edge of its window, so columns round as in its picture.
QImage withLine(QImage image, int x)
{
    qreal const ratio = QApplication::primaryScreen()->devicePixelRatio();
    for (int column = qRound(x * ratio); column < qRound((x + 1) * ratio); ++column) {
        for (int y = 0; y < image.height(); ++y) {
            image.setPixel(column, y, image.pixel(column, y) ^ 0xffffff);
        }
    }
    return image;
}

} // namespace

void tst_HeaderDrag::drag_whenResized_setsWidthAtEachMove()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(98);
    shown.move(118);
    QCOMPARE(shown.header->widths(), QStringLiteral("120 100"));
    shown.move(58);
    QCOMPARE(shown.header->widths(), QStringLiteral("60 100"));
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 0 100; track 0 120; track 0 60"));
}

void tst_HeaderDrag::drag_whenResized_releaseKeepsWidth()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(130);
    shown.release(130);
    shown.move(10);
    QCOMPARE(shown.header->widths(), QStringLiteral("130 100"));
}

void tst_HeaderDrag::drag_belowMinimum_stopsThere()
{
    ShownHeader shown;
    shown.header->addItems({100, 100}, HeaderFormatText, 30);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(10);
    QCOMPARE(shown.header->widths(), QStringLiteral("30 100"));
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 0 100; track 0 30"));
}

void tst_HeaderDrag::drag_leftOfItem_stopsAtZero()
{
    ShownHeader shown;
    shown.header->addItems({100, 100}, HeaderFormatText, -50);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(200);
    shown.move(20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 0"));
}

void tst_HeaderDrag::drag_whenResized_repaintsToTheEnd()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(100);
    paintPending();
    shown.move(60);
    paintPending();
    // What is on the screen is what a fresh picture shows.
    QImage picture = shown.header->grab().toImage().convertToFormat(QImage::Format_RGB32);
    picture.setDevicePixelRatio(1);
    QCOMPARE(screen(*shown.header), picture);
}

void tst_HeaderDrag::drag_lineMode_changesNoWidth()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(150);
    shown.release(150);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 100"));
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 0 100; track 0 150"));
}

void tst_HeaderDrag::drag_lineMode_lineIsInvertedOnTheScreen()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    paintPending();
    QImage const before = screen(*shown.header);
    QVERIFY(!before.isNull());
    shown.header->painted = QRegion();
    shown.press(100);
    QCOMPARE(screen(*shown.header), withLine(before, 100));
    QVERIFY(shown.header->painted.isEmpty());
    shown.release(100);
}

void tst_HeaderDrag::drag_lineMode_lineFollowsAndVanishes()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    paintPending();
    QImage const before = screen(*shown.header);
    shown.press(98);
    shown.move(148);
    QCOMPARE(screen(*shown.header), withLine(before, 148));
    shown.move(160);
    QCOMPARE(screen(*shown.header), withLine(before, 160));
    shown.release(160);
    paintPending();
    QCOMPARE(screen(*shown.header), before);
}

void tst_HeaderDrag::drag_lineMode_lineSurvivesRepaint()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    paintPending();
    QImage const before = screen(*shown.header);
    shown.press(100);
    shown.header->update(QRect(95, 3, 20, 5), false);
    paintPending();
    QCOMPARE(screen(*shown.header), withLine(before, 100));
    shown.header->update(true);
    paintPending();
    shown.move(140);
    QCOMPARE(screen(*shown.header), withLine(before, 140));
    shown.release(140);
}

void tst_HeaderDrag::drag_lineMode_lineStopsAtTheItemsLeft()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    paintPending();
    QImage const before = screen(*shown.header);
    shown.press(200);
    shown.move(40);
    QCOMPARE(screen(*shown.header), withLine(before, 100));
    shown.release(40);
}

void tst_HeaderDrag::drag_proportionalPastTheEdge_isRefused()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.header->addItems({200, 100, 99}, HeaderFormatText, 50);
    shown.press(200);
    shown.move(299);
    QCOMPARE(shown.header->getItem(0)->getWH(), 299);
    shown.recorder.taken();
    shown.move(300);
    QCOMPARE(shown.header->getItem(0)->getWH(), 299);
    QCOMPARE(shown.recorder.taken(), QString());
    shown.move(250);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("track 0 250"));
}

void tst_HeaderDrag::drag_proportional_raisesItemsBehindToMinima()
{
    // Neither a setter nor the sizing leaves an item below its minimum; a sticking last item is.
    ShownHeader shown;
    shown.header->addItems({100});
    shown.header->addItems({60}, HeaderFormatText, 50);
    shown.header->setStickLastToEdge(true);
    QVERIFY(shown.show());
    shown.header->resize(120, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 20"));
    shown.header->doTrack(0, 100);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 50"));
}

void tst_HeaderDrag::drag_proportional_computesTrackShares()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->addItems({100, 50, 150});
    shown.press(100);
    QCOMPARE(shown.header->getItem(0)->getTrackPercent(), 0.0);
    QCOMPARE(shown.header->getItem(1)->getTrackPercent(), 0.25);
    QCOMPARE(shown.header->getItem(2)->getTrackPercent(), 0.75);
    shown.release(100);
}

void tst_HeaderDrag::drag_cancelledByNotification_restoresWidth()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(130);
    shown.recorder.cancelTrack = true;
    shown.move(150);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 100"));
    shown.recorder.taken();
    shown.move(170);
    QCOMPARE(shown.recorder.taken(), QString());
    shown.header->setFocus();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("in; out"));
}

void tst_HeaderDrag::drag_vertical_hasNoDividers()
{
    ShownHeader shown({20, 20});
    shown.header->setVert(true);
    shown.header->setGeometry(0, 0, 100, 60);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.press(50, Qt::LeftButton, 20);
    shown.move(50, 40);
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left"));
    QCOMPARE(shown.header->widths(), QStringLiteral("20 20"));
    QVERIFY(!resizeCursorShown());
}

void tst_HeaderDrag::drag_leave_ends()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    paintPending();
    QImage const before = screen(*shown.header);
    shown.press(100);
    shown.move(130);
    shown.leave();
    paintPending();
    QCOMPARE(screen(*shown.header), before);
    QVERIFY(!resizeCursorShown());
    shown.recorder.taken();
    shown.move(150);
    QCOMPARE(shown.recorder.taken(), QString());
}

void tst_HeaderDrag::drag_lostFocus_ends()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.press(100);
    shown.move(130);
    shown.recorder.taken();
    shown.header->clearFocus();
    QCOMPARE(shown.recorder.taken(), QStringLiteral("out"));
    shown.move(170);
    QCOMPARE(shown.header->widths(), QStringLiteral("130 100"));
}

void tst_HeaderDrag::drag_hidden_endsAndGivesCursorBack()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    shown.press(100);
    shown.move(130);
    QVERIFY(resizeCursorShown());
    shown.header->hide();
    QVERIFY(!QApplication::overrideCursor());
    shown.header->show();
    shown.recorder.taken();
    shown.move(150);
    QCOMPARE(shown.recorder.taken(), QString());
}

void tst_HeaderDrag::drag_withoutNotification_works()
{
    ShownHeader shown({100, 100});
    shown.header->setNotification(nullptr);
    shown.header->setDragWhenResized(true);
    shown.header->setButtons(true);
    QVERIFY(shown.show());
    shown.header->setFocus();
    shown.press(100);
    shown.move(130);
    shown.release(130);
    shown.doubleClick(130);
    shown.press(50);
    shown.press(50, Qt::RightButton);
    shown.header->clearFocus();
    QCOMPARE(shown.header->widths(), QStringLiteral("130 100"));
}

void tst_HeaderDrag::drawDragLine_twice_erases()
{
    ShownHeader shown({100, 100});
    QVERIFY(shown.show());
    paintPending();
    QImage const before = screen(*shown.header);
    shown.header->drawDragLine(42);
    QCOMPARE(screen(*shown.header), withLine(before, 42));
    shown.header->drawDragLine(42);
    QCOMPARE(screen(*shown.header), before);
}

void tst_HeaderDrag::drawDragLine_hiddenHeader_doesNothing()
{
    TestHeader header;
    header.drawDragLine(3);
    header.drawDragLine(3);
    header.drawDragLine(-5);
    header.drawDragLine(100000);
}

void tst_HeaderDrag::drag_whenResized_notificationSeesTheNewWidth()
{
    ShownHeader shown({100, 100});
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    int seen = 0;
    shown.recorder.act = [&] { seen = shown.header->getItem(0)->getWH(); };
    shown.press(100);
    shown.move(130);
    QCOMPARE(seen, 130);
}

void tst_HeaderDrag::drag_lineModeBelowMinimum_lineFollowsTheMouse()
{
    ShownHeader shown;
    shown.header->addItems({100, 100}, HeaderFormatText, 80);
    QVERIFY(shown.show());
    paintPending();
    QImage const before = screen(*shown.header);
    shown.press(100);
    shown.move(50);
    QCOMPARE(screen(*shown.header), withLine(before, 50));
    QCOMPARE(shown.recorder.taken(), QStringLiteral("left; begin 0 100; track 0 80"));
    shown.release(50);
}

void tst_HeaderDrag::drag_lineModeProportional_refusedMoveLeavesTheLine()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    QVERIFY(shown.show());
    shown.header->addItems({200, 100, 99}, HeaderFormatText, 50);
    paintPending();
    QImage const before = screen(*shown.header);
    shown.press(200);
    shown.move(250);
    shown.recorder.taken();
    shown.move(310);
    QCOMPARE(screen(*shown.header), withLine(before, 250));
    QCOMPARE(shown.recorder.taken(), QString());
    shown.release(310);
}

void tst_HeaderDrag::drag_proportional_newWidthsAreTheNewShares()
{
    ShownHeader shown;
    shown.header->setProportional(true);
    shown.header->setDragWhenResized(true);
    QVERIFY(shown.show());
    shown.header->addItems({100, 100, 100});
    shown.press(100);
    shown.move(200);
    shown.release(200);
    QCOMPARE(shown.header->widths(), QStringLiteral("200 100 100"));
    shown.header->resize(200, 20);
    QCOMPARE(shown.header->widths(), QStringLiteral("100 50 50"));
}

ZENU_TEST(tst_HeaderDrag)
#include "tst_HeaderDrag.moc"
