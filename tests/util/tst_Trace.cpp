#include "tests/support/GermanLocale.h"
#include "tests/support/TestMain.h"

#include <zenu/util/Trace.h>

#include <unistd.h>

using namespace zenu;

namespace {

std::vector<std::string> s_messages;

void keepMessage(char const * message)
{
    s_messages.emplace_back(message);
}

void traceAgain(char const * message)
{
    setTraceOutput(&keepMessage);
    Trace("", "in %s", message);
    s_messages.emplace_back(message);
}

// What was written since the last call, each message in brackets.
QByteArray written()
{
    QByteArray text;
    for (std::string const & message : s_messages) {
        text += '[' + QByteArray::fromStdString(message) + ']';
    }
    s_messages.clear();
    return text;
}

// As long as a login name may be.
QByteArray const s_user = "Tester" + QByteArray(121, 'r');

void trace(QByteArray const & user, char const * message)
{
    Trace(user.constData(), "%s", message);
}

// The login name is kept for the life of the process, so it is this one for all tests; only the
// first test sees the process without.
void logIn()
{
    qputenv("USERNAME", s_user);
    Trace("", "hello");
    s_messages.clear();
}

} // namespace

class tst_Trace : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { setTraceOutput(&keepMessage); }
    void cleanupTestCase() { setTraceOutput(nullptr); }
    void cleanup() { s_messages.clear(); }
    void loginName_isKeptOnceItIsNotEmpty();
    void user_inAnyCase_isTheLoginName();
    void user_empty_isEveryone();
    void user_another_leavesTheArgumentsAlone();
    void null_writesNothing();
    void message_isUnchanged();
    void message_ofAnyLength_isWhole_data();
    void message_ofAnyLength_isWhole();
    void message_numbers_areThoseOfTheCLocale();
    void message_wideCharacters_areThoseOfTheProcess();
    void output_byDefault_isStandardError();
    void output_isExchanged_andTheOneBeforeAnswered();
    void output_thatTracesAndExchanges_isFine();
};

void tst_Trace::loginName_isKeptOnceItIsNotEmpty()
{
    qunsetenv("USERNAME");
    Trace("", "unset");
    trace(s_user, "silent");
    QCOMPARE(written(), QByteArray("[unset]"));

    qputenv("USERNAME", "");
    trace(s_user, "silent");
    QCOMPARE(written(), QByteArray());

    QByteArray const tooLong(128, 'x'); // counts as empty
    qputenv("USERNAME", tooLong);
    trace(tooLong, "silent");
    Trace("", "everyone");
    QCOMPARE(written(), QByteArray("[everyone]"));

    qputenv("USERNAME", s_user); // an empty name is read again
    trace(s_user, "heard");
    QCOMPARE(written(), QByteArray("[heard]"));

    qputenv("USERNAME", "Other"); // a name that is not is kept
    trace("Other", "silent");
    trace(s_user, "heard");
    qunsetenv("USERNAME");
    trace(s_user, "heard");
    QCOMPARE(written(), QByteArray("[heard][heard]"));
}

void tst_Trace::user_inAnyCase_isTheLoginName()
{
    logIn();
    trace(s_user.toLower(), "1");
    trace(s_user.toUpper(), "2");
    trace(s_user + '2', "3");
    trace(s_user.chopped(1), "4");
    trace(' ' + s_user, "5");
    QCOMPARE(written(), QByteArray("[1][2]"));
}

void tst_Trace::user_empty_isEveryone()
{
    logIn();
    Trace("", "heard");
    QCOMPARE(written(), QByteArray("[heard]"));
}

void tst_Trace::user_another_leavesTheArgumentsAlone()
{
    logIn();
    auto const nowhere =
        reinterpret_cast<char const *>(std::uintptr_t(1)); // reading it would crash
    int count = -1;
    Trace("other", "%s%n", nowhere, &count);
    QCOMPARE(count, -1);
    QCOMPARE(written(), QByteArray());
}

