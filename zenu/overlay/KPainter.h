#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/overlay/Geometry.h"
#include "zenu/overlay/NarrowText.h"

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRect>
#include <QSize>

class QPaintDevice;
class QRegion;

namespace zenu {

/// Bits of the state that KPainter::drawItemButton takes.
enum EItemButtonState
{
    ItemButtonPressed = 1,
    ItemButtonNoMargin = 2, ///< content margin 1 instead of 3 pixels on the left and right
    ItemButtonHot = 4,      ///< the mouse is over the item
    ItemButtonVertical = 8, ///< items stand below each other: flat lines run along top and bottom
    ItemButtonFlat = 16     ///< two lines instead of the raised button
};

/// A QPainter with the drawing vocabulary of the library: system colours by number, rectangles
/// filled in one call, half-tone frames, item buttons. It adds no state, so each operation that
/// takes a QPainter may be given any painter. All positions and sizes are logical pixels. An
/// operation on a painter that is null or not active does nothing. GUI thread only.
class ZENU_EXPORT KPainter : public QPainter
{
public:
    /// Starts painting on `device`; null gives a painter that is not active. A widget can be
    /// painted in its paint event only.
    explicit KPainter(QPaintDevice const * device);
    ~KPainter() = default;

    /// The colour with this number in the active group of the application's palette as it is now.
    /// Never allocates. Numbers: 1, 2, 3 button; 4 button text; 5, 9 text; 6, 7 highlight; 8
    /// highlighted text; 10 base; 11 dark; 12, 13, 14 light; any other number window.
    static QColor getSysColor(int index);

    /// The colour of what the mouse is over: system colour 6.
    static QColor getSysColor_HotTrack();

    /// The fill of a hot item: system colour 7, or, with `avoidButton` and where that equals the
    /// colour of buttons, system colour 14.
    static QColor getSysColor_Light(bool avoidButton);

    /// Fills a rectangle given by position and size; pen and brush of the painter stay as they are.
    void fastRectangle(int x, int y, int w, int h, QColor const & color);

    /// Fills a rectangle given by its corners, both of them included.
    void fastRectangle2(int left, int top, int right, int bottom, QColor const & color);

    /// Fills a rectangle with white and lays a half-tone of `color` over it. The second colour is
    /// accepted and not used.
    void ditherRectangle(int x, int y, int w, int h, QColor const & color, QColor const & unused);

    /// Lays a half-tone of `color` over a rectangle. Unlike the member of the same name it leaves
    /// what is there between the dots: callers choose which one they need, so the two must differ.
    static void ditherRectangle(QPainter * painter, int x, int y, int w, int h,
                                QColor const & color, QColor const & unused);

    /// Draws a white line and a dotted one in `color` over it, both ends included. The dotted pen
    /// stays selected. The second colour is not used.
    void ditherLine(int x1, int y1, int x2, int y2, QColor const & color, QColor const & unused);

    /// Draws a half-tone frame, one pixel wide, through the given corners. The pixel in the bottom
    /// right corner is left out. The second colour is not used.
    void ditherFrame2(int left, int top, int right, int bottom, QColor const & color,
                      QColor const & unused);

    /// Draws the outline of `rect` inside it, one pixel wide, in system colour 1, and fills what it
    /// surrounds with the painter's brush. The pen stays as it was. `edge` and `flags` are accepted
    /// and not used. Does nothing for null or an empty rectangle.
    void drawEdge(QRect * rect, unsigned int edge, unsigned int flags);

    /// The size of a Latin-1 text on a single line in the painter's font; (0, 0) for a null or
    /// empty text.
    QSize GetTextExtent(char const * text) const;
    static QSize GetTextExtent(QPainter * painter, char const * text);

    /// The size of the first `length` characters of a text; a negative length takes all. An empty
    /// text is as high as a line.
    QSize GetTextExtent(char const * text, int length) const;
    static QSize GetTextExtent(QPainter * painter, char const * text, int length);

    /// The width of the picture of the letter "x" in the painter's font.
    int getAveCharWidth() const;
    static int getAveCharWidth(QPainter * painter);

    /// Always false.
    bool IsPrinting() const { return false; }

    /// Turns pixels of the colour `from` into `to` in a rectangle of the painter's device: where
    /// `from` has a 1 bit, the pixel's bit is ANDed with that of `to`, elsewhere it is ORed. So
    /// pixels of other colours change in the bits in which the two colours differ. The rectangle is
    /// in coordinates of the device: transformation, clip and opacity of the painter do not count.
    /// Alpha of the colours is ignored, that of the pixels kept. Does nothing on a device without
    /// raster operations.
    static void changeColor(QPainter * painter, int x, int y, int w, int h, QColor const & from,
                            QColor const & to);

    /// Draws the face of a header or grid item in `rect`, and makes `rect` the area left for its
    /// content: one pixel less at top and bottom, three (or one) at each side. The content of a
    /// flat item moves by (1, 1) while it is pressed and not hot. `state` is made of
    /// EItemButtonState. An inactive painter draws nothing and still gives the area. Does nothing
    /// for null.
    void drawItemButton(QRect * rect, int state);

    /// Draws a red bar, 5 pixels high, where a dragged item would land: at the top of the widget
    /// with `atTop`, else `width` wide at (6, y + offset). The bar has no end images.
    void drawDragIndicator(int width, int y, int offset, bool atTop);
};

/// Selects a pen for as long as it lives, and then sets the pen that was there before. The painter
/// must outlive it. A null or inactive painter is left alone.
class ZENU_EXPORT KPenSelector
{
public:
    /// Selects a default pen.
    explicit KPenSelector(QPainter * painter);
    KPenSelector(QPainter * painter, Qt::PenStyle style);
    KPenSelector(QPainter * painter, QColor const & color, unsigned int width, Qt::PenStyle style);
    KPenSelector(QPainter * painter, QColor const & color, unsigned int width, Qt::PenStyle style,
                 Qt::PenCapStyle cap, Qt::PenJoinStyle join);
    ~KPenSelector();

    KPenSelector(KPenSelector const &) = delete;
    KPenSelector & operator=(KPenSelector const &) = delete;

private:
    KPenSelector(QPainter * painter, QPen const & pen);

    QPainter * m_painter;
    QPen m_saved;
    QPen m_selected;
};

/// Overwrites a rectangle of an image or pixmap with a colour, alpha included. The rectangle is
/// displaced as applications know it: when it is at most twice as high as wide, its top counts
/// twice, otherwise its left. A rectangle at the origin is filled as it stands. A painter that is
/// active on the device is used, with its state left as it was. On a widget outside its paint
/// event, on null and on an empty device nothing happens.
ZENU_EXPORT void fastFill(QPaintDevice * device, QRect const & rect, QColor const & color);

/// Fills each rectangle of `region`, in their order, with `brush`.
ZENU_EXPORT void fillRegion(QPainter * painter, QRegion const & region, QBrush const & brush);

} // namespace zenu
