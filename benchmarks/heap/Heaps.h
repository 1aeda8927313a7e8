#pragma once

#include <zenu/util/KQuickHeap.h>

#include <cstdlib>

namespace bench {

struct QuickHeap
{
    void * alloc(int size) { return heap.Alloc(size); }
    void free(void * object) { heap.Free(object); }

    zenu::KQuickHeap heap;
};

struct Malloc
{
    void * alloc(int size) { return std::malloc(static_cast<std::size_t>(size)); }
    void free(void * object) { std::free(object); }
};

// mimalloc by its own names. Loaded, not linked: the program keeps its malloc.
struct Mimalloc
{
    static bool isThere();

    void * alloc(int size) { return s_malloc(static_cast<std::size_t>(size)); }
    void free(void * object) { s_free(object); }

private:
    static inline void * (*s_malloc)(std::size_t) = nullptr;
    static inline void (*s_free)(void *) = nullptr;
};

} // namespace bench
