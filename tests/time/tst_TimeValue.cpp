#include "tests/support/TestMain.h"
#include "tests/time/NaiveTime.h"

#include <zenu/time/TimeValue.h>

#include <cstddef>
#include <cstdint>

using namespace zenu;

namespace {

constexpr long long invalid = TimeValue::s_invalidValue;
constexpr long long greatest = std::numeric_limits<long long>::max();

// What + and - of 64 bits give when they wrap around.
long long wrapped(unsigned long long bits)
{
    return static_cast<long long>(bits);
}

std::string dump(TimeValue const & time)
{
    char text[100];
    std::snprintf(text, sizeof text, "%lld x %g", time.internal(), time.multiplier());
    return text;
}

} // namespace

class tst_TimeValue : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { TimeUnit::setDefaultUnit(TimeUnit::fs); }

    void construct_default_isInvalid();
    void construct_count_isTakenAsItIs();
    void construct_plainZero_isTheCountZero();
    void construct_integersOfEveryType_areCounts();
    void construct_double_data();
    void construct_double();
    void construct_double_multipliesInTheGivenOrder();
    void construct_anyDouble_likeTheRule();
    void construct_text_isSet();
    void inUnit_multipliesInTheGivenOrder();
    void convert_multipliesInTheGivenOrder();
    void negate_keepsTheMultiplier();
    void negate_invalid_staysInvalid();
    void plus_equalMultipliers_wrapsAround();
    void plus_unequalMultipliers_takesTheReverseRatio();
    void plus_unequalMultipliers_roundsLopsidedly();
    void plus_tooLarge_isInvalid();
    void plus_invalid_takesPartAsANumber();
    void plus_anyUnequalMultipliers_likeTheRule();
    void plus_itself_doubles();
    void equal_needsCountAndMultiplier();
    void bestUnit_data();
    void bestUnit();
    void bestUnit_zero_isTheDefaultUnit();
    void bestUnit_invalid_isTheSmallest();
    void expressions_readExactly();
    void expressions_letPassWhatTheyShould();
};

void tst_TimeValue::construct_default_isInvalid()
{
    TimeValue const time;
    QVERIFY(!time.valid());
    QVERIFY(time.negative());
    QCOMPARE(static_cast<unsigned long long>(time.internal()), 0x8000000000000000ull);
    QCOMPARE(time.multiplier(), 1.0);
    QCOMPARE(time.str(3, false), std::string("<error>"));
    QCOMPARE(time.str(3, true), std::string("<error>"));
    QCOMPARE(time.strNoUnit(TimeUnit::ms, 3), std::string("<error>"));
    static_assert(sizeof(TimeValue) == 16);
}

void tst_TimeValue::construct_count_isTakenAsItIs()
{
    QCOMPARE(dump(TimeValue(-17LL, 1000.0)), std::string("-17 x 1000"));
    QVERIFY(!TimeValue(invalid, 1000.0).valid());
    QVERIFY(TimeValue(invalid + 1, 1000.0).valid());
    QVERIFY(TimeValue(0LL, -2.5).valid());
    QVERIFY(!TimeValue(0LL, 1.0).negative());
    QVERIFY(TimeValue(-1LL, 1.0).negative());
}

void tst_TimeValue::construct_plainZero_isTheCountZero()
{
    TimeValue const time(0, 1.0);
    QVERIFY(time.valid());
    QCOMPARE(time.internal(), 0);
    QCOMPARE(time.str(3, false), std::string("0 ps"));
    TimeUnit::setDefaultUnit(TimeUnit::ms);
    QCOMPARE(time.str(3, false), std::string("0 ms"));
}

void tst_TimeValue::construct_integersOfEveryType_areCounts()
{
    QCOMPARE(TimeValue(-5, 1.0).internal(), -5);
    QCOMPARE(TimeValue(5u, 1.0).internal(), 5);
    QCOMPARE(TimeValue(-5L, 1.0).internal(), -5);
    QCOMPARE(TimeValue(std::int64_t(-5), 1.0).internal(), -5);
    QCOMPARE(TimeValue(std::size_t(5), 1.0).internal(), 5);
    QCOMPARE(TimeValue(short(-5), 1).internal(), -5);
    QCOMPARE(TimeValue(0x8000000000000000ull, 1.0).internal(), invalid);
    // With three arguments the first is a number of units.
    QCOMPARE(TimeValue(0, TimeUnit::ns, 1.0).internal(), 0);
    QCOMPARE(TimeValue(2, TimeUnit::ns, 1.0).internal(), 2'000'000);
}

