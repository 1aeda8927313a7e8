#include <zenu/zenu.h>

#include <QApplication>

int main(int argc, char ** argv)
{
    QApplication application(argc, argv);
    zenu::KGridCtrl grid(nullptr, 0, "first", 0, zenu::GCS_HORZLINES);

    char title[] = "Continents and countries";
    zenu::GC_COLUMN column;
    column.mask = zenu::GCCM_TEXT | zenu::GCCM_WIDTH | zenu::GCCM_FLAGS;
    column.text = title;
    column.width = 280;
    column.flags = zenu::GCCF_TREE | zenu::GCCF_TREELINES;
    zenu::tag_HCOLUMN * const name = grid.AddColumn(&column);

    zenu::tag_HROW * const europe = grid.InsertRow(zenu::GC_ROOT, zenu::GCI_LAST);
    grid.SetItemText(europe, name, "Europe");
    for (char const * country : {"Estonia", "Italy", "Portugal"}) {
        grid.SetItemText(grid.InsertRow(europe, zenu::GCI_LAST), name, country);
    }
    grid.Expand(europe, zenu::GCE_EXPAND);

    grid.resize(300, 160);
    grid.show();
    return application.exec();
}
