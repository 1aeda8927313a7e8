#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::SlimTree;
using zenutest::TestGrid;

namespace {

// a (b (c) d) e, and a walk of each kind under way.
struct Walked
{
    Walked()
    {
        grid.addColumns({50});
        a = grid.add("a");
        b = grid.add("b", a);
        c = grid.add("c", b);
        d = grid.add("d", a);
        e = grid.add("e");
        tag_HROW * chosen[] = {a, b, c, d, e};
        grid.SelectRows(5, chosen);
        grid.UpdateVisibleRows();
        for (tag_HROW * const parent : {GC_ROOT, a, b}) {
            grid.GetNextRow(GCN_CHILD_FIRST, parent);
        }
        all = grid.GetNextRow(GCN_ALL_FIRST);
        selected = grid.GetNextRow(GCN_SELECTED_FIRST);
        visible = grid.GetNextRow(GCN_VISIBLE_FIRST);
    }
    // Which walks go on, each by a letter; digits are the walks over children.
    QString goingOn() const
    {
        KGridCtrl::PrivateData const & frame = grid.GetPriv();
        bool const isClean = !frame.IsDirty();
        QString text = frame.rootChildWalk ? QStringLiteral("root ") : QString();
        text += QString::number(frame.childWalks.size());
        text += QLatin1String(grid.GetNextRow(GCN_ALL_NEXT, all) ? " all" : "");
        text += QLatin1String(grid.GetNextRow(GCN_SELECTED_NEXT, selected) ? " selected" : "");
        text += QLatin1String(grid.GetNextRow(GCN_VISIBLE_NEXT, visible) ? " visible" : "");
        return text + QLatin1String(isClean ? " clean" : "");
    }
    TestGrid grid;
    tag_HROW *a, *b, *c, *d, *e;
    tag_HROW *all, *selected, *visible;
};

} // namespace

// What a change of the tree leaves behind, what it leaves alone, and what the calls that it makes
// find.
class tst_GridTreeChanges : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void walks_goOnOrEndWithTheChange_data();
    void walks_goOnOrEndWithTheChange();
    void slimReset_endsItsWalks();
    void slimReset_ofRowsNotSelected_leavesTheSelectionWalk();
    void childWalk_begunBeforeALoad_goesOnOverTheLoadedRows();
    void childWalk_droppedByTheLoadThatItCauses_isBorne();
    void childWalk_ofARowWithoutChildren_isNotKept();
    void insert_recordWithFocus_findsTheRowInTheOrder();
    void insert_recordThatIsReadOnTheWay_isSortedAnewAfterwards();
    void slimBatch_isInTheOrderInItsCall_andSortedAnewAfterwards();
    void slimCalls_nameTheParent();
    void delete_ofTheFocusedRow_paintsNothing();
    void expanding_comesBeforeAnyChange();
    void expand_vetoed_leavesWalksOrderAndPicture();
    void expand_anExpandedRow_sendsOnExpandingAndNothingElse();
    void expanded_findsTheNewOrder();
    void expand_aCollapsedRow_leavesTheFocusBelowIt();
    void collapseAll_withoutFocusedColumn_leavesTheFocus();
    void fastLocator_withRows_isNotTaken_yetTheWordShowsTheBit();
};

