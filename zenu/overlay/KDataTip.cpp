#include "zenu/overlay/KDataTip.h"

#include "zenu/overlay/Geometry.h"
#include "zenu/overlay/KPainter.h"
#include "zenu/overlay/NarrowText.h"
#include "zenu/widgets/KPixmapSet.h"

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QString>

namespace zenu {

namespace {

constexpr int textMargin = 4;        // around the text, on all sides
constexpr int listMargin = 9;        // of the strip around an image, after setImageList
constexpr int pictureMargin = 4;     // the same after setPicture
constexpr int defaultTimeout = 3000; // milliseconds

} // namespace

struct KDataTip::PrivateData
{
    QSize tipSize() const;
    void fill(KPainter & painter, QRect const & area) const;
    void drawPicture(KPainter & painter, QRect const & area) const;
    void drawText(KPainter & painter, QRect area) const;
    void drawFrame(KPainter & painter, QRect const & area) const;

    QColor textColor{128, 0, 0};
    QColor bkColor{255, 255, 255};
    QColor marginColor{255, 211, 76};
    QColor borderColor{128, 128, 128};
    int marginWidth = 0;
    int picture = -1;
    int imageWidth = 0;
    int imageHeight = 0;
    KPixmapSet * imageList = nullptr;
    QString text;
    QFont font = QApplication::font();
    bool keyEventHide : 1 = false;
    bool timeoutHide : 1 = false;
    bool pictureFlag : 1 = false;
    bool autoWrap : 1 = false;
    int timeout = defaultTimeout;
};

QSize KDataTip::PrivateData::tipSize() const
{
    QSize size = QFontMetrics(font).size(0, text);
    size.setHeight(qMax(size.height(), imageHeight));
    return size + QSize(marginWidth + 2 * textMargin, 2 * textMargin);
}

// The strip has one column more than the text area leaves it: the second fill takes it back.
void KDataTip::PrivateData::fill(KPainter & painter, QRect const & area) const
{
    painter.fastRectangle2(0, 0, marginWidth, area.bottom(), marginColor);
    painter.fastRectangle2(marginWidth, 0, area.right(), area.bottom(), bkColor);
}

void KDataTip::PrivateData::drawPicture(KPainter & painter, QRect const & area) const
{
    if (imageList && picture >= 0) {
        imageList->drawImage(&painter, picture, (marginWidth - imageWidth) / 2,
                             (area.bottom() - imageHeight) / 2, imageWidth, imageHeight);
    }
}

// The area of the text ends 4 pixels below the tip, not above its frame: a text that is higher than
// its font says is cut by the frame alone.
void KDataTip::PrivateData::drawText(KPainter & painter, QRect area) const
{
    area.adjust(marginWidth + textMargin, textMargin, -textMargin, textMargin);
    painter.setPen(textColor);
    painter.setBackgroundMode(Qt::TransparentMode);
    painter.setFont(font);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignTop, text);
}

// Four filled lines inside of the tip: the outline of a pen would lie half outside of the buffer
// where a logical pixel is several device pixels.
void KDataTip::PrivateData::drawFrame(KPainter & painter, QRect const & area) const
{
    painter.fastRectangle2(0, 0, area.right(), 0, borderColor);
    painter.fastRectangle2(0, area.bottom(), area.right(), area.bottom(), borderColor);
    painter.fastRectangle2(0, 0, 0, area.bottom(), borderColor);
    painter.fastRectangle2(area.right(), 0, area.right(), area.bottom(), borderColor);
}

KDataTip::KDataTip(KSpriteLayer * layer)
    : KSprite(layer)
    , m_data(new PrivateData)
{
}

KDataTip::~KDataTip() = default;

void KDataTip::setBkColor(QColor const & color)
{
    m_data->bkColor = color;
}

QColor const & KDataTip::getBkColor() const
{
    return m_data->bkColor;
}

void KDataTip::setTextColor(QColor const & color)
{
    m_data->textColor = color;
}

QColor const & KDataTip::getTextColor() const
{
    return m_data->textColor;
}

void KDataTip::setMarginColor(QColor const & color)
{
    m_data->marginColor = color;
}

QColor const & KDataTip::getMarginColor() const
{
    return m_data->marginColor;
}

void KDataTip::setBorderColor(QColor const & color)
{
    m_data->borderColor = color;
}

QColor const & KDataTip::getBorderColor() const
{
    return m_data->borderColor;
}

void KDataTip::setImageList(KPixmapSet * images)
{
    m_data->imageList = images;
    if (images) {
        m_data->imageWidth = images->getImageSize().width();
        m_data->imageHeight = images->getImageSize().height();
        m_data->marginWidth = m_data->imageWidth + listMargin;
    }
}

KPixmapSet * KDataTip::getImageList()
{
    return m_data->imageList;
}

void KDataTip::setPicture(int index)
{
    m_data->picture = index;
    m_data->marginWidth = index < 0 ? 0 : m_data->imageWidth + pictureMargin;
}

void KDataTip::setPicture(bool picture)
{
    m_data->pictureFlag = picture;
}

bool KDataTip::isPicture() const
{
    return m_data->pictureFlag;
}

void KDataTip::setTimeout(int milliseconds)
{
    m_data->timeout = milliseconds;
}

int KDataTip::getTimeout()
{
    return m_data->timeout;
}

void KDataTip::setTimeoutHide(bool hide)
{
    m_data->timeoutHide = hide;
}

bool KDataTip::isTimeoutHide() const
{
    return m_data->timeoutHide;
}

void KDataTip::setKeyEventHide(bool hide)
{
    m_data->keyEventHide = hide;
}

bool KDataTip::isKeyEventHide() const
{
    return m_data->keyEventHide;
}

void KDataTip::setAutoWrap(bool wrap)
{
    m_data->autoWrap = wrap;
}

bool KDataTip::isAutoWrap() const
{
    return m_data->autoWrap;
}

void KDataTip::setText(char const * text)
{
    m_data->text = chars2qstring(text);
    changeContents(m_data->tipSize());
}

char const * KDataTip::getText() const
{
    return qstring2chars(m_data->text);
}

void KDataTip::drawInBuffer(QPixmap * buffer, QPixmap const *)
{
    if (!buffer || buffer->isNull()) {
        return;
    }
    KPainter painter(buffer);
    QRect const area(QPoint(0, 0), m_data->tipSize());
    m_data->fill(painter, area);
    m_data->drawPicture(painter, area);
    m_data->drawText(painter, area);
    m_data->drawFrame(painter, area);
}

} // namespace zenu
