#include "zenu/header/IHeaderNotification.h"
#include "zenu/header/inner/KHeaderPrivate.h"
#include "zenu/overlay/surface/WidgetSurface.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>

// What a header does under the mouse and the focus. Each call of the notification or of a virtual
// operation may have deleted the header or its items: both are looked up again afterwards.

namespace zenu {

namespace {

QPoint position(QMouseEvent const * event)
{
    return event->position().toPoint();
}

bool onAnyDivider(KHeaderHitInfo const & hit)
{
    return hit.onDivider || hit.onDividerNoWidth;
}

} // namespace

// --- Press, release, double click

void KHeader::mousePressEvent(QMouseEvent * event)
{
    if (event->button() == Qt::LeftButton) {
        pressLeft(event);
    } else if (event->button() == Qt::RightButton) {
        pressRight(event);
    }
}

void KHeader::pressLeft(QMouseEvent * event)
{
    KHeaderHitInfo const hit = hitTest(position(event));
    QPointer<KHeader> const self(this);
    if (d->notification) {
        d->notification->onLeftButtonDown();
    }
    if (!self || !checkItemInternal(hit.item)) {
        return;
    }
    if (onAnyDivider(hit)) {
        beginTrack(hit.item, event);
        return;
    }
    if (!d->buttons) {
        return;
    }
    d->pressedItem = hit.item;
    stopTracking();
    d->pressed = true;
    invalidateItem(hit.item);
    update(false);
    if (d->notification) {
        d->notification->onItemClick(hit.item);
    }
}

void KHeader::pressRight(QMouseEvent * event)
{
    QPointer<KHeader> const self(this);
    if (d->notification) {
        d->notification->onRightButtonDown();
    }
    if (!self) {
        return;
    }
    KHeaderHitInfo const hit = hitTest(position(event));
    if (hit.item >= 0 && !onAnyDivider(hit) && d->notification) {
        d->notification->onItemRightClick(hit.item);
    }
}

void KHeader::beginTrack(int index, QMouseEvent * event)
{
    bool const sticks = d->stickLastToEdge && index == d->items.count() - 1;
    if (sticks || (d->items[index].m_fmt & HeaderFormatFixed) != 0) {
        return;
    }
    int const x = position(event).x();
    int wh = d->items[index].m_wh;
    d->savedWH = wh;
    d->dragLineX = x;
    if (d->notification) {
        QPointer<KHeader> const self(this);
        bool const refused = d->notification->onBeginTrack(index, &wh);
        if (!self) {
            return;
        }
        d->savedWH = wh;
        if (refused || !checkItemInternal(index)) {
            return;
        }
    }
    stopTracking();
    d->trackOffset = x - getItemRect(index).right();
    d->tracking = true;
    d->pressed = false;
    d->pressedItem = index;
    if (!d->dragWhenResized) {
        drawDragLine(x);
    }
    if (d->proportional) {
        prepareTrack(index + 1);
    }
    trackDivider(event);
}

void KHeader::mouseReleaseEvent(QMouseEvent * event)
{
    stopTracking();
    d->pressed = false;
    invalidateItem(d->pressedItem);
    update(false);
    onSetCursor(event);
}

void KHeader::mouseDoubleClickEvent(QMouseEvent * event)
{
    KHeaderHitInfo const hit = hitTest(position(event));
    QPointer<KHeader> const self(this);
    if (d->notification) {
        d->notification->onDoubleClick();
    }
    if (!self || !checkItemInternal(hit.item) || !d->notification) {
        return;
    }
    if (onAnyDivider(hit)) {
        d->notification->onDividerDoubleClick(hit.item);
    } else if (d->buttons) {
        d->notification->onItemDoubleClick(hit.item);
    }
}

// --- Move

void KHeader::mouseMoveEvent(QMouseEvent * event)
{
    QPointer<KHeader> const self(this);
    onSetCursor(event);
    if (!self) {
        return;
    }
    d->mouseInside = rect().contains(position(event));
    if (d->hotTrack) {
        moveHot(position(event));
    }
    trackDivider(event);
}

void KHeader::moveHot(QPoint const & point)
{
    KHeaderHitInfo const hit = hitTest(point);
    if (hit.item == d->itemOver && !onAnyDivider(hit)) {
        return;
    }
    invalidateItem(d->itemOver);
    d->itemOver = onAnyDivider(hit) ? -1 : hit.item;
    invalidateItem(d->itemOver);
    update(false);
}

void KHeader::leaveEvent(QEvent *)
{
    setResizeCursor(false);
    stopTracking();
    if (d->hotTrack) {
        invalidateItem(d->itemOver);
        d->itemOver = -1;
        update(false);
    }
}

void KHeader::hideEvent(QHideEvent *)
{
    // The leave event of a widget that vanishes under the mouse comes late or not at all.
    setResizeCursor(false);
    stopTracking();
}

void KHeader::onSetCursor(QMouseEvent * event)
{
    if (d->tracking) {
        setResizeCursor(true);
        return;
    }
    KHeaderHitInfo const hit = hitTest(position(event));
    if (!onAnyDivider(hit)) {
        setResizeCursor(false);
        return;
    }
    if ((d->items[hit.item].m_fmt & HeaderFormatFixed) != 0) {
        // Left as it was set last; clients see that on their screens and rely on nothing else.
        return;
    }
    setResizeCursor(!(d->stickLastToEdge && hit.item == d->items.count() - 1));
}

void KHeader::setResizeCursor(bool on)
{
    if (on == d->resizeCursorOn) {
        return;
    }
    d->resizeCursorOn = on;
    if (on) {
        QApplication::setOverrideCursor(Qt::SplitHCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

// --- Divider drag

void KHeader::prepareTrack(int first)
{
    HeaderLayout::prepareTrack(d->items, first);
}

bool KHeader::canTrack(int index, int wh) const
{
    return HeaderLayout::canTrack(d->geometry(*this), index, wh);
}

void KHeader::doTrack(int index, int)
{
    if (!checkItemInternal(index)) {
        return;
    }
    for (int behind = index + 1; behind < d->items.count(); ++behind) {
        KHeaderItem const & item = d->items[behind];
        if ((item.m_fmt & HeaderFormatFixed) == 0 && item.m_wh < item.m_minWH) {
            d->items.setWH(behind, item.m_minWH);
        }
        invalidateItem(behind);
    }
}

void KHeader::trackDivider(QMouseEvent * event)
{
    int const index = d->pressedItem;
    if (!d->tracking || event->type() != QEvent::MouseMove || !checkItemInternal(index)) {
        return;
    }
    int const left = getItemRect(index).left();
    int const edge = position(event).x() - d->trackOffset;
    int newWH = std::max({edge - left, d->items[index].m_minWH, 0});
    if (d->proportional && !canTrack(index, newWH)) {
        return;
    }
    moveDivider(index, edge < left ? left : position(event).x(), newWH);
    if (!d->notification) {
        return;
    }
    QPointer<KHeader> const self(this);
    bool const cancelled = d->notification->onTrack(index, &newWH);
    if (self && cancelled) {
        cancelTrack(index);
    }
}

void KHeader::moveDivider(int index, int x, int wh)
{
    if (!d->dragWhenResized) {
        drawDragLine(d->dragLineX);
        d->dragLineX = x;
        drawDragLine(x);
        return;
    }
    d->dragLineX = x;
    int const left = getItemRect(index).left();
    setWH(index, wh);
    doTrack(index, wh);
    if (d->proportional) {
        update(false);
    } else {
        // To the end: what is behind the item has moved, and so has the space after the last one.
        update(QRect(QPoint(left, 0), rect().bottomRight()), false);
    }
}

void KHeader::cancelTrack(int index)
{
    d->pressed = false;
    setWH(index, d->savedWH);
    update(false);
    d->pressedItem = -1;
    stopTracking();
}

void KHeader::stopTracking()
{
    d->tracking = false;
    if (!d->dragLines.isEmpty()) {
        QWidget::update(d->dragLines);
        d->dragLines = QRegion();
    }
}

void KHeader::drawDragLine(int x)
{
    QRegion const line(x, 0, 1, rect().bottom() + 1);
    d->dragLines ^= line;
    WidgetSurface surface(this);
    if (surface.target() == WidgetSurface::Target::Screen && surface.begin(line)) {
        surface.flip(line, Qt::white, Qt::black);
        surface.end();
    } else {
        // Nothing to invert yet: the next repaint does it.
        QWidget::update(line);
    }
}

bool KHeader::getOrderArray(int count, int * order) const
{
    if (!order) {
        return count <= 0;
    }
    std::vector<int> const & positions = d->items.order();
    std::copy_n(positions.begin(), std::clamp(count, 0, d->items.count()), order);
    return true;
}

// --- Focus

void KHeader::focusInEvent(QFocusEvent *)
{
    if (d->notification) {
        d->notification->onFocusIn();
    }
}

void KHeader::focusOutEvent(QFocusEvent *)
{
    QPointer<KHeader> const self(this);
    if (d->notification) {
        d->notification->onFocusOut();
    }
    if (!self || d->pressedItem == -1) {
        return;
    }
    d->pressed = false;
    int const index = d->pressedItem;
    invalidateItem(index);
    if (d->tracking) {
        update(false);
    } else if (d->notification && checkItemInternal(index)) {
        int wh = d->savedWH;
        d->notification->onEndTrack(index, &wh);
        if (!self) {
            return;
        }
        d->savedWH = wh;
    }
    d->pressedItem = -1;
    stopTracking();
}

} // namespace zenu
