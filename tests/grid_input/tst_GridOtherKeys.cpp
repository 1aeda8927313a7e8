#include "tests/grid_input/KeyScene.h"

using namespace zenu;
using namespace zenutest;

class tst_GridOtherKeys : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void expandKeys_actAsTheirTableSays_data();
    void expandKeys_actAsTheirTableSays();
    void plus_onARowWithoutChildren_isToldAllTheSame();
    void expandKeys_ofASlimRow_askTheApplicationForChildren();
    void ctrlSpace_twice_deselects();
    void space_otherwise_isTakenWithoutEffect_data();
    void space_otherwise_isTakenWithoutEffect();
    void otherKeys_reachTheParent_andAreToldAll_data();
    void otherKeys_reachTheParent_andAreToldAll();
    void keys_ofAGridThatHasNothingToDoWithThem_reachTheParentUntold_data();
    void keys_ofAGridThatHasNothingToDoWithThem_reachTheParentUntold();
    void keys_withoutASink_act();
    void tab_leavesTheGrid();
    void key_endsTheHover();
    void f2_onACellThatCannotBeEdited_isTakenAndTold();
};

void tst_GridOtherKeys::expandKeys_actAsTheirTableSays_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("ctrl");
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("wasExpanded");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("order");
    int const plus = Qt::Key_Plus;
    int const minus = Qt::Key_Minus;
    QTest::newRow("+ expands") << plus << false << "a" << false << "expanding a; expanded a; key +"
                               << "a a1 b b1 c";
    QTest::newRow("+ on an open row") << plus << false << "a" << true << "expanding a; key +"
                                      << "a a1 b b1 c";
    QTest::newRow("+ on a leaf") << plus << false << "c" << true << "key +"
                                 << "a a1 b b1 c";
    QTest::newRow("- collapses") << minus << false << "a" << true
                                 << "expanding a; expanded a; key -"
                                 << "a b b1 c";
    QTest::newRow("- on a closed row") << minus << false << "a" << false << "expanding a; key -"
                                       << "a b b1 c";
    QTest::newRow("- on a leaf") << minus << false << "c" << true << "key -"
                                 << "a a1 b b1 c";
    QTest::newRow("ctrl + opens all, on a leaf too")
        << plus << true << "c" << false << "expanding a; expanded a; key +"
        << "a a1 b b1 c";
    QTest::newRow("ctrl - closes all")
        << minus << true << "c" << true << "expanding a; expanding b; expanded a; expanded b; key -"
        << "a b c";
}

void tst_GridOtherKeys::expandKeys_actAsTheirTableSays()
{
    QFETCH(int, key);
    QFETCH(bool, ctrl);
    QFETCH(QString, row);
    QFETCH(bool, wasExpanded);
    KeyScene scene(0, 0);
    std::map<QString, tag_HROW *> rows;
    for (char const * const name : {"a", "b", "c"}) {
        rows[QLatin1String(name)] = scene.grid->add(name);
    }
    scene.grid->add("a1", rows["a"]);
    scene.grid->add("b1", rows["b"]);
    if (!wasExpanded) {
        scene.grid->Expand(rows["a"], GCE_COLLAPSE);
    }
    QVERIFY(scene.showFocused());
    scene.grid->SetRowSel(rows[row], true);
    scene.notes.calls.clear();
    scene.key(key, ctrl ? Qt::ControlModifier : Qt::NoModifier);
    QTEST(scene.notes.text(), "told");
    QTEST(scene.grid->order(), "order");
    QVERIFY(scene.window.keys.isEmpty());
}

void tst_GridOtherKeys::plus_onARowWithoutChildren_isToldAllTheSame()
{
    KeyScene scene;
    QVERIFY(scene.showFocused());
    scene.key(Qt::Key_Plus);
    scene.key(Qt::Key_Plus, Qt::KeypadModifier);
    QCOMPARE(scene.notes.text(), "key +; key +");
}

void tst_GridOtherKeys::expandKeys_ofASlimRow_askTheApplicationForChildren()
{
    SlimTree source;
    KeyScene scene(0, 0);
    scene.grid->SetSlimGridCallback(&source);
    source.tree[1] = {11, 12};
    source.lonely = {11, 12};
    scene.grid->InsertSlimRow(1, true, GC_ROOT, GCI_LAST);
    QVERIFY(scene.showFocused());
    scene.key(Qt::Key_Plus);
    QCOMPARE(scene.notes.text(), "expanding s1; expanded s1; key +");
    QCOMPARE(scene.grid->order(), "s1 s11 s12");
    scene.key(Qt::Key_Down);
    scene.notes.calls.clear();
    scene.key(Qt::Key_Minus);
    QCOMPARE(scene.notes.text(), "key -"); // a leaf
    scene.key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(scene.grid->order() + scene.grid->focus(), "s1s1/0");
}

