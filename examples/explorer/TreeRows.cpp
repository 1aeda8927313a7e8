#include "examples/explorer/TreeRows.h"

#include "examples/explorer/ExplorerGrid.h"

#include <algorithm>

namespace explorer {

namespace {

bool isOpen(ExplorerGrid const & grid, zenu::tag_HROW * row)
{
    zenu::GC_ROW record;
    record.mask = zenu::GCRM_STATE;
    grid.GetRow(row, &record);
    return (record.state & zenu::GCRS_EXPANDED) != 0;
}

bool isSelected(ExplorerGrid const & grid, zenu::tag_HROW * row)
{
    zenu::GC_ROW record;
    record.mask = zenu::GCRM_STATE;
    grid.GetRow(row, &record);
    return (record.state & zenu::GCRS_SELECTED) != 0;
}

// The loaded rows right below a row.
std::vector<zenu::tag_HROW *> childrenOf(ExplorerGrid const & grid, zenu::tag_HROW * row)
{
    std::vector<zenu::tag_HROW *> rows;
    zenu::tag_HROW * child = grid.GetNextRow(zenu::GCN_CHILD_FIRST, row);
    for (; child; child = grid.GetNextRow(zenu::GCN_CHILD_NEXT, child)) {
        rows.push_back(child);
    }
    return rows;
}

} // namespace

TreeRows::Index TreeRows::fileOf(zenu::tag_HROW * row) const
{
    long const param = row ? static_cast<long>(grid->GetRowParam(row)) : -1;
    return tree && param >= 0 ? static_cast<Index>(param) : FileTree::none;
}

// Goes down from the top row, which is the last one at the top level.
zenu::tag_HROW * TreeRows::rowOf(Index file) const
{
    if (!tree || file == FileTree::none) {
        return nullptr;
    }
    std::vector<Index> way{file};
    while (way.back() != FileTree::root) {
        way.push_back(tree->parent(way.back()));
    }
    zenu::tag_HROW * row = zenu::GC_ROOT;
    for (; row && !way.empty(); way.pop_back()) {
        row = grid->GetNextRow(zenu::GCN_CHILD_FIRST, row);
        while (row && fileOf(row) != way.back()) {
            row = grid->GetNextRow(zenu::GCN_CHILD_NEXT, row);
        }
    }
    return row;
}

std::vector<TreeRows::Index> TreeRows::selectedFiles() const
{
    std::vector<Index> files;
    for (auto row = grid->begin(zenu::GCN_SELECTED_FIRST); row != grid->end(); ++row) {
        Index const file = fileOf(*row);
        if (file != FileTree::none && file != FileTree::root) {
            files.push_back(file);
        }
    }
    return files;
}

void TreeRows::readAgain(std::vector<Index> directories)
{
    while (!directories.empty()) {
        Index const directory = directories.back();
        std::erase(directories, directory);
        if (directory != FileTree::none && tree->wasRead(directory)) {
            readAgain(directory, directories);
        } else if (directory != FileTree::none) {
            tree->lookAgain(directory);
        }
    }
}

// `others` get their new indices, if they have some.
void TreeRows::readAgain(Index directory, std::vector<Index> & others)
{
    zenu::tag_HROW * const row = rowOf(directory);
    State state = row ? stateBelow(row) : State();
    if (row) {
        // Collapsed, the row forgets that it had children: it may have none now.
        grid->Expand(row, zenu::GCE_COLLAPSE | zenu::GCE_NOSCROLL);
        grid->ResetSlimRow(row);
    }
    for (auto const & [before, now] : tree->readAgain(directory)) {
        for (std::unordered_set<Index> * const set : {&state.open, &state.selected}) {
            if (set->erase(before) != 0) {
                set->insert(now);
            }
        }
        state.focused = state.focused == before ? now : state.focused;
        std::ranges::replace(others, before, now);
    }
    if (row) {
        restoreBelow(row, state);
    }
}

// What is within closed rows is not kept.
TreeRows::State TreeRows::stateBelow(zenu::tag_HROW * row) const
{
    State state;
    zenu::tag_HROW * const focused = grid->currentRow();
    if (isOpen(*grid, row)) {
        state.open.insert(fileOf(row));
    }
    std::vector<zenu::tag_HROW *> rows = childrenOf(*grid, row);
    while (!rows.empty()) {
        zenu::tag_HROW * const next = rows.back();
        rows.pop_back();
        if (isSelected(*grid, next)) {
            state.selected.insert(fileOf(next));
        }
        state.focused = next == focused ? fileOf(next) : state.focused;
        if (isOpen(*grid, next)) {
            state.open.insert(fileOf(next));
            std::vector<zenu::tag_HROW *> const children = childrenOf(*grid, next);
            rows.insert(rows.end(), children.begin(), children.end());
        }
    }
    return state;
}

void TreeRows::restoreBelow(zenu::tag_HROW * row, State const & state)
{
    std::vector<zenu::tag_HROW *> rows{row};
    zenu::tag_HROW * focused = nullptr;
    while (!rows.empty()) {
        zenu::tag_HROW * const next = rows.back();
        rows.pop_back();
        if (state.selected.contains(fileOf(next))) {
            grid->SetRowSel(next, true);
        }
        focused = fileOf(next) == state.focused ? next : focused;
        if (state.open.contains(fileOf(next))) {
            grid->Expand(next, zenu::GCE_EXPAND | zenu::GCE_NOSCROLL);
            std::vector<zenu::tag_HROW *> const children = childrenOf(*grid, next);
            rows.insert(rows.end(), children.begin(), children.end());
        }
    }
    if (focused && isSelected(*grid, focused)) {
        grid->SetRowSel(focused, true); // which moves the focus as well
    }
}

void TreeRows::select(std::vector<Index> const & files, Index otherwise)
{
    std::vector<zenu::tag_HROW *> rows;
    for (Index const file : files) {
        zenu::tag_HROW * const row = rowOf(file);
        QRect place;
        if (row && grid->GetRowRect(row, &place) && !place.isNull()) {
            rows.push_back(row);
        }
    }
    if (rows.empty()) {
        rows.push_back(rowOf(otherwise));
    }
    grid->setCurrentRow(rows.back());
    for (zenu::tag_HROW * const row : rows) {
        grid->SetRowSel(row, true);
    }
}

} // namespace explorer