void tst_GridTreeChanges::walks_goOnOrEndWithTheChange_data()
{
    using Change = std::function<void(Walked &)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("goingOn");
    auto const add = [](char const * name, char const * goingOn, Change const & change) {
        QTest::newRow(name) << change << QString::fromLatin1(goingOn);
    };
    add("nothing", "root 2 all selected visible clean", [](Walked &) {});
    add("a row at the top", "2 selected",
        [](Walked & tree) { tree.grid.InsertRow(GC_ROOT, GCI_LAST); });
    add("a row under a parent", "root 1 selected",
        [](Walked & tree) { tree.grid.InsertRow(tree.a, GCI_LAST); });
    add("a section", "2 selected",
        [](Walked & tree) { tree.grid.InsertSection(nullptr, GCI_LAST); });
    add("a slim row at the top", "2 selected",
        [](Walked & tree) { tree.grid.InsertSlimRow(1, false, GC_ROOT, GCI_LAST); });
    add("a slim row under a parent", "root 1 selected",
        [](Walked & tree) { tree.grid.InsertSlimRow(1, false, tree.b, GCI_LAST); });
    add("a batch of no rows", "2 all selected",
        [](Walked & tree) { tree.grid.InsertSlimRows(0, nullptr, GC_ROOT, GCI_LAST); });
    add("rows that find no place", "root 2 all selected visible clean", [](Walked & tree) {
        tree.grid.InsertRow(tree.a, tree.e);
        tree.grid.InsertRow(GC_ROOT, tree.b);
        tree.grid.InsertRow(static_cast<tag_HROW *>(nullptr), GCI_LAST);
        tree.grid.InsertSection(nullptr, tree.b);
        tree.grid.InsertSlimRow(1, false, nullptr, GCI_LAST);
    });
    add("a slim row that finds no place", "root 2 selected visible clean",
        [](Walked & tree) { tree.grid.InsertSlimRow(1, false, tree.a, tree.e); });
    add("deletion at the top, of a whole branch", "0",
        [](Walked & tree) { tree.grid.DeleteRow(tree.a); });
    add("deletion under a parent", "root 1", [](Walked & tree) { tree.grid.DeleteRow(tree.d); });
    add("deletion of a row that is not selected", "root 1 selected", [](Walked & tree) {
        tree.grid.SetRowSel(tree.c, false);
        tree.selected = tree.grid.GetNextRow(GCN_SELECTED_FIRST);
        tree.grid.DeleteRow(tree.c);
    });
    add("deletion of all rows", "0", [](Walked & tree) { tree.grid.DeleteAllRows(); });
    add("a collapse", "root 1 all selected",
        [](Walked & tree) { tree.grid.Expand(tree.a, GCE_COLLAPSE | GCE_NOSCROLL); });
    add("a collapse of all", "root 0 all selected",
        [](Walked & tree) { tree.grid.Expand(nullptr, GCE_COLLAPSEALL); });
    add("an expansion of all that are expanded", "root 2 all selected visible clean",
        [](Walked & tree) { tree.grid.Expand(nullptr, GCE_EXPANDALL); });
    add("a sort", "root 2 all selected", [](Walked & tree) { tree.grid.Sort(nullptr); });
    add("a height", "root 2 all selected",
        [](Walked & tree) { tree.grid.SetRowHeight(tree.e, 40); });
}

void tst_GridTreeChanges::walks_goOnOrEndWithTheChange()
{
    QFETCH(std::function<void(Walked &)>, change);
    QFETCH(QString, goingOn);
    Walked tree;
    change(tree);
    // An expansion reads the order in its end, which is clean then.
    QString const found = tree.goingOn();
    QCOMPARE(QString(found).remove(QStringLiteral(" clean")),
             QString(goingOn).remove(QStringLiteral(" clean")));
    if (goingOn.contains(QStringLiteral("clean"))) {
        QVERIFY(found.endsWith(QStringLiteral("clean")));
    }
    QCOMPARE(zenutest::checkGrid(tree.grid), QString());
}

