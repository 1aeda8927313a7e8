#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

#include "zenu/overlay/KPainter.h"
#include "zenu/widgets/KPixmapSet.h"

#include <climits>

using namespace zenu;
using namespace zenutest;

// What a grid is made with, whom it tells, and its colours and images.
class tst_GridFrame : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void made_argumentsArriveWhereTheyBelong();
    void made_withoutArguments_isAPlainChildlessGrid();
    void made_takesDropsAndMouseMoves();
    void made_hasItsGlyphsAndNoOtherImages();
    void made_startsEmpty();
    void made_withoutParent_isItsOwnSink();
    void ownSink_operationsOfADerivedGridAreCalled();
    void sink_replaced_ownOperationsAreNotCalled();
    void destroyed_tellsNobody();
    void colors_eachNumber_isSwappedAndRepaintsOnAChange_data();
    void colors_eachNumber_isSwappedAndRepaintsOnAChange();
    void colors_otherNumbers_areBlackAndStay();
    void colors_namedPairs_areNumbersOneToThree();
    void images_eachListHasItsNumber();
    void images_otherNumber_readsNormalAndSetsNothing();
    void images_set_repaints();
    void reset_repaints();
    void reset_staleColumnHandle_namesANewColumn();
    void hidden_invalidateRow_repaintsNothing();
    void hidden_columnsAndStructureAreNotGated();
    void shownAgain_isPaintedWhole();
};

