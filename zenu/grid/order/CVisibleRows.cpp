#include "zenu/grid/order/CVisibleRows.h"

#include "zenu/grid/inner/ISlimGridCallbackWrapper.h"
#include "zenu/grid/order/CSimilarRows.h"
#include "zenu/grid/order/CVariousRows.h"
#include "zenu/grid/order/CVisibleRowsIterator.h"
#include "zenu/grid/order/OrderFill.h"
#include "zenu/grid/order/RowSearch.h"

#include <QScopedValueRollback>

#include <utility>

namespace zenu {

namespace {

constexpr int largestTellCount = 4;

// Positions as either form keeps them.
struct VariousPositions
{
    CVariousRows const & rows;
    long long totalHeight;

    int count() const { return rows.GetCount(); }
    long long topOf(int index) const { return rows.GetTopOf(index); }
    long long bottomOf(int index) const
    {
        return index + 1 < rows.GetCount() ? rows.GetTopOf(index + 1) : totalHeight;
    }
    int search(long long y, int low, int high) const
    {
        return RowSearch::binarySearch(*this, y, low, high);
    }
};

} // namespace

struct CVisibleRows::Record
{
    explicit Record(ISlimGridCallbackWrapper * callback)
        : various(callback)
        , similar(callback)
        , wrapper(callback)
    {
    }

    // Calls `work` with the positions of the form in use.
    template <typename Work>
    auto withPositions(Work && work) const
    {
        if (order == &similar) {
            return work(
                RowSearch::UniformPositions{similar.GetCount(), wrapper->GetDefaultRowHeight()});
        }
        return work(VariousPositions{various, totalHeight});
    }

