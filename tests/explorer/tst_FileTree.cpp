#include "tests/explorer/FileFixture.h"
#include "tests/explorer/TreeNames.h"
#include "tests/support/TestMain.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>

using explorer::FileTree;
using zenutest::FileFixture;
using zenutest::LesserUser;
using zenutest::namesIn;

namespace {

FileTree::Index find(FileTree & tree, std::string const & name,
                     FileTree::Index directory = FileTree::root)
{
    FileTree::Range const range = tree.children(directory);
    for (FileTree::Index i = range.first; i < range.first + range.count; ++i) {
        if (tree.name(i) == name) {
            return i;
        }
    }
    return FileTree::root;
}

// Reads every directory of the tree.
void readAll(FileTree & tree)
{
    for (FileTree::Index i = 0; i < tree.count(); ++i) {
        tree.children(i);
    }
}

} // namespace

class tst_FileTree : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void children_areDirectoriesFirstInNaturalOrder();
    void nothing_isReadBeforeItIsAskedFor();
    void children_areReadOnce();
    void types_areTold();
    void details_areSizeDateAndExecutableBit();
    void emptyDirectory_hasNoChildrenOnceRead();
    void path_isMadeOfTheNamesBytes();
    void path_ofASlashRootHasOneSlash();
    void path_ignoresSlashesBehindTheRoot();
    void links_areLeaves();
    void linksInACircle_end();
    void rootThatIsALink_isFollowed();
    void unreadableDirectory_isMarkedAndEmpty();
    void directoryThatIsNoLongerReadable_isMarkedWhenRead();
    void vanishedFile_isMarkedAndHasNoDetails();
    void vanishedDirectory_isMarkedAndEmpty();
    void directoryReplacedByALink_isNotFollowed();
    void missingRoot_isMarked();
    void tooLongPath_isMarked();
    void manyFiles_areSorted();
};

void tst_FileTree::children_areDirectoriesFirstInNaturalOrder()
{
    FileFixture files;
    for (char const * name : {"b10", "B2", "a", ".hidden"}) {
        files.makeFile(name);
    }
    files.makeDirectory("z");
    files.makeDirectory("Y");
    FileTree tree(files.path());
    QCOMPARE(namesIn(tree), "Y z .hidden a B2 b10");
}

void tst_FileTree::nothing_isReadBeforeItIsAskedFor()
{
    FileFixture files;
    files.makeDirectory("a");
    files.makeFile("a/b");
    FileTree tree(files.path());
    QCOMPARE(tree.count(), 1u);
    QVERIFY(!tree.wasRead(FileTree::root));
    tree.children(FileTree::root);
    QCOMPARE(tree.count(), 2u);
    QVERIFY(tree.mayHaveChildren(1));
    QVERIFY(!tree.wasRead(1));
    QCOMPARE(namesIn(tree, 1), "b");
    QCOMPARE(tree.parent(2), 1u);
}

void tst_FileTree::children_areReadOnce()
{
    FileFixture files;
    files.makeFile("a");
    FileTree tree(files.path());
    QCOMPARE(namesIn(tree), "a");
    files.makeFile("b");
    QCOMPARE(namesIn(tree), "a");
    QCOMPARE(tree.count(), 2u);
}

void tst_FileTree::types_areTold()
{
    FileFixture files;
    files.makeFile("file");
    files.makeDirectory("directory");
    files.makeLink("file", "link");
    QCOMPARE(mkfifo(files.path("pipe").c_str(), 0600), 0);
    int const descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof(address.sun_path), "%s", files.path("socket").c_str());
    QCOMPARE(bind(descriptor, reinterpret_cast<sockaddr *>(&address), sizeof(address)), 0);
    ::close(descriptor);

    FileTree tree(files.path());
    QCOMPARE(tree.type(find(tree, "file")), FileTree::Type::File);
    QCOMPARE(tree.type(find(tree, "directory")), FileTree::Type::Directory);
    QCOMPARE(tree.type(find(tree, "link")), FileTree::Type::Link);
    QCOMPARE(tree.type(find(tree, "pipe")), FileTree::Type::Pipe);
    QCOMPARE(tree.type(find(tree, "socket")), FileTree::Type::Socket);
    FileTree devices("/dev");
    QCOMPARE(devices.type(find(devices, "null")), FileTree::Type::Device);
}

