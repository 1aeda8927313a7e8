#include "examples/explorer/model/FileTree.h"

#include "examples/explorer/model/NaturalOrder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <memory>

namespace explorer {

namespace {

using Type = FileTree::Type;

constexpr std::size_t largestIndex = std::numeric_limits<std::uint32_t>::max() - 1;

struct CloseDirectory
{
    void operator()(DIR * directory) const { closedir(directory); }
};
using OpenDirectory = std::unique_ptr<DIR, CloseDirectory>;

// Null, with errno, when it cannot be read. A link that took the directory's place is not followed.
OpenDirectory openDirectory(char const * path, bool followLink)
{
    int const flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW);
    int const descriptor = open(path, flags);
    if (descriptor < 0) {
        return nullptr;
    }
    DIR * const directory = fdopendir(descriptor);
    if (!directory) {
        int const error = errno;
        close(descriptor);
        errno = error;
    }
    return OpenDirectory(directory);
}

Type typeOfMode(mode_t mode)
{
    if (S_ISDIR(mode)) {
        return Type::Directory;
    }
    if (S_ISLNK(mode)) {
        return Type::Link;
    }
    if (S_ISFIFO(mode)) {
        return Type::Pipe;
    }
    if (S_ISSOCK(mode)) {
        return Type::Socket;
    }
    return S_ISCHR(mode) || S_ISBLK(mode) ? Type::Device : Type::File;
}

// Most file systems tell the type with the name; the others have to be asked.
Type typeOf(DIR * directory, dirent const & entry)
{
    switch (entry.d_type) {
    case DT_DIR:
        return Type::Directory;
    case DT_LNK:
        return Type::Link;
    case DT_FIFO:
        return Type::Pipe;
    case DT_SOCK:
        return Type::Socket;
    case DT_CHR:
    case DT_BLK:
        return Type::Device;
    case DT_UNKNOWN:
        break;
    default:
        return Type::File;
    }
    struct stat status;
    bool const known = fstatat(dirfd(directory), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0;
    return known ? typeOfMode(status.st_mode) : Type::File;
}

bool isDots(char const * name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

// Asks only where the answer is in doubt.
bool mayRead(char const * path, struct stat const & status)
{
    return (status.st_mode & S_IROTH) != 0 || faccessat(AT_FDCWD, path, R_OK, AT_EACCESS) == 0;
}

} // namespace

bool isDirectory(std::string const & path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

FileTree::FileTree(std::string const & directory)
    : known(1)
{
    std::string path = directory;
    while (path.size() > 1 && path.back() == '/') {
        path.pop_back();
    }
    names.assign(path.c_str(), path.c_str() + path.size() + 1);
    nodes.push_back({0, root});
    nodes[root].type = Type::Directory;
}

std::string FileTree::path(Index file) const
{
    return pathOf(file);
}

// Built backwards, from the name up to the root; good until the next call.
char const * FileTree::pathOf(Index file) const
{
    pathBuffer.clear();
    for (; file != root; file = parent(file)) {
        char const * const part = name(file);
        pathBuffer.append(std::make_reverse_iterator(part + std::strlen(part)),
                          std::make_reverse_iterator(part));
        pathBuffer += '/';
    }
    char const * const top = name(root);
    bool const isSlash = std::strcmp(top, "/") == 0 && !pathBuffer.empty();
    if (!isSlash) {
        pathBuffer.append(std::make_reverse_iterator(top + std::strlen(top)),
                          std::make_reverse_iterator(top));
    }
    std::ranges::reverse(pathBuffer);
    return pathBuffer.c_str();
}

FileTree::Range FileTree::children(Index file)
{
    if (isDirectory(file) && !wasRead(file)) {
        readDirectory(file);
    }
    return {nodes[file].firstChild, nodes[file].childCount};
}

bool FileTree::mayHaveChildren(Index file)
{
    if (!isDirectory(file)) {
        return false;
    }
    if (wasRead(file)) {
        return nodes[file].childCount != 0;
    }
    lookAt(file);
    return !isUnreadable(file) && !isGone(file);
}

FileDetails FileTree::details(Index file)
{
    lookAt(file);
    return known[nodes[file].details];
}

bool FileTree::addName(char const * name, std::uint32_t * place)
{
    std::size_t const size = std::strlen(name) + 1;
    if (names.size() + size > largestIndex) {
        return false;
    }
    *place = static_cast<std::uint32_t>(names.size());
    names.insert(names.end(), name, name + size);
    return true;
}

void FileTree::readDirectory(Index directory)
{
    nodes[directory].flags |= Read;
    std::vector<Entry> entries = readEntries(directory);
    entries.resize(std::min(entries.size(), largestIndex - nodes.size()));
    std::ranges::sort(entries, [this](Entry const & a, Entry const & b) {
        bool const directoryFirst = a.type == Type::Directory;
        if (directoryFirst != (b.type == Type::Directory)) {
            return directoryFirst;
        }
        return compareNatural(names.data() + a.name, names.data() + b.name) < 0;
    });
    nodes[directory].firstChild = count();
    nodes[directory].childCount = static_cast<Index>(entries.size());
    for (Entry const & entry : entries) {
        Node & node = nodes.emplace_back(Node{entry.name, directory});
        node.type = entry.type;
    }
}

std::vector<FileTree::Entry> FileTree::readEntries(Index directory)
{
    std::vector<Entry> entries;
    OpenDirectory const stream = openDirectory(pathOf(directory), directory == root);
    if (!stream) {
        markFailed(directory, errno);
        return entries;
    }
    for (;;) {
        errno = 0;
        dirent const * const entry = readdir(stream.get());
        if (!entry) {
            break;
        }
        std::uint32_t place = 0;
        if (isDots(entry->d_name)) {
            continue;
        }
        if (!addName(entry->d_name, &place)) {
            break;
        }
        entries.push_back({place, typeOf(stream.get(), *entry)});
    }
    if (errno != 0) {
        markFailed(directory, errno);
    }
    return entries;
}

void FileTree::lookAt(Index file)
{
    if (has(file, LookedAt)) {
        return;
    }
    nodes[file].flags |= LookedAt;
    char const * const path = pathOf(file);
    struct stat status;
    if ((file == root ? stat(path, &status) : lstat(path, &status)) != 0) {
        markFailed(file, errno);
        return;
    }
    if (nodes[file].details == 0) {
        nodes[file].details = static_cast<std::uint32_t>(known.size());
        known.emplace_back();
    }
    known[nodes[file].details] = {status.st_size, status.st_mtim.tv_sec,
                                  S_ISREG(status.st_mode) && (status.st_mode & 0111) != 0};
    if (isDirectory(file) && !mayRead(path, status)) {
        nodes[file].flags |= Unreadable;
    }
}

void FileTree::markFailed(Index file, int error)
{
    nodes[file].flags |= error == ENOENT || error == ENOTDIR || error == ELOOP ? Gone : Unreadable;
}

} // namespace explorer
