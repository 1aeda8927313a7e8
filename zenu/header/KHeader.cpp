#include "zenu/header/KHeader.h"

#include "zenu/header/IHeaderNotification.h"
#include "zenu/header/inner/KHeaderPrivate.h"
#include "zenu/overlay/KPainter.h"

#include <QEvent>
#include <QFontMetrics>

#include <algorithm>
#include <utility>

namespace zenu {

namespace {

// "#" is the shade, "a" the light of a raised triangle.
char const * const sortArrows[] = {"16 8 3 1",         "# c #808080",      ". c None",
                                   "a c #ffffff",      "...#a...########", "..##aa..##....aa",
                                   "..#..a...#....a.", ".##..aa..##..aa.", ".#....a...#..a..",
                                   "##....aa..##aa..", "#aaaaaaa...#a...", "................"};

constexpr int textSysColor = 4;

std::string orEmpty(char const * text)
{
    return text ? std::string(text) : std::string();
}

} // namespace

QCursor * KHeader::m_hcrNoDragOver = nullptr;
QCursor * KHeader::m_hcrVertSplit = nullptr;

KHeader::PrivateData::PrivateData(KHeader * owner)
    : font(owner->QWidget::font())
    , sortPixmap(sortArrows)
    , items(owner)
{
}

HeaderGeometry KHeader::PrivateData::geometry(KHeader const & header) const
{
    return {items, header.rect(), vert, flatView};
}

KHeader::KHeader(QWidget * parent)
    : QWidget(parent)
    , d(std::make_unique<PrivateData>(this))
{
    setMouseTracking(true);
    // Items leave the last row and column of pixels to the background.
    setAutoFillBackground(true);
}

KHeader::~KHeader()
{
    setResizeCursor(false);
}

// --- Items

bool KHeader::insertItem(int index, KHeaderItem const & item)
{
    d->items.insert(index, item);
    HeaderLayout::forgetPercents(d->items);
    postItemsChange();
    update(false);
    return true;
}

bool KHeader::deleteItem(int index)
{
    if (!d->items.remove(index)) {
        return false;
    }
    HeaderLayout::forgetPercents(d->items);
    postItemsChange();
    update(false);
    return true;
}

void KHeader::deleteAllItems()
{
    d->items.clear();
    update(false);
}

KHeaderItem const * KHeader::getItem(int index) const
{
    return checkItemInternal(index) ? &d->items[index] : nullptr;
}

int KHeader::getItemsCount() const
{
    return d->items.count();
}

void KHeader::updateItem(KHeaderItem const & item, bool widthChanged)
{
    if (widthChanged) {
        HeaderLayout::forgetPercents(d->items);
    } else {
        invalidateItem(item);
    }
    postItemsChange();
}

bool KHeader::checkItemInternal(int index) const
{
    return d->items.contains(index);
}

void KHeader::changed(int index)
{
    updateItem(d->items[index], false);
}

template <typename Value>
void KHeader::setField(int index, Value KHeaderItem::*field, Value value)
{
    if (!checkItemInternal(index) || d->items[index].*field == value) {
        return;
    }
    d->items.edit(index).*field = value;
    changed(index);
}

void KHeader::setWH(int index, int wh)
{
    if (!checkItemInternal(index) || d->items[index].m_wh == wh) {
        return;
    }
    d->items.setWH(index, std::max(wh, d->items[index].m_minWH));
    updateItem(d->items[index], true);
}

void KHeader::setMinWH(int index, int minWH)
{
    if (!checkItemInternal(index) || d->items[index].m_minWH == minWH) {
        return;
    }
    d->items.edit(index).m_minWH = minWH;
    bool const raised = d->items[index].m_wh < minWH;
    if (raised) {
        d->items.setWH(index, minWH);
    }
    updateItem(d->items[index], raised);
}

void KHeader::setText(int index, std::string const & text)
{
    if (!checkItemInternal(index) || d->items[index].m_text == text) {
        return;
    }
    KHeaderItem & item = d->items.edit(index);
    item.m_text = text;
    item.m_fit.reset();
    changed(index);
}

void KHeader::setText(int index, char const * text)
{
    setText(index, orEmpty(text));
}

void KHeader::setFormat(int index, int fmt)
{
    if (!checkItemInternal(index) || d->items[index].m_fmt == fmt) {
        return;
    }
    KHeaderItem & item = d->items.edit(index);
    if (((item.m_fmt ^ fmt) & HeaderFormatFixed) != 0) {
        HeaderLayout::forgetPercents(d->items);
    }
    item.m_fmt = fmt;
    changed(index);
}

void KHeader::setSortBitmap(int index, EHeaderSortBitmap sortBitmap)
{
    if (!checkItemInternal(index)) {
        return;
    }
    int fmt = d->items[index].m_fmt & ~HeaderFormatSortMask;
    if (sortBitmap == HeaderSortFirst) {
        fmt |= HeaderFormatSortFirst;
    } else if (sortBitmap == HeaderSortSecond) {
        fmt |= HeaderFormatSortSecond;
    }
    setFormat(index, fmt);
}

void KHeader::setLParam(int index, unsigned int lParam)
{
    setField(index, &KHeaderItem::m_lParam, lParam);
}

void KHeader::setImage(int index, int image)
{
    setField(index, &KHeaderItem::m_image, image);
}

void KHeader::setPixmap(int index, QPixmap * pixmap)
{
    setField(index, &KHeaderItem::m_pixmap, pixmap);
}

void KHeader::setOrder(int index, int order)
{
    setField(index, &KHeaderItem::m_order, order);
}

void KHeader::setSizePercent(int index, double percent)
{
    if (checkItemInternal(index)) {
        d->items.edit(index).m_sizePercent = percent;
        d->items.edit(index).m_percentKnown = true;
    }
}

void KHeader::setJustify(int index, EHeaderJustify justify)
{
    if (checkItemInternal(index)) {
        d->items.edit(index).m_justify = justify;
    }
}

void KHeader::setToolTipText(int index, std::string const & text)
{
    if (checkItemInternal(index)) {
        d->items.edit(index).m_toolTipText = text;
    }
}

void KHeader::setToolTipText(int index, char const * text)
{
    setToolTipText(index, orEmpty(text));
}

// --- Geometry and look

QRect KHeader::getItemRect(int index) const
{
    return checkItemInternal(index) ? getItemRect(d->items[index]) : QRect();
}

QRect KHeader::getItemRect(KHeaderItem const & item) const
{
    return HeaderLayout::itemRect(d->geometry(*this), item);
}

QRect KHeader::getLayout(QRect const & rect) const
{
    QRect layout = rect;
    int const fontHeight = QFontMetrics(d->font.resolve(QWidget::font()), this).height();
    layout.setBottom(rect.top() + (d->hidden ? 0 : fontHeight * 3 / 2));
    return layout;
}

void KHeader::applyGeometry(QRect const & rect)
{
    setGeometry(rect);
    if (size() != d->lastSize) {
        applySize(size());
    }
}

KHeaderHitInfo KHeader::hitTest(QPoint const & point) const
{
    return HeaderLayout::hitTest(d->geometry(*this), point);
}

void KHeader::invalidateItem(int index)
{
    if (checkItemInternal(index)) {
        invalidateItem(d->items[index]);
    }
}

void KHeader::invalidateItem(KHeaderItem const & item)
{
    update(getItemRect(item), false);
}

void KHeader::update(bool)
{
    QWidget::update();
}

void KHeader::update(QRect const & rect, bool)
{
    QWidget::update(rect);
}

void KHeader::setFont(QFont const & font, bool repaint)
{
    QWidget::setFont(font);
    d->font = font;
    if (repaint) {
        update(false);
    }
}

QFont const & KHeader::getfont() const
{
    return d->font;
}

QColor KHeader::setTextColor(QColor const & color)
{
    QColor const old = getTextColor();
    d->textColor = color;
    if (old != color) {
        update(false);
    }
    return old;
}

QColor KHeader::getTextColor() const
{
    return d->textColor.value_or(KPainter::getSysColor(textSysColor));
}

KPixmapSet * KHeader::setPixmapSet(KPixmapSet * pixmapSet)
{
    KPixmapSet * const old = std::exchange(d->pixmapSet, pixmapSet);
    update(false);
    return old;
}

KPixmapSet * KHeader::getPixmapSet() const
{
    return d->pixmapSet;
}

QPixmap const & KHeader::getSortPixmap() const
{
    return d->sortPixmap;
}

QPixmap const & KHeader::getSortHotPixmap() const
{
    return d->sortHotPixmap;
}

int KHeader::getItemOver() const
{
    return d->itemOver;
}

IHeaderNotification * KHeader::getNotification() const
{
    return d->notification;
}

void KHeader::setNotification(IHeaderNotification * notification)
{
    d->notification = notification;
}

void KHeader::changeEvent(QEvent * event)
{
    if (event->type() == QEvent::FontChange) {
        d->font = QWidget::font();
    }
    QWidget::changeEvent(event);
}

bool KHeader::event(QEvent * event)
{
    // The colours are those of the application's palette, not of the widget's.
    if (event->type() == QEvent::ApplicationPaletteChange) {
        update(false);
    }
    return QWidget::event(event);
}

} // namespace zenu
