#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/grid/GridRecords.h"
#include "zenu/grid/IGridNotification.h"
#include "zenu/grid/ISlimGridCallback.h"
#include "zenu/scroll/KScrolledWidget.h"

#include <QColor>
#include <QPoint>
#include <QRect>

#include <concepts>
#include <iterator>
#include <memory>
#include <string>

class QPixmap;

namespace zenu {

class KHeader;
class KPixmapSet;

/// A grid and tree-list control for very many rows: handles instead of objects, records with mask
/// bits instead of properties, a notification interface instead of signals.
///
/// Rows form a tree. Ordinary rows own their cells, sections are rows with a title, and slim rows
/// own nothing and ask ISlimGridCallback. Changes only mark the visible order as dirty; the first
/// reader, at the latest the next paint, rebuilds it, so a batch of changes costs one rebuild.
///
/// No operation throws or reports a text. A stale or foreign row handle or an unknown column makes
/// it answer with its failure value (false, null, GC_NOCOLUMN, 0, black), unless the grid trusts
/// its handles (GCXS_FASTLOCATOR). Points and rectangles are in widget coordinates and logical
/// pixels; contents coordinates start at the top left of the first row and do not move with
/// scrolling. Texts are Latin-1 and are copied. GUI thread only.
class ZENU_EXPORT KGridCtrl : public KScrolledWidget, public IGridNotification
{
    Q_OBJECT
public:
    class PrivateData;

    /// A walk over rows that is begun with `begin`: it steps with GetNextRow and ends as those
    /// walks do when rows change. Equality looks at the row alone.
    class ZENU_EXPORT iterator
    {
    public:
        /// What the standard algorithms ask of an iterator.
        using iterator_category = std::input_iterator_tag;
        using value_type = tag_HROW *;
        using difference_type = std::ptrdiff_t;
        using pointer = tag_HROW * const *;
        using reference = tag_HROW *;

        iterator() = default;
        /// The current row, null past the end.
        tag_HROW * operator*() const { return row; }
        iterator & operator++();
        iterator operator++(int);
        /// `steps` rows further; none for a number below 1.
        iterator operator+(int steps) const;
        bool operator==(iterator const & other) const { return row == other.row; }
        bool operator!=(iterator const & other) const { return row != other.row; }

    private:
        friend class KGridCtrl;
        tag_HROW * row = nullptr;
        unsigned stepping = 0; // GCN_, 0 ends the walk
        KGridCtrl const * grid = nullptr;
    };
    /// The same: a walk changes no row.
    using const_iterator = iterator;

    /// `style` is made of GCS_ bits and stays. `flags` are Qt::WindowFlags, `name` the object name
    /// or null. The grid starts out as its own notification sink.
    explicit KGridCtrl(QWidget * parent = nullptr, int id = 0, char const * name = nullptr,
                       unsigned int flags = 0, long style = 0, long reserved = 0);
    ~KGridCtrl() override;

    /// \name Columns
    /// @{

