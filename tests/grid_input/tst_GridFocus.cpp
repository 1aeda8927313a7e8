#include "tests/grid_input/InputFixture.h"

using namespace zenu;
using namespace zenutest;

class tst_GridFocus : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void firstFocus_ofAFilledGrid_goesToTheFirstCellAndSelectsItsRow();
    void firstFocus_byAPress_comesBeforeThePress();
    void firstFocus_refused_movesTheFocusAlone();
    void firstFocus_addsToWhatIsSelected();
    void laterFocus_leavesCellAndSelection();
    void focus_ofAGridWithoutRowsOrColumns_isToldAlone_data();
    void focus_ofAGridWithoutRowsOrColumns_isToldAlone();
    void focus_afterTheFocusedRowWasDeleted_goesToTheFirstCell();
    void focus_countsRowsThatWereJustInserted();
    void focusChanges_repaintTheSelectedRows_andNoOthers();
    void windowDeactivation_isALossOfFocus();
    void moveFocus_marksOneCell();
    void moveFocus_outOfRange_doesNothing_data();
    void moveFocus_outOfRange_doesNothing();
    void moveFocus_repaintsTheTwoRows();
    void moveFocus_scrollsWithTheStyleAlone();
    void clearFocus_leavesNoCell();
    void updatesSwitchedOff_stayOff();
    void focusColumn_setPastTheEnd_isNoColumn();
};

namespace {

struct Scene : InputWindow
{
    explicit Scene(long style = 0, int rows = 6)
        : InputWindow(style)
        , notes(grid)
    {
        grid->addColumns({120, 120, 120});
        list = grid->addMany(rows);
    }
    bool isMarked(tag_HROW * row, int column) const
    {
        GC_ITEM item;
        item.mask = GCIM_STATE;
        item.stateMask = GCIS_FOCUSED;
        grid->GetItem(row, grid->GetPriv().columns.all()[column]->Handle(), &item);
        return (item.state & GCIS_FOCUSED) != 0;
    }
    // "row/column" of each marked cell.
    QString marks() const
    {
        QStringList found;
        for (tag_HROW * const row : list) {
            for (int column = 0; column < grid->GetColumnsCount(); ++column) {
                if (isMarked(row, column)) {
                    found << QStringLiteral("%1/%2").arg(grid->name(row)).arg(column);
                }
            }
        }
        return found.join(u' ');
    }
    QRect rowRect(int row) const
    {
        QRect rect;
        grid->GetRowRect(list[std::size_t(row)], &rect);
        rect.setRight(359); // the columns' width: no further
        return rect.intersected(grid->getClientRect());
    }

    InputNotes notes;
    std::vector<tag_HROW *> list;
};

} // namespace

void tst_GridFocus::firstFocus_ofAFilledGrid_goesToTheFirstCellAndSelectsItsRow()
{
    Scene scene;
    QVERIFY(scene.show());
    QCOMPARE(scene.grid->focus(), "-/-");
    scene.key(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(scene.grid->hasFocus());
    QCOMPARE(scene.notes.text(), "selecting +0; selected; focusin");
    QCOMPARE(scene.grid->focus() + u' ' + scene.grid->selected(), "0/0 0");
    QCOMPARE(scene.marks(), "0/0");
}

void tst_GridFocus::firstFocus_byAPress_comesBeforeThePress()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.click(cellPoint(*scene.grid, scene.list[2]));
    QCOMPARE(scene.notes.text().section(u';', 0, 5),
             "selecting +0; selected; focusin; click 2/0 6; selecting -0 +2; selected");
    QVERIFY(scene.grid->hasFocus());
}

void tst_GridFocus::firstFocus_refused_movesTheFocusAlone()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.notes.allowSelection = false;
    scene.focusGrid();
    QCOMPARE(scene.notes.text(), "selecting +0; focusin");
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "0/0");
}

void tst_GridFocus::firstFocus_addsToWhatIsSelected()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->SelectRows(1, &scene.list[3]);
    scene.notes.calls.clear();
    scene.focusGrid();
    QCOMPARE(scene.notes.text(), "selecting +0; selected; focusin");
    QCOMPARE(scene.grid->selected(), "0 3");
}

