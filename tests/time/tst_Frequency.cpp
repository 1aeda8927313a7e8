#include "tests/support/GermanLocale.h"
#include "tests/support/TestMain.h"
#include "tests/time/NaiveTime.h"

#include <zenu/time/Frequency.h>

#include <climits>
#include <clocale>
#include <strings.h>

using namespace zenu;

namespace {

constexpr char const * names[] = {"GHz", "MHz", "kHz", "Hz", "mHz", "uHz"};

Frequency::EUnit unitAt(int number)
{
    return static_cast<Frequency::EUnit>(number);
}

double naiveConverted(double value, int from, int to)
{
    while (from != to) {
        value = from < to ? value * 1000.0 : value * 0.001;
        from += from < to ? 1 : -1;
    }
    return value;
}

std::string naiveText(double value, int unit)
{
    char buffer[1000];
    int length = std::sprintf(buffer, "%.6f", naiveConverted(value, Frequency::MHz, unit));
    if (std::strchr(buffer, '.')) {
        while (buffer[length - 1] == '0') {
            buffer[--length] = '\0';
        }
        if (buffer[length - 1] == '.') {
            buffer[--length] = '\0';
        }
    }
    return std::string(buffer) + names[unit];
}

// The rule with sscanf, for words below 256 characters and the C locale.
std::string naiveRead(char const * text, int unit)
{
    char word[256] = "";
    double number = 0;
    if (std::sscanf(text, "%lf%255s", &number, word) < 1 || (number == 0 && *text != '0') ||
        number < 0) {
        return "false";
    }
    int found = -1;
    for (int i = 5; i >= 0; --i) {
        found = strcasecmp(word, names[i]) == 0 ? i : found;
    }
    if (found < 0 && *word != '\0') {
        return "false";
    }
    found = found == 1 && *word == 'm' ? 4 : found;
    char buffer[100];
    std::sprintf(buffer, "%a %s", naiveConverted(number, found < 0 ? unit : found, 1),
                 found < 0 ? "without" : "with");
    return buffer;
}

std::string read(char const * text, Frequency::EUnit unit)
{
    double value = 0.125;
    bool hasUnit = false;
    if (!Frequency::String2Double(&value, &hasUnit, text, unit)) {
        return value == 0.125 && !hasUnit ? "false" : "touched";
    }
    char buffer[100];
    std::sprintf(buffer, "%a %s", value, hasUnit ? "with" : "without");
    return buffer;
}

} // namespace

class tst_Frequency : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_ALL, "C"); }

    void unitName_data();
    void unitName();
    void unit_numberOutside_countsAsMHz();
    void string2Unit_data();
    void string2Unit();
    void string2Unit_everyCase_isRead();
    void string2Unit_nullsAndBothForms();
    void string2Unit_embeddedZero_endsTheName();
    void string2Double_data();
    void string2Double();
    void string2Double_unfinishedExponent_isDropped();
    void string2Double_onFalse_leavesTheOutputsAlone();
    void string2Double_nullsAndBothForms();
    void string2Double_shortTexts_likeScanf();
    void string2Double_anyNumber_likeScanf();
    void string2Double_everyByte_likeScanf();
    void string2Double_longTexts_areReadOnce();
    void getBestUnit_data();
    void getBestUnit();
    void double2String_data();
    void double2String();
    void double2String_repeatsTheMultiplication();
    void double2String_anyNumber_likePrintf();
    void double2String_comesBack();
    void germanLocale_changesNothing();
};

void tst_Frequency::unitName_data()
{
    QTest::addColumn<int>("number");
    for (int number = 0; number < 6; ++number) {
        QTest::newRow(names[number]) << number;
    }
}

void tst_Frequency::unitName()
{
    QFETCH(int, number);
    QCOMPARE(Frequency::UnitName(unitAt(number)), names[number]);
    Frequency::EUnit unit = Frequency::GHz;
    QVERIFY(Frequency::String2Unit(names[number], &unit));
    QCOMPARE(static_cast<int>(unit), number);
}

void tst_Frequency::unit_numberOutside_countsAsMHz()
{
    for (int number : {6, -1, INT_MAX, INT_MIN}) {
        QCOMPARE(Frequency::UnitName(unitAt(number)), "MHz");
        QCOMPARE(Frequency::Double2String(5, unitAt(number)), std::string("5MHz"));
        double value = 0;
        QVERIFY(Frequency::String2Double(&value, nullptr, "5", unitAt(number)));
        QCOMPARE(value, 5.0);
    }
}

