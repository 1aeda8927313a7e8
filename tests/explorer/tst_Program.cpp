#include "tests/explorer/FileFixture.h"
#include "tests/support/TestMain.h"

#include <QImage>
#include <QProcess>

using zenutest::FileFixture;

namespace {

struct Result
{
    int code = -1;
    QString errors;
};

Result run(QStringList const & arguments)
{
    QProcess program;
    program.start(QStringLiteral(ZENU_EXPLORER), arguments);
    if (!program.waitForFinished(120000) || program.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {program.exitCode(), QString::fromLocal8Bit(program.readAllStandardError())};
}

// How many pixels are unlike their left neighbour: none in a picture of nothing.
int edgesIn(QImage const & image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 1; x < image.width(); ++x) {
            count += image.pixel(x, y) != image.pixel(x - 1, y) ? 1 : 0;
        }
    }
    return count;
}

} // namespace

class tst_Program : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void picture_showsADirectory();
    void picture_showsAMillionRows();
    void picture_withoutEndingIsPng();
    void picture_thatCannotBeWrittenIsAnError();
    void missingDirectory_isAnError();
    void wrongArguments_areAnError();
    void help_isNoError();

private:
    static QString picture(FileFixture const & files, char const * name = "picture.png")
    {
        return QString::fromStdString(files.path(name));
    }
};

void tst_Program::picture_showsADirectory()
{
    FileFixture files;
    files.makeDirectory("directory");
    files.makeFile("directory/\xff file");
    files.makeLink("..", "directory/up");
    QString const file = picture(files);
    Result const result = run({QString::fromStdString(files.path()), QStringLiteral("--expand-all"),
                               QStringLiteral("--picture"), file});
    QCOMPARE(result.code, 0);
    QVERIFY(edgesIn(QImage(file)) > 1000);
}

void tst_Program::picture_showsAMillionRows()
{
    FileFixture files;
    QString const file = picture(files);
    Result const result = run(
        {QStringLiteral("--rows"), QStringLiteral("1000000"), QStringLiteral("--picture"), file});
    QCOMPARE(result.code, 0);
    QVERIFY(edgesIn(QImage(file)) > 10000);
}

void tst_Program::picture_withoutEndingIsPng()
{
    FileFixture files;
    QString const file = picture(files, "picture");
    QCOMPARE(run({QStringLiteral("--rows=10"), QStringLiteral("--picture"), file}).code, 0);
    QVERIFY(!QImage(file, "png").isNull());
}

void tst_Program::picture_thatCannotBeWrittenIsAnError()
{
    FileFixture files;
    for (char const * const name : {"no/such/directory.png", "picture.nonsense"}) {
        QString const file = picture(files, name);
        Result const result = run({QStringLiteral("--rows=10"), QStringLiteral("--picture"), file});
        QCOMPARE(result.code, 1);
        QVERIFY(result.errors.contains(QStringLiteral("cannot write ") + file));
    }
}

void tst_Program::missingDirectory_isAnError()
{
    Result const result = run({QStringLiteral("/no/such/directory")});
    QCOMPARE(result.code, 1);
    QVERIFY(result.errors.contains(QStringLiteral("no such directory: /no/such/directory")));
}

void tst_Program::wrongArguments_areAnError()
{
    Result const result = run({QStringLiteral("--rows"), QStringLiteral("many")});
    QCOMPARE(result.code, 2);
    QVERIFY(result.errors.contains(QStringLiteral("Usage:")));
}

void tst_Program::help_isNoError()
{
    QCOMPARE(run({QStringLiteral("--help")}).code, 0);
}

ZENU_TEST(tst_Program)
#include "tst_Program.moc"
