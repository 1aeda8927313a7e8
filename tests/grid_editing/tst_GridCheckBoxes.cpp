#include "tests/grid_editing/EditFixture.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// Check boxes flipped by clicks, one and many.
class tst_GridCheckBoxes : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void click_flipsOneBox();
    void click_inAMultipleSelection_flipsAllToTheClickedRowsNewState();
    void click_besideTheBox_flipsNothing();
    void click_asksAndTellsEachRowInTheOrderOfTheSet();
    void click_isAskedBeforeTheBoxAndToldAfterIt();
    void click_selectionRefused_flipsThoseThatAreSelected();
    void click_collapsedRows_flipToo();
    void click_vetoedRows_areSkipped();
    void click_repaintsTheRowsOnDisplayAlone();
    void click_checkBoxWithIcon_keepsTheRest();
    void click_sectionInTheSelection_hasNoBox();
    void click_slimRows_goToTheApplication();
    void click_slimState_otherThanOne_becomesOne_data();
    void click_slimState_otherThanOne_becomesOne();
    void doubleClick_thatIsLetThrough_flipsOnAnyElement();
    void click_opensNoEditor();
    void selectionChangedMeanwhile_allThatWereSelectedFlip_data();
    void selectionChangedMeanwhile_allThatWereSelectedFlip();
    void rowsDeletedMeanwhile_theOthersFlip();
    void columnDeletedMeanwhile_endsIt();
};

void tst_GridCheckBoxes::click_flipsOneBox()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    grid.clickBox(grid.rows[2]);
    QCOMPARE(grid.checked(), QStringLiteral("2"));
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 2/5; changed 2/5"));
    grid.clickBox(grid.rows[2]);
    QCOMPARE(grid.checked(), QString());
}

void tst_GridCheckBoxes::click_inAMultipleSelection_flipsAllToTheClickedRowsNewState()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.clickBox(grid.rows[1]);
    grid.clickBox(grid.rows[4]);
    std::vector<tag_HROW *> some = {grid.rows[1], grid.rows[2], grid.rows[3]};
    grid.ClearSelection();
    grid.SelectRows(3, some.data());
    grid.clickBox(grid.rows[2]); // unchecked before
    QCOMPARE(grid.checked(), QStringLiteral("1 2 3 4"));
    QCOMPARE(grid.selected(), QStringLiteral("1 2 3"));
    grid.clickBox(grid.rows[1]);
    QCOMPARE(grid.checked(), QStringLiteral("4"));
}

void tst_GridCheckBoxes::click_besideTheBox_flipsNothing()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[2], Check); // in the middle of the cell
    QCOMPARE(grid.checked(), QString());
}

void tst_GridCheckBoxes::click_asksAndTellsEachRowInTheOrderOfTheSet()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SelectAll();
    QStringList expected;
    for (auto at = grid.begin(GCN_SELECTED_FIRST); at != grid.end(); ++at) {
        expected << QStringLiteral("changing %1/5").arg(grid.name(*at))
                 << QStringLiteral("changed %1/5").arg(grid.name(*at));
    }
    EditNotes notes(&grid);
    grid.clickBox(grid.rows[2]);
    QCOMPARE(notes.takenItems(), expected.join(QStringLiteral("; ")));
}

void tst_GridCheckBoxes::click_isAskedBeforeTheBoxAndToldAfterIt()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.ClearSelection();
    grid.SelectRows(2, grid.rows.data());
    EditNotes notes(&grid);
    QStringList seen;
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("chang"))) {
            seen << grid.checked();
        }
    };
    grid.clickBox(grid.rows[0]);
    // Either row may be the first.
    QString const first = notes.calls.filter(QStringLiteral("changed"))[0].mid(8, 1);
    QCOMPARE(seen, QStringList({QString(), first, first, QStringLiteral("0 1")}));
}

// The box that was clicked says what becomes of the others, whether it is among them or not.
void tst_GridCheckBoxes::click_selectionRefused_flipsThoseThatAreSelected()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.ClearSelection();
    grid.SelectRows(2, grid.rows.data());
    EditNotes notes(&grid);
    notes.allowsSelection = false;
    grid.clickBox(grid.rows[4]);
    QCOMPARE(grid.selected(), QStringLiteral("0 1"));
    QCOMPARE(grid.checked(), QStringLiteral("0 1"));
    grid.clickBox(grid.rows[4]); // still not checked
    QCOMPARE(grid.checked(), QStringLiteral("0 1"));
    QCOMPARE(notes.calls.filter(QStringLiteral(" 4/5")).size(), 0);
}

