#include "zenu/widgets/KPixmapSet.h"

#include <QBitmap>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QString>

namespace zenu {

namespace {

constexpr int opaqueEnough = 128;

// Black or white for each pixel that shows, nothing for the others.
QImage blackAndWhite(QImage const & image)
{
    QImage result = image.convertToFormat(QImage::Format_Mono, Qt::MonoOnly)
                        .convertToFormat(QImage::Format_ARGB32);
    QImage const original = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto * const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        auto const * const from = reinterpret_cast<QRgb const *>(original.constScanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            if (qAlpha(from[x]) < opaqueEnough) {
                line[x] = 0;
            }
        }
    }
    return result;
}

} // namespace

KPixmapSet::KPixmapSet(QPixmap const & strip, QSize const & imageSize, int count, bool useMask)
    : m_count(count)
    , m_imageSize(imageSize)
    , m_pixmap(strip)
    , m_valid(fits())
{
    if (useMask && !m_pixmap.isNull()) {
        m_pixmap.setMask(m_pixmap.createHeuristicMask(true));
    }
}

KPixmapSet::KPixmapSet(KPixmapSet const & other)
    : m_count(other.m_count)
    , m_imageSize(other.m_imageSize)
    , m_pixmap(other.m_pixmap)
    , m_bkColor(other.m_bkColor)
    , m_valid(fits())
{
}

KPixmapSet & KPixmapSet::operator=(KPixmapSet const & other) = default;

KPixmapSet::~KPixmapSet() = default;

bool KPixmapSet::drawImage(QPainter * painter, int index, int x, int y, int w, int h) const
{
    if (index < 0 || index >= m_count || painter == nullptr) {
        return false;
    }
    int const width = w < 0 ? m_imageSize.width() : w;
    int const height = h < 0 ? m_imageSize.height() : h;
    if (width > 0 && height > 0) {
        painter->drawPixmap(QRectF(x, y, width, height), m_pixmap,
                            sourceRect(index, width, height));
    }
    return true;
}

bool KPixmapSet::drawImageMonoChrome(QPainter * painter, int index, int x, int y, int w,
                                     int h) const
{
    if (index < 0 || index >= m_count || painter == nullptr) {
        return false;
    }
    int const width = w < 0 ? m_imageSize.width() : w;
    int const height = h < 0 ? m_imageSize.height() : h;
    QRectF const strip(m_pixmap.rect());
    QRect const source = (sourceRect(index, width, height) & strip).toRect();
    if (width > 0 && height > 0 && !source.isEmpty()) {
        QImage image = blackAndWhite(m_pixmap.toImage().copy(source));
        image.setDevicePixelRatio(m_pixmap.devicePixelRatio());
        painter->drawImage(QPoint(x, y), image);
    }
    return true;
}

// Whether all images lie inside the strip. Half a pixel of the strip is rounding, not a lack.
bool KPixmapSet::fits() const
{
    double const needed = static_cast<double>(m_imageSize.width()) * m_count;
    return m_imageSize.width() > 0 && m_imageSize.height() > 0 &&
           needed * m_pixmap.devicePixelRatio() <= m_pixmap.width() + 0.5;
}

// A part of an image, in pixels of the strip.
QRectF KPixmapSet::sourceRect(int index, int w, int h) const
{
    double const ratio = m_pixmap.devicePixelRatio();
    return QRectF(static_cast<double>(m_imageSize.width()) * index * ratio, 0, w * ratio,
                  h * ratio);
}

QPixmap const retrieveOrCreateXpm(char const * key, char const ** xpm)
{
    QString const name = QString::fromLatin1(key);
    QPixmap pixmap;
    if (key != nullptr && QPixmapCache::find(name, &pixmap)) {
        return pixmap;
    }
    if (xpm != nullptr) {
        pixmap = QPixmap(xpm);
    }
    if (key != nullptr && !pixmap.isNull()) {
        QPixmapCache::insert(name, pixmap);
    }
    return pixmap;
}

QColor getDefaultColor()
{
    static QColor const color(0, 0, 127);
    return color;
}

} // namespace zenu
