#include "tests/scroll/InPlaceFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/scroll/KInPlaceEditor.h>

#include <QtWidgets/QMenu>

using namespace zenu;
using zenutest::Client;
using zenutest::Window;

class tst_KInPlaceEditor : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void construction_hiddenWithoutFrameAndWithItsName();
    void construction_nullName_isSafe();
    void background_isTheWindowColourOfThePalette();
    void qObject_isTheObjectItself();
    void class_hasPrivateSlotsAndNoSignals();
    void start_showsTheTextSelectedWithFocusAndKeyboard();
    void start_duringAnEdit_returnsFalseAndChangesNothing();
    void start_nullText_isAnEmptyLine();
    void start_nullNotification_editsForNobody();
    void start_focusOfAnotherEditor_endsItsEdit();
    void start_inAWindowThatIsNotActive_leavesTheOtherEdit();
    void start_clientOfAnotherEditorEndsIt_returnsFalse();
    void keys_goToTheEditorWhoeverHasThem();
    void return_completesWithTheText();
    void complete_textIsLatin1();
    void enter_completesToo();
    void returnPressed_emittedByOthers_completes();
    void complete_isOverBeforeTheClientHears();
    void cancel_tellsTheClientAndHides();
    void cancel_idle_releasesTheKeyboardOnly();
    void focusLost_completes();
    void focusLost_endsForEachReasonButAPopup_data();
    void focusLost_endsForEachReasonButAPopup();
    void focusLost_byAClick_completes();
    void focusLost_windowDeactivated_completes();
    void focusLost_toAPopup_editGoesOn();
    void contextMenu_hasTheKeysAndTheEditGoesOn();
    void parentHidden_completes();
    void escape_endsNothingAndGoesOn();
    void reuse_afterEachEnd();
    void deletedWhileEditing_releasesTheKeyboard();

private:
    bool start(char const * text) { return m_editor->startEditing(&m_client, text, m_rect); }

    std::unique_ptr<Window> m_window;
    QPointer<KInPlaceEditor> m_editor;
    Client m_client;
    QRect const m_rect{20, 30, 120, 24};
};

void tst_KInPlaceEditor::init()
{
    zenutest::failOnWarnings();
    m_client = Client();
    m_window = std::make_unique<Window>();
    m_editor = new KInPlaceEditor(m_window->canvas, "editor");
    QVERIFY(m_window->activate());
}

void tst_KInPlaceEditor::cleanup()
{
    m_window.reset();
    QVERIFY(!QWidget::keyboardGrabber());
}

void tst_KInPlaceEditor::construction_hiddenWithoutFrameAndWithItsName()
{
    QVERIFY(m_editor->isHidden());
    QVERIFY(!m_editor->hasFrame());
    QVERIFY(!m_editor->isEditing());
    QVERIFY(!m_editor->isAutoResizing());
    QVERIFY(!KInPlaceEditor::isOverwriteMode());
    QCOMPARE(m_editor->objectName(), QStringLiteral("editor"));
    QCOMPARE(m_editor->parentWidget(), static_cast<QWidget *>(m_window->canvas));
}

void tst_KInPlaceEditor::construction_nullName_isSafe()
{
    KInPlaceEditor const editor(nullptr, nullptr);
    QVERIFY(editor.objectName().isEmpty());
    QVERIFY(editor.isHidden());
}

void tst_KInPlaceEditor::background_isTheWindowColourOfThePalette()
{
    QPalette palette = m_window->palette();
    palette.setColor(QPalette::Base, Qt::white);
    for (QColor const & color : {QColor(200, 220, 240), QColor(10, 60, 20)}) {
        palette.setColor(QPalette::Window, color);
        m_window->setPalette(palette);
        start("");
        QCOMPARE(m_editor->grab().toImage().pixelColor(100, 12), color);
        m_editor->cancelEditing();
    }
}

void tst_KInPlaceEditor::qObject_isTheObjectItself()
{
    QCOMPARE(m_editor->qObject(), static_cast<QObject *>(m_editor));
}

