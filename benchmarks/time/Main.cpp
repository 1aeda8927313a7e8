// Measures the reading of times and frequencies beside what a program would write with the standard
// library. Prints a table after the run.
//
//   zenu_bench_time [OPTIONS OF GOOGLE BENCHMARK]

#include "Results.h"

#include <zenu/time/Frequency.h>
#include <zenu/time/TimeValue.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>

using namespace zenu;

namespace {

constexpr int calls = 2'000'000; // in a sample
constexpr int samples = 15;

template <typename Operation>
void add(std::string const & work, std::string const & contestant, Operation operation)
{
    bench::addContestant(work, contestant, samples, [operation] {
        return [operation] { return bench::secondsEach(calls, operation); };
    });
}

// The compiler may not know the texts, nor that they stay the same from call to call.
template <std::size_t count>
char const * textAt(char const * const (&texts)[count], int call)
{
    char const * text = texts[static_cast<unsigned>(call) % count];
    benchmark::DoNotOptimize(text);
    return text;
}

constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// What a program without a perfect hash would write: the word in small letters as the key of a map.
TimeUnit::EUnit mappedUnit(char const * text, char const ** end)
{
    static std::unordered_map<std::string, TimeUnit::EUnit> const units = {
        {"fs", TimeUnit::fs},   {"fsec", TimeUnit::fs}, {"ps", TimeUnit::ps},
        {"psec", TimeUnit::ps}, {"ns", TimeUnit::ns},   {"nsec", TimeUnit::ns},
        {"us", TimeUnit::us},   {"usec", TimeUnit::us}, {"ms", TimeUnit::ms},
        {"msec", TimeUnit::ms}, {"s", TimeUnit::sec},   {"sec", TimeUnit::sec},
        {"min", TimeUnit::min}, {"h", TimeUnit::hr},    {"hr", TimeUnit::hr}};
    while (*text == ' ' || *text == '\t') {
        ++text;
    }
    std::string word;
    for (; isLetter(*text); ++text) {
        word += static_cast<char>(*text | 0x20);
    }
    auto const found = units.find(word);
    *end = found == units.end() ? nullptr : text;
    return found == units.end() ? TimeUnit::unknown : found->second;
}

long long mappedTime(char const * text)
{
    char const * const last = text + std::strlen(text);
    long long count = 0;
    while (text) {
        double number = 0;
        auto const [end, error] = std::from_chars(text, last, number);
        if (error != std::errc()) {
            break;
        }
        TimeUnit const unit = mappedUnit(end, &text);
        if (text) {
            count += static_cast<long long>(unit.factor() * number + 0.5);
        }
    }
    return count;
}

void addUnits()
{
    std::string const work = "a unit of time";
    static constexpr char const * texts[] = {" ms", "us",   " MSEC", "hr",
                                             " s",  "psec", " Min",  "ns"};
    bench::addWork(work, 0.5);
    add(work, bench::zenuName, [](int call) {
        char const * end = nullptr;
        benchmark::DoNotOptimize(TimeUnit::parseUnit(textAt(texts, call), &end));
        benchmark::DoNotOptimize(end);
    });
    add(work, "unordered_map", [](int call) {
        char const * end = nullptr;
        benchmark::DoNotOptimize(mappedUnit(textAt(texts, call), &end));
        benchmark::DoNotOptimize(end);
    });
}

void addOneUnit()
{
    std::string const work = "one unit again and again";
    static constexpr char const * texts[] = {" ms"};
    bench::addWork(work, 0.5);
    add(work, bench::zenuName, [](int call) {
        benchmark::DoNotOptimize(TimeUnit::parseUnit(textAt(texts, call), nullptr));
    });
    add(work, "unordered_map", [](int call) {
        char const * end = nullptr;
        benchmark::DoNotOptimize(mappedUnit(textAt(texts, call), &end));
    });
}

template <std::size_t count>
void addTimes(std::string const & work, char const * const (&texts)[count])
{
    auto const zenuSet = [&texts](int call) {
        static TimeValue time(0, 1.0);
        time.set(textAt(texts, call));
        benchmark::DoNotOptimize(time.internal());
    };
    bench::addWork(work, 1.5, "from_chars alone");
    add(work, bench::zenuName, zenuSet);
    add(work, "from_chars alone", [&texts](int call) {
        char const * const text = textAt(texts, call);
        double number = 0;
        std::from_chars(text, text + std::strlen(text), number);
        benchmark::DoNotOptimize(number);
    });
    std::string const whole = work + ", unit and all";
    bench::addWork(whole, 1.0);
    add(whole, bench::zenuName, zenuSet);
    add(whole, "from_chars and unordered_map",
        [&texts](int call) { benchmark::DoNotOptimize(mappedTime(textAt(texts, call))); });
}

template <std::size_t count>
void addFrequencies(std::string const & work, char const * const (&texts)[count])
{
    bench::addWork(work, 2.0);
    add(work, bench::zenuName, [&texts](int call) {
        double value = 0;
        bool hasUnit = false;
        Frequency::String2Double(&value, &hasUnit, textAt(texts, call), Frequency::MHz);
        benchmark::DoNotOptimize(value);
    });
    add(work, "strtod alone", [&texts](int call) {
        benchmark::DoNotOptimize(std::strtod(textAt(texts, call), nullptr));
    });
}

} // namespace

int main(int argc, char ** argv)
{
    static constexpr char const * oneTime[] = {"12.5 ms"};
    static constexpr char const * times[] = {"12.5 ms", "3 us",         "0.001 s", "90 MIN",
                                             "250ps",   "1234.5678 ns", "7 hr",    "1e3 fsec"};
    static constexpr char const * oneFrequency[] = {"12.5 MHz"};
    static constexpr char const * frequencies[] = {
        "12.5 MHz", "3 kHz", "0.001Hz", "90", "250 mhz", "1.5 GHz", "7uHz", "1234.5678 kHz"};
    addUnits();
    addOneUnit();
    addTimes("the time 12.5 ms", oneTime);
    addTimes("times of eight forms", times);
    addFrequencies("the frequency 12.5 MHz", oneFrequency);
    addFrequencies("frequencies of eight forms", frequencies);
    return bench::runAll(argc, argv);
}
