#include "tests/grid_editing/EditFixture.h"
#include "tests/support/TestMain.h"

#include <functional>

using namespace zenutest;

namespace {

using Action = std::function<void(EditGrid &)>;

} // namespace

Q_DECLARE_METATYPE(Action)

// An open edit and everything that can happen to its cell, its grid and other grids meanwhile.
class tst_EditAndChange : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void slimRow_isGivenTheTextOnce_data();
    void slimRow_isGivenTheTextOnce();
    void slimRow_withoutCallback_isRefusedNothing();
    void change_thatMovesRows_discards_data();
    void change_thatMovesRows_discards();
    void change_thatLeavesTheEdit_data();
    void change_thatLeavesTheEdit();
    void column_hiddenOrMovedMeanwhile_savesToTheSameCell();
    void column_ofAnotherKindMeanwhile_savesInItsWay();
    void row_collapsedMeanwhile_saves();
    void row_diesWithoutAnEnd_closesTheEditorQuietly();
    void otherGrid_startsAnEdit_endsThisOne();
    void grid_destroyed_takesTheEditorAlong();
    void editor_deletedByOthers_endsTheEdit();
    void endNow_insideTheEditorsOwnSignal_isSafe_data();
    void endNow_insideTheEditorsOwnSignal_isSafe();
    void endNow_whileTheFocusMovesIn_isSafe();
    void treeLocked_operationsLeaveTheEditOpen();
};

void tst_EditAndChange::slimRow_isGivenTheTextOnce_data()
{
    QTest::addColumn<bool>("hasChildren");
    QTest::newRow("slim") << true;
    QTest::newRow("lonely") << false;
}

void tst_EditAndChange::slimRow_isGivenTheTextOnce()
{
    QFETCH(bool, hasChildren);
    EditGrid grid(0, 0);
    EditSlim slim;
    grid.SetSlimGridCallback(&slim);
    tag_HROW * const row = grid.InsertSlimRow(7, hasChildren, GC_ROOT, GCI_LAST);
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    slim.writing = [&] { notes.calls << QStringLiteral("written"); };
    QVERIFY(grid.edit(row, Icon));
    QCOMPARE(grid.editor()->text(), QStringLiteral("s7"));
    grid.type(QStringLiteral("new"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    notes.calls.removeAll(QStringLiteral("in"));
    notes.calls.removeAll(QStringLiteral("out"));
    QCOMPARE(notes.taken(), QStringLiteral("changing s7/1; written; changed s7/1"));
    QCOMPARE(slim.written.join(u';'), QStringLiteral("text 7 new"));
    QCOMPARE(grid.text(row, Icon), QStringLiteral("new"));
    QVERIFY(grid.edit(row, Icon));
    grid.EndEditItemNow(true);
    QCOMPARE(slim.written.size(), 1);
}

void tst_EditAndChange::slimRow_withoutCallback_isRefusedNothing()
{
    EditGrid grid(0, 0);
    tag_HROW * const row = grid.InsertSlimRow(7, false, GC_ROOT, GCI_LAST);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(row));
    QCOMPARE(grid.editor()->text(), QString());
    QVERIFY(grid.EndEditItemNow(false));
}

void tst_EditAndChange::change_thatMovesRows_discards_data()
{
    QTest::addColumn<Action>("change");
    QTest::newRow("DeleteColumn, the edited")
        << Action([](EditGrid & grid) { grid.DeleteColumn(grid.column(Icon)); });
    QTest::newRow("DeleteColumn, another")
        << Action([](EditGrid & grid) { grid.DeleteColumn(grid.column(Plain)); });
    QTest::newRow("DeleteRow, the edited")
        << Action([](EditGrid & grid) { grid.DeleteRow(grid.rows[1]); });
    QTest::newRow("DeleteRow, another")
        << Action([](EditGrid & grid) { grid.DeleteRow(grid.rows[2]); });
    QTest::newRow("DeleteAllRows") << Action([](EditGrid & grid) { grid.DeleteAllRows(); });
    QTest::newRow("Reset") << Action([](EditGrid & grid) { grid.Reset(); });
    QTest::newRow("ResetSlimRow") << Action(
        [](EditGrid & grid) { grid.ResetSlimRow(grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST)); });
    QTest::newRow("InsertRow by parent")
        << Action([](EditGrid & grid) { grid.InsertRow(GC_ROOT, GCI_FIRST); });
    QTest::newRow("InsertRow by record") << Action([](EditGrid & grid) {
        GC_ROW record;
        record.parent = GC_ROOT;
        grid.InsertRow(&record, GCI_FIRST);
    });
    QTest::newRow("InsertRow that fails") << Action(
        [](EditGrid & grid) { grid.InsertRow(static_cast<tag_HROW *>(nullptr), GCI_FIRST); });
}

