#include "tests/grid_geometry/GridRules.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::fromEdges;
using zenutest::GridRules;
using zenutest::Notes;
using zenutest::TestGrid;

namespace {

struct View
{
    char const * name;
    long style;
    unsigned top;    // scrolled down, in pixels
    unsigned offset; // scrolled to the right
    bool heights;
};

constexpr View views[] = {
    {"at the top left", 0, 0, 0, false},
    {"scrolled down", 0, 200, 0, false},
    {"scrolled to the right", 0, 0, 75, false},
    {"scrolled both ways", GCS_VERTLINES | GCS_HORZLINES, 210, 111, false},
    {"without a header", GCS_NOHEADER, 130, 40, false},
    {"explicit heights", 0, 320, 75, true},
    {"whole rows only", GCS_WHOLEROWS, 320, 10, true},
    {"at the end", 0, 100000, 100000, true},
};

// Thirty rows of an ordinary tree, one row collapsed, five columns of which the second is hidden.
struct Scene
{
    TestGrid grid;
    std::vector<tag_HROW *> rows;
    std::vector<tag_HCOLUMN *> columns;
    tag_HROW * out = nullptr; // of the order

    explicit Scene(View const & view)
        : grid(view.style)
    {
        grid.SetDefaultHeight(19);
        columns = grid.addColumns({100, 50, 120, 90, 60});
        grid.ShowColumn(columns[1], false);
        rows = grid.addMany(30);
        out = grid.add("out", rows[3]);
        grid.Expand(rows[3], GCE_COLLAPSE);
        for (std::size_t i = 0; view.heights && i < rows.size(); i += 2) {
            grid.SetRowHeight(rows[i], static_cast<int>(5 + i * 3));
        }
    }
    bool show(View const & view)
    {
        bool const shown = grid.showSized(250, 180);
        grid.OnScroll(-1, 5, view.top, true);
        grid.OnScroll(5, -1, view.offset, true);
        grid.takePainted();
        return shown;
    }

    // Where rows and columns are seen.
    QRect area() const
    {
        QRect const client = grid.getClientRect();
        return client.adjusted(0, grid.headerHeight(), 0, 0);
    }
    bool isExact() const
    {
        return grid.devicePixelRatioF() == std::floor(grid.devicePixelRatioF());
    }
    // What was painted of the area beside or besides what should have been; a window of a
    // fractional ratio paints a pixel more at each edge.
    QString wrongPaint(QRect const & expected)
    {
        QRegion const painted = grid.takePainted() & area();
        QRegion const wanted = QRegion(expected) & area();
        int const more = isExact() ? 0 : 1;
        QRegion const most =
            wanted.isEmpty() ? QRegion() : QRegion(expected.adjusted(-more, -more, more, more));
        bool const right = (wanted - painted).isEmpty() && (painted - most).isEmpty();
        return right ? QString()
                     : QStringLiteral("painted %1, not %2")
                           .arg(QDebug::toString(painted), QDebug::toString(wanted));
    }
};

void addViews()
{
    QTest::addColumn<int>("view");
    for (int i = 0; i < static_cast<int>(std::size(views)); ++i) {
        QTest::newRow(views[i].name) << i;
    }
}

// The first of the rows from which this one is whole on display, at its bottom at best.
int topThatShows(GridRules const & rules, std::size_t index, int page)
{
    int const bottom = rules.rows[index].top + rules.rows[index].height;
    std::size_t top = 0;
    while (top < index && bottom - rules.rows[top].top > page) {
        ++top;
    }
    return static_cast<int>(top);
}

} // namespace

class tst_GridViewing : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void ensureVisible_eachRow_data() { addViews(); }
    void ensureVisible_eachRow();
    void ensureVisible_eachColumn_data() { addViews(); }
    void ensureVisible_eachColumn();
    void ensureVisible_rowAndColumn_scrollsBoth();
    void ensureVisible_wideColumn_alignsItsLeftEdge();
    void ensureVisible_rowHigherThanThePage_isPassedOver();
    void invalidateRow_repaintsItAcrossTheContents_data() { addViews(); }
    void invalidateRow_repaintsItAcrossTheContents();
    void invalidateItem_repaintsTheCell_data() { addViews(); }
    void invalidateItem_repaintsTheCell();
    void invalidateColumn_repaintsItsSpan_data() { addViews(); }
    void invalidateColumn_repaintsItsSpan();
    void invalidate_whatIsHiddenByItsFlagAlone_isStillRepainted();
    void invalidate_whatIsNotInTheOrder_repaintsNothing();
    void invalidate_withADirtyOrder_repaintsAll();
};

