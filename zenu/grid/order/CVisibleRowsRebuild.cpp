#include "zenu/grid/order/CVisibleRows.h"

#include "zenu/grid/order/VisibleRowsRecord.h"

#include <QScopedValueRollback>

namespace zenu {

namespace {

constexpr int largestTellCount = 4;
constexpr int largestFillCount = 4;

} // namespace

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
        topRowChanged = record->untoldTopRow && record->topRow;
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
        int filled = 1;
        while (!fillOrder() && filled < largestFillCount) {
            ++filled;
        }
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
        bool const changed = record->changes.number != 0 || record->changes.deaths;
        record->layoutDirty = changed;
        record->heightsDirty = changed;
    }
    return record->order->GetCount() != 0 && record->topRow != oldTopRow;
}

// Puts the row that was on top, where it still is one, under topIndex. Whoever asks meanwhile sees
// an empty order. Not the old one: its rows may be dead. False, with an empty order, when a row
// died meanwhile.
bool CVisibleRows::fillOrder()
{
    record->similar.Clear();
    record->various.Clear();
    record->shownCount = 0;
    record->changes = {};
    bool const uniform = record->heights.empty();
    record->order = uniform ? static_cast<IRowsOrder *>(&record->various) : &record->similar;

    OrderFill fill(this, record->wrapper, record->changes);
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
    return !record->changes.deaths;
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

} // namespace zenu
