#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/inner/LargeBlock.h"
#include "zenu/grid/order/CSimilarRows.h"
#include "zenu/grid/order/CVariousRows.h"

#include <cstring>

using namespace zenu;
using namespace zenutest;

namespace {

// Never looked at by either form.
IGCRow * rowNumber(int number)
{
    return reinterpret_cast<IGCRow *>(static_cast<std::intptr_t>(number) * 8 + 8);
}

} // namespace

class tst_OrderForms : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void bothForms_keepRowsInOrder_data() { forms(); }
    void bothForms_keepRowsInOrder();
    void bothForms_positionsAreSums_data() { forms(); }
    void bothForms_positionsAreSums();
    void bothForms_noRows_noHeight_data() { forms(); }
    void bothForms_noRows_noHeight();
    void bothForms_walks_data() { forms(); }
    void bothForms_walks();
    void walk_overAnEmptyRange_hasNoRow();
    void variousRows_yIsMinusOneUntilComputed();
    void variousRows_readTheHeights_similarRowsDoNot();
    void memory_isExactForOneLevel_andGivenBack();
    void memory_rowsOneByOne_leaveLittleSlack();
    void largeBlock_holdsItsBytes();

private:
    static void forms()
    {
        QTest::addColumn<bool>("uniform");
        QTest::newRow("similar") << true;
        QTest::newRow("various") << false;
    }
    IRowsOrder & form()
    {
        similar.Clear();
        various.Clear();
        QFETCH(bool, uniform);
        return uniform ? static_cast<IRowsOrder &>(similar) : various;
    }

    HeightWrapper wrapper;
    CSimilarRows similar{&wrapper};
    CVariousRows various{&wrapper};
};

void tst_OrderForms::bothForms_keepRowsInOrder()
{
    IRowsOrder & order = form();
    for (int i = 0; i < 1000; ++i) {
        order.AddRow(rowNumber(i));
    }
    order.Reserve(2000);
    QCOMPARE(order.GetCount(), 1000);
    for (int i = 0; i < 1000; ++i) {
        QCOMPARE(order.GetRowAt(i), rowNumber(i));
    }
    order.Clear();
    QCOMPARE(order.GetCount(), 0);
}

void tst_OrderForms::bothForms_positionsAreSums()
{
    IRowsOrder & order = form();
    for (int i = 0; i < 10; ++i) {
        order.AddRow(rowNumber(i));
    }
    QCOMPARE(order.ComputeTotalHeight({}), 200LL);
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(order.GetTopOf(i), 20LL * i);
    }
}

void tst_OrderForms::bothForms_noRows_noHeight()
{
    QCOMPARE(form().ComputeTotalHeight({{rowNumber(1), 7}}), 0LL);
}

void tst_OrderForms::bothForms_walks()
{
    IRowsOrder & order = form();
    for (int i = 0; i < 6; ++i) {
        order.AddRow(rowNumber(i));
    }
    auto const walkOf = [](CVisibleRowsIterator & walk) {
        QString rows;
        for (IGCRow * row = walk.First(); row; row = walk.Next(row, 5, 5)) {
            rows += QString::number(reinterpret_cast<std::intptr_t>(row) / 8 - 1);
        }
        return rows;
    };
    QCOMPARE(walkOf(*order.CreateWalk()), QStringLiteral("012345"));
    QCOMPARE(walkOf(*order.CreateRangeWalk(2, 3)), QStringLiteral("234"));
    QCOMPARE(walkOf(*order.CreateRangeWalk(4, 30)), QStringLiteral("45"));
    QCOMPARE(walkOf(*order.CreateRangeWalk(6, 1)), QString());
    QCOMPARE(walkOf(*order.CreateRangeWalk(-1, 1)), QString());
    QVERIFY(order.CreateWalk()->Touch(1, 2));

    auto const walk = order.CreateWalk();
    IGCRow * const first = walk->First();
    QVERIFY(!walk->Next(rowNumber(3), 0, 0));
    QVERIFY(!walk->Next(first, 0, 0));
    order.Clear();
    QVERIFY(!walk->First());
}

void tst_OrderForms::walk_overAnEmptyRange_hasNoRow()
{
    similar.Clear();
    QVERIFY(!similar.CreateWalk()->First());
    QVERIFY(!similar.CreateRangeWalk(0, 5)->First());
}

void tst_OrderForms::variousRows_yIsMinusOneUntilComputed()
{
    various.Clear();
    various.AddRow(rowNumber(0));
    QCOMPARE(various.GetTopOf(0), -1LL);
    various.ComputeTotalHeight({});
    QCOMPARE(various.GetTopOf(0), 0LL);
}

void tst_OrderForms::variousRows_readTheHeights_similarRowsDoNot()
{
    RowHeights const heights{{rowNumber(1), 50}, {rowNumber(7), 1000}};
    similar.Clear();
    various.Clear();
    for (int i = 0; i < 3; ++i) {
        similar.AddRow(rowNumber(i));
        various.AddRow(rowNumber(i));
    }
    QCOMPARE(similar.ComputeTotalHeight(heights), 60LL);
    QCOMPARE(various.ComputeTotalHeight(heights), 90LL);
    QCOMPARE(various.GetTopOf(2), 70LL);
}

void tst_OrderForms::memory_isExactForOneLevel_andGivenBack()
{
    CSimilarRows rows(&wrapper);
    rows.MakeRoom(1000000);
    QCOMPARE(rows.GetCapacity(), 1000000);
    for (int i = 0; i < 1000000; ++i) {
        rows.AddRow(rowNumber(i));
    }
    rows.Trim();
    QCOMPARE(rows.GetCapacity(), 1000000);
    rows.Clear();
    rows.AddRow(rowNumber(0));
    rows.Trim();
    QVERIFY(rows.GetCapacity() < 32);
    QCOMPARE(rows.GetRowAt(0), rowNumber(0));
    rows.Clear();
    rows.Trim();
    QCOMPARE(rows.GetCapacity(), 0);
}

void tst_OrderForms::memory_rowsOneByOne_leaveLittleSlack()
{
    CVariousRows rows(&wrapper);
    for (int i = 0; i < 100000; ++i) {
        rows.MakeRoom(1);
        rows.AddRow(rowNumber(i));
    }
    rows.Trim();
    QVERIFY(rows.GetCapacity() >= 100000);
    QVERIFY(rows.GetCapacity() < 102000);
    QCOMPARE(rows.GetRowAt(99999), rowNumber(99999));
}

void tst_OrderForms::largeBlock_holdsItsBytes()
{
    for (std::size_t const size :
         {std::size_t(0), std::size_t(1), std::size_t(4 << 20), std::size_t((9 << 20) + 12345)}) {
        void * const block = LargeBlock::allocate(size);
        QVERIFY(block);
        std::memset(block, 7, size);
        LargeBlock::release(block);
    }
    LargeBlock::release(nullptr);
}

ZENU_TEST(tst_OrderForms)
#include "tst_OrderForms.moc"
