#pragma once

#include "examples/explorer/model/FileTree.h"

#include <unordered_set>
#include <vector>

namespace zenu {
struct tag_HROW;
} // namespace zenu

namespace explorer {

class ExplorerGrid;

/// Between the files of a FileTree and the rows of a grid that show them: from one to the other,
/// and what has to be done to the rows when files were changed. A row's param is the index of its
/// file.
class TreeRows
{
public:
    using Index = FileTree::Index;

    /// Neither is owned.
    TreeRows(ExplorerGrid * shownGrid, FileTree * shownTree)
        : grid(shownGrid)
        , tree(shownTree)
    {
    }

    /// The file of a row, FileTree::none for rows that show none.
    Index fileOf(zenu::tag_HROW * row) const;
    /// The row of a file, null when it is not loaded.
    zenu::tag_HROW * rowOf(Index file) const;
    /// The selected files, without the top of the tree.
    std::vector<Index> selectedFiles() const;

    /// Reads directories again, wherever they were read, and loads their rows anew. What was open,
    /// selected and focused stays so.
    void readAgain(std::vector<Index> directories);
    /// Selects files, if one of them is to be seen, and scrolls to the first one; else the row.
    void select(std::vector<Index> const & files, Index otherwise);

private:
    struct State
    {
        std::unordered_set<Index> open;
        std::unordered_set<Index> selected;
        Index focused = FileTree::none;
    };

    State stateBelow(zenu::tag_HROW * row) const;
    void restoreBelow(zenu::tag_HROW * row, State const & state);
    void readAgain(Index directory, std::vector<Index> & others);

    ExplorerGrid * grid;
    FileTree * tree;
};

} // namespace explorer
