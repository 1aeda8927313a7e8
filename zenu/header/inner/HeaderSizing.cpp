#include "zenu/header/inner/KHeaderPrivate.h"

#include <QResizeEvent>

#include <algorithm>

// How the widths of a header's items follow its items and its size.

namespace zenu {

void KHeader::calculateFixed()
{
    d->totals = HeaderLayout::totals(d->items);
}

void KHeader::calculatePercent()
{
    HeaderLayout::computePercents(d->items, d->geometry(*this), d->totals, false);
}

void KHeader::postItemsChange()
{
    calculateFixed();
    if (!d->blocked && d->proportional) {
        calculatePercent();
        return;
    }
    if (!d->stickLastToEdge) {
        return;
    }
    if (std::optional<int> const wh = HeaderLayout::stickingWidth(d->geometry(*this))) {
        d->items.setWH(d->items.count() - 1, *wh);
    }
}

void KHeader::proportionateAllItems(int width)
{
    calculateFixed();
    if (!HeaderLayout::fits(d->totals, width)) {
        return;
    }
    // Percentages that were forgotten come from the widths as they are; without them all items that
    // were inserted under blockControl would fall to their minima.
    HeaderLayout::computePercents(d->items, d->geometry(*this), d->totals, true);
    HeaderLayout::applyPercents(d->items, d->totals, width);
    postItemsChange();
    calculatePercent();
}

void KHeader::resizeEvent(QResizeEvent * event)
{
    applySize(event->size());
}

void KHeader::applySize(QSize const & size)
{
    int const width = size.width();
    int const oldWidth = d->lastSize.width();
    if (!d->blocked && d->proportional && width != oldWidth) {
        proportionateAllItems(width);
        update(false);
    }
    if (d->stickLastToEdge && d->items.count() > 0) {
        int const last = d->items.count() - 1;
        d->items.setWH(last, HeaderLayout::resizedLastWidth(d->geometry(*this), width));
        invalidateItem(last);
    }
    if (size.height() != d->lastSize.height()) {
        update(false);
    } else if (!d->proportional && width > oldWidth) {
        update(QRect(QPoint(oldWidth - 3, 0), QPoint(width, size.height())), false);
    }
    // A header that shrinks has nothing new to show: the strip to repaint would be an empty one.
    d->lastSize = size;
}

} // namespace zenu
