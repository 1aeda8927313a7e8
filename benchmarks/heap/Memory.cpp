#include "Memory.h"

#include "Heaps.h"
#include "Patterns.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

// Of this process, by the system's count.
double residentBytes()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    double kibibytes = 0;
    while (status >> word) {
        if (word == "VmRSS:") {
            status >> kibibytes;
        }
    }
    return kibibytes * 1024;
}

template <typename Heap>
void report(char const * name)
{
    std::fflush(stdout);
    pid_t const child = fork();
    if (child > 0) {
        waitpid(child, nullptr, 0);
        return;
    }
    Draws const draws(71);
    double asked = 0;
    Heap heap;
    double const before = residentBytes();
    for (std::size_t i = 0; i < live; ++i) {
        asked += draws.sizes[i];
        std::memset(heap.alloc(draws.sizes[i]), 1, draws.sizes[i]);
    }
    double const used = residentBytes() - before;
    std::printf("| %s | %.1f | %.1f |\n", name, used / live, (used - asked) / live);
    std::fflush(stdout);
    _exit(0);
}

} // namespace

void printMemory()
{
    std::printf("\n| memory | bytes an object | beyond its size |\n|---|---|---|\n");
    report<QuickHeap>("zenu");
    report<Malloc>("malloc");
    if (Mimalloc::isThere()) {
        report<Mimalloc>("mimalloc");
    }
}

} // namespace bench
