#include "zenu/grid/rows/ChildRows.h"

#include <algorithm>

namespace zenu {

namespace {

constexpr std::size_t largestDrift = 1024; // a search outwards beats a pass up to some such number

} // namespace

ChildRows::Slots const & ChildRows::closed() const
{
    if (holes != 0) {
        std::erase(slots, nullptr);
        drift += holes;
        holes = 0;
    }
    return slots;
}

void ChildRows::renumber() const
{
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if (slots[i]) {
            slots[i]->childPlace = static_cast<std::uint32_t>(i);
        }
    }
    drift = 0;
}

std::ptrdiff_t ChildRows::slotOf(IGCRow const * row) const
{
    if (!row) {
        return -1; // a hole is no child
    }
    if (drift > largestDrift) {
        renumber();
    }
    auto const size = static_cast<std::ptrdiff_t>(slots.size());
    auto const place = static_cast<std::ptrdiff_t>(row->childPlace);
    auto const reach = static_cast<std::ptrdiff_t>(drift);
    for (std::ptrdiff_t distance = 0; distance <= reach; ++distance) {
        if (place - distance >= 0 && place - distance < size &&
            slots[static_cast<std::size_t>(place - distance)] == row) {
            return place - distance;
        }
        if (place + distance < size && slots[static_cast<std::size_t>(place + distance)] == row) {
            return place + distance;
        }
    }
    return -1;
}

std::ptrdiff_t ChildRows::slotOfHandle(tag_HROW * position) const
{
    // Compared as an address: nothing says that a row lives there.
    auto const * const row = reinterpret_cast<IGCRow const *>(position);
    if (!row) {
        return -1;
    }
    if (lastInserted < slots.size() && slots[lastInserted] == row) {
        return static_cast<std::ptrdiff_t>(lastInserted);
    }
    auto const found = std::find(slots.begin(), slots.end(), row);
    return found == slots.end() ? -1 : found - slots.begin();
}

bool ChildRows::insert(std::span<IGCRow * const> rows, tag_HROW * position, bool after)
{
    std::size_t at = 0;
    if (position == GCI_LAST) {
        at = slots.size();
    } else if (position != GCI_FIRST) {
        std::ptrdiff_t const found = slotOfHandle(position);
        if (found < 0) {
            return false;
        }
        at = static_cast<std::size_t>(found) + (after ? 1 : 0);
    }
    if (at != slots.size()) {
        drift += rows.size();
    }
    slots.insert(slots.begin() + static_cast<std::ptrdiff_t>(at), rows.begin(), rows.end());
    for (std::size_t i = at; i < at + rows.size(); ++i) {
        slots[i]->childPlace = static_cast<std::uint32_t>(i);
    }
    lastInserted = at + rows.size() - (rows.empty() ? 0 : 1);
    return true;
}

int ChildRows::indexOf(IGCRow const * row) const
{
    closed();
    return static_cast<int>(slotOf(row));
}

bool ChildRows::remove(IGCRow const * row)
{
    std::ptrdiff_t const slot = slotOf(row);
    if (slot < 0) {
        return false;
    }
    slots[static_cast<std::size_t>(slot)] = nullptr;
    ++holes;
    while (!slots.empty() && !slots.back()) {
        slots.pop_back();
        --holes;
    }
    return true;
}

void ChildRows::clear()
{
    slots.clear();
    slots.shrink_to_fit();
    holes = 0;
    drift = 0;
}

} // namespace zenu
