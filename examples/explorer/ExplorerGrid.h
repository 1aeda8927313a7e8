#pragma once

#include "examples/explorer/rows/RowSource.h"

#include <zenu/grid/KGridCtrl.h>

#include <functional>

class QLineEdit;

namespace explorer {

class ExplorerDrag;

/// A grid with the columns and icons of the explorer. It shows slim rows of a RowSource, sorts
/// them, scrolls with the wheel, and gives the first column the room that the others leave. What
/// its rows stand for it does not know: signals tell what the user wants done with them.
class ExplorerGrid : public zenu::KGridCtrl
{
    Q_OBJECT
public:
    explicit ExplorerGrid(QWidget * parent = nullptr);

    /// Appends the top row of a source, which is not owned, and opens it. One source at a time:
    /// delete all rows first.
    void addTopRow(RowSource * source);

    /// The row with the focus, null for none.
    zenu::tag_HROW * currentRow() const;
    /// Selects the row alone; null is ignored.
    void selectOnly(zenu::tag_HROW * row);
    /// The same, and scrolls it into view.
    void setCurrentRow(zenu::tag_HROW * row);
    /// Where rows are drawn, in widget coordinates.
    QRect rowsRect() const;

    /// Drags rows, when it is told which ones.
    ExplorerDrag * drag() const { return drags; }
    /// Sets the function that says whether a cell may be edited, or its check box flipped. Without
    /// one none may.
    using MayEdit = std::function<bool(zenu::tag_HROW *, Column)>;
    void setMayEdit(MayEdit function) { mayEdit = std::move(function); }

    /// Sorts by a column and shows it in the header. By name ascending is the stored order, which
    /// costs no sorting.
    void sortBy(Column column, bool ascending);
    Column sortColumn() const { return sorting.column; }
    bool isSortedAscending() const { return sorting.ascending; }

    /// Makes each column as wide as its texts, or one.
    void fitColumns();
    void fitColumn(Column column);
    /// The widths that the user gave the columns; none as long as they follow the grid's width.
    QList<int> columnWidths() const;
    /// Sets widths that were read by columnWidths. Others are ignored.
    void setColumnWidths(QList<int> const & widths);

Q_SIGNALS:
    /// Rows were opened or closed, or another row is current.
    void rowsChanged();
    /// The header of a column was clicked, or the divider behind it twice.
    void headerClicked(explorer::Column column);
    void dividerDoubleClicked(explorer::Column column);
    /// The current row was clicked twice. It may be deleted.
    void rowDoubleClicked();
    /// A menu for the selected rows is asked for at a place on the screen.
    void menuWanted(QPoint const & place);
    /// The space bar was pressed in the column of check boxes.
    void flipWanted();
    /// An edit has begun.
    void editorOpened(QLineEdit * editor);

protected:
    void OnExpanded(zenu::tag_HROW * row) override;
    void OnSelectionChanged() override;
    bool OnSelectionChanging(zenu::GC_SELECTIONCHANGE * change) override;
    bool OnItemChanging(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column) override;
    void OnKeyPressed(QKeyEvent * event) override;
    bool OnClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) override;
    bool OnRightClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) override;
    bool OnDoubleClick(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, unsigned element) override;
    void OnHover(zenu::tag_HROW * row, zenu::tag_HCOLUMN * column, int buttonState) override;
    void OnDragEnter(QDragEnterEvent * event, zenu::tag_HROW * row, zenu::tag_HCOLUMN *) override;
    void OnDragMove(QDragMoveEvent * event, zenu::tag_HROW * row, zenu::tag_HCOLUMN *) override;
    void OnDragLeave(QDragLeaveEvent * event) override;
    void OnDrop(QDropEvent * event, zenu::tag_HROW * row, zenu::tag_HCOLUMN *) override;
    void OnColumnResized(zenu::tag_HCOLUMN * column, int width) override;
    void resizeEvent(QResizeEvent * event) override;
    void wheelEvent(QWheelEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void contextMenuEvent(QContextMenuEvent * event) override;
    bool event(QEvent * event) override;

private:
    void addColumns();
    void watchHeader();
    void setIcons();
    void setColors();
    void stretchName();

    Sorting sorting;
    ExplorerDrag * drags;
    MayEdit mayEdit;
    QPoint pressPoint;
    bool stretches = true; // until the user sizes a column
    int wheelSum = 0;      // eighths of a degree that are no whole line yet
};

} // namespace explorer
