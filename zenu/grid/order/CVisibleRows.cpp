#include "zenu/grid/order/CVisibleRows.h"

#include "zenu/grid/order/CVisibleRowsIterator.h"
#include "zenu/grid/order/VisibleRowsRecord.h"

#include <utility>

namespace zenu {

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
    ++record->changes.number;
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

RowSpan CVisibleRows::GetRows(int first, int count, std::vector<IGCRow *> & scratch)
{
    int const total = GetCount();
    int const from = std::clamp(first, 0, total);
    int const number = std::clamp(count, 0, total - from);
    if (number == 0) {
        return {};
    }
    if (record->order == &record->similar) {
        return {record->similar.GetRows() + from, number};
    }
    scratch.resize(static_cast<std::size_t>(number));
    for (int i = 0; i < number; ++i) {
        scratch[static_cast<std::size_t>(i)] = record->various.GetRowAt(from + i);
    }
    return {scratch.data(), number};
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

long long CVisibleRows::PositionOf(int index)
{
    UpdateNow();
    return isIndex(index) ? record->order->GetTopOf(index) : 0;
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
        Invalidate();
    }
}

void CVisibleRows::ResetRowHeight(IGCRow const * row)
{
    record->heights.erase(row);
    Invalidate();
}

void CVisibleRows::DropStaleHeight(IGCRow const * row)
{
    record->heights.erase(row);
}

void CVisibleRows::ClearHeights()
{
    if (!record->heights.empty()) {
        record->heights.clear();
        Invalidate();
    }
}

bool CVisibleRows::HasExplicitHeights() const
{
    return !record->heights.empty();
}

void CVisibleRows::Forget(IGCRow const * row)
{
    record->changes.deaths = true;
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
    record->changes.deaths = true;
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

long long CVisibleRows::TopPosition()
{
    UpdateNow();
    return PositionOf(record->topIndex);
}

int CVisibleRows::IndexAt(long long position)
{
    UpdateNow();
    return record->withPositions(
        [=](auto const & rows) { return RowSearch::indexFromY(rows, position, 0, -1); });
}

int CVisibleRows::IndexFromY(int y, int low, int high)
{
    UpdateNow();
    return record->withPositions(
        [=](auto const & rows) { return RowSearch::indexFromY(rows, y, low, high); });
}

// One look at the positions for all of it: each motion of the mouse asks.
IGCRow * CVisibleRows::GetRowAtOffset(int offset)
{
    UpdateNow();
    int const index = record->withPositions([=, this](auto const & rows) {
        int const top = record->topIndex;
        bool const hasTop = top >= 0 && top < rows.count();
        long long const y = (hasTop ? rows.topOf(top) : 0) + offset;
        return y < 0 ? -1 : RowSearch::indexFromY(rows, y, 0, -1);
    });
    return index == -1 ? nullptr : record->rowAt(index);
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
