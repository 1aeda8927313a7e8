#include "tests/grid_editing/EditFixture.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// Edits by the operations of the grid and by what a person does in the editor.
class tst_EditStartAndEnd : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void editItem_opensAnEditorInTheCell_data();
    void editItem_opensAnEditorInTheCell();
    void editItem_movesFocusAndSelection_withoutAWord();
    void editItem_badHandles_changeNothing();
    void editItem_section_failsSilently();
    void editItem_cellWithoutEditor_isRefused_data();
    void editItem_cellWithoutEditor_isRefused();
    void editItem_rowOrColumnNotShown_isRefused();
    void editItem_cellWithoutRoom_isRefused();
    void editItem_scrollsTheCellIntoView();
    void editItem_veto_leavesTheGridAsItWas();
    void editItem_openEdit_isSavedFirst();
    void editItem_textReadBeforeAsked_placeAfterwards();
    void editItem_hiddenGrid_opensWhenShown();
    void returnKey_savesAndGivesTheGridTheFocus();
    void escape_doesNotEndTheEdit();
    void upKey_doesNotMoveTheFocus();
    void clickElsewhereInTheGrid_saves();
    void focusLoss_saves();
    void saved_textIsLatin1AndRepainted();
    void endNow_savesOrDiscards();
    void endNow_withoutEditor_saysSo();
    void discard_raisesItemChangedToo();
    void plainEvents_ofTheApplication_endWhicheverEditIsOpen_data();
    void plainEvents_ofTheApplication_endWhicheverEditIsOpen();
    void endEvents_withoutEditor_doNothing();
    void twoEndEvents_actOnce_data();
    void twoEndEvents_actOnce();
    void endEvent_ofAClosedEditor_leavesTheNextOneOpen();
    void restartWhenTold_opensTheNextEditor();
    void sinkOfNull_editsAllTheSame();
};

void tst_EditStartAndEnd::editItem_opensAnEditorInTheCell_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("text") << int(Text);
    QTest::newRow("text with icon") << int(Icon);
    QTest::newRow("delayed") << int(Delayed); // by the operation it begins at once
    QTest::newRow("click") << int(Click);
}

void tst_EditStartAndEnd::editItem_opensAnEditorInTheCell()
{
    QFETCH(int, column);
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SetItemText(grid.rows[2], grid.column(column), "Gr\xfc\xdf");
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[2], column));
    QVERIFY(grid.editor());
    QRect rect;
    QVERIFY(grid.GetItemEditorRect(grid.rows[2], grid.column(column), &rect));
    QCOMPARE(grid.editor()->geometry(), rect);
    QVERIFY(grid.editor()->isVisible());
    QVERIFY(grid.editor()->hasFocus());
    QCOMPARE(grid.editor()->text(), QString::fromLatin1("Gr\xfc\xdf"));
    QCOMPARE(grid.editor()->selectedText(), grid.editor()->text());
    QCOMPARE(grid.editor()->font(), grid.font());
    QVERIFY(grid.isMarked(grid.rows[2], column));
    QCOMPARE(notes.takenItems(),
             QStringLiteral("changing %1/%2").arg(grid.name(grid.rows[2])).arg(column));
    QCOMPARE(zenutest::checkGrid(grid), QString());
}

void tst_EditStartAndEnd::editItem_movesFocusAndSelection_withoutAWord()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SelectAll();
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[3], Icon));
    QCOMPARE(grid.selected(), QStringLiteral("3"));
    QCOMPARE(grid.focus(), QStringLiteral("3/1"));
    QVERIFY(!notes.calls.contains(QStringLiteral("selected")));
    QVERIFY(!notes.calls.contains(QStringLiteral("selecting")));
}

