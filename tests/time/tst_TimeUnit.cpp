#include "tests/support/GermanLocale.h"
#include "tests/support/TestMain.h"
#include "tests/time/NaiveTime.h"

#include <zenu/time/TimeUnit.h>

#include <limits>
#include <memory>

using namespace zenu;

class tst_TimeUnit : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { TimeUnit::setDefaultUnit(TimeUnit::fs); }

    void table_data();
    void table();
    void table_numberOutside_countsAsUnknown();
    void construct_default_isUnknown();
    void construct_text_readsTheUnit();
    void compare_units_bySize();
    void defaultUnit_atFirst_isFemtoseconds();
    void defaultUnit_set_isReadBack();
    void plusPlus_stopsAtUnknown();
    void minusMinus_goesRound();
    void bestUnit_data();
    void bestUnit();
    void bestUnit_oddNumbers();
    void smallestUnit_data();
    void smallestUnit();
    void parseUnit_wordInEveryCase_isRead();
    void parseUnit_allTextsOfTheLettersThatOccur_likeTheTable();
    void parseUnit_allTextsOfThreeLetters_likeTheTable();
    void parseUnit_data();
    void parseUnit();
    void parseUnit_endIsNull_isAllowed();
    void parseUnit_everyByteBehindAWord_endsItUnlessALetter();
    void parseUnit_everyByteAlone_onlyLettersAreUnits();
    void parseUnit_germanLocale_changesNothing();
    void parseUnit_longTexts_areReadOnce();
};

void tst_TimeUnit::table_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<double>("factor");
    QTest::newRow("fs") << 0 << QByteArray("fs") << 1.0;
    QTest::newRow("ps") << 1 << QByteArray("ps") << 1e3;
    QTest::newRow("ns") << 2 << QByteArray("ns") << 1e6;
    QTest::newRow("us") << 3 << QByteArray("us") << 1e9;
    QTest::newRow("ms") << 4 << QByteArray("ms") << 1e12;
    QTest::newRow("sec") << 5 << QByteArray("sec") << 1e15;
    QTest::newRow("min") << 6 << QByteArray("min") << 6e16;
    QTest::newRow("hr") << 7 << QByteArray("hr") << 3.6e18;
    QTest::newRow("unknown") << 8 << QByteArray("?") << 1.0;
}

void tst_TimeUnit::table()
{
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    QFETCH(double, factor);
    TimeUnit const unit = static_cast<TimeUnit::EUnit>(number);
    QCOMPARE(static_cast<int>(unit), number);
    QCOMPARE(QByteArray(unit.name()), name);
    QCOMPARE(QByteArray(TimeUnit::s_unitNames[number]), name);
    QVERIFY(unit.factor() == factor);
    QVERIFY(TimeUnit::s_unitFactors[number] == factor);
    static_assert(sizeof(TimeUnit) == 4 && sizeof(TimeUnit::EUnit) == 4);
}

void tst_TimeUnit::table_numberOutside_countsAsUnknown()
{
    for (int number : {9, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        TimeUnit unit = static_cast<TimeUnit::EUnit>(number);
        QCOMPARE(QByteArray(unit.name()), QByteArray("?"));
        QVERIFY(unit.factor() == 1.0);
        QVERIFY(++TimeUnit(unit) == TimeUnit::unknown);
        QVERIFY(--TimeUnit(unit) == TimeUnit::hr);
    }
}

void tst_TimeUnit::construct_default_isUnknown()
{
    QVERIFY(TimeUnit() == TimeUnit::unknown);
}

void tst_TimeUnit::construct_text_readsTheUnit()
{
    char const * const text = " MSec 5";
    char const * end = nullptr;
    QVERIFY(TimeUnit(text, &end) == TimeUnit::ms);
    QCOMPARE(end, text + 5);
    QVERIFY(TimeUnit("5", &end) == TimeUnit::unknown);
    QVERIFY(end == nullptr);
    TimeUnit copy;
    copy = TimeUnit(TimeUnit::us);
    QVERIFY(copy == TimeUnit::us);
}

void tst_TimeUnit::compare_units_bySize()
{
    TimeUnit previous(TimeUnit::fs);
    for (int number = 1; number <= TimeUnit::unknown; ++number) {
        TimeUnit const unit = static_cast<TimeUnit::EUnit>(number);
        QVERIFY(unit > previous);
        QVERIFY(unit != previous);
        previous = unit;
    }
}

void tst_TimeUnit::defaultUnit_atFirst_isFemtoseconds()
{
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::fs);
}

