#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

namespace zenu {

class ISlimGridCallbackWrapper;
struct GridItem;

// The check state of an item, 1 for checked; 0 for kinds without a check box.
class ZENU_TEST_EXPORT KGetItemState : public IGCColumnVisitor
{
public:
    explicit KGetItemState(GridItem const * readItem)
        : item(readItem)
    {
    }
    void VisitCheckBox(CGCCheckBoxColumn *) override { read(); }
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn *) override { read(); }

    int result = 0;

private:
    void read();

    GridItem const * item;
};

// Checks an item for a value of 1, and unchecks it for any other. Kinds without a check box are
// left alone; whether the box is gray stays.
class ZENU_TEST_EXPORT KCheckItem : public IGCColumnVisitor
{
public:
    KCheckItem(GridItem * writtenItem, int newValue)
        : item(writtenItem)
        , value(newValue)
    {
    }
    void VisitCheckBox(CGCCheckBoxColumn *) override { write(); }
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn *) override { write(); }

private:
    void write();

    GridItem * item;
    int value;
};

// The check state of a row's cell: the item's, a slim row's as the application says. 0 for
// sections.
class ZENU_TEST_EXPORT CIsItemChecked : public IGCRowVisitor
{
public:
    CIsItemChecked(ISlimGridCallbackWrapper * slimWrapper, CGCColumn * askedColumn)
        : wrapper(slimWrapper)
        , column(askedColumn)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;

    int result = 0;

private:
    ISlimGridCallbackWrapper * wrapper;
    CGCColumn * column;
};

// Sets the check state of a row's cell: in the item, or by telling a slim row's application.
class ZENU_TEST_EXPORT CSwitchCheckBoxItem : public IGCRowVisitor
{
public:
    CSwitchCheckBoxItem(ISlimGridCallbackWrapper * slimWrapper, CGCColumn * switchedColumn,
                        int newValue)
        : wrapper(slimWrapper)
        , column(switchedColumn)
        , value(newValue)
    {
    }
    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;

private:
    ISlimGridCallbackWrapper * wrapper;
    CGCColumn * column;
    int value;
};

} // namespace zenu