void tst_EditStartAndEnd::editItem_badHandles_changeNothing()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SetRowSel(grid.rows[1], true);
    QString const focus = grid.focus();
    QString const selected = grid.selected();
    tag_HROW * const dead = grid.add("dead");
    grid.DeleteRow(dead);
    EditNotes notes(&grid);
    for (tag_HROW * const row : {dead, GC_ROOT, GCI_LAST, static_cast<tag_HROW *>(nullptr)}) {
        QVERIFY(!grid.EditItem(row, grid.column(Text)));
    }
    QVERIFY(!grid.EditItem(grid.rows[2], GC_NOCOLUMN));
    QVERIFY(!grid.EditItem(grid.rows[2], grid.column(editColumns)));
    QCOMPARE(grid.focus(), focus);
    QCOMPARE(grid.selected(), selected);
    QCOMPARE(notes.taken(), QString());
    KGridCtrl empty;
    QVERIFY(!empty.EditItem(nullptr, nullptr));
}

void tst_EditStartAndEnd::editItem_section_failsSilently()
{
    EditGrid grid;
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_FIRST);
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(!grid.edit(section));
    QVERIFY(!grid.editor());
    QCOMPARE(notes.takenItems(), QString());
}

void tst_EditStartAndEnd::editItem_cellWithoutEditor_isRefused_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("list box") << int(List);
    QTest::newRow("combo box") << int(Combo);
    QTest::newRow("not editable") << int(Plain);
    QTest::newRow("check box") << int(Check);
}

void tst_EditStartAndEnd::editItem_cellWithoutEditor_isRefused()
{
    QFETCH(int, column);
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(!grid.edit(grid.rows[1], column));
    QVERIFY(!grid.editor());
    QVERIFY(!grid.isMarked(grid.rows[1], column));
    QCOMPARE(notes.takenItems(), QString()); // the application is not bothered
    QVERIFY(grid.hasFocus());
}

void tst_EditStartAndEnd::editItem_rowOrColumnNotShown_isRefused()
{
    EditGrid grid;
    tag_HROW * const child = grid.add("child", grid.rows[0]);
    grid.Expand(grid.rows[0], GCE_COLLAPSE);
    grid.ShowColumn(grid.column(Icon), false);
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(!grid.edit(child));
    QVERIFY(!grid.edit(grid.rows[1], Icon));
    QVERIFY(!grid.editor());
    QCOMPARE(notes.takenItems(), QString());
}

void tst_EditStartAndEnd::editItem_cellWithoutRoom_isRefused()
{
    EditGrid grid;
    grid.SetColumnWidth(grid.column(Text), 2);
    QVERIFY(grid.activate());
    QVERIFY(!grid.edit(grid.rows[1]));
    QVERIFY(!grid.editor());
    QVERIFY(grid.hasFocus());
}

void tst_EditStartAndEnd::editItem_scrollsTheCellIntoView()
{
    EditGrid grid(0, 60);
    QVERIFY(grid.activate(200));
    grid.resize(200, 200);
    settle();
    QVERIFY(grid.edit(grid.rows[50], Click));
    QVERIFY(grid.getClientRect().contains(grid.editor()->geometry()));
    QRect rect;
    grid.GetItemEditorRect(grid.rows[50], grid.column(Click), &rect);
    QCOMPARE(grid.editor()->geometry(), rect);
}

void tst_EditStartAndEnd::editItem_veto_leavesTheGridAsItWas()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    notes.vetoes = [](tag_HROW *) { return true; };
    QVERIFY(!grid.edit(grid.rows[1]));
    QVERIFY(!grid.editor());
    QVERIFY(!grid.isMarked(grid.rows[1]));
    QVERIFY(grid.hasFocus());
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 1/0"));
}

void tst_EditStartAndEnd::editItem_openEdit_isSavedFirst()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("one"));
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[2]));
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("one"));
    QVERIFY(!grid.isMarked(grid.rows[1]));
    QVERIFY(grid.isMarked(grid.rows[2]));
    QCOMPARE(notes.takenItems(), QStringLiteral("changed one/0; changing 2/0"));
    settle(); // what the first editor posted when it lost the focus
    QVERIFY(grid.editor());
    QVERIFY(grid.editor()->hasFocus());
    QCOMPARE(grid.editor()->text(), QStringLiteral("2"));
    // Also when it can't be followed by another one.
    QVERIFY(!grid.edit(grid.rows[3], Plain));
    QVERIFY(!grid.editor());
}

