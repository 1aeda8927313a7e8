#include "tests/grid_input/InputFixture.h"

#include <QElapsedTimer>

using namespace zenu;
using namespace zenutest;

class tst_GridTypeAhead : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void prefix_findsTheNextRow_data();
    void prefix_findsTheNextRow();
    void match_movesFocusSelectsAndScrolls();
    void noMatch_changesNothing();
    void refusedSelection_leavesTheFocusMoved();
    void keyIsSearchedBeforeItIsLookedUp_andReachesTheParent();
    void columnWithoutTheFlag_runsNoSearch();
    void searchGoesByTheFocusedColumn();
    void keysThatAreNoLettersOrDigits_addNothing_data();
    void keysThatAreNoLettersOrDigits_addNothing();
    void prefixIsForgotten_halfASecondAfterTheLastKey();
    void anyPress_forgetsThePrefix_data();
    void anyPress_forgetsThePrefix();
    void movementKeys_keepThePrefix();
    void focusedRowOutOfTheOrder_searchesFromTheFirst();
    void texts_comeFromWhereverTheyComeFrom();
    void text_isAskedForAndNotKept();
    void textFunction_thatCollapsesRows_endsTheSearch();
    void emptyGrid_searchesNothing();
};

namespace {

struct Scene : InputWindow
{
    explicit Scene(QStringList const & names = {"anna", "bert", "Berta", "beryl", "carl", "b2b"},
                   unsigned flags = GCCF_TYPEAHEAD, long style = 0)
        : InputWindow(style)
        , notes(grid)
    {
        column = grid->addKind(GCCK_TEXT, 100, flags);
        for (QString const & name : names) {
            list.push_back(grid->add(name.toLatin1().constData()));
        }
    }
    bool showFocused(int row = 0)
    {
        if (!show()) {
            return false;
        }
        grid->GetPriv().MoveFocus(row, 0);
        focusGrid();
        notes.calls.clear();
        return true;
    }
    QString focus() const { return grid->focus().section(u'/', 0, 0); }
    std::string const & prefix() const { return grid->GetPriv().typeAhead; }

    InputNotes notes;
    tag_HCOLUMN * column;
    std::vector<tag_HROW *> list;
};

} // namespace

void tst_GridTypeAhead::prefix_findsTheNextRow_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");
    QTest::newRow("one key looks past the current row") << 1 << "b"
                                                        << "Berta";
    QTest::newRow("one key finds the first one after") << 0 << "b"
                                                       << "bert";
    QTest::newRow("around the end") << 5 << "a"
                                    << "anna";
    QTest::newRow("one key comes back to the row itself last") << 4 << "c"
                                                               << "carl";
    QTest::newRow("a longer prefix can stay") << 0 << "ber"
                                              << "bert";
    QTest::newRow("a longer prefix goes on") << 0 << "bery"
                                             << "beryl";
    QTest::newRow("case is no matter") << 0 << "BERTA"
                                       << "Berta";
    QTest::newRow("digits") << 0 << "b2"
                            << "b2b";
    QTest::newRow("a row shorter than the prefix is none") << 0 << "berta"
                                                           << "Berta";
    QTest::newRow("no row is as long") << 0 << "carla"
                                       << "carl";
    QTest::newRow("the same key twice is a prefix of two") << 0 << "bb"
                                                           << "bert";
}

void tst_GridTypeAhead::prefix_findsTheNextRow()
{
    QFETCH(int, from);
    QFETCH(QString, typed);
    Scene scene;
    QVERIFY(scene.showFocused(from));
    scene.type(typed.toLatin1().constData());
    QTEST(scene.focus(), "found");
    QCOMPARE(QString::fromStdString(scene.prefix()), typed);
}

