#include "zenu/grid/KGridCtrl.h"

#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include <algorithm>

namespace zenu {

KGridCtrl::iterator & KGridCtrl::iterator::operator++()
{
    row = grid ? grid->GetNextRow(stepping, row) : nullptr;
    return *this;
}

KGridCtrl::iterator KGridCtrl::iterator::operator++(int)
{
    iterator const before = *this;
    ++*this;
    return before;
}

KGridCtrl::iterator KGridCtrl::iterator::operator+(int steps) const
{
    iterator moved = *this;
    for (int i = 0; i < steps && moved.row; ++i) {
        ++moved;
    }
    return moved;
}

tag_HROW * KGridCtrl::InsertRow(GC_ROW * row, tag_HROW * after)
{
    return row ? d->InsertRow(row, after) : nullptr;
}

tag_HROW * KGridCtrl::InsertRow(tag_HROW * parent, tag_HROW * after)
{
    GC_ROW record;
    record.mask = GCRM_PARENT;
    record.parent = parent;
    return InsertRow(&record, after);
}

tag_HROW * KGridCtrl::InsertSection(char const * text, tag_HROW * after)
{
    return d->InsertSection(text, after);
}

tag_HROW * KGridCtrl::InsertSlimRow(long param, bool hasChildren, tag_HROW * parent,
                                    tag_HROW * after, int height)
{
    GC_SLIMROWDATA data;
    data.param = param;
    data.hasChildren = hasChildren;
    data.height = height;
    return InsertSlimRows(1, &data, parent, after) ? data.row : nullptr;
}

bool KGridCtrl::InsertSlimRow(GC_INSERTSLIMROW * rows, bool, tag_HROW *, tag_HROW *, int)
{
    return rows && d->InsertSlimRows(rows);
}

bool KGridCtrl::InsertSlimRows(int count, GC_SLIMROWDATA * rows, tag_HROW * parent,
                               tag_HROW * after)
{
    GC_INSERTSLIMROW record;
    record.parent = parent;
    record.after = after;
    record.count = count;
    record.rows = rows;
    return d->InsertSlimRows(&record);
}

bool KGridCtrl::DeleteRow(tag_HROW * row)
{
    IGCRow * const found = d->LocateRow(row);
    return found && d->DeleteRow(found);
}

bool KGridCtrl::DeleteAllRows()
{
    if (!d->DeleteAllRows()) {
        return false;
    }
    update();
    return true;
}

bool KGridCtrl::Reset()
{
    return d->Reset();
}

bool KGridCtrl::ResetSlimRow(tag_HROW * row)
{
    IGCRow * const found = d->LocateRow(row);
    return found && d->ResetSlimRow(found);
}

bool KGridCtrl::Expand(tag_HROW * row, unsigned int code)
{
    if (code == GCE_EXPANDALL || code == GCE_COLLAPSEALL) {
        d->ExpandTree(code);
        return true;
    }
    IGCRow * const found = d->LocateRow(row);
    if (found) {
        d->Expand(found, code);
    }
    return found != nullptr;
}

void KGridCtrl::Sort(tag_HCOLUMN * column, bool ascending)
{
    GC_SORT sort;
    sort.column = column;
    sort.ascending = ascending;
    d->Sort(&sort);
}

void KGridCtrl::Sort(GC_COMPAREPROC compare, long param)
{
    GC_SORT sort;
    sort.column = GC_NOCOLUMN;
    sort.compare = compare;
    sort.param = param;
    d->Sort(&sort);
}

void KGridCtrl::Sort(GC_SORT * sort)
{
    d->Sort(sort);
}

bool KGridCtrl::GetRow(tag_HROW * row, GC_ROW * record) const
{
    IGCRow * const found = d->LocateRow(row);
    return found && d->GetRowRecord(found, record, nullptr);
}

bool KGridCtrl::SetRow(tag_HROW * row, GC_ROW * record)
{
    IGCRow * const found = d->LocateRow(row);
    return found && record && d->SetRowRecord(found, record, nullptr);
}

bool KGridCtrl::GetSection(tag_HROW * row, GC_SECTION * record) const
{
    IGCRow * const found = d->LocateRow(row);
    return found && d->GetRowRecord(found, record, record);
}

bool KGridCtrl::SetSection(tag_HROW * row, GC_SECTION * record)
{
    IGCRow * const found = d->LocateRow(row);
    return found && record && d->SetRowRecord(found, record, record);
}

bool KGridCtrl::GetSectionText(tag_HROW * row, char * text, int size) const
{
    GC_SECTION record; // with an empty mask: the title is not read
    record.text = text;
    record.textMax = size;
    return GetSection(row, &record);
}

bool KGridCtrl::SetSectionText(tag_HROW * row, char const * text)
{
    GC_SECTION record; // with an empty mask: the title is not written
    record.text = const_cast<char *>(text);
    return SetSection(row, &record);
}

unsigned long KGridCtrl::GetRowParam(tag_HROW * row) const
{
    IGCRow const * const found = d->LocateRow(row);
    return found ? found->param : 0;
}

bool KGridCtrl::SetRowParam(tag_HROW * row, unsigned long param)
{
    IGCRow * const found = d->LocateRow(row);
    if (found) {
        found->param = param;
    }
    return found != nullptr;
}

unsigned int KGridCtrl::GetRowHeight(tag_HROW * row) const
{
    IGCRow const * const found = d->LocateRow(row);
    return found && d->IsRowVisible(found) ? static_cast<unsigned>(d->GetRowHeight(found)) : 0;
}

bool KGridCtrl::SetRowHeight(tag_HROW * row, int height)
{
    IGCRow * const found = d->LocateRow(row);
    if (found) {
        d->SetRowHeight(found, height);
    }
    return found != nullptr;
}

bool KGridCtrl::GetRowRect(tag_HROW * row, QRect * rect) const
{
    IGCRow * const found = d->LocateSettled(row);
    if (!found || !rect) {
        return false;
    }
    *rect = d->RowRect(found);
    return true;
}

QColor KGridCtrl::GetRowTextColor(tag_HROW * row) const
{
    GC_ROW record;
    return GetRow(row, &record) ? record.textColor : QColor(Qt::black);
}

QColor KGridCtrl::GetRowBkColor(tag_HROW * row) const
{
    GC_ROW record;
    return GetRow(row, &record) ? record.bkColor : QColor(Qt::black);
}

bool KGridCtrl::SetRowTextColor(tag_HROW * row, QColor const & color)
{
    GC_ROW record;
    record.mask = GCRM_TEXTCOLOR;
    record.textColor = color;
    return SetRow(row, &record);
}

bool KGridCtrl::SetRowBkColor(tag_HROW * row, QColor const & color)
{
    GC_ROW record;
    record.mask = GCRM_TEXTCOLOR; // not the background's
    record.bkColor = color;
    return SetRow(row, &record);
}

void KGridCtrl::InvalidateRow(tag_HROW * row)
{
    if (IGCRow * const found = d->LocateRow(row)) {
        d->InvalidateRow(found);
    }
}

unsigned int KGridCtrl::GetRowCount() const
{
    return static_cast<unsigned>(d->locator->GetCount());
}

unsigned int KGridCtrl::GetExpandedCount() const
{
    return static_cast<unsigned>(d->GetCount());
}

unsigned int KGridCtrl::GetVisibleCount() const
{
    return static_cast<unsigned>(d->GetShownCount());
}

unsigned int KGridCtrl::GetSelectedCount() const
{
    return static_cast<unsigned>(d->selection.count());
}

tag_HROW * KGridCtrl::GetTopIndex() const
{
    IGCRow const * const row = d->GetRowAt(d->GetTopIndex());
    return row ? row->Handle() : nullptr;
}

tag_HROW * KGridCtrl::GetBottomIndex() const
{
    IGCRow const * const row = d->GetRowAt(d->GetLastShownIndex());
    return row ? row->Handle() : nullptr;
}

tag_HROW * KGridCtrl::GetNextRow(unsigned int flags, tag_HROW * row) const
{
    return d->NextRow(flags, row);
}

void KGridCtrl::UpdateVisibleRows()
{
    d->UpdateNow();
}

KGridCtrl::iterator KGridCtrl::begin(unsigned int flags, tag_HROW * row)
{
    return std::as_const(*this).begin(flags, row);
}

KGridCtrl::const_iterator KGridCtrl::begin(unsigned int flags, tag_HROW * row) const
{
    constexpr unsigned walks[] = {GCN_ALL_FIRST, GCN_CHILD_FIRST, GCN_SHOWN_FIRST,
                                  GCN_SELECTED_FIRST, GCN_VISIBLE_FIRST};
    const_iterator walk;
    walk.row = GetNextRow(flags, row);
    walk.stepping = std::ranges::find(walks, flags) == std::end(walks) ? 0 : flags + 1;
    walk.grid = this;
    return walk;
}

KGridCtrl::iterator KGridCtrl::end()
{
    return std::as_const(*this).end();
}

KGridCtrl::const_iterator KGridCtrl::end() const
{
    static const_iterator const past;
    return past;
}

void KGridCtrl::ClearSelection()
{
    d->ClearSelectedRows();
    d->TellSelectionChanged();
}

void KGridCtrl::SelectAll()
{
    PrivateData & frame = *d;
    frame.SelectAllVisible();
    frame.TellSelectionChanged();
}

void KGridCtrl::SelectRows(int count, tag_HROW ** rows)
{
    std::vector<IGCRow *> found;
    for (int i = 0; rows && i < count; ++i) {
        IGCRow * const row = d->LocateRow(rows[i]);
        if (!row) {
            break;
        }
        found.push_back(row);
    }
    d->AddToSelection(found);
    d->TellSelectionChanged();
}

bool KGridCtrl::SetRowSel(tag_HROW * row, bool select)
{
    if (d->shownColumns.empty()) {
        return false;
    }
    // Only the focus needs the visible order; a loop that deselects does not rebuild it.
    IGCRow * const found = select ? d->LocateSettled(row) : d->LocateRow(row);
    if (!found) {
        return false;
    }
    RowGuard const guard(d.get(), found);
    if (select) {
        d->MoveFocus(d->IndexOf(found), d->ShownColumn(d->focusColumn) ? d->focusColumn : 0);
        if (!guard.hasRow()) {
            return false;
        }
        d->AddToSelection({&found, 1});
    } else {
        d->RemoveFromSelection(found);
    }
    d->TellSelectionChanged();
    return true;
}

bool KGridCtrl::DrawDragIndicator(tag_HROW * row, bool after)
{
    return d->DrawDragIndicator(row, after);
}

} // namespace zenu