namespace {

// Qt hides the widgets of a window that is minimised by a mere event, without asking for a repaint
// when they come back.
void hideByEvent(QWidget & widget)
{
    QHideEvent event;
    QCoreApplication::sendEvent(&widget, &event);
}

void showByEvent(QWidget & widget)
{
    QShowEvent event;
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

void tst_GridFrame::made_argumentsArriveWhereTheyBelong()
{
    QWidget window;
    KGridCtrl const grid(&window, 77, "the name", static_cast<unsigned>(Qt::Tool),
                         GCS_NOHEADER | GCS_SINGLESEL, 12345);
    QCOMPARE(grid.parentWidget(), &window);
    QCOMPARE(grid.objectName(), QStringLiteral("the name"));
    QCOMPARE(grid.windowType(), Qt::Tool);
    QCOMPARE(grid.GetPriv().id, 77);
    QCOMPARE(grid.GetPriv().style, unsigned(GCS_NOHEADER | GCS_SINGLESEL));
    QVERIFY(grid.getHeader()->isHidden());
}

void tst_GridFrame::made_withoutArguments_isAPlainChildlessGrid()
{
    KGridCtrl const grid;
    QVERIFY(!grid.parentWidget());
    QCOMPARE(grid.objectName(), QString());
    QCOMPARE(grid.GetPriv().id, 0);
    QCOMPARE(grid.GetPriv().style, 0u);
    QCOMPARE(grid.GetGridExStyle(), 0ul);
    QVERIFY(!grid.getHeader()->isHidden());
}

void tst_GridFrame::made_takesDropsAndMouseMoves()
{
    KGridCtrl const grid;
    QVERIFY(grid.acceptDrops());
    QVERIFY(grid.hasMouseTracking());
}

void tst_GridFrame::made_hasItsGlyphsAndNoOtherImages()
{
    KGridCtrl const grid;
    KGridImages const & images = grid.GetPriv().images;
    QCOMPARE(images.imageSize(KGridImages::Buttons), QSize(9, 9));
    for (int list = GCIL_NORMAL; list <= GCIL_STATE; ++list) {
        QVERIFY(!grid.GetImageList(list));
    }
    QVERIFY(!images.get(KGridImages::Radio));
}

void tst_GridFrame::made_startsEmpty()
{
    KGridCtrl grid;
    QCOMPARE(grid.GetHScrollDelta(), 5);
    QCOMPARE(grid.GetColumnsCount(), 0);
    QCOMPARE(grid.GetRowCount() + grid.GetExpandedCount() + grid.GetVisibleCount(), 0u);
    QCOMPARE(grid.GetSelectedCount(), 0u);
    QCOMPARE(grid.GetFocusedColumn(), GC_NOCOLUMN);
    QVERIFY(!grid.GetTopIndex());
    QVERIFY(!grid.GetBottomIndex());
    QVERIFY(!grid.GetSlimGridCallback());
    QCOMPARE(grid.contentsWidth(), 0);
    tag_HROW * row = grid.InsertRow(GC_ROOT, GCI_LAST);
    QVERIFY(!grid.HitTest(QPoint(5, 5), &row, nullptr));
}

void tst_GridFrame::made_withoutParent_isItsOwnSink()
{
    KGridCtrl grid;
    QCOMPARE(grid.getNotification(), static_cast<IGridNotification *>(&grid));
    QWidget window;
    auto * const child = new KGridCtrl(&window);
    QCOMPARE(child->getNotification(), static_cast<IGridNotification *>(child));
}

namespace {

class RefusingGrid : public KGridCtrl
{
public:
    QStringList calls;
    bool OnExpanding(tag_HROW *) override
    {
        calls << QStringLiteral("expanding");
        return false;
    }
    void OnSelectionChanged() override { calls << QStringLiteral("selected"); }
};

} // namespace

void tst_GridFrame::ownSink_operationsOfADerivedGridAreCalled()
{
    RefusingGrid grid;
    grid.AddColumn("a", 0, 50);
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    grid.InsertRow(row, GCI_LAST);
    grid.Expand(row, GCE_COLLAPSE);
    QCOMPARE(grid.GetExpandedCount(), 2u); // the grid itself said no
    grid.SelectAll();
    QCOMPARE(grid.calls.join(u' '), QStringLiteral("expanding selected"));
}

void tst_GridFrame::sink_replaced_ownOperationsAreNotCalled()
{
    RefusingGrid grid;
    grid.AddColumn("a", 0, 50);
    tag_HROW * const row = grid.InsertRow(GC_ROOT, GCI_LAST);
    grid.InsertRow(row, GCI_LAST);
    IGridNotification other;
    for (IGridNotification * const sink : {&other, static_cast<IGridNotification *>(nullptr)}) {
        grid.setNotification(sink);
        QCOMPARE(grid.getNotification(), sink);
        grid.Expand(row, GCE_TOGGLE);
        grid.SelectAll();
        QCOMPARE(grid.calls.join(u' '), QString());
    }
    QCOMPARE(grid.GetExpandedCount(), 2u); // collapsed and expanded
    grid.setNotification(&grid);
    grid.Expand(row, GCE_COLLAPSE);
    QCOMPARE(grid.calls.join(u' '), QStringLiteral("expanding"));
}

void tst_GridFrame::destroyed_tellsNobody()
{
    SlimTree source;
    source.tree[1] = {2, 3};
    QStringList told;
    {
        auto grid = std::make_unique<TestGrid>();
        Notes notes(grid.get());
        grid->SetSlimGridCallback(&source);
        grid->addColumns({50, 50});
        grid->addMany(20);
        tag_HROW * const row = grid->add("focused");
        grid->InsertSection(nullptr, GCI_LAST);
        tag_HROW * const slim = grid->InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
        grid->Expand(slim, GCE_EXPAND);
        grid->SetRowHeight(row, 44);
        grid->SetRowSel(row, true);
        grid->SelectAll();
        QVERIFY(grid->showSized(200, 100));
        for (auto at = grid->begin(GCN_ALL_FIRST); at != grid->end(); ++at) {
        }
        notes.taken();
        source.taken();
        grid.reset();
        told = notes.calls;
    }
    QCOMPARE(told.join(u' '), QString());
    QCOMPARE(source.taken(), QString());
}

void tst_GridFrame::colors_eachNumber_isSwappedAndRepaintsOnAChange_data()
{
    QTest::addColumn<int>("number");
    for (int number = 1; number <= GCC_COUNT; ++number) {
        QTest::addRow("%d", number) << number;
    }
}

void tst_GridFrame::colors_eachNumber_isSwappedAndRepaintsOnAChange()
{
    QFETCH(int, number);
    TestGrid grid;
    grid.addColumns({50});
    QVERIFY(grid.showSized(100, 100));
    QColor const before = grid.GetColor(number);
    QColor const color(12, 34, 56);
    QCOMPARE(grid.SetColor(number, color), before);
    QCOMPARE(grid.GetColor(number), color);
    QVERIFY(grid.takePainted().contains(QRect(0, 50, 100, 50)));
    QCOMPARE(grid.SetColor(number, color), color);
    QCOMPARE(grid.takePainted(), QRegion());
    for (int other = 1; other <= GCC_COUNT; ++other) {
        QCOMPARE(grid.GetColor(other) == color, other == number);
    }
}

void tst_GridFrame::colors_otherNumbers_areBlackAndStay()
{
    TestGrid grid;
    QVERIFY(grid.showSized(100, 100));
    for (int const number : {0, 22, -1, INT_MAX, INT_MIN}) {
        QCOMPARE(grid.GetColor(number), QColor(Qt::black));
        QCOMPARE(grid.SetColor(number, Qt::red), QColor(Qt::black));
        QCOMPARE(grid.GetColor(number), QColor(Qt::black));
    }
    QCOMPARE(grid.takePainted(), QRegion());
}

void tst_GridFrame::colors_namedPairs_areNumbersOneToThree()
{
    TestGrid grid;
    QVERIFY(grid.showSized(100, 100));
    QCOMPARE(grid.GetSepColor(), KPainter::getSysColor(1));
    QCOMPARE(grid.GetTextColor(), KPainter::getSysColor(5));
    QCOMPARE(grid.GetBkColor(), KPainter::getSysColor(10));
    QColor const sep = grid.GetSepColor();
    QColor const text = grid.GetTextColor();
    QColor const back = grid.GetBkColor();
    QCOMPARE(grid.SetSepColor(Qt::red), sep);
    QCOMPARE(grid.SetTextColor(Qt::green), text);
    QCOMPARE(grid.SetBkColor(Qt::blue), back);
    QVERIFY(!grid.takePainted().isEmpty());
    QCOMPARE(grid.GetColor(1), QColor(Qt::red));
    QCOMPARE(grid.GetColor(2), QColor(Qt::green));
    QCOMPARE(grid.GetColor(3), QColor(Qt::blue));
    QCOMPARE(grid.GetSepColor(), QColor(Qt::red));
    QCOMPARE(grid.GetTextColor(), QColor(Qt::green));
    QCOMPARE(grid.GetBkColor(), QColor(Qt::blue));
    QCOMPARE(grid.SetBkColor(Qt::blue), QColor(Qt::blue));
    QCOMPARE(grid.takePainted(), QRegion());
}

void tst_GridFrame::images_eachListHasItsNumber()
{
    TestGrid grid;
    for (int list = GCIL_NORMAL; list <= GCIL_STATE; ++list) {
        setImages(grid, QSize(10 + list, 20 + list), list);
    }
    for (int list = GCIL_NORMAL; list <= GCIL_STATE; ++list) {
        QCOMPARE(grid.GetImageList(list)->getImageSize(), QSize(10 + list, 20 + list));
    }
    KGridImages const & images = grid.GetPriv().images;
    QCOMPARE(images.get(KGridImages::Lead), grid.GetImageList(2));
    QCOMPARE(images.get(KGridImages::Overlay), grid.GetImageList(3));
    QCOMPARE(images.get(KGridImages::State), grid.GetImageList(4));
}

void tst_GridFrame::images_otherNumber_readsNormalAndSetsNothing()
{
    TestGrid grid;
    setImages(grid, QSize(10, 12));
    KPixmapSet const * const normal = grid.GetImageList(GCIL_NORMAL);
    for (int const list : {5, 6, -1, INT_MAX, INT_MIN}) {
        QCOMPARE(grid.GetImageList(list), normal);
        setImages(grid, QSize(30, 30), list);
        QCOMPARE(grid.GetImageList(list), normal);
    }
    QCOMPARE(grid.GetPriv().images.imageSize(KGridImages::Buttons), QSize(9, 9));
}

void tst_GridFrame::images_set_repaints()
{
    TestGrid grid;
    grid.addColumns({50});
    QVERIFY(grid.showSized(100, 100));
    for (int list = GCIL_NORMAL; list <= GCIL_STATE; ++list) {
        grid.takePainted();
        setImages(grid, QSize(3, 3), list);
        QVERIFY(!grid.takePainted().isEmpty());
    }
}

void tst_GridFrame::reset_repaints()
{
    TestGrid grid;
    grid.addColumns({50});
    grid.addMany(3);
    QVERIFY(grid.showSized(100, 100));
    QVERIFY(grid.Reset());
    QVERIFY(grid.takePainted().contains(QRect(0, 50, 100, 50)));
    QCOMPARE(grid.getHScrollBar()->maximum(), 0);
    QCOMPARE(grid.getVScrollBar()->maximum(), 0);
    QCOMPARE(checkGrid(grid), QString());
}

void tst_GridFrame::reset_staleColumnHandle_namesANewColumn()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const old = grid.addColumns({50, 60});
    QVERIFY(grid.Reset());
    QCOMPARE(grid.GetColumnWidth(old[0]), 0);
    QCOMPARE(grid.AddColumn("new", 0, 70), old[0]);
    QCOMPARE(grid.GetColumnWidth(old[0]), 70);
    QCOMPARE(grid.Column2HeaderItem(old[1]), -1);
}

void tst_GridFrame::hidden_invalidateRow_repaintsNothing()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 50});
    tag_HROW * const row = grid.add("a");
    QVERIFY(grid.showSized(150, 100));
    grid.InvalidateRow(row);
    QVERIFY(!grid.takePainted().isEmpty());
    grid.InvalidateItem(row, columns[1]);
    QVERIFY(!grid.takePainted().isEmpty());
    hideByEvent(grid);
    grid.InvalidateRow(row);
    grid.InvalidateItem(row, columns[1]);
    grid.SetItemText(row, columns[1], "new");
    QCOMPARE(grid.takePainted(), QRegion());
    showByEvent(grid);
    grid.takePainted();
    grid.InvalidateRow(row);
    QVERIFY(!grid.takePainted().isEmpty());
}