void tst_Frequency::string2Unit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("name");
    auto const row = [](char const * text, char const * name) {
        QTest::addRow("'%s'", text) << QByteArray(text) << QByteArray(name);
    };
    row("mhz", "mHz");
    row("mHz", "mHz");
    row("mHZ", "mHz");
    row("MHZ", "MHz");
    row("Mhz", "MHz");
    row("MHz", "MHz");
    row(" mHz", "MHz"); // the first character is a blank
    row("mHz ", "mHz");
    row("\t kHz \t", "kHz");
    row("\nkHz", "");
    row("", "");
    row(" ", "");
    row("Hz Hz", "");
    row("THz", "");
    row("H", "");
    row("Hzz", "");
    row("\xb5Hz", "");
}

void tst_Frequency::string2Unit()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, name);
    auto unit = unitAt(-1);
    QCOMPARE(Frequency::String2Unit(text.constData(), &unit), !name.isEmpty());
    if (name.isEmpty()) {
        QCOMPARE(static_cast<int>(unit), -1);
    } else {
        QCOMPARE(QByteArray(Frequency::UnitName(unit)), name);
    }
}

void tst_Frequency::string2Unit_everyCase_isRead()
{
    for (int number = 0; number < 6; ++number) {
        std::string const name = names[number];
        for (unsigned changes = 0; changes < 1u << name.size(); ++changes) {
            std::string text = name;
            for (unsigned i = 0; i < text.size(); ++i) {
                text[i] = static_cast<char>(text[i] ^ (changes >> i & 1 ? 'a' - 'A' : 0));
            }
            Frequency::EUnit unit = Frequency::Hz;
            QVERIFY(Frequency::String2Unit(text, &unit));
            bool const isMega = name == "MHz" || name == "mHz";
            QCOMPARE(static_cast<int>(unit), isMega ? (text[0] == 'm' ? 4 : 1) : number);
        }
    }
}

void tst_Frequency::string2Unit_nullsAndBothForms()
{
    QVERIFY(Frequency::String2Unit("GHz", nullptr));
    QVERIFY(Frequency::String2Unit(std::string("GHz"), nullptr));
    Frequency::EUnit unit = Frequency::uHz;
    QVERIFY(!Frequency::String2Unit(static_cast<char const *>(nullptr), &unit));
    QVERIFY(!Frequency::String2Unit(std::string(), &unit));
    QCOMPARE(unit, Frequency::uHz);
}

void tst_Frequency::string2Unit_embeddedZero_endsTheName()
{
    QVERIFY(Frequency::String2Unit(std::string("kHz\0x", 5), nullptr));
    QVERIFY(!Frequency::String2Unit(std::string("kHz \0x", 6), nullptr));
    QVERIFY(!Frequency::String2Unit(std::string("\0kHz", 4), nullptr));
}

void tst_Frequency::string2Double_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isFrequency");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("hasUnit");
    auto const row = [](char const * text, double value, bool hasUnit) {
        QTest::addRow("'%s'", text) << QByteArray(text) << true << value << hasUnit;
    };
    auto const refused = [](char const * text) {
        QTest::addRow("'%s'", text) << QByteArray(text) << false << 0.0 << false;
    };
    row("10", 10, false);
    row("10 ", 10, false);
    row("10 kHz", 10 * 0.001, true);
    row("10kHz", 10 * 0.001, true);
    row("10 KHZ", 10 * 0.001, true);
    row(" \t10\nkHz\n", 10 * 0.001, true);
    row("1.5GHz", 1500, true);
    row("3 Hz", 3 * 0.001 * 0.001, true);
    row("3 mHz", 3 * 0.001 * 0.001 * 0.001, true);
    row("3 MHz", 3, true);
    row("3 mhz", 3 * 0.001 * 0.001 * 0.001, true);
    row("3 uHz", 3 * 0.001 * 0.001 * 0.001 * 0.001, true);
    row("10 kHz and more", 10 * 0.001, true); // what is behind the word is ignored
    row("0", 0, false);
    row("0.0 kHz", 0, true);
    row("00", 0, false);
    row("0x10", 16, false);
    row("1e3 kHz", 1000 * 0.001, true);
    row("+5", 5, false);
    row(".5", 0.5, false);
    row("1\v\f\rHz", 0.001 * 0.001, true);
    refused("");
    refused(" ");
    refused("abc");
    refused("kHz");
    refused("10 xyz");
    refused("10kHzx");
    refused("10 k Hz");
    refused("-1 MHz");
    refused("-0");
    refused("+0");
    refused(" 0");
    refused(".0");
    refused("1e-400");
    refused("10\xa0kHz");
    refused("1,5 kHz");
    refused("1.5.5");
    refused("infinit");
    refused("nan(1)");
}

void tst_Frequency::string2Double()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isFrequency);
    QFETCH(double, value);
    QFETCH(bool, hasUnit);
    double number = -1;
    bool found = !hasUnit;
    QCOMPARE(Frequency::String2Double(&number, &found, text.constData(), Frequency::MHz),
             isFrequency);
    if (isFrequency) {
        QVERIFY2(number == value, qPrintable(QString::number(number, 'g', 17)));
        QCOMPARE(found, hasUnit);
    }
    QCOMPARE(read(text, Frequency::GHz), naiveRead(text, Frequency::GHz));
}

