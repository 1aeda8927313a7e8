#include "tests/grid_editing/EditFixture.h"
#include "tests/support/TestMain.h"

#include <functional>

using namespace zenutest;

namespace {

// A grid whose application does one thing in one of its calls.
struct Scene
{
    enum RowClass
    {
        Ordinary,
        Slim,     // at the top level
        SlimChild // in the block of its parent
    };

    explicit Scene(int rowClass)
        : grid(new EditGrid(0, 4))
        , alive(grid)
        , notes(grid)
    {
        grid->SetSlimGridCallback(&slim);
        slim.tree[50] = {51, 52, 53};
        if (rowClass == Slim) {
            row = grid->InsertSlimRow(7, false, GC_ROOT, GCI_LAST);
        } else if (rowClass == SlimChild) {
            parent = grid->InsertSlimRow(50, true, GC_ROOT, GCI_FIRST);
            grid->Expand(parent, GCE_EXPAND);
            row = grid->GetNextRow(GCN_CHILD_FIRST, parent);
        } else {
            row = grid->rows[1];
        }
    }
    ~Scene()
    {
        if (alive) {
            grid->setNotification(nullptr);
            grid->SetSlimGridCallback(nullptr);
            grid->DeleteAllRows();
            delete grid;
        }
    }

    EditGrid * grid;
    QPointer<EditGrid> alive;
    EditNotes notes;
    EditSlim slim;
    tag_HROW * row = nullptr;
    tag_HROW * parent = nullptr;
    int done = 0;
};

using Deed = std::function<void(Scene &)>;

struct NamedDeed
{
    char const * name;
    Deed act;
};

std::vector<NamedDeed> const & deeds()
{
    static std::vector<NamedDeed> const list = {
        {"deletes the row",
         [](Scene & scene) {
             if (scene.parent) {
                 scene.grid->DeleteRow(scene.parent);
             } else {
                 scene.grid->DeleteRow(scene.row);
             }
         }},
        {"resets the parent",
         [](Scene & scene) { scene.grid->ResetSlimRow(scene.parent ? scene.parent : scene.row); }},
        {"deletes another row", [](Scene & scene) { scene.grid->DeleteRow(scene.grid->rows[3]); }},
        {"deletes all rows", [](Scene & scene) { scene.grid->DeleteAllRows(); }},
        {"deletes the column",
         [](Scene & scene) {
             scene.grid->DeleteColumn(EditGrid::column(Text));
             scene.grid->DeleteColumn(EditGrid::column(Check));
         }},
        {"resets the grid", [](Scene & scene) { scene.grid->Reset(); }},
        {"resets the grid and fills it anew",
         [](Scene & scene) {
             scene.grid->Reset();
             scene.grid->addKind(GCCK_TEXT, 80, GCCF_EDITABLE);
             scene.grid->addMany(4);
         }},
        {"deletes the grid", [](Scene & scene) { delete scene.grid; }},
        {"takes the sink away", [](Scene & scene) { scene.grid->setNotification(nullptr); }},
        {"inserts a row", [](Scene & scene) { scene.grid->add("new", GC_ROOT, GCI_FIRST); }},
        {"ends the edit", [](Scene & scene) { scene.grid->EndEditItemNow(true); }},
        {"saves the edit", [](Scene & scene) { scene.grid->EndEditItemNow(false); }},
        {"edits another cell",
         [](Scene & scene) { scene.grid->EditItem(scene.grid->rows[2], EditGrid::column(Icon)); }},
        {"edits the same cell",
         [](Scene & scene) { scene.grid->EditItem(scene.row, EditGrid::column(Text)); }},
        {"clears the selection", [](Scene & scene) { scene.grid->ClearSelection(); }},
        {"sorts", [](Scene & scene) { scene.grid->Sort(EditGrid::column(Text), false); }},
        {"collapses all", [](Scene & scene) { scene.grid->Expand(nullptr, GCE_COLLAPSEALL); }},
        {"hides the column",
         [](Scene & scene) { scene.grid->ShowColumn(EditGrid::column(Text), false); }},
        {"changes the kind",
         [](Scene & scene) {
             GC_COLUMN record;
             record.mask = GCCM_KIND;
             record.kind = GCCK_ICON;
             scene.grid->SetColumn(EditGrid::column(Text), &record);
             scene.grid->SetColumn(EditGrid::column(Check), &record);
         }},
        {"hides the grid", [](Scene & scene) { scene.grid->hide(); }},
        {"throws the editor away", [](Scene &) { delete CItemEditorImpl::OpenWidget(); }},
    };
    return list;
}

enum Call
{
    Changing,
    Changed,
    Writing, // a slim row's text or check
    FocusOut,
    FocusIn
};

char const * const callNames[] = {"OnItemChanging", "OnItemChanged", "the slim callback",
                                  "OnFocusOut", "OnFocusIn"};

// Qt itself goes on with a widget that it gives the focus to.
bool isBeyondUs(int call, QByteArray const & deed)
{
    return (call == FocusIn && deed == "deletes the grid") ||
           (call == FocusOut && deed == "throws the editor away");
}

// Does the deed once, in the call that is meant.
void arm(Scene & scene, int call, Deed const & deed)
{
    auto const once = [&scene, deed] {
        if (scene.done++ == 0) {
            deed(scene);
        }
    };
    if (call == Writing) {
        scene.slim.writing = once;
        return;
    }
    scene.notes.act = [call, once](QString const & what) {
        bool const meant = (call == Changing && what.startsWith(QStringLiteral("changing"))) ||
                           (call == Changed && what.startsWith(QStringLiteral("changed"))) ||
                           (call == FocusOut && what == QStringLiteral("out")) ||
                           (call == FocusIn && what == QStringLiteral("in"));
        if (meant) {
            once();
        }
    };
}

// What is left of the grid, if it is.
QString stateOf(Scene & scene)
{
    settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    if (scene.notes.calls.join(u' ').contains(QStringLiteral("DEAD"))) {
        return QStringLiteral("told of a dead row: ") + scene.notes.taken();
    }
    if (!scene.alive) {
        return CItemEditorImpl::OpenWidget() ? QStringLiteral("an editor without a grid")
                                             : QString();
    }
    QLineEdit const * const editor = scene.grid->editor();
    if (scene.grid->GetPriv().IsEditing() != (editor != nullptr)) {
        return QStringLiteral("editor and edit do not go together");
    }
    return zenutest::checkGrid(*scene.grid);
}

void addCalls(std::initializer_list<int> calls)
{
    QTest::addColumn<int>("rowClass");
    QTest::addColumn<int>("call");
    QTest::addColumn<int>("deed");
    char const * const classes[] = {"ordinary", "slim", "slim child"};
    for (int rowClass = 0; rowClass < 3; ++rowClass) {
        for (int const call : calls) {
            if (call == Writing && rowClass == Scene::Ordinary) {
                continue;
            }
            for (std::size_t i = 0; i < deeds().size(); ++i) {
                if (isBeyondUs(call, deeds()[i].name)) {
                    continue;
                }
                QTest::addRow("%s row: %s %s", classes[rowClass], callNames[call], deeds()[i].name)
                    << rowClass << call << static_cast<int>(i);
            }
        }
    }
}

} // namespace

