#include "zenu/grid/inner/SlabPool.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define ZENU_PLAIN_BLOCKS 1
#else
#define ZENU_PLAIN_BLOCKS 0
#endif

namespace zenu {
namespace SlabPool {

namespace {

constexpr std::size_t step = 8;
constexpr std::size_t slabSize = 256 * 1024; // also its alignment, so that a block finds its slab
constexpr std::size_t classCount = largestBlock / step + 1;

struct FreeBlock
{
    FreeBlock * next;
};

// Stands at the start of its memory; the blocks follow. A slab with room is in its class's list.
struct Slab
{
    Slab * previous;
    Slab * next;
    FreeBlock * freed;     // blocks that were given back
    std::byte * untouched; // first block that was never given out
    std::byte * end;
    std::uint32_t live;
    std::uint32_t sizeClass;

    bool isFull(std::size_t size) const
    {
        return !freed && static_cast<std::size_t>(end - untouched) < size;
    }
};

struct SizeClass
{
    Slab * withRoom = nullptr;
    std::size_t slabs = 0;
};

std::array<SizeClass, classCount> classes;

void unlink(SizeClass & owner, Slab * slab)
{
    (slab->previous ? slab->previous->next : owner.withRoom) = slab->next;
    if (slab->next) {
        slab->next->previous = slab->previous;
    }
}

void link(SizeClass & owner, Slab * slab)
{
    slab->previous = nullptr;
    slab->next = owner.withRoom;
    if (owner.withRoom) {
        owner.withRoom->previous = slab;
    }
    owner.withRoom = slab;
}

Slab * addSlab(SizeClass & owner, std::size_t sizeClass)
{
    void * const memory = std::aligned_alloc(slabSize, slabSize);
    if (!memory) {
        throw std::bad_alloc();
    }
    auto * const bytes = static_cast<std::byte *>(memory);
    auto * const slab = ::new (memory) Slab{nullptr,
                                            nullptr,
                                            nullptr,
                                            bytes + sizeof(Slab),
                                            bytes + slabSize,
                                            0,
                                            static_cast<std::uint32_t>(sizeClass)};
    ++owner.slabs;
    link(owner, slab);
    return slab;
}

constexpr std::size_t classOf(std::size_t size)
{
    return size == 0 ? 1 : (size + step - 1) / step;
}

} // namespace

void * allocate(std::size_t size)
{
    if (ZENU_PLAIN_BLOCKS || size > largestBlock) {
        return ::operator new(size);
    }
    std::size_t const sizeClass = classOf(size);
    std::size_t const blockSize = sizeClass * step;
    SizeClass & owner = classes[sizeClass];
    Slab * const slab = owner.withRoom ? owner.withRoom : addSlab(owner, sizeClass);
    void * block = slab->freed;
    if (block) {
        slab->freed = slab->freed->next;
    } else {
        block = slab->untouched;
        slab->untouched += blockSize;
    }
    ++slab->live;
    if (slab->isFull(blockSize)) {
        unlink(owner, slab);
    }
    return block;
}

void release(void * block, std::size_t size) noexcept
{
    if (!block) {
        return;
    }
    if (ZENU_PLAIN_BLOCKS || size > largestBlock) {
        ::operator delete(block);
        return;
    }
    auto * const slab =
        reinterpret_cast<Slab *>(reinterpret_cast<std::uintptr_t>(block) & ~(slabSize - 1));
    SizeClass & owner = classes[slab->sizeClass];
    bool const wasFull = slab->isFull(slab->sizeClass * step);
    slab->freed = ::new (block) FreeBlock{slab->freed};
    --slab->live;
    if (wasFull) {
        link(owner, slab);
    }
    // The last slab with room stays, so that a row that comes and goes costs no system call.
    if (slab->live == 0 && (slab->previous || slab->next)) {
        unlink(owner, slab);
        --owner.slabs;
        std::free(slab);
    }
}

std::size_t reservedBytes()
{
    std::size_t slabs = 0;
    for (SizeClass const & sizeClass : classes) {
        slabs += sizeClass.slabs;
    }
    return slabs * slabSize;
}

} // namespace SlabPool

char * duplicateText(char const * text)
{
    if (!text) {
        return nullptr;
    }
    std::size_t const size = std::strlen(text) + 1;
    return static_cast<char *>(std::memcpy(SlabPool::allocate(size), text, size));
}

void releaseText(char * text) noexcept
{
    if (text) {
        SlabPool::release(text, std::strlen(text) + 1);
    }
}

} // namespace zenu