// As scanf reads it: the letter belongs to the number, although no digits follow.
void tst_Frequency::string2Double_unfinishedExponent_isDropped()
{
    for (char const * text :
         {"1e MHz", "1EMHz", "1e+MHz", "1.5e-", "0x1pMHz", "0x1p-2p MHz", "1e5e MHz", "infe MHz",
          "nanp", "0x1e MHz", "1p MHz", "1e", "1e++", "1ee"}) {
        QCOMPARE(read(text, Frequency::kHz), naiveRead(text, Frequency::kHz));
    }
    QCOMPARE(read("1e MHz", Frequency::kHz), std::string("0x1p+0 with"));
}

void tst_Frequency::string2Double_onFalse_leavesTheOutputsAlone()
{
    for (char const * text : {"", "10 xyz", "-1 MHz", ".0", "abc", "-5 kHz"}) {
        double value = 0.125;
        for (bool before : {false, true}) {
            bool hasUnit = before;
            QVERIFY(!Frequency::String2Double(&value, &hasUnit, text, Frequency::MHz));
            QCOMPARE(value, 0.125);
            QCOMPARE(hasUnit, before);
        }
    }
}

void tst_Frequency::string2Double_nullsAndBothForms()
{
    QVERIFY(Frequency::String2Double(nullptr, nullptr, "10 kHz", Frequency::MHz));
    QVERIFY(
        Frequency::String2Double(nullptr, nullptr, std::string("10 kHz\0xyz", 10), Frequency::MHz));
    QVERIFY(!Frequency::String2Double(nullptr, nullptr, static_cast<char const *>(nullptr),
                                      Frequency::MHz));
    double value = 0;
    QVERIFY(Frequency::String2Double(&value, nullptr, std::string("2"), Frequency::GHz));
    QCOMPARE(value, 2000.0);
}

void tst_Frequency::string2Double_shortTexts_likeScanf()
{
    std::mt19937 random(1);
    std::string const alphabet = "0019.+-eEpxX aAfiInN()HzkKMmgGu \t\n,";
    int frequencies = 0;
    for (int i = 0; i < 300'000; ++i) {
        std::string text(random() % 9, ' ');
        for (char & c : text) {
            c = alphabet[random() % alphabet.size()];
        }
        text += i % 2 ? names[random() % 6] : "";
        if (text.find("x.") != std::string::npos || text.find("X.") != std::string::npos) {
            continue; // the system's scanf takes "0x." for a number, against the standard
        }
        std::string const expected = naiveRead(text.c_str(), i % 6);
        std::string const found = read(text.c_str(), unitAt(i % 6));
        QVERIFY2(found == expected, text.c_str());
        frequencies += found != "false";
    }
    QVERIFY(frequencies > 1000);
}

void tst_Frequency::string2Double_anyNumber_likeScanf()
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 50'000; ++i) {
        char text[400];
        std::snprintf(text, sizeof text, i % 2 ? "%.17g %s" : "%.6f%s",
                      std::fabs(naive::anyDouble(random)), i % 7 ? names[i % 6] : "");
        QCOMPARE(read(text, Frequency::Hz), naiveRead(text, Frequency::Hz));
    }
}

void tst_Frequency::string2Double_everyByte_likeScanf()
{
    for (int byte = 1; byte < 256; ++byte) {
        for (char const * format : {"%c1kHz", "1%ckHz", "1k%cHz", "1kHz%c", "1 kHz%c1"}) {
            char text[20];
            std::sprintf(text, format, byte);
            QCOMPARE(read(text, Frequency::MHz), naiveRead(text, Frequency::MHz));
        }
    }
}

void tst_Frequency::string2Double_longTexts_areReadOnce()
{
    constexpr int size = 10'000'000;
    std::string const blanks(size, ' ');
    std::string const one = read("1 kHz", Frequency::MHz);
    QCOMPARE(read((blanks + '1' + blanks + "kHz").c_str(), Frequency::MHz), one);
    QCOMPARE(read(("1 kHz " + std::string(size, 'x')).c_str(), Frequency::MHz), one);
    QCOMPARE(read(("1" + std::string(size, 'x')).c_str(), Frequency::MHz), std::string("false"));
    QCOMPARE(read((std::string(size, '0') + "1 kHz").c_str(), Frequency::MHz), one);
    QCOMPARE(read(std::string(size, '9').c_str(), Frequency::MHz), std::string("inf without"));
    QVERIFY(Frequency::String2Unit(blanks + "kHz" + blanks, nullptr));
    QVERIFY(!Frequency::String2Unit(blanks, nullptr));
}

