#include "tests/support/TestMain.h"

#include "ConfigFixture.h"

using namespace configtest;

class tst_KConfig : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void undeclared_readsTheBaseAndDropsSets_data() { addTypeRows(); }
    void undeclared_readsTheBaseAndDropsSets();
    void undeclared_fontIsThatOfTheApplicationAtTheTime();
    void declared_isAtItsDefault_data() { addTypeRows(); }
    void declared_isAtItsDefault();
    void set_changesTheValueAndNotTheDefault_data() { addTypeRows(); }
    void set_changesTheValueAndNotTheDefault();
    void set_toTheDefault_countsAsChanged_data() { addTypeRows(); }
    void set_toTheDefault_countsAsChanged();
    void otherType_readsItsBase_data() { addTypeRows(); }
    void otherType_readsItsBase();
    void set_ofAnotherType_marksAsChangedAndKeepsTheValue_data() { addTypeRows(); }
    void set_ofAnotherType_marksAsChangedAndKeepsTheValue();
    void setBool_onAColor_isReportedAsChanged();
    void saveAndLoad_keepEveryType_data() { addTypeRows(); }
    void saveAndLoad_keepEveryType();
    void load_ofAMissingSetting_goesBackToTheDefault_data() { addTypeRows(); }
    void load_ofAMissingSetting_goesBackToTheDefault();
    void load_ofAStoredSetting_countsAsChanged_data() { addTypeRows(); }
    void load_ofAStoredSetting_countsAsChanged();
    void load_fromAStoreThatRefuses_isAllDefaults();
    void emptyName_isNeitherLoadedNorSavedButVisited_data() { addTypeRows(); }
    void emptyName_isNeitherLoadedNorSavedButVisited();
    void save_ofNothingSet_writesNothing();
    void save_toAStoreThatRefuses_isQuiet();
    void visitAll_showsWhatAGetGives_data() { addTypeRows(); }
    void visitAll_showsWhatAGetGives();
    void visits_areInNoOrderButComplete();
    void secondDeclaration_startsAnew_data() { addTypeRows(); }
    void secondDeclaration_startsAnew();
    void secondDeclaration_mayChangeTypeAndName();
    void secondDeclaration_keepsTextsAlive();
    void getString_ofAChangedSetting_pointsIntoTheValue();
    void getString_liveAsLongAsSaid();
    void setString_fromItself_staysWhole();
    void nulls_areQuiet();
    void everyId_isAnId();
    void config_isNotCopied();
};

void tst_KConfig::undeclared_readsTheBaseAndDropsSets()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    for (int declared = 0; declared < 2; ++declared) {
        QCOMPARE(row.get(config, 5), row.base());
        QCOMPARE(row.getDefault(config, 5), row.base());
        row.set(config, 5, 2);
        QCOMPARE(row.get(config, 5), row.base());
        QCOMPARE(changedOf(config), std::string());
        row.init(config, 6, "other", 1);
    }
}

void tst_KConfig::undeclared_fontIsThatOfTheApplicationAtTheTime()
{
    KConfig config;
    config.initInt(2, "number", 1);
    QFont const before = QApplication::font();
    QFont changed = before;
    changed.setPointSize(before.pointSize() + 9);
    QApplication::setFont(changed);
    QCOMPARE(config.getFont(1), changed);
    QCOMPARE(config.getDefaultFont(1), changed);
    QCOMPARE(config.getFont(2), changed);
    QApplication::setFont(before);
    QCOMPARE(config.getFont(1), before);
}

void tst_KConfig::declared_isAtItsDefault()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    row.init(config, 5, "name", 2);
    QCOMPARE(row.get(config, 5), row.value(2));
    QCOMPARE(row.getDefault(config, 5), row.value(2));
    QCOMPARE(changedOf(config), std::string());
    QCOMPARE(allOf(config), std::string("5 ") + row.word + " name=" + row.value(2) + ";");
}

