#include "examples/commands/CommandIds.h"
#include "examples/commands/EditorWindow.h"
#include "tests/support/TestMain.h"

#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

using namespace editor;

namespace {

// The window with a text of two lines, shown, with the cursor at the start.
struct ShownWindow
{
    ShownWindow()
    {
        window.show();
        window.activateWindow();
        setText(QStringLiteral("one two\nthree four"));
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    void setText(QString const & text)
    {
        window.text()->setPlainText(text);
        window.text()->moveCursor(QTextCursor::Start);
        window.actions()->updateAll();
    }
    QAction * action(unsigned id) { return window.actions()->getAction(id); }
    QToolButton * button(unsigned id)
    {
        auto * const tools = window.findChild<QToolBar *>();
        return qobject_cast<QToolButton *>(tools->widgetForAction(action(id)));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window.text(), key, modifiers);
    }
    QString text() { return window.text()->toPlainText(); }
    int position() { return window.text()->textCursor().position(); }

    EditorWindow window;
};

} // namespace

class tst_EditorWindow : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void actions_haveTextsTipsKeysAndIcons();
    void keys_areGivenOnce();
    void words_stepByWords();
    void lines_stepByLines();
    void button_meansWhatTheModeSays();
    void delete_ofAWordTakesItsFullStop();
    void delete_ofALineTakesItsEnd();
    void double_repeatsTheWordOrTheLine();
    void modes_oneStandsChecked();
    void enabled_followsTheCursor();
    void enabled_followsReadOnly();
    void undo_followsTheText();
    void wrap_isCheckedWhileLinesAreWrapped();
    void wrap_changedByProgramIsFollowed();
    void zoom_endsEitherWay();
    void journal_tellsTheLastCommand();
    void quit_closesTheWindow();
    void block_graysEverything();
};

void tst_EditorWindow::actions_haveTextsTipsKeysAndIcons()
{
    ShownWindow shown;
    QCOMPARE(shown.window.actions()->size(), int(Quit));
    for (unsigned id = Undo; id <= Quit; ++id) {
        QAction const * const action = shown.action(id);
        QVERIFY(!action->iconText().isEmpty());
        QVERIFY(action->text().contains(QLatin1Char('&')));
        QVERIFY(action->toolTip().endsWith(
            QStringLiteral(" (%1)").arg(action->shortcut().toString(QKeySequence::NativeText))));
        QCOMPARE(action->icon().isNull(), id > ReadOnly);
    }
}

// Two actions on one key would disable each other.
void tst_EditorWindow::keys_areGivenOnce()
{
    ShownWindow shown;
    QStringList keys;
    for (unsigned id = Undo; id <= Quit; ++id) {
        keys += shown.action(id)->shortcut().toString();
    }
    QCOMPARE(keys.removeDuplicates(), 0);
}

void tst_EditorWindow::words_stepByWords()
{
    ShownWindow shown;
    shown.press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(shown.position(), 4);
    shown.press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(shown.position(), 7);
    shown.press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(shown.position(), 4);
}

void tst_EditorWindow::lines_stepByLines()
{
    ShownWindow shown;
    shown.press(Qt::Key_F3);
    shown.press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(shown.position(), 8);
    shown.press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(shown.position(), 0);
    shown.press(Qt::Key_F2);
    shown.press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(shown.position(), 4);
}

void tst_EditorWindow::button_meansWhatTheModeSays()
{
    ShownWindow shown;
    QTest::mouseClick(shown.button(Delete), Qt::LeftButton);
    QCOMPARE(shown.text(), QStringLiteral(" two\nthree four"));
    QTest::mouseClick(shown.button(ByLines), Qt::LeftButton);
    QTest::mouseClick(shown.button(Delete), Qt::LeftButton);
    QCOMPARE(shown.text(), QStringLiteral("three four"));
}