void tst_TimeValue::construct_double_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<long long>("count");
    QTest::newRow("up from a half on") << 1.5 << 2LL;
    QTest::newRow("1.7") << 1.7 << 2LL;
    QTest::newRow("below a half") << 1.4999 << 1LL;
    QTest::newRow("a half") << 0.5 << 1LL;
    QTest::newRow("just below a half") << std::nextafter(0.5, 0) << 0LL;
    QTest::newRow("negative numbers never") << -1.5 << -1LL;
    QTest::newRow("-1.7") << -1.7 << -1LL;
    QTest::newRow("-0.9") << -0.9 << 0LL;
    QTest::newRow("the greatest double that fits")
        << std::nextafter(0x1p63, 0) << 0x7ffffffffffffc00LL;
    QTest::newRow("2 to the 63rd") << 0x1p63 << invalid;
    QTest::newRow("-2 to the 63rd") << -0x1p63 << invalid;
    QTest::newRow("above -2 to the 63rd") << std::nextafter(-0x1p63, 0) << -0x7ffffffffffffc00LL;
    QTest::newRow("1e30") << 1e30 << invalid;
    QTest::newRow("-1e30") << -1e30 << invalid;
    QTest::newRow("infinite") << double(INFINITY) << invalid;
    QTest::newRow("minus infinite") << -double(INFINITY) << invalid;
    QTest::newRow("not a number") << double(NAN) << invalid;
    QTest::newRow("half at the last place with one") << 0x1p51 + 0.5 << (1LL << 51) + 1;
}

void tst_TimeValue::construct_double()
{
    QFETCH(double, value);
    QFETCH(long long, count);
    QCOMPARE(TimeValue(value, TimeUnit(TimeUnit::fs), 1.0).internal(), count);
    QCOMPARE(naive::rounded(value), count);
    QCOMPARE(TimeValue(1e30, TimeUnit(TimeUnit::hr), 1.0).valid(), false);
    QCOMPARE(TimeValue(3.0, TimeUnit(), 1.0).internal(), 3); // no unit: femtoseconds
}

void tst_TimeValue::construct_double_multipliesInTheGivenOrder()
{
    int different = 0;
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> any(0, 1000);
    for (int i = 0; i < 10'000; ++i) {
        double const multiplier = any(random);
        double const value = std::floor(any(random)) * multiplier * 1e9;
        TimeValue const time(value, TimeUnit::ns, multiplier);
        QCOMPARE(time.internal(), naive::rounded(1e6 / multiplier * value));
        different += time.internal() != naive::rounded(1e6 * value / multiplier);
    }
    QVERIFY(different > 1000); // the order can be seen
}

void tst_TimeValue::construct_anyDouble_likeTheRule()
{
    std::mt19937_64 random(2);
    int valid = 0;
    for (int i = 0; i < 100'000; ++i) {
        double const value = naive::anyDouble(random);
        double const multiplier = i % 3 ? naive::anyDouble(random) : value / 1e15;
        auto const unit = static_cast<TimeUnit::EUnit>(i % 9);
        TimeValue const time(value, unit, multiplier);
        QCOMPARE(time.internal(), naive::rounded(naive::factor(i % 9) / multiplier * value));
        QVERIFY(time.multiplier() == multiplier);
        valid += time.valid();
    }
    QVERIFY(valid > 10'000 && valid < 90'000);
}

void tst_TimeValue::construct_text_isSet()
{
    QCOMPARE(dump(TimeValue("1.5 ms", 1e6)), std::string("1500000 x 1e+06"));
    QCOMPARE(dump(TimeValue(nullptr, 1e6)), std::string("0 x 1e+06"));
    QCOMPARE(dump(TimeValue("", 2.0)), std::string("0 x 2"));
}

void tst_TimeValue::inUnit_multipliesInTheGivenOrder()
{
    std::mt19937_64 random(3);
    int different = 0;
    for (int i = 0; i < 10'000; ++i) {
        auto const count = static_cast<long long>(random());
        double const multiplier = naive::anyDouble(random);
        auto const unit = static_cast<TimeUnit::EUnit>(i % 9);
        double const factor = naive::factor(unit);
        QVERIFY(TimeValue(count, multiplier).inUnit(unit) == multiplier / factor * double(count));
        different += multiplier / factor * double(count) != multiplier * double(count) / factor;
    }
    QVERIFY(different > 500);
}

void tst_TimeValue::convert_multipliesInTheGivenOrder()
{
    QVERIFY(TimeValue::convert(90, TimeUnit::min, TimeUnit::hr) == 6e16 / 3.6e18 * 90);
    QVERIFY(TimeValue::convert(1.5, TimeUnit::ms, TimeUnit::us) == 1500.0);
    QVERIFY(TimeValue::convert(2, TimeUnit::ps, TimeUnit::unknown) == 2000.0);
    QVERIFY(std::isinf(TimeValue::convert(1e300, TimeUnit::hr, TimeUnit::fs)));
}

