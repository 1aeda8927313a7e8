#include "tests/grid_editing/EditFixture.h"
#include "tests/support/TestMain.h"

using namespace zenutest;

// How far an edit has got when the application is told of it, and what it leaves in the cell.
class tst_EditSteps : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void changing_comesWithTheRowInView_andNoEditorYet();
    void changing_refused_leavesTheScrolledGridAsItWas();
    void changing_refused_hasSavedTheEditBefore();
    void changed_comesWithTheTextSaved_andTheEditorStillThere_data();
    void changed_comesWithTheTextSaved_andTheEditorStillThere();
    void changed_findsNoEditToEnd();
    void focus_returnsAfterChanged();
    void nextEdit_hasANewEditor();
    void callbackText_isEditedAndReplaced();
    void emptiedText_isSaved();
    void unchangedText_isSavedToo();
    void gridsFont_isThatOfTheEditor();
    void column_shownOrHiddenByFlagAlone_isRefused();
};

void tst_EditSteps::changing_comesWithTheRowInView_andNoEditorYet()
{
    EditGrid grid(0, 60);
    QVERIFY(grid.activate(200));
    grid.SelectAll();
    EditNotes notes(&grid);
    int asked = 0;
    notes.act = [&](QString const & what) {
        if (what == QStringLiteral("changing 50/1")) {
            ++asked;
            QCOMPARE(grid.focus(), QStringLiteral("50/1"));
            QCOMPARE(grid.selected(), QStringLiteral("50"));
            QVERIFY(grid.getClientRect().contains(grid.itemRect(grid.rows[50], Icon)));
            QVERIFY(!grid.isMarked(grid.rows[50], Icon));
            QVERIFY(!grid.editor());
        }
    };
    QVERIFY(grid.edit(grid.rows[50], Icon));
    QCOMPARE(asked, 1);
    QCOMPARE(notes.calls.count(QStringLiteral("changing 50/1")), 1);
}

void tst_EditSteps::changing_refused_leavesTheScrolledGridAsItWas()
{
    EditGrid grid(0, 60);
    QVERIFY(grid.activate(200));
    grid.click(grid.rows[2], Text);
    grid.OnScroll(KScrolledWidget::ScrollNothing, KScrolledWidget::ScrollPageForward, 0, true);
    QVERIFY(!grid.getClientRect().contains(grid.itemRect(grid.rows[2], Text)));
    EditNotes notes(&grid);
    notes.vetoes = [](tag_HROW *) { return true; };
    QTest::keyClick(&grid, Qt::Key_F2);
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 2/0"));
    QVERIFY(grid.getClientRect().contains(grid.itemRect(grid.rows[2], Text)));
    QCOMPARE(grid.focus(), QStringLiteral("2/0"));
    QCOMPARE(grid.selected(), QStringLiteral("2"));
    QVERIFY(!grid.isMarked(grid.rows[2]));
    QVERIFY(!grid.editor());
    QVERIFY(grid.hasFocus());
}

void tst_EditSteps::changing_refused_hasSavedTheEditBefore()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("one"));
    EditNotes notes(&grid);
    notes.vetoes = [](tag_HROW *) { return true; };
    QVERIFY(!grid.edit(grid.rows[2]));
    QCOMPARE(notes.takenItems(), QStringLiteral("changed one/0; changing 2/0"));
    QCOMPARE(grid.text(grid.rows[1]), QStringLiteral("one"));
    settle();
    QVERIFY(!grid.editor());
    QVERIFY(grid.hasFocus());
}

void tst_EditSteps::changed_comesWithTheTextSaved_andTheEditorStillThere_data()
{
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("text");
    QTest::newRow("Return") << 0 << "new";
    QTest::newRow("saved now") << 1 << "new";
    QTest::newRow("discarded now") << 2 << "1";
    QTest::newRow("row inserted") << 3 << "1";
}

void tst_EditSteps::changed_comesWithTheTextSaved_andTheEditorStillThere()
{
    QFETCH(int, end);
    QFETCH(QString, text);
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    grid.type(QStringLiteral("new"));
    int told = 0;
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("changed"))) {
            ++told;
            QCOMPARE(grid.text(grid.rows[1]), text);
            QVERIFY(!grid.isMarked(grid.rows[1]));
            QVERIFY(grid.editor());
            QVERIFY(grid.editor()->hasFocus());
            QCOMPARE(grid.GetRowCount(), 6);
        }
    };
    if (end == 0) {
        QTest::keyClick(grid.editor(), Qt::Key_Return);
        settle();
    } else if (end == 3) {
        grid.InsertRow(GC_ROOT, GCI_LAST);
    } else {
        QVERIFY(grid.EndEditItemNow(end == 2));
    }
    QCOMPARE(told, 1);
    QVERIFY(!grid.editor());
}

