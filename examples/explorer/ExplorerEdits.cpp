#include "examples/explorer/ExplorerEdits.h"

#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/model/DisplayName.h"

#include <QFile>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace explorer {

namespace {

QString textOf(std::string const & bytes)
{
    return QFile::decodeName(bytes.c_str());
}

QString quoted(std::string const & path)
{
    return QStringLiteral("\"%1\"").arg(textOf(nameOf(path)));
}

// "a.txt" or "3 files".
QString namesOf(std::vector<std::string> const & paths)
{
    return paths.size() == 1 ? quoted(paths.front()) : QStringLiteral("%1 files").arg(paths.size());
}

std::vector<std::string> changedPaths(FileOutcome const & outcome)
{
    std::vector<std::string> paths;
    for (FileChange const & change : outcome.done) {
        paths.push_back(change.path);
    }
    return paths;
}

// How much of a name is in front of its ending: what one mostly wants to replace.
int stemLength(QString const & name)
{
    int const dot = static_cast<int>(name.lastIndexOf(QLatin1Char('.')));
    return dot > 0 ? dot : static_cast<int>(name.size());
}

} // namespace

ExplorerEdits::ExplorerEdits(ExplorerGrid * editedGrid)
    : QObject(editedGrid)
    , grid(editedGrid)
{
    grid->setMayEdit([this](zenu::tag_HROW * row, Column column) { return mayEdit(row, column); });
    connect(grid, &ExplorerGrid::editorOpened, this, &ExplorerEdits::prepareEditor);
    connect(grid, &ExplorerGrid::flipWanted, this, &ExplorerEdits::flipSelected);
}

void ExplorerEdits::setTree(FileTree * shownTree)
{
    flipNow();
    tree = shownTree;
}

std::string ExplorerEdits::pathOf(zenu::tag_HROW * row) const
{
    Index const file = TreeRows(grid, tree).fileOf(row);
    return file == FileTree::none ? std::string() : tree->path(file);
}

bool ExplorerEdits::isChangeable(zenu::tag_HROW * row) const
{
    Index const file = TreeRows(grid, tree).fileOf(row);
    return file != FileTree::none && file != FileTree::root;
}

bool ExplorerEdits::canRun(zenu::tag_HROW * row) const
{
    return isChangeable(row) &&
           tree->type(TreeRows(grid, tree).fileOf(row)) == FileTree::Type::File;
}

bool ExplorerEdits::runs(zenu::tag_HROW * row) const
{
    return canRun(row) && tree->details(TreeRows(grid, tree).fileOf(row)).executable;
}

bool ExplorerEdits::mayEdit(zenu::tag_HROW * row, Column column)
{
    if (column == Column::Executable) {
        return canRun(row); // the others of a selection have no box: they stay as they are
    }
    if (!isChangeable(row)) {
        return false;
    }
    if (!isShownExactly(tree->name(TreeRows(grid, tree).fileOf(row)))) {
        Q_EMIT told(QStringLiteral("This name has letters beyond Latin-1: press F2 to edit it"));
        return false;
    }
    return true;
}

void ExplorerEdits::editCurrentName()
{
    zenu::tag_HROW * const row = grid->currentRow();
    if (!isChangeable(row)) {
        Q_EMIT told(QStringLiteral("Only names below the top of the tree can be edited"));
    } else if (!isShownExactly(tree->name(TreeRows(grid, tree).fileOf(row)))) {
        askForName(TreeRows(grid, tree).fileOf(row));
    } else {
        grid->EditItem(row, handleOf(Column::Name));
    }
}

// Escape leaves the name as it was. The grid would keep the key in its editor.
void ExplorerEdits::prepareEditor(QLineEdit * editor)
{
    editor->installEventFilter(this);
    editor->setSelection(0, stemLength(editor->text()));
}

bool ExplorerEdits::eventFilter(QObject * object, QEvent * event)
{
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        QMetaObject::invokeMethod(
            grid, [this] { grid->EndEditItemNow(true); }, Qt::QueuedConnection);
        return true;
    }
    return QObject::eventFilter(object, event);
}

// The grid's editor gives '?' for what Latin-1 has not.
void ExplorerEdits::editName(Index file, char const * text)
{
    std::string const before = displayName(tree->name(file));
    std::string const after = text;
    if (before == after) {
        return;
    }
    if (std::ranges::count(after, '?') > std::ranges::count(before, '?')) {
        Q_EMIT told(
            QStringLiteral("Not renamed: names in the grid have Latin-1 letters only, and '?' "
                           "stands for all others"));
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, path = tree->path(file), name = nameFromText(text)] { rename(path, name); },
        Qt::QueuedConnection);
}

void ExplorerEdits::askForName(Index file)
{
    std::string const path = tree->path(file);
    auto * const dialog = new QInputDialog(grid->window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QStringLiteral("Rename"));
    dialog->setLabelText(QStringLiteral("New name:"));
    dialog->setTextValue(textOf(nameOf(path)));
    connect(dialog, &QInputDialog::textValueSelected, this, [this, path](QString const & name) {
        if (name != textOf(nameOf(path))) {
            rename(path, QFile::encodeName(name).toStdString());
        }
    });
    dialog->open();
}

