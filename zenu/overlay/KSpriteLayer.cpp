#include "zenu/overlay/KSpriteLayer.h"

#include "zenu/overlay/KSprite.h"
#include "zenu/overlay/sprites/LayerPrivate.h"

#include <QWidget>

namespace zenu {

KSpriteLayer::KSpriteLayer(QWidget * widget)
    : d(std::make_unique<PrivateData>(widget))
{
}

KSpriteLayer::~KSpriteLayer() = default;

QWidget * KSpriteLayer::getWidget() const
{
    return d->surface.host();
}

QSize KSpriteLayer::size() const
{
    return getWidget() ? getWidget()->size() : QSize();
}

void KSpriteLayer::addSprite(KSprite * sprite)
{
    if (sprite)
        d->add(this, *sprite->d);
}

void KSpriteLayer::removeSprite(KSprite * sprite)
{
    if (sprite)
        d->remove(*sprite->d);
}

void KSpriteLayer::show()
{
    d->wantAll();
}

void KSpriteLayer::hide()
{
    d->wantShown = false;
}

void KSpriteLayer::setSelection(QRect const & r)
{
    d->nextBand.rect = r;
}

void KSpriteLayer::setSelForeground(QColor const & color)
{
    if (color.rgb() == d->nextBand.foreground.rgb())
        return;
    d->nextBand.foreground = color;
    d->colorsChanged = true;
}

// Compared with the foreground, on purpose: see the header.
void KSpriteLayer::setSelBackground(QColor const & color)
{
    if (color.rgb() == d->nextBand.foreground.rgb())
        return;
    d->nextBand.background = color;
    d->colorsChanged = true;
}

QRect KSpriteLayer::getSelection() const
{
    return d->band.rect;
}

QColor KSpriteLayer::getSelForeground() const
{
    return d->band.foreground;
}

QColor KSpriteLayer::getSelBackground() const
{
    return d->band.background;
}

void KSpriteLayer::clobberRect(QRect const & r)
{
    d->clobber(r);
}

void KSpriteLayer::update()
{
    d->update();
}

} // namespace zenu
