#include "tests/sprites/RandomStage.h"
#include "tests/support/TestMain.h"

#include <random>

using namespace zenutest;

// Every pixel after every update, against a picture painted as a whole. More and longer sequences:
// ZENU_SPRITE_RUNS=1000 ZENU_SPRITE_STEPS=200; another start: ZENU_SPRITE_SEED=4711.
class tst_RandomSprites : public Test
{
    Q_OBJECT
private Q_SLOTS:
    void sequence_everyPixelAsInTheReference_data();
    void sequence_everyPixelAsInTheReference();
};

namespace {

int numberFrom(char const * variable, int otherwise)
{
    bool given = false;
    int const number = qEnvironmentVariableIntValue(variable, &given);
    return given ? number : otherwise;
}

// Of many sprites most change at once.
std::vector<Step> sequence(unsigned seed, int length, bool dense)
{
    std::mt19937 random(seed);
    auto const below = [&](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    std::vector<Step> steps;
    for (int i = 0; i < length; ++i) {
        int kind = below(RandomStage::kinds);
        if (below(4) == 0)
            kind = RandomStage::updateKind;
        else if (dense && below(3) == 0)
            kind =
                RandomStage::firstManyKind + below(RandomStage::kinds - RandomStage::firstManyKind);
        steps.push_back({kind, {below(9973), below(9973), below(9973), below(9973)}});
    }
    return steps;
}

// What went wrong first, and at which step.
struct Failure
{
    QString what;
    size_t step = 0;
};

Failure play(std::vector<Step> const & steps, int spriteCount)
{
    RandomStage stage(spriteCount);
    for (size_t i = 0; i < steps.size(); ++i) {
        QString const wrong = stage.run(steps[i]);
        if (!wrong.isEmpty())
            return {wrong, i};
    }
    return {};
}

// Leaves out all steps without which it still fails.
std::vector<Step> shrunk(std::vector<Step> steps, int spriteCount)
{
    for (size_t chunk = steps.size() / 2; chunk > 0; chunk /= 2) {
        for (size_t at = 0; at + chunk <= steps.size();) {
            std::vector<Step> fewer = steps;
            fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at),
                        fewer.begin() + static_cast<std::ptrdiff_t>(at + chunk));
            if (play(fewer, spriteCount).what.isEmpty())
                at += chunk;
            else
                steps = fewer;
        }
    }
    return steps;
}

} // namespace

void tst_RandomSprites::sequence_everyPixelAsInTheReference_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<int>("spriteCount");
    int const start = numberFrom("ZENU_SPRITE_SEED", 1);
    int const runs = numberFrom("ZENU_SPRITE_RUNS", 8);
    for (int i = 0; i < runs; ++i) {
        int const spriteCount = std::array{3, 8, 40, 300}[static_cast<size_t>(start + i) % 4];
        QTest::addRow("seed %d, %d sprites", start + i, spriteCount) << start + i << spriteCount;
    }
}

void tst_RandomSprites::sequence_everyPixelAsInTheReference()
{
    QFETCH(int, seed);
    QFETCH(int, spriteCount);
    std::vector<Step> steps =
        sequence(static_cast<unsigned>(seed), numberFrom("ZENU_SPRITE_STEPS", onXcb() ? 25 : 50),
                 spriteCount > 100);
    Failure const failure = play(steps, spriteCount);
    if (failure.what.isEmpty())
        return;
    steps.resize(failure.step + 1);
    QStringList told;
    for (Step const & step : shrunk(steps, spriteCount))
        told += RandomStage::text(step);
    QFAIL(qPrintable(failure.what + QLatin1String("\n    ") + told.join(QLatin1String("\n    "))));
}

ZENU_TEST(tst_RandomSprites)
#include "tst_RandomSprites.moc"