void tst_TimeUnit::defaultUnit_set_isReadBack()
{
    TimeUnit::setDefaultUnit(TimeUnit::ms);
    QCOMPARE(TimeUnit::defaultUnit(), TimeUnit::ms);
}

void tst_TimeUnit::plusPlus_stopsAtUnknown()
{
    QByteArray names;
    TimeUnit unit(TimeUnit::fs);
    for (int i = 0; i < 10; ++i) {
        TimeUnit const & result = ++unit;
        QCOMPARE(&result, &unit);
        names += QByteArray(unit.name()) + ' ';
    }
    QCOMPARE(names, QByteArray("ps ns us ms sec min hr ? ? ? "));
}

// Stopping at fs would look more even; the step from fs to no unit is meant.
void tst_TimeUnit::minusMinus_goesRound()
{
    QByteArray names;
    TimeUnit unit;
    for (int i = 0; i < 10; ++i) {
        TimeUnit const & result = --unit;
        QCOMPARE(&result, &unit);
        names += QByteArray(unit.name()) + ' ';
    }
    QCOMPARE(names, QByteArray("hr min sec ms us ns ps fs ? hr "));
}

void tst_TimeUnit::bestUnit_data()
{
    QTest::addColumn<double>("limit");
    QTest::addColumn<int>("from");
    QTest::newRow("10 ps") << 1e4 << 1;
    QTest::newRow("10 ns") << 1e7 << 2;
    QTest::newRow("10 us") << 1e10 << 3;
    QTest::newRow("10 ms") << 1e13 << 4;
    QTest::newRow("10 sec") << 1e16 << 5;
    QTest::newRow("10 min") << 6e17 << 6;
    QTest::newRow("10 hr") << 3.6e19 << 7;
}

void tst_TimeUnit::bestUnit()
{
    QFETCH(double, limit);
    QFETCH(int, from);
    QCOMPARE(static_cast<int>(TimeUnit::bestUnit(limit)), from);
    QCOMPARE(static_cast<int>(TimeUnit::bestUnit(std::nextafter(limit, 0))), from - 1);
    QCOMPARE(naive::bestUnit(limit), from);
}

void tst_TimeUnit::bestUnit_oddNumbers()
{
    QCOMPARE(TimeUnit::bestUnit(9999.0), TimeUnit::fs);
    QCOMPARE(TimeUnit::bestUnit(10000.0), TimeUnit::ps);
    QCOMPARE(TimeUnit::bestUnit(5.9e17), TimeUnit::sec);
    QCOMPARE(TimeUnit::bestUnit(0.0), TimeUnit::fs);
    QCOMPARE(TimeUnit::bestUnit(-1e20), TimeUnit::fs);
    QCOMPARE(TimeUnit::bestUnit(double(INFINITY)), TimeUnit::hr);
    QCOMPARE(TimeUnit::bestUnit(-double(INFINITY)), TimeUnit::fs);
    QCOMPARE(TimeUnit::bestUnit(double(NAN)), TimeUnit::hr);
}

