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

void flipPixels(PixelRows const & pixels, QRect const & r, PixelBits const & bits)
{
    QRect const inside = r & pixels.rect();
    quint32 word = 0;
    std::memcpy(&word, bits.data(), sizeof word);
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        uchar * const line =
            pixels.first + y * pixels.step + qsizetype(inside.left()) * pixels.depth;
        if (pixels.depth == sizeof word) {
            auto * const words = reinterpret_cast<quint32 *>(line);
            std::for_each(words, words + inside.width(), [word](quint32 & p) { p ^= word; });
            continue;
        }
        for (int i = 0; i < inside.width() * pixels.depth; ++i)
            line[i] = static_cast<uchar>(line[i] ^ bits[static_cast<size_t>(i % pixels.depth)]);
    }
}

void copyPixels(PixelRows const & to, QPoint toPos, PixelRows const & from, QPoint fromPos,
                QSize size)
{
    int const skipX = std::max({0, -toPos.x(), -fromPos.x()});
    int const skipY = std::max({0, -toPos.y(), -fromPos.y()});
    int const endX =
        std::min({size.width(), to.size.width() - toPos.x(), from.size.width() - fromPos.x()});
    int const endY =
        std::min({size.height(), to.size.height() - toPos.y(), from.size.height() - fromPos.y()});
    if (endX <= skipX || endY <= skipY)
        return;
    auto const count = static_cast<size_t>(endX - skipX) * static_cast<size_t>(to.depth);
    uchar * line =
        to.first + (toPos.y() + skipY) * to.step + qsizetype(toPos.x() + skipX) * to.depth;
    uchar const * source =
        from.first + (fromPos.y() + skipY) * from.step + qsizetype(fromPos.x() + skipX) * to.depth;
    for (int y = skipY; y < endY; ++y) {
        copyBytes(line, source, count);
        line += to.step;
        source += from.step;
    }
}

} // namespace zenu
