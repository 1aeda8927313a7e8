#include "tests/grid/BadInputScene.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::BadInputScene;
using zenutest::columnOf;
using zenutest::isMarked;
using zenutest::markedItem;
using zenutest::markedRect;
using zenutest::untouched;

namespace {

// An operation with a column handle in one of its places; true when it failed as it says and left
// its record alone.
struct ColumnCall
{
    char const * name;
    bool (*fails)(BadInputScene & scene, tag_HCOLUMN * column);
};

// clang-format off
ColumnCall const columnCalls[] = {
    {"DeleteColumn", [](BadInputScene & s, tag_HCOLUMN * column) {
         return !s.grid.DeleteColumn(column); }},
    {"SetColumn", [](BadInputScene & s, tag_HCOLUMN * column) {
         GC_COLUMN record;
         record.mask = 0x3f;
         record.width = untouched;
         return !s.grid.SetColumn(column, &record); }},
    {"GetColumn", [](BadInputScene & s, tag_HCOLUMN * column) {
         char text[] = "as it was";
         GC_COLUMN record;
         record.mask = 0x3f;
         record.text = text;
         record.textMax = sizeof text;
         record.width = record.order = untouched;
         return !s.grid.GetColumn(column, &record) && record.width == untouched &&
                record.order == untouched && *text == 'a'; }},
    {"GetColumnWidth", [](BadInputScene & s, tag_HCOLUMN * column) {
         return s.grid.GetColumnWidth(column) == 0; }},
    {"SetColumnWidth", [](BadInputScene & s, tag_HCOLUMN * column) {
         return !s.grid.SetColumnWidth(column, 9); }},
    {"BestFit", [](BadInputScene & s, tag_HCOLUMN * column) {
         return s.grid.BestFit(column) == 0; }},
    {"ShowColumn", [](BadInputScene & s, tag_HCOLUMN * column) {
         s.grid.ShowColumn(column, false);
         s.grid.ShowColumn(column, true);
         return true; }},
    {"SetColumnOrderArray", [](BadInputScene & s, tag_HCOLUMN * column) {
         std::array<tag_HCOLUMN *, BadInputScene::kinds> order = s.columns;
         order[3] = column; // that one keeps its place, as the others do
         return s.grid.SetColumnOrderArray(order.data(), BadInputScene::kinds); }},
    {"Column2HeaderItem", [](BadInputScene & s, tag_HCOLUMN * column) {
         return s.grid.Column2HeaderItem(column) == -1; }},
    {"SetFocusedColumn", [](BadInputScene & s, tag_HCOLUMN * column) {
         s.grid.SetFocusedColumn(column);
         return true; }},
    {"InvalidateColumn", [](BadInputScene & s, tag_HCOLUMN * column) {
         s.grid.takePainted();
         s.grid.InvalidateColumn(column);
         return s.grid.takePainted().isEmpty(); }},
    {"Sort", [](BadInputScene & s, tag_HCOLUMN * column) {
         s.grid.Sort(column, true);
         GC_SORT sort;
         sort.column = column;
         s.grid.Sort(&sort);
         s.grid.UpdateVisibleRows();
         return true; }},
    {"GetItem", [](BadInputScene & s, tag_HCOLUMN * column) {
         GC_ITEM item = markedItem();
         return !s.grid.GetItem(s.parent, column, &item) && isMarked(item) &&
                !s.grid.GetItem(s.section, column, &item) && isMarked(item); }},
    {"SetItem", [](BadInputScene & s, tag_HCOLUMN * column) {
         GC_ITEM item = markedItem();
         return !s.grid.SetItem(s.parent, column, &item) &&
                !s.grid.SetItem(s.parent, column, GCIM_TEXT, "text", 1, 1); }},
    {"GetItemText", [](BadInputScene & s, tag_HCOLUMN * column) {
         return s.grid.GetItemText(s.parent, column).empty() &&
                s.grid.GetItemText(s.slim, column).empty(); }},
    {"GetItemTextLen", [](BadInputScene & s, tag_HCOLUMN * column) {
         return s.grid.GetItemTextLen(s.parent, column) == 0 &&
                s.grid.GetItemTextLen(s.slim, column) == 0; }},
    {"SetItemText", [](BadInputScene & s, tag_HCOLUMN * column) {
         return !s.grid.SetItemText(s.parent, column, "text"); }},
    {"InvalidateItem", [](BadInputScene & s, tag_HCOLUMN * column) {
         s.grid.takePainted();
         s.grid.InvalidateItem(s.parent, column);
         std::as_const(s.grid).InvalidateItem(s.parent, column);
         return s.grid.takePainted().isEmpty(); }},
    {"GetItemRect", [](BadInputScene & s, tag_HCOLUMN * column) {
         QRect rect = markedRect;
         return !s.grid.GetItemRect(s.parent, column, &rect) && rect == markedRect; }},
    {"GetItemEditorRect", [](BadInputScene & s, tag_HCOLUMN * column) {
         QRect rect = markedRect;
         return !s.grid.GetItemEditorRect(s.parent, column, &rect) && rect == markedRect; }},
    {"EnsureVisible", [](BadInputScene & s, tag_HCOLUMN * column) {
         s.grid.EnsureVisible(nullptr, column);
         return true; }},
};
// clang-format on

} // namespace

class tst_GridBadColumns : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void cleanupTestCase() { scene.reset(); }
    void badColumn_failsAndChangesNothing_data();
    void badColumn_failsAndChangesNothing();

private:
    // One grid for all: nothing may change it. A test that failed may have.
    BadInputScene & shown();

    std::unique_ptr<BadInputScene> scene;
};

void tst_GridBadColumns::cleanup()
{
    if (QTest::currentTestFailed()) {
        scene.reset();
    }
}

BadInputScene & tst_GridBadColumns::shown()
{
    if (!scene) {
        scene = std::make_unique<BadInputScene>();
        scene->show();
    }
    return *scene;
}

void tst_GridBadColumns::badColumn_failsAndChangesNothing_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<qlonglong>("handle");
    struct
    {
        char const * name;
        qlonglong value;
    } const handles[] = {
        {"none", -1},
        {"deleted", 0},
        {"not yet given out", BadInputScene::kinds + 1},
        {"largest", INT_MAX},
        {"beyond an int", 0x100000001},
        {"negative", -2},
        {"most negative", LLONG_MIN},
        {"a row", reinterpret_cast<qintptr>(shown().parent)},
    };
    for (int call = 0; call < static_cast<int>(std::size(columnCalls)); ++call) {
        for (auto const & handle : handles) {
            QTest::addRow("%s, %s", columnCalls[call].name, handle.name) << call << handle.value;
        }
    }
}

void tst_GridBadColumns::badColumn_failsAndChangesNothing()
{
    QFETCH(int, call);
    QFETCH(qlonglong, handle);
    BadInputScene & s = shown();
    QStringList const before = zenutest::snapshot(s.grid);
    s.notes->taken();
    QVERIFY(columnCalls[call].fails(s, columnOf(static_cast<qintptr>(handle))));
    QCOMPARE(s.notes->taken(), QString());
    QCOMPARE(zenutest::difference(before, zenutest::snapshot(s.grid)), QString());
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
    s.grid.Sort(nullptr);
}

ZENU_TEST(tst_GridBadColumns)
#include "tst_GridBadColumns.moc"
