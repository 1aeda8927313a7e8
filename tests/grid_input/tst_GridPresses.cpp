#include "tests/grid_input/InputFixture.h"
#include "tests/grid_input/InputModel.h"

using namespace zenu;
using namespace zenutest;

using Press = InputModel::Press;
Q_DECLARE_METATYPE(zenutest::InputModel::Press)

// Every press on every element with every modifier, against the rules written down in InputModel.
class tst_GridPresses : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void press_selectsAndTells_asTheRulesSay_data();
    void press_selectsAndTells_asTheRulesSay();
    void shiftPress_extendsFromTheAnchor_data();
    void shiftPress_extendsFromTheAnchor();
    void randomPressesAndMoves_followTheRules_data();
    void randomPressesAndMoves_followTheRules();
};

namespace {

struct Button
{
    Press kind;
    char const * name;
};
constexpr Button buttons[] = {
    {Press::Left, "left"}, {Press::Right, "right"}, {Press::Double, "double"}};

struct Keys
{
    Qt::KeyboardModifiers keys;
    char const * name;
    bool shift() const { return keys.testFlag(Qt::ShiftModifier); }
    bool ctrl() const { return keys.testFlag(Qt::ControlModifier); }
};
Keys const modifiers[] = {{Qt::NoModifier, "plain"},
                          {Qt::ControlModifier, "ctrl"},
                          {Qt::ShiftModifier, "shift"},
                          {Qt::ControlModifier | Qt::ShiftModifier, "ctrl+shift"}};

// Rows a, p (under a, with a child p1), p1, b, c; column 0 has all elements, column 1 a text.
struct Scene : InputWindow
{
    explicit Scene(long style)
        : InputWindow(style)
    {
        grid->SetImageList(GCIL_NORMAL, QPixmap(10, 10), 10, 10, 1, false);
        grid->SetImageList(GCIL_LEAD, QPixmap(8, 8), 8, 8, 1, false);
        grid->addKind(GCCK_CHECKBOXWITHICON, 180, GCCF_TREE | GCCF_TREELINES | GCCF_LEAD);
        grid->addKind(GCCK_TEXT, 90);
        a = grid->add("a");
        p = grid->add("p", a);
        p1 = grid->add("p1", p);
        b = grid->add("b");
        c = grid->add("c");
        model.order = QStringList{"a", "p", "p1", "b", "c"};
        model.singleSelection = (style & GCS_SINGLESEL) != 0;
    }

    tag_HROW * rowAt(int index) const { return grid->GetPriv().GetRowAt(index)->Handle(); }
    tag_HCOLUMN * column(int id) const { return grid->GetPriv().columns.all()[id]->Handle(); }

    // Takes the grid's state for the model's.
    void select(QStringList const & names, int focus)
    {
        grid->GetPriv().MoveFocus(focus, 0);
        grid->ClearSelection();
        for (QString const & name : names) {
            tag_HROW * row = rowAt(static_cast<int>(model.order.indexOf(name)));
            grid->SelectRows(1, &row);
        }
        model.selection = QSet<QString>(names.begin(), names.end());
        model.focusRow = focus;
        model.focusColumn = 0;
    }

    InputModel::Place place(int row, int col, unsigned element) const
    {
        InputModel::Place at;
        at.row = row;
        at.column = col;
        at.element = element;
        at.hasChildren = row == 0 || model.order[row] == QStringLiteral("p");
        at.treeColumn = at.checkBox = col == 0;
        return at;
    }

    // With the button still down, but for a double click.
    void send(Press kind, QPoint const & point, Qt::KeyboardModifiers keys)
    {
        if (kind == Press::Double) {
            doubleClick(point, Qt::LeftButton, keys);
        } else {
            press(point, kind == Press::Left ? Qt::LeftButton : Qt::RightButton, keys);
        }
    }