void tst_KConfig::set_changesTheValueAndNotTheDefault()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    row.init(config, 5, "name", 2);
    for (int n : {1, 0, 2, 1}) {
        row.set(config, 5, n);
        QCOMPARE(row.get(config, 5), row.value(n));
        QCOMPARE(row.getDefault(config, 5), row.value(2));
    }
    QCOMPARE(changedOf(config), std::string("5 ") + row.word + " name=" + row.value(1) + ";");
}

void tst_KConfig::set_toTheDefault_countsAsChanged()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    row.init(config, 5, "name", 2);
    row.set(config, 5, 2);
    QCOMPARE(changedOf(config), std::string("5 ") + row.word + " name=" + row.value(2) + ";");
    MemoryStore store;
    config.save(&store);
    QCOMPARE(store.calls, std::string("write") + row.word + " name;");
}

void tst_KConfig::otherType_readsItsBase()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    row.init(config, 5, "name", 2);
    for (bool changed : {false, true}) {
        if (changed) {
            row.set(config, 5, 0);
        }
        for (Type const & other : types()) {
            if (&other != &row) {
                QCOMPARE(other.get(config, 5), other.base());
                QCOMPARE(other.getDefault(config, 5), other.base());
            }
        }
    }
}

void tst_KConfig::set_ofAnotherType_marksAsChangedAndKeepsTheValue()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    for (Type const & other : types()) {
        if (&other == &row) {
            continue;
        }
        KConfig config;
        row.init(config, 5, "name", 2);
        other.set(config, 5, 2);
        QCOMPARE(row.get(config, 5), row.value(2));
        QCOMPARE(other.get(config, 5), other.base());
        std::string const clone = std::string("5 ") + row.word + " name=" + row.value(2) + ";";
        QCOMPARE(changedOf(config), clone);
        other.set(config, 5, 1);
        QCOMPARE(changedOf(config), clone);
        row.set(config, 5, 1);
        other.set(config, 5, 1);
        QCOMPARE(row.get(config, 5), row.value(1));
    }
}

void tst_KConfig::setBool_onAColor_isReportedAsChanged()
{
    KConfig config;
    config.initColor(1, "colour", Qt::red);
    config.setBool(1, true);
    QCOMPARE(config.getColor(1), QColor(Qt::red));
    QCOMPARE(config.getBool(1), false);
    QCOMPARE(changedOf(config), "1 Color colour=" + dump(QColor(Qt::red)) + ";");
}

void tst_KConfig::saveAndLoad_keepEveryType()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    MemoryStore store;
    {
        KConfig config;
        row.init(config, 5, "name", 2);
        row.set(config, 5, 1);
        config.save(&store);
        QCOMPARE(row.get(config, 5), row.value(1));
    }
    KConfig config;
    row.init(config, 6, "name", 2);
    config.load(&store);
    QCOMPARE(row.get(config, 6), row.value(1));
    QCOMPARE(row.getDefault(config, 6), row.value(2));
}

void tst_KConfig::load_ofAMissingSetting_goesBackToTheDefault()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    row.init(config, 5, "name", 2);
    row.set(config, 5, 1);
    MemoryStore store;
    config.load(&store);
    QCOMPARE(store.calls, std::string("read") + row.word + " name;");
    QCOMPARE(row.get(config, 5), row.value(2));
    QCOMPARE(row.getDefault(config, 5), row.value(2));
    QCOMPARE(changedOf(config), std::string());
    row.set(config, 5, 0);
    QCOMPARE(row.get(config, 5), row.value(0));
}

void tst_KConfig::load_ofAStoredSetting_countsAsChanged()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    MemoryStore store;
    row.make(2)->save(&store, "name");
    KConfig config;
    row.init(config, 5, "name", 2);
    config.load(&store);
    config.load(&store);
    QCOMPARE(changedOf(config), std::string("5 ") + row.word + " name=" + row.value(2) + ";");
    row.set(config, 5, 0);
    config.load(&store);
    QCOMPARE(row.get(config, 5), row.value(2));
}

