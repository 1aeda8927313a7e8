#pragma once

#include "zenu/ZenuExport.h"

#include <string>

namespace zenu {

// Comparison without regard to case. Only the letters A to Z are folded, whatever the locale of the
// process: bytes above 127 compare by their value. A null text compares as the empty text.

/// Less than, equal to or greater than 0 as `a` stands before, at or after `b`.
ZENU_EXPORT int compareNoCase(char const * a, char const * b);
ZENU_EXPORT int compareNoCase(std::string const & a, std::string const & b);
ZENU_EXPORT int compareNoCase(std::string const & a, char const * b);
ZENU_EXPORT int compareNoCase(char const * a, std::string const & b);

/// True when the texts are equal without regard to case.
ZENU_EXPORT bool equalNoCase(char const * a, char const * b);
ZENU_EXPORT bool equalNoCase(std::string const & a, std::string const & b);
ZENU_EXPORT bool equalNoCase(std::string const & a, char const * b);
ZENU_EXPORT bool equalNoCase(char const * a, std::string const & b);

// Trimming. `chars` is the set of characters to drop, a C string; null means blank and tab, and not
// line ends. A text that consists of such characters only stays as it is, in all three: a field
// that holds blanks and nothing else keeps them. O(length of the text).

/// Erases the leading characters of `s` that are in `chars`.
ZENU_EXPORT void trimLeft(std::string & s, char const * chars = nullptr);
/// Erases the trailing characters of `s` that are in `chars`.
ZENU_EXPORT void trimRight(std::string & s, char const * chars = nullptr);
/// Erases the trailing, then the leading characters of `s` that are in `chars`.
ZENU_EXPORT void trim(std::string & s, char const * chars = nullptr);

// Pieces of a text. `s` is never changed, although it is taken by a reference that is not constant.

/// The first `n` characters of `s`; all of it when it has fewer.
ZENU_EXPORT std::string extractLeft(std::string & s, unsigned int n);
/// `n` characters of `s` from position `start`, or as many as there are; empty when `start` is at
/// or beyond the end.
ZENU_EXPORT std::string extractMid(std::string & s, unsigned int start, unsigned int n);
/// The last `n` characters of `s`; all of it when it has fewer.
ZENU_EXPORT std::string extractRight(std::string & s, unsigned int n);

// Numbers as text, and back, by the rules of the C locale, whatever the locale of the process is.

/// The number in decimal digits, with a minus sign when it is below 0.
ZENU_EXPORT std::string num2string(int number);
ZENU_EXPORT std::string num2string(unsigned int number);
ZENU_EXPORT std::string num2string(long number);
ZENU_EXPORT std::string num2string(long long number);
/// The number as printf writes it with "%g": six significant digits at most, 1e20 as "1e+20".
ZENU_EXPORT std::string num2string(double number);

/// The number at the start of `text`: white space, a sign, digits; what follows is not looked at. 0
/// when there are no digits or `text` is null. A number that does not fit gives the largest or the
/// smallest one that does.
ZENU_EXPORT long long string2int64(char const * text);

/// Makes the letters a to z of `s` capitals, in place. Bytes above 127 stay as they are.
ZENU_EXPORT void makeUpper(std::string & s);
/// Makes the letters A to Z of `s` small, in place. Bytes above 127 stay as they are.
ZENU_EXPORT void makeLower(std::string & s);

/// The letter A to Z as its small letter, every other byte as it is.
constexpr unsigned char foldCase(char c)
{
    auto const byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

} // namespace zenu
