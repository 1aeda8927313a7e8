#include "tests/support/TestMain.h"
#include "tests/util/HeapTwin.h"

#include <zenu/util/KQuickHeap.h>

#include <climits>
#include <cstring>
#include <random>

#if __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#endif

using namespace zenu;
using zenutest::HeapTwin;

namespace {

// How far apart two allocations lie, in bytes.
std::ptrdiff_t distance(void const * from, void const * to)
{
    return static_cast<char const *>(to) - static_cast<char const *>(from);
}

// How far the second of two allocations lies behind the first.
std::ptrdiff_t stepBetween(KQuickHeap & heap, int firstSize, int secondSize)
{
    void const * const first = heap.Alloc(firstSize);
    return distance(first, heap.Alloc(secondSize));
}

std::vector<void *> allocate(KQuickHeap & heap, int count, int size)
{
    std::vector<void *> pointers;
    for (int i = 0; i < count; ++i) {
        pointers.push_back(heap.Alloc(size));
    }
    return pointers;
}

bool isPoisoned([[maybe_unused]] void const * place)
{
#if defined(__SANITIZE_ADDRESS__)
    return __asan_address_is_poisoned(place) != 0;
#else
    return false;
#endif
}

} // namespace

class tst_KQuickHeap : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void alloc_sizeZeroOrLess_givesNull();
    void alloc_255And256_comeFromPoolAndPlainHeap();
    void alloc_sizesOfOneStep_shareAPool();
    void granularity_minusOne_meansOneByteHeaderAndNoRounding();
    void granularity_zeroAndNegative_meanEight_data();
    void granularity_zeroAndNegative_meanEight();
    void granularity_anyStep_keepsSizesAndAlignment_data();
    void granularity_anyStep_keepsSizesAndAlignment();
    void granularity_enormous_givesNullOrMemory();
    void alloc_number1001_makesASecondBlockThatItsFreeReturns();
    void alloc_afterAllOfABlockWereFreed_makesANewBlock();
    void blockSize_anySize_isTheSizeAskedFor();
    void header_firstByte_isTheSizeOrZero();
    void free_null_isIgnored();
    void free_pointerOfNoBlock_isIgnored();
    void nextFree_freedSlots_creepsBackByNeighboursOnly();
    void destructor_liveObjects_goWithTheHeap();
    void poison_freeSlotsAndHeaders_areMarked();
    void alloc_randomSequences_takeTheSlotOfTheRule_data();
    void alloc_randomSequences_takeTheSlotOfTheRule();
    void alloc_fullAndEmptyInTurn_takesTheSlotOfTheRule();
    void alloc_manyObjects_takesTheSlotOfTheRule_data();
    void alloc_manyObjects_takesTheSlotOfTheRule();
};

void tst_KQuickHeap::alloc_sizeZeroOrLess_givesNull()
{
    KQuickHeap heap;
    QVERIFY(!heap.Alloc(0));
    QVERIFY(!heap.Alloc(-1));
    QVERIFY(!heap.Alloc(INT_MIN));
}

// Slots of a pool lie side by side: 255 bytes take 256, and a header of 8.
void tst_KQuickHeap::alloc_255And256_comeFromPoolAndPlainHeap()
{
    KQuickHeap heap;
    void * const small = heap.Alloc(255);
    QCOMPARE(distance(small, heap.Alloc(255)), 264);
    QCOMPARE(heap.BlockSize(small), 255);
    void * const large = heap.Alloc(256);
    QCOMPARE(heap.BlockSize(large), 256);
    QCOMPARE(static_cast<int>(distance(small, heap.Alloc(255))),
             2 * 264); // no slot was taken
    heap.Free(large);
    heap.Free(small);
}

void tst_KQuickHeap::alloc_sizesOfOneStep_shareAPool()
{
    KQuickHeap heap;
    void * const one = heap.Alloc(1);
    QCOMPARE(distance(one, heap.Alloc(8)), 16);
    void * const nine = heap.Alloc(9);
    QCOMPARE(distance(one, heap.Alloc(7)), 32);
    QCOMPARE(distance(nine, heap.Alloc(16)), 24);
}