void tst_KConfig::load_fromAStoreThatRefuses_isAllDefaults()
{
    KConfig config;
    int id = 0;
    for (Type const & row : types()) {
        row.init(config, id, row.word, 2);
        row.set(config, id++, 1);
    }
    MemoryStore store;
    config.save(&store);
    store.refuses = true;
    config.load(&store);
    QCOMPARE(changedOf(config), std::string());
    store.refuses = false;
    config.load(&store);
    id = 0;
    for (Type const & row : types()) {
        QCOMPARE(row.get(config, id++), row.value(1));
    }
}

void tst_KConfig::emptyName_isNeitherLoadedNorSavedButVisited()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    for (char const * name : {"", static_cast<char const *>(nullptr)}) {
        KConfig config;
        row.init(config, 5, name, 2);
        row.set(config, 5, 1);
        MemoryStore store;
        config.save(&store);
        config.load(&store);
        QCOMPARE(store.calls, std::string());
        QCOMPARE(row.get(config, 5), row.value(1));
        std::string const shown = std::string("5 ") + row.word + " =" + row.value(1) + ";";
        QCOMPARE(changedOf(config), shown);
        QCOMPARE(allOf(config), shown);
    }
}

void tst_KConfig::save_ofNothingSet_writesNothing()
{
    KConfig config;
    MemoryStore store;
    config.save(&store);
    int id = 0;
    for (Type const & row : types()) {
        row.init(config, id++, row.word, 2);
    }
    config.save(&store);
    QCOMPARE(store.calls, std::string());
}

void tst_KConfig::save_toAStoreThatRefuses_isQuiet()
{
    KConfig config;
    config.initInt(1, "number", 1);
    config.setInt(1, 2);
    MemoryStore store;
    store.refuses = true;
    config.save(&store);
    QCOMPARE(config.getInt(1), 2);
    QVERIFY(store.keptInt.empty());
}

void tst_KConfig::visitAll_showsWhatAGetGives()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    row.init(config, 1, "default", 2);
    row.init(config, 2, "changed", 2);
    row.set(config, 2, 1);
    std::string const word = row.word;
    std::string const second = "2 " + word + " changed=" + row.value(1) + ";";
    QCOMPARE(allOf(config), "1 " + word + " default=" + row.value(2) + ";" + second);
    QCOMPARE(changedOf(config), second);
}

void tst_KConfig::visits_areInNoOrderButComplete()
{
    KConfig config;
    for (int id = 0; id < 1000; ++id) {
        config.initInt(id * 37, "number", id);
        if (id % 3 == 0) {
            config.setInt(id * 37, -id);
        }
    }
    Recorder all;
    Recorder changed;
    config.visitAll(&all);
    config.visitChanged(&changed);
    QCOMPARE(all.count(), std::size_t(1000));
    QCOMPARE(changed.count(), std::size_t(334));
}

void tst_KConfig::secondDeclaration_startsAnew()
{
    QFETCH(int, type);
    Type const & row = types()[std::size_t(type)];
    KConfig config;
    row.init(config, 5, "first", 2);
    row.set(config, 5, 1);
    row.init(config, 5, "second", 0);
    QCOMPARE(row.get(config, 5), row.value(0));
    QCOMPARE(row.getDefault(config, 5), row.value(0));
    QCOMPARE(changedOf(config), std::string());
    QCOMPARE(allOf(config), std::string("5 ") + row.word + " second=" + row.value(0) + ";");
    row.set(config, 5, 1);
    MemoryStore store;
    config.save(&store);
    config.load(&store);
    std::string const word = row.word;
    QCOMPARE(store.calls, "write" + word + " second;read" + word + " second;");
}

void tst_KConfig::secondDeclaration_mayChangeTypeAndName()
{
    KConfig config;
    config.initInt(1, "number", 7);
    config.initInt(2, "beside", 8);
    config.setInt(1, 9);
    config.initString(1, "text", "seven");
    QCOMPARE(config.getInt(1), 0);
    QCOMPARE(config.getString(1), "seven");
    config.initBool(1, "flag", true);
    QCOMPARE(allOf(config), std::string("1 Bool flag=1;2 Int beside=8;"));
}

