#include "Texts.h"

#include <cstdint>
#include <cstdio>
#include <map>
#include <tuple>

namespace bench {

std::size_t scattered(std::size_t number)
{
    std::uint64_t value = number + 0x9e3779b97f4a7c15U;
    value = (value ^ value >> 30) * 0xbf58476d1ce4e5b9U;
    value = (value ^ value >> 27) * 0x94d049bb133111ebU;
    return value ^ value >> 31;
}

namespace {

void writeRandom(char * text, std::size_t number)
{
    static constexpr char letters[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 _";
    std::size_t const length = 4 + scattered(number * 2) % (Texts::longest - 3);
    std::size_t bits = scattered(number * 2 + 1);
    for (std::size_t i = 0; i < length; ++i) {
        if (i == 10) {
            bits = scattered(bits);
        }
        text[i] = letters[bits & 63];
        bits >>= 6;
    }
    text[length] = 0;
}

} // namespace

Texts::Texts(int rows, int columns, TextKind kind)
    : rowCount(rows)
    , columnCount(columns)
    , bytes(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns))
{
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (kind == TextKind::Random) {
            writeRandom(bytes[i].data(), i);
        } else {
            auto const number = static_cast<unsigned>(scattered(i) % 10000000);
            std::snprintf(bytes[i].data(), bytes[i].size(), "Entry no %06u", number % 1000000);
        }
    }
}

Texts const & keptTexts(int rows, int columns, TextKind kind)
{
    static std::map<std::tuple<int, int, TextKind>, Texts> kept;
    return kept.try_emplace({rows, columns, kind}, rows, columns, kind).first->second;
}

} // namespace bench
