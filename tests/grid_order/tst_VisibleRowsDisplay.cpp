#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

class tst_VisibleRowsDisplay : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void shownCount_data();
    void shownCount();
    void wholeRows_partlyShownLastRow_isNotCounted_butNeverBelowOne();
    void setTop_stopsWhereTheLastRowIsWhole_data();
    void setTop_stopsWhereTheLastRowIsWhole();
    void firstIndexForBottom_data();
    void firstIndexForBottom();
    void rebuild_fewerRowsThanAPage_topFallsSoThatTheLastRowIsWhole();
    void rebuild_deletingTheRowsAboveTheTop_keepsTheRowOnTop();
    void rebuild_insertingRowsAboveTheTop_keepsTheRowOnTop();
    void rebuild_sortingKeepsTheRowOnTop();
    void rebuild_topRowDeleted_anotherTakesItsIndex();
    void rebuild_newRowAtTheDeadTopRowsAddress_isNotTakenForIt();
    void rebuild_topRowCollapsedAway_anotherTakesItsIndex();
    void rebuild_allRowsGone_displayIsEmpty();
    void rebuild_focusedRowPushedOutOfView_isNotScrolledBack();
    void telling_topRowUnchanged_onlyLaidOut();
    void telling_noRows_onlyLaidOut();
    void telling_isDoneWhenTheOrderIsReadable();
    void telling_applicationChangesTheGrid_readerGetsTheNewOrder();
    void telling_applicationChangesTheGridEachTime_ends();
    void telling_applicationDeletesTheTopRow_noDeadRowIsShown();
    void telling_applicationDeletesAllRows_nobodyIsToldOfARow();
    void shownCount_canBeStored();
};

void tst_VisibleRowsDisplay::shownCount_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<bool>("whole");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("shown");
    QTest::newRow("a row that begins at the page's end counts") << 100 << false << 0 << 6;
    QTest::newRow("but is not whole") << 100 << true << 0 << 5;
    QTest::newRow("one pixel less") << 99 << false << 0 << 5;
    QTest::newRow("one pixel less, whole") << 99 << true << 0 << 4;
    QTest::newRow("no page") << 0 << false << 3 << 1;
    QTest::newRow("no page, whole") << 0 << true << 3 << 1;
    QTest::newRow("a page smaller than a row, whole") << 10 << true << 3 << 1;
    QTest::newRow("the end cuts the page") << 100 << false << 7 << 3;
    QTest::newRow("the end cuts the page, whole") << 100 << true << 7 << 3;
    QTest::newRow("the last row") << 100 << false << 9 << 1;
    QTest::newRow("all fit") << 1000 << false << 0 << 10;
}

void tst_VisibleRowsDisplay::shownCount()
{
    QFETCH(int, page);
    QFETCH(bool, whole);
    QFETCH(int, first);
    TestFrame frame(page);
    frame.wholeRowsOnly = whole;
    frame.addRows(10);
    QTEST(frame.VisibleCountFrom(first), "shown");
}

void tst_VisibleRowsDisplay::wholeRows_partlyShownLastRow_isNotCounted_butNeverBelowOne()
{
    TestFrame frame(90);
    frame.addRows(10);
    QCOMPARE(frame.GetShownCount(), 5);
    frame.wholeRowsOnly = true;
    frame.Invalidate();
    QCOMPARE(frame.GetShownCount(), 4);
    frame.pageHeight = 5;
    frame.Invalidate();
    QCOMPARE(frame.GetShownCount(), 1);
    frame.SetTop(4);
    QCOMPARE(frame.GetShownCount(), 1);
}