    /// Appends a column. GC_NOCOLUMN for a kind that does not exist.
    tag_HCOLUMN * AddColumn(GC_COLUMN const * column);
    /// Appends a text column; `format` is its alignment, `width` in pixels.
    tag_HCOLUMN * AddColumn(char const * text, int format, int width);
    /// Inserts a column at a display position; -1 and any too large value mean the last one.
    tag_HCOLUMN * InsertColumn(int index, GC_COLUMN const * column);
    /// Inserts a text column. The third argument is not read: the format is always 1.
    tag_HCOLUMN * InsertColumn(int index, char const * text, int ignored, int width);
    /// Deletes a column with its items.
    bool DeleteColumn(tag_HCOLUMN * column);
    /// Writes the fields that the record's mask names. A kind of 7 and above is refused with false,
    /// after the width has been taken. Rows keep their items over a change of kind.
    bool SetColumn(tag_HCOLUMN * column, GC_COLUMN const * record);
    /// Fills format, kind, flags, width and order, and with GCCM_TEXT the record's buffer.
    bool GetColumn(tag_HCOLUMN * column, GC_COLUMN * record) const;
    /// The number of columns, hidden ones included.
    int GetColumnsCount() const;
    /// Width in pixels, 0 for an unknown column.
    int GetColumnWidth(tag_HCOLUMN * column) const;
    bool SetColumnWidth(tag_HCOLUMN * column, int width);
    /// The width in which every visible row's text fits, 0 without rows. Changes nothing. Measures
    /// the cell of every row in the visible order.
    int BestFit(tag_HCOLUMN * column) const;
    /// Shows or hides a column. Hidden columns keep their place, items and handle.
    void ShowColumn(tag_HCOLUMN * column, bool show);
    /// Fills in the columns by display order, hidden ones included. False without columns and for a
    /// count below their number.
    bool GetColumnOrderArray(tag_HCOLUMN ** columns, int count) const;
    /// Gives each column its place in the array. False unless the count is that of the columns.
    bool SetColumnOrderArray(tag_HCOLUMN ** columns, int count);
    /// Column of an item of the header, GC_NOCOLUMN for a bad index.
    tag_HCOLUMN * HeaderItem2Column(int index) const;
    /// Index in the header, -1 for a hidden or unknown column.
    int Column2HeaderItem(tag_HCOLUMN * column) const;
    /// The column of the focused cell, GC_NOCOLUMN for none.
    tag_HCOLUMN * GetFocusedColumn() const;
    /// Stores the column's place in order of creation, which is taken for its place on display: the
    /// two differ once columns were reordered. Applications rely on it, so it stays. Returns the
    /// column that was focused, GC_NOCOLUMN for none.
    tag_HCOLUMN * SetFocusedColumn(tag_HCOLUMN * column);
    /// Repaints the column if it is shown.
    void InvalidateColumn(tag_HCOLUMN * column);
    /// Owned by the grid.
    KHeader * getHeader() const;

    /// @}
    /// \name Rows
    /// @{

    /// Inserts an ordinary row under `row->parent`, which is read whatever the mask says (GC_ROOT
    /// for the top level), after a sibling, GCI_FIRST or GCI_LAST, and applies the record's other
    /// fields. Null on failure.
    tag_HROW * InsertRow(GC_ROW * row, tag_HROW * after);
    tag_HROW * InsertRow(tag_HROW * parent, tag_HROW * after);
    /// Inserts a section at the top level. Its title stays empty, whatever `text` says: it is set
    /// by SetSection with GCRM_SECTIONTEXT. Applications rely on it, so it stays.
    tag_HROW * InsertSection(char const * text, tag_HROW * after);
    /// Inserts a slim row, at the top level or under an ordinary row. Null on failure. A callback
    /// should be set first, see SetSlimGridCallback.
    tag_HROW * InsertSlimRow(long param, bool hasChildren, tag_HROW * parent, tag_HROW * after,
                             int height = -1);
    /// The same for a number of any other type: a literal 0 could be a null record as well.
    template <std::integral Param>
    tag_HROW * InsertSlimRow(Param param, bool hasChildren, tag_HROW * parent, tag_HROW * after,
                             int height = -1)
    {
        return InsertSlimRow(static_cast<long>(param), hasChildren, parent, after, height);
    }
    /// Inserts the rows that the record tells of; the other arguments are ignored.
    bool InsertSlimRow(GC_INSERTSLIMROW * rows, bool = false, tag_HROW * = nullptr,
                       tag_HROW * = nullptr, int = 0);
    /// Inserts rows together, far faster than one by one. `row` of each record is filled in. On
    /// failure nothing is inserted and `row` of each record is null.
    bool InsertSlimRows(int count, GC_SLIMROWDATA * rows, tag_HROW * parent, tag_HROW * after);
    /// Deletes a row with all rows below it. A child of a slim row can't be deleted alone: false.
    /// Does not repaint. No selection notification is sent.
    bool DeleteRow(tag_HROW * row);
    /// Deletes all rows and keeps the columns.
    bool DeleteAllRows();
    /// Deletes all rows and columns, and the image lists unless GCS_KEEPIMAGES. Column ids start at
    /// 0 again, so a stale column handle may name a new column.
    bool Reset();
    /// Forgets the children of a slim row; expanded, it loads them again when asked. False for rows
    /// that can't have slim children.
    bool ResetSlimRow(tag_HROW * row);
    /// Expands or collapses a row or all rows, by a GCE_ code. False for a bad handle alone: a veto
    /// of OnExpanding answers true.
    bool Expand(tag_HROW * row, unsigned int code);
    /// Sorts the visible order, each group of siblings for itself, by a column's text without
    /// regard to case. The stored order stays and comes back with Sort(nullptr).
    void Sort(tag_HCOLUMN * column, bool ascending);
    /// Sorts by a comparison of the application, called in the middle of rebuilding: it must not
    /// change the grid.
    void Sort(GC_COMPAREPROC compare, long param);
    /// Sorts by a record; null ends sorting.
    void Sort(GC_SORT * sort);

