#include "tests/grid_order/OrderFixture.h"
#include "tests/support/TestMain.h"

#include <map>
#include <random>

using namespace zenu;
using namespace zenutest;

namespace {

// What the order must be, worked out in the plainest way from the tree and from what the last
// comparison saw.
class NaiveOrder
{
public:
    explicit NaiveOrder(TestFrame & walked)
        : frame(walked)
    {
    }

    void rebuild()
    {
        rows.clear();
        tops.clear();
        std::vector<IGCRow *> level;
        for (int i = 0; i < frame.rootRows.count(); ++i) {
            level.push_back(frame.rootRows.at(i));
        }
        add(level);
        int y = 0;
        for (IGCRow * const row : rows) {
            tops.push_back(y);
            y += height(row);
        }
        tops.push_back(y);
        auto const kept = std::find(rows.begin(), rows.end(), topRow);
        if (topRow && kept != rows.end()) {
            topIndex = static_cast<int>(kept - rows.begin());
        }
        place(topIndex);
    }

    void place(int index)
    {
        if (rows.empty()) {
            topRow = nullptr;
            topIndex = 0;
            shown = 0;
            return;
        }
        topIndex = std::max(0, std::min(index, topFor(count() - 1)));
        topRow = rows[static_cast<std::size_t>(topIndex)];
        shown = shownFrom(topIndex);
    }

    int count() const { return static_cast<int>(rows.size()); }
    int top(int index) const { return tops[static_cast<std::size_t>(index)]; }

    // The smallest index on top that shows the row whole.
    int topFor(int index) const
    {
        int const y = top(index + 1) - frame.pageHeight;
        int first = 0;
        while (first + 1 < count() && top(first) < y) {
            ++first;
        }
        return first;
    }

    int shownFrom(int first) const
    {
        int const y = top(first) + frame.pageHeight;
        int last = 0;
        while (last + 1 < count() && top(last + 1) <= y) {
            ++last;
        }
        if (frame.wholeRowsOnly && last >= 1 && top(last + 1) > y) {
            --last;
        }
        return std::max(last - first + 1, 1);
    }

    int indexFromY(int y) const
    {
        for (int i = 0; i < count(); ++i) {
            if (y >= top(i) && y < top(i + 1)) {
                return i;
            }
        }
        return -1;
    }

    int height(IGCRow * row) const
    {
        auto const found = heights.find(row);
        return found == heights.end() ? frame.wrapper.defaultHeight : found->second;
    }

    TestFrame & frame;
    std::vector<IGCRow *> rows;
    std::map<IGCRow *, bool> lastChild;
    std::vector<int> tops;
    std::map<IGCRow *, int> heights;
    IGCRow * topRow = nullptr;
    int topIndex = 0;
    int shown = 0;

private:
    void add(std::vector<IGCRow *> level)
    {
        if (frame.sorted) {
            std::stable_sort(level.begin(), level.end(),
                             [](auto const * a, auto const * b) { return a->param < b->param; });
        }
        for (IGCRow * const row : level) {
            rows.push_back(row);
            lastChild[row] = row == level.back();
            std::vector<IGCRow *> children;
            for (int i = 0; i < row->GetChildCount(&frame.wrapper); ++i) {
                children.push_back(row->GetChild(i));
            }
            if (row->IsExpanded()) {
                add(children);
            }
        }
    }
};

class Player
{
public:
    explicit Player(unsigned seed)
        : naive(frame)
        , random(seed)
    {
    }

    QString play(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            act();
            if (below(3) == 0) {
                if (QString const wrong = compare(); !wrong.isEmpty()) {
                    return QStringLiteral("step %1: %2").arg(step).arg(wrong);
                }
            }
        }
        return {};
    }

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    IGCRow * anyRow()
    {
        return live.empty() ? nullptr
                            : live[static_cast<std::size_t>(below(static_cast<int>(live.size())))];
    }

