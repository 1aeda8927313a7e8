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

// The login name is kept for the life of the process, so it is this one for all tests; only the
// first test sees the process without.
void logIn()
{
    qputenv("USERNAME", "Tester");
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
    void message_numbers_followTheLocaleOfTheProcess();
    void output_byDefault_isStandardError();
    void output_isExchanged_andTheOneBeforeAnswered();
    void output_thatTracesAndExchanges_isFine();
};

void tst_Trace::loginName_isKeptOnceItIsNotEmpty()
{
    qunsetenv("USERNAME");
    Trace("", "unset");
    Trace("Tester", "silent");
    QCOMPARE(written(), QByteArray("[unset]"));

    qputenv("USERNAME", "");
    Trace("Tester", "silent");
    QCOMPARE(written(), QByteArray());

    QByteArray const tooLong(128, 'x'); // counts as empty
    qputenv("USERNAME", tooLong);
    Trace(tooLong.constData(), "silent");
    Trace("", "everyone");
    QCOMPARE(written(), QByteArray("[everyone]"));

    qputenv("USERNAME", "Tester"); // an empty name is read again
    Trace("Tester", "heard");
    QCOMPARE(written(), QByteArray("[heard]"));

    qputenv("USERNAME", "Other"); // a name that is not is kept
    Trace("Other", "silent");
    Trace("Tester", "heard");
    qunsetenv("USERNAME");
    Trace("Tester", "heard");
    QCOMPARE(written(), QByteArray("[heard][heard]"));
}

void tst_Trace::user_inAnyCase_isTheLoginName()
{
    logIn();
    Trace("tester", "1");
    Trace("TESTER", "2");
    Trace("Tester2", "3");
    Trace("Teste", "4");
    Trace(" Tester", "5");
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

void tst_Trace::message_numbers_followTheLocaleOfTheProcess()
{
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    Trace("", "%g", 1.5);
    QCOMPARE(written(), QByteArray("[1,5]"));
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
