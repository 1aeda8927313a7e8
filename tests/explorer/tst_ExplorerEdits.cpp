#include "tests/explorer/FileFixture.h"
#include "tests/explorer/ShownWindow.h"
#include "tests/support/TestMain.h"

#include <QInputDialog>

using namespace explorer;
using zenutest::exists;
using zenutest::FileFixture;
using zenutest::isExecutable;
using zenutest::LesserUser;
using zenutest::ShownWindow;

namespace {

// Renames the current row as a hand would.
void rename(ShownWindow & shown, char const * name)
{
    shown.key(Qt::Key_F2);
    QTRY_VERIFY(shown.editor() && shown.editor()->hasFocus());
    shown.editor()->selectAll();
    shown.type(name);
    shown.key(Qt::Key_Return);
    QTRY_VERIFY(!shown.editor());
    QCoreApplication::processEvents();
}

} // namespace

class tst_ExplorerEdits : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void init() { zenutest::failOnWarningsButOfDialogs(); }
    void f2_renamesTheFileOnDisk();
    void f2_selectsTheNameWithoutItsEnding();
    void f2_fromAnotherColumnEditsTheName();
    void press_onTheSelectedRowEditsAMomentLater();
    void escape_leavesTheName();
    void return_inTheEditorOpensNoDirectory();
    void refusedRename_showsWhyAndKeepsTheName_data();
    void refusedRename_showsWhyAndKeepsTheName();
    void rename_sortsTheRowInAndKeepsItCurrent();
    void rename_ofAnOpenDirectoryLeavesItOpen();
    void rename_toLatin1LettersWritesUtf8();
    void nameBeyondLatin1_isEditedInADialogAlone();
    void topOfTheTree_andPlacesAreNotEdited();
    void computedRows_areNotChanged();
    void checkBox_flipsAllSelectedFiles();
    void checkBox_showsRefusals();
    void space_flipsInTheColumnOfCheckBoxes();
    void undo_takesEachStepBack();
};

void tst_ExplorerEdits::f2_renamesTheFileOnDisk()
{
    FileFixture files;
    files.makeFile("a", 5);
    files.makeFile("b");
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    QCOMPARE(shown.current(), "a");
    rename(shown, "a new name");
    QVERIFY(exists(files.path("a new name")) && !exists(files.path("a")));
    QCOMPARE(shown.names(), "a new name|b");
    QCOMPARE(shown.textOf(shown.row("a new name"), Column::Size), "5 B\xa0");
    QCOMPARE(shown.message(), QStringLiteral("\"a\" is \"a new name\" now"));
    QVERIFY(shown.grid().hasFocus());
}

void tst_ExplorerEdits::f2_selectsTheNameWithoutItsEnding()
{
    FileFixture files;
    files.makeFile("text.old.txt");
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_F2);
    QTRY_VERIFY(shown.editor() && shown.editor()->hasFocus());
    QCOMPARE(shown.editor()->selectedText(), QStringLiteral("text.old"));
    shown.type("x");
    shown.key(Qt::Key_Return);
    QTRY_VERIFY(exists(files.path("x.txt")));
}

void tst_ExplorerEdits::f2_fromAnotherColumnEditsTheName()
{
    FileFixture files;
    files.makeFile("a");
    ShownWindow shown(files.path());
    shown.click(shown.cell("a", Column::Kind));
    rename(shown, "b");
    QVERIFY(exists(files.path("b")));
}

void tst_ExplorerEdits::press_onTheSelectedRowEditsAMomentLater()
{
    FileFixture files;
    files.makeFile("a file with a name");
    ShownWindow shown(files.path());
    QRect place;
    shown.grid().GetItemEditorRect(shown.row("a file with a name"), handleOf(Column::Name), &place);
    QPoint const onText = place.topLeft() + QPoint(10, place.height() / 2);
    shown.click(onText);
    QVERIFY(!shown.editor());
    QTest::qWait(QApplication::doubleClickInterval() + 1); // or it is a double click
    QVERIFY(!shown.editor());
    shown.click(onText);
    QVERIFY(!shown.editor());
    QTRY_VERIFY(shown.editor());
}

