#pragma once

#include "zenu/ZenuExport.h"

#include <cstddef>
#include <cstdint>

namespace zenu {

// A private heap: blocks of malloc in a chain of its own, so that all of them can go at once. Each
// is one block of malloc, which is what sanitizers and memory checkers look at. A block has the
// alignment of malloc and costs 32 bytes on a 64-bit machine. Every operation but the destructor is
// as fast as malloc.
class ZENU_TEST_EXPORT HeapArena
{
public:
    /// Refuses what would bring the sum of all sizes above `limit` bytes.
    explicit HeapArena(std::size_t limit = SIZE_MAX);
    HeapArena(HeapArena const &) = delete;
    HeapArena & operator=(HeapArena const &) = delete;
    /// Releases every block. O(blocks).
    ~HeapArena();

    /// Null when the limit or malloc refuses. The block is not cleared.
    void * allocate(std::size_t size);
    /// The same, all zero.
    void * allocateZeroed(std::size_t size);
    /// `block` came from this arena and is not null.
    void release(void * block);
    /// The size that was asked for.
    static std::size_t sizeOf(void const * block);
    /// The sum of the sizes of all blocks.
    std::size_t bytes() const { return m_bytes; }

private:
    struct alignas(std::max_align_t) Link
    {
        Link * previous;
        Link * next;
        std::size_t size;
    };

    bool refuses(std::size_t size) const;
    void * chain(void * memory, std::size_t size);

    Link m_chain; // a ring; this link has no block
    std::size_t m_limit;
    std::size_t m_bytes = 0;
};

} // namespace zenu
