#include "tests/grid_input/InputModel.h"
#include "tests/grid_input/KeyScene.h"

using namespace zenu;
using namespace zenutest;

class tst_GridKeys : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void movementKey_movesSelectsAndScrolls_asTheRulesSay_data();
    void movementKey_movesSelectsAndScrolls_asTheRulesSay();
    void pageKeys_moveByTheRowsOnDisplay();
    void pageDownOnTheLastRow_andUpOnTheFirst_stay();
    void shiftDown_afterCtrlDown_startsAtTheRowThatCtrlDownMovedTo();
    void shift_inASingleSelection_hasNoEffect();
    void leftAndRight_stopAtTheNextColumnThatIsMarked_data();
    void leftAndRight_stopAtTheNextColumnThatIsMarked();
    void autoScroll_bringsInTheCellBeforeAnythingIsAsked();
    void withoutAutoScroll_theRowComesInLastAndColumnsStay();
    void focusedRowOutOfTheOrder_movesFromBeforeTheFirstRow_data();
    void focusedRowOutOfTheOrder_movesFromBeforeTheFirstRow();
    void refusedSelection_leavesTheFocusMoved();
    void key_comesAfterChangesOfTheTree();
};

void tst_GridKeys::movementKey_movesSelectsAndScrolls_asTheRulesSay_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("keys");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("anchor");
    for (int const style :
         {0, int(GCS_SINGLESEL), int(GCS_AUTOHSCROLL), int(GCS_SINGLESEL | GCS_AUTOHSCROLL)}) {
        for (int const key : movementKeys) {
            for (int keys = 0; keys < 4; ++keys) {
                for (int const row : {0, 7, 29}) {
                    for (int const anchor : {-1, 12}) {
                        QTest::addRow("%s%s%s%s%s from %d, anchor %d", keys & 1 ? "shift " : "",
                                      keys & 2 ? "ctrl " : "", qPrintable(nameOf(key)),
                                      style & GCS_SINGLESEL ? " single" : "",
                                      style & GCS_AUTOHSCROLL ? " scrolling" : "", row, anchor)
                            << style << key << keys << row << anchor;
                    }
                }
            }
        }
    }
}

void tst_GridKeys::movementKey_movesSelectsAndScrolls_asTheRulesSay()
{
    QFETCH(int, style);
    QFETCH(int, key);
    QFETCH(int, keys);
    QFETCH(int, row);
    QFETCH(int, anchor);
    KeyScene scene(style);
    QVERIFY(scene.showFocused(row, 2));
    KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
    frame.anchorIndex = anchor;
    scene.grid->SelectRows(2, scene.list.data() + 5);
    scene.notes.calls.clear();
    InputModel model;
    model.order = scene.names;
    model.selection = {"r05", "r06"};
    model.focusRow = row;
    model.focusColumn = 2;
    model.anchor = anchor;
    model.singleSelection = (style & GCS_SINGLESEL) != 0;

    int const page = static_cast<int>(scene.grid->GetVisibleCount());
    QVERIFY(page > 3 && page < 15);
    std::map<int, int> const targets{{Qt::Key_Home, 0},
                                     {Qt::Key_End, 29},
                                     {Qt::Key_Up, row - 1},
                                     {Qt::Key_Down, row + 1},
                                     {Qt::Key_PageUp, row - page},
                                     {Qt::Key_PageDown, row + page}};
    auto const target = targets.find(key);
    int const newRow = target == targets.end() ? row : std::clamp(target->second, 0, 29);
    int const newColumn = key == Qt::Key_Left ? 0 : (key == Qt::Key_Right ? 3 : 2);
    bool const shift = keys & 1;
    bool const ctrl = keys & 2;
    scene.key(key, (shift ? Qt::ShiftModifier : Qt::NoModifier) |
                       (ctrl ? Qt::ControlModifier : Qt::NoModifier));
    model.moved(newRow, newColumn, shift, ctrl);
    model.calls << QStringLiteral("key ") + nameOf(key);

    QCOMPARE(scene.notes.text(), model.calls.join(QStringLiteral("; ")));
    QCOMPARE(scene.grid->selected(), model.sortedSelection());
    QCOMPARE(scene.grid->focus(), QStringLiteral("%1/%2").arg(scene.names[newRow]).arg(newColumn));
    QCOMPARE(frame.anchorIndex, model.anchor);
    if (newRow != row || newColumn != 2) {
        int const top = frame.GetTopIndex();
        QVERIFY(newRow >= top && newRow < top + page);
    }
    CGCColumn const * const column = frame.ShownColumn(newColumn);
    if ((style & GCS_AUTOHSCROLL) && (newRow != row || newColumn != 2)) {
        QVERIFY(column->left >= frame.hScrollPos);
        QVERIFY(column->Right() - frame.hScrollPos <= frame.ClientRect().right());
    } else if (!(style & GCS_AUTOHSCROLL)) {
        QCOMPARE(frame.hScrollPos, 0);
    }
    QVERIFY(scene.window.keys.isEmpty());
    QCOMPARE(checkGrid(*scene.grid), QString());
}

