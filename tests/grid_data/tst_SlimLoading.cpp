#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <cstring>

using namespace zenu;
using namespace zenutest;

// How the children of slim rows come from the application, and how its callback is asked.
class tst_SlimLoading : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void load_asksForCountThenRowsAndTellsOfThemOnce();
    void load_records_comeFreshAndRowsAreNotThereYet();
    void load_recordsLeftAsTheyCame_makeRowsOfParamZeroThatMayHaveChildren();
    void load_tellsOfRowsThatAreInTheGrid();
    void load_hasChildrenWord_choosesTheClassOfTheLevel_data();
    void load_hasChildrenWord_choosesTheClassOfTheLevel();
    void load_height_entersTheHeightMap();
    void load_endsTheWalkOverAllRows();
    void load_ofNone_leavesTheRowCollapsedWithoutBlock();
    void load_nonsenseCount_leavesTheRowCollapsed_data();
    void load_nonsenseCount_leavesTheRowCollapsed();
    void load_paramsBelowZero_passAsTheyAre();
    void hasChildren_isAskedUntilABlockExists();
    void expandAll_loadsLevelByLevel();
    void reset_collapsedRow_forgetsItsChildren();
    void reset_expandedRow_loadsAgainAtTheNextRebuild();
    void reset_parentOfSelectedRow_takesItFromTheSelection();
    void insertUnderSlimRow_isRefused();
    void callback_isTakenFreshAtEachCall();
    void noCallback_answersQuietly();
    void wrapper_drawInfo_carriesHandleParamColumnAndState();
    void wrapper_itemCalls_areForwarded();
    void wrapper_defaultHeight_isTheGridsOwnOrTheAutomatic();
    void itemText_answerThatAsksForAnother_isEmpty();
};

namespace {

struct Fixture
{
    Fixture()
    {
        grid.addColumns({101});
        grid.SetSlimGridCallback(&tree);
    }
    tag_HROW * addTop(long param) { return grid.InsertSlimRow(param, true, GC_ROOT, GCI_LAST); }
    CGCSlimRow * slim(tag_HROW * row)
    {
        return dynamic_cast<CGCSlimRow *>(grid.GetPriv().LocateRow(row));
    }
    bool isExpanded(tag_HROW * row)
    {
        GC_ROW record;
        grid.GetRow(row, &record);
        return (record.state & GCRS_EXPANDED) != 0;
    }
    SlimTree tree; // before the grid, which asks it to its end
    TestGrid grid;
};

// Fills records in its own way, and keeps them as they came.
class OwnRecords : public SlimTree
{
public:
    void GetSubRows(tag_HROW * row, long, int count, GC_SLIMROWDATA * rows) override
    {
        came.assign(rows, rows + count);
        if (fill) {
            fill(row, rows);
        }
    }
    std::vector<GC_SLIMROWDATA> came;
    std::function<void(tag_HROW *, GC_SLIMROWDATA *)> fill;
};

} // namespace

void tst_SlimLoading::load_asksForCountThenRowsAndTellsOfThemOnce()
{
    Fixture f;
    f.tree.tree[7] = {70, 71};
    tag_HROW * const row = f.addTop(7);
    QCOMPARE(f.tree.taken(), QStringLiteral("created 0"));
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QCOMPARE(f.tree.taken(), QStringLiteral("count 7; rows 7; created 7"));
    QVERIFY(f.grid.Expand(row, GCE_COLLAPSE));
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    f.grid.UpdateVisibleRows();
    QCOMPARE(f.tree.taken(), QString()); // the children stayed
}

void tst_SlimLoading::load_records_comeFreshAndRowsAreNotThereYet()
{
    Fixture f;
    OwnRecords own;
    own.countOf = [](long) { return 3; };
    bool wasExpanded = true;
    unsigned rowsBefore = 0;
    own.fill = [&](tag_HROW * row, GC_SLIMROWDATA *) {
        wasExpanded = f.isExpanded(row);
        rowsBefore = f.grid.GetRowCount();
    };
    f.grid.SetSlimGridCallback(&own);
    QVERIFY(f.grid.Expand(f.addTop(1), GCE_EXPAND));
    QCOMPARE(own.came.size(), std::size_t(3));
    for (GC_SLIMROWDATA const & record : own.came) {
        QVERIFY(!record.row);
        QCOMPARE(record.param, 0L);
        QCOMPARE(int(record.hasChildren), 1);
        QCOMPARE(record.height, -1);
    }
    QVERIFY(!wasExpanded);
    QCOMPARE(rowsBefore, 1U);
    QCOMPARE(f.grid.GetRowCount(), 4U);
    f.grid.DeleteAllRows();
}

