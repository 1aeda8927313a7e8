#pragma once

#include "zenu/overlay/sprites/Scene.h"

#include <QRegion>

namespace zenu {

class WidgetSurface;

/// The part of the widget that a pass works on.
struct Damage
{
    bool everything = false; // all sprites are taken off and drawn as wholes
    QRegion region;          // otherwise what is within it
};

/// Takes scenes off an open surface and lays them on it: the band first, then pictures upwards.
/// Each sprite's background is always the widget's own, without any sprite and without the band, so
/// the order of putting backgrounds back plays no part.
class Composition
{
public:
    /// What is in `clobber` was painted by the widget meanwhile: nothing is taken off there.
    Composition(WidgetSurface & surface, Damage const & damage, QRegion const & clobber);

    /// Leaves the widget's own pixels.
    void takeOff(Scene & scene);

    /// Lays the scene on the widget's own pixels, once the backgrounds are known.
    void draw(Scene & scene);

    /// Takes the widget's own pixels, as they lie on the surface now, into the backgrounds of the
    /// scene, within the damage alone.
    void capture(Scene & scene);

private:
    template <typename Act>
    void forEachPart(Scene & scene, Act act);
    template <typename Act>
    void forEachPartUnder(QRect const & r, Scene & scene, Act act);
    void flip(SelectionBand const & band, QRegion const & without);
    QPoint offsetIn(QRect const & whole, QRect const & part) const;

    WidgetSurface & m_surface;
    Damage const & m_damage;
    QRegion const & m_clobber;
};

/// Takes the widget's own pixels under `r` into `buffer` while `scene` stands on the surface, which
/// is only read.
void readBelow(WidgetSurface const & surface, Scene & scene, QRegion const & clobber,
               QRect const & r, BackgroundBuffer & buffer);

} // namespace zenu
