#pragma once

#include "zenu/grid/inner/LargeBlock.h"

#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

namespace zenu {

// An array of plain entries that is filled anew again and again. It keeps its memory when it is
// cleared, takes exactly what a bulk extension of an empty array needs, and after trim has no more
// than a little slack, so that rows that come one by one do not move it each time.
template <typename Entry>
class EntryBuffer
{
    static_assert(std::is_trivially_copyable_v<Entry>);

public:
    int count() const { return used; }
    int capacity() const { return room; }
    Entry & operator[](int index) { return entries.get()[index]; }
    Entry const & operator[](int index) const { return entries.get()[index]; }

    void clear() { used = 0; }

    // Grows to room for exactly `count` entries; never shrinks.
    void reserve(int count)
    {
        if (count > room) {
            move(count);
        }
    }

    // Gives back what lies idle beyond 1/64 of the entries.
    void trim()
    {
        int const slack = used / 64 + (used == 0 ? 0 : 16);
        if (room - used > slack) {
            move(used + slack / 2);
        }
    }

    // Grows, by half at least, so that `more` entries fit in.
    void makeRoom(int more)
    {
        if (more > room - used) {
            int const grown = room + room / 2;
            move(used + more > grown ? used + more : grown);
        }
    }

    void add(Entry entry)
    {
        if (used == room) {
            makeRoom(4);
        }
        entries.get()[used++] = entry;
    }

private:
    struct Release
    {
        void operator()(Entry * block) const { LargeBlock::release(block); }
    };

    void move(int newRoom)
    {
        if (used == 0) {
            entries.reset(); // before the new one, so that both are never there together
            room = 0;
        }
        auto const size = static_cast<std::size_t>(newRoom) * sizeof(Entry);
        std::unique_ptr<Entry, Release> moved(static_cast<Entry *>(LargeBlock::allocate(size)));
        if (!moved && newRoom != 0) {
            throw std::bad_alloc();
        }
        if (used != 0) {
            std::memcpy(static_cast<void *>(moved.get()), entries.get(),
                        static_cast<std::size_t>(used) * sizeof(Entry));
        }
        entries = std::move(moved);
        room = newRoom;
    }

    std::unique_ptr<Entry, Release> entries;
    int used = 0;
    int room = 0;
};

} // namespace zenu
