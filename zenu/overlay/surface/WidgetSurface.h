#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/overlay/surface/PixelCopies.h"

#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtGui/QImage>
#include <QtGui/QRegion>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

class QBackingStore;
class QColor;
class QPaintDevice;
class QPainter;
class QPixmap;

namespace zenu {

/// The pixels of one widget as they stand on the screen: read and written without a paint event.
///
/// They lie in the backing store of the widget's window, and this is the only code of the library
/// that touches one. Owned by whoever draws outside paint events (a sprite layer, the header, the
/// grid); never owns the widget and survives it. A widget that is not on a screen has no surface,
/// and drawing on it does nothing.
///
/// All reading and writing stands between `begin` and `end`, and neither events nor application
/// code may run in between, since both can replace the store.
///
/// Rectangles and regions are logical pixels of the widget. Buffers are images of device pixels in
/// the format of the store with a device pixel ratio of 1; a position in a buffer is in device
/// pixels. A buffer has no place of its own: its origin is `device(rect).topLeft()` at the time of
/// use, as the widget may have moved within its window.
class ZENU_TEST_EXPORT WidgetSurface
{
public:
    /// What drawing reaches at the moment.
    enum class Target
    {
        None,      ///< no surface: hidden, not yet shown, under an effect or a graphics view
        Screen,    ///< the window as it stands on the screen; `end` shows at once what changed
        Pass,      ///< a paint pass of the window runs: only what it paints can be touched
        Redirected ///< the widget is painted into something else by `grab` or `render`
    };

    /// `host` may be null: nothing is ever reached then.
    explicit WidgetSurface(QWidget * host);
    /// Ends what was begun.
    ~WidgetSurface();
    WidgetSurface(WidgetSurface const &) = delete;
    WidgetSurface & operator=(WidgetSurface const &) = delete;

    /// Null after the widget is gone.
    QWidget * host() const { return m_host; }

    /// What `begin` would reach now. While open: what is open.
    Target target() const;

    /// What the widget is painted into while the target is `Redirected`, otherwise null.
    QPaintDevice * redirectedTo() const;

    /// Opens the surface for reading and writing within `touched`. False, and nothing is open, when
    /// there is no surface, when the widget is painted into something else, and when the surface is
    /// open already. In a paint pass of another widget of the window it opens with an empty clip.
    bool begin(QRegion const & touched);

    /// Closes; outside a paint pass everything in `touched` appears on the screen before it
    /// returns. Without `begin` it does nothing.
    void end();

    bool isOpen() const { return m_open != Target::None; }

    /// How often anything was written on the widget by this surface and all others that it has: who
    /// keeps what it has read can tell whether somebody else has drawn since.
    quint64 writes() const { return *m_writes; }

    /// Where a rectangle of the widget lies in its window, in device pixels. Adjacent rectangles
    /// stay adjacent, so the size depends on the position where the ratio is fractional. Also
    /// answered while closed, and without a surface (then with the ratio of the widget).
    QRect device(QRect const & r) const;

    /// Device pixels a logical pixel.
    qreal ratio() const;

    /// The format of copies and buffers; `Format_Invalid` while closed.
    QImage::Format format() const;

    /// What can be written: the widget without what its relatives cover, see-through ones too. Open
    /// in a paint pass, only what is being painted. Empty without a surface.
    QRegion clip() const;

    /// The pixels of `device(r)`, not cut by the clip; 0 beyond the window. Null while closed.
    QImage copy(QRect const & r) const;

    /// Copies the pixels of `device(r)` into `buffer` from `at` on. Pixels that lie outside the
    /// window or the buffer are left alone; so is a buffer that is not of the store's format.
    void copyTo(QImage & buffer, QPoint const & at, QRect const & r) const;

    /// Replaces the pixels of `device(r)`, as far as the clip lets it, by those of `buffer` from
    /// `at` on, alpha included.
    void put(QImage const & buffer, QPoint const & at, QRect const & r);

    /// Draws the pixels of `image`, one to one whatever its ratio, over those of `device(r)`, as
    /// far as the clip lets it. What is larger than `device(r)` is cut.
    void blend(QPixmap const & image, QRect const & r);

    /// The same with pixels of an image from `at` on, as in `put`.
    void blend(QImage const & image, QPoint const & at, QRect const & r);

    /// The same for `device(r)` itself, asked for once and used often, without a look at whether
    /// the window still stands. Buffers that are not of the store's format are left alone.
    void copyPixelsTo(PixelRows const & buffer, QPoint const & at, QRect const & pixels) const;
    void putPixels(PixelRows const & buffer, QPoint const & at, QRect const & pixels);
    void blendPixels(QImage const & image, QPoint const & at, QRect const & pixels);

    /// Turns `a` into `b` and `b` into `a` by XOR with their difference, as far as the clip lets
    /// it; a second call undoes the first. The alpha of colours and pixels plays no part.
    void flip(QRegion const & r, QColor const & a, QColor const & b);

private:
    struct Frame
    {
        QPoint offset; // of the host in its window, logical pixels
        qreal ratio = 1;
    };

    Frame frameNow() const;
    QRect toDevice(Frame const & frame, QRect const & r) const;
    QRegion paintedNow(Frame const & frame) const;
    bool openScreen(QRegion const & touched);
    bool openPass(QRegion const & touched);
    bool wrapPixels();
    void beginKeepingPixels(QRegion const & region);
    void flush();
    void forget();
    void forgetPixels();
    bool isUsable() const;
    bool storeStands() const;
    QPainter & clippedPainter();
    void findWritable();

    QPointer<QWidget> m_host;
    std::shared_ptr<quint64> m_writes; // of all surfaces of the host
    QPointer<QWidget> m_window;        // the host's while open
    QBackingStore * m_store = nullptr; // the window's while open
    Target m_open = Target::None;
    Frame m_frame;
    QImage m_pixels;  // wraps the memory of the store while open
    PixelRows m_rows; // the same
    QRegion m_clip;
    QRect m_bounds; // of what was announced to begin
    QRegion m_changed;
    std::vector<QRect> m_writable;       // device pixels, disjoint
    std::unique_ptr<QPainter> m_painter; // on m_pixels, made when first needed
};

} // namespace zenu
