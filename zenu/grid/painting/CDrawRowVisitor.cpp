#include "zenu/grid/painting/CDrawRowVisitor.h"

#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/data/ItemText.h"
#include "zenu/grid/geometry/CGetElementPos.h"
#include "zenu/grid/geometry/CGetRowElementPos.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/painting/CDrawItemVisitor.h"
#include "zenu/grid/painting/KGetDrawItemInfo.h"
#include "zenu/grid/painting/PaintPass.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

namespace {

constexpr int lineOffset = 6;  // of a tree line from where its level starts
constexpr int frameMargin = 2; // of framed text, at the left and the right

// Whether something of the cell lies over the row above it or the column before it, which nobody
// paints after it. What lies beyond its other edges is covered by those that follow.
bool reachesOut(CElementRects const & rects)
{
    QRect const & cell = rects.cellRect;
    auto const isOut = [&](QRect const & rect) {
        return !rect.isNull() && (rect.top() < cell.top() || rect.left() < cell.left());
    };
    return isOut(rects.textRect) || isOut(rects.imageRect) || isOut(rects.checkRect) ||
           isOut(rects.buttonRect);
}

} // namespace

CDrawRowVisitor::CDrawRowVisitor(PaintPass & paintPass, std::span<CGCColumn * const> shownColumns,
                                 DrawnRow const & drawnRow)
    : pass(paintPass)
    , context(paintPass.context)
    , columns(shownColumns)
    , place(drawnRow)
    , look(selectionLook(context, drawnRow.selected))
{
}

void CDrawRowVisitor::VisitOrdinary(CGCOrdinaryRow * row)
{
    GC_DRAWROWINFO info = ordinaryRowInfo(context, *row);
    describeRow(row, info);
    RowColors const shown = underSelection({info.textColor, info.bkColor}, context, look);
    for (CGCColumn * const column : columns) {
        if (column->IsHidden()) {
            continue;
        }
        KGetText getText(row, context.textCallback);
        column->Accept(&getText);
        DrawnCell cell = startCell(row, *column, info, shown);
        KGetDrawItemInfo getInfo(row->ItemOf(column), look == SelectionLook::None, &cell.item);
        column->Accept(&getInfo);
        drawCell(column, getText.text, cell);
    }
    drawSeparators(info.bkColor);
}

void CDrawRowVisitor::VisitSlim(CGCSlimRow * row)
{
    drawSlim(row);
}

void CDrawRowVisitor::VisitLonelySlim(CGCLonelySlimRow * row)
{
    drawSlim(row);
}

void CDrawRowVisitor::drawSlim(IGCRow * row)
{
    ISlimGridCallbackWrapper * const application = context.slimCallback;
    if (!application) {
        return;
    }
    GC_DRAWROWINFO info = defaultRowInfo(context);
    application->GetRowDrawInfo(&info, row);
    if (!info.GetFont()) {
        info.SetFont(context.font);
    }
    describeRow(row, info);
    RowColors const shown = underSelection({info.textColor, info.bkColor}, context, look);
    for (CGCColumn * const column : columns) {
        if (column->IsHidden()) {
            continue;
        }
        DrawnCell cell = startCell(row, *column, info, shown);
        application->GetItemDrawInfo(&cell.item, row, column, cell.selected, cell.focusCell);
        // The text comes last: its pointer is good until the application is asked again.
        drawCell(column, application->GetItemText(row, column), cell);
    }
    drawSeparators(info.bkColor);
    application->ReleaseRowDrawInfo(&info, row);
}

void CDrawRowVisitor::VisitSection(CGCSection * row)
{
    GC_DRAWROWINFO info = ordinaryRowInfo(context, *row);
    // The grid's own colours of a section stand where the row has none.
    if (row->textColor == GC_UNSETCOLOR) {
        info.textColor = context.colors[GCC_SECTIONTEXT];
    }
    if (row->bkColor == GC_UNSETCOLOR) {
        info.bkColor = context.colors[GCC_SECTIONBACKGROUND];
    }
    describeRow(row, info);
    SectionColors const shown = sectionColors(context, {info.textColor, info.bkColor}, look);

    CGetRowElementPos position(context, place.hoverRow, nullptr, place.y, place.height);
    position.VisitSection(row);
    CElementRects const & rects = position.result();

    int const bottomLine = place.y + place.height - 1;
    pass.fill(QRect(0, place.y, context.contentsWidth, 1), shown.topLine);
    pass.fill(QRect(0, place.y + 1, context.contentsWidth, place.height - 2), shown.background);
    pass.fill(QRect(0, bottomLine, context.contentsWidth, 1), shown.bottomLine);
    auto const draw = [&] {
        if (info.hasChildren) {
            drawTreeButton(pass, rects.buttonRect, info.expanded, context.colors[GCC_BACKGROUND]);
        }
        pass.drawText(rects, 0, shown.text, *info.GetFont());
    };
    if (reachesOut(rects)) {
        pass.drawWithin(rects.cellRect, draw);
    } else {
        draw();
    }
    drawSeparators(shown.background);
}

