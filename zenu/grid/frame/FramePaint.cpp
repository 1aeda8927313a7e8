#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/inner/SaturatedInt.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/painting/CDrawRowVisitor.h"
#include "zenu/grid/painting/PaintPass.h"
#include "zenu/overlay/KPainter.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <span>

namespace zenu {

namespace {

constexpr int largestPieceCount = 16; // of an exposed region that is painted piece by piece
constexpr int patternSize = 8;        // device pixels after which a half-tone repeats itself

// A column that is hidden by its flag alone keeps its place until the columns are laid out again,
// and no row draws it. The area is in the painter's coordinates.
void fillHiddenColumns(KPainter * painter, QRect const & area, std::span<CGCColumn * const> columns,
                       QColor const & color)
{
    for (CGCColumn const * const column : columns) {
        if (column->IsHidden()) {
            QRect const place(QPoint(column->left, area.top()),
                              QPoint(cellCoordinate(column->Right()) - 1, area.bottom()));
            painter->fillRect(place & area, color);
        }
    }
}

} // namespace

CDrawContext KGridCtrl::PrivateData::DrawContext()
{
    textCache.setDevice(grid);
    CDrawContext context;
    context.fullRowSelect = HasStyle(GCS_FULLROWSELECT);
    context.verticalLines = HasStyle(GCS_VERTLINES);
    context.horizontalLines = HasStyle(GCS_HORZLINES);
    context.hasFocus = grid && grid->hasFocus();
    context.showSelectionInactive = HasStyle(GCS_SHOWSELALWAYS);
    context.flatLeadImage = HasStyle(GCS_FLATLEAD);
    context.anyFramedColumn = std::ranges::any_of(
        columns.all(), [](CGCColumn const * column) { return column->HasFlag(GCCF_FRAMED); });
    if (CGCColumn const * const column = ShownColumn(focusColumn)) {
        context.focusColumn = column->itemIndex;
    }
    context.indent = cellCoordinate(Indent());
    context.contentsWidth = contentsWidth;
    context.font = &font;
    context.colors = colors;
    context.images = &images;
    context.ownerDraw = this;
    context.textCallback = this;
    context.slimCallback = Wrapper();
    context.lastChild = this;
    context.texts = &textCache;
    return context;
}

void KGridCtrl::PrivateData::Paint(QRegion const & exposed)
{
    if (inPaint) {
        return; // a callback of the application led here
    }
    QScopedValueRollback<bool> const painting(inPaint, true);
    allInvalid = false;
    {
        // Whatever the rebuild changes is painted now, unless only a part is.
        QScopedValueRollback<bool> const all(paintsAll, exposed.contains(grid->rect()) &&
                                                            exposed.boundingRect() == grid->rect());
        if (!Settle()) {
            return;
        }
    }
    CDrawContext const context = DrawContext();
    KPainter painter(grid);
    // Coordinates start at the top of the first row on display, not at that of the first row: far
    // down a long list the painter's fixed point numbers would overflow.
    painter.translate(-hScrollPos, headerHeight);
    painter.setBrushOrigin(halfToneOrigin(painter.device()->devicePixelRatioF()));
    TreeLock const lock(this);
    if (slimCallback) {
        slimCallback->BeginPaint();
    }
    if (exposed.rectCount() <= largestPieceCount) {
        for (QRect const & piece : exposed) {
            // Qt rounds images at fractional pixel ratios otherwise where the clip is one rectangle
            // than where it is more: with one each, a partial paint gives the picture of a whole
            // one. What lies beyond the piece is cut by Qt's own clip.
            painter.setClipRect(piece.adjusted(-1, -1, 1, 1).translated(hScrollPos, -headerHeight));
            paintRows(&painter, piece, context);
        }
        painter.setClipping(false);
    } else {
        paintRows(&painter, exposed.boundingRect(), context);
    }
    if (slimCallback) {
        slimCallback->EndPaint();
    }
    paintAround(&painter, exposed.boundingRect());
}

// Half-tones go with the contents, so that those of pixels that were moved and those painted anew
// fit together. A pattern is made of device pixels, but Qt shifts it by as many of them as the
// painter is translated by logical ones: what is lacking is added here.
QPoint KGridCtrl::PrivateData::halfToneOrigin(qreal ratio)
{
    auto const devicePixels = [=](long long position) {
        return static_cast<long long>(std::floor(static_cast<double>(position) * ratio));
    };
    long long const x = hScrollPos - devicePixels(hScrollPos);
    long long const y = -devicePixels(TopPosition());
    return {static_cast<int>(x % patternSize), static_cast<int>(y % patternSize)};
}

// The rows that meet a rectangle in widget coordinates, below the header.
void KGridCtrl::PrivateData::paintRows(KPainter * painter, QRect const & exposed,
                                       CDrawContext const & context)
{
    QRect area = exposed;
    area.setTop(std::max(area.top(), headerHeight));
    if (IsEmpty() || area.isEmpty()) {
        return;
    }
    int const firstColumn = std::max(ShownColumnAt(area.left() + hScrollPos), 0);
    int const lastColumn = ShownColumnAt(area.right() + hScrollPos);
    int const pastColumn =
        lastColumn == -1 ? static_cast<int>(shownColumns.size()) : lastColumn + 1;
    std::span<CGCColumn * const> const painted =
        std::span(shownColumns)
            .subspan(static_cast<std::size_t>(firstColumn),
                     static_cast<std::size_t>(std::max(pastColumn - firstColumn, 0)));

    long long const offset = TopPosition() - headerHeight;
    // Without a row there, those on display are tried, which cost little.
    int const top = IndexAt(area.top() + offset);
    int const first = top == -1 ? GetTopIndex() : top;
    int const bottom = IndexAt(area.bottom() + offset);
    int const pastShown = std::min(GetLastShownIndex() + 1, GetCount());
    int const past = bottom == -1 ? pastShown : std::min(bottom + 1, pastShown);
    fillHiddenColumns(painter, area.translated(hScrollPos, -headerHeight), painted,
                      colors[GCC_BACKGROUND]);
    PaintPass pass(painter, context, painted);
    for (int i = first; i < past; ++i) {
        IGCRow * const row = GetRowAt(i);
        if (!row) {
            break; // a callback of the application collapsed rows
        }
        DrawnRow drawn;
        drawn.selected = selection.contains(row);
        drawn.firstRow = i == 0;
        drawn.lastChild = row->IsLastChild();
        drawn.focused = IsFocused(row);
        drawn.y = ViewTopOf(i) - headerHeight;
        drawn.height = ViewHeightAt(i);
        if (drawn.height <= 0) {
            continue; // any height may be given, and not every one can be drawn
        }
        CDrawRowVisitor visitor(pass, painted, drawn);
        row->Accept(&visitor);
    }
}

// What no row covers: right of the columns and below the last row on display.
void KGridCtrl::PrivateData::paintAround(KPainter * painter, QRect const & exposed)
{
    QRect const area = exposed.translated(hScrollPos, -headerHeight);
    QColor const & background = colors[GCC_BACKGROUND];
    if (area.right() >= contentsWidth) {
        QRect right = area;
        right.setLeft(std::max(area.left(), contentsWidth));
        painter->fillRect(right, background);
    }
    long long bottom = 0;
    if (!IsEmpty()) {
        int const last = std::min(GetLastShownIndex(), GetCount() - 1);
        bottom = static_cast<long long>(ViewTopOf(last)) + ViewHeightAt(last) - headerHeight;
    }
    if (area.bottom() >= bottom) {
        QRect below = area;
        below.setTop(static_cast<int>(std::max<long long>(area.top(), bottom)));
        below.setRight(std::min(area.right(), contentsWidth - 1));
        painter->fillRect(below, background);
    }
}

} // namespace zenu