void tst_FileTree::details_areSizeDateAndExecutableBit()
{
    FileFixture files;
    files.makeFile("plain", 1234);
    files.makeFile("runs", 0, 0755);
    timespec const times[] = {{0, 0}, {86400, 0}};
    QCOMPARE(utimensat(AT_FDCWD, files.path("plain").c_str(), times, 0), 0);
    FileTree tree(files.path());
    explorer::FileDetails const plain = tree.details(find(tree, "plain"));
    QCOMPARE(plain.size, 1234);
    QCOMPARE(plain.modified, 86400);
    QVERIFY(!plain.executable);
    QVERIFY(tree.details(find(tree, "runs")).executable);
    // A directory that may be entered is nothing to run.
    QVERIFY(!tree.details(FileTree::root).executable);
}

void tst_FileTree::emptyDirectory_hasNoChildrenOnceRead()
{
    FileFixture files;
    FileTree tree(files.path());
    QVERIFY(tree.mayHaveChildren(FileTree::root));
    QCOMPARE(tree.children(FileTree::root).count, 0u);
    QVERIFY(!tree.mayHaveChildren(FileTree::root));
    QVERIFY(!tree.isUnreadable(FileTree::root));
}

void tst_FileTree::path_isMadeOfTheNamesBytes()
{
    FileFixture files;
    files.makeDirectory("caf\xe9");
    files.makeFile("caf\xe9/\xe6\x97\xa5 \n");
    FileTree tree(files.path());
    QCOMPARE(namesIn(tree), "caf\xe9");
    QCOMPARE(namesIn(tree, 1), "\xe6\x97\xa5 \n");
    QCOMPARE(tree.path(FileTree::root), files.path());
    QCOMPARE(tree.path(2), files.path("caf\xe9/\xe6\x97\xa5 \n"));
}

void tst_FileTree::path_ofASlashRootHasOneSlash()
{
    FileTree tree("/");
    QCOMPARE(tree.path(FileTree::root), "/");
    QCOMPARE(tree.path(find(tree, "dev")), "/dev");
}

void tst_FileTree::path_ignoresSlashesBehindTheRoot()
{
    FileFixture files;
    files.makeFile("a");
    FileTree tree(files.path() + "//");
    tree.children(FileTree::root);
    QCOMPARE(tree.path(1), files.path("a"));
}

void tst_FileTree::links_areLeaves()
{
    FileFixture files;
    files.makeDirectory("directory");
    files.makeFile("directory/file");
    files.makeLink("directory", "link");
    files.makeLink("nowhere", "dead");
    FileTree tree(files.path());
    for (char const * name : {"link", "dead"}) {
        FileTree::Index const link = find(tree, name);
        QVERIFY(!tree.mayHaveChildren(link));
        QCOMPARE(tree.children(link).count, 0u);
        tree.details(link);
        QVERIFY(!tree.isGone(link));
    }
}

void tst_FileTree::linksInACircle_end()
{
    FileFixture files;
    files.makeDirectory("a");
    files.makeDirectory("a/b");
    files.makeLink("..", "a/b/up");
    files.makeLink(".", "self");
    files.makeLink("two", "one");
    files.makeLink("one", "two");
    FileTree tree(files.path());
    readAll(tree);
    QCOMPARE(tree.count(), 7u);
}

void tst_FileTree::rootThatIsALink_isFollowed()
{
    FileFixture files;
    files.makeDirectory("directory");
    files.makeFile("directory/file");
    files.makeLink("directory", "link");
    FileTree tree(files.path("link"));
    QVERIFY(tree.mayHaveChildren(FileTree::root));
    QCOMPARE(namesIn(tree), "file");
}

void tst_FileTree::unreadableDirectory_isMarkedAndEmpty()
{
    FileFixture files;
    files.makeDirectory("closed");
    files.makeFile("closed/file");
    QCOMPARE(chmod(files.path("closed").c_str(), 0), 0);
    {
        LesserUser const user;
        FileTree tree(files.path());
        FileTree::Index const closed = find(tree, "closed");
        QVERIFY(!tree.mayHaveChildren(closed)); // before anybody tries to open it
        QVERIFY(tree.isUnreadable(closed));
        QCOMPARE(tree.children(closed).count, 0u);
        QVERIFY(!tree.isGone(closed));
    }
    QCOMPARE(chmod(files.path("closed").c_str(), 0755), 0);
}

