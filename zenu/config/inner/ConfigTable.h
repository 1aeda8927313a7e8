#pragma once

#include "zenu/config/ConfigItems.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace zenu {

// What a KConfig holds: the settings in the order of their declarations, and a hash index that
// leads from an id straight to the item that a read uses, so that a get costs one probe and one
// virtual call. Nothing is ever removed. No operation throws for want of memory: what cannot be
// made is left out.
class ConfigTable
{
public:
    ConfigTable();

    // Declares a setting. If the id is known, the old entry stays where it is, unused: the items
    // and the name may still be in someone's hands.
    template <typename Item, typename Value>
    void declare(int id, char const * name, Value const & value)
    {
        try {
            add(id, name ? name : "", std::make_unique<Item>(value));
        } catch (std::bad_alloc const &) {
        }
    }

    // The value item, or else the default item, or else the dummy. O(1).
    IConfigItem const & current(int id) const { return *slotOf(id).item; }

    // The default item or the dummy. O(1).
    IConfigItem const & defaultOf(int id) const
    {
        Slot const & slot = slotOf(id);
        return isFree(slot) ? *slot.item : *m_entries[slot.entry].defaultItem;
    }

    // Calls `change`, which sets a value of the type of `Item`, with the value item, which is made
    // if there is none, or with the dummy. O(1).
    template <typename Item, typename Change>
    void change(int id, Change const & change)
    {
        try {
            change(writable(id, [](IConfigItem const & item) {
                return dynamic_cast<Item const *>(&item) != nullptr;
            }));
        } catch (std::bad_alloc const &) {
        }
    }

    void load(IConfigStore * store);
    void save(IConfigStore * store);
    void visitAll(IConfigVisitor * visitor);
    void visitChanged(IConfigVisitor * visitor);

private:
    struct Entry
    {
        std::string name;
        std::unique_ptr<IConfigItem> defaultItem;
        std::unique_ptr<IConfigItem> valueItem; // null while the setting is not changed
        int id;
        std::uint32_t successor; // the entry of a later declaration of the id, 0 for none
    };

    // A free slot leads to the dummy, so that a read need not ask whether it found anything.
    struct Slot
    {
        int id;
        std::uint32_t entry;
        IConfigItem * item;
    };

    // During a walk that hands out items, those that are replaced live on until the last such walk
    // ends.
    class Showing;

    bool isFree(Slot const & slot) const { return slot.item == &m_dummy; }

    // The slot of the id, or the free one where it would stand. Linear probing from the upper bits
    // of a product; the shift spreads ids that are evenly spaced, whatever their distance.
    Slot const & slotOf(int id) const
    {
        auto const bits = static_cast<std::uint32_t>(id);
        auto place = static_cast<std::size_t>(
            ((bits ^ (bits >> 15)) * std::uint64_t{0x9E3779B97F4A7C15}) >> m_shift);
        Slot const * slot = &m_slots[place];
        while (slot->id != id && !isFree(*slot)) {
            place = (place + 1) & (m_slots.size() - 1);
            slot = &m_slots[place];
        }
        return *slot;
    }
    Slot & slotOf(int id) { return const_cast<Slot &>(std::as_const(*this).slotOf(id)); }

    void add(int id, char const * name, std::unique_ptr<IConfigItem> defaultItem);
    void grow();
    IConfigItem & writable(int id, bool (*willChange)(IConfigItem const &));
    void setValue(Entry & entry, std::unique_ptr<IConfigItem> value);
    template <typename Step>
    void walk(Step const & step);

    KDummyItem m_dummy;
    std::vector<Slot> m_slots;
    unsigned m_shift;            // 64 less the bits of a place
    std::size_t m_used = 0;      // slots that are not free
    std::deque<Entry> m_entries; // entries never move
    std::vector<std::unique_ptr<IConfigItem>> m_replaced;
    int m_showings = 0;
};

} // namespace zenu
