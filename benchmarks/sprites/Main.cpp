// Moves 10, 100 and 1000 sprites over a window of text, beside the ways in which Qt alone does the
// same. Prints the time of a step and how often the text was painted.
//
//   zenu_bench_sprites [OPTIONS OF GOOGLE BENCHMARK]

#include "Movers.h"
#include "Results.h"

#include <QApplication>

#include <cstdio>
#include <map>
#include <string>

namespace {

constexpr int manySteps = 300;
constexpr int samples = 5;

std::map<std::string, double> paintsPerStep;

template <typename Mover>
void add(std::string const & work, int count, int steps = manySteps)
{
    bench::addContestant(work, Mover::name, steps < manySteps ? 1 : samples,
                         [=]() -> std::function<double()> {
                             auto const mover = std::make_shared<Mover>(count);
                             auto const motion = std::make_shared<bench::Motion>(count);
                             mover->step(*motion);
                             return [=] {
                                 int const before = mover->paints();
                                 bool good = true;
                                 double const seconds = bench::secondsEach(steps, [&](int) {
                                     motion->step();
                                     good = mover->step(*motion) && good;
                                 });
                                 paintsPerStep[work + ", " + Mover::name] =
                                     static_cast<double>(mover->paints() - before) / steps;
                                 return good ? seconds : -1.0;
                             };
                         });
}

void addAll(int count, double goal)
{
    std::string const work = std::to_string(count) + " sprites, a step";
    bench::addWork(work, goal);
    add<bench::ZenuMover>(work, count);
    // These two take seconds a step where the sprites are many: fewer steps tell as much.
    int const fewSteps = count < 1000 ? manySteps : 3;
    add<bench::ChildMover>(work, count, fewSteps);
    add<bench::SceneMover>(work, count, fewSteps);
    add<bench::FullSceneMover>(work, count);
    add<bench::RegionMover>(work, count);
}

} // namespace

int main(int argc, char ** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0"); // else Qt waits before each frame
    QApplication const application(argc, argv);
    addAll(10, 0);
    addAll(100, 0.1);
    addAll(1000, 0.7);
    int const result = bench::runAll(argc, argv);
    std::printf("\n| way | paints of the text a step |\n|---|---|\n");
    for (auto const & [way, paints] : paintsPerStep)
        std::printf("| %s | %.2f |\n", way.c_str(), paints);
    return result;
}
