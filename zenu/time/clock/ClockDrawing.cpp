#include "zenu/time/clock/ClockDrawing.h"

#include <QFontMetrics>

#include <algorithm>

namespace zenu {

namespace {

constexpr int measuringBox = 2000;   // pixels
constexpr double longestPulse = 1e7; // pixels: far beyond any screen, and safe to add to
constexpr int handleShift = 2;       // of the painted square against the edge

QRect fromCorners(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

QSize textSize(QFontMetrics const & metrics, char const * text)
{
    return metrics
        .boundingRect(QRect(0, 0, measuringBox, measuringBox), Qt::AlignLeft | Qt::AlignTop,
                      QString::fromLatin1(text))
        .size();
}

} // namespace

ClockMeasures ClockMeasures::of(QFontMetrics const & metrics)
{
    QSize const sixDigits = textSize(metrics, "000000");
    return {sixDigits.height() + 2, sixDigits.width() + 2,
            textSize(metrics, "000000000").width() + 2,
            textSize(metrics, "Frequency:").width() + 2};
}

ClockLayout::ClockLayout(ClockMeasures const & measures, QSize const & contents)
    : editHeight(measures.editHeight)
    , offsetWidth(measures.offsetWidth)
    , periodWidth(measures.periodWidth)
    , frequencyWidth(measures.frequencyWidth)
    , waveLeft(editHeight + 2 * clockMargin)
    , waveTop(editHeight + 2 * clockMargin)
    , waveHeight(contents.height() - 2 * (editHeight + 2 * clockMargin))
{
    int const free = contents.width() - 3 * clockMargin - periodWidth - editHeight - offsetWidth;
    offsetGap = static_cast<int>(free * (1.0 / 6.0));
    int const periodFree = free - 2 * offsetGap;
    halfPeriod = periodFree / 2;
    if (periodFree % 2 != 0) {
        ++offsetWidth;
    }
    handleHalf = static_cast<int>(contents.height() * (1.0 / 30.0));
}

QRect ClockLayout::offsetEdit() const
{
    int const left = waveLeft + offsetGap;
    return fromCorners(left, clockMargin, left + offsetWidth, clockMargin + editHeight);
}

QRect ClockLayout::periodEdit() const
{
    int const left = periodStart() + halfPeriod;
    return fromCorners(left, clockMargin, left + periodWidth, clockMargin + editHeight);
}

QRect ClockLayout::frequencyEdit() const
{
    return periodEdit().translated(0, editHeight + 2 * clockMargin + waveHeight);
}

QRect ClockLayout::highButton() const
{
    return fromCorners(clockMargin, waveTop - editHeight / 2, editHeight + clockMargin,
                       waveTop + editHeight / 2 + 1);
}

QRect ClockLayout::lowButton() const
{
    return highButton().translated(0, waveHeight);
}

int ClockLayout::pulse(long long filling) const
{
    double const length = periodLength() * static_cast<double>(filling) * 0.01;
    return static_cast<int>(std::clamp(length, -longestPulse, longestPulse));
}

QRect ClockLayout::hitRect(int pulse) const
{
    int const x = pulse + periodStart();
    int const y = waveHeight / 2 + waveTop;
    return fromCorners(x - handleHalf, y - handleHalf, x + handleHalf + 1, y + handleHalf);
}

QRect ClockLayout::handleSquare(int pulse) const
{
    int const x = pulse + handleShift + periodStart();
    int const y = waveHeight / 2 + 1 + waveTop;
    return fromCorners(x - handleHalf, y - handleHalf, x + handleHalf, y + handleHalf);
}

// A wave that starts low goes one pixel too far up, which closes the corner of its thick lines.
QVector<QPolygon> ClockLayout::wave(int pulse, bool highStart) const
{
    int const start = periodStart();
    int const edge = start + pulse + 1;
    int const end = edge + 2 * halfPeriod - pulse + periodWidth;
    int const high = waveTop;
    int const low = waveTop + waveHeight;
    if (highStart) {
        return {QPolygon({{start, high}, {edge, high}, {edge, low}, {end, low}})};
    }
    return {QPolygon({{start, low}, {edge, low}, {edge, high - 1}}),
            QPolygon({{edge, high}, {end, high}})};
}

QRect ClockLayout::label(int pulse, QSize const & size) const
{
    int const freeBehind = periodWidth + 2 * (halfPeriod - clockMargin) - pulse;
    int const left = freeBehind <= size.width()
                         ? periodStart() - clockMargin - handleHalf + pulse - size.width()
                         : periodStart() + pulse + clockMargin + handleHalf;
    return QRect(left, waveTop, size.width(), waveHeight);
}

QRect ClockLayout::frequencyWord() const
{
    int const right = halfPeriod + periodStart() - 1;
    int const top = 3 * clockMargin + waveHeight + editHeight;
    return fromCorners(right - frequencyWidth, top, right, top + editHeight - 1);
}

// The square stands right of the edge: it needs its shift there.
QRect ClockLayout::strip(int pulseBefore, int pulseAfter) const
{
    auto const [left, right] = std::minmax({pulseBefore, pulseAfter});
    int const outside = handleHalf + 1;
    return fromCorners(periodStart() + left - outside, waveTop - 1,
                       periodStart() + right + outside + handleShift, waveTop + waveHeight + 3);
}

QRect ClockLayout::waveInterior() const
{
    return fromCorners(periodStart() + 1, waveTop + clockMargin - 1, periodStart() + periodLength(),
                       waveTop + waveHeight - 1);
}

} // namespace zenu
