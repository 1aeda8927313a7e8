#pragma once

#include "tests/grid/GridFixture.h"

#include <QPointer>

#include <array>

namespace zenutest {

// What an application deletes from inside a call of the grid.
enum class Deletion
{
    Row,
    Parent,
    Siblings,
    AllRows,
    Reset,
    Column,
    AllColumns,
    Grid
};

inline constexpr std::array deletions = {Deletion::Row,        Deletion::Parent, Deletion::Siblings,
                                         Deletion::AllRows,    Deletion::Reset,  Deletion::Column,
                                         Deletion::AllColumns, Deletion::Grid};

inline char const * nameOf(Deletion deletion)
{
    constexpr std::array names = {"the row", "its parent", "its siblings", "all rows",
                                  "reset",   "a column",   "all columns",  "the grid"};
    return names[static_cast<std::size_t>(deletion)];
}

// A slim source that writes down the calls of a paint too.
class PaintedTree : public SlimTree
{
public:
    void BeginPaint() override { tell("begin paint", nullptr, 0); }
    void EndPaint() override { tell("end paint", nullptr, 0); }
    void GetRowDrawInfo(zenu::GC_DRAWROWINFO *, zenu::tag_HROW * row, long param, bool) override
    {
        tell("row info", row, param);
    }
    void ReleaseRowDrawInfo(zenu::GC_DRAWROWINFO *, zenu::tag_HROW * row, long param) override
    {
        tell("release", row, param);
    }
    void GetItemDrawInfo(zenu::GC_DRAWITEMINFO *, zenu::tag_HROW * row, long param,
                         zenu::tag_HCOLUMN *, int, bool, bool) override
    {
        tell("item info", row, param);
    }

private:
    void tell(char const * what, zenu::tag_HROW * row, long param)
    {
        if (act) {
            act(what, row, param);
        }
    }
};

// Notes the gain of the focus too.
class FocusNotes : public Notes
{
public:
    using Notes::Notes;

    void OnFocusIn() override
    {
        if (act) {
            act("focus in", nullptr);
        }
    }
};

// A grid of which an application deletes something in the first call of a name that comes once it
// is armed, with bars, more rows than it shows and columns wider than it is:
//     a (b (c d) e) f (g), one (eleven (hundred), twelve), 0 1 2 ... 29
// The rows with number names are slim, loaded by the source. What the application keeps for the
// grid lives on: the scene notes each call that comes after the grid's end.
class Scene
{
public:
    // `exStyle`: GCXS_ bits.
    explicit Scene(unsigned long exStyle = 0)
        : grid(new TestGrid)
        , sink(grid)
    {
        grid->SetGridExStyle(exStyle);
        grid->resize(150, 140);
        grid->setHScrollBarMode(zenu::KScrolledWidget::AsNeeded);
        grid->setVScrollBarMode(zenu::KScrolledWidget::AsNeeded);
        grid->setAttribute(Qt::WA_DontShowOnScreen);
        grid->addKind(zenu::GCCK_CHECKBOX, 90, zenu::GCCF_TREE | zenu::GCCF_TREELINES);
        grid->addKind(zenu::GCCK_TEXT, 90);
        grid->addKind(zenu::GCCK_TEXT, 90);
        a = grid->add("a");
        b = grid->add("b", a);
        c = grid->add("c", b);
        d = grid->add("d", b);
        grid->add("e", a);
        f = grid->add("f");
        grid->add("g", f);
        source.tree = {{1, {11, 12}}, {11, {100}}, {100, {}}};
        grid->SetSlimGridCallback(&source);
        slim = grid->InsertSlimRow(1, true, zenu::GC_ROOT, zenu::GCI_LAST, -1);
        rows = grid->addMany(30);
        for (zenu::tag_HROW * const row : {b, c, rows[0], rows[21]}) {
            grid->SetItemText(row, column(1), zenu::GC_TEXTCALLBACK);
        }
        grid->SetTextCallback(&Scene::text, reinterpret_cast<unsigned long>(this));
        grid->show();
        grid->UpdateVisibleRows();
        sink.act = [this](char const * what, zenu::tag_HROW * row) { called(what, row); };
        source.act = [this](char const * what, zenu::tag_HROW * row, long) { called(what, row); };
    }
    Scene(Scene const &) = delete;
    Scene & operator=(Scene const &) = delete;
    ~Scene()
    {
        delete grid;
        finish();
    }

    // From now on the first call of this name deletes.
    void arm(QString const & name, Deletion what)
    {
        armedName = name;
        deletion = what;
        isArmed = true;
    }
    bool hasActed() const { return acted; }
    // Empty when all is well with what is left.
    QString finish()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (callsAfterEnd != 0) {
            return QStringLiteral("called after the grid's end");
        }
        if (!grid) {
            return {};
        }
        isArmed = false;
        QString const wrong = checkGrid(*grid);
        grid->grab();
        return wrong;
    }

