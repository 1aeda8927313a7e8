#include "tests/scroll/InPlaceFixture.h"
#include "tests/support/TestMain.h"

#include <zenu/scroll/KInPlaceCombo.h>
#include <zenu/scroll/KInPlaceEditor.h>

#include <QtGui/QStandardItemModel>
#include <QtGui/QWindow>
#include <QtWidgets/QAbstractItemView>

using namespace zenu;
using zenutest::Client;
using zenutest::Window;

class tst_KInPlaceCombo : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void construction_hiddenEmptyAndWithItsName();
    void construction_nullName_isSafe();
    void qObject_isTheObjectItself();
    void insertItem_appends();
    void start_showsTheStringWithFocusAndOpenList();
    void start_duringAnEdit_returnsFalseAndChangesNothing();
    void start_indexOutOfRange_showsNone_data();
    void start_indexOutOfRange_showsNone();
    void start_withoutStrings_isSafe();
    void start_nullNotification_choosesForNobody();
    void start_clientOfAnotherEditorEndsIt_returnsFalse();
    void click_completesWithTheText();
    void click_onTheCurrentItem_completes();
    void return_completes();
    void return_inTheList_staysFromTheNextWithTheFocus();
    void return_onADisabledString_choosesNothing();
    void keysWithTheListClosed_complete();
    void complete_isOverBeforeTheClientHears();
    void cancel_tellsNobodyAndHides();
    void cancel_idle_doesNothing();
    void escape_closesTheListOnly();
    void press_onTheComboBox_cancels();
    void focusLost_listOpen_editGoesOn();
    void focusLost_listClosed_cancels();
    void focusLost_toAPopup_listClosed_cancels();
    void activated_idle_tellsNobody();
    void reuse_afterEachEnd();
    void restart_inComplete_isHiddenAfterwards();
    void deleted_inComplete_ofAClick();
    void deleted_inComplete_ofAKeyWithTheListClosed();
    void deleted_inComplete_ofAKeyInTheList_data();
    void deleted_inComplete_ofAKeyInTheList();
    void deleted_inComplete_ofReturnAtTheView();
    void deleted_inComplete_ofAClickOnTheWindowOfTheList();
    void deleted_whenItsStartEndsAnotherEdit();
    void deletedWhileEditing_isSafe();

private:
    bool start(int index) { return m_combo->startEditing(&m_client, index, m_rect); }
    void choose(int index);
    void closeList();

    std::unique_ptr<Window> m_window;
    QPointer<KInPlaceCombo> m_combo;
    Client m_client;
    QRect const m_rect{20, 30, 120, 24};
};

void tst_KInPlaceCombo::init()
{
    zenutest::failOnWarnings();
    m_client = Client();
    m_window = std::make_unique<Window>();
    m_combo = new KInPlaceCombo(m_window->canvas, "combo");
    for (char const * text : {"zero", "one", "tw\xf6", "three"})
        m_combo->insertItem(text);
    QVERIFY(m_window->activate());
}

void tst_KInPlaceCombo::cleanup()
{
    m_window.reset();
    QVERIFY(!QApplication::activePopupWidget());
}

// Clicks on a string of the open list, once the list takes clicks: it leaves out the one that may
// belong to opening it.
void tst_KInPlaceCombo::choose(int index)
{
    QAbstractItemView * const view = m_combo->view();
    QTRY_VERIFY(view->isVisible());
    QTest::qWait(QApplication::doubleClickInterval() + 10);
    QPoint const at = view->visualRect(m_combo->model()->index(index, 0)).center();
    QTest::mouseMove(view->viewport(), at);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
}

void tst_KInPlaceCombo::closeList()
{
    m_combo->hidePopup();
    QTRY_VERIFY(!m_combo->view()->isVisible());
}

void tst_KInPlaceCombo::construction_hiddenEmptyAndWithItsName()
{
    KInPlaceCombo const combo(m_window->canvas, "name");
    QVERIFY(combo.isHidden());
    QVERIFY(!combo.isEditing());
    QCOMPARE(combo.count(), 0);
    QCOMPARE(combo.objectName(), QStringLiteral("name"));
}

void tst_KInPlaceCombo::construction_nullName_isSafe()
{
    KInPlaceCombo const combo(nullptr, nullptr);
    QVERIFY(combo.objectName().isEmpty());
}

