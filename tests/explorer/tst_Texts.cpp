#include "examples/explorer/model/FileKinds.h"
#include "examples/explorer/rows/Texts.h"
#include "tests/support/TestMain.h"

class tst_Texts : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void size_isRoundedToTwoDigitsOrMore_data();
    void size_isRoundedToTwoDigitsOrMore();
    void count_hasItsThousandsApart();
    void date_isLocalTime();
    void date_outOfRangeIsEmpty();
    void kind_isTakenFromTheEnding_data();
    void kind_isTakenFromTheEnding();
};

void tst_Texts::size_isRoundedToTwoDigitsOrMore_data()
{
    QTest::addColumn<qlonglong>("bytes");
    QTest::addColumn<QByteArray>("text");
    auto const row = [](qlonglong bytes, char const * text) {
        QTest::newRow(text) << bytes << QByteArray(text);
    };
    row(0, "0 B");
    row(999, "999 B");
    row(1000, "1.0 kB");
    row(1049, "1.0 kB");
    row(1050, "1.1 kB");
    row(9949, "9.9 kB");
    row(9950, "10 kB");
    row(999499, "999 kB");
    row(999500, "1.0 MB");
    row(12345678, "12 MB");
    row(999999999999, "1.0 TB");
    row(9223372036854775807, "9.2 EB");
}

void tst_Texts::size_isRoundedToTwoDigitsOrMore()
{
    QFETCH(qlonglong, bytes);
    std::string text;
    explorer::sizeText(bytes, text);
    QTEST(QByteArray::fromStdString(text), "text");
}

void tst_Texts::count_hasItsThousandsApart()
{
    QCOMPARE(explorer::countText(0), "0");
    QCOMPARE(explorer::countText(999), "999");
    QCOMPARE(explorer::countText(1000), "1,000");
    QCOMPARE(explorer::countText(10000000), "10,000,000");
    QCOMPARE(explorer::countText(-123456), "-123,456");
}

void tst_Texts::date_isLocalTime()
{
    std::string text;
    QDateTime const date(QDate(2024, 2, 29), QTime(23, 59, 58));
    explorer::dateText(date.toSecsSinceEpoch(), text);
    QCOMPARE(text, "2024-02-29 23:59");
}

void tst_Texts::date_outOfRangeIsEmpty()
{
    std::string text = "old";
    explorer::dateText(INT64_MAX, text);
    QCOMPARE(text, "");
}

void tst_Texts::kind_isTakenFromTheEnding_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("kind");
    auto const row = [](char const * name, char const * kind) {
        QTest::newRow(name) << QByteArray(name) << QByteArray(kind);
    };
    row("main.cpp", "C++ source");
    row("PHOTO.JPG", "Image");
    row("data.tar.gz", "Compressed file");
    row("README", "File");
    row(".profile", "File");
    row("name.", "File");
    row("model.xyz", "XYZ file");
    row("a.verylongending", "File");
    row("a.\xc3\xa9t\xc3\xa9", "\xe9T\xe9 file");
}

void tst_Texts::kind_isTakenFromTheEnding()
{
    QFETCH(QByteArray, name);
    std::string text;
    explorer::kindOf(name.constData(), text);
    QTEST(QByteArray::fromStdString(text), "kind");
}

ZENU_TEST(tst_Texts)
#include "tst_Texts.moc"
