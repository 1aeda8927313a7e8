#include "tests/support/TestMain.h"

#include <zenu/util/StringUtils.h>

#include <clocale>

using namespace zenu;

class tst_StringUtils : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void equalNoCase_allFourForms_ignoreCase();
    void compareNoCase_data();
    void compareNoCase();
    void compareNoCase_processLocale_isNotAsked();
};

void tst_StringUtils::equalNoCase_allFourForms_ignoreCase()
{
    std::string const upper = "ABC";
    std::string const lower = "abc";
    QVERIFY(equalNoCase(upper, lower));
    QVERIFY(equalNoCase(upper, "abc"));
    QVERIFY(equalNoCase("ABC", lower));
    QVERIFY(equalNoCase("ABC", "abc"));
    QVERIFY(!equalNoCase("ABC", "abd"));
}

void tst_StringUtils::compareNoCase_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<int>("sign");
    QTest::newRow("both empty") << QByteArray() << QByteArray() << 0;
    QTest::newRow("a prefix stands before") << QByteArray("ab") << QByteArray("ABC") << -1;
    QTest::newRow("letters fold to small ones") << QByteArray("Z") << QByteArray("_") << 1;
    QTest::newRow("bytes above 127 are unsigned") << QByteArray("\xe4") << QByteArray("z") << 1;
    QTest::newRow("and are not folded") << QByteArray("\xc4") << QByteArray("\xe4") << -1;
}

void tst_StringUtils::compareNoCase()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QFETCH(int, sign);
    auto const signOf = [](int n) { return n < 0 ? -1 : (n > 0 ? 1 : 0); };
    QCOMPARE(signOf(zenu::compareNoCase(a.constData(), b.constData())), sign);
    QCOMPARE(signOf(zenu::compareNoCase(b.toStdString(), a.toStdString())), -sign);
}

void tst_StringUtils::compareNoCase_processLocale_isNotAsked()
{
    QByteArray const before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "");
    QVERIFY(zenu::compareNoCase("I", "i") == 0);
    QVERIFY(zenu::compareNoCase("\xc4", "\xe4") != 0);
    std::setlocale(LC_ALL, before.constData());
}

ZENU_TEST(tst_StringUtils)
#include "tst_StringUtils.moc"