// An application that pulls the ground away in the calls that an edit or a check box makes.
class tst_EditSurvival : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void editItem_data() { addCalls({Changing, FocusOut}); }
    void editItem();
    void returnKey_data() { addCalls({Changed, Writing, FocusIn}); }
    void returnKey();
    void endNow_data() { addCalls({Changed, Writing}); }
    void endNow();
    void discard_data() { addCalls({Changed}); }
    void discard();
    void deleteRow_data() { addCalls({Changed}); }
    void deleteRow();
    void nextEdit_data() { addCalls({Changing, Changed, Writing}); }
    void nextEdit();
    void clickThatEdits_data() { addCalls({Changing, FocusOut}); }
    void clickThatEdits();
    void timeOut_data() { addCalls({Changing}); }
    void timeOut();
    void checkBoxes_data() { addCalls({Changing, Changed, Writing}); }
    void checkBoxes();

private:
    void run(std::function<void(Scene &)> const & before,
             std::function<void(Scene &)> const & gesture);
};

void tst_EditSurvival::run(std::function<void(Scene &)> const & before,
                           std::function<void(Scene &)> const & gesture)
{
    QFETCH(int, rowClass);
    QFETCH(int, call);
    QFETCH(int, deed);
    Scene scene(rowClass);
    QVERIFY(scene.grid->activate());
    before(scene);
    arm(scene, call, deeds()[std::size_t(deed)].act);
    gesture(scene);
    QCOMPARE(stateOf(scene), QString());
    QVERIFY(scene.done > 0);
}

void tst_EditSurvival::editItem()
{
    run([](Scene &) {}, [](Scene & scene) { scene.grid->edit(scene.row); });
}

void tst_EditSurvival::returnKey()
{
    run([](Scene & scene) { QVERIFY(scene.grid->edit(scene.row)); },
        [](Scene & scene) {
            scene.grid->type(QStringLiteral("new"));
            QTest::keyClick(scene.grid->editor(), Qt::Key_Return);
            settle();
        });
}

void tst_EditSurvival::endNow()
{
    run([](Scene & scene) { QVERIFY(scene.grid->edit(scene.row)); },
        [](Scene & scene) { scene.grid->EndEditItemNow(false); });
}

void tst_EditSurvival::discard()
{
    run([](Scene & scene) { QVERIFY(scene.grid->edit(scene.row)); },
        [](Scene & scene) { scene.grid->EndEditItemNow(true); });
}

void tst_EditSurvival::deleteRow()
{
    run([](Scene & scene) { QVERIFY(scene.grid->edit(scene.row)); },
        [](Scene & scene) { scene.grid->DeleteRow(scene.grid->rows[1]); });
}

void tst_EditSurvival::nextEdit()
{
    run([](Scene & scene) { QVERIFY(scene.grid->edit(scene.row)); },
        [](Scene & scene) { scene.grid->edit(scene.grid->rows[2]); });
}

void tst_EditSurvival::clickThatEdits()
{
    run([](Scene & scene) { scene.grid->click(scene.row, Text); },
        [](Scene & scene) {
            QRect rect;
            scene.grid->GetItemEditorRect(scene.row, EditGrid::column(Text), &rect);
            QTest::mousePress(scene.grid, Qt::LeftButton, {}, rect.center());
        });
}

void tst_EditSurvival::timeOut()
{
    run([](Scene & scene) { scene.grid->click(scene.row, Text); },
        [](Scene & scene) {
            KGridCtrl::PrivateData & frame = scene.grid->GetPriv();
            frame.ScheduleEdit(frame.LocateRow(scene.row), frame.columns.find(Text));
            frame.EditTimeOut();
        });
}

void tst_EditSurvival::checkBoxes()
{
    run([](Scene & scene) { scene.grid->SelectAll(); },
        [](Scene & scene) { scene.grid->clickBox(scene.row); });
}

ZENU_TEST(tst_EditSurvival)
#include "tst_EditSurvival.moc"
