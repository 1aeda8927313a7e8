#include "zenu/overlay/sprites/SpriteContents.h"

#include "zenu/overlay/sprites/SpriteBuffer.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zenu {

namespace {

bool isOpaqueIn(QImage const & image, QSize size)
{
    if (image.width() < size.width() || image.height() < size.height())
        return false;
    if (!image.hasAlphaChannel())
        return true;
    if (image.depth() != 32)
        return false;
    for (int y = 0; y < size.height(); ++y) {
        auto const * const line = reinterpret_cast<QRgb const *>(image.constScanLine(y));
        if (!std::all_of(line, line + size.width(), [](QRgb p) { return qAlpha(p) == 255; }))
            return false;
    }
    return true;
}

} // namespace

QPixmap * SpriteContents::beginDrawing(QSize size, qreal ratio)
{
    ensureSize(size, ratio);
    m_pixels = QImage(); // shares the pixmap's memory
    m_rows = PixelRows();
    m_opaque = false;
    return &m_buffer;
}

void SpriteContents::endDrawing(QSize size)
{
    m_pixels = m_buffer.toImage();
    if (m_pixels.devicePixelRatio() != 1)
        m_pixels.setDevicePixelRatio(1);
    if (m_pixels.hasAlphaChannel() && m_pixels.format() != QImage::Format_ARGB32_Premultiplied)
        m_pixels.convertTo(QImage::Format_ARGB32_Premultiplied);
    extendEdges(m_pixels, size, m_ratio);
    m_opaque = isOpaqueIn(m_pixels, deviceSizeOf(size, m_ratio));
    m_rows = PixelRows::readOnly(m_pixels);
}

void SpriteContents::ensureSize(QSize wanted, qreal ratio)
{
    QSize const size = bufferSizeFor(wanted, m_size);
    QSize const deviceSize = deviceSizeOf(size, ratio);
    // A sprite may have put another pixmap in its place.
    if (size == m_size && ratio == m_ratio && m_buffer.size() == deviceSize)
        return;
    m_buffer = QPixmap(deviceSize);
    m_buffer.setDevicePixelRatio(ratio);
    m_buffer.fill(Qt::transparent);
    m_size = size;
    m_ratio = ratio;
}

// Opaque pixels are the same in both formats of 32 bits, so they can stay in the pixmap's memory.
void SpriteContents::setFormat(QImage::Format format)
{
    if (!m_opaque || m_rows.format == format)
        return;
    bool const same =
        format == QImage::Format_RGB32 && m_pixels.format() == QImage::Format_ARGB32_Premultiplied;
    if (!same)
        m_pixels.convertTo(format);
    m_rows = PixelRows::readOnly(m_pixels);
    m_rows.format = format;
}

void extendEdges(QImage & image, QSize size, qreal ratio)
{
    if (image.depth() % 8 != 0)
        return;
    auto const depth = static_cast<size_t>(image.depth() / 8);
    QSize const whole = deviceSizeOf(size, ratio).boundedTo(image.size());
    int const filledWidth = qRound(size.width() * ratio);
    int const filledHeight = qRound(size.height() * ratio);
    if (filledWidth > 0 && filledWidth < whole.width()) {
        for (int y = 0; y < whole.height(); ++y) {
            uchar * const last = image.scanLine(y) + static_cast<size_t>(filledWidth - 1) * depth;
            std::memcpy(last + depth, last, depth);
        }
    }
    if (filledHeight > 0 && filledHeight < whole.height()) {
        std::memcpy(image.scanLine(filledHeight), image.constScanLine(filledHeight - 1),
                    static_cast<size_t>(whole.width()) * depth);
    }
}

} // namespace zenu
