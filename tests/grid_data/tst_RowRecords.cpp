#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <cstring>

using namespace zenu;
using namespace zenutest;

// Rows and sections through the grid: what a record tells, what a write asks for and in which
// order.
class tst_RowRecords : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void getRow_state_tellsEachBit();
    void getRow_top_needsBitAndVisibleRow();
    void getRow_height_isAlsoThatOfRowsOutOfTheOrder();
    void getRow_inALoopOfInsertions_isNeverStaleAndRebuildsNothing();
    void getRow_slimRows_fillTheRecordAndAnswerFalse();
    void getRow_colours_areBlackForSlimRowsAndBadHandles();
    void getRow_badHandleOrRecord_isFalse();
    void getSection_readsTheTitle();
    void getSectionText_leavesTheBufferAndAnswersTrue();
    void setSectionText_changesNothing();
    void setRowBkColor_leavesTheBackgroundAndChangesTheTextColour();
    void setRowTextColor_setsIt();
    void setRow_requests_runInTheirOrder();
    void setRow_selection_tellsOnlyOfChanges();
    void setRow_focus_needsAFocusedColumn();
    void setRow_unfocus_clearsTheFocusWhereverItIs();
    void setRow_expansion_canBeVetoed();
    void setRow_height_ofEachRowClass_data();
    void setRow_height_ofEachRowClass();
    void setRow_parent_isNotRead();
    void setRow_hasChildren_showsAButtonWithoutChildren();
    void setRow_colour_repaintsTheRow();
    void setRow_rowDiesInANotification_stops();
    void setRowHeight_minusOne_isStoredAsAHeight();
    void rowParam_ofEachRowClass();
    void newRow_underCollapsedParent_isNotVisibleAndHasHeightZero();
};

namespace {

struct Fixture
{
    Fixture()
    {
        column = grid.addColumns({100, 100})[0];
        grid.SetSlimGridCallback(&tree);
    }
    unsigned stateOf(tag_HROW * row)
    {
        GC_ROW record;
        grid.GetRow(row, &record);
        return record.state;
    }
    bool setState(tag_HROW * row, unsigned bits, bool on)
    {
        GC_ROW record;
        record.mask = GCRM_STATE;
        record.stateMask = bits;
        record.state = on ? bits : 0;
        return grid.SetRow(row, &record);
    }
    // Ordinary, section, slim, lonely.
    std::array<tag_HROW *, 4> addEachClass()
    {
        return {grid.add("o"), grid.InsertSection(nullptr, GCI_LAST),
                grid.InsertSlimRow(5, true, GC_ROOT, GCI_LAST),
                grid.InsertSlimRow(6, false, GC_ROOT, GCI_LAST)};
    }
    SlimTree tree; // before the grid, which asks it to its end
    TestGrid grid;
    tag_HCOLUMN * column;
};

} // namespace

void tst_RowRecords::getRow_state_tellsEachBit()
{
    Fixture f;
    tag_HROW * const parent = f.grid.add("p");
    QCOMPARE(f.stateOf(parent), unsigned(GCRS_EXPANDED | GCRS_VISIBLE));
    tag_HROW * const child = f.grid.add("c", parent);
    unsigned const open = GCRS_EXPANDED | GCRS_VISIBLE | GCRS_HASCHILDREN;
    QCOMPARE(f.stateOf(parent), open);
    f.grid.Expand(parent, GCE_COLLAPSE);
    QCOMPARE(f.stateOf(parent), unsigned(GCRS_VISIBLE | GCRS_HASCHILDREN));
    QCOMPARE(f.stateOf(child), unsigned(GCRS_EXPANDED));
    f.grid.SetRowSel(parent, true);
    QCOMPARE(f.stateOf(parent),
             unsigned(GCRS_VISIBLE | GCRS_HASCHILDREN | GCRS_SELECTED | GCRS_FOCUSED));
    f.grid.ClearSelection();
    QCOMPARE(f.stateOf(parent), unsigned(GCRS_VISIBLE | GCRS_HASCHILDREN | GCRS_FOCUSED));
}

