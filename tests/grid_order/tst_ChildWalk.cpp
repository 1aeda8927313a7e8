#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/handles/ChildWalk.h"

using namespace zenu;
using namespace zenutest;

class tst_ChildWalk : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void forwards_givesEachChild_thenNull_data() { levels(); }
    void forwards_givesEachChild_thenNull();
    void backwards_givesEachChild_thenNull_data() { levels(); }
    void backwards_givesEachChild_thenNull();
    void step_fromAnotherSibling_resumesThere_data() { levels(); }
    void step_fromAnotherSibling_resumesThere();
    void siblings_withoutAWalk_areFound_data() { levels(); }
    void siblings_withoutAWalk_areFound();
    void step_fromALastChild_isNull_andTheWalkGoesOnElsewhere();
    void step_fromARowThatIsNoChild_isNull();
    void first_startsAnew();
    void noChildren_noRow();
    void childrenThatChanged_areStillAnsweredRightly();
    void rowsOutOfTheirMarkedPlace_areFound();

private:
    static void levels()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("top-level rows") << 0;
        QTest::newRow("children of an ordinary row") << 1;
        QTest::newRow("slim level") << 2;
        QTest::newRow("lonely level") << 3;
    }
    // A parent with five children.
    static IGCRowParent * makeLevel(TestFrame & frame)
    {
        QFETCH(int, kind);
        if (kind == 0) {
            frame.addRows(5);
            return &frame;
        }
        if (kind == 1) {
            IGCRow * const parent = frame.addRow(9);
            for (unsigned long i = 0; i < 5; ++i) {
                frame.addRow(i, parent);
            }
            return parent;
        }
        CGCSlimRow * const parent = frame.addSlimRow(9);
        parent->CreateBlock(kind == 3, true, 5);
        for (int i = 0; i < 5; ++i) {
            parent->GetChild(i)->param = static_cast<unsigned long>(i);
        }
        return parent;
    }
};

void tst_ChildWalk::forwards_givesEachChild_thenNull()
{
    TestFrame frame;
    ChildWalk walk(makeLevel(frame), &frame.wrapper);
    unsigned long param = 0;
    for (IGCRow * row = walk.First(); row; row = walk.Next(row)) {
        QCOMPARE(row->param, param++);
    }
    QCOMPARE(param, 5UL);
}

void tst_ChildWalk::backwards_givesEachChild_thenNull()
{
    TestFrame frame;
    IGCRowParent * const parent = makeLevel(frame);
    ChildWalk walk(parent, &frame.wrapper);
    walk.First();
    unsigned long param = 5;
    for (IGCRow * row = parent->GetChild(4); row; row = walk.Previous(row)) {
        QCOMPARE(row->param, --param);
    }
    QCOMPARE(param, 0UL);
}

void tst_ChildWalk::step_fromAnotherSibling_resumesThere()
{
    TestFrame frame;
    IGCRowParent * const parent = makeLevel(frame);
    ChildWalk walk(parent, &frame.wrapper);
    walk.First();
    QCOMPARE(walk.Next(parent->GetChild(2)), parent->GetChild(3));
    QCOMPARE(walk.Next(parent->GetChild(3)), parent->GetChild(4));
    QCOMPARE(walk.Next(parent->GetChild(0)), parent->GetChild(1));
    QCOMPARE(walk.Previous(parent->GetChild(4)), parent->GetChild(3));
    QCOMPARE(walk.Next(parent->GetChild(3)), parent->GetChild(4));
}

void tst_ChildWalk::siblings_withoutAWalk_areFound()
{
    TestFrame frame;
    IGCRowParent * const parent = makeLevel(frame);
    for (int i = 0; i < 5; ++i) {
        IGCRow * const row = parent->GetChild(i);
        QCOMPARE(ChildWalk::NextSibling(parent, &frame.wrapper, row),
                 i == 4 ? nullptr : parent->GetChild(i + 1));
        QCOMPARE(ChildWalk::PreviousSibling(parent, &frame.wrapper, row),
                 i == 0 ? nullptr : parent->GetChild(i - 1));
    }
    QVERIFY(!ChildWalk::NextSibling(parent, &frame.wrapper, nullptr));
}

void tst_ChildWalk::step_fromALastChild_isNull_andTheWalkGoesOnElsewhere()
{
    TestFrame frame;
    frame.addRows(3);
    ChildWalk walk(&frame, &frame.wrapper);
    walk.First();
    QVERIFY(!walk.Next(frame.rootRows.at(2)));
    QVERIFY(!walk.Next(frame.rootRows.at(2)));
    QCOMPARE(walk.Previous(frame.rootRows.at(2)), frame.rootRows.at(1));
    QVERIFY(!walk.Previous(frame.rootRows.at(0)));
    QCOMPARE(walk.Next(frame.rootRows.at(0)), frame.rootRows.at(1));
}

void tst_ChildWalk::step_fromARowThatIsNoChild_isNull()
{
    TestFrame frame;
    frame.addRows(3);
    IGCRow * const child = frame.addRow(7, frame.rootRows.at(1));
    ChildWalk walk(&frame, &frame.wrapper);
    IGCRow * const first = walk.First();
    QVERIFY(!walk.Next(child));
    QVERIFY(!walk.Next(nullptr));
    QCOMPARE(walk.Next(first), frame.rootRows.at(1));
    QVERIFY(!ChildWalk::NextSibling(&frame, &frame.wrapper, child));
}

void tst_ChildWalk::first_startsAnew()
{
    TestFrame frame;
    frame.addRows(3);
    ChildWalk walk(&frame, &frame.wrapper);
    IGCRow * const first = walk.First();
    walk.Next(first);
    QCOMPARE(walk.First(), first);
    QCOMPARE(walk.Next(first), frame.rootRows.at(1));
}

void tst_ChildWalk::noChildren_noRow()
{
    TestFrame frame;
    IGCRow * const row = frame.addRow(1);
    ChildWalk walk(row, &frame.wrapper);
    QVERIFY(!walk.First());
    QVERIFY(!walk.Next(row));
    QVERIFY(!walk.Previous(row));
}

void tst_ChildWalk::childrenThatChanged_areStillAnsweredRightly()
{
    TestFrame frame;
    frame.addRows(6);
    ChildWalk walk(&frame, &frame.wrapper);
    IGCRow * const first = walk.First();
    frame.addRow(100, nullptr, GCI_FIRST);
    QCOMPARE(walk.Next(first), frame.rootRows.at(2));
    frame.remove(frame.rootRows.at(0));
    frame.remove(frame.rootRows.at(1));
    QCOMPARE(walk.Next(first), frame.rootRows.at(1));
}

void tst_ChildWalk::rowsOutOfTheirMarkedPlace_areFound()
{
    TestFrame frame;
    frame.addRows(50);
    for (int i = 0; i < 20; ++i) {
        frame.remove(frame.rootRows.at(i)); // every other of the first rows
    }
    frame.addRow(100, frame.rootRows.at(3));
    for (int i = 0; i + 1 < frame.rootRows.count(); ++i) {
        QCOMPARE(ChildWalk::NextSibling(&frame, &frame.wrapper, frame.rootRows.at(i)),
                 frame.rootRows.at(i + 1));
    }
}

ZENU_TEST(tst_ChildWalk)
#include "tst_ChildWalk.moc"