void tst_GridTypeAhead::match_movesFocusSelectsAndScrolls()
{
    QStringList names;
    for (int i = 0; i < 40; ++i) {
        names << QStringLiteral("row");
    }
    Scene scene(names << "x");
    for (int i = 0; i < 4; ++i) {
        scene.grid->addKind(GCCK_TEXT, 100);
    }
    QVERIFY(scene.showFocused(3));
    scene.grid->SelectAll();
    scene.grid->GetPriv().anchorIndex = 7;
    scene.grid->OnScroll(KScrolledWidget::ScrollLineForward, -1, 0, true);
    QVERIFY(scene.grid->GetPriv().hScrollPos > 0);
    scene.notes.calls.clear();
    scene.grid->ClearSelection();
    scene.notes.calls.clear();
    scene.notes.notesScrolling = true;
    scene.type("x");
    QCOMPARE(scene.notes.text(), "selecting +x; selected; scrolling; scrolled; scrolling; "
                                 "scrolled; key X");
    QCOMPARE(scene.focus() + scene.grid->selected(), "xx");
    KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
    QVERIFY(frame.GetTopIndex() + frame.GetShownCount() >= 41);
    QCOMPARE(frame.hScrollPos, 0); // no style asks for that
    QCOMPARE(frame.anchorIndex, 7);
}

void tst_GridTypeAhead::noMatch_changesNothing()
{
    Scene scene;
    QVERIFY(scene.showFocused(2));
    scene.type("bz");
    QCOMPARE(scene.notes.text(), "selecting +beryl; selected; key B; key Z");
    QCOMPARE(scene.focus(), "beryl");
    QCOMPARE(scene.grid->selected(), "beryl");
}

void tst_GridTypeAhead::refusedSelection_leavesTheFocusMoved()
{
    Scene scene;
    QVERIFY(scene.showFocused());
    scene.notes.allowSelection = false;
    scene.type("c");
    QCOMPARE(scene.notes.text(), "selecting +carl; key C");
    QCOMPARE(scene.focus() + scene.grid->selected(), "carl");
}

void tst_GridTypeAhead::keyIsSearchedBeforeItIsLookedUp_andReachesTheParent()
{
    Scene scene;
    QVERIFY(scene.showFocused());
    QStringList inKey;
    scene.notes.act = [&](QString const & what) {
        if (what == QStringLiteral("key")) {
            inKey << scene.focus();
        }
    };
    scene.type("c");
    QCOMPARE(inKey, QStringList{"carl"});
    QCOMPARE(scene.window.keys, QList<int>{Qt::Key_C});
}

void tst_GridTypeAhead::columnWithoutTheFlag_runsNoSearch()
{
    Scene scene({"anna", "bert"}, 0);
    QVERIFY(scene.showFocused());
    scene.type("b");
    QCOMPARE(scene.notes.text(), "key B");
    QCOMPARE(scene.focus(), "anna");
    QVERIFY(scene.prefix().empty());
    QVERIFY(!scene.grid->GetPriv().searchTimer.isActive());
    QCOMPARE(scene.window.keys, QList<int>{Qt::Key_B});
}

void tst_GridTypeAhead::searchGoesByTheFocusedColumn()
{
    Scene scene({"anna", "bert", "carl"}, 0);
    tag_HCOLUMN * const towns = scene.grid->addKind(GCCK_TEXT, 80, GCCF_TYPEAHEAD);
    scene.grid->SetItemText(scene.list[2], towns, "berlin");
    QVERIFY(scene.showFocused());
    scene.type("b");
    QCOMPARE(scene.grid->focus(), "anna/0");
    scene.grid->GetPriv().MoveFocus(0, 1);
    scene.type("b");
    QCOMPARE(scene.grid->focus(), "carl/1");
}

void tst_GridTypeAhead::keysThatAreNoLettersOrDigits_addNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("keys");
    QTest::addColumn<QString>("text");
    QTest::newRow("space") << int(Qt::Key_Space) << 0 << " ";
    QTest::newRow("hyphen") << int(Qt::Key_Minus) << 0 << "-";
    QTest::newRow("a letter beyond ASCII") << int(Qt::Key_Adiaeresis) << 0 << QString(QChar(0xe4));
    QTest::newRow("a letter beyond Latin-1") << 0 << 0 << QString(QChar(0x431));
    QTest::newRow("ctrl and a letter, as a control character")
        << int(Qt::Key_B) << int(Qt::ControlModifier) << QString(QChar(2));
    QTest::newRow("ctrl and a letter, as the letter")
        << int(Qt::Key_B) << int(Qt::ControlModifier) << "b";
    QTest::newRow("Down") << int(Qt::Key_Down) << 0 << "";
    QTest::newRow("Return") << int(Qt::Key_Return) << 0 << "\r";
}

