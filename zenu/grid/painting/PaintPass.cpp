#include "zenu/grid/painting/PaintPass.h"

#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/grid/geometry/CGetElementPos.h"
#include "zenu/grid/geometry/TextCache.h"
#include "zenu/grid/geometry/TextLine.h"

#include <algorithm>

namespace zenu {

namespace {

constexpr int treeLineColor = 11; // system colour
constexpr int rightBit = 0x2;
constexpr int centreBit = 0x4;
constexpr int centredBothWays = 0x44;
constexpr int formatBits = 0x3;

// Without an indent all lines fall on one column of pixels, so a bound does no harm.
constexpr int mostOpenLevels = 1 << 16;

// How many levels have their line inside some cell.
int openLevels(CDrawContext const & context, std::span<CGCColumn * const> columns)
{
    int result = 0;
    for (CGCColumn const * column : columns) {
        if (column->HasFlag(GCCF_TREELINES) && !column->IsHidden()) {
            int const levels = context.indent > 0 ? column->width / context.indent : mostOpenLevels;
            result = std::max(result, std::min(levels, mostOpenLevels - 1) + 1);
        }
    }
    return result;
}

Qt::Alignment toQt(int alignment)
{
    if (alignment & rightBit) {
        return Qt::AlignRight | Qt::AlignVCenter;
    }
    return (alignment & centreBit ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

PaintPass::PaintPass(KPainter * openPainter, CDrawContext const & drawContext,
                     std::span<CGCColumn * const> columns)
    : painter(openPainter)
    , context(drawContext)
    , lineColor(KPainter::getSysColor(treeLineColor))
    , path(drawContext.lastChild, openLevels(drawContext, columns))
    , needsPath(std::any_of(columns.begin(), columns.end(),
                            [](CGCColumn const * column) { return isIndented(*column); }))
    , selectedFont(*drawContext.font)
{
    painter->setFont(selectedFont);
}

void PaintPass::fill(QRect const & rect, QColor const & color)
{
    // A negative size would be painted on the other side of the position.
    if (rect.isValid()) {
        painter->fillRect(rect, color);
    }
}

void PaintPass::dither(QRect const & rect, QColor const & color)
{
    if (!rect.isValid()) {
        return;
    }
    if (halfTone.style() == Qt::NoBrush || halfTone.color() != color) {
        halfTone = QBrush(color, Qt::Dense4Pattern);
    }
    painter->fillRect(rect, QColor(Qt::white));
    painter->fillRect(rect, halfTone);
}

void PaintPass::drawText(CElementRects const & rects, int alignment, QColor const & color,
                         QFont const & font)
{
    if (!rects.fitted || rects.textRect.isNull()) {
        return;
    }
    select(font, color);
    FittedText const & text = *rects.fitted;
    text.fitted->draw(painter, rects.textRect, toQt(alignment));
    if (!text.isCut()) {
        return;
    }
    // Centred text that is cut stands in the middle of the whole rectangle, and the dots start as
    // if it stood at the left.
    QRect dotsRect = rects.textRect;
    if (alignment & rightBit) {
        dotsRect.setRight(dotsRect.right() - text.fitWidth);
        text.dots->draw(painter, dotsRect, Qt::AlignRight | Qt::AlignVCenter);
    } else {
        dotsRect.setLeft(dotsRect.left() + text.fitWidth);
        text.dots->draw(painter, dotsRect, Qt::AlignLeft | Qt::AlignVCenter);
    }
}

void PaintPass::select(QFont const & font, QColor const & color)
{
    // By content: an application may change the font that it lends between two rows. Comparing
    // costs nothing while it is the same one.
    if (font != selectedFont) {
        selectedFont = font;
        painter->setFont(selectedFont);
    }
    if (color != selectedColor || !selectedColor.isValid()) {
        selectedColor = color;
        painter->setPen(color);
    }
}

int itemAlignment(CGCColumn const & column)
{
    int const centred = column.format & centreBit ? centredBothWays : 0;
    return centred | (column.format & formatBits);
}

} // namespace zenu