void tst_VisibleRowsDisplay::setTop_stopsWhereTheLastRowIsWhole_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("wanted");
    QTest::addColumn<QString>("display");
    QTest::newRow("in range") << 100 << 3 << "top=3 y=60 shown=6 last=8 count=10 height=200";
    QTest::newRow("at the limit") << 100 << 5 << "top=5 y=100 shown=5 last=9 count=10 height=200";
    QTest::newRow("past it") << 100 << 9 << "top=5 y=100 shown=5 last=9 count=10 height=200";
    QTest::newRow("page of no whole rows")
        << 90 << 9 << "top=6 y=120 shown=4 last=9 count=10 height=200";
    QTest::newRow("all fit") << 200 << 9 << "top=0 y=0 shown=10 last=9 count=10 height=200";
    QTest::newRow("a pixel short") << 199 << 9 << "top=1 y=20 shown=9 last=9 count=10 height=200";
    QTest::newRow("no page") << 0 << 9 << "top=9 y=180 shown=1 last=9 count=10 height=200";
    QTest::newRow("below 0") << 100 << -3 << "top=0 y=0 shown=6 last=5 count=10 height=200";
}

void tst_VisibleRowsDisplay::setTop_stopsWhereTheLastRowIsWhole()
{
    QFETCH(int, page);
    QFETCH(int, wanted);
    TestFrame frame(page);
    frame.addRows(10);
    frame.SetTop(wanted);
    QTEST(frame.display(), "display");
}

void tst_VisibleRowsDisplay::firstIndexForBottom_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("top");
    QTest::newRow("rows that all fit never scroll") << 100 << 4 << 0;
    QTest::newRow("the first that does not") << 100 << 5 << 1;
    QTest::newRow("exact page") << 100 << 9 << 5;
    QTest::newRow("a row cut at the top does not count") << 90 << 9 << 6;
    QTest::newRow("page smaller than a row") << 10 << 5 << 6;
    QTest::newRow("and at the end") << 10 << 9 << 9;
    QTest::newRow("no page") << 0 << 5 << 6;
    QTest::newRow("first row") << 100 << 0 << 0;
}

void tst_VisibleRowsDisplay::firstIndexForBottom()
{
    QFETCH(int, page);
    QFETCH(int, index);
    TestFrame frame(page);
    frame.addRows(10);
    QTEST(frame.FirstIndexForBottom(index), "top");
}

void tst_VisibleRowsDisplay::rebuild_fewerRowsThanAPage_topFallsSoThatTheLastRowIsWhole()
{
    TestFrame frame;
    frame.addRows(20);
    frame.SetTop(15);
    QCOMPARE(frame.GetTopIndex(), 15);
    for (int i = 0; i < 4; ++i) {
        frame.remove(frame.rootRows.at(frame.rootRows.count() - 1));
    }
    QCOMPARE(frame.display(), QStringLiteral("top=11 y=220 shown=5 last=15 count=16 height=320"));
    while (frame.rootRows.count() > 3) {
        frame.remove(frame.rootRows.at(frame.rootRows.count() - 1));
    }
    QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=3 last=2 count=3 height=60"));
}

void tst_VisibleRowsDisplay::rebuild_deletingTheRowsAboveTheTop_keepsTheRowOnTop()
{
    TestFrame frame;
    frame.addRows(30);
    frame.SetTop(10);
    IGCRow * const top = frame.top();
    for (int i = 0; i < 10; ++i) {
        frame.remove(frame.rootRows.at(0));
    }
    frame.takeJournal();
    QCOMPARE(frame.GetTopIndex(), 0);
    QCOMPARE(frame.top(), top);
    QCOMPARE(frame.takeJournal(), QStringLiteral("laid out"));
}

void tst_VisibleRowsDisplay::rebuild_insertingRowsAboveTheTop_keepsTheRowOnTop()
{
    TestFrame frame;
    frame.addRows(30);
    frame.SetTop(10);
    IGCRow * const top = frame.top();
    frame.addRow(100, nullptr, GCI_FIRST);
    frame.addRow(101, frame.rootRows.at(3));
    QCOMPARE(frame.top(), top);
    QCOMPARE(frame.GetTopIndex(), 12);
    QCOMPARE(frame.GetTopY(), 240);
}

