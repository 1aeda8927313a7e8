#pragma once

#include "zenu/util/inner/heap/HeapArena.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace zenu {

class SlotPool;

// 1000 slots of one size, and which of them are taken. nextFree decides which slot is given out:
// it moves on to the nearest free slot behind the taken one, wraps round to the front, and goes
// back only to the slot that lies directly before it. It is not always the lowest free slot.
//
// The record starts on a cache line of its own, since a free of an old object finds none of it in
// the cache; for the same reason give() has no branch that depends on it.
struct ZENU_TEST_EXPORT SlotBlock
{
    static constexpr int slotCount = 1000;
    // What lies behind the last slot counts as taken: a search for a free one needs no bound.
    static constexpr int mapBytes = 1024;

    /// Null when the arena refuses, and nothing is lost then.
    static SlotBlock * create(HeapArena & heap, SlotPool * pool, std::size_t slotSize, int index);
    void destroy();
    void setSlotSize(std::size_t size);

    bool isFull() const { return nextFree < 0; }
    bool isEmpty() const { return taken == 0; }
    std::size_t lastSlotOffset() const { return slotSize * (slotCount - 1); }
    /// True from the first byte of the first slot to the first byte of the last.
    bool contains(void const * place) const { return offsetOf(place) <= lastSlotOffset(); }
    /// The number of the slot at a place that the block contains.
    int slotAt(void const * place) const
    {
        std::size_t const offset = offsetOf(place);
        return static_cast<int>(reciprocal != 0 ? offset * reciprocal >> reciprocalShift
                                                : offset / slotSize);
    }
    /// The slot at nextFree. The block is not full.
    unsigned char * take();
    /// Brings the slot at nextFree near, since it is written next. The block is not full.
    void fetchNext() const
    {
        __builtin_prefetch(data + static_cast<std::size_t>(nextFree) * slotSize, 1);
    }
    /// Slot number `slot`, which is taken.
    void give(int slot);

    alignas(64) unsigned char * data; // not cleared
    std::size_t slotSize;
    std::uint64_t reciprocal; // of the slot size; 0: divide
    int capacity;
    int nextFree; // a free slot, -1 when there is none
    int taken;
    int index; // in the pool's list
    SlotPool * pool;
    HeapArena * heap;
    void * memory;                // the arena's block that this record lies in
    unsigned char used[mapBytes]; // a byte for each slot, 1: taken

private:
    using Word = std::uint64_t; // eight bytes of the map

    static constexpr Word allTaken = 0x0101010101010101U;

    // Offsets in a block are below 1000 slot sizes. Their product with the reciprocal stays below 2
    // to the 64th, and its error below 1 as long as 1000 times the square of the slot size is at
    // most 2 to the power of the shift.
    static constexpr int reciprocalShift = 54;
    static constexpr std::size_t largestWithReciprocal = std::size_t{1} << 22;

    std::size_t offsetOf(void const * place) const
    {
        return reinterpret_cast<std::uintptr_t>(place) - reinterpret_cast<std::uintptr_t>(data);
    }
    Word wordAt(int slot) const;
    static int firstFree(Word word, int slot);
    int findFree(int slot) const;
};

inline void SlotBlock::setSlotSize(std::size_t size)
{
    slotSize = size;
    reciprocal =
        size <= largestWithReciprocal ? (std::uint64_t{1} << reciprocalShift) / size + 1 : 0;
}

inline unsigned char * SlotBlock::take()
{
    int const slot = nextFree;
    used[slot] = 1;
    ++taken;
    if (used[slot + 1] == 0) {
        nextFree = slot + 1;
    } else if (taken == capacity) {
        nextFree = -1;
    } else {
        nextFree = findFree(slot + 1);
    }
    return data + static_cast<std::size_t>(slot) * slotSize;
}

inline void SlotBlock::give(int slot)
{
    bool const goesBack = (nextFree == -1) | (nextFree == slot + 1);
    nextFree = goesBack ? slot : nextFree;
    used[slot] = 0;
    --taken;
}

inline SlotBlock::Word SlotBlock::wordAt(int slot) const
{
    Word word;
    std::memcpy(&word, used + slot, sizeof word);
    return word;
}

// The first free one of the eight slots at `slot`; one of them is free.
inline int SlotBlock::firstFree(Word word, int slot)
{
    Word const free = word ^ allTaken;
    int const bit = std::endian::native == std::endian::little ? std::countr_zero(free)
                                                               : std::countl_zero(free);
    return slot + bit / 8;
}

} // namespace zenu