void tst_GridFocus::laterFocus_leavesCellAndSelection()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.focusGrid();
    scene.key(Qt::Key_Down);
    scene.grid->ClearSelection();
    scene.notes.calls.clear();
    scene.other->setFocus();
    QCOMPARE(scene.notes.text(), "focusout");
    scene.focusGrid();
    QCOMPARE(scene.notes.text(), "focusin");
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "1/0");
}

void tst_GridFocus::focus_ofAGridWithoutRowsOrColumns_isToldAlone_data()
{
    QTest::addColumn<bool>("rows");
    QTest::addColumn<bool>("columns");
    QTest::newRow("neither") << false << false;
    QTest::newRow("rows alone") << true << false;
    QTest::newRow("columns alone") << false << true;
}

void tst_GridFocus::focus_ofAGridWithoutRowsOrColumns_isToldAlone()
{
    QFETCH(bool, rows);
    QFETCH(bool, columns);
    Scene scene(0, rows ? 2 : 0);
    if (!columns) {
        for (int i = 0; i < 3; ++i) { // hidden ones are none
            scene.grid->ShowColumn(scene.grid->GetPriv().columns.all()[i]->Handle(), false);
        }
    }
    QVERIFY(scene.show());
    scene.focusGrid();
    scene.other->setFocus();
    QCOMPARE(scene.notes.text(), "focusin; focusout");
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "-/-");
}

void tst_GridFocus::focus_afterTheFocusedRowWasDeleted_goesToTheFirstCell()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.focusGrid();
    scene.grid->SetRowSel(scene.list[4], true);
    scene.other->setFocus();
    QVERIFY(scene.grid->DeleteRow(scene.list[4]));
    scene.list.erase(scene.list.begin() + 4);
    QCOMPARE(scene.grid->focus(), "-/-");
    scene.notes.calls.clear();
    scene.focusGrid();
    QCOMPARE(scene.notes.text(), "selecting +0; selected; focusin");
    QCOMPARE(scene.marks(), "0/0");
}

void tst_GridFocus::focus_countsRowsThatWereJustInserted()
{
    Scene scene(0, 0);
    QVERIFY(scene.show());
    scene.grid->add("new");
    scene.focusGrid();
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "new/0new");
}

void tst_GridFocus::focusChanges_repaintTheSelectedRows_andNoOthers()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.focusGrid();
    scene.grid->SetRowSel(scene.list[2], true);
    scene.grid->SelectRows(1, &scene.list[4]);
    scene.grid->ClearSelection();
    scene.grid->SelectRows(1, &scene.list[2]);
    scene.grid->SelectRows(1, &scene.list[4]);
    scene.grid->takePainted();
    QRegion wanted = scene.rowRect(2);
    wanted += scene.rowRect(4);
    scene.other->setFocus();
    QCOMPARE(scene.grid->takePainted(), wanted);
    scene.grid->setFocus();
    QCOMPARE(scene.grid->takePainted(), wanted);
}

void tst_GridFocus::windowDeactivation_isALossOfFocus()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.focusGrid();
    scene.notes.calls.clear();
    QWidget second;
    second.setFocusPolicy(Qt::StrongFocus);
    second.show();
    second.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&second));
    settle();
    QCOMPARE(scene.notes.text(), "focusout");
    scene.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    settle();
    QCOMPARE(scene.notes.text(), "focusin");
}

void tst_GridFocus::moveFocus_marksOneCell()
{
    Scene scene;
    QVERIFY(scene.show());
    KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
    frame.MoveFocus(1, 2);
    QCOMPARE(scene.marks(), "1/2");
    frame.MoveFocus(1, 0);
    QCOMPARE(scene.marks(), "1/0");
    frame.MoveFocus(4, 1);
    QCOMPARE(scene.marks(), "4/1");
    // By the column's place among the items, wherever it stands on display.
    tag_HCOLUMN * order[3];
    scene.grid->GetColumnOrderArray(order, 3);
    std::swap(order[0], order[2]);
    scene.grid->SetColumnOrderArray(order, 3);
    frame.MoveFocus(4, 0);
    QCOMPARE(scene.marks(), "4/2");
    QCOMPARE(scene.grid->focus(), "4/2");
}

