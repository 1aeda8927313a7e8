#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

// In which order a paint asks for slim rows: an application holds a cursor open over the paint and
// a row's data over the row.
class tst_SlimPainting : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void paint_asksInBrackets();
    void paint_withoutSlimRows_hasItsBracketsAllTheSame();
    void paint_ofAPart_asksForThatPart();
    void paint_callbackTakenAwayInBetween_isBorne();
};

namespace {

// Notes what a paint asks for, one word a call.
class Painted : public SlimTree
{
public:
    void BeginPaint() override { notes << QStringLiteral("begin"); }
    void EndPaint() override { notes << QStringLiteral("end"); }
    void GetRowDrawInfo(GC_DRAWROWINFO *, tag_HROW *, long param, bool selected) override
    {
        notes << QStringLiteral("row%1%2").arg(param).arg(selected ? QStringLiteral("*")
                                                                   : QString());
        if (meanwhile) {
            meanwhile();
        }
    }
    void ReleaseRowDrawInfo(GC_DRAWROWINFO *, tag_HROW *, long param) override
    {
        notes << QStringLiteral("release%1").arg(param);
    }
    void GetItemDrawInfo(GC_DRAWITEMINFO *, tag_HROW *, long param, tag_HCOLUMN * column, int,
                         bool selected, bool focusCell) override
    {
        notes << QStringLiteral("item%1.%2%3%4")
                     .arg(param)
                     .arg(reinterpret_cast<qintptr>(column))
                     .arg(selected ? QStringLiteral("*") : QString(),
                          focusCell ? QStringLiteral("!") : QString());
    }
    char const * GetItemText(tag_HROW * row, long param, tag_HCOLUMN * column) override
    {
        notes << QStringLiteral("text%1.%2").arg(param).arg(reinterpret_cast<qintptr>(column));
        return SlimTree::GetItemText(row, param, column);
    }
    QString takenNotes()
    {
        QString const text = notes.join(u' ');
        notes.clear();
        return text;
    }
    QStringList notes;
    std::function<void()> meanwhile;
};

struct Fixture
{
    Fixture()
    {
        columns = grid.addColumns({60, 60, 60});
        grid.ShowColumn(columns[1], false);
        grid.SetSlimGridCallback(&painted);
    }
    QString paint(QRegion const & region)
    {
        settle();
        painted.notes.clear();
        grid.update(region);
        settle();
        return painted.takenNotes();
    }
    Painted painted; // before the grid, which asks it to its end
    TestGrid grid;
    std::vector<tag_HCOLUMN *> columns;
};

} // namespace

void tst_SlimPainting::paint_asksInBrackets()
{
    Fixture f;
    f.grid.add("ordinary");
    tag_HROW * const first = f.grid.InsertSlimRow(5, true, GC_ROOT, GCI_LAST);
    f.grid.InsertSlimRow(6, false, GC_ROOT, GCI_LAST);
    QVERIFY(f.grid.showSized(300, 200));
    QCOMPARE(f.paint(f.grid.rect()),
             QStringLiteral("begin row5 item5.0 text5.0 item5.2 text5.2 release5 "
                            "row6 item6.0 text6.0 item6.2 text6.2 release6 end"));
    f.grid.SetRowSel(first, true);
    QString const selected = f.paint(f.grid.rect());
    QVERIFY2(selected.startsWith(QStringLiteral("begin row5* item5.0")), qPrintable(selected));
    QVERIFY2(selected.contains(QStringLiteral(" row6 ")), qPrintable(selected));
}

void tst_SlimPainting::paint_withoutSlimRows_hasItsBracketsAllTheSame()
{
    Fixture f;
    f.grid.add("ordinary");
    QVERIFY(f.grid.showSized(300, 200));
    QCOMPARE(f.paint(f.grid.rect()), QStringLiteral("begin end"));
}

void tst_SlimPainting::paint_ofAPart_asksForThatPart()
{
    Fixture f;
    f.grid.InsertSlimRow(5, true, GC_ROOT, GCI_LAST);
    tag_HROW * const second = f.grid.InsertSlimRow(6, false, GC_ROOT, GCI_LAST);
    QVERIFY(f.grid.showSized(300, 200));
    QRect cell;
    QVERIFY(f.grid.GetItemRect(second, f.columns[2], &cell));
    QCOMPARE(f.paint(cell.adjusted(1, 1, -2, -2)),
             QStringLiteral("begin row6 item6.2 text6.2 release6 end"));
}

void tst_SlimPainting::paint_callbackTakenAwayInBetween_isBorne()
{
    Fixture f;
    f.grid.InsertSlimRow(5, true, GC_ROOT, GCI_LAST);
    f.grid.InsertSlimRow(6, false, GC_ROOT, GCI_LAST);
    QVERIFY(f.grid.showSized(300, 200));
    f.grid.ClearSelection();
    zenutest::settle();
    f.painted.meanwhile = [&] { f.grid.SetSlimGridCallback(nullptr); };
    QCOMPARE(f.paint(f.grid.rect()), QStringLiteral("begin row5"));
    QVERIFY(!f.grid.GetSlimGridCallback());
}

ZENU_TEST(tst_SlimPainting)
#include "tst_SlimPainting.moc"
