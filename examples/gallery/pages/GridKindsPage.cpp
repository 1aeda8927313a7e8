#include "examples/gallery/Page.h"
#include "examples/gallery/support/GridHelp.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/grid/GridRecords.h>
#include <zenu/grid/GridTypes.h>
#include <zenu/grid/KGridCtrl.h>

#include <string>

namespace gallery {

namespace {

void setTitle(zenu::KGridCtrl & grid, zenu::tag_HROW * section, std::string title)
{
    zenu::GC_SECTION record;
    record.mask = zenu::GCRM_SECTIONTEXT;
    record.text = title.data();
    grid.SetSection(section, &record);
}

// [code]
zenu::tag_HCOLUMN * addColumn(zenu::KGridCtrl & grid, std::string title, int kind, unsigned flags)
{
    zenu::GC_COLUMN column;
    column.mask = zenu::GCCM_TEXT | zenu::GCCM_WIDTH | zenu::GCCM_KIND | zenu::GCCM_FLAGS;
    column.text = title.data();
    column.width = 110;
    column.kind = kind;
    column.flags = flags;
    return grid.AddColumn(&column);
}

zenu::KGridCtrl * makeKinds()
{
    long const style = zenu::GCS_HORZLINES | zenu::GCS_VERTLINES;
    auto * const grid = new zenu::KGridCtrl(nullptr, 0, "kinds", 0, style);
    grid->SetImageList(zenu::GCIL_NORMAL, shapeStrip(16), 16, 16, shapeCount, false);
    zenu::tag_HCOLUMN * const columns[] = {
        addColumn(*grid, "Text", zenu::GCCK_TEXT, zenu::GCCF_EDITABLE | zenu::GCCF_CLICKEDIT),
        addColumn(*grid, "With icon", zenu::GCCK_TEXTWITHICON, 0),
        addColumn(*grid, "Icon", zenu::GCCK_ICON, 0),
        addColumn(*grid, "Check box", zenu::GCCK_CHECKBOX, 0),
        addColumn(*grid, "Check and icon", zenu::GCCK_CHECKBOXWITHICON, 0)};

    setTitle(*grid, grid->InsertSection(nullptr, zenu::GCI_LAST), "A section: a row with a title");
    char const * const texts[] = {"Ash", "Birch", "Cedar", "Dogwood"};
    for (int i = 0; i < shapeCount; ++i) {
        zenu::GC_ROW row;
        row.mask = zenu::GCRM_BKCOLOR;
        row.parent = zenu::GC_ROOT;
        row.bkColor = i == 1 ? grid->GetColor(zenu::GCC_INACTIVESELBACKGROUND) : QColor();
        zenu::tag_HROW * const handle = grid->InsertRow(&row, zenu::GCI_LAST);
        for (zenu::tag_HCOLUMN * const column : columns) {
            grid->SetItemText(handle, column, texts[i]);
            zenu::GC_ITEM item;
            item.mask = zenu::GCIM_IMAGE | zenu::GCIM_VALUE;
            item.image = i;
            item.value = i % 2;
            grid->SetItem(handle, column, &item);
        }
    }
    return grid;
}
// [code]

QWidget * makePage()
{
    zenu::KGridCtrl * const grid = makeKinds();
    fitColumns(*grid);
    grid->setMinimumHeight(heightOf(*grid, 6));
    return grid;
}

} // namespace

Page gridKindsPage()
{
    return {"GridKinds",
            "Columns of several kinds, a section, and a row with a colour of its own. A click into "
            "the focused text edits it, one on a box checks it.",
            {"GridRecords.h", "GridTypes.h"},
            makePage};
}

} // namespace gallery
