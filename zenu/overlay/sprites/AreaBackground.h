#pragma once

#include "zenu/overlay/sprites/SpriteBuffer.h"

#include <QRect>

namespace zenu {

class WidgetSurface;

/// What lies below all sprites of a layer in one piece, the widget's pixels between them included.
/// Where sprites that all move cover most of an area, to put that back as a whole and to read
/// nothing costs half of what two copies for each sprite do. The backgrounds of sprites then only
/// say where theirs is. Good until the widget paints or anybody else draws on its surface.
class AreaBackground
{
public:
    enum class State
    {
        None,
        Entered, // to be read by the pass that runs
        Held
    };

    State state() const { return m_state; }
    QRect const & rect() const { return m_rect; }
    BackgroundBuffer & pixels() { return m_pixels; }

    void enter(QRect const & r);
    /// The pass has read it, or put it back.
    void hold(WidgetSurface const & surface);
    /// Lets the pixels go: every background that lies here was completed.
    void leave();

    /// It is held, and still what lies on the surface.
    bool isGood(WidgetSurface const & surface) const;

    /// Gives a background that lies here its own pixels. Others are left alone.
    void complete(WidgetSurface const & surface, BackgroundBuffer & background) const;

private:
    State m_state = State::None;
    QRect m_rect; // logical pixels of the widget
    BackgroundBuffer m_pixels;
    QSize m_deviceSize;
    quint64 m_writes = 0; // of the widget when it was last right
};

} // namespace zenu
