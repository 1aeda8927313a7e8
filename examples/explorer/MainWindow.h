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
class QToolBar;

namespace explorer {

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

    ExplorerGrid * grid() const { return files; }
    /// Brings the status line up to date at once; it follows by itself a moment after a change.
    void updateStatus();

private:
    using Step = std::function<void()>;

    QAction * addAction(QMenu * menu, char const * text, QKeySequence const & keys, Step step);
    void addFileActions();
    void addTreeActions();
    void addSortActions();
    void addGoActions();
    void addScrollAction(QMenu * menu, char const * text, QKeySequence const & keys, int code);
    void addSortAction(QMenu * menu, char const * text, Column column);
    void addStatusLine();

    void showSource(std::unique_ptr<RowSource> source, std::string const & title);
    void openCurrent();
    void openParent();
    void openCurrentRow(unsigned code);
    void fitColumns();
    void reload();
    void sort(Column column);
    void timed(char const * what, Step const & step);
    void updateStatusSoon();
    std::string currentPath() const;

    std::string directory; // empty for computed rows
    int rowCount = 0;      // of computed rows
    FixedRows fixedRows;
    std::unique_ptr<FileTree> tree;
    std::unique_ptr<RowSource> rows;
    ExplorerGrid * files;
    QToolBar * tools = nullptr;
    QActionGroup * columns = nullptr;
    QLabel * place = nullptr;
    QLabel * time = nullptr;
    QLabel * counts = nullptr;
    bool statusIsOld = false;
};

} // namespace explorer
