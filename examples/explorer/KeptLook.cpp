#include "examples/explorer/KeptLook.h"

#include "examples/explorer/ExplorerGrid.h"

#include <QSettings>
#include <QStringList>

namespace explorer {

namespace {

QString const widthsKey = QStringLiteral("columns/widths");
QString const sortKey = QStringLiteral("columns/sorted");
QString const ascendingKey = QStringLiteral("columns/ascending");

} // namespace

void keepLook(ExplorerGrid const & grid, QSettings & settings)
{
    QStringList widths;
    for (int const width : grid.columnWidths()) {
        widths += QString::number(width);
    }
    if (widths.isEmpty()) {
        settings.remove(widthsKey);
    } else {
        settings.setValue(widthsKey, widths);
    }
    settings.setValue(sortKey, static_cast<int>(grid.sortColumn()));
    settings.setValue(ascendingKey, grid.isSortedAscending());
}

void restoreLook(ExplorerGrid & grid, QSettings const & settings)
{
    QList<int> widths;
    for (QString const & text : settings.value(widthsKey).toStringList()) {
        bool isNumber = false;
        int const width = text.toInt(&isNumber);
        widths += isNumber ? width : -1;
    }
    grid.setColumnWidths(widths);
    bool isNumber = false;
    int const column = settings.value(sortKey).toInt(&isNumber);
    if (isNumber && column >= 0 && column < columnCount) {
        grid.sortBy(static_cast<Column>(column), settings.value(ascendingKey, true).toBool());
    }
}

} // namespace explorer
