#include "zenu/grid/painting/CDrawItemVisitor.h"

#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/grid/inner/IDrawOwnerDraw.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/look/KGridImages.h"
#include "zenu/grid/painting/PaintPass.h"
#include "zenu/overlay/KPainter.h"

#include <algorithm>

namespace zenu {

namespace {

constexpr int buttonCentre = 4; // of a whole button, from its left and top
constexpr int stubHeight = 2;   // of the line that leads on to the children
constexpr unsigned sunkenEdge = 2;
constexpr unsigned hotEdgeFlags = 1;
constexpr unsigned edgeFlags = 3;

// Images that are missing draw nothing. A negative size would stand for that of the image.
void drawFrom(PaintPass & pass, KGridImages::Member member, int index, QPoint const & at)
{
    if (KPixmapSet const * images = pass.context.images->get(member)) {
        images->drawImage(pass.painter, index, at.x(), at.y(), -1, -1);
    }
}

// What lies in the rectangle of the image at its left top. The rectangle may be a pixel larger than
// the image, whose neighbour in the strip must not show.
void drawPart(PaintPass & pass, KGridImages::Member member, int index, QRect const & rect)
{
    KPixmapSet const * const images = pass.context.images->get(member);
    if (!images) {
        return;
    }
    QSize const part = rect.size().boundedTo(images->getImageSize());
    if (!part.isEmpty()) {
        images->drawImage(pass.painter, index, rect.x(), rect.y(), part.width(), part.height());
    }
}

} // namespace

void drawTreeButton(PaintPass & pass, QRect const & rect, bool expanded, QColor const & ground)
{
    if (rect.isNull()) {
        return;
    }
    pass.fill(rect, ground);
    drawPart(pass, KGridImages::Buttons, expanded ? GlyphExpanded : GlyphCollapsed, rect);
}

void CDrawItemVisitor::Visit(CGCColumn * column)
{
    if (column->HasFlag(GCCF_TREE)) {
        if (column->HasFlag(GCCF_TREELINES) && !cell.rects.buttonRect.isNull()) {
            drawTreeLines();
        }
        if (cell.rowInfo->hasChildren) {
            drawTreeButton(pass, cell.rects.buttonRect, cell.rowInfo->expanded, cell.background);
        }
    }
    if (column->HasFlag(GCCF_LEAD) || (column->HasFlag(GCCF_LEADONHOVER) && cell.hover)) {
        drawLeadImage();
    }
}

void CDrawItemVisitor::VisitIcon(CGCIconColumn * column)
{
    Visit(column);
    drawImage();
}

void CDrawItemVisitor::VisitText(CGCTextColumn * column)
{
    Visit(column);
    drawText(*column);
}

void CDrawItemVisitor::VisitTextWithIcon(CGCTextWithIconColumn * column)
{
    Visit(column);
    drawImage();
    drawText(*column);
}

void CDrawItemVisitor::VisitCheckBox(CGCCheckBoxColumn * column)
{
    Visit(column);
    drawCheckBox();
    drawText(*column);
}

// The drop-down button has a place and no picture: list, combo and text cells look alike.
void CDrawItemVisitor::VisitListBox(CGCListBoxColumn * column)
{
    Visit(column);
    drawText(*column);
}

void CDrawItemVisitor::VisitComboBox(CGCComboBoxColumn * column)
{
    Visit(column);
    drawText(*column);
}

void CDrawItemVisitor::VisitOwnerDraw(CGCOwnerDrawColumn * column)
{
    Visit(column);
    if (IDrawOwnerDraw * const ownerDraw = pass.context.ownerDraw) {
        pass.lendPainter([&](KPainter * painter) {
            ownerDraw->DrawItem(painter, cell.row, column, cell.rects, cell.selected,
                                cell.focusCell);
        });
    }
}

void CDrawItemVisitor::VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column)
{
    Visit(column);
    drawCheckBox();
    drawImage();
    drawText(*column);
}

// What reaches beyond the cell is left out: the next column would cover it.
void CDrawItemVisitor::drawTreeLine(QRect const & line)
{
    if (line.isValid()) {
        pass.fill(line & cell.rects.cellRect, pass.lineColor);
    }
}

void CDrawItemVisitor::drawTreeLines()
{
    GC_DRAWROWINFO const & info = *cell.rowInfo;
    QRect const & room = cell.rects.cellRect;
    int const x = cell.rects.buttonRect.left() + buttonCentre;
    int const y = cell.rects.buttonRect.top() + buttonCentre;
    int const end = room.top() + room.height();
    int const from = info.firstRow ? y : room.top();
    int const to = info.lastChild ? y : end;
    drawTreeLine(QRect(x, from, 1, to - from));
    drawTreeLine(QRect(x, y, cell.rects.treeOffset, 1));
    if (info.hasChildren && info.expanded) {
        drawTreeLine(QRect(x + pass.context.indent, end - stubHeight, 1, stubHeight));
    }
}

// Drawn only when there is no rectangle for it, over the left top of the cell. Applications rely
// on it: cells too narrow for a lead image are marked by it. The edge and the ground that belong
// to it need a rectangle, so the picture comes alone.
void CDrawItemVisitor::drawLeadImage()
{
    if (cell.item.lead != -1 && cell.rects.leadRect.isNull()) {
        drawFrom(pass, KGridImages::Lead, cell.item.lead,
                 cell.rects.cellRect.topLeft() + QPoint(1, 1));
    }
}

void CDrawItemVisitor::drawImage()
{
    QRect const & rect = cell.rects.imageRect;
    if (cell.item.image < 0 || rect.isNull()) {
        return;
    }
    drawPart(pass, cell.useSelectedImages ? KGridImages::Selected : KGridImages::Normal,
             cell.item.image, rect);
    if (cell.item.overlay >= 0) {
        drawFrom(pass, KGridImages::Overlay, cell.item.overlay, rect.topLeft());
    }
    if (cell.item.state >= 0) {
        drawFrom(pass, KGridImages::State, cell.item.state, rect.topLeft());
    }
}

void CDrawItemVisitor::drawCheckBox()
{
    QRect rect = cell.rects.checkRect;
    if (rect.isNull()) {
        return;
    }
    if (cell.item.radio) {
        drawFrom(pass, KGridImages::Radio, cell.item.checked ? 1 : 0,
                 rect.topLeft() + QPoint(1, 1));
        return;
    }
    pass.fill(rect, cell.rowInfo->bkColor);
    pass.painter->drawEdge(&rect, sunkenEdge, cell.hover ? hotEdgeFlags : edgeFlags);
    if (cell.item.grayed || cell.item.checked) {
        drawFrom(pass, KGridImages::Buttons, cell.item.grayed ? GlyphGrayed : GlyphChecked,
                 rect.topLeft() + QPoint(1, 1));
    }
}

void CDrawItemVisitor::drawText(CGCColumn const & column)
{
    pass.drawText(cell.rects, itemAlignment(column), cell.item.textColor, *cell.rowInfo->GetFont());
}

} // namespace zenu
