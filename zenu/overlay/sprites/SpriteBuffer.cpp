#include "zenu/overlay/sprites/SpriteBuffer.h"

#include <cmath>
#include <utility>

namespace zenu {

namespace {

int axisFor(int wanted, int current)
{
    return wanted > current || wanted < (current >> 1) ? wanted : current;
}

} // namespace

QSize bufferSizeFor(QSize wanted, QSize current)
{
    QSize const needed = wanted.expandedTo(QSize(0, 0));
    QSize const had = current.expandedTo(QSize(0, 0));
    return QSize(axisFor(needed.width(), had.width()), axisFor(needed.height(), had.height()));
}

QSize deviceSizeOf(QSize logical, qreal ratio)
{
    return QSize(static_cast<int>(std::ceil(logical.width() * ratio)),
                 static_cast<int>(std::ceil(logical.height() * ratio)));
}

void BackgroundBuffer::ensureSize(QSize wanted, qreal ratio, QImage::Format format)
{
    m_elsewhere = QRect();
    m_size = bufferSizeFor(wanted, m_size);
    QSize const deviceSize = deviceSizeOf(m_size, ratio);
    if (m_rows.size == deviceSize && m_rows.format == format)
        return;
    QImage image(deviceSize, format);
    image.fill(0);
    setImage(std::move(image));
}

void BackgroundBuffer::setFormat(QImage::Format format)
{
    if (m_rows.format != format && m_rows.format != QImage::Format_Invalid)
        setImage(m_image.convertToFormat(format));
}

void BackgroundBuffer::unshare()
{
    m_rows = m_image;
}

void BackgroundBuffer::setElsewhere(QRect const & place)
{
    m_elsewhere = place;
    if (!m_image.isNull())
        setImage(QImage());
}

void BackgroundBuffer::setImage(QImage image)
{
    m_image = std::move(image);
    m_rows = m_image;
}

} // namespace zenu
