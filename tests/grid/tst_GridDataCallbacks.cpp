#include "tests/grid/CallbackScene.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::addCallOutRows;
using zenutest::CallOut;
using zenutest::checkCallOut;
using zenutest::Deletion;
using zenutest::Scene;
using zenutest::TestGrid;

namespace {

void expandSlim(Scene & scene)
{
    scene.grid->Expand(scene.slim, GCE_EXPAND);
    scene.grid->Expand(scene.grid->GetNextRow(GCN_CHILD_FIRST, scene.slim), GCE_EXPAND);
    scene.grid->UpdateVisibleRows();
}

// Expanded rows whose children are loaded at the next demand.
void resetSlim(Scene & scene)
{
    expandSlim(scene);
    scene.grid->ResetSlimRow(scene.slim);
}

// A text of the first column is asked for by painting as well as by reading.
void askForTexts(Scene & scene)
{
    for (tag_HROW * const row : {scene.a, scene.b, scene.c}) {
        scene.grid->SetItemText(row, scene.column(0), GC_TEXTCALLBACK);
    }
}

std::vector<CallOut> loads()
{
    auto const expand = [](TestGrid & grid, Scene & s) { grid.Expand(s.slim, GCE_EXPAND); };
    auto const toggle = [](TestGrid & grid, Scene & s) { grid.Expand(s.slim, GCE_TOGGLE); };
    auto const expandAll = [](TestGrid & grid, Scene &) { grid.Expand(nullptr, GCE_EXPANDALL); };
    auto const setRow = [](TestGrid & grid, Scene & s) {
        GC_ROW record;
        record.mask = GCRM_STATE;
        record.state = GCRS_EXPANDED;
        record.stateMask = GCRS_EXPANDED;
        grid.SetRow(s.slim, &record);
    };
    auto const count = [](TestGrid & grid, Scene &) { grid.GetExpandedCount(); };
    auto const firstChild = [](TestGrid & grid, Scene & s) {
        grid.GetNextRow(GCN_CHILD_FIRST, s.slim);
    };
    auto const erase = [](TestGrid & grid, Scene & s) { grid.DeleteRow(s.slim); };
    auto const resetAgain = [](TestGrid & grid, Scene & s) { grid.ResetSlimRow(s.slim); };
    auto const collapseAll = [](TestGrid & grid, Scene &) {
        grid.Expand(nullptr, GCE_COLLAPSEALL);
    };
    auto const paint = [](TestGrid & grid, Scene &) { grid.contentsSizeChanged(); };
    std::vector<CallOut> all;
    for (char const * const call : {"count", "rows", "created"}) {
        all.push_back({"expand", call, {}, expand});
        all.push_back({"toggle", call, {}, toggle});
        all.push_back({"expand all", call, {}, expandAll});
        all.push_back({"expand by SetRow", call, {}, setRow});
        all.push_back({"rebuild", call, resetSlim, count});
        all.push_back({"layout", call, resetSlim, paint});
        all.push_back({"first child", call, resetSlim, firstChild});
        all.push_back({"delete", call, resetSlim, erase});
        all.push_back({"reset", call, resetSlim, resetAgain});
        all.push_back({"collapse all", call, resetSlim, collapseAll});
    }
    all.push_back({"expand all", "has", {}, expandAll});
    all.push_back({"expand all under a loaded row", "has", expandSlim, expandAll});
    all.push_back({"GetRow", "has", {}, [](TestGrid & grid, Scene & s) {
                       GC_ROW record;
                       record.mask = GCRM_TOP;
                       grid.GetRow(s.slim, &record);
                   }});
    all.push_back({"reset", "deleted", expandSlim, resetAgain});
    all.push_back({"InsertSlimRow", "created", {}, [](TestGrid & grid, Scene &) {
                       grid.InsertSlimRow(2, true, GC_ROOT, GCI_FIRST, 33);
                   }});
    return all;
}

std::vector<CallOut> texts()
{
    auto const sortByText = [](TestGrid & grid, Scene & s) {
        grid.Sort(s.column(1), true);
        grid.GetExpandedCount();
    };
    auto const sortSlim = [](TestGrid & grid, Scene & s) {
        grid.Sort(s.column(0), false);
        grid.GetExpandedCount();
    };
    auto const compare = [](TestGrid & grid, Scene & s) {
        GC_SORT sort;
        sort.column = GC_NOCOLUMN;
        sort.compare = &Scene::compare;
        sort.param = static_cast<long>(reinterpret_cast<qintptr>(&s));
        grid.Sort(&sort);
        grid.GetExpandedCount();
    };
    auto const length = [](TestGrid & grid, Scene & s) { grid.GetItemTextLen(s.c, s.column(1)); };
    auto const read = [](TestGrid & grid, Scene & s) { grid.GetItemText(s.c, s.column(1)); };
    auto const readSlim = [](TestGrid & grid, Scene & s) { grid.GetItemText(s.slim, s.column(1)); };
    auto const fit = [](TestGrid & grid, Scene & s) { grid.BestFit(s.column(1)); };
    auto const fitChecks = [](TestGrid & grid, Scene & s) { grid.BestFit(s.column(0)); };
    auto const editor = [](TestGrid & grid, Scene & s) {
        QRect rect;
        grid.GetItemEditorRect(s.b, s.column(1), &rect);
    };
    auto const slimEditor = [](TestGrid & grid, Scene & s) {
        QRect rect;
        grid.GetItemEditorRect(s.slim, s.column(0), &rect);
    };
    return {
        {"GetItemText", "item text", {}, read},
        {"GetItemTextLen", "item text", {}, length},
        {"GetItemText of a slim row", "text", {}, readSlim},
        {"BestFit", "item text", {}, fit},
        {"BestFit over slim rows", "text", expandSlim, fit},
        {"BestFit over slim rows", "row info", expandSlim, fitChecks},
        {"BestFit over slim rows", "item info", expandSlim, fitChecks},
        {"BestFit over slim rows", "release", expandSlim, fitChecks},
        {"editor's place", "item text", {}, editor},
        {"editor's place in a slim row", "row info", {}, slimEditor},
        {"editor's place in a slim row", "item info", {}, slimEditor},
        {"editor's place in a slim row", "text", {}, slimEditor},
        {"editor's place in a slim row", "release", {}, slimEditor},
        {"sort by text", "item text", {}, sortByText},
        {"sort by text of slim rows", "text", expandSlim, sortSlim},
        {"sort by a comparison", "compare", expandSlim, compare},
    };
}

std::vector<CallOut> paints()
{
    auto const paint = [](TestGrid & grid, Scene &) { grid.grab(); };
    auto const showSlim = [](Scene & scene) {
        expandSlim(scene);
        askForTexts(scene);
        scene.grid->Expand(scene.b, GCE_COLLAPSE);
        scene.grid->EnsureVisible(scene.slim, GC_NOCOLUMN);
        scene.grid->resize(150, 260);
    };
    auto const scrolled = [showSlim](Scene & scene) {
        showSlim(scene);
        scene.makeRebuildScroll();
    };
    std::vector<CallOut> all;
    for (char const * const call :
         {"begin paint", "end paint", "row info", "release", "item info", "text", "item text"}) {
        all.push_back({"paint", call, showSlim, paint});
    }
    all.push_back({"rebuild by a paint", "scrolling", scrolled, paint});
    all.push_back({"rebuild by a paint", "scrolled", scrolled, paint});
    all.push_back({"load by a paint", "created", resetSlim, paint});
    return all;
}

} // namespace

