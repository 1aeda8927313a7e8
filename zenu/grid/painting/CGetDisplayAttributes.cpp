#include "zenu/grid/painting/CGetDisplayAttributes.h"

#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/painting/KGetDrawItemInfo.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

CGetDisplayAttributes::CGetDisplayAttributes(CDrawContext const & drawContext,
                                             CGCColumn * cellColumn, bool selected,
                                             bool focusColumnRow)
    : textColor(drawContext.colors[GCC_TEXT])
    , bkColor(drawContext.colors[GCC_BACKGROUND])
    , font(*drawContext.font)
    , context(drawContext)
    , column(cellColumn)
    , isSelected(selected)
    , isFocus(isFocusCell(drawContext, *cellColumn, focusColumnRow))
    , look(selectionLook(drawContext, selected))
{
}

void CGetDisplayAttributes::VisitOrdinary(CGCOrdinaryRow * row)
{
    GC_DRAWITEMINFO item = applyRow(ordinaryRowInfo(context, *row));
    KGetDrawItemInfo getInfo(row->ItemOf(column), look == SelectionLook::None, &item);
    column->Accept(&getInfo);
    textColor = item.textColor;
}

void CGetDisplayAttributes::VisitSlim(CGCSlimRow * row)
{
    askSlim(row);
}

void CGetDisplayAttributes::VisitLonelySlim(CGCLonelySlimRow * row)
{
    askSlim(row);
}

GC_DRAWITEMINFO CGetDisplayAttributes::applyRow(GC_DRAWROWINFO const & info)
{
    RowColors const shown = underSelection({info.textColor, info.bkColor}, context, look);
    bkColor = shown.background;
    font = info.GetFont() ? *info.GetFont() : *context.font;
    GC_DRAWITEMINFO item;
    item.textColor = isFocus ? context.colors[GCC_TEXT] : shown.text;
    return item;
}

void CGetDisplayAttributes::askSlim(IGCRow * row)
{
    if (!context.slimCallback) {
        return;
    }
    GC_DRAWROWINFO info = defaultRowInfo(context);
    context.slimCallback->GetRowDrawInfo(&info, row);
    GC_DRAWITEMINFO item = applyRow(info);
    context.slimCallback->GetItemDrawInfo(&item, row, column, isSelected, isFocus);
    context.slimCallback->ReleaseRowDrawInfo(&info, row);
    textColor = item.textColor;
}

} // namespace zenu
