#include "zenu/header/inner/HeaderLayout.h"

#include <QString>

#include <algorithm>
#include <limits>

namespace zenu {

namespace {

constexpr int intMax = std::numeric_limits<int>::max();
constexpr int intMin = std::numeric_limits<int>::min();

int saturated(long long value)
{
    return static_cast<int>(std::clamp<long long>(value, intMin, intMax));
}

bool isFixed(KHeaderItem const & item)
{
    return (item.getFmt() & HeaderFormatFixed) != 0;
}

/// Unlike QRect::contains, a rectangle of negative width holds nothing.
bool holds(QRect const & rect, QPoint const & point)
{
    return point.x() >= rect.left() && point.x() <= rect.right() && point.y() >= rect.top() &&
           point.y() <= rect.bottom();
}

void setDivider(KHeaderHitInfo & hit, KHeaderItemVec const & items, int index)
{
    hit.item = index;
    (items[index].getWH() != 0 ? hit.onDivider : hit.onDividerNoWidth) = true;
}

KHeaderHitInfo hitOutside(HeaderGeometry const & geometry, QPoint const & point)
{
    KHeaderHitInfo hit;
    if (geometry.vert) {
        hit.outside = point.y() < 0 ? 1 : 2;
    } else {
        hit.outside = point.x() < 0 ? 4 : 3;
    }
    return hit;
}

KHeaderHitInfo hitItem(HeaderGeometry const & geometry, int index, QRect const & rect,
                       QPoint const & point)
{
    KHeaderHitInfo hit;
    hit.item = index;
    if (geometry.vert) {
        return hit;
    }
    KHeaderItemVec const & items = geometry.items;
    int const previous = items.itemAt(items[index].getOrder() - 1);
    if (previous >= 0 && point.x() - rect.left() <= HeaderLayout::dividerReach) {
        setDivider(hit, items, previous);
    }
    // Runs after a match of the first test too: in a narrow item its own divider wins.
    if (rect.right() - point.x() <= HeaderLayout::dividerReach) {
        hit.item = index;
        hit.onDivider = true;
    }
    return hit;
}

} // namespace

QRect HeaderLayout::strip(HeaderGeometry const & geometry)
{
    if (!geometry.flat) {
        return geometry.widget;
    }
    return geometry.vert ? geometry.widget.adjusted(1, 0, -1, 0)
                         : geometry.widget.adjusted(0, 1, 0, -1);
}

QRect HeaderLayout::itemRect(HeaderGeometry const & geometry, KHeaderItem const & item)
{
    QRect rect = strip(geometry);
    long long const before = geometry.items.lengthBefore(item.getOrder());
    if (geometry.vert) {
        rect.setTop(saturated(rect.top() + before));
        rect.setBottom(saturated(static_cast<long long>(rect.top()) + item.getWH()));
    } else {
        rect.setLeft(saturated(rect.left() + before));
        rect.setRight(saturated(static_cast<long long>(rect.left()) + item.getWH()));
    }
    return rect;
}

QRect HeaderLayout::spaceAfter(HeaderGeometry const & geometry)
{
    long long left = geometry.widget.left();
    for (int index = 0; index < geometry.items.count(); ++index) {
        QRect const rect = itemRect(geometry, geometry.items[index]);
        left = std::max(left, rect.right() + 1LL);
    }
    QRect space = geometry.widget;
    space.setLeft(saturated(left));
    if (!geometry.flat) {
        return space;
    }
    return geometry.vert ? space.adjusted(1, 0, -1, 0) : space.adjusted(0, 1, 0, -1);
}

KHeaderHitInfo HeaderLayout::hitTest(HeaderGeometry const & geometry, QPoint const & point)
{
    if (!holds(geometry.widget, point)) {
        return hitOutside(geometry, point);
    }
    KHeaderItemVec const & items = geometry.items;
    for (int index = 0; index < items.count(); ++index) {
        QRect const rect = itemRect(geometry, items[index]);
        if (holds(rect, point)) {
            return hitItem(geometry, index, rect, point);
        }
    }
    KHeaderHitInfo hit;
    if (!geometry.vert && items.count() > 0) {
        setDivider(hit, items, items.itemAt(items.count() - 1));
    } else {
        hit.nowhere = true;
    }
    return hit;
}

HeaderTotals HeaderLayout::totals(KHeaderItemVec const & items)
{
    HeaderTotals sums;
    for (int index = 0; index < items.count(); ++index) {
        KHeaderItem const & item = items[index];
        if (isFixed(item)) {
            sums.fixedWidth += item.getWH();
            ++sums.fixedCount;
        } else {
            sums.minWidth += item.getMinWH();
        }
    }
    return sums;
}

void HeaderLayout::computePercents(KHeaderItemVec & items, HeaderGeometry const & geometry,
                                   HeaderTotals const & totals, bool onlyUnknown)
{
    int const count = items.count();
    if (count == 0) {
        return;
    }
    long long const total = itemRect(geometry, items[count - 1]).right() - totals.fixedWidth;
    for (int index = 0; index < count; ++index) {
        KHeaderItem & item = items.edit(index);
        if (isFixed(item) || (onlyUnknown && item.m_percentKnown)) {
            continue;
        }
        item.m_sizePercent = total < 1
                                 ? 1.0 / (count - totals.fixedCount)
                                 : static_cast<double>(item.m_wh) / static_cast<double>(total);
        item.m_percentKnown = true;
    }
}

void HeaderLayout::forgetPercents(KHeaderItemVec & items)
{
    for (int index = 0; index < items.count(); ++index) {
        items.edit(index).m_percentKnown = false;
    }
}

void HeaderLayout::applyPercents(KHeaderItemVec & items, HeaderTotals const & totals, int width)
{
    auto const room = static_cast<double>(width - totals.fixedWidth);
    for (int index = 0; index < items.count(); ++index) {
        KHeaderItem const & item = items[index];
        if (isFixed(item)) {
            continue;
        }
        double const share = room * item.m_sizePercent;
        // A percentage that is no number leaves the item its minimum.
        double const inRange =
            share == share ? std::clamp(share, double(intMin), double(intMax)) : 0;
        items.setWH(index, std::max(static_cast<int>(inRange), item.m_minWH));
    }
}

bool HeaderLayout::fits(HeaderTotals const & totals, int width)
{
    return width - totals.fixedWidth >= totals.minWidth;
}

std::optional<int> HeaderLayout::stickingWidth(HeaderGeometry const & geometry)
{
    if (geometry.items.count() == 0) {
        return std::nullopt;
    }
    KHeaderItem const & last = geometry.items[geometry.items.count() - 1];
    long long const left = itemRect(geometry, last).left();
    int const wh = saturated(std::max(geometry.widget.right() - left, 0LL));
    return wh < last.getMinWH() ? std::nullopt : std::optional<int>(wh);
}

int HeaderLayout::resizedLastWidth(HeaderGeometry const & geometry, int width)
{
    KHeaderItem const & last = geometry.items[geometry.items.count() - 1];
    if (last.getMinWH() < 0) {
        return 0;
    }
    return saturated(static_cast<long long>(width) - itemRect(geometry, last).left());
}

void HeaderLayout::prepareTrack(KHeaderItemVec & items, int first)
{
    if (!items.contains(first)) {
        return;
    }
    long long sum = 0;
    for (int index = first; index < items.count(); ++index) {
        sum += isFixed(items[index]) ? 0 : items[index].m_wh;
    }
    for (int index = first; index < items.count(); ++index) {
        KHeaderItem & item = items.edit(index);
        if (!isFixed(item)) {
            // Items without any width have no shares to speak of.
            item.m_trackPercent =
                sum == 0 ? 0.0 : static_cast<double>(item.m_wh) / static_cast<double>(sum);
        }
    }
}

bool HeaderLayout::canTrack(HeaderGeometry const & geometry, int index, int wh)
{
    KHeaderItemVec const & items = geometry.items;
    if (!items.contains(index)) {
        return false;
    }
    long long const left = itemRect(geometry, items[index]).left();
    long long const room = geometry.widget.right() - static_cast<long long>(wh) - left;
    long long fixed = 0;
    long long minima = 0;
    bool allFixed = true;
    for (int behind = index + 1; behind < items.count(); ++behind) {
        if (isFixed(items[behind])) {
            fixed += items[behind].getWH();
        } else {
            minima += items[behind].getMinWH();
            allFixed = false;
        }
    }
    if (fixed + minima > room) {
        return false;
    }
    return !allFixed || fixed >= room;
}

QString HeaderLayout::displayText(QString const & text, int width,
                                  std::function<int(QString const &)> const & measure)
{
    constexpr qsizetype shortText = 64;
    qsizetype const length = text.size();
    if (length == 0 || (length <= shortText && measure(text) <= width)) {
        return text;
    }
    // Kerning and joined letters may let a longer text measure a little less: what is searched in
    // steps is looked at this much wider, so that the result is that of trying each length.
    int const slack = 2 * std::max(0, measure(QStringLiteral("WWW")));
    QString const dots = QStringLiteral("...");
    auto const tooWide = [&](qsizetype n) {
        return measure(text.left(n) + dots) >= static_cast<long long>(width) + slack;
    };
    qsizetype high = shortText;
    while (high < length && !tooWide(high)) {
        high *= 2;
    }
    if (high >= length && length > shortText && measure(text) <= width) {
        return text;
    }
    high = std::min(high, length);
    for (qsizetype low = 1; low < high;) {
        qsizetype const middle = low + (high - low) / 2;
        if (tooWide(middle)) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    QString candidate = text.left(high) + dots;
    while (high > 1 && measure(candidate) >= width) {
        candidate = text.left(--high) + dots;
    }
    return candidate;
}

HeaderTextPlace HeaderLayout::placeText(QRect const & rect, EHeaderJustify justify, int imageWidth,
                                        int textWidth)
{
    constexpr int gap = 5;
    bool const image = imageWidth >= 0;
    HeaderTextPlace place{rect.left(), rect.left(), Qt::AlignVCenter};
    switch (justify) {
    case HeaderJustifyLeft:
        place.alignment |= Qt::AlignLeft;
        place.textLeft += image ? imageWidth + gap : 0;
        break;
    case HeaderJustifyRight:
        place.alignment |= Qt::AlignRight;
        if (image) {
            place.imageX = rect.right() - gap - textWidth - imageWidth;
            place.textLeft = rect.right() - textWidth;
        }
        break;
    case HeaderJustifyCenter:
        place.alignment |= image ? Qt::AlignLeft : Qt::AlignHCenter;
        if (image) {
            int const width = rect.right() - rect.left();
            place.imageX += (width - gap - textWidth - imageWidth) / 2;
            place.textLeft = place.imageX + imageWidth + gap;
        }
        break;
    }
    return place;
}

bool HeaderLayout::arrowFitsCentered(QRect const & rect, int textWidth, int arrowWidth)
{
    return (rect.right() - rect.left() - textWidth) / 2 >= arrowWidth;
}

std::optional<int> HeaderLayout::arrowX(QRect const & rect, EHeaderJustify justify, int textWidth,
                                        int arrowWidth)
{
    bool const fitsBeside = rect.right() - rect.left() - textWidth - 10 >= arrowWidth;
    switch (justify) {
    case HeaderJustifyLeft:
        return fitsBeside ? std::optional(rect.left() + textWidth + 5) : std::nullopt;
    case HeaderJustifyRight:
        return fitsBeside ? std::optional(rect.right() - textWidth - 15) : std::nullopt;
    case HeaderJustifyCenter:
        if (arrowFitsCentered(rect, textWidth, arrowWidth)) {
            int const right = rect.right() - arrowMargin(arrowWidth);
            return right + 5 - (right - rect.left() - textWidth) / 2;
        }
        break;
    }
    return std::nullopt;
}

} // namespace zenu
