#include "ValueBytes.h"

#include <QBitmap>
#include <QBrush>
#include <QColor>
#include <QColorSpace>
#include <QDataStream>
#include <QFont>
#include <QIODevice>
#include <QImage>
#include <QPen>

#include <algorithm>

namespace {

void put(QDataStream & out, QColor const & color)
{
    out << color;
}

bool take(QDataStream & in, QColor * color)
{
    in >> *color;
    return true;
}

// The pixels as they are: Qt's own form is a PNG, which keeps neither the format nor, in formats
// with premultiplied alpha, the numbers.
void putImage(QDataStream & out, QImage const & image)
{
    out << qint32(image.format()) << qint32(image.width()) << qint32(image.height());
    out << image.devicePixelRatio() << qint32(image.dotsPerMeterX())
        << qint32(image.dotsPerMeterY());
    out << image.offset() << image.colorTable() << image.colorSpace().iccProfile();
    int const rowBytes = (image.width() * image.depth() + 7) / 8;
    for (int y = 0; y < image.height(); ++y) {
        out.writeRawData(reinterpret_cast<char const *>(image.constScanLine(y)), rowBytes);
    }
}

bool takePixels(QDataStream & in, QImage * image)
{
    qint64 const rowBytes = (qint64(image->width()) * image->depth() + 7) / 8;
    for (int y = 0; y < image->height(); ++y) {
        if (in.readRawData(reinterpret_cast<char *>(image->scanLine(y)), int(rowBytes)) !=
            rowBytes) {
            return false;
        }
    }
    return true;
}

bool takeImage(QDataStream & in, QImage * image)
{
    qint32 format = 0;
    qint32 width = 0;
    qint32 height = 0;
    qreal ratio = 1;
    qint32 dotsX = 0;
    qint32 dotsY = 0;
    QPoint offset;
    QList<QRgb> colors;
    QByteArray profile;
    in >> format >> width >> height >> ratio >> dotsX >> dotsY >> offset >> colors >> profile;
    if (in.status() != QDataStream::Ok || width < 1 || height < 1 || format < 1 ||
        format >= QImage::NImageFormats) {
        return false;
    }
    // A row takes at least a bit a pixel, so a size that the bytes cannot fill is not believed.
    if (qint64(width) * height / 8 > in.device()->bytesAvailable()) {
        return false;
    }
    QImage read(width, height, QImage::Format(format));
    if (read.isNull()) {
        return false;
    }
    read.setDevicePixelRatio(ratio);
    read.setDotsPerMeterX(dotsX);
    read.setDotsPerMeterY(dotsY);
    read.setOffset(offset);
    if (!colors.isEmpty()) {
        read.setColorTable(colors);
    }
    if (!profile.isEmpty()) {
        read.setColorSpace(QColorSpace::fromIccProfile(profile));
    }
    if (!takePixels(in, &read)) {
        return false;
    }
    *image = read;
    return true;
}

void putGeometry(QDataStream & out, QGradient const & gradient)
{
    switch (gradient.type()) {
    case QGradient::LinearGradient: {
        auto const & line = static_cast<QLinearGradient const &>(gradient);
        out << line.start() << line.finalStop();
        break;
    }
    case QGradient::RadialGradient: {
        auto const & circle = static_cast<QRadialGradient const &>(gradient);
        out << circle.center() << circle.centerRadius() << circle.focalPoint()
            << circle.focalRadius();
        break;
    }
    case QGradient::ConicalGradient: {
        auto const & cone = static_cast<QConicalGradient const &>(gradient);
        out << cone.center() << cone.angle();
        break;
    }
    case QGradient::NoGradient:
        break;
    }
}

QGradient takeGeometry(QDataStream & in, QGradient::Type type)
{
    QPointF a;
    QPointF b;
    qreal x = 0;
    qreal y = 0;
    switch (type) {
    case QGradient::LinearGradient:
        in >> a >> b;
        return QLinearGradient(a, b);
    case QGradient::RadialGradient:
        in >> a >> x >> b >> y;
        return QRadialGradient(a, x, b, y);
    case QGradient::ConicalGradient:
        in >> a >> x;
        return QConicalGradient(a, x);
    case QGradient::NoGradient:
        break;
    }
    return {};
}

void putGradient(QDataStream & out, QGradient const & gradient)
{
    out << qint32(gradient.type()) << qint32(gradient.spread()) << qint32(gradient.coordinateMode())
        << qint32(gradient.interpolationMode());
    putGeometry(out, gradient);
    out << gradient.stops();
}

bool takeGradient(QDataStream & in, QGradient * gradient)
{
    qint32 type = 0;
    qint32 spread = 0;
    qint32 coordinates = 0;
    qint32 interpolation = 0;
    in >> type >> spread >> coordinates >> interpolation;
    *gradient = takeGeometry(in, QGradient::Type(type));
    QGradientStops stops;
    in >> stops;
    if (in.status() != QDataStream::Ok || gradient->type() == QGradient::NoGradient) {
        return false;
    }
    gradient->setSpread(QGradient::Spread(spread));
    gradient->setCoordinateMode(QGradient::CoordinateMode(coordinates));
    gradient->setInterpolationMode(QGradient::InterpolationMode(interpolation));
    gradient->setStops(stops);
    return true;
}

void put(QDataStream & out, QBrush const & brush)
{
    out << quint8(brush.style()) << brush.color() << brush.transform();
    if (brush.style() == Qt::TexturePattern) {
        out << brush.texture().isQBitmap();
        putImage(out, brush.textureImage());
    } else if (QGradient const * const gradient = brush.gradient()) {
        putGradient(out, *gradient);
    }
}

bool takeTexture(QDataStream & in, QBrush * brush)
{
    bool isBitmap = false;
    QImage image;
    in >> isBitmap;
    if (!takeImage(in, &image)) {
        return false;
    }
    if (isBitmap) {
        brush->setTexture(QBitmap::fromImage(image));
    } else {
        brush->setTextureImage(image);
    }
    return true;
}

bool takeGradientBrush(QDataStream & in, QBrush * brush)
{
    QGradient gradient;
    if (!takeGradient(in, &gradient)) {
        return false;
    }
    QColor const color = brush->color();
    *brush = QBrush(gradient);
    brush->setColor(color);
    return true;
}

bool take(QDataStream & in, QBrush * brush)
{
    quint8 style = 0;
    QColor color;
    QTransform transform;
    in >> style >> color >> transform;
    QBrush read(color);
    bool isRead = true;
    if (style == Qt::TexturePattern) {
        isRead = takeTexture(in, &read);
    } else if (style <= Qt::DiagCrossPattern) {
        read.setStyle(Qt::BrushStyle(style));
    } else {
        isRead = takeGradientBrush(in, &read);
    }
    read.setTransform(transform);
    *brush = read;
    return isRead;
}

// Qt's form of a pen, but for the brush, of which Qt's form does not keep everything.
void put(QDataStream & out, QPen const & pen)
{
    QPen plain = pen;
    plain.setBrush(Qt::NoBrush);
    out << plain;
    put(out, pen.brush());
}

bool take(QDataStream & in, QPen * pen)
{
    QPen read;
    QBrush brush;
    in >> read;
    if (!take(in, &brush)) {
        return false;
    }
    read.setBrush(brush);
    *pen = read;
    return true;
}

void put(QDataStream & out, QFont const & font)
{
    out << font << quint32(font.resolveMask());
}

bool take(QDataStream & in, QFont * font)
{
    quint32 mask = 0;
    in >> *font >> mask;
    font->setResolveMask(mask);
    return true;
}

} // namespace

template <typename Value>
QByteArray toBytes(Value const & value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_4);
    put(out, value);
    return bytes;
}

template <typename Value>
bool fromBytes(QByteArray const & bytes, Value * value)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_6_4);
    Value read;
    if (!take(in, &read) || in.status() != QDataStream::Ok || !in.atEnd()) {
        return false;
    }
    *value = read;
    return true;
}

template QByteArray toBytes(QBrush const &);
template QByteArray toBytes(QColor const &);
template QByteArray toBytes(QFont const &);
template QByteArray toBytes(QPen const &);
template bool fromBytes(QByteArray const &, QBrush *);
template bool fromBytes(QByteArray const &, QColor *);
template bool fromBytes(QByteArray const &, QFont *);
template bool fromBytes(QByteArray const &, QPen *);
