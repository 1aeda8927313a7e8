#include "tests/explorer/FileFixture.h"
#include "tests/explorer/ShownWindow.h"
#include "tests/support/TestMain.h"

#include <zenu/header/KHeader.h>

#include <QDir>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <cstring>
#include <functional>

using namespace explorer;
using zenutest::exists;
using zenutest::FileFixture;
using zenutest::isExecutable;
using zenutest::ShownWindow;

// One walk through the explorer with the events of a display server: a pointer that moves there,
// keys that go where the focus is, a drag with all that belongs to it. With ZENU_WALK_PICTURES set
// to a directory it leaves a picture of the screen after each step.
class tst_Walk : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnWarningsButOfDialogs(); }
    void initTestCase();
    void walk();

private:
    static void makeFiles(FileFixture const & files);
    void openAndScroll(ShownWindow & shown);
    void selectARange(ShownWindow & shown);
    void renameAFile(ShownWindow & shown, FileFixture const & files);
    void checkTheRange(ShownWindow & shown, FileFixture const & files);
    void dragTheRange(ShownWindow & shown, FileFixture const & files);
    void undoTheMove(ShownWindow & shown, FileFixture const & files);
    void sortByTheHeader(ShownWindow & shown);
    void openTheMenu(ShownWindow & shown);

    static QStringList at(QPoint const & place)
    {
        return {QStringLiteral("mousemove"), QString::number(place.x()),
                QString::number(place.y())};
    }
    QPoint screen(ShownWindow & shown, char const * name, Column column = Column::Name)
    {
        return shown.grid().mapToGlobal(shown.cell(name, column));
    }
    // Sends events, and lets the program act on them meanwhile.
    void send(QStringList const & arguments)
    {
        QProcess process;
        process.start(tool, arguments);
        QTRY_COMPARE_WITH_TIMEOUT(process.state(), QProcess::NotRunning, 20000);
        QCOMPARE(process.exitCode(), 0);
        QTest::qWait(50); // what is on its way
    }
    void send(char const * arguments)
    {
        send(QString::fromLatin1(arguments).split(QLatin1Char(' ')));
    }
    void picture(char const * name)
    {
        QString const directory = qEnvironmentVariable("ZENU_WALK_PICTURES");
        if (!directory.isEmpty()) {
            QTest::qWait(100);
            takePicture(name);
        }
    }
    static void takePicture(char const * name)
    {
        QScreen * const display = QGuiApplication::primaryScreen();
        QString const directory = qEnvironmentVariable("ZENU_WALK_PICTURES");
        if (!directory.isEmpty()) {
            QVERIFY(display->grabWindow(0, 0, 0, 1000, 680)
                        .save(QDir(directory).filePath(QString::fromLatin1(name) +
                                                       QStringLiteral(".png"))));
        }
    }

    QString tool;
};

void tst_Walk::initTestCase()
{
    tool = QStandardPaths::findExecutable(QStringLiteral("xdotool"));
    if (QGuiApplication::platformName() != QLatin1String("xcb") || tool.isEmpty()) {
        QSKIP("needs a display server and xdotool");
    }
}

void tst_Walk::makeFiles(FileFixture const & files)
{
    for (char const * const name : {"archive", "pictures", "source"}) {
        files.makeDirectory(name);
    }
    files.makeFile("source/main.cpp", 4200);
    files.makeFile("source/grid.cpp", 15300);
    files.makeFile("pictures/sunset.jpg", 2345678);
    for (char const * const name :
         {"build.sh", "check.sh", "deploy.sh", "notes.txt", "report.pdf"}) {
        files.makeFile(name, 1000 + 777 * std::strlen(name));
    }
    for (int i = 1; i <= 60; ++i) {
        files.makeFile("table " + std::to_string(i) + ".csv", static_cast<std::size_t>(i) * 1234);
    }
}

void tst_Walk::walk()
{
    FileFixture files;
    makeFiles(files);
    ShownWindow shown(files.path());
    shown.window.move(0, 0);
    QTRY_COMPARE(shown.window.pos(), QPoint(0, 0));
    std::function<void()> const steps[] = {
        [&] { openAndScroll(shown); },        [&] { selectARange(shown); },
        [&] { checkTheRange(shown, files); }, [&] { renameAFile(shown, files); },
        [&] { dragTheRange(shown, files); },  [&] { undoTheMove(shown, files); },
        [&] { sortByTheHeader(shown); },      [&] { openTheMenu(shown); },
    };
    for (std::function<void()> const & step : steps) {
        step();
        if (QTest::currentTestFailed()) {
            break; // what follows stands on it
        }
    }
}

void tst_Walk::openAndScroll(ShownWindow & shown)
{
    picture("1-opened");
    send(at(screen(shown, "source", Column::Kind)) + QStringList{"click", "1", "key", "plus"});
    QCOMPARE(shown.current(), "source");
    QVERIFY(shown.row("main.cpp"));
    picture("2-expanded");
    zenu::tag_HROW * const top = shown.grid().GetTopIndex();
    send("click 5 click 5");
    QVERIFY(shown.grid().GetTopIndex() != top);
    picture("3-scrolled");
    send("click 4 click 4");
    QCOMPARE(shown.grid().GetTopIndex(), top);
    send("type --delay 20 notes");
    QCOMPARE(shown.current(), "notes.txt");
}

