// The commit: from the committed state to the target state.

#include "zenu/overlay/sprites/LayerPrivate.h"

#include <QPointer>

#include <algorithm>
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
    m_busy = true;
    m_again = false;
    if (!notify(&KSprite::beforeLayerUpdate) || !drawChanged())
        return;
    compose();
    commitState();
    if (!notify(&KSprite::afterLayerUpdate))
        return;
    m_busy = false;
    if (m_again)
        commitLater();
}

// Sprites may come and go meanwhile.
bool KSpriteLayer::PrivateData::notify(void (KSprite::*callback)())
{
    QPointer<QObject> const layerStands(&m_receiver);
    m_notified = 0;
    while (m_notified < m_sprites.size()) {
        (m_sprites[m_notified++]->owner->*callback)();
        if (!layerStands)
            return false;
    }
    return true;
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

bool KSpriteLayer::PrivateData::drawChanged()
{
    if (!std::is_sorted(m_stack.begin(), m_stack.end(), isBelow))
        std::stable_sort(m_stack.begin(), m_stack.end(), isBelow);
    qreal const ratio = surface.ratio();
    m_changed.clear();
    std::copy_if(m_stack.begin(), m_stack.end(), std::back_inserter(m_changed),
                 [&](Sprite const * sprite) { return wantsContents(*sprite, ratio); });
    if (m_changed.empty())
        return true;
    readForContents();
    for (size_t i = 0; i < m_changed.size(); ++i) {
        Sprite * const sprite = m_changed[i];
        if (!sprite)
            continue;
        sprite->contentsDirty = false;
        sprite->drawn = true;
        if (!drawContents(*sprite, sprite->geometry.size(), *sprite->nextBackground))
            return false;
    }
    return true;
}

// Before anything is taken off the screen: pictures are drawn by the application, and while that
// runs nobody may see a scene in pieces.
void KSpriteLayer::PrivateData::readForContents()
{
    leaveArea();
    bool const open = surface.begin(QRegion());
    QRegion const clobbered = clobberedRegion();
    fillOldScene();
    for (Sprite * const sprite : m_changed) {
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
    m_old.band.rect = bandBefore();
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
    m_next.band.rect = bandAfter();
    for (Sprite * const sprite : m_stack) {
        if (sprite->wantShown && !sprite->geometry.isEmpty()) {
            m_next.add(sprite->geometry,
                       sprite->moved ? sprite->nextBackground : sprite->savedBackground,
                       &sprite->contents);
        }
    }
}

void KSpriteLayer::PrivateData::fillScenes()
{
    fillNextScene();
    bool const isHeld = m_area.state() == AreaBackground::State::Held;
    if (isHeld) {
        m_old.clear();
        m_old.add(m_area.rect(), &m_area.pixels(), nullptr);
    } else {
        fillOldScene();
    }
    if (m_area.state() == AreaBackground::State::None) {
        fillReadScene();
        return;
    }
    m_read.clear();
    if (!isHeld)
        m_read.add(m_area.rect(), &m_area.pixels(), nullptr);
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

QRect KSpriteLayer::PrivateData::bandBefore() const
{
    return shown ? withinReach(band.rect) : QRect();
}

QRect KSpriteLayer::PrivateData::bandAfter() const
{
    return wantShown ? withinReach(nextBand.rect) : QRect();
}

QRegion KSpriteLayer::PrivateData::changedBand() const
{
    return colorsChanged ? QRegion(bandBefore()) + bandAfter()
                         : QRegion(bandBefore()) ^ bandAfter();
}

KSpriteLayer::PrivateData::Load KSpriteLayer::PrivateData::load() const
{
    Load load;
    load.all = areaOf(bandBefore()) + areaOf(bandAfter());
    for (Sprite const * const sprite : m_stack) {
        Places const places = placesOf(*sprite);
        double const pixels = areaOf(places.before) + areaOf(places.after);
        if (pixels == 0)
            continue;
        load.draws = load.draws || sprite->drawn;
        load.bounds.add(places.before);
        load.bounds.add(places.after);
        load.pixels += pixels;
        load.all += pixels + spriteWork;
        if (isChanged(*sprite))
            load.changed += pixels + partWork;
    }
    for (QRect const & r : changedBand())
        load.changed += areaOf(r);
    return load;
}

// Then all of it costs less than finding out what has to be cut where.
bool KSpriteLayer::PrivateData::isMuch(Load const & load)
{
    return load.changed > 0 && load.all <= load.changed;
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
    Load const work = load();
    chooseArea(work, clobbered);
    fillScenes();
    Damage damage;
    damage.everything = isMuch(work);
    damage.region =
        damage.everything ? regionOf({&m_old, &m_next}) + clobbered : changedRegion(clobbered);
    if (damage.region.isEmpty() && m_read.rects.count() == 0)
        return;
    if (!surface.begin(damage.region)) {
        leaveArea();
        if (surface.host() && surface.host()->isVisible())
            surface.host()->update(damage.region);
        return;
    }
    Composition(surface, damage).change(m_old, m_read, m_next, clobbered);
    surface.end();
    holdArea();
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
