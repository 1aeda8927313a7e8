#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridRecords.h"

namespace zenu {

/// The application's side of slim rows: their texts, looks and children are asked for at the moment
/// they are needed, on the GUI thread, in the middle of painting, hit testing and rebuilding. The
/// operations must not change the tree. `row` is the row's handle, `param` its param. Only
/// GetItemText must be written; the rest answers for rows without children, checks and looks of
/// their own. The grid never owns the callback, see KGridCtrl::SetSlimGridCallback.
class ZENU_EXPORT ISlimGridCallback
{
public:
    virtual ~ISlimGridCallback() = default;

    /// Before a paint walks the rows: the place to open a cursor.
    virtual void BeginPaint() {}
    /// After the rows were drawn.
    virtual void EndPaint() {}
    /// Before a slim row is drawn; `info` holds the grid's defaults.
    virtual void GetRowDrawInfo(GC_DRAWROWINFO * /*info*/, tag_HROW * /*row*/, long /*param*/,
                                bool /*selected*/)
    {
    }
    /// After a slim row was drawn.
    virtual void ReleaseRowDrawInfo(GC_DRAWROWINFO * /*info*/, tag_HROW * /*row*/, long /*param*/)
    {
    }
    /// Before a cell is drawn; `halfWidth` is half the column's width, rounded toward zero.
    virtual void GetItemDrawInfo(GC_DRAWITEMINFO * /*info*/, tag_HROW * /*row*/, long /*param*/,
                                 tag_HCOLUMN * /*column*/, int /*halfWidth*/, bool /*selected*/,
                                 bool /*focusCell*/)
    {
    }
    /// Text of a cell, null for none. The pointer is read at once, not kept.
    virtual char const * GetItemText(tag_HROW * row, long param, tag_HCOLUMN * column) = 0;
    /// An edit of the cell ended with this text.
    virtual void SetItemText(tag_HROW * /*row*/, long /*param*/, tag_HCOLUMN * /*column*/,
                             char const * /*text*/)
    {
    }
    /// The cell's check box was flipped.
    virtual void SetItemCheck(tag_HROW * /*row*/, long /*param*/, tag_HCOLUMN * /*column*/,
                              bool /*checked*/)
    {
    }
    /// Check state of the cell; 1 means checked.
    virtual int IsItemChecked(tag_HROW * /*row*/, long /*param*/, tag_HCOLUMN * /*column*/)
    {
        return 0;
    }
    /// Whether the row has children that are not loaded.
    virtual bool HasSubRows(tag_HROW * /*row*/, long /*param*/) { return false; }
    /// How many children to load.
    virtual int GetSubRowCount(tag_HROW * /*row*/, long /*param*/) { return 0; }
    /// Fill `param`, `hasChildren` and `height` of each record.
    virtual void GetSubRows(tag_HROW * /*row*/, long /*param*/, int /*count*/,
                            GC_SLIMROWDATA * /*rows*/)
    {
    }
    /// Rows were created, `row` of each record is filled. At the top level `row` is GC_ROOT and
    /// `param` 0.
    virtual void OnSubRowsCreated(tag_HROW * /*row*/, long /*param*/, int /*count*/,
                                  GC_SLIMROWDATA * /*rows*/)
    {
    }
    /// KGridCtrl::ResetSlimRow dropped these rows; their handles are dead.
    virtual void OnSubRowsDeleted(tag_HROW * /*row*/, long /*param*/, int /*count*/,
                                  GC_SLIMROWDATA * /*rows*/)
    {
    }
};

} // namespace zenu
