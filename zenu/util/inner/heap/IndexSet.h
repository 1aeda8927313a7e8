#pragma once

#include "zenu/util/inner/heap/ArenaArray.h"

#include <bit>
#include <cstdint>

namespace zenu {

// A set of indices that knows its largest: a bit for each index, a bit for each word that is not 0,
// and so on up to one word. Every operation is O(log64 of the bound); one word serves 64 indices.
class ZENU_TEST_EXPORT IndexSet
{
public:
    explicit IndexSet(HeapArena & heap);

    /// Lets indices below `bound` be added. False when the arena refuses; the set stays usable.
    bool reserve(std::size_t bound);
    void add(int index)
    {
        auto const place = static_cast<std::size_t>(index);
        std::uint64_t & word = m_levels[0][place / 64];
        bool const wasEmpty = word == 0;
        word |= std::uint64_t{1} << place % 64;
        if (m_height > 1 && wasEmpty) {
            addAbove(place / 64);
        }
    }
    void remove(int index)
    {
        auto const place = static_cast<std::size_t>(index);
        std::uint64_t & word = m_levels[0][place / 64];
        word &= ~(std::uint64_t{1} << place % 64);
        if (m_height > 1 && word == 0) {
            removeAbove(place / 64);
        }
    }
    /// The largest index, -1 when there is none.
    int last() const
    {
        return m_height == 1 ? static_cast<int>(std::bit_width(m_levels[0][0])) - 1 : lastOfMany();
    }

private:
    void addAbove(std::size_t place);
    void removeAbove(std::size_t place);
    int lastOfMany() const;

    static constexpr int maxLevels = 6; // 64 to the sixth is more than an int holds

    ArenaArray<std::uint64_t> m_levels[maxLevels];
    int m_height = 0; // levels in use; the topmost has one word
};

} // namespace zenu
