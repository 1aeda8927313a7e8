#include "zenu/widgets/inner/ColorButtonGeometry.h"

#include <algorithm>

namespace zenu {

namespace {

// Leaves room for what a style adds, and for the corner of a rectangle that begins there.
constexpr long long farAway = 1 << 28;

int pixels(long long value)
{
    return int(std::clamp(value, -farAway, farAway));
}

// A swatch and what stands behind it are kept apart.
int separators(ColorButtonContent const & content)
{
    return content.showsSwatch && content.showsLabel ? 1 : 0;
}

QPoint besidePosition(QRect const & button, QSize const & popup, QRect const & screen,
                      bool reversed)
{
    int const leftOfButton = button.left() - popup.width();
    if (reversed) {
        return screen.left() < leftOfButton ? QPoint(leftOfButton, button.top())
                                            : button.topRight();
    }
    bool const fits = button.right() + popup.width() <= screen.left() + screen.width();
    return fits ? button.topRight() : QPoint(leftOfButton, button.top());
}

QPoint belowPosition(QRect const & button, QSize const & popup, QRect const & screen, bool reversed)
{
    bool const fits = button.bottom() + popup.height() <= screen.top() + screen.height();
    int const x = reversed ? button.right() - popup.width() : button.left();
    return QPoint(x, fits ? button.bottom() : button.top() - popup.height());
}

} // namespace

QSize neededSize(ColorButtonContent const & content)
{
    long long const margins = 2LL * content.margin;
    long long width = margins + content.minSwatch.width();
    width += content.label.width();
    width += static_cast<long long>(content.spacing) * separators(content);
    int const height = std::max(content.label.height(), content.minSwatch.height());
    return QSize(pixels(width), pixels(height + margins));
}

ColorButtonPlaces placesIn(QSize const & button, ColorButtonContent const & content)
{
    int const separator = separators(content);
    long long const spacing = content.spacing;
    long long const margin = content.margin;
    long long const beside = button.width() - static_cast<long long>(content.label.width());
    long long x = margin;
    long long w = beside - 2 * margin - spacing * separator;
    if (w > content.maxSwatch.width()) {
        w = content.maxSwatch.width();
        // The margin, not the spacing, goes into the centring: the swatch has always stood there.
        x = (beside - margin * separator - w) / 2;
    }
    long long h = button.height() - 2 * margin;
    if (h < content.minSwatch.height())
        h = content.minSwatch.height();
    else if (h > content.maxSwatch.height())
        h = content.maxSwatch.height();

    ColorButtonPlaces places;
    places.swatch = QRect(pixels(x), pixels((button.height() - h) >> 1), pixels(w), pixels(h));
    long long const labelX = x + (content.showsSwatch ? spacing + w : 0);
    places.label = QRect(QPoint(pixels(labelX), (button.height() - content.label.height()) >> 1),
                         content.label);
    return places;
}

QPoint popupPosition(QRect const & button, QSize const & popup, QRect const & screen,
                     PopupSide side)
{
    return side.vertical ? besidePosition(button, popup, screen, side.reversed)
                         : belowPosition(button, popup, screen, side.reversed);
}

} // namespace zenu
