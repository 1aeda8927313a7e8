#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <algorithm>
#include <climits>

using namespace zenu;
using zenutest::SlimTree;
using zenutest::SmallTree;
using zenutest::TestGrid;

class tst_GridWalks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void relatives_data();
    void relatives();
    void unknownFlags_areNull();
    void badRows_areNull();
    void children_resumeFromAnySibling();
    void children_withoutAWalk_areSearched();
    void children_previous();
    void children_ofALongLevel_areSteppedQuickly();
    void children_goOnAfterDeletionOfTheCurrentsSibling();
    void childWalks_areDroppedWhenChildrenChange();
    void lastChild_hasNoNext();
    void visibleParent_skipsHiddenAncestors();
    void visiblePrevious();
    void begin_keepsTheSteppingFlag_data();
    void begin_keepsTheSteppingFlag();
    void begin_withANextFlag_stopsAfterOneRow();
    void equality_looksAtTheRowAlone();
    void plus_stepsOn_andNotForLessThanOne();
    void standardAlgorithms_takeTheWalk();
    void locator_staleHandle_isRefused();
    void locator_switches_onlyWhileEmpty();
    void locator_fast_countsAndWalks();
    void locator_fast_loadsWhileItWalks();
};

void tst_GridWalks::relatives_data()
{
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<char>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("root") << unsigned(GCN_ROOT) << 'x' << "root";
    QTest::newRow("first child") << unsigned(GCN_CHILD_FIRST) << 'a' << "b";
    QTest::newRow("first child of the root") << unsigned(GCN_CHILD_FIRST) << 'r' << "a";
    QTest::newRow("first child of none") << unsigned(GCN_CHILD_FIRST) << 'b' << "-";
    QTest::newRow("next sibling") << unsigned(GCN_CHILD_NEXT) << 'b' << "c";
    QTest::newRow("next of the last") << unsigned(GCN_CHILD_NEXT) << 'c' << "-";
    QTest::newRow("next at the top level") << unsigned(GCN_CHILD_NEXT) << 'a' << "d";
    QTest::newRow("previous sibling") << unsigned(GCN_CHILD_PREV) << 'c' << "b";
    QTest::newRow("previous of the first") << unsigned(GCN_CHILD_PREV) << 'b' << "-";
    QTest::newRow("previous at the top level") << unsigned(GCN_CHILD_PREV) << 'd' << "a";
    QTest::newRow("parent") << unsigned(GCN_PARENT) << 'c' << "a";
    QTest::newRow("parent at the top level") << unsigned(GCN_PARENT) << 'd' << "root";
    QTest::newRow("visible parent") << unsigned(GCN_VISIBLE_PARENT) << 'c' << "a";
    QTest::newRow("visible parent at the top") << unsigned(GCN_VISIBLE_PARENT) << 'a' << "root";
    QTest::newRow("previous in the order") << unsigned(GCN_VISIBLE_PREV) << 'd' << "c";
    QTest::newRow("previous of the first in it") << unsigned(GCN_VISIBLE_PREV) << 'a' << "-";
    QTest::newRow("focused") << unsigned(GCN_FOCUSED) << 'x' << "c";
    QTest::newRow("first shown") << unsigned(GCN_SHOWN_FIRST) << 'x' << "a";
    QTest::newRow("first visible") << unsigned(GCN_VISIBLE_FIRST) << 'x' << "a";
    QTest::newRow("first selected") << unsigned(GCN_SELECTED_FIRST) << 'x' << "c";
}

void tst_GridWalks::relatives()
{
    QFETCH(unsigned, flags);
    QFETCH(char, from);
    QFETCH(QString, to);
    SmallTree const tree;
    const_cast<TestGrid &>(tree.grid).SetRowSel(tree.c, true);
    tag_HROW * const rows[] = {tree.a, tree.b, tree.c, tree.d};
    tag_HROW * const row = from == 'x' ? nullptr : from == 'r' ? GC_ROOT : rows[from - 'a'];
    QCOMPARE(tree.next(flags, row), to);
}

void tst_GridWalks::unknownFlags_areNull()
{
    SmallTree const tree;
    for (unsigned const flags : {0u, 17u, 100u, 0x8001u, UINT_MAX}) {
        QVERIFY(!tree.grid.GetNextRow(flags, tree.a));
    }
}

