#include "zenu/overlay/sprites/Composition.h"

#include "zenu/overlay/sprites/SpriteBuffer.h"
#include "zenu/overlay/sprites/SpriteContents.h"
#include "zenu/overlay/surface/PixelCopies.h"
#include "zenu/overlay/surface/WidgetSurface.h"

namespace zenu {

namespace {

// The parts of a rectangle that are not in a region which is empty most of the time.
template <typename Act>
void forEachRectOutside(QRect const & r, QRegion const & without, Act act)
{
    if (without.isEmpty()) {
        act(r);
        return;
    }
    for (QRect const & part : QRegion(r) - without)
        act(part);
}

} // namespace

Composition::Composition(WidgetSurface & surface, Damage const & damage, QRegion const & clobber)
    : m_surface(surface)
    , m_damage(damage)
    , m_clobber(clobber)
{
}

QPoint Composition::offsetIn(QRect const & whole, QRect const & part) const
{
    return part.topLeft() == whole.topLeft()
               ? QPoint()
               : m_surface.device(part).topLeft() - m_surface.device(whole).topLeft();
}

template <typename Act>
void Composition::forEachPartUnder(QRect const & r, Scene & scene, Act act)
{
    for (int const i : scene.rects.under(r))
        act(scene.sprites[static_cast<size_t>(i)], scene.rects.at(i), scene.rects.at(i) & r);
}

template <typename Act>
void Composition::forEachPart(Scene & scene, Act act)
{
    if (!m_damage.everything) {
        for (QRect const & r : m_damage.region)
            forEachPartUnder(r, scene, act);
        return;
    }
    for (int i = 0; i < scene.rects.count(); ++i)
        act(scene.sprites[static_cast<size_t>(i)], scene.rects.at(i), scene.rects.at(i));
}

void Composition::flip(SelectionBand const & band, QRegion const & without)
{
    QRegion region = m_damage.everything ? QRegion(band.rect) : m_damage.region & band.rect;
    if (region.isEmpty())
        return;
    if (!without.isEmpty())
        region -= without;
    m_surface.flip(region, band.foreground, band.background);
}

// The band stands outside of the sprites only. It is flipped as a whole all the same: what that
// does to the sprites is put over at once by their backgrounds.
void Composition::takeOff(Scene & scene)
{
    flip(scene.band, m_clobber);
    forEachPart(scene, [&](Scene::Standing & sprite, QRect const & whole, QRect const & part) {
        forEachRectOutside(part, m_clobber, [&](QRect const & r) {
            m_surface.put(sprite.background->pixels, offsetIn(whole, r), r);
        });
    });
}

// The band again goes over everything. Where a picture does not cover all below it, its background
// comes first, for all such sprites before any picture: so nothing of the band and of an older
// picture shines through, and one sprite through another does.
void Composition::draw(Scene & scene)
{
    flip(scene.band, QRegion());
    forEachPart(scene, [&](Scene::Standing & sprite, QRect const & whole, QRect const & part) {
        if (sprite.contents && !sprite.contents->isOpaque())
            m_surface.put(sprite.background->pixels, offsetIn(whole, part), part);
    });
    forEachPart(scene, [&](Scene::Standing & sprite, QRect const & whole, QRect const & part) {
        if (!sprite.contents)
            return;
        if (sprite.contents->isOpaque())
            m_surface.put(sprite.contents->pixels(), offsetIn(whole, part), part);
        else
            m_surface.blend(sprite.contents->pixels(), offsetIn(whole, part), part);
    });
}

void Composition::capture(Scene & scene)
{
    forEachPart(scene, [&](Scene::Standing & sprite, QRect const & whole, QRect const & part) {
        sprite.background->ensureSize(whole.size(), m_surface.ratio(), m_surface.format());
        m_surface.copyTo(sprite.background->pixels, offsetIn(whole, part), part);
    });
}

void readBelow(WidgetSurface const & surface, Scene & scene, QRegion const & clobber,
               QRect const & r, BackgroundBuffer & buffer)
{
    buffer.ensureSize(r.size(), surface.ratio(), surface.format());
    surface.copyTo(buffer.pixels, QPoint(), r);
    QPoint const origin = surface.device(r).topLeft();
    if (scene.band.rect.intersects(r)) {
        PixelBits const bits =
            pixelDifference(scene.band.foreground, scene.band.background, surface.format());
        forEachRectOutside(scene.band.rect & r, clobber, [&](QRect const & part) {
            flipPixels(buffer.pixels, surface.device(part).translated(-origin), bits);
        });
    }
    for (int const i : scene.rects.under(r)) {
        QImage const & saved = scene.sprites[static_cast<size_t>(i)].background->pixels;
        QPoint const from = surface.device(scene.rects.at(i)).topLeft();
        if (saved.format() != buffer.pixels.format())
            continue;
        forEachRectOutside(scene.rects.at(i) & r, clobber, [&](QRect const & part) {
            QRect const to = surface.device(part);
            copyPixels(buffer.pixels, to.topLeft() - origin, saved, to.topLeft() - from, to.size());
        });
    }
}

} // namespace zenu
