#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include <climits>

using namespace zenu;
using namespace zenutest;

// The forms of the grid's operations that belong to no other topic.
class tst_GridFace : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void sink_defaults_stopNothing();
    void grid_hasNoSignalsAndSlotsOfItsOwn();
    void hitTest_pointers_getRowAndColumn();
    void hitTest_record_isFilledFromTheItem();
    void hitTest_recordOfASlimRow_namesTheRow();
    void hitTestEx_leavesTheFirstTwoFields();
    void hitTestEx_nowhere_isNullAndMinusOne_data();
    void hitTestEx_nowhere_isNullAndMinusOne();
    void hitTestEx_withoutARecord_isFalse();
    void hitTest_emptyGrid_fails();
    void insertSlimRow_ofALiteralZero_isOneOfTheParam();
    void insertSlimRow_ofARecord_ignoresTheRest();
    void newSortRecord_sortsByItsComparison();
    void setFocusedColumn_answersTheOneBefore();
    void setters_answerTheOldWord();
    void plumbing_isThere();
    void setRedraw_changesNothing();
    void itemText_twoForms_areOne();
    void invalidateItem_bothForms_repaintTheCell();
};

void tst_GridFace::sink_defaults_stopNothing()
{
    IGridNotification sink;
    QVERIFY(sink.OnScrolling(nullptr));
    sink.OnScrolled();
    QVERIFY(sink.OnExpanding(nullptr));
    sink.OnExpanded(nullptr);
    sink.OnKeyPressed(nullptr);
    sink.OnSelectionChanged();
    QVERIFY(sink.OnSelectionChanging(nullptr));
    sink.OnFocusIn();
    sink.OnFocusOut();
    QVERIFY(!sink.OnItemChanging(nullptr, GC_NOCOLUMN));
    QVERIFY(!sink.OnItemChanged(nullptr, GC_NOCOLUMN));
    QVERIFY(sink.OnClick(nullptr, GC_NOCOLUMN, 0));
    QVERIFY(sink.OnRightClick(nullptr, GC_NOCOLUMN, 0));
    QVERIFY(sink.OnDoubleClick(nullptr, GC_NOCOLUMN, 0));
    QVERIFY(sink.OnLeadClick(nullptr, GC_NOCOLUMN, 0));
    sink.OnDragEnter(nullptr, nullptr, GC_NOCOLUMN);
    sink.OnDragMove(nullptr, nullptr, GC_NOCOLUMN);
    sink.OnDragLeave(nullptr);
    sink.OnDrop(nullptr, nullptr, GC_NOCOLUMN);
    sink.OnHover(nullptr, GC_NOCOLUMN, 0);
    sink.OnColumnResized(GC_NOCOLUMN, 0);
}

void tst_GridFace::grid_hasNoSignalsAndSlotsOfItsOwn()
{
    QMetaObject const & meta = KGridCtrl::staticMetaObject;
    QCOMPARE(meta.superClass(), &KScrolledWidget::staticMetaObject);
    QCOMPARE(meta.methodCount(), KScrolledWidget::staticMetaObject.methodCount());
}

namespace {

// Three rows of two columns, all on display.
struct Shown
{
    explicit Shown(long style = 0)
        : grid(style)
        , columns(grid.addColumns({60, 70}))
        , rows(grid.addMany(3))
    {
    }
    bool show() { return grid.showSized(200, 200); }
    QPoint in(int row, int column)
    {
        QRect rect;
        grid.GetItemRect(rows[static_cast<std::size_t>(row)],
                         columns[static_cast<std::size_t>(column)], &rect);
        return rect.center();
    }

    TestGrid grid;
    std::vector<tag_HCOLUMN *> columns;
    std::vector<tag_HROW *> rows;
};

tag_HROW * const noSuchRow = reinterpret_cast<tag_HROW *>(0x1234L);
tag_HCOLUMN * const noSuchColumn = reinterpret_cast<tag_HCOLUMN *>(0x1234L);

} // namespace

void tst_GridFace::hitTest_pointers_getRowAndColumn()
{
    Shown shown;
    QVERIFY(shown.show());
    tag_HROW * row = noSuchRow;
    tag_HCOLUMN * column = noSuchColumn;
    QVERIFY(shown.grid.HitTest(shown.in(2, 1), &row, &column));
    QCOMPARE(row, shown.rows[2]);
    QCOMPARE(column, shown.columns[1]);
    QVERIFY(shown.grid.HitTest(shown.in(2, 1), nullptr, nullptr));
    QVERIFY(!shown.grid.HitTest(QPoint(131, 50), &row, &column)); // right of the columns
    QCOMPARE(row, nullptr);
    QCOMPARE(column, GC_NOCOLUMN);
    QVERIFY(!shown.grid.HitTest(QPoint(-1, 50), nullptr, nullptr));
}

