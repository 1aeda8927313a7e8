#include "tests/support/TestMain.h"

#include <zenu/util/inner/NumberText.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

using namespace zenu;

namespace {

std::string printed(char const * format, int decimals, double value)
{
    char buffer[2000];
    std::snprintf(buffer, sizeof buffer, format, decimals, value);
    return buffer;
}

// Some finite number of any magnitude, small ones as often as large ones.
double anyDouble(std::mt19937_64 & random)
{
    for (;;) {
        auto const bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) {
            return value;
        }
    }
}

} // namespace

class tst_NumberText : public zenutest::Test
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_ALL, "C"); }
    void readNumber_text_sameAsStrtod_data();
    void readNumber_text_sameAsStrtod();
    void readNumber_anyDouble_comesBack();
    void readNumber_fewDigits_sameAsStrtod();
    void readNumber_lastInsideTheNumber_stopsThere();
    void appendFixed_anyDouble_sameAsPrintf();
    void appendGeneral_anyDouble_sameAsPrintf();
    void append_behindOtherText_keepsIt();
};

void tst_NumberText::readNumber_text_sameAsStrtod_data()
{
    QTest::addColumn<QByteArray>("text");
    char const * const texts[] = {"",
                                  " ",
                                  "1",
                                  "12.5 ms",
                                  " \t\n\v\f\r7x",
                                  "+3",
                                  "-3",
                                  "+-3",
                                  "-+3",
                                  "--3",
                                  "++3",
                                  "- 3",
                                  ".5",
                                  "5.",
                                  ".",
                                  "+.",
                                  "-.",
                                  "1e3",
                                  "1e",
                                  "1e+",
                                  "1e-x",
                                  "1E-2",
                                  "1.5.5",
                                  "1,5",
                                  "0x10",
                                  "0X1p4",
                                  "0x",
                                  "0xg",
                                  "0x.8",
                                  "0x.",
                                  "0x1p",
                                  "0x1p-",
                                  "0x1.8p+x",
                                  "0X.8P-1",
                                  "-0x1.8p1",
                                  "inf",
                                  "-INF",
                                  "infinity",
                                  "infin",
                                  "nan",
                                  "+nan",
                                  "nano",
                                  "nan(12)",
                                  "nan()x",
                                  "nan(",
                                  "nan(+)",
                                  "-nan(a_1)",
                                  "1e309",
                                  "-1e309",
                                  "1e-400",
                                  "-1e-400",
                                  "1e99999999999999999999",
                                  "1e-99999999999999999999",
                                  "0e99999",
                                  "0.0000001e400",
                                  "5e-324",
                                  "2e-324",
                                  "0x1p1025",
                                  "0x1p-1090",
                                  "1.7976931348623157e308",
                                  "1.8e308",
                                  "0x0.0000001p1060",
                                  "00012",
                                  "1\xe4",
                                  "\xa0"
                                  "1",
                                  "1_000",
                                  "1'000",
                                  "123456789012345678901234567890",
                                  "0.1e1e1",
                                  "abc",
                                  "e5",
                                  "0.00000000000000000001e-310"};
    for (char const * text : texts) {
        QTest::addRow("'%s'", text) << QByteArray(text);
    }
    QTest::newRow("400 digits") << QByteArray(400, '9');
    QTest::newRow("400 zeros and a point") << QByteArray(400, '0') + ".25";
    QTest::newRow("point and 400 zeros") << '.' + QByteArray(400, '0') + '1';
    QTest::newRow("400 digits and a small exponent") << QByteArray(400, '9') + "e-395";
}

void tst_NumberText::readNumber_text_sameAsStrtod()
{
    QFETCH(QByteArray, text);
    char * end = nullptr;
    double const expected = std::strtod(text.constData(), &end);
    double value = 0.125;
    char const * const found = readNumber(text.constData(), text.constEnd(), &value);
    if (end == text.constData()) {
        QVERIFY(found == nullptr);
        QCOMPARE(value, 0.125);
        return;
    }
    QCOMPARE(found - text.constData(), end - text.constData());
    if (std::isnan(expected)) {
        QVERIFY(std::isnan(value));
    } else {
        QVERIFY2(value == expected, qPrintable(QString::number(value, 'g', 17)));
        QCOMPARE(std::signbit(value), std::signbit(expected));
    }
}

void tst_NumberText::readNumber_anyDouble_comesBack()
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 20'000; ++i) {
        double const value = anyDouble(random);
        std::string const text = printed("%.*e", 17, value);
        double read = 0;
        QCOMPARE(readNumber(text.data(), text.data() + text.size(), &read),
                 text.data() + text.size());
        QVERIFY2(read == value, text.c_str());
    }
}

// Around the number of digits up to which one division is exact.
void tst_NumberText::readNumber_fewDigits_sameAsStrtod()
{
    std::mt19937_64 random(4);
    for (int i = 0; i < 200'000; ++i) {
        std::string text;
        for (std::size_t count = random() % 19; count > 0; --count) {
            text += static_cast<char>('0' + random() % 10);
        }
        text.insert(random() % (text.size() + 1), i % 8 ? "." : "");
        text += i % 16 ? "" : "e1";
        char * end = nullptr;
        double const expected = std::strtod(text.c_str(), &end);
        double value = 0;
        char const * const found = readNumber(text.data(), text.data() + text.size(), &value);
        QCOMPARE(found, end == text.c_str() ? nullptr : end);
        QVERIFY2(value == expected, text.c_str());
    }
}

void tst_NumberText::readNumber_lastInsideTheNumber_stopsThere()
{
    char const text[] = "1234";
    double value = 0;
    QCOMPARE(readNumber(text, text + 2, &value), text + 2);
    QCOMPARE(value, 12.0);
    QVERIFY(readNumber(text, text, &value) == nullptr);
}

void tst_NumberText::appendFixed_anyDouble_sameAsPrintf()
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 20'000; ++i) {
        double const value = anyDouble(random);
        int const decimals = i % 25;
        std::string text;
        appendFixed(text, value, decimals);
        QCOMPARE(text, printed("%.*f", decimals, value));
    }
    for (double value : {0.0, -0.0, 0.5, 1.5, 2.5, 1e300, -1e300, 1e-300, double(INFINITY),
                         -double(INFINITY), 0.0005}) {
        for (int decimals : {0, 3, 6, 350, 1100}) {
            std::string text;
            appendFixed(text, value, decimals);
            QCOMPARE(text, printed("%.*f", decimals, value));
        }
    }
    std::string text;
    appendFixed(text, 2.25, -4);
    QCOMPARE(text, std::string("2"));
}

void tst_NumberText::appendGeneral_anyDouble_sameAsPrintf()
{
    std::mt19937_64 random(3);
    for (int i = 0; i < 20'000; ++i) {
        double const value = anyDouble(random);
        std::string text;
        appendGeneral(text, value);
        QCOMPARE(text, printed("%.*g", 6, value));
    }
    for (double value :
         {0.0, -0.0, 1.5, 1e20, 1e-5, 1e-4, 123456.0, 1234567.0, 999999.5, double(INFINITY)}) {
        std::string text;
        appendGeneral(text, value);
        QCOMPARE(text, printed("%.*g", 6, value));
    }
}

void tst_NumberText::append_behindOtherText_keepsIt()
{
    std::string text = "1 hr ";
    appendFixed(text, 2.5, 1);
    appendGeneral(text += ' ', 0.5);
    QCOMPARE(text, std::string("1 hr 2.5 0.5"));
}

ZENU_TEST(tst_NumberText)
#include "tst_NumberText.moc"
