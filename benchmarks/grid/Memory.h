#pragma once

#include <string>

namespace bench {

// Memory is measured by what the system counts for a process, so each case has a fresh one: the
// program calls itself with the case's name.

// The argument that asks for a case begins so.
inline std::string const memoryArgument = "--memory=";

// Runs one case in this process and prints its bytes a row, at last and at the peak.
int runMemoryCase(std::string const & name);
// Runs all cases in processes of their own and notes what they print.
void measureMemory();

} // namespace bench
