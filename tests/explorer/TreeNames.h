#pragma once

#include "examples/explorer/model/FileTree.h"

#include <string>

namespace zenutest {

// The names of a directory's children, as "a b c".
inline std::string namesIn(explorer::FileTree & tree,
                           explorer::FileTree::Index directory = explorer::FileTree::root)
{
    std::string names;
    explorer::FileTree::Range const range = tree.children(directory);
    for (explorer::FileTree::Index i = 0; i < range.count; ++i) {
        names += (names.empty() ? "" : " ") + std::string(tree.name(range.first + i));
    }
    return names;
}

} // namespace zenutest
