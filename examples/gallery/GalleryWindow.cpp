#include "examples/gallery/GalleryWindow.h"

#include "examples/gallery/PageList.h"
#include "examples/gallery/PageView.h"

namespace gallery {

GalleryWindow::GalleryWindow()
    : m_list(new PageList([this](Page const & page) { showPage(page); }))
{
    setWindowTitle(tr("Gallery"));
    setChildrenCollapsible(false);
    addWidget(m_list);
    m_list->select(QString::fromLatin1(pageGroups().front().pages.front().name));
    setStretchFactor(1, 1);
    resize(1000, 760);
}

void GalleryWindow::showPage(Page const & page)
{
    auto * const view = new PageView(page);
    if (m_view == nullptr) {
        addWidget(view);
    } else {
        delete replaceWidget(1, view);
    }
    m_view = view;
}

} // namespace gallery
