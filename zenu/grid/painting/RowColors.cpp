#include "zenu/grid/painting/RowColors.h"

#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/look/CDrawContext.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"

namespace zenu {

SelectionLook selectionLook(CDrawContext const & context, bool selected)
{
    if (!selected) {
        return SelectionLook::None;
    }
    if (context.hasFocus) {
        return SelectionLook::Active;
    }
    return context.showSelectionInactive ? SelectionLook::Inactive : SelectionLook::None;
}

RowColors underSelection(RowColors const & colors, CDrawContext const & context, SelectionLook look)
{
    switch (look) {
    case SelectionLook::None:
        break;
    case SelectionLook::Active:
        return {context.colors[GCC_SELTEXT], context.colors[GCC_SELBACKGROUND]};
    case SelectionLook::Inactive:
        return {context.colors[GCC_INACTIVESELTEXT], context.colors[GCC_INACTIVESELBACKGROUND]};
    }
    return colors;
}

SectionColors sectionColors(CDrawContext const & context, RowColors const & base,
                            SelectionLook look)
{
    GridColors const & colors = context.colors;
    switch (look) {
    case SelectionLook::None:
        break;
    case SelectionLook::Active:
        return {colors[GCC_SELSECTIONTEXT], colors[GCC_SELSECTIONBACKGROUND],
                colors[GCC_SELSECTIONTOP], colors[GCC_SELSECTIONBOTTOM]};
    case SelectionLook::Inactive:
        return {colors[GCC_INACTIVESELSECTIONTEXT], colors[GCC_INACTIVESELSECTIONBACKGROUND],
                colors[GCC_INACTIVESELSECTIONTOP], colors[GCC_INACTIVESELSECTIONBOTTOM]};
    }
    return {base.text, base.background, colors[GCC_SECTIONTOP], colors[GCC_SECTIONBOTTOM]};
}

GC_DRAWROWINFO defaultRowInfo(CDrawContext const & context)
{
    GC_DRAWROWINFO info;
    info.textColor = context.colors[GCC_TEXT];
    info.bkColor = context.colors[GCC_BACKGROUND];
    info.SetFont(context.font);
    return info;
}

GC_DRAWROWINFO ordinaryRowInfo(CDrawContext const & context, CGCOrdinaryRow const & row)
{
    GC_DRAWROWINFO info = defaultRowInfo(context);
    if (row.textColor != GC_UNSETCOLOR) {
        info.textColor = QColor::fromRgb(row.textColor);
    }
    if (row.bkColor != GC_UNSETCOLOR) {
        info.bkColor = QColor::fromRgb(row.bkColor);
    }
    if (row.font) {
        info.SetFont(row.font);
    }
    return info;
}

bool isFocusCell(CDrawContext const & context, CGCColumn const & column, bool focusedRow)
{
    return focusedRow && !context.fullRowSelect && column.itemIndex == context.focusColumn;
}

} // namespace zenu
