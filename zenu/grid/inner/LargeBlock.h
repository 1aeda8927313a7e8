#pragma once

#include "zenu/ZenuExport.h"

#include <cstddef>
#include <new>

namespace zenu {

// Memory for one large array. From some megabytes on it lies in pages of 2 MiB where the system has
// them: touching a hundred megabytes for the first time then costs fifty faults instead of
// twenty-five thousand. Takes no more memory than plain allocation; the sanitizers watch it alike.
namespace LargeBlock {

// Null when memory is out.
[[nodiscard]] ZENU_TEST_EXPORT void * allocate(std::size_t size) noexcept;
// Null is allowed.
ZENU_TEST_EXPORT void release(void * block) noexcept;

} // namespace LargeBlock

// For a std::vector that may become large.
template <typename Value>
struct LargeBlockAllocator
{
    using value_type = Value;

    LargeBlockAllocator() = default;
    template <typename Other>
    LargeBlockAllocator(LargeBlockAllocator<Other> const &)
    {
    }

    Value * allocate(std::size_t count)
    {
        void * const block = LargeBlock::allocate(count * sizeof(Value));
        if (!block) {
            throw std::bad_alloc();
        }
        return static_cast<Value *>(block);
    }
    void deallocate(Value * block, std::size_t) { LargeBlock::release(block); }

    friend bool operator==(LargeBlockAllocator const &, LargeBlockAllocator const &)
    {
        return true;
    }
};

} // namespace zenu