class tst_GridDataCallbacks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void load_data() { addCallOutRows(loads()); }
    void load() { checkRow(loads()); }
    void text_data() { addCallOutRows(texts()); }
    void text() { checkRow(texts()); }
    void paint_data() { addCallOutRows(paints()); }
    void paint();
    void gridGone_itsRowsGoWithTheNextTurnOfTheLoop();
};

// Qt itself goes on with a widget that it paints, so there the grid must live.
void tst_GridDataCallbacks::paint()
{
    QFETCH(int, what);
    if (static_cast<Deletion>(what) == Deletion::Grid) {
        return;
    }
    checkRow(paints());
}

void tst_GridDataCallbacks::gridGone_itsRowsGoWithTheNextTurnOfTheLoop()
{
    Scene scene;
    scene.grid->hide();
    scene.grid->setAttribute(Qt::WA_DontShowOnScreen, false);
    QVERIFY(scene.grid->showSized(150, 140));
    QPointer<KHeader> const header = scene.grid->getHeader();
    QVERIFY(header->isVisible());
    scene.arm(QStringLiteral("expanding"), Deletion::Grid);
    scene.grid->Expand(scene.a, GCE_COLLAPSE);
    QVERIFY(scene.grid.isNull());
    QVERIFY(!header.isNull());
    QVERIFY(!header->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(header.isNull());
}

ZENU_TEST(tst_GridDataCallbacks)
#include "tst_GridDataCallbacks.moc"
