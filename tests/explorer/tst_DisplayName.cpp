#include "examples/explorer/model/DisplayName.h"
#include "tests/support/TestMain.h"

class tst_DisplayName : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void names_areShownInLatin1_data();
    void names_areShownInLatin1();
    void anyBytes_giveTextWithoutControls();
    void exactNames_comeBackFromTheirText_data();
    void exactNames_comeBackFromTheirText();
};

void tst_DisplayName::names_areShownInLatin1_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("text");
    auto const row = [](char const * rule, char const * name, char const * text) {
        QTest::newRow(rule) << QByteArray(name) << QByteArray(text);
    };
    row("empty", "", "");
    row("plain", "Read me.txt", "Read me.txt");
    row("percent sign stays", "100%", "100%");
    row("Latin-1",
        "\xc3\x9c"
        "berblick \xc3\xb1",
        "\xdc"
        "berblick \xf1");
    row("accent behind its letter", "e\xcc\x81t\xc3\xa9", "\xe9t\xe9");
    row("accent that Latin-1 lacks", "\xc5\x99\xc4\x8d \xc5\xbd", "rc Z");
    row("two accents", "\xe1\xba\xbf", "e");
    row("nothing but an accent", "\xcc\x81", "%CC%81");
    row("letters without parts",
        "\xc5\x81\xc3\xb3"
        "d\xc5\xba \xc5\x93uvre",
        "L\xf3"
        "dz oeuvre");
    row("Cyrillic", "\xd0\xa9\xd1\x83\xd0\xba\xd0\xb0", "Shchuka");
    row("Greek", "\xce\x98\xce\xb5\xcf\x8c\xcf\x82", "Theos");
    row("punctuation",
        "a \xe2\x80\x93 \xe2\x80\x9c"
        "b\xe2\x80\x9d\xe2\x80\xa6 \xe2\x82\xac",
        "a - \"b\"... EUR");
    row("ligature and full width", "\xef\xac\x81\xef\xbc\xa1", "fiA");
    row("other scripts in percent form", "\xe6\x97\xa5.txt", "%E6%97%A5.txt");
    row("outside of the first plane", "\xf0\x9f\x98\x80", "%F0%9F%98%80");
    row("control characters", "a\nb\x7f", "a%0Ab%7F");
    row("upper control characters", "\xc2\x85", "%C2%85");
    row("stray byte", "caf\xe9", "caf%E9");
    row("cut character", "\xe6\x97", "%E6%97");
    row("overlong form", "\xc0\xaf", "%C0%AF");
    row("surrogate", "\xed\xa0\x80", "%ED%A0%80");
}

void tst_DisplayName::names_areShownInLatin1()
{
    QFETCH(QByteArray, name);
    QTEST(QByteArray::fromStdString(explorer::displayName(name.constData())), "text");
}

void tst_DisplayName::anyBytes_giveTextWithoutControls()
{
    for (int a = 1; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            char const name[] = {static_cast<char>(a), static_cast<char>(b), '\0'};
            std::string const text = explorer::displayName(name);
            QVERIFY(!text.empty());
            for (char const character : text) {
                auto const code = static_cast<unsigned char>(character);
                QVERIFY(code >= 0x20 && (code < 0x7f || code >= 0xa0));
            }
        }
    }
}

void tst_DisplayName::exactNames_comeBackFromTheirText_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isExact");
    QTest::newRow("plain") << QByteArray("Read me.txt") << true;
    QTest::newRow("Latin-1") << QByteArray("caf\xc3\xa9") << true;
    QTest::newRow("percent sign") << QByteArray("100%") << true;
    QTest::newRow("accent behind its letter") << QByteArray("e\xcc\x81") << false;
    QTest::newRow("replaced letter") << QByteArray("\xc5\x99") << false;
    QTest::newRow("no letter of ours") << QByteArray("\xe6\x97\xa5") << false;
    QTest::newRow("no UTF-8") << QByteArray("caf\xe9") << false;
    QTest::newRow("control character") << QByteArray("a\nb") << false;
}

void tst_DisplayName::exactNames_comeBackFromTheirText()
{
    QFETCH(QByteArray, name);
    QTEST(explorer::isShownExactly(name.constData()), "isExact");
}

ZENU_TEST(tst_DisplayName)
#include "tst_DisplayName.moc"
