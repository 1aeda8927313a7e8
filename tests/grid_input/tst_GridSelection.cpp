#include "tests/grid_input/InputFixture.h"

using namespace zenu;
using namespace zenutest;

class tst_GridSelection : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void publicOperations_tellWithoutAsking();
    void setRowSel_movesTheFocusInItsColumn();
    void setRowSel_withTheFocusColumnOutOfRange_takesTheFirst();
    void setRowSel_false_leavesTheFocus();
    void setRowSel_ofARowOutOfTheOrder_selectsWithoutTheFocus();
    void setRowSel_failures_tellNothing();
    void selectRows_addsUpToTheFirstBadHandle();
    void selectAll_takesTheVisibleOrderAlone();
    void clearSelection_ofNothing_isToldAllTheSame();
    void setRow_tellsChangesAlone();
    void changes_repaintTheRowsThatChange_data();
    void changes_repaintTheRowsThatChange();
    void rowsOutOfDisplay_repaintNothing();
    void hiddenGrid_selects();
    void manyRows_areRepaintedAtOnce();
    void askedChange_namesAllThatLeaveAndEnter();
    void askedChange_hasNoArraysForNoRows();
    void sinkThatRefuses_isNotAskedByOperations();
    void deletedRows_leaveWithoutAWord();
    void anchor_startsUnset();
};

namespace {

struct Scene : InputWindow
{
    explicit Scene(long style = 0)
        : InputWindow(style)
        , notes(grid)
    {
        grid->addColumns({100, 100});
        a = grid->add("a");
        a1 = grid->add("a1", a);
        b = grid->add("b");
        c = grid->add("c");
    }
    void select(std::vector<tag_HROW *> rows)
    {
        grid->SelectRows(static_cast<int>(rows.size()), rows.data());
    }
    QRegion rects(std::initializer_list<tag_HROW *> rows) const
    {
        QRegion region;
        for (tag_HROW * const row : rows) {
            QRect rect;
            grid->GetRowRect(row, &rect);
            rect.setRight(200); // where the columns end, and one pixel
            region += rect;
        }
        return region;
    }

    InputNotes notes;
    tag_HROW * a;
    tag_HROW * a1;
    tag_HROW * b;
    tag_HROW * c;
};

} // namespace

void tst_GridSelection::publicOperations_tellWithoutAsking()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->SetRowSel(scene.b, true);
    QCOMPARE(scene.notes.text(), "selected");
    scene.grid->SetRowSel(scene.b, true); // again
    scene.grid->SetRowSel(scene.b, false);
    scene.grid->SetRowSel(scene.b, false);
    QCOMPARE(scene.notes.text(), "selected; selected; selected");
    scene.select({scene.a, scene.c});
    scene.grid->SelectAll();
    scene.grid->ClearSelection();
    QCOMPARE(scene.notes.text(), "selected; selected; selected");
}

void tst_GridSelection::setRowSel_movesTheFocusInItsColumn()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->GetPriv().MoveFocus(0, 1);
    QVERIFY(scene.grid->SetRowSel(scene.c, true));
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "c/1c");
    QVERIFY(scene.grid->SetRowSel(scene.a, true)); // adds
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "a/1a c");
}

void tst_GridSelection::setRowSel_withTheFocusColumnOutOfRange_takesTheFirst()
{
    Scene scene;
    QVERIFY(scene.show());
    for (int const column : {-1, 2, 99}) {
        scene.grid->GetPriv().focusColumn = column;
        QVERIFY(scene.grid->SetRowSel(scene.c, true));
        QCOMPARE(scene.grid->focus(), "c/0");
    }
}

void tst_GridSelection::setRowSel_false_leavesTheFocus()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->SetRowSel(scene.a, true);
    scene.grid->SetRowSel(scene.b, true);
    QVERIFY(scene.grid->SetRowSel(scene.a, false));
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "b/0b");
}

void tst_GridSelection::setRowSel_ofARowOutOfTheOrder_selectsWithoutTheFocus()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->SetRowSel(scene.b, true);
    scene.grid->Expand(scene.a, GCE_COLLAPSE);
    QVERIFY(scene.grid->SetRowSel(scene.a1, true));
    QCOMPARE(scene.grid->focus() + scene.grid->selected(), "b/0a1 b");
}