void tst_KInPlaceEditor::class_hasPrivateSlotsAndNoSignals()
{
    QMetaObject const & meta = KInPlaceEditor::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(i).access(), QMetaMethod::Private);
        methods << QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(methods, QStringList({"pressedReturn()", "changedText(QString)"}));
}

void tst_KInPlaceEditor::start_showsTheTextSelectedWithFocusAndKeyboard()
{
    QVERIFY(start("some \xe4 text"));
    QVERIFY(m_editor->isVisible());
    QVERIFY(m_editor->isEditing());
    QVERIFY(m_editor->hasFocus());
    QCOMPARE(QWidget::keyboardGrabber(), static_cast<QWidget *>(m_editor));
    QCOMPARE(m_editor->geometry(), m_rect);
    QCOMPARE(m_editor->text(), QString::fromLatin1("some \xe4 text"));
    QCOMPARE(m_editor->selectedText(), m_editor->text());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceEditor::start_duringAnEdit_returnsFalseAndChangesNothing()
{
    start("first");
    m_editor->setSelection(1, 2);
    Client second;
    QVERIFY(!m_editor->startEditing(&second, "second", QRect(1, 2, 30, 40)));
    QCOMPARE(m_editor->text(), QStringLiteral("first"));
    QCOMPARE(m_editor->selectedText(), QStringLiteral("ir"));
    QCOMPARE(m_editor->geometry(), m_rect);
    m_window->press(Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList("complete first"));
    QCOMPARE(second.calls, QStringList());
}

void tst_KInPlaceEditor::start_nullText_isAnEmptyLine()
{
    start("before");
    m_editor->cancelEditing();
    QVERIFY(start(nullptr));
    QCOMPARE(m_editor->text(), QString());
    m_window->press(Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList({"cancel", "complete "}));
}

void tst_KInPlaceEditor::start_nullNotification_editsForNobody()
{
    QVERIFY(m_editor->startEditing(nullptr, "text", m_rect));
    QVERIFY(m_editor->isEditing());
    QVERIFY(!m_editor->startEditing(nullptr, "text", m_rect));
    m_window->press(Qt::Key_Insert);
    m_window->press(Qt::Key_Insert);
    m_window->press(Qt::Key_Return);
    QVERIFY(!m_editor->isEditing());
    QVERIFY(m_editor->isHidden());
    QVERIFY(m_editor->startEditing(nullptr, "text", m_rect));
    m_editor->cancelEditing();
    QVERIFY(m_editor->isHidden());
}

void tst_KInPlaceEditor::start_focusOfAnotherEditor_endsItsEdit()
{
    KInPlaceEditor second(m_window->canvas);
    Client client;
    start("first");
    QVERIFY(second.startEditing(&client, "second", QRect(20, 60, 100, 20)));
    QCOMPARE(m_client.calls, QStringList("complete first"));
    QVERIFY(m_editor->isHidden());
    QVERIFY(second.hasFocus());
    QCOMPARE(QWidget::keyboardGrabber(), static_cast<QWidget *>(&second));
}

void tst_KInPlaceEditor::start_inAWindowThatIsNotActive_leavesTheOtherEdit()
{
    QWidget window;
    KInPlaceEditor second(&window);
    Client client;
    start("first");
    QVERIFY(second.startEditing(&client, "second", QRect(20, 60, 100, 20)));
    QVERIFY(m_editor->isEditing());
    QVERIFY(m_editor->hasFocus());
    second.cancelEditing();
}

void tst_KInPlaceEditor::start_clientOfAnotherEditorEndsIt_returnsFalse()
{
    KInPlaceEditor second(m_window->canvas);
    Client client;
    m_client.onComplete = [&] { second.cancelEditing(); };
    start("first");
    QVERIFY(!second.startEditing(&client, "second", QRect(20, 60, 100, 20)));
    QCOMPARE(client.calls, QStringList("cancel"));
    QVERIFY(second.isHidden());
    QVERIFY(!QWidget::keyboardGrabber());
}

void tst_KInPlaceEditor::keys_goToTheEditorWhoeverHasThem()
{
    start("old");
    m_window->type("new");
    QCOMPARE(m_editor->text(), QStringLiteral("new"));
}

void tst_KInPlaceEditor::return_completesWithTheText()
{
    start("old");
    m_window->type("new");
    m_window->press(Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList("complete new"));
    QVERIFY(!m_editor->isEditing());
    QVERIFY(m_editor->isHidden());
    QVERIFY(!QWidget::keyboardGrabber());
}

void tst_KInPlaceEditor::complete_textIsLatin1()
{
    class Bytes : public IInPlaceEditorNotification
    {
    public:
        QByteArray text;
        void completeEditing(char const * bytes) override { text = bytes; }
    };
    Bytes client;
    m_editor->startEditing(&client, "", m_rect);
    m_editor->setText(QStringLiteral("\u00e4\u00ff"));
    m_window->press(Qt::Key_Return);
    QCOMPARE(client.text, QByteArray("\xe4\xff"));
}

void tst_KInPlaceEditor::enter_completesToo()
{
    start("old");
    m_window->press(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(m_client.calls, QStringList("complete old"));
}

void tst_KInPlaceEditor::returnPressed_emittedByOthers_completes()
{
    start("old");
    Q_EMIT m_editor->returnPressed();
    QCOMPARE(m_client.calls, QStringList("complete old"));
    QVERIFY(m_editor->isHidden());
}

void tst_KInPlaceEditor::complete_isOverBeforeTheClientHears()
{
    start("text");
    bool heard = false;
    m_client.onComplete = [&] {
        heard = true;
        QVERIFY(!m_editor->isEditing());
        QVERIFY(m_editor->isVisible());
        QVERIFY(!QWidget::keyboardGrabber());
    };
    m_window->press(Qt::Key_Return);
    QVERIFY(heard);
}

void tst_KInPlaceEditor::cancel_tellsTheClientAndHides()
{
    start("text");
    m_window->type("x");
    m_editor->cancelEditing();
    QCOMPARE(m_client.calls, QStringList("cancel"));
    QVERIFY(m_editor->isHidden());
    QVERIFY(!m_editor->isEditing());
    QVERIFY(!QWidget::keyboardGrabber());
}

void tst_KInPlaceEditor::cancel_idle_releasesTheKeyboardOnly()
{
    m_editor->grabKeyboard();
    m_editor->cancelEditing();
    QVERIFY(!QWidget::keyboardGrabber());
    QCOMPARE(m_client.calls, QStringList());
    m_editor->cancelEditing();
    QVERIFY(m_editor->isHidden());
}

void tst_KInPlaceEditor::focusLost_completes()
{
    start("text");
    m_window->other->setFocus();
    QCOMPARE(m_client.calls, QStringList("complete text"));
    QVERIFY(m_editor->isHidden());
    QVERIFY(m_window->other->hasFocus());
    QVERIFY(!QWidget::keyboardGrabber());
}

void tst_KInPlaceEditor::focusLost_endsForEachReasonButAPopup_data()
{
    QTest::addColumn<Qt::FocusReason>("reason");
    QTest::addColumn<bool>("ends");
    QTest::newRow("mouse") << Qt::MouseFocusReason << true;
    QTest::newRow("tab") << Qt::TabFocusReason << true;
    QTest::newRow("tab backwards") << Qt::BacktabFocusReason << true;
    QTest::newRow("window") << Qt::ActiveWindowFocusReason << true;
    QTest::newRow("popup") << Qt::PopupFocusReason << false;
    QTest::newRow("shortcut") << Qt::ShortcutFocusReason << true;
    QTest::newRow("menu bar") << Qt::MenuBarFocusReason << true;
    QTest::newRow("other") << Qt::OtherFocusReason << true;
}

void tst_KInPlaceEditor::focusLost_endsForEachReasonButAPopup()
{
    QFETCH(Qt::FocusReason, reason);
    QFETCH(bool, ends);
    start("text");
    m_window->other->setFocus(reason);
    QVERIFY(m_window->other->hasFocus());
    QCOMPARE(m_client.calls, ends ? QStringList("complete text") : QStringList());
    QCOMPARE(m_editor->isEditing(), !ends);
    QCOMPARE(m_editor->isHidden(), ends);
}

void tst_KInPlaceEditor::focusLost_byAClick_completes()
{
    start("text");
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {},
                      m_window->other->geometry().center());
    QCOMPARE(m_client.calls, QStringList("complete text"));
    QVERIFY(m_window->other->hasFocus());
}

void tst_KInPlaceEditor::focusLost_windowDeactivated_completes()
{
    start("text");
    QWidget another;
    another.show();
    another.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&another));
    QTRY_COMPARE(m_client.calls, QStringList("complete text"));
    QVERIFY(m_editor->isHidden());
}

