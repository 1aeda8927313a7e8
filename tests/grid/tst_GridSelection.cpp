#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::SlimTree;
using zenutest::TestGrid;

namespace {

// Rows a, b (with b1, b2), c and a column; what is told of the selection is noted with what is
// selected and focused by then.
struct Scene
{
    TestGrid grid;
    tag_HROW * a = nullptr;
    tag_HROW * b = nullptr;
    tag_HROW * b1 = nullptr;
    tag_HROW * b2 = nullptr;
    tag_HROW * c = nullptr;
    Notes notes{&grid};
    QStringList told;

    explicit Scene(int columns = 1)
    {
        for (int i = 0; i < columns; ++i) {
            grid.addColumns({50});
        }
        a = grid.add("a");
        b = grid.add("b");
        b1 = grid.add("b1", b);
        b2 = grid.add("b2", b);
        c = grid.add("c");
        grid.UpdateVisibleRows();
        notes.taken();
        notes.act = [this](char const * what, tag_HROW *) {
            if (std::strcmp(what, "selected") == 0) {
                told << grid.selected() + u'@' + grid.focus();
            }
        };
    }
    ~Scene() { grid.setNotification(nullptr); }

    // What was called, in its order, and what was seen at each OnSelectionChanged.
    QString taken()
    {
        QString const text =
            notes.taken() + QStringLiteral(" | ") + told.join(QStringLiteral("; "));
        told.clear();
        return text;
    }
    bool setState(tag_HROW * row, unsigned bits, unsigned state)
    {
        GC_ROW record;
        record.mask = GCRM_STATE;
        record.stateMask = bits;
        record.state = state;
        return grid.SetRow(row, &record);
    }
};

QString const silent = QStringLiteral(" | ");

} // namespace

class tst_GridSelection : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void setRowSel_movesTheFocusFirst_thenTellsOnce();
    void setRowSel_again_tellsAgain();
    void setRowSel_off_leavesTheFocus();
    void setRowSel_keepsTheFocusedColumn();
    void setRowSel_rowOutOfTheOrder_isSelectedWithoutFocus();
    void setRowSel_scrolls_beforeItTells();
    void selectRows_adds_andTellsOnce();
    void selectAll_takesTheVisibleOrder_andTellsOnce();
    void clearSelection_tells_evenWithNothingSelected();
    void singleSelectionStyle_bindsGesturesAlone();
    void setRow_state_tellsOnceAChange();
    void setRow_selectAndFocusAndCollapse_inThatOrder();
    void insertRow_withState_tellsWhenTheRowIsThere();
    void deletingRows_tellsNobody_data();
    void deletingRows_tellsNobody();
    void collapsing_keepsTheSelection();
    void hidingTheLastColumn_keepsTheSelection();
    void nothing_asksForPermission();
    void sinkThatChangesTheSelection_isToldOfThatToo();
    void sinkThatDeletesTheRow_isBorne();
    void sinkThatEmptiesTheGrid_isBorne();
    void sinkThatLeaves_isToldNoMore();
    void grid_isItsOwnSinkAtFirst();
};

void tst_GridSelection::setRowSel_movesTheFocusFirst_thenTellsOnce()
{
    Scene s;
    QVERIFY(s.grid.SetRowSel(s.a, true));
    QCOMPARE(s.taken(), QStringLiteral("selected | a@a/0"));
    QVERIFY(s.grid.SetRowSel(s.c, true)); // added, not replaced
    QCOMPARE(s.taken(), QStringLiteral("selected | a c@c/0"));
}

void tst_GridSelection::setRowSel_again_tellsAgain()
{
    Scene s;
    s.grid.SetRowSel(s.a, true);
    s.taken();
    QVERIFY(s.grid.SetRowSel(s.a, true));
    QCOMPARE(s.taken(), QStringLiteral("selected | a@a/0"));
    QVERIFY(s.grid.SetRowSel(s.b, false)); // was not selected
    QCOMPARE(s.taken(), QStringLiteral("selected | a@a/0"));
}

void tst_GridSelection::setRowSel_off_leavesTheFocus()
{
    Scene s;
    s.grid.SetRowSel(s.a, true);
    s.grid.SetRowSel(s.b, true);
    s.taken();
    QVERIFY(s.grid.SetRowSel(s.a, false));
    QCOMPARE(s.taken(), QStringLiteral("selected | b@b/0"));
    QVERIFY(s.grid.SetRowSel(s.b, false));
    QCOMPARE(s.taken(), QStringLiteral("selected | @b/0"));
}