void tst_KInPlaceCombo::qObject_isTheObjectItself()
{
    QCOMPARE(m_combo->qObject(), static_cast<QObject *>(m_combo));
}

void tst_KInPlaceCombo::insertItem_appends()
{
    m_combo->insertItem(nullptr);
    m_combo->insertItem("last");
    QCOMPARE(m_combo->count(), 6);
    QCOMPARE(m_combo->itemText(2), QString::fromLatin1("tw\xf6"));
    QCOMPARE(m_combo->itemText(4), QString());
    QCOMPARE(m_combo->itemText(5), QStringLiteral("last"));
}

void tst_KInPlaceCombo::start_showsTheStringWithFocusAndOpenList()
{
    QVERIFY(start(1));
    QVERIFY(m_combo->isVisible());
    QVERIFY(m_combo->isEditing());
    QCOMPARE(m_combo->geometry(), m_rect);
    QCOMPARE(m_combo->currentIndex(), 1);
    QVERIFY(m_combo->view()->isVisible());
    QCOMPARE(m_window->focusWidget(), static_cast<QWidget *>(m_combo));
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::start_duringAnEdit_returnsFalseAndChangesNothing()
{
    start(1);
    Client second;
    QVERIFY(!m_combo->startEditing(&second, 3, QRect(1, 2, 30, 40)));
    QCOMPARE(m_combo->currentIndex(), 1);
    QCOMPARE(m_combo->geometry(), m_rect);
    choose(2);
    QCOMPARE(m_client.calls, QStringList(QString::fromLatin1("complete tw\xf6")));
    QCOMPARE(second.calls, QStringList());
}

void tst_KInPlaceCombo::start_indexOutOfRange_showsNone_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("-1") << -1;
    QTest::newRow("count") << 4;
    QTest::newRow("least") << std::numeric_limits<int>::min();
    QTest::newRow("most") << std::numeric_limits<int>::max();
}

void tst_KInPlaceCombo::start_indexOutOfRange_showsNone()
{
    QFETCH(int, index);
    m_combo->setCurrentIndex(2);
    QVERIFY(start(index));
    QCOMPARE(m_combo->currentIndex(), -1);
    choose(3);
    QCOMPARE(m_client.calls, QStringList("complete three"));
}

void tst_KInPlaceCombo::start_withoutStrings_isSafe()
{
    m_combo->clear();
    QVERIFY(start(0));
    QVERIFY(m_combo->isEditing());
    m_window->other->setFocus();
    QVERIFY(!m_combo->isEditing());
    QVERIFY(m_combo->isHidden());
}

void tst_KInPlaceCombo::start_nullNotification_choosesForNobody()
{
    QVERIFY(m_combo->startEditing(nullptr, 1, m_rect));
    QVERIFY(m_combo->isEditing());
    choose(2);
    QVERIFY(!m_combo->isEditing());
    QVERIFY(m_combo->isHidden());
    QCOMPARE(m_combo->currentIndex(), 2);
}

void tst_KInPlaceCombo::start_clientOfAnotherEditorEndsIt_returnsFalse()
{
    KInPlaceEditor editor(m_window->canvas);
    Client client;
    client.onComplete = [this] { m_combo->cancelEditing(); };
    editor.startEditing(&client, "text", QRect(20, 60, 100, 20));
    QVERIFY(!start(1));
    QVERIFY(m_combo->isHidden());
    QVERIFY(!m_combo->isEditing());
    QVERIFY(!m_combo->view()->isVisible());
}

void tst_KInPlaceCombo::click_completesWithTheText()
{
    start(0);
    choose(2);
    QCOMPARE(m_client.calls, QStringList(QString::fromLatin1("complete tw\xf6")));
    QVERIFY(m_combo->isHidden());
    QVERIFY(!m_combo->isEditing());
}

void tst_KInPlaceCombo::click_onTheCurrentItem_completes()
{
    start(1);
    choose(1);
    QCOMPARE(m_client.calls, QStringList("complete one"));
    QVERIFY(m_combo->isHidden());
}

