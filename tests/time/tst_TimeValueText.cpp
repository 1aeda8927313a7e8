#include "tests/support/GermanLocale.h"
#include "tests/support/TestMain.h"
#include "tests/time/NaiveTime.h"

#include <zenu/time/TimeValue.h>

#include <climits>
#include <clocale>

using namespace zenu;

namespace {

constexpr long long invalid = TimeValue::s_invalidValue;

std::string inMilliseconds(char const * text)
{
    return TimeValue(text, 1.0).str(TimeUnit::ms, 9, false);
}

} // namespace

// Reading and writing of times.
class tst_TimeValueText : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_ALL, "C"); }

    void set_data();
    void set();
    void set_null_isZero();
    void set_keepsTheMultiplier();
    void set_tooLargeATerm_isInvalid();
    void set_everyTerm_isRoundedByItself();
    void set_multipliesInTheGivenOrder();
    void set_everyByteBetweenTwoTerms_likeTheRule();
    void set_longTexts_areReadOnce();
    void readUnit_data();
    void readUnit();
    void readUnit_null_isUnknown();

    void str_withoutUnit_takesTheBest();
    void str_decimals_data();
    void str_decimals();
    void str_defaultDecimals_showOneCount();
    void str_oddMultiplier_isSafe();
    void str_hugeDecimals_isSafe();
    void strNoUnit_isTheNumberAlone();
    void strCompound_data();
    void strCompound();
    void strCompound_zero_isEmpty();
    void strCompound_seconds_areOfSixtyAndABit();
    void strCompound_misplacedScan_cutsTheText();
    void str_anyTime_likeTheRule();
    void str_germanLocale_changesNothing();
};

void tst_TimeValueText::set_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("inMilliseconds");
    auto const row = [](char const * text, char const * result) {
        QTest::addRow("'%s'", text) << QByteArray(text) << QByteArray(result);
    };
    row("", "0 ms");
    row("10", "0 ms"); // a number without a unit counts nothing
    row("xyz", "0 ms");
    row("1 ms 20", "1 ms");
    row("1 ms xyz", "1 ms");
    row("1 ms, 2 ms", "1 ms");
    row("ms", "0 ms");
    row("1.5 MS", "1.5 ms"); // in any case, although the validators know only small letters
    row("1 MSEC", "1 ms");
    row("1 ms 500 us", "1.5 ms");
    row("1ms500us", "1.5 ms");
    row("-1 ms 500 us", "-1.5 ms"); // the sign of the first governs
    row("1 ms -500 us", "0.5 ms");
    row("-1 ms -500 us", "-0.5 ms");
    row("0 ms -500 us 200 us", "-0.7 ms");
    row("1 ms -2 ms 500 us", "-1.5 ms"); // it is the sum's sign, whichever term brought it
    row("+2 us", "0.002 ms");
    row("1e3 us", "1 ms");
    row("1e us", "0 ms");
    row("0x10 ms", "16 ms");
    row("  \t\n.5 \n ms\n", "0.5 ms");
    row("1 h 1 hr 1 min 1 s 1 sec", "7262000 ms");
    row("1 fs 1 fsec 1 ps 1 psec", "0.000000002 ms");
    row("1 ns 1 nsec 1 us 1 usec", "0.002002 ms");
    row("1 minutes", "0 ms");
    row("1 m", "0 ms");
    row("1,5 ms", "0 ms");
    row("1 ms\xa0"
        "2 ms",
        "1 ms");
    row("1 \xb5s", "0 ms");
    row("1e30 hr", "<error>");
    row("inf ms", "<error>");
    row("nan ms", "<error>");
    row("1e999 fs", "<error>");
    row("1e-999 hr", "0 ms");
}

void tst_TimeValueText::set()
{
    QFETCH(QByteArray, text);
    QTEST(QByteArray::fromStdString(::inMilliseconds(text.constData())), "inMilliseconds");
}

void tst_TimeValueText::set_null_isZero()
{
    TimeValue time;
    time.set(nullptr);
    QVERIFY(time.valid());
    QCOMPARE(time.internal(), 0);
}

void tst_TimeValueText::set_keepsTheMultiplier()
{
    TimeValue time(77, 1e9);
    time.set("2.6 ms");
    QCOMPARE(time.internal(), 2600);
    QVERIFY(time.multiplier() == 1e9);
}

