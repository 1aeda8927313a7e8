#pragma once

#include "tests/surface/SurfaceHost.h"

#include <zenu/overlay/KSprite.h>
#include <zenu/overlay/KSpriteLayer.h>

#include <QtCore/QScopedValueRollback>
#include <QtGui/QPaintEvent>

#include <cmath>
#include <cstring>
#include <vector>

namespace zenutest {

/// Paints cells of 8 pixels that a test may change, and keeps its duties towards a layer.
class SpriteHost : public QWidget
{
public:
    static constexpr int cell = 8;

    explicit SpriteHost(QWidget * parent = nullptr)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    zenu::KSpriteLayer * layer = nullptr;
    bool clobbersAll = false; // more than it paints
    bool keepsPainterOpen = false;
    int paints = 0; // paint events onto the screen or a picture
    bool painting = false;
    QRegion painted; // by all paint events until a test empties it
    std::function<void()> inPaintEvent;
    std::function<void(QPainter &)> painterState; // in which it is left by the painting

    /// Changes what the cells under `r` show, without painting them.
    void changePicture(QRect const & r, int version) { m_changes.push_back({r, version}); }

    QColor colorAt(int x, int y) const
    {
        QPoint const corner(x / cell * cell, y / cell * cell);
        int version = 0;
        for (Change const & change : m_changes)
            version = change.rect.contains(corner) ? change.version : version;
        return QColor((corner.x() * 5 + version * 40) % 256, (corner.y() * 7 + version * 90) % 256,
                      (corner.x() * 3 + corner.y() * 2 + version * 20) % 256);
    }

protected:
    void paintEvent(QPaintEvent * event) override
    {
        ++paints;
        painted += event->region();
        QScopedValueRollback const running(painting, true);
        QPainter painter(this);
        for (int y = 0; y < height(); y += cell) {
            for (int x = 0; x < width(); x += cell) {
                if (event->region().intersects(QRect(x, y, cell, cell)))
                    painter.fillRect(x, y, cell, cell, colorAt(x, y));
            }
        }
        if (painterState)
            painterState(painter);
        if (!keepsPainterOpen)
            painter.end();
        if (inPaintEvent)
            inPaintEvent();
        if (!layer)
            return;
        if (clobbersAll) {
            layer->clobberRect(rect());
        } else {
            for (QRect const & r : event->region())
                layer->clobberRect(r);
        }
        layer->update();
    }

private:
    struct Change
    {
        QRect rect;
        int version;
    };
    std::vector<Change> m_changes;
};

/// A sprite of one colour that tells what the layer does with it.
class TestSprite : public zenu::KSprite
{
public:
    enum class Look
    {
        Opaque,
        Holes,     // its middle shows what lies below
        SeeThrough // partly transparent everywhere
    };

    explicit TestSprite(zenu::KSpriteLayer * layer, QRect const & r = QRect(),
                        QColor const & fill = Qt::red, int z = 0)
        : KSprite(layer)
        , color(fill)
    {
        if (r.isNull())
            return;
        changeContents(r.size());
        moveTo(r.topLeft());
        setPriority(z);
        show();
    }

    QColor color;
    Look look = Look::Opaque;
    int draws = 0;
    int befores = 0;
    int afters = 0;
    QSize bufferSize; // of the last drawing, device pixels
    QImage below;     // the background at the last drawing
    std::function<void()> whileDrawing;

    static void paint(QPaintDevice * device, Look look, QColor const & color, QSize size)
    {
        QPainter painter(device);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        QColor fill = color;
        if (look == Look::SeeThrough)
            fill.setAlpha(100);
        painter.fillRect(-1, -1, size.width() + 64, size.height() + 64, fill);
        QRect const middle = QRect(QPoint(), size).adjusted(4, 4, -4, -4);
        if (look == Look::Holes && !middle.isEmpty())
            painter.fillRect(middle, Qt::transparent);
    }

    void drawInBuffer(QPixmap * buffer, QPixmap const * background) override
    {
        ++draws;
        bufferSize = buffer->size();
        below = background->toImage();
        below.setDevicePixelRatio(1);
        paint(buffer, look, color, size());
        if (whileDrawing)
            whileDrawing();
    }
    void beforeLayerUpdate() override { ++befores; }
    void afterLayerUpdate() override { ++afters; }
};

inline qreal ratioOf(QWidget const & widget)
{
    return widget.devicePixelRatioF();
}

/// Where a rectangle of the widget lies in a picture of its window.
inline QRect deviceRect(QWidget const & widget, QRect const & r)
{
    QPoint const at = widget.mapTo(widget.window(), r.topLeft());
    qreal const ratio = ratioOf(widget);
    auto const edge = [ratio](int logical) {
        return static_cast<int>(std::floor(logical * ratio + 0.5));
    };
    QPoint const topLeft(edge(at.x()), edge(at.y()));
    return QRect(topLeft,
                 QPoint(edge(at.x() + r.width()), edge(at.y() + r.height())) - QPoint(1, 1));
}

/// `before` with a rectangle of the widget filled.
inline QImage filled(QImage before, QWidget const & widget, QRect const & r, QColor const & color)
{
    before.setDevicePixelRatio(1);
    QPainter painter(&before);
    painter.fillRect(deviceRect(widget, r), color);
    painter.end();
    return before;
}

/// The number of pixels that differ and one of them; empty when all are equal. A color channel may
/// differ by `tolerance`, and what is transparent in `expected` may be anything.
inline QString difference(QImage const & actual, QImage const & expected, int tolerance = 0)
{
    auto const differ = [tolerance](QRgb a, QRgb b) {
        return std::abs(qRed(a) - qRed(b)) > tolerance ||
               std::abs(qGreen(a) - qGreen(b)) > tolerance ||
               std::abs(qBlue(a) - qBlue(b)) > tolerance;
    };
    if (actual.width() < expected.width() || actual.height() < expected.height())
        return QStringLiteral("too small");
    int wrong = 0;
    QPoint first;
    for (int y = 0; y < expected.height(); ++y) {
        auto const * const a = reinterpret_cast<QRgb const *>(actual.constScanLine(y));
        auto const * const b = reinterpret_cast<QRgb const *>(expected.constScanLine(y));
        if (std::memcmp(a, b, size_t(expected.width()) * sizeof(QRgb)) == 0)
            continue;
        for (int x = 0; x < expected.width(); ++x) {
            if (qAlpha(b[x]) != 0 && differ(a[x], b[x]) && wrong++ == 0)
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
