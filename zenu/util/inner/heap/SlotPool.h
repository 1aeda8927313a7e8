#pragma once

#include "zenu/util/inner/heap/BlockMap.h"
#include "zenu/util/inner/heap/IndexSet.h"
#include "zenu/util/inner/heap/Poison.h"

namespace zenu {

// Hands out slots of one size from blocks of 1000. Slots come from the last block in the list that
// has a free one; a block goes back to the arena with its last slot, and its entry stays as null so
// that the others keep their indices, unless it stands at the end. take() and give() are O(1) but
// for O(log64 blocks) when a block becomes full or ceases to be, whatever the number of blocks.
class ZENU_TEST_EXPORT SlotPool
{
public:
    /// A pool that lives as long as the arena; its blocks are entered into the map. Null when the
    /// arena refuses.
    static SlotPool * create(HeapArena & heap, BlockMap & map, std::size_t slotSize);

    /// A free slot, not cleared and still poisoned; null when the arena refuses a new block.
    unsigned char * take()
    {
        SlotBlock * const block = m_open ? m_open : addBlock();
        if (!block) {
            return nullptr;
        }
        unsigned char * const slot = block->take();
        if (block->isFull()) {
            close(block);
        } else {
            block->fetchNext();
        }
        return slot;
    }
    /// Frees a slot of a block of this pool, and poisons it. The slot is taken.
    void give(SlotBlock * block, void const * slot)
    {
        poison(slot, m_slotSize);
        block->give(block->slotAt(slot));
        if (block->isEmpty()) {
            removeBlock(block);
        } else {
            open(block);
        }
    }

    std::size_t slotSize() const { return m_slotSize; }
    /// The list with its null entries.
    std::size_t blockCount() const { return m_blocks.size(); }
    SlotBlock const * block(std::size_t index) const { return m_blocks[index]; }

private:
    SlotPool(HeapArena & heap, BlockMap & map, std::size_t slotSize);

    SlotBlock * addBlock();
    void removeBlock(SlotBlock * block);
    // The block has a free slot, now or since long.
    void open(SlotBlock * block)
    {
        m_openBlocks.add(block->index);
        bool const isLater = block->index > m_openIndex;
        m_openIndex = isLater ? block->index : m_openIndex;
        m_open = isLater ? block : m_open;
    }
    // The block has no free slot any more, or is going.
    void close(SlotBlock const * block)
    {
        m_openBlocks.remove(block->index);
        if (m_open == block) {
            m_openIndex = m_openBlocks.last();
            m_open = m_openIndex < 0 ? nullptr : m_blocks[static_cast<std::size_t>(m_openIndex)];
        }
    }

    HeapArena * m_heap;
    BlockMap * m_map;
    ArenaArray<SlotBlock *> m_blocks; // entries may be null, the last one is not
    std::size_t m_slotSize;
    SlotBlock * m_open = nullptr; // the last block with a free slot
    int m_openIndex = -1;
    IndexSet m_openBlocks;
};

} // namespace zenu
