#include "tests/support/TestMain.h"
#include "zenu/grid/inner/SlabPool.h"

#include <cstring>
#include <random>
#include <set>
#include <vector>

using namespace zenu;

class tst_SlabPool : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void allocate_anySize_isAlignedAndWritable();
    void release_null_doesNothing();
    void blocks_allLive_doNotOverlap();
    void blocks_randomTraffic_keepTheirBytes();
    void release_lastBlocks_givesSlabsBack();
    void release_whatIsThere_isUsedAgain();
    void duplicateText_null_staysNull();
    void duplicateText_anyLength_isACopy();
};

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool pooled = false;
#else
constexpr bool pooled = true;
#endif

struct Block
{
    unsigned char * bytes;
    std::size_t size;
    unsigned char mark;
};

Block newBlock(std::size_t size, unsigned char mark)
{
    auto * const bytes = static_cast<unsigned char *>(SlabPool::allocate(size));
    std::memset(bytes, mark, size);
    return {bytes, size, mark};
}

bool isIntact(Block const & block)
{
    return std::all_of(block.bytes, block.bytes + block.size,
                       [&](unsigned char byte) { return byte == block.mark; });
}

} // namespace

void tst_SlabPool::allocate_anySize_isAlignedAndWritable()
{
    for (std::size_t size = 0; size <= 2 * SlabPool::largestBlock; ++size) {
        Block const block = newBlock(size, 0xa5);
        QVERIFY(block.bytes);
        QCOMPARE(reinterpret_cast<std::uintptr_t>(block.bytes) % 8, std::uintptr_t(0));
        QVERIFY(isIntact(block));
        SlabPool::release(block.bytes, size);
    }
}

void tst_SlabPool::release_null_doesNothing()
{
    SlabPool::release(nullptr, 0);
    SlabPool::release(nullptr, 24);
    SlabPool::release(nullptr, 100000);
    releaseText(nullptr);
}

void tst_SlabPool::blocks_allLive_doNotOverlap()
{
    std::vector<Block> blocks;
    for (int i = 0; i < 20000; ++i) {
        blocks.push_back(newBlock(24, static_cast<unsigned char>(i)));
    }
    for (Block const & block : blocks) {
        QVERIFY(isIntact(block));
    }
    for (Block const & block : blocks) {
        SlabPool::release(block.bytes, block.size);
    }
}

void tst_SlabPool::blocks_randomTraffic_keepTheirBytes()
{
    std::mt19937 random(7);
    std::vector<Block> live;
    for (int step = 0; step < 200000; ++step) {
        bool const growing = (step / 20000) % 2 == 0;
        if (live.empty() || random() % 10 < (growing ? 7U : 3U)) {
            std::size_t const size = random() % 8 == 0 ? random() % 1024 : random() % 72;
            live.push_back(newBlock(size, static_cast<unsigned char>(random())));
        } else {
            std::size_t const at = random() % live.size();
            QVERIFY(isIntact(live[at]));
            SlabPool::release(live[at].bytes, live[at].size);
            live[at] = live.back();
            live.pop_back();
        }
    }
    for (Block const & block : live) {
        QVERIFY(isIntact(block));
        SlabPool::release(block.bytes, block.size);
    }
}

void tst_SlabPool::release_lastBlocks_givesSlabsBack()
{
    if (!pooled) {
        QSKIP("each block is the general allocator's here");
    }
    std::size_t const before = SlabPool::reservedBytes();
    std::vector<void *> blocks;
    for (int i = 0; i < 100000; ++i) {
        blocks.push_back(SlabPool::allocate(72));
    }
    std::size_t const full = SlabPool::reservedBytes() - before;
    QVERIFY(full >= 100000 * 72 - 256 * 1024);
    QVERIFY(full <= 100000 * 72 + 2 * 256 * 1024); // no header beside a block
    std::shuffle(blocks.begin(), blocks.end(), std::mt19937(3));
    for (void * const block : blocks) {
        SlabPool::release(block, 72);
    }
    // One slab of a size stays for the next block.
    QVERIFY(SlabPool::reservedBytes() <= before + 256 * 1024);
}

void tst_SlabPool::release_whatIsThere_isUsedAgain()
{
    if (!pooled) {
        QSKIP("each block is the general allocator's here");
    }
    void * const first = SlabPool::allocate(40);
    SlabPool::release(first, 40);
    std::size_t const before = SlabPool::reservedBytes();
    for (int i = 0; i < 1000000; ++i) {
        SlabPool::release(SlabPool::allocate(33 + std::size_t(i) % 8), 40);
    }
    QCOMPARE(SlabPool::reservedBytes(), before);
}

void tst_SlabPool::duplicateText_null_staysNull()
{
    QVERIFY(!duplicateText(nullptr));
}

void tst_SlabPool::duplicateText_anyLength_isACopy()
{
    for (int length : {0, 1, 7, 8, 15, 511, 512, 513, 100000}) {
        QByteArray const text(length, 'x');
        char * const copy = duplicateText(text.constData());
        QVERIFY(copy != text.constData());
        QCOMPARE(QByteArray(copy), text);
        releaseText(copy);
    }
}

ZENU_TEST(tst_SlabPool)
#include "tst_SlabPool.moc"
