// The menus, the tool bar and the menu of the rows.

#include "examples/explorer/ExplorerEdits.h"
#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/MainWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <QToolBar>

namespace explorer {

QAction * MainWindow::addAction(QMenu * menu, char const * text, QKeySequence const & keys,
                                Step step)
{
    QAction * const action = menu->addAction(QString::fromLatin1(text), this, std::move(step));
    action->setShortcut(keys);
    return action;
}

void MainWindow::addActions()
{
    tools = addToolBar(QStringLiteral("Tree"));
    tools->setMovable(false);
    addFileActions();
    addEditActions();
    addTreeActions();
    addSortActions();
    addRowMenu();
    updateUndo();
}

void MainWindow::addFileActions()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&File"));
    openAction = addAction(menu, "&Open", Qt::Key_Return, [this] { openCurrent(); });
    tools->addAction(openAction);
    tools->addAction(addAction(menu, "&Parent", Qt::ALT | Qt::Key_Up, [this] { openParent(); }));
    reloadAction = addAction(menu, "&Reload", Qt::Key_F5, [this] { reload(); });
    tools->addAction(reloadAction);
    menu->addSeparator();
    addAction(menu, "&Quit", Qt::CTRL | Qt::Key_Q, [this] { close(); });
    tools->addSeparator();
}

void MainWindow::addEditActions()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Edit"));
    undoAction = addAction(menu, "&Undo", QKeySequence::Undo, [this] { edits->undo(); });
    undoAction->setIconText(QStringLiteral("Undo"));
    tools->addAction(undoAction);
    menu->addSeparator();
    renameAction = addAction(menu, "Re&name", Qt::Key_F2, [this] { edits->editCurrentName(); });
    runsAction = addAction(menu, "&Runs", Qt::CTRL | Qt::Key_R, [this] { edits->flipSelected(); });
    runsAction->setCheckable(true);
    addAction(menu, "Select &all", QKeySequence::SelectAll, [this] { files->SelectAll(); });
    tools->addSeparator();
    connect(menu, &QMenu::aboutToShow, this, &MainWindow::updateRowActions);
    connect(menu, &QMenu::aboutToHide, this, &MainWindow::enableRowActions);
}

// The grid has the keys for one row and for all; what stands behind the tab only tells them.
void MainWindow::addTreeActions()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Tree"));
    auto const add = [&](char const * text, char const * name, Step step) {
        QAction * const action = addAction(menu, text, QKeySequence(), std::move(step));
        action->setIconText(QString::fromLatin1(name));
        tools->addAction(action);
    };
    add("&Expand\t+", "Expand", [this] { openCurrentRow(zenu::GCE_EXPAND); });
    add("&Collapse\t-", "Collapse", [this] { openCurrentRow(zenu::GCE_COLLAPSE); });
    add("Expand &all\tCtrl++", "Expand all", [this] { expandAll(); });
    add("Collapse a&ll\tCtrl+-", "Collapse all", [this] {
        timed("All collapsed", [this] { files->Expand(nullptr, zenu::GCE_COLLAPSEALL); });
    });
    menu->addSeparator();
    tools->addSeparator();
    tools->addAction(
        addAction(menu, "&Fit columns", Qt::CTRL | Qt::Key_F, [this] { fitColumns(); }));
}

void MainWindow::addSortActions()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Sort"));
    columns = new QActionGroup(this);
    addSortAction(menu, "By &name", Column::Name);
    addSortAction(menu, "By &size", Column::Size);
    addSortAction(menu, "By &kind", Column::Kind);
    addSortAction(menu, "By date &modified", Column::Modified);
    addSortAction(menu, "By what &runs", Column::Executable);
    menu->addSeparator();
    addAction(menu, "&Turn round", Qt::CTRL | Qt::Key_T, [this] { sort(files->sortColumn()); });
}

// The key of a column that the rows are sorted by turns the order round.
void MainWindow::addSortAction(QMenu * menu, char const * text, Column column)
{
    int const number = static_cast<int>(column);
    QAction * const action = addAction(menu, text, Qt::CTRL | Qt::Key(Qt::Key_1 + number),
                                       [this, column] { sort(column); });
    action->setCheckable(true);
    action->setChecked(column == Column::Name);
    columns->addAction(action);
}

void MainWindow::addRowMenu()
{
    rowMenu = new QMenu(this);
    rowMenu->setObjectName(QStringLiteral("rowMenu"));
    rowMenu->addActions({openAction, renameAction, runsAction});
    rowMenu->addSeparator();
    rowMenu->addActions({undoAction, reloadAction});
    connect(rowMenu, &QMenu::aboutToShow, this, &MainWindow::updateRowActions);
    connect(rowMenu, &QMenu::aboutToHide, this, &MainWindow::enableRowActions);
    connect(files, &ExplorerGrid::menuWanted, rowMenu,
            [this](QPoint const & place) { rowMenu->popup(place); });
}

// An action that is off takes no key, so those with one are off in an open menu alone.
void MainWindow::updateRowActions()
{
    zenu::tag_HROW * const row = files->currentRow();
    runsAction->setChecked(edits->runs(row));
    openAction->setEnabled(isDirectory(pathOf(row)));
    renameAction->setEnabled(edits->isChangeable(row));
    runsAction->setEnabled(edits->canRun(row));
}

void MainWindow::enableRowActions()
{
    for (QAction * const action : {openAction, renameAction, runsAction}) {
        action->setEnabled(true);
    }
}

void MainWindow::updateUndo()
{
    QString const what =
        edits->undoText().replace(QLatin1Char('&'), QStringLiteral("&&")); // no key to press
    undoAction->setEnabled(!what.isEmpty());
    undoAction->setText(what.isEmpty() ? QStringLiteral("&Undo")
                                       : QStringLiteral("&Undo %1").arg(what));
    undoAction->setIconText(QStringLiteral("Undo"));
}

} // namespace explorer
