#include "zenu/grid/KGridCtrl.h"

#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/header/KHeader.h"

namespace zenu {

tag_HCOLUMN * KGridCtrl::AddColumn(GC_COLUMN const * column)
{
    return InsertColumn(-1, column);
}

tag_HCOLUMN * KGridCtrl::AddColumn(char const * text, int format, int width)
{
    GC_COLUMN record;
    record.mask = GCCM_FORMAT | GCCM_TEXT | GCCM_WIDTH;
    record.text = const_cast<char *>(text);
    record.format = format;
    record.width = width;
    return AddColumn(&record);
}

tag_HCOLUMN * KGridCtrl::InsertColumn(int index, GC_COLUMN const * column)
{
    return column ? d->InsertColumn(index, column) : GC_NOCOLUMN;
}

tag_HCOLUMN * KGridCtrl::InsertColumn(int index, char const * text, int /*ignored*/, int width)
{
    GC_COLUMN record;
    record.mask = GCCM_FORMAT | GCCM_TEXT | GCCM_WIDTH;
    record.text = const_cast<char *>(text);
    record.format = 1;
    record.width = width;
    return InsertColumn(index, &record);
}

bool KGridCtrl::DeleteColumn(tag_HCOLUMN * column)
{
    CGCColumn * const found = d->columns.find(column);
    return found && d->DeleteColumn(found);
}

bool KGridCtrl::SetColumn(tag_HCOLUMN * column, GC_COLUMN const * record)
{
    CGCColumn * const found = d->columns.find(column);
    return found && record && d->SetColumn(found, record, true);
}

bool KGridCtrl::GetColumn(tag_HCOLUMN * column, GC_COLUMN * record) const
{
    CGCColumn const * const found = d->columns.find(column);
    if (!found || !record) {
        return false;
    }
    found->GetRecord(record);
    return true;
}

int KGridCtrl::GetColumnsCount() const
{
    return d->columns.count();
}

int KGridCtrl::GetColumnWidth(tag_HCOLUMN * column) const
{
    CGCColumn const * const found = d->columns.find(column);
    return found ? found->width : 0;
}

bool KGridCtrl::SetColumnWidth(tag_HCOLUMN * column, int width)
{
    GC_COLUMN record;
    record.mask = GCCM_WIDTH;
    record.width = width;
    return SetColumn(column, &record);
}

int KGridCtrl::BestFit(tag_HCOLUMN * column) const
{
    return d->BestFit(column);
}

void KGridCtrl::ShowColumn(tag_HCOLUMN * column, bool show)
{
    if (CGCColumn * const found = d->columns.find(column)) {
        d->ShowColumn(found, show);
    }
}

bool KGridCtrl::GetColumnOrderArray(tag_HCOLUMN ** columns, int count) const
{
    return d->GetColumnOrder(columns, count);
}

bool KGridCtrl::SetColumnOrderArray(tag_HCOLUMN ** columns, int count)
{
    return d->SetColumnOrder(columns, count);
}

tag_HCOLUMN * KGridCtrl::HeaderItem2Column(int index) const
{
    KHeaderItem const * const item = d->header->getItem(index);
    return item ? columnHandle(static_cast<int>(item->getLParam())) : GC_NOCOLUMN;
}

int KGridCtrl::Column2HeaderItem(tag_HCOLUMN * column) const
{
    CGCColumn const * const found = d->columns.find(column);
    return found ? d->HeaderItemOf(found) : -1;
}

tag_HCOLUMN * KGridCtrl::GetFocusedColumn() const
{
    CGCColumn const * const column = d->ShownColumn(d->focusColumn);
    return column ? column->Handle() : GC_NOCOLUMN;
}

tag_HCOLUMN * KGridCtrl::SetFocusedColumn(tag_HCOLUMN * column)
{
    tag_HCOLUMN * const before = GetFocusedColumn();
    if (CGCColumn const * const found = d->columns.find(column)) {
        d->focusColumn = found->itemIndex;
    }
    return before;
}

void KGridCtrl::InvalidateColumn(tag_HCOLUMN * column)
{
    if (CGCColumn * const found = d->columns.find(column)) {
        d->InvalidateColumn(found);
    }
}

KHeader * KGridCtrl::getHeader() const
{
    return d->header;
}

} // namespace zenu
