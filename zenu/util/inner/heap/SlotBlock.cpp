#include "zenu/util/inner/heap/SlotBlock.h"

#include "zenu/util/inner/heap/Poison.h"

#include <memory>
#include <new>

namespace zenu {

SlotBlock * SlotBlock::create(HeapArena & heap, SlotPool * pool, std::size_t slotSize, int index)
{
    std::size_t room = sizeof(SlotBlock) + alignof(SlotBlock);
    void * const memory = heap.allocate(room);
    void * const data = memory ? heap.allocate(slotSize * slotCount) : nullptr;
    if (!data) {
        if (memory) {
            heap.release(memory);
        }
        return nullptr;
    }
    poison(data, slotSize * slotCount);
    void * place = memory;
    std::align(alignof(SlotBlock), sizeof(SlotBlock), place, room);
    auto * const block = new (place) SlotBlock;
    block->data = static_cast<unsigned char *>(data);
    block->setSlotSize(slotSize);
    block->capacity = slotCount;
    block->nextFree = 0;
    block->taken = 0;
    block->index = index;
    block->pool = pool;
    block->heap = &heap;
    block->memory = memory;
    std::memset(block->used, 0, slotCount);
    std::memset(block->used + slotCount, 1, mapBytes - slotCount);
    return block;
}

void SlotBlock::destroy()
{
    unpoison(data, slotSize * slotCount);
    heap->release(data);
    heap->release(memory);
}

// The first free slot from `slot` on, then from the front. There is one.
int SlotBlock::findFree(int slot) const
{
    constexpr int step = 32;
    int place = slot / 8 * 8;
    Word const before = (std::endian::native == std::endian::little) ? ~(~Word{0} << slot % 8 * 8)
                                                                     : ~(~Word{0} >> slot % 8 * 8);
    if (Word const word = wordAt(place) | (before & allTaken); word != allTaken) {
        return firstFree(word, place);
    }
    for (place += 8; place % step != 0; place += 8) {
        if (wordAt(place) != allTaken) {
            return firstFree(wordAt(place), place);
        }
    }
    for (;; place += step) {
        if (place == mapBytes) {
            place = 0;
        }
        Word const all =
            wordAt(place) & wordAt(place + 8) & wordAt(place + 16) & wordAt(place + 24);
        if (all != allTaken) {
            break;
        }
    }
    while (wordAt(place) == allTaken) {
        place += 8;
    }
    return firstFree(wordAt(place), place);
}

} // namespace zenu
