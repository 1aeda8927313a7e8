#include "tests/support/GermanLocale.h"
#include "tests/support/TestMain.h"

#include <zenu/util/FileUtils.h>

using namespace zenu;

namespace {

QByteArray bytes(std::string const & text)
{
    return QByteArray::fromStdString(text);
}

QByteArray addBackslashByBuffer(char const * path)
{
    char out[100];
    FileUtils::pathAddBackslash(path, out);
    return out;
}

QByteArray removeExt(char const * path)
{
    char out[100];
    FileUtils::removeExtFromFile(path, out);
    return out;
}

// "drive|dir|name|ext".
QByteArray split(std::string const & path)
{
    std::string drive = "x", dir = "x", name = "x", ext = "x";
    FileUtils::splitPath(path, &drive, &dir, &name, &ext);
    return bytes(drive + '|' + dir + '|' + name + '|' + ext);
}

// The answer and the path found.
QByteArray relative(char const * base, char const * path)
{
    std::string result;
    bool const answer = FileUtils::getRelativePath(&result, base, path);
    return bytes((answer ? "true " : "false ") + result);
}

QByteArray globbed(std::string const & pattern)
{
    std::vector<std::string> result = {"before"};
    bool const answer = FileUtils::glob(&result, pattern);
    std::string text = answer ? "true" : "false";
    for (std::string const & path : result) {
        text += ' ' + path;
    }
    return bytes(text);
}

} // namespace

class tst_FileUtils : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void isAbsolutePath_data();
    void isAbsolutePath();
    void equalPath_ignoresCaseAndSeparators();
    void getPathFromFile_isWhatStandsBeforeTheLastSeparator();
    void getNameFromFile_isAPlaceInTheArgument();
    void getNameFromFile_pathEndsInASeparator_isEmpty();
    void getExtFromFile_isBlindForSeparators();
    void removeExtFromFile_isBlindForSeparators();
    void pathAddBackslash_formsDiffer();
    void pathRemoveBackslash_removesOne();
    void splitPath_data();
    void splitPath();
    void splitPath_fullPath_partsMakeItAgain();
    void splitPath_driveAlone_leavesTheRestEmpty();
    void splitPath_intoItsOwnArgument_works();
    void makePath_addsWhatIsLacking();
    void trimPath_data();
    void trimPath();
    void trimPath_driveWithPoints_isResolved();
    void trimPath_relativePath_keepsItsDots();
    void makeAbsolutePath_joins();
    void makeAbsolutePath_emptyBase_isTheCurrentDirectory();
    void getAbsolutePath_data();
    void getAbsolutePath();
    void getAbsolutePath_resultIsItsOwnBase_works();
    void getRelativePath_data();
    void getRelativePath();
    void getRelativePath_samePathTwice_isPointAndBackslash();
    void getRelativePath_resultIsItsOwnPath_works();
    void glob_classifiesOnly();
    void germanLocale_changesNothing();
};

void tst_FileUtils::isAbsolutePath_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("absolute");
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("drive without separator") << QByteArray("c:x") << true;
    QTest::newRow("drive alone") << QByteArray("c:") << true;
    QTest::newRow("backslash") << QByteArray("\\x") << true;
    QTest::newRow("slash") << QByteArray("/x") << true;
    QTest::newRow("one separator alone") << QByteArray("/") << true;
    QTest::newRow("name") << QByteArray("x") << false;
    QTest::newRow("colon alone") << QByteArray(":") << false;
    QTest::newRow("any character is a drive") << QByteArray("\xe4:x") << true;
    QTest::newRow("colon in third place") << QByteArray("ab:") << false;
    QTest::newRow("points") << QByteArray("..\\x") << false;
}

void tst_FileUtils::isAbsolutePath()
{
    QFETCH(QByteArray, path);
    QTEST(FileUtils::isAbsolutePath(path.toStdString()), "absolute");
}

