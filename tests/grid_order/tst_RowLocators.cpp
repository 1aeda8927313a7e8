#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/handles/CFastLocator.h"
#include "zenu/grid/handles/CSafeLocator.h"

#include <set>

using namespace zenu;
using namespace zenutest;

class tst_RowLocators : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void bothLocators_countRows_data() { locators(); }
    void bothLocators_countRows();
    void bothLocators_findALiveRow_data() { locators(); }
    void bothLocators_findALiveRow();
    void bothLocators_walkEveryRowOnce_data() { locators(); }
    void bothLocators_walkEveryRowOnce();
    void bothLocators_walkFromAnotherRow_ends_data() { locators(); }
    void bothLocators_walkFromAnotherRow_ends();
    void bothLocators_emptyWalk_hasNoRow_data() { locators(); }
    void bothLocators_emptyWalk_hasNoRow();
    void bothLocators_ranges_countEachRow_data() { locators(); }
    void bothLocators_ranges_countEachRow();
    void safeLocator_deadAndForeignHandles_areFoundOut();
    void safeLocator_constants_areNoRows_data();
    void safeLocator_constants_areNoRows();
    void safeLocator_removingAnUnknownRow_changesNothing();
    void safeLocator_walk_isByAddress();
    void safeLocator_costsAboutAByteARow();
    void fastLocator_believesAnyHandle();
    void fastLocator_walk_givesParentsBeforeChildren();
    void fastLocator_chainOfAMillionRows_isWalkedWithoutRecursion();

private:
    static void locators()
    {
        QTest::addColumn<bool>("safe");
        QTest::newRow("safe") << true;
        QTest::newRow("fast") << false;
    }
    static std::unique_ptr<IRowLocator> makeLocator(TestFrame & frame)
    {
        QFETCH(bool, safe);
        if (safe) {
            return std::make_unique<CSafeLocator>();
        }
        return std::make_unique<CFastLocator>(&frame.wrapper, &frame);
    }
    // Three top-level rows, each with two children.
    static std::vector<IGCRow *> fill(TestFrame & frame, IRowLocator & locator)
    {
        std::vector<IGCRow *> rows;
        for (unsigned long i = 1; i <= 3; ++i) {
            rows.push_back(frame.addRow(i * 10));
            IGCRow * const parent = rows.back();
            rows.push_back(frame.addRow(i * 10 + 1, parent));
            rows.push_back(frame.addRow(i * 10 + 2, parent));
            parent->CollapseRow(); // walks go through collapsed rows
        }
        for (IGCRow * const row : rows) {
            locator.AddRow(row);
        }
        return rows;
    }
};

void tst_RowLocators::bothLocators_countRows()
{
    TestFrame frame;
    auto const locator = makeLocator(frame);
    QVERIFY(locator->IsEmpty());
    std::vector<IGCRow *> const rows = fill(frame, *locator);
    QCOMPARE(locator->GetCount(), 9);
    QVERIFY(!locator->IsEmpty());
    locator->RemoveRow(rows[4]);
    QCOMPARE(locator->GetCount(), 8);
    locator->Clear();
    QCOMPARE(locator->GetCount(), 0);
    QVERIFY(locator->IsEmpty());
    QCOMPARE(locator->Bytes(), std::size_t(0));
}

void tst_RowLocators::bothLocators_findALiveRow()
{
    TestFrame frame;
    auto const locator = makeLocator(frame);
    for (IGCRow * const row : fill(frame, *locator)) {
        QCOMPARE(locator->LocateRow(row->Handle()), row);
    }
    QVERIFY(!locator->LocateRow(nullptr));
}

void tst_RowLocators::bothLocators_walkEveryRowOnce()
{
    TestFrame frame;
    auto const locator = makeLocator(frame);
    std::vector<IGCRow *> const rows = fill(frame, *locator);
    for (int round = 0; round < 2; ++round) {
        auto const walk = locator->CreateWalk();
        walk->Touch(1);
        std::set<IGCRow *> seen;
        for (IGCRow * row = walk->First(); row; row = walk->Next(row)) {
            QVERIFY(seen.insert(row).second);
        }
        QVERIFY(seen == std::set<IGCRow *>(rows.begin(), rows.end()));
    }
}

void tst_RowLocators::bothLocators_walkFromAnotherRow_ends()
{
    TestFrame frame;
    auto const locator = makeLocator(frame);
    std::vector<IGCRow *> const rows = fill(frame, *locator);
    for (IGCRow * const other : {rows[8], rows[0], static_cast<IGCRow *>(nullptr)}) {
        auto const walk = locator->CreateWalk();
        IGCRow * const first = walk->First();
        IGCRow * const second = walk->Next(first);
        QVERIFY(second);
        QVERIFY(!walk->Next(other == second ? first : other));
        QVERIFY(!walk->Next(second));
        QVERIFY(!walk->Next(nullptr));
    }
}

void tst_RowLocators::bothLocators_emptyWalk_hasNoRow()
{
    TestFrame frame;
    auto const locator = makeLocator(frame);
    auto const walk = locator->CreateWalk();
    QVERIFY(!walk->First());
    QVERIFY(!walk->Next(nullptr));
}

