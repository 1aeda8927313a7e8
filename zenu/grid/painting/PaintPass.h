#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/painting/RowPath.h"
#include "zenu/overlay/KPainter.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QRect>

#include <span>

namespace zenu {

class CGCColumn;
struct CElementRects;

// One paint of a grid: the painter, and what is kept from row to row so that nothing is set or
// asked twice. Made once a paint event on the stack, after the painter was opened and moved to
// contents coordinates; painter and context outlive it. Pen and font of the painter belong to the
// pass until it ends.
class ZENU_TEST_EXPORT PaintPass
{
public:
    // `columns` are those that will be drawn. Sets the painter's font to the context's.
    PaintPass(KPainter * openPainter, CDrawContext const & drawContext,
              std::span<CGCColumn * const> columns);

    KPainter * painter;
    CDrawContext const & context;
    QColor lineColor; // of tree lines: system colour 11
    RowPath path;     // to the row being drawn, entered only when `needsPath`
    bool needsPath;   // some column is indented by level or shows the ancestors' lines

    // Fills a rectangle; nothing when it has no size.
    void fill(QRect const & rect, QColor const & color);

    // As KPainter::ditherRectangle, with a brush that is kept while the colour stays: a grid with
    // lines draws one for each cell. Nothing for a rectangle without size.
    void dither(QRect const & rect, QColor const & color);

    // Draws the text that was laid out in `rects`, in the colour and font, and dots for what was
    // cut off it. `alignment` is that of itemAlignment.
    void drawText(CElementRects const & rects, int alignment, QColor const & color,
                  QFont const & font);

    // Runs `use` with a painter as the paint event opened it: default pen, the grid's font. What
    // `use` changes is taken back.
    template <typename Use>
    void lendPainter(Use const & use)
    {
        painter->save();
        painter->setPen(QPen());
        painter->setFont(*context.font);
        use(painter);
        painter->restore();
    }

    // Runs `use` with what it paints cut to a rectangle.
    template <typename Use>
    void drawWithin(QRect const & rect, Use const & use)
    {
        QFont const fontBefore = selectedFont;
        QColor const colorBefore = selectedColor;
        painter->save();
        painter->setClipRect(rect, Qt::IntersectClip);
        use();
        painter->restore();
        selectedFont = fontBefore;
        selectedColor = colorBefore;
    }

private:
    void select(QFont const & font, QColor const & color);

    QBrush halfTone;
    QFont selectedFont;
    QColor selectedColor; // invalid: the painter's pen is not ours yet
};

// How a column's texts are drawn: 2 for right, 4 for centred, and vertically centred when centred,
// from the format's alignment bits as they stand.
ZENU_TEST_EXPORT int itemAlignment(CGCColumn const & column);

} // namespace zenu
