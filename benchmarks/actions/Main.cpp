// What the timer of KActionManager costs while nothing happens: the share of one core, for several
// numbers of actions that are in a menu of a window.
//
//   zenu_bench_actions [SECONDS]     the time for each number, by default 5; other arguments are
//                                    not for this program

#include <zenu/command/CommandHandlers.h>
#include <zenu/command/KActionManager.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

// Answers for all commands of a window, as an application would.
class Document : public zenu::KMethodHandlerBase
{
public:
    bool cmd(unsigned int id) override
    {
        doNothing(id);
        return true;
    }
    bool update(unsigned int id, zenu::ICommandUpdate * state) override
    {
        ++asked;
        state->setEnabled(id % 3 != 0);
        state->setChecked(id % 2 == 0);
        return true;
    }

    int asked = 0;
};

double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

struct Cost
{
    double share;
    double ticksEachSecond;
};

// Turns the event loop for that long.
template <typename Counter>
Cost measure(double seconds, Counter const & ticks)
{
    using Clock = std::chrono::steady_clock;
    int const ticksBefore = ticks();
    double const before = processorTime();
    auto const start = Clock::now();
    QTimer::singleShot(static_cast<int>(seconds * 1000), qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    double const wall = std::chrono::duration<double>(Clock::now() - start).count();
    return {(processorTime() - before) / wall, (ticks() - ticksBefore) / wall};
}

Cost costOf(unsigned actions, double seconds)
{
    Document document;
    zenu::KDispatchHandler dispatcher;
    QMainWindow window;
    QMenu * const menu = window.menuBar()->addMenu(QStringLiteral("All"));
    zenu::KActionManager manager(&window, &dispatcher);
    for (unsigned id = 1; id <= actions; ++id) {
        auto * const action = new QAction(QString::number(id), &window);
        action->setCheckable(id % 4 == 0);
        dispatcher.addHandler(id, &document);
        manager.addAction(action, id);
        menu->addAction(action);
    }
    window.show();
    manager.updateAll();
    measure(0.5, [] { return 0; }); // until the window has been painted
    return measure(seconds, [&document] { return document.asked; });
}

// The timer alone: what the loop itself and its wakeups cost.
Cost costOfABareTimer(double seconds)
{
    int count = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&count] { ++count; });
    timer.start(3);
    return measure(seconds, [&count] { return count; });
}

void print(char const * what, Cost const & cost)
{
    std::printf("| %s | %.2f %% | %.0f |\n", what, cost.share * 100, cost.ticksEachSecond);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char ** argv)
{
    QApplication application(argc, argv);
    double const wanted = argc > 1 ? std::atof(argv[1]) : 0;
    double const seconds = wanted > 0 ? wanted : 5;
    std::printf("| actions | share of one core | ticks a second |\n|---|---|---|\n");
    print("a bare timer of 3 ms", costOfABareTimer(seconds));
    for (unsigned const actions : {10U, 100U, 1000U}) {
        print(std::to_string(actions).c_str(), costOf(actions, seconds));
    }
    return 0;
}
