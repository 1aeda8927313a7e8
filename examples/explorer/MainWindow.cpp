#include "examples/explorer/MainWindow.h"

#include "examples/explorer/ExplorerDrag.h"
#include "examples/explorer/ExplorerEdits.h"
#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/KeptLook.h"
#include "examples/explorer/Memory.h"
#include "examples/explorer/rows/ComputedRows.h"
#include "examples/explorer/rows/FileRows.h"
#include "examples/explorer/rows/Texts.h"

#include <zenu/widgets/Cursors.h>

#include <QAction>
#include <QActionGroup>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace explorer {

namespace {

constexpr QSize startSize(1000, 680);
constexpr int labelMargin = 6;
constexpr unsigned mostFittedRows = 1'000'000;
constexpr int messageTime = 10'000; // milliseconds

// Home as "~", the way people write it.
QString shortPath(std::string const & path)
{
    QString const text = QFile::decodeName(path.c_str());
    QString const home = QDir::homePath();
    bool const isBelow = text == home || text.startsWith(home + QLatin1Char('/'));
    return isBelow && home.size() > 1 ? QLatin1Char('~') + text.mid(home.size()) : text;
}

} // namespace

MainWindow::MainWindow()
    : files(new ExplorerGrid(this))
    , edits(new ExplorerEdits(files))
{
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    resize(startSize);
    setCentralWidget(files);
    addActions();
    addStatusLine();
    connect(files, &ExplorerGrid::rowsChanged, this, &MainWindow::updateStatusSoon);
    connect(files, &ExplorerGrid::headerClicked, this, &MainWindow::sort);
    connect(files, &ExplorerGrid::dividerDoubleClicked, this, &MainWindow::fitColumn);
    connect(files, &ExplorerGrid::rowDoubleClicked, this, &MainWindow::openRow);
    connect(edits, &ExplorerEdits::told, this, &MainWindow::tell);
    connect(edits, &ExplorerEdits::undoChanged, this, &MainWindow::updateUndo);
    files->drag()->setPathOf([this](zenu::tag_HROW * row) { return pathOf(row); });
    files->drag()->setCanDrag([this](zenu::tag_HROW * row) { return edits->isChangeable(row); });
    connect(files->drag(), &ExplorerDrag::dropped, edits, &ExplorerEdits::askToMove);
    files->setFocus();
}

// The grid goes first: it asks its source as long as it has rows.
MainWindow::~MainWindow()
{
    if (settings) {
        keepLook(*files, *settings);
    }
    edits->setTree(nullptr);
    delete files;
}

void MainWindow::keepLookIn(std::unique_ptr<QSettings> keptSettings)
{
    settings = std::move(keptSettings);
    if (settings) {
        restoreLook(*files, *settings);
        columns->actions().at(static_cast<int>(files->sortColumn()))->setChecked(true);
    }
}

void MainWindow::showDirectory(std::string const & path)
{
    directory = path;
    auto newTree = std::make_unique<FileTree>(path);
    auto source = std::make_unique<FileRows>(newTree.get(), edits);
    edits->setTree(nullptr);
    showSource(std::move(source), path);
    edits->setTree(newTree.get());
    tree = std::move(newTree);
}

void MainWindow::showRows(int count)
{
    directory.clear();
    rowCount = count;
    edits->setTree(nullptr);
    showSource(std::make_unique<ComputedRows>(count), countText(count) + " rows");
}

// The new source takes over while the old one still lives, since the grid may hold rows of it.
void MainWindow::showSource(std::unique_ptr<RowSource> source, std::string const & title)
{
    setWindowTitle(shortPath(title) + QStringLiteral(" - zenu explorer"));
    timed("Opened", [&] {
        files->DeleteAllRows();
        if (!directory.empty()) {
            fixedRows.addTo(*files);
        }
        files->addTopRow(source.get());
        rows = std::move(source);
        files->update();
    });
    updateStatusSoon();
}

void MainWindow::addStatusLine()
{
    place = new QLabel(this);
    time = new QLabel(this);
    counts = new QLabel(this);
    for (QLabel * const label : {place, time, counts}) {
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(labelMargin, 0, labelMargin, 0);
    }
    place->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(place, 1);
    statusBar()->addPermanentWidget(time);
    statusBar()->addPermanentWidget(counts);
}

