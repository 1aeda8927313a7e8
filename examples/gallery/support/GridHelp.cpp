#include "examples/gallery/support/GridHelp.h"

#include <zenu/header/KHeader.h>

#include <QFontMetrics>

#include <algorithm>
#include <array>
#include <vector>

namespace gallery {

namespace {

constexpr int titleMargin = 24; // on both sides together
constexpr int textMargin = 8;

int titleWidth(zenu::KGridCtrl const & grid, zenu::tag_HCOLUMN * column)
{
    std::array<char, 128> title{};
    zenu::GC_COLUMN record;
    record.mask = zenu::GCCM_TEXT;
    record.text = title.data();
    record.textMax = int(title.size());
    grid.GetColumn(column, &record);
    return QFontMetrics(grid.font()).horizontalAdvance(QString::fromLatin1(title.data())) +
           titleMargin;
}

} // namespace

void fitColumns(zenu::KGridCtrl & grid)
{
    std::vector<zenu::tag_HCOLUMN *> columns(std::size_t(grid.GetColumnsCount()));
    grid.GetColumnOrderArray(columns.data(), int(columns.size()));
    for (zenu::tag_HCOLUMN * const column : columns) {
        grid.SetColumnWidth(column,
                            std::max(grid.BestFit(column) + textMargin, titleWidth(grid, column)));
    }
}

int heightOf(zenu::KGridCtrl const & grid, int rows)
{
    return grid.getHeader()->getLayout(QRect(0, 0, 100, 0)).height() +
           rows * grid.GetDefaultHeight() + 2;
}

} // namespace gallery
