#include "examples/gallery/support/Shapes.h"

#include <QGuiApplication>
#include <QPainter>

#include <array>

namespace gallery {

namespace {

constexpr std::array<QRgb, shapeCount> colors = {0xffc83c32, 0xff3c8c50, 0xff3c5ac8, 0xffd79628};

void drawShape(QPainter & painter, int index, QRectF const & rect)
{
    painter.setBrush(QColor::fromRgb(colors.at(std::size_t(index))));
    QPointF const centre = rect.center();
    switch (index) {
    case 0:
        painter.drawEllipse(rect);
        break;
    case 1:
        painter.drawRect(rect);
        break;
    case 2:
        painter.drawPolygon(
            QPolygonF{QPointF(centre.x(), rect.top()), rect.bottomRight(), rect.bottomLeft()});
        break;
    default:
        painter.drawPolygon(
            QPolygonF{QPointF(centre.x(), rect.top()), QPointF(rect.right(), centre.y()),
                      QPointF(centre.x(), rect.bottom()), QPointF(rect.left(), centre.y())});
        break;
    }
}

} // namespace

QPixmap shapeStrip(int side)
{
    qreal const ratio = qGuiApp->devicePixelRatio();
    QPixmap strip(QSize(shapeCount * side, side) * ratio);
    strip.setDevicePixelRatio(ratio);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < shapeCount; ++i) {
        drawShape(painter, i, QRectF(i * side + 1, 1, side - 2, side - 2));
    }
    return strip;
}

QPixmap shape(int index, int side)
{
    qreal const ratio = qGuiApp->devicePixelRatio();
    return shapeStrip(side).copy(
        QRectF(index * side * ratio, 0, side * ratio, side * ratio).toRect());
}

QIcon shapeIcon(int index)
{
    QIcon icon(shape(index, 16));
    icon.addPixmap(shape(index, 32));
    return icon;
}

} // namespace gallery
