#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

// Which characters of a text stay when it does not fit.
enum class FitSide
{
    Front, // the first ones: left-aligned and centred text
    End    // the last ones: right-aligned text
};

// Widths of the characters that a count would keep.
class ITextWidths
{
public:
    virtual ~ITextWidths() = default;
    // The measured width of `count` characters, at least one. Grows with the count.
    virtual int widthOf(int count) = 0;
    // Whether `count` characters are wider than `room` beyond all doubt. Costs no measurement.
    virtual bool surelyExceeds(int count, int room) = 0;
    // A guess, from 0 to `most`: how many characters measure up to `room`. Costs no measurement.
    virtual int probableCount(int room, int most) = 0;
};

struct TextFit
{
    int count = 0; // characters that fit
    int width = 0; // what those measure
};

// How many characters of `length` a span of `room` pixels takes, with `dotsWidth` pixels for the
// dots that follow a cut text. The start is a count of room / 2 + 1 at most, which is more than any
// font gets into the span; if it fits by itself it stands, without dots. Otherwise the largest
// smaller count that fits together with the dots, or 0. Asks for as few widths as the guess allows:
// two when it is right and the start is far off.
ZENU_TEST_EXPORT TextFit fitText(int length, int room, int dotsWidth, ITextWidths & widths);

} // namespace zenu
