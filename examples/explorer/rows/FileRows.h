#pragma once

#include "examples/explorer/model/FileTree.h"
#include "examples/explorer/rows/RowSource.h"

#include <string>

namespace explorer {

/// Hears what is typed and clicked into the rows of files. It is called in the middle of the grid's
/// work, so it changes rows a moment later.
class IFileEdits
{
public:
    virtual ~IFileEdits() = default;
    /// The name of a file was edited; the text is Latin-1, as the grid's texts are.
    virtual void editName(FileTree::Index file, char const * text) = 0;
    /// The check box of a file was flipped; of several files one after the other.
    virtual void editRuns(FileTree::Index file, bool runs) = 0;
};

/// The rows of a FileTree: a row's param is the index of its file. Nothing is kept for a row; what
/// the grid asks for is read from the tree at that moment.
class FileRows : public RowSource
{
public:
    /// Neither is owned. Without edits nothing that is typed has an effect.
    explicit FileRows(FileTree * shownTree, IFileEdits * heardEdits = nullptr)
        : tree(shownTree)
        , edits(heardEdits)
    {
    }

    void GetRowDrawInfo(zenu::GC_DRAWROWINFO * info, zenu::tag_HROW * row, long param,
                        bool selected) override;
    void GetItemDrawInfo(zenu::GC_DRAWITEMINFO * info, zenu::tag_HROW * row, long param,
                         zenu::tag_HCOLUMN * column, int halfWidth, bool selected,
                         bool focusCell) override;
    char const * GetItemText(zenu::tag_HROW * row, long param, zenu::tag_HCOLUMN * column) override;
    void SetItemText(zenu::tag_HROW * row, long param, zenu::tag_HCOLUMN * column,
                     char const * text) override;
    void SetItemCheck(zenu::tag_HROW * row, long param, zenu::tag_HCOLUMN * column,
                      bool checked) override;
    int IsItemChecked(zenu::tag_HROW * row, long param, zenu::tag_HCOLUMN * column) override;
    bool HasSubRows(zenu::tag_HROW * row, long param) override;
    int GetSubRowCount(zenu::tag_HROW * row, long param) override;
    void GetSubRows(zenu::tag_HROW * row, long param, int count,
                    zenu::GC_SLIMROWDATA * rows) override;

    /// Directories come first, whatever the direction.
    int compare(long a, long b, Column column, bool ascending) override;
    bool isInNameOrder() override { return tree->isInOrder(); }
    /// The path of the file and, of a link, where it leads.
    std::string describe(long param) override;

private:
    using Index = FileTree::Index;

    char const * shortName(Index file) const;
    int compareBy(Index a, Index b, Column column);
    void sizeOf(Index file);
    void kindOf(Index file, std::string & result);

    FileTree * tree;
    IFileEdits * edits;
    std::string text; // the last one that was asked for
    std::string otherText;
};

} // namespace explorer
