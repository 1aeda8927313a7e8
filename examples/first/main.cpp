#include <zenu/zenu.h>

#include <QApplication>

int main(int argc, char ** argv)
{
    QApplication application(argc, argv);
    zenu::KGridCtrl grid(nullptr, 0, "first", 0, zenu::GCS_HORZLINES);

    zenu::tag_HCOLUMN * const name = grid.AddColumn("Continents and countries", 0, 200);
    zenu::tag_HCOLUMN * const capital = grid.AddColumn("Capital", 0, 100);
    zenu::GC_COLUMN tree;
    tree.mask = zenu::GCCM_FLAGS;
    tree.flags = zenu::GCCF_TREE | zenu::GCCF_TREELINES;
    grid.SetColumn(name, &tree);

    zenu::tag_HROW * const europe = grid.InsertRow(zenu::GC_ROOT, zenu::GCI_LAST);
    grid.SetItemText(europe, name, "Europe");
    char const * const countries[][2] = {{"Estonia", "Tallinn"}, {"Italy", "Rome"}};
    for (auto const & [country, town] : countries) {
        zenu::tag_HROW * const row = grid.InsertRow(europe, zenu::GCI_LAST);
        grid.SetItemText(row, name, country);
        grid.SetItemText(row, capital, town);
    }
    grid.Expand(europe, zenu::GCE_EXPAND);

    grid.resize(320, 160);
    grid.show();
    return application.exec();
}
