#pragma once

#include "examples/explorer/TreeRows.h"
#include "examples/explorer/model/FileChanges.h"
#include "examples/explorer/rows/Columns.h"
#include "examples/explorer/rows/FileRows.h"

#include <QObject>

class QLineEdit;

namespace explorer {

/// Does to files what is done to their rows: names that are edited, check boxes that are flipped,
/// rows that are dropped on a directory; and undoes it. Each change is made on disk first, then the
/// rows follow. What the disk refuses is told and changes no row.
class ExplorerEdits : public QObject, public IFileEdits
{
    Q_OBJECT
public:
    /// Belongs to the grid.
    explicit ExplorerEdits(ExplorerGrid * editedGrid);

    /// The tree that the grid shows from now on, null for rows that are no files.
    void setTree(FileTree * shownTree);

    /// Whether a cell can be edited or its box be flipped; tells why not.
    bool mayEdit(zenu::tag_HROW * row, Column column);
    /// Edits the name of the current row: in place, or in a dialog if the name has letters that the
    /// grid's Latin-1 has not.
    void editCurrentName();
    /// Makes the selected files executable, or not, as the current row's is not.
    void flipSelected();
    /// Moves files, after asking.
    void askToMove(std::vector<std::string> const & paths, std::string const & directory);
    void undo();
    /// What undo would do, for a menu; empty for nothing.
    QString undoText() const;

    /// The path of a row's file, empty for other rows.
    std::string pathOf(zenu::tag_HROW * row) const;
    /// Whether a row is a file that can be renamed and moved.
    bool isChangeable(zenu::tag_HROW * row) const;
    /// Whether a row is a file that can be made executable.
    bool canRun(zenu::tag_HROW * row) const;
    bool runs(zenu::tag_HROW * row) const;

    void editName(FileTree::Index file, char const * text) override;
    void editRuns(FileTree::Index file, bool runs) override;

Q_SIGNALS:
    /// What was done or refused, in words.
    void told(QString const & message);
    /// There is something else to undo, or nothing.
    void undoChanged();

protected:
    bool eventFilter(QObject * object, QEvent * event) override;

private:
    using Index = FileTree::Index;

    void prepareEditor(QLineEdit * editor);
    void rename(std::string const & path, std::string const & name);
    void askForName(Index file);
    void move(std::vector<std::string> const & paths, std::string const & directory);
    void flipNow();
    void show(FileOutcome const & outcome);
    void tell(QString const & done, QString const & notDone, FileOutcome const & outcome);

    ExplorerGrid * grid;
    FileTree * tree = nullptr;
    FileChanges changes;
    FileChanges::Paths flips; // to be made executable, or not
    bool flipTo = false;
};

} // namespace explorer
