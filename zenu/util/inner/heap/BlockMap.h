#pragma once

#include "zenu/util/inner/heap/ArenaArray.h"
#include "zenu/util/inner/heap/SlotBlock.h"

namespace zenu {

// Finds the block of any pool of a heap that holds an address, without a look at what lies there:
// the memory of an object that is freed late is in no cache. The address space is cut into cells of
// two to four times the smallest block; a hash table with linear probing has an entry for each cell
// of each block, at most half of it in use. O(1): at most six blocks meet in a cell. A block has
// 130 entries at most, which is below two percent of its size.
class ZENU_TEST_EXPORT BlockMap
{
public:
    /// No block that is added has smaller slots.
    BlockMap(HeapArena & heap, std::size_t smallestSlot);

    /// Makes room for another block of this slot size. False when the arena refuses, and nothing is
    /// changed then. The first call comes before anything else.
    bool reserve(std::size_t slotSize);
    void add(SlotBlock * block);
    void remove(SlotBlock const * block);
    /// The block that contains the place, null when there is none.
    SlotBlock * find(void const * place) const
    {
        std::uintptr_t const cell = reinterpret_cast<std::uintptr_t>(place) >> m_cellShift;
        for (std::size_t i = home(cell);; i = next(i)) {
            Entry const & entry = m_entries[i];
            if (!entry.block || (entry.cell == cell && entry.block->contains(place))) {
                return entry.block;
            }
        }
    }

private:
    struct Entry
    {
        std::uintptr_t cell;
        SlotBlock * block; // null: the entry is empty
    };

    std::size_t home(std::uintptr_t cell) const
    {
        return static_cast<std::size_t>((cell * 0x9E3779B97F4A7C15U) >> m_hashShift);
    }
    std::size_t next(std::size_t i) const { return (i + 1) & (m_entries.size() - 1); }
    void addEntry(Entry const & entry);
    void removeEntry(Entry const & entry);
    template <typename Visit>
    void forEachCell(SlotBlock const * block, Visit visit) const;

    HeapArena * m_heap;
    ArenaArray<Entry> m_entries; // a power of two
    std::size_t m_used = 0;
    int m_cellShift;
    int m_hashShift = 63;
};

} // namespace zenu
