#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::Notes;
using zenutest::SlimTree;
using zenutest::TestGrid;

namespace {

int byParam(unsigned long, tag_HROW *, long a, tag_HROW *, long b)
{
    return a < b ? -1 : a > b;
}

int byParamDown(unsigned long, tag_HROW *, long a, tag_HROW *, long b)
{
    return byParam(0, nullptr, b, nullptr, a);
}

struct Asked
{
    unsigned long param;
    tag_HROW * a;
    long paramA;
    tag_HROW * b;
    long paramB;
};
std::vector<Asked> * asked = nullptr;

int noting(unsigned long param, tag_HROW * a, long paramA, tag_HROW * b, long paramB)
{
    asked->push_back({param, a, paramA, b, paramB});
    return 0;
}

int textCalls = 0;

char const * countedText(unsigned long, tag_HROW *, tag_HCOLUMN *, long param)
{
    static QByteArray text;
    ++textCalls;
    text = QByteArray::number(qlonglong(1000 - param));
    return text.constData();
}

std::vector<tag_HROW *> addAll(TestGrid & grid, std::initializer_list<char const *> texts,
                               tag_HROW * parent = GC_ROOT)
{
    std::vector<tag_HROW *> rows;
    for (char const * const text : texts) {
        rows.push_back(grid.add(text, parent));
    }
    return rows;
}

} // namespace

class tst_GridSort : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void byColumn_data();
    void byColumn();
    void byColumn_eachGroupOfSiblingsForItself();
    void byColumn_storedOrderStays_andComesBack();
    void byColumn_nullTexts_areEqualToAll();
    void byColumn_followsChangesAtTheNextRebuild();
    void byColumn_slimRows_bySlimTexts();
    void byColumn_sectionsByTheirTitles();
    void byColumn_fetchesEachTextOnce();
    void byColumn_compareFunctionInTheRecord_isNotUsed();
    void byColumn_thatIsDeleted_keepsTheInsertionOrder();
    void byFunction_getsHandlesAndParams();
    void byFunction_isStable();
    void byFunction_nonsense_isSafe_data();
    void byFunction_nonsense_isSafe();
    void byFunction_null_isNoSort();
    void record_null_endsTheSort();
    void sort_invalidatesAndRepaints();
    void sort_keepsTheTopRowAndTheFocus();
    void sort_lastChildMarksFollow();
    void sort_newRowsTakeTheirPlace();
    void sort_comparisonThatChangesTheGrid_isRefused();
    void sort_comparisonThatSetsAnotherSort_isBorne();
};

void tst_GridSort::byColumn_data()
{
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QString>("order");
    QTest::newRow("ascending, equal texts stay") << true << "10 9 a A b B c";
    QTest::newRow("descending, equal texts stay") << false << "c b B a A 9 10";
}

void tst_GridSort::byColumn()
{
    QFETCH(bool, ascending);
    QFETCH(QString, order);
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"b", "c", "a", "9", "B", "A", "10"});
    grid.Sort(grid.firstColumn(), ascending);
    QCOMPARE(grid.order(), order);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridSort::byColumn_eachGroupOfSiblingsForItself()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const top = addAll(grid, {"y", "x"});
    addAll(grid, {"3", "1", "2"}, top[0]);
    addAll(grid, {"b", "a"}, top[1]);
    grid.Sort(grid.firstColumn(), true);
    QCOMPARE(grid.order(), QStringLiteral("x a b y 1 2 3"));
    QCOMPARE(grid.children(top[0]), QStringLiteral("3 1 2"));
}

void tst_GridSort::byColumn_storedOrderStays_andComesBack()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"b", "c", "a"});
    grid.Sort(grid.firstColumn(), true);
    QCOMPARE(grid.order(), QStringLiteral("a b c"));
    QCOMPARE(grid.children(GC_ROOT), QStringLiteral("b c a"));
    grid.Sort(nullptr);
    QCOMPARE(grid.order(), QStringLiteral("b c a"));
    grid.Sort(grid.firstColumn(), false);
    QCOMPARE(grid.order(), QStringLiteral("c b a"));
    grid.Sort(0); // NOLINT(modernize-use-nullptr): as many an application writes it
    QCOMPARE(grid.order(), QStringLiteral("b c a"));
}

