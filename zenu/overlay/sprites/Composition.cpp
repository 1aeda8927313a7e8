#include "zenu/overlay/sprites/Composition.h"

#include "zenu/overlay/sprites/RegionUnion.h"
#include "zenu/overlay/sprites/SpriteBuffer.h"
#include "zenu/overlay/sprites/SpriteContents.h"
#include "zenu/overlay/surface/PixelCopies.h"
#include "zenu/overlay/surface/WidgetSurface.h"

#include <QWidget>

#include <algorithm>

namespace zenu {

namespace {

// What a pass reads and writes for one strip stays in the processor's cache at this size.
constexpr double cachedBytes = 1 << 20;
constexpr int lowestStrip = 32;

double bytesOf(Scene const & scene, qreal ratio)
{
    double pixels = 0;
    for (int i = 0; i < scene.rects.count(); ++i) {
        QRect const & r = scene.rects.at(i);
        pixels += static_cast<double>(r.width()) * r.height();
    }
    return pixels * ratio * ratio * sizeof(QRgb);
}

// All three steps are done in one strip before the next, so that the surface and the backgrounds
// come from memory once. The steps of different strips have no pixel in common.
Strips stripsFor(WidgetSurface const & surface, std::initializer_list<Scene const *> scenes)
{
    double bytes = 0;
    for (Scene const * const scene : scenes)
        bytes += bytesOf(*scene, surface.ratio());
    QRect const rows = surface.host()->rect();
    int const most = std::max(rows.height() / lowestStrip, 1);
    Strips strips;
    strips.count = static_cast<int>(std::clamp(bytes / cachedBytes, 1.0, double(most)));
    strips.height = rows.height() / strips.count + 1;
    return strips;
}

} // namespace

Composition::Composition(WidgetSurface & surface, Damage const & damage)
    : m_surface(surface)
    , m_damage(damage)
{
}

void Composition::change(Scene & from, Scene & read, Scene & to, QRegion const & clobber)
{
    Strips const strips =
        m_damage.everything ? stripsFor(m_surface, {&from, &read, &to}) : Strips();
    ensureBuffers(read);
    collect(from, strips, clobber);
    collect(to, strips);
    read.pieces.collect(m_surface, read, strips);
    for (int strip = 0; strip < strips.count; ++strip) {
        takeOff(from, strips, strip, clobber);
        capture(read, strip);
        draw(to, strips, strip);
    }
}

void Composition::capture(Scene & scene)
{
    ensureBuffers(scene);
    collect(scene, Strips());
    capture(scene, 0);
}

void Composition::draw(Scene & scene)
{
    collect(scene, Strips());
    draw(scene, Strips(), 0);
}

void Composition::ensureBuffers(Scene & scene)
{
    qreal const ratio = m_surface.ratio();
    QImage::Format const format = m_surface.format();
    for (int i = 0; i < scene.rects.count(); ++i) {
        scene.sprites[static_cast<size_t>(i)].background->ensureSize(scene.rects.at(i).size(),
                                                                     ratio, format);
    }
}

void Composition::collect(Scene & scene, Strips const & strips, QRegion const & without)
{
    if (m_damage.everything)
        scene.pieces.collect(m_surface, scene, strips, without);
    else
        scene.pieces.collectWithin(m_surface, scene, m_damage.region, without);
}

void Composition::flip(SelectionBand const & band, Strips const & strips, int strip,
                       QRegion const & without)
{
    if (band.rect.isEmpty())
        return;
    QRegion region = strips.cut(band.rect, strip);
    if (!m_damage.everything)
        region &= m_damage.region;
    m_surface.flip(region - without, band.foreground, band.background);
}

// The band stands outside of the sprites only. It is flipped as a whole all the same: what that
// does to the sprites is put over at once by their backgrounds.
void Composition::takeOff(Scene const & scene, Strips const & strips, int strip,
                          QRegion const & clobber)
{
    flip(scene.band, strips, strip, clobber);
    for (Piece const & piece : scene.pieces.in(strip))
        m_surface.putPixels(piece.background->rows(), piece.at, piece.pixels);
}

void Composition::capture(Scene const & scene, int strip)
{
    for (Piece const & piece : scene.pieces.in(strip))
        m_surface.copyPixelsTo(piece.background->rows(), piece.at, piece.pixels);
}

// The band again goes over everything. Where a picture does not cover all below it, the background
// comes over the band first, for all such sprites before any picture: so nothing of the band shines
// through, and one sprite through another does.
void Composition::draw(Scene const & scene, Strips const & strips, int strip)
{
    flip(scene.band, strips, strip);
    QRect const flipped = m_surface.device(scene.band.rect);
    for (Piece const & piece : scene.pieces.in(strip)) {
        if (piece.contents && !piece.contents->isOpaque() && flipped.intersects(piece.pixels))
            m_surface.putPixels(piece.background->rows(), piece.at, piece.pixels);
    }
    for (Piece const & piece : scene.pieces.in(strip)) {
        if (!piece.contents)
            continue;
        if (piece.contents->isOpaque())
            m_surface.putPixels(piece.contents->rows(), piece.at, piece.pixels);
        else
            m_surface.blendPixels(piece.contents->pixels(), piece.at, piece.pixels);
    }
}

void readBelow(WidgetSurface const & surface, Scene & scene, QRegion const & clobber,
               QRect const & r, BackgroundBuffer & buffer)
{
    buffer.ensureSize(r.size(), surface.ratio(), surface.format());
    surface.copyPixelsTo(buffer.rows(), QPoint(), surface.device(r));
    QPoint const origin = surface.device(r).topLeft();
    if (scene.band.rect.intersects(r)) {
        PixelBits const bits =
            pixelDifference(scene.band.foreground, scene.band.background, surface.format());
        forEachRectOutside(scene.band.rect & r, clobber, [&](QRect const & part) {
            flipPixels(buffer.rows(), surface.device(part).translated(-origin), bits);
        });
    }
    for (int const i : scene.rects.under(r)) {
        PixelRows const & saved = scene.sprites[static_cast<size_t>(i)].background->rows();
        QPoint const from = surface.device(scene.rects.at(i)).topLeft();
        if (saved.format != surface.format())
            continue;
        forEachRectOutside(scene.rects.at(i) & r, clobber, [&](QRect const & part) {
            QRect const to = surface.device(part);
            copyPixels(buffer.rows(), to.topLeft() - origin, saved, to.topLeft() - from, to.size());
        });
    }
}

} // namespace zenu
