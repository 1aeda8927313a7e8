#include "tests/grid_geometry/GridRules.h"
#include "tests/support/TestMain.h"

#include <zenu/grid/geometry/CElementRects.h>

using namespace zenu;
using zenutest::CellLayout;
using zenutest::CellQuestion;
using zenutest::CellRule;
using zenutest::GridRules;
using zenutest::SlimTree;
using zenutest::TestGrid;

namespace {

constexpr int kinds = 8;

struct Look
{
    char const * name;
    long style = 0;
    unsigned flags = 0; // of every column
    int format = 0;
    int width = 80; // of the first column, the others are a little wider
    QSize image = {};
    QSize lead = {};
    int indent = -1;
    int hidden = -1; // this column is
    int offset = 0;  // scrolled to the right
    int top = 0;     // scrolled down, in pixels
    bool heights = false;
};

constexpr unsigned tree = GCCF_TREE | GCCF_TREELINES;

Look const looks[] = {
    {.name = "plain"},
    {.name = "no header", .style = GCS_NOHEADER, .top = 70},
    {.name = "lines", .style = GCS_HORZLINES | GCS_VERTLINES, .offset = 33},
    {.name = "scrolled both ways", .offset = 133, .top = 120},
    {.name = "explicit heights", .top = 90, .heights = true},
    {.name = "trees", .flags = tree},
    {.name = "buttons without lines", .flags = GCCF_TREE, .format = 4, .offset = 50},
    {.name = "lines without buttons", .flags = GCCF_TREELINES, .format = 2},
    {.name = "indented by the format", .flags = GCCF_TREE, .format = 0x10000, .indent = 7},
    {.name = "trees, scrolled", .flags = tree, .offset = 200, .top = 60, .heights = true},
    {.name = "wide indent", .flags = tree, .indent = 40},
    {.name = "no indent", .flags = tree, .indent = 0},
    {.name = "room for buttons alone", .flags = GCCF_TREE, .width = 12},
    {.name = "no room", .flags = tree, .width = 3},
    {.name = "narrow", .width = 17, .image = {16, 14}},
    {.name = "images", .image = {16, 14}, .top = 40},
    {.name = "images in trees", .flags = tree, .width = 95, .image = {13, 11}, .offset = 77},
    {.name = "leads", .flags = GCCF_LEAD, .lead = {9, 8}},
    {.name = "leads without a list", .flags = GCCF_LEAD | tree},
    {.name = "leads wider than the room", .flags = GCCF_LEAD | tree, .lead = {90, 8}},
    {.name = "leads under the mouse alone", .flags = GCCF_LEADONHOVER, .lead = {9, 8}},
    {.name = "all",
     .style = GCS_HORZLINES,
     .flags = tree | GCCF_LEAD,
     .format = 2,
     .width = 99,
     .image = {15, 30},
     .lead = {8, 40},
     .hidden = 2,
     .offset = 91,
     .top = 100,
     .heights = true},
    {.name = "first column hidden", .flags = tree, .hidden = 0},
    {.name = "right", .format = 2, .width = 31},
    {.name = "centre", .format = 4, .width = 45},
    {.name = "right beats centre", .format = 6, .offset = 12},
};

void setImages(TestGrid & grid, int list, QSize const & size)
{
    if (!size.isEmpty()) {
        QPixmap strip(size.width() * 2, size.height());
        strip.fill(Qt::red);
        grid.SetImageList(list, strip, size.width(), size.height(), 2, false);
    }
}

// A grid in one of the looks: rows of every class on three levels, columns of every kind.
struct Scene
{
    SlimTree source;
    Look look;
    TestGrid grid;
    std::set<tag_HROW *> withoutCheck;
    std::set<tag_HROW *> sections;