void tst_GridWalks::badRows_areNull()
{
    SmallTree tree;
    tag_HROW * const stale = tree.grid.add("x");
    tree.grid.DeleteRow(stale);
    for (tag_HROW * const row : {static_cast<tag_HROW *>(nullptr), stale,
                                 reinterpret_cast<tag_HROW *>(&tree), GCI_FIRST, GCI_LAST}) {
        for (unsigned flags = 1; flags <= 16; ++flags) {
            bool const readsTheRow = flags == GCN_CHILD_FIRST || flags == GCN_CHILD_NEXT ||
                                     flags == GCN_CHILD_PREV || flags == GCN_PARENT ||
                                     flags == GCN_VISIBLE_PARENT || flags == GCN_VISIBLE_PREV;
            if (readsTheRow || flags % 2 == 0) {
                tag_HROW * const answer = tree.grid.GetNextRow(flags, row);
                QVERIFY2(!answer || flags == GCN_FOCUSED, qPrintable(QString::number(flags)));
            }
        }
    }
    for (unsigned const flags : {GCN_CHILD_NEXT, GCN_CHILD_PREV, GCN_PARENT, GCN_VISIBLE_PARENT}) {
        QVERIFY(!tree.grid.GetNextRow(flags, GC_ROOT));
    }
}

void tst_GridWalks::children_resumeFromAnySibling()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    std::vector<tag_HROW *> const rows = grid.addMany(6, parent);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_FIRST, parent), rows[0]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, rows[0]), rows[1]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, rows[4]), rows[5]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, rows[1]), rows[2]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_PREV, rows[5]), rows[4]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, rows[4]), rows[5]);
    QVERIFY(!grid.GetNextRow(GCN_CHILD_NEXT, rows[5]));
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, rows[2]), rows[3]); // it was past the end
    // Walks over several parents go on side by side.
    std::vector<tag_HROW *> const nested = grid.addMany(2, rows[0]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_FIRST, rows[0]), nested[0]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, rows[3]), rows[4]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, nested[0]), nested[1]);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_FIRST, parent), rows[0]); // anew
    QCOMPARE(grid.GetNextRow(GCN_CHILD_NEXT, rows[0]), rows[1]);
}

void tst_GridWalks::children_withoutAWalk_areSearched()
{
    SmallTree const tree;
    QCOMPARE(tree.next(GCN_CHILD_NEXT, tree.b), QStringLiteral("c"));
    QCOMPARE(tree.next(GCN_CHILD_PREV, tree.c), QStringLiteral("b"));
    QCOMPARE(tree.next(GCN_CHILD_NEXT, tree.a), QStringLiteral("d"));
    QVERIFY(tree.grid.GetPriv().childWalks.empty());
    QVERIFY(!tree.grid.GetPriv().rootChildWalk);
}

void tst_GridWalks::children_previous()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(4);
    QCOMPARE(grid.GetNextRow(GCN_CHILD_FIRST, GC_ROOT), rows[0]);
    QVERIFY(!grid.GetNextRow(GCN_CHILD_PREV, rows[0]));
    for (std::size_t i = 3; i > 0; --i) {
        QCOMPARE(grid.GetNextRow(GCN_CHILD_PREV, rows[i]), rows[i - 1]);
    }
}

void tst_GridWalks::children_ofALongLevel_areSteppedQuickly()
{
    TestGrid grid;
    constexpr unsigned count = 200000; // a search a step would take minutes
    for (unsigned i = 0; i < count; ++i) {
        grid.InsertRow(GC_ROOT, GCI_LAST);
    }
    unsigned steps = 0;
    for (auto row = grid.begin(GCN_CHILD_FIRST, GC_ROOT); row != grid.end(); ++row) {
        ++steps;
    }
    QCOMPARE(steps, count);
}

void tst_GridWalks::children_goOnAfterDeletionOfTheCurrentsSibling()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    std::vector<tag_HROW *> const rows = grid.addMany(5, parent);
    grid.GetNextRow(GCN_CHILD_FIRST, parent);
    tag_HROW * row = grid.GetNextRow(GCN_CHILD_NEXT, rows[0]);
    grid.DeleteRow(rows[0]);
    grid.DeleteRow(rows[2]);
    row = grid.GetNextRow(GCN_CHILD_NEXT, row);
    QCOMPARE(row, rows[3]);
    grid.add("new", parent, row);
    QCOMPARE(grid.name(grid.GetNextRow(GCN_CHILD_NEXT, row)), QStringLiteral("new"));
}

