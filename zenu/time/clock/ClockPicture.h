#pragma once

#include "zenu/time/clock/ClockDrawing.h"

class QPainter;

namespace zenu {

/// Draws a clock's period into a painter whose origin is the left top of the contents rectangle.
class ClockPicture
{
public:
    /// `frame` is the offset of the contents rectangle in the widget: two parts are placed in the
    /// widget.
    ClockPicture(QPainter & painter, ClockLayout const & layout, QPoint const & frame);

    /// `filling` in percent.
    void draw(long long filling, bool highStart);

private:
    void drawDimensions();
    void drawDimension(int left, int gapLeft, int gapRight, int right);
    void drawFrequencyWord();
    void drawWave(bool highStart);
    void drawLabel(long long filling);
    void drawBorders();
    void drawHandle();

    QPainter & m_painter;
    ClockLayout const & m_layout;
    QPoint m_frame;
    int m_pulse = 0;
};

} // namespace zenu
