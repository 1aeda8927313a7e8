#pragma once

#include <QColor>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QRect>
#include <QtTest/QtTest>

#include <functional>

namespace zenutest {

// A picture computed pixel by pixel from logical rectangles, as an independent reference for
// painters. Both edges of a rectangle are rounded to device pixels, so that adjacent rectangles
// tile.
class PixelPicture
{
public:
    PixelPicture(QSize const & logicalSize, double ratio, QColor const & background)
        : m_ratio(ratio)
        , m_image(edge(logicalSize.width()), edge(logicalSize.height()), QImage::Format_RGB32)
    {
        m_image.fill(background.rgb());
    }

    void fill(int x, int y, int w, int h, QColor const & color)
    {
        paint(x, y, w, h, [&color](int, int) { return color.rgb(); });
    }

    // Every second device pixel, as on a chess board whose left top field is empty.
    void dither(int x, int y, int w, int h, QColor const & color)
    {
        for (int py = edge(y); py < edge(y + h); ++py) {
            for (int px = edge(x); px < edge(x + w); ++px) {
                if ((px + py) % 2 == 1 && m_image.valid(px, py)) {
                    m_image.setPixel(px, py, color.rgb());
                }
            }
        }
    }

    void frame(int x, int y, int w, int h, QColor const & color)
    {
        fill(x, y, w, 1, color);
        fill(x, y + h - 1, w, 1, color);
        fill(x, y, 1, h, color);
        fill(x + w - 1, y, 1, h, color);
    }

    QImage const & image() const { return m_image; }

private:
    int edge(int logical) const { return qRound(logical * m_ratio); }

    void paint(int x, int y, int w, int h, std::function<QRgb(int, int)> const & color)
    {
        for (int py = edge(y); py < edge(y + h); ++py) {
            for (int px = edge(x); px < edge(x + w); ++px) {
                if (m_image.valid(px, py)) {
                    m_image.setPixel(px, py, color(px, py));
                }
            }
        }
    }

    double m_ratio;
    QImage m_image;
};

// Empty when the pictures are equal, otherwise where they differ first, and how often.
inline QByteArray difference(QImage const & actual, QImage const & expected)
{
    QImage const a = actual.convertToFormat(QImage::Format_RGB32);
    QImage const b = expected.convertToFormat(QImage::Format_RGB32);
    if (a.size() != b.size()) {
        return "size " + QByteArray::number(a.width()) + 'x' + QByteArray::number(a.height());
    }
    int count = 0;
    QByteArray first;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y) && count++ == 0) {
                first = "pixel " + QByteArray::number(x) + ' ' + QByteArray::number(y) + " is " +
                        QColor(a.pixel(x, y)).name().toLatin1() + " not " +
                        QColor(b.pixel(x, y)).name().toLatin1();
            }
        }
    }
    return count == 0 ? QByteArray() : first + ", " + QByteArray::number(count) + " differ";
}

// What `draw` paints on an image or pixmap of this size and ratio.
template <typename Device>
QImage painted(QSize const & logicalSize, double ratio, QColor const & background,
               std::function<void(QPaintDevice *)> const & draw)
{
    QSize const pixels(qRound(logicalSize.width() * ratio), qRound(logicalSize.height() * ratio));
    auto device = [&pixels] {
        if constexpr (std::is_same_v<Device, QPixmap>) {
            return QPixmap(pixels);
        } else {
            return QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        }
    }();
    device.setDevicePixelRatio(ratio);
    device.fill(background);
    draw(&device);
    if constexpr (std::is_same_v<Device, QPixmap>) {
        return device.toImage();
    } else {
        return device;
    }
}

// Gives the application a palette with a colour of its own for every role and group.
class DistinctPalette
{
public:
    DistinctPalette()
        : m_before(QApplication::palette())
    {
        QPalette palette;
        for (int group = 0; group < QPalette::NColorGroups; ++group) {
            for (int role = 0; role < QPalette::NColorRoles; ++role) {
                palette.setColor(QPalette::ColorGroup(group), QPalette::ColorRole(role),
                                 color(QPalette::ColorGroup(group), QPalette::ColorRole(role)));
            }
        }
        QApplication::setPalette(palette);
    }
    ~DistinctPalette() { QApplication::setPalette(m_before); }
    DistinctPalette(DistinctPalette const &) = delete;
    DistinctPalette & operator=(DistinctPalette const &) = delete;

    static QColor color(QPalette::ColorGroup group, QPalette::ColorRole role)
    {
        return QColor(40 + 80 * group, 10 + 11 * role, 250 - 7 * role);
    }
    static QColor active(QPalette::ColorRole role) { return color(QPalette::Active, role); }

private:
    QPalette m_before;
};

// Rows "1", "1.25", "1.5" and "2" of a column "ratio".
inline void addRatios()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

} // namespace zenutest

// Compares what `draw` paints on an image and on a pixmap with a PixelPicture.
#define ZENU_COMPARE_PAINTED(size, ratio, background, draw, expected)                              \
    do {                                                                                           \
        QCOMPARE(zenutest::difference(zenutest::painted<QImage>(size, ratio, background, draw),    \
                                      (expected).image()),                                         \
                 QByteArray());                                                                    \
        QCOMPARE(zenutest::difference(zenutest::painted<QPixmap>(size, ratio, background, draw),   \
                                      (expected).image()),                                         \
                 QByteArray());                                                                    \
    } while (false)
