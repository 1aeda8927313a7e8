#pragma once

#include <QtGui/QBackingStore>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtTest/QtTest>
#include <QtWidgets/QWidget>

#include <cstring>
#include <functional>

namespace zenutest {

inline bool onXcb()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

/// Whether the toolkit moves pixels when a widget scrolls or moves, instead of painting them anew.
/// A library built without the platform interface forbids it that.
inline bool movesPixels()
{
    return qEnvironmentVariableIntValue("QT_NO_FAST_SCROLL") == 0 &&
           qEnvironmentVariableIntValue("QT_NO_FAST_MOVE") == 0;
}

/// Paints a pattern without repetition, counts its paint events and lets a test act in them.
class SurfaceHost : public QWidget
{
public:
    explicit SurfaceHost(QWidget * parent = nullptr)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    int paints = 0;
    QRegion painted;                     // by the last paint event
    std::function<void()> afterPainting; // painter closed
    std::function<void()> whilePainting; // painter open

    static QColor patternAt(int x, int y)
    {
        return QColor((x * 5) % 256, (y * 7) % 256, (x * 3 + y * 2) % 256);
    }

protected:
    void paintEvent(QPaintEvent * event) override
    {
        ++paints;
        painted = event->region();
        {
            QPainter painter(this);
            for (int y = 0; y < height(); y += 8) {
                for (int x = 0; x < width(); x += 8)
                    painter.fillRect(x, y, 8, 8, patternAt(x, y));
            }
            if (whilePainting)
                whilePainting();
        }
        if (afterPainting)
            afterPainting();
    }
};

/// The window's device pixels, read without a turn of the event loop: from the screen where the
/// platform has a true one, else from the store.
inline QImage picture(QWidget const & widget)
{
    QWidget const & window = *widget.window();
    QImage const & store = *static_cast<QImage *>(window.backingStore()->paintDevice());
    QImage image;
    if (onXcb()) {
        QPoint const end = window.geometry().bottomRight() + QPoint(2, 2); // parts of pixels, too
        image = window.screen()->grabWindow(0, 0, 0, end.x(), end.y()).toImage();
        QPoint const pos = (QPointF(window.pos()) * image.devicePixelRatio()).toPoint();
        image = image.copy(QRect(pos, store.size()));
    } else {
        image = store.copy();
    }
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_RGB32);
}

/// Turns the event loop until the window has painted all that it wants to.
inline void settle(QWidget & widget)
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (onXcb()) {
            widget.window()->screen()->grabWindow(0, 0, 0, 1, 1); // a round trip to the server
            QTest::qSleep(1); // for the thread that reads what the server has sent before
        }
    }
    QCoreApplication::processEvents();
}

/// Hides a window and waits until it is gone from the screen: one that is shown again before that
/// counts as exposed all the time.
inline bool hideAndSettle(QWidget & window)
{
    window.hide();
    bool const gone = QTest::qWaitFor([&] { return !window.windowHandle()->isExposed(); });
    settle(window);
    return gone;
}

/// Shows a window that was hidden and waits for its picture.
inline bool showAgainAndSettle(QWidget & window)
{
    window.show();
    bool const exposed = QTest::qWaitForWindowExposed(&window);
    settle(window);
    return exposed;
}

/// Shows a window at the top left of the screen and waits for its first picture.
inline bool showAndSettle(QWidget & window)
{
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.move(0, 0);
    return showAgainAndSettle(window);
}

/// How many pixels differ; -1 for different sizes.
inline int wrongPixels(QImage const & actual, QImage const & expected)
{
    if (actual.size() != expected.size())
        return -1;
    int wrong = 0;
    bool const sameFormat = actual.format() == expected.format() && actual.depth() == 32;
    for (int y = 0; y < actual.height(); ++y) {
        if (sameFormat && std::memcmp(actual.constScanLine(y), expected.constScanLine(y),
                                      size_t(actual.width()) * 4) == 0)
            continue;
        for (int x = 0; x < actual.width(); ++x)
            wrong += (actual.pixel(x, y) & 0xffffffu) != (expected.pixel(x, y) & 0xffffffu);
    }
    return wrong;
}

/// `before` with the colours of `parts` (device pixels) inverted.
inline QImage inverted(QImage before, QList<QRect> const & parts)
{
    for (QRect const & part : parts) {
        QRect const r = part & before.rect();
        for (int y = r.top(); y <= r.bottom(); ++y) {
            for (int x = r.left(); x <= r.right(); ++x)
                before.setPixel(x, y, before.pixel(x, y) ^ 0xffffffu);
        }
    }
    return before;
}

} // namespace zenutest
