#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/overlay/KSprite.h"

#include <memory>

class QColor;

namespace zenu {

class KPixmapSet;

/// A framed text with an optional strip for a picture at its left: a note that floats over a
/// widget, such as the value under a cursor. It draws and stores, and is shown, moved and hidden
/// like every sprite; the timeout and the flags of hiding are kept for the application, which acts
/// on them. No operation but setText changes the size or redraws: set the looks first. GUI thread
/// only.
class ZENU_EXPORT KDataTip : public KSprite
{
public:
    /// A hidden tip without text, in the application's font. `layer` may be null.
    explicit KDataTip(KSpriteLayer * layer);
    ~KDataTip() override;

    /// Behind the text; white at first.
    void setBkColor(QColor const & color);
    QColor const & getBkColor() const;
    /// Of the text; (128, 0, 0) at first.
    void setTextColor(QColor const & color);
    QColor const & getTextColor() const;
    /// Of the strip at the left; (255, 211, 76) at first.
    void setMarginColor(QColor const & color);
    QColor const & getMarginColor() const;
    /// Of the frame, one pixel wide; (128, 128, 128) at first.
    void setBorderColor(QColor const & color);
    QColor const & getBorderColor() const;

    /// Where pictures come from: the strip becomes 9 pixels wider than an image. Null ends pictures
    /// and leaves the strip as it is. The set stays the caller's and must live as long as the tip
    /// may draw.
    void setImageList(KPixmapSet * images);
    KPixmapSet * getImageList();

    /// Which image is drawn in the strip, which becomes 4 pixels wider than an image; a negative
    /// index removes image and strip. The later of setImageList and setPicture decides the width.
    void setPicture(int index);

    /// A flag for the application; it changes nothing in what is drawn.
    void setPicture(bool picture);
    bool isPicture() const;

    /// The time after which the application means to hide the tip, in milliseconds; 3000 at first.
    void setTimeout(int milliseconds);
    int getTimeout();
    /// Whether the application means to hide the tip after that time; false at first.
    void setTimeoutHide(bool hide);
    bool isTimeoutHide() const;
    /// Whether the application means to hide the tip when a key is pressed; false at first.
    void setKeyEventHide(bool hide);
    bool isKeyEventHide() const;
    /// Kept for the application: the tip breaks its text at line feeds only. False at first.
    void setAutoWrap(bool wrap);
    bool isAutoWrap() const;

    /// Takes a Latin-1 text, null for none, and gives the tip the size that it needs.
    void setText(char const * text);
    /// The text in Latin-1, never null; see qstring2chars for how long it lives.
    char const * getText() const;

    void drawInBuffer(QPixmap * buffer, QPixmap const * background) override;

private:
    struct PrivateData;
    std::unique_ptr<PrivateData> m_data;
};

} // namespace zenu