void tst_GridTypeAhead::keysThatAreNoLettersOrDigits_addNothing()
{
    QFETCH(int, key);
    QFETCH(int, keys);
    QFETCH(QString, text);
    Scene scene;
    QVERIFY(scene.showFocused());
    QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(keys), text);
    QCoreApplication::sendEvent(scene.grid, &event);
    QVERIFY(scene.prefix().empty());
    QVERIFY(!scene.grid->GetPriv().searchTimer.isActive());
}

void tst_GridTypeAhead::prefixIsForgotten_halfASecondAfterTheLastKey()
{
    Scene scene;
    QVERIFY(scene.showFocused());
    scene.type("b");
    QCOMPARE(scene.focus(), "bert");
    QElapsedTimer clock;
    clock.start();
    QVERIFY(QTest::qWaitFor([&] { return scene.prefix().empty(); }, 5000));
    QVERIFY(clock.elapsed() >= 350); // the wait began after the key
    QVERIFY(!scene.grid->GetPriv().searchTimer.isActive());
    scene.type("b"); // a first key again, so past the current row
    QCOMPARE(scene.focus(), "Berta");
    // Each key begins the half second anew.
    clock.restart();
    QVERIFY(QTest::qWaitFor([&] { return clock.elapsed() > 300; }, 5000));
    scene.type("e");
    clock.restart();
    QVERIFY(QTest::qWaitFor([&] { return scene.prefix().empty(); }, 5000));
    QVERIFY(clock.elapsed() >= 350);
}

void tst_GridTypeAhead::anyPress_forgetsThePrefix_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("twice");
    QTest::addColumn<bool>("inside");
    QTest::newRow("left") << int(Qt::LeftButton) << false << true;
    QTest::newRow("right") << int(Qt::RightButton) << false << true;
    QTest::newRow("double") << int(Qt::LeftButton) << true << true;
    QTest::newRow("left, outside") << int(Qt::LeftButton) << false << false;
    QTest::newRow("right, outside") << int(Qt::RightButton) << false << false;
}

void tst_GridTypeAhead::anyPress_forgetsThePrefix()
{
    QFETCH(int, button);
    QFETCH(bool, twice);
    QFETCH(bool, inside);
    Scene scene;
    QVERIFY(scene.showFocused());
    scene.type("b");
    QCOMPARE(scene.prefix(), "b");
    scene.notes.allowClick = false; // even one that is refused
    QPoint const point = inside ? cellPoint(*scene.grid, scene.list[3]) : QPoint(20, 200);
    if (twice) {
        QMouseEvent event(QEvent::MouseButtonDblClick, point, scene.grid->mapToGlobal(point),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.grid, &event);
    } else {
        scene.click(point, static_cast<Qt::MouseButton>(button));
    }
    QVERIFY(scene.prefix().empty());
    QVERIFY(!scene.grid->GetPriv().searchTimer.isActive());
}

void tst_GridTypeAhead::movementKeys_keepThePrefix()
{
    Scene scene;
    QVERIFY(scene.showFocused());
    scene.type("b");
    scene.key(Qt::Key_Home);
    scene.type("e");
    QCOMPARE(scene.prefix(), "be");
    QCOMPARE(scene.focus(), "bert");
}

void tst_GridTypeAhead::focusedRowOutOfTheOrder_searchesFromTheFirst()
{
    Scene scene({"bert"});
    tag_HROW * const child = scene.grid->add("child", scene.list[0]);
    scene.grid->add("bea");
    QVERIFY(scene.showFocused());
    scene.grid->SetRowSel(child, true);
    scene.grid->GetPriv().LocateRow(scene.list[0])->CollapseRow();
    scene.grid->GetPriv().Invalidate();
    QCOMPARE(scene.grid->order() + u' ' + scene.focus(), "bert bea child");
    scene.type("b");
    QCOMPARE(scene.focus(), "bert");
}

