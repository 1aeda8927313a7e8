#include "tests/support/TestMain.h"
#include "zenu/grid/editing/KItemLineEditor.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>

#include <functional>

using namespace zenu;

namespace {

// Takes the place of the grid: notes the ends that are posted to it and the keys that reach it.
class Parent : public QWidget
{
public:
    Parent()
        : editor(new KItemLineEditor(this))
        , other(new QPushButton(this))
    {
        resize(200, 100);
        editor->setGeometry(10, 10, 100, 24);
        other->setGeometry(10, 60, 100, 24);
    }
    bool open()
    {
        show();
        activateWindow();
        bool const active = QTest::qWaitForWindowActive(this);
        editor->Open();
        return active && editor->hasFocus();
    }
    QList<quint64> takeEnds()
    {
        QCoreApplication::processEvents();
        return std::exchange(ends, {});
    }

    QPointer<KItemLineEditor> editor;
    QPushButton * other;
    QList<quint64> ends;
    QStringList keys;

protected:
    void customEvent(QEvent * event) override
    {
        QCOMPARE(int(event->type()), 7113);
        auto const * const end = dynamic_cast<KEndItemEditEvent *>(event);
        QVERIFY(end);
        ends << end->EditorId();
    }
    void keyPressEvent(QKeyEvent * event) override
    {
        keys << QKeySequence(event->key()).toString();
    }
    void keyReleaseEvent(QKeyEvent * event) override
    {
        keys << QKeySequence(event->key()).toString();
    }
};

// The offscreen platform says what it lacks.
void expectPopup()
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
    }
}

} // namespace

class tst_KItemLineEditor : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void ids_areNeverTwice();
    void open_showsAndTakesTheFocus();
    void returnKey_postsTheEnd_data();
    void returnKey_postsTheEnd();
    void otherKeys_postNothing_data();
    void otherKeys_postNothing();
    void everyKey_staysInTheEditor_data() { otherKeys_postNothing_data(); }
    void everyKey_staysInTheEditor();
    void escape_leavesTheDialogOpen();
    void shortcuts_plainKeysAreTyped_commandsStay();
    void typing_editsTheText();
    void focusLoss_postsTheEnd();
    void tab_movesTheFocusAndPostsTheEnd();
    void windowDeactivation_postsTheEnd();
    void ownContextMenu_isNoLossOfFocus();
    void otherPopup_postsTheEnd();
    void withoutParent_postsNothing();
    void close_deletesAtOnceAndPostsNothing();
    void close_inItsOwnEvent_waitsForTheEventsEnd();
    void close_inItsOwnEvent_outlivesTheParent();
    void deletion_byOthers_postsTheEnd();
    void deletion_withTheParent_isQuiet();
    void closeAllOf_closesDirectChildrenAlone();
};

void tst_KItemLineEditor::ids_areNeverTwice()
{
    QSet<quint64> ids;
    for (int i = 0; i < 100; ++i) {
        auto * const editor = new KItemLineEditor(nullptr); // at one address again and again
        ids << editor->Id();
        editor->Close();
    }
    QCOMPARE(ids.size(), 100);
    QVERIFY(!ids.contains(0));
}

void tst_KItemLineEditor::open_showsAndTakesTheFocus()
{
    Parent parent;
    QVERIFY(!parent.editor->isVisible());
    QVERIFY(parent.open());
    QVERIFY(parent.editor->isVisible());
    QVERIFY(parent.takeEnds().isEmpty());
}

void tst_KItemLineEditor::returnKey_postsTheEnd_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter of the keypad") << int(Qt::Key_Enter);
}

void tst_KItemLineEditor::returnKey_postsTheEnd()
{
    QFETCH(int, key);
    Parent parent;
    QVERIFY(parent.open());
    QTest::keyClick(parent.editor, Qt::Key(key));
    QVERIFY(parent.ends.isEmpty()); // posted, not called
    QCOMPARE(parent.takeEnds(), QList<quint64>{parent.editor->Id()});
    QVERIFY(parent.keys.isEmpty()); // the dialog's default button is not meant
}

