#include "examples/gallery/Page.h"
#include "examples/gallery/PageCode.h"
#include "tests/support/TestMain.h"

#include <QRegularExpression>
#include <QSet>

using namespace gallery;

namespace {

QString latin1(char const * text)
{
    return QString::fromLatin1(text);
}

QString read(QString const & path)
{
    QFile file(QStringLiteral(ZENU_SOURCES "/") + path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList publicHeaders()
{
    static QRegularExpression const include(QStringLiteral("#include \"([^\"]+)\""));
    QStringList headers;
    for (auto const & match : include.globalMatch(read(QStringLiteral("zenu/zenu.h")))) {
        headers += match.captured(1);
    }
    return headers;
}

// The exported classes of a header, or else the header.
QStringList namesOf(QString const & header)
{
    static QRegularExpression const type(QStringLiteral("^(?:class|struct) ZENU_EXPORT (\\w+)"),
                                         QRegularExpression::MultilineOption);
    QStringList names;
    for (auto const & match : type.globalMatch(read(header))) {
        names += match.captured(1);
    }
    return names.isEmpty() ? QStringList(header.section('/', -1)) : names;
}

// Nothing that an application calls.
QStringList const vocabulary = {
    QStringLiteral("ZenuExport.h"),
    QStringLiteral("KRefreshTracer"),    // made and fed by the library alone
    QStringLiteral("KSpinBoxValidator"), // made by KSpinBoxWrapper
};

QSet<QString> shownNames()
{
    QSet<QString> names;
    for (PageGroup const & group : pageGroups()) {
        for (Page const & page : group.pages) {
            for (char const * const name : page.shows) {
                names += latin1(name);
            }
        }
    }
    return names;
}

void addPageRows()
{
    QTest::addColumn<Page>("page");
    for (PageGroup const & group : pageGroups()) {
        for (Page const & page : group.pages) {
            QTest::newRow(page.name) << page;
        }
    }
}

} // namespace

Q_DECLARE_METATYPE(gallery::Page)

class tst_PageCode : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void linesBetweenMarkers_areShownWithoutTheirIndentation();
    void piecesBetweenMarkers_areJoined();
    void unknownPage_hasNoCode();

    void publicClass_isOnSomePage_data();
    void publicClass_isOnSomePage();
    void whatAPageShows_isInItsCode_data() { addPageRows(); }
    void whatAPageShows_isInItsCode();
    void code_fitsIntoThePicture_data() { addPageRows(); }
    void code_fitsIntoThePicture();
    void everyPage_hasAPictureAndALineInTheDocumentation_data() { addPageRows(); }
    void everyPage_hasAPictureAndALineInTheDocumentation();
};

void tst_PageCode::linesBetweenMarkers_areShownWithoutTheirIndentation()
{
    QCOMPARE(shownLines(QStringLiteral("a\n  // [code]\n  b\n\n    c\n  // [code]\nd\n")),
             QStringLiteral("b\n\n  c"));
}

void tst_PageCode::piecesBetweenMarkers_areJoined()
{
    QCOMPARE(shownLines(QStringLiteral(
                 "// [code]\na\n// [code]\nb\n    // [code]\n    c\n    // [code]\n")),
             QStringLiteral("a\n\nc"));
}

void tst_PageCode::unknownPage_hasNoCode()
{
    QCOMPARE(codeOf(QStringLiteral("NoPage")), QString());
}

void tst_PageCode::publicClass_isOnSomePage_data()
{
    QTest::addColumn<QString>("name");
    for (QString const & header : publicHeaders()) {
        for (QString const & name : namesOf(header)) {
            if (!vocabulary.contains(name)) {
                QTest::newRow(qPrintable(name)) << name;
            }
        }
    }
}

void tst_PageCode::publicClass_isOnSomePage()
{
    QFETCH(QString, name);
    QVERIFY(shownNames().contains(name));
}

// A class by its name, a header without classes by its include.
void tst_PageCode::whatAPageShows_isInItsCode()
{
    QFETCH(Page, page);
    QString const source = latin1(page.name) + "Page";
    QString const code = codeOf(source);
    QVERIFY(!code.isEmpty());
    QVERIFY(!page.shows.empty());
    QString const text = read(QStringLiteral("examples/gallery/pages/") + source + ".cpp");
    for (char const * const name : page.shows) {
        QString const shown = latin1(name);
        bool const isHeader = shown.endsWith(QLatin1String(".h"));
        QVERIFY2(isHeader ? text.contains('/' + shown + '>') : code.contains("zenu::" + shown),
                 name);
    }
}

void tst_PageCode::code_fitsIntoThePicture()
{
    QFETCH(Page, page);
    QStringList const lines = codeOf(latin1(page.name) + "Page").split('\n');
    QVERIFY(lines.size() <= 60);
    for (QString const & line : lines) {
        QVERIFY2(line.size() <= 100, qPrintable(line));
    }
}

void tst_PageCode::everyPage_hasAPictureAndALineInTheDocumentation()
{
    QFETCH(Page, page);
    QString const picture = QStringLiteral("pictures/gallery/%1.png").arg(latin1(page.name));
    QVERIFY(QFile::exists(QStringLiteral(ZENU_SOURCES "/docs/") + picture));
    QVERIFY(read(QStringLiteral("docs/gallery.md")).contains("](" + picture + ")"));
}

ZENU_TEST(tst_PageCode)
#include "tst_PageCode.moc"
