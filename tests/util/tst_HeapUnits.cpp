#include "tests/support/TestMain.h"

#include <zenu/util/inner/heap/BlockMap.h>
#include <zenu/util/inner/heap/HeapArena.h>
#include <zenu/util/inner/heap/IndexSet.h>
#include <zenu/util/inner/heap/SlotPool.h>

#include <random>
#include <set>

using namespace zenu;

namespace {

constexpr std::size_t slotSize = 16;

// Takes `count` slots.
std::vector<unsigned char *> takeSlots(SlotPool & pool, int count)
{
    std::vector<unsigned char *> slots;
    for (int i = 0; i < count; ++i) {
        slots.push_back(pool.take());
    }
    return slots;
}

void give(SlotPool & pool, BlockMap const & map, void const * slot)
{
    pool.give(map.find(slot), slot);
}

// The blocks of a pool as numbers of taken slots, "-" for null.
QByteArray dump(SlotPool const & pool)
{
    QByteArray text;
    for (std::size_t i = 0; i < pool.blockCount(); ++i) {
        SlotBlock const * const block = pool.block(i);
        text += (i == 0 ? "" : " ") + (block ? QByteArray::number(block->taken) : QByteArray("-"));
    }
    return text;
}

// An arena with a pool in it.
struct Pool
{
    Pool() { map.reserve(slotSize); }

    HeapArena heap;
    BlockMap map{heap, slotSize};
    SlotPool * pool = SlotPool::create(heap, map, slotSize);
};

} // namespace

class tst_HeapUnits : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void arena_blocks_haveSizesAndGoOneByOneOrTogether();
    void arena_limit_refusesWhatIsAboveIt();
    void arena_sizeBeyondMemory_givesNull();
    void indexSet_anyOrder_knowsTheLargest_data();
    void indexSet_anyOrder_knowsTheLargest();
    void blockMap_places_findTheBlockUpToItsLastSlot();
    void blockMap_manyBlocks_findEach();
    void pool_emptyBlock_isReturnedAtOnce();
    void pool_emptyBlocksInTheMiddle_stayAsNull();
    void pool_severalBlocksWithRoom_takesFromTheLast();
    void pool_manyFullBlocks_takesFromTheOneWithRoom();
    void pool_noMemory_givesNullAndLosesNothing();
    void slotNumber_anySlotSize_isTheDistanceDividedByIt();
};

void tst_HeapUnits::arena_blocks_haveSizesAndGoOneByOneOrTogether()
{
    HeapArena heap;
    void * const first = heap.allocate(1);
    void * const second = heap.allocate(0);
    auto * const third = static_cast<char *>(heap.allocateZeroed(100));
    QCOMPARE(HeapArena::sizeOf(first), 1U);
    QCOMPARE(HeapArena::sizeOf(second), 0U);
    QCOMPARE(HeapArena::sizeOf(third), 100U);
    QCOMPARE(std::count(third, third + 100, 0), 100);
    QCOMPARE(heap.bytes(), 101U);
    heap.release(second);
    heap.release(first);
    QCOMPARE(heap.bytes(), 100U);
    heap.allocate(7);
}

void tst_HeapUnits::arena_limit_refusesWhatIsAboveIt()
{
    HeapArena heap(100);
    QVERIFY(!heap.allocate(101));
    void * const block = heap.allocate(60);
    QVERIFY(block);
    QVERIFY(!heap.allocateZeroed(41));
    QVERIFY(heap.allocate(40));
    heap.release(block);
    QVERIFY(heap.allocate(60));
}

void tst_HeapUnits::arena_sizeBeyondMemory_givesNull()
{
    HeapArena heap;
    QVERIFY(!heap.allocate(SIZE_MAX));
    QVERIFY(!heap.allocateZeroed(SIZE_MAX - 1));
    QVERIFY(!heap.allocate(PTRDIFF_MAX));
    QCOMPARE(heap.bytes(), 0U);
}