void tst_GridSort::byColumn_nullTexts_areEqualToAll()
{
    TestGrid grid;
    grid.addColumns({50});
    for (int i = 0; i < 20; ++i) {
        grid.InsertRow(GC_ROOT, GCI_LAST);
    }
    QString const stored = grid.walk(GCN_CHILD_FIRST, GC_ROOT);
    std::vector<tag_HROW *> const rows(grid.begin(GCN_CHILD_FIRST, GC_ROOT), grid.end());
    grid.Sort(grid.firstColumn(), true);
    std::vector<tag_HROW *> const shown(grid.begin(GCN_VISIBLE_FIRST), grid.end());
    QCOMPARE(shown, rows); // all without a text
    for (std::size_t i = 0; i < rows.size(); i += 3) {
        grid.SetItemText(rows[i], grid.firstColumn(), QByteArray::number(int(i * 7 % 20)));
    }
    grid.GetPriv().Invalidate();
    QCOMPARE(grid.GetExpandedCount(), 20u);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridSort::byColumn_followsChangesAtTheNextRebuild()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = addAll(grid, {"a", "b", "c"});
    grid.Sort(grid.firstColumn(), true);
    QCOMPARE(grid.order(), QStringLiteral("a b c"));
    grid.SetItemText(rows[0], grid.firstColumn(), "z");
    QCOMPARE(grid.order(), QStringLiteral("z b c")); // a text does not make the order dirty
    grid.Sort(grid.firstColumn(), true);
    QCOMPARE(grid.order(), QStringLiteral("b c z"));
}

void tst_GridSort::byColumn_slimRows_bySlimTexts()
{
    TestGrid grid;
    SlimTree source;
    source.tree[1] = {3, 1, 2};
    grid.addColumns({50});
    grid.SetSlimGridCallback(&source);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    grid.Expand(slim, GCE_EXPAND);
    grid.Sort(grid.firstColumn(), false);
    QCOMPARE(grid.order(), QStringLiteral("s1 s3 s2 s1"));
    QCOMPARE(grid.children(slim), QStringLiteral("s3 s1 s2"));
}

void tst_GridSort::byColumn_sectionsByTheirTitles()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"m"});
    GC_SECTION title;
    title.mask = GCRM_SECTIONTEXT;
    for (char const * const text : {"z", "b"}) {
        title.text = const_cast<char *>(text);
        grid.SetSection(grid.InsertSection(nullptr, GCI_FIRST), &title);
    }
    grid.Sort(grid.firstColumn(), true);
    QCOMPARE(grid.order(), QStringLiteral("b m z"));
}

void tst_GridSort::byColumn_fetchesEachTextOnce()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.SetTextCallback(countedText, 0);
    for (int i = 0; i < 500; ++i) {
        tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
        grid.SetRowParam(row, static_cast<unsigned long>(i));
        grid.SetItemText(row, grid.firstColumn(), GC_TEXTCALLBACK);
    }
    grid.Sort(grid.firstColumn(), true);
    textCalls = 0;
    grid.UpdateVisibleRows();
    QCOMPARE(textCalls, 500);
    QVERIFY(grid.order().startsWith(QStringLiteral("1000 501 502")));
    // None is kept: sorting measures, it does not show.
    GC_ITEM item;
    grid.GetItem(grid.GetTopIndex(), grid.firstColumn(), &item);
    QVERIFY(!(item.state & GCIS_CACHEDTEXT));
}

void tst_GridSort::byColumn_compareFunctionInTheRecord_isNotUsed()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"b", "c", "a"});
    GC_SORT sort;
    sort.column = grid.firstColumn();
    sort.ascending = true;
    sort.compare = byParamDown;
    grid.Sort(&sort);
    QCOMPARE(grid.order(), QStringLiteral("a b c"));
}

