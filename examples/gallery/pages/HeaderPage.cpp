#include "examples/gallery/Page.h"
#include "examples/gallery/support/Shapes.h"

#include <zenu/header/KHeader.h>
#include <zenu/header/KHeaderItem.h>
#include <zenu/widgets/KPixmapSet.h>

#include <QLabel>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
void addItems(zenu::KHeader & header)
{
    zenu::KHeaderItemVec items;
    for (char const * const title : {"Name", "Size", "Kind", "Last changed"}) {
        items.insert(-1, zenu::KHeaderItem(title, nullptr, zenu::HeaderFormatText, 30, 120, 0));
    }
    for (int i = 0; i < items.count(); ++i) {
        header.insertItem(i, items[i]);
    }
    header.setJustify(1, zenu::HeaderJustifyRight);
    header.setJustify(2, zenu::HeaderJustifyCenter);
    header.setDragWhenResized(true);
}

class Headers : public QWidget
{
public:
    Headers()
        : m_layout(this)
        , m_shapes(shapeStrip(12), QSize(12, 12), shapeCount, false)
    {
        add("Plain");
        zenu::KHeader & buttons = add("Buttons with sort arrows and hot tracking");
        buttons.setButtons(true);
        buttons.setHotTrack(true);
        buttons.setSortBitmap(0, zenu::HeaderSortFirst);
        zenu::KHeader & flat = add("Flat, with images");
        flat.setFlatView(true);
        flat.setPixmapSet(&m_shapes);
        for (int i = 0; i < shapeCount; ++i) {
            flat.setImage(i, i);
        }
        add("Proportional: it fills its width").setProportional(true);
        zenu::KHeader & sticking = add("The last item reaches to the end");
        sticking.setButtons(true);
        sticking.setStickLastToEdge(true);
    }

private:
    zenu::KHeader & add(char const * title)
    {
        auto * const header = new zenu::KHeader;
        addItems(*header);
        header->setFixedHeight(header->getLayout(QRect(0, 0, 100, 0)).height());
        m_layout.addWidget(new QLabel(QString::fromLatin1(title)));
        m_layout.addWidget(header);
        return *header;
    }
    // [code]

    QVBoxLayout m_layout;
    zenu::KPixmapSet m_shapes;
};

QWidget * makeHeaders()
{
    auto * const page = new Headers;
    page->layout()->setContentsMargins(0, 0, 0, 0);
    return page;
}

} // namespace

Page headerPage()
{
    return {"Header",
            "The strip of titles in its looks; drag the dividers.",
            {"KHeader", "KHeaderItem", "KHeaderItemVec"},
            makeHeaders};
}

} // namespace gallery