void tst_RowRecords::getRow_top_needsBitAndVisibleRow()
{
    Fixture f;
    tag_HROW * const parent = f.grid.add("p");
    tag_HROW * const child = f.grid.add("c", parent);
    GC_ROW record;
    record.top = 77;
    QVERIFY(f.grid.GetRow(child, &record));
    QCOMPARE(record.top, 0);
    record.mask = GCRM_TOP;
    QVERIFY(f.grid.GetRow(child, &record));
    QCOMPARE(record.top, f.grid.rowHeight());
    f.grid.SetRowHeight(parent, 50);
    QVERIFY(f.grid.GetRow(child, &record));
    QCOMPARE(record.top, 50); // never that of before
    f.grid.Expand(parent, GCE_COLLAPSE);
    QVERIFY(f.grid.GetRow(child, &record));
    QCOMPARE(record.top, 0);
}

void tst_RowRecords::getRow_height_isAlsoThatOfRowsOutOfTheOrder()
{
    Fixture f;
    tag_HROW * const parent = f.grid.add("p");
    tag_HROW * const child = f.grid.add("c", parent);
    tag_HROW * const high = f.grid.add("h", parent);
    f.grid.SetRowHeight(high, 44);
    f.grid.Expand(parent, GCE_COLLAPSE);
    GC_ROW record;
    QVERIFY(f.grid.GetRow(child, &record));
    QCOMPARE(record.height, f.grid.GetDefaultHeight());
    QVERIFY(f.grid.GetRow(high, &record));
    QCOMPARE(record.height, 44);
    for (tag_HROW * const hidden : {child, high}) {
        QCOMPARE(f.grid.GetRowHeight(hidden), 0U);
    }
}

void tst_RowRecords::getRow_inALoopOfInsertions_isNeverStaleAndRebuildsNothing()
{
    Fixture f;
    tag_HROW * const parent = f.grid.add("p");
    for (int i = 0; i < 50; ++i) {
        tag_HROW * const row = f.grid.add("r", i % 2 ? parent : GC_ROOT);
        QCOMPARE(f.stateOf(row), unsigned(GCRS_EXPANDED | GCRS_VISIBLE));
        QCOMPARE(f.grid.GetRowHeight(row), unsigned(f.grid.GetDefaultHeight()));
        f.grid.SetRowHeight(row, i);
        QCOMPARE(f.grid.GetRowHeight(row), unsigned(i));
        QVERIFY(f.grid.GetPriv().IsDirty());
    }
}

void tst_RowRecords::getRow_slimRows_fillTheRecordAndAnswerFalse()
{
    Fixture f;
    f.tree.tree[5] = {50};
    auto const rows = f.addEachClass();
    for (std::size_t i : {std::size_t(2), std::size_t(3)}) {
        f.grid.SetRowHeight(rows[i], 41);
        GC_ROW record;
        record.mask = GCRM_TOP;
        record.height = -9;
        record.textColor = Qt::red;
        QVERIFY(!f.grid.GetRow(rows[i], &record));
        QCOMPARE(record.height, i == 2 ? -9 : 41); // the one that can have children tells none
        QCOMPARE(record.param, i == 2 ? 5UL : 6UL);
        QVERIFY(record.parent == GC_ROOT);
        QCOMPARE(record.top, 2 * f.grid.rowHeight() + (i == 3 ? 41 : 0));
        QCOMPARE(record.textColor, QColor(Qt::red));
        QCOMPARE(record.state, GCRS_VISIBLE | (i == 2 ? unsigned(GCRS_HASCHILDREN) : 0U));
    }
    f.grid.Expand(rows[2], GCE_EXPAND);
    GC_ROW child;
    QVERIFY(!f.grid.GetRow(f.tree.created[0].row, &child));
    QVERIFY(child.parent == rows[2]);
}