void tst_RowLocators::bothLocators_ranges_countEachRow()
{
    TestFrame frame;
    auto const locator = makeLocator(frame);
    CGCSlimRow lonelyParent(nullptr);
    CGCSlimRow slimParent(nullptr);
    lonelyParent.CreateBlock(true, true, 1000);
    slimParent.CreateBlock(false, true, 1000);
    frame.addRows(1000);
    for (RowSpan const level :
         {lonelyParent.GetChildren(&frame.wrapper), slimParent.GetChildren(&frame.wrapper),
          frame.rootRows.span(), RowSpan()}) {
        locator->AddRange(level);
        QCOMPARE(locator->GetCount(), level.count());
        for (int i = 0; i < level.count(); ++i) {
            QCOMPARE(locator->LocateRow(level[i]->Handle()), level[i]);
        }
        locator->RemoveRange(level);
        QVERIFY(locator->IsEmpty());
    }
}

void tst_RowLocators::safeLocator_deadAndForeignHandles_areFoundOut()
{
    TestFrame frame;
    CSafeLocator locator;
    IGCRow * const row = frame.addRow(1);
    IGCRow * const foreign = frame.addRow(2);
    locator.AddRow(row);
    tag_HROW * const handle = row->Handle();
    QCOMPARE(locator.LocateRow(handle), row);
    QVERIFY(!locator.LocateRow(foreign->Handle()));
    locator.RemoveRow(row);
    frame.remove(row);
    QVERIFY(!locator.LocateRow(handle));
}

void tst_RowLocators::safeLocator_constants_areNoRows_data()
{
    QTest::addColumn<long>("value");
    QTest::newRow("GC_ROOT") << reinterpret_cast<long>(GC_ROOT);
    QTest::newRow("GCI_FIRST") << reinterpret_cast<long>(GCI_FIRST);
    QTest::newRow("GCI_LAST") << reinterpret_cast<long>(GCI_LAST);
    QTest::newRow("null") << 0L;
    QTest::newRow("odd") << 0x1001L;
    QTest::newRow("an address of nothing") << 0x1000L;
}

void tst_RowLocators::safeLocator_constants_areNoRows()
{
    QFETCH(long, value);
    TestFrame frame;
    CSafeLocator locator;
    fill(frame, locator);
    QVERIFY(!locator.LocateRow(reinterpret_cast<tag_HROW *>(value)));
}

void tst_RowLocators::safeLocator_removingAnUnknownRow_changesNothing()
{
    TestFrame frame;
    CSafeLocator locator;
    fill(frame, locator);
    IGCRow * const foreign = frame.addRow(5);
    locator.RemoveRow(foreign);
    locator.RemoveRow(nullptr);
    locator.AddRow(nullptr);
    QCOMPARE(locator.GetCount(), 9);
}

void tst_RowLocators::safeLocator_walk_isByAddress()
{
    TestFrame frame;
    CSafeLocator locator;
    fill(frame, locator);
    auto const walk = locator.CreateWalk();
    IGCRow * last = nullptr;
    for (IGCRow * row = walk->First(); row; row = walk->Next(row)) {
        QVERIFY(std::less<IGCRow *>()(last, row));
        last = row;
    }
}

void tst_RowLocators::safeLocator_costsAboutAByteARow()
{
    HeightWrapper wrapper;
    CGCSlimRow parent(nullptr);
    parent.CreateBlock(true, true, 1000000);
    CSafeLocator locator;
    locator.AddRange(parent.GetChildren(&wrapper));
    QCOMPARE(locator.GetCount(), 1000000);
    QVERIFY(locator.Bytes() < 600000);
}

void tst_RowLocators::fastLocator_believesAnyHandle()
{
    TestFrame frame;
    CFastLocator locator(&frame.wrapper, &frame);
    auto * const handle = reinterpret_cast<tag_HROW *>(0x1234L);
    QCOMPARE(reinterpret_cast<tag_HROW *>(locator.LocateRow(handle)), handle);
}

void tst_RowLocators::fastLocator_walk_givesParentsBeforeChildren()
{
    TestFrame frame;
    CFastLocator locator(&frame.wrapper, &frame);
    fill(frame, locator);
    QStringList params;
    auto const walk = locator.CreateWalk();
    for (IGCRow * row = walk->First(); row; row = walk->Next(row)) {
        params << QString::number(row->param);
    }
    QCOMPARE(params.join(u' '), QStringLiteral("10 11 12 20 21 22 30 31 32"));
    QCOMPARE(walk->First()->param, 10UL);
}

void tst_RowLocators::fastLocator_chainOfAMillionRows_isWalkedWithoutRecursion()
{
    TestFrame frame;
    CFastLocator locator(&frame.wrapper, &frame);
    CGCSlimRow * row = frame.addSlimRow(0);
    for (int i = 1; i < 1000000; ++i) {
        row->CreateBlock(false, true, 1);
        row = static_cast<CGCSlimRow *>(row->GetChild(0));
    }
    auto const walk = locator.CreateWalk();
    int count = 0;
    for (IGCRow * at = walk->First(); at; at = walk->Next(at)) {
        ++count;
    }
    QCOMPARE(count, 1000000);
}

ZENU_TEST(tst_RowLocators)
#include "tst_RowLocators.moc"
