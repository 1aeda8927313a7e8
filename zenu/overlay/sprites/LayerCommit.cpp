// The commit: from the committed state to the target state.

#include "zenu/overlay/sprites/LayerPrivate.h"
#include "zenu/overlay/sprites/RegionUnion.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace zenu {

namespace {

// Costs in pixels copied: of handling a sprite at all, and of a rectangle that is cut out.
constexpr double spriteWork = 1000;
constexpr double partWork = 8000;

// From this many rectangles on, one that bounds them all is announced instead.
constexpr size_t manyRectangles = 128;

double areaOf(QRect const & r)
{
    return r.isEmpty() ? 0 : static_cast<double>(r.width()) * r.height();
}

QRegion boundedUnionOf(std::vector<QRect> const & rects)
{
    if (rects.size() <= manyRectangles)
        return unionOf(rects);
    QRect bounds;
    for (QRect const & r : rects)
        bounds |= r;
    return bounds;
}

bool isBelow(KSprite::PrivateData const * a, KSprite::PrivateData const * b)
{
    return a->priority < b->priority;
}

} // namespace

void KSpriteLayer::PrivateData::commit()
{
    {
        QScopedValueRollback const running(m_busy, true);
        m_again = false;
        notifyBefore();
        drawContents();
        compose();
        commitState();
        notifyAfter();
    }
    if (m_again)
        commitLater();
}

void KSpriteLayer::PrivateData::notifyBefore()
{
    for (size_t i = 0; i < m_sprites.size(); ++i)
        m_sprites[i]->owner->beforeLayerUpdate();
}

void KSpriteLayer::PrivateData::notifyAfter()
{
    for (size_t i = 0; i < m_sprites.size(); ++i)
        m_sprites[i]->owner->afterLayerUpdate();
}

// A target rectangle that is not the committed one always needs one, even where a sprite was hidden
// and shown again after its move and before an update.
bool KSpriteLayer::PrivateData::needsBackground(Sprite const & sprite,
                                                QRegion const & clobbered) const
{
    if (!wantShown)
        return false;
    if (sprite.needsBackground)
        return true;
    if (!sprite.wantShown)
        return false;
    return !shown || !sprite.shown || sprite.geometry != sprite.shownGeometry ||
           clobbered.intersects(sprite.shownGeometry);
}

// A picture that was drawn for another screen is drawn anew.
bool KSpriteLayer::PrivateData::wantsContents(Sprite const & sprite, qreal ratio) const
{
    bool const otherRatio =
        sprite.contents.ratio() != ratio && !sprite.geometry.isEmpty() && surface.host();
    return wantShown && sprite.wantShown && (sprite.contentsDirty || otherRatio);
}

void KSpriteLayer::PrivateData::drawContents()
{
    if (!std::is_sorted(m_stack.begin(), m_stack.end(), isBelow))
        std::stable_sort(m_stack.begin(), m_stack.end(), isBelow);
    qreal const ratio = surface.ratio();
    std::vector<Sprite *> dirty;
    std::copy_if(m_stack.begin(), m_stack.end(), std::back_inserter(dirty),
                 [&](Sprite const * sprite) { return wantsContents(*sprite, ratio); });
    if (dirty.empty())
        return;
    readForContents(dirty);
    for (Sprite * const sprite : dirty) {
        sprite->contentsDirty = false;
        sprite->drawn = true;
        sprite->contents.draw(*sprite->owner, sprite->geometry.size(), *sprite->nextBackground,
                              ratio);
    }
}

// Before anything is taken off the screen: pictures are drawn by the application, and while that
// runs nobody may see a scene in pieces.
void KSpriteLayer::PrivateData::readForContents(std::vector<Sprite *> const & dirty)
{
    bool const open = surface.begin(QRegion());
    QRegion const clobbered = clobberedRegion();
    fillOldScene();
    for (Sprite * const sprite : dirty) {
        bool const needed = needsBackground(*sprite, clobbered);
        if (open && needed)
            readBelow(surface, m_old, clobbered, sprite->geometry, *sprite->nextBackground);
        if (!open)
            sprite->nextBackground->ensureSize(sprite->geometry.size(), surface.ratio(),
                                               QImage::Format_RGB32);
        sprite->blind = !open;
    }
    surface.end();
}

void KSpriteLayer::PrivateData::fillOldScene()
{
    m_old.clear();
    if (!shown)
        return;
    m_old.band = band;
    m_old.band.rect = withinReach(band.rect);
    for (Leftover & left : m_leftovers)
        m_old.add(left.rect, &left.background, nullptr);
    for (Sprite * const sprite : m_stack) {
        if (sprite->shown && !sprite->shownGeometry.isEmpty())
            m_old.add(sprite->shownGeometry, sprite->savedBackground, &sprite->contents);
    }
}

