#include "tests/support/GermanLocale.h"
#include "tests/support/TestMain.h"

#include "StoreFixture.h"

#include <zenu/config/KConfig.h>

#include <QtCore/QFile>
#include <QtCore/QLocale>
#include <QtCore/QScopeGuard>

#include <set>

using namespace settingstest;
using zenu::KConfig;

namespace {

constexpr int rounds = 40; // settings of each type

struct Values
{
    explicit Values(unsigned seed)
    {
        RandomValues random(seed);
        for (int i = 0; i < rounds; ++i) {
            colors.push_back(random.color());
            bools.push_back(random.flip());
            ints.push_back(int(random.bits()));
            uints.push_back(random.bits());
            longs.push_back(random.bits64());
            pens.push_back(random.pen());
            fonts.push_back(random.font());
            brushes.push_back(random.brush());
            texts.push_back(random.text());
        }
    }
    std::vector<QColor> colors;
    std::vector<bool> bools;
    std::vector<int> ints;
    std::vector<unsigned> uints;
    std::vector<long long> longs;
    std::vector<QPen> pens;
    std::vector<QFont> fonts;
    std::vector<QBrush> brushes;
    std::vector<std::string> texts;
};

void declareAll(KConfig & config)
{
    for (int i = 0; i < rounds; ++i) {
        auto const name = [i](char const * word) { return word + std::to_string(i); };
        config.initColor(i, name("look/colour ").c_str(), Qt::green);
        config.initBool(100 + i, name("look/bool ").c_str(), false);
        config.initInt(200 + i, name("int ").c_str(), 1);
        config.initUInt(300 + i, name("uint ").c_str(), 1);
        config.initInt64(400 + i, name("int64 ").c_str(), 1);
        config.initPen(500 + i, name("a/b/c/pen ").c_str(), QPen(Qt::green));
        config.initFont(600 + i, name("font ").c_str(), QFont(QStringLiteral("Serif"), 77));
        config.initBrush(700 + i, name("brush ").c_str(), QBrush(Qt::green));
        config.initString(800 + i, name("text ").c_str(), "default");
    }
}

void setAll(KConfig & config, Values const & values)
{
    for (int i = 0; i < rounds; ++i) {
        auto const at = std::size_t(i);
        config.setColor(i, values.colors[at]);
        config.setBool(100 + i, values.bools[at]);
        config.setInt(200 + i, values.ints[at]);
        config.setUInt(300 + i, values.uints[at]);
        config.setInt64(400 + i, values.longs[at]);
        config.setPen(500 + i, values.pens[at]);
        config.setFont(600 + i, values.fonts[at]);
        config.setBrush(700 + i, values.brushes[at]);
        config.setString(800 + i, values.texts[at].c_str());
    }
}

void compareAll(KConfig const & config, Values const & values)
{
    for (int i = 0; i < rounds; ++i) {
        auto const at = std::size_t(i);
        QCOMPARE(difference(config.getColor(i), values.colors[at]), std::string());
        QCOMPARE(config.getBool(100 + i), bool(values.bools[at]));
        QCOMPARE(config.getInt(200 + i), values.ints[at]);
        QCOMPARE(config.getUInt(300 + i), values.uints[at]);
        QCOMPARE(config.getInt64(400 + i), values.longs[at]);
        QCOMPARE(difference(config.getPen(500 + i), values.pens[at]), std::string());
        QCOMPARE(difference(config.getFont(600 + i), values.fonts[at]), std::string());
        QCOMPARE(difference(config.getBrush(700 + i), values.brushes[at]), std::string());
        QCOMPARE(std::string(config.getString(800 + i)), values.texts[at]);
    }
}

void roundTrip(QString const & file, unsigned seed)
{
    Values const values(seed);
    {
        KConfig config;
        declareAll(config);
        setAll(config, values);
        IniStore store(file);
        config.save(&store);
        QVERIFY(store.sync());
    }
    KConfig config;
    declareAll(config);
    IniStore store(file);
    config.load(&store);
    compareAll(config, values);
}

QByteArray contents(QString const & file)
{
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
}

void write(QString const & file, QByteArray const & bytes)
{
    QFile opened(file);
    QVERIFY(opened.open(QIODevice::WriteOnly | QIODevice::Truncate));
    opened.write(bytes);
}

} // namespace

