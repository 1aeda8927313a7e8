#include "zenu/grid/KGridCtrl.h"

#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"
#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/header/KHeader.h"

#include <QApplication>
#include <QPaintEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstring>

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

KGridCtrl::KGridCtrl(QWidget * parent, int id, char const * name, unsigned int flags, long style,
                     long /*reserved*/)
    : KScrolledWidget(parent, name, flags)
    , d(std::make_unique<PrivateData>(this, id))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAcceptDrops(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    // Columns run from left to right in every locale, and so must the bar that shows where they
    // are.
    getHScrollBar()->setLayoutDirection(Qt::LeftToRight);
    d->style = static_cast<unsigned>(style);
    d->font = QApplication::font();
    d->ComputeAutoHeight();
    d->toolTip = std::make_unique<KToolTip>(this);
    d->CreateHeader();
}

KGridCtrl::~KGridCtrl() = default;

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
    CGCColumn * const found = d->columns.find(column);
    return found ? d->BestFit(found) : 0;
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

void KGridCtrl::SetFocusedColumn(tag_HCOLUMN * column)
{
    if (CGCColumn const * const found = d->columns.find(column)) {
        d->focusColumn = found->itemIndex;
    }
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
    IGCRow * const found = d->LocateSettled(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    if (!found || !foundColumn || !rect) {
        return false;
    }
    *rect = d->ItemRect(found, foundColumn);
    return true;
}

bool KGridCtrl::GetItemEditorRect(tag_HROW * row, tag_HCOLUMN * column, QRect * rect) const
{
    IGCRow * const found = d->LocateSettled(row);
    CGCColumn * const foundColumn = d->columns.find(column);
    if (!found || !foundColumn || !rect) {
        return false;
    }
    CElementRects rects;
    *rect = d->ElementRects(found, foundColumn, &rects) ? rects.editorRect : QRect();
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
    PrivateData::Hit const hit = d->HitTest(point);
    if (!hit.row) {
        return nullptr;
    }
    if (item) {
        d->GetItem(hit.row, hit.column, item);
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

void KGridCtrl::ClearSelection()
{
    d->ClearSelectedRows();
    d->TellSelectionChanged();
}

void KGridCtrl::SelectAll()
{
    d->SelectAllVisible();
    d->TellSelectionChanged();
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

QColor KGridCtrl::GetColor(int number) const
{
    return d->colors.get(number);
}

QColor KGridCtrl::SetColor(int number, QColor const & color)
{
    return d->SwapColor(number, color);
}

QColor KGridCtrl::GetTextColor() const
{
    return GetColor(GCC_TEXT);
}

QColor KGridCtrl::SetTextColor(QColor const & color)
{
    return SetColor(GCC_TEXT, color);
}

QColor KGridCtrl::GetBkColor() const
{
    return GetColor(GCC_BACKGROUND);
}

QColor KGridCtrl::SetBkColor(QColor const & color)
{
    return SetColor(GCC_BACKGROUND, color);
}

QColor KGridCtrl::GetSepColor() const
{
    return GetColor(GCC_SEPARATOR);
}

QColor KGridCtrl::SetSepColor(QColor const & color)
{
    return SetColor(GCC_SEPARATOR, color);
}

int KGridCtrl::GetDefaultHeight() const
{
    return d->DefaultHeight();
}

void KGridCtrl::SetDefaultHeight(int height)
{
    d->defaultHeight = height;
}

int KGridCtrl::GetIndent() const
{
    return d->Indent();
}

void KGridCtrl::SetIndent(unsigned int indent)
{
    d->indent = static_cast<int>(indent);
    update();
}

int KGridCtrl::GetHScrollDelta() const
{
    return d->hScrollDelta;
}

void KGridCtrl::SetHScrollDelta(int delta)
{
    d->hScrollDelta = delta;
}

KPixmapSet * KGridCtrl::GetImageList(int list) const
{
    return d->images.list(list);
}

void KGridCtrl::SetImageList(int list, QPixmap const & strip, int width, int height, int count,
                             bool useMask)
{
    d->SetImages(list, strip, QSize(width, height), count, useMask);
}

unsigned long KGridCtrl::GetExStyle() const
{
    return GetGridExStyle();
}

unsigned long KGridCtrl::SetExStyle(unsigned long style)
{
    return SetGridExStyle(style);
}

unsigned long KGridCtrl::GetGridExStyle() const
{
    return d->gridExStyle;
}

unsigned long KGridCtrl::SetGridExStyle(unsigned long style)
{
    return d->SetExtendedStyle(style);
}

void KGridCtrl::setNotification(IGridNotification * notification)
{
    d->notification = notification;
}

IGridNotification * KGridCtrl::getNotification() const
{
    return d->notification;
}

void KGridCtrl::SetSlimGridCallback(ISlimGridCallback * callback)
{
    d->slimCallback = callback;
}

ISlimGridCallback * KGridCtrl::GetSlimGridCallback() const
{
    return d->slimCallback;
}

bool KGridCtrl::AssertValid() const
{
    return true;
}

void KGridCtrl::SetRedraw(bool) {}

bool KGridCtrl::OnScroll(int hCode, int vCode, unsigned int pos, bool doScroll)
{
    return d->updatingBars || d->Scroll(hCode, vCode, pos, doScroll);
}

int KGridCtrl::contentsWidth() const
{
    return d->contentsWidth;
}

int KGridCtrl::contentsHeight() const
{
    long long const rows = d->GetTotalHeight();
    return static_cast<int>(
        std::min<long long>(rows + (d->HasStyle(GCS_NOHEADER) ? 0 : d->headerHeight), INT_MAX));
}

void KGridCtrl::paintEvent(QPaintEvent * event)
{
    d->Paint(event->region());
}

void KGridCtrl::resizeEvent(QResizeEvent * event)
{
    KScrolledWidget::resizeEvent(event);
    d->Resized(event);
}

void KGridCtrl::showEvent(QShowEvent * event)
{
    KScrolledWidget::showEvent(event);
    d->shown = true;
    d->ComputeAutoHeight();
    d->UpdateNow();
}

void KGridCtrl::hideEvent(QHideEvent * event)
{
    KScrolledWidget::hideEvent(event);
    d->shown = false;
    d->ComputeAutoHeight();
}

void KGridCtrl::changeEvent(QEvent * event)
{
    KScrolledWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        d->LookChanged();
    }
}

} // namespace zenu