void tst_ExplorerEdits::escape_leavesTheName()
{
    FileFixture files;
    files.makeFile("a");
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_F2);
    QTRY_VERIFY(shown.editor() && shown.editor()->hasFocus());
    shown.type("xyz");
    shown.key(Qt::Key_Escape);
    QTRY_VERIFY(!shown.editor());
    QVERIFY(exists(files.path("a")));
    QCOMPARE(shown.names(), "a");
    QTRY_VERIFY(shown.grid().hasFocus());
}

void tst_ExplorerEdits::return_inTheEditorOpensNoDirectory()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/inner");
    ShownWindow shown(files.path());
    std::string const top = shown.textOf(shown.topRow());
    shown.key(Qt::Key_Down);
    rename(shown, "e");
    QCOMPARE(shown.textOf(shown.topRow()), top);
    QCOMPARE(shown.names(), "e");
    shown.key(Qt::Key_Return);
    QTRY_COMPARE(shown.textOf(shown.topRow()), "e");
}

void tst_ExplorerEdits::refusedRename_showsWhyAndKeepsTheName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("exists") << QByteArray("b") << "there is already a file of that name";
    QTest::newRow("empty") << QByteArray(" ") << QString();
    QTest::newRow("slash") << QByteArray("x/y") << "a name cannot hold a slash";
    QTest::newRow("dots") << QByteArray("..") << "that name stands for a directory";
    QTest::newRow("beyond Latin-1") << QByteArray("\xe6\x97\xa5") << "Latin-1 letters only";
}

void tst_ExplorerEdits::refusedRename_showsWhyAndKeepsTheName()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, reason);
    FileFixture files;
    files.makeFile("a", 1);
    files.makeFile("b", 2);
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    if (reason.isEmpty()) {
        shown.key(Qt::Key_F2);
        QTRY_VERIFY(shown.editor() && shown.editor()->hasFocus());
        shown.key(Qt::Key_Backspace);
        shown.key(Qt::Key_Return);
        QTRY_COMPARE(shown.message(), QStringLiteral("Not renamed: a: a name cannot be empty"));
    } else {
        rename(shown, name.constData());
        QVERIFY(shown.message().startsWith(QStringLiteral("Not renamed: ")));
        QVERIFY(shown.message().contains(reason));
    }
    QCOMPARE(shown.names(), "a|b");
    QCOMPARE(shown.current(), "a");
    QCOMPARE(std::filesystem::file_size(files.path("a")), 1u);
    QCOMPARE(std::filesystem::file_size(files.path("b")), 2u);
}

void tst_ExplorerEdits::rename_sortsTheRowInAndKeepsItCurrent()
{
    FileFixture files;
    for (char const * const name : {"a", "b", "c"}) {
        files.makeFile(name);
    }
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    rename(shown, "bb");
    QCOMPARE(shown.names(), "b|bb|c");
    QCOMPARE(shown.current(), "bb");
    QCOMPARE(shown.selected(), "bb");
    shown.grid().sortBy(Column::Name, false);
    QCOMPARE(shown.names(), "c|bb|b");
}

void tst_ExplorerEdits::rename_ofAnOpenDirectoryLeavesItOpen()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/inner");
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_Plus);
    QCOMPARE(shown.names(), "d|inner");
    rename(shown, "e");
    QCOMPARE(shown.names(), "e|inner");
    shown.key(Qt::Key_Down);
    rename(shown, "within");
    QVERIFY(exists(files.path("e/within")));
}

void tst_ExplorerEdits::rename_toLatin1LettersWritesUtf8()
{
    FileFixture files;
    files.makeFile("cafe");
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    rename(shown, "caf\xc3\xa9");
    QVERIFY(exists(files.path("caf\xc3\xa9")));
    QCOMPARE(shown.names(), "caf\xe9");
}

// An edit of what is shown of it would destroy the name.
void tst_ExplorerEdits::nameBeyondLatin1_isEditedInADialogAlone()
{
    FileFixture files;
    files.makeFile("\xe6\x97\xa5.txt");
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    QVERIFY(!shown.grid().EditItem(shown.grid().currentRow(), handleOf(Column::Name)));
    QVERIFY(shown.message().contains(QStringLiteral("beyond Latin-1")));
    shown.key(Qt::Key_F2);
    QVERIFY(!shown.editor());
    auto * const dialog = shown.window.findChild<QInputDialog *>();
    QVERIFY(dialog);
    QCOMPARE(dialog->textValue(), QStringLiteral("\u65e5.txt"));
    dialog->setTextValue(QStringLiteral("\u6708.txt"));
    dialog->accept();
    QVERIFY(exists(files.path("\xe6\x9c\x88.txt")));
    QCOMPARE(shown.names(), "%E6%9C%88.txt");
}