void tst_SlimLoading::load_recordsLeftAsTheyCame_makeRowsOfParamZeroThatMayHaveChildren()
{
    Fixture f;
    OwnRecords own;
    own.countOf = [](long) { return 2; };
    f.grid.SetSlimGridCallback(&own);
    tag_HROW * const row = f.addTop(1);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    tag_HROW * const child = f.grid.GetNextRow(GCN_CHILD_FIRST, row);
    QCOMPARE(f.grid.GetRowParam(child), 0UL);
    QVERIFY(f.slim(child));
    f.grid.DeleteAllRows();
}

void tst_SlimLoading::load_tellsOfRowsThatAreInTheGrid()
{
    Fixture f;
    f.tree.tree[7] = {70, 71, 72};
    f.tree.heights[71] = 44;
    tag_HROW * const row = f.addTop(7);
    QString seen;
    f.tree.act = [&](char const * what, tag_HROW * parent, long param) {
        if (std::strcmp(what, "created") != 0) {
            return;
        }
        QVERIFY(parent == row);
        QCOMPARE(param, 7L);
        for (GC_SLIMROWDATA const & record : f.tree.created) {
            GC_ROW read;
            QVERIFY(!f.grid.GetRow(record.row, &read));
            QVERIFY(read.parent == row);
            seen += QStringLiteral("%1=%2/%3 ")
                        .arg(record.param)
                        .arg(f.grid.GetRowParam(record.row))
                        .arg(f.grid.GetPriv().GetRowHeight(f.grid.GetPriv().LocateRow(record.row)));
        }
    };
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    f.tree.act = nullptr;
    QCOMPARE(seen, QStringLiteral("70=70/%1 71=71/44 72=72/%1 ").arg(f.grid.GetDefaultHeight()));
    QCOMPARE(checkGrid(f.grid), QString());
}

void tst_SlimLoading::load_hasChildrenWord_choosesTheClassOfTheLevel_data()
{
    QTest::addColumn<QList<int>>("words");
    QTest::addColumn<bool>("lonely");
    QTest::newRow("none") << QList<int>{0, 0, 0} << true;
    QTest::newRow("the first") << QList<int>{1, 0, 0} << false;
    QTest::newRow("the last: all siblings are the larger ones") << QList<int>{0, 0, 1} << false;
    QTest::newRow("any bit of the word") << QList<int>{0, 0x100, 0} << false;
    QTest::newRow("the highest bit") << QList<int>{0, std::numeric_limits<int>::min(), 0} << false;
    QTest::newRow("one row without") << QList<int>{0} << true;
}

void tst_SlimLoading::load_hasChildrenWord_choosesTheClassOfTheLevel()
{
    QFETCH(QList<int>, words);
    QFETCH(bool, lonely);
    Fixture f;
    OwnRecords own;
    own.countOf = [&](long) { return int(words.size()); };
    own.fill = [&](tag_HROW *, GC_SLIMROWDATA * rows) {
        for (int i = 0; i < words.size(); ++i) {
            rows[i].hasChildren = words[i];
        }
    };
    f.grid.SetSlimGridCallback(&own);
    tag_HROW * const row = f.addTop(1);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    RowSpan const level = f.slim(row)->SubRows()->GetRows();
    QCOMPARE(level.count(), int(words.size()));
    for (int i = 0; i < level.count(); ++i) {
        QCOMPARE(dynamic_cast<CGCLonelySlimRow *>(level[i]) != nullptr, lonely);
        QVERIFY(!level[i]->HasChildren(f.grid.GetPriv().Wrapper())); // the callback says so
    }
    f.grid.DeleteAllRows();
}

