#include "tests/grid/BadInputScene.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using zenutest::BadInputScene;
using zenutest::Notes;
using zenutest::TestGrid;

namespace {

constexpr int numbers[] = {0, -1, -2, INT_MIN, INT_MAX, 1};

// A setting that no sensible application makes.
struct Setting
{
    char const * name;
    void (*set)(BadInputScene & scene, int number);
};

void setItems(BadInputScene & s, GC_ITEM const & item)
{
    for (auto row = s.grid.begin(GCN_ALL_FIRST); row != s.grid.end(); ++row) {
        for (tag_HCOLUMN * const column : s.columns) {
            GC_ITEM copy = item;
            s.grid.SetItem(*row, column, &copy);
        }
    }
}

void setColumns(BadInputScene & s, GC_COLUMN const & record)
{
    for (tag_HCOLUMN * const column : s.columns) {
        s.grid.SetColumn(column, &record);
    }
}

void setRows(BadInputScene & s, GC_ROW const & record)
{
    std::vector<tag_HROW *> rows;
    for (auto row = s.grid.begin(GCN_ALL_FIRST); row != s.grid.end(); ++row) {
        rows.push_back(*row);
    }
    for (tag_HROW * const row : rows) {
        GC_ROW copy = record;
        s.grid.SetRow(row, &copy);
    }
}

void setImages(BadInputScene & s, int width, int height, int count)
{
    GC_ITEM item;
    item.mask = GCIM_IMAGE | GCIM_OVERLAY | GCIM_STATEIMAGE;
    item.image = 1;
    setItems(s, item);
    QPixmap strip(20, 10);
    strip.fill(Qt::red);
    for (int list = GCIL_NORMAL; list <= GCIL_STATE; ++list) {
        s.grid.SetImageList(list, strip, width, height, count, false);
    }
}

// clang-format off
Setting const settings[] = {
    {"default height", [](BadInputScene & s, int number) {
         s.grid.SetDefaultHeight(number);
         s.grid.GetPriv().Invalidate(); }},
    {"row heights", [](BadInputScene & s, int number) {
         for (tag_HROW * const row : {s.parent, s.child, s.section, s.slim, s.slimChild, s.lonely}) {
             s.grid.SetRowHeight(row, number);
         } }},
    {"row heights by record", [](BadInputScene & s, int number) {
         GC_ROW record;
         record.mask = GCRM_HEIGHT;
         record.height = number;
         setRows(s, record); }},
    {"heights of new slim rows", [](BadInputScene & s, int number) {
         s.grid.InsertSlimRow(number, true, GC_ROOT, GCI_FIRST, number);
         s.grid.InsertSlimRow(number, false, s.parent, GCI_FIRST, number); }},
    {"indent", [](BadInputScene & s, int number) { s.grid.SetIndent(static_cast<unsigned>(number)); }},
    {"step of the columns", [](BadInputScene & s, int number) { s.grid.SetHScrollDelta(number); }},
    {"column widths", [](BadInputScene & s, int number) {
         for (tag_HCOLUMN * const column : s.columns) {
             s.grid.SetColumnWidth(column, number);
         } }},
    {"column widths with an indent of a pixel", [](BadInputScene & s, int number) {
         s.grid.SetIndent(1);
         s.grid.SetColumnWidth(s.text(), number); }},
    {"width of a new column", [](BadInputScene & s, int number) {
         s.grid.InsertColumn(number, nullptr, number, number);
         s.grid.AddColumn("title", number, number); }},
    {"format and flags", [](BadInputScene & s, int number) {
         GC_COLUMN record;
         record.mask = GCCM_FORMAT | GCCM_FLAGS;
         record.format = number;
         record.flags = static_cast<unsigned>(number);
         setColumns(s, record); }},
    {"flags without hiding", [](BadInputScene & s, int number) {
         GC_COLUMN record;
         record.mask = GCCM_FLAGS;
         record.flags = static_cast<unsigned>(number) & ~unsigned(GCCF_HIDDEN);
         setColumns(s, record); }},
    {"list indices and check values", [](BadInputScene & s, int number) {
         GC_ITEM item;
         item.mask = GCIM_VALUE;
         item.value = number;
         setItems(s, item); }},
    {"check styles", [](BadInputScene & s, int number) {
         GC_ITEM item;
         item.mask = GCIM_CHECKSTYLE;
         item.value = number;
         setItems(s, item); }},
    {"images of items", [](BadInputScene & s, int number) {
         setImages(s, 10, 10, 2);
         GC_ITEM item;
         item.mask = GCIM_IMAGE | GCIM_OVERLAY | GCIM_STATEIMAGE;
         item.image = number;
         setItems(s, item); }},
    {"states of items", [](BadInputScene & s, int number) {
         GC_ITEM item;
         item.mask = GCIM_STATE;
         item.state = item.stateMask = static_cast<unsigned>(number);
         setItems(s, item); }},
    {"every field of items", [](BadInputScene & s, int number) {
         GC_ITEM item;
         item.mask = ~unsigned(GCIM_TEXT);
         item.state = item.stateMask = static_cast<unsigned>(number);
         item.value = item.image = number;
         setItems(s, item); }},
    {"texts that ask a function that is not there", [](BadInputScene & s, int number) {
         GC_ITEM item;
         item.mask = GCIM_TEXT | GCIM_STATE;
         item.text = GC_TEXTCALLBACK - (number & 1);
         item.state = item.stateMask = static_cast<unsigned>(number);
         setItems(s, item); }},
    {"states of rows", [](BadInputScene & s, int number) {
         GC_ROW record;
         record.mask = GCRM_STATE | GCRM_PARAM;
         record.stateMask = ~0U;
         record.state = static_cast<unsigned>(number);
         record.param = static_cast<unsigned long>(number);
         setRows(s, record); }},
    {"colours that are invalid", [](BadInputScene & s, int number) {
         for (int colour = 1; colour <= GCC_COUNT; ++colour) {
             s.grid.SetColor(colour, number == 0 ? QColor() : QColor::fromRgba(QRgb(number)));
         }
         GC_ROW record;
         record.mask = GCRM_TEXTCOLOR | GCRM_BKCOLOR | GCRM_FONT;
         setRows(s, record); }},
    {"image widths", [](BadInputScene & s, int number) { setImages(s, number, 10, 2); }},
    {"image heights", [](BadInputScene & s, int number) { setImages(s, 10, number, 2); }},
    {"image counts", [](BadInputScene & s, int number) { setImages(s, 10, 10, number); }},
    {"extended style", [](BadInputScene & s, int number) {
         s.grid.SetExStyle(static_cast<unsigned long>(number)); }},
    {"orders with columns named twice", [](BadInputScene & s, int number) {
         std::array<tag_HCOLUMN *, BadInputScene::kinds> order = s.columns;
         order[0] = order[5];
         order[3] = zenutest::columnOf(number);
         s.grid.SetColumnOrderArray(order.data(), BadInputScene::kinds); }},
    {"places of the bars", [](BadInputScene & s, int number) {
         for (int code = 0; code < 8; ++code) {
             s.grid.OnScroll(code, code, static_cast<unsigned>(number), true);
             s.grid.OnScroll(code, code, static_cast<unsigned>(number), false);
         } }},
};
// clang-format on

// Answers as no source of rows should.
class NonsenseSource : public ISlimGridCallback
{
public:
    enum Mode
    {
        Nulls,
        CallbackTexts,
        HugeNumbers,
        NegativeNumbers,
        Liar,
        Modes
    };