void tst_GridSort::byColumn_thatIsDeleted_keepsTheInsertionOrder()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 60});
    std::vector<tag_HROW *> const rows = addAll(grid, {"b", "c", "a"});
    for (std::size_t i = 0; i < 3; ++i) {
        grid.SetItemText(rows[i], columns[1], QByteArray::number(int(9 - i)));
    }
    grid.Sort(columns[1], true);
    QCOMPARE(grid.order(), QStringLiteral("a c b"));
    grid.DeleteColumn(columns[1]);
    grid.GetPriv().Invalidate();
    QCOMPARE(grid.order(), QStringLiteral("b c a"));
    grid.Sort(reinterpret_cast<tag_HCOLUMN *>(77), true);
    QCOMPARE(grid.order(), QStringLiteral("b c a"));
}

void tst_GridSort::byFunction_getsHandlesAndParams()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = addAll(grid, {"a", "b"});
    grid.SetRowParam(rows[0], 5);
    grid.SetRowParam(rows[1], static_cast<unsigned long>(-6));
    std::vector<Asked> calls;
    asked = &calls;
    grid.Sort(noting, 42);
    grid.UpdateVisibleRows();
    asked = nullptr;
    grid.Sort(nullptr);
    QVERIFY(!calls.empty());
    for (Asked const & call : calls) {
        QCOMPARE(call.param, 42ul);
        QCOMPARE(call.paramA, call.a == rows[0] ? 5L : -6L);
        QCOMPARE(call.paramB, call.b == rows[0] ? 5L : -6L);
        QVERIFY(call.a != call.b);
    }
}

void tst_GridSort::byFunction_isStable()
{
    TestGrid grid;
    grid.addColumns({50});
    QStringList expected[3];
    for (int i = 0; i < 300; ++i) {
        tag_HROW * const row = grid.add(QByteArray::number(i).constData());
        grid.SetRowParam(row, static_cast<unsigned long>(i * 7 % 3));
        expected[i * 7 % 3] << QString::number(i);
    }
    grid.Sort(byParam, 0);
    QCOMPARE(grid.order(), (expected[0] + expected[1] + expected[2]).join(u' '));
    grid.Sort(byParamDown, 0);
    QCOMPARE(grid.order(), (expected[2] + expected[1] + expected[0]).join(u' '));
}

void tst_GridSort::byFunction_nonsense_isSafe_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("always before") << 0;
    QTest::newRow("always after") << 1;
    QTest::newRow("at random") << 2;
    QTest::newRow("smallest int") << 3;
}

void tst_GridSort::byFunction_nonsense_isSafe()
{
    QFETCH(int, which);
    static GC_COMPAREPROC const functions[] = {
        [](unsigned long, tag_HROW *, long, tag_HROW *, long) { return -1; },
        [](unsigned long, tag_HROW *, long, tag_HROW *, long) { return 1; },
        [](unsigned long, tag_HROW *, long, tag_HROW *, long) {
            static unsigned state = 1;
            state = state * 1103515245u + 12345u;
            return static_cast<int>(state >> 16) % 3 - 1;
        },
        [](unsigned long, tag_HROW *, long, tag_HROW *, long) { return INT_MIN; }};
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const parent = grid.add("p");
    grid.addMany(1000, parent);
    grid.addMany(100);
    for (int i = 0; i < 3; ++i) {
        grid.Sort(functions[which], 0);
        QCOMPARE(grid.GetExpandedCount(), 1101u);
        QCOMPARE(zenutest::checkGrid(grid), QString());
    }
}

void tst_GridSort::byFunction_null_isNoSort()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"b", "a"});
    grid.Sort(static_cast<GC_COMPAREPROC>(nullptr), 5);
    QCOMPARE(grid.order(), QStringLiteral("b a"));
}

