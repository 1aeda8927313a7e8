#include "examples/explorer/model/FileChanges.h"
#include "tests/explorer/FileFixture.h"
#include "tests/support/TestMain.h"

#include <fstream>

using namespace explorer;
using zenutest::exists;
using zenutest::FileFixture;
using zenutest::LesserUser;

namespace {

mode_t modeOf(std::string const & path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

// Another file system than that of the temporary files, empty for none.
std::string otherFileSystem(std::string const & here)
{
    struct stat status;
    stat(here.c_str(), &status);
    dev_t const own = status.st_dev;
    for (char const * const path : {"/dev/shm", "/run", "/tmp", "/var/tmp"}) {
        if (stat(path, &status) == 0 && status.st_dev != own && access(path, W_OK) == 0) {
            return path;
        }
    }
    return std::string();
}

} // namespace

class tst_FileChanges : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void rename_givesAnotherNameAndUndoTheOldOne();
    void rename_toTheSameName_isNoStep();
    void rename_overAFile_isRefused();
    void rename_toABadName_isRefused_data();
    void rename_toABadName_isRefused();
    void rename_withoutPermission_isRefused();
    void rename_ofBytes_keepsThem();
    void move_takesFilesIntoADirectory();
    void move_intoItself_isRefused();
    void move_overAFile_isRefusedAndTheOthersAreMoved();
    void move_toWhereTheFileIs_doesNothing();
    void move_acrossFileSystems_isRefused();
    void setExecutable_letsThoseRunWhoMayRead_data();
    void setExecutable_letsThoseRunWhoMayRead();
    void setExecutable_changesFilesOnly();
    void undo_takesBackAllOfAStepAndForgetsIt();
    void undo_overANewFile_isRefused();
    void steps_areLimited();
    void paths_areParted();
};

void tst_FileChanges::rename_givesAnotherNameAndUndoTheOldOne()
{
    FileFixture files;
    files.makeFile("a");
    FileChanges changes;
    QVERIFY(!changes.canUndo());
    FileOutcome const done = changes.rename(files.path("a"), "b");
    QVERIFY(done.isDone());
    QCOMPARE(done.done.size(), std::size_t{1});
    QCOMPARE(done.done.front().newPath, files.path("b"));
    QVERIFY(exists(files.path("b")) && !exists(files.path("a")));
    QCOMPARE(changes.undoText(), "rename of a");
    FileOutcome const undone = changes.undo();
    QCOMPARE(undone.done.front().path, files.path("b"));
    QCOMPARE(undone.done.front().newPath, files.path("a"));
    QVERIFY(exists(files.path("a")) && !exists(files.path("b")));
    QVERIFY(!changes.canUndo());
}

void tst_FileChanges::rename_toTheSameName_isNoStep()
{
    FileFixture files;
    files.makeFile("a");
    FileChanges changes;
    FileOutcome const outcome = changes.rename(files.path("a"), "a");
    QVERIFY(outcome.isDone() && outcome.done.empty());
    QVERIFY(!changes.canUndo());
}

void tst_FileChanges::rename_overAFile_isRefused()
{
    FileFixture files;
    files.makeFile("a", 1);
    files.makeFile("b", 2);
    files.makeDirectory("empty");
    FileChanges changes;
    for (char const * const name : {"b", "empty"}) {
        FileOutcome const outcome = changes.rename(files.path("a"), name);
        QVERIFY(!outcome.isDone() && outcome.done.empty());
        QCOMPARE(outcome.error, "a: there is already a file of that name");
    }
    QCOMPARE(std::filesystem::file_size(files.path("b")), 2u);
    QVERIFY(!changes.canUndo());
}

void tst_FileChanges::rename_toABadName_isRefused_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("this directory") << QByteArray(".");
    QTest::newRow("the parent") << QByteArray("..");
    QTest::newRow("a path") << QByteArray("x/y");
    QTest::newRow("a line feed") << QByteArray("x\ny");
    QTest::newRow("longer than any name") << QByteArray(300, 'x');
}

