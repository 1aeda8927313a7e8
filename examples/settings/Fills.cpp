#include "Fills.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QTransform>

#include <array>

namespace {

constexpr int tileSize = 12;

QBrush slope(QColor const & color)
{
    QLinearGradient gradient(0, 0, 1, 1);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0, color);
    gradient.setColorAt(1, color.darker(180));
    return gradient;
}

QBrush glow(QColor const & color)
{
    QRadialGradient gradient(QPointF(0.5, 0.5), 0.6, QPointF(0.35, 0.35), 0.05);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0, color.lighter(170));
    gradient.setColorAt(0.6, color);
    gradient.setColorAt(1, color.darker(160));
    return gradient;
}

// Two squares in the colour and two in a lighter one, turned.
QBrush tiles(QColor const & color)
{
    QImage image(tileSize, tileSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    int const half = tileSize / 2;
    painter.fillRect(0, half, half, half, color.lighter(130));
    painter.fillRect(half, 0, half, half, color.lighter(130));
    painter.end();
    QBrush brush(image);
    brush.setColor(color);
    brush.setTransform(QTransform().rotate(30));
    return brush;
}

} // namespace

QString fillName(Fill fill)
{
    static constexpr std::array names = {"none", "solid",           "dots", "lines", "slope",
                                         "glow", "tiles, a texture"};
    return QString::fromLatin1(names.at(std::size_t(fill)));
}

QBrush makeFill(Fill fill, QColor const & color)
{
    switch (fill) {
    case Fill::None:
        return QBrush(color, Qt::NoBrush);
    case Fill::Solid:
        return QBrush(color, Qt::SolidPattern);
    case Fill::Dots:
        return QBrush(color, Qt::Dense4Pattern);
    case Fill::Lines:
        return QBrush(color, Qt::BDiagPattern);
    case Fill::Slope:
        return slope(color);
    case Fill::Glow:
        return glow(color);
    case Fill::Tiles:
        return tiles(color);
    case Fill::Count:
        break;
    }
    return {};
}

Fill fillOf(QBrush const & brush)
{
    switch (brush.style()) {
    case Qt::NoBrush:
        return Fill::None;
    case Qt::SolidPattern:
        return Fill::Solid;
    case Qt::LinearGradientPattern:
        return Fill::Slope;
    case Qt::RadialGradientPattern:
    case Qt::ConicalGradientPattern:
        return Fill::Glow;
    case Qt::TexturePattern:
        return Fill::Tiles;
    case Qt::BDiagPattern:
        return Fill::Lines;
    default:
        return Fill::Dots;
    }
}

QColor fillColor(QBrush const & brush)
{
    if (QGradient const * const gradient = brush.gradient()) {
        QGradientStops const stops = gradient->stops();
        return brush.style() == Qt::LinearGradientPattern ? stops.first().second
                                                          : stops.at(stops.size() / 2).second;
    }
    return brush.color();
}
