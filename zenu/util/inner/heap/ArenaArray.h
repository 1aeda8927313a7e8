#pragma once

#include "zenu/util/inner/heap/HeapArena.h"

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <utility>

namespace zenu {

// An array that grows in an arena and answers with false where a vector would throw. It has no
// destructor: its memory goes with the arena.
template <typename T>
class ArenaArray
{
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= alignof(std::max_align_t));

public:
    ArenaArray(HeapArena & heap)
        : m_heap(&heap)
    {
    }
    ArenaArray(ArenaArray const &) = delete;
    ArenaArray & operator=(ArenaArray const &) = delete;

    /// Makes room for `capacity` elements, at least twice what was there. False when the arena
    /// refuses, and nothing is changed then.
    bool reserve(std::size_t capacity)
    {
        if (capacity <= m_capacity) {
            return true;
        }
        capacity = std::max({capacity, 2 * m_capacity, std::size_t{8}});
        auto * const grown = static_cast<T *>(m_heap->allocateZeroed(capacity * sizeof(T)));
        if (!grown) {
            return false;
        }
        if (m_elements) {
            std::memcpy(grown, m_elements, m_size * sizeof(T));
            m_heap->release(m_elements);
        }
        m_elements = grown;
        m_capacity = capacity;
        return true;
    }
    /// Within the room made. New elements are zero.
    void resize(std::size_t size)
    {
        std::fill(m_elements + std::min(m_size, size), m_elements + size, T{});
        m_size = size;
    }
    void swap(ArenaArray & other)
    {
        std::swap(m_heap, other.m_heap);
        std::swap(m_elements, other.m_elements);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
    }
    /// Gives the memory back.
    void clear()
    {
        if (m_elements) {
            m_heap->release(m_elements);
        }
        m_elements = nullptr;
        m_size = m_capacity = 0;
    }
    void push_back(T value) { m_elements[m_size++] = value; }
    void pop_back() { --m_size; }
    T const & back() const { return m_elements[m_size - 1]; }
    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    T & operator[](std::size_t i) { return m_elements[i]; }
    T const & operator[](std::size_t i) const { return m_elements[i]; }

private:
    HeapArena * m_heap;
    T * m_elements = nullptr;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};

} // namespace zenu