void tst_FileUtils::equalPath_ignoresCaseAndSeparators()
{
    QVERIFY(FileUtils::equalPath("C:/A/b", "c:\\a\\B"));
    QVERIFY(FileUtils::equalPath("", ""));
    QVERIFY(!FileUtils::equalPath("C:/A/b", "c:\\a\\B\\"));
    QVERIFY(!FileUtils::equalPath("a//b", "a/b"));
    QVERIFY(!FileUtils::equalPath("\xc4", "\xe4"));
}

void tst_FileUtils::getPathFromFile_isWhatStandsBeforeTheLastSeparator()
{
    QCOMPARE(FileUtils::getPathFromFile("C:\\a\\b.c"), std::string("C:\\a"));
    QCOMPARE(FileUtils::getPathFromFile("a/b\\c"), std::string("a/b"));
    QCOMPARE(FileUtils::getPathFromFile("a\\"), std::string("a"));
    QCOMPARE(FileUtils::getPathFromFile("\\a"), std::string());
    QCOMPARE(FileUtils::getPathFromFile("a"), std::string());
    QCOMPARE(FileUtils::getPathFromFile("C:a"), std::string());
    QCOMPARE(FileUtils::getPathFromFile(""), std::string());
}

void tst_FileUtils::getNameFromFile_isAPlaceInTheArgument()
{
    char const path[] = "a\\b.c";
    QVERIFY(FileUtils::getNameFromFile(path) == path + 2);
    QCOMPARE(FileUtils::getNameFromFile("a\\b/c"), "c");
    QCOMPARE(FileUtils::getNameFromFile("C:a"), "C:a");
    QCOMPARE(FileUtils::getNameFromFile(""), "");
    QVERIFY(FileUtils::getNameFromFile(nullptr) == nullptr);
}

void tst_FileUtils::getNameFromFile_pathEndsInASeparator_isEmpty()
{
    QCOMPARE(FileUtils::getNameFromFile("a\\"), "");
    QCOMPARE(FileUtils::getNameFromFile("a/"), "");
    char const * const kept = FileUtils::getNameFromFile(std::string("longer than any buffer of a "
                                                                     "short string is\\")
                                                             .c_str());
    QCOMPARE(kept, ""); // not in the text, which is gone
}

void tst_FileUtils::getExtFromFile_isBlindForSeparators()
{
    char const path[] = "a.b.c";
    QVERIFY(FileUtils::getExtFromFile(path) == path + 3);
    QCOMPARE(FileUtils::getExtFromFile("a.b\\c"), ".b\\c");
    QCOMPARE(FileUtils::getExtFromFile("a."), ".");
    QCOMPARE(FileUtils::getExtFromFile(".."), ".");
    QCOMPARE(FileUtils::getExtFromFile("a"), "");
    QCOMPARE(FileUtils::getExtFromFile(""), "");
}

void tst_FileUtils::removeExtFromFile_isBlindForSeparators()
{
    QCOMPARE(removeExt("a.b.c"), QByteArray("a.b"));
    QCOMPARE(removeExt("a.b\\c"), QByteArray("a"));
    QCOMPARE(removeExt("a."), QByteArray("a"));
    QCOMPARE(removeExt("a"), QByteArray("a"));
    QCOMPARE(removeExt(""), QByteArray(""));
    char same[] = "dir.x\\name.txt";
    FileUtils::removeExtFromFile(same, same);
    QCOMPARE(same, "dir.x\\name");
}

