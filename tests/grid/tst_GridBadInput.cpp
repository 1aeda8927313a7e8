#include "tests/grid/BadInputScene.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::BadInputScene;
using zenutest::isMarked;
using zenutest::markedItem;
using zenutest::markedRect;
using zenutest::markedRow;
using zenutest::rowHandle;
using zenutest::untouched;

namespace {

// Which special handles are an answer where the operation takes one.
enum class Takes
{
    Rows,   // nothing but rows
    Parent, // GC_ROOT too
    Place   // GCI_FIRST and GCI_LAST too
};

// An operation with a row handle in one of its places; true when it failed as it says and left its
// record alone.
struct RowCall
{
    char const * name;
    Takes takes;
    bool (*fails)(BadInputScene & scene, tag_HROW * row);
};

constexpr unsigned everyRowField = GCRM_PARENT | GCRM_HEIGHT | GCRM_PARAM | GCRM_TEXTCOLOR |
                                   GCRM_STATE | GCRM_BKCOLOR | GCRM_SECTIONTEXT;

bool insertsNoSlimRows(BadInputScene & scene, tag_HROW * parent, tag_HROW * after)
{
    GC_SLIMROWDATA data[2];
    data[1].hasChildren = false;
    GC_INSERTSLIMROW record;
    record.parent = parent;
    record.after = after;
    record.count = 2;
    record.rows = data;
    bool const single = scene.grid.InsertSlimRow(7, true, parent, after) == nullptr;
    bool const lonely = scene.grid.InsertSlimRow(7, false, parent, after) == nullptr;
    bool const byRecord = !scene.grid.InsertSlimRow(&record);
    bool const many = !scene.grid.InsertSlimRows(2, data, parent, after);
    return single && lonely && byRecord && many && !data[0].row && !data[1].row;
}

// clang-format off
RowCall const rowCalls[] = {
    {"InsertRow parent", Takes::Parent, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.InsertRow(row, GCI_LAST); }},
    {"InsertRow record's parent", Takes::Parent, [](BadInputScene & s, tag_HROW * row) {
         GC_ROW record = markedRow(everyRowField);
         record.parent = row;
         return !s.grid.InsertRow(&record, GCI_LAST); }},
    {"InsertRow after, top level", Takes::Place, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.InsertRow(GC_ROOT, row); }},
    {"InsertRow after, child", Takes::Place, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.InsertRow(s.parent, row); }},
    {"InsertRow record, after", Takes::Place, [](BadInputScene & s, tag_HROW * row) {
         GC_ROW record = markedRow(everyRowField);
         return !s.grid.InsertRow(&record, row); }},
    {"InsertSection", Takes::Place, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.InsertSection("title", row); }},
    {"InsertSlimRow parent", Takes::Parent, [](BadInputScene & s, tag_HROW * row) {
         return insertsNoSlimRows(s, row, GCI_LAST); }},
    {"InsertSlimRow after, top level", Takes::Place, [](BadInputScene & s, tag_HROW * row) {
         return insertsNoSlimRows(s, GC_ROOT, row); }},
    {"InsertSlimRow after, child", Takes::Place, [](BadInputScene & s, tag_HROW * row) {
         return insertsNoSlimRows(s, s.parent, row); }},
    {"DeleteRow", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.DeleteRow(row); }},
    {"ResetSlimRow", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.ResetSlimRow(row); }},
    {"Expand", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         bool failed = true;
         for (unsigned const code : {0U, 1U, 2U, 5U, 0x8000U, 0x8001U, 0x8002U, 0x8003U, ~0U}) {
             failed = failed && !s.grid.Expand(row, code);
         }
         return failed; }},
    {"GetRow", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         GC_ROW record = markedRow(GCRM_TOP);
         return !s.grid.GetRow(row, &record) && isMarked(record); }},
    {"SetRow", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         GC_ROW record = markedRow(everyRowField);
         return !s.grid.SetRow(row, &record); }},
    {"GetSection", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         char text[] = "as it was";
         GC_SECTION record = markedRow(GCRM_SECTIONTEXT);
         record.text = text;
         record.textMax = sizeof text;
         return !s.grid.GetSection(row, &record) && isMarked(record) && *text == 'a'; }},
    {"SetSection", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         GC_SECTION record = markedRow(everyRowField);
         return !s.grid.SetSection(row, &record); }},
    {"GetSectionText", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         char text[] = "as it was";
         return !s.grid.GetSectionText(row, text, sizeof text) && *text == 'a'; }},
    {"SetSectionText", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetSectionText(row, "title"); }},
    {"GetRowParam", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return s.grid.GetRowParam(row) == 0; }},
    {"SetRowParam", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetRowParam(row, 9); }},
    {"GetRowHeight", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return s.grid.GetRowHeight(row) == 0; }},
    {"SetRowHeight", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetRowHeight(row, 9); }},
    {"GetRowRect", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         QRect rect = markedRect;
         return !s.grid.GetRowRect(row, &rect) && rect == markedRect; }},
    {"GetRowTextColor", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return s.grid.GetRowTextColor(row) == QColor(Qt::black); }},
    {"GetRowBkColor", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return s.grid.GetRowBkColor(row) == QColor(Qt::black); }},
    {"SetRowTextColor", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetRowTextColor(row, Qt::red); }},
    {"SetRowBkColor", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetRowBkColor(row, Qt::red); }},
    {"InvalidateRow", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         s.grid.InvalidateRow(row);
         return true; }},
    {"GetNextRow children", Takes::Parent, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.GetNextRow(GCN_CHILD_FIRST, row); }},
    {"GetNextRow relatives", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         bool failed = true;
         for (unsigned const flag : {GCN_CHILD_NEXT, GCN_CHILD_PREV, GCN_PARENT,
                                     GCN_VISIBLE_PARENT, GCN_VISIBLE_PREV}) {
             failed = failed && !s.grid.GetNextRow(flag, row);
         }
         return failed; }},
    {"GetNextRow of walks", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         bool failed = true;
         for (unsigned const flag : {GCN_ALL_FIRST, GCN_SHOWN_FIRST, GCN_SELECTED_FIRST,
                                     GCN_VISIBLE_FIRST}) {
             failed = failed && s.grid.GetNextRow(flag, row) && !s.grid.GetNextRow(flag + 1, row);
         }
         return failed; }},
    {"GetNextRow of no known flag", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.GetNextRow(0, row) && !s.grid.GetNextRow(17, row) &&
                !s.grid.GetNextRow(~0U, row); }},
    {"begin", Takes::Parent, [](BadInputScene & s, tag_HROW * row) {
         auto children = s.grid.begin(GCN_CHILD_FIRST, row);
         auto const relative = std::as_const(s.grid).begin(GCN_PARENT, row);
         bool const none = children == s.grid.end() && relative == s.grid.end();
         return none && ++children == s.grid.end() && children + 3 == s.grid.end(); }},
    {"GetItem", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         GC_ITEM item = markedItem();
         return !s.grid.GetItem(row, s.text(), &item) && isMarked(item); }},
    {"SetItem record", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         GC_ITEM item = markedItem();
         return !s.grid.SetItem(row, s.text(), &item); }},
    {"SetItem", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetItem(row, s.text(), GCIM_TEXT, "text", 1, 1); }},
    {"GetItemText", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return s.grid.GetItemText(row, s.text()).empty(); }},
    {"GetItemTextLen", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return s.grid.GetItemTextLen(row, s.text()) == 0; }},
    {"SetItemText", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetItemText(row, s.text(), "text"); }},
    {"InvalidateItem", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         s.grid.InvalidateItem(row, s.text());
         std::as_const(s.grid).InvalidateItem(row, s.text());
         return true; }},
    {"GetItemRect", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         QRect rect = markedRect;
         return !s.grid.GetItemRect(row, s.text(), &rect) && rect == markedRect; }},
    {"GetItemEditorRect", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         QRect rect = markedRect;
         return !s.grid.GetItemEditorRect(row, s.text(), &rect) && rect == markedRect; }},
    {"EnsureVisible", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         s.grid.EnsureVisible(row, GC_NOCOLUMN);
         return true; }},
    {"SetRowSel", Takes::Rows, [](BadInputScene & s, tag_HROW * row) {
         return !s.grid.SetRowSel(row, true) && !s.grid.SetRowSel(row, false); }},
};
// clang-format on

