#pragma once

#include "zenu/grid/geometry/TextCache.h"
#include "zenu/grid/geometry/TextLine.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zenu {

// Of a longer text these first bytes and a hash of 128 bits tell it from others.
constexpr std::size_t keptTextBytes = 1024;
// A room that no span has: it stands for the text without a span.
constexpr int wholeText = -2;

// Both halves of the hash of a text.
struct TextHash
{
    std::uint64_t first = 0;
    std::uint64_t second = 0;

    bool operator==(TextHash const &) const = default;
};

TextHash hashOf(std::string_view text);

// What a result is found by.
struct TextProbe
{
    FontWidths const * font;
    std::string_view text;
    int room;
    FitSide side;
    TextHash hash;
};

// One result.
struct TextEntry
{
    void assign(TextProbe const & probe);
    bool isFor(TextProbe const & probe) const;

    FontWidths const * font = nullptr; // null while the place is empty
    int room = 0;
    FitSide side = FitSide::Front;
    std::uint32_t tag = 0; // in the table
    std::size_t length = 0;
    TextHash hash;
    std::uint64_t lastUse = 0; // number of the lookup
    std::string bytes;
    FittedText result;
    // A room that takes the whole text for certain.
    int surelyFits = std::numeric_limits<int>::max();
    // A room that does not.
    int surelyCut = std::numeric_limits<int>::min();
    TextLine line;
};

// The results of a TextCache. At most 16384 of them, in about 16 MB: a new one takes the place of
// one that was not among the last 8192 lookups, or, when texts are long, among the last 64. So a
// full store lets go of one at a time, and no frame pays for thousands.
class TextStore
{
public:
    // The result for the probe. A new one is empty but for the probe, and `isNew` says so. Stays
    // where it is until its place is taken.
    TextEntry & entryOf(TextProbe const & probe, bool & isNew);
    void clear();
    std::size_t size() const { return used; }

private:
    // Where in `entries` the result is that has this tag, from 1 on; 0 for none.
    struct Slot
    {
        std::uint32_t tag = 0;
        std::uint32_t place = 0;
    };

    TextEntry * find(TextProbe const & probe, std::uint32_t tag) const;
    std::size_t freePlace();
    std::size_t oldPlace();
    void empty(TextEntry & entry);
    void enter(std::uint32_t tag, std::size_t place);
    void growTable();
    static std::size_t costOf(TextEntry const & entry);

    std::vector<std::unique_ptr<TextEntry>> entries;
    std::vector<Slot> slots; // a power of two of them, half of which stay free; linear probing
    std::size_t used = 0;
    std::size_t usedBytes = 0;
    std::size_t hand = 0; // where the search for an old result goes on
    std::uint64_t lookups = 0;
};

} // namespace zenu
