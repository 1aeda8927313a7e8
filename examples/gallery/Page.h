#pragma once

#include <vector>

class QWidget;

namespace gallery {

// One page: a piece of the library in use.
struct Page
{
    char const * name;  // of the source, pages/<name>Page.cpp, and of the picture
    char const * about; // one sentence
    // The public classes that it shows, and public headers without any; all stand in its source.
    std::vector<char const *> shows;
    QWidget * (*make)(); // a new widget, the caller's
};

// Pages under a common title.
struct PageGroup
{
    char const * title;
    std::vector<Page> pages;
};

// All pages, in the order of the list.
std::vector<PageGroup> const & pageGroups();

// What a widget of a page does before a picture of the page is taken: brings up what a user would
// bring up. Windows that it shows are drawn into the picture where they stand.
class PictureScene
{
public:
    virtual ~PictureScene() = default;
    virtual void pose() = 0;
};

} // namespace gallery
