#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"
#include "zenu/grid/frame/TreeWalk.h"

#include "zenu/grid/columns/CGCColumnKinds.h"
#include "zenu/header/KHeader.h"

#include <algorithm>
#include <utility>

namespace zenu {

namespace {

// Repaints each section it visits: a section draws across all columns.
class CInvalidateSection : public IGCRowVisitor
{
public:
    explicit CInvalidateSection(KGridCtrl::PrivateData * visitedFrame)
        : frame(visitedFrame)
    {
    }
    void VisitSection(CGCSection * row) override { frame->InvalidateRow(row); }

private:
    KGridCtrl::PrivateData * frame;
};

} // namespace

tag_HCOLUMN * KGridCtrl::PrivateData::InsertColumn(int index, GC_COLUMN const * record)
{
    if (IsTreeLocked()) {
        return GC_NOCOLUMN;
    }
    std::unique_ptr<CGCColumn> made =
        makeColumn(record->kind, static_cast<int>(nextColumnId), columns.count());
    if (!made) {
        return GC_NOCOLUMN;
    }
    ++nextColumnId;
    made->SetRecord(record);
    auto const count = static_cast<unsigned>(columns.count()) + 1;
    auto const position =
        static_cast<unsigned>(index) > count ? static_cast<int>(count) - 1 : index;
    for (CGCColumn * const other : columns.all()) {
        other->order += other->order >= position ? 1 : 0;
    }
    made->order = position;
    CGCColumn * const column = columns.add(std::move(made));
    tag_HCOLUMN * const handle = column->Handle();
    // Before the layout, which may ask the application: the column's items are there by then.
    forEachOrdinaryRow(rootRows.span(), [=](CGCOrdinaryRow * row) { row->AddColumnItem(column); });
    RebuildColumns();
    return handle;
}

bool KGridCtrl::PrivateData::DeleteColumn(CGCColumn * column)
{
    CellGuard const guard(this, nullptr, column);
    StopEditing();
    if (!guard.column() || IsTreeLocked()) {
        return false;
    }
    forEachOrdinaryRow(rootRows.span(),
                       [=](CGCOrdinaryRow * row) { row->RemoveColumnItem(column); });
    // By the order among all columns: with hidden ones in front another item goes. The next rebuild
    // of the header mends it.
    header->deleteItem(column->order);
    std::erase(shownColumns, column);
    std::unique_ptr<CGCColumn> const taken = columns.take(column->id);
    for (CGCColumn * const other : columns.all()) {
        other->order -= other->order > column->order ? 1 : 0;
    }
    PlaceColumns();
    PlaceHeader();
    UpdateHorizontalBar();
    Repaint();
    LayOutBars();
    return true;
}

void KGridCtrl::PrivateData::DeleteAllColumns()
{
    shownColumns.clear();
    columns.clear();
    header->deleteAllItems();
    focusColumn = -1;
    hScrollPos = 0;
    PlaceColumns();
    PlaceHeader();
    UpdateHorizontalBar();
    LayOutBars();
}

void KGridCtrl::PrivateData::ShowColumn(CGCColumn * column, bool show)
{
    if (column->IsHidden() != show || IsTreeLocked()) {
        return;
    }
    column->flags ^= GCCF_HIDDEN;
    RebuildColumns();
}

bool KGridCtrl::PrivateData::GetColumnOrder(tag_HCOLUMN ** handles, int count) const
{
    if (columns.count() == 0 || count < columns.count() || !handles) {
        return false;
    }
    std::vector<CGCColumn *> sorted(columns.all().begin(), columns.all().end());
    std::ranges::stable_sort(sorted, {}, &CGCColumn::order);
    std::ranges::transform(sorted, handles, &CGCColumn::Handle);
    return true;
}

bool KGridCtrl::PrivateData::SetColumnOrder(tag_HCOLUMN ** handles, int count)
{
    if (count != columns.count() || (count != 0 && !handles) || IsTreeLocked()) {
        return false;
    }
    for (int place = 0; place < count; ++place) {
        if (CGCColumn * const column = columns.find(handles[place])) {
            column->order = place;
        }
    }
    RebuildColumns();
    return true;
}

int KGridCtrl::PrivateData::ShownIndexOf(CGCColumn const * column) const
{
    auto const found = std::ranges::find(shownColumns, column);
    return found == shownColumns.end() ? -1 : static_cast<int>(found - shownColumns.begin());
}

CGCColumn * KGridCtrl::PrivateData::ShownColumn(int index) const
{
    return index >= 0 && static_cast<std::size_t>(index) < shownColumns.size()
               ? shownColumns[static_cast<std::size_t>(index)]
               : nullptr;
}

void KGridCtrl::PrivateData::RebuildColumns()
{
    CGCColumn * const focused = ShownColumn(focusColumn);
    shownColumns.clear();
    for (CGCColumn * const column : columns.all()) {
        if (!column->IsHidden()) {
            auto const place =
                std::ranges::upper_bound(shownColumns, column->order, {}, &CGCColumn::order);
            shownColumns.insert(place, column);
        }
    }
    if (int const index = focused ? ShownIndexOf(focused) : -1; index != -1) {
        focusColumn = index;
    }
    rebuildHeader();
    int const clientRight = ClientRect().right();
    if (header->isProportional()) {
        header->applyGeometry(QRect(QPoint(0, 0), QPoint(clientRight, 0)));
    }
    PlaceColumns();
    if (focusColumn >= static_cast<int>(shownColumns.size())) {
        focusColumn = static_cast<int>(shownColumns.size()) - 1;
    }
    if (contentsWidth - hScrollPos < clientRight) {
        hScrollPos = std::max(contentsWidth - clientRight, 0);
        RowGuard const guard(this, nullptr);
        EnsureColumnVisible(ShownColumn(focusColumn));
        if (!guard.hasGrid()) {
            return;
        }
    }
    PlaceHeader();
    UpdateHorizontalBar();
    Repaint();
    LayOutBars();
}

void KGridCtrl::PrivateData::PlaceColumns()
{
    if (header->isProportional()) {
        for (int i = 0; i < header->getItemsCount(); ++i) {
            KHeaderItem const * const item = header->getItem(i);
            if (CGCColumn * const column = columns.find(static_cast<int>(item->getLParam()))) {
                column->width = item->getWH();
            }
        }
    }
    long long left = 0;
    for (CGCColumn * const column : shownColumns) {
        column->left = static_cast<int>(std::clamp<long long>(left, 0, INT_MAX / 2));
        left += column->width;
    }
    contentsWidth = static_cast<int>(std::clamp<long long>(left, 0, INT_MAX / 2));
}

// Those that are not on display have nothing to repaint.
void KGridCtrl::PrivateData::invalidateShownSections()
{
    if (IsDirty()) {
        Repaint(); // what is on display is not known yet
        return;
    }
    CInvalidateSection sections(this);
    int const past = std::min(GetTopIndex() + GetShownCount(), GetCount());
    for (int i = GetTopIndex(); i < past; ++i) {
        GetRowAt(i)->Accept(&sections);
    }
}

void KGridCtrl::PrivateData::storeWidth(CGCColumn * column, int width, bool updateHeader)
{
    if (!header->isProportional()) {
        invalidateShownSections();
    }
    QRect changed = ClientRect();
    changed.setLeft(column->left - hScrollPos);
    Repaint(changed);
    column->width = width;
    if (updateHeader) {
        header->setWH(HeaderItemOf(column), width);
        header->update(false);
    }
    PlaceColumns();
    PlaceHeader();
    UpdateHorizontalBar();
    LayOutBars();
}

// The columns are laid out and the header is built anew; meanwhile the application may be asked.
// Null when the column, or the grid, is gone after that.
CGCColumn * KGridCtrl::PrivateData::changeKind(CGCColumn * column, int kind)
{
    CGCColumn * const before = column;
    auto const place = std::ranges::find(shownColumns, before);
    column = columns.replace(makeColumnFrom(kind, *before));
    if (place != shownColumns.end()) {
        *place = column;
    }
    forEachOrdinaryRow(rootRows.span(),
                       [=](CGCOrdinaryRow * row) { row->ColumnKindChanged(column); });
    tag_HCOLUMN * const handle = column->Handle();
    RowGuard const guard(this, nullptr);
    RebuildColumns();
    return guard.hasGrid() ? columns.find(handle) : nullptr;
}

bool KGridCtrl::PrivateData::SetColumn(CGCColumn * column, GC_COLUMN const * record,
                                       bool updateHeader)
{
    if ((record->mask & GCCM_WIDTH) && record->width != column->width) {
        tag_HCOLUMN * const handle = column->Handle();
        RowGuard const guard(this, nullptr);
        storeWidth(column, record->width, updateHeader);
        column = guard.hasGrid() ? columns.find(handle) : nullptr;
        if (!column) {
            return false;
        }
    }
    if (record->mask & GCCM_KIND) {
        if (static_cast<unsigned>(record->kind) >= GCCK_CHECKBOXWITHICON || IsTreeLocked()) {
            return false;
        }
        column = changeKind(column, record->kind);
        if (!column) {
            return false;
        }
    }
    if (record->mask & GCCM_TEXT) {
        header->setText(HeaderItemOf(column), record->text ? record->text : "");
    }
    updateHeaderFormat(column, record);
    column->SetRecord(record);
    if (record->mask & (GCCM_FORMAT | GCCM_FLAGS)) {
        Repaint();
    }
    return true;
}

} // namespace zenu