void tst_SlimLoading::load_height_entersTheHeightMap()
{
    Fixture f;
    f.tree.tree[1] = {10, 11, 12};
    f.tree.heights = {{10, 0}, {11, 50}};
    tag_HROW * const row = f.addTop(1);
    QVERIFY(!f.grid.GetPriv().HasExplicitHeights());
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QVERIFY(f.grid.GetPriv().HasExplicitHeights());
    int const usual = f.grid.GetDefaultHeight();
    QList<int> tops;
    for (auto at = f.grid.begin(GCN_VISIBLE_FIRST); at != f.grid.end(); ++at) {
        GC_ROW record;
        record.mask = GCRM_TOP;
        f.grid.GetRow(*at, &record);
        tops << record.top;
    }
    QCOMPARE(tops, (QList<int>{0, usual, usual, usual + 50}));
}

void tst_SlimLoading::load_endsTheWalkOverAllRows()
{
    Fixture f;
    f.tree.tree[1] = {10};
    tag_HROW * const row = f.addTop(1);
    f.addTop(2);
    tag_HROW * const first = f.grid.GetNextRow(GCN_ALL_FIRST);
    QVERIFY(first);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QVERIFY(!f.grid.GetNextRow(GCN_ALL_NEXT, first));
}

void tst_SlimLoading::load_ofNone_leavesTheRowCollapsedWithoutBlock()
{
    Fixture f;
    f.tree.tree[1] = {}; // says that it has children, and then none come
    tag_HROW * const row = f.addTop(1);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QCOMPARE(f.tree.taken(), QStringLiteral("created 0; count 1"));
    QVERIFY(!f.isExpanded(row));
    QVERIFY(!f.slim(row)->SubRows());
}

void tst_SlimLoading::load_nonsenseCount_leavesTheRowCollapsed_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("below 0") << -1;
    QTest::newRow("least") << std::numeric_limits<int>::min();
    QTest::newRow("more than there can be") << std::numeric_limits<int>::max();
}

void tst_SlimLoading::load_nonsenseCount_leavesTheRowCollapsed()
{
    QFETCH(int, count);
    Fixture f;
    f.tree.countOf = [=](long) { return count; };
    tag_HROW * const row = f.addTop(1);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QVERIFY(!f.isExpanded(row));
    QCOMPARE(f.grid.GetRowCount(), 1U);
    QCOMPARE(checkGrid(f.grid), QString());
}

void tst_SlimLoading::load_paramsBelowZero_passAsTheyAre()
{
    Fixture f;
    long const least = std::numeric_limits<long>::min();
    f.tree.tree[-1] = {least};
    tag_HROW * const row = f.addTop(-1);
    QCOMPARE(f.grid.GetRowParam(row), ~0UL);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QCOMPARE(f.tree.taken(), QStringLiteral("created 0; count -1; rows -1; created -1"));
    tag_HROW * const child = f.grid.GetNextRow(GCN_CHILD_FIRST, row);
    QCOMPARE(f.grid.GetRowParam(child), static_cast<unsigned long>(least));
    QCOMPARE(f.grid.GetItemText(child, f.grid.firstColumn()), "s" + std::to_string(least));
}

void tst_SlimLoading::hasChildren_isAskedUntilABlockExists()
{
    Fixture f;
    f.tree.tree[1] = {10};
    tag_HROW * const row = f.addTop(1);
    f.tree.notesReads = true;
    f.tree.taken();
    GC_ROW record;
    f.grid.GetRow(row, &record);
    QVERIFY(record.state & GCRS_HASCHILDREN);
    QCOMPARE(f.tree.taken(), QStringLiteral("has 1"));
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    f.tree.taken();
    f.tree.tree.erase(1);
    f.grid.GetRow(row, &record);
    QVERIFY(record.state & GCRS_HASCHILDREN);
    QCOMPARE(f.tree.taken(), QString());
}

void tst_SlimLoading::expandAll_loadsLevelByLevel()
{
    Fixture f;
    f.tree.tree = {{1, {10, 11}}, {10, {100}}, {100, {1000}}, {2, {20}}};
    f.addTop(1);
    f.addTop(2);
    f.tree.taken();
    QVERIFY(f.grid.Expand(nullptr, GCE_EXPANDALL));
    QCOMPARE(f.grid.order(), QStringLiteral("s1 s10 s100 s1000 s11 s2 s20"));
    QCOMPARE(f.grid.GetRowCount(), 7U);
    QCOMPARE(checkGrid(f.grid), QString());
}

