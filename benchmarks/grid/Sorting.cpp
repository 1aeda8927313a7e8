// Sorting by a text, to the frame that shows it.

#include "Lists.h"
#include "Works.h"

namespace bench {

namespace {

template <typename List>
void addSort(std::string const & work, TextKind kind)
{
    addContestant(work, List::name, 6, [=]() -> std::function<double()> {
        auto const list = std::make_shared<List>(3);
        list->fill(keptTexts(fullRows(), 3, kind));
        list->paintFrame();
        return [=, column = 0]() mutable {
            list->rest();
            column = (column + 1) % 3;
            double const start = now();
            list->sort(column);
            return list->paintFrame() ? now() - start : -1;
        };
    });
}

void addKind(std::string const & work, double goal, TextKind kind)
{
    addWork(work, goal);
    addSort<ZenuList>(work, kind);
    addSort<LeanList<QTreeView, 3>>(work, kind);
}

} // namespace

void addSorting()
{
    std::string const work = "sort " + sizeName(fullRows()) + " rows by a text";
    addKind(work, 0.6, TextKind::Random);
    addKind(work + " that begins alike", 0.6, TextKind::Numbered);
}

} // namespace bench
