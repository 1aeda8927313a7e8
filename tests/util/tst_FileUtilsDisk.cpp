// FileUtils on real files and directories, and with texts that no file has.

#include "tests/support/TestMain.h"

#include <zenu/util/FileUtils.h>

#include <unistd.h>
#include <utime.h>

using namespace zenu;

namespace {

constexpr std::size_t tenMegabytes = 10'000'000;

// Who runs as root may write everything: becomes an ordinary user for a while.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        if (m_isRoot && setresuid(nobody, nobody, 0) != 0) {
            QFAIL("can't become another user");
        }
    }
    ~OrdinaryUser()
    {
        if (m_isRoot && setresuid(0, 0, 0) != 0) {
            std::abort();
        }
    }
    OrdinaryUser(OrdinaryUser const &) = delete;
    OrdinaryUser & operator=(OrdinaryUser const &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool const m_isRoot = getuid() == 0;
};

// A path and everything it may end in.
std::string repeated(std::string const & piece, std::size_t size)
{
    std::string text;
    text.reserve(size + piece.size());
    while (text.size() < size) {
        text += piece;
    }
    return text;
}

} // namespace

class tst_FileUtilsDisk : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void exists_filesAndDirectories_andNothingElse();
    void isDirectory_isTrueForDirectoriesOnly();
    void isReadOnly_writableReadOnlyAndMissing();
    void setReadOnly_changesNothing();
    void setCurrentDirectory_changesTheProcess();
    void deleteFile_deletesFilesOnly();
    void getLastModificationTime_countsFrom1970();
    void createDirTree_makesNothing();
    void tempFile_isAlwaysTheSame();
    void oddPaths_nameNothing_data();
    void oddPaths_nameNothing();
    void makeAbsolutePath_currentDirectory_isLatin1();
    void tenMegabytes_areWalkedOnce_data();
    void tenMegabytes_areWalkedOnce();

private:
    std::string make(char const * name) const;
    std::string at(char const * name) const { return m_root + '/' + name; }

    QTemporaryDir m_directory;
    std::string m_root;
};

void tst_FileUtilsDisk::initTestCase()
{
    QVERIFY(m_directory.isValid());
    m_root = QFile::encodeName(m_directory.path()).toStdString();
    QVERIFY(QFile::setPermissions(m_directory.path(), QFile::Permissions(0x7755)));
    QVERIFY(QDir(m_directory.path()).mkdir(QStringLiteral("sub")));
}

std::string tst_FileUtilsDisk::make(char const * name) const
{
    QFile file(m_directory.filePath(QString::fromUtf8(name)));
    return file.open(QIODevice::WriteOnly) ? at(name) : std::string();
}

void tst_FileUtilsDisk::exists_filesAndDirectories_andNothingElse()
{
    QVERIFY(FileUtils::exists(make("file")));
    QVERIFY(FileUtils::exists(at("sub")));
    QVERIFY(FileUtils::exists(at("sub/../file")));
    QVERIFY(!FileUtils::exists(at("none")));
    QVERIFY(!FileUtils::exists(at("sub/file")));
    QVERIFY(FileUtils::exists(make("gr\xc3\xb6\xc3\x9f"
                                   "e \xe2\x82\xac.txt")));
#ifndef Q_OS_WIN
    // A backslash is a character of the name where the system says so.
    QVERIFY(!FileUtils::exists(m_root + "\\file"));
    QVERIFY(FileUtils::exists(make("back\\slash")));
#endif
}

void tst_FileUtilsDisk::isDirectory_isTrueForDirectoriesOnly()
{
    QVERIFY(FileUtils::isDirectory(m_root));
    QVERIFY(FileUtils::isDirectory(at("sub/")));
    QVERIFY(!FileUtils::isDirectory(make("file")));
    QVERIFY(!FileUtils::isDirectory(at("none")));
}

