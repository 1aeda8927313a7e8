#pragma once

#include "examples/explorer/model/FileTree.h"
#include "examples/explorer/rows/FixedRows.h"
#include "examples/explorer/rows/RowSource.h"

#include <QKeySequence>
#include <QMainWindow>

#include <functional>
#include <memory>

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QSettings;
class QToolBar;

namespace explorer {

class ExplorerEdits;
class ExplorerGrid;

/// The window: the grid, an action for everything that it can do, and a status line that tells
/// which row is current, how many rows there are and what they cost.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    MainWindow();
    ~MainWindow() override;

    /// Shows places, volumes and the tree of a directory, its first level opened.
    void showDirectory(std::string const & path);
    /// Shows computed rows.
    void showRows(int count);
    /// Opens every row that has children.
    void expandAll();

    /// Takes the columns' widths and the order from settings, and writes them there in the end.
    void keepLookIn(std::unique_ptr<QSettings> keptSettings);

    ExplorerGrid * grid() const { return files; }
    /// Brings the status line up to date at once; it follows by itself a moment after a change.
    void updateStatus();

private:
    using Step = std::function<void()>;

    QAction * addAction(QMenu * menu, char const * text, QKeySequence const & keys, Step step);
    void addActions();
    void addFileActions();
    void addEditActions();
    void addTreeActions();
    void addSortActions();
    void addSortAction(QMenu * menu, char const * text, Column column);
    void addRowMenu();
    void updateRowActions();
    void enableRowActions();
    void updateUndo();
    void addStatusLine();

    void showSource(std::unique_ptr<RowSource> source, std::string const & title);
    void openCurrent();
    void openRow();
    void openParent();
    void openCurrentRow(unsigned code);
    void fitColumns();
    void reload();
    void sort(Column column);
    void fitColumn(Column column);
    bool areTooManyToFit();
    void tell(QString const & message);
    void timed(char const * what, Step const & step);
    void updateStatusSoon();
    std::string pathOf(zenu::tag_HROW * row) const;

    std::string directory; // empty for computed rows
    int rowCount = 0;      // of computed rows
    FixedRows fixedRows;
    std::unique_ptr<FileTree> tree;
    std::unique_ptr<RowSource> rows;
    std::unique_ptr<QSettings> settings;
    ExplorerGrid * files;
    ExplorerEdits * edits;
    QToolBar * tools = nullptr;
    QActionGroup * columns = nullptr;
    QMenu * rowMenu = nullptr;
    QAction * openAction = nullptr;
    QAction * renameAction = nullptr;
    QAction * runsAction = nullptr;
    QAction * undoAction = nullptr;
    QAction * reloadAction = nullptr;
    QLabel * place = nullptr;
    QLabel * time = nullptr;
    QLabel * counts = nullptr;
    bool statusIsOld = false;
};

} // namespace explorer
