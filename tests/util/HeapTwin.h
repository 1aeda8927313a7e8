#pragma once

#include "tests/util/HeapReference.h"

#include <zenu/util/KQuickHeap.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

namespace zenutest {

// A KQuickHeap and its reference side by side. Every step answers with what went wrong, or with an
// empty text: a slot that is not the predicted one, blocks that overlap, a wrong size, a pointer
// that is no multiple of the granularity, contents that changed.
class HeapTwin
{
public:
    explicit HeapTwin(int granularity)
        : m_granularity(granularity)
        , m_heap(granularity)
        , m_reference(granularity)
    {
    }

    std::size_t count() const { return m_objects.size(); }

    // `size` is 1 or more.
    std::string alloc(int size)
    {
        auto * const bytes = static_cast<unsigned char *>(m_heap.Alloc(size));
        if (!bytes) {
            return "no memory for " + std::to_string(size);
        }
        Object object{bytes, size, static_cast<unsigned char>(m_made++ % 251), {}};
        std::string wrong;
        if (size <= 255) {
            object.place = m_reference.alloc(size);
            wrong = checkPlace(object);
        }
        if (m_heap.BlockSize(bytes) != size) {
            wrong += " size " + std::to_string(m_heap.BlockSize(bytes));
        }
        if (reinterpret_cast<std::uintptr_t>(bytes) % alignment() != 0) {
            wrong += " not aligned";
        }
        std::fill(bytes, bytes + size, object.mark);
        m_objects.push_back(object);
        return wrong;
    }

    // Frees the object and puts the last one in its place.
    std::string free(std::size_t index)
    {
        Object const object = m_objects[index];
        std::string const wrong = checkContents(object);
        m_heap.Free(object.bytes);
        if (object.size <= 255 && m_reference.free(object.place)) {
            m_ranges.erase(m_bases[object.place.block]);
            m_bases.erase(object.place.block);
        }
        m_objects[index] = m_objects.back();
        m_objects.pop_back();
        return wrong;
    }

    std::string checkAll() const
    {
        for (Object const & object : m_objects) {
            if (std::string const wrong = checkContents(object); !wrong.empty()) {
                return wrong;
            }
        }
        return {};
    }

private:
    struct Object
    {
        unsigned char * bytes;
        int size;
        unsigned char mark;
        HeapReference::Place place;
    };

    // A block of malloc is aligned to 16 and no more.
    std::uintptr_t alignment() const
    {
        auto const granularity = static_cast<std::uintptr_t>(m_granularity);
        return std::min<std::uintptr_t>(granularity & (~granularity + 1), 16);
    }

    std::string checkPlace(Object const & object)
    {
        HeapReference::Place const & place = object.place;
        std::uintptr_t const base =
            reinterpret_cast<std::uintptr_t>(object.bytes) -
            static_cast<std::uintptr_t>(m_granularity) -
            static_cast<std::uintptr_t>(place.slot) * static_cast<std::uintptr_t>(place.slotSize);
        if (!place.isNewBlock) {
            return m_bases[place.block] == base
                       ? std::string()
                       : "not slot " + std::to_string(place.slot) + " of block " +
                             std::to_string(place.blockIndex) + " of size " +
                             std::to_string(place.slotSize);
        }
        std::uintptr_t const end = base + static_cast<std::uintptr_t>(place.slotSize) * 1000;
        auto const next = m_ranges.lower_bound(base);
        bool const overlaps = (next != m_ranges.end() && next->first < end) ||
                              (next != m_ranges.begin() && std::prev(next)->second > base);
        m_bases[place.block] = base;
        m_ranges[base] = end;
        return overlaps ? "a new block lies in another" : std::string();
    }

    std::string checkContents(Object const & object) const
    {
        for (int i = 0; i < object.size; ++i) {
            if (object.bytes[i] != object.mark) {
                return "byte " + std::to_string(i) + " of an object of " +
                       std::to_string(object.size) + " changed";
            }
        }
        return {};
    }

    int m_granularity;
    zenu::KQuickHeap m_heap;
    HeapReference m_reference;
    std::vector<Object> m_objects;
    std::map<long, std::uintptr_t> m_bases; // of the blocks that live, by their number
    std::map<std::uintptr_t, std::uintptr_t> m_ranges;
    unsigned m_made = 0;
};

} // namespace zenutest
