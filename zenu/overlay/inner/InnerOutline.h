#pragma once

class QColor;
class QPainter;
class QRect;

namespace zenu {

// Draws the outline of `rect` inside it, one pixel wide. Four filled strips instead of drawRect: at
// a device pixel ratio other than 1 a pen lies astride the edge, filled rectangles stay inside it.
// An empty rectangle has no outline.
void drawInnerOutline(QPainter * painter, QRect const & rect, QColor const & color);

} // namespace zenu
