#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

namespace zenutest {

// Which slot an allocation is given, worked out in the plainest way: one byte after the other and
// one block after the other. It has no memory to give, only places.
class HeapReference
{
public:
    struct Place
    {
        int slotSize;
        int blockIndex;
        int slot;
        long block; // a number of its own for each block that was ever made
        bool isNewBlock;
    };

    explicit HeapReference(int granularity)
        : m_granularity(granularity)
    {
    }

    int slotSizeOf(int size) const
    {
        return ((size - 1) / m_granularity + 1) * m_granularity + m_granularity;
    }

    // `size` is 1 to 255.
    Place alloc(int size)
    {
        int const slotSize = slotSizeOf(size);
        Blocks & blocks = m_pools[slotSize];
        for (int i = static_cast<int>(blocks.size()) - 1; i >= 0; --i) {
            Block * const block = blocks[static_cast<std::size_t>(i)].get();
            int const slot = block ? block->alloc() : -1;
            if (slot >= 0) {
                return {slotSize, i, slot, block->number, false};
            }
        }
        blocks.push_back(std::make_unique<Block>());
        blocks.back()->number = m_blocksMade++;
        int const slot = blocks.back()->alloc();
        return {slotSize, static_cast<int>(blocks.size()) - 1, slot, blocks.back()->number, true};
    }

    // True when the block went with its last slot.
    bool free(Place const & place)
    {
        Blocks & blocks = m_pools[place.slotSize];
        std::unique_ptr<Block> & block = blocks[static_cast<std::size_t>(place.blockIndex)];
        block->free(place.slot);
        if (block->taken > 0) {
            return false;
        }
        block.reset();
        while (!blocks.empty() && !blocks.back()) {
            blocks.pop_back();
        }
        return true;
    }

    // The list of a pool with its null entries, as numbers of taken slots; -1 for null.
    std::vector<int> takenIn(int slotSize)
    {
        std::vector<int> taken;
        for (auto const & block : m_pools[slotSize]) {
            taken.push_back(block ? block->taken : -1);
        }
        return taken;
    }

private:
    struct Block
    {
        static constexpr int capacity = 1000;

        int alloc()
        {
            if (nextFree < 0) {
                return -1;
            }
            int const slot = nextFree;
            used[static_cast<std::size_t>(slot)] = 1;
            nextFree = -1;
            for (int i = slot + 1; nextFree < 0 && i < capacity; ++i) {
                nextFree = used[static_cast<std::size_t>(i)] == 0 ? i : -1;
            }
            for (int i = 0; nextFree < 0 && i < slot; ++i) {
                nextFree = used[static_cast<std::size_t>(i)] == 0 ? i : -1;
            }
            ++taken;
            return slot;
        }
        void free(int slot)
        {
            if (nextFree == -1 || nextFree == slot + 1) {
                nextFree = slot;
            }
            used[static_cast<std::size_t>(slot)] = 0;
            --taken;
        }

        std::vector<unsigned char> used = std::vector<unsigned char>(capacity);
        int nextFree = 0;
        int taken = 0;
        long number = 0;
    };
    using Blocks = std::vector<std::unique_ptr<Block>>;

    int m_granularity;
    std::map<int, Blocks> m_pools;
    long m_blocksMade = 0;
};

} // namespace zenutest
