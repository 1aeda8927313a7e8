#include "zenu/overlay/sprites/SpriteBuffer.h"

#include <cmath>

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
    size = bufferSizeFor(wanted, size);
    QSize const deviceSize = deviceSizeOf(size, ratio);
    if (pixels.size() == deviceSize && pixels.format() == format)
        return;
    pixels = QImage(deviceSize, format);
    pixels.fill(0);
}

} // namespace zenu
