#pragma once

#include "zenu/overlay/KSprite.h"
#include "zenu/overlay/sprites/SpriteBuffer.h"
#include "zenu/overlay/sprites/SpriteContents.h"

#include <QtGlobal>

#include <utility>

namespace zenu {

/// A coordinate of a sprite: far enough within an int that edges and device pixels fit as well.
int saturated(qint64 coordinate);

/// A rectangle with such edges: its width and height fit an int, too.
QRect withinReach(QRect const & r);

/// The committed and the target state of one sprite.
struct KSprite::PrivateData
{
    explicit PrivateData(KSprite * sprite)
        : owner(sprite)
    {
    }
    PrivateData(PrivateData const &) = delete;
    PrivateData & operator=(PrivateData const &) = delete;

    /// Every change of the target rectangle passes here, which keeps it on the desktop.
    void setGeometry(QPoint topLeft, QSize size);

    /// The target differs from what is committed, or the picture or background is to be renewed.
    bool isUncommitted() const;

    /// Makes the target the committed state, its background included.
    void commit();

    KSprite * const owner;
    QRect shownGeometry; // committed
    QRect geometry;      // target
    SpriteContents contents;
    BackgroundBuffer backgroundA;
    BackgroundBuffer backgroundB;
    BackgroundBuffer * savedBackground = &backgroundA; // what lies under shownGeometry
    BackgroundBuffer * nextBackground = &backgroundB;  // what will lie under geometry
    KSpriteLayer * layer = nullptr;
    int priority = 0;
    int shownPriority = 0; // committed
    bool ensureVisible = false;
    bool shown = false;     // committed
    bool wantShown = false; // target
    bool needsBackground = false;
    bool contentsDirty = false;
    bool removed = false;
    bool moved = false; // gets a new background in the update that runs
    bool drawn = false; // got new contents in the update that runs
    bool blind = false; // was drawn without a surface, so with nothing for a background
};

} // namespace zenu
