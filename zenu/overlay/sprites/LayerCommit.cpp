// The commit: from the committed state to the target state.

#include "zenu/overlay/sprites/LayerPrivate.h"
#include "zenu/overlay/sprites/RegionUnion.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <climits>
#include <initializer_list>

namespace zenu {

namespace {

// Costs in pixels copied: of handling a sprite at all, and of a rectangle that is cut out.
constexpr double spriteWork = 1000;
constexpr double partWork = 8000;

// From this many rectangles on, one that bounds them all is announced instead.
constexpr int manyRectangles = 128;

double areaOf(QRect const & r)
{
    return r.isEmpty() ? 0 : static_cast<double>(r.width()) * r.height();
}

// A rectangle that grows quickly.
class Bounds
{
public:
    void add(QRect const & r)
    {
        if (r.isEmpty())
            return;
        m_left = std::min(m_left, r.left());
        m_top = std::min(m_top, r.top());
        m_right = std::max(m_right, r.right());
        m_bottom = std::max(m_bottom, r.bottom());
    }
    QRect rect() const
    {
        return m_left > m_right ? QRect() : QRect(QPoint(m_left, m_top), QPoint(m_right, m_bottom));
    }

private:
    int m_left = INT_MAX;
    int m_top = INT_MAX;
    int m_right = INT_MIN;
    int m_bottom = INT_MIN;
};

// Of all sprites and the bands.
QRegion regionOf(std::initializer_list<Scene const *> scenes)
{
    int count = 0;
    for (Scene const * const scene : scenes)
        count += scene->rects.count();
    std::vector<QRect> rects;
    Bounds bounds;
    auto const add = [&](QRect const & r) {
        if (count > manyRectangles)
            bounds.add(r);
        else
            rects.push_back(r);
    };
    for (Scene const * const scene : scenes) {
        add(scene->band.rect);
        for (int i = 0; i < scene->rects.count(); ++i)
            add(scene->rects.at(i));
    }
    return count > manyRectangles ? QRegion(bounds.rect()) : unionOf(rects);
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
    for (Sprite * const sprite : m_stack) {
        if (sprite->moved)
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

// On the screen, or in the background that is read for it.
bool KSpriteLayer::PrivateData::isChanged(Sprite const & sprite) const
{
    bool const before = shown && sprite.shown;
    bool const after = wantShown && sprite.wantShown;
    return before != after || sprite.moved || sprite.drawn ||
           (after && sprite.priority != sprite.shownPriority);
}

// Its committed rectangle where it stands, its target where it will stand or reads a background.
KSpriteLayer::PrivateData::Places KSpriteLayer::PrivateData::placesOf(Sprite const & sprite) const
{
    Places places;
    if (shown && sprite.shown)
        places.before = sprite.shownGeometry;
    if ((wantShown && sprite.wantShown) || sprite.moved)
        places.after = sprite.geometry;
    return places;
}

QRegion KSpriteLayer::PrivateData::changedBand() const
{
    QRect const before = m_old.band.rect;
    QRect const after = m_next.band.rect;
    return colorsChanged ? QRegion(before) + after : QRegion(before) ^ after;
}

// Where much changes, all of it costs less than finding out what has to be cut where.
bool KSpriteLayer::PrivateData::changesMuch() const
{
    double changedWork = 0;
    double allWork = areaOf(m_old.band.rect) + areaOf(m_next.band.rect);
    for (Sprite const * const sprite : m_stack) {
        Places const places = placesOf(*sprite);
        double const work = areaOf(places.before) + areaOf(places.after);
        if (work == 0)
            continue;
        allWork += work + spriteWork;
        if (isChanged(*sprite))
            changedWork += work + partWork;
    }
    for (QRect const & r : changedBand())
        changedWork += areaOf(r);
    return changedWork > 0 && allWork <= changedWork;
}

QRegion KSpriteLayer::PrivateData::changedRegion(QRegion const & clobbered) const
{
    std::vector<QRect> rects;
    for (Sprite const * const sprite : m_stack) {
        if (!isChanged(*sprite))
            continue;
        Places const places = placesOf(*sprite);
        rects.push_back(places.before);
        if (places.after != places.before)
            rects.push_back(places.after);
    }
    for (Leftover const & left : m_leftovers)
        rects.push_back(left.rect);
    return unionOf(rects) + clobbered + changedBand();
}

void KSpriteLayer::PrivateData::compose()
{
    QRegion const clobbered = clobberedRegion();
    for (Sprite * const sprite : m_stack)
        sprite->moved = needsBackground(*sprite, clobbered);
    fillOldScene();
    fillReadScene();
    fillNextScene();
    Damage damage;
    damage.everything = changesMuch();
    damage.region = damage.everything ? regionOf({&m_old, &m_read, &m_next}) + clobbered
                                      : changedRegion(clobbered);
    if (damage.region.isEmpty())
        return;
    if (!surface.begin(damage.region)) {
        if (surface.host() && surface.host()->isVisible())
            surface.host()->update(damage.region);
        return;
    }
    Composition(surface, damage).change(m_old, m_read, m_next, clobbered);
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
