#include "tests/support/TestMain.h"

#include "ConfigFixture.h"

using namespace configtest;

namespace {

// Five settings, of which the odd ones are changed.
void fill(KConfig & config)
{
    for (int id = 0; id < 5; ++id) {
        config.initString(id, ("name " + std::to_string(id)).c_str(),
                          "a default that is too long for the short form");
        if (id % 2 == 1) {
            config.setString(id, "a value that is too long for the short form");
        }
    }
}

// Keeps what it was given until the end, as a visitor may.
class Keeper : public IConfigVisitor
{
public:
    void visitString(int id, char const * name, char const * value) override
    {
        m_kept.push_back({name, value, name, value});
        if (onVisit) {
            onVisit(id);
        }
        checkAll();
    }
    void visitFont(int, char const *, QFont const & value) override
    {
        QFont const before = value;
        if (onVisit) {
            onVisit(-1);
        }
        QCOMPARE(value, before);
    }
    void checkAll() const
    {
        for (Kept const & kept : m_kept) {
            QCOMPARE(kept.name, kept.nameBefore.c_str());
            QCOMPARE(kept.value, kept.valueBefore.c_str());
        }
    }
    std::size_t count() const { return m_kept.size(); }

    std::function<void(int)> onVisit;

private:
    struct Kept
    {
        char const * name;
        char const * value;
        std::string nameBefore;
        std::string valueBefore;
    };
    std::vector<Kept> m_kept;
};

} // namespace

class tst_ConfigCallbacks : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void visitor_sets_seesItsValuesUnchanged();
    void visitor_setsAReferenceItHolds();
    void visitor_loads_seesItsValuesUnchanged();
    void visitor_declaresAnew_eachSettingIsShownOnce();
    void visitor_declaresMore_theyAreNotInThisWalk();
    void visitor_walksAgain_isSafe();
    void store_setsDuringSave_writesWhatWasThere();
    void store_loadsDuringSave_isSafe();
    void store_setsDuringLoad_theAnswerWins();
    void store_declaresDuringLoad_theNewDeclarationStays();
    void store_loadsDuringLoad_theOuterAnswerWins();
    void store_savesDuringLoad_isSafe();
    void setOfAnotherTypeInAWalk_leavesTextsAlive();
    void afterAWalk_setsWriteIntoTheValueAgain();
};

void tst_ConfigCallbacks::visitor_sets_seesItsValuesUnchanged()
{
    KConfig config;
    fill(config);
    config.initFont(9, "font", valueFont(0));
    config.setFont(9, valueFont(1));
    Keeper keeper;
    keeper.onVisit = [&](int) {
        for (int id = 0; id < 5; ++id) {
            config.setString(id, "another text that is too long for the short form");
        }
        config.setFont(9, valueFont(2));
    };
    config.visitAll(&keeper);
    QCOMPARE(keeper.count(), std::size_t(5));
    QCOMPARE(config.getString(3), "another text that is too long for the short form");
    QCOMPARE(config.getFont(9), valueFont(2));
}

void tst_ConfigCallbacks::visitor_setsAReferenceItHolds()
{
    class Setter : public IConfigVisitor
    {
    public:
        explicit Setter(KConfig & config)
            : m_config(config)
        {
        }
        void visitPen(int id, char const *, QPen const & value) override
        {
            m_config.setPen(id, value);
            m_config.initPen(id, "again", value);
            m_config.setPen(id, value);
        }

    private:
        KConfig & m_config;
    };
    KConfig config;
    config.initPen(1, "pen", valuePen(1));
    config.setPen(1, valuePen(2));
    Setter setter(config);
    config.visitChanged(&setter);
    QCOMPARE(config.getPen(1), valuePen(2));
    QCOMPARE(config.getDefaultPen(1), valuePen(2));
}

void tst_ConfigCallbacks::visitor_loads_seesItsValuesUnchanged()
{
    KConfig config;
    fill(config);
    MemoryStore store;
    store.keptString["name 2"] =
        QStringLiteral("a stored text that is too long for the short form");
    Keeper keeper;
    keeper.onVisit = [&](int) { config.load(&store); };
    config.visitAll(&keeper);
    QCOMPARE(keeper.count(), std::size_t(5));
    QCOMPARE(config.getString(2), "a stored text that is too long for the short form");
    QCOMPARE(config.getString(3), "a default that is too long for the short form");
}

void tst_ConfigCallbacks::visitor_declaresAnew_eachSettingIsShownOnce()
{
    KConfig config;
    fill(config);
    config.initString(4, "name 4", "declared twice before the walk");
    Keeper keeper;
    keeper.onVisit = [&](int) {
        for (int id = 0; id < 5; ++id) {
            config.initString(id, "a new name that is too long for the short form", "new");
        }
    };
    config.visitAll(&keeper);
    keeper.checkAll(); // old items and names stay
    QCOMPARE(keeper.count(), std::size_t(5));
    QCOMPARE(config.getString(3), "new");
    Recorder after;
    config.visitAll(&after);
    QCOMPARE(after.count(), std::size_t(5));
}