    void act()
    {
        IGCRow * const row = anyRow();
        int const action = below(20);
        if (!row || action < 8) {
            live.push_back(frame.addRow(static_cast<unsigned long>(below(50)),
                                        below(3) == 0 ? nullptr : row,
                                        below(2) == 0 ? GCI_FIRST : GCI_LAST));
        } else if (action < 11) {
            remove(row);
        } else if (action < 14) {
            frame.expand(row, below(3) != 0);
        } else if (action == 14) {
            int const height = below(60) + 1;
            frame.SetRowHeight(row, height);
            naive.heights[row] = height;
        } else if (action == 15) {
            frame.ResetRowHeight(row);
            naive.heights.erase(row);
        } else if (action == 16) {
            frame.sorted = !frame.sorted;
            frame.Invalidate();
        } else if (action == 17) {
            frame.pageHeight = below(400);
            frame.wholeRowsOnly = below(2) == 0;
            frame.Invalidate();
        } else if (action == 18 && below(4) == 0) {
            frame.ClearHeights();
            naive.heights.clear();
        } else {
            naive.rebuild();
            int const index = below(naive.count() + 4);
            frame.SetTop(index);
            naive.place(index);
        }
    }

    void remove(IGCRow * row)
    {
        std::vector<IGCRow *> branch{row};
        for (std::size_t i = 0; i < branch.size(); ++i) {
            for (int child = 0; child < branch[i]->GetChildCount(&frame.wrapper); ++child) {
                branch.push_back(branch[i]->GetChild(child));
            }
            naive.heights.erase(branch[i]);
            naive.topRow = naive.topRow == branch[i] ? nullptr : naive.topRow;
            std::erase(live, branch[i]);
        }
        frame.remove(row);
    }

    QString compare()
    {
        naive.rebuild();
        QString const wanted = QStringLiteral("count=%1 top=%2 shown=%3")
                                   .arg(naive.count())
                                   .arg(naive.topIndex)
                                   .arg(naive.shown);
        QString const found = QStringLiteral("count=%1 top=%2 shown=%3")
                                  .arg(frame.GetCount())
                                  .arg(frame.GetTopIndex())
                                  .arg(frame.GetShownCount());
        if (wanted != found) {
            return QStringLiteral("wanted %1, found %2").arg(wanted, found);
        }
        for (int i = 0; i < naive.count(); ++i) {
            IGCRow * const row = naive.rows[static_cast<std::size_t>(i)];
            int const y = naive.top(i) + below(60) - 20;
            if (frame.GetRowAt(i) != row || frame.IndexOf(row) != i ||
                frame.GetTopOf(i) != naive.top(i) || frame.GetHeightAt(i) != naive.height(row) ||
                frame.IsLastChildAt(i) != naive.lastChild[row] ||
                frame.IndexFromY(y) != naive.indexFromY(y) ||
                frame.FirstIndexForBottom(i) != naive.topFor(i) ||
                frame.VisibleCountFrom(i) != naive.shownFrom(i)) {
                return QStringLiteral("row %1 of %2").arg(i).arg(wanted);
            }
        }
        for (IGCRow * const row : live) {
            bool const shown =
                std::find(naive.rows.begin(), naive.rows.end(), row) != naive.rows.end();
            if (row->IsVisible() != shown) {
                return QStringLiteral("a row's index says the wrong thing, %1").arg(wanted);
            }
        }
        return {};
    }

    TestFrame frame;
    NaiveOrder naive;
    std::vector<IGCRow *> live;
    std::mt19937 random;
};

} // namespace

class tst_VisibleRowsRandom : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void randomChanges_agreeWithTheNaiveOrder_data();
    void randomChanges_agreeWithTheNaiveOrder();
};

void tst_VisibleRowsRandom::randomChanges_agreeWithTheNaiveOrder_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 20; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void tst_VisibleRowsRandom::randomChanges_agreeWithTheNaiveOrder()
{
    QFETCH(unsigned, seed);
    Player player(seed);
    QCOMPARE(player.play(600), QString());
}

ZENU_TEST(tst_VisibleRowsRandom)
#include "tst_VisibleRowsRandom.moc"
