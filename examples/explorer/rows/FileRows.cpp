#include "examples/explorer/rows/FileRows.h"

#include "examples/explorer/model/DisplayName.h"
#include "examples/explorer/model/FileKinds.h"
#include "examples/explorer/rows/Icons.h"
#include "examples/explorer/rows/Texts.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstring>

namespace explorer {

namespace {

FileTree::Index fileOf(long param)
{
    return static_cast<FileTree::Index>(param);
}

// Half way between text and background.
QColor muted(QColor const & a, QColor const & b)
{
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

Icon iconOf(Category category)
{
    switch (category) {
    case Category::Other:
        return Icon::File;
    case Category::Code:
        return Icon::Code;
    case Category::Text:
        return Icon::Text;
    case Category::Image:
        return Icon::Image;
    case Category::Media:
        return Icon::Media;
    case Category::Archive:
        return Icon::Archive;
    case Category::Program:
        return Icon::Program;
    }
    return Icon::File;
}

Icon iconOf(FileTree & tree, FileTree::Index file)
{
    switch (tree.type(file)) {
    case FileTree::Type::Directory:
        return tree.isUnreadable(file) ? Icon::LockedFolder : Icon::Folder;
    case FileTree::Type::Link:
        return Icon::Link;
    case FileTree::Type::File:
        return iconOf(categoryOf(tree.name(file)));
    case FileTree::Type::Device:
    case FileTree::Type::Pipe:
    case FileTree::Type::Socket:
        break;
    }
    return Icon::Device;
}

template <typename Value>
int order(Value const & a, Value const & b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}

} // namespace

void FileRows::GetRowDrawInfo(zenu::GC_DRAWROWINFO * info, zenu::tag_HROW *, long param, bool)
{
    Index const file = fileOf(param);
    if (tree->isGone(file) || *shortName(file) == '.') {
        info->textColor = muted(info->textColor, info->bkColor);
    }
}

void FileRows::GetItemDrawInfo(zenu::GC_DRAWITEMINFO * info, zenu::tag_HROW *, long param,
                               zenu::tag_HCOLUMN * column, int, bool, bool)
{
    Index const file = fileOf(param);
    if (columnOf(column) == Column::Name) {
        info->image = static_cast<int>(iconOf(*tree, file));
    } else if (columnOf(column) == Column::Executable) {
        info->hideCheck = tree->type(file) != FileTree::Type::File;
        info->checked = tree->details(file).executable;
    }
}

char const * FileRows::GetItemText(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN * column)
{
    Index const file = fileOf(param);
    text.clear();
    switch (columnOf(column)) {
    case Column::Name:
        displayName(shortName(file), text);
        break;
    case Column::Size:
        sizeOf(file);
        text += endMargin;
        break;
    case Column::Kind:
        kindOf(file, text);
        break;
    case Column::Modified:
        if (std::int64_t const modified = tree->details(file).modified) {
            dateText(modified, text);
        }
        break;
    case Column::Executable:
        break;
    }
    return text.c_str();
}

void FileRows::SetItemText(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN * column,
                           char const * newText)
{
    if (edits && columnOf(column) == Column::Name) {
        edits->editName(fileOf(param), newText);
    }
}

void FileRows::SetItemCheck(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN * column, bool checked)
{
    if (edits && columnOf(column) == Column::Executable) {
        edits->editRuns(fileOf(param), checked);
    }
}

int FileRows::IsItemChecked(zenu::tag_HROW *, long param, zenu::tag_HCOLUMN * column)
{
    return columnOf(column) == Column::Executable && tree->details(fileOf(param)).executable;
}

bool FileRows::HasSubRows(zenu::tag_HROW *, long param)
{
    return tree->mayHaveChildren(fileOf(param));
}

int FileRows::GetSubRowCount(zenu::tag_HROW *, long param)
{
    Index const count = tree->children(fileOf(param)).count;
    return count > INT_MAX ? INT_MAX : static_cast<int>(count);
}

// A level without directories tells so: its rows are smaller.
void FileRows::GetSubRows(zenu::tag_HROW *, long param, int count, zenu::GC_SLIMROWDATA * rows)
{
    Index const first = tree->children(fileOf(param)).first;
    for (int i = 0; i < count; ++i) {
        Index const file = first + static_cast<Index>(i);
        rows[i].param = static_cast<long>(file);
        rows[i].hasChildren = tree->isDirectory(file);
    }
}

int FileRows::compare(long a, long b, Column column, bool ascending)
{
    Index const left = fileOf(a);
    Index const right = fileOf(b);
    if (tree->isDirectory(left) != tree->isDirectory(right)) {
        return tree->isDirectory(left) ? -1 : 1;
    }
    int const result = compareBy(left, right, column);
    if (result != 0) {
        return ascending ? result : -result;
    }
    return tree->compareNames(left, right);
}

std::string FileRows::describe(long param)
{
    Index const file = fileOf(param);
    std::string path = tree->path(file);
    if (tree->type(file) == FileTree::Type::Link) {
        std::array<char, PATH_MAX> target;
        ssize_t const size = readlink(path.c_str(), target.data(), target.size());
        if (size > 0) {
            path.append(" -> ").append(target.data(), static_cast<std::size_t>(size));
        }
    }
    return path;
}

// The root's name is its whole path.
char const * FileRows::shortName(Index file) const
{
    char const * const name = tree->name(file);
    char const * const slash = file == FileTree::root ? std::strrchr(name, '/') : nullptr;
    return slash && slash[1] != '\0' ? slash + 1 : name;
}

// Of siblings.
int FileRows::compareBy(Index a, Index b, Column column)
{
    switch (column) {
    case Column::Name:
        return tree->compareNames(a, b);
    case Column::Size:
        if (tree->isDirectory(a)) {
            return order(tree->childCount(a), tree->childCount(b));
        }
        return order(tree->details(a).size, tree->details(b).size);
    case Column::Kind:
        kindOf(a, text);
        kindOf(b, otherText);
        return order(text, otherText);
    case Column::Modified:
        return order(tree->details(a).modified, tree->details(b).modified);
    case Column::Executable:
        return order(tree->details(b).executable, tree->details(a).executable);
    }
    return 0;
}

void FileRows::sizeOf(Index file)
{
    if (tree->type(file) == FileTree::Type::File) {
        std::int64_t const size = tree->details(file).size;
        if (!tree->isGone(file) && !tree->isUnreadable(file)) {
            sizeText(size, text);
        }
    } else if (tree->isDirectory(file) && tree->wasRead(file) && !tree->isUnreadable(file)) {
        Index const count = tree->childCount(file);
        text = countText(count) + (count == 1 ? " item" : " items");
    }
}

void FileRows::kindOf(Index file, std::string & result)
{
    static constexpr char const * words[] = {"File", "Folder", "Link", "Device", "Pipe", "Socket"};
    if (tree->isGone(file)) {
        result = "Not there any more";
        return;
    }
    if (tree->type(file) == FileTree::Type::File) {
        explorer::kindOf(tree->name(file), result);
    } else {
        result = words[static_cast<std::size_t>(tree->type(file))];
    }
    if (tree->isUnreadable(file)) {
        result += ", unreadable";
    }
}

} // namespace explorer
