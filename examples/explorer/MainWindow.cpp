#include "examples/explorer/MainWindow.h"

#include "examples/explorer/ExplorerGrid.h"
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
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace explorer {

namespace {

constexpr QSize startSize(1000, 680);
constexpr int labelMargin = 6;
constexpr unsigned mostFittedRows = 1'000'000;

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
{
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    resize(startSize);
    setCentralWidget(files);
    tools = addToolBar(QStringLiteral("Tree"));
    tools->setMovable(false);
    addFileActions();
    addTreeActions();
    addSortActions();
    addGoActions();
    addStatusLine();
    connect(files, &ExplorerGrid::rowsChanged, this, &MainWindow::updateStatusSoon);
    files->setFocus();
}

// The grid goes first: it asks its source as long as it has rows.
MainWindow::~MainWindow()
{
    delete files;
}

void MainWindow::showDirectory(std::string const & path)
{
    directory = path;
    auto newTree = std::make_unique<FileTree>(path);
    auto source = std::make_unique<FileRows>(newTree.get());
    showSource(std::move(source), path);
    tree = std::move(newTree);
}

void MainWindow::showRows(int count)
{
    directory.clear();
    rowCount = count;
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

QAction * MainWindow::addAction(QMenu * menu, char const * text, QKeySequence const & keys,
                                Step step)
{
    QAction * const action = menu->addAction(QString::fromLatin1(text), this, std::move(step));
    action->setShortcut(keys);
    return action;
}

void MainWindow::addFileActions()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&File"));
    tools->addAction(addAction(menu, "&Open", Qt::Key_Return, [this] { openCurrent(); }));
    tools->addAction(addAction(menu, "&Parent", Qt::ALT | Qt::Key_Up, [this] { openParent(); }));
    tools->addAction(addAction(menu, "&Reload", Qt::Key_F5, [this] { reload(); }));
    menu->addSeparator();
    addAction(menu, "&Quit", Qt::CTRL | Qt::Key_Q, [this] { close(); });
    tools->addSeparator();
}

void MainWindow::addTreeActions()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Tree"));
    tools->addAction(
        addAction(menu, "&Expand", Qt::Key_Right, [this] { openCurrentRow(zenu::GCE_EXPAND); }));
    tools->addAction(
        addAction(menu, "&Collapse", Qt::Key_Left, [this] { openCurrentRow(zenu::GCE_COLLAPSE); }));
    tools->addAction(
        addAction(menu, "Expand &all", Qt::CTRL | Qt::Key_Right, [this] { expandAll(); }));
    tools->addAction(addAction(menu, "Collapse a&ll", Qt::CTRL | Qt::Key_Left, [this] {
        timed("All collapsed", [this] { files->Expand(nullptr, zenu::GCE_COLLAPSEALL); });
    }));
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

void MainWindow::addGoActions()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Go"));
    addAction(menu, "&Next row", Qt::Key_Down, [this] { files->moveCurrentRow(1); });
    addAction(menu, "&Previous row", Qt::Key_Up, [this] { files->moveCurrentRow(-1); });
    menu->addSeparator();
    addScrollAction(menu, "Page &down", Qt::Key_PageDown, zenu::KScrolledWidget::ScrollPageForward);
    addScrollAction(menu, "Page &up", Qt::Key_PageUp, zenu::KScrolledWidget::ScrollPageBack);
    addScrollAction(menu, "To the &top", Qt::Key_Home, zenu::KScrolledWidget::ScrollToBegin);
    addScrollAction(menu, "To the &end", Qt::Key_End, zenu::KScrolledWidget::ScrollToEnd);
}

void MainWindow::addScrollAction(QMenu * menu, char const * text, QKeySequence const & keys,
                                 int code)
{
    addAction(menu, text, keys, [this, code] {
        files->OnScroll(zenu::KScrolledWidget::ScrollNothing, code, 0, true);
    });
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

std::string MainWindow::currentPath() const
{
    zenu::tag_HROW * const row = files->currentRow();
    if (!row || !tree) {
        return std::string();
    }
    auto const param = static_cast<long>(files->GetRowParam(row));
    return param < 0 ? fixedRows.path(param) : tree->path(static_cast<FileTree::Index>(param));
}

// Places, volumes and directories become the top of the tree.
void MainWindow::openCurrent()
{
    std::string const path = directory.empty() ? std::string() : currentPath();
    if (isDirectory(path)) {
        showDirectory(path);
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
void MainWindow::fitColumns()
{
    if (files->GetExpandedCount() > mostFittedRows) {
        time->setText(QStringLiteral("Too many rows to fit columns"));
    } else {
        timed("Columns fitted", [this] { files->fitColumns(); });
    }
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
    place->setText(shortPath(param < 0 ? currentPath() : rows->describe(param)));
    std::string memory;
    sizeText(residentBytes(), memory);
    counts->setText(
        QStringLiteral("%1 rows loaded   %2 in the visible order   %3 of memory (process)")
            .arg(QString::fromStdString(countText(files->GetRowCount())),
                 QString::fromStdString(countText(files->GetExpandedCount())),
                 QString::fromStdString(memory)));
}

} // namespace explorer
