#include "tests/support/TestMain.h"
#include "zenu/grid/order/StableSort.h"

#include <random>
#include <vector>

using namespace zenu;

namespace {

struct Record
{
    int key;
    int place; // where it stood
    bool operator==(Record const &) const = default;
};

std::vector<Record> records(std::size_t count, unsigned keys, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<Record> all;
    for (std::size_t i = 0; i < count; ++i) {
        all.push_back({static_cast<int>(random() % keys), static_cast<int>(i)});
    }
    return all;
}

bool byKey(Record const & a, Record const & b)
{
    return a.key < b.key;
}

// In exactly allocated memory, so that the address sanitizer sees each step outside.
template <typename Less>
std::vector<Record> sorted(std::vector<Record> const & all, Less less, std::size_t limit)
{
    std::vector<Record> copy(all);
    copy.shrink_to_fit();
    stableSort(copy.data(), copy.size(), less, limit);
    return copy;
}

bool areTheSameElements(std::vector<Record> one, std::vector<Record> const & other)
{
    std::sort(one.begin(), one.end(), [](auto a, auto b) { return a.place < b.place; });
    return one == other;
}

} // namespace

class tst_StableSort : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void consistentAnswers_sortAsTheStandardLibrary_data() { limits(); }
    void consistentAnswers_sortAsTheStandardLibrary();
    void elementsInOrder_areComparedOnce();
    void nonsense_losesNothing_data() { limits(); }
    void nonsense_losesNothing();
    void holesInTheOrder_loseNothing();
    void nullAndEmpty_areFine();

private:
    static void limits()
    {
        QTest::addColumn<std::size_t>("limit");
        QTest::newRow("room for all") << std::size_t(100000);
        QTest::newRow("room for few") << std::size_t(20);
        QTest::newRow("room for one") << std::size_t(1);
        QTest::newRow("no room") << std::size_t(0);
    }
};

void tst_StableSort::consistentAnswers_sortAsTheStandardLibrary()
{
    QFETCH(std::size_t, limit);
    for (std::size_t count = 0; count < 200; ++count) {
        for (unsigned const keys : {1U, 3U, 1000U}) {
            std::vector<Record> const all = records(count, keys, static_cast<unsigned>(count));
            std::vector<Record> wanted = all;
            std::stable_sort(wanted.begin(), wanted.end(), byKey);
            QCOMPARE(sorted(all, byKey, limit), wanted);
        }
    }
    std::vector<Record> const all = records(20000, 5000, 5);
    std::vector<Record> wanted = all;
    std::stable_sort(wanted.begin(), wanted.end(), byKey);
    QCOMPARE(sorted(all, byKey, limit), wanted);
    std::reverse(wanted.begin(), wanted.end());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        wanted[i].place = static_cast<int>(i);
    }
    std::vector<Record> again = wanted;
    std::stable_sort(again.begin(), again.end(), byKey);
    QCOMPARE(sorted(wanted, byKey, limit), again);
}

void tst_StableSort::elementsInOrder_areComparedOnce()
{
    std::vector<Record> all = records(1000, 1, 1);
    int compared = 0;
    stableSort(all.data(), all.size(), [&](Record const & a, Record const & b) {
        ++compared;
        return byKey(a, b);
    });
    QCOMPARE(compared, 999);
}

void tst_StableSort::nonsense_losesNothing()
{
    QFETCH(std::size_t, limit);
    std::mt19937 random(3);
    for (std::size_t const count : {2U, 15U, 16U, 17U, 33U, 64U, 100U, 1000U, 5000U}) {
        std::vector<Record> const all = records(count, 7, 9);
        auto const always = [](Record const &, Record const &) { return true; };
        auto const dice = [&](Record const &, Record const &) { return random() % 2 == 0; };
        auto const circle = [](Record const & a, Record const & b) {
            return (a.key + 1) % 7 == b.key || (a.key + 2) % 7 == b.key;
        };
        auto const reversed = [](Record const & a, Record const & b) { return a.key >= b.key; };
        QVERIFY(areTheSameElements(sorted(all, always, limit), all));
        QVERIFY(areTheSameElements(sorted(all, dice, limit), all));
        QVERIFY(areTheSameElements(sorted(all, circle, limit), all));
        QVERIFY(areTheSameElements(sorted(all, reversed, limit), all));
    }
}

void tst_StableSort::holesInTheOrder_loseNothing()
{
    // As a comparison that finds no text for some rows and calls them level with every other.
    std::vector<Record> const all = records(10000, 1000, 4);
    auto const less = [](Record const & a, Record const & b) {
        return a.key % 5 != 0 && b.key % 5 != 0 && a.key < b.key;
    };
    std::vector<Record> const once = sorted(all, less, 100000);
    QVERIFY(areTheSameElements(once, all));
    QCOMPARE(sorted(all, less, 100000), once);
}

void tst_StableSort::nullAndEmpty_areFine()
{
    stableSort(static_cast<Record *>(nullptr), 0, byKey);
    Record one{1, 2};
    stableSort(&one, 1, byKey);
    QCOMPARE(one.key, 1);
}

ZENU_TEST(tst_StableSort)
#include "tst_StableSort.moc"