void tst_GridFocus::moveFocus_outOfRange_doesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("row below 0") << -1 << 0;
    QTest::newRow("row past the end") << 6 << 0;
    QTest::newRow("column below 0") << 0 << -1;
    QTest::newRow("column past the end") << 0 << 3;
    QTest::newRow("far out") << INT_MAX << INT_MIN;
}

void tst_GridFocus::moveFocus_outOfRange_doesNothing()
{
    QFETCH(int, row);
    QFETCH(int, column);
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->GetPriv().MoveFocus(3, 1);
    scene.grid->takePainted();
    scene.grid->GetPriv().MoveFocus(row, column);
    QCOMPARE(scene.grid->focus(), "3/1");
    QVERIFY(scene.grid->takePainted().isEmpty());
}

void tst_GridFocus::moveFocus_repaintsTheTwoRows()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->GetPriv().MoveFocus(1, 0);
    scene.grid->takePainted();
    scene.grid->GetPriv().MoveFocus(4, 0);
    QRegion wanted = scene.rowRect(1);
    wanted += scene.rowRect(4);
    QCOMPARE(scene.grid->takePainted(), wanted);
}

void tst_GridFocus::moveFocus_scrollsWithTheStyleAlone()
{
    for (long const style : {0L, long(GCS_AUTOHSCROLL)}) {
        Scene scene(style, 40);
        QVERIFY(scene.show());
        scene.grid->GetPriv().MoveFocus(39, 2);
        bool const scrolled = style != 0;
        QCOMPARE(scene.grid->GetPriv().GetTopIndex() > 0, scrolled);
        QCOMPARE(scene.grid->GetPriv().hScrollPos > 0, scrolled);
    }
}

void tst_GridFocus::clearFocus_leavesNoCell()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->GetPriv().MoveFocus(1, 1);
    scene.grid->GetPriv().ClearFocus();
    QCOMPARE(scene.grid->focus() + scene.marks(), "-/-");
    scene.grid->GetPriv().ClearFocus();
    QCOMPARE(scene.grid->focus(), "-/-");
}

void tst_GridFocus::updatesSwitchedOff_stayOff()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->takePainted();
    scene.grid->setUpdatesEnabled(false);
    scene.focusGrid();
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    scene.click(cellPoint(*scene.grid, scene.list[4]), Qt::LeftButton, Qt::ControlModifier);
    scene.grid->SelectAll();
    scene.grid->ClearSelection();
    scene.other->setFocus();
    QVERIFY(!scene.grid->updatesEnabled());
    QVERIFY(scene.grid->takePainted().isEmpty());
    scene.grid->setUpdatesEnabled(true);
    QVERIFY(!scene.grid->takePainted().isEmpty());
}

void tst_GridFocus::focusColumn_setPastTheEnd_isNoColumn()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.focusGrid();
    tag_HCOLUMN * const last = scene.grid->GetPriv().columns.all()[2]->Handle();
    scene.grid->SetFocusedColumn(last);
    scene.grid->ShowColumn(scene.grid->firstColumn(), false);
    QCOMPARE(scene.grid->GetFocusedColumn(), last); // the index follows the column
    scene.grid->SetFocusedColumn(last);             // its place of creation, now past the end
    QCOMPARE(scene.grid->GetFocusedColumn(), GC_NOCOLUMN);
    scene.notes.calls.clear();
    scene.key(Qt::Key_Down);
    QCOMPARE(scene.notes.text(), QString());
    QVERIFY(scene.grid->SetRowSel(scene.list[1], true)); // then it is the first column
    QCOMPARE(scene.grid->focus(), "1/1");
}

ZENU_TEST(tst_GridFocus)
#include "tst_GridFocus.moc"
