#include "examples/explorer/rows/Icons.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace explorer {

namespace {

constexpr QRgb paper = 0xfffdfdfe;
constexpr QRgb outline = 0xff8d98a5;
constexpr QRgb fold = 0xffdfe5ec;

QPen pen(QRgb color, double width = 1)
{
    return QPen(QColor::fromRgba(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// All coordinates are those of one icon of 16 by 16; lines of width 1 lie on half pixels.

void drawFolder(QPainter & painter)
{
    QPainterPath back;
    back.moveTo(1.5, 12.5);
    back.lineTo(1.5, 3.5);
    back.quadTo(1.5, 2.5, 2.5, 2.5);
    back.lineTo(6.0, 2.5);
    back.lineTo(7.6, 4.5);
    back.lineTo(13.5, 4.5);
    back.quadTo(14.5, 4.5, 14.5, 5.5);
    back.lineTo(14.5, 12.5);
    back.quadTo(14.5, 13.5, 13.5, 13.5);
    back.lineTo(2.5, 13.5);
    back.quadTo(1.5, 13.5, 1.5, 12.5);
    QLinearGradient colour(0, 4, 0, 14);
    colour.setColorAt(0, QColor(0xf9, 0xd5, 0x7e));
    colour.setColorAt(1, QColor(0xf0, 0xb4, 0x3e));
    painter.setPen(pen(0xffc08a26));
    painter.setBrush(colour);
    painter.drawPath(back);
    painter.setPen(pen(0xfffdeac0));
    painter.drawLine(QPointF(2.5, 6.5), QPointF(13.5, 6.5));
}

void drawPage(QPainter & painter)
{
    QPainterPath page;
    page.moveTo(3.5, 1.5);
    page.lineTo(9.5, 1.5);
    page.lineTo(12.5, 4.5);
    page.lineTo(12.5, 14.5);
    page.lineTo(3.5, 14.5);
    page.closeSubpath();
    painter.setPen(pen(outline));
    painter.setBrush(QColor::fromRgba(paper));
    painter.drawPath(page);
    painter.setBrush(QColor::fromRgba(fold));
    painter.drawPolygon(QPolygonF({{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
}

void drawCode(QPainter & painter)
{
    drawPage(painter);
    painter.setPen(pen(0xff2f7fc1, 1.2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{7.0, 7.2}, {5.3, 9.3}, {7.0, 11.4}}));
    painter.drawPolyline(QPolygonF({{9.0, 7.2}, {10.7, 9.3}, {9.0, 11.4}}));
}

void drawText(QPainter & painter)
{
    drawPage(painter);
    painter.setPen(pen(0xff93a0ae));
    for (double const y : {6.5, 8.5, 10.5}) {
        painter.drawLine(QPointF(5.5, y), QPointF(10.5, y));
    }
    painter.drawLine(QPointF(5.5, 12.5), QPointF(8.5, 12.5));
}

void drawImage(QPainter & painter)
{
    painter.setPen(pen(outline));
    painter.setBrush(QColor(0xd9, 0xec, 0xf8));
    painter.drawRect(QRectF(1.5, 3.5, 13, 10));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xf5, 0xbe, 0x41));
    painter.drawEllipse(QPointF(5, 6.4), 1.5, 1.5);
    painter.setBrush(QColor(0x5a, 0xa0, 0x5f));
    painter.drawPolygon(QPolygonF({{2, 13}, {6, 9}, {8, 11}, {11, 7.4}, {14, 11}, {14, 13}}));
}

void drawMedia(QPainter & painter)
{
    painter.setPen(pen(0xff7a4fa3));
    painter.setBrush(QColor(0xef, 0xe6, 0xf7));
    painter.drawEllipse(QRectF(1.5, 1.5, 13, 13));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x7a, 0x4f, 0xa3));
    painter.drawPolygon(QPolygonF({{6.3, 4.8}, {6.3, 11.2}, {11.4, 8}}));
}

void drawArchive(QPainter & painter)
{
    drawPage(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xb5, 0x8a, 0x3c));
    for (int row = 0; row < 4; ++row) {
        painter.drawRect(QRectF(row % 2 == 0 ? 6 : 7.5, 3 + row * 1.5, 1.5, 1.5));
    }
    painter.setPen(pen(0xffb58a3c));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(6.5, 9.5, 2, 3));
}

void drawProgram(QPainter & painter)
{
    painter.setPen(pen(0xff4a5560));
    painter.setBrush(QColor(0x56, 0x63, 0x70));
    painter.drawRoundedRect(QRectF(1.5, 2.5, 13, 11), 1.5, 1.5);
    painter.setPen(pen(0xffd7f5dc, 1.3));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{4.2, 5.8}, {6.6, 8}, {4.2, 10.2}}));
    painter.drawLine(QPointF(8, 10.5), QPointF(11.5, 10.5));
}

