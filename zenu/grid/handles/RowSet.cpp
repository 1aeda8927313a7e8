#include "zenu/grid/handles/RowSet.h"

#include "zenu/grid/inner/SlabPool.h"
#include "zenu/grid/rows/IGCRow.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

namespace zenu {

namespace {

constexpr unsigned smallestList = 4;

std::ptrdiff_t distance(IGCRow const * from, IGCRow const * to)
{
    return reinterpret_cast<std::byte const *>(to) - reinterpret_cast<std::byte const *>(from);
}

} // namespace

RowSet::RowSet(RowSet && other) noexcept
{
    swap(other);
}

RowSet & RowSet::operator=(RowSet && other) noexcept
{
    RowSet(std::move(other)).swap(*this);
    return *this;
}

RowSet::~RowSet()
{
    clear();
}

bool RowSet::insert(IGCRow const * row)
{
    if (!row || !isAligned(row)) {
        return false;
    }
    Slot const slot = slotOf(row);
    Region * const region = demandRegion(slot >> regionShift);
    unsigned const pageIndex = (slot >> pageShift) & (pagesOfRegion - 1);
    if (!insertIntoPage(region->pages[pageIndex], slot & (slotsOfPage - 1))) {
        return false;
    }
    region->pagesInUse |= std::uint64_t(1) << pageIndex;
    ++rowCount;
    return true;
}

void RowSet::insertRange(IGCRow const * first, std::size_t stride, int count)
{
    Slot slot = slotOf(first);
    Slot const slotStride = stride >> slotShift;
    auto left = static_cast<unsigned>(std::max(count, 0));
    while (left != 0) {
        Region * const region = demandRegion(slot >> regionShift);
        unsigned const pageIndex = (slot >> pageShift) & (pagesOfRegion - 1);
        unsigned const place = slot & (slotsOfPage - 1);
        // More than one in the page means that the stride is small.
        auto const number =
            std::min(left, static_cast<unsigned>((slotsOfPage - 1 - place) / slotStride) + 1);
        rowCount +=
            insertRun(region->pages[pageIndex], place, static_cast<unsigned>(slotStride), number);
        region->pagesInUse |= std::uint64_t(1) << pageIndex;
        slot += static_cast<Slot>(number) * slotStride;
        left -= number;
    }
}

// Rows that were made together mostly lie in runs of equal distances, whether in the block of a
// slim level or fresh from the pool.
void RowSet::insertAll(RowSpan rows)
{
    int const count = rows.count();
    for (int i = 0; i < count;) {
        int const first = i++;
        std::ptrdiff_t const stride = i < count ? distance(rows[first], rows[i]) : 0;
        if (stride <= 0) {
            insert(rows[first]);
            continue;
        }
        if (rows.areLonely()) {
            i = count;
        }
        while (i < count && distance(rows[i - 1], rows[i]) == stride) {
            ++i;
        }
        insertRange(rows[first], static_cast<std::size_t>(stride), i - first);
    }
}

bool RowSet::erase(IGCRow const * row)
{
    Slot const slot = slotOf(row);
    Slot const key = slot >> regionShift;
    Region * const region = findRegion(key);
    unsigned const pageIndex = (slot >> pageShift) & (pagesOfRegion - 1);
    if (!region || !isAligned(row) ||
        !eraseFromPage(region->pages[pageIndex], slot & (slotsOfPage - 1))) {
        return false;
    }
    --rowCount;
    if (region->pages[pageIndex].rows == 0) {
        region->pagesInUse &= ~(std::uint64_t(1) << pageIndex);
        if (region->pagesInUse == 0) {
            lastRegion = nullptr;
            lastKey = ~Slot(0);
            delete region;
            entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(entryIndex(key)));
        }
    }
    return true;
}

bool RowSet::contains(void const * row) const
{
    Slot const slot = slotOf(row);
    Region const * const region = findRegion(slot >> regionShift);
    return region && isAligned(row) &&
           holds(region->pages[(slot >> pageShift) & (pagesOfRegion - 1)],
                 slot & (slotsOfPage - 1));
}

