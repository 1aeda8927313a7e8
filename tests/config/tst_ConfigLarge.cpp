#include "tests/support/TestMain.h"

#include "ConfigFixture.h"

#include <random>

using namespace configtest;

class tst_ConfigLarge : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void hundredThousandSettings_data();
    void hundredThousandSettings();
    void randomWork_agreesWithAMap();
    void textOf10MB_isKeptWhole();
    void allTypesTogether_roundTrip();
};

void tst_ConfigLarge::hundredThousandSettings_data()
{
    QTest::addColumn<unsigned>("step");
    QTest::newRow("ids in a row") << 1u;
    QTest::newRow("ids two apart") << 2u;
    QTest::newRow("ids 65536 apart") << 65536u + 1u;
    QTest::newRow("odd ids all over") << 2654435769u;
    QTest::newRow("the inverse of a well-known factor") << 340573321u;
}

void tst_ConfigLarge::hundredThousandSettings()
{
    QFETCH(unsigned, step);
    constexpr unsigned count = 100000;
    auto const idOf = [step](unsigned i) { return static_cast<int>(i * step); };
    KConfig config;
    for (unsigned i = 0; i < count; ++i) {
        config.initInt(idOf(i), ("number " + std::to_string(i)).c_str(), int(i));
    }
    for (unsigned i = 0; i < count; i += 2) {
        config.setInt(idOf(i), -int(i));
    }
    for (unsigned i = 0; i < count; ++i) {
        if (config.getInt(idOf(i)) != (i % 2 ? int(i) : -int(i))) {
            QFAIL("a wrong value");
        }
        if (config.getInt(idOf(i + count)) != 0) {
            QFAIL("a value of no setting");
        }
    }
    MemoryStore store;
    config.save(&store);
    QCOMPARE(store.keptInt.size(), std::size_t(count / 2));
    for (unsigned i = 0; i < count; ++i) {
        config.setInt(idOf(i), 1);
    }
    config.load(&store);
    QCOMPARE(config.getInt(idOf(10)), -10);
    QCOMPARE(config.getInt(idOf(11)), 11);
}

void tst_ConfigLarge::randomWork_agreesWithAMap()
{
    struct Model
    {
        int byDefault;
        int value;
        bool changed;
    };
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        KConfig config;
        std::map<int, Model> model;
        for (int i = 0; i < 3000; ++i) {
            int const id = int(random() % 500) * (round % 2 ? 1 : 4194304) - 100;
            int const value = int(random() % 1000);
            switch (random() % 4) {
            case 0:
                config.initInt(id, "", value);
                model[id] = {value, value, false};
                break;
            case 1:
                config.setInt(id, value);
                if (auto const found = model.find(id); found != model.end()) {
                    found->second.value = value;
                    found->second.changed = true;
                }
                break;
            default: {
                auto const found = model.find(id);
                QCOMPARE(config.getInt(id), found == model.end() ? 0 : found->second.value);
                QCOMPARE(config.getDefaultInt(id),
                         found == model.end() ? 0 : found->second.byDefault);
            }
            }
        }
        auto const changed = std::count_if(model.begin(), model.end(),
                                           [](auto const & entry) { return entry.second.changed; });
        Recorder all;
        Recorder changes;
        config.visitAll(&all);
        config.visitChanged(&changes);
        QCOMPARE(all.count(), model.size());
        QCOMPARE(changes.count(), std::size_t(changed));
    }
}

void tst_ConfigLarge::textOf10MB_isKeptWhole()
{
    std::string text(10 * 1024 * 1024, '\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        text[i] = static_cast<char>(1 + i % 255);
    }
    KConfig config;
    std::string const name(1024 * 1024, 'n');
    config.initString(1, name.c_str(), text.c_str());
    QVERIFY(config.getString(1) == text);
    text[5] = 'x';
    config.setString(1, text.c_str());
    QVERIFY(config.getString(1) == text);
    MemoryStore store;
    config.save(&store);
    config.setString(1, "short");
    config.load(&store);
    QVERIFY(config.getString(1) == text);
    QVERIFY(config.getDefaultString(1) != text);
}

void tst_ConfigLarge::allTypesTogether_roundTrip()
{
    MemoryStore store;
    KConfig first;
    KConfig second;
    int id = 0;
    for (int n = 0; n < 3; ++n) {
        for (Type const & row : types()) {
            std::string const name = row.word + std::to_string(n);
            row.init(first, id, name.c_str(), n);
            row.init(second, -id - 1, name.c_str(), n);
            row.set(first, id++, (n + 1) % 3);
        }
    }
    first.save(&store);
    second.load(&store);
    id = 0;
    for (int n = 0; n < 3; ++n) {
        for (Type const & row : types()) {
            QCOMPARE(row.get(second, -id - 1), row.value((n + 1) % 3));
            QCOMPARE(row.getDefault(second, -id - 1), row.value(n));
            ++id;
        }
    }
}

ZENU_TEST(tst_ConfigLarge)
#include "tst_ConfigLarge.moc"