void tst_GridKeys::pageKeys_moveByTheRowsOnDisplay()
{
    KeyScene scene;
    for (std::size_t i = 0; i < scene.list.size(); i += 2) {
        scene.grid->SetRowHeight(scene.list[i], 45);
    }
    QVERIFY(scene.showFocused());
    int focus = 0;
    for (int i = 0; i < 5; ++i) {
        int const page = static_cast<int>(scene.grid->GetVisibleCount());
        scene.key(Qt::Key_PageDown);
        focus = std::min(focus + page, 29);
        QCOMPARE(scene.grid->focus(), scene.names[focus] + QStringLiteral("/0"));
    }
    for (int i = 0; i < 3; ++i) {
        int const page = static_cast<int>(scene.grid->GetVisibleCount());
        scene.key(Qt::Key_PageUp);
        focus = std::max(focus - page, 0);
        QCOMPARE(scene.grid->focus(), scene.names[focus] + QStringLiteral("/0"));
    }
}

void tst_GridKeys::pageDownOnTheLastRow_andUpOnTheFirst_stay()
{
    KeyScene scene;
    QVERIFY(scene.showFocused(29));
    scene.key(Qt::Key_PageDown);
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_End);
    QCOMPARE(scene.grid->focus(), "r29/0");
    QCOMPARE(scene.notes.text(), "key PgDown; key Down; key End");
    scene.grid->GetPriv().MoveFocus(0, 0);
    scene.key(Qt::Key_Up);
    scene.key(Qt::Key_PageUp);
    scene.key(Qt::Key_Home);
    QCOMPARE(scene.grid->focus(), "r00/0");
    QCOMPARE(scene.notes.text(), "key Up; key PgUp; key Home");
}

void tst_GridKeys::shiftDown_afterCtrlDown_startsAtTheRowThatCtrlDownMovedTo()
{
    KeyScene scene;
    QVERIFY(scene.showFocused(3));
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected(), "r03 r04");
    scene.key(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(scene.grid->selected(), "r03 r04");
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected(), "r05 r06");
    scene.key(Qt::Key_Up, Qt::ShiftModifier);
    scene.key(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected(), "r04 r05");
    // With both the range's start stays and the focus moves alone.
    scene.key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected() + scene.grid->focus(), "r04 r05r05/0");
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected(), "r05 r06");
}

void tst_GridKeys::shift_inASingleSelection_hasNoEffect()
{
    KeyScene scene(GCS_SINGLESEL);
    QVERIFY(scene.showFocused(3));
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected(), "r05");
    scene.key(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(scene.grid->selected(), "r06");
}

void tst_GridKeys::leftAndRight_stopAtTheNextColumnThatIsMarked_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("to");
    QTest::newRow("right passes over one") << 0 << int(Qt::Key_Right) << 2;
    QTest::newRow("right to the next") << 2 << int(Qt::Key_Right) << 3;
    QTest::newRow("right with none further right") << 3 << int(Qt::Key_Right) << 3;
    QTest::newRow("right from the last") << 4 << int(Qt::Key_Right) << 4;
    QTest::newRow("left passes over one") << 2 << int(Qt::Key_Left) << 0;
    QTest::newRow("left from one that is not marked") << 4 << int(Qt::Key_Left) << 3;
    QTest::newRow("left with none further left") << 0 << int(Qt::Key_Left) << 0;
}

void tst_GridKeys::leftAndRight_stopAtTheNextColumnThatIsMarked()
{
    QFETCH(int, from);
    QFETCH(int, key);
    QFETCH(int, to);
    KeyScene scene;
    QVERIFY(scene.showFocused(2, from));
    scene.grid->GetPriv().anchorIndex = 1;
    scene.key(key);
    QCOMPARE(scene.grid->focus(), QStringLiteral("r02/%1").arg(to));
    QCOMPARE(scene.notes.text(), QStringLiteral("key ") + nameOf(key)); // the row is the same
    QCOMPARE(scene.grid->GetPriv().anchorIndex, 1);

    // By their places on display, and past hidden ones.
    tag_HCOLUMN * order[5];
    QVERIFY(scene.grid->GetColumnOrderArray(order, 5));
    scene.grid->ShowColumn(order[0], false);
    std::swap(order[1], order[2]);
    QVERIFY(scene.grid->SetColumnOrderArray(order, 5)); // 2 1 3 4 on display
    scene.grid->GetPriv().MoveFocus(2, 1);
    scene.key(Qt::Key_Left);
    QCOMPARE(scene.grid->focus(), "r02/2");
    scene.key(Qt::Key_Right);
    QCOMPARE(scene.grid->focus(), "r02/3");
}