void tst_GridOtherKeys::ctrlSpace_twice_deselects()
{
    KeyScene scene;
    QVERIFY(scene.showFocused(2));
    scene.grid->SelectRows(1, scene.list.data());
    scene.notes.calls.clear();
    scene.key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(scene.grid->selected(), "r00 r02");
    scene.key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(scene.grid->selected(), "r00");
    QCOMPARE(scene.notes.text(), "selecting +r02; selected; key Space; "
                                 "selecting -r02; selected; key Space");
    scene.notes.allowSelection = false;
    scene.key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(scene.notes.text(), "selecting +r02; key Space");
    QCOMPARE(scene.grid->selected(), "r00");
}

void tst_GridOtherKeys::space_otherwise_isTakenWithoutEffect_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("ctrl");
    QTest::newRow("plain") << 0 << false;
    QTest::newRow("single, plain") << int(GCS_SINGLESEL) << false;
    QTest::newRow("single, ctrl") << int(GCS_SINGLESEL) << true;
}

void tst_GridOtherKeys::space_otherwise_isTakenWithoutEffect()
{
    QFETCH(int, style);
    QFETCH(bool, ctrl);
    KeyScene scene(style);
    QVERIFY(scene.showFocused(2));
    scene.window.keys.clear();
    scene.key(Qt::Key_Space, ctrl ? Qt::ControlModifier : Qt::NoModifier);
    QCOMPARE(scene.notes.text(), "key Space");
    QCOMPARE(scene.grid->selected(), QString());
    QVERIFY(!scene.window.keys.contains(Qt::Key_Space));
}

void tst_GridOtherKeys::otherKeys_reachTheParent_andAreToldAll_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("a letter") << int(Qt::Key_X);
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("Delete") << int(Qt::Key_Delete);
    QTest::newRow("F3") << int(Qt::Key_F3);
    QTest::newRow("asterisk") << int(Qt::Key_Asterisk);
}

void tst_GridOtherKeys::otherKeys_reachTheParent_andAreToldAll()
{
    QFETCH(int, key);
    KeyScene scene;
    QVERIFY(scene.showFocused());
    scene.key(key);
    QCOMPARE(scene.notes.text(), QStringLiteral("key ") + nameOf(key));
    QCOMPARE(scene.window.keys, QList<int>{key});
}

void tst_GridOtherKeys::keys_ofAGridThatHasNothingToDoWithThem_reachTheParentUntold_data()
{
    QTest::addColumn<QString>("without");
    for (char const * const what : {"rows", "columns", "focus", "a focused column"}) {
        QTest::newRow(what) << what;
    }
}

void tst_GridOtherKeys::keys_ofAGridThatHasNothingToDoWithThem_reachTheParentUntold()
{
    QFETCH(QString, without);
    KeyScene scene;
    QVERIFY(scene.showFocused());
    KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
    if (without == QStringLiteral("rows")) {
        for (tag_HROW * const row : scene.list) {
            QVERIFY(scene.grid->DeleteRow(row)); // the last one with the focus
        }
    } else if (without == QStringLiteral("columns")) {
        while (scene.grid->GetColumnsCount() != 0) {
            scene.grid->DeleteColumn(scene.grid->firstColumn());
        }
    } else if (without == QStringLiteral("focus")) {
        frame.ClearFocus();
    } else {
        frame.focusColumn = 5;
    }
    scene.notes.calls.clear();
    QList<int> sent;
    for (int const key : {int(Qt::Key_Down), int(Qt::Key_End), int(Qt::Key_Left), int(Qt::Key_Plus),
                          int(Qt::Key_Space), int(Qt::Key_F2), int(Qt::Key_X)}) {
        scene.key(key);
        sent << key;
    }
    QCOMPARE(scene.notes.text(), QString());
    QCOMPARE(scene.window.keys, sent);
    QCOMPARE(checkGrid(*scene.grid), QString());
}

void tst_GridOtherKeys::keys_withoutASink_act()
{
    KeyScene scene;
    QVERIFY(scene.showFocused());
    scene.grid->setNotification(nullptr);
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(scene.grid->selected(), "r01 r02");
}

void tst_GridOtherKeys::tab_leavesTheGrid()
{
    KeyScene scene;
    QVERIFY(scene.showFocused());
    scene.key(Qt::Key_Tab);
    QVERIFY(scene.other->hasFocus());
    QCOMPARE(scene.notes.text(), "focusout");
}

void tst_GridOtherKeys::key_endsTheHover()
{
    KeyScene scene;
    QVERIFY(scene.showFocused());
    KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
    frame.hover = {frame.GetRowAt(1), frame.shownColumns[0]->Handle()};
    frame.hover.row->SetHotCell(frame.shownColumns[0]);
    scene.key(Qt::Key_X);
    QVERIFY(!frame.hover.row);
}

void tst_GridOtherKeys::f2_onACellThatCannotBeEdited_isTakenAndTold()
{
    KeyScene scene;
    QVERIFY(scene.showFocused());
    scene.key(Qt::Key_F2);
    QCOMPARE(scene.notes.text(), "key F2");
    QVERIFY(scene.window.keys.isEmpty());
}

ZENU_TEST(tst_GridOtherKeys)
#include "tst_GridOtherKeys.moc"
