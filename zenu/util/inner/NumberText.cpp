#include "zenu/util/inner/NumberText.h"

#include "zenu/util/StringUtils.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>

namespace zenu {

namespace {

// Digits of the largest double before the point, and room for sign and point.
constexpr int longestWhole = std::numeric_limits<double>::max_exponent10 + 3;

constexpr int hexValue(char c)
{
    if (isDigit(c)) {
        return c - '0';
    }
    int const letter = foldCase(c) - 'a';
    return letter >= 0 && letter < 6 ? letter + 10 : -1;
}

// The power of ten, or of two after 0x, that a number's text names: below 0 far under 1, above 0
// far over it. Only for numbers that a double can't hold, where nothing but the sign counts.
long long magnitude(char const * first, char const * last, bool hex)
{
    long long digits = 0; // before the point, from the first that is not 0; less than 0 behind it
    bool behindPoint = false;
    bool counts = false;
    for (; first != last; ++first) {
        if (*first == '.') {
            behindPoint = true;
        } else if ((hex ? hexValue(*first) : isDigit(*first) ? *first - '0' : -1) >= 0) {
            counts = counts || *first != '0';
            digits += behindPoint ? (counts ? 0 : -1) : (counts ? 1 : 0);
        } else {
            break;
        }
    }
    if (hex) {
        digits *= 4;
    }
    if (first == last) {
        return digits;
    }
    ++first; // the letter of the exponent
    bool const negative = first != last && *first == '-';
    first += first != last && (*first == '-' || *first == '+') ? 1 : 0;
    long long exponent = 0;
    for (; first != last && isDigit(*first); ++first) {
        exponent = std::min(exponent * 10 + (*first - '0'), 1'000'000'000'000LL);
    }
    return digits + (negative ? -exponent : exponent);
}

// Digits with or without a point, too few to be rounded: null for every other number. Both the
// digits and the power of ten are exact, so that the division gives the nearest double.
char const * readShort(char const * first, char const * last, double * value)
{
    constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr auto mostDigits = std::ssize(powers) - 1;
    std::uint64_t digits = 0;
    std::ptrdiff_t decimals = 0;
    bool hasPoint = false;
    char const * place = first;
    for (; place != last; ++place) {
        if (isDigit(*place)) {
            digits = digits * 10 + static_cast<std::uint64_t>(*place - '0');
            decimals += hasPoint ? 1 : 0;
        } else if (*place == '.' && !hasPoint) {
            hasPoint = true;
        } else {
            break;
        }
        if (place - first > mostDigits) {
            return nullptr;
        }
    }
    auto const count = place - first - (hasPoint ? 1 : 0);
    bool const goesOn = place != last && (foldCase(*place) == 'e' || foldCase(*place) == 'x');
    if (count == 0 || count > mostDigits || goesOn) {
        return nullptr;
    }
    *value = static_cast<double>(digits) / powers[decimals];
    return place;
}

// What from_chars takes: no white space and no sign.
char const * readUnsigned(char const * first, char const * last, double * value)
{
    bool const hex = last - first > 2 && first[0] == '0' && foldCase(first[1]) == 'x' &&
                     (hexValue(first[2]) >= 0 ||
                      (first[2] == '.' && last - first > 3 && hexValue(first[3]) >= 0));
    char const * const digits = hex ? first + 2 : first;
    double number = 0;
    auto const [end, error] = std::from_chars(
        digits, last, number, hex ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::invalid_argument) {
        return nullptr;
    }
    if (error == std::errc::result_out_of_range) {
        number = magnitude(digits, end, hex) > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    *value = number;
    return end;
}

} // namespace

char const * readNumber(char const * first, char const * last, double * value)
{
    first = std::find_if_not(first, last, isSpace);
    if (first == last) {
        return nullptr;
    }
    bool const negative = *first == '-';
    if (negative || *first == '+') {
        ++first;
    }
    if (first == last || *first == '-') { // from_chars would take a second sign
        return nullptr;
    }
    double number = 0;
    char const * end = readShort(first, last, &number);
    if (!end) {
        end = readUnsigned(first, last, &number);
    }
    if (end) {
        *value = negative ? -number : number;
    }
    return end;
}

void appendFixed(std::string & text, double value, int decimals)
{
    decimals = std::max(decimals, 0);
    std::size_t const before = text.size();
    text.resize(before + longestWhole + static_cast<std::size_t>(decimals));
    auto const [end, error] = std::to_chars(text.data() + before, text.data() + text.size(), value,
                                            std::chars_format::fixed, decimals);
    text.resize(static_cast<std::size_t>(end - text.data()));
}

void appendGeneral(std::string & text, double value)
{
    constexpr int digits = 6;
    char buffer[32];
    auto const [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
    text.append(buffer, end);
}

} // namespace zenu
