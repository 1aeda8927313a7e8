#pragma once

#include "examples/settings/store/IniStore.h"
#include "examples/settings/store/ValueBytes.h"
#include "examples/settings/store/ValueText.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QBitmap>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QLinearGradient>
#include <QtGui/QPen>

#include <random>

namespace settingstest {

// Values of each type from all corners, always the same for a seed.
class RandomValues
{
public:
    explicit RandomValues(unsigned seed)
        : m_random(seed)
    {
    }

    int upTo(int end) { return int(m_random() % unsigned(end)); }
    bool flip() { return upTo(2) == 0; }
    double real() { return double(m_random()) / 4294967296.0; }
    unsigned bits() { return unsigned(m_random()); }
    long long bits64() { return (static_cast<long long>(m_random()) << 32) ^ bits(); }

    QColor color()
    {
        float const alpha = float(real());
        switch (upTo(8)) {
        case 0:
            return QColor();
        case 1:
            return QColor::fromHsvF(float(real()), float(real()), float(real()), alpha);
        case 2:
            return QColor::fromCmykF(float(real()), float(real()), float(real()), float(real()),
                                     alpha);
        case 3:
            return QColor::fromHslF(float(real()), float(real()), float(real()), alpha);
        case 4: // beyond what a screen shows
            return QColor::fromRgbF(float(real() * 4), float(real() * 4 - 1), 2.5f, alpha);
        case 5:
            return QColor::fromRgba64(quint16(bits()), quint16(bits()), quint16(bits()),
                                      quint16(bits()));
        case 6:
            return QColor(upTo(256), upTo(256), upTo(256), upTo(256));
        default:
            return QColor(upTo(256), upTo(256), upTo(256));
        }
    }

    QBrush brush()
    {
        QBrush made = brushOfAKind();
        if (flip()) {
            made.setTransform(
                QTransform(real(), real(), real(), real(), real(), real(), real() * 9, real(), 1));
        }
        return made;
    }

    QPen pen()
    {
        QPen made(brush(), real() * 9, Qt::PenStyle(upTo(6)));
        made.setCapStyle(flip() ? Qt::FlatCap : Qt::RoundCap);
        made.setJoinStyle(flip() ? Qt::MiterJoin : Qt::SvgMiterJoin);
        if (flip()) {
            made.setDashPattern({real() * 5, 1.0 / 3, real() + 0.1, 2});
            made.setDashOffset(real() * 3);
        }
        if (flip()) {
            made.setMiterLimit(real() * 20);
        }
        made.setCosmetic(flip());
        return flip() ? made : QPen(color());
    }

    QFont font()
    {
        QFont made;
        if (flip()) {
            made.setFamilies({QStringLiteral("Some, odd; family"), QStringLiteral("Serif")});
        } else {
            made.setFamily(QStringLiteral("Sans"));
        }
        if (flip()) {
            made.setPointSizeF(1 + real() * 40);
        } else {
            made.setPixelSize(1 + upTo(200));
        }
        if (flip()) {
            made.setWeight(QFont::Weight(1 + upTo(1000)));
            made.setStyle(QFont::Style(upTo(3)));
            made.setStretch(1 + upTo(4000));
        }
        made.setUnderline(flip());
        made.setStrikeOut(flip());
        if (flip()) {
            made.setOverline(flip());
            made.setKerning(flip());
            made.setFixedPitch(flip());
            made.setCapitalization(QFont::Capitalization(upTo(5)));
            made.setLetterSpacing(flip() ? QFont::AbsoluteSpacing : QFont::PercentageSpacing,
                                  real() * 120);
            made.setWordSpacing(real() * 7);
            made.setHintingPreference(QFont::HintingPreference(upTo(4)));
            made.setStyleHint(QFont::Monospace, QFont::PreferAntialias);
            made.setStyleName(QStringLiteral("Bold"));
        }
        return made;
    }

    std::string text()
    {
        std::string made;
        for (int i = upTo(40); i > 0; --i) {
            made += char(1 + upTo(255));
        }
        return made;
    }

    // A name of letters and of what means something in a file or to QSettings.
    std::string name()
    {
        static char const letters[] = "aZ09/\\~%=;#[]\"' @,.:&\t\xe9\xff-_\n";
        std::string made;
        for (int i = 1 + upTo(8); i > 0; --i) {
            made += letters[upTo(int(sizeof letters) - 1)];
        }
        return made;
    }

private:
    QGradientStops stops()
    {
        QGradientStops made;
        for (int i = upTo(5); i > 0; --i) {
            made.push_back({real(), color()});
        }
        return made;
    }