void tst_GridViewing::ensureVisible_eachRow()
{
    QFETCH(int, view);
    std::size_t const count = Scene(views[view]).rows.size();
    for (std::size_t index = 0; index < count; ++index) {
        Scene scene(views[view]);
        QVERIFY(scene.show(views[view]));
        KGridCtrl::PrivateData & frame = scene.grid.GetPriv();
        GridRules const rules(scene.grid);
        int const page = scene.grid.getClientRect().bottom() - scene.grid.headerHeight();
        int const before = frame.GetTopIndex();
        int const last = before + static_cast<int>(scene.grid.GetVisibleCount()) - 1;
        auto const wanted = static_cast<int>(index);
        int expected = before;
        if (wanted >= last) {
            expected = topThatShows(rules, index, page);
        } else if (wanted < before) {
            expected = wanted;
        }
        scene.grid.EnsureVisible(rules.rows[index].handle, GC_NOCOLUMN);
        QCOMPARE(frame.GetTopIndex(), expected);
        QCOMPARE(frame.hScrollPos, rules.offset);
        QRect rect;
        QVERIFY(scene.grid.GetRowRect(rules.rows[index].handle, &rect));
        QVERIFY(rect.top() >= scene.grid.headerHeight());
        QVERIFY(rect.bottom() <= scene.grid.getClientRect().bottom() || expected == wanted);
        QCOMPARE(zenutest::checkGrid(scene.grid), QString());
    }
}

void tst_GridViewing::ensureVisible_eachColumn()
{
    QFETCH(int, view);
    for (std::size_t index = 0; index < 5; ++index) {
        Scene scene(views[view]);
        QVERIFY(scene.show(views[view]));
        KGridCtrl::PrivateData & frame = scene.grid.GetPriv();
        GridRules const rules(scene.grid);
        QRect const seen = scene.grid.getClientRect().translated(rules.offset, 0);
        int const width = seen.right() - seen.left();
        int expected = rules.offset;
        for (GridRules::Column const & column : rules.columns) {
            int const right = column.left + column.record.width;
            if (column.handle != scene.columns[index]) {
                continue;
            }
            if (right > seen.right() && column.record.width < width) {
                expected = right - width;
            } else if (column.left < seen.left()) {
                expected = column.left;
            }
        }
        int const top = frame.GetTopIndex();
        scene.grid.EnsureVisible(nullptr, scene.columns[index]);
        QCOMPARE(frame.hScrollPos, expected); // the same for the hidden one
        QCOMPARE(frame.GetTopIndex(), top);
    }
}

void tst_GridViewing::ensureVisible_rowAndColumn_scrollsBoth()
{
    Scene scene(views[0]);
    QVERIFY(scene.show(views[0]));
    Notes notes(&scene.grid);
    scene.grid.EnsureVisible(scene.rows[29], scene.columns[4]);
    QCOMPARE(scene.grid.GetBottomIndex(), scene.rows[29]);
    QRect const client = scene.grid.getClientRect();
    // The right edge meets that of the client rectangle, whose width is right minus left.
    QCOMPARE(scene.grid.GetPriv().hScrollPos, 370 - (client.right() - client.left()));
    QCOMPARE(notes.taken().count(QStringLiteral("scrolled")), 2); // one axis after the other
    QString const place = scene.grid.place();
    scene.grid.EnsureVisible(scene.rows[29], scene.columns[4]);
    QCOMPARE(scene.grid.place(), place);
    // For the last row on display the application is asked, whether it moves or not.
    QCOMPARE(notes.taken().count(QStringLiteral("scrolled")), 1);
    scene.grid.setNotification(nullptr);
}

void tst_GridViewing::ensureVisible_wideColumn_alignsItsLeftEdge()
{
    Scene scene(views[0]);
    scene.grid.SetColumnWidth(scene.columns[2], 800);
    QVERIFY(scene.show(views[0]));
    KGridCtrl::PrivateData const & frame = scene.grid.GetPriv();
    // Right of its left edge it is seen in part, and is not moved.
    scene.grid.EnsureVisible(nullptr, scene.columns[2]);
    QCOMPARE(frame.hScrollPos, 0);
    scene.grid.OnScroll(5, -1, 500, true);
    QCOMPARE(frame.hScrollPos, 500);
    scene.grid.EnsureVisible(nullptr, scene.columns[2]);
    QCOMPARE(frame.hScrollPos, 100);
}

void tst_GridViewing::ensureVisible_rowHigherThanThePage_isPassedOver()
{
    Scene scene(views[0]);
    scene.grid.SetRowHeight(scene.rows[12], 1000);
    QVERIFY(scene.show(views[0]));
    scene.grid.EnsureVisible(scene.rows[12], GC_NOCOLUMN);
    // No top shows it whole at the bottom, so the row after it comes to the top.
    QCOMPARE(scene.grid.GetTopIndex(), scene.rows[13]);
    scene.grid.EnsureVisible(scene.rows[12], GC_NOCOLUMN);
    QCOMPARE(scene.grid.GetTopIndex(), scene.rows[12]); // from below it is the first on display
}

