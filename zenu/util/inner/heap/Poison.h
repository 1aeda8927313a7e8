#pragma once

#include <cstddef>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#define ZENU_POISONS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZENU_POISONS 1
#endif
#endif
#if defined(ZENU_POISONS) && __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#define ZENU_UNCHECKED __attribute__((no_sanitize("address"), noinline))
#else
#undef ZENU_POISONS
#define ZENU_UNCHECKED
#endif

namespace zenu {

// Tells AddressSanitizer which bytes of a block nobody may touch; without it nothing is done. It
// keeps account in steps of 8 bytes: what shares such a step with bytes in use may stay open.

/// From now on a read or a write here is reported.
inline void poison([[maybe_unused]] void const * place, [[maybe_unused]] std::size_t size)
{
#if defined(ZENU_POISONS)
    ASAN_POISON_MEMORY_REGION(place, size);
#endif
}

inline void unpoison([[maybe_unused]] void const * place, [[maybe_unused]] std::size_t size)
{
#if defined(ZENU_POISONS)
    ASAN_UNPOISON_MEMORY_REGION(place, size);
#endif
}

/// Reports when the byte is poisoned.
inline void checkReadable([[maybe_unused]] void const * place)
{
#if defined(ZENU_POISONS)
    static_cast<void>(*static_cast<unsigned char const volatile *>(place));
#endif
}

/// Reads of what may be poisoned, and writes.
template <typename T>
ZENU_UNCHECKED T readAt(void const * place)
{
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

template <typename T>
ZENU_UNCHECKED void writeAt(void * place, T value)
{
    std::memcpy(place, &value, sizeof value);
}

} // namespace zenu
