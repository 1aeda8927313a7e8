#pragma once

namespace zenu {

/// Opaque handle of a row. Its value is the row's address; nothing is allocated for it, and it
/// stays valid until the row is deleted. The types behind handles are declared and never defined.
struct tag_HROW;

/// Opaque handle of a column. Its value is the column's id, a number from 0 upwards: 0 is valid.
struct tag_HCOLUMN;

/// The invisible root, wherever a parent is named.
inline tag_HROW * const GC_ROOT = reinterpret_cast<tag_HROW *>(-1L);
/// As an "after" argument: before all siblings.
inline tag_HROW * const GCI_FIRST = reinterpret_cast<tag_HROW *>(-2L);
/// As an "after" argument: after all siblings.
inline tag_HROW * const GCI_LAST = reinterpret_cast<tag_HROW *>(-3L);
/// No column: the failure value of operations that answer with a column.
inline tag_HCOLUMN * const GC_NOCOLUMN = reinterpret_cast<tag_HCOLUMN *>(-1L);
/// As the text of an item: the text comes from the text function, see KGridCtrl::SetTextCallback.
inline char * const GC_TEXTCALLBACK = reinterpret_cast<char *>(-1L);

/// Comparison of two rows, given the sort's parameter and each row's handle and param. Negative
/// means that the first row stands before the second, 0 that their order is kept.
typedef int (*GC_COMPAREPROC)(unsigned long, tag_HROW *, long, tag_HROW *, long);

/// Text of a cell, given the function's parameter, row, column and the row's param. The text is
/// copied or used at once; null means no text.
typedef char const * (*GC_TEXTPROC)(unsigned long, tag_HROW *, tag_HCOLUMN *, long);

/// Kinds of columns.
enum GCColumnKind
{
    GCCK_TEXT = 0,
    GCCK_TEXTWITHICON = 1,
    GCCK_ICON = 2,
    GCCK_OWNERDRAW = 3,
    GCCK_CHECKBOX = 4,
    GCCK_LISTBOX = 5,
    GCCK_COMBOBOX = 6,
    GCCK_CHECKBOXWITHICON = 7
};

/// Mask of GC_COLUMN: which fields are valid.
enum GCColumnMask : unsigned
{
    GCCM_FORMAT = 0x1,
    GCCM_TEXT = 0x2,
    GCCM_WIDTH = 0x4,
    GCCM_KIND = 0x8,
    GCCM_FLAGS = 0x10,
    GCCM_LISTITEMS = 0x20
};

/// Flags of a column.
enum GCColumnFlag : unsigned
{
    GCCF_FIXEDWIDTH = 0x1,    ///< the user can't resize the column
    GCCF_EDITABLE = 0x2,      ///< items may be edited in place
    GCCF_TREE = 0x8,          ///< draws the tree parts
    GCCF_HIDDEN = 0x10,       ///< takes no part in layout and painting
    GCCF_LEAD = 0x20,         ///< cells have a lead image
    GCCF_LEADONHOVER = 0x40,  ///< the lead image shows under the mouse only
    GCCF_TREELINES = 0x80,    ///< tree lines and indentation
    GCCF_FRAMED = 0x400,      ///< framed text cells
    GCCF_DELAYEDEDIT = 0x800, ///< a click starts editing after 500 milliseconds
    GCCF_TYPEAHEAD = 0x1000,  ///< typing searches in this column
    GCCF_DATATIP = 0x2000,    ///< kept, without effect
    GCCF_CLICKEDIT = 0x4000   ///< a press on the focused cell starts editing
};

/// The flags that only columns of an editable kind keep.
constexpr unsigned GCCF_EDITFLAGS = GCCF_EDITABLE | GCCF_DELAYEDEDIT | GCCF_CLICKEDIT;

/// Mask of GC_ROW and GC_SECTION.
enum GCRowMask : unsigned
{
    GCRM_PARENT = 0x1,
    GCRM_HEIGHT = 0x2,
    GCRM_PARAM = 0x4,
    GCRM_TEXTCOLOR = 0x8,
    GCRM_FONT = 0x10,
    GCRM_STATE = 0x20,
    GCRM_BKCOLOR = 0x80,
    GCRM_TOP = 0x100,
    GCRM_SECTIONTEXT = 0x100 ///< sections only; the same bit as GCRM_TOP
};

/// State of a row.
enum GCRowState : unsigned
{
    GCRS_EXPANDED = 0x1,
    GCRS_SELECTED = 0x2,
    GCRS_FOCUSED = 0x4,
    GCRS_VISIBLE = 0x8, ///< all ancestors are expanded
    GCRS_HASCHILDREN = 0x10
};

/// Mask of GC_ITEM.
enum GCItemMask : unsigned
{
    GCIM_TEXT = 0x1,
    GCIM_VALUE = 0x2,
    GCIM_STATE = 0x4,
    GCIM_IMAGE = 0x10,
    GCIM_TEXTLEN = 0x20,
    GCIM_TEXTCOLOR = 0x40,
    GCIM_ALIGN = 0x200,
    GCIM_OVERLAY = 0x800,
    GCIM_STATEIMAGE = 0x1000,
    GCIM_CHECKSTYLE = 0x2000
};

/// State of an item; the three high bits of the byte hold its alignment, see GCIM_ALIGN.
enum GCItemState : unsigned char
{
    GCIS_FOCUSED = 0x1,
    GCIS_HOT = 0x2,
    GCIS_MARKED = 0x4, ///< the cell is being edited
    GCIS_CHECKED = 0x8,
    GCIS_CACHEDTEXT = 0x10 ///< the text is a copy of what the text function gave
};

/// Style of a grid, fixed at construction.
enum GCStyle : unsigned
{
    GCS_NOHEADER = 0x2,
    GCS_VERTLINES = 0x4,
    GCS_HORZLINES = 0x8,
    GCS_FULLROWSELECT = 0x40,
    GCS_FLATLEAD = 0x80,
    GCS_KEEPIMAGES = 0x400,
    GCS_SHOWSELALWAYS = 0x1000,
    GCS_SINGLESEL = 0x2000,
    GCS_AUTOHSCROLL = 0x4000,
    GCS_WHOLEROWS = 0x8000
};

/// Extended style of a grid, see KGridCtrl::SetGridExStyle.
enum GCExStyle : unsigned
{
    GCXS_HEADERDRAG = 0x2, ///< columns are resized by dragging their dividers
    GCXS_FASTLOCATOR = 0x4 ///< row handles are trusted as they stand
};

/// What KGridCtrl::Expand does; GCE_NOSCROLL is or-ed to the first three.
enum GCExpand : unsigned
{
    GCE_EXPAND = 0,
    GCE_COLLAPSE = 1,
    GCE_TOGGLE = 2,
    GCE_EXPANDALL = 3,
    GCE_COLLAPSEALL = 4,
    GCE_NOSCROLL = 0x8000
};

/// Which row KGridCtrl::GetNextRow answers.
enum GCNext : unsigned
{
    GCN_ALL_FIRST = 1,
    GCN_ALL_NEXT = 2,
    GCN_CHILD_FIRST = 3,
    GCN_CHILD_NEXT = 4,
    GCN_SHOWN_FIRST = 5,
    GCN_SHOWN_NEXT = 6,
    GCN_SELECTED_FIRST = 7,
    GCN_SELECTED_NEXT = 8,
    GCN_ROOT = 9,
    GCN_PARENT = 10,
    GCN_VISIBLE_PARENT = 11,
    GCN_FOCUSED = 12,
    GCN_VISIBLE_FIRST = 13,
    GCN_VISIBLE_NEXT = 14,
    GCN_CHILD_PREV = 15,
    GCN_VISIBLE_PREV = 16
};

/// Element of a cell, the result of a hit test and the element of a click.
enum GCElement : unsigned
{
    GCEL_NONE = 0,
    GCEL_INDENT = 1,
    GCEL_BUTTON = 2,
    GCEL_IMAGE = 3,
    GCEL_TEXT = 4,
    GCEL_CHECK = 5,
    GCEL_CELL = 6, ///< elsewhere in the cell
    GCEL_LEAD = 7
};

/// The 21 colours of a grid, as KGridCtrl::GetColor numbers them.
enum GCColor
{
    GCC_SEPARATOR = 1,
    GCC_TEXT = 2,
    GCC_BACKGROUND = 3,
    GCC_FOCUSTEXT = 4,
    GCC_FOCUSBACKGROUND = 5,
    GCC_SELTEXT = 6,
    GCC_SELBACKGROUND = 7,
    GCC_INACTIVESELTEXT = 8,
    GCC_INACTIVESELBACKGROUND = 9,
    GCC_SECTIONTEXT = 10,
    GCC_SECTIONBACKGROUND = 11,
    GCC_SECTIONTOP = 12,
    GCC_SECTIONBOTTOM = 13,
    GCC_SELSECTIONTEXT = 14,
    GCC_SELSECTIONBACKGROUND = 15,
    GCC_SELSECTIONTOP = 16,
    GCC_SELSECTIONBOTTOM = 17,
    GCC_INACTIVESELSECTIONTEXT = 18,
    GCC_INACTIVESELSECTIONBACKGROUND = 19,
    GCC_INACTIVESELSECTIONTOP = 20,
    GCC_INACTIVESELSECTIONBOTTOM = 21
};
/// How many colours there are; their numbers start at 1.
constexpr int GCC_COUNT = 21;

/// Image lists of a grid, as KGridCtrl::SetImageList numbers them.
enum GCImageList
{
    GCIL_NORMAL = 0,
    GCIL_SELECTED = 1,
    GCIL_LEAD = 2,
    GCIL_OVERLAY = 3,
    GCIL_STATE = 4
};

} // namespace zenu
