#include "zenu/config/inner/ConfigTable.h"

#include "zenu/config/IConfigStore.h"

namespace zenu {

namespace {

constexpr unsigned firstBits = 6; // of a place: a small table has few collisions

} // namespace

class ConfigTable::Showing
{
public:
    explicit Showing(ConfigTable & table)
        : m_table(table)
    {
        ++m_table.m_showings;
    }
    ~Showing()
    {
        if (--m_table.m_showings == 0) {
            m_table.m_replaced.clear();
        }
    }
    Showing(Showing const &) = delete;
    Showing & operator=(Showing const &) = delete;

private:
    ConfigTable & m_table;
};

ConfigTable::ConfigTable()
    : m_slots(std::size_t{1} << firstBits, Slot{0, 0, &m_dummy})
    , m_shift(64 - firstBits)
{
}

void ConfigTable::load(IConfigStore * store)
{
    if (!store) {
        return;
    }
    walk([&](Entry & entry) {
        if (entry.name.empty()) {
            return;
        }
        try {
            setValue(entry, nullptr);
            std::unique_ptr<IConfigItem> stored(entry.defaultItem->load(store, entry.name.c_str()));
            // The store may have declared the setting anew, perhaps with another type.
            if (entry.successor == 0) {
                setValue(entry, std::move(stored));
            }
        } catch (std::bad_alloc const &) {
        }
    });
}

void ConfigTable::save(IConfigStore * store)
{
    Showing const showing(*this);
    walk([&](Entry & entry) {
        if (entry.valueItem && !entry.name.empty()) {
            entry.valueItem->save(store, entry.name.c_str());
        }
    });
}

void ConfigTable::visitAll(IConfigVisitor * visitor)
{
    Showing const showing(*this);
    walk([&](Entry & entry) {
        IConfigItem const & item = entry.valueItem ? *entry.valueItem : *entry.defaultItem;
        item.visit(entry.id, entry.name.c_str(), visitor);
    });
}

void ConfigTable::visitChanged(IConfigVisitor * visitor)
{
    Showing const showing(*this);
    walk([&](Entry & entry) {
        if (entry.valueItem) {
            entry.valueItem->visit(entry.id, entry.name.c_str(), visitor);
        }
    });
}

void ConfigTable::add(int id, char const * name, std::unique_ptr<IConfigItem> defaultItem)
{
    if ((m_used + 1) * 2 > m_slots.size()) { // at most half full
        grow();
    }
    auto const index = static_cast<std::uint32_t>(m_entries.size());
    m_entries.push_back({name, std::move(defaultItem), nullptr, id, 0});
    Slot & slot = slotOf(id);
    if (isFree(slot)) {
        ++m_used;
    } else {
        m_entries[slot.entry].successor = index;
    }
    slot = {id, index, m_entries.back().defaultItem.get()};
}

void ConfigTable::grow()
{
    std::vector<Slot> old(m_slots.size() * 2, Slot{0, 0, &m_dummy});
    old.swap(m_slots);
    --m_shift;
    for (Slot const & slot : old) {
        if (!isFree(slot)) {
            slotOf(slot.id) = slot;
        }
    }
}

IConfigItem & ConfigTable::writable(int id, bool (*willChange)(IConfigItem const &))
{
    Slot const & slot = slotOf(id);
    if (isFree(slot)) {
        return m_dummy;
    }
    Entry & entry = m_entries[slot.entry];
    // A value that a visitor or a store has been given does not change under its eyes.
    if (!entry.valueItem || (m_showings > 0 && willChange(*entry.valueItem))) {
        setValue(entry, std::unique_ptr<IConfigItem>(slot.item->clone()));
    }
    return *entry.valueItem;
}

void ConfigTable::setValue(Entry & entry, std::unique_ptr<IConfigItem> value)
{
    if (entry.valueItem && m_showings > 0) {
        m_replaced.push_back(std::move(entry.valueItem));
    }
    entry.valueItem = std::move(value);
    slotOf(entry.id).item = entry.valueItem ? entry.valueItem.get() : entry.defaultItem.get();
}

// Calls `step` for every setting that was declared when the walk began. Steps call the application,
// which may declare settings, and then the entries that were there have successors beyond `count`.
template <typename Step>
void ConfigTable::walk(Step const & step)
{
    std::size_t const count = m_entries.size();
    for (std::size_t i = 0; i < count; ++i) {
        Entry * entry = &m_entries[i];
        while (entry->successor >= count) {
            entry = &m_entries[entry->successor];
        }
        if (entry->successor == 0) {
            step(*entry);
        }
    }
}

} // namespace zenu
