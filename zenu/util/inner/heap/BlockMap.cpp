#include "zenu/util/inner/heap/BlockMap.h"

#include <bit>

namespace zenu {

BlockMap::BlockMap(HeapArena & heap, std::size_t smallestSlot)
    : m_heap(&heap)
    , m_entries(heap)
    , m_cellShift(static_cast<int>(std::bit_width(smallestSlot * SlotBlock::slotCount - 1)) + 1)
{
}

bool BlockMap::reserve(std::size_t slotSize)
{
    std::size_t const cells = (slotSize * SlotBlock::slotCount >> m_cellShift) + 2;
    std::size_t const wanted = std::bit_ceil((m_used + cells) * 2);
    if (wanted <= m_entries.size()) {
        return true;
    }
    ArenaArray<Entry> grown(*m_heap);
    if (!grown.reserve(wanted)) {
        return false;
    }
    grown.resize(wanted);
    grown.swap(m_entries);
    m_hashShift = 64 - (static_cast<int>(std::bit_width(wanted)) - 1);
    for (std::size_t i = 0; i < grown.size(); ++i) {
        if (grown[i].block) {
            addEntry(grown[i]);
        }
    }
    grown.clear();
    return true;
}

void BlockMap::add(SlotBlock * block)
{
    forEachCell(block, [&](std::uintptr_t cell) {
        addEntry({cell, block});
        ++m_used;
    });
}

void BlockMap::remove(SlotBlock const * block)
{
    forEachCell(block, [&](std::uintptr_t cell) {
        removeEntry({cell, const_cast<SlotBlock *>(block)});
        --m_used;
    });
}

void BlockMap::addEntry(Entry const & entry)
{
    std::size_t i = home(entry.cell);
    while (m_entries[i].block) {
        i = next(i);
    }
    m_entries[i] = entry;
}

// Entries behind the gap move forward into it unless that would bring them before their home.
void BlockMap::removeEntry(Entry const & entry)
{
    std::size_t gap = home(entry.cell);
    while (m_entries[gap].block != entry.block || m_entries[gap].cell != entry.cell) {
        gap = next(gap);
    }
    std::size_t const mask = m_entries.size() - 1;
    for (std::size_t i = next(gap); m_entries[i].block; i = next(i)) {
        std::size_t const wayFromHome = (i - home(m_entries[i].cell)) & mask;
        if (wayFromHome >= ((i - gap) & mask)) {
            m_entries[gap] = m_entries[i];
            gap = i;
        }
    }
    m_entries[gap] = Entry{};
}

template <typename Visit>
void BlockMap::forEachCell(SlotBlock const * block, Visit visit) const
{
    auto const start = reinterpret_cast<std::uintptr_t>(block->data);
    std::uintptr_t const last = (start + block->lastSlotOffset()) >> m_cellShift;
    for (std::uintptr_t cell = start >> m_cellShift; cell <= last; ++cell) {
        visit(cell);
    }
}

} // namespace zenu
