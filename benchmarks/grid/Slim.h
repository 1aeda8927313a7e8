#pragma once

#include "Frame.h"
#include "LeanModels.h"

#include <zenu/grid/KGridCtrl.h>

#include <QTreeView>

#include <vector>

namespace bench {

// Very many rows whose texts are computed when they are painted: all in one level under one row,
// or at the top.

class ZenuSlim : private zenu::ISlimGridCallback
{
public:
    static constexpr char const * name = "zenu";

    ZenuSlim();
    void prepare(int rows, bool underOneRow);
    void load();
    bool paintFrame() { return frame(grid); }

private:
    char const * GetItemText(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN *) override;
    bool HasSubRows(zenu::tag_HROW * row, long) override { return row == top; }
    int GetSubRowCount(zenu::tag_HROW * row, long) override { return row == top ? rowCount : 0; }
    void GetSubRows(zenu::tag_HROW *, long, int count, zenu::GC_SLIMROWDATA * rows) override;

    Counted<zenu::KGridCtrl> grid;
    zenu::tag_HROW * top = nullptr;
    int rowCount = 0;
    char text[16] = {};
};

class LeanSlim
{
public:
    static constexpr char const * name = "QTreeView, computed model";

    LeanSlim();
    void prepare(int rows, bool underOneRow);
    void load();
    bool paintFrame() { return frame(view); }

private:
    ComputedModel model;
    Counted<QTreeView> view;
    int rowCount = 0;
    bool isTree = false;
};

} // namespace bench
