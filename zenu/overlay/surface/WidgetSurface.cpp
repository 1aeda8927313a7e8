#include "zenu/overlay/surface/WidgetSurface.h"

#include "zenu/overlay/surface/StoreContents.h"
#include "zenu/overlay/surface/SurfaceClip.h"

#include <QtGui/QBackingStore>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QWindow>
#include <QtWidgets/QGraphicsEffect>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace zenu {

namespace {

// From this many rectangles on, one that bounds them all is shown faster.
constexpr int manyRectangles = 64;

// Keeps sums and products of device coordinates within an int.
constexpr double farAway = 1 << 29;

struct OpenedWidget : QWidget
{
    using QWidget::redirected;
};

// What the widget's paint event draws on and where; null outside a paint event.
QPaintDevice * redirection(QWidget const & widget, QPoint & offset)
{
    return (widget.*&OpenedWidget::redirected)(&offset);
}

// Halves go up, left of the window too, unlike in qRound: so a widget that moves by whole device
// pixels, as in a scroll area, takes along every edge by as much.
int deviceEdge(qint64 edge, qreal ratio)
{
    if (ratio == 1)
        return static_cast<int>(std::clamp(edge, -qint64(farAway), qint64(farAway)));
    double const device = std::clamp(static_cast<double>(edge) * ratio, -farAway, farAway);
    return static_cast<int>(std::floor(device + 0.5));
}

QBackingStore * storeOf(QWidget const & host)
{
    QBackingStore * const store = host.window()->backingStore();
    return store && !store->size().isEmpty() ? store : nullptr;
}

// Only stores that lie in memory as an image are understood.
QImage * imageOf(QBackingStore & store)
{
    QPaintDevice * const device = store.paintDevice();
    return device && device->devType() == QInternal::Image ? static_cast<QImage *>(device)
                                                           : nullptr;
}

bool isOnScreen(QWidget const & host)
{
    if (!host.isVisible() || host.testAttribute(Qt::WA_PaintOnScreen))
        return false;
    for (QWidget const * widget = &host; widget; widget = widget->parentWidget()) {
        if (widget->graphicsEffect())
            return false;
        if (widget->isWindow())
            break;
    }
    QWidget const & window = *host.window();
    return !window.graphicsProxyWidget() && window.windowHandle() &&
           window.windowHandle()->handle();
}

// What the widget that is painting now may draw, in device pixels; empty when none is.
QRegion systemClip(QBackingStore & store)
{
    QImage const * const image = imageOf(store);
    QPaintEngine const * const engine = image ? image->paintEngine() : nullptr;
    return engine ? engine->systemClip() : QRegion();
}

QWidget * nativeAncestor(QWidget * host)
{
    return host->windowHandle() ? host : host->nativeParentWidget();
}

std::shared_ptr<quint64> writesOn(QWidget const * host)
{
    static std::unordered_map<QWidget const *, std::weak_ptr<quint64>> counts;
    std::erase_if(counts, [](auto const & entry) { return entry.second.expired(); });
    std::weak_ptr<quint64> & known = counts[host];
    std::shared_ptr<quint64> count = known.lock();
    if (!count)
        known = count = std::make_shared<quint64>(0);
    return count;
}

} // namespace

WidgetSurface::WidgetSurface(QWidget * host)
    : m_host(host)
    , m_writes(writesOn(host))
{
}

WidgetSurface::~WidgetSurface()
{
    end();
}

WidgetSurface::Target WidgetSurface::target() const
{
    if (isOpen())
        return m_open;
    if (!m_host)
        return Target::None;
    QBackingStore * const store = isOnScreen(*m_host) ? storeOf(*m_host) : nullptr;
    if (m_host->testAttribute(Qt::WA_WState_InPaintEvent)) {
        QPoint offset;
        QPaintDevice const * const device = redirection(*m_host, offset);
        bool const onStore = store && imageOf(*store) && device == store->paintDevice() &&
                             offset == -m_host->mapTo(m_host->window(), QPoint());
        return onStore ? Target::Pass : Target::Redirected;
    }
    if (!store)
        return Target::None;
    // The store's device is opened by the toolkit for each widget of a pass in turn.
    return systemClip(*store).isEmpty() ? Target::Screen : Target::Pass;
}

QPaintDevice * WidgetSurface::redirectedTo() const
{
    QPoint offset;
    return target() == Target::Redirected ? redirection(*m_host, offset) : nullptr;
}

bool WidgetSurface::begin(QRegion const & touched)
{
    Target const reached = isOpen() ? Target::None : target();
    if (reached != Target::Screen && reached != Target::Pass)
        return false;
    m_window = m_host->window();
    m_store = storeOf(*m_host);
    m_bounds = touched.boundingRect();
    bool const opened = reached == Target::Screen ? openScreen(touched) : openPass(touched);
    if (opened)
        m_open = reached;
    else
        forget();
    return opened;
}

