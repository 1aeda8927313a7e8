#include "zenu/overlay/surface/PixelCopies.h"

#include <QtGui/QColor>

#include <algorithm>
#include <cstring>

namespace zenu {

namespace {

PixelBits pixelBytes(QColor const & color, QImage::Format format)
{
    QImage pixel(1, 1, format);
    pixel.fill(QColor::fromRgb(color.rgb()));
    PixelBits bytes{};
    auto const count = std::min(static_cast<size_t>(pixel.depth() / 8), bytes.size());
    std::memcpy(bytes.data(), pixel.constScanLine(0), count);
    return bytes;
}

} // namespace

PixelBits pixelDifference(QColor const & a, QColor const & b, QImage::Format format)
{
    PixelBits bits = pixelBytes(a, format);
    PixelBits const other = pixelBytes(b, format);
    std::transform(bits.begin(), bits.end(), other.begin(), bits.begin(),
                   [](uchar x, uchar y) { return static_cast<uchar>(x ^ y); });
    return bits;
}

void flipPixels(QImage & pixels, QRect const & r, PixelBits const & bits)
{
    QRect const inside = r & pixels.rect();
    int const depth = pixels.depth() / 8;
    quint32 word = 0;
    std::memcpy(&word, bits.data(), sizeof word);
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        uchar * const line = pixels.scanLine(y) + qsizetype(inside.left()) * depth;
        if (depth == sizeof word) {
            auto * const words = reinterpret_cast<quint32 *>(line);
            std::for_each(words, words + inside.width(), [word](quint32 & p) { p ^= word; });
            continue;
        }
        for (int i = 0; i < inside.width() * depth; ++i)
            line[i] = static_cast<uchar>(line[i] ^ bits[static_cast<size_t>(i % depth)]);
    }
}

void copyPixels(QImage & to, QPoint toPos, QImage const & from, QPoint fromPos, QSize size)
{
    QRect const readable = QRect(fromPos, size) & from.rect();
    QRect const dest = readable.translated(toPos - fromPos) & to.rect();
    if (dest.isEmpty())
        return;
    QPoint const first = dest.topLeft() + fromPos - toPos;
    int const depth = to.depth() / 8;
    auto const count = static_cast<size_t>(dest.width()) * static_cast<size_t>(depth);
    uchar * line = to.bits() + dest.top() * to.bytesPerLine() + qsizetype(dest.left()) * depth;
    uchar const * source =
        from.constBits() + first.y() * from.bytesPerLine() + qsizetype(first.x()) * depth;
    for (int y = 0; y < dest.height(); ++y) {
        std::memcpy(line, source, count);
        line += to.bytesPerLine();
        source += from.bytesPerLine();
    }
}

} // namespace zenu
