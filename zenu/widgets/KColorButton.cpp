#include "zenu/widgets/KColorButton.h"

#include "zenu/overlay/NarrowText.h"
#include "zenu/widgets/inner/KColorButtonPrivate.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolBar>

namespace zenu {

namespace {

constexpr int usualPopupDelay = 10;
constexpr QSize arrowSize(9, 6);

} // namespace

KColorButton::KColorButton(QWidget * parent, char const * name)
    : QAbstractButton(parent)
    , d(std::make_unique<PrivateData>(this))
{
    setObjectName(chars2qstring(name));
    init();
    setMouseTracking(true);
}

KColorButton::~KColorButton() = default;

void KColorButton::init()
{
    d->popupDelay = usualPopupDelay;
    d->autoRaise = qobject_cast<QToolBar *>(parentWidget()) != nullptr;
    d->palette = palette();
    setFocusPolicy(Qt::NoFocus);
    setBackgroundRole(QPalette::Button);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
}

void KColorButton::setToggleButton(bool toggles)
{
    setCheckable(toggles);
}

void KColorButton::setPopup(QMenu * popup)
{
    if (popup && !d->popupTimer) {
        connect(this, &QAbstractButton::pressed, this, &KColorButton::popupPressed);
        d->popupTimer = new QTimer(this);
        d->popupTimer->setSingleShot(true);
        connect(d->popupTimer, &QTimer::timeout, this, &KColorButton::popupTimerDone);
    }
    if (d->popup && d->popup != popup)
        d->popup->removeEventFilter(this);
    d->popup = popup;
    updateGeometry();
    update();
}

QMenu * KColorButton::popup() const
{
    return d->popup;
}

void KColorButton::setPopupDelay(int milliseconds)
{
    d->popupDelay = milliseconds;
    updateGeometry();
    update();
}

int KColorButton::popupDelay() const
{
    return d->popupDelay;
}

void KColorButton::setAutoRaise(bool autoRaise)
{
    d->autoRaise = autoRaise;
    update();
}

bool KColorButton::autoRaise() const
{
    return d->autoRaise;
}

void KColorButton::setMinColorSize(QSize const & size)
{
    d->minColorSize = size;
}

void KColorButton::setMaxColorSize(QSize const & size)
{
    d->maxColorSize = size;
}

void KColorButton::setTextColorSpacing(int spacing)
{
    d->spacing = spacing;
}

void KColorButton::setMargin(int margin)
{
    d->margin = margin;
}

void KColorButton::setFrame(bool frame)
{
    d->frame = frame;
}

void KColorButton::setFillColor(QColor const & color)
{
    d->fillColor = color;
    showContent(d->showText, d->showArrow, true);
}

void KColorButton::setBorderColor(QColor const & color)
{
    d->borderColor = color;
    showContent(d->showText, d->showArrow, true);
}

void KColorButton::setText(QString const & text)
{
    keepText(text);
    showContent(true, false, d->showColor);
}

void KColorButton::setTextNoColor(QString const & text)
{
    keepText(text);
    showContent(true, false, false);
}

// The base has it for assistive technology, and would make a shortcut of it.
void KColorButton::keepText(QString const & text)
{
    d->text = text;
    QKeySequence const keys = shortcut();
    QAbstractButton::setText(text);
    setShortcut(keys);
}

void KColorButton::setArrow(Qt::ArrowType type)
{
    d->arrowType = type;
    showContent(false, true, d->showColor);
}

void KColorButton::showContent(bool text, bool arrow, bool color)
{
    d->showText = text;
    d->showArrow = arrow;
    d->showColor = color;
    updateGeometry();
    update();
}

bool KColorButton::uses3D() const
{
    return !d->autoRaise || (d->hovering && isEnabled()) ||
           (d->popup && d->popup->isVisible() && d->popupDelay < 1) || d->instantPopup;
}

void KColorButton::drawButton(QPainter * painter)
{
    if (!painter || !painter->isActive())
        return;
    d->drawParts(painter);
    d->drawContent(painter);
}

void KColorButton::paletteChange(QPalette const &) {}

QSize KColorButton::sizeHint() const
{
    return minimumSizeHint();
}

QSize KColorButton::minimumSizeHint() const
{
    ensurePolished();
    QSize needed = neededSize(d->content());
    if (d->hasArrowPart())
        needed.rwidth() += d->arrowPartWidth();
    QStyleOptionToolButton option;
    option.initFrom(this);
    return style()->sizeFromContents(QStyle::CT_ToolButton, &option, needed, this);
}

void KColorButton::setOn(bool on)
{
    if (isCheckable())
        setChecked(on);
}

void KColorButton::toggle()
{
    if (isCheckable())
        setOn(!isChecked());
}

// Takes the press that closed the menu: as it is sent again, or as the one that a double click
// begins with.
void KColorButton::mousePressEvent(QMouseEvent * event)
{
    QRect const opening = d->hasArrowPart() ? d->arrowPart() : rect();
    d->instantPopup = opening.isValid() && opening.contains(event->position().toPoint());
    bool const sentAgain = d->closingPress != 0 && d->closingPress == event->timestamp();
    if (d->discardNextMouseEvent || sentAgain) {
        d->discardNextMouseEvent = false;
        d->instantPopup = false;
        if (d->popup)
            d->popup->removeEventFilter(this);
        return;
    }
    if (event->button() == Qt::LeftButton && d->popupDelay < 1 && d->popup && d->instantPopup &&
        !d->popup->isVisible()) {
        openPopup();
        return;
    }
    d->instantPopup = false;
    QAbstractButton::mousePressEvent(event);
}

void KColorButton::mouseMoveEvent(QMouseEvent * event)
{
    if (!d->hovering && rect().contains(event->position().toPoint())) {
        QEnterEvent enter(event->position(), event->scenePosition(), event->globalPosition());
        enterEvent(&enter);
    }
    QAbstractButton::mouseMoveEvent(event);
}

void KColorButton::enterEvent(QEnterEvent * event)
{
    setHovering(true);
    QAbstractButton::enterEvent(event);
}

void KColorButton::leaveEvent(QEvent * event)
{
    setHovering(false);
    QAbstractButton::leaveEvent(event);
}

void KColorButton::setHovering(bool hovering)
{
    d->hovering = hovering;
    if (d->autoRaise && isEnabled())
        update();
}

// The parent's pixmap shows through a flat button, and has to stay where it is.
void KColorButton::moveEvent(QMoveEvent * event)
{
    if (d->autoRaise && !uses3D() && !d->parentsPixmap().isNull())
        update();
    QAbstractButton::moveEvent(event);
}

void KColorButton::changeEvent(QEvent * event)
{
    if (event->type() == QEvent::PaletteChange)
        paletteChange(std::exchange(d->palette, palette()));
    QAbstractButton::changeEvent(event);
}

void KColorButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawButton(&painter);
}

