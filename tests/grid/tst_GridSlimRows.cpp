#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::Notes;
using zenutest::SlimTree;
using zenutest::TestGrid;

namespace {

// s1 (s11 (s111 s112) s12) with a callback.
struct Slim
{
    Slim()
    {
        source.tree[1] = {11, 12};
        source.tree[11] = {111, 112};
        grid.addColumns({50, 60});
        grid.SetSlimGridCallback(&source);
        top = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
        grid.UpdateVisibleRows();
        source.calls.clear();
    }
    SlimTree source;
    TestGrid grid;
    tag_HROW * top;

    tag_HROW * child(tag_HROW * row, int index = 0) const
    {
        tag_HROW * found = grid.GetNextRow(GCN_CHILD_FIRST, row);
        for (int i = 0; i < index; ++i) {
            found = grid.GetNextRow(GCN_CHILD_NEXT, found);
        }
        return found;
    }
};

GC_ROW stateOf(TestGrid const & grid, tag_HROW * row)
{
    GC_ROW record;
    record.height = 4711;
    grid.GetRow(row, &record);
    return record;
}

} // namespace

class tst_GridSlimRows : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void created_isCollapsed_andLoadsNothing();
    void expand_loadsOneLevel();
    void expand_countOfZero_staysCollapsedWithoutBlock();
    void expand_nonsenseCounts_data();
    void expand_nonsenseCounts();
    void level_oneWithChildren_makesAllSiblingsLarge();
    void level_withoutChildren_isLonely();
    void recordLeftAtItsDefaults_isARowOfParamZero();
    void heightInARecord_switchesTheOrder();
    void get_heightIsNotReadForLargeRows();
    void collapse_keepsTheChildren();
    void reset_forgetsTheChildren_andTells();
    void reset_depthFirst_tellsEachLevel();
    void reset_expandedRow_loadsAgainWithNewHandles();
    void reset_collapsedRow_forgetsEntirely();
    void reset_selectionFocusAndHeightsGo();
    void reset_countNow_isAskedAgain();
    void reset_ofOtherRows_isFalse();
    void callback_isAskedFreshEachTime();
    void paint_bracketsAndOrder();
    void items_canNotBeSet();
    void loadingRow_askedAboutItself_hasNoChildren();
    void million_inOneLevel();
};

void tst_GridSlimRows::created_isCollapsed_andLoadsNothing()
{
    Slim slim;
    QCOMPARE(slim.grid.order(), QStringLiteral("s1"));
    QVERIFY(slim.grid.showSized(100, 100));
    QCOMPARE(slim.source.taken(), QString());
    slim.grid.ClearSelection(); // the focus, which came with the window, has selected the row
    QCOMPARE(stateOf(slim.grid, slim.top).state,
             unsigned(GCRS_VISIBLE | GCRS_HASCHILDREN | GCRS_FOCUSED));
}

void tst_GridSlimRows::expand_loadsOneLevel()
{
    Slim slim;
    slim.grid.Expand(slim.top, GCE_EXPAND);
    QCOMPARE(slim.source.taken(), QStringLiteral("count 1; rows 1; created 1"));
    QCOMPARE(slim.source.created.size(), std::size_t(2));
    QCOMPARE(slim.source.created[1].row, slim.child(slim.top, 1));
    QCOMPARE(slim.source.created[1].param, 12L);
    QCOMPARE(slim.grid.order(), QStringLiteral("s1 s11 s12"));
    QCOMPARE(slim.grid.GetRowCount(), 3u);
    QCOMPARE(slim.grid.GetRowParam(slim.child(slim.top)), 11ul);
    QCOMPARE(zenutest::checkGrid(slim.grid), QString());
}

void tst_GridSlimRows::expand_countOfZero_staysCollapsedWithoutBlock()
{
    Slim slim;
    slim.source.tree.clear();
    Notes notes(&slim.grid);
    slim.grid.Expand(slim.top, GCE_EXPAND);
    QVERIFY(!(stateOf(slim.grid, slim.top).state & GCRS_EXPANDED));
    QVERIFY(!static_cast<CGCSlimRow *>(slim.grid.GetPriv().LocateRow(slim.top))->SubRows());
    QCOMPARE(slim.source.taken(), QStringLiteral("count 1"));
    QCOMPARE(notes.taken(), QStringLiteral("expanding s1; expanded s1")); // it was not expanded
}