void tst_HeapUnits::indexSet_anyOrder_knowsTheLargest_data()
{
    QTest::addColumn<int>("bound");
    for (int bound : {1, 63, 64, 65, 4095, 4096, 4097, 300'000}) {
        QTest::addRow("%d", bound) << bound;
    }
}

// The bound rises in steps while the set is in use.
void tst_HeapUnits::indexSet_anyOrder_knowsTheLargest()
{
    QFETCH(int, bound);
    HeapArena heap;
    IndexSet set(heap);
    QCOMPARE(set.last(), -1);
    std::set<int> expected;
    std::mt19937 random(static_cast<unsigned>(bound));
    for (int reached : {1, bound / 3 + 1, bound / 2 + 1, bound}) {
        QVERIFY(set.reserve(static_cast<std::size_t>(reached)));
        for (int i = 0; i < 3000; ++i) {
            int const index = static_cast<int>(random() % static_cast<unsigned>(reached));
            if (random() % 2 == 0) {
                set.add(index);
                expected.insert(index);
            } else {
                set.remove(index);
                expected.erase(index);
            }
            QCOMPARE(set.last(), expected.empty() ? -1 : *expected.rbegin());
        }
    }
    while (!expected.empty()) {
        QCOMPARE(set.last(), *expected.rbegin());
        set.remove(*expected.rbegin());
        expected.erase(std::prev(expected.end()));
    }
    QCOMPARE(set.last(), -1);
}

void tst_HeapUnits::blockMap_places_findTheBlockUpToItsLastSlot()
{
    Pool one;
    unsigned char const * const first = one.pool->take();
    SlotBlock const * const block = one.pool->block(0);
    QCOMPARE(one.map.find(first), block);
    QCOMPARE(one.map.find(first + 999 * slotSize), block);
    QVERIFY(!one.map.find(first + 999 * slotSize + 1));
    QVERIFY(!one.map.find(first - 1));
    QVERIFY(!one.map.find(nullptr));
    QVERIFY(!one.map.find(block));
}

// Of several pools, while blocks come and go.
void tst_HeapUnits::blockMap_manyBlocks_findEach()
{
    HeapArena heap;
    BlockMap map(heap, 2);
    QVERIFY(map.reserve(2));
    std::mt19937 random(1);
    std::vector<SlotBlock *> blocks;
    for (int i = 0; i < 2000; ++i) {
        if (blocks.size() < 100 || random() % 2 == 0) {
            std::size_t const size = 2 + random() % 255;
            QVERIFY(map.reserve(size));
            blocks.push_back(SlotBlock::create(heap, nullptr, size, i));
            map.add(blocks.back());
        } else {
            std::swap(blocks[random() % blocks.size()], blocks.back());
            map.remove(blocks.back());
            QCOMPARE(map.find(blocks.back()->data), nullptr);
            blocks.back()->destroy();
            blocks.pop_back();
        }
        SlotBlock * const any = blocks[random() % blocks.size()];
        QCOMPARE(map.find(any->data + random() % (999 * any->slotSize + 1)), any);
    }
    for (SlotBlock * const block : blocks) {
        QCOMPARE(map.find(block->data), block);
        QCOMPARE(map.find(block->data + 999 * block->slotSize), block);
    }
}

void tst_HeapUnits::pool_emptyBlock_isReturnedAtOnce()
{
    Pool one;
    takeSlots(*one.pool, 1000);
    std::size_t const bytes = one.heap.bytes();
    QCOMPARE(dump(*one.pool), QByteArray("1000"));
    unsigned char const * const slot = one.pool->take();
    QCOMPARE(dump(*one.pool), QByteArray("1000 1"));
    QVERIFY(one.heap.bytes() >= bytes + 1000 * slotSize);
    give(*one.pool, one.map, slot);
    QCOMPARE(dump(*one.pool), QByteArray("1000"));
    QCOMPARE(one.heap.bytes(), bytes);
    QVERIFY(!one.map.find(slot));
}

void tst_HeapUnits::pool_emptyBlocksInTheMiddle_stayAsNull()
{
    Pool one;
    std::vector<unsigned char *> const slots = takeSlots(*one.pool, 4000);
    auto const giveBlock = [&](int block, int count) {
        for (int i = 0; i < count; ++i) {
            give(*one.pool, one.map, slots[static_cast<std::size_t>(block * 1000 + i)]);
        }
    };
    giveBlock(1, 1000);
    QCOMPARE(dump(*one.pool), QByteArray("1000 - 1000 1000"));
    giveBlock(2, 1000);
    QCOMPARE(dump(*one.pool), QByteArray("1000 - - 1000"));
    takeSlots(*one.pool, 1); // at the end, not in a gap
    QCOMPARE(dump(*one.pool), QByteArray("1000 - - 1000 1"));
    giveBlock(3, 1000);
    QCOMPARE(dump(*one.pool), QByteArray("1000 - - - 1"));
    takeSlots(*one.pool, 999);
    giveBlock(0, 999);
    QCOMPARE(dump(*one.pool), QByteArray("1 - - - 1000"));
}

void tst_HeapUnits::pool_severalBlocksWithRoom_takesFromTheLast()
{
    Pool one;
    std::vector<unsigned char *> const slots = takeSlots(*one.pool, 3000);
    give(*one.pool, one.map, slots[10]);
    give(*one.pool, one.map, slots[2010]);
    give(*one.pool, one.map, slots[1010]);
    give(*one.pool, one.map, slots[2020]);
    QCOMPARE(one.pool->take(), slots[2010]);
    QCOMPARE(one.pool->take(), slots[2020]);
    QCOMPARE(one.pool->take(), slots[1010]);
    QCOMPARE(one.pool->take(), slots[10]);
    QCOMPARE(dump(*one.pool), QByteArray("1000 1000 1000"));
}

// More blocks than one word of the set has bits.
void tst_HeapUnits::pool_manyFullBlocks_takesFromTheOneWithRoom()
{
    Pool one;
    std::vector<unsigned char *> const slots = takeSlots(*one.pool, 5'000'000);
    QCOMPARE(one.pool->blockCount(), 5000U);
    for (std::size_t block : {0U, 63U, 64U, 4095U, 4096U, 4999U}) {
        give(*one.pool, one.map, slots[block * 1000 + 7]);
    }
    for (std::size_t block : {4999U, 4096U, 4095U, 64U, 63U, 0U}) {
        QCOMPARE(one.pool->take(), slots[block * 1000 + 7]);
    }
    QVERIFY(one.pool->take());
    QCOMPARE(one.pool->blockCount(), 5001U);
}

// Every limit up to what a pool of two blocks needs: what was given before keeps its place, and
// what is given back can be taken again.
void tst_HeapUnits::pool_noMemory_givesNullAndLosesNothing()
{
    for (std::size_t limit = 0; limit < 40'000; limit += 8) {
        HeapArena heap(limit);
        BlockMap map(heap, slotSize);
        SlotPool * const pool =
            map.reserve(slotSize) ? SlotPool::create(heap, map, slotSize) : nullptr;
        if (!pool) {
            continue;
        }
        std::size_t const bytes = heap.bytes();
        std::vector<unsigned char *> slots;
        while (unsigned char * const slot = pool->take()) {
            slots.push_back(slot);
        }
        QCOMPARE(slots.size() % 1000, 0U);
        QVERIFY(slots.size() <= 2000);
        QVERIFY(!pool->take());
        if (!slots.empty()) {
            give(*pool, map, slots.front());
            QCOMPARE(pool->take(), slots.front());
        }
        for (unsigned char * const slot : slots) {
            give(*pool, map, slot);
        }
        QCOMPARE(pool->blockCount(), 0U);
        QVERIFY(heap.bytes() >= bytes);
        QCOMPARE(slots.empty(), limit < heap.bytes() + 1000 * slotSize + sizeof(SlotBlock) + 64);
    }
}

void tst_HeapUnits::slotNumber_anySlotSize_isTheDistanceDividedByIt()
{
    std::mt19937_64 random(2);
    alignas(64) SlotBlock block{};
    std::vector<std::size_t> sizes;
    for (std::size_t size = 2; size < 3000; ++size) {
        sizes.push_back(size);
    }
    for (std::size_t size : {(1U << 22) - 1, 1U << 22, (1U << 22) + 1, 1U << 30, 4294967295U}) {
        sizes.push_back(size);
    }
    for (std::size_t const size : sizes) {
        block.setSlotSize(size);
        for (int i = 0; i < 50; ++i) {
            std::size_t const offset = i == 0   ? 999 * size
                                       : i == 1 ? 999 * size - 1
                                                : random() % (999 * size + 1);
            auto const place = reinterpret_cast<void const *>(offset); // data is null
            QCOMPARE(block.slotAt(place), static_cast<int>(offset / size));
        }
    }
}

ZENU_TEST(tst_HeapUnits)
#include "tst_HeapUnits.moc"
