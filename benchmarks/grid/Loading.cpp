// From nothing to the first frame: ordinary rows with their texts, and slim rows.

#include "Lists.h"
#include "Slim.h"
#include "Works.h"

namespace bench {

namespace {

template <typename List>
void addFill(std::string const & work, int rows, int samples)
{
    addContestant(work, List::name, samples, [=] {
        Texts const & texts = keptTexts(rows, 3);
        return [&texts] {
            List list(3);
            double const start = now();
            list.fill(texts);
            return list.paintFrame() ? now() - start : -1;
        };
    });
}

template <typename Slim>
void addSlim(std::string const & work, int rows, bool underOneRow, int samples)
{
    addContestant(work, Slim::name, samples, [=] {
        return [=] {
            Slim slim;
            slim.prepare(rows, underOneRow);
            double const start = now();
            slim.load();
            return slim.paintFrame() ? now() - start : -1;
        };
    });
}

} // namespace

void addLoading()
{
    for (int rows = 10'000; rows <= fullRows(); rows *= 10) {
        std::string const work = sizeName(rows) + " rows of 3 texts to the first frame";
        addWork(work, 0.25, WidgetList::name);
        int const samples = 3'000'000 / rows < 10 ? 4 : 10;
        addFill<ZenuList>(work, rows, samples);
        addFill<WidgetList>(work, rows, samples);
        addFill<LeanList<QTreeView, 3>>(work, rows, samples);
    }
    for (bool const underOneRow : {true, false}) {
        for (int rows = 100'000; rows <= fullSlimRows(); rows *= 10) {
            std::string const work =
                sizeName(rows) + " slim rows to the first frame, " +
                (underOneRow ? "one level under a slim row" : "one batch at the top");
            addWork(work, 0.8);
            int const samples = rows > 1'000'000 ? 5 : 10;
            addSlim<ZenuSlim>(work, rows, underOneRow, samples);
            addSlim<LeanSlim>(work, rows, underOneRow, samples);
        }
    }
}

} // namespace bench
