#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridTypes.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zenu {

class CGCColumn;
class ColumnSet;
class IGCRow;
class IGCRowVisitor;
class ISlimGridCallbackWrapper;

// The children of one parent, seen as an array: either pointers, or the rows themselves in one
// block. A walk over a level costs one virtual call and no call a row. Dies with the next change
// of the level.
class RowSpan
{
public:
    RowSpan() = default;
    RowSpan(IGCRow * const * rows, int count)
        : pointers(rows)
        , rowCount(count)
    {
    }
    // `lonely`: no row of the level has or can get children.
    RowSpan(std::byte * rows, std::size_t rowSize, int count, bool lonely)
        : bytes(rows)
        , stride(rowSize)
        , rowCount(count)
        , allLonely(lonely)
    {
    }

    int count() const { return rowCount; }
    bool areLonely() const { return allLonely; }
    IGCRow * operator[](int index) const
    {
        auto const i = static_cast<std::size_t>(index);
        return pointers ? pointers[i] : reinterpret_cast<IGCRow *>(bytes + i * stride);
    }

private:
    IGCRow * const * pointers = nullptr;
    std::byte * bytes = nullptr;
    std::size_t stride = 0;
    int rowCount = 0;
    bool allLonely = false;
};

// What has children: a row, or the invisible root.
class IGCRowParent
{
public:
    // Loads the children of a slim row that was expanded and reset.
    virtual int GetChildCount(ISlimGridCallbackWrapper * wrapper) = 0;
    // `index` is below the child count.
    virtual IGCRow * GetChild(int index) = 0;
    virtual ~IGCRowParent() = default;
    // All children at once; loads as GetChildCount does.
    virtual RowSpan GetChildren(ISlimGridCallbackWrapper * wrapper) = 0;
};

// A row of a grid, in one of four classes of very different cost. Its address is its handle.
class ZENU_TEST_EXPORT IGCRow : public IGCRowParent
{
public:
    static constexpr std::uint32_t notVisible = 0x7fffffff;

    explicit IGCRow(IGCRow * parentRow)
        : parent(parentRow)
    {
    }
    IGCRow(IGCRow const &) = delete;
    IGCRow & operator=(IGCRow const &) = delete;

    // Rows that stand alone come from the pool; those of a slim level live in their block.
    static void * operator new(std::size_t size);
    static void * operator new(std::size_t, void * place) { return place; }
    static void operator delete(void * row, std::size_t size) noexcept;
    static void operator delete(void *, void *) {}

    virtual bool HasChildren(ISlimGridCallbackWrapper * wrapper) = 0;
    virtual void ExpandRow(ISlimGridCallbackWrapper * wrapper) = 0;
    virtual void CollapseRow() = 0;
    virtual bool IsExpanded() const = 0;
    // Insert after or before `position`, a child's handle, GCI_FIRST or GCI_LAST, and take the rows
    // as children. False when the class takes no children or `position` is none: nothing is
    // inserted and the rows stay the caller's.
    virtual bool InsertChildrenAfter(std::span<IGCRow * const> rows, tag_HROW * position) = 0;
    virtual bool InsertChildrenBefore(std::span<IGCRow * const> rows, tag_HROW * position) = 0;
    virtual bool InsertChildAfter(IGCRow * row, tag_HROW * position) = 0;
    virtual bool InsertChildBefore(IGCRow * row, tag_HROW * position) = 0;
    // Deletes the row, child or not; false when it was no child. A slim row deletes nothing.
    virtual bool DeleteChild(IGCRow * row) = 0;
    // Lets go of the row without deleting it; false when it is no child.
    virtual bool RemoveChild(IGCRow * row) = 0;
    virtual void DeleteAllChildren() = 0;
    virtual void AddColumnItem(CGCColumn * column) = 0;
    virtual void RemoveColumnItem(CGCColumn * column) = 0;
    // Before the row is deleted: the destructor does not destroy the items' texts.
    virtual void DestroyItems(ColumnSet const & columns) = 0;
    // Takes the focus mark from all items and, if `on`, gives it to the item at the index.
    virtual void SetFocusCell(bool on, int itemIndex) = 0;
    virtual void MarkCell(bool on, int itemIndex) = 0;
    virtual void SetHotCell(CGCColumn * column) = 0;
    virtual void ClearHotCell(CGCColumn * column) = 0;
    // Frees cached callback texts: the row left the display.
    virtual void FreeGarbage(ColumnSet const & columns) = 0;
    virtual void ColumnKindChanged(CGCColumn * column) = 0;
    virtual void Accept(IGCRowVisitor * visitor) = 0;
    virtual void Touch(int) {}
    virtual bool AssertValid(ColumnSet const & columns) = 0;
    // Adds the children to `out` and lets go of them: how a deep tree is deleted without recursion.
    virtual void TakeChildren(std::vector<IGCRow *> & out) = 0;

    tag_HROW * Handle() const { return reinterpret_cast<tag_HROW *>(const_cast<IGCRow *>(this)); }
    // Number of ancestors, 0 at the top level.
    int GetLevel() const;

    bool IsVisible() const { return (visibleIndex & notVisible) != notVisible; }
    void SetVisibleIndex(std::uint32_t index)
    {
        visibleIndex = (visibleIndex & ~notVisible) | (index & notVisible);
    }
    void ClearVisibleIndex() { visibleIndex |= notVisible; }
    // -1 for a row that is not in the visible order.
    int SignedVisibleIndex() const { return static_cast<std::int32_t>(visibleIndex << 1) >> 1; }
    bool IsLastChild() const { return (visibleIndex & ~notVisible) != 0; }
    void SetLastChild(bool last)
    {
        visibleIndex = (visibleIndex & notVisible) | (last ? ~notVisible : 0U);
    }

    IGCRow * parent = nullptr; // null at the top level
    unsigned long param = 0;   // the application's value

private:
    // Low 31 bits: index in the visible order, all ones for none. Bit 31: last child there.
    std::uint32_t visibleIndex = notVisible;

public:
    // Near which place the row stands among its siblings; ChildRows keeps and mends it.
    std::uint32_t childPlace = 0;
};

static_assert(sizeof(IGCRow) == 32 || sizeof(void *) != 8);

} // namespace zenu