    explicit NonsenseSource(Mode answers)
        : mode(answers)
    {
    }

    void GetRowDrawInfo(GC_DRAWROWINFO * info, tag_HROW *, long, bool) override
    {
        info->bkColor = QColor();
        info->textColor = QColor::fromRgba(QRgb(number()));
        info->SetFont(nullptr);
        info->firstRow = info->lastChild = info->hasChildren = info->expanded = mode == Liar;
    }
    void GetItemDrawInfo(GC_DRAWITEMINFO * info, tag_HROW *, long, tag_HCOLUMN *, int, bool,
                         bool) override
    {
        info->image = info->overlay = info->state = info->lead = number();
        info->checked = info->grayed = info->radio = true;
        info->textColor = QColor();
    }
    char const * GetItemText(tag_HROW *, long, tag_HCOLUMN *) override
    {
        return mode == CallbackTexts ? GC_TEXTCALLBACK : nullptr;
    }
    int IsItemChecked(tag_HROW *, long, tag_HCOLUMN *) override { return number(); }
    bool HasSubRows(tag_HROW *, long) override { return true; }
    int GetSubRowCount(tag_HROW *, long param) override
    {
        int const few = param < 3 ? 4 : 0;
        return mode == HugeNumbers || mode == NegativeNumbers ? (param == 0 ? number() : few) : few;
    }
    void GetSubRows(tag_HROW *, long param, int count, GC_SLIMROWDATA * rows) override
    {
        for (int i = 0; i < count; ++i) {
            rows[i].param = param + 1;
            rows[i].row = GCI_FIRST;
            rows[i].hasChildren = number();
            rows[i].height = i % 2 ? number() : -1;
        }
    }

private:
    int number() const
    {
        return mode == HugeNumbers ? INT_MAX : (mode == NegativeNumbers ? INT_MIN : 77);
    }