void tst_GridSelection::setRowSel_keepsTheFocusedColumn()
{
    Scene s(3);
    std::vector<CGCColumn *> const columns(s.grid.GetPriv().columns.all().begin(),
                                           s.grid.GetPriv().columns.all().end());
    s.grid.SetFocusedColumn(columns[2]->Handle());
    s.grid.SetRowSel(s.a, true);
    QCOMPARE(s.grid.focus(), QStringLiteral("a/2"));
    s.grid.SetRowSel(s.b, true);
    QCOMPARE(s.grid.focus(), QStringLiteral("b/2"));
    // A place past the columns on display is none: the first column it is.
    s.grid.ShowColumn(columns[0]->Handle(), false);
    s.grid.SetFocusedColumn(columns[2]->Handle()); // by its number among all
    s.grid.SetRowSel(s.c, true);
    QCOMPARE(s.grid.focus(), QStringLiteral("c/1"));
}

void tst_GridSelection::setRowSel_rowOutOfTheOrder_isSelectedWithoutFocus()
{
    Scene s;
    s.grid.SetRowSel(s.a, true);
    s.grid.Expand(s.b, GCE_COLLAPSE);
    s.taken();
    QVERIFY(s.grid.SetRowSel(s.b1, true));
    QCOMPARE(s.taken(), QStringLiteral("selected | a b1@a/0"));
}

void tst_GridSelection::setRowSel_scrolls_beforeItTells()
{
    TestGrid grid(GCS_AUTOHSCROLL);
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(100, 120));
    Notes notes(&grid);
    QVERIFY(grid.SetRowSel(rows[40], true));
    QCOMPARE(notes.calls.size(), 3);
    QVERIFY(notes.calls[0].startsWith(QStringLiteral("scrolling")));
    QCOMPARE(notes.calls[1], QStringLiteral("scrolled"));
    QCOMPARE(notes.calls[2], QStringLiteral("selected"));
    grid.setNotification(nullptr);
}

void tst_GridSelection::selectRows_adds_andTellsOnce()
{
    Scene s;
    s.grid.SetRowSel(s.c, true);
    s.taken();
    tag_HROW * rows[] = {s.a, s.b2, s.a};
    s.grid.SelectRows(3, rows);
    QCOMPARE(s.taken(), QStringLiteral("selected | a b2 c@c/0"));
    s.grid.SelectRows(3, rows); // nothing changes, and it is told all the same
    QCOMPARE(s.taken(), QStringLiteral("selected | a b2 c@c/0"));
}

void tst_GridSelection::selectAll_takesTheVisibleOrder_andTellsOnce()
{
    Scene s;
    s.grid.Expand(s.b, GCE_COLLAPSE);
    s.taken();
    s.grid.SelectAll();
    QCOMPARE(s.taken(), QStringLiteral("selected | a b c@-/-"));
    s.grid.Expand(s.b, GCE_EXPAND);
    s.taken();
    s.grid.SelectAll();
    QCOMPARE(s.taken(), QStringLiteral("selected | a b b1 b2 c@-/-"));
    s.grid.SelectAll();
    QCOMPARE(s.taken(), QStringLiteral("selected | a b b1 b2 c@-/-"));
}

void tst_GridSelection::clearSelection_tells_evenWithNothingSelected()
{
    Scene s;
    s.grid.SelectAll();
    s.grid.SetRowSel(s.b, true);
    s.taken();
    s.grid.ClearSelection();
    QCOMPARE(s.taken(), QStringLiteral("selected | @b/0"));
    s.grid.ClearSelection();
    QCOMPARE(s.taken(), QStringLiteral("selected | @b/0"));
}

void tst_GridSelection::singleSelectionStyle_bindsGesturesAlone()
{
    TestGrid grid(GCS_SINGLESEL);
    grid.addColumns({50});
    std::vector<tag_HROW *> rows = grid.addMany(3);
    grid.SetRowSel(rows[0], true);
    grid.SetRowSel(rows[1], true);
    QCOMPARE(grid.selected(), QStringLiteral("0 1"));
    grid.SelectAll();
    QCOMPARE(grid.GetSelectedCount(), 3U);
}