void tst_GridViewing::invalidateRow_repaintsItAcrossTheContents()
{
    QFETCH(int, view);
    Scene scene(views[view]);
    QVERIFY(scene.show(views[view]));
    GridRules const rules(scene.grid);
    int shown = 0;
    for (GridRules::Row const & row : rules.rows) {
        scene.grid.InvalidateRow(row.handle);
        QRect const expected =
            fromEdges(-rules.offset, rules.viewTop(row), rules.contentsWidth - rules.offset,
                      rules.viewTop(row) + row.height - 1);
        QCOMPARE(scene.wrongPaint(expected), QString());
        shown += expected.intersects(scene.area()) ? 1 : 0;
    }
    QVERIFY(shown > 2);
}

void tst_GridViewing::invalidateItem_repaintsTheCell()
{
    QFETCH(int, view);
    Scene scene(views[view]);
    QVERIFY(scene.show(views[view]));
    GridRules const rules(scene.grid);
    for (GridRules::Row const & row : rules.rows) {
        for (GridRules::Column const & column : rules.columns) {
            scene.grid.InvalidateItem(row.handle, column.handle);
            QRect const cell(column.left - rules.offset, rules.viewTop(row), column.record.width,
                             row.height);
            QCOMPARE(scene.wrongPaint(cell), QString());
            if (cell.intersects(scene.area())) {
                std::as_const(scene.grid).InvalidateItem(row.handle, column.handle);
                QCOMPARE(scene.wrongPaint(cell), QString());
            }
        }
        scene.grid.InvalidateItem(row.handle, scene.columns[1]); // the hidden one
        QCOMPARE(scene.wrongPaint(QRect()), QString());
    }
}

void tst_GridViewing::invalidateColumn_repaintsItsSpan()
{
    QFETCH(int, view);
    Scene scene(views[view]);
    QVERIFY(scene.show(views[view]));
    GridRules const rules(scene.grid);
    QRect const client = scene.grid.getClientRect();
    for (GridRules::Column const & column : rules.columns) {
        scene.grid.InvalidateColumn(column.handle);
        QCOMPARE(scene.wrongPaint(QRect(column.left - rules.offset, client.top(),
                                        column.record.width, client.height())),
                 QString());
    }
    scene.grid.InvalidateColumn(scene.columns[1]); // the hidden one
    QCOMPARE(scene.wrongPaint(QRect()), QString());
}

// The flag waits for the next rebuild of the columns; until then the column is on display.
void tst_GridViewing::invalidate_whatIsHiddenByItsFlagAlone_isStillRepainted()
{
    Scene scene(views[0]);
    QVERIFY(scene.show(views[0]));
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_HIDDEN;
    QVERIFY(scene.grid.SetColumn(scene.columns[2], &record));
    scene.grid.takePainted();
    int const top = scene.grid.headerHeight();
    scene.grid.SetItemText(scene.rows[1], scene.columns[2], "changed");
    QCOMPARE(scene.wrongPaint(QRect(100, top + 19, 120, 19)), QString());
    scene.grid.InvalidateColumn(scene.columns[2]);
    QCOMPARE(scene.wrongPaint(QRect(100, 0, 120, 180)), QString());
}

void tst_GridViewing::invalidate_whatIsNotInTheOrder_repaintsNothing()
{
    Scene scene(views[0]);
    QVERIFY(scene.show(views[0]));
    scene.grid.InvalidateRow(scene.out);
    scene.grid.InvalidateItem(scene.out, scene.columns[0]);
    QVERIFY(scene.grid.takePainted().isEmpty());
    scene.grid.hide();
    scene.grid.InvalidateRow(scene.rows[0]);
    scene.grid.InvalidateItem(scene.rows[0], scene.columns[0]);
    QVERIFY(scene.grid.takePainted().isEmpty());
}

void tst_GridViewing::invalidate_withADirtyOrder_repaintsAll()
{
    Scene scene(views[0]);
    QVERIFY(scene.show(views[0]));
    scene.grid.InsertRow(GC_ROOT, GCI_FIRST);
    QVERIFY(scene.grid.takePainted().isEmpty()); // an insertion alone repaints nothing
    scene.grid.InvalidateRow(scene.rows[29]);
    QCOMPARE(scene.wrongPaint(scene.grid.getClientRect()), QString());
}

ZENU_TEST(tst_GridViewing)
#include "tst_GridViewing.moc"