// The term is the invalid count, and takes part in the sum as one.
void tst_TimeValueText::set_tooLargeATerm_isInvalid()
{
    QCOMPARE(TimeValue("1e30 hr", 1.0).internal(), invalid);
    QCOMPARE(TimeValue("-1e30 hr", 1.0).internal(), invalid);
    QCOMPARE(TimeValue("5 fs 1e30 hr", 1.0).internal(), invalid + 5);
    QCOMPARE(TimeValue("1e30 hr 1 fs", 1.0).internal(), LLONG_MAX);
    QCOMPARE(TimeValue("1 ms", 0.0).internal(), invalid);
}

void tst_TimeValueText::set_everyTerm_isRoundedByItself()
{
    QCOMPARE(TimeValue("1.5 fs 1.5 fs", 1.0).internal(), 4);
    QCOMPARE(TimeValue("-1.5 fs 1.5 fs", 1.0).internal(), -3); // -1, then less 2
    QCOMPARE(TimeValue("0.4 fs 0.4 fs", 1.0).internal(), 0);
}

void tst_TimeValueText::set_multipliesInTheGivenOrder()
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 20'000; ++i) {
        double const multiplier = naive::anyDouble(random);
        naive::Word const & word = naive::words[random() % std::size(naive::words)];
        double const count = double(random() >> (i % 60 + 1));
        double const number = count * multiplier / naive::factor(word.unit);
        char text[100];
        std::snprintf(text, sizeof text, "%.17g %s", number, word.text);
        QCOMPARE(TimeValue(text, multiplier).internal(),
                 naive::rounded(naive::factor(word.unit) / multiplier * number));
    }
}

void tst_TimeValueText::set_everyByteBetweenTwoTerms_likeTheRule()
{
    for (int byte = 1; byte < 256; ++byte) {
        char const c = static_cast<char>(byte);
        char const text[] = {'1', 'p', 's', c, '2', 'p', 's', '\0'};
        long long expected = 1; // the second can't be read
        if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
            expected = 0; // the first has no unit
        } else if (c == ' ' || (c >= '\t' && c <= '\r') || c == '+') {
            expected = 3;
        } else if (c == '-') {
            expected = -1;
        } else if (c == '.') {
            expected = 1; // 0.2 is rounded
        } else if (c >= '0' && c <= '9') {
            expected = 1 + 10 * (c - '0') + 2;
        }
        QCOMPARE(TimeValue(text, 1000.0).internal(), expected);
    }
}

void tst_TimeValueText::set_longTexts_areReadOnce()
{
    constexpr int size = 10'000'000;
    std::string terms;
    while (terms.size() < size) {
        terms += "1 ps ";
    }
    QCOMPARE(TimeValue(terms.c_str(), 1000.0).internal(), size / 5);
    QCOMPARE(TimeValue((std::string(size, ' ') + "1 ms").c_str(), 1e12).internal(), 1);
    QCOMPARE(TimeValue(("0." + std::string(size, '0') + "9 hr").c_str(), 1.0).internal(), 0);
    QCOMPARE(TimeValue((std::string(size, '9') + " hr").c_str(), 1.0).internal(), invalid);
    QCOMPARE(TimeValue((std::string(size, '0') + "7 fs").c_str(), 1.0).internal(), 7);
    QCOMPARE(TimeValue(("1 ms " + std::string(size, 'x')).c_str(), 1e12).internal(), 1);
    QCOMPARE(TimeValue(std::string(size, '-').c_str(), 1.0).internal(), 0);
    QCOMPARE(TimeValue::readUnit(terms.c_str()), TimeUnit(TimeUnit::ps));
}

void tst_TimeValueText::readUnit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("a number alone") << QByteArray("10") << QByteArray("?");
    QTest::newRow("no number") << QByteArray("abc") << QByteArray("?");
    QTest::newRow("a unit alone") << QByteArray("ms") << QByteArray("?");
    QTest::newRow("the first of two") << QByteArray("1 ms 5 us") << QByteArray("ms");
    QTest::newRow("empty") << QByteArray("") << QByteArray("?");
    QTest::newRow("no unit behind the first") << QByteArray("1 2 ms") << QByteArray("?");
    QTest::newRow("long form") << QByteArray(" -1e5USEC") << QByteArray("us");
}

void tst_TimeValueText::readUnit()
{
    QFETCH(QByteArray, text);
    QTEST(QByteArray(TimeValue::readUnit(text.constData()).name()), "name");
}

void tst_TimeValueText::readUnit_null_isUnknown()
{
    QVERIFY(TimeValue::readUnit(nullptr) == TimeUnit::unknown);
}

