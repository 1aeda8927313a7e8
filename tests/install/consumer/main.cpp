#include <zenu/zenu.h>

#include <QApplication>
#include <QPixmap>

#include <cstdio>

// Shows a grid with a cell, reads the cell back, and answers 0 when all went well.
int main(int argc, char ** argv)
{
    QApplication application(argc, argv);
    zenu::KGridCtrl grid;
    zenu::tag_HCOLUMN * const column = grid.AddColumn("Name", 0, 120);
    zenu::tag_HROW * const row = grid.InsertRow(zenu::GC_ROOT, zenu::GCI_LAST);
    grid.SetItemText(row, column, "installed");
    grid.resize(200, 100);
    grid.show();
    if (grid.grab().isNull() || grid.GetItemText(row, column) != "installed") {
        std::puts("the installed grid does not keep a text");
        return 1;
    }
    return 0;
}