void RowSet::clear()
{
    for (Entry const & entry : entries) {
        freePages(*entry.region);
        delete entry.region;
    }
    entries.clear();
    entries.shrink_to_fit();
    rowCount = 0;
    lastRegion = nullptr;
    lastKey = ~Slot(0);
}

void RowSet::swap(RowSet & other) noexcept
{
    entries.swap(other.entries);
    std::swap(rowCount, other.rowCount);
    std::swap(lastKey, other.lastKey);
    std::swap(lastRegion, other.lastRegion);
}

std::size_t RowSet::bytes() const
{
    std::size_t sum = entries.capacity() * sizeof(Entry) + entries.size() * sizeof(Region);
    for (Entry const & entry : entries) {
        for (Page const & page : entry.region->pages) {
            sum += page.isBitmap() ? wordsOfPage * sizeof(std::uint64_t)
                                   : page.listRoom * sizeof(std::uint16_t);
        }
    }
    return sum;
}

// Of the first entry that is not below the key.
std::size_t RowSet::entryIndex(Slot key) const
{
    auto const found =
        std::lower_bound(entries.begin(), entries.end(), key,
                         [](Entry const & entry, Slot wanted) { return entry.key < wanted; });
    return static_cast<std::size_t>(found - entries.begin());
}

RowSet::Region * RowSet::findRegion(Slot key) const
{
    if (key == lastKey) {
        return lastRegion;
    }
    std::size_t const index = entryIndex(key);
    if (index == entries.size() || entries[index].key != key) {
        return nullptr;
    }
    lastKey = key;
    lastRegion = entries[index].region;
    return lastRegion;
}

RowSet::Region * RowSet::demandRegion(Slot key)
{
    if (Region * const region = findRegion(key)) {
        return region;
    }
    auto const place = entries.begin() + static_cast<std::ptrdiff_t>(entryIndex(key));
    auto region = std::make_unique<Region>();
    entries.insert(place, {key, region.get()});
    lastRegion = region.release();
    lastKey = key;
    return lastRegion;
}

bool RowSet::insertIntoPage(Page & page, unsigned place)
{
    if (!page.isBitmap()) {
        return insertIntoList(page, place);
    }
    std::uint64_t & word = page.bits[place / 64];
    std::uint64_t const bit = std::uint64_t(1) << (place % 64);
    bool const isNew = (word & bit) == 0;
    word |= bit;
    page.rows = static_cast<std::uint16_t>(page.rows + isNew);
    return isNew;
}

bool RowSet::insertIntoList(Page & page, unsigned place)
{
    unsigned at = page.rows;
    while (at != 0 && page.list[at - 1] >= place) {
        --at;
    }
    if (at != page.rows && page.list[at] == place) {
        return false;
    }
    if (page.rows == largestList) {
        makeBitmap(page);
        return insertIntoPage(page, place);
    }
    if (page.rows == page.listRoom) {
        growList(page);
    }
    std::copy_backward(page.list + at, page.list + page.rows, page.list + page.rows + 1);
    page.list[at] = static_cast<std::uint16_t>(place);
    ++page.rows;
    return true;
}

void RowSet::growList(Page & page)
{
    unsigned const room = page.listRoom == 0 ? smallestList : page.listRoom * 2U;
    auto * const grown =
        static_cast<std::uint16_t *>(SlabPool::allocate(room * sizeof(std::uint16_t)));
    std::copy_n(page.list, page.rows, grown);
    SlabPool::release(page.list, page.listRoom * sizeof(std::uint16_t));
    page.list = grown;
    page.listRoom = static_cast<std::uint16_t>(room);
}

void RowSet::makeBitmap(Page & page)
{
    constexpr std::size_t size = wordsOfPage * sizeof(std::uint64_t);
    auto * const bits = static_cast<std::uint64_t *>(SlabPool::allocate(size));
    std::memset(bits, 0, size);
    for (unsigned i = 0; i < page.rows; ++i) {
        bits[page.list[i] / 64] |= std::uint64_t(1) << (page.list[i] % 64);
    }
    SlabPool::release(page.list, page.listRoom * sizeof(std::uint16_t));
    page.bits = bits;
    page.listRoom = 0;
}

