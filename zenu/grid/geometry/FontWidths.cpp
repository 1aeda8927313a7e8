#include "zenu/grid/geometry/FontWidths.h"

#include <QPaintDevice>

#include <algorithm>

namespace zenu {

namespace {

// By how much a text's picture is narrower, on average, than the advances of its letters.
constexpr float inkError = 0.5F;

QString dotsText()
{
    return QStringLiteral("...");
}

} // namespace

FontWidths::FontWidths(QFont const & givenFont, QPaintDevice const * device, long long & counter)
    : given(givenFont)
    , resolved(device != nullptr ? QFont(givenFont, device) : givenFont)
    , metrics(resolved)
    , realMetrics(resolved)
    , measurements(counter)
    , dotsLine(resolved, dotsText())
    , dotsRoom(dotsLine.size().width())
{
    advances.fill(-1);
    ++measurements;
}

bool FontWidths::isFor(QFont const & other)
{
    if (!given.isCopyOf(other) && given != other) {
        return false;
    }
    given = other;
    return true;
}

int FontWidths::inkWidth(QString const & text) const
{
    ++measurements;
    int const width = metrics.boundingRect(text).width();
    if (width > 0 || text.size() == 1) {
        return width;
    }
    // Nothing is to be seen, or so Qt says: where the last letter, a soft hyphen for one, is alone
    // from its font, Qt finds 0 for all of the text.
    ++measurements;
    return metrics.horizontalAdvance(text);
}

float FontWidths::advance(char letter)
{
    float & known = advances[static_cast<unsigned char>(letter)];
    if (known < 0) {
        ++measurements;
        qreal const width = realMetrics.horizontalAdvance(QString(QLatin1Char(letter)));
        known = std::max(0.0F, static_cast<float>(width));
    }
    return known;
}

int FontWidths::dotsInkWidth()
{
    if (dotsInk < 0) {
        dotsInk = inkWidth(dotsText());
    }
    return dotsInk;
}

std::string_view TextWidths::kept(int count) const
{
    auto const n = static_cast<std::size_t>(count);
    return side == FitSide::End ? text.substr(text.size() - n) : text.substr(0, n);
}

int TextWidths::widthOf(int count)
{
    if (wholeWidth >= 0 && static_cast<std::size_t>(count) == text.size()) {
        return wholeWidth;
    }
    return font.inkWidth(latin1Text(kept(count)));
}

// No kerning and no ligature takes away a third of a text.
bool TextWidths::surelyExceeds(int count, int room)
{
    float const limit = 1.5F * static_cast<float>(room) + 2.0F * static_cast<float>(lineHeight);
    float sum = 0;
    for (char const letter : kept(count)) {
        if (isOddLetter(letter)) {
            return false;
        }
        sum += font.advance(letter);
        if (sum > limit) {
            return true;
        }
    }
    return false;
}

// A space at the end shows nothing, so it takes no room.
int TextWidths::probableCount(int room, int most)
{
    bool const fromEnd = side == FitSide::End;
    float const limit = static_cast<float>(room) + inkError;
    float sum = fromEnd && text.back() == ' ' ? -font.advance(' ') : 0;
    int count = 0;
    while (count < most) {
        auto const n = static_cast<std::size_t>(count);
        char const letter = fromEnd ? text[text.size() - 1 - n] : text[n];
        float const before = sum;
        sum += font.advance(letter);
        if ((letter == ' ' && !fromEnd ? before : sum) > limit) {
            break;
        }
        ++count;
    }
    return count;
}

} // namespace zenu
