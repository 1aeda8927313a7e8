#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridRecords.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"
#include "zenu/grid/geometry/CElementRects.h"

#include <QColor>

namespace zenu {

class IGCRow;
class PaintPass;

// A cell that is ready to be drawn. Names things that live for the drawing of its row.
struct DrawnCell
{
    CElementRects rects; // in contents coordinates
    IGCRow * row = nullptr;
    GC_DRAWROWINFO const * rowInfo = nullptr; // with the colours before selection
    GC_DRAWITEMINFO item;
    QColor background;  // the cell's, after selection: what the tree button stands on
    bool hover = false; // the mouse is over the cell
    bool selected = false;
    bool focusCell = false;
    bool useSelectedImages = false; // the row shows selection colours
};

// Draws what is in a cell, over a background that stands: tree parts and lead image, then what the
// column's kind shows. Sent to the column. Nothing is measured or asked here.
class ZENU_TEST_EXPORT CDrawItemVisitor : public IGCColumnVisitor
{
public:
    CDrawItemVisitor(PaintPass & paintPass, DrawnCell const & drawnCell)
        : pass(paintPass)
        , cell(drawnCell)
    {
    }
    void Visit(CGCColumn * column) override;
    void VisitIcon(CGCIconColumn * column) override;
    void VisitText(CGCTextColumn * column) override;
    void VisitTextWithIcon(CGCTextWithIconColumn * column) override;
    void VisitCheckBox(CGCCheckBoxColumn * column) override;
    void VisitListBox(CGCListBoxColumn * column) override;
    void VisitComboBox(CGCComboBoxColumn * column) override;
    void VisitOwnerDraw(CGCOwnerDrawColumn * column) override;
    void VisitCheckBoxWithIcon(CGCCheckBoxWithIconColumn * column) override;

private:
    void drawTreeLines();
    void drawTreeLine(QRect const & line);
    void drawLeadImage();
    void drawImage();
    void drawCheckBox();
    void drawRadio();
    void drawText(CGCColumn const & column);

    PaintPass & pass;
    DrawnCell const & cell;
};

// The expand button on a ground of its own; nothing when its rectangle is null. Shared with
// sections.
void drawTreeButton(PaintPass & pass, QRect const & rect, bool expanded, QColor const & ground);

} // namespace zenu