bool WidgetSurface::openScreen(QRegion const & touched)
{
    completeStore(*m_store);
    if (!imageOf(*m_store))
        return false;
    m_frame = frameNow();
    m_clip = surfaceClip(*m_host);
    m_changed = touched & m_clip;
    findWritable();
    beginKeepingPixels(m_changed.translated(m_frame.offset));
    if (wrapPixels())
        return true;
    m_store->endPaint();
    return false;
}

bool WidgetSurface::openPass(QRegion const & touched)
{
    m_frame = frameNow();
    m_clip = paintedNow(m_frame) & surfaceClip(*m_host);
    m_changed = touched & m_clip;
    findWritable();
    return wrapPixels();
}

// A store with alpha clears the region that is begun.
void WidgetSurface::beginKeepingPixels(QRegion const & region)
{
    QImage saved;
    QRect kept;
    if (imageOf(*m_store)->hasAlphaChannel() && !region.isEmpty()) {
        QRect const bounds = region.boundingRect();
        kept = toDevice(Frame{QPoint(), m_frame.ratio}, bounds).adjusted(-1, -1, 1, 1);
        kept &= imageOf(*m_store)->rect();
        saved = imageOf(*m_store)->copy(kept);
    }
    m_store->beginPaint(region);
    if (saved.isNull() || !wrapPixels())
        return;
    copyPixels(m_rows, kept.topLeft(), saved, QPoint(), kept.size());
}

// An image of our own on the store's memory: it has a paint engine of its own, so it can be drawn
// on while a painter of the host is open, and neither clip nor ratio of the store's device gets in.
bool WidgetSurface::wrapPixels()
{
    QImage const * const image = imageOf(*m_store);
    if (!image || !image->constBits() || image->depth() % 8 != 0)
        return false;
    m_pixels = QImage(const_cast<uchar *>(image->constBits()), image->width(), image->height(),
                      image->bytesPerLine(), image->format());
    m_rows = m_pixels;
    return !m_pixels.isNull();
}

void WidgetSurface::end()
{
    if (!isOpen())
        return;
    m_painter.reset();
    forgetPixels();
    if (!m_changed.isEmpty())
        ++*m_writes;
    if (m_open == Target::Screen && storeStands()) {
        m_store->endPaint();
        flush();
    }
    forget();
}

void WidgetSurface::flush()
{
    if (!m_host || m_host->window() != m_window || m_changed.isEmpty())
        return;
    QWindow const * const window = m_window->windowHandle();
    if (!window || window->surfaceType() != QSurface::RasterSurface) {
        m_host->update(m_changed); // composed from a texture that a flush does not reach
        return;
    }
    QWidget * const native = nativeAncestor(m_host);
    if (!native || !native->windowHandle() || !native->windowHandle()->handle())
        return;
    QRegion shown = m_changed;
    if (shown.rectCount() > manyRectangles)
        shown = shown.boundingRect();
    if (m_frame.ratio != std::floor(m_frame.ratio)) {
        // A native child may round its edges to other device pixels than the window does.
        QRegion grown;
        for (QRect const & r : shown)
            grown += r.adjusted(-1, -1, 1, 1);
        shown = grown;
    }
    shown.translate(m_host->mapTo(native, QPoint()));
    m_store->flush(shown & native->rect(), native->windowHandle(),
                   native->mapTo(m_window, QPoint()));
}

void WidgetSurface::forget()
{
    m_open = Target::None;
    m_window = nullptr;
    m_store = nullptr;
    forgetPixels();
    m_clip = QRegion();
    m_changed = QRegion();
    m_writable.clear();
    m_bounds = QRect();
}

void WidgetSurface::forgetPixels()
{
    m_pixels = QImage();
    m_rows = PixelRows();
}

bool WidgetSurface::storeStands() const
{
    return m_window && m_window->backingStore() == m_store;
}

bool WidgetSurface::isUsable() const
{
    return isOpen() && m_host && storeStands();
}

WidgetSurface::Frame WidgetSurface::frameNow() const
{
    Frame frame;
    if (!m_host)
        return frame;
    frame.offset = m_host->mapTo(m_host->window(), QPoint());
    QBackingStore * const store = storeOf(*m_host);
    QImage const * const image = store ? imageOf(*store) : nullptr;
    // As painters have it, in 1/65536: with 1.1 itself an edge at 5.5 would go another way.
    frame.ratio = image ? image->devicePixelRatioF() : m_host->devicePixelRatioF();
    return frame;
}

// The part of the host that the running paint event paints.
QRegion WidgetSurface::paintedNow(Frame const & frame) const
{
    if (!m_host->testAttribute(Qt::WA_WState_InPaintEvent))
        return QRegion();
    QRegion painted;
    for (QRect const & r : systemClip(*m_store)) {
        QPoint const topLeft(qRound(r.left() / frame.ratio), qRound(r.top() / frame.ratio));
        QPoint const behind(qRound((r.right() + 1) / frame.ratio),
                            qRound((r.bottom() + 1) / frame.ratio));
        painted += QRect(topLeft, behind - QPoint(1, 1));
    }
    return painted.translated(-frame.offset);
}