void tst_GridSelection::setRowSel_failures_tellNothing()
{
    Scene scene;
    QVERIFY(scene.show());
    tag_HROW * const dead = scene.grid->add("dead");
    scene.grid->DeleteRow(dead);
    for (tag_HROW * const row : {static_cast<tag_HROW *>(nullptr), GC_ROOT, GCI_FIRST, dead}) {
        QVERIFY(!scene.grid->SetRowSel(row, true));
        QVERIFY(!scene.grid->SetRowSel(row, false));
    }
    scene.grid->ShowColumn(scene.grid->GetPriv().columns.all()[0]->Handle(), false);
    scene.grid->ShowColumn(scene.grid->GetPriv().columns.all()[1]->Handle(), false);
    QVERIFY(!scene.grid->SetRowSel(scene.a, true));
    QVERIFY(!scene.grid->SetRowSel(scene.a, false));
    QCOMPARE(scene.notes.text() + scene.grid->focus(), "-/-");
    QCOMPARE(scene.grid->GetSelectedCount(), 0U);
}

void tst_GridSelection::selectRows_addsUpToTheFirstBadHandle()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.select({scene.b});
    scene.select({scene.a, scene.a1, nullptr, scene.c});
    QCOMPARE(scene.grid->selected(), "a a1 b");
    QCOMPARE(scene.grid->focus(), "-/-");
    scene.notes.calls.clear();
    scene.grid->SelectRows(2, nullptr);
    scene.grid->SelectRows(0, &scene.c);
    scene.grid->SelectRows(-1, &scene.c);
    QCOMPARE(scene.notes.text(), "selected; selected; selected");
    QCOMPARE(scene.grid->selected(), "a a1 b");
}

void tst_GridSelection::selectAll_takesTheVisibleOrderAlone()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->Expand(scene.a, GCE_COLLAPSE);
    scene.grid->SelectAll();
    QCOMPARE(scene.grid->selected(), "a b c");
    scene.grid->Expand(scene.a, GCE_EXPAND);
    tag_HROW * const fresh = scene.grid->add("d"); // the order waits for its rebuild
    QVERIFY(fresh);
    scene.grid->SelectAll();
    QCOMPARE(scene.grid->selected(), "a a1 b c d");
    QCOMPARE(scene.grid->GetSelectedCount(), 5U);
}

void tst_GridSelection::clearSelection_ofNothing_isToldAllTheSame()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->takePainted();
    scene.grid->ClearSelection();
    QCOMPARE(scene.notes.text(), "selected");
    QVERIFY(scene.grid->takePainted().isEmpty());
}

void tst_GridSelection::setRow_tellsChangesAlone()
{
    Scene scene;
    QVERIFY(scene.show());
    GC_ROW record;
    record.mask = GCRM_STATE;
    record.stateMask = GCRS_SELECTED;
    record.state = GCRS_SELECTED;
    scene.grid->SetRow(scene.b, &record);
    scene.grid->SetRow(scene.b, &record);
    QCOMPARE(scene.notes.text() + scene.grid->selected(), "selectedb");
    record.state = 0;
    scene.grid->SetRow(scene.b, &record);
    scene.grid->SetRow(scene.b, &record);
    QCOMPARE(scene.notes.text() + scene.grid->selected(), "selected");
}

void tst_GridSelection::changes_repaintTheRowsThatChange_data()
{
    QTest::addColumn<int>("operation");
    QTest::newRow("adding one") << 0;
    QTest::newRow("adding one that is there") << 1;
    QTest::newRow("removing one") << 2;
    QTest::newRow("removing one that is not there") << 3;
    QTest::newRow("clearing") << 4;
}

void tst_GridSelection::changes_repaintTheRowsThatChange()
{
    QFETCH(int, operation);
    Scene scene;
    QVERIFY(scene.show());
    scene.select({scene.b, scene.c});
    scene.grid->takePainted();
    QRegion wanted;
    switch (operation) {
    case 0:
        scene.select({scene.a1});
        wanted = scene.rects({scene.a1});
        break;
    case 1:
        scene.select({scene.b});
        break;
    case 2:
        scene.grid->SetRowSel(scene.b, false);
        wanted = scene.rects({scene.b});
        break;
    case 3:
        scene.grid->SetRowSel(scene.a, false);
        break;
    default:
        scene.grid->ClearSelection();
        wanted = scene.rects({scene.b, scene.c});
    }
    QCOMPARE(scene.grid->takePainted(), wanted);
}