    explicit Scene(Look const & wanted)
        : look(wanted)
        , grid(wanted.style)
    {
        grid.SetSlimGridCallback(&source);
        grid.SetIndent(static_cast<unsigned>(look.indent));
        setImages(grid, GCIL_NORMAL, look.image);
        setImages(grid, GCIL_LEAD, look.lead);
        for (int kind = 0; kind < kinds; ++kind) {
            GC_COLUMN record;
            record.mask = GCCM_KIND | GCCM_WIDTH | GCCM_FLAGS | GCCM_FORMAT;
            record.kind = kind;
            record.width = look.width + 3 * kind;
            record.flags = look.flags | (kind == look.hidden ? unsigned(GCCF_HIDDEN) : 0U);
            record.format = look.format;
            grid.AddColumn(&record);
        }
        addRows();
    }
    ~Scene() { grid.SetSlimGridCallback(nullptr); }

    bool show()
    {
        bool const shown = grid.showSized(307, 203);
        grid.OnScroll(-1, 5, static_cast<unsigned>(look.top), true);
        grid.OnScroll(5, -1, static_cast<unsigned>(look.offset), true);
        return shown;
    }

    CellRule rule(GridRules const & rules, GridRules::Row const & row,
                  GridRules::Column const & column) const
    {
        CellQuestion cell;
        cell.kind = column.record.kind;
        cell.format = column.record.format;
        cell.flags = column.record.flags;
        cell.width = column.record.width;
        cell.height = row.height;
        cell.level = row.level;
        cell.indent = grid.GetIndent();
        cell.image = look.image.isEmpty() ? QSize(0, 0) : look.image;
        cell.lead = look.lead.isEmpty() ? QSize(0, 0) : look.lead;
        cell.hideCheck = withoutCheck.contains(row.handle);
        cell.text = QString::fromLatin1(grid.GetItemText(row.handle, column.handle).c_str());
        cell.font = grid.font();
        bool const section = sections.contains(row.handle);
        cell.width = section ? rules.contentsWidth : cell.width;
        CellRule found = section ? CellLayout(cell).runSection() : CellLayout(cell).run();
        found.translate((section ? 0 : column.left) - rules.offset, rules.viewTop(row));
        return found;
    }

private:
    void setTexts(tag_HROW * row, int seed)
    {
        constexpr char const * texts[] = {"", "ij", "A longer text, fjord", "x"};
        for (int kind = 0; kind < kinds; ++kind) {
            grid.SetItemText(row, columnHandle(kind), texts[(seed + kind) % 4]);
        }
        if (seed % 3 == 1) {
            withoutCheck.insert(row);
            for (int const kind : {GCCK_CHECKBOX, GCCK_CHECKBOXWITHICON}) {
                GC_ITEM item;
                item.mask = GCIM_CHECKSTYLE;
                item.value = 2;
                grid.SetItem(row, columnHandle(kind), &item);
            }
        }
        if (look.heights && seed % 2) {
            grid.SetRowHeight(row, 1 + (seed * 7) % 41);
        }
    }
    tag_HROW * add(tag_HROW * parent)
    {
        tag_HROW * const row = grid.InsertRow(parent, GCI_LAST);
        setTexts(row, seed++);
        return row;
    }
    void addRows()
    {
        source.tree = {{1, {10, 11}}, {10, {100}}};
        source.lonely = {11, 100};
        for (int i = 0; i < 6; ++i) {
            tag_HROW * const parent = add(GC_ROOT);
            add(add(parent));
            tag_HROW * const section = grid.InsertSection(nullptr, GCI_LAST);
            sections.insert(section);
            GC_SECTION title;
            title.mask = GCRM_SECTIONTEXT;
            title.text = const_cast<char *>(i % 2 ? "" : "A section");
            grid.SetSection(section, &title);
            grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST, look.heights ? 27 : -1);
        }
        grid.Expand(nullptr, GCE_EXPANDALL);
    }

    int seed = 0;
};

