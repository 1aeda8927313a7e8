// Measures KQuickHeap beside malloc and, where it is installed, mimalloc: a million live objects of
// 8 to 255 bytes in three patterns. The time is that of one operation, an allocation or a free.
//
//   zenu_bench_heap [OPTIONS OF GOOGLE BENCHMARK]
//   zenu_bench_heap --memory     measures what an object costs in memory instead

#include "Heaps.h"
#include "Memory.h"
#include "Patterns.h"

#include <memory>
#include <string>
#include <string_view>

namespace {

using namespace bench;

constexpr int samples = 5;

template <typename Heap>
using Pattern = double (*)(Heap &, Draws const &, std::vector<void *> &);

template <typename Heap>
void addPattern(std::string const & work, std::string const & contestant, Pattern<Heap> pattern)
{
    addContestant(work, contestant, samples, [=]() -> std::function<double()> {
        auto const draws = std::make_shared<Draws>(71);
        auto const objects = std::make_shared<std::vector<void *>>(live);
        return [=] {
            Heap heap;
            return pattern(heap, *draws, *objects);
        };
    });
}

template <typename Heap>
void addHeap(std::string const & name)
{
    addPattern<Heap>("stack", name, runStack<Heap>);
    addPattern<Heap>("queue", name, runQueue<Heap>);
    addPattern<Heap>("random", name, runRandom<Heap>);
}

} // namespace

int main(int argc, char ** argv)
{
    if (argc > 1 && std::string_view(argv[1]) == "--memory") {
        printMemory();
        return 0;
    }
    addWork("stack", 0.7, "malloc");
    addWork("queue", 0.7, "malloc");
    addWork("random", 1.0, "malloc");
    addHeap<Malloc>("malloc");
    addHeap<QuickHeap>(zenuName);
    if (Mimalloc::isThere()) {
        addHeap<Mimalloc>("mimalloc");
    }
    return runAll(argc, argv);
}
