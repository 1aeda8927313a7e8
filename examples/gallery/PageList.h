#pragma once

#include "examples/gallery/Page.h"

#include <zenu/grid/KGridCtrl.h>

#include <functional>
#include <vector>

class QString;

namespace gallery {

// The titles of all groups and the names of all pages. Is told by itself, as every grid is that
// nobody else listens to.
class PageList : public zenu::KGridCtrl
{
public:
    explicit PageList(std::function<void(Page const &)> choose);

    // Selects a page, with the call that this means; false for an unknown name.
    bool select(QString const & name);

    QSize sizeHint() const override;

protected:
    void OnSelectionChanged() override;
    // The column is as wide as the list.
    void resizeEvent(QResizeEvent * event) override;

private:
    void addGroup(PageGroup const & group);

    std::function<void(Page const &)> m_choose;
    zenu::tag_HCOLUMN * m_column;
    std::vector<Page const *> m_pages; // a row's param is the place here, counted from 1
    Page const * m_chosen = nullptr;
};

} // namespace gallery
