#include "tests/grid_editing/EditFixture.h"
#include "tests/support/TestMain.h"
#include "zenu/grid/geometry/CElementRects.h"

#include <QElapsedTimer>

using namespace zenutest;

namespace {

constexpr int delay = 500;

// Turns the event loop for this long.
void pass(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < milliseconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

} // namespace

// Edits that a person begins, with the mouse and with F2.
class tst_EditGestures : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void f2_editsTheFocusedCell();
    void f2_section_failsSilently();
    void press_onTheSelectedRow_edits();
    void press_onAnotherRow_onlySelects();
    void press_clickEditColumn_editsAtOnce();
    void press_inAMultipleSelection_collapsesAndEdits();
    void press_withModifiers_doesNotEdit_data();
    void press_withModifiers_doesNotEdit();
    void press_cellWithoutEditor_onlyNotifies_data();
    void press_cellWithoutEditor_onlyNotifies();
    void press_whileEditing_saves_andEditsNothingElse();
    void press_treePartsAndImage_doNotEdit();
    void delayed_opensAfterHalfASecond();
    void delayed_doubleClick_cancels();
    void delayed_anotherPress_cancels();
    void delayed_pressedAgain_waitsAnew();
    void delayed_otherPaths_cancel_data();
    void delayed_otherPaths_cancel();
    void delayed_cellNotEditable_startsNothing();
    void delayed_editStartedByOtherMeans_isNotDisturbed();
    void doubleClick_thatIsLetThrough_editsTheSelectedRow();
    void typedAndLeftByTab_saves();
};

void tst_EditGestures::f2_editsTheFocusedCell()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[2], Icon);
    QVERIFY(!grid.editor());
    QTest::keyClick(&grid, Qt::Key_F2);
    QVERIFY(grid.editor());
    QVERIFY(grid.isMarked(grid.rows[2], Icon));
    grid.type(QStringLiteral("typed"));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
    settle();
    QCOMPARE(grid.text(grid.rows[2], Icon), QStringLiteral("typed"));
    QTest::keyClick(&grid, Qt::Key_Down); // the grid has the keyboard again
    QCOMPARE(grid.focus(), QStringLiteral("3/1"));
    grid.SetFocusedColumn(grid.column(Delayed));
    QTest::keyClick(&grid, Qt::Key_F2); // at once there, too
    QVERIFY(grid.editor());
}

void tst_EditGestures::f2_section_failsSilently()
{
    EditGrid grid;
    tag_HROW * const section = grid.InsertSection(nullptr, GCI_FIRST);
    QVERIFY(grid.activate());
    grid.click(section, Text);
    EditNotes notes(&grid);
    QTest::keyClick(&grid, Qt::Key_F2);
    QVERIFY(!grid.editor());
    QCOMPARE(notes.takenItems(), QString());
}

void tst_EditGestures::press_onTheSelectedRow_edits()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Text);
    QVERIFY(!grid.editor());
    grid.click(grid.rows[3], Icon); // another cell of it
    QVERIFY(grid.editor());
    QVERIFY(grid.isMarked(grid.rows[3], Icon));
}

void tst_EditGestures::press_onAnotherRow_onlySelects()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Text);
    grid.click(grid.rows[4], Text);
    QVERIFY(!grid.editor());
    QCOMPARE(grid.selected(), QStringLiteral("4"));
}

void tst_EditGestures::press_clickEditColumn_editsAtOnce()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    grid.click(grid.rows[3], Click);
    QVERIFY(grid.editor());
    QCOMPARE(grid.selected(), QStringLiteral("3"));
    QCOMPARE(notes.takenItems(), QStringLiteral("changing 3/4"));
}

void tst_EditGestures::press_inAMultipleSelection_collapsesAndEdits()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.SelectAll();
    grid.click(grid.rows[3], Text);
    QCOMPARE(grid.selected(), QStringLiteral("3"));
    QVERIFY(grid.editor());
}

void tst_EditGestures::press_withModifiers_doesNotEdit_data()
{
    QTest::addColumn<int>("modifier");
    QTest::newRow("Ctrl") << int(Qt::ControlModifier);
    QTest::newRow("Shift") << int(Qt::ShiftModifier);
}