void tst_RowRecords::getRow_colours_areBlackForSlimRowsAndBadHandles()
{
    Fixture f;
    auto const rows = f.addEachClass();
    for (tag_HROW * const row : rows) {
        GC_ROW record;
        record.mask = GCRM_TEXTCOLOR | GCRM_BKCOLOR;
        record.textColor = QColor(1, 2, 3);
        record.bkColor = QColor(4, 5, 6);
        f.grid.SetRow(row, &record);
        bool const hasColours = row == rows[0] || row == rows[1];
        QCOMPARE(f.grid.GetRowTextColor(row), hasColours ? QColor(1, 2, 3) : QColor(Qt::black));
        QCOMPARE(f.grid.GetRowBkColor(row), hasColours ? QColor(4, 5, 6) : QColor(Qt::black));
    }
    for (tag_HROW * const bad : {static_cast<tag_HROW *>(nullptr), GC_ROOT, GCI_LAST}) {
        QCOMPARE(f.grid.GetRowTextColor(bad), QColor(Qt::black));
        QCOMPARE(f.grid.GetRowBkColor(bad), QColor(Qt::black));
        QVERIFY(!f.grid.SetRowTextColor(bad, Qt::red));
        QVERIFY(!f.grid.SetRowBkColor(bad, Qt::red));
    }
}

void tst_RowRecords::getRow_badHandleOrRecord_isFalse()
{
    Fixture f;
    auto const rows = f.addEachClass();
    tag_HROW * const dead = f.grid.add("dead");
    f.grid.DeleteRow(dead);
    GC_SECTION record;
    record.mask = ~0U & ~unsigned(GCRM_FONT);
    for (tag_HROW * const bad : {static_cast<tag_HROW *>(nullptr), GC_ROOT, GCI_FIRST, dead}) {
        QVERIFY(!f.grid.GetRow(bad, &record));
        QVERIFY(!f.grid.SetRow(bad, &record));
        QVERIFY(!f.grid.GetSection(bad, &record));
        QVERIFY(!f.grid.SetSection(bad, &record));
        QVERIFY(!f.grid.GetSectionText(bad, nullptr, 0));
        QVERIFY(!f.grid.SetSectionText(bad, "a"));
        QCOMPARE(f.grid.GetRowParam(bad), 0UL);
        QVERIFY(!f.grid.SetRowParam(bad, 1));
        QCOMPARE(f.grid.GetRowHeight(bad), 0U);
        QVERIFY(!f.grid.SetRowHeight(bad, 1));
    }
    for (tag_HROW * const row : rows) {
        QVERIFY(!f.grid.GetRow(row, nullptr));
        QVERIFY(!f.grid.SetRow(row, nullptr));
        QVERIFY(!f.grid.GetSection(row, nullptr));
        QVERIFY(!f.grid.SetSection(row, nullptr));
    }
}

void tst_RowRecords::getSection_readsTheTitle()
{
    Fixture f;
    tag_HROW * const row = f.grid.InsertSection("not taken", GCI_LAST);
    char buffer[8] = "#######";
    GC_SECTION record;
    record.mask = GCRM_SECTIONTEXT;
    record.text = buffer;
    record.textMax = sizeof buffer;
    QVERIFY(f.grid.GetSection(row, &record));
    QCOMPARE(QByteArray(buffer, sizeof buffer), QByteArray(8, '\0'));
    record.text = const_cast<char *>("title");
    QVERIFY(f.grid.SetSection(row, &record));
    record.text = buffer;
    QVERIFY(f.grid.GetSection(row, &record));
    QCOMPARE(buffer, "title");
    QCOMPARE(f.grid.GetItemText(row, f.column), std::string("title"));
}