void tst_SlimLoading::reset_collapsedRow_forgetsItsChildren()
{
    Fixture f;
    f.tree.tree[1] = {10, 11};
    tag_HROW * const row = f.addTop(1);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QVERIFY(f.grid.Expand(row, GCE_COLLAPSE));
    f.tree.taken();
    QVERIFY(f.grid.ResetSlimRow(row));
    QCOMPARE(f.tree.taken(), QStringLiteral("deleted 10; deleted 11; deleted 1"));
    QVERIFY(!f.slim(row)->SubRows());
    QCOMPARE(f.grid.GetRowCount(), 1U);
    f.grid.UpdateVisibleRows();
    QCOMPARE(f.tree.taken(), QString());
}

void tst_SlimLoading::reset_expandedRow_loadsAgainAtTheNextRebuild()
{
    Fixture f;
    f.tree.tree[1] = {10, 11};
    tag_HROW * const row = f.addTop(1);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QVERIFY(f.grid.ResetSlimRow(row));
    QVERIFY(f.slim(row)->IsExpanded());
    QVERIFY(!f.slim(row)->SubRows()->loaded);
    QCOMPARE(f.grid.GetRowCount(), 1U);
    f.tree.tree[1] = {12};
    f.tree.taken();
    QCOMPARE(f.grid.order(), QStringLiteral("s1 s12"));
    QCOMPARE(f.tree.taken(), QStringLiteral("count 1; rows 1; created 1"));
    QVERIFY(f.isExpanded(row));
    QCOMPARE(checkGrid(f.grid), QString());
}

void tst_SlimLoading::reset_parentOfSelectedRow_takesItFromTheSelection()
{
    Fixture f;
    f.tree.tree[1] = {10, 11};
    tag_HROW * const row = f.addTop(1);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    tag_HROW * const child = f.tree.created[1].row;
    QVERIFY(f.grid.SetRowSel(child, true));
    QVERIFY(f.grid.SetRowSel(row, true));
    QCOMPARE(f.grid.GetSelectedCount(), 2U);
    QVERIFY(f.grid.ResetSlimRow(row));
    QCOMPARE(f.grid.GetSelectedCount(), 1U);
    QCOMPARE(f.grid.selected(), QStringLiteral("s1"));
}

void tst_SlimLoading::insertUnderSlimRow_isRefused()
{
    Fixture f;
    f.tree.tree[1] = {10};
    tag_HROW * const row = f.addTop(1);
    for (bool expanded : {false, true}) {
        unsigned const before = f.grid.GetRowCount();
        QVERIFY(!f.grid.InsertRow(row, GCI_LAST));
        QVERIFY(!f.grid.InsertSlimRow(5, false, row, GCI_FIRST));
        QCOMPARE(f.grid.GetRowCount(), before);
        QCOMPARE(checkGrid(f.grid), QString());
        if (!expanded) {
            QVERIFY(f.grid.Expand(row, GCE_EXPAND));
        }
    }
}

void tst_SlimLoading::callback_isTakenFreshAtEachCall()
{
    Fixture f;
    SlimTree other;
    f.tree.tree[1] = {10};
    other.tree[1] = {20, 21};
    tag_HROW * const row = f.addTop(1);
    f.tree.taken();
    f.grid.SetSlimGridCallback(&other);
    QVERIFY(f.grid.GetSlimGridCallback() == &other);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QCOMPARE(f.tree.taken(), QString());
    QCOMPARE(f.grid.children(row), QStringLiteral("s20 s21"));
    // Also within one load: whoever is the callback by then is told.
    f.grid.Expand(row, GCE_COLLAPSE);
    f.grid.ResetSlimRow(row);
    other.taken();
    other.act = [&](char const * what, tag_HROW *, long) {
        if (std::strcmp(what, "rows") == 0) {
            f.grid.SetSlimGridCallback(&f.tree);
        }
    };
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    other.act = nullptr;
    QCOMPARE(other.taken(), QStringLiteral("count 1; rows 1"));
    QCOMPARE(f.tree.taken(), QStringLiteral("created 1"));
}

