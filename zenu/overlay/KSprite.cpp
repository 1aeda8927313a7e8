#include "zenu/overlay/KSprite.h"

#include "zenu/overlay/KSpriteLayer.h"
#include "zenu/overlay/sprites/LayerPrivate.h"
#include "zenu/overlay/sprites/SpritePrivate.h"

namespace zenu {

KSprite::KSprite(KSpriteLayer * layer)
    : d(std::make_unique<PrivateData>(this))
{
    if (layer)
        layer->addSprite(this);
}

KSprite::~KSprite()
{
    if (KSpriteLayer * const layer = d->layer) {
        layer->d->release(*d);
        layer->update();
    }
}

void KSprite::beforeLayerUpdate() {}

void KSprite::afterLayerUpdate() {}

void KSprite::show()
{
    if (d->removed)
        return;
    d->wantShown = true;
    d->contentsDirty = true;
    if (!d->shown)
        d->needsBackground = true;
}

void KSprite::hide()
{
    d->wantShown = false;
    d->needsBackground = false;
}

int KSprite::priority() const
{
    return d->priority;
}

void KSprite::setPriority(int priority)
{
    d->priority = priority;
}

void KSprite::setEnsureVisible(bool ensure)
{
    d->ensureVisible = ensure;
}

bool KSprite::isEnsureVisible() const
{
    return d->ensureVisible;
}

QSize KSprite::size() const
{
    return d->geometry.size();
}

QPoint KSprite::pos() const
{
    return d->geometry.topLeft();
}

QRect KSprite::geometry() const
{
    return d->geometry;
}

KSpriteLayer * KSprite::getLayer() const
{
    return d->layer;
}

bool KSprite::aboutToShow() const
{
    return !d->shown && d->wantShown;
}

bool KSprite::aboutToHide() const
{
    return d->shown && !d->wantShown;
}

bool KSprite::aboutToRemove() const
{
    return d->removed;
}

void KSprite::changeContents(QSize const & size)
{
    d->needsBackground = true;
    d->contentsDirty = true;
    d->setGeometry(d->geometry.topLeft(), size);
}

void KSprite::moveTo(QPoint const & p)
{
    d->needsBackground = true;
    d->setGeometry(p, d->geometry.size());
}

void KSprite::moveBy(QPoint const & d)
{
    QPoint const from = this->d->shownGeometry.topLeft();
    moveTo(QPoint(saturated(qint64(from.x()) + d.x()), saturated(qint64(from.y()) + d.y())));
}

} // namespace zenu
