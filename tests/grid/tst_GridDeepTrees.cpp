#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using zenutest::Notes;
using zenutest::TestGrid;

namespace {

constexpr int depth = 30000;

// A slim row of param p has one child of param p + 1, down to a depth.
class Chain : public ISlimGridCallback
{
public:
    explicit Chain(int chainDepth)
        : last(chainDepth - 1)
    {
    }
    char const * GetItemText(tag_HROW *, long, tag_HCOLUMN *) override { return "link"; }
    bool HasSubRows(tag_HROW *, long param) override { return param < last; }
    int GetSubRowCount(tag_HROW *, long param) override
    {
        ++loads;
        return param < last ? 1 : 0;
    }
    void GetSubRows(tag_HROW *, long param, int, GC_SLIMROWDATA * rows) override
    {
        rows[0].param = param + 1;
        rows[0].hasChildren = param + 1 < last;
        rows[0].height = -1;
    }

    int loads = 0;

private:
    long last;
};

struct SlimChain
{
    SlimChain()
        : source(depth)
    {
        grid.addKind(GCCK_TEXT, 40 * depth, GCCF_TREE | GCCF_TREELINES); // room for all levels
        grid.SetSlimGridCallback(&source);
        top = grid.InsertSlimRow(0L, true, GC_ROOT, GCI_LAST, -1);
    }
    unsigned expanded() const { return grid.GetExpandedCount(); }

    Chain source;
    TestGrid grid;
    tag_HROW * top;
};

constexpr auto whole = static_cast<unsigned>(depth);

// A row a level, the first with a collapsed sibling that has a child; all are collapsed.
struct OrdinaryChain
{
    explicit OrdinaryChain(int count)
    {
        grid.addColumns({50});
        for (int i = 0; i < count; ++i) {
            rows.push_back(grid.InsertRow(rows.empty() ? GC_ROOT : rows.back(), GCI_LAST));
        }
        sibling = grid.InsertRow(GC_ROOT, GCI_LAST);
        siblingChild = grid.InsertRow(sibling, GCI_LAST);
        grid.Expand(nullptr, GCE_COLLAPSEALL);
    }

    TestGrid grid;
    std::vector<tag_HROW *> rows;
    tag_HROW * sibling;
    tag_HROW * siblingChild;
};

} // namespace

// Sizes at which a step whose cost grows with the depth would take minutes.
class tst_GridDeepTrees : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void slimChain_isExpandedAtOnce();
    void slimChain_isResetAndLoadedAgain();
    void slimChain_isDeleted();
    void slimChain_bestFit();
    void chain_levelsWithSiblings_areComeBackTo();
    void chain_deletedFromBelow_whileItIsExpanded();
    void chain_deletedAtTheBottom_theWalkGoesOnAboveIt();
    void chain_newRowsAtOldAddresses_areRowsOfTheirOwn();
    void chain_eachRowLosesOne_whileItIsExpanded();
};

void tst_GridDeepTrees::slimChain_isExpandedAtOnce()
{
    SlimChain chain;
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(chain.expanded(), whole);
    QCOMPARE(chain.source.loads, depth - 1);
    chain.grid.Expand(nullptr, GCE_COLLAPSEALL);
    QCOMPARE(chain.expanded(), 1u);
    QCOMPARE(chain.source.loads, depth - 1);
}

void tst_GridDeepTrees::slimChain_isResetAndLoadedAgain()
{
    SlimChain chain;
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QVERIFY(chain.grid.ResetSlimRow(chain.top));
    QCOMPARE(chain.grid.GetRowCount(), 1u);
    QCOMPARE(chain.expanded(), 2u);
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(chain.expanded(), whole);
}

void tst_GridDeepTrees::slimChain_isDeleted()
{
    SlimChain chain;
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QVERIFY(chain.grid.DeleteRow(chain.top));
    QCOMPARE(chain.grid.GetRowCount(), 0u);
}

void tst_GridDeepTrees::slimChain_bestFit()
{
    SlimChain chain;
    int const ofOne = chain.grid.BestFit(chain.grid.firstColumn());
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QCOMPARE(chain.grid.BestFit(chain.grid.firstColumn()),
             ofOne + (depth - 1) * chain.grid.GetIndent());
}

void tst_GridDeepTrees::chain_levelsWithSiblings_areComeBackTo()
{
    OrdinaryChain chain(depth);
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QVERIFY(rowHasState(chain.grid, chain.sibling, GCRS_EXPANDED));
    QCOMPARE(chain.grid.GetExpandedCount(), whole + 2);
}

