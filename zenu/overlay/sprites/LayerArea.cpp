// When all sprites have one background in common.

#include "zenu/overlay/sprites/LayerPrivate.h"

#include <QWidget>

namespace zenu {

namespace {

// Entering takes a pass of its own price, so what happens once is not worth it.
constexpr int commitsBefore = 3;

// How far sprites may go beyond where they stood before another area is entered.
constexpr int margin = 64;

double areaOf(QRect const & r)
{
    return static_cast<double>(r.width()) * r.height();
}

} // namespace

// Nothing beyond the widget is ever seen.
QRect KSpriteLayer::PrivateData::areaFor(QRect const & bounds) const
{
    QRect const host = surface.host() ? surface.host()->rect() : QRect();
    return bounds.adjusted(-margin, -margin, margin, margin) & host;
}

// A band would have to be flipped on it, what the widget has painted be read, and a sprite that
// draws itself see a background of its own.
bool KSpriteLayer::PrivateData::isDense(Load const & load, QRegion const & clobbered) const
{
    return isMuch(load) && wantShown && !load.draws && bandAfter().isEmpty() &&
           clobbered.isEmpty() && areaOf(areaFor(load.bounds.rect())) <= load.pixels;
}

void KSpriteLayer::PrivateData::chooseArea(Load const & load, QRegion const & clobbered)
{
    bool const dense = isDense(load, clobbered);
    m_denseCommits = dense ? m_denseCommits + 1 : 0;
    QRect const area = areaFor(load.bounds.rect());
    QRect const used = load.bounds.rect() & area;
    if (!dense || !m_area.isGood(surface) || !m_area.rect().contains(used))
        leaveArea();
    if (m_area.state() == AreaBackground::State::None && m_denseCommits > commitsBefore &&
        !area.isEmpty())
        m_area.enter(area);
}

void KSpriteLayer::PrivateData::leaveArea()
{
    if (m_area.state() == AreaBackground::State::None)
        return;
    m_denseCommits = 0;
    for (Sprite * const sprite : m_sprites) {
        m_area.complete(surface, *sprite->savedBackground);
        m_area.complete(surface, *sprite->nextBackground);
    }
    m_area.leave();
}

// After a pass: the backgrounds that it would have read are in the area.
void KSpriteLayer::PrivateData::holdArea()
{
    if (m_area.state() == AreaBackground::State::None)
        return;
    m_area.hold(surface);
    for (Sprite * const sprite : m_stack) {
        if (sprite->moved)
            sprite->nextBackground->setElsewhere(sprite->geometry);
    }
}

} // namespace zenu