std::string MainWindow::pathOf(zenu::tag_HROW * row) const
{
    long const param = row ? static_cast<long>(files->GetRowParam(row)) : 0;
    return param < 0 ? fixedRows.path(param) : edits->pathOf(row);
}

// Places, volumes and directories become the top of the tree.
void MainWindow::openCurrent()
{
    std::string const path = pathOf(files->currentRow());
    if (isDirectory(path)) {
        showDirectory(path);
    }
}

// Twice on a directory opens or closes it where it is.
void MainWindow::openRow()
{
    zenu::tag_HROW * const row = files->currentRow();
    if (static_cast<long>(files->GetRowParam(row)) < 0) {
        QTimer::singleShot(0, this, &MainWindow::openCurrent);
    } else {
        files->Expand(row, zenu::GCE_TOGGLE);
    }
}

void MainWindow::openParent()
{
    std::size_t const slash = directory.rfind('/');
    if (slash != std::string::npos && directory != "/") {
        showDirectory(directory.substr(0, std::max<std::size_t>(slash, 1)));
    }
}

void MainWindow::openCurrentRow(unsigned code)
{
    if (zenu::tag_HROW * const row = files->currentRow()) {
        files->Expand(row, code);
        updateStatusSoon();
    }
}

void MainWindow::expandAll()
{
    timed("All expanded", [this] { files->Expand(nullptr, zenu::GCE_EXPANDALL); });
}

// Fitting measures every text of every row, so it is left out where that would take minutes.
bool MainWindow::areTooManyToFit()
{
    bool const tooMany = files->GetExpandedCount() > mostFittedRows;
    if (tooMany) {
        time->setText(QStringLiteral("Too many rows to fit columns"));
    }
    return tooMany;
}

void MainWindow::fitColumns()
{
    if (!areTooManyToFit()) {
        timed("Columns fitted", [this] { files->fitColumns(); });
    }
}

void MainWindow::fitColumn(Column column)
{
    if (!areTooManyToFit()) {
        timed("Column fitted", [this, column] { files->fitColumn(column); });
    }
}

void MainWindow::tell(QString const & message)
{
    statusBar()->showMessage(message, messageTime);
}

void MainWindow::reload()
{
    if (directory.empty()) {
        showRows(rowCount);
    } else {
        showDirectory(std::string(directory));
    }
}

void MainWindow::sort(Column column)
{
    bool const turn = column == files->sortColumn() && files->isSortedAscending();
    columns->actions().at(static_cast<int>(column))->setChecked(true);
    timed("Sorted", [&] { files->sortBy(column, !turn); });
}

// The step, all that it makes necessary up to the order of the rows, and how long that took.
void MainWindow::timed(char const * what, Step const & step)
{
    zenu::KWaitCursor const wait;
    QElapsedTimer timer;
    timer.start();
    step();
    files->UpdateVisibleRows();
    double const milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    time->setText(QStringLiteral("%1 in %2 ms")
                      .arg(QString::fromLatin1(what))
                      .arg(milliseconds, 0, 'f', milliseconds < 100 ? 1 : 0));
    updateStatusSoon();
}

// Opening a tree tells of each row that is opened; once is enough.
void MainWindow::updateStatusSoon()
{
    if (!statusIsOld) {
        statusIsOld = true;
        QTimer::singleShot(0, this, &MainWindow::updateStatus);
    }
}

void MainWindow::updateStatus()
{
    statusIsOld = false;
    zenu::tag_HROW * const row = files->currentRow();
    long const param = row ? static_cast<long>(files->GetRowParam(row)) : -1;
    place->setText(shortPath(param < 0 ? pathOf(row) : rows->describe(param)));
    std::string memory;
    sizeText(residentBytes(), memory);
    counts->setText(
        QStringLiteral("%1 rows loaded   %2 in the visible order   %3 of memory (process)")
            .arg(QString::fromStdString(countText(files->GetRowCount())),
                 QString::fromStdString(countText(files->GetExpandedCount())),
                 QString::fromStdString(memory)));
}

} // namespace explorer
