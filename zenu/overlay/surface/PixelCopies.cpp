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

// Rows of small images are so short that calling memcpy for each would cost as much as the bytes.
void copyBytes(uchar * to, uchar const * from, size_t count)
{
    constexpr size_t block = 64;
    constexpr size_t manyBytes = 1024;
    if (count < manyBytes) {
        for (; count >= block; count -= block) {
            std::memcpy(to, from, block);
            to += block;
            from += block;
        }
        if (count == 0)
            return;
    }
    std::memcpy(to, from, count);
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
    qsizetype const lineStep = to.bytesPerLine();
    qsizetype const sourceStep = from.bytesPerLine();
    for (int y = 0; y < dest.height(); ++y) {
        copyBytes(line, source, count);
        line += lineStep;
        source += sourceStep;
    }
}

} // namespace zenu
