#include "zenu/grid/geometry/TextFit.h"

#include <algorithm>

namespace zenu {

namespace {

// The largest count below `above` whose width is at most `room`. Probes outwards from the guess in
// growing steps until the answer is bracketed, then halves the bracket.
TextFit largestBelow(int above, int room, ITextWidths & widths)
{
    TextFit best;
    if (room < 0) {
        return best;
    }
    bool bracketedBelow = false;
    bool bracketedAbove = false;
    int step = 1;
    int probe = std::clamp(widths.probableCount(room, above - 1), 1, std::max(1, above - 1));
    while (above - best.count > 1) {
        int const width = widths.widthOf(probe);
        if (width <= room) {
            best = {probe, width};
            bracketedBelow = true;
            probe = std::min(probe + step, above - 1);
        } else {
            above = probe;
            bracketedAbove = true;
            probe = std::max(probe - step, best.count + 1);
        }
        if (bracketedBelow && bracketedAbove) {
            probe = best.count + (above - best.count) / 2;
        } else {
            step *= 2;
        }
    }
    return best;
}

} // namespace

TextFit fitText(int length, int room, int dotsWidth, ITextWidths & widths)
{
    if (room < 0 || length < 1) {
        return {};
    }
    int const start = length > room / 2 ? std::min(length, room / 2 + 1) : length;
    if (!widths.surelyExceeds(start, room)) {
        int const startWidth = widths.widthOf(start);
        if (startWidth <= room) {
            return {start, startWidth};
        }
    }
    return largestBelow(start, room - dotsWidth, widths);
}

} // namespace zenu