QString told(QRect const & rect)
{
    return QStringLiteral("%1,%2 to %3,%4")
        .arg(rect.left())
        .arg(rect.top())
        .arg(rect.right())
        .arg(rect.bottom());
}

void addLooks()
{
    QTest::addColumn<int>("look");
    for (int i = 0; i < static_cast<int>(std::size(looks)); ++i) {
        QTest::newRow(looks[i].name) << i;
    }
}

} // namespace

class tst_GridGeometry : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void rectangles_areThoseOfTheRules_data() { addLooks(); }
    void rectangles_areThoseOfTheRules();
    void hits_areThoseOfTheRules_data() { addLooks(); }
    void hits_areThoseOfTheRules();
    void hit_fillsTheItem();
    void hit_besideRowsAndColumns_isNone();
    void hit_inTheHeader_isNone();
    void narrowTreeColumn_hasAButtonAndNothingElse();
    void wideLead_isNotThere();
    void emptyText_isNoElement();
    void sectionText_startsBehindTheButton();
    void rowOutOfTheOrder_hasEmptyRectangles();
    void hiddenColumn_isHitNowhere();
};

void tst_GridGeometry::rectangles_areThoseOfTheRules()
{
    QFETCH(int, look);
    Scene scene(looks[look]);
    QVERIFY(scene.show());
    GridRules const rules(scene.grid);
    QVERIFY(rules.rows.size() > 30);
    for (GridRules::Row const & row : rules.rows) {
        QRect rect;
        QVERIFY(scene.grid.GetRowRect(row.handle, &rect));
        QCOMPARE(told(rect), told(rules.rowRect(row)));
        for (GridRules::Column const & column : rules.columns) {
            QVERIFY(scene.grid.GetItemRect(row.handle, column.handle, &rect));
            QCOMPARE(told(rect), told(rules.itemRect(row, column)));
            QVERIFY(scene.grid.GetItemEditorRect(row.handle, column.handle, &rect));
            QString const where = QStringLiteral("row %1 kind %2: ")
                                      .arg(&row - rules.rows.data())
                                      .arg(column.record.kind);
            QCOMPARE(where + told(rect), where + told(scene.rule(rules, row, column).editor));
        }
    }
}

void tst_GridGeometry::hits_areThoseOfTheRules()
{
    QFETCH(int, look);
    Scene scene(looks[look]);
    QVERIFY(scene.show());
    GridRules const rules(scene.grid);
    KGridCtrl::PrivateData & frame = scene.grid.GetPriv();
    std::map<std::pair<tag_HROW *, tag_HCOLUMN *>, CellRule> cells;
    for (int y = rules.header - 1; y < 210; y += 2) {
        for (int x = -1; x < 320; x += 3) {
            QPoint const point(x, y);
            auto const [row, column] = rules.at(point);
            tag_HROW * hitRow = GC_ROOT;
            tag_HCOLUMN * hitColumn = nullptr;
            GC_HITTESTEXINFO info;
            bool const isHit = scene.grid.HitTest(point, &hitRow, &hitColumn);
            QCOMPARE(isHit, row != nullptr);
            QCOMPARE(hitRow, row ? row->handle : nullptr);
            QCOMPARE(hitColumn, row ? column->handle : GC_NOCOLUMN);
            QCOMPARE(scene.grid.HitTestEx(point, &info), isHit);
            QCOMPARE(info.row, hitRow);
            QCOMPARE(info.column, hitColumn);
            QCOMPARE(scene.grid.HitTest(point, nullptr), hitRow);
            if (!isHit) {
                continue;
            }
            auto const cell = std::pair(row->handle, column->handle);
            if (!cells.contains(cell)) {
                cells[cell] = scene.rule(rules, *row, *column);
            }
            QString const where =
                QStringLiteral("kind %1 at %2,%3: ").arg(column->record.kind).arg(x).arg(y);
            QCOMPARE(where + QString::number(frame.HitElementAt(frame.HitTest(point), point)),
                     where + QString::number(cells[cell].elementAt(point)));
        }
    }
}

