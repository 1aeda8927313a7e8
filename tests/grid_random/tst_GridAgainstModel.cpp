#include "tests/grid_random/Shrinker.h"
#include "tests/support/TestMain.h"

using namespace gridrandom;

// Random public operations on a grid and on a naive reference beside it; everything that can be
// read is compared as it goes. A failure is reported as the shortest sequence of operations.
//
// ZENU_RANDOM_SEED plays that one seed, ZENU_RANDOM_STEPS so many operations a seed, and
// ZENU_RANDOM_SEEDS so many seeds from that one on. With ZENU_RANDOM_APART sequences are played in
// processes of their own, so that one that crashes is shrunk as well.
class tst_GridAgainstModel : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void randomOperations_agreeWithTheReference_data();
    void randomOperations_agreeWithTheReference();
    void describe_namesRowsByTheOperationThatMadeThem();
    void shrunk_keepsWhatIsNeededAlone();
    void references_toRowsThatWereNeverMade_areHarmless();
};

namespace {

int numberFrom(char const * name, int otherwise)
{
    bool isThere = false;
    int const number = qEnvironmentVariableIntValue(name, &isThere);
    return isThere ? number : otherwise;
}

// A long run is one test function, which Qt would stop after five minutes; it looks at this before
// the first one starts.
[[maybe_unused]] bool const runsAsLongAsItTakes = !qEnvironmentVariableIsSet("ZENU_RANDOM_SEEDS") ||
                                                  qputenv("QTEST_FUNCTION_TIMEOUT", "86400000");

// Empty when the grid agrees with the reference.
QString playSeed(unsigned seed, int steps)
{
    Generator generator(seed);
    Setup const setup = generator.setup();
    Operations played;
    QString what;
    try {
        Player player(setup);
        for (int id = 0; id < steps; ++id) {
            played.push_back(generator.next(id, player));
            player.perform(played.back());
        }
        player.check();
        return {};
    } catch (Mismatch const & mismatch) {
        what = QString::fromLatin1(mismatch.what());
    }
    if (!play(setup, played)) {
        return QStringLiteral("seed %1: only the first time: %2").arg(seed).arg(what);
    }
    return reportShortest(seed, setup, played, play);
}

// The same where nothing of it happens in this process, since it may crash.
QString playSeedApart(unsigned seed, int steps)
{
    int ends[2];
    Generator generator(seed);
    Setup const setup = generator.setup();
    if (pipe(ends) != 0) {
        return QStringLiteral("no pipe");
    }
    pid_t const child = fork();
    if (child == 0) {
        // Each operation is handed over before it is played.
        Player player(setup);
        try {
            for (int id = 0; id < steps; ++id) {
                Operation const operation = generator.next(id, player);
                if (write(ends[1], &operation, sizeof operation) != sizeof operation) {
                    _exit(2);
                }
                player.perform(operation);
            }
            player.check();
        } catch (Mismatch const &) {
            _exit(1);
        }
        _exit(0);
    }
    close(ends[1]);
    Operations played;
    Operation operation;
    while (read(ends[0], &operation, sizeof operation) == sizeof operation) {
        played.push_back(operation);
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    bool const fine = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return fine ? QString() : reportShortest(seed, setup, played, playApart);
}

} // namespace

void tst_GridAgainstModel::randomOperations_agreeWithTheReference_data()
{
    QTest::addColumn<int>("seed");
    int const first = numberFrom("ZENU_RANDOM_SEED", 1);
    int const count =
        numberFrom("ZENU_RANDOM_SEEDS", qEnvironmentVariableIsSet("ZENU_RANDOM_SEED") ? 1 : 40);
    for (int seed = first; seed < first + count; ++seed) {
        QTest::addRow("seed %d", seed) << seed;
    }
}

void tst_GridAgainstModel::randomOperations_agreeWithTheReference()
{
    QFETCH(int, seed);
    int const steps = numberFrom("ZENU_RANDOM_STEPS", 1500);
    bool const apart = qEnvironmentVariableIsSet("ZENU_RANDOM_APART");
    QString const report = apart ? playSeedApart(static_cast<unsigned>(seed), steps)
                                 : playSeed(static_cast<unsigned>(seed), steps);
    QVERIFY2(report.isEmpty(), qPrintable(report));
}

void tst_GridAgainstModel::describe_namesRowsByTheOperationThatMadeThem()
{
    Operation operation;
    operation.id = 17;
    operation.action = Action::Expand;
    operation.args = {3 * rowsPerOperation + 1, 2};
    operation.vetoes = 0x101;
    QCOMPARE(describe(operation), QStringLiteral("17: Expand(#3.1, 2) vetoes 0x101"));
    operation.args[0] = nullRow;
    operation.vetoes = 0;
    operation.checked = false;
    QCOMPARE(describe(operation), QStringLiteral("17: Expand(null, 2) unchecked"));
}

void tst_GridAgainstModel::shrunk_keepsWhatIsNeededAlone()
{
    Operations operations(100);
    for (int i = 0; i < 100; ++i) {
        operations[static_cast<std::size_t>(i)].id = i;
    }
    auto const fails = [](Operations const & list) {
        auto const has = [&](int id) {
            return std::any_of(list.begin(), list.end(),
                               [=](Operation const & each) { return each.id == id; });
        };
        return has(7) && has(58) && has(59);
    };
    Operations const shortest = shrunk(operations, fails);
    QCOMPARE(shortest.size(), std::size_t(3));
    QCOMPARE(shortest[0].id, 7);
    QCOMPARE(shortest[1].id, 58);
    QCOMPARE(shortest[2].id, 59);
}

void tst_GridAgainstModel::references_toRowsThatWereNeverMade_areHarmless()
{
    Operations operations;
    for (ActionInfo const & info : actionTable()) {
        Operation operation;
        operation.id = static_cast<int>(operations.size());
        operation.action = info.action;
        for (std::size_t i = 0; i < info.args.size(); ++i) {
            bool const isRow = info.args[i] == Arg::Row || info.args[i] == Arg::Parent ||
                               info.args[i] == Arg::After;
            operation.args[i] = isRow ? 123456 : 0;
        }
        operations.push_back(operation);
    }
    QCOMPARE(play(Setup(), operations).what, QString());
}

ZENU_TEST(tst_GridAgainstModel)
#include "tst_GridAgainstModel.moc"