// How many of them were new.
unsigned RowSet::insertRun(Page & page, unsigned place, unsigned stride, unsigned number)
{
    unsigned added = 0;
    if (!page.isBitmap()) {
        if (page.rows + number <= largestList) {
            for (unsigned i = 0; i < number; ++i) {
                added += insertIntoList(page, place + i * stride);
            }
            return added;
        }
        makeBitmap(page);
    }
    unsigned const end = place + (number - 1) * stride + 1;
    while (place < end) {
        std::uint64_t & word = page.bits[place / 64];
        unsigned const wordEnd = std::min((place / 64 + 1) * 64, end);
        std::uint64_t mask = 0;
        for (; place < wordEnd; place += stride) {
            mask |= std::uint64_t(1) << (place % 64);
        }
        added += static_cast<unsigned>(std::popcount(mask & ~word));
        word |= mask;
    }
    page.rows = static_cast<std::uint16_t>(page.rows + added);
    return added;
}

bool RowSet::eraseFromPage(Page & page, unsigned place)
{
    if (!holds(page, place)) {
        return false;
    }
    if (page.isBitmap()) {
        page.bits[place / 64] &= ~(std::uint64_t(1) << (place % 64));
        if (page.rows == 1) {
            freePage(page);
            return true;
        }
    } else {
        auto * const end = page.list + page.rows;
        auto * const at = std::lower_bound(page.list, end, place);
        std::copy(at + 1, end, at);
        if (page.rows == 1) {
            freePage(page);
            return true;
        }
    }
    --page.rows;
    return true;
}

bool RowSet::holds(Page const & page, unsigned place)
{
    if (page.isBitmap()) {
        return (page.bits[place / 64] >> (place % 64) & 1) != 0;
    }
    return std::binary_search(page.list, page.list + page.rows, place);
}

// The first place of a row that is not below `place`, -1 for none.
int RowSet::placeFrom(Page const & page, unsigned place)
{
    if (!page.isBitmap()) {
        std::uint16_t const * const list = page.list;
        std::uint16_t const * const end = list + page.rows;
        std::uint16_t const * const found = std::lower_bound(list, end, place);
        return found == end ? -1 : *found;
    }
    std::uint64_t bits = page.bits[place / 64] & (~std::uint64_t(0) << (place % 64));
    for (unsigned word = place / 64;;) {
        if (bits != 0) {
            return static_cast<int>(word * 64 + static_cast<unsigned>(std::countr_zero(bits)));
        }
        if (++word == wordsOfPage) {
            return -1;
        }
        bits = page.bits[word];
    }
}

void RowSet::freePage(Page & page)
{
    if (page.isBitmap()) {
        SlabPool::release(page.bits, wordsOfPage * sizeof(std::uint64_t));
    } else {
        SlabPool::release(page.list, page.listRoom * sizeof(std::uint16_t));
    }
    page = Page();
}

void RowSet::freePages(Region & region)
{
    for (std::uint64_t left = region.pagesInUse; left != 0; left &= left - 1) {
        freePage(region.pages[static_cast<unsigned>(std::countr_zero(left))]);
    }
}

IGCRow * RowSet::lowerBound(std::uintptr_t address) const
{
    constexpr std::uintptr_t rounding = (1U << slotShift) - 1;
    if (address > ~rounding || entries.empty()) {
        return nullptr;
    }
    Slot const slot = (address + rounding) >> slotShift;
    Slot const key = slot >> regionShift;
    unsigned pageIndex = (slot >> pageShift) & (pagesOfRegion - 1);
    unsigned place = slot & (slotsOfPage - 1);
    for (std::size_t i = entryIndex(key); i < entries.size(); ++i) {
        if (entries[i].key != key) {
            pageIndex = 0;
            place = 0;
        }
        Region const & region = *entries[i].region;
        std::uint64_t left = region.pagesInUse & (~std::uint64_t(0) << pageIndex);
        for (; left != 0; left &= left - 1) {
            auto const candidate = static_cast<unsigned>(std::countr_zero(left));
            int const found =
                placeFrom(region.pages[candidate], candidate == pageIndex ? place : 0);
            if (found >= 0) {
                return rowAt((entries[i].key << regionShift) | (Slot(candidate) << pageShift) |
                             static_cast<Slot>(found));
            }
        }
    }
    return nullptr;
}

} // namespace zenu
