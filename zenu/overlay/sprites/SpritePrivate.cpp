#include "zenu/overlay/sprites/SpritePrivate.h"

#include "zenu/overlay/KSpriteLayer.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace zenu {

namespace {

// How far a global edge lies beyond the end of the desktop.
int overhang(int edge, int desktopEdge)
{
    return edge > desktopEdge ? edge - desktopEdge : 0;
}

// The desktop ends at the right and bottom edge of all screens together, so a sprite may cross from
// screen to screen. The left and top edges do not hold a sprite.
QPoint keptOnDesktop(QWidget const & host, QRect const & r)
{
    QRect const desktop = host.screen()->virtualGeometry();
    QPoint const end = host.mapToGlobal(r.bottomRight());
    return r.topLeft() -
           QPoint(overhang(end.x(), desktop.right()), overhang(end.y(), desktop.bottom()));
}

} // namespace

int saturated(qint64 coordinate)
{
    constexpr qint64 farAway = 1 << 28;
    return static_cast<int>(std::clamp(coordinate, -farAway, farAway));
}

QRect withinReach(QRect const & r)
{
    return QRect(QPoint(saturated(r.left()), saturated(r.top())),
                 QPoint(saturated(r.right()), saturated(r.bottom())));
}

void KSprite::PrivateData::setGeometry(QPoint topLeft, QSize size)
{
    geometry = QRect(QPoint(saturated(topLeft.x()), saturated(topLeft.y())),
                     QSize(saturated(size.width()), saturated(size.height())));
    QWidget const * const host = ensureVisible && layer ? layer->getWidget() : nullptr;
    if (host)
        geometry.moveTopLeft(keptOnDesktop(*host, geometry));
}

bool KSprite::PrivateData::isUncommitted() const
{
    if (removed || wantShown != shown)
        return true;
    return wantShown && (contentsDirty || needsBackground || geometry != shownGeometry ||
                         priority != shownPriority);
}

void KSprite::PrivateData::commit()
{
    if (moved) {
        std::swap(savedBackground, nextBackground);
        needsBackground = false;
        moved = false;
    }
    drawn = false;
    shown = wantShown;
    shownGeometry = geometry;
    shownPriority = priority;
}

} // namespace zenu
