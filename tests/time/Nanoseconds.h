#pragma once

#include <zenu/time/TimeValue.h>

namespace zenutest {

constexpr double ps = 1000.0; // femtoseconds in a count, for a resolution of a picosecond

inline zenu::TimeValue nanoseconds(double value)
{
    return zenu::TimeValue(value, zenu::TimeUnit(zenu::TimeUnit::ns), ps);
}

} // namespace zenutest
