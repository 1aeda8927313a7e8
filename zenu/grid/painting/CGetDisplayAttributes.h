#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/painting/RowColors.h"
#include "zenu/grid/rows/IGCRowVisitor.h"

#include <QColor>
#include <QFont>

namespace zenu {

class CGCColumn;
struct CDrawContext;

// In which colours and font a cell shows its text, by the rules of painting but for one: the focus
// cell's text starts from the grid's text colour. Sections have no cells and leave the grid's own.
class ZENU_TEST_EXPORT CGetDisplayAttributes : public IGCRowVisitor
{
public:
    // Context and column, never null, outlive the visitor. `focusColumnRow`: the row is the focused
    // one.
    CGetDisplayAttributes(CDrawContext const & drawContext, CGCColumn * cellColumn, bool selected,
                          bool focusColumnRow);

    void VisitOrdinary(CGCOrdinaryRow * row) override;
    void VisitSlim(CGCSlimRow * row) override;
    void VisitLonelySlim(CGCLonelySlimRow * row) override;

    QColor textColor;
    QColor bkColor;
    QFont font;

private:
    // Answers the draw record that the cell's text colour starts from.
    GC_DRAWITEMINFO applyRow(GC_DRAWROWINFO const & info);
    void askSlim(IGCRow * row);

    CDrawContext const & context;
    CGCColumn * column;
    bool isSelected;
    bool isFocus;
    SelectionLook look;
};

} // namespace zenu
