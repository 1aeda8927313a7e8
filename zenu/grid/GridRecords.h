#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridTypes.h"

#include <QColor>

class QFont;

namespace zenu {

/// The colour that stands for "not set" in rows, items and draw records: its rgb() is 0xff000000,
/// which opaque black and an invalid colour share.
constexpr QRgb GC_UNSETCOLOR = 0xff000000u;

/// A column, read or written; `mask` holds the GCCM_ bits of the fields meant.
struct GC_COLUMN
{
    unsigned mask = 0;          ///< which fields are meant
    int format = 0;             ///< alignment: bit 0x2 right, bit 0x4 centre, else left
    int width = 0;              ///< pixels
    char * text = nullptr;      ///< title; copied on write, a buffer of `textMax` bytes on read
    int textMax = 0;            ///< size of the buffer on read
    char * listItems = nullptr; ///< choices of a list box; the grid's operations do not read it
    int kind = GCCK_TEXT;       ///< GCCK_
    unsigned flags = 0;         ///< GCCF_
    int order = 0;              ///< display position; filled on every read, ignored on write
};

/// A row, read or written; `mask` holds the GCRM_ bits of the fields meant.
struct GC_ROW
{
    unsigned mask = 0;           ///< which fields are meant
    unsigned state = 0;          ///< GCRS_; filled on every read
    unsigned stateMask = 0;      ///< on write, which bits of `state` count
    tag_HROW * parent = nullptr; ///< GC_ROOT for a top-level row
    int top = 0;                 ///< on read, y in contents coordinates, 0 for a row not visible
    int height = 0;              ///< pixels; on write -1 removes an explicit height
    unsigned long param = 0;     ///< the application's value
    QColor textColor;            ///< of all cells that have none of their own
    QColor bkColor;              ///< of the whole row
    QFont * font = nullptr;      ///< stored as it stands, not owned; don't set GCRM_FONT on a read
};

/// A section row: a row with a title.
struct GC_SECTION : GC_ROW
{
    char * text = nullptr; ///< copied on write, a buffer of `textMax` bytes on read
    int textMax = 0;       ///< size of the buffer on read
};

/// An item, the cell of a row in a column; `mask` holds the GCIM_ bits of the fields meant.
struct GC_ITEM
{
    tag_HROW * row = nullptr;           ///< not used by the grid
    tag_HCOLUMN * column = GC_NOCOLUMN; ///< not used by the grid
    unsigned mask = 0;                  ///< which fields are meant
    unsigned state = 0;                 ///< GCIS_; filled on every read
    unsigned stateMask = 0;             ///< on write, the bits cleared before `state` is or-ed in
    char * text = nullptr;              ///< copied on write, or GC_TEXTCALLBACK; a buffer on read
    int textMax = -1;                   ///< size of the buffer on read
    int value = 0;     ///< check state, list index (0 to 254), alignment, check style, text length
    int image = 0;     ///< which of the three images is said by the mask
    int reserved1 = 0; ///< left alone
    QColor textColor;  ///< filled on every read
    int reserved2 = 0; ///< left alone
};

/// A slim row to create.
struct GC_SLIMROWDATA
{
    tag_HROW * row = nullptr; ///< out: the created row
    long param = 0;           ///< the application's value
    int hasChildren = true;   ///< 0 creates the smaller row that can't have children
    int height = -1;          ///< pixels, -1 for the default height
};

/// Slim rows to insert together.
struct GC_INSERTSLIMROW
{
    tag_HROW * parent = nullptr;     ///< GC_ROOT for the top level
    tag_HROW * after = nullptr;      ///< a sibling, GCI_FIRST or GCI_LAST
    int count = 0;                   ///< records in `rows`
    GC_SLIMROWDATA * rows = nullptr; ///< `row` of each is filled in
};

/// What to sort by.
struct GC_SORT
{
    tag_HCOLUMN * column = GC_NOCOLUMN; ///< by this column's text; GC_NOCOLUMN for `compare`
    bool ascending = false;             ///< used with `column`
    GC_COMPAREPROC compare = nullptr;   ///< used without `column`
    long param = 0;                     ///< first argument of `compare`
};

/// Result of KGridCtrl::HitTestEx.
struct GC_HITTESTEXINFO
{
    int reserved1 = 0;                  ///< left alone
    int reserved2 = 0;                  ///< left alone
    tag_HROW * row = nullptr;           ///< null if nothing was hit
    tag_HCOLUMN * column = GC_NOCOLUMN; ///< GC_NOCOLUMN if nothing was hit
};

/// How a row is drawn. The record never owns its font.
struct GC_DRAWROWINFO
{
    QColor bkColor = QColor::fromRgb(GC_UNSETCOLOR);   ///< unset for the grid's
    QColor textColor = QColor::fromRgb(GC_UNSETCOLOR); ///< unset for the grid's
    bool firstRow = false;                             ///< the first row of the visible order
    bool lastChild = false;                            ///< its parent has no child after it
    bool hasChildren = false;                          ///< an expand button is drawn
    bool expanded = false;                             ///< the button shows minus

    /// The font to draw with, null for the grid's.
    QFont * GetFont() const { return font; }
    /// The font must live until the row has been drawn.
    void SetFont(QFont * newFont) { font = newFont; }

private:
    QFont * font = nullptr;
};

/// How an item is drawn; an image index below 0 means no image.
struct GC_DRAWITEMINFO
{
    int image = -1;         ///< index in the list GCIL_NORMAL
    int overlay = -1;       ///< index in the list GCIL_OVERLAY, drawn over the image
    int state = -1;         ///< index in the list GCIL_STATE
    bool checked = false;   ///< the check box is checked
    bool grayed = false;    ///< the check box is gray
    bool radio = false;     ///< the check box is a radio button
    bool hideCheck = false; ///< the check box is not drawn
    int lead = -1;          ///< index in the list GCIL_LEAD
    QColor textColor = QColor::fromRgb(GC_UNSETCOLOR); ///< unset for that of the row
};

/// The rows that leave and enter the selection; it lives only during the notification.
struct GC_SELECTIONCHANGE
{
    int deselectedCount = 0;          ///< rows that leave
    tag_HROW ** deselected = nullptr; ///< null when empty
    int selectedCount = 0;            ///< rows that enter
    tag_HROW ** selected = nullptr;   ///< null when empty
};

} // namespace zenu
