#include "zenu/header/inner/KHeaderPrivate.h"

#include <utility>

// The options of a header, and the operations that are offered without behaviour.

namespace zenu {

bool KHeader::isHidden() const
{
    return d->hidden;
}

void KHeader::setHidden(bool on)
{
    d->hidden = on;
    setVisible(!on);
}

bool KHeader::isVert() const
{
    return d->vert;
}

void KHeader::setVert(bool on)
{
    d->vert = on;
}

bool KHeader::isProportional() const
{
    return d->proportional;
}

void KHeader::setProportional(bool on)
{
    d->proportional = on;
}

bool KHeader::isStickLastToEdge() const
{
    return d->stickLastToEdge;
}

void KHeader::setStickLastToEdge(bool on)
{
    d->stickLastToEdge = on;
}

bool KHeader::isDragWhenResized() const
{
    return d->dragWhenResized;
}

void KHeader::setDragWhenResized(bool on)
{
    d->dragWhenResized = on;
}

bool KHeader::isButtons() const
{
    return d->buttons;
}

void KHeader::setButtons(bool on)
{
    d->buttons = on;
}

bool KHeader::isUsePlusSettings() const
{
    return d->usePlusSettings;
}

void KHeader::setUsePlusSettings(bool on)
{
    d->usePlusSettings = on;
}

bool KHeader::isHotTrack() const
{
    return d->hotTrack;
}

void KHeader::setHotTrack(bool on)
{
    d->hotTrack = on;
}

bool KHeader::isDragDrop() const
{
    return d->dragDrop;
}

void KHeader::setDragDrop(bool on)
{
    d->dragDrop = on;
}

bool KHeader::isFlatView() const
{
    return d->flatView;
}

void KHeader::setFlatView(bool on)
{
    d->flatView = on;
}

bool KHeader::isToolTip() const
{
    return d->toolTip;
}

void KHeader::setToolTip(bool on)
{
    d->toolTip = on;
}

bool KHeader::isFlat3D() const
{
    return d->flat3D;
}

void KHeader::setFlat3D(bool on)
{
    d->flat3D = on;
}

bool KHeader::blockControl(bool block)
{
    return std::exchange(d->blocked, block);
}

int KHeader::setHotDivider(bool, long)
{
    return 0;
}

void KHeader::drawDraggedButton(bool) {}

void KHeader::hideTooltip() {}

void KHeader::trackButton() {}

bool KHeader::canStartDragDrop(QRect *, int * item)
{
    if (item) {
        *item = 0;
    }
    return false;
}

void KHeader::dragEnterEvent(QDragEnterEvent *) {}

void KHeader::dragMoveEvent(QDragMoveEvent *) {}

void KHeader::dragLeaveEvent(QDragLeaveEvent *) {}

void KHeader::dropEvent(QDropEvent *) {}

} // namespace zenu