void tst_GridWalks::childWalks_areDroppedWhenChildrenChange()
{
    SmallTree tree;
    KGridCtrl::PrivateData const & frame = tree.grid.GetPriv();
    auto const begin = [&] { tree.grid.GetNextRow(GCN_CHILD_FIRST, tree.a); };
    begin();
    tag_HROW * const e = tree.grid.add("e", tree.a);
    QVERIFY(frame.childWalks.empty());
    begin();
    tree.grid.DeleteRow(e);
    QVERIFY(frame.childWalks.empty());
    begin();
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    QVERIFY(frame.childWalks.empty());
    begin();
    tree.grid.InsertSlimRow(1, true, tree.a, GCI_LAST);
    QVERIFY(frame.childWalks.empty());
    begin();
    tree.grid.GetNextRow(GCN_CHILD_FIRST, GC_ROOT);
    tree.grid.add("f");
    QVERIFY(!frame.rootChildWalk);
    QCOMPARE(frame.childWalks.size(), std::size_t(1)); // the top level alone has changed
    tree.grid.GetNextRow(GCN_CHILD_FIRST, GC_ROOT);
    tree.grid.DeleteRow(tree.a);
    QVERIFY(!frame.rootChildWalk);
    QVERIFY(frame.childWalks.empty());
}

void tst_GridWalks::lastChild_hasNoNext()
{
    SmallTree const tree;
    QVERIFY(!tree.grid.GetNextRow(GCN_CHILD_NEXT, tree.c));
    tree.grid.GetNextRow(GCN_CHILD_FIRST, tree.a);
    QVERIFY(!tree.grid.GetNextRow(GCN_CHILD_NEXT, tree.c));
    QVERIFY(!tree.grid.GetNextRow(GCN_CHILD_NEXT, tree.d));
}

void tst_GridWalks::visibleParent_skipsHiddenAncestors()
{
    SmallTree tree;
    tag_HROW * const deep = tree.grid.add("e", tree.grid.add("x", tree.b));
    QCOMPARE(tree.next(GCN_VISIBLE_PARENT, deep), QStringLiteral("x"));
    tree.grid.Expand(tree.b, GCE_COLLAPSE);
    QCOMPARE(tree.next(GCN_VISIBLE_PARENT, deep), QStringLiteral("b"));
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    QCOMPARE(tree.next(GCN_VISIBLE_PARENT, deep), QStringLiteral("a"));
    QCOMPARE(tree.next(GCN_PARENT, deep), QStringLiteral("x"));
}

void tst_GridWalks::visiblePrevious()
{
    SmallTree tree;
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    QCOMPARE(tree.next(GCN_VISIBLE_PREV, tree.d), QStringLiteral("a"));
    QVERIFY(!tree.grid.GetNextRow(GCN_VISIBLE_PREV, tree.b)); // out of the order
}

void tst_GridWalks::begin_keepsTheSteppingFlag_data()
{
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<QString>("rows");
    QTest::newRow("children") << unsigned(GCN_CHILD_FIRST) << "b c";
    QTest::newRow("shown") << unsigned(GCN_SHOWN_FIRST) << "a b c d";
    QTest::newRow("selected") << unsigned(GCN_SELECTED_FIRST) << "b";
    QTest::newRow("visible") << unsigned(GCN_VISIBLE_FIRST) << "a b c d";
    QTest::newRow("parent, one row") << unsigned(GCN_PARENT) << "root";
    QTest::newRow("focused, one row") << unsigned(GCN_FOCUSED) << "b";
    QTest::newRow("previous sibling, one row") << unsigned(GCN_CHILD_PREV) << "-";
    QTest::newRow("unknown") << 99u << "";
}

void tst_GridWalks::begin_keepsTheSteppingFlag()
{
    QFETCH(unsigned, flags);
    QFETCH(QString, rows);
    SmallTree tree;
    QVERIFY(tree.grid.showSized(100, 200));
    tree.grid.ClearSelection();
    tree.grid.SetRowSel(tree.b, true);
    QString const walked = tree.grid.walk(flags, tree.a);
    QCOMPARE(walked, rows == u'-' ? QString() : rows);
    QVERIFY(*tree.grid.end() == nullptr);
}

void tst_GridWalks::begin_withANextFlag_stopsAfterOneRow()
{
    SmallTree tree;
    tag_HROW * const first = tree.grid.GetNextRow(GCN_ALL_FIRST);
    auto walk = tree.grid.begin(GCN_ALL_NEXT, first);
    QVERIFY(*walk);
    ++walk;
    QVERIFY(walk == tree.grid.end());
}

