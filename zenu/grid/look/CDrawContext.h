#pragma once

#include "zenu/grid/look/GridColors.h"

class QFont;

namespace zenu {

class IDrawOwnerDraw;
class IIsLastChild;
class ISlimGridCallbackWrapper;
class ITextCallback;
class KGridImages;
class TextCache;

// What painting and geometry need to know of the grid; filled once a paint event or query. Owns
// nothing: what the pointers name outlives it. The colours are a copy, so that a callback that sets
// one in the middle of a paint does not split the picture.
struct CDrawContext
{
    bool fullRowSelect = false;         // GCS_FULLROWSELECT
    bool verticalLines = false;         // GCS_VERTLINES
    bool horizontalLines = false;       // GCS_HORZLINES
    bool hasFocus = false;              // of the grid widget
    bool showSelectionInactive = false; // GCS_SHOWSELALWAYS
    bool flatLeadImage = false;         // GCS_FLATLEAD
    bool anyFramedColumn = false;       // some column has GCCF_FRAMED
    int hoverColumn = -1;               // index of the column under the mouse, -1 for none
    int focusColumn = -1;               // index of the focused column, -1 for none
    int indent = 0;                     // pixels a tree level
    int contentsWidth = 0;              // sum of the shown columns' widths
    QFont * font = nullptr;             // the grid's
    GridColors colors;
    KGridImages const * images = nullptr;
    IDrawOwnerDraw * ownerDraw = nullptr;
    ITextCallback * textCallback = nullptr;
    ISlimGridCallbackWrapper * slimCallback = nullptr;
    IIsLastChild const * lastChild = nullptr;
    TextCache * texts = nullptr; // what was measured and laid out before
};

} // namespace zenu
