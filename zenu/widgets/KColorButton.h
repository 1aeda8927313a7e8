#pragma once

#include "zenu/ZenuExport.h"

#include <QtWidgets/QAbstractButton>

#include <memory>

class QMenu;

namespace zenu {

/// A button in the manner of a tool button that shows a colour swatch, a text or a small arrow, and
/// opens a menu if it has one.
///
/// With a positive popup delay the menu opens when the button is held that long. With a delay of 0
/// the button has an arrow part of its own at its right end, and a press there opens the menu at
/// once; the rest is a plain button. While the menu is open the button runs an event loop of its
/// own (QMenu::exec), so a press may return much later, and the button may be deleted meanwhile.
///
/// Content is laid out from left to right in right-to-left layouts too. It takes no focus unless
/// given a focus policy. GUI thread only.
class ZENU_EXPORT KColorButton : public QAbstractButton
{
    Q_OBJECT
public:
    /// A button that shows nothing yet. It is flat until hovered if `parent` is a tool bar. `name`
    /// may be null.
    explicit KColorButton(QWidget * parent = nullptr, char const * name = nullptr);
    ~KColorButton() override;

    /// Whether a click changes between on and off.
    void setToggleButton(bool toggles);

    /// Sets the menu, null for none; it stays the caller's, and a menu that is deleted is
    /// forgotten. A menu may be that of several buttons.
    void setPopup(QMenu * popup);
    QMenu * popup() const;

    /// How long the button is held until its menu opens, in milliseconds; 10 at first. 0 gives the
    /// button a separate arrow part; below 0 a press anywhere on it opens the menu at once.
    void setPopupDelay(int milliseconds);
    int popupDelay() const;

    /// Whether the button is flat until the mouse is over it.
    void setAutoRaise(bool autoRaise);
    bool autoRaise() const;

    // The five that follow only store. A button that is shown already needs updateGeometry() and
    // update() after them.

    /// The limits of the swatch. Both are (0, 0) at first, so a swatch has no width until a largest
    /// size is set.
    void setMinColorSize(QSize const & size);
    void setMaxColorSize(QSize const & size);

    /// The space between swatch and text, 2 at first.
    void setTextColorSpacing(int spacing);

    /// The space between the edge of the button and the swatch, 2 at first.
    void setMargin(int margin);

    /// Whether a rectangle is drawn inside the button in the colour of the swatch's border. Off at
    /// first.
    void setFrame(bool frame);

    /// The colours of the swatch, white and black at first. Either call shows the swatch.
    void setFillColor(QColor const & color);
    void setBorderColor(QColor const & color);

    /// Shows `text` instead of the arrow; the swatch stays as it is. The text is drawn as it
    /// stands: "&" makes no shortcut. It is measured in the application's font.
    virtual void setText(QString const & text);

    /// Shows `text` alone, without arrow and swatch. setFillColor brings the swatch back.
    void setTextNoColor(QString const & text);

    /// Shows the arrow instead of the text; the swatch stays as it is. The arrow points down
    /// whatever `type` says.
    void setArrow(Qt::ArrowType type);

    /// True when the button is drawn raised or sunken, not flat: it is not flat at all; the mouse
    /// is over it and it is enabled; its menu is open and the delay is below 1; or the menu was
    /// opened by the button.
    bool uses3D() const;

    /// The object itself, for connecting.
    QObject * qObject() { return this; }

    /// Draws the whole button. Does nothing for a painter that is null or not active.
    virtual void drawButton(QPainter * painter);

    /// Called when the palette has changed, with the palette before. Does nothing.
    virtual void paletteChange(QPalette const & before);

    /// The same as minimumSizeHint.
    QSize sizeHint() const override;

    /// The size that text or arrow, the smallest swatch and the arrow part need.
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Switches a toggle button on or off. Does nothing for other buttons.
    void setOn(bool on);

    /// Switches a toggle button to the other state.
    void toggle();

protected:
    bool eventFilter(QObject * watched, QEvent * event) override;
    void paintEvent(QPaintEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void enterEvent(QEnterEvent * event) override;
    void leaveEvent(QEvent * event) override;
    void moveEvent(QMoveEvent * event) override;
    void changeEvent(QEvent * event) override;

private Q_SLOTS:
    void popupPressed();
    void popupTimerDone();

private:
    friend class KColorPopup; // moves the look of a hovered button by the keyboard
    struct PrivateData;

    void init();
    void openPopup();
    void forgetClosingPress();
    QSize textSize(int * ascent) const;
    void setHovering(bool hovering);
    void keepText(QString const & text);
    void showContent(bool text, bool arrow, bool color);

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
