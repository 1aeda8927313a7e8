#pragma once

#include <QBasicTimer>
#include <QObject>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QDropEvent;
class QMimeData;

namespace zenu {
struct GC_SELECTIONCHANGE;
struct tag_HROW;
} // namespace zenu

namespace explorer {

class ExplorerGrid;

/// Drags the selected files of a grid onto a directory of it, with a mark below that directory. It
/// moves nothing: `dropped` tells what is wanted. Drops from elsewhere are not taken.
class ExplorerDrag : public QObject
{
    Q_OBJECT
public:
    using Paths = std::vector<std::string>;
    using PathOf = std::function<std::string(zenu::tag_HROW *)>;

    /// Belongs to the grid.
    explicit ExplorerDrag(ExplorerGrid * draggedGrid);

    /// Sets the function that tells the path of a row, empty for none.
    void setPathOf(PathOf function) { pathOf = std::move(function); }
    /// Sets which rows can be dragged.
    void setCanDrag(std::function<bool(zenu::tag_HROW *)> function)
    {
        canDrag = std::move(function);
    }

    /// What a drag carries: the files for all programs, and the bytes of their paths for this one.
    static std::unique_ptr<QMimeData> mimeData(Paths const & paths);

    bool isDragging() const { return dragging; }

    // What the grid is told.

    /// A left press. The press on a row of a multiple selection may be the start of a drag of all
    /// of them, so the selection stays until the release.
    void press(zenu::tag_HROW * row, unsigned element);
    /// Whether a gesture may change the selection now.
    bool maySelect(zenu::GC_SELECTIONCHANGE const & change);
    void release();
    /// The mouse was moved far enough.
    void begin();
    /// A drag comes in over a row, null for none, and moves on.
    void enter(QDropEvent * event, zenu::tag_HROW * row);
    void moveOver(QDropEvent * event, zenu::tag_HROW * row);
    void leave();
    void drop(QDropEvent * event, zenu::tag_HROW * row);

Q_SIGNALS:
    /// Files are to be moved into a directory. Told when the drag is over.
    void dropped(std::vector<std::string> const & paths, std::string const & directory);

protected:
    void timerEvent(QTimerEvent * event) override;

private:
    Paths selectedPaths() const;
    bool accepts(QDropEvent const * event, zenu::tag_HROW * row) const;
    void mark(zenu::tag_HROW * row);
    void scrollNear(int y);

    ExplorerGrid * grid;
    PathOf pathOf;
    std::function<bool(zenu::tag_HROW *)> canDrag;
    zenu::tag_HROW * pressedRow = nullptr;
    bool keepsSelection = false;
    bool dragging = false;
    zenu::tag_HROW * marked = nullptr;
    QBasicTimer scrollTimer;
    int scrollCode = 0;
};

} // namespace explorer