void tst_GridFrame::hidden_columnsAndStructureAreNotGated()
{
    TestGrid grid;
    std::vector<tag_HCOLUMN *> const columns = grid.addColumns({50, 50});
    std::vector<tag_HROW *> const rows = grid.addMany(3);
    QVERIFY(grid.showSized(150, 100));
    hideByEvent(grid);
    grid.InvalidateColumn(columns[1]);
    QVERIFY(!grid.takePainted().isEmpty());
    grid.add("child", rows[0]);
    grid.Expand(rows[0], GCE_COLLAPSE);
    grid.DeleteRow(rows[2]);
    grid.ShowColumn(columns[0], false);
    QCOMPARE(grid.GetRowCount(), 3u);
    QCOMPARE(grid.order().count(u' '), 1);
    QCOMPARE(grid.contentsWidth(), 50);
    QCOMPARE(checkGrid(grid), QString());
}

void tst_GridFrame::shownAgain_isPaintedWhole()
{
    TestGrid grid;
    grid.addColumns({50});
    tag_HROW * const row = grid.add("a");
    QVERIFY(grid.showSized(150, 100));
    hideByEvent(grid);
    grid.SetItemText(row, grid.firstColumn(), "changed in a minimised window");
    grid.takePainted();
    showByEvent(grid);
    QVERIFY(grid.takePainted().contains(QRect(0, 50, 150, 50)));
    grid.hide();
    grid.SetItemText(row, grid.firstColumn(), "changed in a hidden window");
    grid.show();
    QVERIFY(grid.takePainted().contains(QRect(0, 50, 150, 50)));
}

ZENU_TEST(tst_GridFrame)
#include "tst_GridFrame.moc"
