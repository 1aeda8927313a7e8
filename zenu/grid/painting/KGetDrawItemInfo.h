#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"

namespace zenu {

struct GC_DRAWITEMINFO;
struct GridItem;

// Fills a draw record from an item of an ordinary row: images and check state of the kinds that
// have them. Its own text colour replaces that of the record, unless it is unset or `ownColor` is
// false, since a cell under selection colours keeps those. The lead image stays as it is: items
// have none.
class ZENU_TEST_EXPORT KGetDrawItemInfo : public IGCColumnVisitor
{
public:
    // A null item changes nothing.
    KGetDrawItemInfo(GridItem const * visitedItem, bool mayHaveOwnColor, GC_DRAWITEMINFO * record)
        : item(visitedItem)
        , ownColor(mayHaveOwnColor)
        , info(record)
    {
    }
    void Visit(CGCColumn * column) override;
    void VisitIcon(CGCIconColumn * column) override;
    void VisitTextWithIcon(CGCTextWithIconColumn * column) override;
    void VisitCheckBox(CGCCheckBoxColumn * column) override;
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column) override;

private:
    void takeColor();
    void takeImages();
    void takeCheck();

    GridItem const * item;
    bool ownColor;
    GC_DRAWITEMINFO * info;
};

} // namespace zenu