void tst_GridKeys::autoScroll_bringsInTheCellBeforeAnythingIsAsked()
{
    KeyScene scene(GCS_AUTOHSCROLL);
    QVERIFY(scene.showFocused());
    scene.notes.notesScrolling = true;
    scene.key(Qt::Key_End);
    QCOMPARE(scene.notes.text(),
             "scrolling; scrolled; selecting +r29; selected; scrolling; scrolled; key End");
    scene.key(Qt::Key_Right);
    scene.key(Qt::Key_Right);
    QVERIFY(scene.notes.text().startsWith(QStringLiteral("scrolling; scrolled;")));
    QVERIFY(scene.grid->GetPriv().hScrollPos > 0);
}

void tst_GridKeys::withoutAutoScroll_theRowComesInLastAndColumnsStay()
{
    KeyScene scene;
    QVERIFY(scene.showFocused());
    scene.notes.notesScrolling = true;
    scene.key(Qt::Key_End);
    QCOMPARE(scene.notes.text(), "selecting +r29; selected; scrolling; scrolled; key End");
    scene.key(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(scene.notes.text(), "scrolling; scrolled; key Home");
    scene.grid->OnScroll(-1, KScrolledWidget::ScrollToEnd, 0, true);
    scene.notes.taken();
    scene.key(Qt::Key_Right); // a move within the row brings the row in
    QCOMPARE(scene.notes.text(), "scrolling; scrolled; key Right");
    QCOMPARE(scene.grid->GetPriv().GetTopIndex(), 0);
    QCOMPARE(scene.grid->GetPriv().hScrollPos, 0);
}

void tst_GridKeys::focusedRowOutOfTheOrder_movesFromBeforeTheFirstRow_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<QString>("selected");
    QTest::newRow("Down") << int(Qt::Key_Down) << false << "a/0"
                          << "a";
    QTest::newRow("Up") << int(Qt::Key_Up) << false << "a/0"
                        << "a";
    QTest::newRow("End") << int(Qt::Key_End) << false << "b/0"
                         << "b";
    QTest::newRow("Shift and End: there is no range") << int(Qt::Key_End) << true << "b/0"
                                                      << "b";
    QTest::newRow("Left") << int(Qt::Key_Left) << false << "a/0"
                          << "a";
}

// A veto of one collapse among many can leave the focus in a row that is not shown.
void tst_GridKeys::focusedRowOutOfTheOrder_movesFromBeforeTheFirstRow()
{
    QFETCH(int, key);
    QFETCH(bool, shift);
    KeyScene scene(0, 0);
    tag_HROW * const a = scene.grid->add("a");
    tag_HROW * const a1 = scene.grid->add("a1", a);
    tag_HROW * const deep = scene.grid->add("deep", a1);
    scene.grid->add("b");
    QVERIFY(scene.showFocused());
    scene.grid->SetRowSel(deep, true);
    scene.grid->ClearSelection();
    scene.notes.act = [&](QString const &) { scene.notes.allowExpand = true; };
    scene.notes.allowExpand = false; // of the first row alone
    scene.grid->Expand(nullptr, GCE_COLLAPSEALL);
    scene.notes.act = nullptr;
    QCOMPARE(scene.grid->order() + u' ' + scene.grid->focus(), "a a1 b deep/0");
    scene.key(key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    QTEST(scene.grid->focus(), "focus");
    QTEST(scene.grid->selected(), "selected");
}

void tst_GridKeys::refusedSelection_leavesTheFocusMoved()
{
    KeyScene scene;
    QVERIFY(scene.showFocused());
    scene.notes.allowSelection = false;
    scene.key(Qt::Key_Down);
    QCOMPARE(scene.notes.text(), "selecting +r01; key Down");
    QCOMPARE(scene.grid->selected() + scene.grid->focus(), "r01/0");
}

// The order waits for its rebuild when the key comes.
void tst_GridKeys::key_comesAfterChangesOfTheTree()
{
    KeyScene scene(0, 4);
    QVERIFY(scene.showFocused(1));
    scene.grid->add("new", GC_ROOT, scene.list[1]);
    scene.key(Qt::Key_Down);
    QCOMPARE(scene.grid->focus(), "new/0");
    scene.grid->DeleteRow(scene.list[2]);
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected(), "new r03");
}

ZENU_TEST(tst_GridKeys)
#include "tst_GridKeys.moc"