void tst_FileUtils::pathAddBackslash_formsDiffer()
{
    QCOMPARE(addBackslashByBuffer(""), QByteArray("\\"));
    QCOMPARE(addBackslashByBuffer("a"), QByteArray("a\\"));
    QCOMPARE(addBackslashByBuffer("a/"), QByteArray("a\\"));
    QCOMPARE(addBackslashByBuffer("a\\"), QByteArray("a\\\\"));
    QCOMPARE(addBackslashByBuffer("a//"), QByteArray("a/\\"));
    QCOMPARE(FileUtils::pathAddBackslash(""), std::string("\\"));
    QCOMPARE(FileUtils::pathAddBackslash("a"), std::string("a\\"));
    QCOMPARE(FileUtils::pathAddBackslash("a/"), std::string("a\\"));
    QCOMPARE(FileUtils::pathAddBackslash("a\\"), std::string("a\\"));
    QCOMPARE(FileUtils::pathAddBackslash("a//"), std::string("a/\\"));
    char same[10] = "a\\b";
    FileUtils::pathAddBackslash(same, same);
    QCOMPARE(same, "a\\b\\");
}

void tst_FileUtils::pathRemoveBackslash_removesOne()
{
    QCOMPARE(FileUtils::pathRemoveBackslash("a\\\\"), std::string("a\\"));
    QCOMPARE(FileUtils::pathRemoveBackslash("a/"), std::string("a"));
    QCOMPARE(FileUtils::pathRemoveBackslash("a"), std::string("a"));
    QCOMPARE(FileUtils::pathRemoveBackslash("\\"), std::string());
    QCOMPARE(FileUtils::pathRemoveBackslash(""), std::string());
}

void tst_FileUtils::splitPath_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("parts");
    auto const row = [](char const * path, char const * parts) {
        QTest::addRow("'%s'", path) << QByteArray(path) << QByteArray(parts);
    };
    row("C:\\a\\b.txt", "C:|\\a\\|b|.txt");
    row("C:", "C:|||");
    row("", "|||");
    row("b.txt", "||b|.txt");
    row(".txt", "|||.txt");
    row("a.b.c", "||a.b|.c");
    row("a.b\\c", "|a.b\\|c|");
    row("a\\", "|a\\||");
    row("C:\\", "C:|\\||");
    row("C:a\\", "C:|a\\||");
    row("\\\\server\\share\\x.y", "|\\\\server\\share\\|x|.y");
    row("a/b:", "a/b:|||");
    row("C:a\\b:", "C:|a\\|b:|");   // only the first colon is looked at
    row("C:b.txt", "C:||C:b|.txt"); // no separator: the name starts where the path does
    row("a\\b:c.d", "a\\b:||b:c|.d");
    row("a.b:c", "a.b:||a|.b:c");
    row("C:\\a:b\\c", "C:|\\a:b\\|c|");
    row("a\\.", "|a\\||.");
}

void tst_FileUtils::splitPath()
{
    QFETCH(QByteArray, path);
    QTEST(split(path.toStdString()), "parts");
    FileUtils::splitPath(path.toStdString(), nullptr, nullptr, nullptr, nullptr);
}

void tst_FileUtils::splitPath_fullPath_partsMakeItAgain()
{
    std::string drive, dir, name, ext;
    FileUtils::splitPath("C:\\a\\b.txt", &drive, &dir, &name, &ext);
    QCOMPARE(bytes(drive + ' ' + dir + ' ' + name + ' ' + ext), QByteArray("C: \\a\\ b .txt"));
    QCOMPARE(FileUtils::makePath(drive, dir, name, ext), std::string("C:\\a\\b.txt"));
}

void tst_FileUtils::splitPath_driveAlone_leavesTheRestEmpty()
{
    QCOMPARE(split("C:"), QByteArray("C:|||"));
    QCOMPARE(split("a\\b.c:"), QByteArray("a\\b.c:|||"));
}

void tst_FileUtils::splitPath_intoItsOwnArgument_works()
{
    std::string path = "C:\\a\\b.txt";
    std::string ext;
    FileUtils::splitPath(path, nullptr, &path, nullptr, &ext);
    QCOMPARE(path, std::string("\\a\\"));
    QCOMPARE(ext, std::string(".txt"));
}

