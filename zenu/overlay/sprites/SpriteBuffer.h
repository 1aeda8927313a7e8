#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/overlay/surface/PixelCopies.h"

#include <QImage>
#include <QRect>
#include <QSize>

namespace zenu {

/// The size that a buffer of the size `current` takes when `wanted` is asked of it. Each axis keeps
/// what it has as long as that is enough and not more than the double. Logical pixels.
ZENU_TEST_EXPORT QSize bufferSizeFor(QSize wanted, QSize current);

/// The device pixels that a rectangle of this size takes at most, wherever it lies.
ZENU_TEST_EXPORT QSize deviceSizeOf(QSize logical, qreal ratio);

/// The pixels below a sprite: device pixels in the format of the surface, from (0, 0) on.
class BackgroundBuffer
{
public:
    /// Makes room for `wanted` logical pixels. What it held is lost only if it has to be replaced.
    void ensureSize(QSize wanted, qreal ratio, QImage::Format format);

    /// Converts what it holds.
    void setFormat(QImage::Format format);

    /// To be looked at. Who keeps a copy has `unshare` called before the next pass.
    QImage const & image() const { return m_image; }
    void unshare();

    /// To be read and written.
    PixelRows const & rows() const { return m_rows; }

    /// Gives its memory up: what it would hold lies elsewhere, taken from this rectangle of the
    /// widget. Null again once room is made for what is to come here.
    void setElsewhere(QRect const & place);
    QRect const & elsewhere() const { return m_elsewhere; }

private:
    void setImage(QImage image);

    QImage m_image;
    PixelRows m_rows; // of the image
    QSize m_size;     // logical
    QRect m_elsewhere;
};

} // namespace zenu
