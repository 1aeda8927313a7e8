#pragma once

#include "zenu/ZenuExport.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zenu {

class IGCRow;
class RowSpan;

// An ordered set of row addresses that never looks at a row. A page of 32 KiB of addresses is one
// bitmap of a bit per 8 bytes, or, while it holds few rows, a short sorted list; pages hang in
// regions of 2 MiB. Dense rows of 32 to 72 bytes cost 0.5 to 1.2 bytes each, a row that stands
// alone in its region about a kilobyte. Insertion in address order and near the last place are
// O(1), anything else a binary search over the regions.
//
// A walk by first and next is one of addresses: it survives any change of the set.
class ZENU_TEST_EXPORT RowSet
{
public:
    RowSet() = default;
    RowSet(RowSet const &) = delete;
    RowSet & operator=(RowSet const &) = delete;
    RowSet(RowSet && other) noexcept;
    RowSet & operator=(RowSet && other) noexcept;
    ~RowSet();

    // False when the row was there, and for what can't be a row: null and addresses that are no
    // multiples of 8.
    bool insert(IGCRow const * row);
    // `count` rows that lie `stride` bytes apart, a multiple of 8 above 0.
    void insertRange(IGCRow const * first, std::size_t stride, int count);
    // Each of them; quickest when they lie in the order in which they were made.
    void insertAll(RowSpan rows);
    // False when the row was not there.
    bool erase(IGCRow const * row);
    // Any value may be asked for.
    bool contains(void const * row) const;
    void clear();
    void swap(RowSet & other) noexcept;

    int count() const { return static_cast<int>(rowCount); }
    bool isEmpty() const { return rowCount == 0; }

    // The row of the lowest address, null in an empty set.
    IGCRow * first() const { return lowerBound(0); }
    // The row of the lowest address above `row`, which need not be in the set; null at the end.
    IGCRow * next(void const * row) const
    {
        return lowerBound(reinterpret_cast<std::uintptr_t>(row) + 1);
    }
    // Calls `work` with each row, by address. `work` must not change the set.
    template <typename Work>
    void forEach(Work && work) const;

    // Bytes beside the object itself.
    std::size_t bytes() const;

private:
    static constexpr unsigned slotShift = 3; // an address is a slot of 8 bytes
    static constexpr unsigned pageShift = 12;
    static constexpr unsigned regionShift = 18;
    static constexpr unsigned slotsOfPage = 1U << pageShift;
    static constexpr unsigned pagesOfRegion = 1U << (regionShift - pageShift);
    static constexpr unsigned wordsOfPage = slotsOfPage / 64;
    static constexpr unsigned largestList = 32; // rows of a page that is still a list

    using Slot = std::uintptr_t;

    struct Page
    {
        union
        {
            void * none = nullptr;
            std::uint16_t * list; // sorted places, below 4096
            std::uint64_t * bits;
        };
        std::uint16_t rows = 0;
        std::uint16_t listRoom = 0; // 0: the page is a bitmap, or empty

        bool isBitmap() const { return listRoom == 0 && rows != 0; }
    };

    struct Region
    {
        std::uint64_t pagesInUse = 0;
        std::array<Page, pagesOfRegion> pages;
    };

    struct Entry
    {
        Slot key;        // slot >> regionShift
        Region * region; // owned by the set; a plain pointer, so that entries move as bytes
    };

    static Slot slotOf(void const * row) { return reinterpret_cast<Slot>(row) >> slotShift; }
    static bool isAligned(void const * row)
    {
        return (reinterpret_cast<std::uintptr_t>(row) & ((1U << slotShift) - 1)) == 0;
    }
    static IGCRow * rowAt(Slot slot) { return reinterpret_cast<IGCRow *>(slot << slotShift); }

    std::size_t entryIndex(Slot key) const;
    Region * findRegion(Slot key) const;
    Region * demandRegion(Slot key);
    static bool insertIntoPage(Page & page, unsigned place);
    static bool insertIntoList(Page & page, unsigned place);
    static void growList(Page & page);
    static void makeBitmap(Page & page);
    static unsigned insertRun(Page & page, unsigned place, unsigned stride, unsigned number);
    static bool eraseFromPage(Page & page, unsigned place);
    static bool holds(Page const & page, unsigned place);
    static int placeFrom(Page const & page, unsigned place);
    static void freePage(Page & page);
    static void freePages(Region & region);
    IGCRow * lowerBound(std::uintptr_t address) const;

    std::vector<Entry> entries; // by key
    std::size_t rowCount = 0;
    mutable Slot lastKey = ~Slot(0); // of the region used last; no region has this key
    mutable Region * lastRegion = nullptr;
};

template <typename Work>
void RowSet::forEach(Work && work) const
{
    for (Entry const & entry : entries) {
        for (std::uint64_t left = entry.region->pagesInUse; left != 0; left &= left - 1) {
            auto const pageIndex = static_cast<unsigned>(std::countr_zero(left));
            Page const & page = entry.region->pages[pageIndex];
            Slot const base = (entry.key << regionShift) | (Slot(pageIndex) << pageShift);
            if (!page.isBitmap()) {
                for (unsigned i = 0; i < page.rows; ++i) {
                    work(rowAt(base + page.list[i]));
                }
                continue;
            }
            for (unsigned word = 0; word < wordsOfPage; ++word) {
                for (std::uint64_t bits = page.bits[word]; bits != 0; bits &= bits - 1) {
                    work(rowAt(base + word * 64 + static_cast<unsigned>(std::countr_zero(bits))));
                }
            }
        }
    }
}

} // namespace zenu
