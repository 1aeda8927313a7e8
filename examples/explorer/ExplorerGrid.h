#pragma once

#include "examples/explorer/rows/RowSource.h"

#include <zenu/grid/KGridCtrl.h>

namespace explorer {

/// A grid with the columns and icons of the explorer. It shows slim rows of a RowSource, sorts
/// them, scrolls with the wheel, and gives the first column the room that the others leave.
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
    /// Selects the row alone and scrolls it into view.
    void setCurrentRow(zenu::tag_HROW * row);
    /// Goes to the next rows of the visible order, or back for a negative number.
    void moveCurrentRow(int steps);

    /// Sorts by a column and shows it in the header. By name ascending is the stored order, which
    /// costs no sorting.
    void sortBy(Column column, bool ascending);
    Column sortColumn() const { return sorting.column; }
    bool isSortedAscending() const { return sorting.ascending; }

    /// Makes each column as wide as its texts.
    void fitColumns();

Q_SIGNALS:
    /// Rows were opened or closed, or another row is current.
    void rowsChanged();

protected:
    void OnExpanded(zenu::tag_HROW * row) override;
    void OnSelectionChanged() override;
    void OnColumnResized(zenu::tag_HCOLUMN * column, int width) override;
    void resizeEvent(QResizeEvent * event) override;
    void wheelEvent(QWheelEvent * event) override;
    bool event(QEvent * event) override;

private:
    void addColumns();
    zenu::tag_HROW * rowBelow(zenu::tag_HROW * row);
    void setIcons();
    void setColors();
    void stretchName();

    Sorting sorting;
    bool stretches = true; // until the user sizes a column
    int wheelSum = 0;      // eighths of a degree that are no whole line yet
};

} // namespace explorer
