#include "zenu/grid/editing/CheckFlip.h"

#include "zenu/grid/columns/CGCColumn.h"
#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/rows/CGCOrdinaryRow.h"
#include "zenu/grid/rows/CGCSlimRow.h"

namespace zenu {

namespace {

constexpr int checkedValue = 1;

} // namespace

void KGetItemState::read()
{
    result = item->hasState(GCIS_CHECKED) ? checkedValue : 0;
}

void KCheckItem::write()
{
    item->setState(GCIS_CHECKED, value == checkedValue);
}

void CIsItemChecked::VisitOrdinary(CGCOrdinaryRow * row)
{
    if (GridItem const * const item = row->ItemOf(column)) {
        KGetItemState getState(item);
        column->Accept(&getState);
        result = getState.result;
    }
}

void CIsItemChecked::VisitSlim(CGCSlimRow * row)
{
    result = wrapper->IsItemChecked(row, column);
}

void CIsItemChecked::VisitLonelySlim(CGCLonelySlimRow * row)
{
    result = wrapper->IsItemChecked(row, column);
}

void CSwitchCheckBoxItem::VisitOrdinary(CGCOrdinaryRow * row)
{
    if (GridItem * const item = row->ItemOf(column)) {
        KCheckItem check(item, value);
        column->Accept(&check);
    }
}

void CSwitchCheckBoxItem::VisitSlim(CGCSlimRow * row)
{
    wrapper->SetItemCheck(row, column, value == checkedValue);
}

void CSwitchCheckBoxItem::VisitLonelySlim(CGCLonelySlimRow * row)
{
    wrapper->SetItemCheck(row, column, value == checkedValue);
}

} // namespace zenu