void tst_GridSelection::setRow_state_tellsOnceAChange()
{
    Scene s;
    QVERIFY(s.setState(s.b1, GCRS_SELECTED, GCRS_SELECTED));
    QCOMPARE(s.taken(), QStringLiteral("selected | b1@-/-"));
    QVERIFY(s.setState(s.b1, GCRS_SELECTED, GCRS_SELECTED));
    QCOMPARE(s.taken(), silent);
    QVERIFY(s.setState(s.b1, 0, 0)); // the bit does not count
    QCOMPARE(s.taken(), silent);
    QVERIFY(s.setState(s.b1, GCRS_SELECTED, 0));
    QCOMPARE(s.taken(), QStringLiteral("selected | @-/-"));
    QVERIFY(s.setState(s.b1, GCRS_SELECTED, 0));
    QCOMPARE(s.taken(), silent);
    s.grid.SetFocusedColumn(s.grid.firstColumn());
    QVERIFY(s.setState(s.c, GCRS_FOCUSED, GCRS_FOCUSED)); // the focus alone tells nobody
    QCOMPARE(s.grid.focus(), QStringLiteral("c/0"));
    QVERIFY(s.setState(s.c, GCRS_FOCUSED, 0));
    QCOMPARE(s.grid.focus(), QStringLiteral("-/-"));
    QCOMPARE(s.taken(), silent);
}

void tst_GridSelection::setRow_selectAndFocusAndCollapse_inThatOrder()
{
    Scene s;
    s.grid.SetRowSel(s.a, true);
    s.taken();
    unsigned const bits = GCRS_SELECTED | GCRS_FOCUSED | GCRS_EXPANDED;
    QVERIFY(s.setState(s.b, bits, GCRS_SELECTED | GCRS_FOCUSED));
    // When the selection is told the focus has not moved yet.
    QCOMPARE(s.taken(), QStringLiteral("selected; expanding b; expanded b | a b@a/0"));
    QCOMPARE(s.grid.focus(), QStringLiteral("b/0"));
    QCOMPARE(s.grid.order(), QStringLiteral("a b c"));
}

void tst_GridSelection::insertRow_withState_tellsWhenTheRowIsThere()
{
    Scene s;
    GC_ROW record;
    record.mask = GCRM_STATE | GCRM_PARAM;
    record.parent = s.b;
    record.param = 5;
    record.stateMask = record.state = GCRS_SELECTED;
    tag_HROW * row = nullptr;
    unsigned long param = 0;
    s.notes.act = [&](char const *, tag_HROW *) {
        row = s.grid.GetNextRow(GCN_SELECTED_FIRST);
        param = s.grid.GetRowParam(row);
    };
    tag_HROW * const inserted = s.grid.InsertRow(&record, s.b1);
    QCOMPARE(s.notes.taken(), QStringLiteral("selected"));
    QCOMPARE(row, inserted);
    QCOMPARE(param, 5UL);
}

void tst_GridSelection::deletingRows_tellsNobody_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<QString>("left");
    QTest::newRow("a row") << 0 << "b b1 b2 c@c/0";
    QTest::newRow("a subtree") << 1 << "a c@c/0";
    QTest::newRow("the focused row") << 2 << "a b b1 b2@-/-";
    QTest::newRow("all rows") << 3 << "@-/-";
    QTest::newRow("everything") << 4 << "@-/-";
}