    /// Reads a row. For slim rows the record is filled, without colours, and the answer is false.
    bool GetRow(tag_HROW * row, GC_ROW * record) const;
    /// Writes the fields that the record's mask names; the parent is not one of them. Slim rows
    /// take state, param and height, and the answer is false.
    bool SetRow(tag_HROW * row, GC_ROW * record);
    /// As GetRow, and the title with GCRM_SECTIONTEXT.
    bool GetSection(tag_HROW * row, GC_SECTION * record) const;
    /// As SetRow, and the title with GCRM_SECTIONTEXT.
    bool SetSection(tag_HROW * row, GC_SECTION * record);
    /// Leaves the buffer as it was and says whether the handle is valid. The title is read with
    /// GetSection and GCRM_SECTIONTEXT. Applications rely on it, so it stays.
    bool GetSectionText(tag_HROW * row, char * text, int size) const;
    /// Changes nothing and says whether the handle is valid. The title is set with SetSection and
    /// GCRM_SECTIONTEXT.
    bool SetSectionText(tag_HROW * row, char const * text);
    /// The application's value, 0 for a bad handle.
    unsigned long GetRowParam(tag_HROW * row) const;
    bool SetRowParam(tag_HROW * row, unsigned long param);
    /// Height in pixels; 0 for a bad handle and a row that is not visible.
    unsigned int GetRowHeight(tag_HROW * row) const;
    /// Gives the row a height of its own. -1 is stored as a height: SetRow with GCRM_HEIGHT and -1
    /// takes it away.
    bool SetRowHeight(tag_HROW * row, int height);
    /// The row's top and bottom across the client rectangle. (0, 0, 0, 0) for a row that is not in
    /// the visible order, with true.
    bool GetRowRect(tag_HROW * row, QRect * rect) const;
    /// Black for a bad handle and for slim rows.
    QColor GetRowTextColor(tag_HROW * row) const;
    /// As above, of the background.
    QColor GetRowBkColor(tag_HROW * row) const;
    /// False for a bad handle.
    bool SetRowTextColor(tag_HROW * row, QColor const & color);
    /// Leaves the background as it was and unsets the text colour. A background is set by SetRow
    /// with GCRM_BKCOLOR. Applications rely on it, so it stays.
    bool SetRowBkColor(tag_HROW * row, QColor const & color);
    /// Repaints the row if it is on display.
    void InvalidateRow(tag_HROW * row);
    /// All rows; slim rows count when they are loaded.
    unsigned int GetRowCount() const;
    /// Rows in the visible order.
    unsigned int GetExpandedCount() const;
    /// Rows on display.
    unsigned int GetVisibleCount() const;
    /// Selected rows.
    unsigned int GetSelectedCount() const;
    /// First row on display, null without rows.
    tag_HROW * GetTopIndex() const;
    /// Last row on display, null without rows.
    tag_HROW * GetBottomIndex() const;
    /// The row that a GCN_ flag asks for, null for none. Walks with a FIRST and a NEXT are cached:
    /// NEXT wants the row that the walk gave last. A walk over all, shown, visible or selected rows
    /// ends at the next step after its rows changed; one over children goes on.
    tag_HROW * GetNextRow(unsigned int flags, tag_HROW * row = nullptr) const;
    /// Brings the visible order up to date now.
    void UpdateVisibleRows();
    /// A walk that starts with GetNextRow(flags, row). GCN_ALL_FIRST, GCN_CHILD_FIRST,
    /// GCN_SHOWN_FIRST, GCN_SELECTED_FIRST and GCN_VISIBLE_FIRST step on; any other flag gives one
    /// row.
    iterator begin(unsigned int flags, tag_HROW * row = nullptr);
    const_iterator begin(unsigned int flags, tag_HROW * row = nullptr) const;
    /// Where every walk ends: a null row.
    iterator end();
    const_iterator end() const;

