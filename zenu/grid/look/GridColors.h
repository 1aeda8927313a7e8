#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridRecords.h"
#include "zenu/grid/GridTypes.h"

#include <QColor>

#include <array>

namespace zenu {

// The 21 colours of a grid by their GCC_ numbers. A value: copying is a copy of plain bytes.
class ZENU_TEST_EXPORT GridColors
{
public:
    // All unset. No palette is asked, so a record of colours costs nothing to make.
    GridColors() = default;
    // The colours that a grid starts with, read from the application's palette as it is now. The
    // selected section's bottom line has no default and stays an invalid colour.
    static GridColors fromPalette();

    // Black for a number outside 1 to 21.
    QColor get(int number) const { return isNumber(number) ? at(number) : QColor(Qt::black); }
    // Answers the colour that was there; outside 1 to 21 changes nothing and answers black.
    QColor set(int number, QColor const & color);

    // For the numbers of the enumeration, without a test.
    QColor const & operator[](GCColor number) const { return at(number); }
    bool isSet(GCColor number) const { return at(number).rgb() != GC_UNSETCOLOR; }

    static constexpr bool isNumber(int number) { return number >= 1 && number <= GCC_COUNT; }

private:
    QColor const & at(int number) const { return colors[static_cast<std::size_t>(number - 1)]; }
    QColor & at(int number) { return colors[static_cast<std::size_t>(number - 1)]; }

    std::array<QColor, GCC_COUNT> colors;
};

} // namespace zenu