void tst_EditAndChange::change_thatMovesRows_discards()
{
    QFETCH(Action, change);
    EditGrid grid;
    EditSlim slim;
    grid.SetSlimGridCallback(&slim);
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1], Icon));
    grid.type(QStringLiteral("new"));
    change(grid);
    QVERIFY(!CItemEditorImpl::OpenWidget());
    QVERIFY(!grid.editor());
    QVERIFY(!grid.GetPriv().IsEditing());
    QVERIFY(grid.hasFocus());
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 1/1; changed 1/1"));
    if (grid.GetPriv().LocateRow(grid.rows[1])) {
        QVERIFY(grid.text(grid.rows[1], Icon) != QStringLiteral("new"));
        QVERIFY(!grid.isMarked(grid.rows[1], Icon));
    }
    settle();
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_EditAndChange::change_thatLeavesTheEdit_data()
{
    QTest::addColumn<Action>("change");
    QTest::newRow("InsertSection")
        << Action([](EditGrid & grid) { grid.InsertSection("", GCI_FIRST); });
    QTest::newRow("InsertSlimRow")
        << Action([](EditGrid & grid) { grid.InsertSlimRow(1, false, GC_ROOT, GCI_FIRST); });
    QTest::newRow("AddColumn") << Action([](EditGrid & grid) { grid.addKind(GCCK_TEXT); });
    QTest::newRow("Sort") << Action([](EditGrid & grid) { grid.Sort(grid.column(Text), false); });
    QTest::newRow("SetItem") << Action(
        [](EditGrid & grid) { grid.SetItemText(grid.rows[1], grid.column(Icon), "other"); });
    QTest::newRow("SetColumn") << Action(
        [](EditGrid & grid) { grid.SetColumnWidth(grid.column(Icon), 30); });
    QTest::newRow("scrolling") << Action([](EditGrid & grid) {
        grid.OnScroll(KScrolledWidget::ScrollNothing, KScrolledWidget::ScrollPageForward, 0, true);
    });
    QTest::newRow("selection") << Action([](EditGrid & grid) { grid.SelectAll(); });
    QTest::newRow("size") << Action([](EditGrid & grid) { grid.resize(300, 200); });
}

void tst_EditAndChange::change_thatLeavesTheEdit()
{
    QFETCH(Action, change);
    EditGrid grid(0, 60);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1], Icon));
    QRect const place = grid.editor()->geometry();
    change(grid);
    settle();
    QVERIFY(grid.editor());
    QCOMPARE(grid.editor()->geometry(), place); // it stays, whatever moves below it
    QVERIFY(grid.editor()->hasFocus());
    grid.type(QStringLiteral("new"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QCOMPARE(grid.text(grid.rows[1], Icon), QStringLiteral("new"));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_EditAndChange::column_hiddenOrMovedMeanwhile_savesToTheSameCell()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1], Icon));
    grid.type(QStringLiteral("new"));
    std::vector<tag_HCOLUMN *> order;
    for (int id = editColumns - 1; id >= 0; --id) {
        order.push_back(grid.column(id));
    }
    QVERIFY(grid.SetColumnOrderArray(order.data(), editColumns));
    grid.ShowColumn(grid.column(Icon), false);
    QVERIFY(grid.EndEditItemNow(false));
    QCOMPARE(grid.text(grid.rows[1], Icon), QStringLiteral("new"));
    QVERIFY(!grid.isMarked(grid.rows[1], Icon));
}

