#include "Memory.h"

#include "Lists.h"
#include "Slim.h"
#include "Works.h"

#include <QProcess>

#include <cstdio>
#include <fstream>
#include <malloc.h>

namespace bench {

namespace {

struct Bytes
{
    double resident = 0;
    double peak = 0;
};

// Of this process, by the system's count.
Bytes processBytes()
{
    Bytes bytes;
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == "VmRSS:") {
            status >> bytes.resident;
        } else if (word == "VmHWM:") {
            status >> bytes.peak;
        }
    }
    bytes.resident *= 1024;
    bytes.peak *= 1024;
    return bytes;
}

// What `fill` adds to what is there before it.
template <typename Fill>
void report(int rows, Fill fill)
{
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5; // the peak starts from here
    Bytes const before = processBytes();
    fill();
    Bytes const after = processBytes();
    std::printf("%f %f\n", (after.resident - before.resident) / rows,
                (after.peak - before.resident) / rows);
}

template <typename List>
void reportList(int rows)
{
    Texts const & texts = keptTexts(rows, 3);
    List list(3);
    report(rows, [&] {
        list.fill(texts);
        list.paintFrame();
    });
}

template <typename Slim>
void reportSlim(int rows, bool underOneRow)
{
    Slim slim;
    slim.prepare(rows, underOneRow);
    report(rows, [&] {
        slim.load();
        slim.paintFrame();
    });
}

struct Case
{
    char const * name;
    char const * what;
    double goal;
    double peakGoal;
};

constexpr Case cases[] = {
    {"ordinary", "zenu, ordinary row of 3 texts", 260, 0},
    {"widget", "QTreeWidget, item of 3 texts", 0, 0},
    {"lean", "QTreeView, node of 3 texts", 0, 0},
    {"loaded", "zenu, slim row loaded under a slim row", 42, 90},
    {"batch", "zenu, slim row of a batch at the top", 60, 90},
    {"computed", "QTreeView, computed row", 0, 0},
};

void measure(Case const & each)
{
    QProcess process;
    QStringList arguments{QString::fromStdString(memoryArgument + each.name)};
    if (isQuick()) {
        arguments << QStringLiteral("--quick");
    }
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForFinished(-1);
    double bytes = 0;
    double peak = 0;
    if (std::sscanf(process.readAllStandardOutput().constData(), "%lf %lf", &bytes, &peak) == 2) {
        noteBytes(each.what, bytes, each.goal);
        noteBytes(std::string(each.what) + ", peak", peak, each.peakGoal);
    }
}

} // namespace

int runMemoryCase(std::string const & name)
{
    if (name == "ordinary") {
        reportList<ZenuList>(fullRows());
    } else if (name == "widget") {
        reportList<WidgetList>(fullRows());
    } else if (name == "lean") {
        reportList<LeanList<QTreeView, 3>>(fullRows());
    } else if (name == "loaded") {
        reportSlim<ZenuSlim>(fullSlimRows(), true);
    } else if (name == "batch") {
        reportSlim<ZenuSlim>(fullSlimRows(), false);
    } else if (name == "computed") {
        reportSlim<LeanSlim>(fullSlimRows(), true);
    } else {
        return 1;
    }
    return 0;
}

void measureMemory()
{
    for (Case const & each : cases) {
        measure(each);
    }
}

} // namespace bench
