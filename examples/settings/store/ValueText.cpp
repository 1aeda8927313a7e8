#include "ValueText.h"

#include "ValueBytes.h"

#include <QBrush>
#include <QColor>
#include <QCryptographicHash>
#include <QFont>
#include <QLocale>
#include <QMetaEnum>
#include <QPen>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

QString const sealMark = QStringLiteral("base64:");
constexpr int checkBytes = 6;

// What keeps the bytes of one type from being taken for another's.
char const * typeWord(QColor const &)
{
    return "colour";
}

char const * typeWord(QPen const &)
{
    return "pen";
}

char const * typeWord(QFont const &)
{
    return "font";
}

char const * typeWord(QBrush const &)
{
    return "brush";
}

QByteArray checksum(char const * word, QByteArray const & bytes)
{
    return QCryptographicHash::hash(word + bytes, QCryptographicHash::Sha1).left(checkBytes);
}

template <typename Value>
QString sealed(Value const & value)
{
    QByteArray const bytes = toBytes(value);
    return sealMark + QString::fromLatin1((checksum(typeWord(value), bytes) + bytes).toBase64());
}

// Nothing but what was sealed is ever read as bytes, whatever happened to the file.
template <typename Value>
bool unseal(QString const & text, Value * value)
{
    auto const decoded = QByteArray::fromBase64Encoding(text.mid(sealMark.size()).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    QByteArray const bytes = decoded.decoded.mid(checkBytes);
    return decoded && decoded.decoded.left(checkBytes) == checksum(typeWord(*value), bytes) &&
           fromBytes(bytes, value);
}

template <typename Enum>
QString enumText(Enum value)
{
    return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(int(value)));
}

template <typename Enum>
bool enumValue(QString const & text, Enum * value)
{
    bool known = false;
    *value = Enum(QMetaEnum::fromType<Enum>().keyToValue(text.toLatin1().constData(), &known));
    return known;
}

// The readable texts of a value, of which the first that says everything is taken.

QStringList readable(QColor const & color)
{
    if (!color.isValid()) {
        return {QStringLiteral("invalid")};
    }
    return {color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb)};
}

bool parse(QString const & text, QColor * color)
{
    if (text == QLatin1String("invalid")) {
        *color = QColor();
        return true;
    }
    if (!QColor::isValidColor(text)) {
        return false;
    }
    *color = QColor(text);
    return true;
}

QStringList readable(QBrush const & brush)
{
    return {enumText(brush.style()) + QLatin1Char(' ') + toText(brush.color())};
}

bool parse(QString const & text, QBrush * brush)
{
    QStringList const words = text.split(QLatin1Char(' '));
    Qt::BrushStyle style{};
    QColor color;
    // A gradient or a texture is never said in words.
    if (words.size() != 2 || !enumValue(words[0], &style) || style > Qt::DiagCrossPattern ||
        !fromText(words[1], &color)) {
        return false;
    }
    *brush = QBrush(color, style);
    return true;
}

// With the width, and with a dash instead, for a pen that never had one set.
QStringList readable(QPen const & pen)
{
    QString const form = enumText(pen.style()) + QStringLiteral(" %1 ") + enumText(pen.capStyle()) +
                         QLatin1Char(' ') + enumText(pen.joinStyle()) + QLatin1Char(' ') +
                         toText(pen.color());
    return {form.arg(QString::number(pen.widthF(), 'g', QLocale::FloatingPointShortest)),
            form.arg(QLatin1Char('-'))};
}

bool parse(QString const & text, QPen * pen)
{
    QStringList const words = text.split(QLatin1Char(' '));
    Qt::PenStyle style{};
    Qt::PenCapStyle cap{};
    Qt::PenJoinStyle join{};
    QColor color;
    if (words.size() != 5 || !enumValue(words[0], &style) || style > Qt::DashDotDotLine ||
        !enumValue(words[2], &cap) || !enumValue(words[3], &join) || !fromText(words[4], &color)) {
        return false;
    }
    QPen read(color);
    if (words[1] != QLatin1String("-")) {
        bool isNumber = false;
        double const width = words[1].toDouble(&isNumber);
        if (!isNumber || !(width >= 0) || !std::isfinite(width)) {
            return false;
        }
        read = QPen(QBrush(color), width);
    }
    read.setStyle(style);
    read.setCapStyle(cap);
    read.setJoinStyle(join);
    *pen = read;
    return true;
}

// Qt's own text and, after the last semicolon, which properties were set.
QStringList readable(QFont const & font)
{
    return {font.toString() + QLatin1Char(';') + QString::number(font.resolveMask(), 16)};
}

// Qt complains of fields that are missing or out of range, so they are looked at first.
bool isFontText(QString const & text)
{
    QStringList const fields = text.split(QLatin1Char(','));
    if (fields.size() < 16 || fields.size() > 17 || fields[0].isEmpty()) {
        return false;
    }
    bool areNumbers = true;
    for (int i = 1; i < 16 && areNumbers; ++i) {
        double const number = fields[i].toDouble(&areNumbers);
        areNumbers = areNumbers && std::isfinite(number) && std::abs(number) <= 65535;
    }
    int const weight = fields[4].toInt();
    int const stretch = fields[14].toInt();
    return areNumbers && weight >= 1 && weight <= 1000 && stretch >= 0 && stretch <= 4000;
}

bool parse(QString const & text, QFont * font)
{
    qsizetype const end = text.lastIndexOf(QLatin1Char(';'));
    bool hasMask = false;
    uint const mask = text.mid(end + 1).toUInt(&hasMask, 16);
    QFont read;
    if (end < 0 || !hasMask || !isFontText(text.left(end)) || !read.fromString(text.left(end))) {
        return false;
    }
    read.setResolveMask(mask);
    *font = read;
    return true;
}

} // namespace

template <typename Value>
QString toText(Value const & value)
{
    QByteArray const bytes = toBytes(value);
    QStringList const texts = readable(value);
    auto const exact = std::find_if(texts.begin(), texts.end(), [&](QString const & text) {
        Value again;
        return parse(text, &again) && toBytes(again) == bytes;
    });
    return exact == texts.end() ? sealed(value) : *exact;
}

template <typename Value>
bool fromText(QString const & text, Value * value)
{
    return text.startsWith(sealMark) ? unseal(text, value) : parse(text, value);
}

template QString toText(QBrush const &);
template QString toText(QColor const &);
template QString toText(QFont const &);
template QString toText(QPen const &);
template bool fromText(QString const &, QBrush *);
template bool fromText(QString const &, QColor *);
template bool fromText(QString const &, QFont *);
template bool fromText(QString const &, QPen *);
