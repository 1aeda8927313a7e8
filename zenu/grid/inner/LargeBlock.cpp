#include "zenu/grid/inner/LargeBlock.h"

#include <cstdlib>

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

namespace zenu {
namespace LargeBlock {

namespace {

constexpr std::size_t hugePage = 2 * 1024 * 1024;

} // namespace

void * allocate(std::size_t size) noexcept
{
#ifdef MADV_HUGEPAGE
    if (size >= 2 * hugePage) {
        void * block = nullptr;
        if (::posix_memalign(&block, hugePage, size) == 0) {
            // Whole pages only: the rest at the end would take a page of its own. Advice, so that
            // a refusal changes nothing.
            ::madvise(block, size / hugePage * hugePage, MADV_HUGEPAGE);
            return block;
        }
        return nullptr;
    }
#endif
    return std::malloc(size);
}

void release(void * block) noexcept
{
    std::free(block);
}

} // namespace LargeBlock
} // namespace zenu