void tst_GridFace::hitTest_record_isFilledFromTheItem()
{
    Shown shown;
    shown.grid.SetItemText(shown.rows[1], shown.columns[1], "the text");
    QVERIFY(shown.show());
    char buffer[20] = "as it was";
    GC_ITEM item;
    item.mask = GCIM_TEXT;
    item.text = buffer;
    item.textMax = sizeof buffer;
    QCOMPARE(shown.grid.HitTest(QPoint(10, 190), &item), nullptr);
    QCOMPARE(QByteArray(buffer), QByteArray("as it was"));
    QCOMPARE(shown.grid.HitTest(shown.in(1, 1), &item), shown.rows[1]);
    QCOMPARE(QByteArray(buffer), QByteArray("the text"));
    QCOMPARE(shown.grid.HitTest(shown.in(1, 1), nullptr), shown.rows[1]);
}

void tst_GridFace::hitTest_recordOfASlimRow_namesTheRow()
{
    SlimTree source;
    TestGrid grid;
    grid.SetSlimGridCallback(&source);
    grid.addColumns({60});
    tag_HROW * const slim = grid.InsertSlimRow(5L, false, GC_ROOT, GCI_LAST);
    QVERIFY(grid.showSized(200, 100));
    GC_ITEM item; // slim rows have no items, but they can be hit
    item.mask = GCIM_IMAGE;
    QCOMPARE(grid.HitTest(QPoint(10, grid.headerHeight() + 3), &item), slim);
    QCOMPARE(item.image, 0);
}

void tst_GridFace::hitTestEx_leavesTheFirstTwoFields()
{
    Shown shown;
    QVERIFY(shown.show());
    GC_HITTESTEXINFO info;
    info.reserved1 = 11;
    info.reserved2 = 22;
    QVERIFY(shown.grid.HitTestEx(shown.in(0, 1), &info));
    QCOMPARE(info.row, shown.rows[0]);
    QCOMPARE(info.column, shown.columns[1]);
    QVERIFY(!shown.grid.HitTestEx(QPoint(150, 50), &info));
    QCOMPARE(info.reserved1, 11);
    QCOMPARE(info.reserved2, 22);
}

void tst_GridFace::hitTestEx_nowhere_isNullAndMinusOne_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::newRow("left of all") << QPoint(-1, 50);
    QTest::newRow("right of the columns") << QPoint(130, 50);
    QTest::newRow("in the header") << QPoint(5, 2);
    QTest::newRow("above all") << QPoint(5, -1);
    QTest::newRow("below the rows") << QPoint(5, 190);
    QTest::newRow("far away") << QPoint(INT_MAX, INT_MAX);
    QTest::newRow("far away on the other side") << QPoint(INT_MIN, INT_MIN);
}

void tst_GridFace::hitTestEx_nowhere_isNullAndMinusOne()
{
    QFETCH(QPoint, point);
    Shown shown;
    QVERIFY(shown.show());
    GC_HITTESTEXINFO info;
    info.row = noSuchRow;
    info.column = noSuchColumn;
    QVERIFY(!shown.grid.HitTestEx(point, &info));
    QCOMPARE(info.row, nullptr);
    QCOMPARE(info.column, GC_NOCOLUMN);
}

void tst_GridFace::hitTestEx_withoutARecord_isFalse()
{
    Shown shown;
    QVERIFY(shown.show());
    QVERIFY(!shown.grid.HitTestEx(shown.in(0, 0), nullptr));
}

void tst_GridFace::hitTest_emptyGrid_fails()
{
    TestGrid grid;
    QVERIFY(grid.showSized(100, 100));
    tag_HROW * row = noSuchRow;
    tag_HCOLUMN * column = noSuchColumn;
    QVERIFY(!grid.HitTest(QPoint(50, 50), &row, &column));
    QCOMPARE(row, nullptr);
    QCOMPARE(column, GC_NOCOLUMN);
    grid.addMany(3); // without a column there is no cell
    QVERIFY(!grid.HitTest(QPoint(50, 50), &row, &column));
    grid.addColumns({60});
    QVERIFY(grid.HitTest(QPoint(50, 50), &row, &column));
}

void tst_GridFace::insertSlimRow_ofALiteralZero_isOneOfTheParam()
{
    SlimTree source;
    TestGrid grid;
    grid.SetSlimGridCallback(&source);
    grid.addColumns({60});
    tag_HROW * const first = grid.InsertSlimRow(0, false, GC_ROOT, GCI_LAST);
    tag_HROW * const second = grid.InsertSlimRow(7U, false, GC_ROOT, GCI_LAST, 33);
    tag_HROW * const third = grid.InsertSlimRow(-2, true, GC_ROOT, GCI_FIRST);
    QCOMPARE(grid.GetRowParam(first), 0ul);
    QCOMPARE(grid.GetRowParam(second), 7ul);
    QCOMPARE(static_cast<long>(grid.GetRowParam(third)), -2L);
    QCOMPARE(grid.GetRowHeight(second), 33u);
    QCOMPARE(grid.order(), QStringLiteral("s-2 s0 s7"));
}

