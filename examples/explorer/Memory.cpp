#include "examples/explorer/Memory.h"

#include <unistd.h>

#include <fstream>

namespace explorer {

std::int64_t residentBytes()
{
    std::ifstream file("/proc/self/statm");
    std::int64_t total = 0;
    std::int64_t resident = 0;
    return file >> total >> resident ? resident * sysconf(_SC_PAGESIZE) : 0;
}

} // namespace explorer
