#pragma once

#include <cstddef>

namespace explorer {

/// A character of a file name. File systems keep bytes, so a name may hold bytes that are no UTF-8:
/// each of those is a character of its own, whose code lies above all of Unicode.
struct Character
{
    char32_t code = 0;
    std::size_t size = 0; ///< bytes; 0 at the end of the name

    static constexpr char32_t strayBytes = 0x110000;
    bool isStray() const { return code >= strayBytes; }
};

/// The character that starts at `at`, within a string that ends in 0.
inline Character characterAt(char const * at)
{
    auto const byte = [at](std::size_t i) { return static_cast<unsigned char>(at[i]); };
    unsigned char const lead = byte(0);
    if (lead < 0x80) {
        return {lead, lead == 0 ? std::size_t{0} : std::size_t{1}};
    }
    Character const stray{Character::strayBytes + lead, 1};
    std::size_t const size = lead >= 0xf0 ? 4 : (lead >= 0xe0 ? 3 : 2);
    if (lead < 0xc2 || lead > 0xf4) {
        return stray;
    }
    char32_t code = static_cast<char32_t>(lead & (0x7f >> size));
    for (std::size_t i = 1; i < size; ++i) {
        if ((byte(i) & 0xc0) != 0x80) {
            return stray;
        }
        code = (code << 6) | (byte(i) & 0x3f);
    }
    bool const tooLong = code < (size == 2 ? 0x80u : (size == 3 ? 0x800u : 0x10000u));
    bool const surrogate = code >= 0xd800 && code < 0xe000;
    return tooLong || surrogate || code > 0x10ffff ? stray : Character{code, size};
}

} // namespace explorer