void tst_GridCheckBoxes::click_collapsedRows_flipToo()
{
    EditGrid grid;
    tag_HROW * const child = grid.add("child", grid.rows[0]);
    QVERIFY(grid.activate());
    grid.SelectAll();
    grid.Expand(grid.rows[0], GCE_COLLAPSE);
    grid.clickBox(grid.rows[1]);
    QVERIFY(grid.isChecked(child));
    QCOMPARE(grid.checked(), QStringLiteral("0 1 2 3 4 5"));
}

void tst_GridCheckBoxes::click_vetoedRows_areSkipped()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SelectAll();
    EditNotes notes(&grid);
    notes.vetoes = [&](tag_HROW * row) { return row == grid.rows[0] || row == grid.rows[3]; };
    grid.clickBox(grid.rows[0]); // also the clicked one
    QCOMPARE(grid.checked(), QStringLiteral("1 2 4 5"));
    QCOMPARE(notes.calls.filter(QStringLiteral("changing")).size(), 6);
    QCOMPARE(notes.calls.filter(QStringLiteral("changed")).size(), 4);
}

void tst_GridCheckBoxes::click_repaintsTheRowsOnDisplayAlone()
{
    EditGrid grid(0, 100);
    QVERIFY(grid.activate(200));
    std::vector<tag_HROW *> some = {grid.rows[1], grid.rows[3], grid.rows[99]};
    grid.ClearSelection();
    grid.SelectRows(3, some.data());
    // The focus moves before the box is flipped.
    grid.SetFocusedColumn(grid.column(Check));
    grid.clickBox(grid.rows[1]);
    grid.takePainted();
    grid.GetPriv().FlipCheckBoxes(grid.GetPriv().LocateRow(grid.rows[1]),
                                  grid.GetPriv().columns.find(Check));
    QRegion const painted = grid.takePainted();
    for (int const i : {1, 3}) {
        QVERIFY(painted.contains(grid.middle(grid.rows[std::size_t(i)], Check)));
    }
    QVERIFY(!painted.contains(grid.middle(grid.rows[2], Check)));
    grid.hide();
    grid.GetPriv().FlipCheckBoxes(grid.GetPriv().LocateRow(grid.rows[1]),
                                  grid.GetPriv().columns.find(Check));
    QVERIFY(grid.isChecked(grid.rows[99]));
}

void tst_GridCheckBoxes::click_checkBoxWithIcon_keepsTheRest()
{
    EditGrid grid;
    tag_HCOLUMN * const column = grid.addKind(GCCK_CHECKBOXWITHICON, 80);
    QVERIFY(grid.activate());
    grid.resize(editColumns * 80 + 100, 300);
    GC_ITEM item;
    item.mask = GCIM_VALUE | GCIM_TEXT;
    item.value = 2; // gray
    item.text = const_cast<char *>("text");
    grid.SetItem(grid.rows[2], column, &item);
    QRect rect;
    grid.GetItemRect(grid.rows[2], column, &rect);
    QTest::mouseClick(&grid, Qt::LeftButton, {}, QPoint(rect.left() + 8, rect.center().y()));
    GC_ITEM read;
    grid.GetItem(grid.rows[2], column, &read);
    QCOMPARE(read.value, 3);
    QCOMPARE(grid.GetItemText(grid.rows[2], column), std::string("text"));
}

void tst_GridCheckBoxes::click_sectionInTheSelection_hasNoBox()
{
    EditGrid grid;
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_FIRST);
    QVERIFY(grid.activate());
    grid.SelectAll();
    EditNotes notes(&grid);
    grid.clickBox(grid.rows[2]);
    QCOMPARE(grid.checked(), QStringLiteral("0 1 2 3 4 5"));
    // It is asked for and told of like the others.
    QCOMPARE(notes.calls.filter(QStringLiteral("changing")).size(), 7);
    QCOMPARE(notes.calls.filter(QStringLiteral("changed")).size(), 7);
    auto const * const row = dynamic_cast<CGCOrdinaryRow *>(grid.GetPriv().LocateRow(section));
    QVERIFY(!row->ItemOf(grid.GetPriv().columns.find(Check))->hasState(GCIS_CHECKED));
}