void tst_Walk::selectARange(ShownWindow & shown)
{
    send(at(screen(shown, "build.sh", Column::Kind)) + QStringList{"click", "1"});
    send(QStringList{"keydown", "shift"} + at(screen(shown, "deploy.sh", Column::Kind)) +
         QStringList{"click", "1", "keyup", "shift"});
    QCOMPARE(shown.selected(), "build.sh|check.sh|deploy.sh");
    picture("4-range");
}

void tst_Walk::checkTheRange(ShownWindow & shown, FileFixture const & files)
{
    send(at(shown.grid().mapToGlobal(shown.box("check.sh"))) + QStringList{"click", "1"});
    for (char const * const name : {"build.sh", "check.sh", "deploy.sh"}) {
        QTRY_VERIFY(isExecutable(files.path(name)));
    }
    QVERIFY(!isExecutable(files.path("notes.txt")));
    QCOMPARE(shown.selected(), "build.sh|check.sh|deploy.sh");
    picture("5-checked");
}

void tst_Walk::renameAFile(ShownWindow & shown, FileFixture const & files)
{
    send(at(screen(shown, "notes.txt", Column::Kind)) + QStringList{"click", "1", "key", "F2"});
    QTRY_VERIFY(shown.editor() && shown.editor()->hasFocus());
    send("type --delay 20 journal");
    picture("6-editing");
    send("key Return");
    QTRY_VERIFY(exists(files.path("journal.txt")));
    QCOMPARE(shown.current(), "journal.txt");
    picture("7-renamed");
    send("key F2");
    send("type --delay 20 report.pdf");
    send("key Delete key Delete key Delete key Delete key Return");
    QTRY_VERIFY(shown.message().contains(QStringLiteral("already a file of that name")));
    QVERIFY(exists(files.path("journal.txt")));
    picture("8-refused");
}

void tst_Walk::dragTheRange(ShownWindow & shown, FileFixture const & files)
{
    selectARange(shown);
    QPoint const from = screen(shown, "check.sh");
    QPoint const to = screen(shown, "archive");
    QStringList steps = at(from) + QStringList{"mousedown", "1", "sleep", "0.2"};
    for (int i = 1; i <= 8; ++i) {
        steps += at(from + (to - from) * i / 8) + QStringList{"sleep", "0.1"};
    }
    steps += QStringList{"sleep", "0.6", "mouseup", "1"};
    QTimer::singleShot(1500, this, [] { takePicture("9-dragged"); });
    send(steps);
    QTRY_VERIFY(shown.window.findChild<QMessageBox *>());
    QVERIFY(exists(files.path("check.sh")));
    picture("10-asked");
    send("key Return");
    for (char const * const name : {"build.sh", "check.sh", "deploy.sh"}) {
        QTRY_VERIFY(exists(files.path(std::string("archive/") + name)));
        QVERIFY(!exists(files.path(name)));
    }
    QVERIFY(!shown.row("check.sh"));
    QVERIFY(shown.row("main.cpp")); // what was open stays open
    picture("11-moved");
}

void tst_Walk::undoTheMove(ShownWindow & shown, FileFixture const & files)
{
    shown.window.activateWindow(); // as a window manager does when a dialog closes
    QTRY_VERIFY(shown.grid().hasFocus());
    send("key ctrl+z");
    QTRY_VERIFY(exists(files.path("check.sh")));
    QVERIFY(isExecutable(files.path("check.sh")));
    QVERIFY(shown.row("check.sh"));
    picture("12-undone");
}

void tst_Walk::sortByTheHeader(ShownWindow & shown)
{
    zenu::KHeader * const header = shown.grid().getHeader();
    int const item = shown.grid().Column2HeaderItem(handleOf(Column::Size));
    QPoint const place = header->mapToGlobal(header->getItemRect(item).center());
    send(at(place) + QStringList{"click", "1"});
    QCOMPARE(shown.grid().sortColumn(), Column::Size);
    QVERIFY(shown.grid().isSortedAscending());
    QTest::qWait(QApplication::doubleClickInterval());
    send("click 1");
    QVERIFY(!shown.grid().isSortedAscending());
    picture("13-sorted");
}

void tst_Walk::openTheMenu(ShownWindow & shown)
{
    send(at(screen(shown, "journal.txt")) + QStringList{"click", "3"});
    auto * const menu = shown.window.findChild<QMenu *>(QStringLiteral("rowMenu"));
    QTRY_VERIFY(menu->isVisible());
    QCOMPARE(shown.selected(), "journal.txt");
    picture("14-menu");
    send("key Escape");
    QTRY_VERIFY(!menu->isVisible());
}

ZENU_TEST(tst_Walk)
#include "tst_Walk.moc"
