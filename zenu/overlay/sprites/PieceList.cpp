#include "zenu/overlay/sprites/PieceList.h"

#include "zenu/overlay/sprites/RegionUnion.h"
#include "zenu/overlay/sprites/Scene.h"
#include "zenu/overlay/sprites/SpriteBuffer.h"
#include "zenu/overlay/sprites/SpriteContents.h"
#include "zenu/overlay/surface/WidgetSurface.h"

#include <algorithm>

namespace zenu {

int Strips::of(int y) const
{
    return y < top ? 0 : std::min((y - top) / height, count - 1);
}

QRect Strips::cut(QRect const & r, int strip) const
{
    QRect part = r;
    if (strip > 0)
        part.setTop(std::max(r.top(), top + strip * height));
    if (strip < count - 1)
        part.setBottom(std::min(r.bottom(), top + (strip + 1) * height - 1));
    return part;
}

/// Cuts the parts of sprites at the strips.
class PieceList::Collector
{
public:
    Collector(PieceList & list, WidgetSurface const & surface, Strips const & strips)
        : m_found(list.m_found)
        , m_surface(surface)
        , m_strips(strips)
    {
        m_found.clear();
    }

    void add(Scene const & scene, int sprite, QRect const & part, QRegion const & without)
    {
        QRect const & whole = scene.rects.at(sprite);
        QRect const pixels = m_surface.device(whole);
        Scene::Standing const & standing = scene.sprites[static_cast<size_t>(sprite)];
        if (standing.contents)
            standing.contents->setFormat(m_surface.format());
        standing.background->setFormat(m_surface.format());
        forEachRectOutside(part, without,
                           [&](QRect const & r) { cut(standing, whole, pixels, r); });
    }

private:
    void cut(Scene::Standing const & standing, QRect const & whole, QRect const & wholePixels,
             QRect const & part)
    {
        int const last = m_strips.of(part.bottom());
        for (int strip = m_strips.of(part.top()); strip <= last; ++strip) {
            QRect const r = m_strips.cut(part, strip);
            QRect const pixels = r == whole ? wholePixels : m_surface.device(r);
            QPoint const at = pixels.topLeft() - wholePixels.topLeft();
            m_found.push_back({{standing.background, standing.contents, pixels, at}, strip});
        }
    }

    std::vector<Placed> & m_found;
    WidgetSurface const & m_surface;
    Strips const & m_strips;
};

void PieceList::collect(WidgetSurface const & surface, Scene const & scene, Strips const & strips,
                        QRegion const & without)
{
    Collector collector(*this, surface, strips);
    for (int i = 0; i < scene.rects.count(); ++i)
        collector.add(scene, i, scene.rects.at(i), without);
    sort(strips.count);
}

void PieceList::collectWithin(WidgetSurface const & surface, Scene & scene, QRegion const & region,
                              QRegion const & without)
{
    Strips const one;
    Collector collector(*this, surface, one);
    for (QRect const & r : region) {
        for (int const i : scene.rects.under(r))
            collector.add(scene, i, scene.rects.at(i) & r, without);
    }
    sort(one.count);
}

// Counts the pieces of each strip, so that sorting takes one pass and keeps the order in a strip.
void PieceList::sort(int strips)
{
    m_ends.assign(static_cast<size_t>(strips), 0);
    for (Placed const & placed : m_found)
        ++m_ends[static_cast<size_t>(placed.strip)];
    size_t sum = 0;
    for (size_t & end : m_ends) {
        size_t const count = end;
        end = sum; // where the strip begins, until it is filled
        sum += count;
    }
    m_pieces.resize(m_found.size());
    for (Placed const & placed : m_found)
        m_pieces[m_ends[static_cast<size_t>(placed.strip)]++] = placed.piece;
}

std::span<Piece const> PieceList::in(int strip) const
{
    size_t const first = strip > 0 ? m_ends[static_cast<size_t>(strip) - 1] : 0;
    return std::span(m_pieces).subspan(first, m_ends[static_cast<size_t>(strip)] - first);
}

} // namespace zenu