bool KColorButton::eventFilter(QObject * watched, QEvent * event)
{
    bool const press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press && watched == d->popup) {
        auto const & mouse = *static_cast<QMouseEvent *>(event);
        if (QApplication::widgetAt(mouse.globalPosition().toPoint()) == this) {
            d->discardNextMouseEvent = true;
            d->closingPress = mouse.timestamp();
            if (!d->isRunningMenu) // another button does, or nobody
                forgetClosingPress();
        }
    }
    return QAbstractButton::eventFilter(watched, event);
}

void KColorButton::popupPressed()
{
    if (d->popupTimer && d->popupDelay > 0)
        d->popupTimer->start(d->popupDelay);
}

void KColorButton::openPopup()
{
    if (!d->popup)
        return;
    QPointer<KColorButton> const self(this);
    d->instantPopup = true;
    update();
    popupTimerDone();
    if (!self)
        return;
    d->instantPopup = false;
    update();
}

// A menu that is open already, opened by another button, stays as it is: two event loops of one
// menu would not both come to an end.
void KColorButton::popupTimerDone()
{
    QMenu * const menu = d->popup;
    if ((!isDown() && d->popupDelay > 0) || !menu || menu->isVisible())
        return;
    menu->installEventFilter(this);
    d->savedAutoRepeat = autoRepeat();
    setAutoRepeat(false);

    QPointer<KColorButton> const self(this);
    d->isRunningMenu = true;
    menu->exec(d->globalPopupPosition(), nullptr);
    if (!self)
        return;
    d->isRunningMenu = false;
    setDown(false);
    setAutoRepeat(d->savedAutoRepeat);
    // The mouse may have left while the menu took its events.
    if (d->hovering && !rect().contains(mapFromGlobal(QCursor::pos())))
        setHovering(false);
    if (d->discardNextMouseEvent)
        forgetClosingPress();
}

// A platform sends the press that closed the menu again at once, or never.
void KColorButton::forgetClosingPress()
{
    QTimer::singleShot(0, this, [this] { d->discardNextMouseEvent = false; });
}

QSize KColorButton::textSize(int * ascent) const
{
    if (ascent)
        *ascent = 0;
    if (!d->showText)
        return d->showArrow ? arrowSize : QSize(0, 0);
    QFontMetrics const metrics(QApplication::font(), this);
    if (ascent)
        *ascent = metrics.ascent();
    return metrics.boundingRect(d->text).size() + QSize(2, 0);
}

} // namespace zenu
