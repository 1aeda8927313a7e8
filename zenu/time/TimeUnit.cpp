#include "zenu/time/TimeUnit.h"

#include "zenu/util/StringUtils.h"
#include "zenu/util/inner/NumberText.h"

#include <algorithm>
#include <cstdint>

namespace zenu {

namespace {

// A word of at most four letters as one number, the last letter in the lowest byte.
using Word = std::uint32_t;

constexpr unsigned longestWord = sizeof(Word);

constexpr Word withLetter(Word word, char letter)
{
    return word << 8 | foldCase(letter);
}

struct Slot
{
    constexpr Slot() = default;
    constexpr Slot(char const * text, TimeUnit::EUnit meaning)
        : unit(meaning)
    {
        for (; *text != '\0'; ++text) {
            word = withLetter(word, *text);
        }
    }

    Word word = 0; // no run of letters
    TimeUnit::EUnit unit = TimeUnit::unknown;
};

// The perfect hash of the words: offset of the first letter plus length. Slots of two letters lie
// over each other (s and p), and some are empty, so the word in the slot decides.
constexpr Slot slots[] = {{},
                          {},
                          {"ms", TimeUnit::ms},
                          {"min", TimeUnit::min},
                          {"msec", TimeUnit::ms},
                          {},
                          {"us", TimeUnit::us},
                          {"fs", TimeUnit::fs},
                          {"usec", TimeUnit::us},
                          {"fsec", TimeUnit::fs},
                          {"h", TimeUnit::hr},
                          {"hr", TimeUnit::hr},
                          {"ns", TimeUnit::ns},
                          {},
                          {"nsec", TimeUnit::ns},
                          {},
                          {"s", TimeUnit::sec},
                          {"ps", TimeUnit::ps},
                          {"sec", TimeUnit::sec},
                          {"psec", TimeUnit::ps}};

constexpr unsigned slotCount = std::size(slots);

// By the letter, small, from a.
constexpr struct Offsets
{
    constexpr Offsets()
    {
        std::fill(std::begin(of), std::end(of), static_cast<std::uint8_t>(slotCount));
        of['m' - 'a'] = 0;
        of['u' - 'a'] = 4;
        of['f' - 'a'] = 5;
        of['h' - 'a'] = 9;
        of['n' - 'a'] = 10;
        of['p' - 'a'] = 15;
        of['s' - 'a'] = 15;
    }
    std::uint8_t of['z' - 'a' + 1] = {};
} offsets;

} // namespace

constinit TimeUnit::EUnit TimeUnit::s_defaultUnit = TimeUnit::fs;

TimeUnit::EUnit TimeUnit::bestUnit(double const & x)
{
    struct Limit
    {
        double below;
        EUnit unit;
    };
    constexpr Limit limits[] = {{1e4, fs},  {1e7, ps},   {1e10, ns},   {1e13, us},
                                {1e16, ms}, {6e17, sec}, {3.6e19, min}};
    for (Limit const & limit : limits) {
        if (x < limit.below) {
            return limit.unit;
        }
    }
    return hr;
}

TimeUnit::EUnit TimeUnit::smallestUnit(double const & multiplier)
{
    // A resolution of 1 fs is worth ps, too, never fs: the entry widgets rely on it.
    TimeUnit unit = ps;
    while (unit != unknown && !(multiplier <= unit.factor())) {
        ++unit;
    }
    return unit;
}

TimeUnit::EUnit TimeUnit::parseUnit(char const * text, char const ** end)
{
    auto const [unit, behind] = parse(text);
    if (end) {
        *end = behind;
    }
    return unit;
}

TimeUnit const & TimeUnit::operator++()
{
    m_unit = static_cast<EUnit>(std::min(place() + 1, static_cast<unsigned>(unknown)));
    return *this;
}

TimeUnit const & TimeUnit::operator--()
{
    m_unit = place() == fs ? unknown : static_cast<EUnit>(place() - 1);
    return *this;
}

std::pair<TimeUnit::EUnit, char const *> TimeUnit::parse(char const * text)
{
    if (!text) {
        return {unknown, nullptr};
    }
    while (isSpace(*text)) {
        ++text;
    }
    char const * const first = text;
    Word word = 0;
    for (; isLetter(*text); ++text) {
        if (text == first + longestWord) { // so that the parser never stops inside of a word
            return {unknown, nullptr};
        }
        word = withLetter(word, *text);
    }
    if (text == first) {
        return {unknown, nullptr};
    }
    unsigned const slot = offsets.of[foldCase(*first) - 'a'] + static_cast<unsigned>(text - first);
    if (slot >= slotCount || slots[slot].word != word) {
        return {unknown, nullptr};
    }
    return {slots[slot].unit, text};
}

} // namespace zenu
