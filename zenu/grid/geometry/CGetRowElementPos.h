#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/geometry/CElementRects.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

class QFont;

namespace zenu {

class CGCColumn;
class IGCRow;
struct CDrawContext;
struct CellInputs;

// The element rectangles of a row's cell, or of a section, in contents coordinates. Asks the
// application for the text of a slim row or of a callback item, and keeps nothing of it.
class ZENU_TEST_EXPORT CGetRowElementPos : public IGCRowVisitor
{
public:
    // The context and the column outlive the visitor; `y` and `height` are those of the row.
    // Sections need no column, for other rows a null column leaves the result empty.
    CGetRowElementPos(CDrawContext const & drawContext, bool hoverRow, CGCColumn * cellColumn,
                      int rowY, int rowHeight);

    // The number of the row's ancestors, for a caller who knows it; else they are counted.
    void setLevel(int known) { level = known; }
    CElementRects const & result() const { return rects; }

    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;
    void VisitSection(CGCSection * row) override;

private:
    void layoutCell(IGCRow * row, QFont const * font, char const * text, bool hideCheck);
    void layoutSlim(IGCRow * row);

    CDrawContext const & context;
    bool isHoverRow;
    CGCColumn * column;
    int y;
    int height;
    int level = -1; // not known
    CElementRects rects;
};

// Lays out a section across all columns, `width` being that of the contents, relative to its row.
ZENU_TEST_EXPORT void layoutSection(CellInputs const & inputs, CElementRects * rects);

// The level that a cell of this row and column is indented by: 0 where the column does not indent,
// without a walk up the tree. `known` is the number of the row's ancestors, -1 to have them
// counted.
ZENU_TEST_EXPORT int cellLevel(IGCRow const & row, CGCColumn const & column, int known = -1);

} // namespace zenu