void tst_FileChanges::rename_toABadName_isRefused()
{
    QFETCH(QByteArray, name);
    FileFixture files;
    files.makeFile("a");
    FileChanges changes;
    FileOutcome const outcome = changes.rename(files.path("a"), name.toStdString());
    QVERIFY(!outcome.isDone());
    QVERIFY(outcome.error.starts_with("a: "));
    QVERIFY(exists(files.path("a")));
}

void tst_FileChanges::rename_withoutPermission_isRefused()
{
    FileFixture files;
    files.makeFile("a");
    QCOMPARE(chmod(files.path().c_str(), 0555), 0);
    {
        LesserUser const user;
        FileChanges changes;
        QCOMPARE(changes.rename(files.path("a"), "b").error, "a: that is not allowed");
    }
    QCOMPARE(chmod(files.path().c_str(), 0755), 0);
    QVERIFY(exists(files.path("a")));
}

void tst_FileChanges::rename_ofBytes_keepsThem()
{
    FileFixture files;
    files.makeFile("\xff");
    FileChanges changes;
    QVERIFY(changes.rename(files.path("\xff"), "caf\xe9").isDone());
    QVERIFY(exists(files.path("caf\xe9")));
    QVERIFY(changes.undo().isDone());
    QVERIFY(exists(files.path("\xff")));
}

void tst_FileChanges::move_takesFilesIntoADirectory()
{
    FileFixture files;
    files.makeDirectory("into");
    files.makeDirectory("d");
    files.makeFile("d/inner");
    files.makeFile("d b"); // between "d" and "d/inner" in the order of bytes
    FileChanges changes;
    FileOutcome const outcome = changes.move(
        {files.path("d/inner"), files.path("d"), files.path("d b")}, files.path("into"));
    QVERIFY(outcome.isDone());
    QCOMPARE(outcome.done.size(), std::size_t{2}); // the inner file goes with its directory
    QVERIFY(exists(files.path("into/d/inner")) && exists(files.path("into/d b")));
    QCOMPARE(changes.undoText(), "move of 2 files");
    QVERIFY(changes.undo().isDone());
    QVERIFY(exists(files.path("d/inner")) && exists(files.path("d b")));
}

void tst_FileChanges::move_intoItself_isRefused()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeDirectory("d/e");
    files.makeDirectory("de");
    FileChanges changes;
    for (char const * const directory : {"d", "d/e"}) {
        FileOutcome const outcome = changes.move({files.path("d")}, files.path(directory));
        QCOMPARE(outcome.error, "d: a directory cannot be moved into itself");
    }
    QVERIFY(changes.move({files.path("d")}, files.path("de")).isDone());
    QVERIFY(exists(files.path("de/d/e")));
}

void tst_FileChanges::move_overAFile_isRefusedAndTheOthersAreMoved()
{
    FileFixture files;
    files.makeDirectory("into");
    files.makeFile("into/a", 3);
    files.makeFile("a");
    files.makeFile("b");
    FileChanges changes;
    FileOutcome const outcome =
        changes.move({files.path("a"), files.path("b")}, files.path("into"));
    QCOMPARE(outcome.refused, 1);
    QCOMPARE(outcome.error, "a: there is already a file of that name");
    QCOMPARE(outcome.done.size(), std::size_t{1});
    QCOMPARE(std::filesystem::file_size(files.path("into/a")), 3u);
    QVERIFY(exists(files.path("a")) && exists(files.path("into/b")));
}

void tst_FileChanges::move_toWhereTheFileIs_doesNothing()
{
    FileFixture files;
    files.makeFile("a");
    FileChanges changes;
    FileOutcome const outcome = changes.move({files.path("a")}, files.path());
    QVERIFY(outcome.isDone() && outcome.done.empty() && !changes.canUndo());
}

void tst_FileChanges::move_acrossFileSystems_isRefused()
{
    FileFixture files;
    files.makeFile("a");
    std::string const other = otherFileSystem(files.path());
    if (other.empty()) {
        QSKIP("there is one file system to write to");
    }
    FileChanges changes;
    FileOutcome const outcome = changes.move({files.path("a")}, other);
    QVERIFY(QString::fromStdString(outcome.error)
                .startsWith(QStringLiteral("a: that is another file system")));
    QVERIFY(exists(files.path("a")));
}

