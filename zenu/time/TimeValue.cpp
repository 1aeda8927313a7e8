#include "zenu/time/TimeValue.h"

#include "zenu/util/inner/NumberText.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

// This file is compiled without fused multiply-add, which would change the last bit of a sum.

namespace zenu {

namespace {

constexpr char const * errorText = "<error>";

// A double has no digit other than 0 further behind the point than this.
constexpr int mostDecimals = 1074;

constexpr double minutesInHour = 60.0;
// One bit above 60, and meant: the texts of applications were compared with it.
constexpr double secondsInMinute = 60.00000000000001;
static_assert(std::bit_cast<std::uint64_t>(secondsInMinute) == 0x404E'0000'0000'0001);

long long sum(long long a, long long b)
{
    return static_cast<long long>(static_cast<unsigned long long>(a) +
                                  static_cast<unsigned long long>(b));
}

long long difference(long long a, long long b)
{
    return static_cast<long long>(static_cast<unsigned long long>(a) -
                                  static_cast<unsigned long long>(b));
}

// Lopsided on purpose: 1.5 gives 2 and -1.5 gives -1. Counts that were stored depend on it.
long long rounded(double x)
{
    constexpr double limit = 0x1p63;
    if (!(x >= -limit && x < limit)) { // NaN as well
        return TimeValue::s_invalidValue;
    }
    auto const whole = static_cast<long long>(x);
    double const fraction = x - static_cast<double>(whole); // exact, and negative below 0
    return fraction >= 0.5 ? whole + 1 : whole;
}

// Cuts zeros and a point off the end of a number that was written behind `numberStart` with this
// many decimals.
void stripZeros(std::string & text, std::size_t numberStart, int decimals)
{
    std::size_t const length = text.size() - numberStart;
    auto const tail = static_cast<std::size_t>(decimals) + 1;
    if (length < tail || text[text.size() - tail] != '.') {
        return;
    }
    // Counted from the start of the text, so that hours and minutes in front shift the scan into
    // them: 1 hr 30 min 12.5000 becomes "1 hr 3 sec". Meant, since compound texts were always so
    // and are compared with older ones. Counting from the number's start would change them.
    for (std::size_t place = length - 1; place > 0; --place) {
        char const c = text[place];
        if (c == '0' || c == '.') {
            text.resize(place);
        }
        if (c != '0') {
            break;
        }
    }
}

void appendNumber(std::string & text, double value, int decimals)
{
    decimals = std::min(decimals, mostDecimals);
    std::size_t const start = text.size();
    appendFixed(text, value, decimals);
    stripZeros(text, start, decimals);
}

// Writes the whole part of `value` with `name`, if it is not zero, and returns the fraction.
double takeWhole(std::string & text, double value, char const * name)
{
    double whole = 0;
    double const fraction = std::modf(value, &whole);
    if (whole != 0) {
        appendFixed(text, whole, 0);
        text += name;
    }
    return fraction;
}

} // namespace

TimeValue::TimeValue(double const & value, TimeUnit const & unit, double const & multiplier)
    : m_count(rounded(unit.factor() / multiplier * value))
    , m_multiplier(multiplier)
{
}

TimeValue::TimeValue(char const * text, double const & multiplier)
    : m_multiplier(multiplier)
{
    set(text);
}

void TimeValue::set(char const * text)
{
    m_count = 0;
    if (!text) {
        return;
    }
    char const * const last = text + std::strlen(text);
    double number = 0;
    TimeUnit unit;
    while (text != last && (text = parse(text, last, &number, &unit))) {
        long long const term = rounded(unit.factor() / m_multiplier * number);
        m_count = m_count < 0 ? difference(m_count, term) : sum(m_count, term);
    }
}

TimeValue TimeValue::operator-() const
{
    return TimeValue(difference(0, m_count), m_multiplier);
}

// The ratio of two multipliers is the reverse of a conversion between the resolutions, on purpose:
// results that applications have stored were computed with it. Don't turn it round.
TimeValue const & TimeValue::operator+=(TimeValue const & other)
{
    if (m_multiplier == other.m_multiplier) {
        m_count = sum(m_count, other.m_count);
    } else {
        m_count = rounded(static_cast<double>(m_count) +
                          m_multiplier / other.m_multiplier * static_cast<double>(other.m_count));
    }
    return *this;
}

TimeValue const & TimeValue::operator-=(TimeValue const & other)
{
    if (m_multiplier == other.m_multiplier) {
        m_count = difference(m_count, other.m_count);
    } else {
        m_count = rounded(static_cast<double>(m_count) -
                          m_multiplier / other.m_multiplier * static_cast<double>(other.m_count));
    }
    return *this;
}

TimeUnit TimeValue::bestUnit() const
{
    TimeUnit::EUnit unit = TimeUnit::defaultUnit();
    if (m_count != 0) {
        // The invalid count is its own negation and stays below 0, which shows in the smallest
        // unit.
        long long const magnitude = m_count < 0 ? difference(0, m_count) : m_count;
        unit = TimeUnit::bestUnit(static_cast<double>(magnitude) * m_multiplier);
    }
    return std::max(unit, TimeUnit::smallestUnit(m_multiplier));
}

std::string TimeValue::str(int decimals, bool compound) const
{
    return str(bestUnit(), decimals, compound);
}

std::string TimeValue::str(TimeUnit const & unit, int decimals, bool compound) const
{
    if (!valid()) {
        return errorText;
    }
    std::string text;
    TimeUnit shown = unit;
    double value = inUnit(unit);
    if (compound) {
        if (shown == TimeUnit::hr) {
            value = takeWhole(text, value, " hr ") * minutesInHour;
            shown = TimeUnit::min;
        }
        if (shown == TimeUnit::min) {
            value = takeWhole(text, value, " min ") * secondsInMinute;
            shown = TimeUnit::sec;
        }
        // The number is scaled to its best unit and the name is not: half a second is "500 sec",
        // and a negative rest is in femtoseconds. It looks wrong, and the texts that exist are so.
        TimeUnit const best = TimeUnit::bestUnit(shown.factor() * value);
        value = shown.factor() / best.factor() * value;
        if (value == 0) {
            return text;
        }
    }
    appendNumber(text, value, decimals < 0 ? defaultDecimals(shown) : decimals);
    text += ' ';
    text += shown.name();
    return text;
}

std::string TimeValue::strNoUnit(TimeUnit const & unit, int decimals) const
{
    if (!valid()) {
        return errorText;
    }
    std::string text;
    appendNumber(text, inUnit(unit), decimals < 0 ? defaultDecimals(unit) : decimals);
    return text;
}

TimeUnit TimeValue::readUnit(char const * text)
{
    TimeUnit unit;
    if (text) {
        parse(text, text + std::strlen(text), nullptr, &unit);
    }
    return unit;
}

char const * TimeValue::parse(char const * text, char const * last, double * value, TimeUnit * unit)
{
    double number = 0;
    char const * const behind = readNumber(text, last, &number);
    if (!behind) {
        return nullptr;
    }
    auto const [read, end] = TimeUnit::parse(behind);
    if (unit) {
        *unit = read;
    }
    if (value) {
        *value = number;
    }
    return end;
}

int TimeValue::defaultDecimals(TimeUnit const & unit) const
{
    // At a multiplier without a logarithm there are no decimals of a count: those of a femtosecond.
    double const magnitude = std::floor(std::log10(m_multiplier));
    int const decimals =
        unit.digits() - (std::isfinite(magnitude) ? static_cast<int>(magnitude) : 0);
    return std::max(decimals, 0);
}

} // namespace zenu
