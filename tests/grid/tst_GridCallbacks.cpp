#include "tests/grid/CallbackScene.h"
#include "tests/support/TestMain.h"

#include <QWheelEvent>

using namespace zenu;
using zenutest::addCallOutRows;
using zenutest::CallOut;
using zenutest::checkCallOut;
using zenutest::Deletion;
using zenutest::Scene;
using zenutest::TestGrid;

namespace {

void collapse(Scene & scene)
{
    scene.grid->Expand(scene.b, GCE_COLLAPSE);
    scene.grid->Expand(scene.a, GCE_COLLAPSE);
}

void select(Scene & scene)
{
    scene.grid->SetRowSel(scene.d, true);
}

void setState(TestGrid & grid, tag_HROW * row, unsigned state, unsigned mask)
{
    GC_ROW record;
    record.mask = GCRM_STATE | GCRM_TEXTCOLOR | GCRM_HEIGHT;
    record.state = state;
    record.stateMask = mask;
    record.height = 31;
    grid.SetRow(row, &record);
}

void wheel(QWidget * widget)
{
    QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -4800),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void dragFirstDivider(TestGrid & grid)
{
    QPointer<KHeader> const header = grid.getHeader();
    int const y = header->height() / 2;
    QTest::mouseMove(header, QPoint(89, y));
    QTest::mousePress(header, Qt::LeftButton, Qt::NoModifier, QPoint(89, y));
    for (int const x : {95, 105}) {
        if (header) {
            QTest::mouseMove(header, QPoint(x, y));
        }
    }
    if (header) {
        QTest::mouseRelease(header, Qt::LeftButton, Qt::NoModifier, QPoint(105, y));
    }
}

std::vector<CallOut> expansions()
{
    auto const expandA = [](TestGrid & grid, Scene & s) { grid.Expand(s.a, GCE_EXPAND); };
    auto const toggleB = [](TestGrid & grid, Scene & s) { grid.Expand(s.b, GCE_TOGGLE); };
    auto const collapseA = [](TestGrid & grid, Scene & s) { grid.Expand(s.a, GCE_COLLAPSE); };
    auto const expandAll = [](TestGrid & grid, Scene &) { grid.Expand(nullptr, GCE_EXPANDALL); };
    auto const collapseAll = [](TestGrid & grid, Scene &) {
        grid.Expand(nullptr, GCE_COLLAPSEALL);
    };
    auto const setRow = [](TestGrid & grid, Scene & s) {
        setState(grid, s.a, GCRS_SELECTED | GCRS_FOCUSED | GCRS_EXPANDED,
                 GCRS_SELECTED | GCRS_FOCUSED | GCRS_EXPANDED);
    };
    auto const unsetRow = [](TestGrid & grid, Scene & s) {
        setState(grid, s.b, 0, GCRS_SELECTED | GCRS_FOCUSED | GCRS_EXPANDED);
    };
    return {
        {"expand", "expanding", collapse, expandA},
        {"expand", "expanded", collapse, expandA},
        {"toggle", "expanding", {}, toggleB},
        {"toggle", "expanded", {}, toggleB},
        {"collapse round the focus", "expanding", select, collapseA},
        {"collapse round the focus", "expanded", select, collapseA},
        {"expand all", "expanding", collapse, expandAll},
        {"expand all", "expanded", collapse, expandAll},
        {"collapse all", "expanding", select, collapseAll},
        {"collapse all", "expanded", select, collapseAll},
        {"expand by SetRow", "expanding", collapse, setRow},
        {"expand by SetRow", "expanded", collapse, setRow},
        {"select by SetRow", "selected", collapse, setRow},
        {"collapse by SetRow", "expanding", {}, unsetRow},
        {"collapse by SetRow", "expanded", {}, unsetRow},
        {"deselect by SetRow", "selected", [](Scene & s) { s.grid->SetRowSel(s.b, true); },
         unsetRow},
    };
}

std::vector<CallOut> selections()
{
    return {
        {"SetRowSel",
         "selected",
         {},
         [](TestGrid & grid, Scene & s) { grid.SetRowSel(s.c, true); }},
        {"SetRowSel", "selected", select,
         [](TestGrid & grid, Scene & s) { grid.SetRowSel(s.d, false); }},
        {"SelectRows",
         "selected",
         {},
         [](TestGrid & grid, Scene & s) {
             tag_HROW * picked[] = {s.a, s.c};
             grid.SelectRows(2, picked);
         }},
        {"SelectAll", "selected", {}, [](TestGrid & grid, Scene &) { grid.SelectAll(); }},
        {"ClearSelection", "selected", select,
         [](TestGrid & grid, Scene &) { grid.ClearSelection(); }},
    };
}

std::vector<CallOut> scrolls()
{
    auto const line = [](TestGrid & grid, Scene &) { grid.OnScroll(-1, 3, 0, true); };
    auto const sideways = [](TestGrid & grid, Scene &) { grid.OnScroll(3, -1, 0, true); };
    auto const thumb = [](TestGrid & grid, Scene &) { grid.getVScrollBar()->setValue(60); };
    auto const sideThumb = [](TestGrid & grid, Scene &) { grid.getHScrollBar()->setValue(20); };
    auto const action = [](TestGrid & grid, Scene &) {
        grid.getVScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    };
    auto const turn = [](TestGrid & grid, Scene &) { wheel(grid.getVScrollBar()); };
    auto const press = [](TestGrid & grid, Scene &) {
        QTest::mouseClick(grid.getVScrollBar(), Qt::LeftButton, Qt::NoModifier,
                          grid.getVScrollBar()->rect().center());
    };
    auto const ensureRow = [](TestGrid & grid, Scene & s) {
        grid.EnsureVisible(s.rows[25], s.column(2));
    };
    auto const ensureColumn = [](TestGrid & grid, Scene & s) {
        grid.EnsureVisible(s.a, s.column(2));
    };
    auto const bringIn = [](TestGrid & grid, Scene & s) { grid.Expand(s.rows.back(), GCE_TOGGLE); };
    auto const atBottom = [](Scene & s) {
        s.grid->addMany(5, s.rows.back());
        s.grid->Expand(s.rows.back(), GCE_COLLAPSE);
        s.grid->EnsureVisible(s.rows.back(), GC_NOCOLUMN);
    };
    std::vector<CallOut> all;
    for (char const * const call : {"scrolling", "scrolled"}) {
        all.push_back({"a line", call, {}, line});
        all.push_back({"sideways", call, {}, sideways});
        all.push_back({"the bar's thumb", call, {}, thumb});
        all.push_back({"the lower bar's thumb", call, {}, sideThumb});
        all.push_back({"the bar's page", call, {}, action});
        all.push_back({"a wheel on the bar", call, {}, turn});
        all.push_back({"a click on the bar", call, {}, press});
        all.push_back({"EnsureVisible of a row", call, {}, ensureRow});
        all.push_back({"EnsureVisible of a column", call, {}, ensureColumn});
        all.push_back({"children brought in", call, atBottom, bringIn});
    }
    return all;
}

void hitTest(TestGrid & grid)
{
    tag_HROW * row = nullptr;
    tag_HCOLUMN * column = nullptr;
    grid.HitTest(QPoint(20, 60), &row, &column);
}

void hitItem(TestGrid & grid)
{
    GC_ITEM item;
    grid.HitTest(QPoint(20, 60), &item);
}

void readTop(TestGrid & grid, tag_HROW * row)
{
    GC_ROW record;
    record.mask = GCRM_TOP;
    grid.GetRow(row, &record);
}

void readyToRebuild(Scene & scene)
{
    scene.grid->SetFocusedColumn(scene.column(0));
    scene.makeRebuildScroll();
}

// What reads the visible order, so that a rebuild comes in the middle of it.
std::vector<CallOut> readers()
{
    using Read = std::function<void(TestGrid &, Scene &)>;
    struct Reader
    {
        char const * how;
        Read read;
    };
    std::vector<Reader> const all = {
        {"UpdateVisibleRows", [](TestGrid & g, Scene &) { g.UpdateVisibleRows(); }},
        {"GetExpandedCount", [](TestGrid & g, Scene &) { g.GetExpandedCount(); }},
        {"GetVisibleCount", [](TestGrid & g, Scene &) { g.GetVisibleCount(); }},
        {"GetTopIndex", [](TestGrid & g, Scene &) { g.GetTopIndex(); }},
        {"GetBottomIndex", [](TestGrid & g, Scene &) { g.GetBottomIndex(); }},
        {"GetRowRect",
         [](TestGrid & g, Scene & s) {
             QRect rect;
             g.GetRowRect(s.lowRow, &rect);
         }},
        {"GetItemRect",
         [](TestGrid & g, Scene & s) {
             QRect rect;
             g.GetItemRect(s.lowRow, s.column(0), &rect);
         }},
        {"GetItemEditorRect",
         [](TestGrid & g, Scene & s) {
             QRect rect;
             g.GetItemEditorRect(s.lowRow, s.column(0), &rect);
         }},
        {"HitTest", [](TestGrid & g, Scene &) { hitTest(g); }},
        {"HitTest of an item", [](TestGrid & g, Scene &) { hitItem(g); }},
        {"EnsureVisible", [](TestGrid & g, Scene & s) { g.EnsureVisible(s.a, s.column(2)); }},
        {"SetRowSel", [](TestGrid & g, Scene & s) { g.SetRowSel(s.lowRow, true); }},
        {"SelectAll", [](TestGrid & g, Scene &) { g.SelectAll(); }},
        {"GetRow", [](TestGrid & g, Scene & s) { readTop(g, s.lowRow); }},
        {"SetRow",
         [](TestGrid & g, Scene & s) { setState(g, s.lowRow, GCRS_FOCUSED, GCRS_FOCUSED); }},
        {"all visible",
         [](TestGrid & g, Scene &) { g.GetNextRow(GCN_VISIBLE_FIRST); }},
        {"all on display", [](TestGrid & g, Scene &) { g.GetNextRow(GCN_SHOWN_FIRST); }},
        {"next visible", [](TestGrid & g, Scene & s) { g.GetNextRow(GCN_VISIBLE_NEXT, s.lowRow); }},
        {"previous visible",
         [](TestGrid & g, Scene & s) { g.GetNextRow(GCN_VISIBLE_PREV, s.lowRow); }},
        {"visible parent", [](TestGrid & g, Scene & s) { g.GetNextRow(GCN_VISIBLE_PARENT, s.c); }},
        {"BestFit", [](TestGrid & g, Scene & s) { g.BestFit(s.column(0)); }},
        {"OnScroll", [](TestGrid & g, Scene &) { g.OnScroll(-1, 0, 0, true); }},
        {"OnScroll that asks", [](TestGrid & g, Scene &) { g.OnScroll(-1, 0, 0, false); }},
        {"contentsHeight", [](TestGrid & g, Scene &) { g.contentsHeight(); }},
        {"contentsSizeChanged", [](TestGrid & g, Scene &) { g.contentsSizeChanged(); }},
        {"Expand", [](TestGrid & g, Scene & s) { g.Expand(s.b, GCE_TOGGLE); }},
        {"Expand of all", [](TestGrid & g, Scene &) { g.Expand(nullptr, GCE_COLLAPSEALL); g.GetExpandedCount(); }},
        {"AddColumn", [](TestGrid & g, Scene &) { g.AddColumn("new", 0, 40); }},
        {"DeleteColumn", [](TestGrid & g, Scene & s) { g.DeleteColumn(s.column(1)); }},
        {"ShowColumn", [](TestGrid & g, Scene & s) { g.ShowColumn(s.column(1), false); }},
        {"SetColumnWidth", [](TestGrid & g, Scene & s) { g.SetColumnWidth(s.column(0), 130); }},
        {"SetColumn",
         [](TestGrid & g, Scene & s) {
             GC_COLUMN record;
             record.mask = GCCM_KIND | GCCM_WIDTH | GCCM_TEXT;
             record.kind = GCCK_TEXT;
             record.width = 77;
             g.SetColumn(s.column(0), &record);
         }},
        {"a bar's action",
         [](TestGrid & g, Scene &) {
             g.getVScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
         }},
    };
    std::vector<CallOut> callOuts;
    for (char const * const call : {"scrolling", "scrolled"}) {
        for (Reader const & reader : all) {
            callOuts.push_back({reader.how, call, readyToRebuild, reader.read});
        }
    }
    return callOuts;
}

} // namespace