void tst_KConfig::secondDeclaration_keepsTextsAlive()
{
    KConfig config;
    std::string const longText(1000, 'x');
    config.initString(1, "text", longText.c_str());
    char const * const byDefault = config.getString(1);
    config.setString(1, "the changed text, too long for the short form");
    char const * const changed = config.getString(1);
    for (int i = 0; i < 100; ++i) {
        config.initString(1, "text", "new");
        config.setString(1, "newer");
    }
    config.load(nullptr);
    QCOMPARE(byDefault, longText.c_str());
    QCOMPARE(changed, "the changed text, too long for the short form");
    config.initString(1, changed, changed); // its own old text as name and default
    QCOMPARE(config.getString(1), changed);
}

void tst_KConfig::getString_ofAChangedSetting_pointsIntoTheValue()
{
    KConfig config;
    config.initString(1, "text", "same");
    QCOMPARE(config.getString(1), config.getDefaultString(1));
    QVERIFY(static_cast<void const *>(config.getString(1)) == config.getDefaultString(1));
    config.setString(1, "same");
    QVERIFY(static_cast<void const *>(config.getString(1)) != config.getDefaultString(1));
    QCOMPARE(config.getString(1), "same");
}

void tst_KConfig::getString_liveAsLongAsSaid()
{
    KConfig config;
    config.initString(1, "text", "a default that is too long for the short form");
    char const * const byDefault = config.getString(1);
    config.setString(1, "a value that is too long for the short form as well");
    char const * const changed = config.getString(1);
    // Whatever happens to others, and to this one by sets of another type and by a save.
    for (int id = 2; id < 2000; ++id) {
        config.initString(id, "other", "other");
        config.setString(id, "changed");
    }
    MemoryStore store;
    config.setInt(1, 3);
    config.save(&store);
    QCOMPARE(changed, "a value that is too long for the short form as well");
    QVERIFY(static_cast<void const *>(config.getString(1)) == changed);
    config.load(&store);
    QCOMPARE(byDefault, "a default that is too long for the short form");
    QVERIFY(static_cast<void const *>(config.getDefaultString(1)) == byDefault);
}

void tst_KConfig::setString_fromItself_staysWhole()
{
    KConfig config;
    config.initString(1, "text", "some text that is too long for the short form");
    config.setString(1, config.getString(1) + 5);
    QCOMPARE(config.getString(1), "text that is too long for the short form");
    config.setString(1, config.getString(1) + 5);
    QCOMPARE(config.getString(1), "that is too long for the short form");
}

void tst_KConfig::nulls_areQuiet()
{
    KConfig config;
    config.initString(1, nullptr, nullptr);
    config.initString(2, "text", "default");
    QCOMPARE(config.getString(1), "");
    config.setString(2, nullptr);
    QCOMPARE(config.getString(2), "");
    config.load(nullptr);
    QCOMPARE(config.getString(2), "");
    config.save(nullptr);
    config.visitAll(nullptr);
    config.visitChanged(nullptr);
    QCOMPARE(changedOf(config), std::string("2 String text=;"));
}

void tst_KConfig::everyId_isAnId()
{
    KConfig config;
    int const ids[] = {0, -1, 1, INT_MAX, INT_MIN, INT_MIN + 1};
    for (int id : ids) {
        QCOMPARE(config.getInt(id), 0);
        config.initInt(id, "number", id ^ 0x55);
    }
    for (int id : ids) {
        QCOMPARE(config.getInt(id), id ^ 0x55);
    }
    QCOMPARE(config.getInt(2), 0);
}

void tst_KConfig::config_isNotCopied()
{
    QVERIFY(!std::is_copy_constructible_v<KConfig>);
    QVERIFY(!std::is_copy_assignable_v<KConfig>);
}

ZENU_TEST(tst_KConfig)
#include "tst_KConfig.moc"
