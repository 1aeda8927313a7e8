#pragma once

#include "zenu/ZenuExport.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <memory>

class QPixmap;

namespace zenu {

class KSpriteLayer;

/// A small image over a widget: a caret, a cursor, a marker, a floating note. A class derived from
/// it supplies the picture, a KSpriteLayer brings it on the screen; the widget itself paints
/// nothing for that.
///
/// A sprite has a target state, which its operations change at any time, and a committed state,
/// which is what stands on the screen. Nothing is seen until KSpriteLayer::update makes the target
/// the committed state. All positions and sizes are logical pixels in coordinates of the layer's
/// widget. Belongs to the application; may outlive its layer. GUI thread only.
class ZENU_EXPORT KSprite
{
public:
    /// Starts hidden, at (0, 0) and without a size, on top of no other: `changeContents`, `moveTo`
    /// and `show` bring it up. With null it belongs to no layer until KSpriteLayer::addSprite.
    explicit KSprite(KSpriteLayer * layer);

    /// Takes the sprite off the screen first, by an update of its layer. In a paint event of the
    /// widget it leaves the screen right after it.
    virtual ~KSprite();
    KSprite(KSprite const &) = delete;
    KSprite & operator=(KSprite const &) = delete;

    /// Draws the picture from (0, 0) of `buffer` on, in logical pixels. The buffer has the ratio of
    /// the screen and may be larger than the sprite. It holds what was drawn there last, and is
    /// transparent when new; what is left transparent shows what lies below. `background` holds
    /// what lies under the sprite, for pictures that blend with it: up to date after a move,
    /// `changeContents` and an appearance, but older after `show` of a sprite that is shown
    /// already. Called by updates of the layer, only after `show` or `changeContents`. The update
    /// is on its way, so sprites and layers are not to be changed here.
    virtual void drawInBuffer(QPixmap * buffer, QPixmap const * background) = 0;

    /// Called at the begin of each update that commits, before the layer looks at the target state.
    /// Does nothing. What is changed here, in any sprite, is committed by this update.
    virtual void beforeLayerUpdate();

    /// Called at the end of each update that commits. Does nothing. In each of the three callbacks
    /// the sprite itself, others, the layer and its widget may be destroyed.
    virtual void afterLayerUpdate();

    /// Wants the sprite on the screen, with its picture drawn anew. Ignored once it was removed
    /// from its layer.
    void show();

    /// Wants the sprite off the screen. It keeps its buffers.
    void hide();

    /// The sprite with the higher number lies on top; 0 at first. Among equal numbers the order is
    /// not defined. A change takes effect with the next update.
    int priority() const;
    void setPriority(int priority);

    /// Keeps the sprite on the desktop: from the next move or change of size on, it is pushed left
    /// and up by what would lie beyond the right and bottom edge of the screens. The left and top
    /// edges do not count. Off at first.
    void setEnsureVisible(bool ensure);
    bool isEnsureVisible() const;

    /// The target rectangle, and its size and top left corner; never what is on the screen now.
    QSize size() const;
    QPoint pos() const;
    QRect geometry() const;

    /// The layer, null when there is none or it is gone. A removed sprite still knows its layer.
    KSpriteLayer * getLayer() const;

    /// The next update brings it on the screen.
    bool aboutToShow() const;

    /// The next update takes it off the screen.
    bool aboutToHide() const;

    /// It was removed from its layer: the next update forgets it.
    bool aboutToRemove() const;

    /// Has the picture drawn anew, in the size given. The top left corner stays.
    void changeContents(QSize const & size);

    /// Moves the top left corner to `p`; the picture is not drawn anew.
    void moveTo(QPoint const & p);

    /// Moves by `d` from where the sprite stands on the screen, not from the target: several calls
    /// between two updates do not add up.
    void moveBy(QPoint const & d);

    /// What only the library sees.
    struct PrivateData;

private:
    friend class KSpriteLayer;

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