void tst_KItemLineEditor::otherKeys_postNothing_data()
{
    QTest::addColumn<int>("key");
    for (int const key :
         {int(Qt::Key_Escape), int(Qt::Key_Up), int(Qt::Key_Down), int(Qt::Key_PageUp),
          int(Qt::Key_PageDown), int(Qt::Key_Home), int(Qt::Key_End), int(Qt::Key_Left),
          int(Qt::Key_Right), int(Qt::Key_Delete), int(Qt::Key_Backspace), int(Qt::Key_F2),
          int(Qt::Key_A), int(Qt::Key_Plus), int(Qt::Key_Minus), int(Qt::Key_Space),
          int(Qt::Key_Insert)}) {
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << key;
    }
}

void tst_KItemLineEditor::otherKeys_postNothing()
{
    QFETCH(int, key);
    Parent parent;
    QVERIFY(parent.open());
    for (Qt::KeyboardModifiers const keys :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::KeyboardModifiers(Qt::ControlModifier)}) {
        QTest::keyClick(parent.editor, Qt::Key(key), keys);
    }
    QVERIFY(parent.takeEnds().isEmpty());
    QVERIFY(parent.editor->hasFocus());
}

void tst_KItemLineEditor::everyKey_staysInTheEditor()
{
    QFETCH(int, key);
    Parent parent;
    QVERIFY(parent.open());
    QTest::keyClick(parent.editor, Qt::Key(key));
    QTest::keyClick(parent.editor, Qt::Key(key), Qt::ControlModifier);
    QCOMPARE(parent.keys, QStringList());
}

void tst_KItemLineEditor::escape_leavesTheDialogOpen()
{
    QDialog dialog;
    auto * const editor = new KItemLineEditor(&dialog);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    editor->Open();
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(dialog.isVisible());
    editor->Close();
    QTest::keyClick(&dialog, Qt::Key_Escape); // as it would have gone otherwise
    QVERIFY(!dialog.isVisible());
}