void tst_KInPlaceCombo::return_completes()
{
    start(0);
    QTest::keyClick(m_combo->view(), Qt::Key_Down);
    QTest::keyClick(m_combo->view(), Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList("complete one"));
    QVERIFY(m_combo->isHidden());
}

void tst_KInPlaceCombo::return_inTheList_staysFromTheNextWithTheFocus()
{
    class Keys : public QObject
    {
    public:
        int count = 0;
        bool eventFilter(QObject *, QEvent * event) override
        {
            count += event->type() == QEvent::KeyPress;
            return false;
        }
    };
    Keys keys;
    m_window->other->installEventFilter(&keys);
    start(2);
    m_window->press(Qt::Key_Return);
    QCOMPARE(m_client.calls, QStringList(QString::fromLatin1("complete tw\xf6")));
    QCOMPARE(m_window->focusWidget(), m_window->other);
    QCOMPARE(keys.count, 0);
    QCOMPARE(m_window->canvas->keys, QList<int>());
}

void tst_KInPlaceCombo::return_onADisabledString_choosesNothing()
{
    auto const * const model = qobject_cast<QStandardItemModel *>(m_combo->model());
    QVERIFY(model);
    model->item(1)->setEnabled(false);
    start(1);
    m_window->press(Qt::Key_Return);
    QVERIFY(m_combo->isEditing());
    QVERIFY(m_combo->view()->isVisible());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::keysWithTheListClosed_complete()
{
    start(0);
    closeList();
    QVERIFY(m_combo->isEditing());
    m_window->press(Qt::Key_Down);
    QCOMPARE(m_client.calls, QStringList("complete one"));
    QVERIFY(m_combo->isHidden());
}

void tst_KInPlaceCombo::complete_isOverBeforeTheClientHears()
{
    start(0);
    bool heard = false;
    m_client.onComplete = [&] {
        heard = true;
        QVERIFY(!m_combo->isEditing());
        QVERIFY(m_combo->isVisible());
    };
    choose(1);
    QVERIFY(heard);
}

void tst_KInPlaceCombo::cancel_tellsNobodyAndHides()
{
    start(0);
    m_combo->cancelEditing();
    QVERIFY(m_combo->isHidden());
    QVERIFY(!m_combo->isEditing());
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::cancel_idle_doesNothing()
{
    m_combo->cancelEditing();
    m_combo->show();
    m_combo->cancelEditing();
    QVERIFY(m_combo->isVisible());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::escape_closesTheListOnly()
{
    start(0);
    QTest::keyClick(m_combo->view(), Qt::Key_Escape);
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QVERIFY(m_combo->isEditing());
    QVERIFY(m_combo->isVisible());
}

void tst_KInPlaceCombo::press_onTheComboBox_cancels()
{
    start(0);
    closeList();
    QTest::mousePress(m_combo, Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(!m_combo->isEditing());
    QVERIFY(m_combo->isHidden());
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_client.calls, QStringList());
    QTest::mouseRelease(m_combo, Qt::LeftButton, {}, QPoint(10, 10));
}

void tst_KInPlaceCombo::focusLost_listOpen_editGoesOn()
{
    start(0);
    QVERIFY(m_combo->view()->isVisible());
    m_window->other->setFocus();
    QVERIFY(!m_combo->hasFocus());
    QVERIFY(m_combo->isEditing());
    QVERIFY(m_combo->isVisible());
    choose(1);
    QCOMPARE(m_client.calls, QStringList("complete one"));
}

void tst_KInPlaceCombo::focusLost_listClosed_cancels()
{
    start(0);
    closeList();
    m_window->other->setFocus();
    QVERIFY(!m_combo->isEditing());
    QVERIFY(m_combo->isHidden());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::focusLost_toAPopup_listClosed_cancels()
{
    start(0);
    closeList();
    m_window->other->setFocus(Qt::PopupFocusReason);
    QVERIFY(!m_combo->isEditing());
    QVERIFY(m_combo->isHidden());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::activated_idle_tellsNobody()
{
    m_combo->show();
    Q_EMIT m_combo->textActivated(QStringLiteral("one"));
    QVERIFY(m_combo->isVisible());
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::reuse_afterEachEnd()
{
    start(0);
    choose(1);
    QVERIFY(start(2));
    m_combo->cancelEditing();
    Client second;
    QVERIFY(m_combo->startEditing(&second, 3, QRect(5, 6, 70, 20)));
    QCOMPARE(m_combo->geometry(), QRect(5, 6, 70, 20));
    choose(3);
    QCOMPARE(m_client.calls, QStringList("complete one"));
    QCOMPARE(second.calls, QStringList("complete three"));
}

void tst_KInPlaceCombo::restart_inComplete_isHiddenAfterwards()
{
    m_client.onComplete = [this] { QVERIFY(start(3)); };
    start(0);
    choose(1);
    QVERIFY(m_combo->isHidden());
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_client.calls, QStringList("complete one"));
    m_client.onComplete = nullptr;
    m_combo->cancelEditing();
    QVERIFY(start(0));
    QVERIFY(m_combo->isVisible());
}

void tst_KInPlaceCombo::deleted_inComplete_ofAClick()
{
    m_client.onComplete = [this] { delete m_combo; };
    start(0);
    choose(1);
    QVERIFY(!m_combo);
    QCOMPARE(m_client.calls, QStringList("complete one"));
}

void tst_KInPlaceCombo::deleted_inComplete_ofAKeyWithTheListClosed()
{
    m_client.onComplete = [this] { delete m_combo; };
    start(0);
    closeList();
    m_window->press(Qt::Key_Down);
    QVERIFY(!m_combo);
}

void tst_KInPlaceCombo::deleted_inComplete_ofAKeyInTheList_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

// The window system may send the keys to the window of the list or to the one below.
void tst_KInPlaceCombo::deleted_inComplete_ofAKeyInTheList()
{
    QFETCH(Qt::Key, key);
    for (bool const toList : {false, true}) {
        m_client = Client();
        m_client.onComplete = [this] { delete m_combo; };
        start(0);
        QPointer<QWindow> const window =
            toList ? m_combo->view()->window()->windowHandle() : m_window->windowHandle();
        QTest::keyClick(window, Qt::Key_Down);
        QCOMPARE(m_combo->view()->currentIndex().row(), 1);
        QVERIFY(m_combo->isEditing());
        QTest::keyPress(window, key);
        QVERIFY(!m_combo);
        QCOMPARE(m_client.calls, QStringList("complete one"));
        QTest::keyRelease(m_window->windowHandle(), key);
        m_combo = new KInPlaceCombo(m_window->canvas);
        for (char const * text : {"zero", "one"})
            m_combo->insertItem(text);
    }
}

void tst_KInPlaceCombo::deleted_inComplete_ofReturnAtTheView()
{
    m_client.onComplete = [this] { delete m_combo; };
    start(1);
    QTest::keyClick(m_combo->view(), Qt::Key_Return);
    QVERIFY(!m_combo);
}

void tst_KInPlaceCombo::deleted_inComplete_ofAClickOnTheWindowOfTheList()
{
    m_client.onComplete = [this] { delete m_combo; };
    start(0);
    QAbstractItemView * const view = m_combo->view();
    QTest::qWait(QApplication::doubleClickInterval() + 10);
    QPoint const inView = view->visualRect(m_combo->model()->index(1, 0)).center();
    QPoint const at = view->viewport()->mapTo(view->window(), inView);
    QWindow * const window = view->window()->windowHandle();
    QTest::mouseMove(window, at);
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    QTest::mouseRelease(window, Qt::LeftButton, {}, at);
    QTRY_VERIFY(!m_combo);
    QCOMPARE(m_client.calls, QStringList("complete one"));
}

void tst_KInPlaceCombo::deleted_whenItsStartEndsAnotherEdit()
{
    KInPlaceEditor editor(m_window->canvas);
    Client client;
    client.onComplete = [this] { delete m_combo; };
    editor.startEditing(&client, "text", QRect(20, 60, 100, 20));
    QVERIFY(!start(1));
    QVERIFY(!m_combo);
    QCOMPARE(client.calls, QStringList("complete text"));
    QCOMPARE(m_client.calls, QStringList());
}

void tst_KInPlaceCombo::deletedWhileEditing_isSafe()
{
    start(0);
    delete m_combo;
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(m_client.calls, QStringList());
}

ZENU_TEST(tst_KInPlaceCombo)
#include "tst_KInPlaceCombo.moc"
