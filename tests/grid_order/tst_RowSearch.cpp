#include "tests/support/TestMain.h"
#include "zenu/grid/order/RowSearch.h"

#include <random>
#include <vector>

using namespace zenu;

namespace {

struct Stack
{
    explicit Stack(std::vector<int> const & heights)
    {
        for (int const height : heights) {
            tops.push_back(tops.back() + height);
        }
    }
    int count() const { return static_cast<int>(tops.size()) - 1; }
    long long topOf(int index) const { return tops[static_cast<std::size_t>(index)]; }
    long long bottomOf(int index) const { return tops[static_cast<std::size_t>(index) + 1]; }
    int search(long long y, int low, int high) const
    {
        return RowSearch::binarySearch(*this, y, low, high);
    }

    std::vector<long long> tops{0};
};

} // namespace

class tst_RowSearch : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void indexFromY_data();
    void indexFromY();
    void indexFromY_highFarOut_meetsNoRow();
    void division_answersAsTheBinarySearch();
    void rowUnderY_clampsAtBothEnds();
    void largestTopIndex_isTheFirstIndexForTheLastRow();
    void toInt_saturates();
    void anyHeights_answersStayInRange();
};

void tst_RowSearch::indexFromY_data()
{
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("index");
    QTest::newRow("high below low") << 5 << 3 << 2 << -1;
    QTest::newRow("one row, first pixel") << 30 << 2 << 2 << 2;
    QTest::newRow("one row, last pixel") << 59 << 2 << 2 << 2;
    QTest::newRow("one row, pixel after") << 60 << 2 << 2 << -1;
    QTest::newRow("one row, pixel before") << 29 << 2 << 2 << -1;
    QTest::newRow("one index past the rows") << 5 << 4 << 4 << -1;
    QTest::newRow("all rows") << 45 << 0 << 3 << 2;
    QTest::newRow("-1 is the last row") << 99 << 0 << -1 << 3;
    QTest::newRow("high is the count") << 99 << 0 << 4 << 3;
    QTest::newRow("below all rows") << 100 << 0 << -1 << -1;
    QTest::newRow("above all rows") << -1 << 0 << -1 << -1;
    QTest::newRow("outside of the part") << 5 << 1 << 3 << -1;
    QTest::newRow("negative low is 0") << 5 << -9 << 3 << 0;
}

void tst_RowSearch::indexFromY()
{
    QFETCH(int, y);
    QFETCH(int, low);
    QFETCH(int, high);
    QTEST(RowSearch::indexFromY(Stack({10, 20, 30, 40}), y, low, high), "index");
}

void tst_RowSearch::indexFromY_highFarOut_meetsNoRow()
{
    // The middle of the range is no row: the search gives up, though a row covers y.
    QCOMPARE(RowSearch::indexFromY(Stack({10, 20, 30, 40}), 5, 0, 1000), -1);
    QCOMPARE(RowSearch::indexFromY(RowSearch::UniformPositions{4, 20}, 5, 0, 1000), -1);
    QCOMPARE(RowSearch::indexFromY(RowSearch::UniformPositions{4, 20}, 5, 0, 5), 0);
}

void tst_RowSearch::division_answersAsTheBinarySearch()
{
    for (int const height : {1, 3, 20}) {
        for (int const count : {0, 1, 2, 5}) {
            RowSearch::UniformPositions const rows{count, height};
            for (int y = -2; y <= count * height + 2; ++y) {
                for (int low = 0; low <= count + 2; ++low) {
                    for (int high = 0; high <= count + 4; ++high) {
                        QCOMPARE(rows.search(y, low, high),
                                 RowSearch::binarySearch(rows, y, low, high));
                    }
                }
            }
        }
    }
    RowSearch::UniformPositions const huge{2000000000, 2000000000};
    for (int const index : {0, 1, 2, 3, 1999999999}) {
        long long const y = huge.topOf(index);
        QCOMPARE(huge.search(y, 0, 1999999999), index);
        QCOMPARE(RowSearch::binarySearch(huge, y, 0, 1999999999), index);
    }
}

void tst_RowSearch::rowUnderY_clampsAtBothEnds()
{
    Stack const rows({10, 20, 30});
    QCOMPARE(RowSearch::rowUnderY(rows, -100), 0);
    QCOMPARE(RowSearch::rowUnderY(rows, 9), 0);
    QCOMPARE(RowSearch::rowUnderY(rows, 10), 1);
    QCOMPARE(RowSearch::rowUnderY(rows, 29), 1);
    QCOMPARE(RowSearch::rowUnderY(rows, 30), 2);
    QCOMPARE(RowSearch::rowUnderY(rows, 1000), 2);
}

void tst_RowSearch::largestTopIndex_isTheFirstIndexForTheLastRow()
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::vector<int> heights(random() % 20 + 1);
        for (int & height : heights) {
            height = static_cast<int>(random() % 40) + 1;
        }
        Stack const rows(heights);
        for (int page = 0; page < 200; page += 7) {
            QCOMPARE(RowSearch::largestTopIndex(rows, page),
                     RowSearch::firstIndexForBottom(rows, rows.count() - 1, page));
        }
    }
}

void tst_RowSearch::toInt_saturates()
{
    QCOMPARE(RowSearch::toInt(1LL << 40), INT_MAX);
    QCOMPARE(RowSearch::toInt(-(1LL << 40)), INT_MIN);
    QCOMPARE(RowSearch::toInt(-7), -7);
}

void tst_RowSearch::anyHeights_answersStayInRange()
{
    std::mt19937 random(11);
    for (int round = 0; round < 500; ++round) {
        std::vector<int> heights(random() % 9 + 1);
        for (int & height : heights) {
            height = static_cast<int>(random() % 30) - 15;
        }
        Stack const rows(heights);
        int const page = static_cast<int>(random() % 50);
        for (int y = -60; y < 60; ++y) {
            int const index = RowSearch::indexFromY(rows, y, 0, -1);
            QVERIFY(index >= -1 && index < rows.count());
            QVERIFY(index < 0 || (y >= rows.topOf(index) && y < rows.bottomOf(index)));
        }
        for (int i = 0; i < rows.count(); ++i) {
            int const first = RowSearch::firstIndexForBottom(rows, i, page);
            QVERIFY(first >= 0 && first < rows.count());
            QVERIFY(RowSearch::visibleCountFrom(rows, i, page, round % 2 == 0) >= 1);
        }
        int const limit = RowSearch::largestTopIndex(rows, page);
        QVERIFY(limit >= 0 && limit < rows.count());
    }
}

ZENU_TEST(tst_RowSearch)
#include "tst_RowSearch.moc"
