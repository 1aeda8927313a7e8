#pragma once

#include <cstdint>
#include <string>

namespace explorer {

/// A number of bytes for people, to two digits or more: "999 B", "1.2 kB", "34 MB".
void sizeText(std::int64_t bytes, std::string & text);

/// Seconds since the start of 1970 in local time: "2024-02-29 23:59". Empty when out of range.
void dateText(std::int64_t seconds, std::string & text);

/// Behind a text at the right end of a column, to keep it off the next column.
constexpr char endMargin = '\xa0';

/// A count with its thousands apart: "1,234,567".
std::string countText(std::int64_t count);

} // namespace explorer
