#include "tests/command/Recorder.h"
#include "tests/support/TestMain.h"

#include <zenu/command/CommandHandlers.h>
#include <zenu/command/KCommandUpdate.h>

#include <memory>
#include <vector>

using namespace zenu;
using zenutest::Recorder;

namespace {

using Words = std::vector<unsigned int>;

// A copy of just these words, so that a read behind them is seen by the sanitizer.
std::unique_ptr<unsigned int[]> tableOf(Words const & words)
{
    auto table = std::make_unique<unsigned int[]>(words.size());
    std::copy(words.begin(), words.end(), table.get());
    return table;
}

// What becomes of each id as a command: "mode", "to N", or nothing; and whether the update agrees.
QString routesOf(Words const & words, Words const & ids)
{
    Recorder target;
    for (unsigned id = 0; id < 1000; ++id) {
        target.known[id];
    }
    auto const table = tableOf(words);
    QStringList routes;
    for (unsigned const id : ids) {
        KDemultiplexingHandler handler(&target, table.get());
        KCommandUpdate state;
        bool const updated = handler.update(id, &state);
        QString const askedFor =
            target.takeCalls().replace(QStringLiteral("update"), QStringLiteral("cmd"));
        bool const taken = handler.cmd(id);
        QString const performed = target.takeCalls();
        if (updated != taken || askedFor != performed) {
            return QStringLiteral("update and cmd differ at %1").arg(id);
        }
        routes << (performed.isEmpty() ? (taken ? QStringLiteral("mode") : QStringLiteral("-"))
                                       : QString(performed).remove(QStringLiteral("cmd ")));
    }
    return routes.join(QLatin1Char(' '));
}

// Two columns, 1 and 2, in three modes, 10, 20 and 30.
Words const threeModes = {2, 1, 2, 10, 11, 12, 20, 21, 22, 30, 31, 32, 0};

struct ThreeModes
{
    ThreeModes()
    {
        for (unsigned id : {11U, 12U, 21U, 22U, 31U, 32U}) {
            target.known[id];
        }
    }

    // The checked ones of the three modes, all of which must be enabled.
    QString checkedModes()
    {
        QStringList modes;
        for (unsigned const mode : {10U, 20U, 30U}) {
            KCommandUpdate state;
            state.setEnabled(false);
            if (!handler.update(mode, &state) || !state.isEnabled() || state.isRadio()) {
                modes << QStringLiteral("bad");
            }
            if (state.isChecked()) {
                modes << QString::number(mode);
            }
        }
        return modes.join(QLatin1Char(' '));
    }

    Recorder target;
    std::unique_ptr<unsigned int[]> table = tableOf(threeModes);
    KDemultiplexingHandler handler{&target, table.get()};
};

} // namespace

class tst_KDemultiplexingHandler : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void table_data();
    void table();
    void table_null_answersFalse();
    void table_isReadInPlace();
    void start_isTheFirstMode();
    void modeCommand_isTakenAndTheTargetIsNotTold();
    void modeCommand_columnsGoToTheNewRow();
    void modeCommand_checksThatModeAlone();
    void modeAmongTheColumns_isAMode();
    void column_answerIsThatOfTheTarget();
    void update_columnPassesTheState();
    void update_leavesTheMarkOfOthersAlone();
    void updateMode_canBeReplaced();
    void updateMode_nullState_isLeftAlone();
    void target_null_answersFalseButModesWork();
    void target_maySwitchTheMode();
    void target_mayDeleteTheHandler();
};

