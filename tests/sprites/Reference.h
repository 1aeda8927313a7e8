#pragma once

#include "tests/sprites/SpriteHost.h"

#include <QtWidgets/QScrollArea>

#include <algorithm>
#include <vector>

namespace zenutest {

/// What should be seen, found by painting the whole picture each time: the window, the cells of the
/// host, the band outside of the sprites, and the sprites in the order of their priority. Knows the
/// rules for the target and the committed state, and nothing of backgrounds and regions.
class Reference
{
public:
    struct Drawn
    {
        TestSprite::Look look = TestSprite::Look::Opaque;
        QColor color;
        QSize size;
    };
    struct Sprite
    {
        QRect committed;
        QRect target;
        bool shown = false;
        bool wanted = false;
        bool dirty = false;
        bool removed = false;
        int priority = 0;
        int shownPriority = 0;
        Drawn drawn; // as committed
        Drawn next;
    };
    struct Band
    {
        QRect rect;
        QColor foreground;
        QColor background;
    };

    std::vector<Sprite> sprites;
    Band band;
    Band nextBand;
    bool layerShown = false;
    bool layerWanted = true;

    void setForeground(QColor const & color)
    {
        if (color.rgb() != nextBand.foreground.rgb())
            nextBand.foreground = color;
    }
    // Compared with the foreground: the layer's rule.
    void setBackground(QColor const & color)
    {
        if (color.rgb() != nextBand.foreground.rgb())
            nextBand.background = color;
    }

    void commit()
    {
        for (Sprite & sprite : sprites) {
            if (layerWanted && sprite.wanted && sprite.dirty) {
                sprite.drawn = sprite.next;
                sprite.drawn.size = sprite.target.size();
                sprite.dirty = false;
            }
            sprite.committed = sprite.target;
            sprite.shown = sprite.wanted;
            sprite.shownPriority = sprite.priority;
        }
        band = nextBand;
        layerShown = layerWanted;
        std::erase_if(sprites, [](Sprite const & sprite) { return sprite.removed; });
    }

    /// The host's part is limited to `clip`, in its coordinates; the rest is `around`.
    QImage picture(SpriteHost const & host, QRegion const & clip, QImage const & around) const
    {
        QImage image = around;
        QPainter painter(&image);
        QRegion deviceClip;
        for (QRect const & r : clip)
            deviceClip += deviceRect(host, r);
        painter.setClipRegion(deviceClip);
        for (int y = 0; y < host.height(); y += SpriteHost::cell) {
            for (int x = 0; x < host.width(); x += SpriteHost::cell) {
                QRect const cell(x, y, SpriteHost::cell, SpriteHost::cell);
                painter.fillRect(deviceRect(host, cell), host.colorAt(x, y));
            }
        }
        painter.end();
        if (!layerShown)
            return image;
        flipBand(image, host, clip);
        painter.begin(&image);
        painter.setClipRegion(deviceClip);
        for (Sprite const * sprite : visible())
            painter.drawImage(deviceRect(host, sprite->committed).topLeft(),
                              imageOf(*sprite, host));
        return image;
    }

private:
    std::vector<Sprite const *> visible() const
    {
        std::vector<Sprite const *> found;
        for (Sprite const & sprite : sprites) {
            if (sprite.shown && !sprite.committed.isEmpty())
                found.push_back(&sprite);
        }
        std::sort(found.begin(), found.end(), [](Sprite const * a, Sprite const * b) {
            return a->shownPriority < b->shownPriority;
        });
        return found;
    }

    void flipBand(QImage & image, SpriteHost const & host, QRegion const & clip) const
    {
        QRegion region = clip & band.rect;
        for (Sprite const * sprite : visible())
            region -= sprite->committed;
        QRgb const bits = (band.foreground.rgb() ^ band.background.rgb()) & 0xffffffu;
        for (QRect const & part : region) {
            QRect const r = deviceRect(host, part) & image.rect();
            for (int y = r.top(); y <= r.bottom(); ++y) {
                auto * const line = reinterpret_cast<QRgb *>(image.scanLine(y));
                std::for_each(line + r.left(), line + r.right() + 1, [=](QRgb & p) { p ^= bits; });
            }
        }
    }

    static QImage imageOf(Sprite const & sprite, SpriteHost const & host)
    {
        QSize const size = sprite.drawn.size;
        qreal const ratio = ratioOf(host);
        QImage image(static_cast<int>(std::ceil(size.width() * ratio)),
                     static_cast<int>(std::ceil(size.height() * ratio)),
                     QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        TestSprite::paint(&image, sprite.drawn.look, sprite.drawn.color, size);
        image.setDevicePixelRatio(1);
        return image.copy(QRect(QPoint(), deviceRect(host, sprite.committed).size()));
    }
};

/// The number of pixels that differ and one of them; empty when all are equal.
inline QString difference(QImage const & actual, QImage const & expected)
{
    if (actual.size() != expected.size())
        return QStringLiteral("other size");
    int wrong = 0;
    QPoint first;
    for (int y = 0; y < actual.height(); ++y) {
        auto const * const a = reinterpret_cast<QRgb const *>(actual.constScanLine(y));
        auto const * const b = reinterpret_cast<QRgb const *>(expected.constScanLine(y));
        for (int x = 0; x < actual.width(); ++x) {
            if (((a[x] ^ b[x]) & 0xffffffu) != 0 && wrong++ == 0)
                first = QPoint(x, y);
        }
    }
    if (wrong == 0)
        return QString();
    return QStringLiteral("%1 pixels, the first at (%2, %3)")
        .arg(wrong)
        .arg(first.x())
        .arg(first.y());
}

} // namespace zenutest