struct NamedHandle
{
    char const * name;
    tag_HROW * row;
};

} // namespace

class tst_GridBadInput : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void cleanupTestCase() { scene.reset(); }
    void badRow_failsAndChangesNothing_data();
    void badRow_failsAndChangesNothing();
    void badRowInAList_endsIt_data();
    void badRowInAList_endsIt();
    void wholeTreeCodes_readNoHandle_data();
    void wholeTreeCodes_readNoHandle();

private:
    // One grid for all: nothing may change it. A test that failed may have.
    BadInputScene & shown();
    std::vector<NamedHandle> badRows();

    std::unique_ptr<BadInputScene> scene;
};

void tst_GridBadInput::cleanup()
{
    if (QTest::currentTestFailed()) {
        scene.reset();
    }
}

BadInputScene & tst_GridBadInput::shown()
{
    if (!scene) {
        scene = std::make_unique<BadInputScene>();
        scene->show();
    }
    return *scene;
}

std::vector<NamedHandle> tst_GridBadInput::badRows()
{
    BadInputScene const & s = shown();
    return {{"null", nullptr},
            {"stale", s.stale},
            {"stale slim", s.staleSlim},
            {"foreign", s.foreign},
            {"root", GC_ROOT},
            {"first", GCI_FIRST},
            {"last", GCI_LAST},
            {"-4", rowHandle(quintptr(-4))},
            {"1", rowHandle(1)},
            {"inside a row", rowHandle(reinterpret_cast<quintptr>(s.parent) + 8)},
            {"the grid", rowHandle(reinterpret_cast<quintptr>(&s.grid))}};
}

