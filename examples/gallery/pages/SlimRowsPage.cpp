#include "examples/gallery/Page.h"
#include "examples/gallery/support/GridHelp.h"

#include <zenu/grid/ISlimGridCallback.h>
#include <zenu/grid/KGridCtrl.h>
#include <zenu/util/StringUtils.h>

#include <QVBoxLayout>

#include <string>
#include <vector>

namespace gallery {

namespace {

// [code]
// The rows hold a number each, and nothing else: all texts are computed while they are drawn.
class Squares : public QWidget, private zenu::ISlimGridCallback
{
public:
    static constexpr int count = 100'000;

    Squares()
        : m_grid(this, 0, "squares", 0, zenu::GCS_HORZLINES | zenu::GCS_FULLROWSELECT)
        , m_number(m_grid.AddColumn("Number", 0, 120))
    {
        m_grid.AddColumn("Square", 0, 160);
        m_grid.SetSlimGridCallback(this);
        std::vector<zenu::GC_SLIMROWDATA> rows(count);
        for (int i = 0; i < count; ++i) {
            rows[std::size_t(i)].param = i;
            rows[std::size_t(i)].hasChildren = false;
        }
        m_grid.InsertSlimRows(count, rows.data(), zenu::GC_ROOT, zenu::GCI_LAST);
        m_grid.setVScrollBarMode(zenu::KScrolledWidget::AlwaysOn);
        (new QVBoxLayout(this))->addWidget(&m_grid);
    }

    zenu::KGridCtrl & grid() { return m_grid; }

private:
    char const * GetItemText(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN * column) override
    {
        m_text = zenu::num2string(column == m_number ? param : param * param);
        return m_text.c_str();
    }

    zenu::KGridCtrl m_grid;
    zenu::tag_HCOLUMN * m_number;
    std::string m_text;
};
// [code]

QWidget * makeSquares()
{
    auto * const page = new Squares;
    page->layout()->setContentsMargins(0, 0, 0, 0);
    page->grid().setMinimumHeight(heightOf(page->grid(), 8));
    page->grid().EnsureVisible(page->grid().GetNextRow(zenu::GCN_ALL_FIRST), zenu::GC_NOCOLUMN);
    return page;
}

} // namespace

Page slimRowsPage()
{
    return {"SlimRows",
            "A hundred thousand rows that ask for their texts; ten million would do as well.",
            {"ISlimGridCallback"},
            makeSquares};
}

} // namespace gallery