void tst_SlimLoading::noCallback_answersQuietly()
{
    Fixture f;
    tag_HROW * const row = f.addTop(1);
    f.grid.SetSlimGridCallback(nullptr);
    QCOMPARE(f.grid.GetItemText(row, f.grid.firstColumn()), std::string());
    QCOMPARE(f.grid.GetItemTextLen(row, f.grid.firstColumn()), 0);
    QVERIFY(f.grid.Expand(row, GCE_EXPAND));
    QVERIFY(!f.isExpanded(row));
    QVERIFY(f.grid.ResetSlimRow(row));
    GC_ROW record;
    f.grid.GetRow(row, &record);
    QVERIFY(!(record.state & GCRS_HASCHILDREN));
    ISlimGridCallbackWrapper * const wrapper = f.grid.GetPriv().Wrapper();
    IGCRow * const found = f.grid.GetPriv().LocateRow(row);
    CGCColumn * const column = f.grid.GetPriv().columns.all()[0];
    GC_DRAWROWINFO rowInfo;
    GC_DRAWITEMINFO itemInfo;
    wrapper->GetRowDrawInfo(&rowInfo, found);
    wrapper->GetItemDrawInfo(&itemInfo, found, column, true, true);
    wrapper->ReleaseRowDrawInfo(&rowInfo, found);
    wrapper->SetItemText(found, column, "text");
    wrapper->SetItemCheck(found, column, true);
    QCOMPARE(rowInfo.bkColor.rgb(), GC_UNSETCOLOR);
    QCOMPARE(itemInfo.image, -1);
    QCOMPARE(wrapper->IsItemChecked(found, column), 0);
    QVERIFY(f.grid.InsertSlimRow(2, true, GC_ROOT, GCI_LAST));
    QVERIFY(f.grid.showSized(200, 100)); // painted without one
}

void tst_SlimLoading::wrapper_drawInfo_carriesHandleParamColumnAndState()
{
    class Drawing : public SlimTree
    {
    public:
        void GetRowDrawInfo(GC_DRAWROWINFO * info, tag_HROW * row, long param,
                            bool selected) override
        {
            info->expanded = true;
            notes += QStringLiteral("row %1 %2 %3; ").arg(row == asked).arg(param).arg(selected);
        }
        void ReleaseRowDrawInfo(GC_DRAWROWINFO * info, tag_HROW * row, long param) override
        {
            notes += QStringLiteral("release %1 %2 %3; ")
                         .arg(row == asked)
                         .arg(param)
                         .arg(info->expanded);
        }
        void GetItemDrawInfo(GC_DRAWITEMINFO *, tag_HROW * row, long param, tag_HCOLUMN * column,
                             int halfWidth, bool selected, bool focusCell) override
        {
            notes += QStringLiteral("item %1 %2 column %3 half %4 %5 %6; ")
                         .arg(row == asked)
                         .arg(param)
                         .arg(reinterpret_cast<long>(column))
                         .arg(halfWidth)
                         .arg(selected)
                         .arg(focusCell);
        }
        QString notes;
        tag_HROW * asked = nullptr;
    };
    Fixture f;
    Drawing drawing;
    f.grid.SetSlimGridCallback(&drawing);
    f.grid.addColumns({7});
    drawing.asked = f.addTop(-3);
    ISlimGridCallbackWrapper * const wrapper = f.grid.GetPriv().Wrapper();
    IGCRow * const row = f.grid.GetPriv().LocateRow(drawing.asked);
    CGCColumn * const column = f.grid.GetPriv().columns.all()[1];
    GC_DRAWROWINFO rowInfo;
    GC_DRAWITEMINFO itemInfo;
    wrapper->GetRowDrawInfo(&rowInfo, row);
    f.grid.SetRowSel(drawing.asked, true);
    wrapper->GetRowDrawInfo(&rowInfo, row);
    wrapper->ReleaseRowDrawInfo(&rowInfo, row);
    wrapper->GetItemDrawInfo(&itemInfo, row, column, true, false);
    column->width = -7; // half of it, rounded toward zero
    wrapper->GetItemDrawInfo(&itemInfo, row, column, false, true);
    column->width = 7;
    QCOMPARE(drawing.notes, QStringLiteral("row 1 -3 0; row 1 -3 1; release 1 -3 1; "
                                           "item 1 -3 column 1 half 3 1 0; "
                                           "item 1 -3 column 1 half -3 0 1; "));
    f.grid.DeleteAllRows();
}

