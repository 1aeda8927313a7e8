#include "zenu/grid/geometry/TextStore.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zenu {

namespace {

constexpr std::size_t mostEntries = 16384;
constexpr std::size_t mostBytes = 16U << 20;
constexpr std::size_t shapeBytes = 600;
constexpr std::size_t bytesALetter = 32;
constexpr std::size_t smallestTable = 64;
// A result that was used within so many lookups stays.
constexpr std::uint64_t longAge = mostEntries / 2;
constexpr std::uint64_t shortAge = 64;

std::uint64_t mixed(std::uint64_t value)
{
    value ^= value >> 32;
    value *= 0xd6e8feb86659fd93U;
    return value ^ value >> 29;
}

std::uint32_t tagOf(TextProbe const & probe)
{
    std::uint64_t const place = static_cast<std::uint64_t>(static_cast<unsigned>(probe.room)) * 2 +
                                (probe.side == FitSide::End ? 1 : 0);
    auto const font = reinterpret_cast<std::uintptr_t>(probe.font);
    return static_cast<std::uint32_t>(mixed(probe.hash.first ^ mixed(place ^ font)));
}

} // namespace

TextHash hashOf(std::string_view text)
{
    TextHash hash{0x9e3779b97f4a7c15U ^ text.size(), 0xc2b2ae3d27d4eb4fU + text.size()};
    std::size_t at = 0;
    while (at < text.size()) {
        std::uint64_t word = 0;
        std::size_t const count = std::min(text.size() - at, sizeof word);
        std::memcpy(&word, text.data() + at, count);
        hash.first = mixed(hash.first ^ word);
        hash.second = (hash.second + word) * 0xff51afd7ed558ccdU;
        hash.second ^= hash.second >> 31;
        at += count;
    }
    return hash;
}

void TextEntry::assign(TextProbe const & probe)
{
    font = probe.font;
    room = probe.room;
    side = probe.side;
    length = probe.text.size();
    hash = probe.hash;
    bytes = probe.text.substr(0, keptTextBytes);
    result = {};
    surelyFits = std::numeric_limits<int>::max();
    surelyCut = std::numeric_limits<int>::min();
    line = {};
}

bool TextEntry::isFor(TextProbe const & probe) const
{
    return font == probe.font && room == probe.room && side == probe.side &&
           length == probe.text.size() && hash == probe.hash &&
           bytes == probe.text.substr(0, keptTextBytes);
}

TextEntry & TextStore::entryOf(TextProbe const & probe, bool & isNew)
{
    ++lookups;
    std::uint32_t const tag = tagOf(probe);
    TextEntry * entry = find(probe, tag);
    isNew = entry == nullptr;
    if (isNew) {
        std::size_t const place = freePlace();
        entry = entries[place].get();
        entry->assign(probe);
        entry->tag = tag;
        usedBytes += costOf(*entry);
        ++used;
        enter(tag, place);
    }
    entry->lastUse = lookups;
    return *entry;
}

void TextStore::clear()
{
    *this = {};
}

TextEntry * TextStore::find(TextProbe const & probe, std::uint32_t tag) const
{
    if (slots.empty()) {
        return nullptr;
    }
    std::size_t const mask = slots.size() - 1;
    for (std::size_t at = tag & mask; slots[at].place != 0; at = (at + 1) & mask) {
        if (slots[at].tag == tag) {
            TextEntry * const entry = entries[slots[at].place - 1].get();
            if (entry->isFor(probe)) {
                return entry;
            }
        }
    }
    return nullptr;
}

// Of an entry that is empty, made so if need be.
std::size_t TextStore::freePlace()
{
    if (entries.size() < mostEntries && usedBytes < mostBytes) {
        entries.push_back(std::make_unique<TextEntry>());
        return entries.size() - 1;
    }
    std::size_t place = 0;
    do {
        place = oldPlace();
        empty(*entries[place]);
    } while (usedBytes >= mostBytes);
    return place;
}

// The next one that was not used for long, round and round.
std::size_t TextStore::oldPlace()
{
    for (std::uint64_t const age : {longAge, shortAge}) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            std::size_t const place = hand;
            hand = hand + 1 == entries.size() ? 0 : hand + 1;
            if (lookups - entries[place]->lastUse >= age) {
                return place;
            }
        }
    }
    return hand; // not reached: so much memory holds more than `shortAge` entries
}

// Slots behind it close up, each as near to where it belongs as it can.
void TextStore::empty(TextEntry & entry)
{
    entry.lastUse = 0;
    if (!entry.font) {
        return;
    }
    std::size_t const mask = slots.size() - 1;
    std::size_t gap = entry.tag & mask;
    while (entries[slots[gap].place - 1].get() != &entry) {
        gap = (gap + 1) & mask;
    }
    for (std::size_t at = (gap + 1) & mask; slots[at].place != 0; at = (at + 1) & mask) {
        std::size_t const wayFromHome = (at - slots[at].tag) & mask;
        if (wayFromHome >= ((at - gap) & mask)) {
            slots[gap] = slots[at];
            gap = at;
        }
    }
    slots[gap] = {};
    usedBytes -= costOf(entry);
    --used;
    entry.font = nullptr;
    entry.line = {};
}

void TextStore::enter(std::uint32_t tag, std::size_t place)
{
    if (slots.size() < 2 * entries.size()) {
        growTable();
    }
    std::size_t const mask = slots.size() - 1;
    std::size_t at = tag & mask;
    while (slots[at].place != 0) {
        at = (at + 1) & mask;
    }
    slots[at] = {tag, static_cast<std::uint32_t>(place + 1)};
}

void TextStore::growTable()
{
    std::vector<Slot> const before =
        std::exchange(slots, std::vector<Slot>(std::max(2 * slots.size(), smallestTable)));
    for (Slot const & slot : before) {
        if (slot.place != 0) {
            enter(slot.tag, slot.place - 1);
        }
    }
}

// Memory, about: the text in both forms and, where it is drawn, its shape.
std::size_t TextStore::costOf(TextEntry const & entry)
{
    return shapeBytes + bytesALetter * entry.bytes.size();
}

} // namespace zenu