void tst_KQuickHeap::granularity_minusOne_meansOneByteHeaderAndNoRounding()
{
    KQuickHeap heap(-1);
    QCOMPARE(stepBetween(heap, 1, 1), 2);
    QCOMPARE(stepBetween(heap, 2, 2), 3);
    QCOMPARE(stepBetween(heap, 255, 255), 256);
    QCOMPARE(heap.BlockSize(heap.Alloc(77)), 77);
    QCOMPARE(heap.BlockSize(heap.Alloc(1000)), 1000);
}

void tst_KQuickHeap::granularity_zeroAndNegative_meanEight_data()
{
    QTest::addColumn<int>("granularity");
    for (int granularity : {0, -2, -8, -300, INT_MIN}) {
        QTest::addRow("%d", granularity) << granularity;
    }
}

void tst_KQuickHeap::granularity_zeroAndNegative_meanEight()
{
    QFETCH(int, granularity);
    KQuickHeap heap(granularity);
    QCOMPARE(stepBetween(heap, 1, 8), 16);
    QCOMPARE(stepBetween(heap, 9, 9), 24);
}

void tst_KQuickHeap::granularity_anyStep_keepsSizesAndAlignment_data()
{
    QTest::addColumn<int>("granularity");
    for (int granularity :
         {1, 2, 3, 4, 5, 7, 8, 12, 16, 24, 32, 100, 127, 128, 254, 255, 256, 1000}) {
        QTest::addRow("%d", granularity) << granularity;
    }
}

void tst_KQuickHeap::granularity_anyStep_keepsSizesAndAlignment()
{
    QFETCH(int, granularity);
    HeapTwin twin(granularity);
    for (int round = 0; round < 2; ++round) {
        for (int size = 1; size <= 300; ++size) {
            std::string const wrong = twin.alloc(size);
            QVERIFY2(wrong.empty(), wrong.c_str());
        }
    }
    QCOMPARE(twin.checkAll(), std::string());
}

void tst_KQuickHeap::granularity_enormous_givesNullOrMemory()
{
    KQuickHeap heap(1'000'000);
    void * const large = heap.Alloc(256);
    QVERIFY(large);
    QCOMPARE(heap.BlockSize(large), 256);
    heap.Free(large);
}

