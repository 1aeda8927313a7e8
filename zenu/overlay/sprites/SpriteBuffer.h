#pragma once

#include "zenu/ZenuExport.h"

#include <QImage>
#include <QSize>

namespace zenu {

/// The size that a buffer of the size `current` takes when `wanted` is asked of it. Each axis keeps
/// what it has as long as that is enough and not more than the double. Logical pixels.
ZENU_TEST_EXPORT QSize bufferSizeFor(QSize wanted, QSize current);

/// The device pixels that a rectangle of this size takes at most, wherever it lies.
ZENU_TEST_EXPORT QSize deviceSizeOf(QSize logical, qreal ratio);

/// The pixels below a sprite: device pixels in the format of the surface, from (0, 0) on.
struct BackgroundBuffer
{
    /// Makes room for `wanted` logical pixels. What it held is lost only if it has to be replaced.
    void ensureSize(QSize wanted, qreal ratio, QImage::Format format);

    QImage pixels;
    QSize size; // logical
};

} // namespace zenu