void tst_GridBadInput::badRow_failsAndChangesNothing_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<int>("handle");
    std::vector<NamedHandle> const handles = badRows();
    for (int call = 0; call < static_cast<int>(std::size(rowCalls)); ++call) {
        Takes const takes = rowCalls[call].takes;
        for (std::size_t i = 0; i < handles.size(); ++i) {
            tag_HROW * const row = handles[i].row;
            if ((takes == Takes::Parent && row == GC_ROOT) ||
                (takes == Takes::Place && (row == GCI_FIRST || row == GCI_LAST))) {
                continue;
            }
            QTest::addRow("%s, %s", rowCalls[call].name, handles[i].name)
                << call << static_cast<int>(i);
        }
    }
}

void tst_GridBadInput::badRow_failsAndChangesNothing()
{
    QFETCH(int, call);
    QFETCH(int, handle);
    BadInputScene & s = shown();
    tag_HROW * const row = badRows()[static_cast<std::size_t>(handle)].row;
    QStringList const before = zenutest::snapshot(s.grid);
    QStringList const beforeThere = zenutest::snapshot(s.other);
    s.grid.takePainted();
    s.notes->taken();
    QVERIFY(rowCalls[call].fails(s, row));
    QCOMPARE(s.notes->taken(), QString());
    QVERIFY(s.grid.takePainted().isEmpty());
    QCOMPARE(zenutest::difference(before, zenutest::snapshot(s.grid)), QString());
    QCOMPARE(zenutest::difference(beforeThere, zenutest::snapshot(s.other)), QString());
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridBadInput::badRowInAList_endsIt_data()
{
    QTest::addColumn<int>("handle");
    std::vector<NamedHandle> const handles = badRows();
    for (std::size_t i = 0; i < handles.size(); ++i) {
        QTest::newRow(handles[i].name) << static_cast<int>(i);
    }
}

void tst_GridBadInput::badRowInAList_endsIt()
{
    QFETCH(int, handle);
    BadInputScene & s = shown();
    tag_HROW * const bad = badRows()[static_cast<std::size_t>(handle)].row;
    QStringList const before = zenutest::snapshot(s.grid);
    tag_HROW * rows[] = {s.child, bad, s.parent};
    s.notes->taken();
    s.grid.SelectRows(3, rows); // the first is selected already
    QCOMPARE(s.notes->taken(), QStringLiteral("selected"));
    QCOMPARE(zenutest::difference(before, zenutest::snapshot(s.grid)), QString());
}

void tst_GridBadInput::wholeTreeCodes_readNoHandle_data()
{
    badRowInAList_endsIt_data();
}

void tst_GridBadInput::wholeTreeCodes_readNoHandle()
{
    QFETCH(int, handle);
    BadInputScene & s = shown();
    tag_HROW * const bad = badRows()[static_cast<std::size_t>(handle)].row;
    QVERIFY(s.grid.Expand(bad, GCE_COLLAPSEALL));
    QVERIFY(s.grid.Expand(bad, GCE_EXPANDALL));
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

ZENU_TEST(tst_GridBadInput)
#include "tst_GridBadInput.moc"