void ExplorerEdits::rename(std::string const & path, std::string const & name)
{
    FileOutcome const outcome = changes.rename(path, name);
    show(outcome);
    tell(QStringLiteral("%1 is %2 now").arg(quoted(path), quoted(name)),
         QStringLiteral("Not renamed"), outcome);
}

// Told of one file after the other; all of them are one step to undo.
void ExplorerEdits::editRuns(Index file, bool runs)
{
    if (flipTo != runs) {
        flipNow();
    }
    if (flips.empty()) {
        QMetaObject::invokeMethod(this, &ExplorerEdits::flipNow, Qt::QueuedConnection);
    }
    flips.push_back(tree->path(file));
    flipTo = runs;
}

void ExplorerEdits::flipSelected()
{
    bool const runsNow = runs(grid->currentRow());
    for (Index const file : TreeRows(grid, tree).selectedFiles()) {
        if (tree->type(file) == FileTree::Type::File) {
            editRuns(file, !runsNow);
        }
    }
}

void ExplorerEdits::flipNow()
{
    FileChanges::Paths const paths = std::exchange(flips, {});
    if (paths.empty()) {
        return;
    }
    FileOutcome const outcome = changes.setExecutable(paths, flipTo);
    show(outcome);
    tell(
        (flipTo ? QStringLiteral("%1 can be run now") : QStringLiteral("%1 cannot be run any more"))
            .arg(namesOf(changedPaths(outcome))),
        QStringLiteral("Not changed"), outcome);
}

void ExplorerEdits::askToMove(std::vector<std::string> const & paths, std::string const & directory)
{
    auto * const question =
        new QMessageBox(QMessageBox::Question, QStringLiteral("Move"),
                        QStringLiteral("Move %1 into %2?").arg(namesOf(paths), quoted(directory)),
                        QMessageBox::Cancel, grid->window());
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setTextFormat(Qt::PlainText);
    QPushButton * const yes = question->addButton(QStringLiteral("&Move"), QMessageBox::AcceptRole);
    question->setDefaultButton(yes);
    connect(yes, &QPushButton::clicked, this, [this, paths, directory] { move(paths, directory); });
    question->open();
}

void ExplorerEdits::move(std::vector<std::string> const & paths, std::string const & directory)
{
    FileOutcome const outcome = changes.move(paths, directory);
    show(outcome);
    tell(QStringLiteral("Moved %1 into %2").arg(namesOf(changedPaths(outcome)), quoted(directory)),
         QStringLiteral("Not moved"), outcome);
}

void ExplorerEdits::undo()
{
    flipNow();
    if (!changes.canUndo()) {
        return;
    }
    QString const what = textOf(changes.undoText());
    FileOutcome const outcome = changes.undo();
    show(outcome);
    tell(QStringLiteral("Took back the %1").arg(what), QStringLiteral("Not taken back"), outcome);
}

QString ExplorerEdits::undoText() const
{
    return textOf(changes.undoText());
}

void ExplorerEdits::tell(QString const & done, QString const & notDone, FileOutcome const & outcome)
{
    QStringList parts;
    if (!outcome.done.empty()) {
        parts += done;
    }
    if (!outcome.isDone()) {
        parts += notDone + QStringLiteral(": ") + textOf(outcome.error);
    }
    if (outcome.refused > 1) {
        parts += QStringLiteral("%1 were refused in all").arg(outcome.refused);
    }
    if (!parts.isEmpty()) {
        Q_EMIT told(parts.join(QStringLiteral("; ")));
    }
    Q_EMIT undoChanged();
}

// Files that stay in their directory keep their rows; directories that files came to or went from
// get theirs anew.
void ExplorerEdits::show(FileOutcome const & outcome)
{
    if (!tree || outcome.done.empty()) {
        return;
    }
    TreeRows rows(grid, tree);
    std::vector<Index> directories;
    std::vector<std::string> arrived;
    for (FileChange const & change : outcome.done) {
        std::string const from = directoryOf(change.path);
        std::string const to = directoryOf(change.newPath);
        Index const file = tree->find(change.path);
        if (change.newPath.empty()) {
            if (file != FileTree::none) {
                tree->lookAgain(file);
            }
        } else if (from == to && file != FileTree::none) {
            tree->rename(file, nameOf(change.newPath));
        } else {
            directories.push_back(tree->find(from));
            directories.push_back(tree->find(to));
            arrived.push_back(change.newPath);
        }
    }
    rows.readAgain(std::move(directories));
    grid->sortBy(grid->sortColumn(), grid->isSortedAscending());
    if (!arrived.empty()) {
        std::vector<Index> files;
        for (std::string const & path : arrived) {
            files.push_back(tree->find(path));
        }
        rows.select(files, tree->find(directoryOf(arrived.front())));
    } else if (zenu::tag_HROW * const row = grid->currentRow()) {
        grid->EnsureVisible(row, zenu::GC_NOCOLUMN);
    }
    grid->UpdateVisibleRows();
    grid->update();
}

} // namespace explorer