void tst_FileUtils::makePath_addsWhatIsLacking()
{
    QCOMPARE(FileUtils::makePath("C:", "\\a\\", "b", ".txt"), std::string("C:\\a\\b.txt"));
    QCOMPARE(FileUtils::makePath("C", "\\a", "b", "txt"), std::string("C:\\a\\b.txt"));
    QCOMPARE(FileUtils::makePath("C:", "a/", "", ""), std::string("C:a/"));
    QCOMPARE(FileUtils::makePath("", "", "b", ""), std::string("b"));
    QCOMPARE(FileUtils::makePath("", "", "", "txt"), std::string(".txt"));
    QCOMPARE(FileUtils::makePath("", "", "b.", ".txt"), std::string("b..txt"));
    QCOMPARE(FileUtils::makePath("", "", "", ""), std::string());
}

void tst_FileUtils::trimPath_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("trimmed");
    auto const row = [](char const * path, char const * trimmed) {
        QTest::addRow("'%s'", path) << QByteArray(path) << QByteArray(trimmed);
    };
    row("C:\\a\\.\\b\\..\\c", "C:\\a\\c");
    row("a\\.\\b\\..\\c", "a\\.\\b\\..\\c"); // relative
    row("\\a\\..", "\\a\\..");
    row("//server/../a", "//server/../a"); // two slashes name no machine
    row("", "");
    row("C:", "C:\\");
    row("C:\\", "C:\\");
    row("C:a", "C:a\\"); // "C:a" is the first component
    row("C:/a/b/", "C:\\a\\b");
    row("C:\\a\\..", "C:");
    row("C:\\..\\..\\a", "C:\\a");
    row("C:\\a\\\\b", "C:\\a"); // an empty component ends the walk
    row("C:\\\\a", "C:\\");
    row("/:\\a", ""); // a drive whose letter is a separator
    row("\\\\server\\share\\..\\a", "\\\\server\\a");
    row("\\\\", "\\\\");
    row("\\\\..\\a\\b", "a\\b"); // led out of the machines
    row("\\\\.\\a", "\\\\a");
    row("\\\\\\a", "\\\\");
    row("C:\\...\\a", "C:\\...\\a");
}

void tst_FileUtils::trimPath()
{
    QFETCH(QByteArray, path);
    QTEST(bytes(FileUtils::trimPath(path.toStdString())), "trimmed");
}

void tst_FileUtils::trimPath_driveWithPoints_isResolved()
{
    QCOMPARE(FileUtils::trimPath("C:\\a\\.\\b\\..\\c"), std::string("C:\\a\\c"));
}

void tst_FileUtils::trimPath_relativePath_keepsItsDots()
{
    QCOMPARE(FileUtils::trimPath("a\\.\\b\\..\\c"), std::string("a\\.\\b\\..\\c"));
    QCOMPARE(FileUtils::trimPath("..\\c"), std::string("..\\c"));
}

void tst_FileUtils::makeAbsolutePath_joins()
{
    QCOMPARE(FileUtils::makeAbsolutePath("C:\\a", "b"), std::string("C:\\a\\b"));
    QCOMPARE(FileUtils::makeAbsolutePath("C:\\a/", "b"), std::string("C:\\a\\b"));
    // The base ends in a backslash and gets a second one, in both forms.
    QCOMPARE(FileUtils::makeAbsolutePath("C:\\a\\", "b"), std::string("C:\\a\\\\b"));
    QCOMPARE(FileUtils::makeAbsolutePath("C:\\a", "..\\.\\b"), std::string("C:\\a\\..\\.\\b"));
    QCOMPARE(FileUtils::makeAbsolutePath("C:\\a", "D:b"), std::string("D:b"));
    QCOMPARE(FileUtils::makeAbsolutePath("C:\\a", "/b"), std::string("/b"));
    QCOMPARE(FileUtils::makeAbsolutePath("a", ""), std::string("a\\"));
    char out[20] = "C:\\a\\";
    FileUtils::makeAbsolutePath(out, "b", out);
    QCOMPARE(out, "C:\\a\\\\b");
    FileUtils::makeAbsolutePath("x", out + 6, out + 6);
    QCOMPARE(out, "C:\\a\\\\x\\b");
}

