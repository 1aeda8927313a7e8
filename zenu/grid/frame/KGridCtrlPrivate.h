#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/events/KToolTip.h"
#include "zenu/grid/KGridCtrl.h"
#include "zenu/grid/frame/KSlimGridCallbackWrapper.h"
#include "zenu/grid/geometry/TextCache.h"
#include "zenu/grid/handles/ChildWalk.h"
#include "zenu/grid/handles/IRowLocator.h"
#include "zenu/grid/handles/RowSet.h"
#include "zenu/grid/inner/IDrawOwnerDraw.h"
#include "zenu/grid/inner/ITextCallback.h"
#include "zenu/grid/look/GridColors.h"
#include "zenu/grid/look/KGridImages.h"
#include "zenu/grid/order/CVisibleRows.h"
#include "zenu/grid/rows/ChildRows.h"
#include "zenu/grid/rows/ColumnSet.h"
#include "zenu/header/IHeaderNotification.h"

#include <QBasicTimer>
#include <QFont>
#include <QPixmap>
#include <QPoint>
#include <QPointer>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class QDropEvent;
class QKeyEvent;
class QMouseEvent;
class QResizeEvent;
class QTimerEvent;

namespace zenu {

class CGCOrdinaryRow;
class CGCSlimRow;
class CellGuard;
class CItemEditor;
class CSetRowData;
class KHeader;
class KPainter;
class RowWatch;
class TreeLock;
struct CDrawContext;
struct CElementRects;

// Stands before the visible rows among the frame's bases, which are built with its address.
struct SlimWrapperHolder
{
    explicit SlimWrapperHolder(KGridCtrl::PrivateData * owner)
        : slimWrapper(owner)
    {
    }
    KSlimGridCallbackWrapper slimWrapper;
};

// A cell that is kept from one event to the next. The row is forgotten when it dies; the column is
// looked up each time.
struct HeldCell
{
    IGCRow * row = nullptr;
    tag_HCOLUMN * column = GC_NOCOLUMN;
};

// All state of one grid, and the invisible root of its rows. Rows, columns and the header talk to
// it through its interfaces and never to KGridCtrl. One source file a topic, Frame*.cpp.
class ZENU_TEST_EXPORT KGridCtrl::PrivateData : private SlimWrapperHolder,
                                                public ITextCallback,
                                                public IDrawOwnerDraw,
                                                public CVisibleRows,
                                                public IHeaderNotification
{
public:
    PrivateData(KGridCtrl * owner, int gridId);
    ~PrivateData() override;
    PrivateData(PrivateData const &) = delete;
    PrivateData & operator=(PrivateData const &) = delete;

    // The grid's end. In the middle of a call to the application the frame outlives it, rows and
    // all, since those who made the call go on with them: they find the grid null, and nobody to
    // call. True then; the frame goes to Keep.
    bool LeaveGrid();
    // Deletes the frame when control is back at the event loop.
    static void Keep(std::unique_ptr<PrivateData> frame);
    // Brings the visible order up to date. False when the grid is gone: the application may be
    // called.
    bool Settle()
    {
        UpdateNow();
        return grid != nullptr;
    }

    // Construction and look: Frame.cpp
    void CreateHeader();
    void ComputeAutoHeight();
    // The same, and the rows are laid out anew when their height changes by it.
    void UpdateAutoHeight();
    int DefaultHeight() const { return defaultHeight != -1 ? defaultHeight : autoHeight; }
    int Indent() const;
    void SetImages(int list, QPixmap const & strip, QSize const & size, int count, bool useMask);
    QColor SwapColor(int number, QColor const & color);
    unsigned long SetExtendedStyle(unsigned long word);
    bool Reset();
    // Drops what was measured and brings the layout up to date after a change of font or style.
    void LookChanged();
    bool HasStyle(GCStyle bit) const { return (style & bit) != 0; }
    ISlimGridCallbackWrapper * Wrapper() { return &slimWrapper; }

    // Columns: FrameColumns.cpp
    tag_HCOLUMN * InsertColumn(int index, GC_COLUMN const * record);
    bool SetColumn(CGCColumn * column, GC_COLUMN const * record, bool updateHeader);
    bool DeleteColumn(CGCColumn * column);
    void DeleteAllColumns();
    void ShowColumn(CGCColumn * column, bool show);
    bool GetColumnOrder(tag_HCOLUMN ** handles, int count) const;
    bool SetColumnOrder(tag_HCOLUMN ** handles, int count);
    int ShownIndexOf(CGCColumn const * column) const;
    CGCColumn * ShownColumn(int index) const;
    void RebuildColumns();
    void PlaceColumns();
    // 0 for a bad handle.
    int BestFit(tag_HCOLUMN * handle);

    // Header, and what it tells: FrameHeader.cpp
    int HeaderItemOf(CGCColumn const * column) const;
    void PlaceHeader();

    // Sorting: FrameSort.cpp
    void Sort(GC_SORT const * sort);

    // Rows: FrameRows.cpp
    // LocateRow for an operation that goes on to read the visible order: that is up to date then,
    // and what the application did when told of it has been looked at. Null when the row is gone.
    IGCRow * LocateSettled(tag_HROW * handle);
    tag_HROW * InsertRow(GC_ROW * record, tag_HROW * after);
    tag_HROW * InsertSection(char const * text, tag_HROW * after);
    bool DeleteRow(IGCRow * row);
    // False while nothing may go.
    bool DeleteAllRows();
    void ForgetRow(IGCRow * row);
    // Lets go of held cells in a row that dies.
    void ForgetCells(IGCRow const * row);
    void ForgetAllCells();
    // A watch comes or goes. Out of line: compilers take the address that is kept for a mistake.
    void SetInnermostWatch(RowWatch * watch);
    // Rows and columns can neither come nor go now: someone walks over them and asks the
    // application on the way.
    bool IsTreeLocked() const { return treeLocks != 0; }
    // The row, or one below it, is being loaded, and must outlive that.
    bool IsLoading(IGCRow const * row) const;

    // Expansion: FrameExpand.cpp
    void Expand(IGCRow * row, unsigned code);
    void ExpandTree(unsigned code);

    // Slim rows: FrameSlimRows.cpp
    bool InsertSlimRows(GC_INSERTSLIMROW * record);
    bool ResetSlimRow(IGCRow * row);
    void LoadSubRows(CGCSlimRow * row, bool expanded, int count);

    // Walks: FrameWalks.cpp
    tag_HROW * NextRow(unsigned flags, tag_HROW * handle);
    void DropWalks();
    void DropAllRowsWalk();
    void DropChildWalk(IGCRow * parent);

    // Data: FrameData.cpp
    bool GetItem(IGCRow * row, CGCColumn * column, GC_ITEM * record);
    bool SetItem(IGCRow * row, CGCColumn * column, GC_ITEM * record);
    // Valid until the next call out; null for none.
    char const * ItemText(IGCRow * row, CGCColumn * column);
    bool IsRowVisible(IGCRow const * row) const;
    unsigned RowState(IGCRow * row);
    bool GetRowRecord(IGCRow * row, GC_ROW * record, GC_SECTION * section);
    bool SetRowRecord(IGCRow * row, GC_ROW * record, GC_SECTION * section);

    // Selection and focus: FrameSelection.cpp
    void AddToSelection(std::span<IGCRow * const> rows);
    void RemoveFromSelection(IGCRow * row);
    void ClearSelectedRows();
    void SelectAllVisible();
    void MoveFocus(int rowIndex, int columnIndex);
    void ClearFocus();
    // The same, and paints nothing.
    void DropFocus();
    void TellSelectionChanged();
    // What a person does asks OnSelectionChanging first. Rows that die meanwhile stay out.
    void SelectOnly(std::span<IGCRow * const> rows);
    void SelectAlso(IGCRow * row);
    void DeselectRow(IGCRow * row);
    // The rows of the visible order from the anchor to this one, whichever stands first; the row
    // alone without an anchor, and when it is not in the order.
    void SelectRange(IGCRow * row);
    // anchorIndex for a range that is extended: `start` if there is none.
    void SetAnchor(int start);

    // Keyboard: FrameKeyboard.cpp
    void GainFocus();
    void LoseFocus();
    // Ignores the event when the grid has nothing to do with it.
    void PressKey(QKeyEvent * event);
    void ResetTypeAhead();

    // Mouse: FrameMouse.cpp
    void PressLeft(QMouseEvent const * event);
    void PressRight(QMouseEvent const * event);
    void DoubleClick(QMouseEvent const * event);
    void MoveMouse(QPoint const & point);
    void LeaveHover();
    void TimeOut(QTimerEvent const * event);

    // Drag and drop: FrameDrag.cpp
    // Passes a drag or drop event on with the cell under it: accepting it is the application's.
    template <typename Event>
    void TellDrag(void (IGridNotification::*tell)(Event *, tag_HROW *, tag_HCOLUMN *),
                  Event * event);
    // Null hides the mark, GCI_FIRST stands for the line above all rows.
    bool DrawDragIndicator(tag_HROW * row, bool after);
    void ForgetDropMark(IGCRow const * row);
    // The grid goes, and the mark with it.
    void LoseDropMark();

    // Editing: FrameEditing.cpp
    // Moves focus and selection to the cell without a word, and StartEdit.
    bool EditCell(IGCRow * row, CGCColumn * column);
    // Opens an editor over the cell; false when the cell can't be edited or the application
    // refuses.
    bool StartEdit(IGCRow * row, CGCColumn * column);
    // The same after half a second.
    void ScheduleEdit(IGCRow * row, CGCColumn * column);
    void CancelDelayedEdit();
    bool EndEdit(bool discard);
    bool IsEditing() const;
    // Before rows or columns come or go: no edit is scheduled or open after it.
    void StopEditing();
    // Whether that would do anything.
    bool HasEdit() const { return editor || pendingEdit.row; }
    void EditTimeOut();
    void EndEditEvent(QEvent * event);
    // Of all selected rows, to the other state than that of this one.
    void FlipCheckBoxes(IGCRow * row, CGCColumn * column);

    // Scrolling: FrameScroll.cpp
    bool Scroll(int hCode, int vCode, unsigned pos, bool doScroll);
    bool ScrollTo(int newLeft, int newTop);
    void UpdateVerticalBar();
    void UpdateHorizontalBar();
    // Bars that show when needed come and go with the contents, and the page with them.
    void LayOutBars();
    // Offset, header, top row and bars after a change of the client rectangle.
    void FitToClient();
    void EnsureRowVisible(IGCRow * row);
    void EnsureColumnVisible(CGCColumn * column);
    void Resized(QResizeEvent * event);
    // Turns of a wheel in eighths of a degree, gathered over all grids of the process; a line each.
    void Wheel(int delta);

    // Geometry: FrameGeometry.cpp
    QRect ClientRect() const { return grid ? grid->getClientRect() : QRect(); }
    void Repaint();
    // In widget coordinates.
    void Repaint(QRect const & rect);
    // In widget coordinates, of a row by its visible index.
    int ViewTopOf(int index);
    int ViewHeightAt(int index);
    // First pixel behind a column.
    int ViewRightOf(CGCColumn const * column) const;
    // False for a column that is hidden. O(1) for those that are not meant to be.
    bool IsOnDisplay(CGCColumn const * column) const;
    // Null for a row that is not in the visible order.
    QRect RowRect(IGCRow * row);
    QRect ItemRect(IGCRow * row, CGCColumn * column);
    // In widget coordinates.
    bool ElementRects(IGCRow * row, CGCColumn * column, CElementRects * rects);
    struct Hit
    {
        IGCRow * row = nullptr;
        CGCColumn * column = nullptr;
    };
    Hit HitTest(QPoint const & point);
    // The GCEL_ element of a hit.
    unsigned HitElementAt(Hit const & hit, QPoint const & point);
    // Asks for a repaint of the whole widget, once a paint: a loop that fills in a million texts
    // pays for it but once.
    void InvalidateAll();
    void InvalidateRow(IGCRow * row);
    void InvalidateItem(IGCRow * row, CGCColumn * column);
    void InvalidateColumn(CGCColumn * column);
    // Index in shownColumns of the column at a contents x, -1 for none. O(log n).
    int ShownColumnAt(int contentsX) const;

    // Painting: FramePaint.cpp
    void Paint(QRegion const & exposed);
    CDrawContext DrawContext();

    // IGCRowParent and the slots of the visible rows
    int GetChildCount(ISlimGridCallbackWrapper * wrapper) override;
    IGCRow * GetChild(int index) override;
    RowSpan GetChildren(ISlimGridCallbackWrapper * wrapper) override;
    void SortRows(std::vector<IGCRow *> & rows) override;
    bool IsSorted() const override { return sortColumn != GC_NOCOLUMN || sortCompare; }
    bool OnTopRowChanging(IGCRow * newTop) override;
    void OnTopRowChanged() override;
    void OnRowsLaidOut() override;
    int GetPageHeight() override;
    bool IsWholeRowsOnly() override { return HasStyle(GCS_WHOLEROWS); }
    IGCRow * LocateRow(tag_HROW * handle) override { return locator->LocateRow(handle); }

    // ITextCallback, IDrawOwnerDraw
    char const * GetText(IGCRow * row, CGCColumn * column) override;
    void DrawItem(KPainter *, IGCRow *, CGCColumn *, CElementRects const &, bool, bool) override {}

    // IHeaderNotification
    void onLeftButtonDown() override;
    void onRightButtonDown() override;
    bool onBeginTrack(int item, int * wh) override;
    bool onTrack(int item, int * wh) override;
    bool onEndTrack(int item, int * wh) override;

    KGridCtrl * grid;           // null once it is gone
    KHeader * header = nullptr; // owned, until the grid is gone
    int id;                     // never read again
    IGridNotification * notification;
    unsigned style = 0;       // GCS_
    unsigned gridExStyle = 0; // GCXS_
    int contentsWidth = 0;    // sum of the widths of the shown columns
    int indent = -1;          // pixels a level, -1 for automatic
    int headerHeight = 0;
    int defaultHeight = -1; // -1 for automatic
    int autoHeight = 20;
    QFont font;
    KGridImages images;
    GridColors colors;
    TextCache textCache;
    unsigned nextColumnId = 0;
    bool shown = true; // between showEvent and hideEvent
    bool destroying = false;
    unsigned treeVersion = 0; // another one after each row that comes or goes
    int treeLocks = 0;
    RowWatch * watches = nullptr;  // on the stack, the last one first
    bool hasOrphanHeights = false; // of rows that could not be inserted
    bool inPaint = false;
    bool allInvalid = false;   // InvalidateAll has asked and no paint has begun since
    bool paintsAll = false;    // the paint that runs covers the whole widget
    bool updatingBars = false; // what the bars say now is not a gesture
    tag_HCOLUMN * sortColumn = GC_NOCOLUMN;
    bool sortAscending = true;
    GC_COMPAREPROC sortCompare = nullptr;
    long sortParam = 0;
    std::unique_ptr<KToolTip> toolTip;
    GC_TEXTPROC textProc = nullptr;
    unsigned long textParam = 0;
    ISlimGridCallback * slimCallback = nullptr;
    ColumnSet columns;
    std::vector<CGCColumn *> shownColumns; // in display order
    ChildRows rootRows;                    // owned
    int hScrollPos = 0;                    // pixels
    int hScrollDelta = 5;                  // pixels a line step
    int focusColumn = -1;                  // index in shownColumns
    RowSet selection;
    int anchorIndex = -1; // where a range began that Shift extends, -1 for none
    std::string typeAhead;
    QBasicTimer searchTimer;
    QPoint mousePoint;
    enum class PressState
    {
        Idle,
        AwaitsMove,
        Moves
    } pressState = PressState::Idle;
    bool dataTipsEnabled = false; // never set
    HeldCell hover;               // the item with GCIS_HOT
    QBasicTimer hoverTimer;       // never started
    HeldCell edited;
    std::unique_ptr<CItemEditor> editor;
    HeldCell pendingEdit;
    QBasicTimer editTimer;
    std::unique_ptr<IRowCacheIterator> allRowsWalk;
    std::unique_ptr<IRowCacheIterator> selectionWalk;
    std::unique_ptr<ChildWalk> rootChildWalk;
    std::unordered_map<IGCRow *, ChildWalk> childWalks;
    std::unique_ptr<IRowLocator> locator;
    std::vector<IGCRow const *> loading; // the slim rows whose children are being asked for

private:
    void tellRowDies(IGCRow const * row);
    void tellAllRowsDie();
    void invalidateShownSections();
    // Nothing is to be found out about a row or cell: the whole grid is painted next, or nothing.
    bool isPaintedAnyway();
    tag_HROW * enterRow(IGCRow * row);
    void dropOrphanHeight(IGCRow const * row);
    void moveFocusOutOf(IGCRow * row);
    void revealChildren(IGCRow * row);
    void expandOne(IGCRow * row, unsigned code);
    bool expandInTree(IGCRow * row, bool expand, bool movesFocus);
    void updateBelowRows();
    void resetSubRows(CGCSlimRow * top);
    void enterSubRows(RowSpan rows);
    void setSubRowHeights(RowSpan rows, std::span<GC_SLIMROWDATA const> records);
    void sortByText(std::vector<IGCRow *> & rows, CGCColumn * column);
    void rebuildHeader();
    CGCColumn * changeKind(CGCColumn * column, int kind);
    void storeWidth(CGCColumn * column, int width, bool updateHeader);
    void updateHeaderFormat(CGCColumn const * column, GC_COLUMN const * record);
    void applyRequests(IGCRow * row, CSetRowData const & requests);
    int shownRows();
    void repaintSelectedRows();
    void repaintFocusColors();
    bool asksForChange(std::span<IGCRow * const> leaving, std::span<IGCRow * const> entering);
    void searchKey(QKeyEvent const * event);
    void search(IGCRow * row, CGCColumn * column, std::string const & prefix);
    int findPrefix(int first, int past, CellGuard const & searched, std::string const & prefix);
    void actOnKey(QKeyEvent * event);
    void expandByKey(bool ctrl, unsigned one, unsigned all);
    void invertSelection();
    void moveByKey(int key, Qt::KeyboardModifiers keys);
    void selectMovedTo(CellGuard const & cell, int from, Qt::KeyboardModifiers keys);
    int lookForColumn(int from, int step) const;
    bool notifyClick(int kind, Hit const & hit, unsigned element);
    bool beginPress(QPoint const & point, Hit * hit, unsigned * element);
    bool selectByPress(CellGuard const & cell, Qt::KeyboardModifiers keys, bool deselects);
    bool pressElement(CellGuard const & cell, unsigned element, bool twice);
    void selectPressed(CellGuard const & cell, Qt::KeyboardModifiers keys, unsigned element,
                       bool wasSelected);
    void editPressed(CellGuard const & cell, unsigned element, bool wasSelected);
    void hoverTimeOut();
    void endOpenEdit();
    void revealCell(CellGuard const & cell);
    CElementRects editorRects(CellGuard const & cell);
    bool openEditor(CellGuard const & cell, char const * text);
    void dropEditor();
    void flipCheckBox(IGCRow * row, tag_HCOLUMN * column, int value);
    int dropLine(tag_HROW * row, int lastKnown);
    void eraseDropMark();
    int lastWholeIndex();
    int targetTop(int code, unsigned pos, int top);
    int targetLeft(int code, unsigned pos) const;
    bool wouldScroll(int hCode, int vCode, int newLeft, int newTop);
    void freeTextsLeaving(int newTop);
    void scrollPixels(int dx, int dy, QRect const & area);
    void scrollRows(int newTop);
    void scrollColumns(int newLeft);
    IGCRow * nextInWalk(unsigned flags, tag_HROW * handle);
    IGCRow * firstOfAll();
    IGCRow * firstChild(tag_HROW * handle);
    IGCRow * sibling(IGCRow * row, bool next);
    tag_HROW * relative(unsigned flags, IGCRow * row);
    void paintRows(KPainter * painter, QRect const & exposed, CDrawContext const & context);
    QPoint halfToneOrigin(qreal ratio);
    void paintAround(KPainter * painter, QRect const & exposed);
};

} // namespace zenu