void tst_TimeUnit::smallestUnit_data()
{
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("1 fs is worth ps") << 1.0 << QByteArray("ps");
    QTest::newRow("1 ps") << 1000.0 << QByteArray("ps");
    QTest::newRow("above 1 ps") << 1001.0 << QByteArray("ns");
    QTest::newRow("1 ns") << 1e6 << QByteArray("ns");
    QTest::newRow("above 1 ns") << 1.1e6 << QByteArray("us");
    QTest::newRow("above 1 us") << 1.1e9 << QByteArray("ms");
    QTest::newRow("above 1 ms") << 1.1e12 << QByteArray("sec");
    QTest::newRow("above 1 sec") << 1.1e15 << QByteArray("min");
    QTest::newRow("above 1 min") << 6.1e16 << QByteArray("hr");
    QTest::newRow("1 hr") << 3.6e18 << QByteArray("hr");
    QTest::newRow("above 1 hr") << 1e19 << QByteArray("?");
    QTest::newRow("zero") << 0.0 << QByteArray("ps");
    QTest::newRow("negative") << -1e30 << QByteArray("ps");
    QTest::newRow("not a number") << double(NAN) << QByteArray("?");
}

void tst_TimeUnit::smallestUnit()
{
    QFETCH(double, multiplier);
    QFETCH(QByteArray, name);
    QCOMPARE(QByteArray(TimeUnit(TimeUnit::smallestUnit(multiplier)).name()), name);
}

void tst_TimeUnit::parseUnit_wordInEveryCase_isRead()
{
    int read = 0;
    for (naive::Word const & word : naive::words) {
        std::string const small = word.text;
        for (unsigned capitals = 0; capitals < 1u << small.size(); ++capitals) {
            std::string text = small;
            for (unsigned i = 0; i < text.size(); ++i) {
                text[i] = static_cast<char>(capitals >> i & 1 ? text[i] - 'a' + 'A' : text[i]);
            }
            char const * end = nullptr;
            QCOMPARE(TimeUnit::parseUnit(text.c_str(), &end), word.unit);
            QCOMPARE(end, text.c_str() + text.size());
            ++read;
        }
    }
    // One or two letters: s, h; the six of two; min and sec; the five of four.
    QCOMPARE(read, 2 * 2 + 6 * 4 + 2 * 8 + 5 * 16);
}

namespace {

// All texts of exactly `length` of the letters, one after the other; counts those that are units.
int compareAll(std::string const & letters, std::size_t length)
{
    int units = 0;
    std::string text(length, letters.front());
    std::vector<std::size_t> digits(length, 0);
    for (;;) {
        char const * end = text.c_str();
        TimeUnit::EUnit const expected = naive::unitOfWord(text);
        TimeUnit::EUnit const unit = TimeUnit::parseUnit(text.c_str(), &end);
        bool const isUnit = expected != TimeUnit::unknown;
        if (unit != expected || end != (isUnit ? text.c_str() + length : nullptr)) {
            qWarning("%s", text.c_str());
            return -1;
        }
        units += isUnit;
        std::size_t place = 0;
        while (place < length && ++digits[place] == letters.size()) {
            digits[place] = 0;
            text[place++] = letters.front();
        }
        if (place == length) {
            return units;
        }
        text[place] = letters[digits[place]];
    }
}

std::string allLetters()
{
    std::string letters;
    for (char c = 'a'; c <= 'z'; ++c) {
        letters += {c, static_cast<char>(c - 'a' + 'A')};
    }
    return letters;
}

} // namespace

void tst_TimeUnit::parseUnit_allTextsOfTheLettersThatOccur_likeTheTable()
{
    std::string const letters = "cefhimnprsu";
    QCOMPARE(compareAll(letters, 1), 2);
    QCOMPARE(compareAll(letters, 2), 6);
    QCOMPARE(compareAll(letters, 3), 2);
    QCOMPARE(compareAll(letters, 4), 5);
    QCOMPARE(compareAll(letters, 5), 0);
}

void tst_TimeUnit::parseUnit_allTextsOfThreeLetters_likeTheTable()
{
    QCOMPARE(compareAll(allLetters(), 1), 2 * 2);
    QCOMPARE(compareAll(allLetters(), 2), 6 * 4);
    QCOMPARE(compareAll(allLetters(), 3), 2 * 8);
}

