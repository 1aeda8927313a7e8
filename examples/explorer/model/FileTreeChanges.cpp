// What a FileTree learns of changes.

#include "examples/explorer/model/FileTree.h"
#include "examples/explorer/model/NaturalOrder.h"

#include <string_view>
#include <unordered_map>

namespace explorer {

FileTree::Index FileTree::find(std::string const & path) const
{
    std::string_view const top = name(root);
    std::string_view rest = path;
    if (!rest.starts_with(top)) {
        return none;
    }
    rest.remove_prefix(top.size());
    if (top == "/" && !rest.empty()) {
        rest = std::string_view(path); // its slash parts the names as any other does
    }
    Index file = root;
    while (!rest.empty()) {
        if (rest.front() != '/') {
            return none; // another file, whose name begins alike
        }
        rest.remove_prefix(1);
        std::string_view const part = rest.substr(0, rest.find('/'));
        rest.remove_prefix(part.size());
        Node const & directory = nodes[file];
        Index const past = directory.firstChild + directory.childCount;
        Index child = directory.firstChild;
        while (child < past && part != name(child)) {
            ++child;
        }
        if (child == past) {
            return none;
        }
        file = child;
    }
    return file;
}

int FileTree::compareNames(Index a, Index b) const
{
    int const result = inOrder ? 0 : compareNatural(name(a), name(b));
    return result != 0 ? result : (a < b ? -1 : (b < a ? 1 : 0));
}

bool FileTree::rename(Index file, std::string const & newName)
{
    std::uint32_t place = 0;
    if (!addName(newName.c_str(), &place)) {
        return false;
    }
    nodes[file].name = place;
    inOrder = false;
    return true;
}

void FileTree::lookAgain(Index file)
{
    nodes[file].flags &= static_cast<std::uint8_t>(~(LookedAt | Gone | Unreadable));
    if (nodes[file].details != 0) {
        known[nodes[file].details] = FileDetails();
    }
}

std::vector<std::pair<FileTree::Index, FileTree::Index>> FileTree::readAgain(Index directory)
{
    std::vector<std::pair<Index, Index>> kept;
    if (!wasRead(directory)) {
        return kept;
    }
    Index const first = nodes[directory].firstChild;
    Index const past = first + nodes[directory].childCount;
    lookAgain(directory);
    readDirectory(directory);
    // Names have their last place by now.
    std::unordered_map<std::string_view, Index> before;
    for (Index child = first; child < past; ++child) {
        before.emplace(name(child), child);
    }
    Index const newFirst = nodes[directory].firstChild;
    for (Index child = newFirst; child < newFirst + nodes[directory].childCount; ++child) {
        auto const found = before.find(name(child));
        if (found == before.end() || type(found->second) != type(child)) {
            continue;
        }
        Node const & old = nodes[found->second];
        Node & node = nodes[child];
        node.details = old.details;
        node.firstChild = old.firstChild;
        node.childCount = old.childCount;
        node.flags = old.flags;
        for (Index below = 0; below < node.childCount; ++below) {
            nodes[node.firstChild + below].parent = child;
        }
        kept.emplace_back(found->second, child);
    }
    return kept;
}

} // namespace explorer