void tst_EditorWindow::delete_ofAWordTakesItsFullStop()
{
    ShownWindow shown;
    shown.setText(QStringLiteral("one.  two"));
    shown.press(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(shown.text(), QStringLiteral("  two"));
    QTRY_VERIFY(!shown.button(Delete)->isEnabled()); // between blanks there is none
}

void tst_EditorWindow::delete_ofALineTakesItsEnd()
{
    ShownWindow shown;
    shown.press(Qt::Key_F3);
    shown.press(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(shown.text(), QStringLiteral("three four"));
    shown.press(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(shown.text(), QString());
    QTRY_VERIFY(!shown.action(Delete)->isEnabled());
}

void tst_EditorWindow::double_repeatsTheWordOrTheLine()
{
    ShownWindow shown;
    shown.press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(shown.text(), QStringLiteral("one one two\nthree four"));
    shown.press(Qt::Key_F3);
    shown.press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(shown.text(), QStringLiteral("one one two\none one two\nthree four"));
    // One step of undo for each.
    shown.press(Qt::Key_Z, Qt::ControlModifier);
    shown.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shown.text(), QStringLiteral("one two\nthree four"));
}

void tst_EditorWindow::modes_oneStandsChecked()
{
    ShownWindow shown;
    auto const modes = [&] {
        return QList<bool>{shown.action(ByWords)->isChecked(), shown.action(ByLines)->isChecked()};
    };
    QCOMPARE(modes(), (QList<bool>{true, false}));
    shown.press(Qt::Key_F3);
    QCOMPARE(modes(), (QList<bool>{false, true}));
    shown.press(Qt::Key_F3); // a toggle that is pressed again stays
    QCOMPARE(modes(), (QList<bool>{false, true}));
    QTest::mouseClick(shown.button(ByWords), Qt::LeftButton);
    QCOMPARE(modes(), (QList<bool>{true, false}));
}

void tst_EditorWindow::enabled_followsTheCursor()
{
    ShownWindow shown;
    QTRY_VERIFY(!shown.button(Back)->isEnabled());
    QVERIFY(shown.button(Forward)->isEnabled());
    shown.window.text()->moveCursor(QTextCursor::End);
    QTRY_VERIFY(shown.button(Back)->isEnabled());
    QTRY_VERIFY(!shown.button(Forward)->isEnabled());
    // By lines the first line is the end, wherever the cursor is in it.
    shown.press(Qt::Key_F3);
    shown.window.text()->moveCursor(QTextCursor::Start);
    shown.window.text()->moveCursor(QTextCursor::Right);
    QTRY_VERIFY(!shown.button(Back)->isEnabled());
    shown.press(Qt::Key_F2);
    QVERIFY(shown.button(Back)->isEnabled());
}

void tst_EditorWindow::enabled_followsReadOnly()
{
    ShownWindow shown;
    QTRY_VERIFY(shown.action(Delete)->isEnabled() && shown.action(Double)->isEnabled());
    shown.press(Qt::Key_F9);
    QVERIFY(shown.action(ReadOnly)->isChecked());
    QVERIFY(!shown.action(Delete)->isEnabled() && !shown.action(Double)->isEnabled());
    QVERIFY(shown.action(Forward)->isEnabled());
    shown.press(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(shown.text(), QStringLiteral("one two\nthree four"));
    shown.window.text()->setReadOnly(false);
    QTRY_VERIFY(!shown.action(ReadOnly)->isChecked() && shown.action(Delete)->isEnabled());
}

void tst_EditorWindow::undo_followsTheText()
{
    ShownWindow shown;
    QTRY_VERIFY(!shown.button(Undo)->isEnabled() && !shown.button(Redo)->isEnabled());
    QTest::keyClicks(shown.window.text(), QStringLiteral("x"));
    QTRY_VERIFY(shown.button(Undo)->isEnabled());
    shown.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shown.text(), QStringLiteral("one two\nthree four"));
    QVERIFY(!shown.button(Undo)->isEnabled() && shown.button(Redo)->isEnabled());
    shown.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(shown.text(), QStringLiteral("xone two\nthree four"));
}

void tst_EditorWindow::wrap_isCheckedWhileLinesAreWrapped()
{
    ShownWindow shown;
    QVERIFY(shown.action(Wrap)->isChecked());
    shown.press(Qt::Key_F4);
    QCOMPARE(shown.window.text()->lineWrapMode(), QPlainTextEdit::NoWrap);
    QVERIFY(!shown.action(Wrap)->isChecked());
}

void tst_EditorWindow::wrap_changedByProgramIsFollowed()
{
    ShownWindow shown;
    shown.window.text()->setLineWrapMode(QPlainTextEdit::NoWrap);
    QTRY_VERIFY(!shown.button(Wrap)->isChecked());
}

void tst_EditorWindow::zoom_endsEitherWay()
{
    ShownWindow shown;
    auto const pressUntilDisabled = [&](unsigned id) {
        int count = 0;
        while (shown.action(id)->isEnabled() && count < 100) {
            shown.action(id)->trigger();
            ++count;
        }
        return count;
    };
    QCOMPARE(pressUntilDisabled(Larger), 4);
    QCOMPARE(pressUntilDisabled(Smaller), 8);
    QCOMPARE(pressUntilDisabled(Larger), 8);
}

void tst_EditorWindow::journal_tellsTheLastCommand()
{
    ShownWindow shown;
    auto * const label = shown.window.findChild<QLabel *>(QStringLiteral("lastCommand"));
    QCOMPARE(label->text(), QString());
    shown.press(Qt::Key_F3);
    QCOMPARE(label->text(), QStringLiteral("1. Lines"));
    shown.press(Qt::Key_F9);
    QCOMPARE(label->text(), QStringLiteral("2. Read only"));
}

void tst_EditorWindow::quit_closesTheWindow()
{
    auto * const window = new EditorWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    QPointer<QWidget> const guard = window;
    window->actions()->getAction(Quit)->trigger();
    QVERIFY(!guard || !guard->isVisible());
    QTRY_VERIFY(!guard);
}

void tst_EditorWindow::block_graysEverything()
{
    ShownWindow shown;
    shown.window.actions()->block(true);
    for (unsigned id = Undo; id <= Quit; ++id) {
        QVERIFY(!shown.action(id)->isEnabled() && !shown.action(id)->isChecked());
    }
    shown.window.actions()->block(false);
    QVERIFY(shown.action(ByWords)->isChecked() && shown.action(Forward)->isEnabled());
}

ZENU_TEST(tst_EditorWindow)
#include "tst_EditorWindow.moc"