void tst_FileTree::directoryThatIsNoLongerReadable_isMarkedWhenRead()
{
    FileFixture files;
    files.makeDirectory("closed");
    FileTree tree(files.path());
    FileTree::Index const closed = find(tree, "closed");
    QVERIFY(tree.mayHaveChildren(closed));
    QCOMPARE(chmod(files.path("closed").c_str(), 0), 0);
    {
        LesserUser const user;
        QCOMPARE(tree.children(closed).count, 0u);
    }
    QVERIFY(tree.isUnreadable(closed));
    QVERIFY(!tree.mayHaveChildren(closed));
    QCOMPARE(chmod(files.path("closed").c_str(), 0755), 0);
}

void tst_FileTree::vanishedFile_isMarkedAndHasNoDetails()
{
    FileFixture files;
    files.makeFile("file", 10);
    FileTree tree(files.path());
    FileTree::Index const file = find(tree, "file");
    QCOMPARE(unlink(files.path("file").c_str()), 0);
    QVERIFY(!tree.isGone(file));
    QCOMPARE(tree.details(file).size, 0);
    QVERIFY(tree.isGone(file));
}

void tst_FileTree::vanishedDirectory_isMarkedAndEmpty()
{
    FileFixture files;
    files.makeDirectory("seen");
    files.makeDirectory("unseen");
    FileTree tree(files.path());
    FileTree::Index const seen = find(tree, "seen");
    FileTree::Index const unseen = find(tree, "unseen");
    QVERIFY(tree.mayHaveChildren(seen));
    QCOMPARE(rmdir(files.path("seen").c_str()), 0);
    QCOMPARE(rmdir(files.path("unseen").c_str()), 0);
    QCOMPARE(tree.children(seen).count, 0u);
    QVERIFY(tree.isGone(seen));
    QVERIFY(!tree.mayHaveChildren(unseen));
    QVERIFY(tree.isGone(unseen));
}

void tst_FileTree::directoryReplacedByALink_isNotFollowed()
{
    FileFixture files;
    files.makeDirectory("directory");
    FileTree tree(files.path());
    FileTree::Index const directory = find(tree, "directory");
    QCOMPARE(rmdir(files.path("directory").c_str()), 0);
    files.makeLink(".", "directory");
    QCOMPARE(tree.children(directory).count, 0u);
    QVERIFY(tree.isGone(directory));
}

void tst_FileTree::missingRoot_isMarked()
{
    FileTree tree("/no/such/directory");
    QVERIFY(!tree.mayHaveChildren(FileTree::root));
    QCOMPARE(tree.children(FileTree::root).count, 0u);
    QVERIFY(tree.isGone(FileTree::root));
    QCOMPARE(tree.details(FileTree::root).size, 0);
}

// Deeper than any path can say: the tree ends there.
void tst_FileTree::tooLongPath_isMarked()
{
    FileFixture files;
    std::string const name(250, 'd');
    constexpr int levels = 20;
    QCOMPARE(chdir(files.path().c_str()), 0);
    for (int i = 0; i < levels; ++i) {
        QCOMPARE(mkdir(name.c_str(), 0755), 0);
        QCOMPARE(chdir(name.c_str()), 0);
    }
    FileTree tree(files.path());
    readAll(tree);
    QVERIFY(tree.count() > 10 && tree.count() < levels);
    QVERIFY(tree.isUnreadable(tree.count() - 1));
    QVERIFY(!tree.mayHaveChildren(tree.count() - 1));
    for (int i = 0; i < levels; ++i) {
        QCOMPARE(chdir(".."), 0);
        QCOMPARE(rmdir(name.c_str()), 0);
    }
    QCOMPARE(chdir("/"), 0);
}

void tst_FileTree::manyFiles_areSorted()
{
    FileFixture files;
    constexpr int count = 5000;
    for (int i = 0; i < count; ++i) {
        files.makeFile("file " + std::to_string(i * 7919 % count));
    }
    FileTree tree(files.path());
    FileTree::Range const range = tree.children(FileTree::root);
    QCOMPARE(range.count, FileTree::Index{count});
    for (int i = 0; i < count; ++i) {
        QCOMPARE(tree.name(range.first + static_cast<FileTree::Index>(i)),
                 "file " + std::to_string(i));
    }
}

ZENU_TEST(tst_FileTree)
#include "tst_FileTree.moc"