class tst_IniStore : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void everyType_comesBackFromTheFile_data();
    void everyType_comesBackFromTheFile();
    void germanLocale_doesNotMatter();
    void limits_comeBack();
    void oddValues_comeBack();
    void texts_comeBack_data();
    void texts_comeBack();
    void names_leadToDifferentKeys();
    void names_comeBackFromTheFile();
    void iniKey_escapes_data();
    void iniKey_escapes();
    void noName_isQuiet();
    void file_isReadable();
    void otherType_isNotThere();
    void textWrittenByHand_isRead();
    void clear_forgets();
    void file_thatCannotBeWritten_isTold();
    void fileWithAStrayLine_isWrittenAllTheSame();
    void variantsInAFile_areNotThere();
    void damagedFile_isHarmless();
    void arbitraryFile_isHarmless();

private:
    QString file(char const * name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QTemporaryDir m_folder;
};

void tst_IniStore::everyType_comesBackFromTheFile_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 11; seed <= 14; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void tst_IniStore::everyType_comesBackFromTheFile()
{
    QFETCH(unsigned, seed);
    roundTrip(file(QTest::currentDataTag()), seed);
}

// A file that was written under one locale is read under another.
void tst_IniStore::germanLocale_doesNotMatter()
{
    roundTrip(file("english.ini"), 21);
    QByteArray const before = contents(file("english.ini"));
    QLocale const locale;
    zenutest::GermanLocale const german;
    if (!german.isActive()) {
        QSKIP("the system has no German locale and can't make one");
    }
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto const restore = qScopeGuard([&] { QLocale::setDefault(locale); });

    roundTrip(file("german.ini"), 21);
    QCOMPARE(contents(file("german.ini")), before);
    KConfig config;
    declareAll(config);
    IniStore store(file("english.ini"));
    config.load(&store);
    compareAll(config, Values(21));
}

void tst_IniStore::limits_comeBack()
{
    {
        IniStore store(file("limits"));
        store.writeInt64("least", std::numeric_limits<long long>::min());
        store.writeInt64("most", std::numeric_limits<long long>::max());
        store.writeInt("least int", INT_MIN);
        store.writeUInt("most unsigned", UINT_MAX);
    }
    IniStore store(file("limits"));
    long long number = 0;
    QVERIFY(store.readInt64("least", &number));
    QCOMPARE(number, std::numeric_limits<long long>::min());
    QVERIFY(store.readInt64("most", &number));
    QCOMPARE(number, std::numeric_limits<long long>::max());
    int small = 0;
    QVERIFY(store.readInt("least int", &small));
    QCOMPARE(small, INT_MIN);
    QVERIFY(!store.readInt("most unsigned", &small));
    QVERIFY(!store.readInt("most", &small));
    unsigned plain = 0;
    QVERIFY(store.readUInt("most unsigned", &plain));
    QCOMPARE(plain, UINT_MAX);
    QVERIFY(!store.readUInt("least int", &plain));
}

// What a line of an INI file, Latin-1 or the text of a value could swallow.
void tst_IniStore::oddValues_comeBack()
{
    QFont font;
    font.setFamilies({QString::fromUtf8("\xce\x95\xce\xbb, \xe6\xa5\xb7\xe4\xbd\x93; \"x\""),
                      QStringLiteral("@Variant(=%41)"), QStringLiteral(" [a]\n")});
    font.setStyleName(QString::fromUtf8("Fett \xc3\xbc\xce\xb1"));
    QPen pen(QBrush(QGradient(QGradient::WarmFlame)), 1e-300);
    pen.setDashPattern({1e300, 1.0 / 3, 0.1, 5e-324});
    pen.setDashOffset(-7);
    {
        IniStore store(file("odd"));
        store.writeFont("font", font);
        store.writePen("pen", pen);
        store.writeBrush("brush", QBrush(QColor(), Qt::Dense7Pattern));
        store.writeColor("colour", QColor());
    }
    IniStore store(file("odd"));
    QFont fontAgain;
    QVERIFY(store.readFont("font", &fontAgain));
    QCOMPARE(difference(fontAgain, font), std::string());
    QCOMPARE(fontAgain.styleName(), font.styleName());
    QPen penAgain;
    QVERIFY(store.readPen("pen", &penAgain));
    QCOMPARE(difference(penAgain, pen), std::string());
    QBrush brush;
    QVERIFY(store.readBrush("brush", &brush));
    QCOMPARE(brush.style(), Qt::Dense7Pattern);
    QVERIFY(!brush.color().isValid());
    QColor color(Qt::red);
    QVERIFY(store.readColor("colour", &color));
    QVERIFY(!color.isValid());
}