void tst_FileUtilsDisk::isReadOnly_writableReadOnlyAndMissing()
{
    std::string const writable = make("writable");
    std::string const readOnly = make("read-only");
    QVERIFY(QFile::setPermissions(QFile::decodeName(writable.c_str()), QFile::Permissions(0x6666)));
    QVERIFY(QFile::setPermissions(QFile::decodeName(readOnly.c_str()), QFile::Permissions(0x4444)));
    {
        OrdinaryUser const user;
        QVERIFY(!FileUtils::isReadOnly(writable));
        QVERIFY(FileUtils::isReadOnly(readOnly));
    }
    QCOMPARE(FileUtils::isReadOnly(readOnly), getuid() != 0);
    QVERIFY(FileUtils::isReadOnly(at("none")));
    QVERIFY(!FileUtils::isReadOnly(""));
}

void tst_FileUtilsDisk::setReadOnly_changesNothing()
{
    std::string const path = make("permissions");
    auto const before = QFile::permissions(QFile::decodeName(path.c_str()));
    FileUtils::setReadOnly(path, true);
    QCOMPARE(QFile::permissions(QFile::decodeName(path.c_str())), before);
    FileUtils::setReadOnly(path, false);
    QCOMPARE(QFile::permissions(QFile::decodeName(path.c_str())), before);
}

void tst_FileUtilsDisk::setCurrentDirectory_changesTheProcess()
{
    QString const before = QDir::currentPath();
    auto const back = qScopeGuard([&] { QDir::setCurrent(before); });
    QVERIFY(FileUtils::setCurrentDirectory(at("sub")));
    QCOMPARE(QDir::currentPath(), QFileInfo(m_directory.filePath("sub")).canonicalFilePath());
    QVERIFY(FileUtils::exists("../sub"));
    QVERIFY(!FileUtils::setCurrentDirectory(at("none")));
    QVERIFY(!FileUtils::setCurrentDirectory(make("file")));
    QVERIFY(!FileUtils::setCurrentDirectory(""));
    QVERIFY(FileUtils::exists("../sub"));
}

void tst_FileUtilsDisk::deleteFile_deletesFilesOnly()
{
    std::string const path = make("short lived \xc3\xa4");
    QVERIFY(FileUtils::deleteFile(path));
    QVERIFY(!FileUtils::exists(path));
    QVERIFY(!FileUtils::deleteFile(path));
    QVERIFY(!FileUtils::deleteFile(at("sub")));
    QVERIFY(FileUtils::isDirectory(at("sub")));
    QVERIFY(!FileUtils::deleteFile(""));
}

