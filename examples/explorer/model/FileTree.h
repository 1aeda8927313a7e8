#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace explorer {

/// What one look at a file tells. All zero for a file that could not be looked at.
struct FileDetails
{
    std::int64_t size = 0;     ///< bytes
    std::int64_t modified = 0; ///< seconds since the start of 1970, UTC
    bool executable = false;   ///< a file that somebody may run
};

/// Whether a path, in the bytes of the file system, leads to a directory.
bool isDirectory(std::string const & path);

/// The files below a directory. A directory is read when its children are asked for, a file is
/// looked at when its details are asked for, each once: one system call a file at most.
///
/// A file is an index. It costs 24 bytes and its name; its details cost as much again once they
/// were asked for. The children of a directory have indices one after the other, directories first
/// and then by compareNatural. Links are leaves, so the tree ends even where links go in a circle.
/// Nothing here fails: what cannot be read has no children, what is gone has no details, and both
/// can be asked.
///
/// The tree changes no file. When one was changed, rename, lookAgain or readAgain is told.
class FileTree
{
public:
    using Index = std::uint32_t;

    enum class Type : std::uint8_t
    {
        File,
        Directory,
        Link,
        Device,
        Pipe,
        Socket
    };

    struct Range
    {
        Index first = 0;
        Index count = 0;
    };

    /// The tree below a directory, whose path is bytes as the file system has them. Reads nothing.
    explicit FileTree(std::string const & directory);

    /// The directory that the tree was made for.
    static constexpr Index root = 0;
    /// No file.
    static constexpr Index none = 0xffffffff;

    /// How many files are known by now, the root included, and what stood in directories that were
    /// read again since.
    Index count() const { return static_cast<Index>(nodes.size()); }
    Index parent(Index file) const { return nodes[file].parent; }
    Type type(Index file) const { return nodes[file].type; }
    bool isDirectory(Index file) const { return type(file) == Type::Directory; }
    /// Its bytes, valid until a directory is read.
    char const * name(Index file) const { return names.data() + nodes[file].name; }
    std::string path(Index file) const;
    /// The file of a path, if it is known by now.
    Index find(std::string const & path) const;

    /// Reads the directory, if that was not done. Empty for anything but a directory.
    Range children(Index file);
    /// Whether the children of a directory were read.
    bool wasRead(Index file) const { return has(file, Read); }
    /// How many children were read.
    Index childCount(Index file) const { return nodes[file].childCount; }
    /// Whether a file might have children. Looks at a directory, and does not read it.
    bool mayHaveChildren(Index file);

    FileDetails details(Index file);
    /// The file could not be looked at, or not read as a directory. Found out by the functions
    /// above.
    bool isUnreadable(Index file) const { return has(file, Unreadable); }
    /// The file vanished after its directory had been read.
    bool isGone(Index file) const { return has(file, Gone); }

    /// The order of two files of one directory by their names.
    int compareNames(Index a, Index b) const;
    /// Whether the indices of a directory's children are in the order of their names, as they are
    /// until a file is renamed.
    bool isInOrder() const { return inOrder; }

    /// The file has this name now. It keeps its index, and so do all below it. False when the names
    /// are more than can be stored.
    bool rename(Index file, std::string const & newName);
    /// The details may be others now; they are asked for anew when they are needed.
    void lookAgain(Index file);
    /// Other files may be in the directory now: reads it again, if it was read. Its children get
    /// other indices; each that is still there keeps what is known of it and below it. Answers with
    /// the old and the new index of these.
    std::vector<std::pair<Index, Index>> readAgain(Index directory);

private:
    enum Flag : std::uint8_t
    {
        Read = 1,
        LookedAt = 2,
        Unreadable = 4,
        Gone = 8
    };

    struct Node
    {
        std::uint32_t name;
        Index parent;
        std::uint32_t details = 0; // place in `known`
        Index firstChild = 0;
        Index childCount = 0;
        Type type = Type::File;
        std::uint8_t flags = 0;
    };

    struct Entry
    {
        std::uint32_t name;
        Type type;
    };

    bool has(Index file, Flag flag) const { return (nodes[file].flags & flag) != 0; }
    bool addName(char const * name, std::uint32_t * place);
    char const * pathOf(Index file) const;
    void readDirectory(Index directory);
    std::vector<Entry> readEntries(Index directory);
    void lookAt(Index file);
    void markFailed(Index file, int error);

    std::vector<Node> nodes;
    std::vector<char> names;        // each ends in 0
    std::vector<FileDetails> known; // the first one stands for none
    bool inOrder = true;
    mutable std::string pathBuffer;
};

} // namespace explorer
