#pragma once

#include <ctime>
#include <functional>
#include <string>

namespace bench {

// The name that stands for zenu among the contestants of a work.
inline std::string const zenuName = "zenu";

// Says which zenu's time over that of the best peer may be at most. Works appear in the table in
// the order of these calls; the names hold no slash.
void addWork(std::string const & work, double goal, std::string const & onlyPeer = {});
// Notes the time of one sample in seconds; the quietest counts.
void note(std::string const & work, std::string const & contestant, double seconds);
// Notes a size in bytes a row.
void noteBytes(std::string const & what, double bytes, double goal);
// What was measured, as a table in Markdown.
void printTables();

// Registers a contestant. `prepare` is called once a run, before anything is measured; what it
// returns is called for each of `samples` samples and answers the seconds, below 0 for a failure.
void addContestant(std::string const & work, std::string const & contestant, int samples,
                   std::function<std::function<double()>()> prepare);

// Runs what was registered with the options of Google Benchmark and prints the tables. Returns what
// main() returns.
int runAll(int argc, char ** argv);

// Processor time of this thread, in seconds: what others do on the machine does not count, and
// nothing that is measured here waits or uses a second thread.
inline double now()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Seconds that one of `count` calls of `operation` takes.
template <typename Operation>
double secondsEach(int count, Operation operation)
{
    double const start = now();
    for (int i = 0; i < count; ++i) {
        operation(i);
    }
    return (now() - start) / count;
}

} // namespace bench
