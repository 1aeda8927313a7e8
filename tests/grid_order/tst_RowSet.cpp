#include "tests/support/TestMain.h"
#include "zenu/grid/handles/RowSet.h"

#include <random>
#include <set>

using namespace zenu;

namespace {

// Addresses only: the set never looks behind one.
IGCRow * rowAt(std::uintptr_t address)
{
    return reinterpret_cast<IGCRow *>(address);
}

std::vector<IGCRow *> byWalk(RowSet const & rows)
{
    std::vector<IGCRow *> all;
    for (IGCRow * row = rows.first(); row; row = rows.next(row)) {
        all.push_back(row);
    }
    return all;
}

std::vector<IGCRow *> byForEach(RowSet const & rows)
{
    std::vector<IGCRow *> all;
    rows.forEach([&](IGCRow * row) { all.push_back(row); });
    return all;
}

} // namespace

class tst_RowSet : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void emptySet_answersQuietly();
    void insertAndErase_sayWhetherAnythingChanged();
    void noRows_areNeverFound_data();
    void noRows_areNeverFound();
    void extremeAddresses_areRowsLikeOthers();
    void next_needsNoRowOfTheSet();
    void walk_survivesChanges();
    void insertRange_isAsManyInserts_data();
    void insertRange_isAsManyInserts();
    void insertRange_overRowsThatAreThere_countsEachOnce();
    void randomChanges_agreeWithAStandardSet_data();
    void randomChanges_agreeWithAStandardSet();
    void moveAndSwap_takeTheRowsAlong();
    void bytes_denseRows_areAboutOneARow_data();
    void bytes_denseRows_areAboutOneARow();
    void bytes_fallToNothing();
};

void tst_RowSet::emptySet_answersQuietly()
{
    RowSet rows;
    QVERIFY(rows.isEmpty());
    QCOMPARE(rows.count(), 0);
    QVERIFY(!rows.first());
    QVERIFY(!rows.next(nullptr));
    QVERIFY(!rows.contains(rowAt(64)));
    QVERIFY(!rows.erase(rowAt(64)));
    rows.clear();
    rows.insertRange(rowAt(64), 8, 0);
    rows.insertRange(rowAt(64), 8, -5);
    QVERIFY(rows.isEmpty());
    QCOMPARE(rows.bytes(), std::size_t(0));
}

void tst_RowSet::insertAndErase_sayWhetherAnythingChanged()
{
    RowSet rows;
    QVERIFY(rows.insert(rowAt(4096)));
    QVERIFY(!rows.insert(rowAt(4096)));
    QCOMPARE(rows.count(), 1);
    QVERIFY(rows.contains(rowAt(4096)));
    QVERIFY(!rows.erase(rowAt(4104)));
    QVERIFY(rows.erase(rowAt(4096)));
    QVERIFY(!rows.erase(rowAt(4096)));
    QVERIFY(!rows.contains(rowAt(4096)));
    QVERIFY(rows.isEmpty());
}

void tst_RowSet::noRows_areNeverFound_data()
{
    QTest::addColumn<long>("value");
    for (long const value : {0L, -1L, -2L, -3L, 1L, 4097L, 4100L}) {
        QTest::addRow("%ld", value) << value;
    }
}

void tst_RowSet::noRows_areNeverFound()
{
    QFETCH(long, value);
    IGCRow * const row = reinterpret_cast<IGCRow *>(value);
    RowSet rows;
    rows.insertRange(rowAt(8), 8, 10000); // each address around
    QVERIFY(!rows.insert(row));
    QVERIFY(!rows.contains(row));
    QVERIFY(!rows.erase(row));
    QCOMPARE(rows.count(), 10000);
    QVERIFY(rows.next(row) || value < 0);
}

void tst_RowSet::extremeAddresses_areRowsLikeOthers()
{
    RowSet rows;
    std::uintptr_t const highest = ~std::uintptr_t(7);
    QVERIFY(rows.insert(rowAt(highest)));
    QVERIFY(rows.insert(rowAt(8)));
    QVERIFY(rows.contains(rowAt(highest)) && rows.contains(rowAt(8)));
    QCOMPARE(rows.first(), rowAt(8));
    QCOMPARE(rows.next(rowAt(8)), rowAt(highest));
    QVERIFY(!rows.next(rowAt(highest)));
}

void tst_RowSet::next_needsNoRowOfTheSet()
{
    RowSet rows;
    rows.insert(rowAt(1000));
    rows.insert(rowAt(100000000));
    QCOMPARE(rows.next(nullptr), rowAt(1000));
    QCOMPARE(rows.next(rowAt(999)), rowAt(1000));
    QCOMPARE(rows.next(rowAt(1001)), rowAt(100000000));
    QCOMPARE(rows.next(rowAt(50000)), rowAt(100000000));
    QVERIFY(!rows.next(rowAt(100000001)));
}

void tst_RowSet::walk_survivesChanges()
{
    RowSet rows;
    rows.insertRange(rowAt(1 << 20), 32, 100000);
    int seen = 0;
    for (IGCRow * row = rows.first(); row; row = rows.next(row)) {
        QVERIFY(rows.erase(row));
        ++seen;
    }
    QCOMPARE(seen, 100000);
    QVERIFY(rows.isEmpty());
}

