// Frequencies: what is read agrees with scanf, and what is written can be read again.

#include "Check.h"

#include <zenu/time/Frequency.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <string>

#include <strings.h>

using namespace zenu;

namespace {

// Its units are numbers so that they can be stepped through.
int slowUnit(char const * word)
{
    constexpr char const * names[] = {"GHz", "MHz", "kHz", "Hz", "mHz", "uHz"};
    for (int unit = 0; unit < static_cast<int>(std::size(names)); ++unit) {
        if (strcasecmp(word, names[unit]) == 0) {
            return unit == Frequency::MHz && *word == 'm' ? static_cast<int>(Frequency::mHz) : unit;
        }
    }
    return -1;
}

double slowInMHz(double value, int unit)
{
    for (; unit > Frequency::MHz; --unit) {
        value *= 0.001;
    }
    return unit < Frequency::MHz ? value * 1000.0 : value;
}

struct Reading
{
    bool isFrequency = false;
    double value = 0;
    bool hasUnit = false;
};

// The programs never set a locale, so scanf is that of the C locale here.
Reading slowRead(char const * text, int unit)
{
    char word[256] = "";
    double number = 0;
    int const fields = std::sscanf(text, "%lf%255s", &number, word);
    if (fields < 1 || (number == 0 && *text != '0') || number < 0) {
        return {};
    }
    int const found = slowUnit(word);
    if (found < 0 && *word != '\0') {
        return {};
    }
    return {true, slowInMHz(number, found < 0 ? unit : found), found >= 0};
}

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

void checkReading(std::string const & text, Frequency::EUnit unit)
{
    // The C library takes "0x." for a number, against the standard.
    if (text.find("x.") != std::string::npos || text.find("X.") != std::string::npos) {
        return;
    }
    Reading const expected = slowRead(text.c_str(), unit);
    Reading found{false, 0.125, !expected.hasUnit};
    found.isFrequency = Frequency::String2Double(&found.value, &found.hasUnit, text, unit);
    FUZZ_CHECK(found.isFrequency == expected.isFrequency);
    if (expected.isFrequency) {
        FUZZ_CHECK(same(found.value, expected.value));
        FUZZ_CHECK(found.hasUnit == expected.hasUnit);
    } else {
        FUZZ_CHECK(found.value == 0.125 && found.hasUnit == !expected.hasUnit);
    }
}

void checkUnit(std::string const & text)
{
    auto unit = static_cast<Frequency::EUnit>(77);
    bool const isUnit = Frequency::String2Unit(text, &unit);
    std::size_t const first = text.find_first_not_of(" \t");
    std::string word;
    if (first != std::string::npos) {
        word = text.substr(first, text.find_last_not_of(" \t") + 1 - first);
    }
    int expected = slowUnit(word.c_str());
    if (expected == Frequency::mHz && text[0] != 'm') {
        expected = Frequency::MHz;
    }
    FUZZ_CHECK(isUnit == (expected >= 0));
    FUZZ_CHECK(static_cast<int>(unit) == (isUnit ? expected : 77));
}

void checkWriting(double value)
{
    for (int number = Frequency::GHz; number <= Frequency::uHz; ++number) {
        auto const unit = static_cast<Frequency::EUnit>(number);
        std::string const text = Frequency::Double2String(value, unit);
        FUZZ_CHECK(text.ends_with(Frequency::UnitName(unit)));
        FUZZ_CHECK(text.size() <= 400);
    }
    std::string const text = Frequency::Double2String(value);
    double back = -1;
    bool hasUnit = false;
    if (std::isfinite(value) && value >= 0 &&
        Frequency::String2Double(&back, &hasUnit, text, Frequency::Hz)) {
        FUZZ_CHECK(hasUnit);
        // Six decimals, of at least one of the unit but for what is below 1 uHz.
        FUZZ_CHECK(std::fabs(back - value) <= std::max(value * 1e-6, 1e-18));
    } else {
        FUZZ_CHECK(!std::isfinite(value) || value < 0 || std::signbit(value) || value > 1e290);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 1) {
        return 0;
    }
    // One byte chooses the default unit, the rest is the text.
    auto const unit = static_cast<Frequency::EUnit>(data[0] % 6);
    std::string const text(reinterpret_cast<char const *>(data) + 1, size - 1);
    checkUnit(text);
    if (text.size() < 255) { // the longest word of the slow reading
        checkReading(text, unit);
    }
    double value = 0;
    if (Frequency::String2Double(&value, nullptr, text, unit)) {
        FUZZ_CHECK(!(value < 0));
        FUZZ_CHECK(Frequency::String2Double(nullptr, nullptr, text.c_str(), unit));
        checkWriting(value);
        checkWriting(-value);
    }
    return 0;
}