void tst_GridCheckBoxes::click_slimRows_goToTheApplication()
{
    EditGrid grid(0, 0);
    EditSlim slim;
    grid.SetSlimGridCallback(&slim);
    tag_HROW * const first = grid.InsertSlimRow(1, false, GC_ROOT, GCI_LAST);
    tag_HROW * const second = grid.InsertSlimRow(2, true, GC_ROOT, GCI_LAST);
    QVERIFY(grid.activate());
    grid.ClearSelection();
    EditNotes notes(&grid);
    grid.clickBox(second);
    QCOMPARE(slim.written.join(u';'), QStringLiteral("check 2 1"));
    QCOMPARE(notes.takenItems(), QStringLiteral("changing s2/5; changed s2/5"));
    grid.SelectAll();
    slim.written.clear();
    grid.clickBox(first);
    slim.written.sort();
    QCOMPARE(slim.written.join(u';'), QStringLiteral("check 1 1;check 2 1"));
}

void tst_GridCheckBoxes::click_slimState_otherThanOne_becomesOne_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("newState");
    QTest::newRow("unchecked") << 0 << 1;
    QTest::newRow("checked") << 1 << 0;
    QTest::newRow("something else") << 2 << 1;
    QTest::newRow("negative") << -1 << 1;
}

void tst_GridCheckBoxes::click_slimState_otherThanOne_becomesOne()
{
    QFETCH(int, state);
    QFETCH(int, newState);
    EditGrid grid(0, 0);
    EditSlim slim;
    grid.SetSlimGridCallback(&slim);
    tag_HROW * const row = grid.InsertSlimRow(1, false, GC_ROOT, GCI_LAST);
    slim.checks[1] = state;
    QVERIFY(grid.activate());
    grid.clickBox(row);
    QCOMPARE(slim.checks[1], newState);
}

void tst_GridCheckBoxes::doubleClick_thatIsLetThrough_flipsOnAnyElement()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    grid.doubleClick(grid.rows[2], Check);
    QCOMPARE(grid.checked(), QString());
    notes.doubleClickStops = [] { return false; };
    grid.doubleClick(grid.rows[2], Check);
    QCOMPARE(grid.checked(), QStringLiteral("2"));
}

void tst_GridCheckBoxes::click_opensNoEditor()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[2], Plain);
    grid.clickBox(grid.rows[2]);
    settle();
    QVERIFY(!grid.editor());
    QVERIFY(!grid.isMarked(grid.rows[2], Check));
    QVERIFY(grid.hasFocus());
}

void tst_GridCheckBoxes::selectionChangedMeanwhile_allThatWereSelectedFlip_data()
{
    QTest::addColumn<bool>("cleared");
    QTest::newRow("cleared") << true;
    QTest::newRow("all") << false;
}

void tst_GridCheckBoxes::selectionChangedMeanwhile_allThatWereSelectedFlip()
{
    QFETCH(bool, cleared);
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.ClearSelection();
    grid.SelectRows(3, grid.rows.data());
    EditNotes notes(&grid);
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("chang"))) {
            cleared ? grid.ClearSelection() : grid.SelectAll();
        }
    };
    grid.clickBox(grid.rows[0]);
    QCOMPARE(grid.checked(), QStringLiteral("0 1 2"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridCheckBoxes::rowsDeletedMeanwhile_theOthersFlip()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SelectAll();
    EditNotes notes(&grid);
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("chang"))) {
            // New ones may take the places of the old in memory.
            grid.DeleteRow(grid.rows[1]);
            grid.DeleteRow(grid.rows[4]);
            grid.addMany(2);
        }
    };
    grid.clickBox(grid.rows[0]);
    notes.act = nullptr;
    QVERIFY(!notes.calls.join(u' ').contains(QStringLiteral("DEAD")));
    QCOMPARE(grid.selected(), QStringLiteral("0 2 3 5"));
    for (auto at = grid.begin(GCN_ALL_FIRST); at != grid.end(); ++at) {
        GC_ROW record;
        grid.GetRow(*at, &record);
        bool const wasSelected = (record.state & GCRS_SELECTED) != 0;
        QCOMPARE(grid.isChecked(*at), wasSelected);
    }
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_GridCheckBoxes::columnDeletedMeanwhile_endsIt()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SelectAll();
    EditNotes notes(&grid);
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("changed"))) {
            grid.DeleteColumn(grid.column(Check));
        }
    };
    grid.clickBox(grid.rows[0]);
    QCOMPARE(notes.calls.filter(QStringLiteral("chang")).size(), 2);
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

ZENU_TEST(tst_GridCheckBoxes)
#include "tst_GridCheckBoxes.moc"
