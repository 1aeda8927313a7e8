#include "examples/explorer/Options.h"
#include "tests/support/TestMain.h"

using explorer::Options;

namespace {

Options read(std::vector<char const *> arguments)
{
    arguments.insert(arguments.begin(), "zenu_explorer");
    return explorer::readOptions(static_cast<int>(arguments.size()), arguments.data());
}

} // namespace

class tst_Options : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void noArguments_showHome();
    void directory_keepsItsBytes();
    void values_areTakenFromBehindAnEqualSignOrTheNextArgument();
    void nonsense_isAnError_data();
    void nonsense_isAnError();
};

void tst_Options::noArguments_showHome()
{
    Options const options = read({});
    QVERIFY(options.error.empty() && options.directory.empty() && options.picture.empty());
    QCOMPARE(options.rows, -1);
    QVERIFY(!options.help && !options.expandAll);
    // A program may even be started without its name.
    QVERIFY(explorer::readOptions(0, nullptr).error.empty());
}

void tst_Options::directory_keepsItsBytes()
{
    QCOMPARE(read({"caf\xe9"}).directory, "caf\xe9");
    QCOMPARE(read({"--", "--rows"}).directory, "--rows");
    QCOMPARE(read({"-"}).directory, "-");
}

void tst_Options::values_areTakenFromBehindAnEqualSignOrTheNextArgument()
{
    Options const options = read({"--rows", "10000000", "--picture=a.png", "--expand-all"});
    QCOMPARE(options.error, "");
    QCOMPARE(options.rows, 10000000);
    QCOMPARE(options.picture, "a.png");
    QVERIFY(options.expandAll);
    QCOMPARE(read({"--rows=0"}).rows, 0);
    QCOMPARE(read({"--picture", "b.png", "/usr"}).picture, "b.png");
    QCOMPARE(read({"--settings", "a.ini"}).settings, "a.ini");
    QVERIFY(read({"--no-settings"}).noSettings && !read({}).noSettings);
    QVERIFY(read({"-h"}).help && read({"--help"}).help);
}

void tst_Options::nonsense_isAnError_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::newRow("rows without number") << QByteArrayList{"--rows"};
    QTest::newRow("rows with a word") << QByteArrayList{"--rows", "many"};
    QTest::newRow("rows with more behind") << QByteArrayList{"--rows=10k"};
    QTest::newRow("negative rows") << QByteArrayList{"--rows", "-1"};
    QTest::newRow("too many rows") << QByteArrayList{"--rows", "100000001"};
    QTest::newRow("rows past any integer") << QByteArrayList{"--rows", "99999999999999999999"};
    QTest::newRow("picture without file") << QByteArrayList{"--picture"};
    QTest::newRow("picture with an empty file") << QByteArrayList{"--picture="};
    QTest::newRow("settings without file") << QByteArrayList{"--settings"};
    QTest::newRow("two directories") << QByteArrayList{"a", "b"};
    QTest::newRow("empty directory") << QByteArrayList{""};
    QTest::newRow("unknown option") << QByteArrayList{"--columns"};
    QTest::newRow("longer than an option") << QByteArrayList{"--rowses", "1"};
}

void tst_Options::nonsense_isAnError()
{
    QFETCH(QByteArrayList, arguments);
    std::vector<char const *> pointers;
    for (QByteArray const & argument : arguments) {
        pointers.push_back(argument.constData());
    }
    QVERIFY(!read(pointers).error.empty());
}

ZENU_TEST(tst_Options)
#include "tst_Options.moc"
