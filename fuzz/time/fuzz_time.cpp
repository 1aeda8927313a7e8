// Time units and times: what is read agrees with a slow reading by the C library, and what is
// written can be read again.

#include "Check.h"

#include <zenu/time/TimeValue.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

using namespace zenu;

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The unit at the start of the text by a list of words; `end` is null without one.
TimeUnit::EUnit slowUnit(char const * text, char const ** end)
{
    struct Word
    {
        char const * text;
        TimeUnit::EUnit unit;
    };
    constexpr Word words[] = {
        {"fs", TimeUnit::fs},   {"fsec", TimeUnit::fs}, {"ps", TimeUnit::ps},
        {"psec", TimeUnit::ps}, {"ns", TimeUnit::ns},   {"nsec", TimeUnit::ns},
        {"us", TimeUnit::us},   {"usec", TimeUnit::us}, {"ms", TimeUnit::ms},
        {"msec", TimeUnit::ms}, {"s", TimeUnit::sec},   {"sec", TimeUnit::sec},
        {"min", TimeUnit::min}, {"h", TimeUnit::hr},    {"hr", TimeUnit::hr}};
    text += std::strspn(text, " \t\n\v\f\r");
    char const * const behind = std::find_if_not(text, text + std::strlen(text), isLetter);
    std::string word(text, behind);
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return static_cast<char>(c | 0x20); });
    for (Word const & each : words) {
        if (word == each.text) {
            *end = behind;
            return each.unit;
        }
    }
    *end = nullptr;
    return TimeUnit::unknown;
}

long long slowRounded(double x)
{
    double whole = 0;
    double const fraction = std::modf(x, &whole);
    if (!(std::fabs(whole) < 0x1p63)) {
        return TimeValue::s_invalidValue;
    }
    return static_cast<long long>(whole) + (fraction >= 0.5 ? 1 : 0);
}

// The programs never set a locale, so strtod is that of the C locale here.
long long slowSet(char const * text, double multiplier)
{
    unsigned long long count = 0;
    for (;;) {
        char * behind = nullptr;
        double const number = std::strtod(text, &behind);
        char const * end = nullptr;
        TimeUnit const unit = slowUnit(behind, &end);
        if (behind == text || !end) {
            return static_cast<long long>(count);
        }
        auto const term =
            static_cast<unsigned long long>(slowRounded(unit.factor() / multiplier * number));
        count = static_cast<long long>(count) < 0 ? count - term : count + term;
        text = end;
    }
}

void checkUnit(char const * text)
{
    char const * end = "";
    char const * slowEnd = nullptr;
    FUZZ_CHECK(TimeUnit::parseUnit(text, &end) == slowUnit(text, &slowEnd));
    FUZZ_CHECK(end == slowEnd);
}

void checkReadUnit(char const * text)
{
    char * behind = nullptr;
    std::strtod(text, &behind);
    char const * end = nullptr;
    TimeUnit::EUnit const unit = slowUnit(behind, &end);
    FUZZ_CHECK(TimeValue::readUnit(text) == (behind == text ? TimeUnit::unknown : unit));
}

// With default decimals a count up to 2 to the 50th comes back exactly, unless the unit is so great
// that 17 digits of a double end before the last count.
void checkComesBack(TimeValue const & time)
{
    if (!time.valid() || std::abs(time.internal()) > 1LL << 50) {
        return;
    }
    TimeUnit const unit = time.bestUnit();
    if (unit == TimeUnit::unknown || unit >= TimeUnit::min) {
        return;
    }
    std::string const text = time.str(unit, -1, false);
    TimeValue const back(text.c_str(), time.multiplier());
    FUZZ_CHECK(std::abs(back.internal() - time.internal()) <= 1);
    FUZZ_CHECK(TimeValue::readUnit(text.c_str()) == unit);
    FUZZ_CHECK(text == time.strNoUnit(unit, -1) + ' ' + unit.name());
}

void checkText(TimeValue const & time, int decimals)
{
    for (int number = 0; number <= TimeUnit::unknown; ++number) {
        TimeUnit const unit = static_cast<TimeUnit::EUnit>(number);
        std::string const text = time.str(unit, decimals, false);
        std::string const compound = time.str(unit, decimals, true);
        if (!time.valid()) {
            FUZZ_CHECK(text == "<error>" && compound == "<error>");
            continue;
        }
        char expected[5000];
        std::snprintf(expected, sizeof expected, "%.*f", std::max(decimals, 0), time.inUnit(unit));
        if (decimals >= 0) {
            std::size_t const length = text.size() - std::strlen(unit.name()) - 1;
            FUZZ_CHECK(text.compare(0, length, expected, length) == 0);
            FUZZ_CHECK(std::strspn(expected + length, ".0") == std::strlen(expected + length));
            FUZZ_CHECK(std::strchr(expected, '.') == nullptr || text[length - 1] != '.');
        }
        FUZZ_CHECK(compound.find('?') == std::string::npos || unit == TimeUnit::unknown);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 2) {
        return 0;
    }
    // Two bytes choose resolution and decimals, the rest is the text.
    constexpr double multipliers[] = {1,      1000, 1e6,  2.5,    1e12, 3.6e18, 1e-3, 1e300,
                                      1e-300, 0,    -1.0, 1234.5, 7.0,  1e15,   6e16, 0.1};
    double const multiplier = multipliers[data[0] % std::size(multipliers)];
    int const decimals = data[1] % 32 - 1;
    std::string const text(reinterpret_cast<char const *>(data) + 2, size - 2);

    checkUnit(text.c_str());
    checkReadUnit(text.c_str());
    TimeValue const time(text.c_str(), multiplier);
    FUZZ_CHECK(time.internal() == slowSet(text.c_str(), multiplier));
    FUZZ_CHECK(time.multiplier() == multiplier);
    FUZZ_CHECK(-(-time) == time);
    TimeValue sum = time;
    sum += TimeValue(12345, multiplier);
    sum -= TimeValue(12345, multiplier);
    FUZZ_CHECK(sum == time);
    if (multiplier >= 1 && multiplier <= 3.6e18) {
        checkComesBack(time);
    }
    checkText(time, decimals);
    return 0;
}
