#include "zenu/grid/KGridCtrl.h"

#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"
#include "zenu/grid/geometry/CElementRects.h"

#include <cstring>

namespace zenu {

bool KGridCtrl::GetItem(tag_HROW * row, tag_HCOLUMN * column, GC_ITEM * item) const
{
    IGCRow * const found = d->LocateRow(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    return found && foundColumn && item && d->GetItem(found, foundColumn, item);
}

bool KGridCtrl::SetItem(tag_HROW * row, tag_HCOLUMN * column, GC_ITEM * item)
{
    IGCRow * const found = d->LocateRow(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    return found && foundColumn && item && d->SetItem(found, foundColumn, item);
}

bool KGridCtrl::SetItem(tag_HROW * row, tag_HCOLUMN * column, unsigned int mask, char const * text,
                        int image, int state)
{
    GC_ITEM item;
    item.mask = mask;
    item.text = const_cast<char *>(text);
    item.image = image;
    item.state = static_cast<unsigned>(state);
    return SetItem(row, column, &item);
}

std::string KGridCtrl::GetItemText(tag_HROW * row, tag_HCOLUMN * column) const
{
    IGCRow * const found = d->LocateRow(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    char const * const text = found && foundColumn ? d->ItemText(found, foundColumn) : nullptr;
    return text ? text : "";
}

int KGridCtrl::GetItemTextLen(tag_HROW * row, tag_HCOLUMN * column) const
{
    IGCRow * const found = d->LocateRow(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    char const * const text = found && foundColumn ? d->ItemText(found, foundColumn) : nullptr;
    return text ? static_cast<int>(std::strlen(text)) : 0;
}

bool KGridCtrl::SetItemText(tag_HROW * row, tag_HCOLUMN * column, char const * text)
{
    return SetItem(row, column, GCIM_TEXT, text, 0, 0);
}

void KGridCtrl::InvalidateItem(tag_HROW * row, tag_HCOLUMN * column)
{
    std::as_const(*this).InvalidateItem(row, column);
}

void KGridCtrl::InvalidateItem(tag_HROW * row, tag_HCOLUMN * column) const
{
    IGCRow * const found = d->LocateRow(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    if (found && foundColumn) {
        d->InvalidateItem(found, foundColumn);
    }
}

bool KGridCtrl::SetTextCallback(GC_TEXTPROC proc, unsigned long cbParam)
{
    SetTextCBProc(proc, cbParam);
    return true;
}

void KGridCtrl::SetTextCBProc(GC_TEXTPROC proc, unsigned long cbParam)
{
    d->textProc = proc;
    d->textParam = cbParam;
}

bool KGridCtrl::GetItemRect(tag_HROW * row, tag_HCOLUMN * column, QRect * rect) const
{
    PrivateData & frame = *d;
    IGCRow * const found = frame.LocateSettled(row);
    CGCColumn * const foundColumn = frame.columns.find(column);
    if (!found || !foundColumn || !rect) {
        return false;
    }
    *rect = frame.ItemRect(found, foundColumn);
    return true;
}

bool KGridCtrl::GetItemEditorRect(tag_HROW * row, tag_HCOLUMN * column, QRect * rect) const
{
    PrivateData & frame = *d;
    IGCRow * const found = frame.LocateSettled(row);
    CGCColumn * const foundColumn = frame.columns.find(column);
    if (!found || !foundColumn || !rect) {
        return false;
    }
    CElementRects rects;
    *rect = frame.ElementRects(found, foundColumn, &rects) ? rects.editorRect : QRect();
    return true;
}

bool KGridCtrl::HitTest(QPoint const & point, tag_HROW ** row, tag_HCOLUMN ** column) const
{
    PrivateData::Hit const hit = d->HitTest(point);
    if (row) {
        *row = hit.row ? hit.row->Handle() : nullptr;
    }
    if (column) {
        *column = hit.column ? hit.column->Handle() : GC_NOCOLUMN;
    }
    return hit.row != nullptr;
}

tag_HROW * KGridCtrl::HitTest(QPoint const & point, GC_ITEM * item) const
{
    PrivateData & frame = *d;
    PrivateData::Hit const hit = frame.HitTest(point);
    if (!hit.row) {
        return nullptr;
    }
    if (item) {
        frame.GetItem(hit.row, hit.column, item);
    }
    return hit.row->Handle();
}

bool KGridCtrl::HitTestEx(QPoint const & point, GC_HITTESTEXINFO * info) const
{
    return info && HitTest(point, &info->row, &info->column);
}

void KGridCtrl::EnsureVisible(tag_HROW * row, tag_HCOLUMN * column)
{
    RowGuard const guard(d.get(), nullptr);
    if (IGCRow * const found = d->LocateSettled(row)) {
        d->EnsureRowVisible(found);
    }
    if (guard.hasGrid()) {
        d->EnsureColumnVisible(d->columns.find(column));
    }
}

bool KGridCtrl::EditItem(tag_HROW * row, tag_HCOLUMN * column)
{
    IGCRow * const found = d->LocateSettled(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    return found && foundColumn && d->EditCell(found, foundColumn);
}

bool KGridCtrl::EndEditItemNow(bool discard)
{
    return d->EndEdit(discard);
}

} // namespace zenu
