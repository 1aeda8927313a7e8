// Sequences of allocations and frees in a KQuickHeap, each beside a naive heap that says which slot
// it has to be. The first byte chooses the granularity; then three bytes are a step: what to do,
// how often, and a size or a place.

#include "Check.h"

#include "tests/util/HeapTwin.h"

#include <algorithm>

namespace {

constexpr int granularities[] = {1, 2, 3, 4, 8, 16, 24, 255};
constexpr int mostOperations = 3000; // keeps an input below some milliseconds

struct Step
{
    unsigned char what;
    unsigned char times; // in steps of eight, so that a few bytes fill a block
    unsigned char value;
};

std::string freeOne(zenutest::HeapTwin & twin, Step const & step, std::size_t round)
{
    std::size_t const count = twin.count();
    switch (step.what / 4 % 3) {
    case 0:
        return twin.free(count - 1);
    case 1:
        return twin.free(round % count);
    default:
        return twin.free((step.value + round * (2 * step.value + 1U)) % count);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    zenutest::HeapTwin twin(granularities[data[0] % std::size(granularities)]);
    int operations = 0;
    for (std::size_t at = 1; at + 3 <= size; at += 3) {
        Step const step{data[at], data[at + 1], data[at + 2]};
        std::size_t const times = step.times < 128 ? step.times : (step.times - 127U) * 8U;
        for (std::size_t round = 0; round < times && operations < mostOperations; ++round) {
            bool const isAlloc = step.what % 4 < 2;
            if (!isAlloc && twin.count() == 0) {
                break;
            }
            ++operations;
            std::string const wrong = isAlloc ? twin.alloc(1 + step.value + step.what / 4 % 4 * 15)
                                              : freeOne(twin, step, round);
            FUZZ_CHECK(wrong.empty());
        }
    }
    FUZZ_CHECK(twin.checkAll().empty());
    return 0;
}
