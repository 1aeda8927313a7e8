#pragma once

#include <zenu/widgets/KPageSelector.h>

#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPixmapCache>
#include <QWidgetAction>
#include <QtTest/QtTest>

namespace zenutest {

constexpr int pageWidth = 21;
constexpr int pageHeight = 26;
constexpr int rows = 4;
constexpr int columns = 5;
inline QSize const gridSize(pageWidth * columns, pageHeight * rows);

inline char const * const unselectedKey = "KMultiPageSelector:un";
inline char const * const selectedKey = "KMultiPageSelector:se";

// What the image of a page shows: a tile in a sunken frame, on it a sheet with its shadow and six
// lines of text.
inline QImage pageImage(QRgb tile)
{
    QImage image(pageWidth, pageHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    auto const fill = [&painter](int left, int top, int right, int bottom, QRgb color) {
        painter.fillRect(QRect(QPoint(left, top), QPoint(right, bottom)), QColor(color));
    };
    fill(0, 0, 20, 25, 0xc4c2c4);
    fill(1, 1, 20, 24, 0xfcfefc);
    fill(1, 1, 19, 23, 0x848284);
    fill(2, 2, 19, 23, 0xd4d2cc);
    fill(2, 2, 18, 22, 0x444244);
    fill(3, 3, 18, 22, tile);
    fill(6, 6, 17, 21, 0x040204);
    fill(5, 5, 15, 19, 0xfcfefc);
    for (int y = 7; y <= 17; y += 2) {
        fill(7, y, 13, y, 0x444244);
    }
    return image;
}

inline QRgb const grey = 0x848284;
inline QRgb const blue = 0x0402fc;

// The grid with the pages above and before a corner selected.
inline QImage gridImage(int selectedRows, int selectedColumns)
{
    QImage const unselected = pageImage(grey);
    QImage const selected = pageImage(blue);
    QImage image(gridSize, QImage::Format_RGB32);
    QPainter painter(&image);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < columns; ++col) {
            bool const in = row < selectedRows && col < selectedColumns;
            painter.drawImage(col * pageWidth, row * pageHeight, in ? selected : unselected);
        }
    }
    return image;
}

// A selector that writes down what was picked, as "rows,columns".
class Selector : public zenu::KPageSelector
{
public:
    explicit Selector(int rowCount = rows, int columnCount = columns)
        : KPageSelector(nullptr, rowCount, columnCount)
    {
        connect(this, &zenu::KPageSelector::pageRangeSelected, this, [this](int down, int across) {
            picked << QStringLiteral("%1,%2").arg(down).arg(across);
        });
    }

    template <typename Widget>
    Widget * item(int index)
    {
        auto * const action = qobject_cast<QWidgetAction *>(actions().value(index));
        return action ? qobject_cast<Widget *>(action->defaultWidget()) : nullptr;
    }
    QWidget * area() { return item<QWidget>(0); }
    QLabel * label() { return item<QLabel>(1); }

    void open()
    {
        popup(QPoint(50, 40));
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }
    // A point of the area, in coordinates of the window.
    QPoint inWindow(QPoint const & point) { return area()->mapTo(this, point); }
    // Moves the mouse of the window system to a point of the area. A move to where the mouse is
    // would be no event.
    void moveTo(QPoint const & point)
    {
        QTest::mouseMove(windowHandle(), inWindow(point) + QPoint(1, 1));
        QTest::mouseMove(windowHandle(), inWindow(point));
        QCoreApplication::processEvents();
    }
    // A move that goes to the area wherever it is, as while a button is held down.
    void dragTo(QPointF const & point)
    {
        QMouseEvent move(QEvent::MouseMove, point, area()->mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(area(), &move);
    }
    QImage picture(double ratio = 1)
    {
        QImage image(area()->size() * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        area()->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        image.setDevicePixelRatio(1);
        return image;
    }

    QStringList picked;
};

// The middle of a page, both from 1.
inline QPoint middle(int row, int column)
{
    return QPoint(column * pageWidth - pageWidth / 2, row * pageHeight - pageHeight / 2);
}

class EventCounter : public QObject
{
public:
    EventCounter(QObject * watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent * event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }

private:
    QEvent::Type m_type;
};

// To be called by init: the offscreen platform complains of what popups want of it.
inline void initSelectorTest()
{
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^(?!This plugin does not support ).*")));
    QPixmapCache::clear();
}

} // namespace zenutest