void tst_GridSlimRows::expand_nonsenseCounts_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("negative") << -1;
    QTest::newRow("smallest") << INT_MIN;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("beyond what a level can hold") << (1 << 28) + 1;
}

void tst_GridSlimRows::expand_nonsenseCounts()
{
    QFETCH(int, count);
    Slim slim;
    slim.source.countOf = [=](long) { return count; };
    QVERIFY(slim.grid.Expand(slim.top, GCE_EXPAND));
    QVERIFY(slim.grid.Expand(nullptr, GCE_EXPANDALL));
    QCOMPARE(slim.grid.GetRowCount(), 1u);
    QCOMPARE(slim.grid.order(), QStringLiteral("s1"));
    QVERIFY(!(stateOf(slim.grid, slim.top).state & GCRS_EXPANDED));
}

void tst_GridSlimRows::level_oneWithChildren_makesAllSiblingsLarge()
{
    Slim slim;
    slim.source.lonely = {12};
    slim.grid.Expand(slim.top, GCE_EXPAND);
    KGridCtrl::PrivateData & frame = slim.grid.GetPriv();
    QVERIFY(dynamic_cast<CGCSlimRow *>(frame.LocateRow(slim.child(slim.top, 1))));
    // The sibling without children says so when it is asked.
    slim.grid.Expand(slim.child(slim.top, 1), GCE_EXPAND);
    QCOMPARE(slim.grid.order(), QStringLiteral("s1 s11 s12"));
}

void tst_GridSlimRows::level_withoutChildren_isLonely()
{
    Slim slim;
    slim.source.lonely = {11, 12};
    slim.grid.Expand(slim.top, GCE_EXPAND);
    KGridCtrl::PrivateData & frame = slim.grid.GetPriv();
    tag_HROW * const child = slim.child(slim.top);
    QVERIFY(dynamic_cast<CGCLonelySlimRow *>(frame.LocateRow(child)));
    slim.source.calls.clear();
    QVERIFY(slim.grid.Expand(child, GCE_EXPAND));
    QVERIFY(!slim.grid.ResetSlimRow(child));
    QVERIFY(!slim.grid.DeleteRow(child));
    QCOMPARE(slim.source.taken(), QString());
    QCOMPARE(stateOf(slim.grid, child).state, unsigned(GCRS_VISIBLE));
}

void tst_GridSlimRows::recordLeftAtItsDefaults_isARowOfParamZero()
{
    Slim slim;
    slim.source.countOf = [](long) { return 4; }; // GetSubRows fills two of them
    slim.grid.Expand(slim.top, GCE_EXPAND);
    QCOMPARE(slim.grid.order(), QStringLiteral("s1 s11 s12 s0 s0"));
    QCOMPARE(zenutest::checkGrid(slim.grid), QString());
}

void tst_GridSlimRows::heightInARecord_switchesTheOrder()
{
    Slim slim;
    slim.source.heights[12] = 55;
    slim.grid.Expand(slim.top, GCE_EXPAND);
    QVERIFY(slim.grid.GetPriv().HasExplicitHeights());
    QCOMPARE(slim.grid.GetRowHeight(slim.child(slim.top, 1)), 55u);
    QCOMPARE(slim.grid.contentsHeight(), 2 * slim.grid.rowHeight() + 55 + slim.grid.headerHeight());
    slim.grid.ResetSlimRow(slim.top);
    QVERIFY(!slim.grid.GetPriv().HasExplicitHeights());
}

void tst_GridSlimRows::get_heightIsNotReadForLargeRows()
{
    Slim slim;
    QCOMPARE(stateOf(slim.grid, slim.top).height, 4711);
    tag_HROW * const lonely = slim.grid.InsertSlimRow(2, false, GC_ROOT, GCI_LAST, 31);
    QCOMPARE(stateOf(slim.grid, lonely).height, 31);
    GC_ROW record;
    QVERIFY(!slim.grid.GetRow(lonely, &record)); // filled, and yet false
    QCOMPARE(record.param, 2ul);
    QCOMPARE(record.parent, GC_ROOT);
    QCOMPARE(slim.grid.GetRowTextColor(lonely), QColor(Qt::black));
}

