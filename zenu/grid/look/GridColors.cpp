#include "zenu/grid/look/GridColors.h"

#include "zenu/overlay/KPainter.h"

namespace zenu {

namespace {

struct PaletteDefault
{
    GCColor number;
    int systemColor;
};

constexpr PaletteDefault paletteDefaults[] = {
    {GCC_SEPARATOR, 1},
    {GCC_TEXT, 5},
    {GCC_BACKGROUND, 10},
    {GCC_SELTEXT, 8},
    {GCC_SELBACKGROUND, 6},
    {GCC_INACTIVESELTEXT, 4},
    {GCC_INACTIVESELBACKGROUND, 1},
    {GCC_SECTIONTEXT, 4},
    {GCC_SECTIONBACKGROUND, 1},
    {GCC_SECTIONTOP, 13},
    {GCC_SECTIONBOTTOM, 11},
    {GCC_SELSECTIONTEXT, 8},
    {GCC_SELSECTIONBACKGROUND, 6},
    {GCC_SELSECTIONTOP, 13},
};

} // namespace

GridColors GridColors::fromPalette()
{
    GridColors result;
    for (PaletteDefault const & entry : paletteDefaults) {
        result.at(entry.number) = KPainter::getSysColor(entry.systemColor);
    }
    result.at(GCC_FOCUSTEXT) = QColor::fromRgb(GC_UNSETCOLOR);
    result.at(GCC_FOCUSBACKGROUND) = QColor::fromRgb(GC_UNSETCOLOR);
    // GCC_SELSECTIONBOTTOM stays as it is: selected sections have never had a bottom line colour
    // of their own, and applications that draw one set it.
    result.at(GCC_INACTIVESELSECTIONTEXT) = result.at(GCC_SECTIONTEXT);
    result.at(GCC_INACTIVESELSECTIONBACKGROUND) = result.at(GCC_SECTIONBACKGROUND);
    result.at(GCC_INACTIVESELSECTIONTOP) = result.at(GCC_SECTIONTOP);
    result.at(GCC_INACTIVESELSECTIONBOTTOM) = result.at(GCC_SECTIONBOTTOM);
    return result;
}

QColor GridColors::set(int number, QColor const & color)
{
    QColor const old = get(number);
    if (isNumber(number)) {
        at(number) = color;
    }
    return old;
}

} // namespace zenu