    Mode mode;
};

char const * nonsenseText(unsigned long mode, tag_HROW *, tag_HCOLUMN *, long)
{
    return mode == 0 ? nullptr : (mode == 1 ? GC_TEXTCALLBACK : "");
}

int nonsenseOrder(unsigned long seed, tag_HROW * a, long, tag_HROW * b, long)
{
    static unsigned long last = 0;
    last = last * 6364136223846793005UL + seed + reinterpret_cast<quintptr>(a) + 1;
    return last % 3 == 0 ? INT_MIN : (last % 3 == 1 ? INT_MAX : (a < b ? -1 : 0));
}

// Every operation that needs nothing but a grid, with nothing to find in it.
void useEmptyGrid(TestGrid & grid)
{
    QVERIFY(!grid.GetTopIndex());
    QVERIFY(!grid.GetBottomIndex());
    QCOMPARE(grid.GetRowCount(), 0U);
    QCOMPARE(grid.GetExpandedCount(), 0U);
    QCOMPARE(grid.GetVisibleCount(), 0U);
    for (unsigned flag = 1; flag <= 16; ++flag) {
        QCOMPARE(grid.GetNextRow(flag, GC_ROOT), flag == GCN_ROOT ? GC_ROOT : nullptr);
    }
    tag_HROW * row = GC_ROOT;
    tag_HCOLUMN * column = nullptr;
    QVERIFY(!grid.HitTest(QPoint(3, 40), &row, &column));
    QVERIFY(!row);
    QCOMPARE(column, GC_NOCOLUMN);
    grid.SelectAll();
    grid.ClearSelection();
    QCOMPARE(grid.GetSelectedCount(), 0U);
    QVERIFY(grid.Expand(nullptr, GCE_EXPANDALL));
    QVERIFY(grid.Expand(nullptr, GCE_COLLAPSEALL));
    grid.Sort(nonsenseOrder, 1);
    grid.Sort(nullptr);
    QVERIFY(grid.DeleteAllRows());
    QCOMPARE(grid.OnScroll(-1, 4, 0, true), true);
    QCOMPARE(grid.OnScroll(-1, 4, 0, false), false);
    zenutest::exercise(grid);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

} // namespace

class tst_GridNonsense : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void anyNumber_isBorne_data();
    void anyNumber_isBorne();
    void slimCallback_thatAnswersNonsense_isBorne_data();
    void slimCallback_thatAnswersNonsense_isBorne();
    void textFunction_thatAnswersNonsense_isBorne_data();
    void textFunction_thatAnswersNonsense_isBorne();
    void comparison_thatAnswersNonsense_isBorne();
    void gridWithoutRows_answersNone();
    void gridWithoutColumns_keepsRowsWithoutCells();
    void gridWithAllColumnsHidden_isBorne();
    void gridWithoutSink_doesAll();
    void gridWithoutSlimCallback_drawsEmptyRows();
    void gridNeverShown_doesAll();
};

void tst_GridNonsense::anyNumber_isBorne_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<int>("number");
    for (int setting = 0; setting < static_cast<int>(std::size(settings)); ++setting) {
        for (int const number : numbers) {
            QTest::addRow("%s, %d", settings[setting].name, number) << setting << number;
        }
    }
}

void tst_GridNonsense::anyNumber_isBorne()
{
    QFETCH(int, setting);
    QFETCH(int, number);
    BadInputScene s;
    QVERIFY(s.show());
    unsigned const rows = s.grid.GetRowCount();
    settings[setting].set(s, number);
    zenutest::exercise(s.grid);
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
    QVERIFY(s.grid.GetRowCount() >= rows);
    QCOMPARE(s.grid.GetItemText(s.section, s.text()), std::string("Section"));
}