void tst_TimeUnit::parseUnit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("end"); // -1: null
    QTest::newRow("empty") << QByteArray("") << QByteArray("?") << -1;
    QTest::newRow("blanks alone") << QByteArray(" \t ") << QByteArray("?") << -1;
    QTest::newRow("m alone is none") << QByteArray("m") << QByteArray("?") << -1;
    QTest::newRow("five letters") << QByteArray("hours") << QByteArray("?") << -1;
    QTest::newRow("a word that begins with one") << QByteArray("minutes") << QByteArray("?") << -1;
    QTest::newRow("behind two blanks") << QByteArray("  hr x") << QByteArray("hr") << 4;
    QTest::newRow("behind all white space") << QByteArray(" \t\n\v\f\rms") << QByteArray("ms") << 8;
    QTest::newRow("a digit in front") << QByteArray("1ms") << QByteArray("?") << -1;
    QTest::newRow("a digit behind") << QByteArray("ms1") << QByteArray("ms") << 2;
    QTest::newRow("a point behind") << QByteArray("sec.") << QByteArray("sec") << 3;
    QTest::newRow("a letter behind") << QByteArray("msx") << QByteArray("?") << -1;
    QTest::newRow("the name of no unit") << QByteArray("?") << QByteArray("?") << -1;
    QTest::newRow("an umlaut in front") << QByteArray("\xe4s") << QByteArray("?") << -1;
    QTest::newRow("a small my") << QByteArray("\xb5s") << QByteArray("?") << -1;
}

void tst_TimeUnit::parseUnit()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, name);
    QFETCH(int, end);
    char const * place = "";
    TimeUnit const unit = TimeUnit::parseUnit(text.constData(), &place);
    QCOMPARE(QByteArray(unit.name()), name);
    QCOMPARE(place, end < 0 ? nullptr : text.constData() + end);
}

void tst_TimeUnit::parseUnit_endIsNull_isAllowed()
{
    QCOMPARE(TimeUnit::parseUnit("ms", nullptr), TimeUnit::ms);
    QCOMPARE(TimeUnit::parseUnit(nullptr, nullptr), TimeUnit::unknown);
    char const * end = "";
    QCOMPARE(TimeUnit::parseUnit(nullptr, &end), TimeUnit::unknown);
    QVERIFY(end == nullptr);
}

void tst_TimeUnit::parseUnit_everyByteBehindAWord_endsItUnlessALetter()
{
    for (int byte = 1; byte < 256; ++byte) {
        char const text[] = {'n', 's', static_cast<char>(byte), '\0'};
        bool const isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
        char const * end = nullptr;
        QCOMPARE(TimeUnit::parseUnit(text, &end), isLetter ? TimeUnit::unknown : TimeUnit::ns);
        QCOMPARE(end, isLetter ? nullptr : text + 2);
    }
}

void tst_TimeUnit::parseUnit_everyByteAlone_onlyLettersAreUnits()
{
    for (int byte = 0; byte < 256; ++byte) {
        char const text[] = {static_cast<char>(byte), '\0'};
        QCOMPARE(TimeUnit::parseUnit(text, nullptr), naive::unitOfWord(text));
    }
}

void tst_TimeUnit::parseUnit_germanLocale_changesNothing()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    parseUnit_everyByteBehindAWord_endsItUnlessALetter();
    parseUnit_everyByteAlone_onlyLettersAreUnits();
    QCOMPARE(TimeUnit::parseUnit("MIN", nullptr), TimeUnit::min);
}

void tst_TimeUnit::parseUnit_longTexts_areReadOnce()
{
    constexpr std::size_t size = 10'000'000;
    std::string const blanks = std::string(size, ' ') + "us";
    char const * end = nullptr;
    QCOMPARE(TimeUnit::parseUnit(blanks.c_str(), &end), TimeUnit::us);
    QCOMPARE(end, blanks.c_str() + blanks.size());
    // Letters are counted to the fifth alone: not all of them could be read so often.
    std::string const letters(size, 's');
    for (int i = 0; i < 10'000; ++i) {
        QCOMPARE(TimeUnit::parseUnit(letters.c_str(), nullptr), TimeUnit::unknown);
    }
}

ZENU_TEST(tst_TimeUnit)
#include "tst_TimeUnit.moc"
