#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridRecords.h"
#include "zenu/grid/painting/RowColors.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <QRect>

#include <span>

namespace zenu {

class CGCColumn;
class IGCRow;
class PaintPass;
struct CDrawContext;
struct DrawnCell;

// Where a row stands and in which state, as the paint event finds it.
struct DrawnRow
{
    bool selected = false;
    bool firstRow = false;  // of the visible order
    bool lastChild = false; // of its parent, in the visible order
    bool focused = false;
    bool hoverRow = false; // the mouse is over it
    int y = 0;             // top, in contents coordinates
    int height = 0;
};

// Draws one row: the cells of the columns from left to right, each over its background, then the
// separators over all of them. Sent to the row. The order of the calls makes the picture: what
// reaches beyond its cell is covered by the next one. Callbacks of slim rows run in the middle.
class ZENU_TEST_EXPORT CDrawRowVisitor : public IGCRowVisitor
{
public:
    // `shownColumns` are the columns that touch what is painted, in display order. All outlive the
    // visitor.
    CDrawRowVisitor(PaintPass & paintPass, std::span<CGCColumn * const> shownColumns,
                    DrawnRow const & drawnRow);

    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;
    void VisitSection(CGCSection * row) override;

private:
    void describeRow(IGCRow * row, GC_DRAWROWINFO & info) const;
    void drawSlim(IGCRow * row);
    DrawnCell startCell(IGCRow * row, CGCColumn const & column, GC_DRAWROWINFO const & info,
                        RowColors const & shown) const;
    void drawCell(CGCColumn * column, char const * text, DrawnCell & cell);
    void drawGround(CGCColumn const & column, DrawnCell const & cell);
    void drawFramedGround(QRect const & rect, DrawnCell const & cell);
    void drawAncestorLines(DrawnCell const & cell);
    void drawSeparators(QColor const & background);

    PaintPass & pass;
    CDrawContext const & context;
    std::span<CGCColumn * const> columns;
    DrawnRow place;
    SelectionLook look;
};

} // namespace zenu
