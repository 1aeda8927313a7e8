#pragma once

#include "zenu/ZenuExport.h"

#include <string>

namespace zenu {

// Numbers as text by the rules of the C locale, whatever the locale of the process is: the point is
// a point, and there are no groups of digits.

/// Reads a number at `first` in the way of strtod: white space, a sign, then digits, 0x and
/// hexadecimal digits, "inf" or "nan". Stores it in `value` and returns the place behind it; null
/// and nothing stored when there is no number. What is too large gives an infinity, what is too
/// small a zero. Looks at no character at or behind `last`. O(length of the number).
ZENU_TEST_EXPORT char const * readNumber(char const * first, char const * last, double * value);

/// Appends the number as printf does with "%.<decimals>f". `decimals` below 0 counts as 0.
ZENU_TEST_EXPORT void appendFixed(std::string & text, double value, int decimals);

/// Appends the number as printf does with "%g": six significant digits at most.
ZENU_TEST_EXPORT void appendGeneral(std::string & text, double value);

/// White space of the C locale: blank, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The letters A to Z and a to z.
constexpr bool isLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The digits 0 to 9.
constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace zenu
