#include "tests/grid/GridFixture.h"
#include "tests/support/TestMain.h"

using namespace zenu;
using namespace zenutest;

// Texts that the application gives on demand are kept for the rows on display alone.
class tst_CallbackTexts : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void paint_keepsTheTextsOfTheRowsOnDisplay();
    void scroll_rowsThatLeave_letGoAndAreAskedAgainWhenTheyReturn_data();
    void scroll_rowsThatLeave_letGoAndAreAskedAgainWhenTheyReturn();
    void scroll_vetoed_keepsThem();
    void scroll_rowThatLeaves_keepsItsOwnTexts();
    void bestFit_asksAndKeepsNothing();
    void sort_asksAndKeepsNothing();
};

namespace {

int asked = 0;

char const * answer(unsigned long, tag_HROW *, tag_HCOLUMN *, long param)
{
    ++asked;
    static char const * const texts[] = {"c", "a", "b"};
    return texts[param % 3];
}

struct Fixture
{
    Fixture()
    {
        grid.addColumns({100, 100});
        grid.SetTextCallback(answer, 0);
        rows = grid.addMany(100);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            grid.SetRowParam(rows[i], i);
            grid.SetItemText(rows[i], column(), GC_TEXTCALLBACK);
        }
    }
    tag_HCOLUMN * column() const { return grid.GetPriv().columns.all()[1]->Handle(); }
    GridItem const & item(std::size_t row) const
    {
        IGCRow * const found = grid.GetPriv().LocateRow(rows[row]);
        return dynamic_cast<CGCOrdinaryRow *>(found)->Items()[1];
    }
    // "first to last" of the rows that keep a copy, "none", or "gaps".
    QString kept() const
    {
        QList<std::size_t> with;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (item(i).hasState(GCIS_CACHEDTEXT)) {
                with << i;
            } else if (!item(i).isCallback()) {
                return QStringLiteral("lost");
            }
        }
        if (with.isEmpty()) {
            return QStringLiteral("none");
        }
        bool const gaps = with.last() - with.first() + 1 != std::size_t(with.size());
        return gaps ? QStringLiteral("gaps")
                    : QStringLiteral("%1 to %2").arg(with.first()).arg(with.last());
    }
    QString shown() const
    {
        KGridCtrl::PrivateData & frame = grid.GetPriv();
        return QStringLiteral("%1 to %2").arg(frame.GetTopIndex()).arg(frame.GetLastShownIndex());
    }
    TestGrid grid;
    std::vector<tag_HROW *> rows;
};

} // namespace

void tst_CallbackTexts::paint_keepsTheTextsOfTheRowsOnDisplay()
{
    Fixture f;
    QCOMPARE(f.kept(), QStringLiteral("none"));
    QVERIFY(f.grid.showSized(300, 200));
    QCOMPARE(f.kept(), f.shown());
    asked = 0;
    f.grid.update();
    settle();
    QCOMPARE(asked, 0); // the copies serve
}

void tst_CallbackTexts::scroll_rowsThatLeave_letGoAndAreAskedAgainWhenTheyReturn_data()
{
    QTest::addColumn<int>("there");
    QTest::addColumn<int>("back");
    QTest::newRow("a line") << int(KGridCtrl::ScrollLineForward) << int(KGridCtrl::ScrollLineBack);
    QTest::newRow("a page") << int(KGridCtrl::ScrollPageForward) << int(KGridCtrl::ScrollPageBack);
    QTest::newRow("to the end") << int(KGridCtrl::ScrollToEnd) << int(KGridCtrl::ScrollToBegin);
}

void tst_CallbackTexts::scroll_rowsThatLeave_letGoAndAreAskedAgainWhenTheyReturn()
{
    QFETCH(int, there);
    QFETCH(int, back);
    Fixture f;
    QVERIFY(f.grid.showSized(300, 200));
    QString const before = f.shown();
    QVERIFY(f.grid.OnScroll(KGridCtrl::ScrollNothing, there, 0, true));
    settle();
    QVERIFY(f.shown() != before);
    QCOMPARE(f.kept(), f.shown());
    asked = 0;
    QVERIFY(f.grid.OnScroll(KGridCtrl::ScrollNothing, back, 0, true));
    settle();
    QCOMPARE(f.shown(), before);
    QCOMPARE(f.kept(), before);
    QVERIFY(asked > 0);
}

void tst_CallbackTexts::scroll_vetoed_keepsThem()
{
    Fixture f;
    QVERIFY(f.grid.showSized(300, 200));
    QString const before = f.kept();
    Notes notes(&f.grid);
    notes.allowScroll = false;
    f.grid.OnScroll(KGridCtrl::ScrollNothing, KGridCtrl::ScrollPageForward, 0, true);
    settle();
    QCOMPARE(f.kept(), before);
    f.grid.setNotification(nullptr);
}

void tst_CallbackTexts::scroll_rowThatLeaves_keepsItsOwnTexts()
{
    Fixture f;
    QVERIFY(f.grid.showSized(300, 200));
    f.grid.OnScroll(KGridCtrl::ScrollNothing, KGridCtrl::ScrollToEnd, 0, true);
    settle();
    QCOMPARE(f.grid.name(f.rows[0]), QStringLiteral("0"));
    QCOMPARE(f.grid.GetItemText(f.rows[0], f.column()), std::string("c"));
}

void tst_CallbackTexts::bestFit_asksAndKeepsNothing()
{
    Fixture f;
    asked = 0;
    QVERIFY(f.grid.BestFit(f.column()) > 0);
    QCOMPARE(asked, 100);
    QCOMPARE(f.kept(), QStringLiteral("none"));
}

void tst_CallbackTexts::sort_asksAndKeepsNothing()
{
    Fixture f;
    asked = 0;
    f.grid.Sort(f.column(), true);
    f.grid.UpdateVisibleRows();
    QCOMPARE(asked, 100); // once a row, not twice a comparison
    QCOMPARE(f.kept(), QStringLiteral("none"));
    QVERIFY(f.grid.GetTopIndex() == f.rows[1]);
}

ZENU_TEST(tst_CallbackTexts)
#include "tst_CallbackTexts.moc"
