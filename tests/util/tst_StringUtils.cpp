#include "tests/support/GermanLocale.h"
#include "tests/support/TestMain.h"

#include <zenu/util/StringUtils.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

using namespace zenu;

namespace {

constexpr std::size_t tenMegabytes = 10'000'000;

std::string printed(char const * format, double value)
{
    char buffer[100];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

// A text that a test row holds, with bytes that a C string can't.
QByteArray bytes(std::string const & text)
{
    return QByteArray::fromStdString(text);
}

} // namespace

class tst_StringUtils : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void equalNoCase_allFourForms_ignoreCase();
    void compareNoCase_data();
    void compareNoCase();
    void compareNoCase_null_isTheEmptyText();
    void trim_data();
    void trim();
    void trim_blanksOnly_stay();
    void trim_nullSet_keepsLineEnds();
    void trim_tenMegabytes_isDoneAtOnce();
    void extract_data();
    void extract();
    void num2string_integers_areDecimal();
    void num2string_double_sameAsPrintf();
    void string2int64_data();
    void string2int64();
    void string2int64_anyNumber_comesBack();
    void makeUpper_everyByte_onlySmallLettersChange();
    void makeLower_everyByte_onlyCapitalsChange();
    void germanLocale_changesNothing();
};

void tst_StringUtils::equalNoCase_allFourForms_ignoreCase()
{
    std::string const upper = "ABC";
    std::string const lower = "abc";
    QVERIFY(equalNoCase(upper, lower));
    QVERIFY(equalNoCase(upper, "abc"));
    QVERIFY(equalNoCase("ABC", lower));
    QVERIFY(equalNoCase("ABC", "abc"));
    QVERIFY(!equalNoCase("ABC", "abd"));
}

void tst_StringUtils::compareNoCase_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<int>("sign");
    QTest::newRow("both empty") << QByteArray() << QByteArray() << 0;
    QTest::newRow("a prefix stands before") << QByteArray("ab") << QByteArray("ABC") << -1;
    QTest::newRow("letters fold to small ones") << QByteArray("Z") << QByteArray("_") << 1;
    QTest::newRow("bytes above 127 are unsigned") << QByteArray("\xe4") << QByteArray("z") << 1;
    QTest::newRow("and are not folded") << QByteArray("\xc4") << QByteArray("\xe4") << -1;
}

void tst_StringUtils::compareNoCase()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QFETCH(int, sign);
    auto const signOf = [](int n) { return n < 0 ? -1 : (n > 0 ? 1 : 0); };
    QCOMPARE(signOf(zenu::compareNoCase(a.constData(), b.constData())), sign);
    QCOMPARE(signOf(zenu::compareNoCase(b.toStdString(), a.toStdString())), -sign);
}

void tst_StringUtils::compareNoCase_null_isTheEmptyText()
{
    char const * const none = nullptr;
    QVERIFY(equalNoCase(none, ""));
    QVERIFY(equalNoCase(std::string(), none));
    QVERIFY(zenu::compareNoCase(none, "a") < 0);
    QVERIFY(zenu::compareNoCase("a", none) > 0);
}

void tst_StringUtils::trim_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("set"); // null: the null pointer
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<QByteArray>("both");
    auto const row = [](char const * tag, QByteArray const & text, char const * set,
                        QByteArray const & left, QByteArray const & right,
                        QByteArray const & both) {
        QTest::newRow(tag) << text << QByteArray(set) << left << right << both;
    };
    row("empty", "", nullptr, "", "", "");
    row("blanks only stay", "  ", nullptr, "  ", "  ", "  ");
    row("blanks and tabs only stay", " \t ", nullptr, " \t ", " \t ", " \t ");
    row("members of the set only stay", "xyx", "xy", "xyx", "xyx", "xyx");
    row("null set: blank and tab", "\t a b \t", nullptr, "a b \t", "\t a b", "a b");
    row("null set: line ends stay", "\n a\r\n", nullptr, "\n a\r\n", "\n a\r\n", "\n a\r\n");
    row("given set: blanks stay", " xax ", "x", " xax ", " xax ", " xax ");
    row("given set", "xyaxyx", "yx", "axyx", "xya", "a");
    row("empty set: nothing goes", " a ", "", " a ", " a ", " a ");
    row("nothing to trim", "a", nullptr, "a", "a", "a");
    row("bytes above 127 are members like others", "\xa0\xe4\xa0", "\xa0", "\xe4\xa0", "\xa0\xe4",
        "\xe4");
    row("a null byte is never a member", bytes(std::string(" \0 ", 3)), nullptr,
        bytes(std::string("\0 ", 2)), bytes(std::string(" \0", 2)), bytes(std::string(1, '\0')));
}

