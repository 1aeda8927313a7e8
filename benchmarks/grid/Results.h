#pragma once

#include <functional>
#include <string>

namespace bench {

// The name that stands for zenu among the contestants of a work.
inline std::string const zenuName = "zenu";

// Sizes: up to a million rows and ten million slim ones, or a tenth and a hundredth of that.
void setQuick(bool quick);
bool isQuick();
inline int fullRows()
{
    return isQuick() ? 100'000 : 1'000'000;
}
inline int fullSlimRows()
{
    return isQuick() ? 100'000 : 10'000'000;
}
std::string sizeName(int rows);

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

// Register the works of a topic.
void addLoading();
void addPainting();
void addTrees();
void addSorting();
void addRowWork();

} // namespace bench
