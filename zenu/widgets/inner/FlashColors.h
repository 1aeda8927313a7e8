#pragma once

#include "zenu/overlay/KPainter.h"

#include <QColor>

namespace zenu {

// What a flash button shows behind its picture until the application sets other colours.
struct FlashColors
{
    static constexpr int baseColor = 10; // numbers of KPainter::getSysColor
    static constexpr int highlightColor = 6;

    QColor inactive = KPainter::getSysColor(baseColor);
    QColor active = KPainter::getSysColor(highlightColor);
};

} // namespace zenu