void tst_FileUtilsDisk::getLastModificationTime_countsFrom1970()
{
    std::string const path = make("dated");
    for (long const seconds : {0L, 1L, 1'000'000'000L, 4'000'000'000L, -86'400L}) {
        utimbuf const times = {seconds, seconds};
        QCOMPARE(utime(path.c_str(), &times), 0);
        QCOMPARE(FileUtils::getLastModificationTime(path), seconds);
    }
    QCOMPARE(FileUtils::getLastModificationTime(at("none")), 0L);
    QCOMPARE(FileUtils::getLastModificationTime(""), 0L);
}

void tst_FileUtilsDisk::createDirTree_makesNothing()
{
    std::string const path = at("tree/of/directories");
    QVERIFY(!FileUtils::createDirTree(path.c_str()));
    QVERIFY(!FileUtils::exists(at("tree")));
    QVERIFY(!FileUtils::createDirTree(at("sub").c_str()));
}

void tst_FileUtilsDisk::tempFile_isAlwaysTheSame()
{
    bool const before = FileUtils::exists("/tmp1234");
    QCOMPARE(FileUtils::tempFile(), std::string("/tmp1234"));
    QCOMPARE(FileUtils::tempFile(), std::string("/tmp1234"));
    QCOMPARE(FileUtils::exists("/tmp1234"), before);
}

void tst_FileUtilsDisk::oddPaths_nameNothing_data()
{
    QTest::addColumn<QByteArray>("path");
    QByteArray const file = QByteArray::fromStdString(make("kept"));
    QTest::newRow("null byte alone") << QByteArray(1, '\0');
    QTest::newRow("null byte behind a file's name") << file + '\0' + "x";
    QTest::newRow("null byte in front") << '\0' + file;
    QTest::newRow("not a character of UTF-8") << file + "\xe4\xff";
    QTest::newRow("all bytes") << [] {
        QByteArray all;
        for (int byte = 1; byte < 256; ++byte) {
            all += static_cast<char>(byte);
        }
        return all;
    }();
    QTest::newRow("ten megabytes") << QByteArray(tenMegabytes, 'a');
    QTest::newRow("ten megabytes of separators and names")
        << QByteArray::fromStdString(repeated("a/", tenMegabytes));
}

void tst_FileUtilsDisk::oddPaths_nameNothing()
{
    QFETCH(QByteArray, path);
    std::string const odd = path.toStdString();
    QVERIFY(!FileUtils::exists(odd));
    QVERIFY(!FileUtils::isDirectory(odd));
    QVERIFY(FileUtils::isReadOnly(odd));
    QVERIFY(!FileUtils::setCurrentDirectory(odd));
    QVERIFY(!FileUtils::deleteFile(odd));
    QCOMPARE(FileUtils::getLastModificationTime(odd), 0L);
    QVERIFY(FileUtils::exists(at("kept")));
}

void tst_FileUtilsDisk::makeAbsolutePath_currentDirectory_isLatin1()
{
    QString const before = QDir::currentPath();
    auto const back = qScopeGuard([&] { QDir::setCurrent(before); });
    QString const name = QStringLiteral("\u00e4\u20ac"); // one letter of Latin-1, one sign outside
    QVERIFY(QDir(m_directory.path()).mkdir(name));
    QVERIFY(QDir::setCurrent(m_directory.filePath(name)));
    std::string const path = FileUtils::makeAbsolutePath("b");
    QCOMPARE(path.substr(path.size() - 5), std::string("/\xe4?\\b"));
}

void tst_FileUtilsDisk::tenMegabytes_areWalkedOnce_data()
{
    QTest::addColumn<QByteArray>("piece");
    for (char const * piece : {"a", "a\\", "..\\", "ab/../", "\\", ":.", "\xe4\xff"}) {
        QTest::addRow("'%s'", piece) << QByteArray(piece);
    }
}

// Anything quadratic would take hours.
void tst_FileUtilsDisk::tenMegabytes_areWalkedOnce()
{
    QFETCH(QByteArray, piece);
    std::string const path = repeated(piece.toStdString(), tenMegabytes);
    std::string const drive = "C:\\" + path;
    std::string const machine = "\\\\" + path;
    std::string const bare(tenMegabytes, 'b');
    std::string drivePart, dir, name, ext;
    FileUtils::splitPath(path, &drivePart, &dir, &name, &ext);
    QVERIFY(FileUtils::makePath(drivePart, dir, name, ext).size() >= path.size());
    QVERIFY(FileUtils::equalPath(path, path));
    QVERIFY(FileUtils::trimPath(drive).size() <= drive.size());
    QVERIFY(FileUtils::getAbsolutePath(bare, path).size() >= 1);
    QCOMPARE(FileUtils::getRelativePath(drive, drive), std::string(".\\"));
    QVERIFY(FileUtils::getRelativePath(drive, "C:\\b").size() >= 3);
    QVERIFY(FileUtils::getRelativePath("C:\\b", drive).size() >= 2);
    QVERIFY(FileUtils::makeAbsolutePath(path, "b").size() > path.size());
    QVERIFY(FileUtils::getPathFromFile(path).size() < path.size());
    QVERIFY(FileUtils::pathAddBackslash(path).size() >= path.size());
    QVERIFY(FileUtils::pathRemoveBackslash(path).size() + 1 >= path.size());
    std::vector<char> out(path.size() + 2);
    FileUtils::pathAddBackslash(path.c_str(), out.data());
    FileUtils::removeExtFromFile(out.data(), out.data());
    std::vector<std::string> found;
    QVERIFY(FileUtils::glob(&found, machine));
    QVERIFY(!FileUtils::glob(&found, path + "*") || piece == "\\");
}

ZENU_TEST(tst_FileUtilsDisk)
#include "tst_FileUtilsDisk.moc"
