#pragma once

#include "examples/gallery/Page.h"

#include <QSplitter>

namespace gallery {

class PageList;
class PageView;

// The list of pages at the left, the chosen page at the right. A page lives while it is chosen.
class GalleryWindow : public QSplitter
{
public:
    // With the first page.
    GalleryWindow();

    PageList & list() const { return *m_list; }
    // The page that is shown, another one with each choice.
    PageView & view() const { return *m_view; }

private:
    void showPage(Page const & page);

    PageList * m_list;
    PageView * m_view = nullptr;
};

} // namespace gallery
