#include "tests/grid/CallbackScene.h"
#include "tests/support/TestMain.h"

#include <QDragMoveEvent>
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

// Where rows have gone the display is not known, and asking for it would bring the rebuild.
Raise press(Qt::MouseButton button)
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

std::vector<CallOut> gestures()
{
    std::vector<CallOut> all = {
        {"a letter", "item text", searchTexts, key(Qt::Key_A)},
        {"Ctrl and Plus", "created", collapseFocused, key(Qt::Key_Plus, Qt::ControlModifier)},
    };
    for (char const * const call : {"scrolling", "scrolled"}) {
        all.push_back({"a press", call, focusRowToBeScrolled, press(Qt::LeftButton)});
        all.push_back({"a right press", call, focusRowToBeScrolled, press(Qt::RightButton)});
        all.push_back({"Up", call, focusRowToBeScrolled, key(Qt::Key_Up)});
        all.push_back({"F2", call, focusRowToBeScrolled, key(Qt::Key_F2)});
    }
    return all;
}

// Qt goes on with the widget after these.
std::vector<CallOut> eventsOfTheSystem()
{
    // To the grid itself: the application's own way goes on with the widget.
    Raise const focusIn = [](TestGrid & grid, Scene &) {
        QFocusEvent event(QEvent::FocusIn);
        static_cast<QObject &>(grid).event(&event);
    };
    Raise const move = [](TestGrid & grid, Scene &) {
        QMimeData const data;
        QDragMoveEvent event(QPoint(100, 60), Qt::CopyAction, &data, Qt::LeftButton,
                             Qt::NoModifier);
        static_cast<QObject &>(grid).event(&event);
    };
    return {{"focus", "focus in", {}, focusIn},
            {"focus", "selecting", {}, focusIn},
            {"focus", "selected", {}, focusIn},
            {"drag", "scrolling", focusRowToBeScrolled, move},
            {"drag", "scrolled", focusRowToBeScrolled, move}};
}

} // namespace

// Calls that a person's gesture is not about and that come on the way: rows that went before it are
// scrolled over, texts are searched, rows are loaded, the focus selects.
class tst_GridCallsOnTheWay : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void gesture_data() { addCallOutRows(gestures()); }
    void gesture() { check(gestures()); }
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
void tst_GridCallsOnTheWay::system()
{
    QFETCH(int, what);
    if (static_cast<Deletion>(what) != Deletion::Grid) {
        check(eventsOfTheSystem());
    }
}

ZENU_TEST(tst_GridCallsOnTheWay)
#include "tst_GridCallsOnTheWay.moc"
