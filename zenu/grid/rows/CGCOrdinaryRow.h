#pragma once

#include "zenu/grid/columns/GridItem.h"
#include "zenu/grid/rows/ChildRows.h"
#include "zenu/grid/rows/IGCRow.h"

#include <QRgb>

#include <memory>
#include <span>

class QFont;

namespace zenu {

// A row that owns its cells: 72 bytes, 16 more a column, its texts, and its list of children once
// it has some. A new row is expanded.
class ZENU_TEST_EXPORT CGCOrdinaryRow : public IGCRow
{
public:
    static constexpr std::uint8_t expandedFlag = 0x1;
    static constexpr std::uint8_t hasChildrenFlag = 0x10;

    // One fresh item for each column.
    CGCOrdinaryRow(IGCRow * parentRow, ColumnSet const & columns);
    ~CGCOrdinaryRow() override;

    int GetChildCount(ISlimGridCallbackWrapper * wrapper) override;
    IGCRow * GetChild(int index) override;
    RowSpan GetChildren(ISlimGridCallbackWrapper * wrapper) override;
    // The has-children bit: an insertion sets it, even one that fails.
    bool HasChildren(ISlimGridCallbackWrapper * wrapper) override;
    // For rows that are filled on demand: nothing is asked of the children.
    void SetHasChildren(bool on)
    {
        rowFlags = static_cast<std::uint8_t>(on ? rowFlags | hasChildrenFlag
                                                : rowFlags & ~hasChildrenFlag);
    }
    void ExpandRow(ISlimGridCallbackWrapper * wrapper) override;
    void CollapseRow() override;
    bool IsExpanded() const override;
    bool InsertChildrenAfter(std::span<IGCRow * const> rows, tag_HROW * position) override;
    bool InsertChildrenBefore(std::span<IGCRow * const> rows, tag_HROW * position) override;
    bool InsertChildAfter(IGCRow * row, tag_HROW * position) override;
    bool InsertChildBefore(IGCRow * row, tag_HROW * position) override;
    bool DeleteChild(IGCRow * row) override;
    // The last child gone, the row is collapsed and shows no button.
    bool RemoveChild(IGCRow * row) override;
    void DeleteAllChildren() override;
    void AddColumnItem(CGCColumn * column) override;
    void RemoveColumnItem(CGCColumn * column) override;
    void DestroyItems(ColumnSet const & columns) override;
    void SetFocusCell(bool on, int itemIndex) override;
    void MarkCell(bool on, int itemIndex) override;
    void SetHotCell(CGCColumn * column) override;
    void ClearHotCell(CGCColumn * column) override;
    void FreeGarbage(ColumnSet const & columns) override;
    void ColumnKindChanged(CGCColumn *) override {}
    void Accept(IGCRowVisitor * visitor) override;
    // Looks at this row's own items; whoever walks the tree asks each row.
    bool AssertValid(ColumnSet const & columns) override;
    void TakeChildren(std::vector<IGCRow *> & out) override;

    virtual bool InsertChildren(std::span<IGCRow * const> rows, tag_HROW * position, bool after);

    std::span<GridItem> Items() const { return {items, itemCount}; }
    // Null for a column that the row has no item of.
    GridItem * ItemOf(CGCColumn const * column) const;
    // What the children cost, in bytes.
    std::size_t ChildBytes() const;

    QRgb textColor = 0xff000000U; // GC_UNSETCOLOR: the grid's
    QRgb bkColor = 0xff000000U;   // the same
    QFont * font = nullptr;       // null: the grid's; not owned

private:
    void setItemFlag(GCItemState flag, bool on, int itemIndex);

    std::unique_ptr<ChildRows> children; // null while there are none
    GridItem * items = nullptr;          // owned, by itemIndex
    std::uint32_t itemCount = 0;

public:
    std::uint8_t rowFlags = expandedFlag;
};

static_assert(sizeof(CGCOrdinaryRow) <= 72 || sizeof(void *) != 8);

} // namespace zenu