    QString state() const
    {
        KGridCtrl::PrivateData const & frame = grid->GetPriv();
        return QStringLiteral("selected %1, focus %2, anchor %3, move %4")
            .arg(grid->selected(), grid->focus())
            .arg(frame.anchorIndex)
            .arg(frame.pressState == KGridCtrl::PrivateData::PressState::AwaitsMove);
    }
    QString wanted() const
    {
        QString const name = model.focusRow == -1 ? "-" : model.order[model.focusRow];
        return QStringLiteral("selected %1, focus %2/%3, anchor %4, move %5")
            .arg(model.sortedSelection(), name)
            .arg(model.focusColumn)
            .arg(model.anchor)
            .arg(model.awaitsMove);
    }

    tag_HROW * a;
    tag_HROW * p;
    tag_HROW * p1;
    tag_HROW * b;
    tag_HROW * c;
    InputModel model;
};

} // namespace

void tst_GridPresses::press_selectsAndTells_asTheRulesSay_data()
{
    QTest::addColumn<Press>("kind");
    QTest::addColumn<int>("keys");
    QTest::addColumn<QStringList>("selected");
    QTest::addColumn<int>("element");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("single");
    QTest::addColumn<bool>("answers"); // those of the grid's own handling, and no refusal

    QStringList const selections[] = {{}, {"p"}, {"p", "c"}, {"b", "c"}};
    for (bool const single : {false, true}) {
        for (Button const & button : buttons) {
            for (int keys = 0; keys < 4; ++keys) {
                for (QStringList const & selected : selections) {
                    for (int element = GCEL_INDENT; element <= int(GCEL_LEAD) + 1; ++element) {
                        bool const text = element > int(GCEL_LEAD); // of the other column
                        for (bool const answers : {true, false}) {
                            QTest::addRow("%s %s %s element %d of %d, %s%s", button.name,
                                          modifiers[keys].name,
                                          qPrintable(u'[' + selected.join(u' ') + u']'),
                                          text ? int(GCEL_CELL) : element, text,
                                          single ? "single, " : "", answers ? "all" : "refused")
                                << button.kind << keys << selected
                                << (text ? int(GCEL_CELL) : element) << int(text) << single
                                << answers;
                        }
                    }
                }
            }
        }
    }
}

void tst_GridPresses::press_selectsAndTells_asTheRulesSay()
{
    QFETCH(Press, kind);
    QFETCH(int, keys);
    QFETCH(QStringList, selected);
    QFETCH(int, element);
    QFETCH(int, column);
    QFETCH(bool, single);
    QFETCH(bool, answers);
    if (single && selected.size() > 1) {
        selected = selected.mid(0, 1);
    }
    Scene scene(single ? long(GCS_SINGLESEL) : 0L);
    QVERIFY(scene.show());
    scene.select(selected, 3);
    scene.focusGrid();
    QPoint const point =
        elementPoint(*scene.grid, scene.p, scene.column(column), static_cast<unsigned>(element));
    QVERIFY(point.x() >= 0);
    InputNotes notes(scene.grid);
    notes.stopDoubleClick = scene.model.doubleAnswer = !answers && keys % 2 == 0;
    notes.allowSelection = scene.model.allowed = answers;
    notes.allowClick = scene.model.clickAnswer = answers || keys % 2 == 1;
    if (kind == Press::Double) {
        notes.allowClick = false; // so that its first press leaves all as it is
    }

    Keys const & with = modifiers[keys];
    InputModel::Place const at = scene.place(1, column, static_cast<unsigned>(element));
    scene.send(kind, point, with.keys);
    scene.model.press(kind, at, with.shift(), with.ctrl());
    if (kind == Press::Double) {
        scene.model.calls.prepend(QStringLiteral("click p/%1 %2").arg(column).arg(element));
    }
    QCOMPARE(notes.text(), scene.model.calls.join(QStringLiteral("; ")));
    QCOMPARE(scene.state(), scene.wanted());
    QCOMPARE(checkGrid(*scene.grid), QString());
    if (kind == Press::Left) {
        scene.release();
    }
    QVERIFY(scene.grid->GetPriv().pressState == KGridCtrl::PrivateData::PressState::Idle);
}

