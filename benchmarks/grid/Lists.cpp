#include "Lists.h"

namespace bench {

ZenuList::ZenuList(int columns)
{
    grid.resize(windowWidth, windowHeight);
    grid.SetDefaultHeight(rowHeight);
    for (int column = 0; column < columns; ++column) {
        columnHandles.push_back(grid.AddColumn("Column", 0, columnWidth(columns)));
    }
    grid.show();
    frame(grid);
    settle(grid);
}

void ZenuList::fill(Texts const & texts)
{
    for (int row = 0; row < texts.rows(); ++row) {
        zenu::tag_HROW * const handle = grid.InsertRow(zenu::GC_ROOT, zenu::GCI_LAST);
        for (int column = 0; column < texts.columns(); ++column) {
            grid.SetItemText(handle, columnHandles[static_cast<std::size_t>(column)],
                             texts.at(row, column));
        }
    }
}

void ZenuList::lookUpRows()
{
    rows.clear();
    zenu::tag_HROW * row = grid.GetNextRow(zenu::GCN_VISIBLE_FIRST);
    for (; row; row = grid.GetNextRow(zenu::GCN_VISIBLE_NEXT, row)) {
        rows.push_back(row);
    }
}

bool ZenuList::hits(QPoint const & point)
{
    zenu::tag_HROW * row = nullptr;
    zenu::tag_HCOLUMN * column = nullptr;
    return grid.HitTest(point, &row, &column);
}

void ZenuList::setText(int row, int column, char const * text)
{
    grid.SetItemText(rows[static_cast<std::size_t>(row)],
                     columnHandles[static_cast<std::size_t>(column)], text);
}

WidgetList::WidgetList(int columns)
{
    view.setUniformRowHeights(true);
    view.setRootIsDecorated(false);
    view.setColumnCount(columns);
    view.resize(windowWidth, windowHeight);
    for (int column = 0; column < columns; ++column) {
        view.setColumnWidth(column, columnWidth(columns));
    }
    view.show();
    frame(view);
    settle(view);
}

void WidgetList::fill(Texts const & texts)
{
    QList<QTreeWidgetItem *> items;
    items.reserve(texts.rows());
    for (int row = 0; row < texts.rows(); ++row) {
        auto * const item = new QTreeWidgetItem;
        for (int column = 0; column < texts.columns(); ++column) {
            item->setText(column, QString::fromLatin1(texts.at(row, column)));
        }
        items.push_back(item);
    }
    items.front()->setSizeHint(0, QSize(0, rowHeight));
    view.addTopLevelItems(items);
}

} // namespace bench