void tst_GridSlimRows::collapse_keepsTheChildren()
{
    Slim slim;
    slim.grid.Expand(slim.top, GCE_EXPAND);
    tag_HROW * const child = slim.child(slim.top);
    slim.grid.Expand(slim.top, GCE_COLLAPSE);
    QCOMPARE(slim.grid.order(), QStringLiteral("s1"));
    QCOMPARE(slim.grid.GetRowCount(), 3u);
    slim.source.calls.clear();
    slim.grid.Expand(slim.top, GCE_EXPAND);
    QCOMPARE(slim.child(slim.top), child);
    QCOMPARE(slim.source.taken(), QString());
}

void tst_GridSlimRows::reset_forgetsTheChildren_andTells()
{
    Slim slim;
    slim.grid.Expand(slim.top, GCE_EXPAND);
    tag_HROW * const child = slim.child(slim.top);
    slim.grid.Expand(slim.top, GCE_COLLAPSE);
    slim.source.calls.clear();
    QVERIFY(slim.grid.ResetSlimRow(slim.top));
    QCOMPARE(slim.source.calls.last(), QStringLiteral("deleted 1"));
    QCOMPARE(slim.source.deleted.size(), std::size_t(2));
    QCOMPARE(slim.source.deleted[0].row, child);
    QCOMPARE(slim.source.deleted[0].param, 11L);
    GC_ROW record;
    QVERIFY(!slim.grid.GetRow(child, &record));
    QCOMPARE(slim.grid.GetRowParam(child), 0ul);
    QCOMPARE(slim.grid.GetRowCount(), 1u);
    QCOMPARE(zenutest::checkGrid(slim.grid), QString());
}

void tst_GridSlimRows::reset_depthFirst_tellsEachLevel()
{
    Slim slim;
    slim.source.lonely = {111, 112};
    slim.grid.Expand(nullptr, GCE_EXPANDALL);
    slim.source.calls.clear();
    QVERIFY(slim.grid.ResetSlimRow(slim.top));
    QCOMPARE(slim.source.taken(), QStringLiteral("deleted 11; deleted 12; deleted 1"));
    QCOMPARE(slim.source.deleted.size(), std::size_t(2));
}

void tst_GridSlimRows::reset_expandedRow_loadsAgainWithNewHandles()
{
    Slim slim;
    slim.grid.Expand(slim.top, GCE_EXPAND);
    slim.grid.UpdateVisibleRows();
    slim.source.tree[1] = {21, 22, 23};
    QVERIFY(slim.grid.ResetSlimRow(slim.top));
    QVERIFY(stateOf(slim.grid, slim.top).state & GCRS_EXPANDED);
    slim.source.calls.clear();
    QCOMPARE(slim.grid.GetExpandedCount(), 4u);
    QCOMPARE(slim.source.taken(), QStringLiteral("count 1; rows 1; created 1"));
    QCOMPARE(slim.grid.order(), QStringLiteral("s1 s21 s22 s23"));
    slim.grid.ResetSlimRow(slim.top);
    QCOMPARE(slim.grid.name(slim.grid.GetNextRow(GCN_CHILD_FIRST, slim.top)),
             QStringLiteral("s21")); // a walk over children loads as well
    QCOMPARE(zenutest::checkGrid(slim.grid), QString());
}

void tst_GridSlimRows::reset_collapsedRow_forgetsEntirely()
{
    Slim slim;
    slim.grid.Expand(slim.top, GCE_EXPAND);
    slim.grid.Expand(slim.top, GCE_COLLAPSE);
    slim.grid.ResetSlimRow(slim.top);
    slim.source.calls.clear();
    QCOMPARE(slim.grid.GetExpandedCount(), 1u);
    QVERIFY(!slim.grid.GetNextRow(GCN_CHILD_FIRST, slim.top));
    QCOMPARE(slim.source.taken(), QString());
}