void tst_GridPresses::shiftPress_extendsFromTheAnchor_data()
{
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("focus");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("selected");
    QTest::newRow("no anchor: from the focus down") << -1 << 1 << 3 << "b p p1";
    QTest::newRow("no anchor: from the focus up") << -1 << 3 << 0 << "a b p p1";
    QTest::newRow("no anchor and no focus: the row alone") << -1 << -1 << 3 << "b";
    QTest::newRow("the anchor, wherever the focus is") << 2 << 0 << 4 << "b c p1";
    QTest::newRow("the anchor itself") << 2 << 0 << 2 << "p1";
    QTest::newRow("an anchor past the rows is the last row") << 99 << 0 << 3 << "b c";
}

void tst_GridPresses::shiftPress_extendsFromTheAnchor()
{
    QFETCH(int, anchor);
    QFETCH(int, focus);
    QFETCH(int, row);
    QFETCH(QString, selected);
    for (Press const kind : {Press::Left, Press::Right}) {
        Scene scene(0);
        QVERIFY(scene.show());
        scene.select({"c"}, std::max(focus, 0));
        scene.focusGrid();
        if (focus == -1) {
            scene.grid->GetPriv().ClearFocus();
        }
        scene.grid->GetPriv().anchorIndex = anchor;
        scene.send(kind, cellPoint(*scene.grid, scene.rowAt(row), scene.column(1)),
                   Qt::ShiftModifier);
        QCOMPARE(scene.grid->selected(), selected);
    }
}

void tst_GridPresses::randomPressesAndMoves_followTheRules_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("single");
    for (int seed = 0; seed < 20; ++seed) {
        QTest::addRow("seed %d", seed) << seed << (seed % 4 == 3);
    }
}

// Real presses and keys one after the other, so that anchor, focus and selection that one leaves
// are what the next begins with.
void tst_GridPresses::randomPressesAndMoves_followTheRules()
{
    QFETCH(int, seed);
    QFETCH(bool, single);
    Scene scene(single ? long(GCS_SINGLESEL) : 0L);
    QVERIFY(scene.show());
    scene.select({}, 0);
    scene.focusGrid();
    InputNotes notes(scene.grid);
    notes.allowExpand = false; // all rows stay where they are
    QRandomGenerator random(static_cast<quint32>(seed) + 1);
    for (int step = 0; step < 60; ++step) {
        Keys const & with = modifiers[random.bounded(4)];
        notes.allowSelection = scene.model.allowed = random.bounded(6) != 0;
        scene.model.calls.clear();
        int const row = static_cast<int>(random.bounded(5));
        int const kind = static_cast<int>(random.bounded(4));
        if (kind < 2) {
            Press const button = kind == 0 ? Press::Left : Press::Right;
            scene.send(button, cellPoint(*scene.grid, scene.rowAt(row), scene.column(1)),
                       with.keys);
            scene.release(kind == 0 ? Qt::LeftButton : Qt::RightButton);
            scene.model.press(button, scene.place(row, 1, GCEL_CELL), with.shift(), with.ctrl());
            scene.model.awaitsMove = false;
        } else {
            constexpr int keys[] = {Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down};
            int const key = static_cast<int>(random.bounded(4));
            int const from = scene.model.focusRow;
            int const target[] = {0, 4, from - 1, from + 1};
            scene.key(keys[key], with.keys);
            scene.model.moved(std::clamp(target[key], 0, 4), scene.model.focusColumn, with.shift(),
                              with.ctrl());
            scene.model.calls << QStringLiteral("key ") + QKeySequence(keys[key]).toString();
        }
        QString const what = QStringLiteral(" at step %1").arg(step);
        QCOMPARE(notes.text() + what, scene.model.calls.join(QStringLiteral("; ")) + what);
        QCOMPARE(scene.state() + what, scene.wanted() + what);
    }
}

ZENU_TEST(tst_GridPresses)
#include "tst_GridPresses.moc"
