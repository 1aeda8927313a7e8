#pragma once

#include "examples/explorer/rows/RowSource.h"

#include <string>

namespace explorer {

/// Any number of rows below one top row. Each is computed from its number whenever the grid asks,
/// so the rows cost nothing here.
class ComputedRows : public RowSource
{
public:
    explicit ComputedRows(int rowCount)
        : count(rowCount)
    {
    }

    void GetItemDrawInfo(zenu::GC_DRAWITEMINFO * info, zenu::tag_HROW * row, long param,
                         zenu::tag_HCOLUMN * column, int halfWidth, bool selected,
                         bool focusCell) override;
    char const * GetItemText(zenu::tag_HROW * row, long param, zenu::tag_HCOLUMN * column) override;
    int IsItemChecked(zenu::tag_HROW * row, long param, zenu::tag_HCOLUMN * column) override;
    bool HasSubRows(zenu::tag_HROW * row, long param) override;
    int GetSubRowCount(zenu::tag_HROW * row, long param) override;
    void GetSubRows(zenu::tag_HROW * row, long param, int count,
                    zenu::GC_SLIMROWDATA * rows) override;
    int compare(long a, long b, Column column, bool ascending) override;
    std::string describe(long param) override;

private:
    int count;
    std::string text;
};

} // namespace explorer