void tst_TimeValueText::str_withoutUnit_takesTheBest()
{
    QCOMPARE(TimeValue(1.5, TimeUnit::ms, 1.0).str(3, false), std::string("1500 us"));
    QCOMPARE(TimeValue(15, TimeUnit::ms, 1.0).str(3, false), std::string("15 ms"));
    QCOMPARE(TimeValue(15, TimeUnit::ms, 1.0).str(3, true), std::string("15 ms"));
}

void tst_TimeValueText::str_decimals_data()
{
    QTest::addColumn<double>("milliseconds");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("zeros are stripped") << 1.5 << 3 << QByteArray("1.5 ms");
    QTest::newRow("12.500") << 12.5 << 3 << QByteArray("12.5 ms");
    QTest::newRow("and the point") << 12.0 << 3 << QByteArray("12 ms");
    QTest::newRow("zeros before the point stay") << 100.0 << 3 << QByteArray("100 ms");
    QTest::newRow("without decimals nothing is stripped") << 100.0 << 0 << QByteArray("100 ms");
    QTest::newRow("rounded") << 1.9996 << 3 << QByteArray("2 ms");
    QTest::newRow("a half to the even digit") << 2.5 << 0 << QByteArray("2 ms");
    QTest::newRow("rounded to zero") << 0.0001 << 3 << QByteArray("0 ms");
    QTest::newRow("a negative one keeps its sign") << -0.0001 << 3 << QByteArray("-0 ms");
    QTest::newRow("the default at 1 fs") << 0.000000000123 << -1 << QByteArray("0.000000000123 ms");
}

void tst_TimeValueText::str_decimals()
{
    QFETCH(double, milliseconds);
    QFETCH(int, decimals);
    TimeValue const time(milliseconds, TimeUnit::ms, 1.0);
    QTEST(QByteArray::fromStdString(time.str(TimeUnit::ms, decimals, false)), "text");
}

void tst_TimeValueText::str_defaultDecimals_showOneCount()
{
    TimeValue const picosecond(1, 1000.0);
    QCOMPARE(picosecond.str(TimeUnit::ms, -1, false), std::string("0.000000001 ms"));
    QCOMPARE(picosecond.str(TimeUnit::ms, INT_MIN, false), std::string("0.000000001 ms"));
    QCOMPARE(picosecond.str(TimeUnit::ps, -1, false), std::string("1 ps"));
    QCOMPARE(picosecond.str(TimeUnit::fs, -1, false), std::string("1000 fs")); // 0 - 3: none
    QCOMPARE(TimeValue(1, 1e18).str(TimeUnit::hr, -1, false), std::string("0.3 hr"));
}

void tst_TimeValueText::str_oddMultiplier_isSafe()
{
    QCOMPARE(TimeValue(5, 0.0).str(TimeUnit::ms, -1, false), std::string("0 ms"));
    QCOMPARE(TimeValue(5, -1.0).str(TimeUnit::ps, -1, false), std::string("-0.005 ps"));
    QCOMPARE(TimeValue(0, -1.0).str(TimeUnit::ps, 3, false), std::string("-0 ps"));
    QCOMPARE(TimeValue(5, double(INFINITY)).str(TimeUnit::ms, -1, false), std::string("inf ms"));
    QCOMPARE(TimeValue(5, double(INFINITY)).str(TimeUnit::hr, 2, true), std::string("inf hr "));
    QCOMPARE(TimeValue(5, std::fabs(double(NAN))).strNoUnit(TimeUnit::ms, -1), std::string("nan"));
    QCOMPARE(TimeValue(1, 5e-324).str(TimeUnit::fs, -1, false),
             "0." + std::string(323, '0') + "5 fs");
}

void tst_TimeValueText::str_hugeDecimals_isSafe()
{
    TimeValue const time(1500, 1.0);
    QCOMPARE(time.str(TimeUnit::ps, INT_MAX, false), std::string("1.5 ps"));
    // No double has more decimals than 1074, so that none is missing.
    TimeValue const tiny(1, 5e-324);
    QCOMPARE(tiny.strNoUnit(TimeUnit::fs, 1'000'000), tiny.strNoUnit(TimeUnit::fs, 1074));
    QVERIFY(tiny.strNoUnit(TimeUnit::fs, 1074) != tiny.strNoUnit(TimeUnit::fs, 1073));
}

void tst_TimeValueText::strNoUnit_isTheNumberAlone()
{
    TimeValue const time(1.25, TimeUnit::ms, 1.0);
    QCOMPARE(time.strNoUnit(TimeUnit::ms, 3), std::string("1.25"));
    QCOMPARE(time.strNoUnit(TimeUnit::us, 0), std::string("1250"));
    QCOMPARE(time.strNoUnit(TimeUnit::sec, -1), std::string("0.00125"));
}