// The whole chain goes while the walk stands at its lowest row.
void tst_GridDeepTrees::chain_deletedFromBelow_whileItIsExpanded()
{
    OrdinaryChain chain(depth);
    Notes notes(&chain.grid);
    notes.expanding = [&](tag_HROW * row) {
        if (row == chain.rows[depth - 2]) {
            chain.grid.DeleteRow(chain.rows[0]);
        }
        return true;
    };
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QVERIFY(rowHasState(chain.grid, chain.sibling, GCRS_EXPANDED));
    QCOMPARE(chain.grid.GetExpandedCount(), 2u);
    QCOMPARE(notes.calls.filter(QStringLiteral("expanded")).size(), 1);
}

void tst_GridDeepTrees::chain_deletedAtTheBottom_theWalkGoesOnAboveIt()
{
    OrdinaryChain chain(6);
    tag_HROW * const other = chain.grid.InsertRow(chain.rows[2], GCI_LAST);
    tag_HROW * const below = chain.grid.InsertRow(other, GCI_LAST);
    QVERIFY(below);
    chain.grid.Expand(nullptr, GCE_COLLAPSEALL);
    Notes notes(&chain.grid);
    notes.expanding = [&](tag_HROW * row) {
        if (row == chain.rows[4]) {
            chain.grid.DeleteRow(chain.rows[3]);
        }
        return true;
    };
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QVERIFY(rowHasState(chain.grid, other, GCRS_EXPANDED));
    QVERIFY(rowHasState(chain.grid, chain.sibling, GCRS_EXPANDED));
    QCOMPARE(chain.grid.GetExpandedCount(), 7u);
    QCOMPARE(zenutest::checkGrid(chain.grid), QString());
}

// Without the sanitizers a new row comes where a dead one stood.
void tst_GridDeepTrees::chain_newRowsAtOldAddresses_areRowsOfTheirOwn()
{
    OrdinaryChain chain(6);
    Notes notes(&chain.grid);
    tag_HROW * fresh = nullptr;
    notes.expanding = [&](tag_HROW * row) {
        if (row == chain.rows[3] && !fresh) {
            chain.grid.DeleteRow(chain.rows[2]);
            tag_HROW * parent = chain.grid.InsertRow(chain.rows[1], GCI_LAST);
            fresh = parent;
            for (int i = 0; i < 3; ++i) {
                tag_HROW * const child = chain.grid.InsertRow(parent, GCI_LAST);
                chain.grid.Expand(parent, GCE_COLLAPSE | GCE_NOSCROLL);
                parent = child;
            }
        }
        return true;
    };
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    QVERIFY(rowHasState(chain.grid, fresh, GCRS_EXPANDED));
    chain.grid.Expand(chain.rows[1], GCE_EXPAND); // collapsed by the deletion of its last child
    QCOMPARE(chain.grid.GetExpandedCount(), 8u);
    QCOMPARE(zenutest::checkGrid(chain.grid), QString());
}

void tst_GridDeepTrees::chain_eachRowLosesOne_whileItIsExpanded()
{
    OrdinaryChain chain(depth);
    std::vector<tag_HROW *> victims;
    for (tag_HROW * const row : chain.rows) {
        victims.push_back(chain.grid.InsertRow(row, GCI_LAST));
    }
    chain.grid.Expand(nullptr, GCE_COLLAPSEALL);
    std::size_t asked = 0;
    chain.grid.setNotification(nullptr);
    class Deleter : public IGridNotification
    {
    public:
        Deleter(TestGrid * told, std::vector<tag_HROW *> const & rows, std::size_t & count)
            : grid(told)
            , victims(rows)
            , asked(count)
        {
        }
        bool OnExpanding(tag_HROW *) override
        {
            if (asked < victims.size()) {
                grid->DeleteRow(victims[asked]);
            }
            ++asked;
            return true;
        }

    private:
        TestGrid * grid;
        std::vector<tag_HROW *> const & victims;
        std::size_t & asked;
    } deleter(&chain.grid, victims, asked);
    chain.grid.setNotification(&deleter);
    chain.grid.Expand(nullptr, GCE_EXPANDALL);
    chain.grid.setNotification(nullptr);
    QCOMPARE(asked, std::size_t(depth) + 1);
    QCOMPARE(chain.grid.GetExpandedCount(), whole + 2);
}

ZENU_TEST(tst_GridDeepTrees)
#include "tst_GridDeepTrees.moc"