    // Rows above the display and the top row itself are gone; the next reader rebuilds the order,
    // and that tells of the scroll.
    void makeRebuildScroll()
    {
        grid->EnsureVisible(rows.back(), zenu::GC_NOCOLUMN);
        zenu::tag_HROW * const top = grid->GetTopIndex();
        for (zenu::tag_HROW * const row : std::vector(rows)) {
            if (row == top) {
                grid->DeleteRow(row);
                break;
            }
        }
        lowRow = rows.back();
    }

    zenu::tag_HCOLUMN * column(int index) const
    {
        auto const all = grid->GetPriv().columns.all();
        return static_cast<std::size_t>(index) < all.size()
                   ? all[static_cast<std::size_t>(index)]->Handle()
                   : zenu::GC_NOCOLUMN;
    }

    static int compare(unsigned long scene, zenu::tag_HROW * x, long, zenu::tag_HROW * y, long)
    {
        reinterpret_cast<Scene *>(scene)->called("compare", x);
        return x < y ? -1 : 1;
    }

    QPointer<TestGrid> grid;
    FocusNotes sink;
    PaintedTree source;
    zenu::tag_HROW *a, *b, *c, *d, *f, *slim;
    std::vector<zenu::tag_HROW *> rows;
    zenu::tag_HROW * lowRow = nullptr;

private:
    static char const * text(unsigned long scene, zenu::tag_HROW * row, zenu::tag_HCOLUMN *, long)
    {
        reinterpret_cast<Scene *>(scene)->called("item text", row);
        return "asked";
    }

    void called(char const * name, zenu::tag_HROW * row)
    {
        if (!grid) {
            ++callsAfterEnd;
        } else if (isArmed && !acted && armedName == QLatin1String(name)) {
            acted = true;
            remove(row && row != zenu::GC_ROOT ? row : c);
        }
    }

    void remove(zenu::tag_HROW * row)
    {
        switch (deletion) {
        case Deletion::Row:
            grid->DeleteRow(row);
            break;
        case Deletion::Parent: {
            zenu::tag_HROW * const parent = grid->GetNextRow(zenu::GCN_PARENT, row);
            grid->DeleteRow(parent == zenu::GC_ROOT ? a : parent);
            break;
        }
        case Deletion::Siblings:
            removeSiblings(row);
            break;
        case Deletion::AllRows:
            grid->DeleteAllRows();
            break;
        case Deletion::Reset:
            grid->Reset();
            break;
        case Deletion::Column:
            grid->DeleteColumn(column(0));
            break;
        case Deletion::AllColumns:
            for (int i = 2; i >= 0; --i) {
                grid->DeleteColumn(column(i));
            }
            break;
        case Deletion::Grid:
            delete grid;
            break;
        }
    }

    void removeSiblings(zenu::tag_HROW * row)
    {
        zenu::tag_HROW * const parent = grid->GetNextRow(zenu::GCN_PARENT, row);
        std::vector<zenu::tag_HROW *> siblings;
        for (auto at = grid->begin(zenu::GCN_CHILD_FIRST, parent); at != grid->end(); ++at) {
            siblings.push_back(*at);
        }
        for (zenu::tag_HROW * const each : siblings) {
            if (each != row) {
                grid->DeleteRow(each);
            }
        }
    }

    QString armedName;
    Deletion deletion = Deletion::Row;
    bool isArmed = false;
    bool acted = false;
    int callsAfterEnd = 0;
};

// A way to make the grid call the application.
struct CallOut
{
    char const * how;
    char const * call; // its name
    std::function<void(Scene &)> setUp;
    std::function<void(TestGrid &, Scene &)> raise; // one call of the grid
};

inline void addCallOutRows(std::vector<CallOut> const & callOuts)
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("what");
    for (std::size_t i = 0; i < callOuts.size(); ++i) {
        for (Deletion const deletion : deletions) {
            QTest::addRow("%s, %s: %s", callOuts[i].how, callOuts[i].call, nameOf(deletion))
                << static_cast<int>(i) << static_cast<int>(deletion);
        }
    }
}

inline void checkCallOut(CallOut const & callOut, Deletion deletion, unsigned long exStyle = 0)
{
    Scene scene(exStyle);
    if (callOut.setUp) {
        callOut.setUp(scene);
    }
    scene.arm(QString::fromLatin1(callOut.call), deletion);
    callOut.raise(*scene.grid, scene);
    QVERIFY(scene.hasActed());
    QCOMPARE(scene.grid.isNull(), deletion == Deletion::Grid);
    QCOMPARE(scene.finish(), QString());
}

// The current row of addCallOutRows, in a grid that looks handles up and in one that trusts them.
inline void checkRow(std::vector<CallOut> const & callOuts)
{
    QFETCH(int, number);
    QFETCH(int, what);
    for (unsigned long const exStyle : {0UL, static_cast<unsigned long>(zenu::GCXS_FASTLOCATOR)}) {
        checkCallOut(callOuts[static_cast<std::size_t>(number)], static_cast<Deletion>(what),
                     exStyle);
    }
}

} // namespace zenutest