void tst_EditStartAndEnd::editItem_textReadBeforeAsked_placeAfterwards()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QString const before =
        QString::fromLatin1(grid.GetItemText(grid.rows[1], grid.column(Text)).c_str());
    notes.act = [&](QString const &) {
        grid.SetItemText(grid.rows[1], grid.column(Text), "raw");
        grid.SetColumnWidth(grid.column(Text), 130);
    };
    QVERIFY(grid.edit(grid.rows[1]));
    notes.act = nullptr;
    QVERIFY(before != QStringLiteral("raw"));
    QCOMPARE(grid.editor()->text(), before);
    QRect rect;
    grid.GetItemEditorRect(grid.rows[1], grid.column(Text), &rect);
    QCOMPARE(grid.editor()->geometry(), rect);
}

void tst_EditStartAndEnd::editItem_hiddenGrid_opensWhenShown()
{
    EditGrid grid;
    grid.resize(700, 300);
    QVERIFY(grid.edit(grid.rows[1]));
    QVERIFY(grid.showSized(700, 300));
    grid.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&grid));
    QVERIFY(grid.editor()->isVisible());
    QVERIFY(grid.editor()->hasFocus());
    QVERIFY(grid.EndEditItemNow(false));
    QVERIFY(!grid.editor());
}

void tst_EditStartAndEnd::returnKey_savesAndGivesTheGridTheFocus()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("new"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    QVERIFY(grid.editor()); // until the posted end arrives
    settle();
    QVERIFY(!grid.editor());
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("new"));
    QVERIFY(!grid.isMarked(grid.rows[1]));
    QVERIFY(grid.hasFocus());
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 1/0; changed new/0"));
    QVERIFY(!CItemEditorImpl::OpenWidget());
}

void tst_EditStartAndEnd::escape_doesNotEndTheEdit()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("new"));
    QTest::keyClick(grid.editor(), Qt::Key_Escape);
    settle();
    QVERIFY(grid.editor());
    QCOMPARE(grid.editor()->text(), QStringLiteral("new"));
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("1"));
}

void tst_EditStartAndEnd::upKey_doesNotMoveTheFocus()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[2]));
    for (int const key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home}) {
        QTest::keyClick(grid.editor(), Qt::Key(key));
    }
    settle();
    QVERIFY(grid.editor());
    QCOMPARE(grid.focus(), QStringLiteral("2/0"));
}

void tst_EditStartAndEnd::clickElsewhereInTheGrid_saves()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("new"));
    grid.click(grid.rows[4], Plain);
    settle();
    QVERIFY(!grid.editor());
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("new"));
    QCOMPARE(grid.focus(), QStringLiteral("4/2"));
    QCOMPARE(notes.takenItems().count(QStringLiteral("changed new/0")), 1);
}

void tst_EditStartAndEnd::focusLoss_saves()
{
    EditGrid grid;
    QLineEdit other(&grid);
    other.setGeometry(500, 200, 100, 20);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    QTest::keyClicks(CItemEditorImpl::OpenWidget(), QStringLiteral("new"));
    other.setFocus();
    settle();
    QVERIFY(!CItemEditorImpl::OpenWidget());
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("new"));
    QVERIFY(grid.hasFocus()); // wherever it had gone
}

void tst_EditStartAndEnd::saved_textIsLatin1AndRepainted()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.editor()->setText(QString::fromUtf8("5 \xe2\x82\xac = \xc3\xa9"));
    grid.takePainted();
    QVERIFY(grid.EndEditItemNow(false));
    QCOMPARE(grid.text(grid.rows[1]), QString::fromLatin1("5 ? = \xe9"));
    QRegion const painted = grid.takePainted();
    QVERIFY(painted.contains(grid.middle(grid.rows[1], Text)));
    QVERIFY(QRegion(grid.itemRect(grid.rows[1], Text).adjusted(0, 0, -1, 0))
                .subtracted(painted)
                .isEmpty());
}

