#pragma once

#include "zenu/ZenuExport.h"

#include <cstddef>

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

} // namespace zenu
