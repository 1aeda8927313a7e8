#include "tests/grid/CallbackScene.h"
#include "tests/support/TestMain.h"

#include <QDragEnterEvent>
#include <QMimeData>

using namespace zenu;
using zenutest::addCallOutRows;
using zenutest::CallOut;
using zenutest::checkCallOut;
using zenutest::Deletion;
using zenutest::Scene;
using zenutest::TestGrid;

namespace {

using Raise = std::function<void(TestGrid &, Scene &)>;

void focusRow(Scene & scene)
{
    scene.grid->SetRowSel(scene.b, true);
}

void focusRowToBeScrolled(Scene & scene)
{
    scene.grid->SetRowSel(scene.rows.back(), true);
    scene.makeRebuildScroll();
}

void collapseFocused(Scene & scene)
{
    scene.grid->Expand(nullptr, GCE_COLLAPSEALL);
    scene.grid->SetRowSel(scene.a, true);
}

void searchTexts(Scene & scene)
{
    GC_COLUMN record;
    record.mask = GCCM_FLAGS;
    record.flags = GCCF_TYPEAHEAD;
    scene.grid->SetColumn(scene.column(1), &record);
    scene.grid->SetRowSel(scene.b, true);
    scene.grid->SetFocusedColumn(scene.column(1));
}

// In the text of a row's second cell.
QPoint textOf(TestGrid & grid, tag_HROW * row)
{
    QRect rect;
    grid.GetRowRect(row, &rect);
    return {100, rect.center().y()};
}

QPoint buttonOf(TestGrid & grid, tag_HROW * row)
{
    KGridCtrl::PrivateData & frame = grid.GetPriv();
    QPoint point(0, textOf(grid, row).y());
    while (point.x() < 60 && frame.HitElementAt(frame.HitTest(point), point) != GCEL_BUTTON) {
        point.rx() += 1;
    }
    return point;
}

Raise press(Qt::MouseButton button, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    return [=](TestGrid & grid, Scene & scene) {
        QTest::mousePress(&grid, button, keys, textOf(grid, scene.c));
    };
}

// Where rows have gone the display is not known, and asking for it would bring the rebuild.
Raise pressAnywhere(Qt::MouseButton button)
{
    return [=](TestGrid & grid, Scene &) {
        QTest::mousePress(&grid, button, Qt::NoModifier, QPoint(100, 60));
    };
}

Raise key(Qt::Key code, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    return [=](TestGrid & grid, Scene &) {
        QString const text = code == Qt::Key_A ? QStringLiteral("a") : QString();
        QKeyEvent event(QEvent::KeyPress, code, keys, text);
        QApplication::sendEvent(&grid, &event);
    };
}

std::vector<CallOut> presses()
{
    auto const twice = [](TestGrid & grid, Scene & s) {
        QTest::mouseDClick(&grid, Qt::LeftButton, Qt::NoModifier, textOf(grid, s.b));
    };
    auto const onButton = [](TestGrid & grid, Scene & s) {
        QTest::mousePress(&grid, Qt::LeftButton, Qt::NoModifier, buttonOf(grid, s.b));
    };
    auto const move = [](TestGrid & grid, Scene & s) {
        QPoint const point = textOf(grid, s.c);
        QTest::mousePress(&grid, Qt::LeftButton, Qt::NoModifier, point);
        QMouseEvent event(QEvent::MouseMove, point, grid.mapToGlobal(point), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&grid, &event);
    };
    std::vector<CallOut> all = {{"a press", "click", {}, press(Qt::LeftButton)},
                                {"a press", "right click", {}, press(Qt::RightButton)},
                                {"a double click", "expanding", {}, twice},
                                {"a double click", "expanded", {}, twice},
                                {"a double click", "double click", {}, twice},
                                {"a press on a button", "click", {}, onButton},
                                {"a press on a button", "expanding", {}, onButton},
                                {"a press on a button", "expanded", {}, onButton},
                                {"a move after a press", "hover", {}, move}};
    for (char const * const call : {"selecting", "selected"}) {
        all.push_back({"a press", call, {}, press(Qt::LeftButton)});
        all.push_back({"a right press", call, {}, press(Qt::RightButton)});
        all.push_back({"with Ctrl", call, focusRow, press(Qt::LeftButton, Qt::ControlModifier)});
        all.push_back({"with Shift", call, focusRow, press(Qt::LeftButton, Qt::ShiftModifier)});
        all.push_back({"a double click", call, {}, twice});
    }
    for (char const * const call : {"scrolling", "scrolled"}) {
        all.push_back({"a press", call, focusRowToBeScrolled, pressAnywhere(Qt::LeftButton)});
        all.push_back(
            {"a right press", call, focusRowToBeScrolled, pressAnywhere(Qt::RightButton)});
    }
    return all;
}

std::vector<CallOut> keys()
{
    std::vector<CallOut> all = {
        {"a letter", "item text", searchTexts, key(Qt::Key_A)},
        {"a letter", "selecting", searchTexts, key(Qt::Key_A)},
        {"a letter", "selected", searchTexts, key(Qt::Key_A)},
        {"a letter", "key", searchTexts, key(Qt::Key_A)},
        {"Right", "key", focusRow, key(Qt::Key_Right)},
        {"Minus", "expanding", focusRow, key(Qt::Key_Minus)},
        {"Minus", "expanded", focusRow, key(Qt::Key_Minus)},
        {"Ctrl and Minus", "expanding", focusRow, key(Qt::Key_Minus, Qt::ControlModifier)},
        {"Ctrl and Minus", "expanded", focusRow, key(Qt::Key_Minus, Qt::ControlModifier)},
        {"Plus", "expanding", collapseFocused, key(Qt::Key_Plus)},
        {"Plus", "expanded", collapseFocused, key(Qt::Key_Plus)},
        {"Ctrl and Plus", "expanding", collapseFocused, key(Qt::Key_Plus, Qt::ControlModifier)},
        {"Ctrl and Plus", "expanded", collapseFocused, key(Qt::Key_Plus, Qt::ControlModifier)},
        {"Ctrl and Plus", "created", collapseFocused, key(Qt::Key_Plus, Qt::ControlModifier)},
    };
    for (char const * const call : {"selecting", "selected", "key"}) {
        all.push_back({"Down", call, focusRow, key(Qt::Key_Down)});
        all.push_back({"Down with Shift", call, focusRow, key(Qt::Key_Down, Qt::ShiftModifier)});
        all.push_back({"Ctrl and Space", call, focusRow, key(Qt::Key_Space, Qt::ControlModifier)});
    }
    for (char const * const call : {"selecting", "selected", "scrolling", "scrolled", "key"}) {
        all.push_back({"End", call, focusRow, key(Qt::Key_End)});
        all.push_back({"PageDown", call, focusRow, key(Qt::Key_PageDown)});
    }
    for (char const * const call : {"scrolling", "scrolled"}) {
        all.push_back({"Up after a change", call, focusRowToBeScrolled, key(Qt::Key_Up)});
        all.push_back({"F2 after a change", call, focusRowToBeScrolled, key(Qt::Key_F2)});
    }
    return all;
}

Raise send(std::function<std::unique_ptr<QEvent>(QMimeData const *)> const & make)
{
    return [=](TestGrid & grid, Scene &) {
        QMimeData const data;
        std::unique_ptr<QEvent> const event = make(&data);
        // To the grid itself: the application's own way goes on with the widget.
        static_cast<QObject &>(grid).event(event.get());
    };
}

// Qt goes on with the widget after these.
std::vector<CallOut> eventsOfTheSystem()
{
    constexpr Qt::DropActions actions = Qt::CopyAction;
    QPoint const place(100, 60);
    Raise const focusIn =
        send([](QMimeData const *) { return std::make_unique<QFocusEvent>(QEvent::FocusIn); });
    Raise const focusOut =
        send([](QMimeData const *) { return std::make_unique<QFocusEvent>(QEvent::FocusOut); });
    Raise const enter = send([=](QMimeData const * data) {
        return std::make_unique<QDragEnterEvent>(place, actions, data, Qt::LeftButton,
                                                 Qt::NoModifier);
    });
    Raise const move = send([=](QMimeData const * data) {
        return std::make_unique<QDragMoveEvent>(place, actions, data, Qt::LeftButton,
                                                Qt::NoModifier);
    });
    Raise const drop = send([=](QMimeData const * data) {
        return std::make_unique<QDropEvent>(place, actions, data, Qt::LeftButton, Qt::NoModifier);
    });
    Raise const leave = send([](QMimeData const *) { return std::make_unique<QDragLeaveEvent>(); });
    return {{"focus", "focus in", {}, focusIn},
            {"focus", "selecting", {}, focusIn},
            {"focus", "selected", {}, focusIn},
            {"focus", "focus out", focusRow, focusOut},
            {"drag", "drag enter", {}, enter},
            {"drag", "drag move", {}, move},
            {"drag", "drop", {}, drop},
            {"drag", "drag leave", {}, leave},
            {"drag after a change", "scrolling", focusRowToBeScrolled, move}};
}

} // namespace

class tst_GridInputCallbacks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void mouse_data() { addCallOutRows(presses()); }
    void mouse() { check(presses()); }
    void keyboard_data() { addCallOutRows(keys()); }
    void keyboard() { check(keys()); }
    void system_data() { addCallOutRows(eventsOfTheSystem()); }
    void system();

private:
    static void check(std::vector<CallOut> const & callOuts)
    {
        QFETCH(int, number);
        QFETCH(int, what);
        checkCallOut(callOuts[static_cast<std::size_t>(number)], static_cast<Deletion>(what));
    }
};

// There the grid must live.
void tst_GridInputCallbacks::system()
{
    QFETCH(int, what);
    if (static_cast<Deletion>(what) != Deletion::Grid) {
        check(eventsOfTheSystem());
    }
}

ZENU_TEST(tst_GridInputCallbacks)
#include "tst_GridInputCallbacks.moc"
