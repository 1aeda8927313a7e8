#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/header/KHeader.h"

#include <QRect>

#include <functional>
#include <optional>
#include <vector>

namespace zenu {

/// Sums over the items; 64 bits, so that no list of widths overflows them.
struct HeaderTotals
{
    long long minWidth = 0;   ///< of the items that are not fixed, their minima
    long long fixedWidth = 0; ///< of the fixed items, their widths
    int fixedCount = 0;

    bool operator==(HeaderTotals const &) const = default;
};

/// All that decides where items lie.
struct HeaderGeometry
{
    KHeaderItemVec const & items;
    QRect widget; ///< the widget's rectangle, at the origin
    bool vert = false;
    bool flat = false;
};

/// Where an item's image and text go.
struct HeaderTextPlace
{
    int imageX = 0;
    int textLeft = 0;
    Qt::Alignment alignment = Qt::AlignVCenter;
};

/// The arithmetic of the header, without a widget. "Right" and "bottom" are the last pixel.
struct ZENU_TEST_EXPORT HeaderLayout
{
    /// Distance from a border within which its divider is hit.
    static constexpr int dividerReach = 4;

    /// The widget's rectangle without the lines that a flat header has along it.
    static QRect strip(HeaderGeometry const & geometry);

    /// O(1). Positions past the range of an int saturate.
    static QRect itemRect(HeaderGeometry const & geometry, KHeaderItem const & item);

    /// What is left of the widget behind the item that reaches farthest to the right. O(items).
    static QRect spaceAfter(HeaderGeometry const & geometry);

    /// O(items).
    static KHeaderHitInfo hitTest(HeaderGeometry const & geometry, QPoint const & point);

    /// O(items).
    static HeaderTotals totals(KHeaderItemVec const & items);

    /// Gives each item that is not fixed its part of the widths of those; with `onlyUnknown` only
    /// where none was computed or set since the items changed. O(items).
    static void computePercents(KHeaderItemVec & items, HeaderGeometry const & geometry,
                                HeaderTotals const & totals, bool onlyUnknown);

    /// Marks all percentages as those of earlier items.
    static void forgetPercents(KHeaderItemVec & items);

    /// Gives each item that is not fixed its percentage of the room that fixed items leave of
    /// `width`, at least its minimum.
    static void applyPercents(KHeaderItemVec & items, HeaderTotals const & totals, int width);

    /// Whether `width` holds the fixed items and the minima of the others.
    static bool fits(HeaderTotals const & totals, int width);

    /// The width with which the last item reaches to the widget's right edge, at least 0; none when
    /// that is below its minimum or there is no item.
    static std::optional<int> stickingWidth(HeaderGeometry const & geometry);

    /// The width that a resize to `width` gives the last item, whatever its minimum. There must be
    /// one.
    static int resizedLastWidth(HeaderGeometry const & geometry, int width);

    /// KHeader::prepareTrack and KHeader::canTrack.
    static void prepareTrack(KHeaderItemVec & items, int first);
    static bool canTrack(HeaderGeometry const & geometry, int index, int wh);

    /// The first characters of `text` and "...", so many that they measure less than `width`, but
    /// at least one; or the whole text, when it measures no more. `measure` gives the width of a
    /// text. Some log(length) measurements, of texts not much wider than `width`.
    static QString displayText(QString const & text, int width,
                               std::function<int(QString const &)> const & measure);

    /// Places a text of `textWidth` in `rect`, with an image of `imageWidth` before it, or none if
    /// that is negative.
    static HeaderTextPlace placeText(QRect const & rect, EHeaderJustify justify, int imageWidth,
                                     int textWidth);

    /// True when a centred text in `rect` leaves room for an arrow; it then gives up `arrowMargin`.
    static bool arrowFitsCentered(QRect const & rect, int textWidth, int arrowWidth);
    /// What a centred text gives up at its right for an arrow.
    static int arrowMargin(int arrowWidth) { return arrowWidth + 5; }

    /// The left edge of the sort arrow beside a text in `rect`, or none where it does not fit.
    static std::optional<int> arrowX(QRect const & rect, EHeaderJustify justify, int textWidth,
                                     int arrowWidth);
};

} // namespace zenu