void tst_GridTreeChanges::slimReset_endsItsWalks()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11, 12};
    source.tree[11] = {111};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    tag_HROW * const other = grid.add("o");
    tag_HROW * const last = grid.add("l");
    grid.Expand(nullptr, GCE_EXPANDALL);
    tag_HROW * const child = grid.GetNextRow(GCN_CHILD_FIRST, slim);
    tag_HROW * chosen[] = {other, last, grid.GetNextRow(GCN_CHILD_FIRST, child)};
    grid.SelectRows(3, chosen);
    KGridCtrl::PrivateData const & frame = grid.GetPriv();
    QCOMPARE(frame.childWalks.size(), std::size_t(2));
    tag_HROW * const all = grid.GetNextRow(GCN_ALL_FIRST);
    tag_HROW * const selected = grid.GetNextRow(GCN_SELECTED_FIRST);
    QVERIFY(grid.ResetSlimRow(slim));
    QVERIFY(frame.childWalks.empty());
    QVERIFY(!grid.GetNextRow(GCN_ALL_NEXT, all));
    QVERIFY(!grid.GetNextRow(GCN_SELECTED_NEXT, selected));
    QCOMPARE(grid.GetSelectedCount(), 2u);
}

void tst_GridTreeChanges::slimReset_ofRowsNotSelected_leavesTheSelectionWalk()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11, 12};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    tag_HROW * chosen[] = {slim, grid.add("o")};
    grid.SelectRows(2, chosen);
    tag_HROW * const selected = grid.GetNextRow(GCN_SELECTED_FIRST);
    QVERIFY(grid.ResetSlimRow(slim));
    QVERIFY(grid.GetNextRow(GCN_SELECTED_NEXT, selected));
}

void tst_GridTreeChanges::childWalk_begunBeforeALoad_goesOnOverTheLoadedRows()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    grid.ResetSlimRow(slim);
    source.tree[1] = {}; // none at the moment
    QVERIFY(!grid.GetNextRow(GCN_CHILD_FIRST, slim));
    source.tree[1] = {21, 22, 23};
    grid.Sort(nullptr);
    QCOMPARE(grid.order(), QStringLiteral("s1 s21 s22 s23"));
    tag_HROW * const first = grid.GetNextRow(GCN_VISIBLE_NEXT, grid.GetNextRow(GCN_VISIBLE_FIRST));
    tag_HROW * const second = grid.GetNextRow(GCN_CHILD_NEXT, first);
    QCOMPARE(grid.name(second), QStringLiteral("s22"));
    QCOMPARE(grid.name(grid.GetNextRow(GCN_CHILD_NEXT, second)), QStringLiteral("s23"));
    QCOMPARE(grid.GetNextRow(GCN_CHILD_PREV, second), first);
}

void tst_GridTreeChanges::childWalk_droppedByTheLoadThatItCauses_isBorne()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    grid.ResetSlimRow(slim);
    source.act = [&](char const * what, tag_HROW * row, long) {
        if (qstrcmp(what, "created") == 0 && row == slim) {
            grid.Expand(slim, GCE_COLLAPSE);
            grid.Expand(nullptr, GCE_EXPANDALL);
        }
    };
    QCOMPARE(grid.name(grid.GetNextRow(GCN_CHILD_FIRST, slim)), QStringLiteral("s11"));
    source.act = nullptr;
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridTreeChanges::childWalk_ofARowWithoutChildren_isNotKept()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    for (tag_HROW * const row : grid.addMany(100, parent)) {
        QVERIFY(!grid.GetNextRow(GCN_CHILD_FIRST, row));
    }
    QVERIFY(grid.GetPriv().childWalks.empty());
    QVERIFY(grid.GetNextRow(GCN_CHILD_FIRST, parent));
    QCOMPARE(grid.GetPriv().childWalks.size(), std::size_t(1));
}

void tst_GridTreeChanges::insert_recordWithFocus_findsTheRowInTheOrder()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetRowSel(grid.add("a"), true);
    grid.UpdateVisibleRows();
    GC_ROW record;
    record.mask = GCRM_STATE;
    record.parent = GC_ROOT;
    record.stateMask = record.state = GCRS_FOCUSED;
    tag_HROW * const row = grid.InsertRow(&record, GCI_LAST);
    QCOMPARE(grid.GetNextRow(GCN_FOCUSED), row);
}

