#pragma once

#include "tests/grid_random/ReferenceGrid.h"

#include <climits>

namespace gridrandom {

inline void ReferenceGrid::updateVerticalBar()
{
    int const page = around.client.bottom() - around.client.top();
    long long const maximum = totalHeight + around.headerHeight - page;
    vBar.maximum = static_cast<int>(std::clamp<long long>(maximum, 0, INT_MAX));
    vBar.value = static_cast<int>(std::clamp<long long>(topY, 0, vBar.maximum));
}

inline int ReferenceGrid::hPageStep() const
{
    return std::max(around.client.right() - around.client.left(), 0);
}

inline void ReferenceGrid::updateHorizontalBar()
{
    int const page = around.client.right() - around.client.left();
    hBar.maximum = std::max(contentsWidth - page - 1, 0);
    hBar.value = std::clamp(hScrollPos, 0, hBar.maximum);
}

inline int ReferenceGrid::lastWhole()
{
    int const last = lastShown();
    int const count = static_cast<int>(order.size());
    bool const inside = last > 0 && last < count && topIndexStored < count;
    bool const cut =
        inside && bottomOf(last) > around.client.bottom() + topPosition() - around.headerHeight;
    return cut ? last - 1 : last;
}

inline int ReferenceGrid::targetTop(int code, unsigned pos, int top)
{
    int const final = static_cast<int>(order.size()) - 1;
    switch (code) {
    case 0:
        return std::max(top - 1, 0);
    case 1:
        return firstIndexForBottom(std::max(top - 1, 0));
    case 2: {
        int const next = std::min(lastWhole() + 1, final);
        return next + visibleCountFrom(next) - 1 >= final ? firstIndexForBottom(final) : next;
    }
    case 3:
        return firstIndexForBottom(std::min(lastWhole() + 1, final));
    case 4:
        return firstIndexForBottom(final);
    case 5:
    case 6:
        return static_cast<long long>(pos) < vBar.maximum - 1 ? rowUnder(pos)
                                                              : firstIndexForBottom(final);
    case 7:
        return 0;
    default:
        return top;
    }
}

inline int ReferenceGrid::targetLeft(int code, unsigned pos) const
{
    switch (code) {
    case 0:
        return hScrollPos - hScrollDelta;
    case 1:
        return hScrollPos - hPageStep();
    case 2:
        return hScrollPos + hPageStep();
    case 3:
        return hScrollPos + hScrollDelta;
    case 4:
        return hBar.maximum - hPageStep();
    case 5:
    case 6:
        return static_cast<int>(pos);
    case 7:
        return 0;
    default:
        return hScrollPos;
    }
}

inline bool ReferenceGrid::scroll(int hCode, int vCode, unsigned pos, bool doScroll)
{
    int const top = topIndex();
    int newLeft = targetLeft(hCode, pos);
    int newTop = order.empty() ? top : targetTop(vCode, pos, top);
    if (!doScroll) {
        bool const vertical = !order.empty() && newTop != top;
        bool const horizontal = newLeft + around.client.right() <= contentsWidth;
        if (hCode == -1) {
            return vCode != -1 && vertical;
        }
        return vCode == -1 ? horizontal : vertical && newLeft >= 0 && horizontal;
    }
    newTop = std::clamp(newTop, 0, std::max(static_cast<int>(order.size()) - 1, 0));
    newLeft = std::clamp(newLeft, 0, std::max(hBar.maximum - 1, 0));
    if (newTop != top || newLeft != hScrollPos) {
        scrollTo(newLeft, newTop);
    }
    return true;
}

inline bool ReferenceGrid::scrollTo(int newLeft, int newTop)
{
    settle();
    bool const inside = newTop >= 0 && newTop < static_cast<int>(order.size());
    if (!tellScrolling(inside ? order[static_cast<std::size_t>(newTop)]->handle : nullptr)) {
        return false;
    }
    if (!order.empty() && newTop != topIndex()) {
        scrollRows(newTop);
    }
    if (newLeft != hScrollPos) {
        hScrollPos = newLeft;
        placeHeader();
        updateHorizontalBar();
    }
    tell(Event::Scrolled);
    return true;
}

// Rows that leave the display forget the texts that were fetched for painting.
inline void ReferenceGrid::scrollRows(int newTop)
{
    int const oldTop = topIndex();
    int const oldPast = lastShown() + 1;
    place(std::min(newTop, firstIndexForBottom(static_cast<int>(order.size()) - 1)));
    for (int i = oldTop; i < std::min(oldPast, static_cast<int>(order.size())); ++i) {
        if (i < topIndexStored || i >= topIndexStored + shownCount) {
            order[static_cast<std::size_t>(i)]->mayKeepTexts = false;
        }
    }
    updateVerticalBar();
}

inline void ReferenceGrid::ensureRowVisible(ReferenceRow const * row)
{
    int const index = indexOf(row);
    if (index == -1) {
        return;
    }
    if (index >= lastShown()) {
        scrollTo(hScrollPos, firstIndexForBottom(index));
    } else if (index < topIndex()) {
        scrollTo(hScrollPos, index);
    }
}

inline void ReferenceGrid::ensureColumnVisible(ReferenceColumn const * wanted)
{
    if (!wanted || shownIndexOf(wanted->id) == -1) {
        return;
    }
    int const viewLeft = around.client.left() + hScrollPos;
    int const viewRight = around.client.right() + hScrollPos;
    int const right = wanted->left + wanted->width;
    if (right > viewRight && wanted->width < viewRight - viewLeft) {
        scrollTo(right - (viewRight - viewLeft), topIndex());
    } else if (wanted->left < viewLeft) {
        scrollTo(wanted->left, topIndex());
    }
}

inline void ReferenceGrid::ensureVisible(tag_HROW * handle, int columnId)
{
    if (ReferenceRow const * const row = locate(handle)) {
        ensureRowVisible(row);
    }
    ensureColumnVisible(column(columnId));
}

inline void ReferenceGrid::resized(QRect const & client, QSize const & size)
{
    settle(); // the layout of the bars asks for the contents' height
    around.client = client;
    if (size.width() >= contentsWidth) {
        hScrollPos = std::min(hScrollPos, 0);
    } else if (contentsWidth - hScrollPos < size.width()) {
        hScrollPos = contentsWidth - size.width();
    }
    placeHeader();
    updateHorizontalBar();
    if (!order.empty()) {
        int const count = visibleCountFrom(topIndex());
        bool const atEnd = lastShown() >= static_cast<int>(order.size()) - 1 && count >= shownCount;
        if (topIndex() != 0 && (atEnd || visibleCountFrom(0) > count)) {
            int const last = static_cast<int>(order.size()) - 1;
            place(firstIndexForBottom(last));
        } else {
            shownCount = count;
        }
    }
    updateVerticalBar();
}

// As a user does with the thumb: the bar's value has changed when the grid hears of it.
inline void ReferenceGrid::dragBar(bool vertical, int value)
{
    ScrollBar & bar = vertical ? vBar : hBar;
    int const before = bar.value;
    bar.value = std::clamp(value, 0, bar.maximum);
    if (bar.value != before) {
        auto const pos = static_cast<unsigned>(bar.value);
        scroll(vertical ? -1 : 6, vertical ? 6 : -1, pos, true);
    }
}

} // namespace gridrandom