void tst_VisibleRowsDisplay::rebuild_sortingKeepsTheRowOnTop()
{
    TestFrame frame;
    frame.addRows(30);
    frame.SetTop(20);
    frame.sorted = true;
    frame.descending = true;
    frame.Invalidate();
    QCOMPARE(frame.GetTopIndex(), 9);
    QCOMPARE(frame.top()->param, 20UL);
}

void tst_VisibleRowsDisplay::rebuild_topRowDeleted_anotherTakesItsIndex()
{
    TestFrame frame;
    frame.addRows(30);
    frame.SetTop(10);
    frame.takeJournal();
    frame.remove(frame.top());
    QCOMPARE(frame.GetTopIndex(), 10);
    QCOMPARE(frame.top()->param, 11UL);
    QCOMPARE(frame.takeJournal(), QStringLiteral("changing 11, laid out, changed"));
}

void tst_VisibleRowsDisplay::rebuild_newRowAtTheDeadTopRowsAddress_isNotTakenForIt()
{
    TestFrame frame;
    frame.addRows(40);
    frame.SetTop(10);
    frame.takeJournal();
    IGCRow const * const dead = frame.top();
    frame.remove(frame.top());
    bool reused = false;
    for (int i = 0; i < 3 && !reused; ++i) {
        reused = frame.addRow(100) == dead;
    }
    // Where the address came back, the row stands at the end; the top stays where it was.
    QCOMPARE(frame.GetTopIndex(), 10);
    QCOMPARE(frame.takeJournal(), QStringLiteral("changing 11, laid out, changed"));
}

void tst_VisibleRowsDisplay::rebuild_topRowCollapsedAway_anotherTakesItsIndex()
{
    TestFrame frame;
    IGCRow * const parent = frame.addRow(1000);
    for (unsigned long i = 0; i < 10; ++i) {
        frame.addRow(i, parent);
    }
    frame.addRows(20);
    frame.SetTop(5);
    QCOMPARE(frame.top()->param, 4UL);
    frame.takeJournal();
    frame.expand(parent, false);
    QCOMPARE(frame.GetTopIndex(), 5);
    QCOMPARE(frame.takeJournal(), QStringLiteral("changing 4, laid out, changed"));
    QVERIFY(!frame.top()->parent);
}

void tst_VisibleRowsDisplay::rebuild_allRowsGone_displayIsEmpty()
{
    TestFrame frame;
    frame.addRows(30);
    frame.SetTop(10);
    frame.takeJournal();
    while (!frame.rootRows.isEmpty()) {
        frame.remove(frame.rootRows.at(0));
    }
    QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=0 last=0 count=0 height=0"));
    QCOMPARE(frame.takeJournal(), QStringLiteral("laid out"));
    frame.addRows(1);
    QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=1 last=0 count=1 height=20"));
    QCOMPARE(frame.takeJournal(), QStringLiteral("changing 0, laid out, changed"));
}

void tst_VisibleRowsDisplay::rebuild_focusedRowPushedOutOfView_isNotScrolledBack()
{
    TestFrame frame;
    frame.addRows(30);
    frame.SetTop(10);
    frame.SetFocusedIndex(12);
    for (unsigned long i = 0; i < 20; ++i) {
        frame.addRow(100 + i, frame.GetRowAt(10)); // between the top row and the focused row
    }
    QCOMPARE(frame.GetFocusedIndex(), 32);
    QCOMPARE(frame.GetTopIndex(), 10);
    QCOMPARE(frame.GetLastShownIndex(), 15);
}

void tst_VisibleRowsDisplay::telling_topRowUnchanged_onlyLaidOut()
{
    TestFrame frame;
    frame.addRows(30);
    frame.UpdateNow();
    frame.takeJournal();
    frame.addRow(100);
    frame.UpdateNow();
    QCOMPARE(frame.takeJournal(), QStringLiteral("laid out"));
}