void tst_GridTreeChanges::insert_recordThatIsReadOnTheWay_isSortedAnewAfterwards()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetRowSel(grid.add("b"), true);
    grid.add("d");
    grid.Sort(grid.firstColumn(), true);
    GC_ROW record;
    record.mask = GCRM_STATE;
    record.parent = GC_ROOT;
    record.stateMask = record.state = GCRS_FOCUSED; // which reads where the row stands
    for (char const * const text : {"c", "e", "a"}) {
        grid.SetItemText(grid.InsertRow(&record, GCI_LAST), grid.firstColumn(), text);
    }
    QCOMPARE(grid.order(), QStringLiteral("a b c d e"));
}

void tst_GridTreeChanges::slimBatch_isInTheOrderInItsCall_andSortedAnewAfterwards()
{
    TestGrid grid;
    SlimTree source;
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    grid.InsertSlimRow(5, false, GC_ROOT, GCI_LAST);
    grid.Sort(grid.firstColumn(), true);
    grid.UpdateVisibleRows();
    QString during;
    source.act = [&](char const * what, tag_HROW *, long) {
        if (qstrcmp(what, "created") == 0) {
            during = grid.order();
            grid.SetRowParam(source.created[0].row, 9); // another text, which no one is told of
        }
    };
    std::vector<GC_SLIMROWDATA> records(2);
    records[0].param = 1;
    records[1].param = 2;
    QVERIFY(grid.InsertSlimRows(2, records.data(), GC_ROOT, GCI_LAST));
    source.act = nullptr;
    QCOMPARE(during, QStringLiteral("s1 s2 s5"));
    QCOMPARE(grid.order(), QStringLiteral("s2 s5 s9"));
}

void tst_GridTreeChanges::slimCalls_nameTheParent()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const ordinary = grid.add("o");
    grid.SetRowParam(ordinary, 42);
    std::vector<std::pair<tag_HROW *, long>> told;
    source.act = [&](char const * what, tag_HROW * row, long param) {
        if (qstrcmp(what, "created") == 0 || qstrcmp(what, "deleted") == 0) {
            told.emplace_back(row, param);
        }
    };
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.InsertSlimRow(2, false, ordinary, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    grid.ResetSlimRow(slim);
    source.act = nullptr;
    // The child that may have children is emptied before its parent.
    QCOMPARE(told.size(), std::size_t(5));
    QCOMPARE(told[0], std::make_pair(GC_ROOT, 0L));
    QCOMPARE(told[1], std::make_pair(ordinary, 42L));
    QCOMPARE(told[2], std::make_pair(slim, 1L));
    QCOMPARE(told[3].second, 11L);
    QCOMPARE(told[4], std::make_pair(slim, 1L));
}

void tst_GridTreeChanges::delete_ofTheFocusedRow_paintsNothing()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    grid.SetRowSel(rows[1], true);
    QVERIFY(grid.showSized(100, 100));
    grid.takePainted();
    QVERIFY(grid.DeleteRow(rows[1]));
    QVERIFY(grid.takePainted().isEmpty());
    QCOMPARE(grid.focus(), QStringLiteral("-/-"));
}

void tst_GridTreeChanges::expanding_comesBeforeAnyChange()
{
    Walked tree;
    tree.grid.SetRowSel(tree.c, true);
    Notes notes(&tree.grid);
    int asked = 0;
    notes.expanding = [&](tag_HROW * row) {
        ++asked;
        return rowHasState(tree.grid, row, GCRS_EXPANDED) &&
               tree.grid.GetNextRow(GCN_FOCUSED) == tree.c && tree.grid.GetExpandedCount() == 5;
    };
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    QCOMPARE(asked, 1);
    QVERIFY(!rowHasState(tree.grid, tree.a, GCRS_EXPANDED));
}

