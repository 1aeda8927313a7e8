// A tree of three levels, all loaded: opened and closed as a whole.

#include "Frame.h"
#include "LeanModels.h"
#include "Works.h"

#include <zenu/grid/KGridCtrl.h>

#include <QTreeView>
#include <QTreeWidget>

namespace bench {

namespace {

constexpr int depth = 3;

int fanout()
{
    return isQuick() ? 46 : 100;
}

int nodeCount()
{
    int const n = fanout();
    return n + n * n + n * n * n;
}

// Ten thousand different texts are enough here.
Texts const & treeTexts()
{
    return keptTexts(10'000, 3);
}

template <typename View>
void show(Counted<View> & view)
{
    view.resize(windowWidth, windowHeight);
    view.show();
    frame(view);
    settle(view);
}

class ZenuTree
{
public:
    static constexpr char const * name = "zenu";

    ZenuTree()
    {
        setUp();
        int next = 0;
        addChildren(zenu::GC_ROOT, next, depth);
        grid.Expand(nullptr, zenu::GCE_COLLAPSEALL);
        show(grid);
    }
    void expandAll() { grid.Expand(nullptr, zenu::GCE_EXPANDALL); }
    void collapseAll() { grid.Expand(nullptr, zenu::GCE_COLLAPSEALL); }
    bool paintFrame() { return frame(grid); }
    void rest() { settle(grid); }

protected:
    struct Unfilled
    {
    };
    explicit ZenuTree(Unfilled) { setUp(); }

    Counted<zenu::KGridCtrl> grid;
    zenu::tag_HCOLUMN * columns[3] = {};

private:
    void setUp()
    {
        grid.SetDefaultHeight(rowHeight);
        for (zenu::tag_HCOLUMN *& column : columns) {
            column = grid.AddColumn("Column", 0, windowWidth / 8);
        }
        zenu::GC_COLUMN tree;
        tree.mask = zenu::GCCM_FLAGS;
        tree.flags = zenu::GCCF_TREE | zenu::GCCF_TREELINES;
        grid.SetColumn(columns[0], &tree);
    }
    void addChildren(zenu::tag_HROW * parent, int & next, int levels)
    {
        for (int i = 0; levels != 0 && i < fanout(); ++i) {
            zenu::tag_HROW * const row = grid.InsertRow(parent, zenu::GCI_LAST);
            for (int column = 0; column < 3; ++column) {
                grid.SetItemText(row, columns[column], treeTexts().at(next % 10'000, column));
            }
            ++next;
            addChildren(row, next, levels - 1);
        }
    }
};

class ZenuSlimTree : private zenu::ISlimGridCallback, public ZenuTree
{
public:
    ZenuSlimTree()
        : ZenuTree(Unfilled())
    {
        grid.SetSlimGridCallback(this);
        std::vector<zenu::GC_SLIMROWDATA> rows(static_cast<std::size_t>(fanout()));
        GetSubRows(nullptr, 0, fanout(), rows.data());
        grid.InsertSlimRows(fanout(), rows.data(), zenu::GC_ROOT, zenu::GCI_LAST);
        expandAll();
        collapseAll();
        show(grid);
    }

private:
    // The param of a row is its level.
    char const * GetItemText(zenu::tag_HROW *, long level, zenu::tag_HCOLUMN *) override
    {
        return treeTexts().at(static_cast<int>(level), 0);
    }
    bool HasSubRows(zenu::tag_HROW *, long level) override { return level + 1 < depth; }
    int GetSubRowCount(zenu::tag_HROW *, long level) override
    {
        return level + 1 < depth ? fanout() : 0;
    }
    void GetSubRows(zenu::tag_HROW * row, long level, int count,
                    zenu::GC_SLIMROWDATA * rows) override
    {
        for (int i = 0; i < count; ++i) {
            rows[i].param = row ? level + 1 : 0;
            rows[i].hasChildren = rows[i].param + 1 < depth;
        }
    }
};

class WidgetTree
{
public:
    static constexpr char const * name = "QTreeWidget";

    WidgetTree()
    {
        view.setUniformRowHeights(true);
        view.setColumnCount(3);
        int next = 0;
        view.addTopLevelItems(makeItems(next, depth));
        view.topLevelItem(0)->setSizeHint(0, QSize(0, rowHeight));
        show(view);
    }
    void expandAll() { view.expandAll(); }
    void collapseAll() { view.collapseAll(); }
    bool paintFrame() { return frame(view); }
    void rest() { settle(view); }

private:
    static QList<QTreeWidgetItem *> makeItems(int & next, int levels)
    {
        QList<QTreeWidgetItem *> items;
        for (int i = 0; levels != 0 && i < fanout(); ++i) {
            auto * const item = new QTreeWidgetItem;
            for (int column = 0; column < 3; ++column) {
                item->setText(column, QString::fromLatin1(treeTexts().at(next % 10'000, column)));
            }
            ++next;
            item->addChildren(makeItems(next, levels - 1));
            items.push_back(item);
        }
        return items;
    }

    Counted<QTreeWidget> view;
};

class LeanTree
{
public:
    static constexpr char const * name = "QTreeView";

    LeanTree()
    {
        view.setUniformRowHeights(true);
        model.fill(treeTexts(), fanout(), depth);
        view.setModel(&model);
        show(view);
    }
    void expandAll() { view.expandAll(); }
    void collapseAll() { view.collapseAll(); }
    bool paintFrame() { return frame(view); }
    void rest() { settle(view); }

private:
    TreeModel model;
    Counted<QTreeView> view;
};

template <typename Tree>
void addTree(std::string const & expand, std::string const & collapse)
{
    addContestant(expand, Tree::name, 5, []() -> std::function<double()> {
        return [tree = std::make_shared<Tree>()] {
            tree->collapseAll();
            tree->paintFrame();
            tree->rest();
            double const start = now();
            tree->expandAll();
            return tree->paintFrame() ? now() - start : -1;
        };
    });
    addContestant(collapse, Tree::name, 5, []() -> std::function<double()> {
        return [tree = std::make_shared<Tree>()] {
            tree->expandAll();
            tree->paintFrame();
            tree->rest();
            double const start = now();
            tree->collapseAll();
            return tree->paintFrame() ? now() - start : -1;
        };
    });
}

} // namespace

void addTrees()
{
    std::string const size = sizeName(nodeCount());
    for (bool const slim : {false, true}) {
        std::string const nodes = size + (slim ? " loaded slim rows" : " ordinary rows");
        std::string const expand = "expand all, " + nodes;
        std::string const collapse = "collapse all, " + nodes;
        addWork(expand, 0.2);
        addWork(collapse, 0.05);
        if (slim) {
            addTree<ZenuSlimTree>(expand, collapse);
        } else {
            addTree<ZenuTree>(expand, collapse);
        }
        addTree<WidgetTree>(expand, collapse);
        addTree<LeanTree>(expand, collapse);
    }
}

} // namespace bench
