#include "tests/scroll/InPlaceFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/scroll/KInPlaceEditor.h>

using namespace zenu;
using zenutest::Client;
using zenutest::Window;

// What a client may do with an editor from inside a notification.
class tst_InPlaceRestart : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void restart_inComplete_isHiddenAfterwards();
    void restart_inComplete_endsWithTheFocus();
    void restart_inCancel_isHiddenAfterwards();
    void restart_always_comesToAnEnd();
    void restart_andCancel_isSafe();
    void restart_later_isShown();
    void start_whenTheNextWidgetGetsTheFocus_isShown();
    void deleted_inComplete_ofReturn();
    void deleted_inComplete_ofFocusLoss();
    void deleted_inComplete_ofAHiddenEdit();
    void deleted_inCancel();
    void deleted_inEditingModeChanged();
    void parentDeleted_inComplete();
    void deleted_whenItsStartEndsAnotherEdit();
    void allDeleted_whenAStartEndsAnotherEdit();
    void ended_byASlotOfItsText_isNotShown();
    void cancel_isOverBeforeTheClientHears();

private:
    bool start(char const * text) { return m_editor->startEditing(&m_client, text, m_rect); }
    void restartOnce(char const * text);

    std::unique_ptr<Window> m_window;
    QPointer<KInPlaceEditor> m_editor;
    Client m_client;
    QRect const m_rect{20, 30, 120, 24};
};

void tst_InPlaceRestart::init()
{
    zenutest::failOnWarnings();
    KInPlaceEditor::setOverwriteMode(false);
    m_client = Client();
    m_window = std::make_unique<Window>();
    m_editor = new KInPlaceEditor(m_window->canvas);
    QVERIFY(m_window->activate());
}

void tst_InPlaceRestart::cleanup()
{
    m_window.reset();
    QVERIFY(!QWidget::keyboardGrabber());
    KInPlaceEditor::setOverwriteMode(false);
}

void tst_InPlaceRestart::restartOnce(char const * text)
{
    m_client.onComplete = m_client.onCancel = [this, text] {
        m_client.onComplete = m_client.onCancel = nullptr;
        QVERIFY(start(text));
        QVERIFY(m_editor->isVisible());
    };
}

// Nothing else takes the focus, so the editor keeps it, and the new edit with it.
void tst_InPlaceRestart::restart_inComplete_isHiddenAfterwards()
{
    m_window->other->setFocusPolicy(Qt::NoFocus);
    m_editor->setFocusPolicy(Qt::ClickFocus); // nor does hiding it go round to itself
    restartOnce("two");
    start("one");
    m_window->press(Qt::Key_Return);
    QVERIFY(m_editor->isHidden());
    QVERIFY(m_editor->isEditing());
    QCOMPARE(m_client.calls, QStringList("complete one"));
    QCOMPARE(m_editor->text(), QStringLiteral("two"));
    m_editor->cancelEditing();
    QCOMPARE(m_client.calls, QStringList({"complete one", "cancel"}));
}

void tst_InPlaceRestart::restart_inComplete_endsWithTheFocus()
{
    restartOnce("two");
    start("one");
    m_window->press(Qt::Key_Return);
    QVERIFY(m_editor->isHidden());
    QVERIFY(m_window->other->hasFocus());
    QVERIFY(!m_editor->isEditing());
    QVERIFY(!QWidget::keyboardGrabber());
    QCOMPARE(m_client.calls, QStringList({"complete one", "complete two"}));
    QVERIFY(start("three"));
    QVERIFY(m_editor->isVisible());
}

void tst_InPlaceRestart::restart_inCancel_isHiddenAfterwards()
{
    restartOnce("two");
    start("one");
    m_editor->cancelEditing();
    QVERIFY(m_editor->isHidden());
    QCOMPARE(m_client.calls, QStringList({"cancel", "complete two"}));
}

void tst_InPlaceRestart::restart_always_comesToAnEnd()
{
    m_client.onComplete = [this] { start("again"); };
    start("one");
    m_window->press(Qt::Key_Return);
    QVERIFY(m_editor->isHidden());
    QVERIFY(!m_editor->isEditing());
    QCOMPARE(m_client.calls, QStringList({"complete one", "complete again"}));
    QVERIFY(start("later"));
}

void tst_InPlaceRestart::restart_andCancel_isSafe()
{
    m_client.onComplete = [this] {
        start("two");
        m_editor->cancelEditing();
    };
    start("one");
    m_window->press(Qt::Key_Return);
    QVERIFY(m_editor->isHidden());
    QVERIFY(!m_editor->isEditing());
    QCOMPARE(m_client.calls, QStringList({"complete one", "cancel"}));
}

