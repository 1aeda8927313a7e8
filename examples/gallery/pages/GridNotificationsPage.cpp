#include "examples/gallery/Page.h"
#include "examples/gallery/support/GridHelp.h"

#include <zenu/grid/IGridNotification.h>
#include <zenu/grid/KGridCtrl.h>

#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
// Writes down what the grid tells, and keeps one row closed and one text from being edited.
class Listener : public QWidget, private zenu::IGridNotification
{
public:
    Listener()
        : m_grid(this, 0, "told", 0, zenu::GCS_HORZLINES)
        , m_column(m_grid.AddColumn("Select, open, edit", 0, 240))
    {
        zenu::GC_COLUMN column;
        column.mask = zenu::GCCM_FLAGS;
        column.flags =
            zenu::GCCF_TREE | zenu::GCCF_TREELINES | zenu::GCCF_EDITABLE | zenu::GCCF_CLICKEDIT;
        m_grid.SetColumn(m_column, &column);
        zenu::tag_HROW * const open = addRow(zenu::GC_ROOT, "A row that opens");
        addRow(open, "A text that is edited");
        m_refused = addRow(open, "A text that is not");
        m_closed = addRow(zenu::GC_ROOT, "A row that stays closed");
        addRow(m_closed, "Never seen");
        m_grid.Expand(m_closed, zenu::GCE_COLLAPSE);
        m_grid.setNotification(this);
    }

private:
    bool OnExpanding(zenu::tag_HROW * row) override
    {
        note(row == m_closed ? "OnExpanding: no" : "OnExpanding: yes");
        return row != m_closed;
    }
    void OnExpanded(zenu::tag_HROW *) override { note("OnExpanded"); }
    void OnSelectionChanged() override { note("OnSelectionChanged"); }
    bool OnItemChanging(zenu::tag_HROW * row, zenu::tag_HCOLUMN *) override
    {
        note(row == m_refused ? "OnItemChanging: veto" : "OnItemChanging: go on");
        return row == m_refused;
    }
    // [code]
    zenu::tag_HROW * addRow(zenu::tag_HROW * parent, char const * text)
    {
        zenu::tag_HROW * const row = m_grid.InsertRow(parent, zenu::GCI_LAST);
        m_grid.SetItemText(row, m_column, text);
        return row;
    }

    void note(char const * text) { m_log.appendPlainText(QString::fromLatin1(text)); }

protected:
    zenu::KGridCtrl m_grid;
    QPlainTextEdit m_log;

private:
    zenu::tag_HCOLUMN * m_column;
    zenu::tag_HROW * m_refused = nullptr;
    zenu::tag_HROW * m_closed = nullptr;
};

class ListenerPage : public Listener, public PictureScene
{
public:
    ListenerPage()
    {
        fitColumns(m_grid);
        m_grid.setMinimumHeight(heightOf(m_grid, 5));
        m_grid.setMinimumWidth(m_grid.GetColumnWidth(m_grid.HeaderItem2Column(0)) + 4);
        m_log.setReadOnly(true);
        auto * const layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_grid);
        layout->addWidget(&m_log);
    }

    void pose() override
    {
        zenu::tag_HROW * const first = m_grid.GetNextRow(zenu::GCN_ALL_FIRST);
        m_grid.SetRowSel(first, true);
        m_grid.Expand(first, zenu::GCE_COLLAPSE);
        m_grid.Expand(first, zenu::GCE_EXPAND);
        m_grid.EditItem(m_grid.GetNextRow(zenu::GCN_CHILD_FIRST, first), nullptr);
    }
};

QWidget * makeListener()
{
    return new ListenerPage;
}

} // namespace

Page gridNotificationsPage()
{
    return {"GridNotifications",
            "What a grid tells its application, and what the answers stop.",
            {"IGridNotification"},
            makeListener};
}

} // namespace gallery
