#pragma once

#include "zenu/ZenuExport.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace zenu {

class IGCRow;
class IIsLastChild;

// The ancestors of the row being drawn, remembered from row to row, so that a paint deep in a tree
// climbs to the root once and not for each row. Rows may come in any order; from one to the next in
// the visible order costs next to nothing. It lives for one paint: the tree must not change, but a
// remembered address is only compared, never followed.
class ZENU_TEST_EXPORT RowPath
{
public:
    // `openLimit` is how many levels openLevels knows, from the top: those whose tree line can lie
    // inside a cell.
    explicit RowPath(IIsLastChild const * lastChildren = nullptr, int openLimit = 0)
        : lastChild(lastChildren)
        , limit(openLimit)
    {
    }

    // Makes `row` the current row.
    void enter(IGCRow const * row);
    // Number of the current row's ancestors.
    int level() const { return depth; }
    // For each ancestor from the top level downwards, up to the limit, whether siblings follow it
    // in the visible order: those have a tree line beside all that is under them.
    std::span<std::uint8_t const> openLevels() const { return open; }

private:
    static constexpr int windowSize = 64;

    // The level of a row of the window, -1 when it is not there.
    int findInWindow(IGCRow const * row) const;
    void climb(IGCRow const * row);
    void addOpen(IGCRow const * ancestor, int ancestorLevel);
    IGCRow const *& windowAt(int at) { return window[static_cast<std::size_t>(at % windowSize)]; }

    IIsLastChild const * lastChild;
    int limit;
    int depth = -1; // of the current row, -1 before the first
    int lowest = 0; // the lowest level in the window
    // The row at each level from `lowest` to `depth` on the way to the current row.
    std::array<IGCRow const *, windowSize> window{};
    std::vector<std::uint8_t> open;
};

} // namespace zenu
