#include "zenu/header/inner/HeaderPainting.h"

#include "zenu/header/IHeaderNotification.h"
#include "zenu/header/inner/KHeaderPrivate.h"
#include "zenu/overlay/KPainter.h"
#include "zenu/widgets/KPixmapSet.h"

#include <QPaintEngine>
#include <QPaintEvent>

#include <algorithm>

namespace zenu {

namespace {

// Numbers of KPainter::getSysColor.
constexpr int faceColor = 1;
constexpr int hotTextColor = 6;
constexpr int hotPressedTextColor = 8;
constexpr int darkColor = 11;
constexpr int lightColor = 13;

/// Room between an item's image and its text.
constexpr int imageGap = 5;

/// Draws the left top part of a pixmap, `size` large and beginning at the logical x `sourceX`,
/// unscaled.
void drawPart(QPainter & painter, QPoint const & at, QPixmap const & pixmap, qreal sourceX,
              QSizeF const & size)
{
    qreal const ratio = pixmap.devicePixelRatio();
    painter.drawPixmap(QRectF(at, size), pixmap,
                       QRectF(sourceX * ratio, 0, size.width() * ratio, size.height() * ratio));
}

} // namespace

// --- One item

HeaderItemPainting::HeaderItemPainting(KHeaderItem const & item, KHeader const & header,
                                       KPainter & painter, int index, QRect & rect, bool pressed)
    : m_item(item)
    , m_header(header)
    , m_painter(painter)
    , m_index(index)
    , m_rect(rect)
    , m_pressed(pressed)
    , m_hot(header.isHotTrack() && header.getItemOver() == index)
{
}

void HeaderItemPainting::paint()
{
    if (has(HeaderFormatOwnerDraw) && m_header.getNotification()) {
        m_header.getNotification()->onDrawItem(&m_painter, m_index, &m_rect, m_pressed,
                                               m_item.m_lParam);
        return;
    }
    if (m_header.isButtons()) {
        paintButton();
    } else {
        paintPlain();
    }
    if (m_rect.left() >= m_rect.right()) {
        return;
    }
    if (has(HeaderFormatBitmap) && m_item.m_pixmap) {
        paintPixmap(pixmap());
    } else if (has(HeaderFormatText)) {
        paintText();
    }
}

void HeaderItemPainting::paintButton()
{
    int state = 0;
    state |= m_pressed ? ItemButtonPressed : 0;
    state |= has(HeaderFormatBitmap) ? ItemButtonNoMargin : 0;
    state |= m_hot ? ItemButtonHot : 0;
    state |= m_header.isFlatView() ? ItemButtonFlat : 0;
    state |= m_header.isVert() ? ItemButtonVertical : 0;
    m_painter.drawItemButton(&m_rect, state);
}

void HeaderItemPainting::paintPlain()
{
    int const left = m_rect.left();
    int const top = m_rect.top();
    int const right = m_rect.right();
    int const bottom = m_rect.bottom();
    QColor const light = KPainter::getSysColor(lightColor);
    QColor const dark = KPainter::getSysColor(darkColor);
    m_painter.fastRectangle(left, top, right - left, bottom - top,
                            m_hot ? KPainter::getSysColor_Light(true)
                                  : KPainter::getSysColor(faceColor));
    m_painter.fastRectangle(left, bottom - 1, right - left, 1, light);
    m_painter.fastRectangle(left, bottom - 2, right - left - 1, 1, dark);
    m_painter.fastRectangle(right - 1, top, 1, bottom - top - 1, dark);
    if (m_index > 0) {
        m_painter.fastRectangle(left, top, 1, bottom - top, light);
    }
    inflateRect(&m_rect, has(HeaderFormatBitmap) ? -1 : -3, -1);
}

QPixmap const & HeaderItemPainting::pixmap() const
{
    QPixmap const * const hot = m_pressed ? m_item.m_hotPressedPixmap : m_item.m_hotPixmap;
    return m_hot && hot ? *hot : *m_item.m_pixmap;
}

void HeaderItemPainting::paintPixmap(QPixmap const & pixmap)
{
    QSizeF const whole = pixmap.deviceIndependentSize();
    int const w = std::min(static_cast<int>(whole.width()), width());
    int const h = std::min(static_cast<int>(whole.height()), height());
    if (w <= 0 || h <= 0) {
        return;
    }
    int x = m_rect.left();
    if (m_item.m_justify == HeaderJustifyRight) {
        x = m_rect.right() - w - 1;
    } else if (m_item.m_justify == HeaderJustifyCenter) {
        x = (m_rect.left() + m_rect.right() - w) / 2;
    }
    int const y = (m_rect.top() + m_rect.bottom() - h) / 2;
    drawPart(m_painter, QPoint(x, y), pixmap, 0, QSizeF(w, h));
}

QPixmap const & HeaderItemPainting::arrows() const
{
    QPixmap const & hot = m_header.getSortHotPixmap();
    return m_hot && !hot.isNull() ? hot : m_header.getSortPixmap();
}

QColor HeaderItemPainting::textColor() const
{
    if (!m_hot) {
        return m_header.getTextColor();
    }
    return KPainter::getSysColor(m_pressed ? hotPressedTextColor : hotTextColor);
}

void HeaderItemPainting::paintText()
{
    KPixmapSet const * const images = m_item.m_image != -1 ? m_header.getPixmapSet() : nullptr;
    int const imageWidth = images ? images->getImageSize().width() : -1;
    HeaderTextFit const & text =
        fit(m_item, m_painter, width() - (images ? imageGap + imageWidth : 0));
    HeaderTextPlace const place =
        HeaderLayout::placeText(m_rect, m_item.m_justify, imageWidth, text.textWidth);
    if (images) {
        paintImage(place.imageX);
    }
    m_rect.setLeft(place.textLeft);
    m_painter.setPen(textColor());
    QPixmap const & arrows = this->arrows();
    int const arrowWidth = static_cast<int>(arrows.deviceIndependentSize().width()) / 2;
    bool const sorted = has(HeaderFormatSortMask) && m_header.isButtons();
    QRect textRect = m_rect;
    if (sorted && m_item.m_justify == HeaderJustifyCenter &&
        HeaderLayout::arrowFitsCentered(m_rect, text.textWidth, arrowWidth)) {
        textRect.setRight(textRect.right() - HeaderLayout::arrowMargin(arrowWidth));
    }
    // The places are computed from the left, whatever the direction of the layout.
    int const flags = static_cast<int>(place.alignment | Qt::AlignAbsolute) | Qt::TextSingleLine;
    m_painter.drawText(textRect, flags, text.shown);
    if (sorted) {
        paintArrow(arrows, arrowWidth, text.textWidth);
    }
}

void HeaderItemPainting::paintImage(int x)
{
    KPixmapSet * const images = m_header.getPixmapSet();
    int const h = std::min(images->getImageSize().height(), height());
    if (h > 0) {
        images->drawImage(&m_painter, m_item.m_image, x, m_rect.top() + (height() - h) / 2, -1, h);
    }
}

void HeaderItemPainting::paintArrow(QPixmap const & arrows, int arrowWidth, int textWidth)
{
    std::optional<int> const x =
        HeaderLayout::arrowX(m_rect, m_item.m_justify, textWidth, arrowWidth);
    if (!x) {
        return;
    }
    int const arrowHeight = static_cast<int>(arrows.deviceIndependentSize().height());
    int const y = m_rect.top() + (height() - arrowHeight) / 2 + (m_pressed ? 1 : 0);
    drawPart(m_painter, QPoint(*x, y), arrows, has(HeaderFormatSortFirst) ? 0 : arrowWidth,
             QSizeF(arrowWidth, arrowHeight));
}

HeaderTextFit const & HeaderItemPainting::fit(KHeaderItem const & item, KPainter & painter,
                                              int width)
{
    QPaintDevice const * const device = painter.device();
    QSize const dpi(device->logicalDpiX(), device->logicalDpiY());
    std::shared_ptr<HeaderTextFit const> & known = item.m_fit;
    if (known && known->availableWidth == width && known->dotsPerInch == dpi &&
        known->pixelRatio == device->devicePixelRatio() && known->font == painter.font()) {
        return *known;
    }
    QFontMetrics const metrics = painter.fontMetrics();
    auto const measure = [&metrics](QString const & text) {
        QRect const bounds = metrics.boundingRect(text);
        return bounds.right() - bounds.left();
    };
    QString const shown =
        HeaderLayout::displayText(chars2qstring(item.m_text.c_str()), width, measure);
    QRect const bounds =
        painter.boundingRect(QRect(), Qt::AlignVCenter | Qt::TextSingleLine, shown);
    known = std::make_shared<HeaderTextFit const>(
        HeaderTextFit{painter.font(), device->devicePixelRatio(), dpi, width, shown,
                      bounds.right() - bounds.left()});
    return *known;
}

QString KHeaderItem::getDisplayText(KPainter * painter, int width) const
{
    return HeaderItemPainting::fit(*this, *painter, width).shown;
}

void KHeaderItem::drawItem(KHeader * header, KPainter * painter, int index, QRect * rect,
                           bool pressed) const
{
    HeaderItemPainting(*this, *header, *painter, index, *rect, pressed).paint();
}

// --- The whole header

void KHeader::paintEvent(QPaintEvent * event)
{
    KPainter painter(this);
    painter.save();
    painter.setBackgroundMode(Qt::TransparentMode);
    painter.setFont(d->font);
    paintEdges(painter);
    paintItems(painter, event->rect());
    paintSpace(painter);
    paintEdges(painter);
    painter.restore();
    // The line of a divider drag was inverted on what has just been painted over.
    if (!d->dragLines.isEmpty() && painter.paintEngine()->hasFeature(QPaintEngine::RasterOpModes)) {
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        fillRegion(&painter, d->dragLines & event->region(), Qt::white);
    }
}

void KHeader::paintEdges(KPainter & painter) const
{
    if (!d->flatView) {
        return;
    }
    QRect const all = rect();
    QColor const light = KPainter::getSysColor(lightColor);
    QColor const dark = KPainter::getSysColor(darkColor);
    int const width = all.right() - all.left();
    int const height = all.bottom() - all.top();
    if (d->vert) {
        painter.fastRectangle(all.left(), all.top(), 1, height, light);
        painter.fastRectangle(all.right() - 1, all.top(), 1, height, dark);
    } else {
        painter.fastRectangle(all.left() + 1, all.top(), width, 1, light);
        painter.fastRectangle(all.left(), all.bottom() - 1, width, 1, dark);
    }
}

void KHeader::paintItems(KPainter & painter, QRect const & exposed)
{
    // By index: the notification of an owner drawn item may change the items.
    for (int index = 0; index < d->items.count(); ++index) {
        QRect itemRect = getItemRect(index);
        if (!itemRect.isValid() || !itemRect.intersects(exposed)) {
            continue;
        }
        painter.save();
        d->items[index].drawItem(this, &painter, index, &itemRect,
                                 d->pressed && index == d->pressedItem);
        painter.restore();
    }
}

void KHeader::paintSpace(KPainter & painter) const
{
    QRect space = HeaderLayout::spaceAfter(d->geometry(*this));
    int const width = space.right() - space.left();
    if (width <= 0) {
        return;
    }
    if (d->buttons) {
        painter.drawItemButton(&space, (d->flatView ? ItemButtonFlat : 0) |
                                           (d->vert ? ItemButtonVertical : 0));
        return;
    }
    int const left = space.left();
    int const top = space.top();
    int const bottom = space.bottom();
    int const height = bottom - top;
    QColor const light = KPainter::getSysColor(lightColor);
    QColor const dark = KPainter::getSysColor(darkColor);
    painter.fastRectangle(left, top, width, height, KPainter::getSysColor(faceColor));
    painter.fastRectangle(left, top, 1, height, light);
    // Higher than a line: it also covers the row below, which the fill leaves out.
    painter.fastRectangle(left + 1, bottom - 1, width - 1, bottom - 1, light);
    painter.fastRectangle(left + 1, bottom - 2, width - 1, 1, dark);
    painter.fastRectangle(space.right() - 1, top, 1, height - 2, dark);
}

} // namespace zenu
