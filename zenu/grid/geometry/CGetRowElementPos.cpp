#include "zenu/grid/geometry/CGetRowElementPos.h"

#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/data/CheckState.h"
#include "zenu/grid/data/ItemText.h"
#include "zenu/grid/geometry/CGetElementPos.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/inner/SaturatedInt.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSection.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

namespace {

constexpr int margin = 2;
constexpr int buttonSize = 9;
constexpr int textGap = 6; // between a section's button and its text
constexpr int alignLeft = 1;

} // namespace

int cellLevel(IGCRow const & row, CGCColumn const & column, int known)
{
    if (!isIndented(column)) {
        return 0;
    }
    return known == -1 ? row.GetLevel() : known;
}

void layoutSection(CellInputs const & cellInputs, CElementRects * rects)
{
    CellInputs inputs = cellInputs;
    inputs.width = cellCoordinate(inputs.width);
    inputs.height = cellCoordinate(inputs.height);
    *rects = CElementRects();
    rects->cellRect.setRect(0, 0, inputs.width, inputs.height);
    int const right = inputs.width - margin;
    int start = margin;
    if (right - margin > buttonSize) {
        rects->buttonRect = QRect(margin, (inputs.height - buttonSize) / 2, buttonSize, buttonSize);
        start = rects->buttonRect.width() + textGap;
    }
    rects->editorRect = rects->cellRect;
    rects->editorRect.setLeft(start);
    rects->editorRect.setRight(right);
    placeTextInSpan(inputs, start, right, alignLeft, rects);
}

CGetRowElementPos::CGetRowElementPos(CDrawContext const & drawContext, bool hoverRow,
                                     CGCColumn * cellColumn, int rowY, int rowHeight)
    : context(drawContext)
    , isHoverRow(hoverRow)
    , column(cellColumn)
    , y(rowY)
    , height(rowHeight)
{
}

void CGetRowElementPos::VisitOrdinary(CGCOrdinaryRow * row)
{
    if (column == nullptr) {
        return;
    }
    KGetTextAndForget getText(row, context.textCallback);
    column->Accept(&getText);
    layoutCell(row, row->font, getText.text, getText.hideCheck);
}

void CGetRowElementPos::VisitSlim(CGCSlimRow * row)
{
    layoutSlim(row);
}

void CGetRowElementPos::VisitLonelySlim(CGCLonelySlimRow * row)
{
    layoutSlim(row);
}

void CGetRowElementPos::VisitSection(CGCSection * row)
{
    CellInputs inputs;
    inputs.texts = context.texts;
    inputs.font = row->font != nullptr ? row->font : context.font;
    inputs.text = row->Text();
    inputs.width = context.contentsWidth;
    inputs.height = height;
    layoutSection(inputs, &rects);
    rects.translate(0, y);
}

void CGetRowElementPos::layoutCell(IGCRow * row, QFont const * font, char const * text,
                                   bool hideCheck)
{
    CellInputs inputs;
    inputs.images = context.images;
    inputs.texts = context.texts;
    inputs.font = font != nullptr ? font : context.font;
    inputs.text = text;
    inputs.level = cellLevel(*row, *column, level);
    inputs.indent = context.indent;
    inputs.width = column->width;
    inputs.height = height;
    inputs.hover = isHoverRow && column->itemIndex == context.hoverColumn;
    inputs.hideCheck = hideCheck;
    CGetElementPos getPositions(inputs, &rects);
    column->Accept(&getPositions);
    rects.translate(column->left, y);
}

// The check box of a slim row is hidden by its item's draw record, so hit tests ask for it as
// painting does; of the other kinds nothing in the record moves an element.
void CGetRowElementPos::layoutSlim(IGCRow * row)
{
    ISlimGridCallbackWrapper * const slim = context.slimCallback;
    if (column == nullptr || slim == nullptr) {
        return;
    }
    GC_DRAWROWINFO rowInfo;
    rowInfo.bkColor = context.colors[GCC_BACKGROUND];
    rowInfo.textColor = context.colors[GCC_TEXT];
    rowInfo.SetFont(context.font);
    slim->GetRowDrawInfo(&rowInfo, row);
    GC_DRAWITEMINFO itemInfo;
    KHasCheckBox hasCheckBox;
    column->Accept(&hasCheckBox);
    if (hasCheckBox.result) {
        slim->GetItemDrawInfo(&itemInfo, row, column, false, false);
    }
    layoutCell(row, rowInfo.GetFont(), slim->GetItemText(row, column), itemInfo.hideCheck);
    slim->ReleaseRowDrawInfo(&rowInfo, row);
}

} // namespace zenu