void tst_StringUtils::trim()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, set);
    char const * const chars = set.isNull() ? nullptr : set.constData();
    std::string left = text.toStdString();
    std::string right = left;
    std::string both = left;
    trimLeft(left, chars);
    QTEST(bytes(left), "left");
    trimRight(right, chars);
    QTEST(bytes(right), "right");
    zenu::trim(both, chars);
    QTEST(bytes(both), "both");
}

void tst_StringUtils::trim_blanksOnly_stay()
{
    for (auto const function : {&trimLeft, &trimRight, &zenu::trim}) {
        std::string text = "  ";
        function(text, nullptr);
        QCOMPARE(text, std::string("  "));
    }
}

void tst_StringUtils::trim_nullSet_keepsLineEnds()
{
    std::string text = " \t\nword\n\t ";
    zenu::trim(text);
    QCOMPARE(text, std::string("\nword\n"));
}

void tst_StringUtils::trim_tenMegabytes_isDoneAtOnce()
{
    std::string text(tenMegabytes, ' ');
    zenu::trim(text);
    QCOMPARE(text.size(), tenMegabytes);
    text[tenMegabytes / 2] = '.';
    zenu::trim(text);
    QCOMPARE(text, std::string("."));
}

void tst_StringUtils::extract_data()
{
    QTest::addColumn<unsigned>("n");
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<QByteArray>("fromTwo");
    QTest::addColumn<QByteArray>("fromFour");
    QTest::addColumn<QByteArray>("right");
    QTest::newRow("none") << 0U << bytes("") << bytes("") << bytes("") << bytes("");
    QTest::newRow("some") << 2U << bytes("ab") << bytes("cd") << bytes("") << bytes("cd");
    QTest::newRow("up to the end")
        << 4U << bytes("abcd") << bytes("cd") << bytes("") << bytes("abcd");
    QTest::newRow("more than there are")
        << 5U << bytes("abcd") << bytes("cd") << bytes("") << bytes("abcd");
    QTest::newRow("the largest number")
        << UINT_MAX << bytes("abcd") << bytes("cd") << bytes("") << bytes("abcd");
}

void tst_StringUtils::extract()
{
    QFETCH(unsigned, n);
    std::string text = "abcd";
    QTEST(bytes(extractLeft(text, n)), "left");
    QTEST(bytes(extractMid(text, 2, n)), "fromTwo");
    QTEST(bytes(extractMid(text, 4, n)), "fromFour");
    QCOMPARE(extractMid(text, 5, n), std::string());
    QCOMPARE(extractMid(text, UINT_MAX, n), std::string());
    QTEST(bytes(extractRight(text, n)), "right");
    QCOMPARE(text, std::string("abcd"));
    std::string empty;
    QCOMPARE(extractLeft(empty, n) + extractMid(empty, 0, n) + extractRight(empty, n), empty);
}

void tst_StringUtils::num2string_integers_areDecimal()
{
    QCOMPARE(num2string(0), std::string("0"));
    QCOMPARE(num2string(-7), std::string("-7"));
    QCOMPARE(num2string(INT_MAX), std::to_string(INT_MAX));
    QCOMPARE(num2string(INT_MIN), std::to_string(INT_MIN));
    QCOMPARE(num2string(UINT_MAX), std::to_string(UINT_MAX));
    QCOMPARE(num2string(0U), std::string("0"));
    QCOMPARE(num2string(LONG_MAX), std::to_string(LONG_MAX));
    QCOMPARE(num2string(LONG_MIN), std::to_string(LONG_MIN));
    QCOMPARE(num2string(LLONG_MAX), std::string("9223372036854775807"));
    QCOMPARE(num2string(LLONG_MIN), std::string("-9223372036854775808"));
}