void tst_FileUtils::makeAbsolutePath_emptyBase_isTheCurrentDirectory()
{
    std::string const current = QDir::currentPath().toLatin1().toStdString();
    QCOMPARE(FileUtils::makeAbsolutePath("a"), current + "\\a");
    QCOMPARE(FileUtils::makeAbsolutePath("", "a"), current + "\\a");
    QCOMPARE(FileUtils::makeAbsolutePath("/a"), std::string("/a"));
    std::vector<char> out(current.size() + 4);
    FileUtils::makeAbsolutePath("", "a", out.data());
    QCOMPARE(std::string(out.data()), current + "\\a");
}

void tst_FileUtils::getAbsolutePath_data()
{
    QTest::addColumn<QByteArray>("base");
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("absolute");
    auto const row = [](char const * base, char const * path, char const * absolute) {
        QTest::addRow("'%s' '%s'", base, path)
            << QByteArray(base) << QByteArray(path) << QByteArray(absolute);
    };
    row("C:\\a", "b", "C:\\a\\b");
    row("C:\\a\\", "b", "C:\\a\\b");
    row("C:\\a/", "b/c/", "C:\\a\\b\\c");
    row("C:\\a\\b", "..\\.\\c", "C:\\a\\c");
    row("C:\\a\\b\\", "..", "C:\\a");
    row("C:\\a", "..\\..\\..\\b", "C:\\b");      // the drive has no separator left and stays
    row("C:\\a\\..\\.", "b", "C:\\a\\..\\.\\b"); // points of the base are names
    row("C:\\a", "D:b\\..", "D:b\\..");          // comes back as it is
    row("C:\\a", "\\\\s\\..", "\\\\s\\..");
    row("C:\\a", "\\b", "C:\\a"); // starts with an empty component
    row("C:\\a", "//s", "C:\\a");
    row("C:\\a", "b\\\\c", "C:\\a\\b");
    row("C:\\a", "", "C:\\a");
    row("", "b", "\\b");
    row("", "..\\b", "\\b");
    row("a", "..", "a"); // no separator: nothing above
    row("\\a", "..", "");
}

void tst_FileUtils::getAbsolutePath()
{
    QFETCH(QByteArray, base);
    QFETCH(QByteArray, path);
    QTEST(bytes(FileUtils::getAbsolutePath(base.toStdString(), path.toStdString())), "absolute");
    std::string result = "before";
    FileUtils::getAbsolutePath(&result, base.constData(), path.constData());
    QTEST(bytes(result), "absolute");
}

void tst_FileUtils::getAbsolutePath_resultIsItsOwnBase_works()
{
    std::string path = "C:\\a\\b";
    FileUtils::getAbsolutePath(&path, path.c_str(), "..\\c");
    QCOMPARE(path, std::string("C:\\a\\c"));
}

