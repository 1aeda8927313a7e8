#include "zenu/util/KQuickHeap.h"

#include "zenu/util/inner/heap/Poison.h"
#include "zenu/util/inner/heap/SlotPool.h"

#include <new>

namespace zenu {

namespace {

constexpr int largestSmall = 255; // fits the header's byte
constexpr int defaultGranularity = 8;

int effectiveGranularity(int granularity)
{
    if (granularity == -1) {
        return 1;
    }
    return granularity > 0 ? granularity : defaultGranularity;
}

} // namespace

struct KQuickHeap::PrivateData
{
    explicit PrivateData(int step);

    std::size_t header() const { return static_cast<std::size_t>(granularity); }
    std::size_t slotSizeOf(int size) const;
    SlotPool * poolOf(int size);
    SlotPool * makePool(std::size_t slotSize);
    void * allocLarge(int size);

    HeapArena heap;
    SlotPool ** pools; // indexed by slot size, those in use at multiples of the granularity
    int granularity;
    unsigned reciprocal; // of the granularity, in units of 1 / 65536
    BlockMap map;
};

KQuickHeap::PrivateData::PrivateData(int step)
    : granularity(step)
    , reciprocal(65535U / static_cast<unsigned>(step) + 1)
    , map(heap, slotSizeOf(1))
{
    std::size_t const entries = (largestSmall / header() + 1) * header() + header() + 1;
    pools = map.reserve(slotSizeOf(1))
                ? static_cast<SlotPool **>(heap.allocateZeroed(entries * sizeof(SlotPool *)))
                : nullptr;
}

// The payload rounded up, and the header. The product with the reciprocal is (size - 1) divided by
// the granularity, exactly for every size up to 255 and every granularity.
inline std::size_t KQuickHeap::PrivateData::slotSizeOf(int size) const
{
    std::size_t const steps = (static_cast<unsigned>(size - 1) * reciprocal >> 16) + 1;
    return (steps + 1) * header();
}

inline SlotPool * KQuickHeap::PrivateData::poolOf(int size)
{
    std::size_t const slotSize = slotSizeOf(size);
    SlotPool * const pool = pools[slotSize];
    return pool ? pool : makePool(slotSize);
}

SlotPool * KQuickHeap::PrivateData::makePool(std::size_t slotSize)
{
    return pools[slotSize] = SlotPool::create(heap, map, slotSize);
}

void * KQuickHeap::PrivateData::allocLarge(int size)
{
    void * const block = heap.allocate(header() + static_cast<std::size_t>(size));
    if (!block) {
        return nullptr;
    }
    auto * const start = static_cast<unsigned char *>(block);
    *start = 0;
    poison(start, header());
    return start + header();
}

KQuickHeap::KQuickHeap(int granularity)
    : m_data(new (std::nothrow) PrivateData(effectiveGranularity(granularity)))
{
    if (m_data && !m_data->pools) {
        delete m_data;
        m_data = nullptr;
    }
}

KQuickHeap::~KQuickHeap()
{
    delete m_data;
}

void * KQuickHeap::Alloc(int size)
{
    if (size <= 0 || !m_data) {
        return nullptr;
    }
    if (size > largestSmall) {
        return m_data->allocLarge(size);
    }
    std::size_t const header = m_data->header();
    SlotPool * const pool = m_data->poolOf(size);
    unsigned char * const slot = pool ? pool->take() : nullptr;
    if (!slot) {
        return nullptr;
    }
    writeAt(slot, static_cast<unsigned char>(size));
    unpoison(slot + header, static_cast<std::size_t>(size));
    return slot + header;
}

// The header says the pool, but what is in no cache is best not read: the map knows the block, and
// the block its pool. A header other than 0 outside of all blocks is a pointer that is ignored.
void KQuickHeap::Free(void * pointer)
{
    if (!pointer || !m_data) {
        return;
    }
    checkReadable(pointer);
    unsigned char * const start = static_cast<unsigned char *>(pointer) - m_data->header();
    if (SlotBlock * const block = m_data->map.find(start)) {
        block->pool->give(block, start);
    } else if (readAt<unsigned char>(start) == 0) {
        m_data->heap.release(start);
    }
}

int KQuickHeap::BlockSize(void * pointer)
{
    if (!pointer || !m_data) {
        return 0;
    }
    std::size_t const header = m_data->header();
    unsigned char const * const start = static_cast<unsigned char const *>(pointer) - header;
    int const size = readAt<unsigned char>(start);
    return size != 0 ? size : static_cast<int>(HeapArena::sizeOf(start) - header);
}

} // namespace zenu