void tst_VisibleRowsDisplay::telling_noRows_onlyLaidOut()
{
    TestFrame frame;
    frame.Invalidate();
    frame.UpdateNow();
    QCOMPARE(frame.takeJournal(), QStringLiteral("laid out"));
}

void tst_VisibleRowsDisplay::telling_isDoneWhenTheOrderIsReadable()
{
    TestFrame frame;
    frame.addRows(30);
    int told = 0;
    frame.whenTold = [&](QString const &) {
        ++told;
        QVERIFY(!frame.IsRebuilding());
        QVERIFY(!frame.IsDirty());
        QCOMPARE(frame.display(), QStringLiteral("top=0 y=0 shown=6 last=5 count=30 height=600"));
    };
    frame.UpdateNow();
    QCOMPARE(told, 3);
}

void tst_VisibleRowsDisplay::telling_applicationChangesTheGrid_readerGetsTheNewOrder()
{
    TestFrame frame;
    frame.addRows(3);
    frame.whenTold = [&](QString const & what) {
        if (what == QStringLiteral("laid out") && frame.rootRows.count() == 3) {
            frame.addRow(7, nullptr, GCI_FIRST);
            QCOMPARE(frame.GetCount(), 4); // a nested rebuild, told of later
        }
    };
    QCOMPARE(frame.GetCount(), 4);
    QCOMPARE(frame.takeJournal(), QStringLiteral("changing 0, laid out, changed, "
                                                 "changing 7, laid out, changed"));
    QCOMPARE(frame.GetTopIndex(), 0);
}

void tst_VisibleRowsDisplay::telling_applicationChangesTheGridEachTime_ends()
{
    TestFrame frame;
    frame.addRows(3);
    frame.whenTold = [&](QString const &) { frame.addRow(7); };
    int const count = frame.GetCount();
    QVERIFY(!frame.IsDirty());
    QCOMPARE(count, frame.rootRows.count());
    QCOMPARE(frame.journal.count(QStringLiteral("laid out")), 4);
    frame.whenTold = nullptr;
}

void tst_VisibleRowsDisplay::telling_applicationDeletesTheTopRow_noDeadRowIsShown()
{
    TestFrame frame;
    frame.addRows(30);
    frame.whenTold = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("changing")) && frame.rootRows.count() > 25) {
            frame.remove(frame.rootRows.at(0));
        }
    };
    int const count = frame.GetCount();
    QCOMPARE(count, frame.rootRows.count());
    QVERIFY(count < 30);
    QCOMPARE(frame.top(), frame.rootRows.at(0));
}

void tst_VisibleRowsDisplay::telling_applicationDeletesAllRows_nobodyIsToldOfARow()
{
    TestFrame frame;
    frame.addRows(3);
    frame.whenTold = [&](QString const & what) {
        if (what == QStringLiteral("changing 0")) {
            frame.remove(frame.rootRows.at(0));
            frame.UpdateNow(); // another top row, told of later
            while (!frame.rootRows.isEmpty()) {
                frame.remove(frame.rootRows.at(0));
            }
        }
    };
    QCOMPARE(frame.GetCount(), 0);
    QCOMPARE(frame.takeJournal(), QStringLiteral("changing 0, laid out, changed, laid out"));
}

void tst_VisibleRowsDisplay::shownCount_canBeStored()
{
    TestFrame frame;
    frame.addRows(30);
    frame.UpdateNow();
    frame.SetShownCount(9);
    QCOMPARE(frame.GetShownCount(), 9);
    QCOMPARE(frame.GetLastShownIndex(), 8);
    frame.SetShownCount(0);
    QCOMPARE(frame.GetTopIndex(), 0);
    QCOMPARE(frame.GetLastShownIndex(), 0);
}

ZENU_TEST(tst_VisibleRowsDisplay)
#include "tst_VisibleRowsDisplay.moc"
