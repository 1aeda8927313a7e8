#include "tests/support/TestMain.h"

#include <zenu/overlay/KPainter.h>

#include <vector>

using namespace zenu;

class tst_NarrowText : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void qstring2chars_nullString_isEmptyTextNeverNull();
    void qstring2chars_emptyString_isEmptyText();
    void qstring2chars_latin1Characters_keepTheirByte();
    void qstring2chars_otherCharacters_areQuestionMarks();
    void qstring2chars_last1024Texts_stayValid();
    void qstring2chars_emptyTexts_pushNoTextOut();
    void qstring2chars_stringThatIsGone_textStays();
    void chars2qstring_null_isNullString();
    void chars2qstring_emptyText_isEmptyButNotNull();
    void chars2qstring_allBytes_comeBack();
};

void tst_NarrowText::qstring2chars_nullString_isEmptyTextNeverNull()
{
    char const * const text = qstring2chars(QString());
    QVERIFY(text != nullptr);
    QCOMPARE(QByteArray(text), QByteArray(""));
}

void tst_NarrowText::qstring2chars_emptyString_isEmptyText()
{
    QCOMPARE(QByteArray(qstring2chars(QStringLiteral(""))), QByteArray(""));
}

void tst_NarrowText::qstring2chars_latin1Characters_keepTheirByte()
{
    QCOMPARE(QByteArray(qstring2chars(QString(QChar(0xe4)) + QChar(0xff) + QLatin1Char('a'))),
             QByteArray("\xe4\xff"
                        "a"));
}

void tst_NarrowText::qstring2chars_otherCharacters_areQuestionMarks()
{
    QCOMPARE(QByteArray(qstring2chars(QString(QLatin1Char('a')) + QChar(0x20ac))),
             QByteArray("a?"));
}

void tst_NarrowText::qstring2chars_last1024Texts_stayValid()
{
    std::vector<char const *> pointers;
    for (int i = 0; i < 1024; ++i) {
        pointers.push_back(qstring2chars(QString::number(i) + QStringLiteral(" of a good many")));
    }
    for (int i = 0; i < 1024; ++i) {
        QCOMPARE(QByteArray(pointers[static_cast<std::size_t>(i)]),
                 QByteArray::number(i) + " of a good many");
    }
}

void tst_NarrowText::qstring2chars_emptyTexts_pushNoTextOut()
{
    char const * const kept = qstring2chars(QStringLiteral("kept"));
    for (int i = 0; i < 2000; ++i) {
        qstring2chars(QString());
    }
    QCOMPARE(QByteArray(kept), QByteArray("kept"));
}

void tst_NarrowText::qstring2chars_stringThatIsGone_textStays()
{
    char const * text = nullptr;
    {
        QString const temporary = QStringLiteral("gone ") + QString::number(7);
        text = qstring2chars(temporary);
    }
    QCOMPARE(QByteArray(text), QByteArray("gone 7"));
}

void tst_NarrowText::chars2qstring_null_isNullString()
{
    QVERIFY(chars2qstring(nullptr).isNull());
}

void tst_NarrowText::chars2qstring_emptyText_isEmptyButNotNull()
{
    QVERIFY(chars2qstring("").isEmpty());
    QVERIFY(!chars2qstring("").isNull());
}

void tst_NarrowText::chars2qstring_allBytes_comeBack()
{
    for (int byte = 1; byte < 256; ++byte) {
        char const text[] = {static_cast<char>(byte), 0};
        QCOMPARE(chars2qstring(text), QString(QChar(byte)));
        QCOMPARE(QByteArray(qstring2chars(chars2qstring(text))), QByteArray(text));
    }
}

ZENU_TEST(tst_NarrowText)
#include "tst_NarrowText.moc"