void tst_Frequency::getBestUnit_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("1 GHz") << 1000.0 << QByteArray("GHz");
    QTest::newRow("below 1 GHz") << std::nextafter(1000.0, 0) << QByteArray("MHz");
    QTest::newRow("1 MHz") << 1.0 << QByteArray("MHz");
    QTest::newRow("below 1 MHz") << std::nextafter(1.0, 0) << QByteArray("kHz");
    QTest::newRow("500 kHz") << 0.5 << QByteArray("kHz");
    QTest::newRow("1 kHz") << 0.001 << QByteArray("kHz");
    QTest::newRow("below 1 kHz") << 0.00099 << QByteArray("Hz");
    QTest::newRow("below 1 Hz") << 0.99e-6 << QByteArray("mHz");
    QTest::newRow("below 1 mHz") << 0.99e-9 << QByteArray("uHz");
    QTest::newRow("no smaller unit") << 1e-300 << QByteArray("uHz");
    QTest::newRow("zero") << 0.0 << QByteArray("uHz");
    QTest::newRow("negative") << -5.0 << QByteArray("uHz");
    QTest::newRow("infinite") << double(INFINITY) << QByteArray("GHz");
    QTest::newRow("not a number") << double(NAN) << QByteArray("uHz");
}

void tst_Frequency::getBestUnit()
{
    QFETCH(double, value);
    QTEST(QByteArray(Frequency::UnitName(Frequency::GetBestUnit(value))), "name");
}

void tst_Frequency::double2String_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("1 GHz") << 1000.0 << QByteArray("1GHz");
    QTest::newRow("999 MHz") << 999.0 << QByteArray("999MHz");
    QTest::newRow("1 kHz") << 0.001 << QByteArray("1kHz");
    QTest::newRow("zero") << 0.0 << QByteArray("0uHz");
    QTest::newRow("zeros before the point stay") << 10.0 << QByteArray("10MHz");
    QTest::newRow("1.5 GHz") << 1500.0 << QByteArray("1.5GHz");
    QTest::newRow("six decimals") << 1.23456789 << QByteArray("1.234568MHz");
    QTest::newRow("negative") << -5.0 << QByteArray("-5000000000000uHz");
    QTest::newRow("below six decimals") << 1e-20 << QByteArray("0uHz");
    QTest::newRow("infinite") << double(INFINITY) << QByteArray("infGHz");
}

void tst_Frequency::double2String()
{
    QFETCH(double, value);
    QTEST(QByteArray::fromStdString(Frequency::Double2String(value)), "text");
}

// One multiplication by 1e-12 or a division by 1000 gives other last digits.
void tst_Frequency::double2String_repeatsTheMultiplication()
{
    double value = 0;
    QVERIFY(Frequency::String2Double(&value, nullptr, "9 uHz", Frequency::MHz));
    QVERIFY(value == 9 * 0.001 * 0.001 * 0.001 * 0.001);
    QVERIFY(value != 9 * 1e-12);
    QVERIFY(value != 9 / 1000.0 / 1000.0 / 1000.0 / 1000.0);
    QCOMPARE(Frequency::Double2String(0.1, Frequency::uHz), naiveText(0.1, Frequency::uHz));
}

void tst_Frequency::double2String_anyNumber_likePrintf()
{
    std::mt19937_64 random(3);
    for (int i = 0; i < 50'000; ++i) {
        double const value = i % 2 ? naive::anyDouble(random) : double(random() % 100'000) / 1000;
        QCOMPARE(Frequency::Double2String(value, unitAt(i % 6)), naiveText(value, i % 6));
    }
}

void tst_Frequency::double2String_comesBack()
{
    std::mt19937_64 random(4);
    for (int i = 0; i < 10'000; ++i) {
        double const value = double(random() % 1'000'000 + 1) / 1000;
        std::string const text = Frequency::Double2String(value);
        double back = 0;
        bool hasUnit = false;
        QVERIFY(Frequency::String2Double(&back, &hasUnit, text, Frequency::uHz));
        QVERIFY(hasUnit);
        QVERIFY2(std::fabs(back - value) <= value * 1e-15, text.c_str());
    }
}

void tst_Frequency::germanLocale_changesNothing()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    QCOMPARE(Frequency::Double2String(1500.0), std::string("1.5GHz"));
    double value = 0;
    QVERIFY(Frequency::String2Double(&value, nullptr, "1.5 GHz", Frequency::MHz));
    QCOMPARE(value, 1500.0);
    QVERIFY(!Frequency::String2Double(&value, nullptr, "1,5 GHz", Frequency::MHz));
    QVERIFY(!Frequency::String2Double(&value, nullptr, "1\xa0GHz", Frequency::MHz));
    QVERIFY(Frequency::String2Unit("MHZ", nullptr));
}

ZENU_TEST(tst_Frequency)
#include "tst_Frequency.moc"
