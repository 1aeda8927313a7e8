#include "tests/scroll/InPlaceFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/scroll/KInPlaceEditor.h>

#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QMenu>

using namespace zenu;
using zenutest::Client;
using zenutest::Window;

namespace {

class Editor : public KInPlaceEditor
{
public:
    using KInPlaceEditor::insert;
    using KInPlaceEditor::KInPlaceEditor;
};

void setClipboard(char const * text)
{
    QGuiApplication::clipboard()->setText(QString::fromLatin1(text));
}

} // namespace

class tst_OverwriteTyping : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void insertKey_togglesForAllAndOnlyItsEditorNotifies();
    void insertKey_idle_togglesAndNotifiesNobody();
    void setOverwriteMode_notifiesNobody();
    void insertMode_insertsAsUsual();
    void key_replacesTheCharacterAtTheCursor();
    void key_atTheEnd_appends();
    void key_selection_isReplacedAsUsual();
    void key_fullField_stillOverwrites();
    void key_readOnly_changesNothing();
    void key_thatTypesNothing_deletesNothing_data();
    void key_thatTypesNothing_deletesNothing();
    void key_characterOfTwoUnits_goesAsAWhole();
    void key_undo_bringsTheCharacterBack();
    void insert_takesOneCharacterWhateverTheLength();
    void insert_selection_isReplacedAsUsual();
    void paste_ofKeys_data();
    void paste_ofKeys();
    void paste_selection_isReplacedAsUsual();
    void paste_emptyClipboard_deletesNothing();
    void paste_readOnly_deletesNothing();
    void paste_ofTheMenu();
    void paste_ofTheMenu_insertMode();
    void paste_ofTheMiddleButton();
    void inputMethod_commit();
    void inputMethod_composition();
    void inputMethod_compositionInParts();
    void inputMethod_cancelledComposition_deletesNothing();
    void inputMethod_overASelection_replacesItAlone();
    void inputMethod_replacingItsOwnText_takesNothingMore();

private:
    void startAt(int cursor, char const * text = "abcdef");
    void compose(char const * preedit, char const * commit);
    QAction * menuItem(QString const & text);
    QString state() const;

    std::unique_ptr<Window> m_window;
    Editor * m_editor = nullptr;
    Client m_client;
};

void tst_OverwriteTyping::init()
{
    zenutest::failOnWarnings();
    KInPlaceEditor::setOverwriteMode(true);
    m_client = Client();
    m_window = std::make_unique<Window>();
    m_editor = new Editor(m_window->canvas);
    QVERIFY(m_window->activate());
    setClipboard("XYZ");
}

void tst_OverwriteTyping::cleanup()
{
    m_window.reset();
    QGuiApplication::clipboard()->clear();
    KInPlaceEditor::setOverwriteMode(false);
}

void tst_OverwriteTyping::startAt(int cursor, char const * text)
{
    QVERIFY(m_editor->startEditing(&m_client, text, QRect(20, 30, 120, 24)));
    m_editor->setCursorPosition(cursor);
    QVERIFY(!m_editor->hasSelectedText());
}

void tst_OverwriteTyping::compose(char const * preedit, char const * commit)
{
    QInputMethodEvent event(QString::fromLatin1(preedit), {});
    event.setCommitString(QString::fromLatin1(commit));
    QApplication::sendEvent(m_editor, &event);
}

// Opens the context menu of the editor and finds an item there.
QAction * tst_OverwriteTyping::menuItem(QString const & text)
{
    QPoint const at(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, m_editor->mapToGlobal(at));
    QApplication::sendEvent(m_editor, &event);
    auto const * const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    for (QAction * action : menu ? menu->actions() : QList<QAction *>()) {
        if (action->text().startsWith(text))
            return action;
    }
    return nullptr;
}

// The text, with a bar where the cursor stands.
QString tst_OverwriteTyping::state() const
{
    return m_editor->text().insert(m_editor->cursorPosition(), QLatin1Char('|'));
}

void tst_OverwriteTyping::insertKey_togglesForAllAndOnlyItsEditorNotifies()
{
    KInPlaceEditor::setOverwriteMode(false);
    KInPlaceEditor second(m_window->canvas);
    startAt(0);
    m_window->press(Qt::Key_Insert);
    QVERIFY(KInPlaceEditor::isOverwriteMode());
    QCOMPARE(m_client.calls, QStringList("mode 1"));
    Client other;
    second.startEditing(&other, "123", QRect(20, 60, 100, 20));
    second.setCursorPosition(0);
    m_window->type("9");
    QCOMPARE(second.text(), QStringLiteral("923"));
    m_window->press(Qt::Key_Insert);
    QVERIFY(!KInPlaceEditor::isOverwriteMode());
    QCOMPARE(other.calls, QStringList("mode 0"));
    QCOMPARE(m_client.calls, QStringList({"mode 1", "complete abcdef"}));
}

