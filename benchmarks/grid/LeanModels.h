#pragma once

#include "Frame.h"
#include "Texts.h"

#include <QAbstractItemModel>
#include <QSize>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <strings.h>
#include <vector>

// What a careful application writes for QTreeView: nodes with texts of 15 bytes in place, internal
// pointers, no role answered but the text and, for the height of all rows, a size hint.

namespace bench {

inline QVariant leanData(std::string const & text, int column, int role)
{
    if (role == Qt::DisplayRole) {
        return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    }
    if (role == Qt::SizeHintRole && column == 0) {
        return QSize(0, rowHeight);
    }
    return {};
}

// A list without a tree.
template <int Columns>
class FlatModel : public QAbstractItemModel
{
public:
    struct Node
    {
        std::array<std::string, Columns> texts;
    };

    void fill(Texts const & texts)
    {
        beginResetModel();
        nodes.reserve(static_cast<std::size_t>(texts.rows()));
        for (int row = 0; row < texts.rows(); ++row) {
            auto node = std::make_unique<Node>();
            for (int column = 0; column < std::min(Columns, texts.columns()); ++column) {
                node->texts[static_cast<std::size_t>(column)] = texts.at(row, column);
            }
            nodes.push_back(std::move(node));
        }
        endResetModel();
    }
    void clear()
    {
        beginResetModel();
        nodes.clear();
        endResetModel();
    }
    void setText(int row, int column, char const * text)
    {
        nodes[static_cast<std::size_t>(row)]->texts[static_cast<std::size_t>(column)] = text;
        QModelIndex const changed = index(row, column);
        Q_EMIT dataChanged(changed, changed, {Qt::DisplayRole});
    }
    bool removeRows(int row, int count, QModelIndex const & parent = {}) override
    {
        beginRemoveRows(parent, row, row + count - 1);
        nodes.erase(nodes.begin() + row, nodes.begin() + row + count);
        endRemoveRows();
        return true;
    }
    void sort(int column, Qt::SortOrder = Qt::AscendingOrder) override
    {
        auto const place = static_cast<std::size_t>(column);
        Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
        std::stable_sort(nodes.begin(), nodes.end(), [place](auto const & a, auto const & b) {
            return strcasecmp(a->texts[place].c_str(), b->texts[place].c_str()) < 0;
        });
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }

    QModelIndex index(int row, int column, QModelIndex const & = {}) const override
    {
        auto const at = static_cast<std::size_t>(row);
        return at < nodes.size() ? createIndex(row, column, nodes[at].get()) : QModelIndex();
    }
    QModelIndex parent(QModelIndex const &) const override { return {}; }
    int rowCount(QModelIndex const & parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(nodes.size());
    }
    int columnCount(QModelIndex const & = {}) const override { return Columns; }
    bool hasChildren(QModelIndex const & parent = {}) const override
    {
        return !parent.isValid() && !nodes.empty();
    }
    QVariant data(QModelIndex const & index, int role) const override
    {
        auto const * const node = static_cast<Node const *>(index.constInternalPointer());
        return leanData(node->texts[static_cast<std::size_t>(index.column())], index.column(),
                        role);
    }

private:
    std::vector<std::unique_ptr<Node>> nodes;
};

// A tree; each level lies in one array.
class TreeModel : public QAbstractItemModel
{
public:
    struct Node
    {
        Node * parent = nullptr;
        int row = 0;
        std::vector<Node> children;
        std::array<std::string, 3> texts;
    };

    // `fanout` children a node, `depth` levels.
    void fill(Texts const & texts, int fanout, int depth)
    {
        beginResetModel();
        int next = 0;
        addChildren(root, texts, next, fanout, depth);
        endResetModel();
    }

    QModelIndex index(int row, int column, QModelIndex const & parent = {}) const override
    {
        std::vector<Node> const & rows = nodeOf(parent)->children;
        auto const at = static_cast<std::size_t>(row);
        return at < rows.size() ? createIndex(row, column, &rows[at]) : QModelIndex();
    }
    QModelIndex parent(QModelIndex const & index) const override
    {
        Node const * const parent = nodeOf(index)->parent;
        return parent == &root ? QModelIndex() : createIndex(parent->row, 0, parent);
    }
    int rowCount(QModelIndex const & parent = {}) const override
    {
        return parent.column() > 0 ? 0 : static_cast<int>(nodeOf(parent)->children.size());
    }
    int columnCount(QModelIndex const & = {}) const override { return 3; }
    bool hasChildren(QModelIndex const & parent = {}) const override
    {
        return !nodeOf(parent)->children.empty();
    }
    QVariant data(QModelIndex const & index, int role) const override
    {
        return leanData(nodeOf(index)->texts[static_cast<std::size_t>(index.column())],
                        index.column(), role);
    }

private:
    static void addChildren(Node & parent, Texts const & texts, int & next, int fanout, int depth)
    {
        if (depth == 0) {
            return;
        }
        parent.children.resize(static_cast<std::size_t>(fanout));
        for (int row = 0; row < fanout; ++row) {
            Node & node = parent.children[static_cast<std::size_t>(row)];
            node.parent = &parent;
            node.row = row;
            for (int column = 0; column < 3; ++column) {
                node.texts[static_cast<std::size_t>(column)] =
                    texts.at(next % texts.rows(), column);
            }
            ++next;
            addChildren(node, texts, next, fanout, depth - 1);
        }
    }
    Node const * nodeOf(QModelIndex const & index) const
    {
        return index.isValid() ? static_cast<Node const *>(index.constInternalPointer()) : &root;
    }

    Node root;
};

// Rows that are computed from their number and kept nowhere: a list, or all of them under one row.
// Nothing leaner can stand behind a view.
class ComputedModel : public QAbstractItemModel
{
public:
    void fill(int count, bool underOneRow)
    {
        beginResetModel();
        rows = count;
        isTree = underOneRow;
        endResetModel();
    }

    QModelIndex index(int row, int column, QModelIndex const & parent = {}) const override
    {
        return createIndex(row, column, isTree && parent.isValid() ? &level : nullptr);
    }
    QModelIndex parent(QModelIndex const & index) const override
    {
        return index.constInternalPointer() ? createIndex(0, 0, nullptr) : QModelIndex();
    }
    int rowCount(QModelIndex const & parent = {}) const override
    {
        if (!parent.isValid()) {
            return isTree ? 1 : rows;
        }
        return hasChildren(parent) ? rows : 0;
    }
    int columnCount(QModelIndex const & = {}) const override { return 3; }
    bool hasChildren(QModelIndex const & parent = {}) const override
    {
        return !parent.isValid() || (isTree && !parent.constInternalPointer());
    }
    QVariant data(QModelIndex const & index, int role) const override
    {
        if (role == Qt::DisplayRole) {
            return QString::number(index.row());
        }
        return leanData({}, index.column(), role);
    }

private:
    int rows = 0;
    bool isTree = false;
    char level = 0; // its address marks the rows under the one row
};

} // namespace bench