void tst_KInPlaceEditor::focusLost_toAPopup_editGoesOn()
{
    start("text");
    QMenu menu;
    menu.addAction(QStringLiteral("item"));
    menu.popup(m_window->mapToGlobal(QPoint(5, 5)));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QVERIFY(m_editor->isEditing());
    QVERIFY(m_editor->isVisible());
    menu.close();
    QVERIFY(m_editor->isEditing());
    QVERIFY(m_editor->hasFocus());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceEditor::contextMenu_hasTheKeysAndTheEditGoesOn()
{
    start("text");
    QPoint const at(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, m_editor->mapToGlobal(at));
    QApplication::sendEvent(m_editor, &event);
    QPointer<QWidget> const menu = QApplication::activePopupWidget();
    QVERIFY(qobject_cast<QMenu *>(menu));
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    QVERIFY(m_editor->isEditing());
    QVERIFY(!QWidget::keyboardGrabber());
    QTest::keyClick(menu->windowHandle(), Qt::Key_Escape);
    QTRY_VERIFY(!menu);
    QVERIFY(m_editor->isEditing());
    QCOMPARE(QWidget::keyboardGrabber(), static_cast<QWidget *>(m_editor));
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceEditor::parentHidden_completes()
{
    start("text");
    m_window->canvas->hide();
    QCOMPARE(m_client.calls, QStringList("complete text"));
    QVERIFY(m_editor->isHidden());
}

void tst_KInPlaceEditor::escape_endsNothingAndGoesOn()
{
    start("text");
    m_window->press(Qt::Key_Escape);
    QVERIFY(m_editor->isEditing());
    QVERIFY(m_editor->isVisible());
    QCOMPARE(m_editor->text(), QStringLiteral("text"));
    QCOMPARE(m_client.calls, QStringList());
    QCOMPARE(m_window->canvas->keys, QList<int>({Qt::Key_Escape}));
}

void tst_KInPlaceEditor::reuse_afterEachEnd()
{
    QVERIFY(start("one"));
    m_window->press(Qt::Key_Return);
    QVERIFY(start("two"));
    m_editor->cancelEditing();
    QVERIFY(start("three"));
    m_window->other->setFocus();
    Client second;
    QVERIFY(m_editor->startEditing(&second, "four", QRect(5, 6, 70, 20)));
    QVERIFY(m_editor->isVisible());
    QCOMPARE(m_editor->geometry(), QRect(5, 6, 70, 20));
    QCOMPARE(m_editor->selectedText(), QStringLiteral("four"));
    m_window->press(Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList({"complete one", "cancel", "complete three"}));
    QCOMPARE(second.calls, QStringList("complete four"));
}

void tst_KInPlaceEditor::deletedWhileEditing_releasesTheKeyboard()
{
    start("text");
    delete m_editor;
    QVERIFY(!QWidget::keyboardGrabber());
    QCOMPARE(m_client.calls, QStringList());
}

ZENU_TEST(tst_KInPlaceEditor)
#include "tst_KInPlaceEditor.moc"