    /// @}
    /// \name Items
    /// @{

    /// Reads an item. False for slim rows, which have none, and for sections, whose title is read
    /// all the same.
    bool GetItem(tag_HROW * row, tag_HCOLUMN * column, GC_ITEM * item) const;
    /// Writes the fields that the record's mask names and repaints the cell if it changed.
    bool SetItem(tag_HROW * row, tag_HCOLUMN * column, GC_ITEM * item);
    bool SetItem(tag_HROW * row, tag_HCOLUMN * column, unsigned int mask, char const * text,
                 int image, int state);
    /// Text of a cell of any row class, also of the text function or the slim callback; empty for a
    /// bad handle.
    std::string GetItemText(tag_HROW * row, tag_HCOLUMN * column) const;
    /// Length of that text in bytes, 0 for a bad handle.
    int GetItemTextLen(tag_HROW * row, tag_HCOLUMN * column) const;
    /// Copies the text; null takes it away, GC_TEXTCALLBACK asks the text function.
    bool SetItemText(tag_HROW * row, tag_HCOLUMN * column, char const * text);
    /// Repaints the cell if it is on display.
    void InvalidateItem(tag_HROW * row, tag_HCOLUMN * column);
    void InvalidateItem(tag_HROW * row, tag_HCOLUMN * column) const;
    /// Sets the function that gives the texts of items set to GC_TEXTCALLBACK, and its first
    /// argument. Always true.
    bool SetTextCallback(GC_TEXTPROC proc, unsigned long cbParam);
    /// The same as SetTextCallback.
    void SetTextCBProc(GC_TEXTPROC proc, unsigned long cbParam);

    /// @}
    /// \name Geometry and hit testing
    /// @{

    /// The cell; (0, 0, 0, 0) and true for a row that is not in the visible order.
    bool GetItemRect(tag_HROW * row, tag_HCOLUMN * column, QRect * rect) const;
    /// Where an editor goes within the cell; otherwise as GetItemRect.
    bool GetItemEditorRect(tag_HROW * row, tag_HCOLUMN * column, QRect * rect) const;
    /// The row and column at a point, null and GC_NOCOLUMN and false for none. Null pointers are
    /// allowed.
    bool HitTest(QPoint const & point, tag_HROW ** row, tag_HCOLUMN ** column) const;
    /// The row at a point, null for none. A record that is not null is filled from the item hit.
    tag_HROW * HitTest(QPoint const & point, GC_ITEM * item) const;
    /// False for a null record and where nothing is hit.
    bool HitTestEx(QPoint const & point, GC_HITTESTEXINFO * info) const;
    /// Scrolls a row, a column or both into view; either may be invalid.
    void EnsureVisible(tag_HROW * row, tag_HCOLUMN * column);

    /// @}
    /// \name Selection
    /// None of these asks OnSelectionChanging; each tells OnSelectionChanged.
    /// @{

    /// Selects nothing.
    void ClearSelection();
    /// Selects every row of the visible order.
    void SelectAll();
    /// Adds rows to the selection, up to the first bad handle.
    void SelectRows(int count, tag_HROW ** rows);
    /// Adds the row and moves the focus to it, or removes it. False for a bad handle and without
    /// columns on display.
    bool SetRowSel(tag_HROW * row, bool select);
    /// Shows where a drop would go: below the row with `after`, else above it; above all rows for
    /// GCI_FIRST. Null hides the mark. False for a bad handle and a row that is not in the visible
    /// order. There is one mark in the process. It is drawn over the rows as they stand on the
    /// screen, so hide it before you change them.
    bool DrawDragIndicator(tag_HROW * row, bool after);

    /// @}
    /// \name Editing
    /// @{

    /// Moves the focus to a cell and selects its row alone, without a notification, then edits the
    /// text in place: scrolls the cell into view, asks OnItemChanging and opens a line editor over
    /// the cell, which takes the keyboard focus. False when that did not happen: for a bad handle,
    /// a row or column that is not shown, a section, a column without GCCF_EDITABLE or of another
    /// kind than text and text with icon, and when the application refuses. An edit that is open
    /// anywhere in the process is saved first.
    bool EditItem(tag_HROW * row, tag_HCOLUMN * column);
    /// Ends the edit now, saves the text or discards it, tells OnItemChanged in both cases and
    /// takes the keyboard focus. Without an open editor it does nothing: true when asked to save,
    /// false when asked to discard.
    bool EndEditItemNow(bool discard);