void tst_GridGeometry::hit_fillsTheItem()
{
    Scene scene(looks[0]);
    QVERIFY(scene.show());
    GridRules const rules(scene.grid);
    for (GridRules::Row const & row : rules.rows) {
        QRect rect;
        scene.grid.GetItemRect(row.handle, columnHandle(0), &rect);
        if (!scene.grid.getClientRect().contains(rect.center())) {
            continue;
        }
        char text[40] = "as it was";
        GC_ITEM item;
        item.mask = GCIM_TEXT;
        item.text = text;
        item.textMax = sizeof text - 1;
        QCOMPARE(scene.grid.HitTest(rect.center(), &item), row.handle);
        QByteArray const hit = text;
        qstrcpy(text, "as it was");
        scene.grid.GetItem(row.handle, columnHandle(0), &item);
        QCOMPARE(hit, QByteArray(text));
    }
}

void tst_GridGeometry::hit_besideRowsAndColumns_isNone()
{
    TestGrid grid;
    QVERIFY(grid.showSized(200, 150));
    QVERIFY(!grid.HitTest(QPoint(5, 50), nullptr, nullptr)); // nothing at all
    grid.addColumns({60, 40});
    QVERIFY(!grid.HitTest(QPoint(5, 50), nullptr, nullptr)); // no rows
    grid.SetDefaultHeight(20);
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    int const header = grid.headerHeight();
    QCOMPARE(grid.HitTest(QPoint(99, header + 59), nullptr), rows[2]);
    QVERIFY(!grid.HitTest(QPoint(100, header + 59), nullptr)); // right of the last column
    QVERIFY(!grid.HitTest(QPoint(99, header + 60), nullptr));  // below the last row
    QVERIFY(!grid.HitTest(QPoint(-1, header), nullptr));
    QCOMPARE(grid.HitTest(QPoint(0, header), nullptr), rows[0]);
}

// Nor with rows scrolled away, which lie under it.
void tst_GridGeometry::hit_inTheHeader_isNone()
{
    TestGrid grid;
    grid.addColumns({60});
    grid.SetDefaultHeight(10);
    std::vector<tag_HROW *> const rows = grid.addMany(50);
    QVERIFY(grid.showSized(200, 150));
    int const header = grid.headerHeight();
    QVERIFY(header > 10);
    for (int y = 0; y < header; ++y) {
        QVERIFY(!grid.HitTest(QPoint(5, y), nullptr));
    }
    grid.OnScroll(-1, 3, 0, true);
    QCOMPARE(grid.GetTopIndex(), rows[1]);
    for (int y = 0; y < header; ++y) {
        QVERIFY(!grid.HitTest(QPoint(5, y), nullptr));
    }
    QCOMPARE(grid.HitTest(QPoint(5, header), nullptr), rows[1]);
}

void tst_GridGeometry::narrowTreeColumn_hasAButtonAndNothingElse()
{
    TestGrid grid;
    grid.SetDefaultHeight(20);
    grid.addKind(GCCK_TEXT, 12, GCCF_TREE);
    tag_HROW * const row = grid.add("text");
    QVERIFY(grid.showSized(200, 150));
    QRect rect(1, 2, 3, 4);
    QVERIFY(grid.GetItemEditorRect(row, grid.firstColumn(), &rect));
    QCOMPARE(rect, QRect());
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 12; ++x) {
            // From the margin to the margin, ten pixels high from (20 - 9) / 2.
            bool const onButton = x >= 2 && x <= 10 && y >= 5 && y <= 14;
            QPoint const point(x, grid.headerHeight() + y);
            QCOMPARE(frame.HitElementAt(frame.HitTest(point), point),
                     unsigned(onButton ? GCEL_BUTTON : GCEL_CELL));
        }
    }
}