void KSpriteLayer::PrivateData::fillReadScene()
{
    m_read.clear();
    qreal const ratio = surface.ratio();
    for (Sprite * const sprite : m_stack) {
        if (!sprite->moved)
            continue;
        sprite->nextBackground->ensureSize(sprite->geometry.size(), ratio, surface.format());
        if (!sprite->geometry.isEmpty())
            m_read.add(sprite->geometry, sprite->nextBackground, nullptr);
    }
}

void KSpriteLayer::PrivateData::fillNextScene()
{
    m_next.clear();
    if (!wantShown)
        return;
    m_next.band = nextBand;
    m_next.band.rect = withinReach(nextBand.rect);
    for (Sprite * const sprite : m_stack) {
        if (sprite->wantShown && !sprite->geometry.isEmpty()) {
            m_next.add(sprite->geometry,
                       sprite->moved ? sprite->nextBackground : sprite->savedBackground,
                       &sprite->contents);
        }
    }
}

void KSpriteLayer::PrivateData::addChanges(Sprite const & sprite, Changes & found) const
{
    bool const before = shown && sprite.shown;
    bool const after = wantShown && sprite.wantShown;
    QRect const both = (before ? sprite.shownGeometry : QRect()) |
                       (after || sprite.moved ? sprite.geometry : QRect());
    double const work = (before ? areaOf(sprite.shownGeometry) : 0) +
                        (after || sprite.moved ? areaOf(sprite.geometry) : 0);
    if (both.isEmpty())
        return;
    if (before)
        found.all.push_back(sprite.shownGeometry);
    if (after || sprite.moved)
        found.all.push_back(sprite.geometry);
    found.allWork += work + spriteWork;
    if (before == after && !sprite.moved && !sprite.drawn &&
        (!after || sprite.priority == sprite.shownPriority))
        return;
    found.changedWork += work + partWork;
    if (before)
        found.rects.push_back(sprite.shownGeometry);
    if ((after || sprite.moved) && !(before && sprite.geometry == sprite.shownGeometry))
        found.rects.push_back(sprite.geometry);
}

KSpriteLayer::PrivateData::Changes
KSpriteLayer::PrivateData::changes(QRegion const & clobbered) const
{
    Changes found;
    for (Sprite const * const sprite : m_stack)
        addChanges(*sprite, found);
    for (Leftover const & left : m_leftovers) {
        found.rects.push_back(left.rect);
        found.all.push_back(left.rect);
    }
    found.rects.insert(found.rects.end(), clobbered.begin(), clobbered.end());
    QRect const before = shown ? withinReach(band.rect) : QRect();
    QRect const after = wantShown ? withinReach(nextBand.rect) : QRect();
    found.all.insert(found.all.end(), clobbered.begin(), clobbered.end());
    found.all.push_back(before);
    found.all.push_back(after);
    found.allWork += areaOf(before) + areaOf(after);
    QRegion const bands = colorsChanged ? QRegion(before) + after : QRegion(before) ^ after;
    for (QRect const & r : bands) {
        found.rects.push_back(r);
        found.changedWork += areaOf(r);
    }
    return found;
}

// Where much changes, all of it costs less than finding out what has to be cut where.
Damage KSpriteLayer::PrivateData::damage(Changes const & found) const
{
    Damage result;
    result.everything = found.allWork <= found.changedWork;
    if (!result.everything)
        result.region = unionOf(found.rects);
    return result;
}

void KSpriteLayer::PrivateData::compose()
{
    QRegion const clobbered = clobberedRegion();
    for (Sprite * const sprite : m_stack)
        sprite->moved = needsBackground(*sprite, clobbered);
    Changes const found = changes(clobbered);
    if (found.rects.empty())
        return;
    Damage const worked = damage(found);
    QRegion const touched = worked.everything ? boundedUnionOf(found.all) : worked.region;
    if (!surface.begin(touched)) {
        if (surface.host() && surface.host()->isVisible())
            surface.host()->update(touched);
        return;
    }
    fillOldScene();
    fillReadScene();
    fillNextScene();
    Composition(surface, worked).change(m_old, m_read, m_next, clobbered);
    surface.end();
}

void KSpriteLayer::PrivateData::commitState()
{
    for (Sprite * const sprite : m_sprites)
        sprite->commit();
    band = nextBand;
    colorsChanged = false;
    shown = wantShown;
    m_clobbered.clear();
    m_leftovers.clear();
    std::erase_if(m_stack, [](Sprite const * sprite) { return sprite->removed; });
    auto const staying = std::stable_partition(
        m_sprites.begin(), m_sprites.end(), [](Sprite const * sprite) { return !sprite->removed; });
    m_departed.insert(m_departed.end(), staying, m_sprites.end());
    m_sprites.erase(staying, m_sprites.end());
}

} // namespace zenu