void tst_EditGestures::press_withModifiers_doesNotEdit()
{
    QFETCH(int, modifier);
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Text);
    grid.click(grid.rows[3], Text, Qt::KeyboardModifier(modifier));
    grid.click(grid.rows[4], Click, Qt::KeyboardModifier(modifier));
    QVERIFY(!grid.editor());
}

void tst_EditGestures::press_cellWithoutEditor_onlyNotifies_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("list box") << int(List);
    QTest::newRow("combo box") << int(Combo);
    QTest::newRow("not editable") << int(Plain);
}

void tst_EditGestures::press_cellWithoutEditor_onlyNotifies()
{
    QFETCH(int, column);
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Text);
    EditNotes notes(&grid);
    grid.click(grid.rows[3], column);
    QVERIFY(!grid.editor());
    QVERIFY(!grid.GetPriv().editTimer.isActive());
    QVERIFY(grid.hasFocus());
    QCOMPARE(notes.takenItems(), QString());
}

void tst_EditGestures::press_whileEditing_saves_andEditsNothingElse()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Click);
    grid.type(QStringLiteral("new"));
    grid.click(grid.rows[4], Click); // the first editor is still open at the press
    settle();
    QVERIFY(!grid.editor());
    QCOMPARE(grid.text(grid.rows[3], Click), QStringLiteral("new"));
    QCOMPARE(grid.focus(), QStringLiteral("4/4"));
    grid.click(grid.rows[4], Click);
    QVERIFY(grid.editor());
}

void tst_EditGestures::press_treePartsAndImage_doNotEdit()
{
    EditGrid grid;
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_EDITABLE | GCCF_TREE | GCCF_TREELINES | GCCF_CLICKEDIT;
    grid.SetColumn(grid.column(Icon), &record);
    QPixmap strip(16, 16);
    strip.fill(Qt::red);
    grid.SetImageList(GCIL_NORMAL, strip, 16, 16, 1, false);
    tag_HROW * const child = grid.add("child", grid.rows[1]);
    QVERIFY(grid.activate());
    CGCColumn * const column = grid.GetPriv().columns.find(Icon);
    CElementRects rects;
    QVERIFY(grid.GetPriv().ElementRects(grid.GetPriv().LocateRow(child), column, &rects));
    for (QRect const & part : {QRect(rects.indentRect), rects.imageRect, rects.buttonRect}) {
        QVERIFY(part.isValid());
        QTest::mouseClick(&grid, Qt::LeftButton, {}, part.center());
        QVERIFY(!grid.editor());
    }
    QTest::mouseClick(&grid, Qt::LeftButton, {}, rects.editorRect.center());
    QVERIFY(grid.editor());
    QCOMPARE(grid.editor()->geometry(), rects.editorRect);
}

void tst_EditGestures::delayed_opensAfterHalfASecond()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Delayed);
    QVERIFY(!grid.GetPriv().editTimer.isActive()); // this one selects
    QElapsedTimer clock;
    clock.start();
    grid.click(grid.rows[3], Delayed);
    QVERIFY(!grid.editor());
    QTRY_VERIFY_WITH_TIMEOUT(grid.editor(), 5000);
    QVERIFY2(clock.elapsed() >= delay - 1, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(grid.isMarked(grid.rows[3], Delayed));
    QVERIFY(!grid.GetPriv().editTimer.isActive());
    QVERIFY(!grid.GetPriv().pendingEdit.row);
}

void tst_EditGestures::delayed_doubleClick_cancels()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Delayed);
    grid.doubleClick(grid.rows[3], Delayed);
    QVERIFY(!grid.GetPriv().editTimer.isActive());
    pass(delay + 100);
    QVERIFY(!grid.editor());
}

void tst_EditGestures::delayed_anotherPress_cancels()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    for (Qt::MouseButton const button : {Qt::LeftButton, Qt::RightButton}) {
        grid.click(grid.rows[3], Plain);
        grid.click(grid.rows[3], Delayed);
        QVERIFY(grid.GetPriv().editTimer.isActive());
        QTest::mouseClick(&grid, button, {}, grid.middle(grid.rows[3], Plain));
        QVERIFY(!grid.GetPriv().editTimer.isActive());
        QVERIFY(!grid.GetPriv().pendingEdit.row);
    }
}

