#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/config/ConfigItems.h>

#include <memory>

namespace gallery {

namespace {

// [code]
void fill(ValueGrid & values)
{
    values.add(SHOW(zenu::KColorItem(Qt::red).getColor()));
    values.add(SHOW(zenu::KBoolItem(true).getBool()));
    values.add(SHOW(zenu::KIntItem(-5).getInt()));
    values.add(SHOW(zenu::KUIntItem(5).getUInt()));
    values.add(SHOW(zenu::KInt64Item(5'000'000'000).getInt64()));
    values.add(SHOW(zenu::KPenItem(QPen(Qt::blue)).getPen().color()));
    values.add(SHOW(zenu::KFontItem(QFont("Sans", 20)).getFont().pointSize()));
    values.add(SHOW(zenu::KBrushItem(QBrush(Qt::green)).getBrush().color()));
    values.add(SHOW(zenu::KStringItem("text").getString()));
    values.add(SHOW(zenu::KStringItem("text").getInt())); // of another type
    values.add(SHOW(zenu::KDummyItem().getString()));

    zenu::KIntItem const item(7);
    std::unique_ptr<zenu::IConfigItem> const copy(item.clone());
    copy->setInt(8);
    values.add(SHOW(copy->getInt() - item.getInt()));
}
// [code]

QWidget * makeValues()
{
    auto * const values = new ValueGrid;
    fill(*values);
    return values;
}

} // namespace

Page configItemsPage()
{
    return {"ConfigItems",
            "The cells in which KConfig holds its values, one class a type.",
            {"IConfigItem", "KColorItem", "KBoolItem", "KIntItem", "KUIntItem", "KInt64Item",
             "KPenItem", "KFontItem", "KBrushItem", "KStringItem", "KDummyItem"},
            makeValues};
}

} // namespace gallery
