#include "examples/explorer/ExplorerGrid.h"
#include "examples/explorer/MainWindow.h"
#include "tests/explorer/FileFixture.h"
#include "tests/explorer/ShownWindow.h"
#include "tests/support/TestMain.h"

#include <zenu/header/KHeader.h>

#include <QLabel>
#include <QMenu>
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
    void init() { zenutest::failOnWarningsButOfDialogs(); }
    void keys_walkOpenAndClose();
    void keys_sortAndTurnTheOrder();
    void keys_scroll();
    void keys_selectRanges();
    void typing_findsAName();
    void headerClick_sortsAndTurnsTheOrder();
    void headerDivider_resizesAndDoesNotSort();
    void doubleClick_opensAndClosesDirectories();
    void rightClick_opensTheMenuOfTheRow();
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
    QTest::keyClick(window.grid(), Qt::Key_Down);
    QCOMPARE(currentName(window), "a");
    QTest::keyClick(window.grid(), Qt::Key_Plus);
    QCOMPARE(window.grid()->GetExpandedCount(), closed + 1);
    QTest::keyClick(window.grid(), Qt::Key_Down);
    QCOMPARE(currentName(window), "b");
    QTest::keyClick(window.grid(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(window.grid()->GetExpandedCount(), closed + 2);
    QTest::keyClick(window.grid(), Qt::Key_Up);
    QTest::keyClick(window.grid(), Qt::Key_Minus);
    QCOMPARE(currentName(window), "a");
    QCOMPARE(window.grid()->GetExpandedCount(), closed);
    QTest::keyClick(window.grid(), Qt::Key_Minus, Qt::ControlModifier);
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
    QTest::keyClick(window.grid(), Qt::Key_End);
    QCOMPARE(currentName(window), "Row 1,000");
    QCOMPARE(window.grid()->GetBottomIndex(), window.grid()->currentRow());
    QTest::keyClick(window.grid(), Qt::Key_Home);
    QCOMPARE(currentName(window), "1,000 computed rows");
    QCOMPARE(window.grid()->GetTopIndex(), window.grid()->currentRow());
    QTest::keyClick(window.grid(), Qt::Key_PageDown);
    std::string const page = currentName(window);
    QVERIFY(page != "1,000 computed rows");
    QTest::keyClick(window.grid(), Qt::Key_PageDown);
    QTest::keyClick(window.grid(), Qt::Key_PageUp);
    QCOMPARE(currentName(window), page);
}

void tst_MainWindow::keys_selectRanges()
{
    MainWindow window;
    window.showRows(10);
    open(window);
    QTest::keyClick(window.grid(), Qt::Key_Down);
    QTest::keyClick(window.grid(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(window.grid(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(window.grid()->GetSelectedCount(), 3u);
    QTest::keyClick(window.grid(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(window.grid()->GetSelectedCount(), 11u);
}

void tst_MainWindow::typing_findsAName()
{
    FileFixture files;
    for (char const * const name : {"alpha", "beta", "bexar", "gamma"}) {
        files.makeFile(name);
    }
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    QTest::keyClick(window.grid(), Qt::Key_Down);
    QTest::keyClicks(window.grid(), QStringLiteral("bex"));
    QCOMPARE(currentName(window), "bexar");
}

void tst_MainWindow::headerClick_sortsAndTurnsTheOrder()
{
    MainWindow window;
    window.showRows(10);
    open(window);
    zenu::KHeader * const header = window.grid()->getHeader();
    auto const rect = [&](Column column) {
        return header->getItemRect(window.grid()->Column2HeaderItem(handleOf(column)));
    };
    QTest::mouseClick(header, Qt::LeftButton, Qt::NoModifier, rect(Column::Size).center());
    QCOMPARE(window.grid()->sortColumn(), Column::Size);
    QVERIFY(window.grid()->isSortedAscending());
    QTest::mouseClick(header, Qt::LeftButton, Qt::NoModifier, rect(Column::Size).center());
    QVERIFY(!window.grid()->isSortedAscending());
    QTest::mouseClick(header, Qt::LeftButton, Qt::NoModifier, rect(Column::Kind).center());
    QCOMPARE(window.grid()->sortColumn(), Column::Kind);
    QVERIFY(window.grid()->isSortedAscending());
    // A release elsewhere is no click, nor is one of the right button.
    QTest::mousePress(header, Qt::LeftButton, Qt::NoModifier, rect(Column::Name).center());
    QTest::mouseRelease(header, Qt::LeftButton, Qt::NoModifier, rect(Column::Size).center());
    QTest::mouseClick(header, Qt::RightButton, Qt::NoModifier, rect(Column::Name).center());
    QCOMPARE(window.grid()->sortColumn(), Column::Kind);
}

void tst_MainWindow::headerDivider_resizesAndDoesNotSort()
{
    FileFixture files;
    files.makeFile("a file that has a name");
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    zenu::KHeader * const header = window.grid()->getHeader();
    zenu::tag_HCOLUMN * const kind = handleOf(Column::Kind);
    QRect const item = header->getItemRect(window.grid()->Column2HeaderItem(kind));
    QPoint const divider(item.right() - 1, item.center().y());
    int const width = window.grid()->GetColumnWidth(kind);
    QTest::mousePress(header, Qt::LeftButton, Qt::NoModifier, divider);
    for (QPoint const & point : {divider + QPoint(10, 0), divider + QPoint(30, 0)}) {
        QMouseEvent move(QEvent::MouseMove, point, header->mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(header, &move);
    }
    QTest::mouseRelease(header, Qt::LeftButton, Qt::NoModifier, divider + QPoint(30, 0));
    QCOMPARE(window.grid()->GetColumnWidth(kind), width + 30);
    QCOMPARE(window.grid()->sortColumn(), Column::Name);
    QVERIFY(window.grid()->isSortedAscending());
    // Twice on the divider fits the column.
    QTest::mouseDClick(header, Qt::LeftButton, Qt::NoModifier, divider + QPoint(30, 0));
    QCOMPARE(window.grid()->GetColumnWidth(kind), window.grid()->BestFit(kind));
    QCOMPARE(window.grid()->sortColumn(), Column::Name);
}

void tst_MainWindow::doubleClick_opensAndClosesDirectories()
{
    FileFixture files;
    files.makeDirectory("a");
    files.makeFile("a/b");
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    ExplorerGrid & grid = *window.grid();
    QTest::keyClick(&grid, Qt::Key_Down);
    unsigned const closed = grid.GetExpandedCount();
    QRect place;
    grid.GetItemRect(grid.currentRow(), handleOf(Column::Kind), &place);
    QTest::mouseDClick(&grid, Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(grid.GetExpandedCount(), closed + 1);
    QTest::mouseDClick(&grid, Qt::LeftButton, Qt::NoModifier, place.center());
    QCOMPARE(grid.GetExpandedCount(), closed);
}

void tst_MainWindow::rightClick_opensTheMenuOfTheRow()
{
    FileFixture files;
    files.makeFile("a", 0, 0755);
    MainWindow window;
    window.showDirectory(files.path());
    open(window);
    ExplorerGrid & grid = *window.grid();
    QTest::keyClick(&grid, Qt::Key_Down);
    zenu::tag_HROW * const row = grid.currentRow();
    QTest::keyClick(&grid, Qt::Key_Up);
    QRect place;
    grid.GetItemRect(row, handleOf(Column::Kind), &place);
    QTest::mouseClick(&grid, Qt::RightButton, Qt::NoModifier, place.center());
    auto * const menu = window.findChild<QMenu *>(QStringLiteral("rowMenu"));
    QTRY_VERIFY(menu->isVisible());
    QCOMPARE(grid.currentRow(), row);
    QStringList texts;
    for (QAction const * const action : menu->actions()) {
        QString state = action->isEnabled() ? QString() : QStringLiteral(" off");
        state += action->isChecked() ? QStringLiteral(" checked") : QString();
        texts += action->text().remove(QLatin1Char('&')) + state;
    }
    QCOMPARE(texts.join(QLatin1Char('|')),
             QStringLiteral("Open off|Rename|Runs checked||Undo off|Reload"));
    for (QAction * const action : menu->actions()) {
        if (action->text().contains(QStringLiteral("Runs"))) {
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                              menu->actionGeometry(action).center());
            break;
        }
    }
    QTRY_VERIFY(!menu->isVisible());
    QTRY_COMPARE(access(files.path("a").c_str(), X_OK), -1);
    // The keys of what was off work again.
    for (QAction const * const action : window.findChildren<QAction *>()) {
        if (action->text().contains(QStringLiteral("Open"))) {
            QVERIFY(action->isEnabled());
        }
    }
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
    QTest::keyClick(window.grid(), Qt::Key_Down);
    QTest::keyClick(window.grid(), Qt::Key_Return);
    QCOMPARE(currentName(window), "caf%E9");
    QTest::keyClick(window.grid(), Qt::Key_Down);
    QCOMPARE(currentName(window), "c");
    QTest::keyClick(window.grid(), Qt::Key_Return); // a file stays where it is
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
    QTest::keyClick(window.grid(), Qt::Key_Down);
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
    QVERIFY(keys.size() >= 15);
    QCOMPARE(keys.removeDuplicates(), 0);
}

ZENU_TEST(tst_MainWindow)
#include "tst_MainWindow.moc"