void tst_GridSelection::rowsOutOfDisplay_repaintNothing()
{
    Scene scene;
    scene.grid->addMany(60);
    QVERIFY(scene.show());
    tag_HROW * const far = scene.grid->GetPriv().GetRowAt(50)->Handle();
    scene.grid->Expand(scene.a, GCE_COLLAPSE);
    scene.grid->takePainted();
    scene.select({far, scene.a1}); // below the display, and out of the order
    QVERIFY(scene.grid->takePainted().isEmpty());
    scene.grid->ClearSelection();
    QVERIFY(scene.grid->takePainted().isEmpty());
}

void tst_GridSelection::hiddenGrid_selects()
{
    Scene scene;
    scene.select({scene.a, scene.c});
    scene.grid->SetRowSel(scene.b, true);
    QCOMPARE(scene.grid->selected(), "a b c");
    QCOMPARE(scene.grid->focus(), "b/0");
    scene.grid->ClearSelection();
    QCOMPARE(scene.grid->GetSelectedCount(), 0U);
}

// Qt's region of what is to be painted gets no shorter by a million rectangles.
void tst_GridSelection::manyRows_areRepaintedAtOnce()
{
    Scene scene;
    std::vector<tag_HROW *> rows = scene.grid->addMany(2000);
    QVERIFY(scene.show());
    scene.grid->update();
    QRegion const all = scene.grid->takePainted();
    scene.select(rows);
    QCOMPARE(scene.grid->takePainted(), all);
    scene.select(rows); // nothing is new
    QVERIFY(scene.grid->takePainted().isEmpty());
}

void tst_GridSelection::askedChange_namesAllThatLeaveAndEnter()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.focusGrid();
    scene.select({scene.a, scene.b, scene.c});
    scene.grid->Expand(scene.a, GCE_COLLAPSE);
    scene.select({scene.a1}); // one that is not visible leaves with the others
    scene.notes.calls.clear();
    scene.key(Qt::Key_Down);
    QCOMPARE(scene.notes.text(), "selecting -a -a1 -b -c +b; selected; key Down");
    QCOMPARE(scene.grid->selected(), "b");
}

void tst_GridSelection::askedChange_hasNoArraysForNoRows()
{
    struct Sink : IGridNotification
    {
        bool OnSelectionChanging(GC_SELECTIONCHANGE * change) override
        {
            told << QStringLiteral("%1%2 %3%4")
                        .arg(change->deselectedCount)
                        .arg(change->deselected ? "!" : "")
                        .arg(change->selectedCount)
                        .arg(change->selected ? "!" : "");
            return true;
        }
        QStringList told;
    };
    Scene scene;
    QVERIFY(scene.show());
    scene.focusGrid();
    Sink sink;
    scene.grid->setNotification(&sink);
    scene.key(Qt::Key_Space, Qt::ControlModifier); // a leaves
    scene.key(Qt::Key_Space, Qt::ControlModifier); // a enters
    scene.key(Qt::Key_Down);                       // a leaves, a1 enters
    QCOMPARE(sink.told, (QStringList{"1! 0", "0 1!", "1! 1!"}));
    scene.grid->setNotification(nullptr);
}

void tst_GridSelection::sinkThatRefuses_isNotAskedByOperations()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.notes.allowSelection = false;
    scene.grid->SetRowSel(scene.b, true);
    scene.grid->SelectAll();
    QCOMPARE(scene.grid->GetSelectedCount(), 4U);
    scene.grid->ClearSelection();
    QCOMPARE(scene.grid->GetSelectedCount(), 0U);
}

void tst_GridSelection::deletedRows_leaveWithoutAWord()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.grid->SelectAll();
    scene.notes.calls.clear();
    scene.grid->DeleteRow(scene.a);
    QCOMPARE(scene.grid->selected(), "b c");
    scene.grid->DeleteAllRows();
    QCOMPARE(scene.grid->GetSelectedCount(), 0U);
    QCOMPARE(scene.notes.text(), QString());
    QCOMPARE(checkGrid(*scene.grid), QString());
}

void tst_GridSelection::anchor_startsUnset()
{
    Scene scene;
    QCOMPARE(scene.grid->GetPriv().anchorIndex, -1);
    QCOMPARE(scene.grid->GetFocusedColumn(), GC_NOCOLUMN);
}

ZENU_TEST(tst_GridSelection)
#include "tst_GridSelection.moc"
