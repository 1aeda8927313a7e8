#pragma once

#include <zenu/time/TimeValue.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

// The rules of times once more, as slow and plain as they can be told, for tests to compare with.
// The functions that print need the C locale.

namespace naive {

using zenu::TimeUnit;

struct Word
{
    char const * text;
    TimeUnit::EUnit unit;
};

constexpr Word words[] = {{"fs", TimeUnit::fs},   {"fsec", TimeUnit::fs}, {"ps", TimeUnit::ps},
                          {"psec", TimeUnit::ps}, {"ns", TimeUnit::ns},   {"nsec", TimeUnit::ns},
                          {"us", TimeUnit::us},   {"usec", TimeUnit::us}, {"ms", TimeUnit::ms},
                          {"msec", TimeUnit::ms}, {"s", TimeUnit::sec},   {"sec", TimeUnit::sec},
                          {"min", TimeUnit::min}, {"h", TimeUnit::hr},    {"hr", TimeUnit::hr}};

inline TimeUnit::EUnit unitOfWord(std::string word)
{
    for (char & c : word) {
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    }
    for (Word const & each : words) {
        if (word == each.text) {
            return each.unit;
        }
    }
    return TimeUnit::unknown;
}

inline long long rounded(double x)
{
    double whole = 0;
    double const fraction = std::modf(x, &whole);
    bool const fits = std::isfinite(x) && std::fabs(whole) < 9223372036854775808.0;
    if (!fits) {
        return zenu::TimeValue::s_invalidValue;
    }
    return static_cast<long long>(whole) + (fraction >= 0.5);
}

inline double factor(int unit)
{
    double const factors[] = {1.0,     1000.0, 1000000.0, 1000000000.0, 1e12,
                              1000e12, 60e15,  3600e15,   1.0 /* no unit */};
    return factors[unit];
}

inline int bestUnit(double x)
{
    int unit = 7;
    while (unit > 0 && x < 10 * factor(unit)) {
        --unit;
    }
    return unit;
}

inline int defaultDecimals(int unit, double multiplier)
{
    int const digits[] = {0, 3, 6, 9, 12, 15, 17, 19, 0};
    int const decimals = digits[unit] - static_cast<int>(std::floor(std::log10(multiplier)));
    return decimals < 0 ? 0 : decimals;
}

// In one buffer, by pointers, with the number at its end.
inline std::string str(zenu::TimeValue const & time, int unit, int decimals, bool compound,
                       bool withName = true)
{
    if (time.internal() == zenu::TimeValue::s_invalidValue) {
        return "<error>";
    }
    static char buffer[4000];
    char * end = buffer;
    *end = '\0';
    double value = time.multiplier() / factor(unit) * double(time.internal());
    if (compound) {
        double whole = 0;
        if (unit == 7) {
            double const fraction = std::modf(value, &whole);
            end += whole != 0 ? std::sprintf(end, "%.0f hr ", whole) : 0;
            value = fraction * 60.0;
        }
        if (unit == 7 || unit == 6) {
            double const fraction = std::modf(value, &whole);
            end += whole != 0 ? std::sprintf(end, "%.0f min ", whole) : 0;
            value = fraction * std::nextafter(60.0, 61.0);
            unit = 5;
        }
        value = factor(unit) / factor(bestUnit(factor(unit) * value)) * value;
        if (value == 0) {
            return buffer;
        }
    }
    decimals = decimals < 0 ? defaultDecimals(unit, time.multiplier()) : decimals;
    int const length = std::sprintf(end, "%.*f", decimals, value);
    if (length > decimals && end[length - decimals - 1] == '.') {
        char * scan = buffer + length - 1;
        for (; scan > buffer && *scan == '0'; --scan) {
            *scan = '\0';
        }
        if (scan > buffer && *scan == '.') {
            *scan = '\0';
        }
    }
    char const * const names[] = {"fs", "ps", "ns", "us", "ms", "sec", "min", "hr", "?"};
    return withName ? std::string(buffer) + ' ' + names[unit] : buffer;
}

// A finite number of either sign and any magnitude from 1e-300 to 1e300.
inline double anyDouble(std::mt19937_64 & random)
{
    std::uniform_real_distribution<double> exponent(-300, 300);
    std::uniform_real_distribution<double> digits(-10, 10);
    return digits(random) * std::pow(10.0, exponent(random));
}

} // namespace naive
