#include "examples/gallery/Page.h"
#include "examples/gallery/support/GridHelp.h"

#include <zenu/grid/KGridCtrl.h>

namespace gallery {

namespace {

QWidget * makeGrid()
{
    // [code]
    auto * const grid = new zenu::KGridCtrl(nullptr, 0, "countries", 0, zenu::GCS_HORZLINES);
    zenu::tag_HCOLUMN * const name = grid->AddColumn("Continents and countries", 0, 220);
    zenu::tag_HCOLUMN * const capital = grid->AddColumn("Capital", 0, 120);
    zenu::GC_COLUMN tree;
    tree.mask = zenu::GCCM_FLAGS;
    tree.flags = zenu::GCCF_TREE | zenu::GCCF_TREELINES | zenu::GCCF_TYPEAHEAD;
    grid->SetColumn(name, &tree);

    struct Place
    {
        char const * country;
        char const * capital;
    };
    auto const addContinent = [=](char const * continent, std::initializer_list<Place> places) {
        zenu::tag_HROW * const parent = grid->InsertRow(zenu::GC_ROOT, zenu::GCI_LAST);
        grid->SetItemText(parent, name, continent);
        for (Place const & place : places) {
            zenu::tag_HROW * const row = grid->InsertRow(parent, zenu::GCI_LAST);
            grid->SetItemText(row, name, place.country);
            grid->SetItemText(row, capital, place.capital);
        }
        return parent;
    };
    addContinent("Africa", {{"Ghana", "Accra"}, {"Kenya", "Nairobi"}});
    zenu::tag_HROW * const asia =
        addContinent("Asia", {{"Japan", "Tokyo"}, {"Nepal", "Kathmandu"}});
    addContinent("Europe", {{"Estonia", "Tallinn"}, {"Italy", "Rome"}});
    grid->Expand(asia, zenu::GCE_COLLAPSE);
    grid->Sort(name, false);
    grid->SetRowSel(grid->GetNextRow(zenu::GCN_VISIBLE_FIRST), true);
    grid->setVScrollBarMode(zenu::KScrolledWidget::AsNeeded);
    grid->SetGridExStyle(zenu::GCXS_HEADERDRAG);
    // [code]
    fitColumns(*grid);
    grid->setMinimumHeight(heightOf(*grid, 8));
    return grid;
}

} // namespace

Page gridPage()
{
    return {"Grid",
            "A tree of rows, sorted by its first column; type a name to find it.",
            {"KGridCtrl"},
            makeGrid};
}

} // namespace gallery
