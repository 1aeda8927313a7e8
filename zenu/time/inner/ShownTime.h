#pragma once

#include "zenu/time/TimeValue.h"

#include <QString>

#include <algorithm>

namespace zenu {

/// The decimals with which editors show times; digits beyond these are lost.
constexpr int shownDecimals = 3;

/// The text of a time in an editor, in its best unit or in the one given.
inline QString shownTime(TimeValue const & time)
{
    return QString::fromStdString(time.str(shownDecimals, false));
}

inline QString shownTime(TimeValue const & time, TimeUnit const & unit)
{
    return QString::fromStdString(time.str(unit, shownDecimals, false));
}

/// The unit, or the smallest one that the time's resolution can show if that is coarser.
inline TimeUnit::EUnit showableUnit(TimeUnit::EUnit unit, TimeValue const & time)
{
    return std::max(unit, TimeUnit::smallestUnit(time.multiplier()));
}

} // namespace zenu
