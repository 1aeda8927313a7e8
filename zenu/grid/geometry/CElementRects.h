#pragma once

#include "zenu/ZenuExport.h"

#include <QRect>

namespace zenu {

struct FittedText;

// Where the elements of one cell are. Filled by CGetElementPos relative to the cell, then moved
// into place. An element whose rectangle is null is absent from the cell. Edges are inclusive as
// those of QRect, and some rectangles are meant to be one pixel larger than what they hold.
struct ZENU_TEST_EXPORT CElementRects
{
    QRect cellRect;     // the whole cell
    QRect indentRect;   // the tree indentation
    QRect buttonRect;   // the expand button
    QRect imageRect;    // the item image
    QRect textRect;     // the text as it is drawn, cut to the room there is
    int treeOffset = 0; // from the button's centre to the element that follows
    int fitCount = 0;   // characters of the text that fit
    QRect fullTextRect; // the text at its full width
    QRect checkRect;    // the check box
    QRect dropRect;     // the drop-down button of list and combo cells
    QRect leadRect;     // the lead image
    QRect editorRect;   // where an editor goes

    // The text laid out; null when textRect is. Lives in the TextCache, see there for how long.
    FittedText const * fitted = nullptr;

    // The width of the characters that fit, 0 without a text. Valid for as long as `fitted`.
    int fitWidth() const;

    // Moves all rectangles but null ones. Edges saturate at the range of an int.
    void translate(int dx, int dy);
};

} // namespace zenu