void tst_GridWalks::equality_looksAtTheRowAlone()
{
    SmallTree tree;
    QVERIFY(tree.grid.begin(GCN_CHILD_FIRST, tree.a) != tree.grid.begin(GCN_CHILD_NEXT, tree.a));
    auto const children = tree.grid.begin(GCN_CHILD_FIRST, GC_ROOT);
    auto const visible = tree.grid.begin(GCN_VISIBLE_FIRST);
    QVERIFY(children == visible);
    QVERIFY(!(children != visible));
    SmallTree const other;
    QVERIFY(other.grid.end() == tree.grid.end());
}

void tst_GridWalks::plus_stepsOn_andNotForLessThanOne()
{
    SmallTree tree;
    auto const begin = tree.grid.begin(GCN_VISIBLE_FIRST);
    for (int const none : {0, -1, INT_MIN}) {
        QCOMPARE(*(begin + none), tree.a);
    }
    QCOMPARE(*(begin + 2), tree.c);
    auto const other = tree.grid.begin(GCN_VISIBLE_FIRST);
    QVERIFY(other + 99 == tree.grid.end());
    auto walk = tree.grid.begin(GCN_VISIBLE_FIRST);
    QCOMPARE(*walk++, tree.a);
    QCOMPARE(*walk, tree.b);
    KGridCtrl::iterator const none;
    QVERIFY(++KGridCtrl::iterator(none) == none);
}

void tst_GridWalks::standardAlgorithms_takeTheWalk()
{
    SmallTree const tree;
    QCOMPARE(std::distance(tree.grid.begin(GCN_CHILD_FIRST, GC_ROOT), tree.grid.end()), 2);
    std::vector<tag_HROW *> const rows(tree.grid.begin(GCN_VISIBLE_FIRST), tree.grid.end());
    QCOMPARE(rows, (std::vector<tag_HROW *>{tree.a, tree.b, tree.c, tree.d}));
}

void tst_GridWalks::locator_staleHandle_isRefused()
{
    SmallTree tree;
    tree.grid.DeleteRow(tree.b);
    GC_ROW record;
    QVERIFY(!tree.grid.GetRow(tree.b, &record));
    QVERIFY(tree.grid.GetRow(tree.c, &record));
}

void tst_GridWalks::locator_switches_onlyWhileEmpty()
{
    SmallTree tree;
    QCOMPARE(tree.grid.SetGridExStyle(GCXS_FASTLOCATOR), 0ul);
    QCOMPARE(tree.grid.GetGridExStyle(), static_cast<unsigned long>(GCXS_FASTLOCATOR));
    GC_ROW record;
    QVERIFY(!tree.grid.GetRow(reinterpret_cast<tag_HROW *>(&tree), &record)); // still safe
    tree.grid.DeleteAllRows();
    // The word has the bit already: the same word again changes nothing.
    QCOMPARE(tree.grid.SetGridExStyle(GCXS_FASTLOCATOR),
             static_cast<unsigned long>(GCXS_FASTLOCATOR));
    tree.grid.add("a");
    QVERIFY(!tree.grid.GetRow(reinterpret_cast<tag_HROW *>(&tree), &record));
    tree.grid.DeleteAllRows();
    tree.grid.SetGridExStyle(0);
    tree.grid.SetGridExStyle(GCXS_FASTLOCATOR);
    tag_HROW * const row = tree.grid.add("b");
    QVERIFY(tree.grid.GetRow(row, &record));
    QCOMPARE(tree.grid.GetRowCount(), 1u);
}

void tst_GridWalks::locator_fast_countsAndWalks()
{
    SmallTree tree(GCXS_FASTLOCATOR);
    QCOMPARE(tree.grid.GetRowCount(), 4u);
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    QCOMPARE(tree.grid.walk(GCN_ALL_FIRST), QStringLiteral("a b c d"));
    tree.grid.DeleteRow(tree.a);
    QCOMPARE(tree.grid.GetRowCount(), 1u);
    QVERIFY(!tree.grid.GetNextRow(GCN_PARENT, nullptr));
    tree.grid.DeleteAllRows();
    QCOMPARE(tree.grid.GetRowCount(), 0u);
    QVERIFY(!tree.grid.GetNextRow(GCN_ALL_FIRST));
}

void tst_GridWalks::locator_fast_loadsWhileItWalks()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11, 12};
    grid.SetGridExStyle(GCXS_FASTLOCATOR);
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    grid.ResetSlimRow(slim);
    source.calls.clear();
    QCOMPARE(grid.walk(GCN_ALL_FIRST), QStringLiteral("s1 s11 s12"));
    QCOMPARE(source.taken(), QStringLiteral("count 1; rows 1; created 1"));
    QCOMPARE(grid.GetRowCount(), 3u);
}

ZENU_TEST(tst_GridWalks)
#include "tst_GridWalks.moc"