void tst_FileUtils::getRelativePath_data()
{
    QTest::addColumn<QByteArray>("base");
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("relative");
    auto const row = [](char const * base, char const * path, char const * relative) {
        QTest::addRow("'%s' '%s'", base, path)
            << QByteArray(base) << QByteArray(path) << QByteArray(relative);
    };
    row("C:\\a\\b", "C:\\a\\c\\d.txt", "true .\\..\\c\\d.txt");
    row("C:\\a\\b", "C:\\a\\b", "true .\\");
    row("C:\\a", "C:\\a\\b\\c", "true .\\b\\c");
    row("C:\\", "c:/a/b/", "true .\\a\\b/");
    row("C:\\A\\x", "c:/a/X/b", "true .\\b");
    row("C:\\a\\b\\c", "C:\\d", "true .\\..\\..\\..\\d");
    row("C:\\a\\b", "C:\\a", "true .\\"); // above the base: no steps up
    row("C:\\a\\b", "C:\\", "true .\\");
    row("C:\\a", "D:\\a", "false D:\\a");
    row("a", "C:\\a", "false C:\\a");
    row("C:\\a", "a", "false a");
    row("", "", "false ");
    row("\\\\s\\a", "\\\\s\\b", "false \\\\s\\b"); // machines never relate
    row("C:\\a", "C:ab", "true .\\..\\b");         // without a separator one character is lost
    row("C:", "C:", "true .\\");
    row("C:\\a\\b", "C:\\a\\\\c", "true .\\");              // an empty component ends the path,
    row("C:\\a\\\\b", "C:\\a\\c", "true .\\c");             // or the base,
    row("C:\\a\\b", "C:\\a\\c\\\\d", "true .\\..\\c\\\\d"); // but not what is copied
    row("C:\\a\\b", "C:\\a\\..\\b", "true .\\..\\..\\b");   // points are names
}

void tst_FileUtils::getRelativePath()
{
    QFETCH(QByteArray, base);
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, relative);
    QCOMPARE(::relative(base.constData(), path.constData()), relative);
    QCOMPARE(bytes(FileUtils::getRelativePath(base.toStdString(), path.toStdString())),
             relative.mid(relative.indexOf(' ') + 1));
}

void tst_FileUtils::getRelativePath_samePathTwice_isPointAndBackslash()
{
    QCOMPARE(::relative("C:\\a\\b.txt", "C:\\a\\b.txt"), QByteArray("true .\\"));
    QCOMPARE(::relative("C:\\", "C:\\"), QByteArray("true .\\"));
}

void tst_FileUtils::getRelativePath_resultIsItsOwnPath_works()
{
    std::string path = "C:\\a\\b";
    QVERIFY(FileUtils::getRelativePath(&path, "C:\\c", path.c_str()));
    QCOMPARE(path, std::string(".\\..\\a\\b"));
}

void tst_FileUtils::glob_classifiesOnly()
{
    QCOMPARE(globbed("C:"), QByteArray("true C:"));
    QCOMPARE(globbed("\\\\s"), QByteArray("true \\\\s"));
    QCOMPARE(globbed("\\\\s\\*.txt"), QByteArray("true \\\\s\\*.txt"));
    QCOMPARE(globbed("."), QByteArray("true ."));
    QCOMPARE(globbed("a\\*\\.."), QByteArray("true a\\*\\.."));
    QCOMPARE(globbed("a/."), QByteArray("true a/."));
    QCOMPARE(globbed("\\\\"), QByteArray("false"));
    QCOMPARE(globbed(""), QByteArray("false"));
    QCOMPARE(globbed("*"), QByteArray("false"));
    QCOMPARE(globbed("*.txt"), QByteArray("false"));
    QCOMPARE(globbed("C:\\a\\*.txt"), QByteArray("false"));
    QCOMPARE(globbed("C:\\"), QByteArray("false"));
    QCOMPARE(globbed("C:\\.\\a"), QByteArray("false"));
    QCOMPARE(globbed("..."), QByteArray("false"));
    QCOMPARE(globbed("/tmp"), QByteArray("false")); // even where there is such a file
}

void tst_FileUtils::germanLocale_changesNothing()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    QVERIFY(FileUtils::equalPath("C:/A", "c:\\a"));
    QVERIFY(!FileUtils::equalPath("\xc4", "\xe4"));
    QCOMPARE(relative("\xc4:\\a", "\xe4:\\a"), QByteArray("false \xe4:\\a"));
    QCOMPARE(relative("C:\\\xc4", "C:\\\xe4"), QByteArray("true .\\..\\\xe4"));
}

ZENU_TEST(tst_FileUtils)
#include "tst_FileUtils.moc"
