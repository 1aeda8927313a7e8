#pragma once

#include <zenu/grid/GridTypes.h>

#include <cstdint>

namespace explorer {

/// The columns of the explorer, numbered as the grid numbers them: in order of creation.
enum class Column : int
{
    Name,
    Size,
    Kind,
    Modified,
    Executable
};
constexpr int columnCount = 5;

inline Column columnOf(zenu::tag_HCOLUMN * handle)
{
    return static_cast<Column>(reinterpret_cast<std::intptr_t>(handle));
}

inline zenu::tag_HCOLUMN * handleOf(Column column)
{
    return reinterpret_cast<zenu::tag_HCOLUMN *>(static_cast<std::intptr_t>(column));
}

} // namespace explorer