void tst_GridSlimRows::reset_selectionFocusAndHeightsGo()
{
    Slim slim;
    slim.grid.Expand(nullptr, GCE_EXPANDALL);
    tag_HROW * const deep = slim.child(slim.child(slim.top));
    slim.grid.SetRowSel(deep, true);
    slim.grid.SetRowSel(slim.top, true);
    slim.grid.SetRowSel(slim.child(slim.top, 1), true);
    QCOMPARE(slim.grid.GetSelectedCount(), 3u);
    QCOMPARE(slim.grid.focus(), QStringLiteral("s12/0"));
    slim.grid.SetRowHeight(deep, 77);
    Notes notes(&slim.grid);
    slim.grid.ResetSlimRow(slim.top);
    QCOMPARE(slim.grid.selected(), QStringLiteral("s1"));
    QCOMPARE(slim.grid.focus(), QStringLiteral("-/-"));
    QVERIFY(!slim.grid.GetPriv().HasExplicitHeights());
    QVERIFY(!notes.calls.contains(QStringLiteral("selected")));
}

void tst_GridSlimRows::reset_countNow_isAskedAgain()
{
    Slim slim;
    slim.grid.Expand(slim.top, GCE_EXPAND);
    slim.grid.ResetSlimRow(slim.top);
    slim.source.tree.clear(); // the children are gone for good
    QCOMPARE(slim.grid.order(), QStringLiteral("s1"));
    QVERIFY(stateOf(slim.grid, slim.top).state & GCRS_EXPANDED); // the shell remembers
    QVERIFY(stateOf(slim.grid, slim.top).state & GCRS_HASCHILDREN);
    slim.source.tree[1] = {31};
    slim.grid.GetPriv().Invalidate();
    QCOMPARE(slim.grid.order(), QStringLiteral("s1 s31"));
}

void tst_GridSlimRows::reset_ofOtherRows_isFalse()
{
    Slim slim;
    tag_HROW * const ordinary = slim.grid.add("o");
    tag_HROW * const section = slim.grid.InsertSection(nullptr, GCI_LAST);
    tag_HROW * const lonely = slim.grid.InsertSlimRow(2, false, GC_ROOT, GCI_LAST);
    slim.source.calls.clear();
    for (tag_HROW * const row : {ordinary, section, lonely, static_cast<tag_HROW *>(nullptr),
                                 GC_ROOT, reinterpret_cast<tag_HROW *>(&slim)}) {
        QVERIFY(!slim.grid.ResetSlimRow(row));
    }
    QCOMPARE(slim.source.taken(), QString());
    // Never loaded: there is nothing to drop, and the application is told so.
    QVERIFY(slim.grid.ResetSlimRow(slim.top));
    QCOMPARE(slim.source.taken(), QStringLiteral("deleted 1"));
    QVERIFY(slim.source.deleted.empty());
}

void tst_GridSlimRows::callback_isAskedFreshEachTime()
{
    Slim slim;
    SlimTree other;
    other.tree[1] = {91};
    QCOMPARE(slim.grid.GetSlimGridCallback(), &slim.source);
    slim.grid.SetSlimGridCallback(&other);
    slim.grid.Expand(slim.top, GCE_EXPAND);
    QCOMPARE(slim.grid.order(), QStringLiteral("s1 s91"));
    slim.grid.SetSlimGridCallback(nullptr);
    QCOMPARE(slim.grid.GetItemText(slim.top, slim.grid.firstColumn()), std::string());
    QVERIFY(slim.grid.ResetSlimRow(slim.top));
    QCOMPARE(slim.grid.GetExpandedCount(), 1u);
}

namespace {

class PaintNotes : public SlimTree
{
public:
    void BeginPaint() override { calls << QStringLiteral("begin"); }
    void EndPaint() override { calls << QStringLiteral("end"); }
    void GetRowDrawInfo(GC_DRAWROWINFO *, tag_HROW *, long param, bool selected) override
    {
        calls << QStringLiteral("row %1%2").arg(param).arg(QLatin1String(selected ? " sel" : ""));
    }
    void ReleaseRowDrawInfo(GC_DRAWROWINFO *, tag_HROW *, long param) override
    {
        calls << QStringLiteral("release %1").arg(param);
    }
    void GetItemDrawInfo(GC_DRAWITEMINFO *, tag_HROW *, long param, tag_HCOLUMN * column,
                         int halfWidth, bool selected, bool focusCell) override
    {
        calls << QStringLiteral("item %1 of %2, %3%4%5")
                     .arg(reinterpret_cast<qintptr>(column))
                     .arg(param)
                     .arg(halfWidth)
                     .arg(QLatin1String(selected ? " sel" : ""),
                          QLatin1String(focusCell ? " focus" : ""));
    }
};

} // namespace

