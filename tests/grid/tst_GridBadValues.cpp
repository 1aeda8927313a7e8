#include "tests/grid/BadInputScene.h"
#include "tests/support/TestMain.h"

#include <algorithm>
#include <climits>

using namespace zenu;
using zenutest::BadInputScene;
using zenutest::isMarked;
using zenutest::markedItem;
using zenutest::markedRow;
using zenutest::rowHandle;
using zenutest::untouched;

namespace {

// Something that must answer as it says and change nothing at all.
struct Call
{
    char const * name;
    bool (*holds)(BadInputScene & scene);
};

constexpr int nonsense[] = {-1, INT_MIN, INT_MAX, 99};

GC_COLUMN columnRecord(unsigned mask)
{
    GC_COLUMN record;
    record.mask = mask;
    record.width = 40;
    return record;
}

std::vector<tag_HROW *> eachClass(BadInputScene const & s)
{
    return {s.parent, s.child, s.section, s.slim, s.slimChild, s.lonely};
}

// Reads a title or a text into a buffer of which `size` bytes are said to be there; answers what
// the buffer holds then.
std::string columnTitle(BadInputScene & s, int size)
{
    char buffer[] = "########";
    GC_COLUMN record = columnRecord(GCCM_TEXT);
    record.text = buffer;
    record.textMax = size;
    return s.grid.GetColumn(s.text(), &record) ? std::string(buffer) : "failed";
}

std::string sectionTitle(BadInputScene & s, int size)
{
    char buffer[] = "########";
    GC_SECTION record = markedRow(GCRM_SECTIONTEXT);
    record.text = buffer;
    record.textMax = size;
    return s.grid.GetSection(s.section, &record) ? std::string(buffer) : "failed";
}

std::string itemText(BadInputScene & s, int size)
{
    char buffer[] = "########";
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = buffer;
    item.textMax = size;
    return s.grid.GetItem(s.parent, s.text(), &item) ? std::string(buffer) : "failed";
}

// clang-format off
Call const calls[] = {
    {"column records that are null", [](BadInputScene & s) {
         GC_COLUMN const * const none = nullptr;
         return s.grid.AddColumn(none) == GC_NOCOLUMN && s.grid.InsertColumn(0, none) == GC_NOCOLUMN &&
                s.grid.InsertColumn(INT_MAX, none) == GC_NOCOLUMN &&
                !s.grid.SetColumn(s.text(), nullptr) && !s.grid.GetColumn(s.text(), nullptr); }},
    {"kinds that do not exist", [](BadInputScene & s) {
         bool failed = true;
         for (int const kind : {8, 9, -1, INT_MIN, INT_MAX}) {
             GC_COLUMN record = columnRecord(GCCM_KIND);
             record.kind = kind;
             failed = failed && s.grid.AddColumn(&record) == GC_NOCOLUMN &&
                      s.grid.InsertColumn(0, &record) == GC_NOCOLUMN &&
                      !s.grid.SetColumn(s.text(), &record);
         }
         return failed; }},
    {"the kind that no column becomes", [](BadInputScene & s) {
         GC_COLUMN record = columnRecord(GCCM_KIND);
         record.kind = GCCK_CHECKBOXWITHICON;
         return !s.grid.SetColumn(s.text(), &record) &&
                !s.grid.SetColumn(s.columns[GCCK_CHECKBOXWITHICON], &record); }},
    {"column title without a buffer", [](BadInputScene & s) {
         GC_COLUMN record = columnRecord(GCCM_TEXT);
         record.textMax = 100;
         return s.grid.GetColumn(s.text(), &record) && record.width == 60; }},
    {"order arrays that are null", [](BadInputScene & s) {
         return !s.grid.GetColumnOrderArray(nullptr, BadInputScene::kinds) &&
                !s.grid.SetColumnOrderArray(nullptr, BadInputScene::kinds); }},
    {"order arrays of another count", [](BadInputScene & s) {
         std::array<tag_HCOLUMN *, 20> order{};
         order.fill(GC_NOCOLUMN);
         bool failed = true;
         for (int const count : {0, -1, 1, BadInputScene::kinds - 1, INT_MIN}) {
             failed = failed && !s.grid.GetColumnOrderArray(order.data(), count) &&
                      !s.grid.SetColumnOrderArray(order.data(), count);
         }
         return failed && !s.grid.SetColumnOrderArray(order.data(), BadInputScene::kinds + 1) &&
                !s.grid.SetColumnOrderArray(order.data(), INT_MAX) &&
                std::ranges::count(order, GC_NOCOLUMN) == std::ssize(order); }},
    {"header items that are not there", [](BadInputScene & s) {
         bool failed = s.grid.HeaderItem2Column(BadInputScene::kinds) == GC_NOCOLUMN;
         for (int const index : nonsense) {
             failed = failed && s.grid.HeaderItem2Column(index) == GC_NOCOLUMN;
         }
         return failed; }},
    {"row records that are null", [](BadInputScene & s) {
         GC_ROW * const none = nullptr;
         bool failed = !s.grid.InsertRow(none, GCI_LAST) && !s.grid.InsertRow(none, nullptr);
         for (tag_HROW * const row : eachClass(s)) {
             failed = failed && !s.grid.GetRow(row, nullptr) && !s.grid.SetRow(row, nullptr) &&
                      !s.grid.GetSection(row, nullptr) && !s.grid.SetSection(row, nullptr) &&
                      !s.grid.GetRowRect(row, nullptr);
         }
         return failed; }},
    {"row records left at their defaults", [](BadInputScene & s) {
         GC_ROW row;
         GC_INSERTSLIMROW slim;
         return !s.grid.InsertRow(&row, GCI_LAST) && !s.grid.InsertSlimRow(&slim) &&
                s.grid.SetRow(s.parent, &row); }},
    {"slim records that are null", [](BadInputScene & s) {
         GC_INSERTSLIMROW record;
         record.parent = GC_ROOT;
         record.after = GCI_LAST;
         record.count = 3;
         return !s.grid.InsertSlimRow(nullptr) && !s.grid.InsertSlimRow(&record) &&
                !s.grid.InsertSlimRows(1, nullptr, GC_ROOT, GCI_LAST); }},
    {"slim counts below zero", [](BadInputScene & s) {
         GC_SLIMROWDATA data;
         data.row = rowHandle(untouched);
         return !s.grid.InsertSlimRows(-1, &data, GC_ROOT, GCI_LAST) &&
                !s.grid.InsertSlimRows(INT_MIN, &data, s.parent, GCI_FIRST) &&
                !s.grid.InsertSlimRows(-1, nullptr, GC_ROOT, GCI_LAST) &&
                data.row == rowHandle(untouched); }},
    {"slim count of zero", [](BadInputScene & s) {
         GC_SLIMROWDATA data;
         bool done = true;
         for (tag_HROW * const parent : {GC_ROOT, s.parent}) {
             done = done && s.grid.InsertSlimRows(0, &data, parent, GCI_LAST) &&
                    s.grid.InsertSlimRows(0, nullptr, parent, GCI_FIRST);
         }
         return done && !data.row && !s.grid.InsertSlimRows(0, &data, s.slim, GCI_LAST) &&
                !s.grid.InsertSlimRows(0, &data, GC_ROOT, s.child); }},
    {"places that are no siblings", [](BadInputScene & s) {
         GC_SLIMROWDATA data;
         bool failed = true;
         for (tag_HROW * const after : {s.child, s.slimChild, s.staleSlim}) {
             failed = failed && !s.grid.InsertRow(GC_ROOT, after) &&
                      !s.grid.InsertSection("title", after) &&
                      !s.grid.InsertSlimRows(1, &data, GC_ROOT, after) && !data.row;
         }
         for (tag_HROW * const after : {s.parent, s.section, s.lonely, s.slimChild}) {
             failed = failed && !s.grid.InsertRow(s.parent, after) &&
                      !s.grid.InsertSlimRows(1, &data, s.parent, after) && !data.row;
         }
         return failed; }},
    {"parents that take no children", [](BadInputScene & s) {
         GC_SLIMROWDATA data;
         bool failed = true;
         for (tag_HROW * const parent : {s.slim, s.slimChild, s.lonely}) {
             failed = failed && !s.grid.InsertRow(parent, GCI_LAST) &&
                      !s.grid.InsertSlimRows(1, &data, parent, GCI_LAST) && !data.row;
         }
         return failed; }},
    {"rows that are not slim, to be reset", [](BadInputScene & s) {
         return !s.grid.ResetSlimRow(s.parent) && !s.grid.ResetSlimRow(s.section) &&
                !s.grid.ResetSlimRow(s.lonely) && !s.grid.ResetSlimRow(s.slimChild); }},
    {"children of slim rows, to be deleted", [](BadInputScene & s) {
         return !s.grid.DeleteRow(s.slimChild); }},
    {"short buffer for a column's title", [](BadInputScene & s) {
         return columnTitle(s, 1) == "C#######" && columnTitle(s, 0) == "########" &&
                columnTitle(s, -1) == "########" && columnTitle(s, INT_MIN) == "########"; }},
    {"short buffer for a section's title", [](BadInputScene & s) {
         return sectionTitle(s, 3) == "Sec#####" && sectionTitle(s, 0) == "########" &&
                sectionTitle(s, -1) == "########" && sectionTitle(s, INT_MIN) == "########"; }},
    {"short buffer for an item's text", [](BadInputScene & s) {
         return itemText(s, 3) == "par#####" && itemText(s, 0) == "########" &&
                itemText(s, -1) == "########" && itemText(s, INT_MIN) == "########"; }},
    {"titles and texts without a buffer", [](BadInputScene & s) {
         GC_SECTION section = markedRow(GCRM_SECTIONTEXT);
         section.textMax = 100;
         bool holds = s.grid.GetSection(s.section, &section);
         for (tag_HROW * const row : {s.parent, s.section}) {
             holds = holds && s.grid.GetSectionText(row, nullptr, 10) &&
                     s.grid.GetSectionText(row, nullptr, -1);
         }
         GC_ITEM item;
         item.mask = GCIM_TEXT;
         item.textMax = 100;
         for (tag_HROW * const row : eachClass(s)) {
             holds = holds && !s.grid.GetItem(row, s.text(), &item);
         }
         return holds && !s.grid.GetItem(s.parent, s.columns[GCCK_LISTBOX], &item); }},
    {"item records and rectangles that are null", [](BadInputScene & s) {
         bool failed = true;
         for (tag_HROW * const row : eachClass(s)) {
             for (tag_HCOLUMN * const column : s.columns) {
                 failed = failed && !s.grid.GetItem(row, column, nullptr) &&
                          !s.grid.SetItem(row, column, nullptr) &&
                          !s.grid.GetItemRect(row, column, nullptr) &&
                          !s.grid.GetItemEditorRect(row, column, nullptr);
             }
         }
         return failed; }},
    {"items of rows that have none", [](BadInputScene & s) {
         GC_ITEM item = markedItem();
         bool failed = true;
         for (tag_HROW * const row : {s.slim, s.slimChild, s.lonely}) {
             failed = failed && !s.grid.GetItem(row, s.text(), &item) && isMarked(item) &&
                      !s.grid.SetItem(row, s.text(), &item) &&
                      !s.grid.SetItemText(row, s.text(), "text");
         }
         return failed; }},
    {"alignments above 7", [](BadInputScene & s) {
         bool failed = true;
         for (int const value : {8, -1, INT_MIN, INT_MAX}) {
             for (tag_HCOLUMN * const column : s.columns) {
                 GC_ITEM item;
                 item.mask = GCIM_ALIGN | GCIM_TEXT | GCIM_IMAGE;
                 item.value = value;
                 item.image = 3;
                 failed = failed && !s.grid.SetItem(s.parent, column, &item);
             }
         }
         return failed; }},
    {"hit tests far away, and for nobody", [](BadInputScene & s) {
         bool failed = !s.grid.HitTestEx(QPoint(20, 60), nullptr);
         for (int const far : {INT_MIN, -1, 100000, INT_MAX}) {
             for (QPoint const & point : {QPoint(far, 60), QPoint(20, far), QPoint(far, far)}) {
                 tag_HROW * row = s.parent;
                 tag_HCOLUMN * column = s.text();
                 GC_HITTESTEXINFO info;
                 GC_ITEM item = markedItem();
                 failed = failed && !s.grid.HitTest(point, &row, &column) && !row &&
                          column == GC_NOCOLUMN && !s.grid.HitTest(point, nullptr, nullptr) &&
                          !s.grid.HitTest(point, &item) && isMarked(item) &&
                          !s.grid.HitTest(point, nullptr) && !s.grid.HitTestEx(point, &info) &&
                          !info.row && info.column == GC_NOCOLUMN;
             }
         }
         GC_ITEM * const none = nullptr;
         return failed && s.grid.HitTest(QPoint(20, 60), nullptr, nullptr) &&
                s.grid.HitTest(QPoint(20, 60), none); }},
    {"nothing to bring into view", [](BadInputScene & s) {
         s.grid.EnsureVisible(nullptr, GC_NOCOLUMN);
         return true; }},
    {"sorting by nothing", [](BadInputScene & s) {
         GC_COMPAREPROC const none = nullptr;
         s.grid.Sort(none, 7);
         GC_SORT sort;
         sort.column = GC_NOCOLUMN;
         s.grid.Sort(&sort);
         GC_SORT * const record = nullptr;
         s.grid.Sort(record);
         return true; }},
    {"numbers of no colour", [](BadInputScene & s) {
         bool black = true;
         for (int const number : {0, GCC_COUNT + 1, -1, INT_MIN, INT_MAX}) {
             black = black && s.grid.GetColor(number) == QColor(Qt::black) &&
                     s.grid.SetColor(number, Qt::magenta) == QColor(Qt::black);
         }
         return black; }},
    {"numbers of no image list", [](BadInputScene & s) {
         QPixmap strip(20, 10);
         strip.fill(Qt::red);
         bool normal = true;
         for (int const number : {-1, GCIL_STATE + 1, INT_MIN, INT_MAX}) {
             s.grid.SetImageList(number, strip, 10, 10, 2, true);
             normal = normal && s.grid.GetImageList(number) == s.grid.GetImageList(GCIL_NORMAL);
         }
         return normal; }},
    {"codes of no scroll", [](BadInputScene & s) {
         bool done = true;
         for (int const code : {-2, 8, INT_MIN, INT_MAX}) {
             done = done && s.grid.OnScroll(code, code, ~0U, true) &&
                    !s.grid.OnScroll(-1, code, ~0U, false);
         }
         return done && s.grid.OnScroll(-1, -1, ~0U, true); }},
    {"no function for texts", [](BadInputScene & s) {
         s.grid.SetTextCBProc(nullptr, ~0UL);
         return s.grid.SetTextCallback(nullptr, 0); }},
    {"walks of no known flag", [](BadInputScene & s) {
         bool none = true;
         for (unsigned const flag : {0U, 17U, unsigned(INT_MAX), ~0U}) {
             none = none && !s.grid.GetNextRow(flag, s.parent) &&
                    s.grid.begin(flag, s.parent) == s.grid.end();
         }
         auto past = s.grid.end();
         return none && ++past == s.grid.end() && past + INT_MAX == s.grid.end() &&
                *(s.grid.begin(GCN_FOCUSED) + INT_MIN) == s.lonely; }},
    {"what has no effect", [](BadInputScene & s) {
         s.grid.SetRedraw(false);
         return s.grid.AssertValid() && s.grid.SetSectionText(s.section, nullptr) &&
                s.grid.SetSectionText(s.parent, "title"); }},
};
// clang-format on

} // namespace