void tst_EditAndChange::column_ofAnotherKindMeanwhile_savesInItsWay()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    for (int kind = 0; kind < GCCK_CHECKBOXWITHICON; ++kind) {
        QVERIFY(grid.edit(grid.rows[1], Text));
        grid.type(QStringLiteral("new"));
        GC_COLUMN record;
        record.mask = GCCM_KIND;
        record.kind = kind;
        QVERIFY(grid.SetColumn(grid.column(Text), &record)); // another column object by now
        QVERIFY(grid.EndEditItemNow(false));
        QVERIFY(!grid.isMarked(grid.rows[1], Text));
        bool const bearsText = kind != GCCK_ICON && kind != GCCK_LISTBOX;
        QCOMPARE(grid.text(grid.rows[1], Text), bearsText ? QStringLiteral("new") : QString());
        record.mask = GCCM_KIND | GCCM_FLAGS;
        record.kind = GCCK_TEXT;
        record.flags = GCCF_EDITABLE;
        QVERIFY(grid.SetColumn(grid.column(Text), &record));
    }
}

void tst_EditAndChange::row_collapsedMeanwhile_saves()
{
    EditGrid grid;
    tag_HROW * const child = grid.add("child", grid.rows[0]);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(child));
    grid.type(QStringLiteral("new"));
    grid.Expand(grid.rows[0], GCE_COLLAPSE);
    QVERIFY(grid.EndEditItemNow(false));
    QCOMPARE(grid.text(child), QStringLiteral("new"));
}

// An application that is told of a discard and edits on.
void tst_EditAndChange::row_diesWithoutAnEnd_closesTheEditorQuietly()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("changed"))) {
            notes.act = nullptr;
            QVERIFY(grid.edit(grid.rows[1]));
        }
    };
    QVERIFY(grid.edit(grid.rows[1]));
    notes.taken();
    QVERIFY(grid.DeleteRow(grid.rows[1]));
    QVERIFY(!grid.GetPriv().IsEditing());
    QVERIFY(!CItemEditorImpl::OpenWidget());
    QCOMPARE(notes.takenItems(), QStringLiteral("changed 1/0; changing 1/0"));
    settle();
    QVERIFY(!grid.editor());
    QVERIFY(grid.hasFocus());
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_EditAndChange::otherGrid_startsAnEdit_endsThisOne()
{
    QWidget window;
    window.resize(800, 300);
    EditGrid one;
    EditGrid two;
    one.setParent(&window);
    two.setParent(&window);
    one.setGeometry(0, 0, 800, 150);
    two.setGeometry(0, 150, 800, 150);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    settle();
    EditNotes notesOne(&one);
    QVERIFY(one.edit(one.rows[1]));
    one.type(QStringLiteral("new"));
    notesOne.taken();
    QVERIFY(two.edit(two.rows[2])); // without a turn of the event loop
    QVERIFY(!one.editor());
    QVERIFY(!one.GetPriv().IsEditing());
    QCOMPARE(one.text(one.rows[1]), QStringLiteral("new"));
    QCOMPARE(notesOne.takenItems(), QStringLiteral("changed new/0"));
    QVERIFY(two.editor());
    QCOMPARE(CItemEditorImpl::OpenWidget(), two.editor());
    settle();
    QVERIFY(two.editor());
    QVERIFY(two.editor()->hasFocus());
    // With the mouse.
    one.click(one.rows[3], Click);
    settle();
    QVERIFY(!two.editor());
    QVERIFY(one.editor());
    QVERIFY(one.editor()->hasFocus());
    one.setParent(nullptr);
    two.setParent(nullptr);
}

