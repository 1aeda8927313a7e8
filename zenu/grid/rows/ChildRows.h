#pragma once

#include "zenu/grid/inner/LargeBlock.h"
#include "zenu/grid/rows/IGCRow.h"

#include <span>
#include <vector>

namespace zenu {

// The rows under one parent in stored order. Removing a row leaves a hole that the next reader
// closes, and each row remembers near which place it stands, so a thousand deletions among a
// million siblings cost a thousand times nothing and one pass. Holds the rows, does not own them.
class ZENU_TEST_EXPORT ChildRows
{
public:
    int count() const { return static_cast<int>(slots.size() - holes); }
    bool isEmpty() const { return slots.size() == holes; }
    // `index` is below count().
    IGCRow * at(int index) const { return closed()[static_cast<std::size_t>(index)]; }
    RowSpan span() const { return {closed().data(), count()}; }

    // After or before the child with this handle, which may be any value, or GCI_FIRST, GCI_LAST.
    // False when it is no child. O(1) for GCI_LAST and for the child inserted last.
    bool insert(std::span<IGCRow * const> rows, tag_HROW * position, bool after);
    bool insert(IGCRow * row, tag_HROW * position, bool after)
    {
        return insert(std::span<IGCRow * const>(&row, 1), position, after);
    }
    // Index of a live row, -1 when it is no child or null. O(1) but for a pass after many changes.
    int indexOf(IGCRow const * row) const;
    // False when the live row is no child or null. O(1) as indexOf.
    bool remove(IGCRow const * row);
    void clear();
    void reserve(int count) { slots.reserve(static_cast<std::size_t>(count)); }
    // Bytes beside the object itself.
    std::size_t bytes() const { return slots.capacity() * sizeof(IGCRow *); }

private:
    using Slots = std::vector<IGCRow *, LargeBlockAllocator<IGCRow *>>;

    Slots const & closed() const;
    std::ptrdiff_t slotOf(IGCRow const * row) const;
    std::ptrdiff_t slotOfHandle(tag_HROW * position) const;
    void renumber() const;

    mutable Slots slots; // null: a hole
    mutable std::size_t holes = 0;
    mutable std::size_t drift = 0; // by how many places a row may stand off its childPlace
    std::size_t lastInserted = 0;  // a guess
};

} // namespace zenu
