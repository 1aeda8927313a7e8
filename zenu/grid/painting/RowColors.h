#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridRecords.h"

#include <QColor>

namespace zenu {

class CGCColumn;
class CGCOrdinaryRow;
struct CDrawContext;

// Which colours a row and its cells have. Pure: asks neither palette nor application.
struct RowColors
{
    QColor text;
    QColor background;
};

// A row or item colour of this raw value stands for the grid's.
inline bool isUnset(QColor const & color)
{
    return color.rgb() == GC_UNSETCOLOR;
}

// The kind of selection colours that a row shows.
enum class SelectionLook
{
    None,    // not selected, or selected in a grid that shows it only while it has the focus
    Active,  // the grid has the focus
    Inactive // the grid has no focus and shows its selection all the same
};
ZENU_TEST_EXPORT SelectionLook selectionLook(CDrawContext const & context, bool selected);

// The colours under a selection; `colors` as they are for SelectionLook::None.
ZENU_TEST_EXPORT RowColors underSelection(RowColors const & colors, CDrawContext const & context,
                                          SelectionLook look);

struct SectionColors
{
    QColor text;
    QColor background;
    QColor topLine;
    QColor bottomLine;
};
// `base`: text and background of the section while no selection shows.
ZENU_TEST_EXPORT SectionColors sectionColors(CDrawContext const & context, RowColors const & base,
                                             SelectionLook look);

// The grid's text colour, background and font, with the flags at false.
ZENU_TEST_EXPORT GC_DRAWROWINFO defaultRowInfo(CDrawContext const & context);
// The same with what the row has of its own.
ZENU_TEST_EXPORT GC_DRAWROWINFO ordinaryRowInfo(CDrawContext const & context,
                                                CGCOrdinaryRow const & row);

// Whether the cell of a column in the focused row is the focus cell.
ZENU_TEST_EXPORT bool isFocusCell(CDrawContext const & context, CGCColumn const & column,
                                  bool focusedRow);

// The other end of the colour cube, opaque: what focus lines are drawn in.
inline QColor complement(QColor const & color)
{
    return QColor::fromRgb(~color.rgb() & 0xffffffU);
}

} // namespace zenu
