#include "zenu/overlay/sprites/LayerPrivate.h"

#include "zenu/overlay/sprites/LayerPicture.h"

#include <QMetaObject>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

#include <algorithm>

namespace zenu {

KSpriteLayer::PrivateData::PrivateData(QWidget * widget)
    : surface(widget)
{
}

KSpriteLayer::PrivateData::~PrivateData()
{
    leaveArea();
    for (std::vector<Sprite *> const * const list : {&m_sprites, &m_departed}) {
        for (Sprite * const sprite : *list)
            sprite->layer = nullptr;
    }
}

void KSpriteLayer::PrivateData::add(KSpriteLayer * layer, Sprite & sprite)
{
    if (sprite.layer)
        return;
    m_sprites.push_back(&sprite);
    m_stack.push_back(&sprite);
    sprite.layer = layer;
    sprite.shown = false;
    sprite.wantShown = false;
    sprite.needsBackground = false;
    sprite.contentsDirty = false;
}

void KSpriteLayer::PrivateData::remove(Sprite & sprite)
{
    if (std::find(m_sprites.begin(), m_sprites.end(), &sprite) == m_sprites.end())
        return;
    sprite.owner->hide();
    sprite.removed = true;
}

void KSpriteLayer::PrivateData::release(Sprite & sprite)
{
    std::erase(m_departed, &sprite);
    std::replace(m_changed.begin(), m_changed.end(), &sprite, static_cast<Sprite *>(nullptr));
    std::replace(m_drawing.begin(), m_drawing.end(), &sprite, static_cast<Sprite *>(nullptr));
    auto const place = std::find(m_sprites.begin(), m_sprites.end(), &sprite);
    if (place == m_sprites.end())
        return;
    if (place - m_sprites.begin() < static_cast<std::ptrdiff_t>(m_notified))
        --m_notified;
    m_sprites.erase(place);
    std::erase(m_stack, &sprite);
    m_area.complete(surface, *sprite.savedBackground);
    if (shown && sprite.shown && !sprite.shownGeometry.isEmpty())
        m_leftovers.push_back({sprite.shownGeometry, std::move(*sprite.savedBackground)});
}

void KSpriteLayer::PrivateData::wantAll()
{
    wantShown = true;
    leaveArea();
    for (Sprite * const sprite : m_sprites)
        sprite->needsBackground = sprite->wantShown;
}

// Only what is being painted counts in a paint event, whatever larger rectangle the widget names.
void KSpriteLayer::PrivateData::clobber(QRect const & rect)
{
    if (!shown || rect.isEmpty())
        return;
    QRect const r = withinReach(rect);
    switch (surface.target()) {
    case WidgetSurface::Target::Screen:
        m_clobbered.push_back(r);
        return;
    case WidgetSurface::Target::Pass:
        for (QRect const & part : surface.clip() & r)
            m_clobbered.push_back(part);
        return;
    case WidgetSurface::Target::Redirected:
        m_clobberedPicture.push_back(r);
        return;
    case WidgetSurface::Target::None:
        return;
    }
}

void KSpriteLayer::PrivateData::update()
{
    switch (surface.target()) {
    case WidgetSurface::Target::Redirected:
        drawIntoPicture();
        if (!m_leftovers.empty()) // of a sprite that died while the picture was taken
            commitLater();
        return;
    case WidgetSurface::Target::Pass:
        if (repair() && isUncommitted())
            commitLater();
        return;
    case WidgetSurface::Target::Screen:
    case WidgetSurface::Target::None:
        if (m_busy)
            m_again = true;
        else
            commit();
        return;
    }
}

QRegion KSpriteLayer::PrivateData::clobberedRegion() const
{
    return shown ? unionOf(m_clobbered) : QRegion();
}

// The background of what the widget has painted, then all that is committed over it.
bool KSpriteLayer::PrivateData::repair()
{
    QRegion const clobbered = clobberedRegion();
    if (clobbered.isEmpty())
        return true;
    leaveArea();
    if (!surface.begin(clobbered))
        return true;
    Damage const painted{false, clobbered & surface.clip()};
    QRegion const late = clobbered - painted.region; // from an earlier paint event, for the commit
    m_clobbered.assign(late.begin(), late.end());
    fillOldScene();
    Composition(surface, painted).capture(m_old);
    if (redrawsBlind(painted.region)) {
        surface.end();
        if (!redrawBlind(painted.region))
            return false;
        if (!surface.begin(painted.region))
            return true;
        fillOldScene();
    }
    Composition(surface, painted).draw(m_old);
    surface.end();
    return true;
}

// A sprite that was committed before the widget came on the screen has not seen its background yet.
bool KSpriteLayer::PrivateData::isBlindIn(QRegion const & painted, Sprite const & sprite)
{
    return sprite.blind && sprite.shown && painted.intersects(sprite.shownGeometry);
}

bool KSpriteLayer::PrivateData::redrawsBlind(QRegion const & painted) const
{
    return std::any_of(m_stack.begin(), m_stack.end(),
                       [&](Sprite const * sprite) { return isBlindIn(painted, *sprite); });
}

bool KSpriteLayer::PrivateData::redrawBlind(QRegion const & painted)
{
    for (size_t i = 0; i < m_stack.size(); ++i) {
        Sprite & sprite = *m_stack[i];
        if (!isBlindIn(painted, sprite))
            continue;
        sprite.blind = false;
        if (!drawContents(sprite, sprite.shownGeometry.size(), *sprite.savedBackground))
            return false;
    }
    return true;
}

bool KSpriteLayer::PrivateData::drawContents(Sprite & sprite, QSize size,
                                             BackgroundBuffer & background)
{
    if (size.isEmpty())
        return true;
    QPointer<QObject> const layerStands(&m_receiver);
    qreal const ratio = surface.ratio();
    QPixmap * const buffer = sprite.contents.beginDrawing(size, ratio);
    {
        QPixmap below = QPixmap::fromImage(background.image()); // shares the pixels
        below.setDevicePixelRatio(ratio);
        m_drawing.push_back(&sprite);
        sprite.owner->drawInBuffer(buffer, &below);
    }
    if (!layerStands)
        return false;
    bool const spriteStands = m_drawing.back();
    m_drawing.pop_back();
    if (spriteStands) {
        background.unshare();
        sprite.contents.endDrawing(size);
    }
    return true;
}

// Only what the widget has painted into that picture, so that a second update in the same paint
// event changes nothing.
void KSpriteLayer::PrivateData::drawIntoPicture()
{
    QRegion const painted = unionOf(m_clobberedPicture) & surface.host()->rect();
    m_clobberedPicture.clear();
    if (!shown || painted.isEmpty())
        return;
    fillOldScene();
    drawInPicture(surface, m_old, painted);
}

void KSpriteLayer::PrivateData::commitLater()
{
    if (m_posted)
        return;
    m_posted = true;
    QMetaObject::invokeMethod(
        &m_receiver,
        [this] {
            m_posted = false;
            update();
        },
        Qt::QueuedConnection);
}

bool KSpriteLayer::PrivateData::isBandUnchanged() const
{
    return !colorsChanged && band == nextBand;
}

bool KSpriteLayer::PrivateData::isUncommitted() const
{
    if (wantShown != shown || !m_leftovers.empty() || !isBandUnchanged())
        return true;
    if (!shown)
        return std::any_of(m_sprites.begin(), m_sprites.end(), [](Sprite const * sprite) {
            return sprite->removed || sprite->wantShown != sprite->shown;
        });
    qreal const ratio = surface.ratio();
    return !m_clobbered.empty() ||
           std::any_of(m_sprites.begin(), m_sprites.end(), [&](Sprite const * sprite) {
               return sprite->isUncommitted() || wantsContents(*sprite, ratio);
           });
}

} // namespace zenu
