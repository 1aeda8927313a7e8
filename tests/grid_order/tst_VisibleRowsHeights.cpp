#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using namespace zenutest;

class tst_VisibleRowsHeights : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void uniformRows_positionsAreMultiples();
    void firstExplicitHeight_turnsTheFormAtTheNextRebuild_andRemovingTheLastTurnsItBack();
    void heights_ofBothForms_agreeWhereTheyCan();
    void defaultHeight_uniformOrder_movesPositionsAtOnce_totalAtTheNextRebuild();
    void defaultHeight_variousOrder_waitsForTheNextComputation();
    void invalidateHeights_recomputesPositionsAndTop_withoutARebuild();
    void rowHeight_neverRebuilds_andWorksOutOfTheOrder();
    void negativeHeight_isKeptAsItIs();
    void zeroHeights_everySearchEnds();
    void zeroDefaultHeight_everySearchEnds();
    void resetOfAnUnknownHeight_isHarmless();
    void clearHeights_withoutAny_staysClean();
    void clearHeights_turnsTheFormBack();
    void forget_dropsTheHeight();
    void hugeHeights_saturate_indicesStayExact();
    void hugeNegativeHeights_saturate();
    void indexFromY_coversEachPixelOfEachRow();
};

void tst_VisibleRowsHeights::uniformRows_positionsAreMultiples()
{
    TestFrame frame;
    frame.addRows(10);
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(frame.GetTopOf(i), i * 20);
        QCOMPARE(frame.GetHeightAt(i), 20);
    }
    QCOMPARE(frame.GetTotalHeight(), 200);
}

void tst_VisibleRowsHeights::
    firstExplicitHeight_turnsTheFormAtTheNextRebuild_andRemovingTheLastTurnsItBack()
{
    TestFrame frame;
    frame.addRows(4);
    frame.UpdateNow();
    QVERIFY(!frame.HasExplicitHeights());
    IGCRow * const row = frame.GetRowAt(1);
    frame.SetRowHeight(row, 35);
    QVERIFY(frame.IsDirty());
    QCOMPARE(frame.GetTopOf(2), 55);
    QVERIFY(frame.HasExplicitHeights());
    frame.wrapper.defaultHeight = 100; // stored positions stay, so this is the various form
    QCOMPARE(frame.GetTopOf(2), 55);
    frame.ResetRowHeight(row);
    QVERIFY(!frame.HasExplicitHeights());
    QCOMPARE(frame.GetTopOf(2), 200);
    frame.wrapper.defaultHeight = 10; // positions follow, so this is the uniform form
    QCOMPARE(frame.GetTopOf(2), 20);
}

void tst_VisibleRowsHeights::heights_ofBothForms_agreeWhereTheyCan()
{
    TestFrame similar;
    TestFrame various;
    similar.addRows(30);
    various.addRows(30);
    various.SetRowHeight(various.rootRows.at(7), 20);
    various.SetTop(12);
    similar.SetTop(12);
    QCOMPARE(various.display(), similar.display());
    QCOMPARE(various.order(), similar.order());
    for (int y = -5; y < 610; ++y) {
        QCOMPARE(various.IndexFromY(y), similar.IndexFromY(y));
        QCOMPARE(various.RowUnderY(y), similar.RowUnderY(y));
    }
    for (int i = 0; i < 30; ++i) {
        QCOMPARE(various.GetTopOf(i), similar.GetTopOf(i));
        QCOMPARE(various.FirstIndexForBottom(i), similar.FirstIndexForBottom(i));
        QCOMPARE(various.VisibleCountFrom(i), similar.VisibleCountFrom(i));
    }
}

void tst_VisibleRowsHeights::defaultHeight_uniformOrder_movesPositionsAtOnce_totalAtTheNextRebuild()
{
    TestFrame frame;
    frame.addRows(10);
    QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=6 last=5 count=10 height=200"));
    frame.wrapper.defaultHeight = 50;
    QCOMPARE(frame.GetTopOf(3), 150);
    QCOMPARE(frame.GetHeightAt(3), 50);
    QCOMPARE(frame.IndexFromY(149), 2);
    QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=6 last=5 count=10 height=200"));
    frame.Invalidate();
    QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=3 last=2 count=10 height=500"));
}

