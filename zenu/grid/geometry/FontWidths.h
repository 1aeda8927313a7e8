#pragma once

#include "zenu/grid/geometry/TextFit.h"
#include "zenu/grid/geometry/TextLine.h"

#include <QFont>
#include <QFontMetrics>
#include <QString>

#include <array>
#include <string_view>

class QPaintDevice;

namespace zenu {

// A font as a TextCache knows it: resolved for one device, with what was measured of it alone.
class FontWidths
{
public:
    // Measures for the device, for the screen when it is null. Each measurement raises `counter`.
    FontWidths(QFont const & givenFont, QPaintDevice const * device, long long & counter);

    // Whether this is the font, by identity at best, else by its description, and then by identity
    // the next time.
    bool isFor(QFont const & other);
    bool isCopyOf(QFont const & other) const { return given.isCopyOf(other); }
    QFont const & deviceFont() const { return resolved; }

    // Of the text's picture, as the fit counts with it.
    int inkWidth(QString const & text) const;
    // Of one Latin-1 letter that stands alone.
    float advance(char letter);
    // The room that "..." takes, and the width of its picture, which the fit counts with.
    int dotsWidth() const { return dotsRoom; }
    int dotsInkWidth();
    TextLine const & dots() const { return dotsLine; }

private:
    QFont given;
    QFont resolved;
    QFontMetrics metrics;
    QFontMetricsF realMetrics;
    long long & measurements;
    std::array<float, 256> advances;
    TextLine dotsLine;
    int dotsRoom;
    int dotsInk = -1;
};

// Letters that Qt lays out in a line otherwise than it measures them: control characters and the
// soft hyphen.
inline bool isOddLetter(char letter)
{
    auto const code = static_cast<unsigned char>(letter);
    return code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0xad;
}

// The widths of the beginnings or ends of a Latin-1 text, which outlives this. `widthOfAll` is that
// of the whole text, -1 when it was not measured yet.
class TextWidths : public ITextWidths
{
public:
    TextWidths(FontWidths & widthsOfFont, std::string_view measuredText, int widthOfAll,
               int heightOfLine, FitSide fitSide)
        : font(widthsOfFont)
        , text(measuredText)
        , wholeWidth(widthOfAll)
        , lineHeight(heightOfLine)
        , side(fitSide)
    {
    }

    std::string_view kept(int count) const;
    int widthOf(int count) override;
    bool surelyExceeds(int count, int room) override;
    int probableCount(int room, int most) override;

private:
    FontWidths & font;
    std::string_view text;
    int wholeWidth;
    int lineHeight;
    FitSide side;
};

// Latin-1 to QString, of a text that has no end mark.
inline QString latin1Text(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace zenu
