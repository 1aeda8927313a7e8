#pragma once

#include "zenu/grid/rows/IGCRow.h"

#include <memory>
#include <span>

namespace zenu {

struct GC_SLIMROWDATA;

// What rows without content have in common: no cells, and no children that anyone could insert.
class ZENU_TEST_EXPORT RowWithoutContent : public IGCRow
{
public:
    using IGCRow::IGCRow;

    bool InsertChildrenAfter(std::span<IGCRow * const>, tag_HROW *) final { return false; }
    bool InsertChildrenBefore(std::span<IGCRow * const>, tag_HROW *) final { return false; }
    bool InsertChildAfter(IGCRow *, tag_HROW *) final { return false; }
    bool InsertChildBefore(IGCRow *, tag_HROW *) final { return false; }
    bool RemoveChild(IGCRow *) final { return false; }
    void DeleteAllChildren() final {}
    void AddColumnItem(CGCColumn *) final {}
    void RemoveColumnItem(CGCColumn *) final {}
    void DestroyItems(ColumnSet const &) final {}
    void SetFocusCell(bool, int) final {}
    void MarkCell(bool, int) final {}
    void SetHotCell(CGCColumn *) final {}
    void ClearHotCell(CGCColumn *) final {}
    void FreeGarbage(ColumnSet const &) final {}
    void ColumnKindChanged(CGCColumn *) final {}
    bool AssertValid(ColumnSet const &) final { return true; }
    void TakeChildren(std::vector<IGCRow *> &) final {}
};

// A row whose texts, looks and checks are the application's, asked for at the moment they are
// needed. 32 bytes; it never has children.
class ZENU_TEST_EXPORT CGCLonelySlimRow : public RowWithoutContent
{
public:
    using RowWithoutContent::RowWithoutContent;

    int GetChildCount(ISlimGridCallbackWrapper *) override { return 0; }
    IGCRow * GetChild(int) override { return nullptr; }
    RowSpan GetChildren(ISlimGridCallbackWrapper *) override { return {}; }
    bool HasChildren(ISlimGridCallbackWrapper *) override { return false; }
    void ExpandRow(ISlimGridCallbackWrapper *) override {}
    void CollapseRow() override {}
    bool IsExpanded() const override { return false; }
    bool DeleteChild(IGCRow * row) override;
    void Accept(IGCRowVisitor * visitor) override;
};

static_assert(sizeof(CGCLonelySlimRow) == 32 || sizeof(void *) != 8);

// A slim row that may have children: 40 bytes. They come from the callback when the row is expanded
// or counted, all in one block, and go with ResetSlimRow; rows can't be inserted under it.
class ZENU_TEST_EXPORT CGCSlimRow : public RowWithoutContent
{
public:
    // Head of one allocation that holds all children of a slim row behind it. Of three states of a
    // row, no block is one: closed and unknown. A block that is loaded holds the children; a block
    // that is not only remembers that the row is expanded, and loads at the next demand.
    class CSubRows
    {
    public:
        virtual IGCRow * GetRow(int index) = 0;
        virtual RowSpan GetRows() = 0;

        bool loaded = false;
        bool expanded = false;
        bool anyHeight = false; // some row was given a height of its own
        int count = 0;

    protected:
        ~CSubRows() = default; // blocks are freed as raw memory, their rows with them
    };

    using RowWithoutContent::RowWithoutContent;
    ~CGCSlimRow() override;

    int GetChildCount(ISlimGridCallbackWrapper * wrapper) override;
    IGCRow * GetChild(int index) override;
    RowSpan GetChildren(ISlimGridCallbackWrapper * wrapper) override;
    bool HasChildren(ISlimGridCallbackWrapper * wrapper) override;
    // Stays collapsed when the application has no children for it.
    void ExpandRow(ISlimGridCallbackWrapper * wrapper) override;
    // The children stay loaded.
    void CollapseRow() override;
    bool IsExpanded() const override;
    bool DeleteChild(IGCRow *) override { return false; }
    void Accept(IGCRowVisitor * visitor) override;

    CSubRows * SubRows() const { return subRows; }
    // Frees the block, if any, and the blocks under it, and makes a loaded one of `count` rows with
    // this parent and param 0. With `lonely` they are the smaller rows that can't have children.
    // Null, and no block, when there is no memory for it.
    CSubRows * CreateBlock(bool lonely, bool expanded, int count);
    // The same with the param of each record; `row` of each is filled in. The smaller rows when no
    // record says that its row has children.
    CSubRows * CreateBlock(bool expanded, std::span<GC_SLIMROWDATA> records);
    // Forgets the children. An expanded row keeps a shell that loads again when asked.
    void DropChildren();

private:
    void load(ISlimGridCallbackWrapper * wrapper);
    CSubRows * takeBlock(CSubRows * block, bool expanded);
    static void freeBlock(CSubRows * first);

    CSubRows * subRows = nullptr; // owned
};

static_assert(sizeof(CGCSlimRow) == 40 || sizeof(void *) != 8);

} // namespace zenu
