#include "zenu/time/clock/ClockPicture.h"

#include <QPainter>
#include <QPainterPath>

namespace zenu {

namespace {

// Of an arrow from the middle of the pixel at its point, in pixels: a little more than to the
// middle of the base's pixels, so that these are inside at every ratio.
constexpr qreal arrowLength = 5.25;
constexpr qreal arrowHalfWidth = 2.3;
constexpr int waveWidth = 2; // pixels
constexpr int measuringBox = 10'000;
QColor const waveColor(48, 48, 48);
QColor const borderColor(50, 100, 50);
QColor const handleColor(150, 60, 60);

// Points to the pixel (x, y), with its base at the side where `inwards` is, 1 or -1.
QPainterPath arrow(int x, int y, int inwards)
{
    QPointF const point(x + 0.5, y + 0.5);
    QPainterPath path(point);
    path.lineTo(point + QPointF(inwards * arrowLength, -arrowHalfWidth));
    path.lineTo(point + QPointF(inwards * arrowLength, arrowHalfWidth));
    path.closeSubpath();
    return path;
}

} // namespace

ClockPicture::ClockPicture(QPainter & painter, ClockLayout const & layout, QPoint const & frame)
    : m_painter(painter)
    , m_layout(layout)
    , m_frame(frame)
{
}

// Time runs to the right in every language, and the texts read with it.
void ClockPicture::draw(long long filling, bool highStart)
{
    m_painter.setLayoutDirection(Qt::LeftToRight);
    m_pulse = m_layout.pulse(filling);
    drawDimensions();
    drawFrequencyWord();
    drawWave(highStart);
    drawLabel(filling);
    drawBorders();
    drawHandle();
}

// The lines are at the height of the edits, which do not move with the frame.
void ClockPicture::drawDimensions()
{
    int const start = m_layout.periodStart();
    int const left = m_layout.waveLeft;
    m_painter.setPen(Qt::black);
    m_painter.translate(0, -m_frame.y());
    drawDimension(left, left + m_layout.offsetGap, left + m_layout.offsetGap + m_layout.offsetWidth,
                  start);
    drawDimension(start, start + m_layout.halfPeriod,
                  start + m_layout.halfPeriod + m_layout.periodWidth,
                  start + m_layout.periodLength());
    m_painter.translate(0, m_frame.y());
}

// Filled, since a pen's line lies between the arrows' halves at a ratio of 1 only.
void ClockPicture::drawDimension(int left, int gapLeft, int gapRight, int right)
{
    int const y = m_layout.editHeight / 2 + clockMargin;
    m_painter.fillRect(QRect(QPoint(left, y), QPoint(gapLeft, y)), Qt::black);
    m_painter.fillRect(QRect(QPoint(gapRight, y), QPoint(right, y)), Qt::black);
    m_painter.fillPath(arrow(left, y, 1), Qt::black);
    m_painter.fillPath(arrow(right, y, -1), Qt::black);
}

void ClockPicture::drawFrequencyWord()
{
    m_painter.drawText(m_layout.frequencyWord().translated(-m_frame),
                       Qt::AlignCenter | Qt::TextSingleLine, QStringLiteral("Frequency"));
}

void ClockPicture::drawWave(bool highStart)
{
    m_painter.setPen(QPen(waveColor, waveWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    for (QPolygon const & lines : m_layout.wave(m_pulse, highStart)) {
        m_painter.drawPolyline(lines);
    }
}

void ClockPicture::drawLabel(long long filling)
{
    QString const text = QString::number(static_cast<unsigned>(filling)) + QStringLiteral(" %");
    QSize const size = m_painter
                           .boundingRect(QRect(0, 0, measuringBox, measuringBox),
                                         Qt::AlignLeft | Qt::AlignTop, text)
                           .size();
    m_painter.drawText(m_layout.label(m_pulse, size),
                       Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, text);
}

void ClockPicture::drawBorders()
{
    int const top = clockMargin;
    int const bottom = top + m_layout.waveHeight + clockMargin + m_layout.editHeight;
    int const start = m_layout.periodStart();
    m_painter.setPen(QPen(borderColor, 1, Qt::DotLine, Qt::FlatCap));
    m_painter.drawLine(m_layout.waveLeft, top, m_layout.waveLeft, bottom);
    m_painter.drawLine(start, bottom, start, top);
    int const end = start + m_layout.periodLength();
    m_painter.drawLine(end, top, end, bottom);
}

void ClockPicture::drawHandle()
{
    m_painter.fillRect(m_layout.handleSquare(m_pulse), handleColor);
}

} // namespace zenu
