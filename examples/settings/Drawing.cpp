#include "Drawing.h"

#include <zenu/overlay/NarrowText.h>

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <random>

namespace {

constexpr unsigned mostShapes = 200;
constexpr int margin = 12;

QBrush defaultFill()
{
    QLinearGradient gradient(0, 0, 1, 1);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0, QColor(255, 214, 102, 200));
    gradient.setColorAt(1, QColor(230, 92, 70, 200));
    return gradient;
}

} // namespace

void declareSettings(zenu::KConfig & config)
{
    QFont font;
    font.setItalic(true);
    font.setPointSize(14);
    config.initColor(PaperColor, "paper/colour", QColor(250, 247, 238));
    config.initBool(ShowGrid, "paper/grid", true);
    config.initInt(GridStep, "paper/grid step", 20);
    config.initUInt(Shapes, "shapes/count", 12);
    config.initInt64(Seed, "shapes/seed", 20);
    config.initPen(OutlinePen, "shapes/outline", QPen(QBrush(QColor(60, 60, 90)), 1.5));
    config.initFont(CaptionFont, "caption/font", font);
    config.initBrush(FillBrush, "shapes/fill", defaultFill());
    config.initString(Caption, "caption/text", "A drawing");
    config.initInt(Angle, "", 0);
}

Drawing::Drawing(zenu::KConfig const & config, QWidget * parent)
    : QWidget(parent)
    , m_config(config)
{
    setMinimumSize(200, 200);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void Drawing::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Qt::white);
    painter.fillRect(rect(), m_config.getColor(PaperColor));
    if (m_config.getBool(ShowGrid)) {
        paintGrid(painter);
    }
    paintShapes(painter);
    paintCaption(painter);
}

void Drawing::paintGrid(QPainter & painter) const
{
    int const step = std::max(2, m_config.getInt(GridStep));
    painter.setPen(QPen(QColor(0, 0, 0, 28), 0));
    for (int x = step; x < width(); x += step) {
        painter.drawLine(QPointF(x + 0.5, 0), QPointF(x + 0.5, height()));
    }
    for (int y = step; y < height(); y += step) {
        painter.drawLine(QPointF(0, y + 0.5), QPointF(width(), y + 0.5));
    }
}

void Drawing::paintShapes(QPainter & painter) const
{
    // The generator's own numbers, since a distribution may give others with another compiler.
    // Places are shares of the space, so that shapes keep their order when the window is resized.
    std::mt19937_64 random(static_cast<std::uint64_t>(m_config.getInt64(Seed)));
    auto const upTo = [&](int end) {
        return static_cast<int>(double(random() >> 32) / 4294967296.0 * std::max(1, end));
    };
    painter.setPen(m_config.getPen(OutlinePen));
    painter.setBrush(m_config.getBrush(FillBrush));
    unsigned const count = std::min(mostShapes, m_config.getUInt(Shapes));
    for (unsigned i = 0; i < count; ++i) {
        QSize const size(30 + upTo(60), 30 + upTo(60));
        QPoint const pos(margin + upTo(width() - size.width() - 2 * margin),
                         margin + upTo(height() - size.height() - 2 * margin - 40));
        painter.save();
        painter.translate(QRect(pos, size).center());
        painter.rotate(m_config.getInt(Angle));
        QRect const shape(QPoint(-size.width() / 2, -size.height() / 2), size);
        if (i % 2 == 0) {
            painter.drawEllipse(shape);
        } else {
            painter.drawRoundedRect(shape, 8, 8);
        }
        painter.restore();
    }
}

void Drawing::paintCaption(QPainter & painter) const
{
    QRect const area = rect().adjusted(margin, margin, -margin, -margin);
    painter.setFont(m_config.getFont(CaptionFont));
    QColor const paper = m_config.getColor(PaperColor);
    painter.setPen(paper.isValid() && paper.alpha() > 128 && paper.lightness() < 128 ? Qt::white
                                                                                     : Qt::black);
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap,
                     zenu::chars2qstring(m_config.getString(Caption)));
}
