#include "zenu/util/inner/heap/IndexSet.h"

namespace zenu {

IndexSet::IndexSet(HeapArena & heap)
    : m_levels{heap, heap, heap, heap, heap, heap}
{
}

bool IndexSet::reserve(std::size_t bound)
{
    int height = 0;
    std::size_t words = bound;
    do {
        words = (words + 63) / 64;
        if (!m_levels[height].reserve(words)) {
            return false;
        }
        m_levels[height].resize(std::max(words, m_levels[height].size()));
        ++height;
    } while (words > 1);
    for (; m_height < height; ++m_height) {
        if (m_height > 0) {
            m_levels[m_height][0] = m_levels[m_height - 1][0] != 0;
        }
    }
    return true;
}

// A word of the lowest level, the one of number `place`, is not 0 any more.
void IndexSet::addAbove(std::size_t place)
{
    for (int level = 1; level < m_height; ++level) {
        std::uint64_t & word = m_levels[level][place / 64];
        bool const wasEmpty = word == 0;
        word |= std::uint64_t{1} << place % 64;
        if (!wasEmpty) {
            return;
        }
        place /= 64;
    }
}

// And here it is 0 now.
void IndexSet::removeAbove(std::size_t place)
{
    for (int level = 1; level < m_height; ++level) {
        std::uint64_t & word = m_levels[level][place / 64];
        word &= ~(std::uint64_t{1} << place % 64);
        if (word != 0) {
            return;
        }
        place /= 64;
    }
}

int IndexSet::lastOfMany() const
{
    std::size_t place = 0;
    for (int level = m_height - 1; level >= 0; --level) {
        std::uint64_t const word = m_levels[level][place];
        if (word == 0) {
            return -1;
        }
        place = place * 64 + static_cast<std::size_t>(std::bit_width(word)) - 1;
    }
    return m_height > 0 ? static_cast<int>(place) : -1;
}

} // namespace zenu
