#include "examples/explorer/model/NaturalOrder.h"
#include "tests/support/TestMain.h"

#include <QRandomGenerator>

using explorer::compareNatural;

class tst_NaturalOrder : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void names_areOrderedAsPeopleExpect_data();
    void names_areOrderedAsPeopleExpect();
    void equalBytes_areEqual();
    void randomNames_areStrictlyOrdered();
};

void tst_NaturalOrder::names_areOrderedAsPeopleExpect_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    auto const row = [](char const * rule, char const * first, char const * second) {
        QTest::newRow(rule) << QByteArray(first) << QByteArray(second);
    };
    row("letters", "a", "b");
    row("case does not count", "apple", "Banana");
    row("case does not count the other way", "Apple", "banana");
    row("case decides between equals", "Apple", "apple");
    row("prefix first", "file", "file1");
    row("numbers by value", "file 2", "file 10");
    row("numbers in the middle", "take 9 b", "take 10 a");
    row("after equal numbers the rest decides", "take 10 a", "take 10 b");
    row("leading zeros do not count", "007", "8");
    row("leading zeros decide between equals", "file 01", "file 1");
    row("zero is a number", "a0", "a1");
    row("longer than any integer", "v99999999999999999999999", "v100000000000000000000000");
    row("versions", "release-1.9", "release-1.10");
    row("digits before letters", "1st", "first");
    row("accents do not count",
        "\xc3\xa9"
        "a",
        "Eb");
    row("accents decide between equals", "ecole",
        "\xc3\xa9"
        "cole");
    row("other scripts without case", "\xd0\xbf\xd0\xb0", "\xd0\x9f\xd0\xb5");
    row("stray bytes come last", "\xe6\x97\xa5", "\xff");
    row("hidden files first", ".profile", "a");
}

void tst_NaturalOrder::names_areOrderedAsPeopleExpect()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QVERIFY(compareNatural(first.constData(), second.constData()) < 0);
    QVERIFY(compareNatural(second.constData(), first.constData()) > 0);
}

void tst_NaturalOrder::equalBytes_areEqual()
{
    for (char const * const name : {"", "a", "007", "\xc3\xa9", "\xff\xfe"}) {
        QCOMPARE(compareNatural(name, name), 0);
    }
}

// A sort may run out of its array when the order contradicts itself.
void tst_NaturalOrder::randomNames_areStrictlyOrdered()
{
    QRandomGenerator random(7);
    char const * const pieces[] = {"a", "A",        "0", "1",    "10",
                                   " ", "\xc3\xa9", "e", "\xff", "\xcc\x81"};
    std::vector<std::string> names;
    for (int i = 0; i < 120; ++i) {
        std::string & name = names.emplace_back();
        for (quint32 length = random.bounded(5u); length > 0; --length) {
            name += pieces[random.bounded(static_cast<quint32>(std::size(pieces)))];
        }
    }
    auto const isBefore = [](std::string const & a, std::string const & b) {
        return compareNatural(a.c_str(), b.c_str()) < 0;
    };
    for (std::string const & a : names) {
        for (std::string const & b : names) {
            QCOMPARE(isBefore(a, b) || isBefore(b, a), a != b);
            for (std::string const & c : names) {
                QVERIFY(!isBefore(a, b) || !isBefore(b, c) || isBefore(a, c));
            }
        }
    }
}

ZENU_TEST(tst_NaturalOrder)
#include "tst_NaturalOrder.moc"