void tst_KDemultiplexingHandler::table_data()
{
    QTest::addColumn<Words>("words");
    QTest::addColumn<Words>("ids");
    QTest::addColumn<QString>("routes");
    auto const row = [](char const * name, Words const & words, Words const & ids,
                        char const * routes) {
        QTest::newRow(name) << words << ids << QString::fromLatin1(routes);
    };
    unsigned const huge = 4294967295U;
    row("two columns, three modes", threeModes, {1, 2, 10, 20, 30, 11, 0},
        "11 12 mode mode mode - -");
    row("one word missing", {2, 1, 2, 10, 11, 12, 20, 21, 22, 30, 31, 0}, {1, 2, 10, 20, 30},
        "- - - - -");
    row("one word too many", {2, 1, 2, 10, 11, 12, 99, 0}, {1, 2, 10, 99}, "- - - -");
    row("a zero among the targets", {2, 1, 2, 10, 0, 12, 0}, {1, 2, 10}, "- - -");
    row("a zero that ends a row early but evenly", {1, 1, 10, 11, 0, 21, 0}, {1, 10, 21},
        "11 mode -");
    row("a zero among the columns", {2, 1, 0, 10, 11, 12, 0}, {1, 10}, "- -");
    row("columns without modes", {2, 1, 2, 0}, {1, 2}, "- -");
    row("columns cut off", {2, 0}, {1, 2}, "- -");
    row("no columns, no modes", {0, 0}, {0, 1}, "- -");
    row("no columns, three modes", {0, 10, 20, 30, 0}, {10, 20, 30, 1}, "mode mode mode -");
    row("as many columns as can be counted", {huge, 1, 10, 11, 0}, {1, 10, huge}, "- - -");
    row("one less than that", {huge - 1, 1, 10, 11, 0}, {1, 10}, "- -");
    row("more columns than words, and words a divisor of them", {7, 1, 2, 3, 0}, {1, 2, 3},
        "- - -");
    row("a mode is among the columns", {2, 1, 10, 10, 11, 12, 0}, {1, 10}, "11 mode");
    row("equal columns, the last counts", {2, 1, 1, 10, 11, 12, 0}, {1, 10}, "12 mode");
    row("a target that is a column is not looked up again", {2, 1, 2, 10, 2, 1, 0}, {1, 2}, "2 1");
    row("a target that is a mode does not switch", {1, 1, 10, 20, 20, 5, 0}, {1}, "20");
}

void tst_KDemultiplexingHandler::table()
{
    QFETCH(Words, words);
    QFETCH(Words, ids);
    QFETCH(QString, routes);
    QCOMPARE(routesOf(words, ids), routes);
}

void tst_KDemultiplexingHandler::table_null_answersFalse()
{
    Recorder target;
    target.known[0];
    KDemultiplexingHandler handler(&target, nullptr);
    KCommandUpdate state;
    for (unsigned const id : {0U, 1U, 4294967295U}) {
        QVERIFY(!handler.cmd(id));
        QVERIFY(!handler.update(id, &state));
    }
    QCOMPARE(target.takeCalls(), QString());
}

// Of equal modes the last counts, but the first row is where it starts.
void tst_KDemultiplexingHandler::table_isReadInPlace()
{
    Recorder target;
    auto const table = tableOf({1, 1, 10, 11, 20, 21, 10, 31, 0});
    KDemultiplexingHandler handler(&target, table.get());
    handler.cmd(1);
    handler.cmd(10);
    handler.cmd(1);
    table[7] = 41;
    handler.cmd(1);
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 11 cmd 31 cmd 41"));
}

void tst_KDemultiplexingHandler::start_isTheFirstMode()
{
    ThreeModes modes;
    QCOMPARE(modes.checkedModes(), QStringLiteral("10"));
    modes.handler.cmd(1);
    modes.handler.cmd(2);
    QCOMPARE(modes.target.takeCalls(), QStringLiteral("cmd 11 cmd 12"));
}

void tst_KDemultiplexingHandler::modeCommand_isTakenAndTheTargetIsNotTold()
{
    ThreeModes modes;
    QVERIFY(modes.handler.cmd(30));
    QVERIFY(modes.handler.cmd(30));
    KCommandUpdate state;
    QVERIFY(modes.handler.update(30, &state));
    QCOMPARE(modes.target.takeCalls(), QString());
}

void tst_KDemultiplexingHandler::modeCommand_columnsGoToTheNewRow()
{
    ThreeModes modes;
    KCommandUpdate state;
    for (unsigned const mode : {30U, 10U, 20U}) {
        QVERIFY(modes.handler.cmd(mode));
        QVERIFY(modes.handler.cmd(1));
        QVERIFY(modes.handler.update(2, &state));
        QCOMPARE(modes.target.takeCalls(),
                 QStringLiteral("cmd %1 update %2").arg(mode + 1).arg(mode + 2));
    }
}

void tst_KDemultiplexingHandler::modeCommand_checksThatModeAlone()
{
    ThreeModes modes;
    for (unsigned const mode : {30U, 20U, 20U, 10U}) {
        modes.handler.cmd(mode);
        QCOMPARE(modes.checkedModes(), QString::number(mode));
    }
}

