#include "zenu/grid/inner/SlabPool.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

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
constexpr std::size_t slabsOfChunk = 8;
constexpr std::size_t chunkSize = slabSize * slabsOfChunk; // a huge page of the system
constexpr std::size_t classCount = largestBlock / step + 1;
// A program with few rows shall not pay a huge page for them.
constexpr std::size_t plainChunks = 2;

struct FreeBlock
{
    FreeBlock * next;
};

// Memory as it comes from the system, for the slabs of any size.
struct Chunk
{
    Chunk * previous;
    Chunk * next;
    std::byte * memory;
    unsigned freeSlabs; // a bit each
};

constexpr unsigned allSlabs = (1U << slabsOfChunk) - 1;

// Stands at the start of its memory; the blocks follow. A slab that may have room is in its class's
// list; one that is found full there leaves it, and comes back with the first block that is freed.
struct Slab
{
    Slab * previous;
    Slab * next;
    FreeBlock * freed;     // blocks that were given back
    std::byte * untouched; // first block that was never given out
    std::byte * end;       // of the last block
    Chunk * chunk;
    std::uint32_t live;
    std::uint16_t sizeClass;
    bool isListed;
};

struct SizeClass
{
    Slab * withRoom = nullptr;
    std::size_t slabs = 0;
};

std::array<SizeClass, classCount> classes;
Chunk * chunksWithRoom = nullptr;
std::size_t chunkCount = 0;

// Either list: of slabs of a size, or of chunks.
template <typename Node>
void unlink(Node *& first, Node * node)
{
    (node->previous ? node->previous->next : first) = node->next;
    if (node->next) {
        node->next->previous = node->previous;
    }
}

template <typename Node>
void link(Node *& first, Node * node)
{
    node->previous = nullptr;
    node->next = first;
    if (first) {
        first->previous = node;
    }
    first = node;
}

#ifdef MADV_HUGEPAGE
// The system aligns to its small pages, so more is asked for and the ends are given back.
void * mapChunk()
{
    constexpr std::size_t asked = 2 * chunkSize;
    void * const mapped =
        ::mmap(nullptr, asked, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) {
        return nullptr;
    }
    auto * const bytes = static_cast<std::byte *>(mapped);
    std::size_t const head =
        (chunkSize - reinterpret_cast<std::uintptr_t>(bytes) % chunkSize) % chunkSize;
    if (head != 0) {
        ::munmap(bytes, head);
    }
    ::munmap(bytes + head + chunkSize, asked - head - chunkSize);
    if (chunkCount >= plainChunks) {
        ::madvise(bytes + head, chunkSize, MADV_HUGEPAGE);
    }
    return bytes + head;
}

void unmapChunk(void * memory)
{
    ::munmap(memory, chunkSize);
}
#else
void * mapChunk()
{
    return std::aligned_alloc(slabSize, chunkSize);
}

void unmapChunk(void * memory)
{
    std::free(memory);
}
#endif

Chunk * addChunk()
{
    auto chunk = std::make_unique<Chunk>();
    void * const memory = mapChunk();
    if (!memory) {
        throw std::bad_alloc();
    }
    chunk->memory = static_cast<std::byte *>(memory);
    chunk->freeSlabs = allSlabs;
    ++chunkCount;
    link(chunksWithRoom, chunk.get());
    return chunk.release();
}

Slab * addSlab(SizeClass & owner, std::size_t sizeClass)
{
    Chunk * const chunk = chunksWithRoom ? chunksWithRoom : addChunk();
    auto const number = static_cast<unsigned>(std::countr_zero(chunk->freeSlabs));
    chunk->freeSlabs &= chunk->freeSlabs - 1;
    if (chunk->freeSlabs == 0) {
        unlink(chunksWithRoom, chunk);
    }
    std::byte * const bytes = chunk->memory + number * slabSize;
    std::size_t const blockSize = sizeClass * step;
    auto * const slab = ::new (static_cast<void *>(bytes)) Slab();
    slab->untouched = bytes + sizeof(Slab);
    slab->end = slab->untouched + (slabSize - sizeof(Slab)) / blockSize * blockSize;
    slab->chunk = chunk;
    slab->sizeClass = static_cast<std::uint16_t>(sizeClass);
    slab->isListed = true;
    ++owner.slabs;
    link(owner.withRoom, slab);
    return slab;
}

void dropSlab(SizeClass & owner, Slab * slab)
{
    unlink(owner.withRoom, slab);
    --owner.slabs;
    Chunk * const chunk = slab->chunk;
    if (chunk->freeSlabs == 0) {
        link(chunksWithRoom, chunk);
    }
    auto const number =
        static_cast<std::size_t>(reinterpret_cast<std::byte *>(slab) - chunk->memory) / slabSize;
    chunk->freeSlabs |= 1U << number;
    if (chunk->freeSlabs == allSlabs) {
        unlink(chunksWithRoom, chunk);
        unmapChunk(chunk->memory);
        --chunkCount;
        delete chunk;
    }
}

constexpr std::size_t classOf(std::size_t size)
{
    return size == 0 ? 1 : (size + step - 1) / step;
}

// Null when the slab is full.
void * takeBlock(Slab * slab, std::size_t blockSize)
{
    void * block = slab->freed;
    if (block) {
        slab->freed = slab->freed->next;
    } else if (slab->untouched != slab->end) {
        block = slab->untouched;
        slab->untouched += blockSize;
    } else {
        return nullptr;
    }
    ++slab->live;
    return block;
}

[[gnu::noinline]] void * takeFromAnother(SizeClass & owner, std::size_t sizeClass)
{
    while (Slab * const slab = owner.withRoom) {
        if (void * const block = takeBlock(slab, sizeClass * step)) {
            return block;
        }
        unlink(owner.withRoom, slab);
        slab->isListed = false;
    }
    return takeBlock(addSlab(owner, sizeClass), sizeClass * step);
}

} // namespace

void * allocate(std::size_t size)
{
    if (ZENU_PLAIN_BLOCKS || size > largestBlock) {
        return ::operator new(size);
    }
    std::size_t const sizeClass = classOf(size);
    SizeClass & owner = classes[sizeClass];
    if (owner.withRoom) {
        if (void * const block = takeBlock(owner.withRoom, sizeClass * step)) {
            return block;
        }
    }
    return takeFromAnother(owner, sizeClass);
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
    slab->freed = ::new (block) FreeBlock{slab->freed};
    --slab->live;
    if (!slab->isListed) {
        slab->isListed = true;
        link(owner.withRoom, slab);
    }
    // The last slab that may have room stays, so that a row that comes and goes costs no memory
    // traffic with the system.
    if (slab->live == 0 && (slab->previous || slab->next)) {
        dropSlab(owner, slab);
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