void tst_Trace::null_writesNothing()
{
    logIn();
    char const * const none = nullptr;
    Trace(none, "silent");
    Trace("", none);
    QCOMPARE(written(), QByteArray());
}

void tst_Trace::message_isUnchanged()
{
    Trace("", "%s", "\xe4 100% \n");
    Trace("", "%d and %s and %-4d| %c %%\r\n", 7, "text", 3, 'x');
    Trace("", "%s", "");
    QCOMPARE(written(), QByteArray("[\xe4 100% \n][7 and text and 3   | x %\r\n][]"));
}

void tst_Trace::message_ofAnyLength_isWhole_data()
{
    QTest::addColumn<int>("length");
    for (int length : {1, 2046, 2047, 2048, 2049, 4095, 4096, 4097, 100'000, 10'000'000}) {
        QTest::addRow("%d", length) << length;
    }
}

void tst_Trace::message_ofAnyLength_isWhole()
{
    QFETCH(int, length);
    std::string const text(static_cast<std::size_t>(length - 1), 'm');
    Trace("", "%s%d", text.c_str(), 7);
    QCOMPARE(s_messages.size(), std::size_t(1));
    QVERIFY(s_messages[0] == text + '7');
    s_messages.clear();
}

void tst_Trace::message_numbers_areThoseOfTheCLocale()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    Trace("", "%g %.2f", 1.5, -0.25);
    QCOMPARE(written(), QByteArray("[1.5 -0.25]"));
    Trace("", "%3000.1f", 1.5); // too long for the first buffer
    QCOMPARE(written(), '[' + QByteArray("1.5").rightJustified(3000) + ']');

    char number[10];
    std::snprintf(number, sizeof number, "%g", 1.5);
    QCOMPARE(number, "1,5"); // the application keeps its locale
    setTraceOutput([](char const *) {
        char text[10];
        std::snprintf(text, sizeof text, "%g", 1.5);
        s_messages.emplace_back(text);
    });
    Trace("", "%g", 1.5);
    setTraceOutput(&keepMessage);
    QCOMPARE(written(), QByteArray("[1,5]")); // and so does the output
}

void tst_Trace::message_wideCharacters_areThoseOfTheProcess()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    Trace("", "%ls %d", L"Gr\u00fc\u00dfe", 7); // in Latin-1
    std::wstring const many(3000, L'\u00e4');
    Trace("", "%ls", many.c_str());
    Trace("", "%ls", L"\u4e00"); // not in it
    QCOMPARE(written(), "[Gr\xfc\xdf"
                        "e 7][" +
                            QByteArray(3000, '\xe4') + ']');
}

void tst_Trace::output_byDefault_isStandardError()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    int const standardError = dup(STDERR_FILENO);
    dup2(file.handle(), STDERR_FILENO);
    setTraceOutput(nullptr);
    Trace("", "%s-", "one");
    Trace("", "two");
    setTraceOutput(&keepMessage);
    dup2(standardError, STDERR_FILENO);
    close(standardError);
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), QByteArray("one-two"));
    QCOMPARE(written(), QByteArray());
}

void tst_Trace::output_isExchanged_andTheOneBeforeAnswered()
{
    TraceOutput const before = setTraceOutput(nullptr);
    QVERIFY(before == &keepMessage);
    TraceOutput const byDefault = setTraceOutput(before);
    QVERIFY(byDefault != nullptr);
    QVERIFY(setTraceOutput(byDefault) == before);
    QVERIFY(setTraceOutput(before) == byDefault);
}

void tst_Trace::output_thatTracesAndExchanges_isFine()
{
    setTraceOutput(&traceAgain);
    Trace("", "%s", "out");
    QCOMPARE(written(), QByteArray("[in out][out]"));
    QVERIFY(setTraceOutput(&keepMessage) == &keepMessage);
}

ZENU_TEST(tst_Trace)
#include "tst_Trace.moc"