void tst_InPlaceRestart::restart_later_isShown()
{
    m_client.onComplete = [this] {
        m_client.onComplete = nullptr;
        QTimer::singleShot(0, m_editor, [this] { start("two"); });
    };
    start("one");
    m_window->press(Qt::Key_Return);
    QTRY_VERIFY(m_editor->isEditing());
    QVERIFY(m_editor->isVisible());
    QVERIFY(m_editor->hasFocus());
    m_window->press(Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList({"complete one", "complete two"}));
}

void tst_InPlaceRestart::start_whenTheNextWidgetGetsTheFocus_isShown()
{
    class Starter : public QObject
    {
    public:
        std::function<void()> onFocus;
        bool eventFilter(QObject *, QEvent * event) override
        {
            if (event->type() == QEvent::FocusIn && onFocus)
                std::exchange(onFocus, nullptr)();
            return false;
        }
    };
    Starter starter;
    m_window->other->installEventFilter(&starter);
    start("one");
    starter.onFocus = [this] { start("two"); };
    m_window->press(Qt::Key_Return);
    QVERIFY(m_editor->isEditing());
    QVERIFY(m_editor->isVisible());
    m_window->press(Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList({"complete one", "complete two"}));
    QVERIFY(m_editor->isHidden());
}

void tst_InPlaceRestart::deleted_inComplete_ofReturn()
{
    m_client.onComplete = [this] { delete m_editor; };
    start("one");
    m_window->press(Qt::Key_Return);
    QVERIFY(!m_editor);
    QCOMPARE(m_client.calls, QStringList("complete one"));
}

void tst_InPlaceRestart::deleted_inComplete_ofFocusLoss()
{
    m_client.onComplete = [this] { delete m_editor; };
    start("one");
    m_window->other->setFocus();
    QVERIFY(!m_editor);
    QVERIFY(m_window->other->hasFocus());
}

void tst_InPlaceRestart::deleted_inComplete_ofAHiddenEdit()
{
    m_client.onComplete = [this] {
        m_client.onComplete = [this] { delete m_editor; };
        start("two");
    };
    start("one");
    m_window->press(Qt::Key_Return);
    QVERIFY(!m_editor);
    QCOMPARE(m_client.calls, QStringList({"complete one", "complete two"}));
}

void tst_InPlaceRestart::deleted_inCancel()
{
    m_client.onCancel = [this] { delete m_editor; };
    start("one");
    m_editor->cancelEditing();
    QVERIFY(!m_editor);
}

void tst_InPlaceRestart::deleted_inEditingModeChanged()
{
    m_client.onMode = [this] { delete m_editor; };
    start("one");
    m_window->press(Qt::Key_Insert);
    QVERIFY(!m_editor);
    QCOMPARE(m_client.calls, QStringList("mode 1"));
}

void tst_InPlaceRestart::parentDeleted_inComplete()
{
    m_client.onComplete = [this] { delete m_window->canvas; };
    start("one");
    m_window->press(Qt::Key_Return);
    QVERIFY(!m_editor);
}

void tst_InPlaceRestart::deleted_whenItsStartEndsAnotherEdit()
{
    QPointer<KInPlaceEditor> const second(new KInPlaceEditor(m_window->canvas));
    Client client;
    m_client.onComplete = [&] { delete second; };
    start("one");
    QVERIFY(!second->startEditing(&client, "two", m_rect));
    QVERIFY(!second);
    QVERIFY(m_editor->isHidden());
    QVERIFY(!QWidget::keyboardGrabber());
    QCOMPARE(m_client.calls, QStringList("complete one"));
    QCOMPARE(client.calls, QStringList());
}

void tst_InPlaceRestart::allDeleted_whenAStartEndsAnotherEdit()
{
    QPointer<KInPlaceEditor> const second(new KInPlaceEditor(m_window->canvas));
    Client client;
    m_client.onComplete = [&] { delete m_window->canvas; };
    start("one");
    QVERIFY(!second->startEditing(&client, "two", m_rect));
    QVERIFY(!second && !m_editor);
    QVERIFY(!QWidget::keyboardGrabber());
}

void tst_InPlaceRestart::ended_byASlotOfItsText_isNotShown()
{
    connect(m_editor, &QLineEdit::textChanged, m_editor, [this] { m_editor->cancelEditing(); });
    QVERIFY(!start("one"));
    QVERIFY(m_editor->isHidden());
    QVERIFY(!QWidget::keyboardGrabber());
    QCOMPARE(m_client.calls, QStringList("cancel"));
}

void tst_InPlaceRestart::cancel_isOverBeforeTheClientHears()
{
    bool heard = false;
    m_client.onCancel = [&] {
        heard = true;
        QVERIFY(!m_editor->isEditing());
        QVERIFY(m_editor->isVisible());
        QVERIFY(!QWidget::keyboardGrabber());
    };
    start("one");
    m_editor->cancelEditing();
    QVERIFY(heard);
}

ZENU_TEST(tst_InPlaceRestart)
#include "tst_InPlaceRestart.moc"