void tst_ConfigCallbacks::visitor_declaresMore_theyAreNotInThisWalk()
{
    KConfig config;
    fill(config);
    int next = 100;
    Keeper keeper;
    keeper.onVisit = [&](int) {
        for (int i = 0; i < 100; ++i) {
            config.initString(next++, "more", "more");
        }
    };
    config.visitAll(&keeper);
    QCOMPARE(keeper.count(), std::size_t(5));
    Recorder after;
    config.visitAll(&after);
    QCOMPARE(after.count(), std::size_t(505));
}

void tst_ConfigCallbacks::visitor_walksAgain_isSafe()
{
    KConfig config;
    fill(config);
    Keeper keeper;
    keeper.onVisit = [&](int id) {
        config.setString(id, "an outer text that is too long for the short form");
        Recorder inner;
        inner.onVisit = [&](int other) { config.setString(other, "inner"); };
        config.visitAll(&inner);
        QCOMPARE(inner.count(), std::size_t(5));
    };
    config.visitAll(&keeper);
    QCOMPARE(keeper.count(), std::size_t(5));
}

void tst_ConfigCallbacks::store_setsDuringSave_writesWhatWasThere()
{
    KConfig config;
    fill(config);
    MemoryStore store;
    store.onCall = [&](char const *) {
        config.setString(1, "later");
        config.setString(3, "later");
    };
    config.save(&store);
    QCOMPARE(store.keptString.begin()->second,
             QLatin1String("a value that is too long for the short form"));
    QCOMPARE(config.getString(1), "later");
    QCOMPARE(store.keptString.size(), std::size_t(2));
}

void tst_ConfigCallbacks::store_loadsDuringSave_isSafe()
{
    KConfig config;
    fill(config);
    MemoryStore empty;
    MemoryStore store;
    store.onCall = [&](char const *) { config.load(&empty); };
    config.save(&store);
    QCOMPARE(store.keptString.size(), std::size_t(1)); // then nothing was changed any more
    QCOMPARE(changedOf(config), std::string());
}

void tst_ConfigCallbacks::store_setsDuringLoad_theAnswerWins()
{
    KConfig single;
    single.initInt(7, "number", 1);
    MemoryStore other;
    other.keptInt["number"] = 5;
    other.onCall = [&](char const *) { single.setInt(7, 3); };
    single.load(&other);
    QCOMPARE(single.getInt(7), 5);
    other.keptInt.clear();
    single.load(&other);
    QCOMPARE(single.getInt(7), 1);
    QCOMPARE(changedOf(single), std::string());
}

void tst_ConfigCallbacks::store_declaresDuringLoad_theNewDeclarationStays()
{
    KConfig config;
    config.initInt(1, "a name that is too long for the short form", 3);
    MemoryStore store;
    store.keptInt["a name that is too long for the short form"] = 4;
    store.onCall = [&](char const *) {
        config.initString(1, "text", "a text");
        config.initInt(2, "number", 5);
    };
    config.load(&store);
    QCOMPARE(config.getString(1), "a text");
    QCOMPARE(config.getInt(1), 0);
    QCOMPARE(allOf(config), std::string("1 String text=a text;2 Int number=5;"));
    QCOMPARE(changedOf(config), std::string());
}

void tst_ConfigCallbacks::store_loadsDuringLoad_theOuterAnswerWins()
{
    KConfig config;
    config.initString(1, "name", "default");
    config.setString(1, "a value that is too long for the short form");
    MemoryStore inner;
    inner.keptString["name"] = QStringLiteral("inner");
    MemoryStore store;
    store.onCall = [&](char const *) {
        config.load(&inner);
        QCOMPARE(config.getString(1), "inner");
    };
    config.load(&store);
    QCOMPARE(config.getString(1), "default");
    store.keptString["name"] = QStringLiteral("outer");
    config.load(&store);
    QCOMPARE(config.getString(1), "outer");
}

void tst_ConfigCallbacks::store_savesDuringLoad_isSafe()
{
    KConfig config;
    fill(config);
    MemoryStore other;
    MemoryStore store;
    store.onCall = [&](char const *) { config.save(&other); };
    config.load(&store);
    QCOMPARE(changedOf(config), std::string());
}

void tst_ConfigCallbacks::setOfAnotherTypeInAWalk_leavesTextsAlive()
{
    KConfig config;
    fill(config);
    char const * const text = config.getString(1);
    Keeper keeper;
    keeper.onVisit = [&](int id) { config.setInt(id, 3); };
    config.visitAll(&keeper);
    QVERIFY(static_cast<void const *>(config.getString(1)) == text);
    QCOMPARE(text, "a value that is too long for the short form");
    Recorder changed;
    config.visitChanged(&changed);
    QCOMPARE(changed.count(), std::size_t(5));
}

void tst_ConfigCallbacks::afterAWalk_setsWriteIntoTheValueAgain()
{
    KConfig config;
    config.initString(1, "text", "default");
    config.setString(1, "1234567890");
    Keeper keeper;
    keeper.onVisit = [&](int) { config.setString(1, "abcdefghij"); };
    config.visitAll(&keeper);
    void const * const place = config.getString(1);
    config.setString(1, "0987654321");
    QVERIFY(place == config.getString(1));
}

ZENU_TEST(tst_ConfigCallbacks)
#include "tst_ConfigCallbacks.moc"
