#include "tests/grid_geometry/GeometryFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/grid/geometry/TextFit.h>

#include <QRandomGenerator>

#include <vector>

using namespace zenu;

namespace {

// Letters of given widths, side by side, and a guess that is off by a given number of letters.
class GivenWidths : public ITextWidths
{
public:
    explicit GivenWidths(std::vector<int> const & letterWidths, int guessError = 0)
        : error(guessError)
    {
        sums.push_back(0);
        for (int const width : letterWidths) {
            sums.push_back(sums.back() + width);
        }
    }
    int widthOf(int count) override
    {
        ++asked;
        return sums[static_cast<std::size_t>(count)];
    }
    bool surelyExceeds(int count, int room) override
    {
        return sure && sums[static_cast<std::size_t>(count)] > 2 * room;
    }
    int probableCount(int room, int most) override
    {
        int count = 0;
        while (count < most && sums[static_cast<std::size_t>(count) + 1] <= room) {
            ++count;
        }
        return std::clamp(count + error, 0, most);
    }

    int asked = 0;
    bool sure = false;

private:
    std::vector<int> sums;
    int error;
};

} // namespace

class tst_TextFit : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void fitText_table_data();
    void fitText_table();
    void fitText_anyGuess_sameResult();
    void fitText_rightGuess_asksThreeTimesAtMost();
    void fitText_negativeRoom_isZero();
};

void tst_TextFit::fitText_table_data()
{
    QTest::addColumn<int>("letters");
    QTest::addColumn<int>("letterWidth");
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("dots");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    QTest::newRow("all fit exactly") << 10 << 5 << 50 << 9 << 10 << 50;
    QTest::newRow("a pixel short: the dots need their room too") << 10 << 5 << 49 << 9 << 8 << 40;
    QTest::newRow("the start is half the room and one") << 100 << 1 << 50 << 9 << 26 << 26;
    QTest::newRow("a short text is not limited") << 25 << 2 << 50 << 9 << 25 << 50;
    QTest::newRow("one letter more than half the room") << 26 << 1 << 50 << 9 << 26 << 26;
    QTest::newRow("only the dots have room") << 10 << 5 << 9 << 9 << 0 << 0;
    QTest::newRow("not even the dots") << 10 << 5 << 4 << 9 << 0 << 0;
    QTest::newRow("no room, letters without width stand") << 10 << 0 << 0 << 9 << 1 << 0;
    QTest::newRow("no room") << 10 << 5 << 0 << 9 << 0 << 0;
    QTest::newRow("one letter that fits") << 1 << 5 << 5 << 9 << 1 << 5;
    QTest::newRow("one letter that does not") << 1 << 50 << 20 << 9 << 0 << 0;
}

void tst_TextFit::fitText_table()
{
    QFETCH(int, letters);
    QFETCH(int, letterWidth);
    QFETCH(int, room);
    QFETCH(int, dots);
    GivenWidths widths(std::vector<int>(static_cast<std::size_t>(letters), letterWidth));
    TextFit const fit = fitText(letters, room, dots, widths);
    QTEST(fit.count, "count");
    QTEST(fit.width, "width");
}

void tst_TextFit::fitText_anyGuess_sameResult()
{
    QRandomGenerator random(4711);
    for (int round = 0; round < 20000; ++round) {
        std::vector<int> letters(static_cast<std::size_t>(random.bounded(1, 60)));
        for (int & width : letters) {
            width = random.bounded(12);
        }
        int const length = static_cast<int>(letters.size());
        int const room = random.bounded(-3, 300);
        int const dots = random.bounded(15);
        GivenWidths exact(letters);
        GivenWidths off(letters, random.bounded(-70, 70));
        off.sure = true;
        TextFit const fit = fitText(length, room, dots, exact);
        TextFit const other = fitText(length, room, dots, off);
        QCOMPARE(other.count, fit.count);
        QCOMPARE(other.width, fit.width);
        // The rule, one letter less at a time.
        GivenWidths naive(letters);
        int count = std::max(0, length > room / 2 ? std::min(length, room / 2 + 1) : length);
        if (naive.widthOf(count) > room) {
            do {
                --count;
            } while (count >= 1 && naive.widthOf(count) + dots > room);
        }
        count = std::max(count, 0);
        QCOMPARE(fit.count, count);
        QCOMPARE(fit.width, naive.widthOf(count));
    }
}

void tst_TextFit::fitText_rightGuess_asksThreeTimesAtMost()
{
    for (int room = 0; room < 700; ++room) {
        GivenWidths widths(std::vector<int>(100, 7));
        fitText(100, room, 10, widths);
        QVERIFY2(widths.asked <= 3, qPrintable(QString::number(room)));
        GivenWidths doubtless(std::vector<int>(100, 7));
        doubtless.sure = true;
        fitText(100, room, 10, doubtless);
        QVERIFY2(doubtless.asked <= (room < 150 ? 2 : 3), qPrintable(QString::number(room)));
    }
}

void tst_TextFit::fitText_negativeRoom_isZero()
{
    for (int const room : {-1, -2, -100, -0x7ffffffe}) {
        GivenWidths widths(std::vector<int>(10, 0));
        TextFit const fit = fitText(10, room, 5, widths);
        QCOMPARE(fit.count, 0);
        QCOMPARE(fit.width, 0);
    }
}

ZENU_TEST(tst_TextFit)
#include "tst_TextFit.moc"
