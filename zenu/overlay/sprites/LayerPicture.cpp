#include "zenu/overlay/sprites/LayerPicture.h"

#include "zenu/overlay/sprites/RegionUnion.h"
#include "zenu/overlay/sprites/Scene.h"
#include "zenu/overlay/sprites/SpriteBuffer.h"
#include "zenu/overlay/sprites/SpriteContents.h"
#include "zenu/overlay/surface/WidgetSurface.h"

#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

#include <cmath>

namespace zenu {

namespace {

// Of a picture that knows no XOR, such as a file of drawing commands.
constexpr int bandAlpha = 96;

struct OpenedWidget : QWidget
{
    using QWidget::sharedPainter;
};

// Without what was asked of it by translate, scale, setWindow and the like.
QTransform baseTransform(QPainter & painter)
{
    painter.save();
    painter.setWorldMatrixEnabled(false);
    painter.setViewTransformEnabled(false);
    QTransform const base = painter.deviceTransform();
    painter.restore();
    return base;
}

// `QWidget::render` lends its painter to those of the widgets. It says that it is on the widget
// even after the widget's own painter was closed, but its coordinates are those of the caller
// again. The window tells that, or the base where the picture is as large as the widget.
bool isLent(QPainter & painter, QWidget const & host, QPaintDevice const & device)
{
    if (painter.window() != host.rect())
        return false;
    if (QSize(device.width(), device.height()) != host.size())
        return true;
    qreal const ratio = device.devicePixelRatioF();
    return baseTransform(painter) != QTransform::fromScale(ratio, ratio);
}

// The painter that the widget itself has open; null when there is none.
QPainter * openPainter(QWidget const & host, QPaintDevice const & device)
{
    QPaintEngine const * const engine = device.paintingActive() ? device.paintEngine() : nullptr;
    QPainter * const painter = engine ? engine->painter() : nullptr;
    if (!painter || painter->device() != &host)
        return nullptr;
    bool const shared = painter == (host.*&OpenedWidget::sharedPainter)();
    return !shared || isLent(*painter, host, device) ? painter : nullptr;
}

/// A painter on the widget, in its paint event: the one that the widget itself has open, which is
/// given back as it was, or else one of our own.
class PicturePainter
{
public:
    PicturePainter(QWidget & host, QPaintDevice & device)
    {
        QPainter * const open = openPainter(host, device);
        m_painter = open ? open : &m_own;
        if (!open)
            m_own.begin(&host);
        if (!m_painter->isActive())
            return;
        m_painter->save();
        m_painter->resetTransform();
        m_painter->setOpacity(1);
        m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
        m_painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
        m_painter->setRenderHint(QPainter::Antialiasing, false);
    }
    ~PicturePainter()
    {
        if (m_painter->isActive())
            m_painter->restore();
    }
    PicturePainter(PicturePainter const &) = delete;
    PicturePainter & operator=(PicturePainter const &) = delete;

    bool isActive() const { return m_painter->isActive(); }
    QPainter & painter() { return *m_painter; }

private:
    QPainter m_own;
    QPainter * m_painter;
};

// Others say that they do, as that of PDF files, and then cover what lies below.
bool knowsXor(QPaintEngine const & engine)
{
    return engine.type() == QPaintEngine::Raster;
}

void drawBand(QPainter & painter, SelectionBand const & band, QRegion const & region)
{
    if (region.isEmpty())
        return;
    QRgb const turned = band.foreground.rgb() ^ band.background.rgb();
    QColor color = QColor::fromRgb(qRed(turned), qGreen(turned), qBlue(turned));
    if (knowsXor(*painter.paintEngine())) {
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    } else {
        color = band.foreground;
        color.setAlpha(bandAlpha);
    }
    for (QRect const & r : region)
        painter.fillRect(r, color);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

QRect roundedEdges(QRectF const & r)
{
    QPoint const topLeft(qRound(r.left()), qRound(r.top()));
    return QRect(topLeft, QPoint(qRound(r.right()), qRound(r.bottom())) - QPoint(1, 1));
}

bool isOneToOne(QTransform const & toDevice, qreal ratio)
{
    return toDevice.type() <= QTransform::TxScale && std::abs(toDevice.m11() - ratio) < 1e-3 &&
           std::abs(toDevice.m22() - ratio) < 1e-3;
}

// Pixel by pixel as on the screen where the picture has its ratio, else scaled.
void drawSprite(QPainter & painter, SpriteContents const & contents, QRect const & r)
{
    QTransform const toDevice = painter.deviceTransform();
    if (!isOneToOne(toDevice, contents.ratio())) {
        QSizeF const size = QSizeF(r.size()) * contents.ratio();
        painter.drawImage(QRectF(r), contents.pixels(), QRectF(QPointF(), size));
        return;
    }
    QRect const place = roundedEdges(toDevice.mapRect(QRectF(r)));
    QSize const size = place.size().boundedTo(contents.pixels().size());
    QRectF const target = toDevice.inverted().mapRect(QRectF(place.topLeft(), size));
    painter.drawImage(target, contents.pixels(), QRectF(QPointF(), size));
}

QRegion bandRegion(Scene const & scene, QRegion const & painted)
{
    QRegion region = painted & scene.band.rect;
    if (region.isEmpty())
        return region;
    std::vector<QRect> sprites;
    for (int i = 0; i < scene.rects.count(); ++i) {
        if (scene.rects.at(i).intersects(scene.band.rect))
            sprites.push_back(scene.rects.at(i));
    }
    return region - unionOf(sprites);
}

} // namespace

void drawInPicture(WidgetSurface const & surface, Scene const & scene, QRegion const & painted)
{
    QPaintDevice * const device = surface.redirectedTo();
    if (!device)
        return;
    PicturePainter picture(*surface.host(), *device);
    if (!picture.isActive())
        return;
    picture.painter().setClipRegion(painted);
    drawBand(picture.painter(), scene.band, bandRegion(scene, painted));
    for (int i = 0; i < scene.rects.count(); ++i) {
        SpriteContents const * const contents = scene.sprites[static_cast<size_t>(i)].contents;
        if (contents && !contents->pixels().isNull())
            drawSprite(picture.painter(), *contents, scene.rects.at(i));
    }
}

} // namespace zenu
