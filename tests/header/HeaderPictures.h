#pragma once

#include "tests/header/HeaderFixtures.h"

#include <zenu/overlay/KPainter.h>

#include <QImage>
#include <QPixmap>

// Headers that are never shown, and the pictures that the rules give for them.
namespace zenutest {

constexpr int barHeight = 24;

struct Header : TestHeader
{
    explicit Header(std::vector<int> const & widths = {}, int fmt = 0, int width = 300)
    {
        resize(width, barHeight);
        addItems(widths, fmt);
    }

    void addItem(char const * text, int wh, int fmt = zenu::HeaderFormatText)
    {
        insertItem(-1, zenu::KHeaderItem(text, nullptr, fmt, 0, wh, 0));
    }

    // The header is never shown, so its events come directly.
    void hover(int x)
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, 10), mapToGlobal(QPointF(x, 10)),
                          Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &event);
    }
    void press(int x) { QTest::mousePress(this, Qt::LeftButton, {}, QPoint(x, 10)); }
    QPixmap picture() { return grab(); }
};

inline QImage image(QPixmap const & pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

// As large as a grab of the widget.
inline QPixmap blank(QWidget const & widget)
{
    qreal const ratio = widget.devicePixelRatio();
    QPixmap pixmap((QSizeF(widget.size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(widget.palette().color(QPalette::Window));
    return pixmap;
}

// The colour in the middle of a logical pixel.
inline QColor colorAt(QPixmap const & pixmap, int x, int y)
{
    qreal const ratio = pixmap.devicePixelRatio();
    return image(pixmap).pixelColor(int((x + 0.5) * ratio), int((y + 0.5) * ratio));
}

// Between device pixels the edge of a pixmap is placed otherwise than that of a fill.
inline bool isFractional(QWidget const & widget)
{
    return widget.devicePixelRatio() != qRound(widget.devicePixelRatio());
}

inline QColor sys(int number)
{
    return zenu::KPainter::getSysColor(number);
}

inline QRect coords(int left, int top, int right, int bottom)
{
    QRect rect;
    rect.setCoords(left, top, right, bottom);
    return rect;
}

inline void drawPlainFace(QPainter & p, QRect const & r, bool first, bool hot = false)
{
    int const w = r.right() - r.left();
    int const h = r.bottom() - r.top();
    p.fillRect(r.left(), r.top(), w, h, hot ? zenu::KPainter::getSysColor_Light(true) : sys(1));
    p.fillRect(r.left(), r.bottom() - 1, w, 1, sys(13));
    p.fillRect(r.left(), r.bottom() - 2, w - 1, 1, sys(11));
    p.fillRect(r.right() - 1, r.top(), 1, h - 1, sys(11));
    if (!first) {
        p.fillRect(r.left(), r.top(), 1, h, sys(13));
    }
}

inline void drawPlainSpace(QPainter & p, QRect const & r)
{
    int const w = r.right() - r.left();
    int const h = r.bottom() - r.top();
    p.fillRect(r.left(), r.top(), w, h, sys(1));
    p.fillRect(r.left(), r.top(), 1, h, sys(13));
    p.fillRect(r.left() + 1, r.bottom() - 1, w - 1, r.bottom() - 1, sys(13));
    p.fillRect(r.left() + 1, r.bottom() - 2, w - 1, 1, sys(11));
    p.fillRect(r.right() - 1, r.top(), 1, h - 2, sys(11));
}

inline void drawFlatEdges(QPainter & p, QRect const & all)
{
    p.fillRect(1, 0, all.right(), 1, sys(13));
    p.fillRect(0, all.bottom() - 1, all.right(), 1, sys(11));
}

// Draws a text as an item does, into the picture of one without text.
inline void drawTitle(QPixmap & picture, Header const & header, QRect const & rect, int alignment,
                      char const * text, QColor const & color)
{
    QPainter p(&picture);
    p.setFont(header.getfont());
    p.setPen(color);
    p.drawText(rect, alignment | Qt::AlignVCenter | Qt::TextSingleLine, QString::fromLatin1(text));
}

inline int titleWidth(Header const & header, char const * text)
{
    QPixmap pixmap = blank(header);
    QPainter p(&pixmap);
    p.setFont(header.getfont());
    QRect const bounds =
        p.boundingRect(QRect(), Qt::AlignVCenter | Qt::TextSingleLine, QString::fromLatin1(text));
    return bounds.right() - bounds.left();
}

inline QPixmap filled(int w, int h, QColor const & color)
{
    QPixmap pixmap(w, h);
    pixmap.fill(color);
    return pixmap;
}

// Content of a plain item: one pixel less above and below, three at the sides.
inline QRect plainContent(Header const & header, int index)
{
    return header.getItemRect(index).adjusted(3, 1, -3, -1);
}

} // namespace zenutest