    template <typename Gradient>
    QBrush gradient(Gradient made)
    {
        made.setSpread(QGradient::Spread(upTo(3)));
        made.setCoordinateMode(QGradient::CoordinateMode(upTo(4)));
        made.setInterpolationMode(QGradient::InterpolationMode(upTo(2)));
        if (flip()) {
            made.setStops(stops());
        }
        QBrush filled(made);
        if (flip()) {
            filled.setColor(color());
        }
        return filled;
    }

    QImage image(QImage::Format format)
    {
        QImage made(1 + upTo(9), 1 + upTo(9), format);
        for (int y = 0; y < made.height(); ++y) {
            for (int x = 0; x < made.bytesPerLine(); ++x) {
                made.scanLine(y)[x] = uchar(upTo(256));
            }
        }
        if (format == QImage::Format_Indexed8) {
            QList<QRgb> colors;
            for (int i = 0; i < 256; ++i) {
                colors.push_back(bits());
            }
            made.setColorTable(colors);
        }
        made.setDevicePixelRatio(flip() ? 2 : 1);
        return made;
    }

    QBrush brushOfAKind()
    {
        switch (upTo(8)) {
        case 0:
            return gradient(QLinearGradient(real(), real(), real(), real()));
        case 1: {
            QRadialGradient made(QPointF(real(), real()), real(), QPointF(real(), real()), real());
            return gradient(made);
        }
        case 2:
            return gradient(QConicalGradient(real(), real(), real() * 360));
        case 3:
            return QBrush(
                image(flip() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB16));
        case 4:
            return QBrush(image(flip() ? QImage::Format_Indexed8 : QImage::Format_RGBA64));
        case 5:
            return QBrush(color(), QBitmap::fromImage(QImage(5, 3, QImage::Format_Mono)));
        case 6:
            return QBrush(color());
        default:
            return QBrush(color(), Qt::BrushStyle(upTo(15)));
        }
    }

    std::mt19937 m_random;
};

inline bool sameGradient(QGradient const * a, QGradient const * b)
{
    return (!a && !b) || (a && b && *a == *b && a->interpolationMode() == b->interpolationMode());
}

// Qt compares textures by the object that they are, so their pixels are compared here. Returns what
// differs.
inline std::string difference(QBrush const & a, QBrush const & b)
{
    if (a.style() != b.style()) {
        return "style";
    }
    if (a.color() != b.color() || a.color().spec() != b.color().spec()) {
        return "colour";
    }
    if (a.transform() != b.transform()) {
        return "transform";
    }
    if (!sameGradient(a.gradient(), b.gradient())) {
        return "gradient";
    }
    if (a.style() == Qt::TexturePattern) {
        QImage const left = a.textureImage();
        QImage const right = b.textureImage();
        if (left != right || left.format() != right.format() ||
            left.devicePixelRatio() != right.devicePixelRatio() ||
            a.texture().isQBitmap() != b.texture().isQBitmap()) {
            return "texture";
        }
        return {};
    }
    return a == b ? "" : "something";
}

inline std::string difference(QPen const & a, QPen const & b)
{
    std::string const brush = difference(a.brush(), b.brush());
    if (!brush.empty()) {
        return "brush: " + brush;
    }
    if (a.style() != b.style() || a.capStyle() != b.capStyle() || a.joinStyle() != b.joinStyle()) {
        return "styles";
    }
    if (a.widthF() != b.widthF() || a.miterLimit() != b.miterLimit() ||
        a.isCosmetic() != b.isCosmetic()) {
        return "sizes";
    }
    if (a.dashPattern() != b.dashPattern() || a.dashOffset() != b.dashOffset()) {
        return "dashes";
    }
    return {};
}

inline std::string difference(QFont const & a, QFont const & b)
{
    if (a.resolveMask() != b.resolveMask()) {
        return "mask";
    }
    return a == b && a.families() == b.families() && a.key() == b.key() ? "" : "font";
}

inline std::string difference(QColor const & a, QColor const & b)
{
    return a == b && a.spec() == b.spec() && a.isValid() == b.isValid() && a.alphaF() == b.alphaF()
               ? ""
               : "colour";
}

} // namespace settingstest