void tst_RowRecords::getSectionText_leavesTheBufferAndAnswersTrue()
{
    Fixture f;
    auto const rows = f.addEachClass();
    f.grid.SetItemText(rows[1], f.column, "title");
    char buffer[8] = "#######";
    for (tag_HROW * const row : rows) {
        bool const known = row == rows[0] || row == rows[1];
        QCOMPARE(f.grid.GetSectionText(row, buffer, sizeof buffer), known);
        QCOMPARE(buffer, "#######");
    }
}

void tst_RowRecords::setSectionText_changesNothing()
{
    Fixture f;
    tag_HROW * const row = f.grid.InsertSection(nullptr, GCI_LAST);
    f.grid.SetItemText(row, f.column, "title");
    QVERIFY(f.grid.SetSectionText(row, "other"));
    QCOMPARE(f.grid.GetItemText(row, f.column), std::string("title"));
}

void tst_RowRecords::setRowBkColor_leavesTheBackgroundAndChangesTheTextColour()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    GC_ROW record;
    record.mask = GCRM_TEXTCOLOR | GCRM_BKCOLOR;
    record.textColor = QColor(1, 2, 3);
    record.bkColor = QColor(4, 5, 6);
    QVERIFY(f.grid.SetRow(row, &record));
    QVERIFY(f.grid.SetRowBkColor(row, Qt::green));
    QCOMPARE(f.grid.GetRowBkColor(row), QColor(4, 5, 6));
    QCOMPARE(f.grid.GetRowTextColor(row).rgb(), QColor().rgb());
}

void tst_RowRecords::setRowTextColor_setsIt()
{
    Fixture f;
    auto const rows = f.addEachClass();
    QVERIFY(f.grid.SetRowTextColor(rows[0], Qt::green));
    QVERIFY(f.grid.SetRowTextColor(rows[1], Qt::green));
    QVERIFY(!f.grid.SetRowTextColor(rows[2], Qt::green));
    QVERIFY(!f.grid.SetRowTextColor(rows[3], Qt::green));
    QCOMPARE(f.grid.GetRowTextColor(rows[0]), QColor(Qt::green));
    QCOMPARE(f.grid.GetRowTextColor(rows[1]), QColor(Qt::green));
}

void tst_RowRecords::setRow_requests_runInTheirOrder()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    f.grid.add("c", row);
    f.grid.Expand(row, GCE_COLLAPSE);
    f.grid.SetRowSel(f.grid.add("other"), true); // some column has the focus
    Notes notes(&f.grid);
    QString focusAtSelection;
    QString focusAtExpansion;
    notes.act = [&](char const * what, tag_HROW *) {
        (std::strcmp(what, "selected") == 0 ? focusAtSelection : focusAtExpansion) = f.grid.focus();
    };
    unsigned const all = GCRS_SELECTED | GCRS_FOCUSED | GCRS_EXPANDED;
    QVERIFY(f.setState(row, all, true));
    QCOMPARE(notes.taken(), QStringLiteral("selected; expanding r; expanded r"));
    QCOMPARE(focusAtSelection, QStringLiteral("other/0"));
    QCOMPARE(focusAtExpansion, QStringLiteral("r/0"));
    QCOMPARE(f.stateOf(row) & all, all);
    QVERIFY(f.setState(row, all, false));
    QCOMPARE(notes.taken(), QStringLiteral("selected; expanding r; expanded r"));
    QCOMPARE(focusAtSelection, QStringLiteral("r/0"));
    QCOMPARE(focusAtExpansion, QStringLiteral("-/-"));
    QCOMPARE(f.stateOf(row) & all, 0U);
    f.grid.setNotification(nullptr);
}

