#include "tests/grid_input/InputFixture.h"

#include <QDragEnterEvent>
#include <QMimeData>

using namespace zenu;
using namespace zenutest;

// What an application may do to the grid while it is told of a key, a press or a drag. The
// sanitizers watch.
class tst_GridInputCallbacks : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void deed_insideACall_isSurvived_data();
    void deed_insideACall_isSurvived();
    void rowsInsertedInsideACall_areCountedAtOnce();
    void columnOfAnotherKind_insideACall_isLookedUpAgain();
    void rowGoneInsideOnClick_endsThePress();
    void rowCollapsedInsideOnClick_isSelectedWithoutTheFocus();
    void selectionChangedInsideTheQuestion_isReplaced();
    void rowGoneInsideTheQuestion_staysOut();
    void parentDeletedInsideAKey_getsNoKeyAfterwards();
    void eventsFromWithinACall_nest();
};

namespace {

enum class Deed
{
    DeleteRow,    // that the event is about
    DeleteParent, // of that row
    DeleteSiblings,
    DeleteColumn,
    DeleteColumns,
    DeleteRows,
    Reset,
    DropSink,
    ReplaceSink,
    DeleteGrid,
    DeleteWindow
};

constexpr char const * deedNames[] = {
    "deletes the row",     "deletes its parent", "deletes its siblings", "deletes the column",
    "deletes all columns", "deletes all rows",   "resets the grid",      "takes the sink away",
    "replaces the sink",   "deletes the grid",   "deletes the window"};

// Rows top, p (under it, with children p1 and p2), p1, p2, and twenty more; four columns. The
// focus is in p and so is the selection.
struct Scene
{
    Scene(long style, bool typeAhead)
        : in(std::make_unique<InputWindow>(style))
        , notes(std::make_unique<InputNotes>(in->grid))
        , second(std::make_unique<InputNotes>(in->grid))
    {
        TestGrid & grid = *in->grid;
        grid.setNotification(notes.get());
        grid.SetImageList(GCIL_LEAD, QPixmap(8, 8), 8, 8, 1, false);
        unsigned const flags = GCCF_TREE | GCCF_TREELINES | GCCF_LEAD |
                               (typeAhead ? unsigned(GCCF_TYPEAHEAD) : 0U) | 0x4;
        column = grid.addKind(GCCK_CHECKBOX, 160, flags);
        for (int i = 0; i < 3; ++i) {
            grid.addKind(GCCK_TEXT, 160, 0x4);
        }
        top = grid.add("top");
        p = grid.add("p", top);
        grid.add("p1", p);
        grid.add("p2", p);
        for (int i = 0; i < 22; ++i) {
            siblings.push_back(grid.add(i < 20 ? "more" : "zero", top));
        }
    }
    bool show()
    {
        if (!in->show()) {
            return false;
        }
        in->grid->GetPriv().MoveFocus(1, 0);
        in->grid->SelectRows(1, &p);
        in->focusGrid();
        notes->calls.clear();
        return true;
    }

    void act(Deed deed)
    {
        KGridCtrl * const grid = in->grid;
        switch (deed) {
        case Deed::DeleteRow:
            grid->DeleteRow(p);
            break;
        case Deed::DeleteParent:
            grid->DeleteRow(top);
            break;
        case Deed::DeleteSiblings:
            for (tag_HROW * const each : siblings) {
                grid->DeleteRow(each);
            }
            break;
        case Deed::DeleteColumn:
            grid->DeleteColumn(column);
            break;
        case Deed::DeleteColumns:
            for (int id = 3; id >= 0; --id) {
                grid->DeleteColumn(columnHandle(id));
            }
            break;
        case Deed::DeleteRows:
            grid->DeleteAllRows();
            break;
        case Deed::Reset:
            grid->Reset();
            break;
        case Deed::DropSink:
            grid->setNotification(nullptr);
            notes.reset();
            break;
        case Deed::ReplaceSink:
            grid->setNotification(second.get());
            notes.reset();
            break;
        case Deed::DeleteGrid:
            delete grid;
            break;
        case Deed::DeleteWindow:
            window = std::move(in); // its destructor runs with the grid on the stack
            window.reset();
            break;
        }
    }

