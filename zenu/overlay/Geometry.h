#pragma once

#include "zenu/ZenuExport.h"

#include <QPoint>
#include <QRect>
#include <QSize>

class QCursor;
class QFont;
class QWidget;

namespace zenu {

// Positions and sizes. All of them are logical pixels; results saturate at the range of an int.

/// A rectangle laid out for the reference font, in pixels of the application's font. The reference
/// font has an average width of 5.7 and a height of 13.5 pixels. Position and size are each scaled
/// and truncated. The factors are taken at the first call and do not follow later changes of the
/// font.
ZENU_EXPORT QRect scaledRect(int x, int y, int w, int h);

/// Resizes `widget` to a size that is laid out for the reference font, see scaledRect. Does nothing
/// for a null widget.
ZENU_EXPORT void scaledResize(QWidget * widget, int width, int height);
ZENU_EXPORT void scaledResize(QWidget * widget, QSize size);

/// The point `point` of `from` in the coordinates of `to`. A null widget stands for the screen.
ZENU_EXPORT QPoint remapPoint(QWidget * from, QWidget * to, QPoint const & point);

/// The rectangle `rect` of `from` in the coordinates of `to`: its top left and bottom right corner
/// are remapped. A null widget stands for the screen.
ZENU_EXPORT QRect remapRect(QWidget * from, QWidget * to, QRect const & rect);

/// True when `point` lies in `rect`, or one pixel beyond its right or bottom edge. The extra pixel
/// is meant: callers hit the last pixel of frames that are drawn one pixel beyond.
ZENU_EXPORT bool ptInRect(QRect const & rect, QPoint const & point);

/// Moves each edge of `rect` outwards, the left and right one by `dx`, the others by `dy`; negative
/// values shrink it. Does nothing for null.
ZENU_EXPORT void inflateRect(QRect * rect, int dx, int dy);

/// True when two cursors do not look the same: their shapes differ, or both are bitmap cursors that
/// do not share one bitmap. Copies of a cursor share its bitmap; two cursors made from one pixmap
/// do not, since each makes bitmaps of its own.
ZENU_EXPORT bool cursorsDifferent(QCursor const & a, QCursor const & b);

/// Does nothing: point sizes are right as they are. Kept for applications that call it.
ZENU_EXPORT void ConvertPT2Pixel(QFont * font);

} // namespace zenu
