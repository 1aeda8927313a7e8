#include "zenu/util/StringUtils.h"

#include "zenu/util/inner/NumberText.h"

#include <charconv>
#include <limits>

namespace zenu {

namespace {

constexpr char blankAndTab[] = " \t";

template <typename Integer>
std::string decimalText(Integer number)
{
    char buffer[std::numeric_limits<Integer>::digits10 + 3]; // one more digit, the sign
    auto const [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string(buffer, end);
}

} // namespace

int compareNoCase(char const * a, char const * b)
{
    a = a ? a : "";
    b = b ? b : "";
    for (;; ++a, ++b) {
        int const difference = foldCase(*a) - foldCase(*b);
        if (difference != 0 || *a == '\0') {
            return difference;
        }
    }
}

int compareNoCase(std::string const & a, std::string const & b)
{
    return compareNoCase(a.c_str(), b.c_str());
}

int compareNoCase(std::string const & a, char const * b)
{
    return compareNoCase(a.c_str(), b);
}

int compareNoCase(char const * a, std::string const & b)
{
    return compareNoCase(a, b.c_str());
}

bool equalNoCase(char const * a, char const * b)
{
    return compareNoCase(a, b) == 0;
}

bool equalNoCase(std::string const & a, std::string const & b)
{
    return compareNoCase(a, b) == 0;
}

bool equalNoCase(std::string const & a, char const * b)
{
    return compareNoCase(a, b) == 0;
}

bool equalNoCase(char const * a, std::string const & b)
{
    return compareNoCase(a, b) == 0;
}

void trimLeft(std::string & s, char const * chars)
{
    std::size_t const first = s.find_first_not_of(chars ? chars : blankAndTab);
    if (first != std::string::npos) {
        s.erase(0, first);
    }
}

void trimRight(std::string & s, char const * chars)
{
    std::size_t const last = s.find_last_not_of(chars ? chars : blankAndTab);
    if (last != std::string::npos) {
        s.erase(last + 1);
    }
}

void trim(std::string & s, char const * chars)
{
    trimRight(s, chars);
    trimLeft(s, chars);
}

std::string extractLeft(std::string & s, unsigned int n)
{
    return s.substr(0, n);
}

std::string extractMid(std::string & s, unsigned int start, unsigned int n)
{
    return start < s.size() ? s.substr(start, n) : std::string();
}

std::string extractRight(std::string & s, unsigned int n)
{
    return n < s.size() ? s.substr(s.size() - n) : s;
}

std::string num2string(int number)
{
    return decimalText(number);
}

std::string num2string(unsigned int number)
{
    return decimalText(number);
}

std::string num2string(long number)
{
    return decimalText(number);
}

std::string num2string(long long number)
{
    return decimalText(number);
}

std::string num2string(double number)
{
    std::string text;
    appendGeneral(text, number);
    return text;
}

long long string2int64(char const * text)
{
    if (!text) {
        return 0;
    }
    while (isSpace(*text)) {
        ++text;
    }
    bool const negative = *text == '-';
    if (negative || *text == '+') {
        ++text;
    }
    constexpr unsigned long long largest = std::numeric_limits<long long>::max();
    unsigned long long const limit = largest + (negative ? 1 : 0);
    unsigned long long number = 0;
    for (; isDigit(*text); ++text) {
        auto const digit = static_cast<unsigned>(*text - '0');
        if (number > (limit - digit) / 10) {
            number = limit;
            break;
        }
        number = number * 10 + digit;
    }
    return static_cast<long long>(negative ? 0 - number : number);
}

void makeUpper(std::string & s)
{
    constexpr char toCapital = 'A' - 'a';
    for (char & c : s) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c + toCapital) : c;
    }
}

void makeLower(std::string & s)
{
    for (char & c : s) {
        c = static_cast<char>(foldCase(c));
    }
}

} // namespace zenu
