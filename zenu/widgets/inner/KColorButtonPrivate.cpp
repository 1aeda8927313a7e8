#include "zenu/widgets/inner/KColorButtonPrivate.h"

#include "zenu/overlay/inner/InnerOutline.h"

#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFocusRect>
#include <QtWidgets/QToolBar>

namespace zenu {

namespace {

constexpr int focusInset = 3;
constexpr int frameInset = 2;

// The arrow's rows, from the top: 7, 5, 3 and 1 pixels, in a picture of 9 x 6.
constexpr int arrowRows = 4;
constexpr int arrowTopRow = 7;

// Black, but on a dark palette, where it could not be seen, the colour of texts.
QColor arrowColor(QPalette const & palette)
{
    QColor const text = palette.color(QPalette::Active, QPalette::Text);
    QColor const button = palette.color(QPalette::Active, QPalette::Button);
    return text.lightness() > button.lightness() ? text : QColor(Qt::black);
}

// Rectangles instead of a pixmap: they are sharp at every device pixel ratio.
void drawArrow(QPainter * painter, QPoint const & pos, QColor const & color)
{
    for (int row = 0; row < arrowRows; ++row)
        painter->fillRect(pos.x() + 1 + row, pos.y() + 1 + row, arrowTopRow - 2 * row, 1, color);
}

void drawSwatch(QPainter * painter, QRect const & rect, QColor const & fill, QColor const & border)
{
    if (rect.isEmpty())
        return;
    QRect const inside = rect.adjusted(1, 1, -1, -1);
    if (!inside.isEmpty())
        painter->fillRect(inside, QBrush(fill));
    drawInnerOutline(painter, rect, border);
}

} // namespace

int KColorButton::PrivateData::arrowPartWidth() const
{
    QStyleOptionToolButton option;
    option.initFrom(owner);
    return owner->style()->pixelMetric(QStyle::PM_MenuButtonIndicator, &option, owner);
}

QRect KColorButton::PrivateData::arrowPart() const
{
    if (!hasArrowPart())
        return QRect();
    QRect part = owner->rect();
    part.setLeft(part.right() + 1 - arrowPartWidth());
    return part;
}

// The texture that the parent widget shows behind its children.
QPixmap KColorButton::PrivateData::parentsPixmap() const
{
    QWidget const * const parent = owner->parentWidget();
    if (!parent || !(parent->isWindow() || parent->autoFillBackground()))
        return QPixmap();
    QBrush const & background = parent->palette().brush(parent->backgroundRole());
    return background.style() == Qt::TexturePattern ? background.texture() : QPixmap();
}

QPoint KColorButton::PrivateData::globalPopupPosition() const
{
    auto const * const bar = qobject_cast<QToolBar *>(owner->parentWidget());
    PopupSide side;
    side.vertical = bar && bar->orientation() == Qt::Vertical;
    side.reversed = owner->isRightToLeft();
    QRect const button(owner->mapToGlobal(QPoint(0, 0)), owner->size());
    return popupPosition(button, popup->sizeHint(), owner->screen()->availableGeometry(), side);
}

ColorButtonContent KColorButton::PrivateData::content() const
{
    ColorButtonContent content;
    content.showsSwatch = showColor;
    content.showsLabel = showText || showArrow;
    content.label = owner->textSize(nullptr);
    content.margin = margin;
    content.spacing = spacing;
    content.minSwatch = minColorSize;
    content.maxSwatch = maxColorSize;
    return content;
}

QStyleOptionToolButton KColorButton::PrivateData::styleOption() const
{
    QStyleOptionToolButton option;
    option.initFrom(owner);
    option.state &= ~QStyle::State_MouseOver;
    option.subControls = QStyle::SC_ToolButton;
    option.toolButtonStyle = Qt::ToolButtonIconOnly;
    if (hasArrowPart()) {
        option.subControls |= QStyle::SC_ToolButtonMenu;
        option.features = QStyleOptionToolButton::MenuButtonPopup | QStyleOptionToolButton::HasMenu;
    }
    bool const flat = autoRaise && !owner->uses3D();
    if (autoRaise)
        option.state |= QStyle::State_AutoRaise;
    if (autoRaise && !flat)
        option.state |= QStyle::State_MouseOver;
    if (owner->isDown())
        option.state |= QStyle::State_Sunken;
    if (owner->isChecked())
        option.state |= QStyle::State_On;
    if (!flat && !owner->isDown() && !owner->isChecked())
        option.state |= QStyle::State_Raised;
    return option;
}

// The button and, if there is one, its arrow part, as the style draws those of a tool button.
void KColorButton::PrivateData::drawParts(QPainter * painter) const
{
    constexpr QStyle::State shown = QStyle::State_Sunken | QStyle::State_On | QStyle::State_Raised;
    QStyle const & style = *owner->style();
    QStyleOptionToolButton const option = styleOption();

    QStyleOptionToolButton button = option;
    if (hasArrowPart())
        button.rect.setRight(arrowPart().left() - 1);
    if (button.state & shown)
        style.drawPrimitive(QStyle::PE_PanelButtonTool, &button, painter, owner);
    else if (QPixmap const pixmap = parentsPixmap(); !pixmap.isNull())
        painter->drawTiledPixmap(owner->rect(), pixmap, owner->pos());

    if (hasArrowPart()) {
        QStyleOptionToolButton arrow = option;
        arrow.rect = arrowPart();
        if (instantPopup)
            arrow.state |= QStyle::State_Sunken;
        if (arrow.state & shown)
            style.drawPrimitive(QStyle::PE_IndicatorButtonDropDown, &arrow, painter, owner);
        style.drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, owner);
    }

    if (owner->hasFocus() && !owner->focusProxy()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(owner);
        focus.rect.adjust(focusInset, focusInset, -focusInset, -focusInset);
        focus.backgroundColor = owner->palette().color(owner->backgroundRole());
        style.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, owner);
    }
}

void KColorButton::PrivateData::drawContent(QPainter * painter) const
{
    ColorButtonPlaces const places = placesIn(owner->size(), content());
    if (showColor)
        drawSwatch(painter, places.swatch, fillColor, borderColor);
    drawLabel(painter, places.label);
    if (frame) {
        drawInnerOutline(painter,
                         owner->rect().adjusted(frameInset, frameInset, -frameInset, -frameInset),
                         borderColor);
    }
}

void KColorButton::PrivateData::drawLabel(QPainter * painter, QRect const & place) const
{
    if (showText) {
        auto const group = owner->isEnabled() ? QPalette::Normal : QPalette::Disabled;
        painter->save();
        painter->setPen(owner->palette().color(group, QPalette::Text));
        painter->drawText(place, Qt::AlignCenter, text);
        painter->restore();
    } else if (showArrow) {
        drawArrow(painter, place.topLeft(), arrowColor(owner->palette()));
    }
}

} // namespace zenu