void tst_ExplorerEdits::topOfTheTree_andPlacesAreNotEdited()
{
    FileFixture files;
    ShownWindow shown(files.path());
    shown.key(Qt::Key_F2);
    QVERIFY(!shown.editor());
    QVERIFY(shown.message().contains(QStringLiteral("below the top")));
    shown.key(Qt::Key_Home);
    shown.key(Qt::Key_Down);
    QVERIFY(!shown.grid().EditItem(shown.grid().currentRow(), handleOf(Column::Name)));
    QRect place;
    shown.grid().GetItemRect(shown.grid().currentRow(), handleOf(Column::Executable), &place);
    shown.click(place.topLeft() + QPoint(8, place.height() / 2));
    QVERIFY(!shown.message().contains(QStringLiteral("run")));
}

void tst_ExplorerEdits::computedRows_areNotChanged()
{
    MainWindow window;
    window.showRows(3);
    window.show();
    zenu::tag_HROW * const row = window.grid()->GetNextRow(
        zenu::GCN_VISIBLE_NEXT, window.grid()->GetNextRow(zenu::GCN_VISIBLE_FIRST));
    QVERIFY(!window.grid()->EditItem(row, handleOf(Column::Name)));
}

void tst_ExplorerEdits::checkBox_flipsAllSelectedFiles()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("a", 0, 0644);
    files.makeFile("b", 0, 0755);
    files.makeFile("c", 0, 0644);
    ShownWindow shown(files.path());
    shown.select({"d", "a", "b"});
    shown.click(shown.box("a"));
    QTRY_VERIFY(isExecutable(files.path("a")));
    QVERIFY(isExecutable(files.path("b")) && !isExecutable(files.path("c")));
    QCOMPARE(shown.message(), QStringLiteral("\"a\" can be run now")); // "b" did already
    shown.click(shown.box("b"));
    QTRY_VERIFY(!isExecutable(files.path("b")));
    QVERIFY(!isExecutable(files.path("a")));
    QCOMPARE(shown.message(), QStringLiteral("2 files cannot be run any more"));
    QCOMPARE(shown.selected(), "d|a|b");
}

void tst_ExplorerEdits::checkBox_showsRefusals()
{
    FileFixture files;
    files.makeFile("a");
    ShownWindow shown(files.path());
    QPoint const box = shown.box("a");
    QCOMPARE(unlink(files.path("a").c_str()), 0);
    shown.click(box);
    QTRY_COMPARE(shown.message(), QStringLiteral("Not changed: a: it is not there any more"));
}

void tst_ExplorerEdits::space_flipsInTheColumnOfCheckBoxes()
{
    FileFixture files;
    files.makeFile("a");
    ShownWindow shown(files.path());
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_Space);
    QCoreApplication::processEvents();
    QVERIFY(!isExecutable(files.path("a")));
    shown.key(Qt::Key_Right);
    shown.key(Qt::Key_Space);
    QTRY_VERIFY(isExecutable(files.path("a")));
    shown.key(Qt::Key_Left);
    QCOMPARE(shown.grid().GetFocusedColumn(), handleOf(Column::Name));
}

void tst_ExplorerEdits::undo_takesEachStepBack()
{
    FileFixture files;
    files.makeFile("a", 0, 0600);
    files.makeFile("b", 0, 0644);
    ShownWindow shown(files.path());
    shown.select({"a", "b"});
    shown.click(shown.box("a"));
    QTRY_VERIFY(isExecutable(files.path("b")));
    shown.key(Qt::Key_Home);
    shown.select({"a"});
    rename(shown, "c");
    QVERIFY(exists(files.path("c")));
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(exists(files.path("a")) && !exists(files.path("c")));
    QCOMPARE(shown.names(), "a|b");
    QCOMPARE(shown.message(), QStringLiteral("Took back the rename of a"));
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!isExecutable(files.path("a")) && !isExecutable(files.path("b")));
    shown.key(Qt::Key_Z, Qt::ControlModifier); // nothing is left
    QCOMPARE(shown.names(), "a|b");
}

ZENU_TEST(tst_ExplorerEdits)
#include "tst_ExplorerEdits.moc"