class tst_GridCallbacks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void expansion_data() { addCallOutRows(expansions()); }
    void expansion() { checkRow(expansions()); }
    void selection_data() { addCallOutRows(selections()); }
    void selection() { checkRow(selections()); }
    void scroll_data() { addCallOutRows(scrolls()); }
    void scroll() { checkRow(scrolls()); }
    void rebuild_data() { addCallOutRows(readers()); }
    void rebuild() { checkRow(readers()); }
    void headerDrag_data();
    void headerDrag();
    void ownSink_deletesItself();
};

void tst_GridCallbacks::headerDrag_data()
{
    addCallOutRows({{"a divider is dragged", "resized", {}, {}}});
}

void tst_GridCallbacks::headerDrag()
{
    QFETCH(int, what);
    auto const drag = [](TestGrid & grid, Scene &) { dragFirstDivider(grid); };
    checkCallOut({"a divider is dragged", "resized", {}, drag}, static_cast<Deletion>(what),
                 GCXS_HEADERDRAG);
}

namespace {

class OwnSink : public KGridCtrl
{
public:
    bool OnExpanding(tag_HROW *) override
    {
        delete this;
        return true;
    }
};

} // namespace

void tst_GridCallbacks::ownSink_deletesItself()
{
    QPointer<OwnSink> const grid = new OwnSink;
    grid->AddColumn("only", 0, 50);
    tag_HROW * const row = grid->InsertRow(GC_ROOT, GCI_LAST);
    grid->InsertRow(row, GCI_LAST);
    QVERIFY(grid->Expand(row, GCE_COLLAPSE));
    QVERIFY(grid.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

ZENU_TEST(tst_GridCallbacks)
#include "tst_GridCallbacks.moc"
