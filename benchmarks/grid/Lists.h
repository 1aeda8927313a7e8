#pragma once

#include "Frame.h"
#include "LeanModels.h"
#include "Texts.h"

#include <zenu/grid/KGridCtrl.h>

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QTreeView>
#include <QTreeWidget>

#include <memory>
#include <vector>

namespace bench {

// The contestants of the works on a flat list, with the same operations each. A new one is shown
// and empty.

class ZenuList
{
public:
    static constexpr char const * name = "zenu";

    explicit ZenuList(int columns);
    void fill(Texts const & texts);
    bool paintFrame() { return frame(grid); }
    void rest() { settle(grid); }
    QScrollBar * bar() { return grid.getVScrollBar(); }
    void dirtyAll() { grid.update(); }
    bool hits(QPoint const & point);
    void setText(int row, int column, char const * text);
    void sort(int column) { grid.Sort(columnHandles[static_cast<std::size_t>(column)], true); }
    void selectAll() { grid.SelectAll(); }
    void clearSelection() { grid.ClearSelection(); }
    // Rows as they stood when the list was filled.
    void deleteRow(int row)
    {
        grid.DeleteRow(rows[static_cast<std::size_t>(row)]);
        grid.update(); // left to the application
    }
    void deleteAll() { grid.DeleteAllRows(); }
    static constexpr bool keepsRowNumbers = true;
    // Fills in the handles that setText and deleteRow need.
    void lookUpRows();

private:
    Counted<zenu::KGridCtrl> grid;
    std::vector<zenu::tag_HCOLUMN *> columnHandles;
    std::vector<zenu::tag_HROW *> rows;
};

class WidgetList
{
public:
    static constexpr char const * name = "QTreeWidget";

    explicit WidgetList(int columns);
    void fill(Texts const & texts);
    bool paintFrame() { return frame(view); }
    void rest() { settle(view); }
    QScrollBar * bar() { return view.verticalScrollBar(); }
    void dirtyAll() { view.viewport()->update(); }
    bool hits(QPoint const & point) { return view.indexAt(point).isValid(); }
    void setText(int row, int column, char const * text)
    {
        view.topLevelItem(row)->setText(column, QString::fromLatin1(text));
    }
    void deleteRow(int row) { delete view.takeTopLevelItem(row); }
    void deleteAll() { view.clear(); }
    static constexpr bool keepsRowNumbers = false;
    void lookUpRows() {}

private:
    Counted<QTreeWidget> view;
};

template <typename View, int Columns>
class LeanList
{
public:
    static constexpr char const * name =
        std::is_same_v<View, QTableView> ? "QTableView" : "QTreeView";

    explicit LeanList(int)
    {
        if constexpr (std::is_same_v<View, QTreeView>) {
            view.setUniformRowHeights(true);
            view.setRootIsDecorated(false);
        } else {
            view.verticalHeader()->hide();
            view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
            view.verticalHeader()->setMinimumSectionSize(rowHeight);
            view.verticalHeader()->setDefaultSectionSize(rowHeight);
        }
        view.setModel(&model);
        view.resize(windowWidth, windowHeight);
        for (int column = 0; column < Columns; ++column) {
            view.setColumnWidth(column, columnWidth(Columns));
        }
        view.show();
        frame(view);
        settle(view);
    }
    void fill(Texts const & texts) { model.fill(texts); }
    bool paintFrame() { return frame(view); }
    void rest() { settle(view); }
    QScrollBar * bar() { return view.verticalScrollBar(); }
    void dirtyAll() { view.viewport()->update(); }
    bool hits(QPoint const & point) { return view.indexAt(point).isValid(); }
    void setText(int row, int column, char const * text) { model.setText(row, column, text); }
    void sort(int column) { model.sort(column); }
    void selectAll() { view.selectAll(); }
    void clearSelection() { view.clearSelection(); }
    void deleteRow(int row) { model.removeRows(row, 1); }
    void deleteAll() { model.clear(); }
    static constexpr bool keepsRowNumbers = false;
    void lookUpRows() {}

private:
    FlatModel<Columns> model;
    Counted<View> view;
};

} // namespace bench