void tst_GridGeometry::wideLead_isNotThere()
{
    for (int const width : {40, 96, 97, 100}) { // the room is 96 wide
        TestGrid grid;
        setImages(grid, GCIL_LEAD, QSize(width, 10));
        grid.addKind(GCCK_TEXT, 100, GCCF_LEAD);
        tag_HROW * const row = grid.add("");
        QVERIFY(grid.showSized(200, 150));
        QRect rect;
        QVERIFY(grid.GetItemEditorRect(row, grid.firstColumn(), &rect));
        bool const fits = width < 96;
        QCOMPARE(rect.right(), fits ? 98 - 2 - width : 98);
        KGridCtrl::PrivateData & frame = grid.GetPriv();
        QPoint const point(90, rect.center().y());
        QCOMPARE(frame.HitElementAt(frame.HitTest(point), point),
                 unsigned(fits ? GCEL_LEAD : GCEL_CELL));
    }
}

void tst_GridGeometry::emptyText_isNoElement()
{
    TestGrid grid;
    grid.addColumns({100});
    tag_HROW * const empty = grid.add("");
    tag_HROW * const filled = grid.add("long enough");
    QVERIFY(grid.showSized(200, 150));
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    for (tag_HROW * const row : {empty, filled}) {
        QRect rect;
        grid.GetItemRect(row, grid.firstColumn(), &rect);
        QPoint const point(10, rect.center().y());
        QCOMPARE(frame.HitElementAt(frame.HitTest(point), point),
                 unsigned(row == empty ? GCEL_CELL : GCEL_TEXT));
    }
}

void tst_GridGeometry::sectionText_startsBehindTheButton()
{
    // With 13 pixels the span from 2 to 11 has no more than a button's.
    for (int const width : {5, 13, 14, 100}) {
        TestGrid grid;
        tag_HCOLUMN * const column = grid.addColumns({width})[0];
        tag_HROW * const section = grid.InsertSection(nullptr, GCI_LAST);
        QVERIFY(grid.showSized(200, 150));
        QRect rect;
        QVERIFY(grid.GetItemEditorRect(section, column, &rect));
        QCOMPARE(rect.left(), width < 14 ? 2 : 15);
        QCOMPARE(rect.right(), width - 2);
    }
}

void tst_GridGeometry::rowOutOfTheOrder_hasEmptyRectangles()
{
    TestGrid grid;
    tag_HCOLUMN * const column = grid.addColumns({100})[0];
    tag_HROW * const parent = grid.add("p");
    tag_HROW * const child = grid.add("c", parent);
    QVERIFY(grid.showSized(200, 150));
    QVERIFY(grid.Expand(parent, GCE_COLLAPSE));
    for (int form = 0; form < 3; ++form) {
        QRect rect(1, 2, 3, 4);
        QVERIFY(form == 0   ? grid.GetRowRect(child, &rect)
                : form == 1 ? grid.GetItemRect(child, column, &rect)
                            : grid.GetItemEditorRect(child, column, &rect));
        QCOMPARE(rect, QRect(0, 0, 0, 0));
    }
}

void tst_GridGeometry::hiddenColumn_isHitNowhere()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 60, 70});
    tag_HROW * const row = grid.add("r");
    QVERIFY(grid.showSized(200, 150));
    grid.ShowColumn(columns[1], false);
    int const y = grid.headerHeight() + 3;
    for (int x = 0; x < 200; ++x) {
        tag_HCOLUMN * column = nullptr;
        bool const isHit = grid.HitTest(QPoint(x, y), nullptr, &column);
        QCOMPARE(isHit, x < 120);
        QCOMPARE(column, x < 50 ? columns[0] : (x < 120 ? columns[2] : GC_NOCOLUMN));
    }
    QRect rect;
    QVERIFY(grid.GetItemRect(row, columns[2], &rect));
    QCOMPARE(rect.left(), 50);
}

ZENU_TEST(tst_GridGeometry)
#include "tst_GridGeometry.moc"
