#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridRecords.h"

class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QKeyEvent;

namespace zenu {

/// What a grid tells its application. Every operation has a default, so an application overrides
/// what it needs. The grid never owns its sink. Answers have no uniform sense: each says which
/// answer stops the action. A row may be null and a column GC_NOCOLUMN where nothing was hit.
class ZENU_EXPORT IGridNotification
{
public:
    virtual ~IGridNotification() = default;

    /// Before rows or columns scroll. `newTop` is the row that comes on top, null past the end.
    /// False cancels.
    virtual bool OnScrolling(tag_HROW * /*newTop*/) { return true; }
    /// After a scroll.
    virtual void OnScrolled() {}
    /// Before a row is expanded or collapsed. False cancels.
    virtual bool OnExpanding(tag_HROW * /*row*/) { return true; }
    /// After a row was expanded or collapsed.
    virtual void OnExpanded(tag_HROW * /*row*/) {}
    /// At the end of key handling, whether the grid took the key or not.
    virtual void OnKeyPressed(QKeyEvent * /*event*/) {}
    /// After the set of selected rows changed.
    virtual void OnSelectionChanged() {}
    /// Before a user's gesture changes the selection. False cancels.
    virtual bool OnSelectionChanging(GC_SELECTIONCHANGE * /*change*/) { return true; }
    /// The grid gained the keyboard focus.
    virtual void OnFocusIn() {}
    /// The grid lost the keyboard focus.
    virtual void OnFocusOut() {}
    /// Before an edit starts or a check box flips. True vetoes.
    virtual bool OnItemChanging(tag_HROW * /*row*/, tag_HCOLUMN * /*column*/) { return false; }
    /// After an edit ended or a check box flipped. The answer is ignored.
    virtual bool OnItemChanged(tag_HROW * /*row*/, tag_HCOLUMN * /*column*/) { return false; }
    /// Left press, with the GCEL_ element hit. False stops the grid's own handling.
    virtual bool OnClick(tag_HROW * /*row*/, tag_HCOLUMN * /*column*/, unsigned /*element*/)
    {
        return true;
    }
    /// Right press, after the selection changed. The answer is ignored.
    virtual bool OnRightClick(tag_HROW * /*row*/, tag_HCOLUMN * /*column*/, unsigned /*element*/)
    {
        return true;
    }
    /// Left double click. True stops the grid's own handling.
    virtual bool OnDoubleClick(tag_HROW * /*row*/, tag_HCOLUMN * /*column*/, unsigned /*element*/)
    {
        return true;
    }
    /// Left press or double click on a lead image. The answer is ignored.
    virtual bool OnLeadClick(tag_HROW * /*row*/, tag_HCOLUMN * /*column*/, unsigned /*element*/)
    {
        return true;
    }
    /// A drag enters the grid over this cell; accepting is the application's business.
    virtual void OnDragEnter(QDragEnterEvent *, tag_HROW * /*row*/, tag_HCOLUMN * /*column*/) {}
    /// A drag moves over this cell.
    virtual void OnDragMove(QDragMoveEvent *, tag_HROW * /*row*/, tag_HCOLUMN * /*column*/) {}
    /// A drag leaves the grid.
    virtual void OnDragLeave(QDragLeaveEvent *) {}
    /// A drop on this cell.
    virtual void OnDrop(QDropEvent *, tag_HROW * /*row*/, tag_HCOLUMN * /*column*/) {}
    /// Once, on the first mouse move after a left press: where an application starts a drag. The
    /// state is that of KEventMonitor::buttonState, so 0 unless the application has a monitor.
    virtual void OnHover(tag_HROW * /*row*/, tag_HCOLUMN * /*column*/, int /*buttonState*/) {}
    /// The user resized a column by its divider, to this width in pixels.
    virtual void OnColumnResized(tag_HCOLUMN * /*column*/, int /*width*/) {}
};

} // namespace zenu