void tst_SlimLoading::wrapper_itemCalls_areForwarded()
{
    class Writing : public SlimTree
    {
    public:
        void SetItemText(tag_HROW * row, long param, tag_HCOLUMN * column,
                         char const * text) override
        {
            notes += QStringLiteral("text %1 %2 %3 %4;")
                         .arg(row == asked)
                         .arg(param)
                         .arg(reinterpret_cast<long>(column))
                         .arg(QLatin1String(text));
        }
        void SetItemCheck(tag_HROW * row, long param, tag_HCOLUMN * column, bool checked) override
        {
            notes += QStringLiteral("check %1 %2 %3 %4;")
                         .arg(row == asked)
                         .arg(param)
                         .arg(reinterpret_cast<long>(column))
                         .arg(checked);
        }
        int IsItemChecked(tag_HROW * row, long param, tag_HCOLUMN * column) override
        {
            notes += QStringLiteral("checked? %1 %2 %3;")
                         .arg(row == asked)
                         .arg(param)
                         .arg(reinterpret_cast<long>(column));
            return 5;
        }
        QString notes;
        tag_HROW * asked = nullptr;
    };
    Fixture f;
    Writing writing;
    f.grid.SetSlimGridCallback(&writing);
    f.grid.addColumns({7});
    writing.asked = f.addTop(9);
    ISlimGridCallbackWrapper * const wrapper = f.grid.GetPriv().Wrapper();
    IGCRow * const row = f.grid.GetPriv().LocateRow(writing.asked);
    CGCColumn * const column = f.grid.GetPriv().columns.all()[1];
    wrapper->SetItemText(row, column, "new");
    wrapper->SetItemCheck(row, column, true);
    QCOMPARE(wrapper->IsItemChecked(row, column), 5);
    QCOMPARE(writing.notes, QStringLiteral("text 1 9 1 new;check 1 9 1 1;checked? 1 9 1;"));
    f.grid.DeleteAllRows();
}

void tst_SlimLoading::wrapper_defaultHeight_isTheGridsOwnOrTheAutomatic()
{
    Fixture f;
    ISlimGridCallbackWrapper * const wrapper = f.grid.GetPriv().Wrapper();
    QCOMPARE(wrapper->GetDefaultRowHeight(), f.grid.GetPriv().autoHeight);
    f.grid.SetDefaultHeight(33);
    QCOMPARE(wrapper->GetDefaultRowHeight(), 33);
    f.grid.SetDefaultHeight(0);
    QCOMPARE(wrapper->GetDefaultRowHeight(), 0);
    f.grid.SetDefaultHeight(-1);
    QCOMPARE(wrapper->GetDefaultRowHeight(), f.grid.GetPriv().autoHeight);
}

void tst_SlimLoading::itemText_answerThatAsksForAnother_isEmpty()
{
    class Nonsense : public SlimTree
    {
    public:
        char const * GetItemText(tag_HROW *, long param, tag_HCOLUMN *) override
        {
            return GC_TEXTCALLBACK - param;
        }
    };
    Fixture f;
    Nonsense nonsense;
    f.grid.SetSlimGridCallback(&nonsense);
    for (long below : {0L, 1L}) {
        tag_HROW * const row = f.addTop(below);
        QCOMPARE(f.grid.GetItemText(row, f.grid.firstColumn()), std::string());
        QCOMPARE(f.grid.GetItemTextLen(row, f.grid.firstColumn()), 0);
    }
    QVERIFY(f.grid.showSized(200, 100));
    f.grid.BestFit(f.grid.firstColumn());
    f.grid.DeleteAllRows();
}

ZENU_TEST(tst_SlimLoading)
#include "tst_SlimLoading.moc"