void tst_TimeValueText::strCompound_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QByteArray>("text");
    auto const row = [](char const * time, TimeUnit::EUnit unit, char const * text) {
        QTest::addRow("%s in %s", time, TimeUnit(unit).name())
            << QByteArray(time) << int(unit) << QByteArray(text);
    };
    row("1.5 hr", TimeUnit::hr, "1 hr 30 min ");
    row("1.5 hr", TimeUnit::min, "90 min ");
    row("-1.5 hr", TimeUnit::hr, "-1 hr -30 min ");
    row("2 min", TimeUnit::hr, "2 min ");
    row("90 min", TimeUnit::sec, "90 sec"); // scaled to minutes, under the name of the seconds
    row("500 ms", TimeUnit::sec, "500 sec");
    row("-500 ms", TimeUnit::sec, "-500000000000000 sec"); // a negative rest is in fs
    row("20 sec", TimeUnit::sec, "20 sec");
    row("1 us", TimeUnit::ns, "1000 ns");
    row("15 us", TimeUnit::ns, "15 ns");
}

void tst_TimeValueText::strCompound()
{
    QFETCH(QByteArray, time);
    QFETCH(int, unit);
    TimeValue const value(time.constData(), 1.0);
    QTEST(QByteArray::fromStdString(value.str(static_cast<TimeUnit::EUnit>(unit), 3, true)),
          "text");
}

void tst_TimeValueText::strCompound_zero_isEmpty()
{
    for (int unit = 0; unit <= TimeUnit::unknown; ++unit) {
        QCOMPARE(TimeValue(0, 1.0).str(static_cast<TimeUnit::EUnit>(unit), 3, true), std::string());
    }
}

// With 60 seconds in a minute the last digits would be 79.
void tst_TimeValueText::strCompound_seconds_areOfSixtyAndABit()
{
    TimeValue const time(117'777'777'777'777'777, 1.0);
    QCOMPARE(time.str(TimeUnit::min, 15, true), std::string("1 min 57.777777777777786 sec"));
}

void tst_TimeValueText::strCompound_misplacedScan_cutsTheText()
{
    TimeValue const time("1 hr 30 min 12.5 sec", 1.0);
    // The number has 5 to 8 characters: the scan starts at that one of the text.
    QCOMPARE(time.str(TimeUnit::hr, 2, true), std::string("1 hr 30 min 12.50 sec"));
    QCOMPARE(time.str(TimeUnit::hr, 3, true), std::string("1 hr 30 min 12.500 sec"));
    QCOMPARE(time.str(TimeUnit::hr, 4, true), std::string("1 hr 3 sec"));
    QCOMPARE(time.str(TimeUnit::hr, 5, true), std::string("1 hr 30 min 12.50000 sec"));
}

void tst_TimeValueText::str_anyTime_likeTheRule()
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 100'000; ++i) {
        auto const count = static_cast<long long>(random()) >> i % 64;
        double const multiplier =
            i % 2 ? std::pow(10.0, double(random() % 25)) : naive::anyDouble(random);
        TimeValue const time(count, multiplier);
        int const unit = static_cast<int>(random() % 9);
        bool const compound = random() % 2;
        bool const isDefault = multiplier > 0 && random() % 4 == 0;
        int const decimals = isDefault ? -1 : static_cast<int>(random() % 20);
        auto const which = static_cast<TimeUnit::EUnit>(unit);
        QCOMPARE(time.str(which, decimals, compound), naive::str(time, unit, decimals, compound));
        QCOMPARE(time.strNoUnit(which, decimals), naive::str(time, unit, decimals, false, false));
    }
}

void tst_TimeValueText::str_germanLocale_changesNothing()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    QCOMPARE(inMilliseconds("1.5 ms"), std::string("1.5 ms"));
    QCOMPARE(inMilliseconds("1,5 ms"), std::string("0 ms"));
    QCOMPARE(TimeValue(1.5, TimeUnit::ms, 1.0).strNoUnit(TimeUnit::ms, 1), std::string("1.5"));
    QVERIFY(TimeValue::readUnit("1.5 MIN") == TimeUnit::min);
    QVERIFY(TimeValue::readUnit("1,5 min") == TimeUnit::unknown);
    TimeValue const time("1 hr 30 min 12.5 sec", 1.0);
    QCOMPARE(time.str(TimeUnit::hr, 2, true), std::string("1 hr 30 min 12.50 sec"));
}

ZENU_TEST(tst_TimeValueText)
#include "tst_TimeValueText.moc"
