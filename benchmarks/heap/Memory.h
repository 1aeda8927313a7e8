#pragma once

namespace bench {

// Prints what an object costs in memory beyond the bytes that were asked for, for a million objects
// of 8 to 255 bytes. Each contestant has a process of its own.
void printMemory();

} // namespace bench
