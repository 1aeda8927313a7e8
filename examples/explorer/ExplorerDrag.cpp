#include "examples/explorer/ExplorerDrag.h"

#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/model/FileChanges.h"
#include "examples/explorer/model/FileTree.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTimerEvent>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace explorer {

namespace {

constexpr int edge = 20;        // pixels at the ends of the rows where a drag scrolls
constexpr int scrollPause = 80; // milliseconds between two lines
QString const rowsFormat = QStringLiteral("application/x-zenu-explorer-rows");

// The process, so that the rows of another explorer are not taken for this one's.
QByteArray ownMark()
{
    return QByteArray::number(QCoreApplication::applicationPid());
}

// The paths of a drag of this program; none of any other.
ExplorerDrag::Paths pathsIn(QMimeData const * data)
{
    QList<QByteArray> parts = data ? data->data(rowsFormat).split('\0') : QList<QByteArray>();
    if (parts.isEmpty() || parts.takeFirst() != ownMark()) {
        return {};
    }
    ExplorerDrag::Paths paths;
    for (QByteArray const & part : parts) {
        paths.push_back(part.toStdString());
    }
    return paths;
}

bool isMovable(std::string const & path, std::string const & directory)
{
    return directoryOf(path) != directory && !isWithin(directory, path);
}

} // namespace

ExplorerDrag::ExplorerDrag(ExplorerGrid * draggedGrid)
    : QObject(draggedGrid)
    , grid(draggedGrid)
{
    grid->setAcceptDrops(true);
}

std::unique_ptr<QMimeData> ExplorerDrag::mimeData(Paths const & paths)
{
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    QByteArray bytes = ownMark();
    for (std::string const & path : paths) {
        urls += QUrl::fromLocalFile(QFile::decodeName(path.c_str()));
        bytes += '\0';
        bytes += QByteArray::fromStdString(path);
    }
    data->setUrls(urls);
    data->setData(rowsFormat, bytes);
    return data;
}

void ExplorerDrag::press(zenu::tag_HROW * row, unsigned element)
{
    bool const onRow =
        element == zenu::GCEL_TEXT || element == zenu::GCEL_IMAGE || element == zenu::GCEL_CELL;
    pressedRow = onRow && QApplication::keyboardModifiers() == Qt::NoModifier ? row : nullptr;
    keepsSelection = false;
}

// Asked by a press on a row of a multiple selection, which would leave that row alone selected.
bool ExplorerDrag::maySelect(zenu::GC_SELECTIONCHANGE const & change)
{
    zenu::tag_HROW ** const past = change.deselected + change.deselectedCount;
    if (!pressedRow || !canDrag || !canDrag(pressedRow) || change.deselectedCount < 2 ||
        std::find(change.deselected, past, pressedRow) == past) {
        return true;
    }
    keepsSelection = true;
    return false;
}

void ExplorerDrag::release()
{
    zenu::tag_HROW * const row = std::exchange(pressedRow, nullptr);
    if (std::exchange(keepsSelection, false)) {
        grid->selectOnly(row);
    }
}

ExplorerDrag::Paths ExplorerDrag::selectedPaths() const
{
    Paths paths;
    for (auto row = grid->begin(zenu::GCN_SELECTED_FIRST); row != grid->end(); ++row) {
        if (canDrag && canDrag(*row)) {
            paths.push_back(pathOf(*row));
        }
    }
    return paths;
}

// The drag runs an event loop of its own, in which everything may happen.
void ExplorerDrag::begin()
{
    zenu::tag_HROW * const row = std::exchange(pressedRow, nullptr);
    keepsSelection = false;
    Paths const paths = selectedPaths();
    if (!row || paths.empty() || dragging) {
        return;
    }
    QPointer<ExplorerDrag> const self(this);
    dragging = true;
    auto * const drag = new QDrag(grid);
    drag->setMimeData(mimeData(paths).release());
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    if (self) {
        dragging = false;
        leave();
    }
}

// Directories alone take files, and none takes itself or what it holds already.
bool ExplorerDrag::accepts(QDropEvent const * event, zenu::tag_HROW * row) const
{
    std::string const directory = row && pathOf ? pathOf(row) : std::string();
    Paths const paths = pathsIn(event->mimeData());
    auto const fits = [&](std::string const & path) { return isMovable(path, directory); };
    return !directory.empty() && isDirectory(directory) && std::ranges::any_of(paths, fits) &&
           std::ranges::none_of(
               paths, [&](std::string const & path) { return isWithin(directory, path); });
}

// Taken wherever it comes in: a drag that is refused at once is not told of any more.
void ExplorerDrag::enter(QDropEvent * event, zenu::tag_HROW * row)
{
    moveOver(event, row);
    event->setAccepted(!pathsIn(event->mimeData()).empty());
}

void ExplorerDrag::moveOver(QDropEvent * event, zenu::tag_HROW * row)
{
    bool const accepted = accepts(event, row);
    mark(accepted ? row : nullptr);
    if (accepted) {
        event->setDropAction(Qt::MoveAction);
    }
    event->setAccepted(accepted);
    scrollNear(event->position().toPoint().y());
}

void ExplorerDrag::mark(zenu::tag_HROW * row)
{
    if (row != marked) {
        marked = row;
        grid->DrawDragIndicator(row, true);
    }
}

void ExplorerDrag::leave()
{
    scrollTimer.stop();
    mark(nullptr);
}

void ExplorerDrag::drop(QDropEvent * event, zenu::tag_HROW * row)
{
    leave();
    bool const accepted = accepts(event, row);
    event->setAccepted(accepted);
    if (!accepted) {
        return;
    }
    event->setDropAction(Qt::MoveAction);
    QMetaObject::invokeMethod(
        this,
        [this, paths = pathsIn(event->mimeData()), directory = pathOf(row)] {
            Q_EMIT dropped(paths, directory);
        },
        Qt::QueuedConnection);
}

void ExplorerDrag::scrollNear(int y)
{
    QRect const rows = grid->rowsRect();
    bool const atTop = y < rows.top() + edge;
    if (!atTop && y <= rows.bottom() - edge) {
        scrollTimer.stop();
    } else if (!scrollTimer.isActive()) {
        scrollTimer.start(scrollPause, this);
    }
    scrollCode =
        atTop ? zenu::KScrolledWidget::ScrollLineBack : zenu::KScrolledWidget::ScrollLineForward;
}

// The mark goes first: it stands on the pixels that move.
void ExplorerDrag::timerEvent(QTimerEvent * event)
{
    if (event->timerId() != scrollTimer.timerId()) {
        QObject::timerEvent(event);
    } else if (grid->OnScroll(zenu::KScrolledWidget::ScrollNothing, scrollCode, 0, false)) {
        mark(nullptr);
        grid->OnScroll(zenu::KScrolledWidget::ScrollNothing, scrollCode, 0, true);
    }
}

} // namespace explorer