void tst_RowSet::insertRange_isAsManyInserts_data()
{
    QTest::addColumn<long>("stride");
    QTest::addColumn<int>("count");
    QTest::newRow("a few") << 40L << 5;
    QTest::newRow("lonely rows") << 32L << 200000;
    QTest::newRow("slim rows") << 40L << 200000;
    QTest::newRow("ordinary rows") << 72L << 50000;
    QTest::newRow("each address") << 8L << 20000;
    QTest::newRow("a page apart") << (32L << 10) << 100;
    QTest::newRow("a region apart") << (5L << 20) << 50;
    QTest::newRow("as far as heaps lie apart") << (1L << 45) << 2;
}

void tst_RowSet::insertRange_isAsManyInserts()
{
    QFETCH(long, stride);
    QFETCH(int, count);
    for (std::uintptr_t const start : {std::uintptr_t(8), std::uintptr_t(0x7f0000007ff8)}) {
        RowSet atOnce;
        RowSet oneByOne;
        atOnce.insertRange(rowAt(start), static_cast<std::size_t>(stride), count);
        for (int i = 0; i < count; ++i) {
            oneByOne.insert(rowAt(start + static_cast<std::uintptr_t>(i) *
                                              static_cast<std::uintptr_t>(stride)));
        }
        QCOMPARE(atOnce.count(), count);
        QCOMPARE(oneByOne.count(), count);
        QVERIFY(byForEach(atOnce) == byForEach(oneByOne));
        QVERIFY(byWalk(atOnce) == byForEach(atOnce));
    }
}

void tst_RowSet::insertRange_overRowsThatAreThere_countsEachOnce()
{
    RowSet rows;
    for (int i = 0; i < 3000; i += 3) {
        rows.insert(rowAt(4096 + static_cast<std::uintptr_t>(i) * 32));
    }
    rows.insertRange(rowAt(4096), 32, 3000);
    QCOMPARE(rows.count(), 3000);
    rows.insertRange(rowAt(4096), 32, 20);
    QCOMPARE(rows.count(), 3000);
}

void tst_RowSet::randomChanges_agreeWithAStandardSet_data()
{
    QTest::addColumn<int>("spread");
    QTest::newRow("one page") << 12;
    QTest::newRow("a few regions") << 20;
    QTest::newRow("scattered") << 40;
}

void tst_RowSet::randomChanges_agreeWithAStandardSet()
{
    QFETCH(int, spread);
    std::mt19937_64 random(static_cast<unsigned>(spread));
    RowSet rows;
    std::set<IGCRow *> wanted;
    for (int step = 0; step < 60000; ++step) {
        // Grows in the first half, shrinks in the second.
        bool const adds = (random() % 8 < 5) == (step < 30000);
        IGCRow * row = rowAt(((random() >> (64 - spread)) + 1) << 3);
        if (!adds && !wanted.empty() && random() % 4 != 0) {
            auto const near = wanted.lower_bound(row);
            row = near == wanted.end() ? *wanted.begin() : *near;
        }
        QCOMPARE(rows.contains(row), wanted.contains(row));
        if (adds) {
            QCOMPARE(rows.insert(row), wanted.insert(row).second);
        } else {
            QCOMPARE(rows.erase(row), wanted.erase(row) != 0);
        }
        auto const after = wanted.upper_bound(row);
        QCOMPARE(rows.next(row), after == wanted.end() ? nullptr : *after);
        if (step % 5000 == 0) {
            QCOMPARE(static_cast<std::size_t>(rows.count()), wanted.size());
            std::vector<IGCRow *> const all(wanted.begin(), wanted.end());
            QVERIFY(byWalk(rows) == all);
            QVERIFY(byForEach(rows) == all);
        }
    }
    rows.clear();
    QVERIFY(rows.isEmpty() && !rows.first());
}

void tst_RowSet::moveAndSwap_takeTheRowsAlong()
{
    RowSet one;
    one.insertRange(rowAt(8), 8, 100);
    QVERIFY(one.contains(rowAt(16)));
    RowSet other(std::move(one));
    QCOMPARE(other.count(), 100);
    QVERIFY(other.contains(rowAt(16)));
    one = RowSet();
    QVERIFY(one.isEmpty() && !one.contains(rowAt(16)));
    one.insert(rowAt(8000));
    one.swap(other);
    QCOMPARE(one.count(), 100);
    QCOMPARE(other.count(), 1);
    QVERIFY(one.contains(rowAt(16)) && !other.contains(rowAt(16)));
}

void tst_RowSet::bytes_denseRows_areAboutOneARow_data()
{
    QTest::addColumn<int>("stride");
    QTest::newRow("32") << 32;
    QTest::newRow("40") << 40;
    QTest::newRow("64") << 64;
    QTest::newRow("72") << 72;
}

void tst_RowSet::bytes_denseRows_areAboutOneARow()
{
    QFETCH(int, stride);
    RowSet rows;
    rows.insertRange(rowAt(0x7f0000000000), static_cast<std::size_t>(stride), 1000000);
    QVERIFY2(rows.bytes() <= 1200000, qPrintable(QString::number(rows.bytes())));
}

void tst_RowSet::bytes_fallToNothing()
{
    RowSet rows;
    rows.insertRange(rowAt(0x7f0000000000), 32, 100000);
    rows.insert(rowAt(8));
    while (!rows.isEmpty()) {
        rows.erase(rows.first());
    }
    QVERIFY(rows.bytes() < 1000);
    rows.insertRange(rowAt(0x7f0000000000), 32, 100000);
    rows.clear();
    QCOMPARE(rows.bytes(), std::size_t(0));
}

ZENU_TEST(tst_RowSet)
#include "tst_RowSet.moc"