void tst_KDemultiplexingHandler::modeAmongTheColumns_isAMode()
{
    Recorder target;
    target.known[12];
    target.known[22] = {false, 1, true};
    auto const table = tableOf({2, 1, 20, 10, 11, 12, 20, 21, 22, 0});
    KDemultiplexingHandler handler(&target, table.get());
    KCommandUpdate before;
    QVERIFY(handler.update(20, &before));
    QVERIFY(before.isEnabled() && !before.isChecked());
    QVERIFY(handler.cmd(20));
    KCommandUpdate after;
    QVERIFY(handler.update(20, &after));
    QVERIFY(after.isEnabled() && after.isChecked() && !after.isRadio());
    QCOMPARE(target.takeCalls(), QString());
    handler.cmd(1);
    QCOMPARE(target.takeCalls(), QStringLiteral("cmd 21"));
}

void tst_KDemultiplexingHandler::column_answerIsThatOfTheTarget()
{
    ThreeModes modes;
    modes.target.known.erase(11);
    KCommandUpdate state;
    QVERIFY(!modes.handler.cmd(1));
    QVERIFY(!modes.handler.update(1, &state));
    QVERIFY(modes.handler.cmd(2));
    QVERIFY(modes.handler.update(2, &state));
}

void tst_KDemultiplexingHandler::update_columnPassesTheState()
{
    ThreeModes modes;
    modes.target.known[22] = {false, 7, true};
    modes.handler.cmd(20);
    KCommandUpdate state;
    modes.handler.update(2, &state);
    QVERIFY(!state.isEnabled());
    QVERIFY(state.isChecked());
    QVERIFY(state.isRadio());
}

void tst_KDemultiplexingHandler::update_leavesTheMarkOfOthersAlone()
{
    ThreeModes modes;
    KCommandUpdate state;
    state.setChecked(1);
    state.setRadio(true);
    modes.handler.update(20, &state); // not the current one
    QVERIFY(state.isChecked());
    QVERIFY(state.isRadio());
}

void tst_KDemultiplexingHandler::updateMode_canBeReplaced()
{
    class RadioModes : public KDemultiplexingHandler
    {
    public:
        using KDemultiplexingHandler::KDemultiplexingHandler;

    protected:
        void updateMode(unsigned int id, ICommandUpdate * state) override
        {
            KDemultiplexingHandler::updateMode(id, state);
            state->setRadio(true);
            state->setEnabled(id != 30);
        }
    };
    auto const table = tableOf(threeModes);
    RadioModes handler(nullptr, table.get());
    KCommandUpdate first;
    KCommandUpdate third;
    QVERIFY(handler.update(10, &first));
    QVERIFY(handler.update(30, &third));
    QVERIFY(first.isRadio() && first.isChecked() && first.isEnabled());
    QVERIFY(third.isRadio() && !third.isChecked() && !third.isEnabled());
}

void tst_KDemultiplexingHandler::updateMode_nullState_isLeftAlone()
{
    ThreeModes modes;
    QVERIFY(modes.handler.update(10, nullptr));
}

void tst_KDemultiplexingHandler::target_null_answersFalseButModesWork()
{
    auto const table = tableOf(threeModes);
    KDemultiplexingHandler handler(nullptr, table.get());
    KCommandUpdate state;
    QVERIFY(handler.cmd(20));
    QVERIFY(!handler.cmd(1));
    QVERIFY(!handler.update(1, &state));
    QVERIFY(handler.update(20, &state));
    QVERIFY(state.isChecked());
}

void tst_KDemultiplexingHandler::target_maySwitchTheMode()
{
    ThreeModes modes;
    modes.target.onCmd = [&](unsigned) { modes.handler.cmd(30); };
    QVERIFY(modes.handler.cmd(1));
    QVERIFY(modes.handler.cmd(1));
    QCOMPARE(modes.target.takeCalls(), QStringLiteral("cmd 11 cmd 31"));
}

void tst_KDemultiplexingHandler::target_mayDeleteTheHandler()
{
    Recorder target;
    target.known[11];
    auto table = tableOf(threeModes);
    auto handler = std::make_unique<KDemultiplexingHandler>(&target, table.get());
    target.onCmd = [&](unsigned) {
        handler.reset();
        table.reset();
    };
    QVERIFY(handler->cmd(1));
}

ZENU_TEST(tst_KDemultiplexingHandler)
#include "tst_KDemultiplexingHandler.moc"