void tst_GridTypeAhead::texts_comeFromWhereverTheyComeFrom()
{
    SlimTree source;
    Scene scene({"anna"});
    scene.grid->SetSlimGridCallback(&source);
    scene.grid->InsertSlimRow(7, false, GC_ROOT, GCI_LAST);
    tag_HROW * const section = scene.grid->InsertSection(nullptr, GCI_LAST);
    GC_SECTION title;
    title.mask = GCRM_SECTIONTEXT;
    title.text = const_cast<char *>("title");
    scene.grid->SetSection(section, &title);
    tag_HROW * const asked = scene.grid->InsertRow(GC_ROOT, GCI_LAST);
    scene.grid->SetItemText(asked, scene.column, GC_TEXTCALLBACK);
    scene.grid->SetTextCallback(
        [](unsigned long, tag_HROW *, tag_HCOLUMN *, long) -> char const * { return "far"; }, 0);
    scene.grid->InsertRow(GC_ROOT, GCI_LAST); // without a text
    QVERIFY(scene.showFocused());
    KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
    struct
    {
        char const * key;
        int row;
    } const wanted[] = {{"s", 1}, {"t", 2}, {"f", 3}, {"a", 0}};
    for (auto const & each : wanted) {
        frame.ResetTypeAhead();
        scene.type(each.key);
        QCOMPARE(frame.GetFocusedIndex(), each.row);
    }
}

void tst_GridTypeAhead::text_isAskedForAndNotKept()
{
    Scene scene({"anna"});
    static int asked = 0;
    asked = 0;
    scene.grid->SetTextCallback(
        [](unsigned long, tag_HROW *, tag_HCOLUMN *, long) -> char const * {
            ++asked;
            return "zoe";
        },
        0);
    QVERIFY(scene.showFocused());
    tag_HROW * const row = scene.grid->InsertRow(GC_ROOT, GCI_LAST);
    scene.grid->SetItemText(row, scene.column, GC_TEXTCALLBACK);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Q, Qt::NoModifier, QStringLiteral("q"));
    QCoreApplication::sendEvent(scene.grid, &event); // no match, and nothing painted yet
    QCOMPARE(asked, 1);
    GC_ITEM item;
    item.mask = GCIM_STATE;
    item.stateMask = GCIS_CACHEDTEXT;
    scene.grid->GetItem(row, scene.column, &item);
    QVERIFY((item.state & GCIS_CACHEDTEXT) == 0);
}

void tst_GridTypeAhead::textFunction_thatCollapsesRows_endsTheSearch()
{
    Scene scene({"anna"});
    for (int i = 0; i < 5; ++i) {
        tag_HROW * const row = scene.grid->InsertRow(scene.list[0], GCI_LAST);
        scene.grid->SetItemText(row, scene.column, GC_TEXTCALLBACK);
    }
    static TestGrid * grid = nullptr;
    static tag_HROW * parent = nullptr;
    static bool collapses = false;
    grid = scene.grid;
    parent = scene.list[0];
    QVERIFY(scene.showFocused());
    scene.grid->SetTextCallback(
        [](unsigned long, tag_HROW *, tag_HCOLUMN *, long) -> char const * {
            if (collapses) {
                collapses = false;
                grid->Expand(parent, GCE_COLLAPSE);
            }
            return "other";
        },
        0);
    for (int i = 1; i < 6; ++i) { // what was painted is kept no longer
        scene.grid->SetItemText(scene.grid->GetPriv().GetRowAt(i)->Handle(), scene.column,
                                GC_TEXTCALLBACK);
    }
    collapses = true;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier, QStringLiteral("b"));
    QCoreApplication::sendEvent(scene.grid, &event);
    QVERIFY(!collapses);
    QCOMPARE(scene.focus(), "anna");
    QCOMPARE(checkGrid(*scene.grid), QString());
    scene.grid->SetTextCallback(nullptr, 0);
}

void tst_GridTypeAhead::emptyGrid_searchesNothing()
{
    Scene scene(QStringList{});
    QVERIFY(scene.showFocused());
    scene.type("a");
    QVERIFY(scene.prefix().empty());
    QCOMPARE(scene.window.keys, QList<int>{Qt::Key_A});
}

ZENU_TEST(tst_GridTypeAhead)
#include "tst_GridTypeAhead.moc"
