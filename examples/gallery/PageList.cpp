#include "examples/gallery/PageList.h"

#include <QLatin1String>
#include <QString>

#include <string>
#include <utility>

namespace gallery {

PageList::PageList(std::function<void(Page const &)> choose)
    : KGridCtrl(nullptr, 0, "pages", 0,
                zenu::GCS_NOHEADER | zenu::GCS_FULLROWSELECT | zenu::GCS_SINGLESEL |
                    zenu::GCS_SHOWSELALWAYS)
    , m_choose(std::move(choose))
    , m_column(AddColumn("Page", 0, 100))
{
    zenu::GC_COLUMN searched;
    searched.mask = zenu::GCCM_FLAGS;
    searched.flags = zenu::GCCF_TYPEAHEAD;
    SetColumn(m_column, &searched);
    setVScrollBarMode(AsNeeded);
    for (PageGroup const & group : pageGroups()) {
        addGroup(group);
    }
    setMinimumWidth(BestFit(m_column) + 2 * GetDefaultHeight());
}

bool PageList::select(QString const & name)
{
    for (auto row = begin(zenu::GCN_ALL_FIRST); row != end(); ++row) {
        unsigned long const place = GetRowParam(*row);
        if (place > 0 && name == QLatin1String(m_pages[place - 1]->name)) {
            ClearSelection();
            SetRowSel(*row, true);
            EnsureVisible(*row, m_column);
            return true;
        }
    }
    return false;
}

QSize PageList::sizeHint() const
{
    return QSize(minimumWidth(), 600);
}

// Titles of groups have no page: the one before stays.
void PageList::OnSelectionChanged()
{
    zenu::tag_HROW * const row = GetNextRow(zenu::GCN_SELECTED_FIRST);
    unsigned long const place = row == nullptr ? 0 : GetRowParam(row);
    if (place > 0 && m_pages[place - 1] != m_chosen) {
        m_chosen = m_pages[place - 1];
        m_choose(*m_chosen);
    }
}

void PageList::resizeEvent(QResizeEvent * event)
{
    KGridCtrl::resizeEvent(event);
    SetColumnWidth(m_column, getClientRect().width());
}

void PageList::addGroup(PageGroup const & group)
{
    zenu::tag_HROW * const title = InsertSection(nullptr, zenu::GCI_LAST);
    std::string text = group.title;
    zenu::GC_SECTION section;
    section.mask = zenu::GCRM_SECTIONTEXT;
    section.text = text.data();
    SetSection(title, &section);
    for (Page const & page : group.pages) {
        m_pages.push_back(&page);
        zenu::tag_HROW * const row = InsertRow(zenu::GC_ROOT, zenu::GCI_LAST);
        SetItemText(row, m_column, page.name);
        SetRowParam(row, m_pages.size());
    }
}

} // namespace gallery