void tst_GridFace::insertSlimRow_ofARecord_ignoresTheRest()
{
    SlimTree source;
    TestGrid grid;
    grid.SetSlimGridCallback(&source);
    grid.addColumns({60});
    GC_SLIMROWDATA data[2];
    data[0].param = 3;
    data[1].param = 4;
    GC_INSERTSLIMROW record;
    record.parent = GC_ROOT;
    record.after = GCI_LAST;
    record.count = 2;
    record.rows = data;
    QVERIFY(grid.InsertSlimRow(&record, false, noSuchRow, noSuchRow, 99));
    QCOMPARE(grid.order(), QStringLiteral("s3 s4"));
    QCOMPARE(static_cast<int>(grid.GetRowHeight(data[0].row)), grid.rowHeight());
}

void tst_GridFace::newSortRecord_sortsByItsComparison()
{
    TestGrid grid;
    grid.addColumns({60});
    for (char const * const text : {"c", "a", "b"}) {
        grid.SetRowParam(grid.add(text), static_cast<unsigned char>(*text));
    }
    GC_SORT sort;
    QCOMPARE(sort.column, GC_NOCOLUMN);
    grid.Sort(&sort);
    QCOMPARE(grid.order(), QStringLiteral("c a b"));
    sort.compare = [](unsigned long, tag_HROW *, long a, tag_HROW *, long b) {
        return static_cast<int>(a - b);
    };
    grid.Sort(&sort);
    QCOMPARE(grid.order(), QStringLiteral("a b c"));
}

void tst_GridFace::setFocusedColumn_answersTheOneBefore()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({10, 20});
    QCOMPARE(grid.SetFocusedColumn(columns[1]), GC_NOCOLUMN);
    QCOMPARE(grid.SetFocusedColumn(columns[0]), columns[1]);
    QCOMPARE(grid.SetFocusedColumn(noSuchColumn), columns[0]);
    QCOMPARE(grid.GetFocusedColumn(), columns[0]);
}

void tst_GridFace::setters_answerTheOldWord()
{
    TestGrid grid;
    unsigned long const words[] = {GCXS_HEADERDRAG, GCXS_HEADERDRAG | GCXS_FASTLOCATOR, 0, 0x30};
    unsigned long before = 0;
    for (unsigned long const word : words) {
        QCOMPARE(grid.SetGridExStyle(word), before);
        QCOMPARE(grid.GetExStyle(), word);
        before = word;
    }
    for (unsigned long const word : words) {
        QCOMPARE(grid.SetExStyle(word), before);
        QCOMPARE(grid.GetGridExStyle(), word);
        before = word;
    }
}

void tst_GridFace::plumbing_isThere()
{
    TestGrid grid;
    QVERIFY(grid.AssertValid());
    QCOMPARE(grid.GetPriv().grid, static_cast<KGridCtrl *>(&grid));
    QCOMPARE(&grid.GetPriv(), &std::as_const(grid).GetPriv());
    SlimTree source;
    grid.SetSlimGridCallback(&source);
    QCOMPARE(grid.GetSlimGridCallback(), static_cast<ISlimGridCallback *>(&source));
    grid.SetSlimGridCallback(nullptr);
    QVERIFY(!grid.GetSlimGridCallback());
}

void tst_GridFace::setRedraw_changesNothing()
{
    Shown shown;
    QVERIFY(shown.show());
    shown.grid.SetRedraw(false);
    QCOMPARE(shown.grid.takePainted(), QRegion());
    QVERIFY(shown.grid.updatesEnabled());
    shown.grid.SetItemText(shown.rows[0], shown.columns[0], "new");
    QVERIFY(!shown.grid.takePainted().isEmpty());
    shown.grid.SetRedraw(true);
    QCOMPARE(shown.grid.takePainted(), QRegion());
}

void tst_GridFace::itemText_twoForms_areOne()
{
    Shown shown;
    QVERIFY(shown.grid.SetItem(shown.rows[0], shown.columns[1], GCIM_TEXT, "by six", 0, 0));
    QCOMPARE(shown.grid.GetItemText(shown.rows[0], shown.columns[1]), std::string("by six"));
    QCOMPARE(shown.grid.GetItemTextLen(shown.rows[0], shown.columns[1]), 6);
    QVERIFY(shown.grid.SetItemText(shown.rows[0], shown.columns[1], "by three"));
    QCOMPARE(shown.grid.GetItemText(shown.rows[0], shown.columns[1]), std::string("by three"));
}

void tst_GridFace::invalidateItem_bothForms_repaintTheCell()
{
    Shown shown;
    QVERIFY(shown.show());
    QRect rect;
    QVERIFY(shown.grid.GetItemRect(shown.rows[1], shown.columns[1], &rect));
    rect.setRight(rect.right() - 1); // the column's last pixel
    shown.grid.InvalidateItem(shown.rows[1], shown.columns[1]);
    QCOMPARE(shown.grid.takePainted(), QRegion(rect));
    std::as_const(shown.grid).InvalidateItem(shown.rows[1], shown.columns[1]);
    QCOMPARE(shown.grid.takePainted(), QRegion(rect));
}

ZENU_TEST(tst_GridFace)
#include "tst_GridFace.moc"
