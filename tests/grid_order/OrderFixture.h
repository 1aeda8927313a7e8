#pragma once

#include "tests/grid_model/ModelFixture.h"
#include "zenu/grid/order/CVisibleRows.h"
#include "zenu/grid/rows/ChildRows.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <vector>

namespace zenutest {

class HeightWrapper : public FakeWrapper
{
public:
    int GetDefaultRowHeight() override { return defaultHeight; }
    int defaultHeight = 20;
};

// The root of a tree without a grid: owns its rows, notes what the order tells, and lets a test
// act from within.
class TestFrame : public zenu::CVisibleRows
{
public:
    explicit TestFrame(int page = 100)
        : CVisibleRows(&wrapper)
        , pageHeight(page)
    {
    }
    ~TestFrame() override
    {
        for (int i = 0; i < rootRows.count(); ++i) {
            delete rootRows.at(i);
        }
    }

    int GetChildCount(zenu::ISlimGridCallbackWrapper *) override { return rootRows.count(); }
    zenu::IGCRow * GetChild(int index) override { return rootRows.at(index); }
    zenu::RowSpan GetChildren(zenu::ISlimGridCallbackWrapper *) override { return rootRows.span(); }
    void SortRows(std::vector<zenu::IGCRow *> & rows) override
    {
        ++sortCalls;
        if (whileSorting) {
            whileSorting();
        }
        std::stable_sort(rows.begin(), rows.end(), [this](auto const * a, auto const * b) {
            return descending ? a->param > b->param : a->param < b->param;
        });
    }
    bool IsSorted() const override { return sorted; }
    bool OnTopRowChanging(zenu::IGCRow * row) override
    {
        tell(QStringLiteral("changing %1").arg(row ? static_cast<long>(row->param) : -1L));
        return false;
    }
    void OnTopRowChanged() override { tell(QStringLiteral("changed")); }
    void OnRowsLaidOut() override { tell(QStringLiteral("laid out")); }
    int GetPageHeight() override { return pageHeight; }
    bool IsWholeRowsOnly() override { return wholeRowsOnly; }
    zenu::IGCRow * LocateRow(zenu::tag_HROW * handle) override
    {
        return reinterpret_cast<zenu::IGCRow *>(handle);
    }

    zenu::IGCRow * addRow(unsigned long param, zenu::IGCRow * parent = nullptr,
                          zenu::tag_HROW * after = zenu::GCI_LAST)
    {
        auto * const row = new zenu::CGCOrdinaryRow(parent, columns);
        add(row, param, parent, after);
        return row;
    }
    zenu::CGCSlimRow * addSlimRow(unsigned long param, zenu::IGCRow * parent = nullptr)
    {
        auto * const row = new zenu::CGCSlimRow(parent);
        add(row, param, parent, zenu::GCI_LAST);
        return row;
    }
    // Rows 0 to count - 1 at the top level.
    void addRows(int count)
    {
        for (int i = 0; i < count; ++i) {
            addRow(static_cast<unsigned long>(i));
        }
    }
    // As a grid deletes: every row of the branch is forgotten first.
    void remove(zenu::IGCRow * row)
    {
        std::vector<zenu::IGCRow *> branch{row};
        for (std::size_t i = 0; i < branch.size(); ++i) {
            zenu::RowSpan const children = branch[i]->GetChildren(&wrapper);
            for (int child = 0; child < children.count(); ++child) {
                branch.push_back(children[child]);
            }
            Forget(branch[i]);
        }
        if (row->parent) {
            row->parent->RemoveChild(row);
        } else {
            rootRows.remove(row);
        }
        delete row;
        Invalidate();
    }
    void expand(zenu::IGCRow * row, bool on)
    {
        if (on) {
            row->ExpandRow(&wrapper);
        } else {
            row->CollapseRow();
        }
        Invalidate();
    }

    zenu::IGCRow * top() { return GetRowAt(GetTopIndex()); }
    // The params of all rows in the order.
    QString order()
    {
        QStringList params;
        for (int i = 0; i < GetCount(); ++i) {
            params << QString::number(GetRowAt(i)->param);
        }
        return params.join(u' ');
    }
    QString display()
    {
        return QStringLiteral("top=%1 y=%2 shown=%3 last=%4 count=%5 height=%6")
            .arg(GetTopIndex())
            .arg(GetTopY())
            .arg(GetShownCount())
            .arg(GetLastShownIndex())
            .arg(GetCount())
            .arg(GetTotalHeight());
    }
    QString takeJournal()
    {
        QString const all = journal.join(QStringLiteral(", "));
        journal.clear();
        return all;
    }

    HeightWrapper wrapper;
    zenu::ColumnSet columns;
    zenu::ChildRows rootRows;
    int pageHeight;
    bool wholeRowsOnly = false;
    bool sorted = false;
    bool descending = false;
    int sortCalls = 0;
    std::function<void()> whileSorting;
    std::function<void(QString const &)> whenTold;
    QStringList journal;

private:
    void add(zenu::IGCRow * row, unsigned long param, zenu::IGCRow * parent, zenu::tag_HROW * after)
    {
        row->param = param;
        if (parent) {
            parent->InsertChildAfter(row, after);
        } else {
            rootRows.insert({row}, after, true);
        }
        Invalidate();
    }
    void tell(QString const & what)
    {
        journal << what;
        if (whenTold) {
            whenTold(what);
        }
    }
};

} // namespace zenutest
