#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/overlay/surface/PixelCopies.h"

#include <QImage>
#include <QPixmap>
#include <QSize>

namespace zenu {

/// The picture of a sprite: the pixmap that the sprite draws on, and the pixels of it that are laid
/// on the surface.
class SpriteContents
{
public:
    /// The pixmap to draw a picture of `size` logical pixels on. From then on there is no picture
    /// until `endDrawing` takes it from there.
    QPixmap * beginDrawing(QSize size, qreal ratio);
    void endDrawing(QSize size);

    /// Device pixels with a ratio of 1. May be larger or, if not opaque, smaller than the sprite.
    QImage const & pixels() const { return m_pixels; }

    /// The same to be read. Where the sprite is opaque it has the format that was set last.
    PixelRows const & rows() const { return m_rows; }
    void setFormat(QImage::Format format);

    /// Every pixel of the sprite covers what is below it.
    bool isOpaque() const { return m_opaque; }

    /// Of the drawing; 0 before the first one.
    qreal ratio() const { return m_ratio; }

private:
    void ensureSize(QSize wanted, qreal ratio);

    QPixmap m_buffer;
    QSize m_size; // of the buffer, logical
    QImage m_pixels;
    PixelRows m_rows; // of the pixels
    qreal m_ratio = 0;
    bool m_opaque = false;
};

/// Where the ratio is no whole number a rectangle may take one device pixel more than what a
/// painter fills for its size. Repeats the last column and row there, so that no gap is seen.
ZENU_TEST_EXPORT void extendEdges(QImage & image, QSize size, qreal ratio);

} // namespace zenu