void tst_GridTreeChanges::expand_vetoed_leavesWalksOrderAndPicture()
{
    for (unsigned const code : {0u, 1u, 2u, 3u, 4u, 77u}) {
        Walked tree;
        QVERIFY(tree.grid.showSized(100, 200));
        tree.visible = tree.grid.GetNextRow(GCN_VISIBLE_FIRST);
        Notes notes(&tree.grid);
        notes.allowExpand = false;
        QVERIFY(tree.grid.Expand(tree.a, code));
        QVERIFY(tree.grid.takePainted().isEmpty());
        QCOMPARE(tree.goingOn(), QStringLiteral("root 2 all selected visible clean"));
    }
}

void tst_GridTreeChanges::expand_anExpandedRow_sendsOnExpandingAndNothingElse()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {11};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    tag_HROW * const ordinary = grid.add("o");
    grid.add("c", ordinary);
    grid.Expand(slim, GCE_EXPAND);
    QVERIFY(grid.showSized(100, 200));
    source.calls.clear();
    Notes notes(&grid);
    for (tag_HROW * const row : {slim, ordinary}) {
        tag_HROW * const visible = grid.GetNextRow(GCN_VISIBLE_FIRST);
        QVERIFY(grid.Expand(row, GCE_EXPAND));
        QCOMPARE(notes.taken(), QStringLiteral("expanding ") + grid.name(row));
        QVERIFY(grid.GetNextRow(GCN_VISIBLE_NEXT, visible)); // the order stays
    }
    QCOMPARE(source.taken(), QString());
}

void tst_GridTreeChanges::expanded_findsTheNewOrder()
{
    Walked tree;
    Notes notes(&tree.grid);
    QStringList orders;
    notes.act = [&](char const * what, tag_HROW * row) {
        if (qstrcmp(what, "expanded") == 0) {
            orders << tree.grid.name(row) + QStringLiteral(": ") + tree.grid.order();
        }
    };
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    tree.grid.Expand(tree.a, GCE_TOGGLE);
    tree.grid.Expand(nullptr, GCE_COLLAPSEALL);
    tree.grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(orders.join(u','), QStringLiteral("a: a e,a: a b c d e,a: a e,b: a e,"
                                               "a: a b c d e,b: a b c d e"));
}

void tst_GridTreeChanges::expand_aCollapsedRow_leavesTheFocusBelowIt()
{
    Walked tree;
    tree.grid.SetRowSel(tree.c, true);
    tree.grid.GetPriv().focusColumn = -1; // or the collapse would move it
    tree.grid.Expand(tree.a, GCE_COLLAPSE);
    tree.grid.SetFocusedColumn(tree.grid.firstColumn());
    tree.grid.Expand(tree.a, GCE_EXPAND);
    QCOMPARE(tree.grid.focus(), QStringLiteral("c/0"));
}

void tst_GridTreeChanges::collapseAll_withoutFocusedColumn_leavesTheFocus()
{
    Walked tree;
    tree.grid.SetRowSel(tree.c, true);
    tree.grid.GetPriv().focusColumn = -1;
    tree.grid.Expand(nullptr, GCE_COLLAPSEALL);
    QCOMPARE(tree.grid.GetNextRow(GCN_FOCUSED), tree.c);
}

void tst_GridTreeChanges::fastLocator_withRows_isNotTaken_yetTheWordShowsTheBit()
{
    Walked tree;
    QCOMPARE(tree.grid.SetGridExStyle(GCXS_FASTLOCATOR), 0ul);
    QCOMPARE(tree.grid.GetGridExStyle(), static_cast<unsigned long>(GCXS_FASTLOCATOR));
    GC_ROW record;
    QVERIFY(!tree.grid.GetRow(reinterpret_cast<tag_HROW *>(&tree), &record)); // found out
    QCOMPARE(tree.goingOn(), QStringLiteral("root 2 all selected visible clean"));
}

ZENU_TEST(tst_GridTreeChanges)
#include "tst_GridTreeChanges.moc"
