#pragma once

#include "zenu/header/KHeader.h"
#include "zenu/header/inner/HeaderLayout.h"

#include <QFont>
#include <QPixmap>
#include <QPoint>
#include <QRegion>
#include <QSize>

#include <optional>

namespace zenu {

/// State of a KHeader.
class ZENU_TEST_EXPORT KHeader::PrivateData
{
public:
    explicit PrivateData(KHeader * owner);

    /// The rectangles and hits of the header as it is; a view, to be used at once.
    HeaderGeometry geometry(KHeader const & header) const;

    QFont font;
    /// Item of the current or the last press; kept after a release until the focus goes.
    int pressedItem = -1;
    int secondItem = -1;
    /// The pressed item is drawn pressed.
    bool pressed = false;
    bool tracking = false;
    bool resizeCursorOn = false;
    /// Width of the dragged item when the drag began.
    int savedWH = 0;
    /// Mouse position less the dragged item's right edge when the drag began.
    int trackOffset = 0;
    int dragLineX = 0;
    /// The inverted lines that repaints have to keep.
    QRegion dragLines;
    QSize lastSize{0, 0};
    HeaderTotals totals;
    bool blocked = false;
    /// None as long as the palette decides.
    std::optional<QColor> textColor;

    bool hidden = false;
    bool vert = false;
    bool proportional = false;
    bool stickLastToEdge = false;
    bool dragWhenResized = false;
    bool buttons = false;
    bool usePlusSettings = false;
    bool hotTrack = false;
    bool dragDrop = false;
    bool flatView = false;
    bool toolTip = false;
    bool flat3D = false;

    KPixmapSet * pixmapSet = nullptr;
    int itemOver = -1;
    bool mouseInside = false;
    QPixmap sortPixmap;
    QPixmap sortHotPixmap;
    IHeaderNotification * notification = nullptr;
    KHeaderItemVec items;
};

} // namespace zenu
