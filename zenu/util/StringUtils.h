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

/// The letter A to Z as its small letter, every other byte as it is.
constexpr unsigned char foldCase(char c)
{
    auto const byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

} // namespace zenu