class tst_GridBadValues : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void cleanupTestCase() { scene.reset(); }
    void badValue_failsAndChangesNothing_data();
    void badValue_failsAndChangesNothing();
    void badCount_selectsNothingAndTells_data();
    void badCount_selectsNothingAndTells();

private:
    // One grid for all: nothing may change it. A test that failed may have.
    BadInputScene & shown();

    std::unique_ptr<BadInputScene> scene;
};

void tst_GridBadValues::cleanup()
{
    if (QTest::currentTestFailed()) {
        scene.reset();
    }
}

BadInputScene & tst_GridBadValues::shown()
{
    if (!scene) {
        scene = std::make_unique<BadInputScene>();
        GC_COLUMN title = columnRecord(GCCM_TEXT);
        title.text = const_cast<char *>("Column");
        scene->grid.SetColumn(scene->text(), &title);
        scene->show();
    }
    return *scene;
}

void tst_GridBadValues::badValue_failsAndChangesNothing_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < static_cast<int>(std::size(calls)); ++i) {
        QTest::newRow(calls[i].name) << i;
    }
}

void tst_GridBadValues::badValue_failsAndChangesNothing()
{
    QFETCH(int, index);
    BadInputScene & s = shown();
    QStringList const before = zenutest::snapshot(s.grid);
    s.notes->taken();
    QVERIFY(calls[index].holds(s));
    QCOMPARE(s.notes->taken(), QString());
    QCOMPARE(zenutest::difference(before, zenutest::snapshot(s.grid)), QString());
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridBadValues::badCount_selectsNothingAndTells_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("hasRows");
    QTest::newRow("none") << 0 << true;
    QTest::newRow("negative") << -1 << true;
    QTest::newRow("most negative") << INT_MIN << true;
    QTest::newRow("null array") << 3 << false;
    QTest::newRow("null array of any length") << INT_MAX << false;
}

void tst_GridBadValues::badCount_selectsNothingAndTells()
{
    QFETCH(int, count);
    QFETCH(bool, hasRows);
    BadInputScene & s = shown();
    QStringList const before = zenutest::snapshot(s.grid);
    tag_HROW * rows[] = {s.parent, s.section};
    s.notes->taken();
    s.grid.SelectRows(count, hasRows ? rows : nullptr);
    QCOMPARE(s.notes->taken(), QStringLiteral("selected"));
    QCOMPARE(zenutest::difference(before, zenutest::snapshot(s.grid)), QString());
}

ZENU_TEST(tst_GridBadValues)
#include "tst_GridBadValues.moc"
