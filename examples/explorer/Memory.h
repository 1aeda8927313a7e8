#pragma once

#include <cstdint>

namespace explorer {

/// Bytes of memory that the whole process holds now (its resident set), 0 where the system does not
/// tell.
std::int64_t residentBytes();

} // namespace explorer