void tst_IniStore::texts_comeBack_data()
{
    QTest::addColumn<QByteArray>("text");
    for (char const * text : {"",
                              " ",
                              " leading and trailing ",
                              "a,b",
                              ",",
                              "\"quoted\"",
                              "back\\slash",
                              "@Invalid()",
                              "@Variant(x)",
                              "@@",
                              "semi;colon",
                              "a=b",
                              "#hash",
                              "line\nline\r\n",
                              "tab\t",
                              "\x01"
                              "f",
                              "\xe9\xff\x80",
                              "base64:",
                              "[section]",
                              "%41"}) {
        QTest::newRow(QByteArray(text).toPercentEncoding().constData()) << QByteArray(text);
    }
}

void tst_IniStore::texts_comeBack()
{
    QFETCH(QByteArray, text);
    QString const path = file("texts.ini");
    {
        IniStore store(path);
        store.writeString("text", text.constData());
    }
    KConfig config;
    config.initString(1, "text", "default");
    IniStore store(path);
    config.load(&store);
    QCOMPARE(QByteArray(config.getString(1)), text);
}

void tst_IniStore::names_leadToDifferentKeys()
{
    RandomValues random(3);
    std::map<QString, std::string> names;
    for (int i = 0; i < 5000; ++i) {
        std::string const name = random.name();
        QString const key = iniKey(QString::fromLatin1(name.c_str()));
        QVERIFY(!key.isEmpty());
        auto const [found, isNew] = names.try_emplace(key, name);
        QCOMPARE(found->second, name);
    }
}

void tst_IniStore::names_comeBackFromTheFile()
{
    RandomValues random(4);
    std::set<std::string> names{"a",   "a/b", "/a",  "a/",        "a//b",      "a\\b", "General",
                                "x/y", "x",   "%2f", "General/a", "%General",  "~2f",  "/",
                                "//",  "\\",  "A",   " ",         "\xe9t\xe9", "=",    "[a]"};
    while (names.size() < 300) {
        names.insert(random.name());
    }
    {
        IniStore store(file("names"));
        int number = 0;
        for (std::string const & name : names) {
            store.writeInt(name.c_str(), number++);
        }
        QVERIFY(store.sync());
    }
    IniStore store(file("names"));
    int number = 0;
    for (std::string const & name : names) {
        int read = -1;
        QVERIFY2(store.readInt(name.c_str(), &read), name.c_str());
        QCOMPARE(read, number++);
    }
}

void tst_IniStore::iniKey_escapes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::newRow("plain") << "grid colour"
                           << "grid colour";
    QTest::newRow("section") << "grid/colour"
                             << "grid/colour";
    QTest::newRow("slash first") << "/a"
                                 << "~2fa";
    QTest::newRow("slash last") << "a/"
                                << "a~2f";
    QTest::newRow("two slashes") << "a//b"
                                 << "a~2f~2fb";
    QTest::newRow("backslash") << "a\\b"
                               << "a~5cb";
    QTest::newRow("tilde") << "a~2f"
                           << "a~7e2f";
    QTest::newRow("none") << ""
                          << "";
}

void tst_IniStore::iniKey_escapes()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    QCOMPARE(iniKey(name), key);
}

void tst_IniStore::noName_isQuiet()
{
    IniStore store(file("nameless"));
    for (char const * name : {"", static_cast<char const *>(nullptr)}) {
        store.writeInt(name, 1);
        int value = 0;
        QVERIFY(!store.readInt(name, &value));
    }
    store.writeString("null", nullptr);
    QString text;
    QVERIFY(store.readString("null", &text));
    QVERIFY(text.isEmpty());
}

void tst_IniStore::file_isReadable()
{
    {
        IniStore store(file("readable"));
        store.writeColor("grid/colour", QColor(255, 128, 0));
        store.writeBool("grid/shown", true);
        store.writeInt64("count", 12345678901234);
        store.writeString("title", "My file");
    }
    QByteArray const text = contents(file("readable"));
    for (char const * line : {"[grid]\n", "colour=#ff8000\n", "shown=true\n",
                              "count=12345678901234\n", "title=My file\n"}) {
        QVERIFY2(text.contains(line), text.constData());
    }
}

void tst_IniStore::otherType_isNotThere()
{
    IniStore store(file("types"));
    store.writeString("name", "neither a number nor a colour");
    QColor color;
    bool flag = false;
    int number = 0;
    unsigned plain = 0;
    long long large = 0;
    QPen pen;
    QFont font;
    QBrush brush;
    QVERIFY(!store.readColor("name", &color));
    QVERIFY(!store.readBool("name", &flag));
    QVERIFY(!store.readInt("name", &number));
    QVERIFY(!store.readUInt("name", &plain));
    QVERIFY(!store.readInt64("name", &large));
    QVERIFY(!store.readPen("name", &pen));
    QVERIFY(!store.readFont("name", &font));
    QVERIFY(!store.readBrush("name", &brush));
}