    std::unique_ptr<InputWindow> in;
    std::unique_ptr<InputWindow> window;
    std::unique_ptr<InputNotes> notes;
    std::unique_ptr<InputNotes> second;
    tag_HCOLUMN * column;
    tag_HROW * top;
    tag_HROW * p;
    std::vector<tag_HROW *> siblings; // of p
};

// What a person does, and the calls that come of it, each by its first word.
struct Gesture
{
    char const * name;
    std::vector<char const *> calls;
    std::function<void(Scene &)> make;
    long style = 0;
    bool typeAhead = false;
    bool lets = false; // a double click passes
};

void pressAt(Scene & scene, unsigned element, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    scene.in->press(elementPoint(*scene.in->grid, scene.p, scene.column, element), Qt::LeftButton,
                    keys);
    scene.in->release();
}

// Past the window, which sends a context menu event to the same widget whether it is there or not.
void pressRight(Scene & scene, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    QPoint const point = elementPoint(*scene.in->grid, scene.p, scene.column, GCEL_CELL);
    QMouseEvent event(QEvent::MouseButtonPress, point, scene.in->grid->mapToGlobal(point),
                      Qt::RightButton, Qt::RightButton, keys);
    QCoreApplication::sendEvent(scene.in->grid, &event);
}

void twiceAt(Scene & scene, unsigned element, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    QPoint const point = elementPoint(*scene.in->grid, scene.p, scene.column, element);
    QMouseEvent event(QEvent::MouseButtonDblClick, point, scene.in->grid->mapToGlobal(point),
                      Qt::LeftButton, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(scene.in->grid, &event);
}

// The handlers themselves: what the toolkit does with a widget after a drag event is its own
// matter.
struct Handlers : KGridCtrl
{
    static constexpr auto enter = &Handlers::dragEnterEvent;
    static constexpr auto move = &Handlers::dragMoveEvent;
    static constexpr auto leave = &Handlers::dragLeaveEvent;
    static constexpr auto drop = &Handlers::dropEvent;
};

template <typename Event>
void drag(Scene & scene, void (KGridCtrl::*handler)(Event *))
{
    QMimeData data;
    QPoint const point = elementPoint(*scene.in->grid, scene.p, scene.column, GCEL_CELL);
    Event event(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    (scene.in->grid->*handler)(&event);
}

auto keyOf(int key, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    return [=](Scene & scene) { scene.in->key(key, keys); };
}

std::vector<Gesture> const & gestures()
{
    static std::vector<Gesture> const list{
        {"press", {"click", "selecting", "selected"}, [](Scene & s) { pressAt(s, GCEL_CELL); }},
        {"press with ctrl",
         {"click", "selecting", "selected"},
         [](Scene & s) { pressAt(s, GCEL_CELL, Qt::ControlModifier); }},
        {"press with shift",
         {"click", "selecting", "selected"},
         [](Scene & s) { pressAt(s, GCEL_CELL, Qt::ShiftModifier); }},
        {"press in a single selection",
         {"click", "selecting", "selected"},
         [](Scene & s) { pressAt(s, GCEL_CELL, Qt::ControlModifier); },
         GCS_SINGLESEL},
        {"press on the button",
         {"click", "selecting", "selected", "expanding", "expanded"},
         [](Scene & s) { pressAt(s, GCEL_BUTTON); }},
        {"press on the lead image",
         {"click", "selecting", "selected", "lead"},
         [](Scene & s) { pressAt(s, GCEL_LEAD); }},
        {"press on the check box",
         {"click", "selecting", "selected"},
         [](Scene & s) { pressAt(s, GCEL_CHECK); }},
        {"right press", {"selecting", "selected", "right"}, [](Scene & s) { pressRight(s); }},
        {"right press with ctrl",
         {"selecting", "selected", "right"},
         [](Scene & s) { pressRight(s, Qt::ControlModifier); }},
        {"double click", {"double"}, [](Scene & s) { twiceAt(s, GCEL_CELL); }},
        {"double click let through",
         {"double", "selecting", "selected", "expanding", "expanded"},
         [](Scene & s) { twiceAt(s, GCEL_CELL); },
         0,
         false,
         true},
        {"press and move",
         {"hover"},
         [](Scene & s) {
             QPoint const point = elementPoint(*s.in->grid, s.p, s.column, GCEL_CELL);
             s.in->press(point);
             s.in->move(point + QPoint(1, 0));
             if (s.in) {
                 s.in->release();
             }
         }},
        {"Down", {"selecting", "selected", "key"}, keyOf(Qt::Key_Down)},
        {"Down with shift",
         {"selecting", "selected", "key"},
         keyOf(Qt::Key_Down, Qt::ShiftModifier)},
        {"Down with ctrl", {"key"}, keyOf(Qt::Key_Down, Qt::ControlModifier)},
        {"Down in a single selection",
         {"selecting", "selected", "key"},
         keyOf(Qt::Key_Down),
         GCS_SINGLESEL},
        {"End, which scrolls",
         {"selecting", "selected", "scrolling", "scrolled", "key"},
         keyOf(Qt::Key_End)},
        {"End, which scrolls first",
         {"scrolling", "scrolled", "selecting", "selected", "key"},
         keyOf(Qt::Key_End, Qt::ShiftModifier),
         GCS_AUTOHSCROLL},
        {"Right, which scrolls",
         {"scrolling", "scrolled", "key"},
         [](Scene & s) {
             s.in->grid->setNotification(nullptr);
             s.in->grid->GetPriv().MoveFocus(1, 2);
             s.in->grid->setNotification(s.notes.get());
             s.in->key(Qt::Key_Right);
         },
         GCS_AUTOHSCROLL},
        {"minus", {"expanding", "expanded", "key"}, keyOf(Qt::Key_Minus)},
        {"plus",
         {"expanding", "expanded", "key"},
         [](Scene & s) {
             s.in->grid->setNotification(nullptr);
             s.in->grid->Expand(s.p, GCE_COLLAPSE);
             s.in->grid->setNotification(s.notes.get());
             s.in->key(Qt::Key_Plus);
         }},
        {"ctrl and minus",
         {"expanding", "expanded", "key"},
         keyOf(Qt::Key_Minus, Qt::ControlModifier)},
        {"ctrl and plus",
         {"expanding", "expanded", "key"},
         [](Scene & s) {
             s.in->grid->setNotification(nullptr);
             s.in->grid->Expand(s.p, GCE_COLLAPSE);
             s.in->grid->setNotification(s.notes.get());
             s.in->key(Qt::Key_Plus, Qt::ControlModifier);
         }},
        {"ctrl and space",
         {"selecting", "selected", "key"},
         keyOf(Qt::Key_Space, Qt::ControlModifier)},
        {"a letter", {"key"}, keyOf(Qt::Key_X)},
        {"a search",
         {"selecting", "selected", "scrolling", "scrolled", "key"},
         keyOf(Qt::Key_Z),
         0,
         true},
        {"a search that scrolls first",
         {"scrolling", "scrolled", "selecting", "selected", "key"},
         keyOf(Qt::Key_Z),
         GCS_AUTOHSCROLL,
         true},
        {"drag that enters", {"enter"}, [](Scene & s) { drag(s, Handlers::enter); }},
        {"drag that moves", {"move"}, [](Scene & s) { drag(s, Handlers::move); }},
        {"drop", {"drop"}, [](Scene & s) { drag(s, Handlers::drop); }},
        {"drag that leaves",
         {"leave"},
         [](Scene & s) {
             QDragLeaveEvent event;
             (s.in->grid->*Handlers::leave)(&event);
         }},
        {"loss of focus", {"focusout"}, [](Scene & s) { s.in->other->setFocus(); }},
    };
    return list;
}

} // namespace

void tst_GridInputCallbacks::deed_insideACall_isSurvived_data()
{
    QTest::addColumn<int>("gesture");
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("deed");
    for (std::size_t gesture = 0; gesture < gestures().size(); ++gesture) {
        for (char const * const call : gestures()[gesture].calls) {
            // The toolkit goes on with a widget that has lost the focus.
            bool const outlives = QLatin1String(call) == QLatin1String("focusout");
            int const last = int(outlives ? Deed::ReplaceSink : Deed::DeleteGrid);
            for (int deed = 0; deed <= last; ++deed) {
                QTest::addRow("%s: %s %s", gestures()[gesture].name, call, deedNames[deed])
                    << int(gesture) << QString::fromLatin1(call) << deed;
            }
        }
    }
}

void tst_GridInputCallbacks::deed_insideACall_isSurvived()
{
    QFETCH(int, gesture);
    QFETCH(QString, call);
    QFETCH(int, deed);
    Gesture const & made = gestures()[static_cast<std::size_t>(gesture)];
    Scene scene(made.style, made.typeAhead);
    QVERIFY(scene.show());
    scene.notes->stopDoubleClick = !made.lets;
    scene.notes->notesScrolling = true;
    bool done = false;
    scene.notes->act = [&](QString const & what) {
        if (what == call && !done && scene.in->grid) {
            done = true;
            scene.act(static_cast<Deed>(deed));
        }
    };
    made.make(scene);
    QVERIFY(done);
    settle();
    QCOMPARE(scene.in->grid.isNull(), static_cast<Deed>(deed) == Deed::DeleteGrid);
    if (scene.in->grid) {
        QCOMPARE(checkGrid(*scene.in->grid), QString());
        // It goes on to work.
        scene.in->grid->setNotification(nullptr);
        scene.in->grid->GetPriv().MoveFocus(0, 0);
        scene.in->grid->setFocus();
        scene.in->key(Qt::Key_Down);
        scene.in->click(QPoint(5, 40));
        QCOMPARE(checkGrid(*scene.in->grid), QString());
    }
}

void tst_GridInputCallbacks::rowsInsertedInsideACall_areCountedAtOnce()
{
    // Told of the scroll, the application inserts rows above those that the range is about.
    Scene scene(GCS_AUTOHSCROLL, false);
    QVERIFY(scene.show());
    scene.notes->notesScrolling = true;
    bool done = false;
    scene.notes->act = [&](QString const & what) {
        if (what == QStringLiteral("scrolled") && !done) {
            done = true;
            scene.in->grid->add("fresh", GC_ROOT, GCI_FIRST);
            scene.in->grid->add("fresh", GC_ROOT, GCI_FIRST);
        }
    };
    scene.in->key(Qt::Key_End, Qt::ShiftModifier);
    QVERIFY(done);
    KGridCtrl::PrivateData & frame = scene.in->grid->GetPriv();
    QCOMPARE(frame.GetFocusedIndex(), frame.GetCount() - 1);
    QVERIFY(frame.selection.contains(frame.FocusedRow()));
    QCOMPARE(checkGrid(*scene.in->grid), QString());
}

void tst_GridInputCallbacks::columnOfAnotherKind_insideACall_isLookedUpAgain()
{
    for (char const * const when : {"click", "selecting", "selected", "lead", "expanding"}) {
        for (int gesture = 0; gesture < 4; ++gesture) {
            Scene scene(0, false);
            QVERIFY(scene.show());
            scene.notes->stopDoubleClick = false;
            scene.notes->act = [&](QString const & what) {
                if (what == QLatin1String(when)) {
                    GC_COLUMN record;
                    record.mask = GCCM_KIND;
                    record.kind = GCCK_TEXT;
                    scene.in->grid->SetColumn(scene.column, &record);
                }
            };
            if (gesture == 0) {
                pressRight(scene);
                QVERIFY(scene.notes->calls.contains(QStringLiteral("right p/0 6")));
            } else if (gesture == 3) {
                twiceAt(scene, GCEL_LEAD);
            } else {
                pressAt(scene, gesture == 1 ? GCEL_LEAD : GCEL_CHECK);
            }
            QCOMPARE(checkGrid(*scene.in->grid), QString());
        }
    }
}

void tst_GridInputCallbacks::rowGoneInsideOnClick_endsThePress()
{
    Scene scene(0, false);
    QVERIFY(scene.show());
    scene.notes->act = [&](QString const &) { scene.in->grid->DeleteRow(scene.p); };
    pressAt(scene, GCEL_CELL);
    QCOMPARE(scene.notes->text(), "click p/0 6");
    QCOMPARE(scene.in->grid->selected(), QString());
}

void tst_GridInputCallbacks::rowCollapsedInsideOnClick_isSelectedWithoutTheFocus()
{
    for (Qt::KeyboardModifiers const keys : {Qt::NoModifier, Qt::ShiftModifier}) {
        Scene scene(0, false);
        QVERIFY(scene.show());
        scene.notes->act = [&](QString const & what) {
            if (what == QStringLiteral("click")) {
                scene.in->grid->Expand(scene.top, GCE_COLLAPSE);
            }
        };
        pressAt(scene, GCEL_CELL, keys);
        QCOMPARE(scene.in->grid->selected() + scene.in->grid->focus(), "ptop/0");
    }
}

void tst_GridInputCallbacks::selectionChangedInsideTheQuestion_isReplaced()
{
    Scene scene(0, false);
    QVERIFY(scene.show());
    scene.notes->act = [&](QString const & what) {
        if (what == QStringLiteral("selecting")) {
            scene.in->grid->SelectAll();
        }
    };
    scene.in->key(Qt::Key_Down);
    QCOMPARE(scene.notes->text(), "selecting -p +p1; selected; selected; key Down");
    QCOMPARE(scene.in->grid->selected(), "p1");
}

void tst_GridInputCallbacks::rowGoneInsideTheQuestion_staysOut()
{
    Scene scene(0, false);
    QVERIFY(scene.show());
    tag_HROW * const p1 = scene.in->grid->GetPriv().GetRowAt(2)->Handle();
    scene.notes->act = [&](QString const & what) {
        if (what == QStringLiteral("selecting")) {
            scene.in->grid->DeleteRow(p1);
        }
    };
    scene.in->key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(scene.notes->text(), "selecting -p +p +p1; selected; key Down");
    QCOMPARE(scene.in->grid->selected(), "p");
    QCOMPARE(scene.in->grid->focus(), "-/-");
}

void tst_GridInputCallbacks::parentDeletedInsideAKey_getsNoKeyAfterwards()
{
    Scene scene(0, false);
    QVERIFY(scene.show());
    QPointer<QWidget> const window = &scene.in->window;
    scene.notes->act = [&](QString const & what) {
        if (what == QStringLiteral("key")) {
            scene.act(Deed::DeleteWindow);
        }
    };
    QKeyEvent event(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QCoreApplication::sendEvent(scene.in->grid, &event);
    QVERIFY(!window);
}

void tst_GridInputCallbacks::eventsFromWithinACall_nest()
{
    Scene scene(0, false);
    QVERIFY(scene.show());
    scene.notes->act = [&](QString const & what) {
        if (what == QStringLiteral("selecting")) {
            scene.notes->act = nullptr;
            scene.in->key(Qt::Key_End);
            scene.in->grid->EnsureVisible(scene.p, GC_NOCOLUMN);
            pressAt(scene, GCEL_BUTTON);
            scene.in->grid->DeleteRow(scene.p);
        }
    };
    scene.in->key(Qt::Key_Down);
    QCOMPARE(checkGrid(*scene.in->grid), QString());
    QCOMPARE(scene.in->grid->selected(), QString()); // the row to be selected died
}

ZENU_TEST(tst_GridInputCallbacks)
#include "tst_GridInputCallbacks.moc"