void tst_KQuickHeap::alloc_number1001_makesASecondBlockThatItsFreeReturns()
{
    KQuickHeap heap;
    std::vector<void *> const first = allocate(heap, 1000, 24);
    for (int i = 0; i < 1000; ++i) {
        QCOMPARE(distance(first[0], first[static_cast<std::size_t>(i)]), i * 32);
    }
    void * const other = heap.Alloc(24);
    std::ptrdiff_t const away = distance(first[0], other);
    QVERIFY(away < 0 || away >= 32'000);
    // What is returned does not come back while the first block has a slot.
    heap.Free(other);
    heap.Free(first[500]);
    QCOMPARE(heap.Alloc(24), first[500]);
}

// The list of slots begins anew: a block that had been kept would go on behind
// its last slot.
void tst_KQuickHeap::alloc_afterAllOfABlockWereFreed_makesANewBlock()
{
    KQuickHeap heap;
    for (void * const pointer : allocate(heap, 10, 40)) {
        heap.Free(pointer);
    }
    std::vector<void *> const again = allocate(heap, 1000, 40);
    for (int i = 0; i < 1000; ++i) {
        QCOMPARE(distance(again[0], again[static_cast<std::size_t>(i)]), i * 48);
    }
}

void tst_KQuickHeap::blockSize_anySize_isTheSizeAskedFor()
{
    for (int granularity : {1, 4, 8, 16}) {
        KQuickHeap heap(granularity);
        for (int size = 1; size <= 2000; ++size) {
            QCOMPARE(heap.BlockSize(heap.Alloc(size)), size);
        }
    }
    KQuickHeap heap;
    QCOMPARE(heap.BlockSize(heap.Alloc(10'000'000)), 10'000'000);
    QCOMPARE(heap.BlockSize(nullptr), 0);
}

#if defined(__SANITIZE_ADDRESS__)
__attribute__((no_sanitize("address")))
#endif
static int
headerByte(void const * pointer, int granularity)
{
    return *(static_cast<unsigned char const *>(pointer) - granularity);
}

void tst_KQuickHeap::header_firstByte_isTheSizeOrZero()
{
    for (int granularity : {1, 8, 16}) {
        KQuickHeap heap(granularity);
        QCOMPARE(headerByte(heap.Alloc(1), granularity), 1);
        QCOMPARE(headerByte(heap.Alloc(255), granularity), 255);
        QCOMPARE(headerByte(heap.Alloc(256), granularity), 0);
    }
}

void tst_KQuickHeap::free_null_isIgnored()
{
    KQuickHeap heap;
    heap.Free(nullptr);
    QVERIFY(heap.Alloc(8));
}

// Its header says 8 bytes: of a pool that exists, and of one that does not.
void tst_KQuickHeap::free_pointerOfNoBlock_isIgnored()
{
    alignas(8) char foreign[64] = {};
    foreign[8] = 8;
    KQuickHeap heap;
    heap.Free(foreign + 16);
    void * const first = heap.Alloc(8);
    heap.Free(foreign + 16);
    std::memset(foreign, 1, sizeof foreign);
    QCOMPARE(distance(first, heap.Alloc(8)), 16);
}

void tst_KQuickHeap::nextFree_freedSlots_creepsBackByNeighboursOnly()
{
    KQuickHeap heap;
    std::vector<void *> const slots = allocate(heap, 100, 8); // the next one is 100
    heap.Free(slots[20]);
    heap.Free(slots[98]); // no neighbour of 100: stays
    heap.Free(slots[99]); // 99
    heap.Free(slots[97]); // no neighbour of 99
    QCOMPARE(heap.Alloc(8), slots[99]);
    QCOMPARE(distance(slots[0], heap.Alloc(8)), 100 * 16); // behind first
    allocate(heap, 899, 8);
    QCOMPARE(heap.Alloc(8), slots[20]); // then from the front
    QCOMPARE(heap.Alloc(8), slots[97]);
    QCOMPARE(heap.Alloc(8), slots[98]);
    heap.Free(slots[50]); // the block was full
    heap.Free(slots[40]);
    QCOMPARE(heap.Alloc(8), slots[50]);
    QCOMPARE(heap.Alloc(8), slots[40]);
}

// A leak or a second free would be reported.
void tst_KQuickHeap::destructor_liveObjects_goWithTheHeap()
{
    KQuickHeap heap;
    for (int size = 1; size <= 600; ++size) {
        std::memset(heap.Alloc(size), 1, static_cast<std::size_t>(size));
    }
    KQuickHeap const untouched;
}

void tst_KQuickHeap::poison_freeSlotsAndHeaders_areMarked()
{
#if !defined(__SANITIZE_ADDRESS__)
    QSKIP("needs AddressSanitizer");
#endif
    KQuickHeap heap;
    auto * const object = static_cast<char *>(heap.Alloc(20));
    auto * const neighbour = static_cast<char *>(heap.Alloc(24));
    QVERIFY(!isPoisoned(object) && !isPoisoned(object + 19));
    QVERIFY(isPoisoned(object - 1));     // the header
    QVERIFY(isPoisoned(object + 20));    // what was not asked for
    QVERIFY(isPoisoned(neighbour + 24)); // the header of the next
    QVERIFY(isPoisoned(neighbour + 32)); // a slot that was never taken
    heap.Free(object);
    QVERIFY(isPoisoned(object) && isPoisoned(object + 19));
    QVERIFY(!isPoisoned(neighbour) && !isPoisoned(neighbour + 23));
    char const * const third = static_cast<char *>(heap.Alloc(24));
    heap.Free(neighbour);
    QVERIFY(isPoisoned(neighbour) && !isPoisoned(third) && !isPoisoned(third + 23));
    for (int i = 0; i < 997; ++i) {
        heap.Alloc(24); // up to the end of the block
    }
    QCOMPARE(heap.Alloc(17), object);
    QVERIFY(!isPoisoned(object + 16) && isPoisoned(object + 17));
    auto * const large = static_cast<char *>(heap.Alloc(300));
    QVERIFY(!isPoisoned(large) && !isPoisoned(large + 299));
    QVERIFY(isPoisoned(large - 1) && isPoisoned(large + 300));
    heap.Free(large);
    QVERIFY(isPoisoned(large));
}

void tst_KQuickHeap::alloc_randomSequences_takeTheSlotOfTheRule_data()
{
    QTest::addColumn<int>("granularity");
    for (int granularity : {1, 2, 4, 8, 16, 24}) {
        QTest::addRow("%d", granularity) << granularity;
    }
}

// The number of objects rises and falls several times, over all sizes and over
// a few.
void tst_KQuickHeap::alloc_randomSequences_takeTheSlotOfTheRule()
{
    QFETCH(int, granularity);
    std::mt19937 random(static_cast<unsigned>(granularity));
    auto const below = [&](std::size_t bound) { return random() % bound; };
    for (unsigned sizes : {300U, 12U}) {
        HeapTwin twin(granularity);
        for (int wave = 0; wave < 6; ++wave) {
            unsigned const share = wave % 2 == 0 ? 70 : 25; // of allocations, in percent
            for (int i = 0; i < 20'000; ++i) {
                std::string const wrong = twin.count() == 0 || below(100) < share
                                              ? twin.alloc(1 + static_cast<int>(below(sizes)))
                                              : twin.free(below(twin.count()));
                QVERIFY2(wrong.empty(), wrong.c_str());
            }
        }
        QCOMPARE(twin.checkAll(), std::string());
    }
}

// Round the borders at which a block becomes full, ceases to be, comes and
// goes.
void tst_KQuickHeap::alloc_fullAndEmptyInTurn_takesTheSlotOfTheRule()
{
    std::mt19937 random(5);
    HeapTwin twin(8);
    std::string wrong;
    auto const moveTo = [&](std::size_t count) {
        while (twin.count() != count && wrong.empty()) {
            wrong = twin.count() < count ? twin.alloc(8) : twin.free(random() % twin.count());
        }
    };
    for (std::size_t border : {0U, 1000U, 2000U, 5000U, 1000U, 0U}) {
        for (int i = 0; i < 200; ++i) {
            moveTo(border + random() % 3);
            moveTo(border - std::min<std::size_t>(border, random() % 3));
        }
    }
    moveTo(0);
    QCOMPARE(wrong, std::string());
}

void tst_KQuickHeap::alloc_manyObjects_takesTheSlotOfTheRule_data()
{
    QTest::addColumn<QByteArray>("order");
    QTest::newRow("the youngest first") << QByteArray("stack");
    QTest::newRow("the oldest first") << QByteArray("queue");
    QTest::newRow("at random") << QByteArray("random");
}

// 300 blocks of one pool: all objects are replaced in the order given, then
// freed in it.
void tst_KQuickHeap::alloc_manyObjects_takesTheSlotOfTheRule()
{
    QFETCH(QByteArray, order);
    constexpr std::size_t many = 300'000;
    std::mt19937 random(9);
    HeapTwin twin(8);
    std::string wrong;
    while (twin.count() < many && wrong.empty()) {
        wrong = twin.alloc(1 + static_cast<int>(random() % 8));
    }
    // The newest object takes the place of the one that is freed, so places in
    // turn are a queue.
    for (std::size_t i = 0; i < many && wrong.empty(); ++i) {
        if (order == "stack") {
            wrong = twin.free(many - 1) + twin.alloc(8);
        } else {
            wrong = twin.alloc(8) + twin.free(order == "queue" ? i : random() % many);
        }
    }
    QCOMPARE(wrong, std::string());
    QCOMPARE(twin.checkAll(), std::string());
    for (std::size_t i = 0; twin.count() > 0 && wrong.empty(); ++i) {
        wrong = twin.free(order == "stack"   ? twin.count() - 1
                          : order == "queue" ? i % twin.count()
                                             : random() % twin.count());
    }
    QCOMPARE(wrong, std::string());
}

ZENU_TEST(tst_KQuickHeap)
#include "tst_KQuickHeap.moc"
