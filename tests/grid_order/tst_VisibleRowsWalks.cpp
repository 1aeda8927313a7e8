#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

class tst_VisibleRowsWalks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void shownWalk_givesTheRowsOnDisplay();
    void visibleWalk_givesAllRowsOfTheOrder();
    void bothWalks_runSideBySide();
    void next_withoutAWalk_isNull();
    void next_fromAnotherRow_endsTheWalk();
    void next_fromNull_endsTheWalk();
    void first_startsAnew();
    void anyChange_endsBothWalks_data();
    void anyChange_endsBothWalks();
    void dropWalks_endsBoth();
};

void tst_VisibleRowsWalks::shownWalk_givesTheRowsOnDisplay()
{
    TestFrame frame;
    frame.addRows(30);
    frame.SetTop(7);
    QStringList params;
    for (IGCRow * row = frame.FirstShown(); row; row = frame.NextShown(row)) {
        params << QString::number(row->param);
    }
    QCOMPARE(params.join(u' '), QStringLiteral("7 8 9 10 11 12"));
    frame.SetTop(29);
    int count = 0;
    for (IGCRow * row = frame.FirstShown(); row; row = frame.NextShown(row)) {
        ++count;
    }
    QCOMPARE(count, 5);
    frame.SetShownCount(1000);
    count = 0;
    for (IGCRow * row = frame.FirstShown(); row; row = frame.NextShown(row)) {
        ++count;
    }
    QCOMPARE(count, 5);
}

void tst_VisibleRowsWalks::visibleWalk_givesAllRowsOfTheOrder()
{
    TestFrame frame;
    frame.addRows(30);
    IGCRow * const parent = frame.rootRows.at(4);
    frame.addRow(100, parent);
    frame.SetRowHeight(parent, 33);
    int index = 0;
    for (IGCRow * row = frame.FirstVisible(); row; row = frame.NextVisible(row)) {
        QCOMPARE(frame.IndexOf(row), index++);
    }
    QCOMPARE(index, 31);
}

void tst_VisibleRowsWalks::bothWalks_runSideBySide()
{
    TestFrame frame;
    frame.addRows(3);
    IGCRow * const shown = frame.FirstShown();
    IGCRow * const visible = frame.FirstVisible();
    QCOMPARE(frame.NextShown(shown), frame.GetRowAt(1));
    QCOMPARE(frame.NextVisible(visible), frame.GetRowAt(1));
}

void tst_VisibleRowsWalks::next_withoutAWalk_isNull()
{
    TestFrame frame;
    frame.addRows(3);
    QVERIFY(!frame.NextShown(frame.GetRowAt(0)));
    QVERIFY(!frame.NextVisible(frame.GetRowAt(0)));
}

void tst_VisibleRowsWalks::next_fromAnotherRow_endsTheWalk()
{
    TestFrame frame;
    frame.addRows(5);
    IGCRow * const first = frame.FirstVisible();
    QVERIFY(!frame.NextVisible(frame.GetRowAt(3)));
    QVERIFY(!frame.NextVisible(first));
}

void tst_VisibleRowsWalks::next_fromNull_endsTheWalk()
{
    TestFrame frame;
    frame.addRows(2);
    frame.FirstVisible();
    QVERIFY(!frame.NextVisible(nullptr));
    QVERIFY(!frame.NextVisible(nullptr));
    QVERIFY(!frame.NextVisible(frame.GetRowAt(0)));
}

void tst_VisibleRowsWalks::first_startsAnew()
{
    TestFrame frame;
    frame.addRows(4);
    IGCRow * const first = frame.FirstVisible();
    QVERIFY(frame.NextVisible(first));
    QCOMPARE(frame.FirstVisible(), first);
    QCOMPARE(frame.NextVisible(first), frame.GetRowAt(1));
}

void tst_VisibleRowsWalks::anyChange_endsBothWalks_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("insertion") << 0;
    QTest::newRow("deletion") << 1;
    QTest::newRow("collapse") << 2;
    QTest::newRow("height") << 3;
    QTest::newRow("sort") << 4;
}

void tst_VisibleRowsWalks::anyChange_endsBothWalks()
{
    QFETCH(int, change);
    TestFrame frame;
    frame.addRows(10);
    frame.addRow(100, frame.rootRows.at(5));
    IGCRow * const shown = frame.FirstShown();
    IGCRow * const visible = frame.FirstVisible();
    switch (change) {
    case 0:
        frame.addRow(11);
        break;
    case 1:
        frame.remove(frame.rootRows.at(9));
        break;
    case 2:
        frame.expand(frame.rootRows.at(5), false);
        break;
    case 3:
        frame.SetRowHeight(frame.rootRows.at(9), 7);
        break;
    default:
        frame.sorted = true;
        frame.Invalidate();
    }
    QVERIFY(!frame.NextShown(shown));
    QVERIFY(!frame.NextVisible(visible));
}

void tst_VisibleRowsWalks::dropWalks_endsBoth()
{
    TestFrame frame;
    frame.addRows(3);
    IGCRow * const shown = frame.FirstShown();
    frame.FirstVisible();
    frame.DropWalks();
    QVERIFY(!frame.NextShown(shown));
    QVERIFY(!frame.NextVisible(shown));
}

ZENU_TEST(tst_VisibleRowsWalks)
#include "tst_VisibleRowsWalks.moc"