void tst_EditStartAndEnd::endNow_savesOrDiscards()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("saved"));
    QVERIFY(grid.EndEditItemNow(false));
    QVERIFY(!grid.editor()); // at once
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("saved"));
    QVERIFY(grid.hasFocus());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("discarded"));
    QVERIFY(grid.EndEditItemNow(true));
    QVERIFY(!grid.editor());
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("saved"));
    QVERIFY(!grid.isMarked(grid.rows[1]));
    QVERIFY(grid.hasFocus());
}

void tst_EditStartAndEnd::endNow_withoutEditor_saysSo()
{
    EditGrid grid;
    EditNotes notes(&grid);
    QVERIFY(grid.EndEditItemNow(false));
    QVERIFY(!grid.EndEditItemNow(true));
    QCOMPARE(notes.taken(), QString());
}

void tst_EditStartAndEnd::discard_raisesItemChangedToo()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    QVERIFY(grid.EndEditItemNow(true));
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 1/0; changed 1/0"));
}

void tst_EditStartAndEnd::plainEvents_ofTheApplication_endWhicheverEditIsOpen_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("save") << 7113 << "new";
    QTest::newRow("discard") << 7114 << "1";
}

void tst_EditStartAndEnd::plainEvents_ofTheApplication_endWhicheverEditIsOpen()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[0]));
    QCoreApplication::postEvent(&grid, new QEvent(QEvent::Type(type)));
    QVERIFY(grid.edit(grid.rows[1])); // opened since
    grid.type(QStringLiteral("new"));
    notes.taken();
    settle();
    QVERIFY(!grid.editor());
    QCOMPARE(grid.text(grid.rows[1]), text);
    QCOMPARE(notes.takenItems(), QStringLiteral("changed %1/0").arg(text));
}

void tst_EditStartAndEnd::endEvents_withoutEditor_doNothing()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    for (int const type : {7113, 7114, 7115}) {
        QCoreApplication::postEvent(&grid, new QEvent(QEvent::Type(type)));
    }
    settle();
    QCOMPARE(notes.taken(), QString());
    QVERIFY(grid.edit(grid.rows[1]));
    QCoreApplication::postEvent(&grid, new QEvent(QEvent::Type(7115))); // not meant for edits
    settle();
    QVERIFY(grid.editor());
}

void tst_EditStartAndEnd::twoEndEvents_actOnce_data()
{
    QTest::addColumn<bool>("focusLoss");
    QTest::newRow("Return twice") << false;
    QTest::newRow("Return and a loss of focus") << true;
}

void tst_EditStartAndEnd::twoEndEvents_actOnce()
{
    QFETCH(bool, focusLoss);
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("new"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    if (focusLoss) {
        grid.setFocus();
    } else {
        QTest::keyClick(grid.editor(), Qt::Key_Return);
    }
    settle();
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 1/0; changed new/0"));
}

void tst_EditStartAndEnd::endEvent_ofAClosedEditor_leavesTheNextOneOpen()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    QTest::keyClick(grid.editor(), Qt::Key_Return); // posted, and before it arrives:
    QVERIFY(grid.EndEditItemNow(true));
    QVERIFY(grid.edit(grid.rows[1])); // the same cell, perhaps at the same address
    settle();
    QVERIFY(grid.editor());
    QVERIFY(grid.editor()->hasFocus());
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QVERIFY(!grid.editor());
}

void tst_EditStartAndEnd::restartWhenTold_opensTheNextEditor()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("changed 1/"))) {
            QVERIFY(grid.edit(grid.rows[2]));
        }
    };
    QVERIFY(grid.edit(grid.rows[1]));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QVERIFY(grid.editor());
    QCOMPARE(grid.editor()->text(), QStringLiteral("2"));
    QVERIFY(grid.editor()->hasFocus());
    QVERIFY(!grid.isMarked(grid.rows[1]));
    QVERIFY(grid.isMarked(grid.rows[2]));
    QCOMPARE(CItemEditorImpl::OpenWidget(), grid.editor());
}

void tst_EditStartAndEnd::sinkOfNull_editsAllTheSame()
{
    EditGrid grid;
    grid.setNotification(nullptr);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("new"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("new"));
}

ZENU_TEST(tst_EditStartAndEnd)
#include "tst_EditStartAndEnd.moc"
