#pragma once

#include "zenu/ZenuExport.h"

#include <QtCore/QSize>
#include <QtGui/QImage>

#include <array>

class QColor;

namespace zenu {

// Raw pixels of images whose pixels are whole bytes: no painter, no conversion, no ratio.

/// Pixels in memory, as they are copied. Whoever made it keeps them alive and unshared. An image
/// itself lies behind two pointers, which costs more than the copy of a small one.
struct PixelRows
{
    PixelRows() = default;
    PixelRows(QImage & image) // meant to be implicit
        : PixelRows(image, image.bits())
    {
    }
    /// Of an image that is only read, whatever is shared with it.
    static PixelRows readOnly(QImage const & image)
    {
        return PixelRows(image, const_cast<uchar *>(image.constBits()));
    }

    QRect rect() const { return QRect(QPoint(), size); }

    uchar * first = nullptr;
    qsizetype step = 0; // bytes from a row to the next
    QSize size;
    int depth = 0; // bytes of a pixel
    QImage::Format format = QImage::Format_Invalid;

private:
    PixelRows(QImage const & image, uchar * pixels)
        : first(pixels)
        , step(image.bytesPerLine())
        , size(image.size())
        , depth(image.depth() / 8)
        , format(image.format())
    {
    }
};

/// The bytes of one pixel, the rest 0.
using PixelBits = std::array<uchar, 16>;

/// The XOR of one pixel of each colour in the format given. Both are taken as opaque, so the bits
/// of alpha are 0.
ZENU_TEST_EXPORT PixelBits pixelDifference(QColor const & a, QColor const & b,
                                           QImage::Format format);

/// XORs `bits` into each pixel of `r`, which is cut by the image.
ZENU_TEST_EXPORT void flipPixels(PixelRows const & pixels, QRect const & r, PixelBits const & bits);

/// Copies as much of a rectangle of size `size` as lies within both images. The formats are equal.
ZENU_TEST_EXPORT void copyPixels(PixelRows const & to, QPoint toPos, PixelRows const & from,
                                 QPoint fromPos, QSize size);

} // namespace zenu
