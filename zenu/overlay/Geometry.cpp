#include "zenu/overlay/Geometry.h"

#include <QApplication>
#include <QBitmap>
#include <QCursor>
#include <QFontMetrics>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace zenu {

namespace {

constexpr double intMin = std::numeric_limits<int>::min();
constexpr double intMax = std::numeric_limits<int>::max();

struct ScaleFactors
{
    double x;
    double y;
};

int sumOfWidths(QFontMetrics const & metrics, char first, char last)
{
    int sum = 0;
    for (char letter = first; letter <= last; ++letter) {
        sum += metrics.horizontalAdvance(QLatin1Char(letter));
    }
    return sum;
}

// Application font against the reference font of 5.7 pixels average width and 13.5 pixels height.
ScaleFactors measureFont()
{
    QFontMetrics const metrics(QApplication::font());
    double const capitals = sumOfWidths(metrics, 'A', 'Z');
    double const smallLetters = sumOfWidths(metrics, 'a', 'z');
    double const averageWidth = (capitals * 0.1 + smallLetters * 0.9) * 0.04;
    return {averageWidth * 0.17543859649122806, metrics.height() * 0.07407407407407407};
}

ScaleFactors const & scaleFactors()
{
    static ScaleFactors const factors = measureFont();
    return factors;
}

int truncated(double value)
{
    return static_cast<int>(std::clamp(value, intMin, intMax));
}

int saturated(long long value)
{
    return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(),
                                                  std::numeric_limits<int>::max()));
}

} // namespace

QRect scaledRect(int x, int y, int w, int h)
{
    ScaleFactors const & factor = scaleFactors();
    return QRect(truncated(x * factor.x), truncated(y * factor.y), truncated(w * factor.x),
                 truncated(h * factor.y));
}

void scaledResize(QWidget * widget, int width, int height)
{
    if (widget != nullptr) {
        ScaleFactors const & factor = scaleFactors();
        widget->resize(truncated(width * factor.x), truncated(height * factor.y));
    }
}

void scaledResize(QWidget * widget, QSize size)
{
    scaledResize(widget, size.width(), size.height());
}

QPoint remapPoint(QWidget * from, QWidget * to, QPoint const & point)
{
    QPoint const global = from != nullptr ? from->mapToGlobal(point) : point;
    return to != nullptr ? to->mapFromGlobal(global) : global;
}

QRect remapRect(QWidget * from, QWidget * to, QRect const & rect)
{
    return QRect(remapPoint(from, to, rect.topLeft()), remapPoint(from, to, rect.bottomRight()));
}

bool ptInRect(QRect const & rect, QPoint const & point)
{
    QRect grown = rect;
    grown.setRight(saturated(1LL + rect.right()));
    grown.setBottom(saturated(1LL + rect.bottom()));
    return grown.contains(point);
}

void inflateRect(QRect * rect, int dx, int dy)
{
    if (rect != nullptr) {
        long long const byX = dx;
        long long const byY = dy;
        rect->setCoords(saturated(rect->left() - byX), saturated(rect->top() - byY),
                        saturated(rect->right() + byX), saturated(rect->bottom() + byY));
    }
}

bool cursorsDifferent(QCursor const & a, QCursor const & b)
{
    if (a.shape() != b.shape()) {
        return true;
    }
    if (a.shape() != Qt::BitmapCursor) {
        return false;
    }
    QBitmap const bitmapOfA = a.bitmap();
    QBitmap const bitmapOfB = b.bitmap();
    return bitmapOfA.isNull() || bitmapOfB.isNull() || bitmapOfA.cacheKey() != bitmapOfB.cacheKey();
}

void ConvertPT2Pixel(QFont *) {}

} // namespace zenu