void tst_EditGestures::delayed_pressedAgain_waitsAnew()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Plain);
    grid.click(grid.rows[3], Delayed);
    pass(delay / 2);
    QElapsedTimer clock;
    clock.start();
    grid.click(grid.rows[3], Delayed);
    QTRY_VERIFY_WITH_TIMEOUT(grid.editor(), 5000);
    QVERIFY2(clock.elapsed() >= delay - 1, qPrintable(QString::number(clock.elapsed())));
}

void tst_EditGestures::delayed_otherPaths_cancel_data()
{
    QTest::addColumn<int>("path");
    QTest::newRow("row deleted") << 0;
    QTest::newRow("other row deleted") << 1;
    QTest::newRow("column deleted") << 2;
    QTest::newRow("all rows deleted") << 3;
    QTest::newRow("reset") << 4;
    QTest::newRow("row inserted") << 5;
    QTest::newRow("slim row reset") << 6;
}

void tst_EditGestures::delayed_otherPaths_cancel()
{
    QFETCH(int, path);
    EditGrid grid;
    EditSlim slim;
    grid.SetSlimGridCallback(&slim);
    tag_HROW * const slimRow = grid.InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Delayed);
    grid.click(grid.rows[3], Delayed);
    QVERIFY(grid.GetPriv().editTimer.isActive());
    switch (path) {
    case 0:
        QVERIFY(grid.DeleteRow(grid.rows[3]));
        break;
    case 1:
        QVERIFY(grid.DeleteRow(grid.rows[1]));
        break;
    case 2:
        QVERIFY(grid.DeleteColumn(grid.column(Delayed)));
        break;
    case 3:
        QVERIFY(grid.DeleteAllRows());
        break;
    case 4:
        QVERIFY(grid.Reset());
        break;
    case 5:
        QVERIFY(grid.InsertRow(GC_ROOT, GCI_LAST));
        break;
    default:
        QVERIFY(grid.ResetSlimRow(slimRow));
    }
    QVERIFY(!grid.GetPriv().editTimer.isActive());
    QVERIFY(!grid.GetPriv().pendingEdit.row);
}

void tst_EditGestures::delayed_cellNotEditable_startsNothing()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_DELAYEDEDIT | GCCF_CLICKEDIT;
    grid.SetColumn(grid.column(Delayed), &record);
    grid.click(grid.rows[3], Delayed);
    QVERIFY(!grid.GetPriv().editTimer.isActive());
    QVERIFY(!grid.editor());
}

void tst_EditGestures::delayed_editStartedByOtherMeans_isNotDisturbed()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    grid.click(grid.rows[3], Delayed);
    grid.click(grid.rows[3], Delayed);
    QVERIFY(grid.edit(grid.rows[3], Text));
    grid.type(QStringLiteral("new"));
    // The time is up: the open edit is saved and the cell that was clicked follows.
    QTRY_VERIFY_WITH_TIMEOUT(grid.isMarked(grid.rows[3], Delayed), 5000);
    QCOMPARE(grid.text(grid.rows[3]), QStringLiteral("new"));
    QVERIFY(grid.editor());
}

void tst_EditGestures::doubleClick_thatIsLetThrough_editsTheSelectedRow()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    EditNotes notes(&grid);
    grid.doubleClick(grid.rows[3], Text);
    QVERIFY(!grid.editor()); // stopped, as it is without an application's word
    notes.doubleClickStops = [] { return false; };
    grid.doubleClick(grid.rows[4], Text);
    QVERIFY(grid.editor());
    QVERIFY(grid.isMarked(grid.rows[4]));
}

void tst_EditGestures::typedAndLeftByTab_saves()
{
    EditGrid grid;
    QVERIFY(grid.activate());
    grid.click(grid.rows[3], Click);
    grid.type(QStringLiteral("new"));
    QTest::keyClick(grid.editor(), Qt::Key_Tab);
    settle();
    QVERIFY(!grid.editor());
    QCOMPARE(grid.text(grid.rows[3], Click), QStringLiteral("new"));
}

ZENU_TEST(tst_EditGestures)
#include "tst_EditGestures.moc"