void tst_TimeValue::negate_keepsTheMultiplier()
{
    QCOMPARE(dump(-TimeValue(5, 1000.0)), std::string("-5 x 1000"));
    QCOMPARE(dump(-TimeValue(-greatest, 2.0)), std::string("9223372036854775807 x 2"));
}

void tst_TimeValue::negate_invalid_staysInvalid()
{
    QVERIFY(!(-TimeValue()).valid());
}

void tst_TimeValue::plus_equalMultipliers_wrapsAround()
{
    TimeValue time(greatest, 7.0);
    TimeValue const & result = time += TimeValue(1, 7.0);
    QCOMPARE(&result, &time);
    QCOMPARE(time.internal(), invalid);
    time -= TimeValue(1, 7.0);
    QCOMPARE(time.internal(), greatest);
    time += TimeValue(greatest, 7.0);
    QCOMPARE(time.internal(), -2);

    std::mt19937_64 random(4);
    for (int i = 0; i < 1000; ++i) {
        auto const a = random(), b = random();
        TimeValue added(wrapped(a), 3.0), subtracted(wrapped(a), 3.0);
        added += TimeValue(wrapped(b), 3.0);
        subtracted -= TimeValue(wrapped(b), 3.0);
        QCOMPARE(added.internal(), wrapped(a + b));
        QCOMPARE(subtracted.internal(), wrapped(a - b));
    }
}

// A conversion would multiply by 1/1000 here: 5 fs are 0.005 ps. Applications have stored results
// that were computed with 1000.
void tst_TimeValue::plus_unequalMultipliers_takesTheReverseRatio()
{
    TimeValue picoseconds(1, 1000.0);
    picoseconds += TimeValue(5, 1.0);
    QCOMPARE(dump(picoseconds), std::string("5001 x 1000"));
    picoseconds -= TimeValue(2, 1.0);
    QCOMPARE(dump(picoseconds), std::string("3001 x 1000"));
    TimeValue femtoseconds(1, 1.0);
    femtoseconds += TimeValue(5000, 1000.0);
    QCOMPARE(dump(femtoseconds), std::string("6 x 1"));
}

void tst_TimeValue::plus_unequalMultipliers_roundsLopsidedly()
{
    TimeValue up(1, 1.0);
    up += TimeValue(1, 2.0);
    QCOMPARE(up.internal(), 2); // 1.5
    TimeValue down(-1, 1.0);
    down -= TimeValue(1, 2.0);
    QCOMPARE(down.internal(), -1); // -1.5
}

void tst_TimeValue::plus_tooLarge_isInvalid()
{
    TimeValue time(1, 1e10);
    time += TimeValue(greatest, 1.0);
    QCOMPARE(dump(time), std::string("-9223372036854775808 x 1e+10"));
    for (double multiplier : {0.0, double(NAN), 1e-310}) {
        TimeValue const other(3, multiplier); // the ratio is infinite or not a number
        TimeValue added(1, 2.0), subtracted(1, 2.0);
        added += other;
        subtracted -= other;
        QVERIFY(!added.valid());
        QVERIFY(!subtracted.valid());
    }
    TimeValue notANumber(1, double(NAN)); // not equal to itself
    notANumber += notANumber;
    QVERIFY(!notANumber.valid());
}

void tst_TimeValue::plus_invalid_takesPartAsANumber()
{
    TimeValue time;
    time += TimeValue(1, 1.0);
    QCOMPARE(time.internal(), -greatest);
    TimeValue other(0, 1.0);
    other += TimeValue(invalid, 4.0);
    QCOMPARE(other.internal(), invalid / 4);
}

void tst_TimeValue::plus_anyUnequalMultipliers_likeTheRule()
{
    std::mt19937_64 random(5);
    for (int i = 0; i < 50'000; ++i) {
        TimeValue const a(wrapped(random() >> i % 60), naive::anyDouble(random));
        TimeValue const b(wrapped(random() >> i % 50),
                          a.multiplier() * (1 + i % 1000 * 0.01 + 0.001));
        // In memory between product and sum, so that nothing is fused.
        double const volatile product = a.multiplier() / b.multiplier() * double(b.internal());
        TimeValue added = a, subtracted = a;
        added += b;
        subtracted -= b;
        QCOMPARE(added.internal(), naive::rounded(double(a.internal()) + product));
        QCOMPARE(subtracted.internal(), naive::rounded(double(a.internal()) - product));
        QVERIFY(added.multiplier() == a.multiplier());
    }
}