    CVariousRows various;
    CSimilarRows similar;
    IRowsOrder * order = &similar; // while a rebuild fills one form, the other, which is empty
    RowHeights heights;
    int topY = 0;
    long long totalHeight = 0;
    int topIndex = 0;
    int shownCount = 0;
    IGCRow * topRow = nullptr; // the row at topIndex, null once it is forgotten
    IGCRow * focusRow = nullptr;
    std::unique_ptr<CVisibleRowsIterator> shownWalk;
    std::unique_ptr<CVisibleRowsIterator> visibleWalk;
    ISlimGridCallbackWrapper * wrapper;
    bool layoutDirty = false;
    bool heightsDirty = false;
    bool heightsChanged = false; // by a call from within the rebuild
    bool rebuilding = false;
    bool telling = false;
    bool untoldRebuild = false;
    bool untoldTopRow = false;
};

CVisibleRows::CVisibleRows(ISlimGridCallbackWrapper * wrapper)
    : record(std::make_unique<Record>(wrapper))
{
}

CVisibleRows::~CVisibleRows() = default;

bool CVisibleRows::IsLastChildAt(int index)
{
    return IsLastChild(GetRowAt(index));
}

bool CVisibleRows::IsLastChild(IGCRow const * row) const
{
    return row && row->IsLastChild();
}

bool CVisibleRows::Invalidate()
{
    record->layoutDirty = true;
    record->heightsDirty = true;
    return true;
}

void CVisibleRows::InvalidateHeights()
{
    record->heightsDirty = true;
}

void CVisibleRows::UpdateNow()
{
    if ((record->layoutDirty || record->heightsDirty) && !record->rebuilding) {
        updateLayout();
    }
}

bool CVisibleRows::IsDirty() const
{
    return record->layoutDirty;
}

bool CVisibleRows::IsRebuilding() const
{
    return record->rebuilding;
}

void CVisibleRows::updateLayout()
{
    if (!record->layoutDirty) {
        computeHeights();
        record->topY = isIndex(record->topIndex) ? GetTopOf(record->topIndex) : 0;
        return;
    }
    bool const topRowChanged = rebuild();
    if (record->telling) {
        record->untoldRebuild = true;
        record->untoldTopRow |= topRowChanged;
    } else {
        tellOfRebuild(topRowChanged);
    }
}

// The application may change the grid in each of these calls, and read it, which rebuilds again;
// whoever does the telling then tells of that as well. The order is clean at the end in any case,
// since the reader who asked for it is about to use it.
void CVisibleRows::tellOfRebuild(bool topRowChanged)
{
    QScopedValueRollback<bool> const guard(record->telling, true);
    for (int told = 1;; ++told) {
        record->untoldRebuild = false;
        record->untoldTopRow = false;
        if (topRowChanged) {
            OnTopRowChanging(record->topRow);
        }
        OnRowsLaidOut();
        if (topRowChanged) {
            OnTopRowChanged();
        }
        UpdateNow();
        if (!record->untoldRebuild || told == largestTellCount) {
            return;
        }
        topRowChanged = record->untoldTopRow;
    }
}

// True when the top row is another one now.
bool CVisibleRows::rebuild()
{
    IGCRow * const oldTopRow = record->topRow;
    {
        QScopedValueRollback<bool> const guard(record->rebuilding, true);
        DropWalks();
        // The focused row is not scrolled back into view, wherever the change has put it: its old
        // index is gone before anything could tell whether it was on display.
        fillOrder();
        if (record->order->GetCount() == 0) {
            record->topRow = nullptr;
            record->totalHeight = 0;
            record->topIndex = 0;
            record->topY = 0;
        } else {
            computeHeights();
            int const pageHeight = GetPageHeight();
            int const limit = record->withPositions(
                [=](auto const & rows) { return RowSearch::largestTopIndex(rows, pageHeight); });
            placeTop(std::min(record->topIndex, limit));
        }
        record->layoutDirty = record->heightsChanged;
        record->heightsDirty = record->heightsChanged;
    }
    return record->order->GetCount() != 0 && record->topRow != oldTopRow;
}

// Puts the row that was on top, where it still is one, under topIndex. Whoever asks meanwhile sees
// an empty order. Not the old one: its rows may be dead.
void CVisibleRows::fillOrder()
{
    record->similar.Clear();
    record->various.Clear();
    record->shownCount = 0;
    record->heightsChanged = false;
    bool const uniform = record->heights.empty();
    record->order = uniform ? static_cast<IRowsOrder *>(&record->various) : &record->similar;

    OrderFill fill(this, record->wrapper);
    int keptIndex = -1;
    if (uniform) {
        record->various.Trim();
        keptIndex = fill.FillRows(record->similar, record->topRow);
        record->order = &record->similar;
    } else {
        record->similar.Trim();
        keptIndex = fill.FillRows(record->various, record->topRow);
        record->order = &record->various;
    }
    if (keptIndex >= 0) {
        record->topIndex = keptIndex;
    }
}

void CVisibleRows::computeHeights()
{
    record->totalHeight = record->order->ComputeTotalHeight(record->heights);
    record->heightsDirty = false;
}

void CVisibleRows::placeTop(int index)
{
    record->topIndex = index;
    record->topRow = record->order->GetRowAt(index);
    record->topY = RowSearch::toInt(record->order->GetTopOf(index));
    int const pageHeight = GetPageHeight();
    bool const wholeRowsOnly = IsWholeRowsOnly();
    record->shownCount = record->withPositions([=](auto const & rows) {
        return RowSearch::visibleCountFrom(rows, index, pageHeight, wholeRowsOnly);
    });
}

bool CVisibleRows::isIndex(int index) const
{
    return index >= 0 && index < record->order->GetCount();
}

int CVisibleRows::GetCount()
{
    UpdateNow();
    return record->order->GetCount();
}

bool CVisibleRows::IsEmpty()
{
    return GetCount() == 0;
}

IGCRow * CVisibleRows::GetRowAt(int index)
{
    UpdateNow();
    return isIndex(index) ? record->order->GetRowAt(index) : nullptr;
}

int CVisibleRows::IndexOf(IGCRow const * row)
{
    UpdateNow();
    int const index = row ? row->SignedVisibleIndex() : -1;
    return isIndex(index) && record->order->GetRowAt(index) == row ? index : -1;
}

int CVisibleRows::GetTopOf(int index)
{
    UpdateNow();
    return isIndex(index) ? RowSearch::toInt(record->order->GetTopOf(index)) : 0;
}

int CVisibleRows::GetHeightAt(int index)
{
    UpdateNow();
    return isIndex(index) ? GetRowHeight(record->order->GetRowAt(index)) : 0;
}

int CVisibleRows::GetTotalHeight()
{
    UpdateNow();
    return RowSearch::toInt(record->totalHeight);
}

int CVisibleRows::GetRowHeight(IGCRow const * row) const
{
    if (!record->heights.empty()) {
        auto const found = record->heights.find(row);
        if (found != record->heights.end()) {
            return found->second;
        }
    }
    return record->wrapper->GetDefaultRowHeight();
}

void CVisibleRows::SetRowHeight(IGCRow const * row, int height)
{
    if (row) {
        record->heights[row] = height;
        record->heightsChanged = true;
        Invalidate();
    }
}

void CVisibleRows::ResetRowHeight(IGCRow const * row)
{
    record->heights.erase(row);
    record->heightsChanged = true;
    Invalidate();
}

void CVisibleRows::ClearHeights()
{
    if (!record->heights.empty()) {
        record->heights.clear();
        record->heightsChanged = true;
        Invalidate();
    }
}

bool CVisibleRows::HasExplicitHeights() const
{
    return !record->heights.empty();
}

void CVisibleRows::Forget(IGCRow const * row)
{
    if (record->focusRow == row) {
        record->focusRow = nullptr;
    }
    if (record->topRow == row) {
        record->topRow = nullptr;
    }
    if (!record->heights.empty()) {
        record->heights.erase(row);
    }
}

void CVisibleRows::ForgetAll()
{
    record->focusRow = nullptr;
    record->topRow = nullptr;
    record->heights.clear();
}

int CVisibleRows::GetTopY()
{
    UpdateNow();
    return record->topY;
}

int CVisibleRows::GetTopIndex()
{
    UpdateNow();
    return record->shownCount == 0 ? 0 : record->topIndex;
}

int CVisibleRows::GetLastShownIndex()
{
    UpdateNow();
    return record->shownCount == 0 ? 0 : record->topIndex + record->shownCount - 1;
}

int CVisibleRows::GetShownCount()
{
    UpdateNow();
    return record->shownCount;
}

void CVisibleRows::SetTop(int index)
{
    if (int const count = GetCount(); count != 0) {
        placeTop(std::max(std::min(index, FirstIndexForBottom(count - 1)), 0));
    }
}

void CVisibleRows::SetShownCount(int count)
{
    record->shownCount = std::max(count, 0);
}

int CVisibleRows::GetFocusedIndex()
{
    return IndexOf(record->focusRow);
}

void CVisibleRows::SetFocusedIndex(int index)
{
    record->focusRow = index < 0 ? nullptr : GetRowAt(index);
}

bool CVisibleRows::IsFocused(IGCRow const * row) const
{
    return row && row == record->focusRow;
}

IGCRow * CVisibleRows::FocusedRow() const
{
    return record->focusRow;
}

int CVisibleRows::IndexFromY(int y, int low, int high)
{
    UpdateNow();
    return record->withPositions(
        [=](auto const & rows) { return RowSearch::indexFromY(rows, y, low, high); });
}

int CVisibleRows::RowUnderY(int y)
{
    if (IsEmpty()) {
        return -1;
    }
    return record->withPositions([=](auto const & rows) { return RowSearch::rowUnderY(rows, y); });
}

int CVisibleRows::FirstIndexForBottom(int index)
{
    int const count = GetCount();
    if (count == 0) {
        return 0;
    }
    int const row = std::clamp(index, 0, count - 1);
    int const pageHeight = GetPageHeight();
    return record->withPositions(
        [=](auto const & rows) { return RowSearch::firstIndexForBottom(rows, row, pageHeight); });
}

int CVisibleRows::VisibleCountFrom(int first)
{
    int const count = GetCount();
    if (count == 0) {
        return 0;
    }
    int const row = std::clamp(first, 0, count - 1);
    int const pageHeight = GetPageHeight();
    bool const wholeRowsOnly = IsWholeRowsOnly();
    return record->withPositions([=](auto const & rows) {
        return RowSearch::visibleCountFrom(rows, row, pageHeight, wholeRowsOnly);
    });
}

IGCRow * CVisibleRows::FirstShown()
{
    if (IsEmpty()) {
        return nullptr;
    }
    record->shownWalk = record->order->CreateRangeWalk(record->topIndex, record->shownCount);
    return record->shownWalk->First();
}

IGCRow * CVisibleRows::NextShown(IGCRow * current)
{
    UpdateNow();
    return record->shownWalk ? record->shownWalk->Next(current, 0, 0) : nullptr;
}

IGCRow * CVisibleRows::FirstVisible()
{
    if (IsEmpty()) {
        return nullptr;
    }
    record->visibleWalk = record->order->CreateWalk();
    return record->visibleWalk->First();
}

IGCRow * CVisibleRows::NextVisible(IGCRow * current)
{
    UpdateNow();
    return record->visibleWalk ? record->visibleWalk->Next(current, 0, 0) : nullptr;
}

void CVisibleRows::DropWalks()
{
    record->shownWalk.reset();
    record->visibleWalk.reset();
}

} // namespace zenu