    /// @}
    /// \name Appearance
    /// @{

    /// A colour by its GCC_ number, black for any other number.
    QColor GetColor(int number) const;
    /// Sets a colour, repaints if it changed and returns the old one.
    QColor SetColor(int number, QColor const & color);
    /// GetColor and SetColor of GCC_TEXT.
    QColor GetTextColor() const;
    QColor SetTextColor(QColor const & color);
    /// GetColor and SetColor of GCC_BACKGROUND.
    QColor GetBkColor() const;
    QColor SetBkColor(QColor const & color);
    /// GetColor and SetColor of GCC_SEPARATOR.
    QColor GetSepColor() const;
    QColor SetSepColor(QColor const & color);
    /// The height of rows without a height of their own: what SetDefaultHeight gave, else the
    /// automatic height.
    int GetDefaultHeight() const;
    /// -1 returns to the automatic height. Positions of uniform rows follow at once, counts and
    /// bars at the next rebuild, see UpdateVisibleRows.
    void SetDefaultHeight(int height);
    /// Pixels a tree level.
    int GetIndent() const;
    /// -1 returns to the automatic indent.
    void SetIndent(unsigned int indent);
    /// Pixels that a horizontal line step scrolls.
    int GetHScrollDelta() const;
    void SetHScrollDelta(int delta);
    /// An image list by its GCIL_ number, null while it is not set; any other number means the
    /// normal one. Owned by the grid.
    KPixmapSet * GetImageList(int list) const;
    /// Sets an image list of `count` images of `width` by `height` pixels in one strip. With
    /// `useMask` the strip's background becomes transparent. Other numbers are ignored.
    void SetImageList(int list, QPixmap const & strip, int width, int height, int count,
                      bool useMask);

    /// @}
    /// \name Style and plumbing
    /// @{

    /// The extended style word.
    unsigned long GetExStyle() const;
    /// Sets the extended style of GCXS_ bits and returns the old one. GCXS_FASTLOCATOR takes effect
    /// while there are no rows; the word keeps the bit all the same.
    unsigned long SetExStyle(unsigned long style);
    /// The same as GetExStyle and SetExStyle.
    unsigned long GetGridExStyle() const;
    unsigned long SetGridExStyle(unsigned long style);
    /// Replaces the sink; null means no notifications. The grid does not own it.
    void setNotification(IGridNotification * notification);
    IGridNotification * getNotification() const;
    /// Sets the source of slim rows, not owned. Set it before inserting slim rows and keep it as
    /// long as there are some.
    void SetSlimGridCallback(ISlimGridCallback * callback);
    ISlimGridCallback * GetSlimGridCallback() const;
    /// For the library and its tests.
    PrivateData & GetPriv() const { return *d; }
    /// Always true.
    bool AssertValid() const;
    /// Has no effect.
    void SetRedraw(bool redraw);

    /// @}

    bool OnScroll(int hCode, int vCode, unsigned int pos, bool doScroll) override;
    int contentsWidth() const override;
    int contentsHeight() const override;

protected:
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void showEvent(QShowEvent * event) override;
    void hideEvent(QHideEvent * event) override;
    /// A change of the widget's font becomes the grid's and the header's font.
    void changeEvent(QEvent * event) override;
    /// The first focus that a filled grid gains goes to the first cell and selects its row. An
    /// application must not delete the grid in OnFocusIn: Qt goes on to use the widget.
    void focusInEvent(QFocusEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void leaveEvent(QEvent * event) override;
    void timerEvent(QTimerEvent * event) override;
    /// Drag and drop events go to the notification sink with the cell under them; accepting one is
    /// up to the application.
    void dragEnterEvent(QDragEnterEvent * event) override;
    void dragMoveEvent(QDragMoveEvent * event) override;
    void dragLeaveEvent(QDragLeaveEvent * event) override;
    void dropEvent(QDropEvent * event) override;
    /// Ends an open edit: an event of type 7113 saves, one of type 7114 discards.
    void customEvent(QEvent * event) override;

private:
    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