void tst_VisibleRowsHeights::defaultHeight_variousOrder_waitsForTheNextComputation()
{
    TestFrame frame;
    frame.addRows(4);
    frame.SetRowHeight(frame.rootRows.at(0), 30);
    QCOMPARE(frame.GetTopOf(3), 70);
    frame.wrapper.defaultHeight = 50;
    QCOMPARE(frame.GetTopOf(3), 70);
    QCOMPARE(frame.GetHeightAt(3), 50);
    frame.InvalidateHeights();
    QCOMPARE(frame.GetTopOf(3), 130);
    QCOMPARE(frame.GetTotalHeight(), 180);
}

void tst_VisibleRowsHeights::invalidateHeights_recomputesPositionsAndTop_withoutARebuild()
{
    TestFrame frame;
    frame.addRows(20);
    frame.SetRowHeight(frame.rootRows.at(0), 30);
    frame.SetTop(5);
    QCOMPARE(frame.GetTopY(), 110);
    frame.wrapper.defaultHeight = 40;
    frame.takeJournal();
    frame.InvalidateHeights();
    QVERIFY(!frame.IsDirty());
    QCOMPARE(frame.GetTopY(), 190);
    QCOMPARE(frame.GetTopIndex(), 5);
    QVERIFY(frame.journal.isEmpty());
}

void tst_VisibleRowsHeights::rowHeight_neverRebuilds_andWorksOutOfTheOrder()
{
    TestFrame frame;
    IGCRow * const parent = frame.addRow(1);
    IGCRow * const child = frame.addRow(2, parent);
    frame.SetRowHeight(child, 44);
    frame.expand(parent, false);
    QCOMPARE(frame.GetRowHeight(child), 44);
    QCOMPARE(frame.GetRowHeight(parent), 20);
    QVERIFY(frame.IsDirty());
    QVERIFY(frame.journal.isEmpty());
}

void tst_VisibleRowsHeights::negativeHeight_isKeptAsItIs()
{
    TestFrame frame;
    frame.addRows(6);
    IGCRow * const row = frame.GetRowAt(2);
    frame.SetRowHeight(row, -1);
    QCOMPARE(frame.GetRowHeight(row), -1);
    QVERIFY(frame.HasExplicitHeights());
    QCOMPARE(frame.GetTopOf(2), 40);
    QCOMPARE(frame.GetTopOf(3), 39);
    QCOMPARE(frame.GetTotalHeight(), 99);
    for (int y = -10; y < 120; ++y) {
        QVERIFY(frame.IndexFromY(y) >= -1 && frame.IndexFromY(y) < 6);
        QVERIFY(frame.RowUnderY(y) >= -1 && frame.RowUnderY(y) < 6);
    }
    for (int i = 0; i < 6; ++i) {
        QVERIFY(frame.FirstIndexForBottom(i) < 6);
        QVERIFY(frame.VisibleCountFrom(i) >= 1);
    }
}

void tst_VisibleRowsHeights::zeroHeights_everySearchEnds()
{
    TestFrame frame(0);
    frame.addRows(5);
    for (int i = 0; i < 5; ++i) {
        frame.SetRowHeight(frame.rootRows.at(i), 0);
    }
    QCOMPARE(frame.GetTotalHeight(), 0);
    QCOMPARE(frame.IndexFromY(0), -1);
    QCOMPARE(frame.RowUnderY(0), 4);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(frame.VisibleCountFrom(i), 5 - i);
        frame.SetTop(i);
        QVERIFY(frame.GetTopIndex() < 5);
    }
}

void tst_VisibleRowsHeights::zeroDefaultHeight_everySearchEnds()
{
    for (int const height : {0, -3}) {
        TestFrame frame;
        frame.wrapper.defaultHeight = height;
        frame.addRows(5);
        QCOMPARE(frame.GetTotalHeight(), 5 * height);
        QCOMPARE(frame.IndexFromY(0), -1);
        QVERIFY(frame.RowUnderY(7) >= -1);
        QVERIFY(frame.FirstIndexForBottom(4) < 5);
        QVERIFY(frame.VisibleCountFrom(0) >= 1);
    }
}

void tst_VisibleRowsHeights::resetOfAnUnknownHeight_isHarmless()
{
    TestFrame frame;
    frame.addRows(2);
    frame.UpdateNow();
    frame.ResetRowHeight(frame.rootRows.at(1));
    QVERIFY(frame.IsDirty());
    QCOMPARE(frame.GetTotalHeight(), 40);
}

