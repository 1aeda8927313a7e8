#pragma once

#include "zenu/ZenuExport.h"

#include <QColor>
#include <QRect>
#include <QSize>

#include <memory>

class QWidget;

namespace zenu {

class KSprite;

/// Composes sprites, and a selection band below them, on the screen over one widget, without a
/// paint event of that widget. Belongs to the application; owns neither the widget nor the sprites
/// and may outlive or die before each of them. GUI thread only.
///
/// The widget has two duties in its paint event, with its painter closed best: to call
/// `clobberRect` for each rectangle that it painted, and `update` after that. It must not scroll
/// its pixels (`QWidget::scroll`) while sprites stand on it: hide the layer and update before, show
/// it and update after. A move of the widget itself, as in a scroll area, needs nothing. The layer
/// installs no event filter and starts no timer: nothing happens without these calls.
///
/// A widget may have several layers, where sprites and bands of one never stand over those of
/// another: a layer takes what another one shows for the widget's own.
///
/// What an update costs: the area of the sprites that changed and of what they touch, and a little
/// for each sprite of the layer.
class ZENU_EXPORT KSpriteLayer
{
public:
    /// A layer without sprites and band, to be shown by the first update.
    explicit KSpriteLayer(QWidget * widget);

    /// The sprites live on without a layer. Nothing is restored on the screen.
    ~KSpriteLayer();
    KSpriteLayer(KSpriteLayer const &) = delete;
    KSpriteLayer & operator=(KSpriteLayer const &) = delete;

    /// The widget composed on, and its size; null and invalid after it is gone.
    QWidget * getWidget() const;
    QSize size() const;

    /// Takes a sprite in, hidden. Ignored for null and for a sprite that has a layer, or had one
    /// and was removed there.
    void addSprite(KSprite * sprite);

    /// Hides the sprite and lets it go with the next update; it can never be shown again. A sprite
    /// of another layer is ignored.
    void removeSprite(KSprite * sprite);

    /// Wants all of the layer on the screen; all backgrounds are read anew.
    void show();

    /// Wants all sprites and the band off the screen. They keep their own state.
    void hide();

    /// Wants the selection band at `r`; a null rectangle takes it off. Below the sprites its pixels
    /// are turned between the two colours by XOR.
    void setSelection(QRect const & r);

    /// The colours of the band, both invalid at first, which shows no band. A foreground equal to
    /// the one wanted already is ignored.
    void setSelForeground(QColor const & color);

    /// A background equal to the wanted *foreground* is ignored: a band of two equal colours would
    /// not be seen. Applications rely on it: the foreground is set first.
    void setSelBackground(QColor const & color);

    /// What the last update committed: a value that was set later is not seen yet.
    QRect getSelection() const;
    QColor getSelForeground() const;
    QColor getSelBackground() const;

    /// Tells that the widget painted `r`, over sprites and band and what lay below them. Ignored
    /// while the layer is not on the screen.
    void clobberRect(QRect const & r);

    /// Brings the screen from the committed to the target state, before it returns. In a paint
    /// event of the widget it puts back what the widget painted over instead, and commits right
    /// after the event. While the widget is drawn into something else (`grab`, `render`, printing)
    /// the committed sprites and band are drawn there too and no state changes. A widget that is
    /// not on a screen gets the state committed and nothing drawn.
    void update();

    /// What only the library sees.
    class PrivateData;

private:
    friend class KSprite;

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
