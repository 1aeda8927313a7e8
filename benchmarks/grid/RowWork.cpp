// What happens to single rows and to all: hit tests, selection, deletion, a new text.

#include "Lists.h"
#include "Works.h"

#include <cstdio>
#include <unordered_set>

namespace bench {

namespace {

using LeanTree = LeanList<QTreeView, 3>;
using LeanTable = LeanList<QTableView, 3>;

template <typename List>
std::shared_ptr<List> filledList()
{
    auto const list = std::make_shared<List>(3);
    list->fill(keptTexts(fullRows(), 3));
    list->paintFrame();
    list->rest();
    list->lookUpRows();
    return list;
}

template <typename List>
void addHits(std::string const & work)
{
    addContestant(work, List::name, 15, []() -> std::function<double()> {
        return [list = filledList<List>()] {
            constexpr int count = 100'000;
            int hits = 0;
            double const start = now();
            for (int i = 0; i < count; ++i) {
                hits += list->hits(QPoint(i * 7 % 590, 30 + i * 13 % 900));
            }
            double const seconds = (now() - start) / count;
            return hits == count ? seconds : -1;
        };
    });
}

template <typename List>
void addSelection(std::string const & select, std::string const & clear)
{
    addContestant(select, List::name, 10, []() -> std::function<double()> {
        return [list = filledList<List>()] {
            list->clearSelection();
            list->paintFrame();
            list->rest();
            double const start = now();
            list->selectAll();
            return list->paintFrame() ? now() - start : -1;
        };
    });
    addContestant(clear, List::name, 10, []() -> std::function<double()> {
        return [list = filledList<List>()] {
            list->selectAll();
            list->paintFrame();
            list->rest();
            double const start = now();
            list->clearSelection();
            return list->paintFrame() ? now() - start : -1;
        };
    });
}

// Rows to delete one after the other: by their number at first, or by that at the time.
std::vector<int> randomRows(int rows, int count, bool numbersStay)
{
    std::vector<int> chosen;
    std::unordered_set<int> taken;
    for (std::size_t number = 0; static_cast<int>(chosen.size()) < count; ++number) {
        int const left = numbersStay ? rows : rows - static_cast<int>(chosen.size());
        int const row = static_cast<int>(scattered(number) % static_cast<std::size_t>(left));
        if (!numbersStay || taken.insert(row).second) {
            chosen.push_back(row);
        }
    }
    return chosen;
}

template <typename List>
void addDeletion(std::string const & some, std::string const & all)
{
    addContestant(some, List::name, 4, []() -> std::function<double()> {
        return [] {
            auto const list = filledList<List>();
            std::vector<int> const rows = randomRows(fullRows(), 1000, List::keepsRowNumbers);
            double const start = now();
            for (int const row : rows) {
                list->deleteRow(row);
            }
            return list->paintFrame() ? now() - start : -1;
        };
    });
    addContestant(all, List::name, 4, []() -> std::function<double()> {
        return [] {
            auto const list = filledList<List>();
            double const start = now();
            list->deleteAll();
            return list->paintFrame() ? now() - start : -1;
        };
    });
}

template <typename List>
void addNewTexts(std::string const & work)
{
    addContestant(work, List::name, 15, []() -> std::function<double()> {
        return [list = filledList<List>(), number = 0]() mutable {
            constexpr int count = 100;
            double seconds = 0;
            for (int i = 0; i < count; ++i) {
                char text[16];
                std::snprintf(text, sizeof text, "new text %d", number++ % 100'000);
                list->rest();
                double const start = now();
                list->setText(5 + number % 30, number % 3, text);
                if (!list->paintFrame()) {
                    return -1.0;
                }
                seconds += now() - start;
            }
            return seconds / count;
        };
    });
}

} // namespace

void addRowWork()
{
    std::string const size = sizeName(fullRows());
    addWork("hit test to row and column", 0.7);
    addHits<ZenuList>("hit test to row and column");
    addHits<WidgetList>("hit test to row and column");
    addHits<LeanTree>("hit test to row and column");

    std::string const select = "select all of " + size + " rows";
    std::string const clear = "clear the selection of " + size + " rows";
    addWork(select, 0.5);
    addWork(clear, 1.0);
    addSelection<ZenuList>(select, clear);
    addSelection<LeanTable>(select, clear);

    std::string const some = "delete 1000 random rows of " + size;
    std::string const all = "delete all of " + size + " rows";
    addWork(some, 0.25);
    addWork(all, 0.2);
    addDeletion<ZenuList>(some, all);
    addDeletion<WidgetList>(some, all);
    addDeletion<LeanTree>(some, all);

    addWork("set the text of a visible cell", 0.5);
    addNewTexts<ZenuList>("set the text of a visible cell");
    addNewTexts<WidgetList>("set the text of a visible cell");
    addNewTexts<LeanTree>("set the text of a visible cell");
}

} // namespace bench
