#pragma once

#include "tests/sprites/SpriteHost.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace zenutest {

/// What should be seen, found by painting the whole picture each time: the window, the cells of the
/// host, the band outside of the sprites, and the sprites in the order of their priority. Knows the
/// rules for the target and the committed state, nothing of regions, and of backgrounds only which
/// of the two a sprite gets to see when it draws.
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
        bool needsBackground = false;
        bool blind = false; // was drawn while the host was on no screen
        int priority = 0;
        int shownPriority = 0;
        Drawn drawn; // as committed
        Drawn next;
        // What lies below it, device pixels. Transparent where nobody can say: out of the clip.
        QImage saved;
        QImage other;                     // what lay below the place before
        std::optional<QImage> seen;       // by the drawing that the last commit asked for
        std::optional<QImage> seenInPass; // by that in the last paint event
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

    static void show(Sprite & sprite)
    {
        if (sprite.removed)
            return;
        sprite.wanted = sprite.dirty = true;
        sprite.needsBackground = sprite.needsBackground || !sprite.shown;
    }
    static void hide(Sprite & sprite) { sprite.wanted = sprite.needsBackground = false; }
    static void move(Sprite & sprite, QPoint const & to)
    {
        sprite.target.moveTopLeft(to);
        sprite.needsBackground = true;
    }
    static void change(Sprite & sprite, QSize const & size)
    {
        sprite.target.setSize(size);
        sprite.needsBackground = sprite.dirty = true;
    }
    void showLayer()
    {
        layerWanted = true;
        for (Sprite & sprite : sprites)
            sprite.needsBackground = sprite.wanted;
    }

    /// Whatever the sprites see below them.
    void commit()
    {
        for (Sprite & sprite : sprites) {
            if (draws(sprite)) {
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

    /// `bare` is the window without sprites and band, transparent where no sprite is drawn; null
    /// when the host is on no screen.
    void commit(SpriteHost const & host, QImage const & bare)
    {
        for (Sprite & sprite : sprites)
            readBelow(sprite, host, bare);
        commit();
    }

    /// The host has painted that part of itself, in a paint event.
    void paint(SpriteHost const & host, QRegion const & painted, QImage const & bare)
    {
        if (!layerShown)
            return;
        for (Sprite & sprite : sprites) {
            if (!sprite.shown || !painted.intersects(sprite.committed))
                continue;
            QRect const place = deviceRect(host, sprite.committed);
            if (sprite.saved.size() != place.size())
                sprite.saved = unknown(place.size());
            QPainter(&sprite.saved).drawImage(0, 0, bare.copy(place));
            if (std::exchange(sprite.blind, false))
                sprite.seenInPass = sprite.saved;
        }
    }

    /// The host without sprites and band, within `clip`, over `around`.
    static QImage bareOf(SpriteHost const & host, QRegion const & clip, QImage const & around)
    {
        QImage image = around;
        QPainter painter(&image);
        painter.setClipRegion(deviceRegion(host, clip));
        for (int y = 0; y < host.height(); y += SpriteHost::cell) {
            for (int x = 0; x < host.width(); x += SpriteHost::cell) {
                QRect const cell(x, y, SpriteHost::cell, SpriteHost::cell);
                painter.fillRect(deviceRect(host, cell), host.colorAt(x, y));
            }
        }
        return image;
    }

    /// The committed scene over the host, within `clip`, over `around`.
    QImage picture(SpriteHost const & host, QRegion const & clip, QImage const & around) const
    {
        QImage image = bareOf(host, clip, around);
        if (!layerShown)
            return image;
        flipBand(image, host, clip);
        QPainter painter(&image);
        painter.setClipRegion(deviceRegion(host, clip));
        for (Sprite const * sprite : visible())
            painter.drawImage(deviceRect(host, sprite->committed).topLeft(),
                              imageOf(*sprite, host));
        return image;
    }

    static QImage unknown(QSize size)
    {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        return image;
    }

private:
    bool draws(Sprite const & sprite) const { return layerWanted && sprite.wanted && sprite.dirty; }

    // A sprite sees what was last read for its other place, unless this commit reads anew.
    void readBelow(Sprite & sprite, SpriteHost const & host, QImage const & bare) const
    {
        bool const stands = layerShown && sprite.shown && sprite.target == sprite.committed;
        bool const reads = layerWanted && (sprite.needsBackground || (sprite.wanted && !stands));
        if (bare.isNull() && (reads || draws(sprite)))
            sprite.other = QImage();
        else if (reads)
            sprite.other = bare.copy(deviceRect(host, sprite.target));
        if (draws(sprite)) {
            sprite.blind = bare.isNull();
            sprite.seen = sprite.other;
        }
        if (reads) {
            std::swap(sprite.saved, sprite.other);
            sprite.needsBackground = false;
        }
    }

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

    static QRegion deviceRegion(SpriteHost const & host, QRegion const & region)
    {
        QRegion device;
        for (QRect const & r : region)
            device += deviceRect(host, r);
        return device;
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

} // namespace zenutest