void tst_VisibleRowsHeights::clearHeights_withoutAny_staysClean()
{
    TestFrame frame;
    frame.addRows(2);
    frame.UpdateNow();
    frame.ClearHeights();
    QVERIFY(!frame.IsDirty());
}

void tst_VisibleRowsHeights::clearHeights_turnsTheFormBack()
{
    TestFrame frame;
    frame.addRows(3);
    frame.SetRowHeight(frame.rootRows.at(0), 5);
    frame.SetRowHeight(frame.rootRows.at(1), 6);
    QCOMPARE(frame.GetTotalHeight(), 31);
    frame.ClearHeights();
    QVERIFY(frame.IsDirty());
    QVERIFY(!frame.HasExplicitHeights());
    QCOMPARE(frame.GetTotalHeight(), 60);
}

void tst_VisibleRowsHeights::forget_dropsTheHeight()
{
    TestFrame frame;
    frame.addRows(3);
    frame.SetRowHeight(frame.rootRows.at(1), 77);
    QCOMPARE(frame.GetTotalHeight(), 117);
    frame.remove(frame.rootRows.at(1));
    QVERIFY(!frame.HasExplicitHeights());
    frame.addRow(9); // likely at the dead row's address
    QCOMPARE(frame.GetTotalHeight(), 60);
}

void tst_VisibleRowsHeights::hugeHeights_saturate_indicesStayExact()
{
    TestFrame frame;
    frame.addRows(10);
    for (int i = 0; i < 10; ++i) {
        frame.SetRowHeight(frame.rootRows.at(i), INT_MAX);
    }
    QCOMPARE(frame.GetTotalHeight(), INT_MAX);
    QCOMPARE(frame.GetTopOf(1), INT_MAX);
    QCOMPARE(frame.GetTopOf(9), INT_MAX);
    QCOMPARE(frame.IndexFromY(INT_MAX - 1), 0);
    QCOMPARE(frame.IndexFromY(INT_MAX), 1);
    QCOMPARE(frame.FirstIndexForBottom(9), 9);
    frame.SetTop(7);
    QCOMPARE(frame.GetTopIndex(), 7);
    QCOMPARE(frame.GetTopY(), INT_MAX);
    QCOMPARE(frame.GetShownCount(), 1);
    frame.ClearHeights();
    frame.wrapper.defaultHeight = INT_MAX;
    QCOMPARE(frame.GetTotalHeight(), INT_MAX);
    QCOMPARE(frame.GetTopOf(9), INT_MAX);
    frame.SetTop(9);
    QCOMPARE(frame.GetTopIndex(), 9);
}

void tst_VisibleRowsHeights::hugeNegativeHeights_saturate()
{
    TestFrame frame;
    frame.addRows(10);
    for (int i = 0; i < 10; ++i) {
        frame.SetRowHeight(frame.rootRows.at(i), INT_MIN);
    }
    QCOMPARE(frame.GetTotalHeight(), INT_MIN);
    QVERIFY(frame.IndexFromY(INT_MIN) >= -1);
    QVERIFY(frame.FirstIndexForBottom(9) < 10);
    QVERIFY(frame.GetShownCount() >= 1);
}

void tst_VisibleRowsHeights::indexFromY_coversEachPixelOfEachRow()
{
    TestFrame frame;
    frame.addRows(5);
    int const heights[] = {3, 20, 1, 7, 20};
    frame.SetRowHeight(frame.rootRows.at(0), 3);
    frame.SetRowHeight(frame.rootRows.at(2), 1);
    frame.SetRowHeight(frame.rootRows.at(3), 7);
    int y = 0;
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(frame.GetTopOf(i), y);
        for (int pixel = 0; pixel < heights[i]; ++pixel, ++y) {
            QCOMPARE(frame.IndexFromY(y), i);
            QCOMPARE(frame.IndexFromY(y, 0, 5), i);
            QCOMPARE(frame.IndexFromY(y, 2), i >= 2 ? i : -1);
        }
    }
    QCOMPARE(frame.IndexFromY(y), -1);
    QCOMPARE(frame.IndexFromY(-1), -1);
}

ZENU_TEST(tst_VisibleRowsHeights)
#include "tst_VisibleRowsHeights.moc"