void tst_TimeValue::plus_itself_doubles()
{
    TimeValue time(21, 3.0);
    time += time;
    QCOMPARE(time.internal(), 42);
    time -= time;
    QCOMPARE(time.internal(), 0);
}

void tst_TimeValue::equal_needsCountAndMultiplier()
{
    TimeValue const time(1000, 1.0);
    QVERIFY(time == TimeValue(1000, 1.0));
    QVERIFY(!(time != TimeValue(1000, 1.0)));
    QVERIFY(time != TimeValue(1001, 1.0));
    QVERIFY(time != TimeValue(1, 1000.0)); // the same time
    QVERIFY(TimeValue() == TimeValue());
    TimeValue copy;
    QCOMPARE(&(copy = time), &copy);
    QVERIFY(copy == time);
}

void tst_TimeValue::bestUnit_data()
{
    QTest::addColumn<long long>("count");
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("never fs") << 1LL << 1.0 << QByteArray("ps");
    QTest::newRow("10 ns") << 10'000'000LL << 1.0 << QByteArray("ns");
    QTest::newRow("below 10 ns") << 9'999'999LL << 1.0 << QByteArray("ps");
    QTest::newRow("a negative time by its magnitude") << -10'000'000LL << 1.0 << QByteArray("ns");
    QTest::newRow("10 ns in picoseconds") << 10'000LL << 1e3 << QByteArray("ns");
    QTest::newRow("not finer than the resolution") << 1LL << 1001.0 << QByteArray("ns");
    QTest::newRow("coarser than an hour") << 1LL << 1e19 << QByteArray("?");
    QTest::newRow("10 hr") << 36'000LL << 1e15 << QByteArray("hr");
    QTest::newRow("a negative multiplier") << greatest << -1.0 << QByteArray("ps");
    QTest::newRow("a multiplier of zero") << greatest << 0.0 << QByteArray("ps");
}

void tst_TimeValue::bestUnit()
{
    QFETCH(long long, count);
    QFETCH(double, multiplier);
    QFETCH(QByteArray, name);
    TimeUnit::setDefaultUnit(TimeUnit::sec); // plays no part
    QCOMPARE(QByteArray(TimeValue(count, multiplier).bestUnit().name()), name);
}

void tst_TimeValue::bestUnit_zero_isTheDefaultUnit()
{
    TimeUnit::setDefaultUnit(TimeUnit::sec);
    QVERIFY(TimeValue(0, 1.0).bestUnit() == TimeUnit::sec);
    QVERIFY(TimeValue(0, 6e16).bestUnit() == TimeUnit::min);
    TimeUnit::setDefaultUnit(TimeUnit::fs);
    QVERIFY(TimeValue(0, 1.0).bestUnit() == TimeUnit::ps);
}

// Its magnitude wraps around to itself and stays negative.
void tst_TimeValue::bestUnit_invalid_isTheSmallest()
{
    TimeUnit::setDefaultUnit(TimeUnit::sec);
    QVERIFY(TimeValue().bestUnit() == TimeUnit::ps);
}

void tst_TimeValue::expressions_readExactly()
{
    QCOMPARE(TimeValue::s_rxSigned,
             "[+-]?([0-9]+(\\.[0-9]*)?[ \\t]?([fpnum]s|s(ec)?|min|hr?)?[ ]?)+");
    QCOMPARE(TimeValue::s_rxUnsigned, "([0-9]+(\\.[0-9]*)?[ \\t]?([fpnum]s|s(ec)?|min|hr?)?[ ]?)+");
}

void tst_TimeValue::expressions_letPassWhatTheyShould()
{
    auto const matches = [](char const * expression, char const * text) {
        QRegularExpression const whole(
            QRegularExpression::anchoredPattern(QString::fromLatin1(expression)));
        return whole.match(QString::fromLatin1(text)).hasMatch();
    };
    for (char const * text :
         {"1", "10 ms", "1.ms", "1ms500us", "1 h 30 min 5 sec ", "1\thr", "1 s"}) {
        QVERIFY2(matches(TimeValue::s_rxUnsigned, text), text);
        QVERIFY2(matches(TimeValue::s_rxSigned, text), text);
        QVERIFY2(matches(TimeValue::s_rxSigned, (std::string("-") + text).c_str()), text);
    }
    for (char const * text :
         {"", "ms", "1 MS", "1 msec", "1 fsec", "-1 ms", ".5 ms", "1  ms", "1,5"}) {
        QVERIFY2(!matches(TimeValue::s_rxUnsigned, text), text);
    }
}

ZENU_TEST(tst_TimeValue)
#include "tst_TimeValue.moc"
