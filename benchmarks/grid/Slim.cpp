#include "Slim.h"

#include <cstdio>

namespace bench {

ZenuSlim::ZenuSlim()
{
    grid.SetSlimGridCallback(this);
    grid.SetDefaultHeight(rowHeight);
    for (int column = 0; column < 3; ++column) {
        grid.AddColumn("Column", 0, windowWidth / 8);
    }
    grid.resize(windowWidth, windowHeight);
    grid.show();
    frame(grid);
    settle(grid);
}

void ZenuSlim::prepare(int rows, bool underOneRow)
{
    rowCount = rows;
    if (underOneRow) {
        top = grid.InsertSlimRow(-1, true, zenu::GC_ROOT, zenu::GCI_LAST);
        frame(grid);
        settle(grid);
    }
}

void ZenuSlim::load()
{
    if (top) {
        grid.Expand(top, zenu::GCE_EXPAND);
        return;
    }
    std::vector<zenu::GC_SLIMROWDATA> rows;
    rows.reserve(static_cast<std::size_t>(rowCount));
    for (int i = 0; i < rowCount; ++i) {
        rows.push_back({nullptr, i, 0});
    }
    grid.InsertSlimRows(rowCount, rows.data(), zenu::GC_ROOT, zenu::GCI_LAST);
    grid.update(); // left to the application
}

char const * ZenuSlim::GetItemText(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN *)
{
    std::snprintf(text, sizeof text, "%ld", param);
    return text;
}

void ZenuSlim::GetSubRows(zenu::tag_HROW *, long, int count, zenu::GC_SLIMROWDATA * rows)
{
    for (int i = 0; i < count; ++i) {
        rows[i].param = i;
        rows[i].hasChildren = 0;
    }
}

LeanSlim::LeanSlim()
{
    view.setUniformRowHeights(true);
    view.setModel(&model);
    view.resize(windowWidth, windowHeight);
    for (int column = 0; column < 3; ++column) {
        view.setColumnWidth(column, windowWidth / 8);
    }
    view.show();
    frame(view);
    settle(view);
}

void LeanSlim::prepare(int rows, bool underOneRow)
{
    rowCount = rows;
    isTree = underOneRow;
    if (isTree) {
        model.fill(rowCount, true);
        frame(view);
        settle(view);
    } else {
        view.setRootIsDecorated(false);
    }
}

void LeanSlim::load()
{
    if (isTree) {
        view.expand(model.index(0, 0));
    } else {
        model.fill(rowCount, false);
    }
}

} // namespace bench
