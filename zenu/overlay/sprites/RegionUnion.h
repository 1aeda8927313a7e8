#pragma once

#include "zenu/ZenuExport.h"

#include <QRegion>

#include <algorithm>
#include <climits>
#include <vector>

namespace zenu {

/// The union of rectangles, made in pairs: adding one after the other would take the square of
/// their number.
ZENU_TEST_EXPORT QRegion unionOf(std::vector<QRect> const & rects);

/// Calls `act` with the parts of a rectangle that lie outside of a region, which is empty most of
/// the time.
template <typename Act>
void forEachRectOutside(QRect const & r, QRegion const & without, Act act)
{
    if (without.isEmpty()) {
        act(r);
        return;
    }
    for (QRect const & part : QRegion(r) - without)
        act(part);
}

/// The rectangle around many, without a call for each.
class Bounds
{
public:
    void add(QRect const & r)
    {
        if (r.isEmpty())
            return;
        m_left = std::min(m_left, r.left());
        m_top = std::min(m_top, r.top());
        m_right = std::max(m_right, r.right());
        m_bottom = std::max(m_bottom, r.bottom());
    }
    QRect rect() const
    {
        return m_left > m_right ? QRect() : QRect(QPoint(m_left, m_top), QPoint(m_right, m_bottom));
    }

private:
    int m_left = INT_MAX;
    int m_top = INT_MAX;
    int m_right = INT_MIN;
    int m_bottom = INT_MIN;
};

} // namespace zenu
