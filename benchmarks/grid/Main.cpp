// Measures zenu and, in the same program on the same work, QTreeWidget, QTreeView on a lean model
// and QTableView. Prints two tables after the run.
//
//   zenu_bench_grid [--quick] [--no-memory] [OPTIONS OF GOOGLE BENCHMARK]

#include "Memory.h"
#include "Works.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

// Takes the option out of the arguments; says whether it was there.
bool takeOption(std::vector<char *> & arguments, std::string_view option)
{
    return std::erase_if(arguments, [=](char const * argument) { return argument == option; }) != 0;
}

} // namespace

int main(int argc, char ** argv)
{
    std::vector<char *> arguments(argv, argv + argc);
    bench::setQuick(takeOption(arguments, "--quick"));
    bool const withMemory = !takeOption(arguments, "--no-memory");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0"); // else Qt waits before each frame
    QApplication const application(argc, argv);

    for (char const * const argument : arguments) {
        if (std::string const text = argument; text.starts_with(bench::memoryArgument)) {
            return bench::runMemoryCase(text.substr(bench::memoryArgument.size()));
        }
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 1;
    }
    bench::addLoading();
    bench::addPainting();
    bench::addTrees();
    bench::addSorting();
    bench::addRowWork();
    benchmark::RunSpecifiedBenchmarks();
    if (withMemory) {
        bench::measureMemory();
    }
    bench::printTables();
    return 0;
}