void CDrawRowVisitor::describeRow(IGCRow * row, GC_DRAWROWINFO & info) const
{
    info.firstRow = place.firstRow;
    info.lastChild = place.lastChild;
    info.hasChildren = row->HasChildren(context.slimCallback);
    info.expanded = row->IsExpanded();
    if (pass.needsPath) {
        pass.path.enter(row);
    }
}

// The cell with the colour its text has unless the item has one of its own.
DrawnCell CDrawRowVisitor::startCell(IGCRow * row, CGCColumn const & column,
                                     GC_DRAWROWINFO const & info, RowColors const & shown) const
{
    DrawnCell cell;
    cell.row = row;
    cell.rowInfo = &info;
    cell.background = shown.background;
    cell.hover = place.hoverRow && column.itemIndex == context.hoverColumn;
    cell.selected = place.selected;
    cell.focusCell = isFocusCell(context, column, place.focused);
    cell.useSelectedImages = look != SelectionLook::None;
    if (!cell.focusCell) {
        cell.item.textColor = shown.text;
    } else if (context.colors.isSet(GCC_FOCUSTEXT)) {
        cell.item.textColor = context.colors[GCC_FOCUSTEXT];
    } else {
        cell.item.textColor = info.textColor;
    }
    return cell;
}

void CDrawRowVisitor::drawCell(CGCColumn * column, char const * text, DrawnCell & cell)
{
    CellInputs inputs;
    inputs.images = context.images;
    inputs.texts = context.texts;
    inputs.font = cell.rowInfo->GetFont();
    inputs.text = text;
    inputs.level = isIndented(*column) ? pass.path.level() : 0;
    inputs.indent = context.indent;
    inputs.width = column->width;
    inputs.height = place.height;
    inputs.hover = cell.hover;
    inputs.hideCheck = cell.item.hideCheck;
    CGetElementPos position(inputs, &cell.rects);
    column->Accept(&position);
    cell.rects.translate(column->left, place.y);

    auto const draw = [&] {
        drawGround(*column, cell);
        if (column->HasFlag(GCCF_TREELINES)) {
            drawAncestorLines(cell);
        }
        CDrawItemVisitor content(pass, cell);
        column->Accept(&content);
    };
    if (reachesOut(cell.rects)) {
        pass.drawWithin(cell.rects.cellRect, draw);
    } else {
        draw();
    }
}

void CDrawRowVisitor::drawGround(CGCColumn const & column, DrawnCell const & cell)
{
    QRect rect = cell.rects.cellRect;
    if (context.verticalLines) {
        // The column's last pixel stays free of the fill below, so that the half-tone shows there.
        pass.dither(QRect(rect.right(), place.y, 1, place.height), context.colors[GCC_SEPARATOR]);
        rect.setRight(rect.right() - 1);
    }
    if (column.HasFlag(GCCF_FRAMED)) {
        drawFramedGround(rect, cell);
        return;
    }
    pass.fill(rect, cell.background);
    if (cell.focusCell) {
        // A frame of the cell's own background remains.
        GCColor const inner =
            context.colors.isSet(GCC_FOCUSBACKGROUND) ? GCC_FOCUSBACKGROUND : GCC_BACKGROUND;
        pass.fill(rect.adjusted(1, 1, -1, -1), context.colors[inner]);
    }
}

void CDrawRowVisitor::drawFramedGround(QRect const & rect, DrawnCell const & cell)
{
    pass.fill(rect, cell.rowInfo->bkColor);
    if (cell.rects.textRect.isNull()) {
        return;
    }
    QRect framed = cell.rects.textRect;
    inflateRect(&framed, frameMargin, 0);
    // Right-aligned text brings its frame onto the vertical line, which stays.
    pass.fill(framed & rect, cell.background);
    if (place.focused && context.hasFocus) {
        pass.painter->ditherFrame2(framed.left(), framed.top(), framed.right(), framed.bottom(),
                                   complement(cell.background), cell.background);
    }
}

// A line for each ancestor that has siblings below, as far as it falls into the cell: beyond, the
// next column covers it.
void CDrawRowVisitor::drawAncestorLines(DrawnCell const & cell)
{
    QRect const & rect = cell.rects.cellRect;
    long long x = static_cast<long long>(rect.left()) + lineOffset;
    for (std::uint8_t const isOpen : pass.path.openLevels()) {
        if (x > rect.right() || x < rect.left()) {
            break;
        }
        if (isOpen) {
            pass.fill(QRect(static_cast<int>(x), rect.top(), 1, rect.height()), pass.lineColor);
        }
        x += context.indent;
    }
}

void CDrawRowVisitor::drawSeparators(QColor const & background)
{
    int const lastLine = place.y + place.height - 1;
    if (context.horizontalLines) {
        pass.dither(QRect(0, lastLine, context.contentsWidth, 1), context.colors[GCC_SEPARATOR]);
    }
    // Framed columns show the focus by their frames.
    if (!context.anyFramedColumn && place.focused && context.hasFocus) {
        QColor const line = complement(background);
        pass.dither(QRect(0, place.y, context.contentsWidth, 1), line);
        pass.dither(QRect(0, lastLine, context.contentsWidth, 1), line);
    }
}

} // namespace zenu
