#pragma once

#include "zenu/ZenuExport.h"

#include <cstddef>

namespace zenu {

// Small blocks for rows, items and texts: no header beside a block, sizes in steps of 8 bytes. A
// million rows with texts make millions of blocks, where a general allocator's header and rounding
// cost more than the texts themselves. Blocks come from slabs of one size each; a slab whose last
// block is freed goes back. GUI thread only. Built with AddressSanitizer every block is one of the
// general allocator, so that each is watched.
namespace SlabPool {

// A larger size goes to the general allocator.
constexpr std::size_t largestBlock = 512;

// Aligned to 8 bytes, never null: throws as operator new does when memory is out.
[[nodiscard]] ZENU_TEST_EXPORT void * allocate(std::size_t size);
// `size` is the size given to allocate. Null is allowed.
ZENU_TEST_EXPORT void release(void * block, std::size_t size) noexcept;
// Bytes of all slabs, whether their blocks are in use or not.
ZENU_TEST_EXPORT std::size_t reservedBytes();

} // namespace SlabPool

// Owned texts of items: null stays null.
[[nodiscard]] ZENU_TEST_EXPORT char * duplicateText(char const * text);
ZENU_TEST_EXPORT void releaseText(char * text) noexcept;

} // namespace zenu