void tst_StringUtils::num2string_double_sameAsPrintf()
{
    QCOMPARE(num2string(1.5), std::string("1.5"));
    QCOMPARE(num2string(1e20), std::string("1e+20"));
    QCOMPARE(num2string(1234567.0), std::string("1.23457e+06"));
    QCOMPARE(num2string(-0.0), std::string("-0"));
    for (double value : {double(INFINITY), -double(INFINITY), double(NAN), -double(NAN), 5e-324,
                         999999.5, 0.0001, 0.00001}) {
        QCOMPARE(num2string(value), printed("%g", value));
    }
    for (double value = 1e-300; value < 1e301; value *= 9.87) {
        QCOMPARE(num2string(value), printed("%g", value));
        QCOMPARE(num2string(-value), printed("%g", -value));
    }
}

void tst_StringUtils::string2int64_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<long long>("number");
    auto const row = [](char const * text, long long number) {
        QTest::addRow("'%s'", text) << QByteArray(text) << number;
    };
    row("", 0);
    row("x", 0);
    row("-", 0);
    row("+", 0);
    row("7", 7);
    row("-7", -7);
    row("+7", 7);
    row(" \t\n\v\f\r7", 7);
    row("-+7", 0);
    row("+-7", 0);
    row("--7", 0);
    row("- 7", 0);
    row("\xa0"
        "7",
        0);
    row("12x4", 12);
    row("1.9", 1);
    row("1,000", 1);
    row("0x10", 0);
    row("0010", 10);
    row("9223372036854775806", LLONG_MAX - 1);
    row("9223372036854775807", LLONG_MAX);
    row("9223372036854775808", LLONG_MAX);
    row("9223372036854775810", LLONG_MAX);
    row("-9223372036854775807", LLONG_MIN + 1);
    row("-9223372036854775808", LLONG_MIN);
    row("-9223372036854775809", LLONG_MIN);
    row("18446744073709551617", LLONG_MAX);
    row("-99999999999999999999999999", LLONG_MIN);
    QTest::newRow("null") << QByteArray() << 0LL;
    QTest::newRow("ten million nines") << QByteArray(tenMegabytes, '9') << LLONG_MAX;
    QTest::newRow("ten million zeros") << QByteArray(tenMegabytes, '0') + "5" << 5LL;
}

void tst_StringUtils::string2int64()
{
    QFETCH(QByteArray, text);
    QTEST(zenu::string2int64(text.isNull() ? nullptr : text.constData()), "number");
}

void tst_StringUtils::string2int64_anyNumber_comesBack()
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 10'000; ++i) {
        auto const number = static_cast<long long>(random()) >> (i % 64);
        QCOMPARE(zenu::string2int64(num2string(number).c_str()), number);
    }
}

void tst_StringUtils::makeUpper_everyByte_onlySmallLettersChange()
{
    std::string text;
    std::string expected;
    for (int byte = 0; byte < 256; ++byte) {
        text += static_cast<char>(byte);
        expected += static_cast<char>(byte >= 'a' && byte <= 'z' ? byte - 32 : byte);
    }
    makeUpper(text);
    QVERIFY(text == expected);
}

void tst_StringUtils::makeLower_everyByte_onlyCapitalsChange()
{
    std::string text;
    std::string expected;
    for (int byte = 0; byte < 256; ++byte) {
        text += static_cast<char>(byte);
        expected += static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte + 32 : byte);
    }
    makeLower(text);
    QVERIFY(text == expected);
}

void tst_StringUtils::germanLocale_changesNothing()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    QCOMPARE(printed("%g", 1.5), std::string("1,5"));
    QCOMPARE(num2string(1.5), std::string("1.5"));
    QCOMPARE(num2string(1234567), std::string("1234567"));
    QCOMPARE(zenu::string2int64("1.234"), 1LL);
    QVERIFY(zenu::compareNoCase("I", "i") == 0);
    QVERIFY(!equalNoCase("\xc4", "\xe4"));
    std::string umlaut = "\xe4";
    makeUpper(umlaut);
    QCOMPARE(umlaut, std::string("\xe4"));
    umlaut = "\xc4";
    makeLower(umlaut);
    QCOMPARE(umlaut, std::string("\xc4"));
}

ZENU_TEST(tst_StringUtils)
#include "tst_StringUtils.moc"
