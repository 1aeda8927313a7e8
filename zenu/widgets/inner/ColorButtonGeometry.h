#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QSize>

namespace zenu {

// What a colour button shows, and the numbers that place it. Logical pixels.
struct ColorButtonContent
{
    bool showsSwatch = false;
    bool showsLabel = false; // a text or the arrow
    QSize label;             // of the text or the arrow
    int margin = 2;
    int spacing = 2;
    QSize minSwatch;
    QSize maxSwatch;
};

struct ColorButtonPlaces
{
    QRect swatch; // empty where there is no room or the largest size is (0, 0)
    QRect label;
};

// The size that the content needs. Sums saturate far below the range of an int.
ZENU_TEST_EXPORT QSize neededSize(ColorButtonContent const & content);

// Where swatch and label lie in a button of this size.
ZENU_TEST_EXPORT ColorButtonPlaces placesIn(QSize const & button,
                                            ColorButtonContent const & content);

// How a menu lies at the button that opens it.
struct PopupSide
{
    bool vertical = false; // beside the button, not below it
    bool reversed = false; // right to left
};

// Where the left top corner of a menu goes. All rectangles in global coordinates; `screen` may
// begin anywhere.
ZENU_TEST_EXPORT QPoint popupPosition(QRect const & button, QSize const & popup,
                                      QRect const & screen, PopupSide side);

} // namespace zenu