void tst_RowRecords::setRow_selection_tellsOnlyOfChanges()
{
    Fixture f;
    auto const rows = f.addEachClass();
    Notes notes(&f.grid);
    for (tag_HROW * const row : rows) {
        bool const result = row == rows[0] || row == rows[1];
        QCOMPARE(f.setState(row, GCRS_SELECTED, false), result);
        QCOMPARE(notes.taken(), QString());
        QCOMPARE(f.setState(row, GCRS_SELECTED, true), result);
        QCOMPARE(notes.taken(), QStringLiteral("selected"));
        QCOMPARE(f.setState(row, GCRS_SELECTED, true), result);
        QCOMPARE(notes.taken(), QString());
        QCOMPARE(f.setState(row, GCRS_SELECTED, false), result);
        QCOMPARE(notes.taken(), QStringLiteral("selected"));
    }
    QCOMPARE(f.grid.GetSelectedCount(), 0U);
    f.grid.setNotification(nullptr);
}

void tst_RowRecords::setRow_focus_needsAFocusedColumn()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    QVERIFY(f.setState(row, GCRS_FOCUSED, true));
    QCOMPARE(f.grid.focus(), QStringLiteral("-/-"));
    f.grid.SetFocusedColumn(f.column);
    QVERIFY(f.setState(row, GCRS_FOCUSED, true));
    QCOMPARE(f.grid.focus(), QStringLiteral("r/0"));
    QCOMPARE(f.grid.GetSelectedCount(), 0U);
}

void tst_RowRecords::setRow_unfocus_clearsTheFocusWhereverItIs()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    tag_HROW * const other = f.grid.add("o");
    f.grid.SetRowSel(row, true);
    QVERIFY(f.setState(other, GCRS_FOCUSED, false));
    QCOMPARE(f.grid.focus(), QStringLiteral("-/-"));
}

void tst_RowRecords::setRow_expansion_canBeVetoed()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    f.grid.add("c", row);
    Notes notes(&f.grid);
    notes.allowExpand = false;
    QVERIFY(f.setState(row, GCRS_EXPANDED, false));
    QCOMPARE(notes.taken(), QStringLiteral("expanding r"));
    QVERIFY(f.stateOf(row) & GCRS_EXPANDED);
    f.grid.setNotification(nullptr);
}

void tst_RowRecords::setRow_height_ofEachRowClass_data()
{
    QTest::addColumn<int>("rowClass");
    QTest::newRow("ordinary") << 0;
    QTest::newRow("section") << 1;
    QTest::newRow("slim") << 2;
    QTest::newRow("lonely") << 3;
}

void tst_RowRecords::setRow_height_ofEachRowClass()
{
    QFETCH(int, rowClass);
    Fixture f;
    tag_HROW * const row = f.addEachClass()[std::size_t(rowClass)];
    QVERIFY(f.grid.showSized(300, 200));
    GC_ROW record;
    record.mask = GCRM_HEIGHT;
    record.height = 47;
    QCOMPARE(f.grid.SetRow(row, &record), rowClass < 2);
    QCOMPARE(f.grid.GetRowHeight(row), 47U);
    QVERIFY(f.grid.takePainted().contains(f.grid.rect().center()));
    record.height = -1;
    QCOMPARE(f.grid.SetRow(row, &record), rowClass < 2);
    QCOMPARE(f.grid.GetRowHeight(row), unsigned(f.grid.GetDefaultHeight()));
    QVERIFY(!f.grid.GetPriv().HasExplicitHeights());
    QVERIFY(f.grid.takePainted().contains(f.grid.rect().center()));
}

void tst_RowRecords::setRow_parent_isNotRead()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    tag_HROW * const other = f.grid.add("o");
    GC_ROW record;
    record.mask = GCRM_PARENT;
    record.parent = other;
    QVERIFY(f.grid.SetRow(row, &record));
    QVERIFY(f.grid.GetNextRow(GCN_PARENT, row) == GC_ROOT);
    QCOMPARE(f.grid.order(), QStringLiteral("r o"));
}

