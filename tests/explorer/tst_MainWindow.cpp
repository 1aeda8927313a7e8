#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/MainWindow.h"
#include "tests/explorer/FileFixture.h"
#include "tests/support/TestMain.h"

#include <QLabel>
#include <QStatusBar>

using namespace explorer;
using zenutest::FileFixture;

namespace {

std::string currentName(MainWindow & window)
{
    ExplorerGrid & grid = *window.grid();
    return grid.GetItemText(grid.currentRow(), handleOf(Column::Name));
}

QString statusOf(MainWindow & window)
{
    window.updateStatus();
    QStringList texts;
    for (QLabel const * const label : window.statusBar()->findChildren<QLabel *>()) {
        texts += label->text();
    }
    return texts.join(QLatin1Char('|'));
}

} // namespace

class tst_MainWindow : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void keys_walkOpenAndClose();
    void keys_sortAndTurnTheOrder();
    void keys_scroll();
    void fittingColumns_isRefusedForMillionsOfRows();
    void return_makesTheCurrentDirectoryTheTop();
    void parent_ofTheTopBecomesTheTop();
    void reload_showsWhatChanged();
    void statusLine_countsRowsAndMemory();
    void statusLine_showsTheNameInFull();
    void menus_nameEachKeyOnce();

private:
    static void open(MainWindow & window)
    {
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
};

void tst_MainWindow::keys_walkOpenAndClose()
{
    FileFixture files;
    files.makeDirectory("a");
    files.makeDirectory("a/b");
    files.makeFile("a/b/c");
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    unsigned const closed = window.grid()->GetExpandedCount();
    QTest::keyClick(&window, Qt::Key_Down);
    QCOMPARE(currentName(window), "a");
    QTest::keyClick(&window, Qt::Key_Right);
    QCOMPARE(window.grid()->GetExpandedCount(), closed + 1);
    QTest::keyClick(&window, Qt::Key_Down);
    QCOMPARE(currentName(window), "b");
    QTest::keyClick(&window, Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(window.grid()->GetExpandedCount(), closed + 2);
    QTest::keyClick(&window, Qt::Key_Up);
    QTest::keyClick(&window, Qt::Key_Left);
    QCOMPARE(currentName(window), "a");
    QCOMPARE(window.grid()->GetExpandedCount(), closed);
    QTest::keyClick(&window, Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(window.grid()->GetExpandedCount(), 3u);
}

void tst_MainWindow::keys_sortAndTurnTheOrder()
{
    MainWindow window;
    window.showRows(10);
    open(window);
    QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(window.grid()->sortColumn(), Column::Size);
    QVERIFY(window.grid()->isSortedAscending());
    QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
    QVERIFY(!window.grid()->isSortedAscending());
    QTest::keyClick(&window, Qt::Key_T, Qt::ControlModifier);
    QVERIFY(window.grid()->isSortedAscending());
    QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(window.grid()->sortColumn(), Column::Name);
    QVERIFY(window.grid()->isSortedAscending());
}

void tst_MainWindow::keys_scroll()
{
    MainWindow window;
    window.showRows(1000);
    open(window);
    zenu::tag_HROW * const first = window.grid()->GetTopIndex();
    QTest::keyClick(&window, Qt::Key_End);
    QCOMPARE(window.grid()->GetItemText(window.grid()->GetBottomIndex(), handleOf(Column::Name)),
             "Row 1,000");
    QTest::keyClick(&window, Qt::Key_Home);
    QCOMPARE(window.grid()->GetTopIndex(), first);
    QTest::keyClick(&window, Qt::Key_PageDown);
    QVERIFY(window.grid()->GetTopIndex() != first);
    QTest::keyClick(&window, Qt::Key_PageUp);
    QCOMPARE(window.grid()->GetTopIndex(), first);
}

void tst_MainWindow::fittingColumns_isRefusedForMillionsOfRows()
{
    MainWindow window;
    window.showRows(2000);
    open(window);
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(statusOf(window).contains(QStringLiteral("Columns fitted in")));
    window.showRows(1000000);
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(statusOf(window).contains(QStringLiteral("Too many rows to fit columns")));
}

void tst_MainWindow::return_makesTheCurrentDirectoryTheTop()
{
    FileFixture files;
    files.makeDirectory("caf\xe9");
    files.makeFile("caf\xe9/c");
    files.makeFile("file");
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    QTest::keyClick(&window, Qt::Key_Down);
    QTest::keyClick(&window, Qt::Key_Return);
    QCOMPARE(currentName(window), "caf%E9");
    QTest::keyClick(&window, Qt::Key_Down);
    QCOMPARE(currentName(window), "c");
    QTest::keyClick(&window, Qt::Key_Return); // a file stays where it is
    QCOMPARE(currentName(window), "c");
}

void tst_MainWindow::parent_ofTheTopBecomesTheTop()
{
    FileFixture files;
    files.makeDirectory("a");
    MainWindow window;
    window.showDirectory(files.path("a"));
    open(window);
    QTest::keyClick(&window, Qt::Key_Up, Qt::AltModifier);
    QVERIFY(files.path().ends_with(currentName(window)));
    window.showDirectory("/");
    QTest::keyClick(&window, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(currentName(window), "/");
}

void tst_MainWindow::reload_showsWhatChanged()
{
    FileFixture files;
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    unsigned const before = window.grid()->GetRowCount();
    files.makeFile("new");
    QTest::keyClick(&window, Qt::Key_F5);
    QCOMPARE(window.grid()->GetRowCount(), before + 1);
    window.showRows(5);
    QTest::keyClick(&window, Qt::Key_F5);
    QCOMPARE(window.grid()->GetRowCount(), 6u);
}

void tst_MainWindow::statusLine_countsRowsAndMemory()
{
    MainWindow window;
    window.showRows(1234);
    QString const status = statusOf(window);
    QVERIFY(status.contains(QStringLiteral("1,235 rows loaded")));
    QVERIFY(status.contains(QStringLiteral("1,235 in the visible order")));
    QVERIFY(
        status.contains(QRegularExpression(QStringLiteral("[0-9] MB of memory \\(process\\)"))));
}

void tst_MainWindow::statusLine_showsTheNameInFull()
{
    FileFixture files;
    files.makeFile("\xe6\x97\xa5");
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    QTest::keyClick(&window, Qt::Key_Down);
    QCOMPARE(currentName(window), "%E6%97%A5");
    QVERIFY(statusOf(window).contains(QChar(0x65e5)));
}

// Two actions on one key would disable each other.
void tst_MainWindow::menus_nameEachKeyOnce()
{
    MainWindow window;
    QStringList keys;
    for (QAction const * const action : window.findChildren<QAction *>()) {
        if (!action->shortcut().isEmpty()) {
            keys += action->shortcut().toString();
        }
    }
    QVERIFY(keys.size() > 15);
    QCOMPARE(keys.removeDuplicates(), 0);
}

ZENU_TEST(tst_MainWindow)
#include "tst_MainWindow.moc"