QRect WidgetSurface::toDevice(Frame const & frame, QRect const & r) const
{
    qint64 const left = qint64(frame.offset.x()) + r.x();
    qint64 const top = qint64(frame.offset.y()) + r.y();
    int const x = deviceEdge(left, frame.ratio);
    int const y = deviceEdge(top, frame.ratio);
    int const behindX = deviceEdge(left + std::max(r.width(), 0), frame.ratio);
    int const behindY = deviceEdge(top + std::max(r.height(), 0), frame.ratio);
    return QRect(x, y, behindX - x, behindY - y);
}

QRect WidgetSurface::device(QRect const & r) const
{
    return toDevice(isOpen() ? m_frame : frameNow(), r);
}

qreal WidgetSurface::ratio() const
{
    return isOpen() ? m_frame.ratio : frameNow().ratio;
}

QImage::Format WidgetSurface::format() const
{
    return m_rows.format;
}

QRegion WidgetSurface::clip() const
{
    if (isOpen())
        return m_clip;
    switch (target()) {
    case Target::Screen:
        return surfaceClip(*m_host);
    case Target::Pass: {
        WidgetSurface painted(m_host);
        return painted.begin(m_host->rect()) ? painted.clip() : QRegion();
    }
    case Target::None:
    case Target::Redirected:
        break;
    }
    return QRegion();
}

// Of the part of the clip that was announced; mostly one rectangle.
void WidgetSurface::findWritable()
{
    m_writable.clear();
    for (QRect const & part : m_clip & m_bounds)
        m_writable.push_back(toDevice(m_frame, part));
}

QImage WidgetSurface::copy(QRect const & r) const
{
    if (!isUsable() || r.isEmpty())
        return QImage();
    QImage buffer(device(r).size(), m_pixels.format());
    buffer.fill(0);
    copyTo(buffer, QPoint(), r);
    return buffer;
}

void WidgetSurface::copyTo(QImage & buffer, QPoint const & at, QRect const & r) const
{
    if (isUsable())
        copyPixelsTo(buffer, at, device(r));
}

void WidgetSurface::copyPixelsTo(PixelRows const & buffer, QPoint const & at,
                                 QRect const & pixels) const
{
    if (buffer.format == m_rows.format)
        copyPixels(buffer, at, m_rows, pixels.topLeft(), pixels.size());
}

void WidgetSurface::put(QImage const & buffer, QPoint const & at, QRect const & r)
{
    if (!isUsable() || buffer.isNull())
        return;
    if (buffer.format() == m_rows.format)
        putPixels(PixelRows::readOnly(buffer), at, device(r));
    else
        put(buffer.convertToFormat(m_rows.format), at, r);
}

void WidgetSurface::putPixels(PixelRows const & buffer, QPoint const & at, QRect const & pixels)
{
    if (buffer.format != m_rows.format)
        return;
    for (QRect const & writable : m_writable) {
        QRect const to = pixels & writable;
        copyPixels(m_rows, to.topLeft(), buffer, at + to.topLeft() - pixels.topLeft(), to.size());
    }
}

// Its clip is exact: a painter on device pixels knows no ratio.
QPainter & WidgetSurface::clippedPainter()
{
    if (!m_painter) {
        QRegion clip;
        for (QRect const & part : m_writable)
            clip += part;
        m_painter = std::make_unique<QPainter>(&m_pixels);
        m_painter->setClipRegion(clip);
    }
    return *m_painter;
}

void WidgetSurface::blend(QPixmap const & image, QRect const & r)
{
    QSize const size = isUsable() ? device(r).size().boundedTo(image.size()) : QSize();
    if (size.isEmpty())
        return;
    clippedPainter().drawPixmap(QRectF(device(r).topLeft(), size), image, QRectF(QPointF(), size));
}

void WidgetSurface::blend(QImage const & image, QPoint const & at, QRect const & r)
{
    blendPixels(image, at, device(r));
}

void WidgetSurface::blendPixels(QImage const & image, QPoint const & at, QRect const & pixels)
{
    QRect const source = QRect(at, pixels.size()) & image.rect();
    if (isUsable() && !source.isEmpty()) // an empty one would stand for the whole image
        clippedPainter().drawImage(pixels.topLeft(), image, source);
}

void WidgetSurface::flip(QRegion const & r, QColor const & a, QColor const & b)
{
    if (!isUsable())
        return;
    PixelBits const bits = pixelDifference(a, b, m_rows.format);
    for (QRect const & part : (m_clip & m_bounds) & r)
        flipPixels(m_rows, device(part), bits);
}

} // namespace zenu
