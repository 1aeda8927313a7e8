#include "Results.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

namespace bench {

namespace {

struct Work
{
    std::string name;
    double goal;
    std::string onlyPeer;               // of several, the one that the goal is about
    std::map<std::string, double> best; // seconds by contestant
};

struct Size
{
    std::string what;
    double bytes;
    double goal; // 0: none
};

std::vector<Work> works;
std::vector<Size> sizes;

Work * find(std::string const & name)
{
    auto const found = std::find_if(works.begin(), works.end(),
                                    [&](Work const & work) { return work.name == name; });
    return found == works.end() ? nullptr : &*found;
}

std::string timeText(double seconds)
{
    char text[32];
    if (seconds < 1e-6) {
        std::snprintf(text, sizeof text, "%.1f ns", seconds * 1e9);
    } else if (seconds < 1e-4) {
        std::snprintf(text, sizeof text, "%.2f us", seconds * 1e6);
    } else {
        std::snprintf(text, sizeof text, "%.2f ms", seconds * 1e3);
    }
    return text;
}

void printWork(Work const & work)
{
    auto const own = work.best.find(zenuName);
    auto peer = work.best.end();
    for (auto each = work.best.begin(); each != work.best.end(); ++each) {
        bool const counts =
            each->first != zenuName && (work.onlyPeer.empty() || work.onlyPeer == each->first);
        if (counts && (peer == work.best.end() || each->second < peer->second)) {
            peer = each;
        }
    }
    if (own == work.best.end()) {
        return;
    }
    if (peer == work.best.end()) {
        std::printf("| %s | %s | | | | |\n", work.name.c_str(), timeText(own->second).c_str());
        return;
    }
    double const ratio = own->second / peer->second;
    std::printf("| %s | %s | %s, %s | %.3f |", work.name.c_str(), timeText(own->second).c_str(),
                timeText(peer->second).c_str(), peer->first.c_str(), ratio);
    if (work.goal > 0) {
        std::printf(" %.2f | %s |\n", work.goal, ratio <= work.goal ? "yes" : "NO");
    } else {
        std::printf(" | |\n");
    }
}

} // namespace

void addWork(std::string const & work, double goal, std::string const & onlyPeer)
{
    works.push_back({work, goal, onlyPeer, {}});
}

void note(std::string const & work, std::string const & contestant, double seconds)
{
    if (Work * const found = find(work)) {
        auto const [place, isNew] = found->best.try_emplace(contestant, seconds);
        place->second = std::min(place->second, seconds);
    }
}

void addContestant(std::string const & work, std::string const & contestant, int samples,
                   std::function<std::function<double()>()> prepare)
{
    auto const body = [=](benchmark::State & state) {
        std::function<double()> const measure = prepare();
        for ([[maybe_unused]] auto const & sample : state) {
            double const seconds = measure();
            if (seconds < 0) {
                state.SkipWithError("nothing was painted");
                break;
            }
            state.SetIterationTime(seconds);
            note(work, contestant, seconds);
        }
    };
    benchmark::RegisterBenchmark((work + '/' + contestant).c_str(), body)
        ->Iterations(samples)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void noteBytes(std::string const & what, double bytes, double goal)
{
    sizes.push_back({what, bytes, goal});
}

void printTables()
{
    std::printf("\n| work | zenu | best peer | ratio | goal | met |\n"
                "|---|---|---|---|---|---|\n");
    for (Work const & work : works) {
        printWork(work);
    }
    if (sizes.empty()) {
        return;
    }
    std::printf("\n| memory | bytes a row | goal | met |\n|---|---|---|---|\n");
    for (Size const & size : sizes) {
        std::printf("| %s | %.1f |", size.what.c_str(), size.bytes);
        if (size.goal > 0) {
            std::printf(" %.0f | %s |\n", size.goal, size.bytes <= size.goal ? "yes" : "NO");
        } else {
            std::printf(" | |\n");
        }
    }
}

int runAll(int argc, char ** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    printTables();
    return 0;
}

} // namespace bench
