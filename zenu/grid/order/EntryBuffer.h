#pragma once

#include <algorithm>
#include <memory>
#include <type_traits>

namespace zenu {

// An array of plain entries that is filled anew again and again. It takes exactly what the first
// reserve asks for; later it leaves a little slack, so that rows that come one by one do not move
// it each time, and it gives memory back when most of it lies idle.
template <typename Entry>
class EntryBuffer
{
    static_assert(std::is_trivially_copyable_v<Entry>);

public:
    int count() const { return used; }
    int capacity() const { return room; }
    Entry & operator[](int index) { return entries[static_cast<std::size_t>(index)]; }
    Entry const & operator[](int index) const { return entries[static_cast<std::size_t>(index)]; }

    void clear() { used = 0; }

    // The buffer is empty, or `count` is not below count().
    void reserve(int count)
    {
        if (count > room) {
            move(room == 0 ? count : count + count / 64);
        } else if (count < room / 2) {
            move(count);
        }
    }

    // Room for `more` entries at the end, to be written by the caller.
    Entry * extend(int more)
    {
        if (more > room - used) {
            move(std::max(used + more, room + room / 2 + 4));
        }
        Entry * const place = entries.get() + used;
        used += more;
        return place;
    }

private:
    void move(int newRoom)
    {
        if (used == 0) {
            entries.reset(); // before the new one, so that both are never there together
        }
        auto moved = std::make_unique_for_overwrite<Entry[]>(static_cast<std::size_t>(newRoom));
        std::copy_n(entries.get(), used, moved.get());
        entries = std::move(moved);
        room = newRoom;
    }

    std::unique_ptr<Entry[]> entries;
    int used = 0;
    int room = 0;
};

} // namespace zenu