void drawLink(QPainter & painter)
{
    drawPage(painter);
    painter.setPen(pen(0xff2f7fc1, 1.6));
    painter.setBrush(Qt::NoBrush);
    QPainterPath arrow;
    arrow.moveTo(5.5, 12.5);
    arrow.quadTo(5.5, 8.5, 10, 8.5);
    painter.drawPath(arrow);
    painter.setBrush(QColor(0x2f, 0x7f, 0xc1));
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(QPolygonF({{8.6, 5.6}, {8.6, 11.4}, {11.8, 8.5}}));
}

void drawDevice(QPainter & painter)
{
    drawPage(painter);
    painter.setPen(pen(0xff8d98a5));
    painter.setBrush(QColor(0xc6, 0xce, 0xd7));
    painter.drawEllipse(QRectF(5.5, 7.5, 5, 5));
}

void drawHome(QPainter & painter)
{
    painter.setPen(pen(outline));
    painter.setBrush(QColor::fromRgba(paper));
    painter.drawRect(QRectF(3.5, 7.5, 9, 6));
    painter.setPen(pen(0xffb4542f));
    painter.setBrush(QColor(0xd9, 0x75, 0x4d));
    painter.drawPolygon(QPolygonF({{1.5, 8.0}, {8, 2.0}, {14.5, 8.0}}));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x8c, 0x6a, 0x4f));
    painter.drawRect(QRectF(7, 10, 2, 4));
}

void drawDesktop(QPainter & painter)
{
    painter.setPen(pen(0xff5d6975));
    painter.setBrush(QColor(0x6f, 0xb1, 0xe0));
    painter.drawRoundedRect(QRectF(1.5, 2.5, 13, 9), 1, 1);
    painter.drawLine(QPointF(8, 11.5), QPointF(8, 13.5));
    painter.drawLine(QPointF(5.5, 13.5), QPointF(10.5, 13.5));
}

void drawVolume(QPainter & painter)
{
    QLinearGradient colour(0, 4, 0, 13);
    colour.setColorAt(0, QColor(0xe8, 0xec, 0xf0));
    colour.setColorAt(1, QColor(0xb9, 0xc3, 0xcd));
    painter.setPen(pen(0xff77838f));
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(1.5, 4.5, 13, 8), 1.5, 1.5);
    painter.drawLine(QPointF(2, 9.5), QPointF(14, 9.5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x4c, 0xaf, 0x50));
    painter.drawEllipse(QPointF(12, 11), 0.9, 0.9);
}

// On the corner of an icon: it can't be opened.
void drawLock(QPainter & painter)
{
    painter.setPen(pen(0xffffffff));
    painter.setBrush(QColor(0xc6, 0x3d, 0x3d));
    painter.drawEllipse(QRectF(7.5, 7.5, 8, 8));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(9.3, 10.7, 4.4, 1.6));
}

void drawIcon(QPainter & painter, Icon icon)
{
    switch (icon) {
    case Icon::Folder:
        return drawFolder(painter);
    case Icon::LockedFolder:
        drawFolder(painter);
        return drawLock(painter);
    case Icon::File:
        return drawPage(painter);
    case Icon::Code:
        return drawCode(painter);
    case Icon::Text:
        return drawText(painter);
    case Icon::Image:
        return drawImage(painter);
    case Icon::Media:
        return drawMedia(painter);
    case Icon::Archive:
        return drawArchive(painter);
    case Icon::Program:
        return drawProgram(painter);
    case Icon::Link:
        return drawLink(painter);
    case Icon::Device:
        return drawDevice(painter);
    case Icon::Home:
        return drawHome(painter);
    case Icon::Desktop:
        return drawDesktop(painter);
    case Icon::Volume:
        return drawVolume(painter);
    }
}

} // namespace

QPixmap iconStrip(double ratio)
{
    int const size = static_cast<int>(std::ceil(iconSize * ratio));
    QPixmap strip(size * iconCount, size);
    strip.setDevicePixelRatio(ratio);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < iconCount; ++i) {
        painter.save();
        painter.translate(i * iconSize, 0);
        drawIcon(painter, static_cast<Icon>(i));
        painter.restore();
    }
    return strip;
}

} // namespace explorer