void tst_IniStore::textWrittenByHand_isRead()
{
    write(file("hand"),
          "text=one, two\ncolour=red\nnumber= 7 \n[shapes]\nfill=Dense4Pattern #fff\n");
    KConfig config;
    config.initString(1, "text", "");
    config.initColor(2, "colour", Qt::black);
    config.initInt(3, "number", 0);
    config.initBrush(4, "shapes/fill", QBrush());
    IniStore store(file("hand"));
    config.load(&store);
    QCOMPARE(config.getString(1), "one,two");
    QCOMPARE(config.getColor(2), QColor(Qt::red));
    QCOMPARE(config.getInt(3), 7);
    QCOMPARE(config.getBrush(4), QBrush(Qt::white, Qt::Dense4Pattern));
}

void tst_IniStore::clear_forgets()
{
    IniStore store(file("clear"));
    store.writeInt("number", 1);
    QVERIFY(store.sync());
    store.clear();
    QVERIFY(store.sync());
    int value = 0;
    QVERIFY(!store.readInt("number", &value));
    QVERIFY(!contents(file("clear")).contains("number"));
}

void tst_IniStore::file_thatCannotBeWritten_isTold()
{
    write(file("a file"), "");
    IniStore store(file("a file") + QStringLiteral("/below"));
    store.writeInt("number", 1);
    QVERIFY(!store.sync());
}

void tst_IniStore::fileWithAStrayLine_isWrittenAllTheSame()
{
    QByteArray const damage = "number=1\nwhat is this\n[section\nother=2\n";
    write(file("stray"), damage);
    IniStore store(file("stray"));
    int value = 0;
    QVERIFY(store.readInt("number", &value));
    store.clear();
    store.writeInt("number", 3);
    QVERIFY(store.sync());
    QCOMPARE(contents(file("stray")), QByteArray("[General]\nnumber=3\n"));
}

// QSettings makes values of any type of such texts.
void tst_IniStore::variantsInAFile_areNotThere()
{
    for (char const * text :
         {"@Variant(\\0\\0\\0\\x43\\x1\\xff\\xff\\xff\\xff\\0\\0\\0\\0\\0\\0)", "@ByteArray(7)",
          "@Invalid()", "@Rect(1 2 3 4)", "@Point(1 2)", "@Size(1 2)", "@Variant()"}) {
        QString const path = file("variants");
        write(path, QByteArray("name=") + text + "\n");
        IniStore store(path);
        QColor color(1, 2, 3);
        QString string = QStringLiteral("before");
        int number = 5;
        QVERIFY2(!store.readColor("name", &color), text);
        QVERIFY2(!store.readInt("name", &number), text);
        QVERIFY2(!store.readString("name", &string), text);
        QCOMPARE(string, QStringLiteral("before"));
        QFile::remove(path);
    }
}

void tst_IniStore::damagedFile_isHarmless()
{
    roundTrip(file("whole.ini"), 31);
    QByteArray const whole = contents(file("whole.ini"));
    RandomValues random(5);
    for (int i = 0; i < 60; ++i) {
        QByteArray damaged = whole;
        for (int flips = 1 + random.upTo(200); flips > 0; --flips) {
            damaged[random.upTo(int(damaged.size()))] = char(random.upTo(256));
        }
        if (i % 3 == 0) {
            damaged.truncate(random.upTo(int(damaged.size())));
        }
        QString const path = file(("damaged" + std::to_string(i)).c_str());
        write(path, damaged);
        KConfig config;
        declareAll(config);
        IniStore store(path);
        config.load(&store);
        // Whatever is not as it was is at its default, or another value of the type.
        config.save(&store);
        config.load(&store);
    }
}

void tst_IniStore::arbitraryFile_isHarmless()
{
    RandomValues random(6);
    for (int i = 0; i < 100; ++i) {
        QByteArray bytes;
        for (int size = random.upTo(400); size > 0; --size) {
            bytes += char(i % 2 ? random.upTo(256) : "[]=\\\"\n;%a1 "[random.upTo(11)]);
        }
        QString const path = file(("arbitrary" + std::to_string(i)).c_str());
        write(path, bytes);
        KConfig config;
        declareAll(config);
        IniStore store(path);
        config.load(&store);
        QCOMPARE(config.getColor(0), QColor(Qt::green));
    }
}

ZENU_TEST(tst_IniStore)
#include "tst_IniStore.moc"
