#include "tests/support/TestMain.h"
#include "zenu/grid/KGridCtrl.h"
#include "zenu/util/StringUtils.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using namespace zenu;

namespace {

// A text of 0 to `longest` letters out of few, so that many texts begin alike or are level.
std::string randomText(std::mt19937 & random, std::string const & beginning, unsigned longest)
{
    static constexpr char letters[] = "aAbB\xe4\x01 ";
    std::string text = beginning;
    for (auto left = static_cast<unsigned>(random()) % (longest + 1); left != 0; --left) {
        text += letters[random() % (sizeof letters - 1)];
    }
    return text;
}

// The places, in order of insertion, of the rows as they are displayed.
std::vector<unsigned long> displayedOrder(std::vector<std::string> const & texts, bool ascending)
{
    KGridCtrl grid;
    tag_HCOLUMN * const column = grid.AddColumn("text", 0, 100);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
        grid.SetItemText(row, column, texts[i].c_str());
        grid.SetRowParam(row, i);
    }
    grid.Sort(column, ascending);
    std::vector<unsigned long> order;
    for (tag_HROW * row = grid.GetNextRow(GCN_VISIBLE_FIRST); row;
         row = grid.GetNextRow(GCN_VISIBLE_NEXT, row)) {
        order.push_back(grid.GetRowParam(row));
    }
    return order;
}

std::vector<unsigned long> expectedOrder(std::vector<std::string> const & texts, bool ascending)
{
    std::vector<unsigned long> order(texts.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::stable_sort(order.begin(), order.end(), [&](unsigned long a, unsigned long b) {
        int const answer = compareNoCase(texts[a], texts[b]);
        return ascending ? answer < 0 : answer > 0;
    });
    return order;
}

} // namespace

class tst_SortByText : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void sort_anyTexts_isTheStableSortByComparison_data();
    void sort_anyTexts_isTheStableSortByComparison();
    void sort_levelTexts_keepsTheOrderOfInsertion();
    void sort_veryLongTexts_comparesThemWhole();
    void sort_rowsWithoutText_losesNoRow();
};

void tst_SortByText::sort_anyTexts_isTheStableSortByComparison_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QByteArray>("beginning");
    QTest::addColumn<int>("longest");
    QTest::addColumn<bool>("ascending");
    for (bool const ascending : {true, false}) {
        char const * const way = ascending ? "up" : "down";
        QTest::addRow("%s: no row", way) << 0 << QByteArray() << 3 << ascending;
        QTest::addRow("%s: one row", way) << 1 << QByteArray() << 3 << ascending;
        QTest::addRow("%s: short texts", way) << 2000 << QByteArray() << 3 << ascending;
        QTest::addRow("%s: texts around 8 bytes", way)
            << 3000 << QByteArray("Folder") << 4 << ascending;
        QTest::addRow("%s: texts around 16 bytes", way)
            << 3000 << QByteArray("A long folder ") << 4 << ascending;
        QTest::addRow("%s: texts of all lengths", way) << 3000 << QByteArray() << 40 << ascending;
        QTest::addRow("%s: texts that begin alike", way)
            << 3000 << QByteArray("/home/somebody/pictures/") << 20 << ascending;
    }
}

void tst_SortByText::sort_anyTexts_isTheStableSortByComparison()
{
    QFETCH(int, rows);
    QFETCH(QByteArray, beginning);
    QFETCH(int, longest);
    QFETCH(bool, ascending);
    std::mt19937 random(4711);
    std::vector<std::string> texts;
    for (int i = 0; i < rows; ++i) {
        texts.push_back(
            randomText(random, beginning.toStdString(), static_cast<unsigned>(longest)));
    }
    QVERIFY(displayedOrder(texts, ascending) == expectedOrder(texts, ascending));
}

void tst_SortByText::sort_levelTexts_keepsTheOrderOfInsertion()
{
    std::vector<std::string> texts;
    for (int i = 0; i < 500; ++i) {
        texts.push_back(i % 2 ? "the same text" : "THE SAME TEXT");
    }
    std::vector<unsigned long> inserted(texts.size());
    for (std::size_t i = 0; i < inserted.size(); ++i) {
        inserted[i] = i;
    }
    QVERIFY(displayedOrder(texts, true) == inserted);
    QVERIFY(displayedOrder(texts, false) == inserted);
}

void tst_SortByText::sort_veryLongTexts_comparesThemWhole()
{
    std::string const alike(100000, 'x');
    std::vector<std::string> const texts{alike + "b", alike, alike + "A", alike + "c"};
    QVERIFY(displayedOrder(texts, true) == (std::vector<unsigned long>{1, 2, 0, 3}));
    QVERIFY(displayedOrder(texts, false) == (std::vector<unsigned long>{3, 0, 2, 1}));
}

void tst_SortByText::sort_rowsWithoutText_losesNoRow()
{
    KGridCtrl grid;
    tag_HCOLUMN * const column = grid.AddColumn("text", 0, 100);
    std::mt19937 random(42);
    for (unsigned long i = 0; i < 1000; ++i) {
        tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
        grid.SetRowParam(row, i);
        if (random() % 3 != 0) {
            grid.SetItemText(row, column, randomText(random, "begins alike ", 10).c_str());
        }
    }
    grid.Sort(column, true);
    std::vector<bool> seen(1000);
    int count = 0;
    for (tag_HROW * row = grid.GetNextRow(GCN_VISIBLE_FIRST); row;
         row = grid.GetNextRow(GCN_VISIBLE_NEXT, row)) {
        seen[grid.GetRowParam(row)] = true;
        ++count;
    }
    QCOMPARE(count, 1000);
    QVERIFY(std::all_of(seen.begin(), seen.end(), [](bool was) { return was; }));
}

ZENU_TEST(tst_SortByText)
#include "tst_SortByText.moc"