void tst_EditAndChange::grid_destroyed_takesTheEditorAlong()
{
    auto grid = std::make_unique<EditGrid>();
    QVERIFY(grid->activate());
    EditNotes notes(grid.get());
    QVERIFY(grid->edit(grid->rows[1]));
    notes.taken();
    QTest::keyClick(grid->editor(), Qt::Key_Return); // its end is on the way
    grid.reset();
    QCOMPARE(notes.takenItems(), QString());
    QVERIFY(!CItemEditorImpl::OpenWidget());
    settle();
    EditGrid next;
    QVERIFY(next.activate());
    QVERIFY(next.edit(next.rows[1]));
    QVERIFY(next.editor());
}

void tst_EditAndChange::editor_deletedByOthers_endsTheEdit()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("lost"));
    notes.taken();
    delete grid.editor();
    QVERIFY(!CItemEditorImpl::OpenWidget());
    settle();
    QVERIFY(!grid.GetPriv().IsEditing());
    QVERIFY(!grid.isMarked(grid.rows[1]));
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("1"));
    QCOMPARE(notes.takenItems(), QStringLiteral("changed 1/0"));
    QVERIFY(grid.hasFocus());
}

void tst_EditAndChange::endNow_insideTheEditorsOwnSignal_isSafe_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("end") << 0;
    QTest::newRow("end, and delete the grid when told") << 1;
    QTest::newRow("delete the grid") << 2;
    QTest::newRow("edit another cell") << 3;
}

void tst_EditAndChange::endNow_insideTheEditorsOwnSignal_isSafe()
{
    QFETCH(int, what);
    auto * grid = new EditGrid;
    QPointer<EditGrid> const alive = grid;
    QVERIFY(grid->activate());
    EditNotes notes(grid);
    QVERIFY(grid->edit(grid->rows[1]));
    connect(grid->editor(), &QLineEdit::textChanged, this, [&] {
        if (what == 1) {
            notes.act = [&](QString const & told) {
                if (told.startsWith(QStringLiteral("changed"))) {
                    delete grid;
                }
            };
        }
        if (what == 2) {
            delete grid;
        } else if (what == 3) {
            grid->edit(grid->rows[2]);
        } else {
            grid->EndEditItemNow(false);
        }
    });
    QTest::keyClick(grid->editor(), Qt::Key_X);
    QCOMPARE(alive.isNull(), what == 1 || what == 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    if (alive) {
        QCOMPARE(alive->text(alive->rows[1]), QStringLiteral("x"));
        QCOMPARE(alive->editor() != nullptr, what == 3);
        QCOMPARE(alive->hasFocus(), what == 0);
        QCOMPARE(zenutest::checkGrid(*alive), QString());
        alive->setNotification(nullptr);
        delete alive;
    }
}

void tst_EditAndChange::endNow_whileTheFocusMovesIn_isSafe()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    notes.act = [&](QString const & what) {
        if (what == QStringLiteral("out")) {
            grid.EndEditItemNow(true);
        }
    };
    QVERIFY(!grid.edit(grid.rows[1])); // none is open when it returns
    QVERIFY(!grid.GetPriv().IsEditing());
    notes.act = nullptr;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    QVERIFY(!grid.editor());
    QVERIFY(!CItemEditorImpl::OpenWidget());
    QVERIFY(!grid.isMarked(grid.rows[1]));
    QVERIFY(grid.hasFocus());
}

// Operations that a text function tries are refused; so nothing comes or goes, and the edit stays.
void tst_EditAndChange::treeLocked_operationsLeaveTheEditOpen()
{
    static EditGrid * asking = nullptr;
    EditGrid grid;
    asking = &grid;
    grid.SetTextCBProc(
        [](unsigned long, tag_HROW * row, tag_HCOLUMN *, long) -> char const * {
            return asking->DeleteRow(row) || asking->InsertRow(GC_ROOT, GCI_LAST) ? "wrong"
                                                                                  : "text";
        },
        0);
    grid.SetItemText(grid.rows[3], grid.column(Plain), GC_TEXTCALLBACK);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.update();
    settle();
    QCOMPARE(grid.text(grid.rows[3], Plain), QStringLiteral("text"));
    QVERIFY(grid.editor());
}

ZENU_TEST(tst_EditAndChange)
#include "tst_EditAndChange.moc"
