#include "examples/gallery/support/Canvas.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace gallery {

Canvas::Canvas(QWidget * parent)
    : QWidget(parent)
    , m_layer(this)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void Canvas::paintEvent(QPaintEvent * event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().base());
    painter.setPen(palette().color(QPalette::Link));
    for (int x = event->rect().left(); x <= event->rect().right(); ++x) {
        double const swing = std::sin(x / 25.0) * std::cos(x / 90.0) * height() * 0.42;
        painter.drawLine(x, height() / 2, x, height() / 2 - int(swing));
    }
    painter.end();
    for (QRect const & painted : event->region()) {
        m_layer.clobberRect(painted);
    }
    m_layer.update();
}

} // namespace gallery