void tst_GridSelection::deletingRows_tellsNobody()
{
    QFETCH(int, way);
    QFETCH(QString, left);
    Scene s;
    s.grid.SelectAll();
    s.grid.SetRowSel(s.c, true);
    s.taken();
    tag_HROW * const rows[] = {s.a, s.b, s.c};
    bool const done = way < 3 ? s.grid.DeleteRow(rows[way])
                              : (way == 3 ? s.grid.DeleteAllRows() : s.grid.Reset());
    QVERIFY(done);
    QCOMPARE(s.taken(), silent);
    QCOMPARE(s.grid.selected() + u'@' + s.grid.focus(), left);
    QCOMPARE(s.grid.GetSelectedCount(),
             unsigned(left.section(u'@', 0, 0).count(u' ') + (left.startsWith(u'@') ? 0 : 1)));
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridSelection::collapsing_keepsTheSelection()
{
    Scene s;
    s.grid.SetRowSel(s.b1, true);
    s.taken();
    s.grid.Expand(s.b, GCE_COLLAPSE);
    QCOMPARE(s.taken(), QStringLiteral("expanding b; expanded b | "));
    QCOMPARE(s.grid.selected(), QStringLiteral("b1"));
    QCOMPARE(s.grid.focus(), QStringLiteral("b/0"));
}

void tst_GridSelection::hidingTheLastColumn_keepsTheSelection()
{
    Scene s;
    s.grid.SetRowSel(s.b, true);
    s.taken();
    s.grid.ShowColumn(s.grid.firstColumn(), false);
    QVERIFY(!s.grid.SetRowSel(s.a, true)); // no column is on display
    QVERIFY(!s.grid.SetRowSel(s.b, false));
    QCOMPARE(s.grid.selected(), QStringLiteral("b"));
    QCOMPARE(s.taken(), silent);
    s.grid.SelectAll(); // needs no column
    QCOMPARE(s.grid.GetSelectedCount(), 5U);
}

void tst_GridSelection::nothing_asksForPermission()
{
    Scene s;
    SlimTree source;
    source.tree = {{1, {2, 3}}};
    s.grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = s.grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    s.grid.Expand(slim, GCE_EXPAND);
    s.grid.SelectAll();
    s.setState(s.a, GCRS_SELECTED, 0);
    s.grid.SetRowSel(s.b, false);
    s.grid.SelectRows(1, &s.a);
    QVERIFY(s.grid.ResetSlimRow(slim));
    s.grid.ClearSelection();
    QVERIFY(!s.notes.calls.contains(QStringLiteral("selecting")));
    QCOMPARE(s.notes.calls.count(QStringLiteral("selected")), 5);
    s.grid.SetSlimGridCallback(nullptr);
}

void tst_GridSelection::sinkThatChangesTheSelection_isToldOfThatToo()
{
    Scene s;
    int depth = 0;
    s.notes.act = [&](char const *, tag_HROW *) {
        if (++depth == 1) {
            s.grid.SetRowSel(s.a, false);
        }
    };
    QVERIFY(s.grid.SetRowSel(s.a, true));
    QCOMPARE(s.notes.taken(), QStringLiteral("selected; selected"));
    QCOMPARE(s.grid.GetSelectedCount(), 0U);
}

void tst_GridSelection::sinkThatDeletesTheRow_isBorne()
{
    Scene s;
    s.notes.act = [&](char const *, tag_HROW *) { s.grid.DeleteRow(s.b); };
    QVERIFY(s.grid.SetRowSel(s.b, true));
    QCOMPARE(s.grid.order(), QStringLiteral("a c"));
    QCOMPARE(s.grid.focus(), QStringLiteral("-/-"));
    s.notes.act = [&](char const *, tag_HROW *) { s.grid.DeleteRow(s.a); };
    unsigned const bits = GCRS_SELECTED | GCRS_FOCUSED | GCRS_EXPANDED;
    s.grid.SetFocusedColumn(s.grid.firstColumn());
    s.setState(s.a, bits, bits); // the rest of the record has no row any more
    QCOMPARE(s.grid.order(), QStringLiteral("c"));
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridSelection::sinkThatEmptiesTheGrid_isBorne()
{
    Scene s;
    s.notes.act = [&](char const *, tag_HROW *) { s.grid.Reset(); };
    s.grid.SelectAll();
    QCOMPARE(s.notes.taken(), QStringLiteral("selected"));
    QCOMPARE(s.grid.GetRowCount(), 0U);
    QCOMPARE(s.grid.GetSelectedCount(), 0U);
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridSelection::sinkThatLeaves_isToldNoMore()
{
    Scene s;
    s.notes.act = [&](char const *, tag_HROW *) { s.grid.setNotification(nullptr); };
    s.grid.SelectAll();
    s.grid.ClearSelection();
    s.grid.SetRowSel(s.a, true);
    QCOMPARE(s.notes.taken(), QStringLiteral("selected"));
    QCOMPARE(s.grid.selected(), QStringLiteral("a"));
}

void tst_GridSelection::grid_isItsOwnSinkAtFirst()
{
    class OwnSink : public TestGrid
    {
    public:
        int changes = 0;
        void OnSelectionChanged() override { ++changes; }
    };
    OwnSink grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("a");
    QCOMPARE(grid.getNotification(), static_cast<IGridNotification *>(&grid));
    grid.SelectAll();
    grid.SetRowSel(row, false);
    grid.ClearSelection();
    QCOMPARE(grid.changes, 3);
}

ZENU_TEST(tst_GridSelection)
#include "tst_GridSelection.moc"
