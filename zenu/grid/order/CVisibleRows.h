#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridTypes.h"
#include "zenu/grid/inner/IIsLastChild.h"
#include "zenu/grid/rows/IGCRow.h"

#include <memory>
#include <vector>

namespace zenu {

class CVisibleRowsIterator;
class ISlimGridCallbackWrapper;

// The tree as it is shown: every row whose ancestors are all expanded, in display order, with its
// y. The frame derives from it and is the invisible root.
//
// A writer only marks the order dirty; the first reader after it rebuilds, so a batch of insertions
// costs one rebuild. Until then the order may hold rows that were deleted, and nothing looks into
// it. While a rebuild runs, readers find the order empty and do not start another. The application
// may change the tree when a slim row is loaded meanwhile, which costs another rebuild; when rows
// are compared it must not delete any, since the sort goes on to compare them, see IsRebuilding.
//
// All positions are in contents coordinates, y of the first row 0. They are summed in 64 bits and
// saturate where an int leaves: from 107,374,182 rows of 20 pixels on. Indices and scrolling by
// rows stay exact beyond that.
//
// Costs: 8 bytes a row while all have the default height, else 16. A rebuild visits every row of
// the tree; all else is O(1), or O(log n) from y to a row of different heights.
class ZENU_TEST_EXPORT CVisibleRows : public IGCRowParent, public IIsLastChild
{
public:
    // The wrapper is only kept; it need not live yet.
    explicit CVisibleRows(ISlimGridCallbackWrapper * wrapper);
    CVisibleRows(CVisibleRows const &) = delete;
    CVisibleRows & operator=(CVisibleRows const &) = delete;
    ~CVisibleRows() override;

    // False for a bad index.
    virtual bool IsLastChildAt(int index);
    // Sorts a copy of one level for display.
    virtual void SortRows(std::vector<IGCRow *> & rows) = 0;
    // A rebuild made another row the top one; the answer is not looked at.
    virtual bool OnTopRowChanging(IGCRow * row) = 0;
    virtual void OnTopRowChanged() = 0;
    // After each rebuild. This and the two above may read and change the grid. They are told again
    // for what they change, four times at most.
    virtual void OnRowsLaidOut() = 0;
    // Pixels below the header, 0 or more.
    virtual int GetPageHeight() = 0;
    virtual bool IsWholeRowsOnly() = 0;
    virtual IGCRow * LocateRow(tag_HROW * handle) = 0;
    // When false, SortRows would leave every order as it is, and is not called.
    virtual bool IsSorted() const { return true; }

    bool IsLastChild(IGCRow const * row) const override;

    // Always true.
    bool Invalidate();
    void InvalidateHeights();
    // Does what the flags ask for. Each reader below begins with it.
    void UpdateNow();
    bool IsDirty() const;
    bool IsRebuilding() const;

    int GetCount();
    bool IsEmpty();
    // Null for a bad index.
    IGCRow * GetRowAt(int index);
    // The rows of a part of the order, cut at its ends, for work on many at once. They stand in the
    // order itself, or in `scratch` where the order keeps them otherwise; good until the next
    // change.
    RowSpan GetRows(int first, int count, std::vector<IGCRow *> & scratch);
    // -1 for a row out of the order and for null. The row is alive.
    int IndexOf(IGCRow const * row);
    // 0 for a bad index.
    int GetTopOf(int index);
    // The same, not saturated.
    long long PositionOf(int index);
    int GetHeightAt(int index);
    int GetTotalHeight();

    // For any live row, in the order or not. Never rebuilds.
    int GetRowHeight(IGCRow const * row) const;
    // Any height is kept as it is, 0 and below too.
    void SetRowHeight(IGCRow const * row, int height);
    void ResetRowHeight(IGCRow const * row);
    // Of a row that is new, so that nothing laid out changes: what an earlier row at its address
    // left.
    void DropStaleHeight(IGCRow const * row);
    void ClearHeights();
    bool HasExplicitHeights() const;
    // For each row that goes, before it goes. Clears the focus if the row has it, forgets its
    // height, and sees to it that no later row at its address is taken for it. O(1).
    void Forget(IGCRow const * row);
    // The same for all rows at once.
    void ForgetAll();

    // y of the first row on display.
    int GetTopY();
    // The same, not saturated.
    long long TopPosition();
    // These two are 0 when nothing is on display.
    int GetTopIndex();
    int GetLastShownIndex();
    int GetShownCount();
    // Puts the row on top, or the one that shows the last row whole at the bottom, whichever comes
    // first. Does not paint.
    void SetTop(int index);
    void SetShownCount(int count);

    // -1 for none, and for a focused row out of the order.
    int GetFocusedIndex();
    // A bad index clears the focus; one below 0 never rebuilds.
    void SetFocusedIndex(int index);
    bool IsFocused(IGCRow const * row) const;
    // Null for none. Never rebuilds.
    IGCRow * FocusedRow() const;

    // The row from `low` to `high` that covers y, -1 for none; `high` -1 stands for the last row.
    int IndexFromY(int y, int low = 0, int high = -1);
    // The row that covers a y that may be past the range of an int, -1 for none.
    int IndexAt(long long position);
    // The row that is so many pixels below the top of the first one on display, or above it when
    // the offset is negative; null for none.
    IGCRow * GetRowAtOffset(int offset);
    // Like IndexFromY, but a y above all rows answers 0, one below them the last index; -1 without
    // rows.
    int RowUnderY(int y);
    // The smallest top index that shows the row whole at the bottom. A bad index stands for the
    // nearest row; 0 without rows.
    int FirstIndexForBottom(int index);
    // Rows that a page shows from this one on, at least 1; 0 without rows.
    int VisibleCountFrom(int first);

    // Walks over the rows on display and over all rows of the order. First starts anew, null
    // without rows. Next goes on from the row given out last, null for any other, and after any
    // change of the order.
    IGCRow * FirstShown();
    IGCRow * NextShown(IGCRow * current);
    IGCRow * FirstVisible();
    IGCRow * NextVisible(IGCRow * current);
    void DropWalks();

private:
    struct Record;

    void updateLayout();
    bool rebuild();
    bool fillOrder();
    void computeHeights();
    void placeTop(int index);
    void tellOfRebuild(bool topRowChanged);
    bool isIndex(int index) const;

    std::unique_ptr<Record> record;
};

} // namespace zenu
