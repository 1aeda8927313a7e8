#include "Sprites.h"

#include <QPainter>

#include <cmath>

namespace {

// Keeps a coordinate in 0 to `end`, and makes the speed point away from an edge that was reached.
void bounce(double & place, double & speed, double end)
{
    place += speed;
    if (place < 0 || place > end) {
        place = std::clamp(place, 0.0, std::max(end, 0.0));
        speed = place <= 0 ? std::abs(speed) : -std::abs(speed);
    }
}

} // namespace

Marker::Marker(zenu::KSpriteLayer * layer, QColor const & color, QPointF place, QPointF speed)
    : KSprite(layer)
    , m_color(color)
    , m_place(place)
    , m_speed(speed)
{
    changeContents(QSize(side, side));
    moveTo(m_place.toPoint());
    show();
}

void Marker::drift(QSize const & area)
{
    bounce(m_place.rx(), m_speed.rx(), area.width() - side);
    bounce(m_place.ry(), m_speed.ry(), area.height() - side);
    if (QPoint const place = m_place.toPoint(); place != pos()) {
        moveTo(place);
    }
}

void Marker::drawInBuffer(QPixmap * buffer, QPixmap const *)
{
    buffer->fill(Qt::transparent);
    QPainter painter(buffer);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double half = side / 2.0;
    QPolygonF const diamond{{half, 1}, {side - 1, half}, {half, side - 1}, {1, half}};
    QColor inside = m_color;
    inside.setAlpha(110);
    painter.setPen(m_color);
    painter.setBrush(inside);
    painter.drawPolygon(diamond);
}
