#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/overlay/KSprite.h"

#include <QColor>
#include <QObject>
#include <QSize>

#include <memory>

namespace zenu {

/// A blinking filled rectangle on a sprite layer. It runs its own timer, from its construction on
/// and whatever its state, and updates the layer at every tick; the widget below never repaints for
/// it. The operations change what is wanted: it reaches the screen at the next tick, or at the next
/// update of the layer. Placed with moveTo like every sprite. GUI thread only.
class ZENU_EXPORT KCaret : public QObject, public KSprite
{
    Q_OBJECT

public:
    /// A hidden, black caret. `blinkInterval` is the time from one change to the next in
    /// milliseconds; below 0 nothing ticks and the caret is as steady as the updates of its layer
    /// make it. `layer` may be null.
    KCaret(QObject * parent, KSpriteLayer * layer, QSize size, int blinkInterval);
    /// Takes the caret off the screen.
    ~KCaret() override;

    /// The colour of the rectangle, used from the caret's next appearance on.
    void setColor(QColor const & color);
    QColor const & getColor() const;

    /// Starts blinking. Does nothing when the caret is active already.
    void showCaret();
    /// Hides the caret and ends its blinking.
    void hideCaret();
    /// Keeps the caret visible through the next tick, so that it does not blink while the user
    /// types or moves it. A caret that was never shown appears at the next tick.
    void holdCaret();

    /// True when the caret blinks or is held, also in the moments in which it can't be seen.
    bool isActive() const;

    /// The caret as an object.
    QObject * qObject();

protected:
    void drawInBuffer(QPixmap * buffer, QPixmap const * background) override;

private Q_SLOTS:
    void blink();

private:
    struct PrivateData;
    std::unique_ptr<PrivateData> m_data;
};

} // namespace zenu
