#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/columns/IGCColumnVisitor.h"

class QFont;

namespace zenu {

class CGCColumn;
class KGridImages;
class TextCache;
struct CElementRects;

// What the layout of a cell depends on beside its column's flags and format.
struct CellInputs
{
    KGridImages const * images = nullptr; // never null
    TextCache * texts = nullptr;          // never null
    QFont const * font = nullptr;         // never null
    char const * text = nullptr;          // Latin-1, null or empty for none
    int level = 0;                        // ancestors of the row, see cellLevel
    int indent = 0;                       // pixels a level
    int width = 0;                        // of the column
    int height = 0;                       // of the row
    bool hover = false;                   // the mouse is over the cell
    bool hideCheck = false;               // the cell shows no check box
};

// Lays out one cell, relative to its top left corner: the only place where element rectangles come
// from. Coordinates saturate at 2^30.
class ZENU_TEST_EXPORT CGetElementPos : public IGCColumnVisitor
{
public:
    CGetElementPos(CellInputs const & cellInputs, CElementRects * result);

    // A column of no kind has the parts that all kinds have.
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
    // The parts before the content: indentation, button, lead image. False when nothing follows.
    bool layoutCommon(CGCColumn const & column);
    void layoutLead(CGCColumn const & column);
    // `treeOffset` from the button's centre, and where content starts, `gap` further.
    int contentStart(CGCColumn const & column, int treeOffset, int gap);
    void placeImage(int start);
    // The image where the cell's content starts.
    void placeIcon(CGCColumn const & column);
    void placeTextAfterImage(CGCColumn const & column);
    // False when there is no room for a check box. `start` moves past the box and `gap`.
    bool placeCheck(int & start, int gap);
    void placeText(CGCColumn const & column, int from, int to);
    // The place of the drop-down button's left edge, when the mouse shows it.
    bool placeDropButton(int start);
    void placeTextBeforeDrop(CGCColumn const & column);

    CellInputs inputs;
    CElementRects * rects;
    int left = 0;  // of the room that is left
    int right = 0; // of the room that is left
};

// Places a text in the span `from` to `to` of a row: sets textRect, fullTextRect, fitCount,
// fitWidth and fitted. `alignment` is 2 for right, 68 for centred, anything else for left. A null
// or empty text changes nothing.
ZENU_TEST_EXPORT void placeTextInSpan(CellInputs const & inputs, int from, int to, int alignment,
                                      CElementRects * rects);

// The alignment of a column's texts, as placeTextInSpan takes it: right beats centred.
ZENU_TEST_EXPORT int textAlignment(CGCColumn const & column);

// Whether cells of the column are indented by their row's level: by tree lines or by bit 0x10000 of
// the format. The tree flag alone does not indent.
ZENU_TEST_EXPORT bool isIndented(CGCColumn const & column);

} // namespace zenu