void tst_FileChanges::setExecutable_letsThoseRunWhoMayRead_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<bool>("executable");
    QTest::addColumn<int>("after");
    QTest::newRow("all may read") << 0644 << true << 0755;
    QTest::newRow("the owner may read") << 0600 << true << 0700;
    QTest::newRow("owner and group") << 0640 << true << 0750;
    QTest::newRow("nobody may read") << 0200 << true << 0300;
    QTest::newRow("some ran it before") << 0744 << true << 0755;
    QTest::newRow("no more") << 0755 << false << 0644;
    QTest::newRow("not at all before") << 0644 << false << 0644;
}

void tst_FileChanges::setExecutable_letsThoseRunWhoMayRead()
{
    QFETCH(int, before);
    QFETCH(bool, executable);
    QFETCH(int, after);
    FileFixture files;
    files.makeFile("a", 0, static_cast<mode_t>(before));
    FileChanges changes;
    FileOutcome const outcome = changes.setExecutable({files.path("a")}, executable);
    QVERIFY(outcome.isDone());
    QCOMPARE(modeOf(files.path("a")), static_cast<mode_t>(after));
    QCOMPARE(changes.canUndo(), before != after);
    QVERIFY(changes.undo().isDone());
    QCOMPARE(modeOf(files.path("a")), static_cast<mode_t>(before));
}

void tst_FileChanges::setExecutable_changesFilesOnly()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("target");
    files.makeLink("target", "link");
    files.makeFile("a");
    FileChanges changes;
    FileOutcome const outcome = changes.setExecutable(
        {files.path("d"), files.path("link"), files.path("gone"), files.path("a")}, true);
    QCOMPARE(outcome.refused, 3);
    QCOMPARE(outcome.error, "d: only files can be run");
    QCOMPARE(outcome.done.size(), std::size_t{1});
    QCOMPARE(modeOf(files.path("target")), mode_t{0644});
}

void tst_FileChanges::undo_takesBackAllOfAStepAndForgetsIt()
{
    FileFixture files;
    files.makeFile("a", 0, 0644);
    files.makeFile("b", 0, 0600);
    FileChanges changes;
    changes.setExecutable({files.path("a"), files.path("b")}, true);
    changes.rename(files.path("a"), "c");
    QVERIFY(changes.undo().isDone());
    QCOMPARE(changes.undoText(), "\"Runs\" of 2 files");
    QCOMPARE(changes.undo().done.size(), std::size_t{2});
    QCOMPARE(modeOf(files.path("a")), mode_t{0644});
    QCOMPARE(modeOf(files.path("b")), mode_t{0600});
    QVERIFY(changes.undo().done.empty());
}

void tst_FileChanges::undo_overANewFile_isRefused()
{
    FileFixture files;
    files.makeFile("a", 1);
    FileChanges changes;
    changes.rename(files.path("a"), "b");
    files.makeFile("a", 2);
    FileOutcome const outcome = changes.undo();
    QCOMPARE(outcome.error, "b: there is already a file of that name");
    QCOMPARE(std::filesystem::file_size(files.path("a")), 2u);
    QVERIFY(!changes.canUndo());
}

void tst_FileChanges::steps_areLimited()
{
    FileFixture files;
    files.makeFile("0");
    FileChanges changes;
    std::size_t const renames = FileChanges::mostSteps + 5;
    for (std::size_t i = 0; i < renames; ++i) {
        QVERIFY(changes.rename(files.path(std::to_string(i)), std::to_string(i + 1)).isDone());
    }
    while (changes.canUndo()) {
        QVERIFY(changes.undo().isDone());
    }
    QVERIFY(exists(files.path("5")));
}

void tst_FileChanges::paths_areParted()
{
    QCOMPARE(nameOf("/a/b"), "b");
    QCOMPARE(nameOf("/"), "/");
    QCOMPARE(directoryOf("/a/b"), "/a");
    QCOMPARE(directoryOf("/a"), "/");
    QVERIFY(isWithin("/a/b", "/a") && isWithin("/a", "/a") && isWithin("/a", "/"));
    QVERIFY(!isWithin("/ab", "/a") && !isWithin("/a", "/a/b"));
}

ZENU_TEST(tst_FileChanges)
#include "tst_FileChanges.moc"