void tst_OverwriteTyping::insertKey_idle_togglesAndNotifiesNobody()
{
    startAt(0);
    m_editor->cancelEditing();
    m_editor->show();
    QTest::keyClick(m_editor, Qt::Key_Insert);
    QVERIFY(!KInPlaceEditor::isOverwriteMode());
    QCOMPARE(m_client.calls, QStringList("cancel"));
}

void tst_OverwriteTyping::setOverwriteMode_notifiesNobody()
{
    startAt(0);
    KInPlaceEditor::setOverwriteMode(false);
    KInPlaceEditor::setOverwriteMode(true);
    QCOMPARE(m_client.calls, QStringList());
}

void tst_OverwriteTyping::insertMode_insertsAsUsual()
{
    KInPlaceEditor::setOverwriteMode(false);
    startAt(1);
    m_window->type("x");
    QCOMPARE(state(), QStringLiteral("ax|bcdef"));
    m_editor->insert(QStringLiteral("y"));
    QCOMPARE(state(), QStringLiteral("axy|bcdef"));
    compose("", "z");
    QCOMPARE(state(), QStringLiteral("axyz|bcdef"));
    m_window->press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(state(), QStringLiteral("axyzXYZ|bcdef"));
}

void tst_OverwriteTyping::key_replacesTheCharacterAtTheCursor()
{
    startAt(2);
    m_window->type("xy");
    QCOMPARE(state(), QStringLiteral("abxy|ef"));
}

void tst_OverwriteTyping::key_atTheEnd_appends()
{
    startAt(5);
    m_window->type("xyz");
    QCOMPARE(state(), QStringLiteral("abcdexyz|"));
}

void tst_OverwriteTyping::key_selection_isReplacedAsUsual()
{
    startAt(0);
    m_editor->setSelection(1, 3);
    m_window->type("x");
    QCOMPARE(state(), QStringLiteral("ax|ef"));
    m_window->type("y");
    QCOMPARE(state(), QStringLiteral("axy|f"));
}

void tst_OverwriteTyping::key_fullField_stillOverwrites()
{
    m_editor->setMaxLength(6);
    startAt(2);
    m_window->type("x");
    QCOMPARE(state(), QStringLiteral("abx|def"));
}

void tst_OverwriteTyping::key_readOnly_changesNothing()
{
    m_editor->setReadOnly(true);
    startAt(2);
    m_window->type("x");
    QCOMPARE(state(), QStringLiteral("ab|cdef"));
}

void tst_OverwriteTyping::key_thatTypesNothing_deletesNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("shift") << int(Qt::Key_Shift) << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("escape") << int(Qt::Key_Escape) << Qt::KeyboardModifiers();
    QTest::newRow("ctrl b") << int(Qt::Key_B) << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("ctrl shift b") << int(Qt::Key_B)
                                  << Qt::KeyboardModifiers(Qt::ControlModifier | Qt::ShiftModifier);
    QTest::newRow("function key") << int(Qt::Key_F5) << Qt::KeyboardModifiers();
}

void tst_OverwriteTyping::key_thatTypesNothing_deletesNothing()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    startAt(2);
    m_window->press(Qt::Key(key), modifiers);
    QCOMPARE(state(), QStringLiteral("ab|cdef"));
}

void tst_OverwriteTyping::key_characterOfTwoUnits_goesAsAWhole()
{
    startAt(0, "");
    m_editor->setText(QStringLiteral("a\U0001F600b"));
    m_editor->setCursorPosition(1);
    m_window->type("x");
    QCOMPARE(state(), QStringLiteral("ax|b"));
}

void tst_OverwriteTyping::key_undo_bringsTheCharacterBack()
{
    startAt(2);
    m_window->type("x");
    for (int i = 0; i < 2; ++i)
        m_window->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_editor->text(), QStringLiteral("abcdef"));
}

void tst_OverwriteTyping::insert_takesOneCharacterWhateverTheLength()
{
    startAt(1);
    m_editor->insert(QStringLiteral("123"));
    QCOMPARE(state(), QStringLiteral("a123|cdef"));
}