void tst_GridSort::record_null_endsTheSort()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"b", "a"});
    grid.Sort(byParamDown, 0);
    grid.Sort(nullptr);
    QVERIFY(!grid.GetPriv().IsSorted());
    QCOMPARE(grid.order(), QStringLiteral("b a"));
}

void tst_GridSort::sort_invalidatesAndRepaints()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"b", "a"});
    QVERIFY(grid.showSized(100, 100));
    grid.Sort(grid.firstColumn(), true);
    QVERIFY(grid.GetPriv().IsDirty());
    QCOMPARE(grid.takePainted().boundingRect(), QRect(0, 0, 100, 100));
    QVERIFY(!grid.GetPriv().IsDirty());
}

void tst_GridSort::sort_keepsTheTopRowAndTheFocus()
{
    TestGrid grid(GCS_NOHEADER);
    grid.addColumns({50});
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> rows;
    for (int i = 0; i < 50; ++i) {
        rows.push_back(grid.add(QByteArray::number(100 - i).constData()));
    }
    QVERIFY(grid.showSized(100, 101));
    grid.OnScroll(-1, 5, 600, true);
    grid.SetRowSel(rows[32], true);
    grid.Sort(grid.firstColumn(), true);
    QCOMPARE(grid.GetTopIndex(), rows[30]);
    QCOMPARE(grid.GetPriv().GetTopIndex(), 20);
    QCOMPARE(grid.GetNextRow(GCN_FOCUSED), rows[32]);
    QCOMPARE(grid.GetPriv().GetFocusedIndex(), 18);
}

void tst_GridSort::sort_lastChildMarksFollow()
{
    TestGrid grid;
    grid.addColumns({50});
    std::vector<tag_HROW *> const rows = addAll(grid, {"c", "a", "b"});
    grid.Sort(grid.firstColumn(), true);
    grid.UpdateVisibleRows();
    for (tag_HROW * const row : rows) {
        QCOMPARE(grid.GetPriv().LocateRow(row)->IsLastChild(), row == rows[0]);
    }
}

void tst_GridSort::sort_newRowsTakeTheirPlace()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"d", "b"});
    grid.Sort(grid.firstColumn(), true);
    QCOMPARE(grid.order(), QStringLiteral("b d"));
    addAll(grid, {"c", "a"});
    QCOMPARE(grid.order(), QStringLiteral("a b c d"));
}

namespace {

TestGrid * changed = nullptr;

int changing(unsigned long, tag_HROW * a, long paramA, tag_HROW *, long paramB)
{
    if (changed->DeleteRow(a) || changed->InsertRow(GC_ROOT, GCI_LAST) ||
        changed->DeleteAllRows() || changed->Reset() ||
        changed->DeleteColumn(changed->firstColumn()) ||
        changed->AddColumn("x", 0, 5) != GC_NOCOLUMN) {
        return 0; // the test finds a row or a column less or more
    }
    changed->Expand(a, GCE_TOGGLE);
    changed->GetTopIndex();
    return paramA < paramB ? -1 : 1;
}

int resorting(unsigned long, tag_HROW *, long, tag_HROW *, long)
{
    changed->Sort(nullptr);
    return -1;
}

} // namespace

void tst_GridSort::sort_comparisonThatChangesTheGrid_isRefused()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"d", "b", "c", "a"});
    changed = &grid;
    grid.Sort(changing, 0);
    QCOMPARE(grid.GetExpandedCount(), 4u);
    grid.Sort(nullptr);
    changed = nullptr;
    QCOMPARE(grid.order(), QStringLiteral("d b c a"));
    QCOMPARE(grid.GetColumnsCount(), 1);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridSort::sort_comparisonThatSetsAnotherSort_isBorne()
{
    TestGrid grid;
    grid.addColumns({50});
    addAll(grid, {"d", "b", "c", "a"});
    changed = &grid;
    grid.Sort(resorting, 0);
    QCOMPARE(grid.order(), QStringLiteral("d b c a"));
    changed = nullptr;
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

ZENU_TEST(tst_GridSort)
#include "tst_GridSort.moc"
