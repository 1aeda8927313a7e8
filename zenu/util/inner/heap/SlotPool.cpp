#include "zenu/util/inner/heap/SlotPool.h"

#include <new>

namespace zenu {

SlotPool * SlotPool::create(HeapArena & heap, BlockMap & map, std::size_t slotSize)
{
    void * const memory = heap.allocate(sizeof(SlotPool));
    return memory ? new (memory) SlotPool(heap, map, slotSize) : nullptr;
}

SlotPool::SlotPool(HeapArena & heap, BlockMap & map, std::size_t slotSize)
    : m_heap(&heap)
    , m_map(&map)
    , m_blocks(heap)
    , m_slotSize(slotSize)
    , m_openBlocks(heap)
{
}

// Room in the tables first: a block that exists has its place in all of them.
SlotBlock * SlotPool::addBlock()
{
    std::size_t const index = m_blocks.size();
    if (!m_blocks.reserve(index + 1) || !m_openBlocks.reserve(index + 1) ||
        !m_map->reserve(m_slotSize)) {
        return nullptr;
    }
    SlotBlock * const block = SlotBlock::create(*m_heap, this, m_slotSize, static_cast<int>(index));
    if (block) {
        m_blocks.push_back(block);
        m_map->add(block);
        open(block);
    }
    return block;
}

void SlotPool::removeBlock(SlotBlock * block)
{
    close(block);
    m_map->remove(block);
    m_blocks[static_cast<std::size_t>(block->index)] = nullptr;
    block->destroy();
    while (!m_blocks.empty() && !m_blocks.back()) {
        m_blocks.pop_back();
    }
}

} // namespace zenu