void tst_OverwriteTyping::insert_selection_isReplacedAsUsual()
{
    startAt(1);
    m_editor->selectAll();
    m_editor->insert(QStringLiteral("123"));
    QCOMPARE(state(), QStringLiteral("123|"));
}

void tst_OverwriteTyping::paste_ofKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("ctrl v") << int(Qt::Key_V) << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("shift insert") << int(Qt::Key_Insert)
                                  << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void tst_OverwriteTyping::paste_ofKeys()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    startAt(1);
    m_window->press(Qt::Key(key), modifiers);
    QCOMPARE(state(), QStringLiteral("aXYZ|cdef"));
    // Insert is Insert, whatever else is held.
    QCOMPARE(KInPlaceEditor::isOverwriteMode(), key != Qt::Key_Insert);
}

void tst_OverwriteTyping::paste_selection_isReplacedAsUsual()
{
    startAt(1);
    m_editor->setSelection(1, 2);
    m_window->press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(state(), QStringLiteral("aXYZ|def"));
}

void tst_OverwriteTyping::paste_emptyClipboard_deletesNothing()
{
    QGuiApplication::clipboard()->clear();
    startAt(1);
    m_window->press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(state(), QStringLiteral("a|bcdef"));
}

void tst_OverwriteTyping::paste_readOnly_deletesNothing()
{
    m_editor->setReadOnly(true);
    startAt(1);
    m_window->press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_editor->text(), QStringLiteral("abcdef"));
}

void tst_OverwriteTyping::paste_ofTheMenu()
{
    startAt(1);
    QAction * const paste = menuItem(QLineEdit::tr("&Paste"));
    QVERIFY(paste);
    paste->trigger();
    QCOMPARE(state(), QStringLiteral("aXYZ|cdef"));
    QApplication::activePopupWidget()->close();
}

void tst_OverwriteTyping::paste_ofTheMenu_insertMode()
{
    KInPlaceEditor::setOverwriteMode(false);
    startAt(1);
    QAction * const paste = menuItem(QLineEdit::tr("&Paste"));
    QVERIFY(paste);
    paste->trigger();
    QCOMPARE(state(), QStringLiteral("aXYZ|bcdef"));
    QApplication::activePopupWidget()->close();
}

void tst_OverwriteTyping::paste_ofTheMiddleButton()
{
    QClipboard * const clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection())
        QSKIP("The platform pastes nothing with the middle button");
    startAt(0, "abcdef");
    clipboard->setText(QStringLiteral("MID"), QClipboard::Selection);
    QTest::mouseClick(m_editor, Qt::MiddleButton, {}, QPoint(0, 10));
    QCOMPARE(state(), QStringLiteral("MID|bcdef"));
}

void tst_OverwriteTyping::inputMethod_commit()
{
    startAt(2);
    compose("", "x");
    QCOMPARE(state(), QStringLiteral("abx|def"));
}

void tst_OverwriteTyping::inputMethod_composition()
{
    startAt(2);
    compose("x", "");
    compose("xy", "");
    QCOMPARE(m_editor->text(), QStringLiteral("abcdef"));
    compose("", "xyz");
    QCOMPARE(state(), QStringLiteral("abxyz|def"));
}

void tst_OverwriteTyping::inputMethod_compositionInParts()
{
    startAt(2);
    compose("x", "");
    compose("y", "x");
    compose("", "y");
    QCOMPARE(state(), QStringLiteral("abxy|ef"));
}

void tst_OverwriteTyping::inputMethod_cancelledComposition_deletesNothing()
{
    startAt(2);
    compose("x", "");
    compose("", "");
    QCOMPARE(state(), QStringLiteral("ab|cdef"));
}

void tst_OverwriteTyping::inputMethod_overASelection_replacesItAlone()
{
    startAt(0);
    m_editor->setSelection(1, 2);
    compose("x", "");
    compose("y", "x");
    QCOMPARE(state(), QStringLiteral("ax|def"));
    compose("", "y");
    QCOMPARE(state(), QStringLiteral("axy|ef"));
}

void tst_OverwriteTyping::inputMethod_replacingItsOwnText_takesNothingMore()
{
    startAt(2);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x"), -1, 1);
    QApplication::sendEvent(m_editor, &event);
    QCOMPARE(state(), QStringLiteral("ax|cdef"));
}

ZENU_TEST(tst_OverwriteTyping)
#include "tst_OverwriteTyping.moc"
