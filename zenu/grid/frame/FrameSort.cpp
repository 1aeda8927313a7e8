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

// A row without text compares as equal to any other.
bool isBefore(SortKey const & a, SortKey const & b)
{
    if (!a.text || !b.text) {
        return false;
    }
    if (a.prefix != b.prefix) {
        return a.prefix < b.prefix;
    }
    bool const endsInPrefix = (a.prefix & 0xff) == 0;
    return !endsInPrefix && compareNoCase(a.text + prefixSize, b.text + prefixSize) < 0;
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
    grid->update();
}

// Each text is fetched once, not twice a comparison.
void KGridCtrl::PrivateData::sortByText(std::vector<IGCRow *> & rows, CGCColumn * column)
{
    TextArena arena;
    std::vector<SortKey> keys;
    keys.reserve(rows.size());
    for (IGCRow * const row : rows) {
        char const * text = ItemText(row, column);
        if (!text) {
            keys.push_back({0, nullptr, row});
            continue;
        }
        std::uint64_t const prefix = foldedPrefix(text);
        bool const endsInPrefix = (prefix & 0xff) == 0;
        keys.push_back({prefix, endsInPrefix ? "" : arena.keep(text), row});
    }
    if (sortAscending) {
        stableSort(keys.data(), keys.size(),
                   [](SortKey const & a, SortKey const & b) { return isBefore(a, b); });
    } else {
        stableSort(keys.data(), keys.size(),
                   [](SortKey const & a, SortKey const & b) { return isBefore(b, a); });
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
        // Copies: the comparison may set another one.
        GC_COMPAREPROC const compare = sortCompare;
        auto const compareParam = static_cast<unsigned long>(sortParam);
        stableSort(rows.data(), rows.size(), [=](IGCRow const * a, IGCRow const * b) {
            return compare(compareParam, a->Handle(), static_cast<long>(a->param), b->Handle(),
                           static_cast<long>(b->param)) < 0;
        });
    }
}

} // namespace zenu
