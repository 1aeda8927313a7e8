#pragma once

#include "zenu/ZenuExport.h"

#include <QPolygon>
#include <QRect>
#include <QVector>

class QFontMetrics;

namespace zenu {

/// Pixels around the parts of a clock widget.
constexpr int clockMargin = 5;

/// The sizes of a clock widget's sample texts, in pixels.
struct ZENU_TEST_EXPORT ClockMeasures
{
    static ClockMeasures of(QFontMetrics const & metrics);

    int editHeight;     // of an edit, and the size of a button
    int offsetWidth;    // of the offset edit
    int periodWidth;    // of the period edit and the frequency edit
    int frequencyWidth; // of the word before the frequency edit
};

/// Where everything is, in pixels. Children and hit rectangle are in widget coordinates; what is
/// painted starts at the contents rectangle's left top.
struct ZENU_TEST_EXPORT ClockLayout
{
    ClockLayout() = default;
    ClockLayout(ClockMeasures const & measures, QSize const & contents);

    int editHeight = 0;
    int offsetWidth = 0;
    int periodWidth = 0;
    int frequencyWidth = 0;
    int waveLeft = 0;
    int waveTop = 0;
    int waveHeight = 0;
    int offsetGap = 0;  // on each side of the offset edit
    int halfPeriod = 0; // on each side of the period edit
    int handleHalf = 0; // half of the handle's size

    QRect offsetEdit() const;
    QRect periodEdit() const;
    QRect frequencyEdit() const;
    QRect highButton() const;
    QRect lowButton() const;

    /// The x at which the period begins, without the frame, and its length.
    int periodStart() const { return waveLeft + 2 * offsetGap + offsetWidth; }
    int periodLength() const { return periodWidth + 2 * halfPeriod; }

    /// The length of the first level for a filling in percent.
    int pulse(long long filling) const;

    /// Where a press takes the handle. Two pixels left of the painted square, and one above.
    QRect hitRect(int pulse) const;
    QRect handleSquare(int pulse) const;

    /// The lines of the wave from the left, in pieces.
    QVector<QPolygon> wave(int pulse, bool highStart) const;

    /// Where the percent label of this size stands: right of the edge if there is room.
    QRect label(int pulse, QSize const & size) const;
    QRect frequencyWord() const;

    /// What a drag of the edge repaints.
    QRect strip(int pulseBefore, int pulseAfter) const;
    QRect waveInterior() const;
};

} // namespace zenu
