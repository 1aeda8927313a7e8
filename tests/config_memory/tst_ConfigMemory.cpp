#include "tests/support/TestMain.h"

#include <zenu/config/IConfigStore.h>
#include <zenu/config/KConfig.h>

#include <QtGui/QBrush>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QPen>

#include <cstdlib>
#include <new>

// How many more allocations succeed; below 0 all do.
static long allocationsLeft = -1;

void * operator new(std::size_t size)
{
    if (allocationsLeft == 0) {
        throw std::bad_alloc();
    }
    if (allocationsLeft > 0) {
        --allocationsLeft;
    }
    if (void * const block = std::malloc(size)) {
        return block;
    }
    throw std::bad_alloc();
}

void operator delete(void * block) noexcept
{
    std::free(block);
}

void operator delete(void * block, std::size_t) noexcept
{
    std::free(block);
}

using namespace zenu;

namespace {

char const longText[] = "a text that is too long for the short form of a string";

class Numbers : public IConfigStore
{
public:
    bool readColor(char const *, QColor *) override { return false; }
    bool readBool(char const *, bool *) override { return false; }
    bool readInt(char const *, int * value) override
    {
        *value = 77;
        return true;
    }
    bool readUInt(char const *, unsigned int *) override { return false; }
    bool readInt64(char const *, long long *) override { return false; }
    bool readPen(char const *, QPen *) override { return false; }
    bool readFont(char const *, QFont *) override { return false; }
    bool readBrush(char const *, QBrush *) override { return false; }
    bool readString(char const *, QString *) override { return false; }
    void writeColor(char const *, QColor const &) override {}
    void writeBool(char const *, bool) override {}
    void writeInt(char const *, int) override {}
    void writeUInt(char const *, unsigned int) override {}
    void writeInt64(char const *, long long const &) override {}
    void writePen(char const *, QPen const &) override {}
    void writeFont(char const *, QFont const &) override {}
    void writeBrush(char const *, QBrush const &) override {}
    void writeString(char const *, char const *) override {}
};

// Runs `work` with fewer and fewer failures: the first allocation fails, then the second, until
// none does.
template <typename Prepare, typename Work, typename Check>
void withFailures(Prepare prepare, Work work, Check check)
{
    for (long allowed = 0; allowed < 1000; ++allowed) {
        KConfig config;
        prepare(config);
        allocationsLeft = allowed;
        work(config);
        bool const failed = allocationsLeft == 0;
        allocationsLeft = -1;
        check(config, failed);
        if (!failed) {
            return;
        }
    }
    QFAIL("never came to an end");
}

} // namespace

class tst_ConfigMemory : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void declaration_withoutMemory_isLeftOut();
    void set_withoutMemory_isDropped();
    void setString_withoutMemory_keepsTheText();
    void load_withoutMemory_readsAsTheDefault();
};

void tst_ConfigMemory::declaration_withoutMemory_isLeftOut()
{
    withFailures([](KConfig &) {},
                 [](KConfig & config) {
                     for (int id = 0; id < 100; ++id) {
                         config.initString(id, longText, longText);
                     }
                 },
                 [](KConfig & config, bool) {
                     for (int id = 0; id < 100; ++id) {
                         QVERIFY(config.getString(id) == std::string() ||
                                 config.getString(id) == std::string(longText));
                     }
                 });
}

void tst_ConfigMemory::set_withoutMemory_isDropped()
{
    withFailures([](KConfig & config) { config.initInt(1, "number", 5); },
                 [](KConfig & config) { config.setInt(1, 6); },
                 [](KConfig & config, bool failed) {
                     // The last round but one uses up what it has and does not fail.
                     QVERIFY(config.getInt(1) == 6 || (failed && config.getInt(1) == 5));
                 });
}

void tst_ConfigMemory::setString_withoutMemory_keepsTheText()
{
    withFailures([](KConfig & config) { config.initString(1, "text", "short"); },
                 [](KConfig & config) { config.setString(1, longText); },
                 [](KConfig & config, bool failed) {
                     std::string const text = config.getString(1);
                     QVERIFY(text == longText || (failed && text == "short"));
                 });
}

void tst_ConfigMemory::load_withoutMemory_readsAsTheDefault()
{
    Numbers store;
    withFailures(
        [](KConfig & config) {
            for (int id = 0; id < 10; ++id) {
                config.initInt(id, longText, id);
                config.setInt(id, 100 + id);
            }
        },
        [&](KConfig & config) { config.load(&store); },
        [](KConfig & config, bool failed) {
            for (int id = 0; id < 10; ++id) {
                QVERIFY(config.getInt(id) == 77 || (failed && config.getInt(id) == id));
            }
        });
}

ZENU_TEST(tst_ConfigMemory)
#include "tst_ConfigMemory.moc"
