#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

namespace zenu {

class CGCOrdinaryRow;
class ISlimGridCallbackWrapper;
class ITextCallback;

// The text of a row's cell, sent to the column. Text of GC_TEXTCALLBACK is fetched and the copy
// kept in the item until the row leaves the display, so that painting asks once an item. Allocates
// nothing but that copy.
class ZENU_TEST_EXPORT KGetText : public IGCColumnVisitor
{
public:
    // A null callback answers null texts.
    KGetText(CGCOrdinaryRow * visitedRow, ITextCallback * textCallback)
        : row(visitedRow)
        , callback(textCallback)
    {
    }
    // Every kind that bears a text.
    void Visit(CGCColumn * column) override;
    // Icons have none: the text stays empty.
    void VisitIcon(CGCIconColumn *) override {}
    // The choice at the item's index, null when that is out of range.
    void VisitListBox(CGCListBoxColumn * column) override;

    // May be null; the item's, the column's or the callback's own.
    char const * text = "";

private:
    CGCOrdinaryRow * row;
    ITextCallback * callback;
};

// The same for measuring and sorting: what the callback answers is used and not kept. A copy that
// is there already is used. The item is left as it is.
class ZENU_TEST_EXPORT KGetTextAndForget : public IGCColumnVisitor
{
public:
    KGetTextAndForget(CGCOrdinaryRow * visitedRow, ITextCallback * textCallback)
        : row(visitedRow)
        , callback(textCallback)
    {
    }
    void Visit(CGCColumn * column) override;
    void VisitIcon(CGCIconColumn *) override {}
    void VisitListBox(CGCListBoxColumn * column) override;
    void VisitCheckBox(CGCCheckBoxColumn * column) override;
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column) override;

    // May be null, and is then or later invalid when the callback is asked again.
    char const * text = "";
    // Whether the item hides its check box; only kinds with a check box say so.
    bool hideCheck = false;

private:
    CGCOrdinaryRow * row;
    ITextCallback * callback;
};

// The text of a cell, sent to a row of any class: an ordinary row's item by KGetTextAndForget, a
// slim row's from the slim callback, a section's title whatever the column.
class ZENU_TEST_EXPORT CGetItemText : public IGCRowVisitor
{
public:
    CGetItemText(CGCColumn * askedColumn, ITextCallback * textCallback,
                 ISlimGridCallbackWrapper * slimWrapper)
        : column(askedColumn)
        , callback(textCallback)
        , wrapper(slimWrapper)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;
    void VisitSection(CGCSection * row) override;

    // In bytes, 0 for null.
    int Length() const;

    // May be null. Valid until a callback is asked again or the cell changes.
    char const * text = "";
    // As KGetTextAndForget says; false for slim rows and sections.
    bool hideCheck = false;

private:
    CGCColumn * column;
    ITextCallback * callback;
    ISlimGridCallbackWrapper * wrapper;
};

} // namespace zenu
