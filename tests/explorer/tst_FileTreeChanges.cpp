#include "tests/explorer/FileFixture.h"
#include "tests/explorer/TreeNames.h"
#include "tests/support/TestMain.h"

using explorer::FileTree;
using zenutest::FileFixture;
using zenutest::namesIn;

class tst_FileTreeChanges : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void find_answersWithKnownFilesOnly();
    void find_belowTheSlashRoot();
    void rename_keepsIndexAndWhatIsBelow();
    void rename_takesTheOrderOfNamesFromTheNames();
    void lookAgain_readsTheDetailsAnew();
    void readAgain_findsWhatCameAndWent();
    void readAgain_keepsWhatIsKnownBelow();
    void readAgain_ofAnUnreadDirectoryReadsNothing();
    void readAgain_tellsOfNoFileThatBecameAnother();
};

void tst_FileTreeChanges::find_answersWithKnownFilesOnly()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/e");
    files.makeFile("de");
    FileTree tree(files.path());
    QCOMPARE(tree.find(files.path()), FileTree::root);
    QCOMPARE(tree.find(files.path("d")), FileTree::none);
    namesIn(tree);
    FileTree::Index const directory = tree.find(files.path("d"));
    QCOMPARE(tree.path(directory), files.path("d"));
    QCOMPARE(tree.find(files.path("d/e")), FileTree::none);
    namesIn(tree, directory);
    QCOMPARE(tree.path(tree.find(files.path("d/e"))), files.path("d/e"));
    for (std::string const & path : {files.path("no"), files.path("d/e/f"), files.path() + "x",
                                     std::string("/"), std::string()}) {
        QCOMPARE(tree.find(path), FileTree::none);
    }
}

void tst_FileTreeChanges::find_belowTheSlashRoot()
{
    FileTree tree("/");
    namesIn(tree);
    QCOMPARE(tree.find("/"), FileTree::root);
    QCOMPARE(tree.path(tree.find("/usr")), "/usr");
}

void tst_FileTreeChanges::rename_keepsIndexAndWhatIsBelow()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/e");
    FileTree tree(files.path());
    namesIn(tree);
    FileTree::Index const directory = tree.find(files.path("d"));
    namesIn(tree, directory);
    FileTree::Index const file = tree.find(files.path("d/e"));
    QVERIFY(tree.rename(directory, "new"));
    QCOMPARE(tree.path(file), files.path("new/e"));
    QCOMPARE(tree.find(files.path("new/e")), file);
}

void tst_FileTreeChanges::rename_takesTheOrderOfNamesFromTheNames()
{
    FileFixture files;
    for (char const * const name : {"a", "b", "c"}) {
        files.makeFile(name);
    }
    FileTree tree(files.path());
    namesIn(tree);
    FileTree::Index const a = tree.find(files.path("a"));
    QVERIFY(tree.isInOrder());
    QVERIFY(tree.compareNames(a, a + 1) < 0 && tree.compareNames(a + 1, a) > 0);
    QCOMPARE(tree.compareNames(a, a), 0);
    tree.rename(a, "d");
    QVERIFY(!tree.isInOrder());
    QVERIFY(tree.compareNames(a, a + 1) > 0 && tree.compareNames(a + 1, a) < 0);
}

void tst_FileTreeChanges::lookAgain_readsTheDetailsAnew()
{
    FileFixture files;
    files.makeFile("a", 7);
    FileTree tree(files.path());
    namesIn(tree);
    FileTree::Index const a = tree.find(files.path("a"));
    QVERIFY(!tree.details(a).executable);
    QCOMPARE(chmod(files.path("a").c_str(), 0755), 0);
    QVERIFY(!tree.details(a).executable);
    tree.lookAgain(a);
    QVERIFY(tree.details(a).executable);
    QCOMPARE(unlink(files.path("a").c_str()), 0);
    tree.lookAgain(a);
    QCOMPARE(tree.details(a).size, 0);
    QVERIFY(tree.isGone(a));
}

void tst_FileTreeChanges::readAgain_findsWhatCameAndWent()
{
    FileFixture files;
    files.makeFile("a");
    files.makeFile("b");
    FileTree tree(files.path());
    namesIn(tree);
    QCOMPARE(unlink(files.path("a").c_str()), 0);
    files.makeFile("c");
    auto const kept = tree.readAgain(FileTree::root);
    QCOMPARE(namesIn(tree), "b c");
    QCOMPARE(kept.size(), std::size_t{1});
    QCOMPARE(std::string(tree.name(kept.front().first)), "b");
    QCOMPARE(kept.front().second, tree.find(files.path("b")));
    QCOMPARE(tree.childCount(FileTree::root), 2u);
}

void tst_FileTreeChanges::readAgain_keepsWhatIsKnownBelow()
{
    FileFixture files;
    files.makeDirectory("d");
    files.makeFile("d/e");
    FileTree tree(files.path());
    namesIn(tree);
    namesIn(tree, tree.find(files.path("d")));
    FileTree::Index const file = tree.find(files.path("d/e"));
    files.makeFile("d/unseen");
    tree.readAgain(FileTree::root);
    FileTree::Index const directory = tree.find(files.path("d"));
    QVERIFY(tree.wasRead(directory));
    QCOMPARE(namesIn(tree, directory), "e");
    QCOMPARE(tree.parent(file), directory);
    QCOMPARE(tree.path(file), files.path("d/e"));
}

void tst_FileTreeChanges::readAgain_ofAnUnreadDirectoryReadsNothing()
{
    FileFixture files;
    files.makeFile("a");
    FileTree tree(files.path());
    QVERIFY(tree.readAgain(FileTree::root).empty());
    QCOMPARE(tree.count(), 1u);
    QVERIFY(!tree.wasRead(FileTree::root));
}

void tst_FileTreeChanges::readAgain_tellsOfNoFileThatBecameAnother()
{
    FileFixture files;
    files.makeDirectory("a");
    files.makeFile("a/b");
    FileTree tree(files.path());
    namesIn(tree);
    namesIn(tree, tree.find(files.path("a")));
    std::filesystem::remove_all(files.path("a"));
    files.makeFile("a");
    QVERIFY(tree.readAgain(FileTree::root).empty());
    QVERIFY(!tree.isDirectory(tree.find(files.path("a"))));
    QCOMPARE(tree.find(files.path("a/b")), FileTree::none);
}

ZENU_TEST(tst_FileTreeChanges)
#include "tst_FileTreeChanges.moc"
