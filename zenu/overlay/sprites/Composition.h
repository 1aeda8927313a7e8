#pragma once

#include "zenu/overlay/sprites/PieceList.h"
#include "zenu/overlay/sprites/Scene.h"

#include <QRegion>

namespace zenu {

class BackgroundBuffer;
class WidgetSurface;

/// The part of the widget that a pass works on.
struct Damage
{
    bool everything = false; // all sprites are taken off and drawn as wholes, else
    QRegion region;          // what is within it
};

/// Takes scenes off an open surface and lays them on it: the band first, then pictures upwards.
/// Each sprite's background is always the widget's own, without any sprite and without the band, so
/// the order of putting backgrounds back plays no part.
class Composition
{
public:
    Composition(WidgetSurface & surface, Damage const & damage);

    /// Takes `from` off, takes the widget's own pixels into all backgrounds of `read`, and lays
    /// `to` on them. What is in `clobber` was painted by the widget meanwhile: nothing is taken off
    /// there.
    void change(Scene & from, Scene & read, Scene & to, QRegion const & clobber);

    /// Takes the widget's own pixels, as they lie on the surface now, into the backgrounds of the
    /// scene, within the damage alone.
    void capture(Scene & scene);

    /// Lays the scene on the widget's own pixels.
    void draw(Scene & scene);

private:
    void collect(Scene & scene, Strips const & strips, QRegion const & without = QRegion());
    void takeOff(Scene const & scene, Strips const & strips, int strip, QRegion const & clobber);
    void ensureBuffers(Scene & scene);
    void capture(Scene const & scene, int strip);
    void draw(Scene const & scene, Strips const & strips, int strip);
    void flip(SelectionBand const & band, Strips const & strips, int strip,
              QRegion const & without = QRegion());

    WidgetSurface & m_surface;
    Damage const & m_damage;
};

/// Takes the widget's own pixels under `r` into `buffer` while `scene` stands on the surface, which
/// is only read.
void readBelow(WidgetSurface const & surface, Scene & scene, QRegion const & clobber,
               QRect const & r, BackgroundBuffer & buffer);

} // namespace zenu