void tst_KItemLineEditor::shortcuts_plainKeysAreTyped_commandsStay()
{
    Parent parent;
    QStringList taken;
    for (QString const & keys : {QStringLiteral("F2"), QStringLiteral("Esc"), QStringLiteral("Del"),
                                 QStringLiteral("Ctrl+S")}) {
        auto * const shortcut = new QShortcut(QKeySequence(keys), &parent);
        connect(shortcut, &QShortcut::activated, this, [&taken, keys] { taken << keys; });
    }
    QVERIFY(parent.open());
    QTest::keyClick(parent.editor, Qt::Key_F2);
    QTest::keyClick(parent.editor, Qt::Key_Escape);
    QTest::keyClick(parent.editor, Qt::Key_Delete);
    QTest::keyClick(parent.editor, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(taken.join(u' '), QStringLiteral("Ctrl+S"));
}

void tst_KItemLineEditor::typing_editsTheText()
{
    Parent parent;
    parent.editor->setText(QStringLiteral("old"));
    parent.editor->selectAll();
    QVERIFY(parent.open());
    QTest::keyClicks(parent.editor, QStringLiteral("new"));
    QCOMPARE(parent.editor->text(), QStringLiteral("new"));
}

void tst_KItemLineEditor::focusLoss_postsTheEnd()
{
    Parent parent;
    QVERIFY(parent.open());
    parent.other->setFocus();
    QVERIFY(parent.ends.isEmpty());
    QCOMPARE(parent.takeEnds(), QList<quint64>{parent.editor->Id()});
}

void tst_KItemLineEditor::tab_movesTheFocusAndPostsTheEnd()
{
    Parent parent;
    QVERIFY(parent.open());
    QTest::keyClick(parent.editor, Qt::Key_Tab);
    QVERIFY(parent.other->hasFocus());
    QCOMPARE(parent.takeEnds(), QList<quint64>{parent.editor->Id()});
}

void tst_KItemLineEditor::windowDeactivation_postsTheEnd()
{
    Parent parent;
    QVERIFY(parent.open());
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QCOMPARE(parent.takeEnds(), QList<quint64>{parent.editor->Id()});
}

void tst_KItemLineEditor::ownContextMenu_isNoLossOfFocus()
{
    Parent parent;
    QVERIFY(parent.open());
    expectPopup();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            parent.editor->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(parent.editor, &event);
    auto * const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(parent.takeEnds().isEmpty());
    QTest::keyClick(menu, Qt::Key_Escape);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(parent.takeEnds().isEmpty());
    QVERIFY(parent.editor->hasFocus());
    parent.other->setFocus(); // still ends it
    QCOMPARE(parent.takeEnds().size(), 1);
}

void tst_KItemLineEditor::otherPopup_postsTheEnd()
{
    Parent parent;
    QVERIFY(parent.open());
    expectPopup();
    QMenu menu(&parent);
    menu.addAction(QStringLiteral("Command"));
    menu.popup(parent.mapToGlobal(QPoint(50, 50)));
    QCOMPARE(parent.takeEnds(), QList<quint64>{parent.editor->Id()});
    menu.close();
}

void tst_KItemLineEditor::withoutParent_postsNothing()
{
    auto * const editor = new KItemLineEditor(nullptr);
    editor->show();
    editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    editor->Open();
    QTest::keyClick(editor, Qt::Key_Return);
    editor->clearFocus();
    QCoreApplication::processEvents();
    editor->Close();
}

void tst_KItemLineEditor::close_deletesAtOnceAndPostsNothing()
{
    Parent parent;
    QVERIFY(parent.open());
    parent.editor->Close();
    QVERIFY(!parent.editor);
    QVERIFY(parent.takeEnds().isEmpty());
}

void tst_KItemLineEditor::close_inItsOwnEvent_waitsForTheEventsEnd()
{
    Parent parent;
    QVERIFY(parent.open());
    connect(parent.editor, &QLineEdit::textChanged, &parent, [&] { parent.editor->Close(); });
    QTest::keyClick(parent.editor, Qt::Key_A);
    QVERIFY(parent.editor);
    QVERIFY(parent.editor->isHidden());
    QVERIFY(!parent.editor->parent());
    QVERIFY(parent.takeEnds().isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!parent.editor);
}

void tst_KItemLineEditor::close_inItsOwnEvent_outlivesTheParent()
{
    auto parent = std::make_unique<Parent>();
    QVERIFY(parent->open());
    QPointer<KItemLineEditor> const editor = parent->editor;
    connect(editor, &QLineEdit::textChanged, this, [&] {
        KItemLineEditor::CloseAllOf(parent.get());
        parent.reset();
    });
    QTest::keyClick(editor.data(), Qt::Key_A);
    QVERIFY(!parent);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!editor);
}

void tst_KItemLineEditor::deletion_byOthers_postsTheEnd()
{
    Parent parent;
    QVERIFY(parent.open());
    quint64 const id = parent.editor->Id();
    delete parent.editor;
    QVERIFY(parent.takeEnds().contains(id));
}

void tst_KItemLineEditor::deletion_withTheParent_isQuiet()
{
    auto parent = std::make_unique<Parent>();
    QVERIFY(parent->open());
    parent.reset();
    QCoreApplication::processEvents();
}

void tst_KItemLineEditor::closeAllOf_closesDirectChildrenAlone()
{
    Parent parent;
    QWidget inner(&parent);
    QPointer<KItemLineEditor> const deeper = new KItemLineEditor(&inner);
    KItemLineEditor::CloseAllOf(&parent);
    QVERIFY(!parent.editor);
    QVERIFY(deeper);
    QVERIFY(parent.other);
}

ZENU_TEST(tst_KItemLineEditor)
#include "tst_KItemLineEditor.moc"