void tst_GridSlimRows::paint_bracketsAndOrder()
{
    PaintNotes source;
    TestGrid grid;
    grid.addColumns({51, 60});
    grid.SetSlimGridCallback(&source);
    grid.InsertSlimRow(1, false, GC_ROOT, GCI_LAST);
    tag_HROW * const second = grid.InsertSlimRow(2, false, GC_ROOT, GCI_LAST);
    QVERIFY(grid.showSized(200, 100));
    grid.ClearSelection();
    grid.SetRowSel(second, true);
    zenutest::settle();
    source.calls.clear();
    source.notesReads = true;
    grid.update();
    zenutest::settle();
    source.calls.removeAll(QStringLiteral("has 1"));
    source.calls.removeAll(QStringLiteral("has 2"));
    QCOMPARE(source.taken(),
             QStringLiteral("begin; row 1; item 0 of 1, 25; text 1; item 1 of 1, 30; text 1; "
                            "release 1; row 2 sel; item 0 of 2, 25 sel focus; text 2; "
                            "item 1 of 2, 30 sel; text 2; release 2; end"));
    grid.DeleteAllRows();
    zenutest::settle();
    source.calls.clear();
    grid.update();
    zenutest::settle();
    QCOMPARE(source.taken(), QStringLiteral("begin; end"));
}

void tst_GridSlimRows::items_canNotBeSet()
{
    Slim slim;
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = const_cast<char *>("x");
    QVERIFY(!slim.grid.SetItem(slim.top, slim.grid.firstColumn(), &item));
    QVERIFY(!slim.grid.GetItem(slim.top, slim.grid.firstColumn(), &item));
    QCOMPARE(slim.grid.GetItemText(slim.top, slim.grid.firstColumn()), std::string("s1"));
    QCOMPARE(slim.grid.GetItemTextLen(slim.top, slim.grid.firstColumn()), 2);
    QVERIFY(slim.grid.SetRowParam(slim.top, 9));
    QCOMPARE(slim.grid.GetItemText(slim.top, slim.grid.firstColumn()), std::string("s9"));
}

void tst_GridSlimRows::loadingRow_askedAboutItself_hasNoChildren()
{
    Slim slim;
    int calls = 0;
    slim.source.act = [&](char const * what, tag_HROW * row, long) {
        if (qstrcmp(what, "text") == 0 || qstrcmp(what, "has") == 0 || ++calls > 20) {
            return;
        }
        slim.grid.Expand(row, GCE_EXPAND); // again, from within
        slim.grid.GetNextRow(GCN_CHILD_FIRST, row);
        slim.grid.DeleteRow(row);
        slim.grid.ResetSlimRow(row);
        slim.grid.DeleteAllRows();
        slim.grid.Reset();
    };
    QVERIFY(slim.grid.Expand(slim.top, GCE_EXPAND));
    QCOMPARE(slim.grid.order(), QStringLiteral("s1 s11 s12"));
    QCOMPARE(zenutest::checkGrid(slim.grid), QString());
    slim.source.act = nullptr;
    QVERIFY(slim.grid.DeleteRow(slim.top));
}

void tst_GridSlimRows::million_inOneLevel()
{
    Slim slim;
    constexpr int count = 1000000;
    slim.source.countOf = [](long) { return count; };
    slim.grid.Expand(slim.top, GCE_EXPAND);
    QCOMPARE(slim.grid.GetRowCount(), static_cast<unsigned>(count + 1));
    QVERIFY(slim.grid.showSized(100, 100));
    slim.grid.OnScroll(-1, 4, 0, true);
    zenutest::settle();
    tag_HROW * const last = slim.grid.GetBottomIndex();
    QVERIFY(last);
    QVERIFY(!slim.grid.GetNextRow(GCN_CHILD_NEXT, last));
    slim.grid.SelectAll();
    QCOMPARE(slim.grid.GetSelectedCount(), static_cast<unsigned>(count + 1));
    QVERIFY(slim.grid.DeleteRow(slim.top));
    QCOMPARE(slim.grid.GetRowCount(), 0u);
    QCOMPARE(slim.grid.GetSelectedCount(), 0u);
}

ZENU_TEST(tst_GridSlimRows)
#include "tst_GridSlimRows.moc"
