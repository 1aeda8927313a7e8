#include "zenu/time/clock/ClockPicture.h"

#include <QPainter>

namespace zenu {

namespace {

constexpr int arrowLength = 5;    // pixels
constexpr int arrowHalfWidth = 2; // pixels
constexpr int waveWidth = 2;      // pixels
constexpr int measuringBox = 10'000;
QColor const waveColor(48, 48, 48);
QColor const borderColor(50, 100, 50);
QColor const handleColor(150, 60, 60);

// Points to (x, y), with its base `inwards` pixels away.
QPolygon arrow(int x, int y, int inwards)
{
    return QPolygon({{x, y}, {x + inwards, y - arrowHalfWidth}, {x + inwards, y + arrowHalfWidth}});
}

} // namespace

ClockPicture::ClockPicture(QPainter & painter, ClockLayout const & layout, QPoint const & frame)
    : m_painter(painter)
    , m_layout(layout)
    , m_frame(frame)
{
}

void ClockPicture::draw(long long filling, bool highStart)
{
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
    m_painter.setBrush(Qt::black);
    m_painter.translate(0, -m_frame.y());
    drawDimension(left, left + m_layout.offsetGap, left + m_layout.offsetGap + m_layout.offsetWidth,
                  start);
    drawDimension(start, start + m_layout.halfPeriod,
                  start + m_layout.halfPeriod + m_layout.periodWidth,
                  start + m_layout.periodLength());
    m_painter.translate(0, m_frame.y());
}

void ClockPicture::drawDimension(int left, int gapLeft, int gapRight, int right)
{
    int const y = m_layout.editHeight / 2 + clockMargin;
    m_painter.drawLine(left, y, gapLeft, y);
    m_painter.drawLine(gapRight, y, right, y);
    m_painter.drawPolygon(arrow(left, y, arrowLength));
    m_painter.drawPolygon(arrow(right, y, -arrowLength));
}

void ClockPicture::drawFrequencyWord()
{
    m_painter.drawText(m_layout.frequencyWord().translated(-m_frame),
                       Qt::AlignCenter | Qt::TextSingleLine, QStringLiteral("Frequency"));
}

void ClockPicture::drawWave(bool highStart)
{
    m_painter.setPen(QPen(waveColor, waveWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    m_painter.setBrush(Qt::NoBrush);
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
