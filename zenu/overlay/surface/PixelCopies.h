#pragma once

#include "zenu/ZenuExport.h"

#include <QtGui/QImage>

#include <array>

class QColor;

namespace zenu {

// Raw pixels of images whose pixels are whole bytes: no painter, no conversion, no ratio.

/// The bytes of one pixel, the rest 0.
using PixelBits = std::array<uchar, 16>;

/// The XOR of one pixel of each colour in the format given. Both are taken as opaque, so the bits
/// of alpha are 0.
ZENU_TEST_EXPORT PixelBits pixelDifference(QColor const & a, QColor const & b,
                                           QImage::Format format);

/// XORs `bits` into each pixel of `r`, which is cut by the image.
ZENU_TEST_EXPORT void flipPixels(QImage & pixels, QRect const & r, PixelBits const & bits);

/// Copies as much of a rectangle of size `size` as lies within both images. The formats are equal.
ZENU_TEST_EXPORT void copyPixels(QImage & to, QPoint toPos, QImage const & from, QPoint fromPos,
                                 QSize size);

} // namespace zenu