void tst_GridNonsense::slimCallback_thatAnswersNonsense_isBorne_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("nulls") << int(NonsenseSource::Nulls);
    QTest::newRow("texts that ask again") << int(NonsenseSource::CallbackTexts);
    QTest::newRow("huge numbers") << int(NonsenseSource::HugeNumbers);
    QTest::newRow("negative numbers") << int(NonsenseSource::NegativeNumbers);
    QTest::newRow("children that are not there") << int(NonsenseSource::Liar);
}

void tst_GridNonsense::slimCallback_thatAnswersNonsense_isBorne()
{
    QFETCH(int, mode);
    NonsenseSource source(static_cast<NonsenseSource::Mode>(mode));
    BadInputScene s;
    s.grid.SetSlimGridCallback(&source);
    for (long param = 0; param < 3; ++param) {
        QVERIFY(s.grid.InsertSlimRow(param, true, GC_ROOT, GCI_FIRST));
        QVERIFY(s.grid.InsertSlimRow(param, true, s.parent, GCI_LAST));
    }
    QVERIFY(s.show());
    QVERIFY(s.grid.Expand(nullptr, GCE_EXPANDALL));
    zenutest::exercise(s.grid);
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
    s.grid.Sort(s.text(), true);
    s.grid.SelectAll();
    zenutest::exercise(s.grid);
    QVERIFY(s.grid.ResetSlimRow(s.slim));
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridNonsense::textFunction_thatAnswersNonsense_isBorne_data()
{
    QTest::addColumn<unsigned long>("mode");
    QTest::newRow("null") << 0UL;
    QTest::newRow("a text that asks again") << 1UL;
    QTest::newRow("empty") << 2UL;
}

void tst_GridNonsense::textFunction_thatAnswersNonsense_isBorne()
{
    QFETCH(unsigned long, mode);
    BadInputScene s;
    s.grid.SetTextCallback(nonsenseText, mode);
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = GC_TEXTCALLBACK;
    setItems(s, item);
    QVERIFY(s.show());
    QCOMPARE(s.grid.GetItemText(s.parent, s.text()), std::string());
    QCOMPARE(s.grid.GetItemTextLen(s.parent, s.text()), 0);
    s.grid.Sort(s.text(), false);
    zenutest::exercise(s.grid);
    QCOMPARE(s.grid.GetItemText(s.parent, s.text()), std::string());
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridNonsense::comparison_thatAnswersNonsense_isBorne()
{
    BadInputScene s;
    QVERIFY(s.show());
    for (long seed = 0; seed < 20; ++seed) {
        s.grid.Sort(nonsenseOrder, seed);
        s.grid.UpdateVisibleRows();
        QCOMPARE(zenutest::checkGrid(s.grid), QString());
    }
    s.grid.Sort(nullptr);
    QCOMPARE(s.grid.order().left(15), QStringLiteral("Section parent "));
}

void tst_GridNonsense::gridWithoutRows_answersNone()
{
    TestGrid grid;
    grid.addColumns({40, 50});
    QVERIFY(grid.showSized(200, 100));
    useEmptyGrid(grid);
    QCOMPARE(grid.GetColumnsCount(), 2);
    QVERIFY(grid.Reset());
    useEmptyGrid(grid);
}

void tst_GridNonsense::gridWithoutColumns_keepsRowsWithoutCells()
{
    TestGrid grid;
    tag_HCOLUMN * column = nullptr;
    QVERIFY(grid.showSized(200, 100));
    useEmptyGrid(grid);
    QVERIFY(!grid.GetColumnOrderArray(&column, 1));
    QVERIFY(!grid.SetColumnOrderArray(&column, 1));
    QCOMPARE(grid.HeaderItem2Column(0), GC_NOCOLUMN);
    tag_HROW * const parent = grid.InsertRow(GC_ROOT, GCI_LAST);
    tag_HROW * const child = grid.InsertRow(parent, GCI_LAST);
    tag_HROW * const section = grid.InsertSection("title", GCI_LAST);
    tag_HROW * const slim = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    QVERIFY(grid.Expand(slim, GCE_EXPAND));
    for (tag_HROW * const row : {parent, child, section, slim}) {
        QVERIFY(!grid.SetRowSel(row, true));
        QVERIFY(!grid.SetItemText(row, nullptr, "text"));
        QCOMPARE(grid.GetItemText(row, nullptr), std::string());
        grid.EnsureVisible(row, nullptr);
        GC_ROW record;
        record.mask = GCRM_STATE;
        record.state = record.stateMask = GCRS_SELECTED | GCRS_FOCUSED;
        grid.SetRow(row, &record);
    }
    QCOMPARE(grid.GetSelectedCount(), 4U);
    QVERIFY(!grid.GetNextRow(GCN_FOCUSED));
    QVERIFY(!grid.HitTest(QPoint(3, 40), nullptr, nullptr));
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    zenutest::exercise(grid);
    QCOMPARE(zenutest::checkGrid(grid), QString());
    QVERIFY(grid.DeleteRow(parent));
    QVERIFY(grid.Reset());
}

void tst_GridNonsense::gridWithAllColumnsHidden_isBorne()
{
    BadInputScene s;
    QVERIFY(s.show());
    for (tag_HCOLUMN * const column : s.columns) {
        s.grid.ShowColumn(column, false);
    }
    QCOMPARE(s.grid.contentsWidth(), 0);
    QVERIFY(!s.grid.SetRowSel(s.parent, true));
    QVERIFY(!s.grid.SetRowSel(s.child, false));
    QVERIFY(!s.grid.HitTest(QPoint(3, 60), nullptr, nullptr));
    QCOMPARE(s.grid.HeaderItem2Column(0), GC_NOCOLUMN);
    zenutest::exercise(s.grid);
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridNonsense::gridWithoutSink_doesAll()
{
    BadInputScene s;
    QVERIFY(s.show());
    s.grid.setNotification(nullptr);
    QVERIFY(!s.grid.getNotification());
    s.grid.SelectAll();
    QCOMPARE(s.grid.GetSelectedCount(), s.grid.GetExpandedCount());
    s.grid.ClearSelection();
    QVERIFY(s.grid.SetRowSel(s.parent, true));
    QVERIFY(s.grid.SetRowSel(s.parent, false));
    s.grid.SelectRows(1, &s.child);
    QCOMPARE(s.grid.GetSelectedCount(), 1U);
    for (unsigned const code : {GCE_COLLAPSEALL, GCE_EXPANDALL, GCE_COLLAPSE, GCE_TOGGLE}) {
        QVERIFY(s.grid.Expand(s.parent, code));
    }
    zenutest::exercise(s.grid);
    QVERIFY(s.grid.DeleteRow(s.parent));
    QVERIFY(s.grid.ResetSlimRow(s.slim));
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
    QVERIFY(s.grid.Reset());
}

void tst_GridNonsense::gridWithoutSlimCallback_drawsEmptyRows()
{
    BadInputScene s;
    QVERIFY(s.show());
    s.grid.SetSlimGridCallback(nullptr);
    QVERIFY(!s.grid.GetSlimGridCallback());
    for (tag_HROW * const row : {s.slim, s.slimChild, s.lonely}) {
        QCOMPARE(s.grid.GetItemText(row, s.text()), std::string());
        QCOMPARE(s.grid.GetItemTextLen(row, s.text()), 0);
    }
    tag_HROW * const fresh = s.grid.InsertSlimRow(5, true, GC_ROOT, GCI_FIRST);
    QVERIFY(s.grid.Expand(fresh, GCE_EXPAND));
    QVERIFY(s.grid.Expand(nullptr, GCE_EXPANDALL));
    QVERIFY(!s.grid.GetNextRow(GCN_CHILD_FIRST, fresh));
    s.grid.Sort(s.text(), true);
    zenutest::exercise(s.grid);
    QVERIFY(s.grid.ResetSlimRow(s.slim));
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

void tst_GridNonsense::gridNeverShown_doesAll()
{
    BadInputScene s;
    zenutest::exercise(s.grid);
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
    s.grid.SelectAll();
    s.grid.InvalidateColumn(s.text());
    QCOMPARE(s.grid.paints, 0);
    QVERIFY(s.grid.DeleteRow(s.parent));
    QVERIFY(s.grid.DeleteColumn(s.text()));
    QCOMPARE(zenutest::checkGrid(s.grid), QString());
}

ZENU_TEST(tst_GridNonsense)
#include "tst_GridNonsense.moc"