void tst_RowRecords::setRow_hasChildren_showsAButtonWithoutChildren()
{
    Fixture f;
    auto const rows = f.addEachClass();
    for (tag_HROW * const row : rows) {
        bool const stored = row == rows[0] || row == rows[1];
        QCOMPARE(f.setState(row, GCRS_HASCHILDREN, true), stored);
        QCOMPARE((f.stateOf(row) & GCRS_HASCHILDREN) != 0, stored);
        f.setState(row, GCRS_HASCHILDREN, false);
        QVERIFY(!(f.stateOf(row) & GCRS_HASCHILDREN));
    }
}

void tst_RowRecords::setRow_colour_repaintsTheRow()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    tag_HROW * const other = f.grid.add("o");
    QVERIFY(f.grid.showSized(300, 200));
    QRect rect;
    QRect otherRect;
    QVERIFY(f.grid.GetRowRect(row, &rect));
    QVERIFY(f.grid.GetRowRect(other, &otherRect));
    QPoint const inside(150, rect.center().y());
    QPoint const below(150, otherRect.center().y());
    GC_ROW record;
    for (unsigned mask : {GCRM_TEXTCOLOR, GCRM_BKCOLOR, GCRM_FONT}) {
        record.mask = mask;
        QVERIFY(f.grid.SetRow(row, &record));
        QRegion const painted = f.grid.takePainted();
        QVERIFY(painted.contains(inside));
        QVERIFY(!painted.contains(below));
    }
    record.mask = GCRM_PARAM;
    QVERIFY(f.grid.SetRow(row, &record));
    QVERIFY(f.grid.takePainted().isEmpty());
}

void tst_RowRecords::setRow_rowDiesInANotification_stops()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    f.grid.add("c", row);
    Notes notes(&f.grid);
    notes.act = [&](char const * what, tag_HROW *) {
        if (std::strcmp(what, "selected") == 0) {
            f.grid.DeleteRow(row);
        }
    };
    QVERIFY(f.setState(row, GCRS_SELECTED | GCRS_EXPANDED, true));
    QCOMPARE(notes.taken(), QStringLiteral("selected"));
    QCOMPARE(f.grid.GetRowCount(), 0U);
    QCOMPARE(checkGrid(f.grid), QString());
    f.grid.setNotification(nullptr);
}

void tst_RowRecords::setRowHeight_minusOne_isStoredAsAHeight()
{
    Fixture f;
    tag_HROW * const row = f.grid.add("r");
    QVERIFY(f.grid.SetRowHeight(row, -1));
    QVERIFY(f.grid.GetPriv().HasExplicitHeights());
    QCOMPARE(int(f.grid.GetRowHeight(row)), -1);
}

void tst_RowRecords::rowParam_ofEachRowClass()
{
    Fixture f;
    for (tag_HROW * const row : f.addEachClass()) {
        QVERIFY(f.grid.SetRowParam(row, ~0UL));
        QCOMPARE(f.grid.GetRowParam(row), ~0UL);
        GC_ROW record;
        record.mask = GCRM_PARAM;
        record.param = 12;
        f.grid.SetRow(row, &record);
        QCOMPARE(f.grid.GetRowParam(row), 12UL);
    }
}

void tst_RowRecords::newRow_underCollapsedParent_isNotVisibleAndHasHeightZero()
{
    Fixture f;
    tag_HROW * const parent = f.grid.add("p");
    f.grid.add("c", parent);
    f.grid.Expand(parent, GCE_COLLAPSE);
    tag_HROW * const row = f.grid.add("n", parent);
    for (bool rebuilt : {false, true}) {
        if (rebuilt) {
            f.grid.UpdateVisibleRows();
        }
        QCOMPARE(f.grid.GetRowHeight(row), 0U);
        QVERIFY(!(f.stateOf(row) & GCRS_VISIBLE));
    }
    QCOMPARE(f.grid.order(), QStringLiteral("p"));
}

ZENU_TEST(tst_RowRecords)
#include "tst_RowRecords.moc"