void tst_EditSteps::changed_findsNoEditToEnd()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    notes.taken();
    notes.act = [&](QString const & what) {
        if (what.startsWith(QStringLiteral("changed"))) {
            QVERIFY(!grid.EndEditItemNow(true));
            QVERIFY(grid.EndEditItemNow(false));
        }
    };
    QVERIFY(grid.EndEditItemNow(false));
    QCOMPARE(notes.takenItems(), QStringLiteral("changed 1/0"));
}

void tst_EditSteps::focus_returnsAfterChanged()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    QVERIFY(grid.edit(grid.rows[1]));
    QCOMPARE(notes.taken(), QStringLiteral("changing 1/0; out"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QCOMPARE(notes.taken(), QStringLiteral("changed 1/0; in"));
}

void tst_EditSteps::nextEdit_hasANewEditor()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    QPointer<QLineEdit> const first = grid.editor();
    quint64 const id = CItemEditorImpl::OpenWidget()->Id();
    QVERIFY(grid.edit(grid.rows[1]));
    QVERIFY(!first);
    QVERIFY(CItemEditorImpl::OpenWidget()->Id() != id);
}

// What was edited is the cell's own text from then on.
void tst_EditSteps::callbackText_isEditedAndReplaced()
{
    EditGrid grid;
    grid.SetTextCBProc(
        [](unsigned long, tag_HROW *, tag_HCOLUMN *, long) -> char const * { return "asked"; }, 0);
    grid.SetItemText(grid.rows[1], grid.column(Icon), GC_TEXTCALLBACK);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1], Icon));
    QCOMPARE(grid.editor()->text(), QStringLiteral("asked"));
    QVERIFY(grid.EndEditItemNow(true));
    QCOMPARE(grid.text(grid.rows[1], Icon), QStringLiteral("asked"));
    QVERIFY(grid.edit(grid.rows[1], Icon));
    grid.type(QStringLiteral("own"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QCOMPARE(grid.text(grid.rows[1], Icon), QStringLiteral("own"));
}

void tst_EditSteps::emptiedText_isSaved()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    QTest::keyClick(grid.editor(), Qt::Key_Delete); // all of it is selected
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QCOMPARE(grid.text(grid.rows[1]), QString());
    QVERIFY(grid.edit(grid.rows[1]));
    QCOMPARE(grid.editor()->text(), QString());
}

void tst_EditSteps::unchangedText_isSavedToo()
{
    EditGrid grid(0, 0);
    EditSlim slim;
    grid.SetSlimGridCallback(&slim);
    tag_HROW * const row = grid.InsertSlimRow(7, false, GC_ROOT, GCI_LAST);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(row));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QCOMPARE(slim.written.join(u';'), QStringLiteral("text 7 s7"));
}

void tst_EditSteps::gridsFont_isThatOfTheEditor()
{
    EditGrid grid;
    QFont font = grid.font();
    font.setPointSize(font.pointSize() + 7);
    font.setItalic(true);
    grid.setFont(font);
    QVERIFY(grid.activate());
    QVERIFY(grid.edit(grid.rows[1]));
    QCOMPARE(grid.editor()->font(), font);
}

// The flag does not lay the columns out: a cell of such a column has no place, or is not painted.
void tst_EditSteps::column_shownOrHiddenByFlagAlone_isRefused()
{
    EditGrid grid;
    grid.ShowColumn(grid.column(Icon), false);
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_EDITABLE;
    QVERIFY(grid.SetColumn(grid.column(Icon), &record));
    QVERIFY(!grid.edit(grid.rows[1], Icon));
    record.flags = GCCF_EDITABLE | GCCF_HIDDEN;
    QVERIFY(grid.SetColumn(grid.column(Text), &record));
    QVERIFY(!grid.edit(grid.rows[1], Text));
    QVERIFY(!grid.editor());
    QCOMPARE(notes.takenItems(), QString());
}

ZENU_TEST(tst_EditSteps)
#include "tst_EditSteps.moc"
