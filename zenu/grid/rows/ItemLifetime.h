#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/GridItem.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"

namespace zenu {

// What KItemDestructor and KFreeGarbage do, which is the same for every kind: rows with millions of
// items call these without the dispatch.
ZENU_TEST_EXPORT void destroyItem(GridItem & item) noexcept;
ZENU_TEST_EXPORT void freeItemGarbage(GridItem & item) noexcept;

// A fresh item of the column's kind; what the bytes held before is not looked at.
class ZENU_TEST_EXPORT KItemConstructor : public IGCColumnVisitor
{
public:
    explicit KItemConstructor(GridItem * visited)
        : item(visited)
    {
    }
    void Visit(CGCColumn * column) override;
    // The colour word of a fresh list item reads 0, black, not the default.
    void VisitListBox(CGCListBoxColumn * column) override;

private:
    GridItem * item;
};

// Frees the item's text. For every kind: a text may outlive a change to a kind without text.
class ZENU_TEST_EXPORT KItemDestructor : public IGCColumnVisitor
{
public:
    explicit KItemDestructor(GridItem * visited)
        : item(visited)
    {
    }
    void Visit(CGCColumn * column) override;

private:
    GridItem * item;
};

// Frees a cached copy of callback text and puts GC_TEXTCALLBACK back; an owned text stays.
class ZENU_TEST_EXPORT KFreeGarbage : public IGCColumnVisitor
{
public:
    explicit KFreeGarbage(GridItem * visited)
        : item(visited)
    {
    }
    void Visit(CGCColumn * column) override;

private:
    GridItem * item;
};

// The place to look at an item with a debugger: asserts nothing.
class ZENU_TEST_EXPORT KAssertValid : public IGCColumnVisitor
{
public:
    explicit KAssertValid(GridItem const * visited)
        : item(visited)
    {
    }

private:
    [[maybe_unused]] GridItem const * item;
};

} // namespace zenu
