#include "zenu/grid/frame/KGridCtrlPrivate.h"
#include "zenu/grid/frame/RowGuard.h"

#include "zenu/grid/order/StableSort.h"
#include "zenu/util/StringUtils.h"

#include <cstdint>
#include <cstring>

namespace zenu {

namespace {

constexpr std::size_t prefixSize = sizeof(std::uint64_t);

// A row with what a comparison looks at first: the text's first bytes, folded, in the order of the
// text. Most comparisons end there and touch no text.
struct SortKey
{
    std::uint64_t prefix;
    char const * text; // null for none
    IGCRow * row;
};

std::uint64_t foldedPrefix(char const * text)
{
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < prefixSize; ++i) {
        prefix <<= 8;
        if (*text) {
            prefix |= foldCase(*text++);
        }
    }
    return prefix;
}

// Where the text ends within the first bytes, the last of them is 0.
bool endsInPrefix(SortKey const & key)
{
    return (key.prefix & 0xff) == 0;
}

// A row without text compares as equal to any other.
bool isBefore(SortKey const & a, SortKey const & b)
{
    if (!a.text || !b.text) {
        return false;
    }
    if (a.prefix != b.prefix) {
        return a.prefix < b.prefix;
    }
    return !endsInPrefix(a) && compareNoCase(a.text + prefixSize, b.text + prefixSize) < 0;
}

// From here on the keys of the range are level, and their texts go on: the next bytes decide.
struct LevelKeys
{
    std::size_t first;
    std::size_t count;
};

// Adds the ranges of level keys to `found`, each moved on to the next bytes of its texts.
void findLevelKeys(SortKey * keys, LevelKeys const & sorted, std::vector<LevelKeys> & found)
{
    std::size_t const past = sorted.first + sorted.count;
    for (std::size_t first = sorted.first; first < past;) {
        std::size_t next = first + 1;
        while (next < past && keys[next].prefix == keys[first].prefix) {
            ++next;
        }
        if (next - first > 1 && !endsInPrefix(keys[first])) {
            for (std::size_t i = first; i < next; ++i) {
                keys[i].text += prefixSize;
                keys[i].prefix = foldedPrefix(keys[i].text);
            }
            found.push_back({first, next - first});
        }
        first = next;
    }
}

// Sorts keys that all have a text: by their first bytes, then those that are level by the next
// ones, and so on. Texts that begin alike, as names in a list do, are read once and in order, not
// at each comparison. Gives the order that a stable sort by isBefore gives.
void sortByPrefixes(std::vector<SortKey> & keys, bool ascending)
{
    std::vector<LevelKeys> pending{{0, keys.size()}};
    while (!pending.empty()) {
        LevelKeys const level = pending.back();
        pending.pop_back();
        SortKey * const first = keys.data() + level.first;
        if (ascending) {
            stableSort(first, level.count,
                       [](SortKey const & a, SortKey const & b) { return a.prefix < b.prefix; });
        } else {
            stableSort(first, level.count,
                       [](SortKey const & a, SortKey const & b) { return b.prefix < a.prefix; });
        }
        findLevelKeys(keys.data(), level, pending);
    }
}

// Sorts keys of which some have no text. Such a row is level with any other, which is no order at
// all, so each pair that meets must be compared as it stands.
void sortByComparisons(std::vector<SortKey> & keys, bool ascending)
{
    if (ascending) {
        stableSort(keys.data(), keys.size(),
                   [](SortKey const & a, SortKey const & b) { return isBefore(a, b); });
    } else {
        stableSort(keys.data(), keys.size(),
                   [](SortKey const & a, SortKey const & b) { return isBefore(b, a); });
    }
}

// Texts that a callback gives last until it is asked again.
class TextArena
{
public:
    char const * keep(char const * text)
    {
        std::size_t const size = std::strlen(text) + 1;
        if (size > left) {
            left = std::max(size, blockSize);
            blocks.push_back(std::make_unique_for_overwrite<char[]>(left));
            place = blocks.back().get();
        }
        char * const kept = place;
        std::memcpy(kept, text, size);
        place += size;
        left -= size;
        return kept;
    }

private:
    static constexpr std::size_t blockSize = 64 * 1024;
    std::vector<std::unique_ptr<char[]>> blocks;
    char * place = nullptr;
    std::size_t left = 0;
};

} // namespace

void KGridCtrl::PrivateData::Sort(GC_SORT const * sort)
{
    if (sort) {
        sortColumn = sort->column;
        sortAscending = sort->ascending;
        sortCompare = sort->compare;
        sortParam = sort->param;
    } else {
        sortColumn = GC_NOCOLUMN;
        sortCompare = nullptr;
    }
    Invalidate();
    Repaint();
}

// Each text is fetched once, not twice a comparison.
void KGridCtrl::PrivateData::sortByText(std::vector<IGCRow *> & rows, CGCColumn * column)
{
    TextArena arena;
    std::vector<SortKey> keys;
    keys.reserve(rows.size());
    bool allHaveText = true;
    for (IGCRow * const row : rows) {
        char const * text = ItemText(row, column);
        if (!text) {
            keys.push_back({0, nullptr, row});
            allHaveText = false;
            continue;
        }
        SortKey key{foldedPrefix(text), "", row};
        if (!endsInPrefix(key)) {
            key.text = arena.keep(text);
        }
        keys.push_back(key);
    }
    if (allHaveText) {
        sortByPrefixes(keys, sortAscending);
    } else {
        sortByComparisons(keys, sortAscending);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i] = keys[i].row;
    }
}

void KGridCtrl::PrivateData::SortRows(std::vector<IGCRow *> & rows)
{
    TreeLock const lock(this);
    if (sortColumn != GC_NOCOLUMN) {
        if (CGCColumn * const column = columns.find(sortColumn)) {
            sortByText(rows, column);
        }
    } else if (sortCompare) {
        // Copies: the comparison may set another one. Once it has deleted the grid it is not called
        // again.
        GC_COMPAREPROC const compare = sortCompare;
        auto const compareParam = static_cast<unsigned long>(sortParam);
        stableSort(rows.data(), rows.size(), [=, this](IGCRow const * a, IGCRow const * b) {
            return grid && compare(compareParam, a->Handle(), static_cast<long>(a->param),
                                   b->Handle(), static_cast<long>(b->param)) < 0;
        });
    }
}

} // namespace zenu
