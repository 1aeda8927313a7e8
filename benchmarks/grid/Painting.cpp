// Frames of a list: full repaints and scrolling.

#include "Lists.h"
#include "Works.h"

namespace bench {

namespace {

constexpr int columns = 8;
constexpr int narrowColumns = 24; // most texts are cut there
constexpr int samples = 15;

// The mean time of some repetitions of the work, each with its frame.
template <typename List, typename Work>
double meanFrame(List & list, int repetitions, Work work)
{
    double seconds = 0;
    for (int i = 0; i < repetitions; ++i) {
        list.rest();
        double const start = now();
        work();
        if (!list.paintFrame()) {
            return -1;
        }
        seconds += now() - start;
    }
    return seconds / repetitions;
}

template <typename List>
std::shared_ptr<List> filledList(int columnCount = columns)
{
    auto const list = std::make_shared<List>(columnCount);
    list->fill(keptTexts(800'000 / columnCount, columnCount));
    list->paintFrame();
    list->rest();
    return list;
}

// Another place far from the last one.
template <typename List>
void jump(List & list, std::size_t & number)
{
    QScrollBar * const bar = list.bar();
    bar->setValue(static_cast<int>(scattered(number++) % static_cast<std::size_t>(bar->maximum())));
}

// A step by the scroll bar; back to the top when the end has come.
template <typename List>
void addSteps(std::string const & work, QAbstractSlider::SliderAction action, int repetitions)
{
    addContestant(work, List::name, samples, [=]() -> std::function<double()> {
        return [=, list = filledList<List>()] {
            QScrollBar * const bar = list->bar();
            if (bar->value() > bar->maximum() / 2) {
                bar->setValue(0);
            }
            return meanFrame(*list, repetitions, [=] { bar->triggerAction(action); });
        };
    });
}

template <typename List>
void addRepaints(std::string const & seen, std::string const & unseen, int columnCount)
{
    addContestant(seen, List::name, samples, [=]() -> std::function<double()> {
        return [list = filledList<List>(columnCount)] {
            return meanFrame(*list, 10, [&] { list->dirtyAll(); });
        };
    });
    addContestant(unseen, List::name, samples, [=]() -> std::function<double()> {
        return [list = filledList<List>(columnCount), number = std::size_t(0)]() mutable {
            double seconds = 0;
            for (int i = 0; i < 10; ++i) {
                list->rest();
                jump(*list, number);
                double const start = now();
                list->dirtyAll();
                if (!list->paintFrame()) {
                    return -1.0;
                }
                seconds += now() - start;
            }
            return seconds / 10;
        };
    });
}

template <typename List>
void addJumps(std::string const & work)
{
    addContestant(work, List::name, samples, []() -> std::function<double()> {
        return [list = filledList<List>(), number = std::size_t(0)]() mutable {
            return meanFrame(*list, 10, [&] { jump(*list, number); });
        };
    });
}

template <typename List>
void addAll()
{
    addRepaints<List>("full repaint, texts seen before", "full repaint, first time", columns);
    addSteps<List>("scroll one row", QAbstractSlider::SliderSingleStepAdd, 50);
    addSteps<List>("scroll a page", QAbstractSlider::SliderPageStepAdd, 10);
    addJumps<List>("jump");
}

template <typename List>
void addNarrow()
{
    addRepaints<List>("full repaint of cut texts, seen before",
                      "full repaint of cut texts, first time", narrowColumns);
}

} // namespace

void addPainting()
{
    addWork("full repaint, texts seen before", 0.3);
    addWork("full repaint, first time", 0.8);
    addWork("full repaint of cut texts, seen before", 0.3);
    addWork("full repaint of cut texts, first time", 0.8);
    addWork("scroll one row", 0.5);
    addWork("scroll a page", 0.4);
    addWork("jump", 0.4);
    addAll<ZenuList>();
    addAll<WidgetList>();
    addAll<LeanList<QTreeView, columns>>();
    addNarrow<ZenuList>();
    addNarrow<WidgetList>();
    addNarrow<LeanList<QTreeView, narrowColumns>>();
}

} // namespace bench
