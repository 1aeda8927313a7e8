#pragma once

#include <zenu/config/ConfigItems.h>
#include <zenu/config/IConfigStore.h>
#include <zenu/config/KConfig.h>
#include <zenu/config/inner/ConfigTypes.h>

#include <QtCore/QDataStream>
#include <QtWidgets/QApplication>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

// The nine types as rows of a table, so that each rule is tested for all of them: values are chosen
// by a number and compared as texts.

namespace configtest {

using namespace zenu;

template <typename Value>
std::string dump(Value const & value)
{
    if constexpr (std::is_arithmetic_v<Value>) {
        return std::to_string(value);
    } else {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << value;
        return bytes.toHex().toStdString();
    }
}

inline std::string dump(char const * value)
{
    return value ? value : "(null)";
}

// Three values of each type; none is what the base of the items answers with.
inline QColor valueColor(int n)
{
    return QColor(10 + n, 20, 30, 40 + n);
}
inline bool valueBool(int n)
{
    return n % 2 == 0;
}
inline int valueInt(int n)
{
    return -7 - n;
}
inline unsigned int valueUInt(int n)
{
    return 4294967295u - static_cast<unsigned>(n);
}
inline long long valueInt64(int n)
{
    return std::numeric_limits<long long>::min() + n;
}
inline QPen valuePen(int n)
{
    return QPen(QColor(1, 2, 3 + n), 1.5 + n, Qt::DashLine);
}
inline QFont valueFont(int n)
{
    return QFont(QStringLiteral("Sans"), 30 + n, QFont::Bold, true);
}
inline QBrush valueBrush(int n)
{
    return QBrush(QColor(3, 2, 1 + n), Qt::CrossPattern);
}
inline char const * valueString(int n)
{
    static char const * const texts[] = {"zero", "one, and two", "d\xe9j\xe0 vu"};
    return texts[n];
}

// What a read of no such setting answers.
inline QColor baseColor()
{
    return Qt::black;
}
inline bool baseBool()
{
    return false;
}
inline int baseInt()
{
    return 0;
}
inline unsigned int baseUInt()
{
    return 0;
}
inline long long baseInt64()
{
    return 0;
}
inline QPen basePen()
{
    return QPen(Qt::black, 0, Qt::SolidLine);
}
inline QFont baseFont()
{
    return QApplication::font();
}
inline QBrush baseBrush()
{
    return QBrush(Qt::black, Qt::SolidPattern);
}
inline char const * baseString()
{
    return "";
}

struct Type
{
    char const * word;
    std::function<void(KConfig &, int, char const *, int)> init;
    std::function<void(KConfig &, int, int)> set;
    std::function<std::string(KConfig const &, int)> get;
    std::function<std::string(KConfig const &, int)> getDefault;
    std::function<std::unique_ptr<IConfigItem>(int)> make;
    std::function<void(IConfigItem &, int)> itemSet;
    std::function<std::string(IConfigItem const &)> itemGet;
    std::function<std::string(int)> value;
    std::function<std::string()> base;
};

inline std::vector<Type> const & types()
{
#define CONFIG_TYPE(Word, Value, Argument)                                                         \
    Type{#Word,                                                                                    \
         [](KConfig & c, int id, char const * name, int n) {                                       \
             c.init##Word(id, name, value##Word(n));                                               \
         },                                                                                        \
         [](KConfig & c, int id, int n) { c.set##Word(id, value##Word(n)); },                      \
         [](KConfig const & c, int id) { return dump(c.get##Word(id)); },                          \
         [](KConfig const & c, int id) { return dump(c.getDefault##Word(id)); },                   \
         [](int n) -> std::unique_ptr<IConfigItem> {                                               \
             return std::make_unique<K##Word##Item>(value##Word(n));                               \
         },                                                                                        \
         [](IConfigItem & item, int n) { item.set##Word(value##Word(n)); },                        \
         [](IConfigItem const & item) { return dump(item.get##Word()); },                          \
         [](int n) { return dump(value##Word(n)); },                                               \
         [] { return dump(base##Word()); }},

    static std::vector<Type> const list{ZENU_CONFIG_TYPES(CONFIG_TYPE)};
#undef CONFIG_TYPE
    return list;
}

// Adds a row for each type to a _data function; the test says QFETCH(int, type).
inline void addTypeRows()
{
    QTest::addColumn<int>("type");
    for (int i = 0; i < int(types().size()); ++i) {
        QTest::newRow(types()[std::size_t(i)].word) << i;
    }
}

// Notes what it is shown, sorted, since the order of a walk means nothing.
class Recorder : public IConfigVisitor
{
public:
#define CONFIG_VISIT(Word, Value, Argument)                                                        \
    void visit##Word(int id, char const * name, Argument value) override                           \
    {                                                                                              \
        note(std::to_string(id) + " " #Word " " + dump(name) + "=" + dump(value), id);             \
    }
    ZENU_CONFIG_TYPES(CONFIG_VISIT)
#undef CONFIG_VISIT

    std::function<void(int id)> onVisit;

    std::string text() const
    {
        std::vector<std::string> sorted = m_lines;
        std::sort(sorted.begin(), sorted.end());
        std::string all;
        for (std::string const & line : sorted) {
            all += line + ";";
        }
        return all;
    }
    std::size_t count() const
    {
        return m_lines.size();
    }

private:
    void note(std::string const & line, int id)
    {
        m_lines.push_back(line);
        if (onVisit) {
            onVisit(id);
        }
    }

    std::vector<std::string> m_lines;
};

inline std::string allOf(KConfig const & config)
{
    Recorder recorder;
    config.visitAll(&recorder);
    return recorder.text();
}

inline std::string changedOf(KConfig const & config)
{
    Recorder recorder;
    config.visitChanged(&recorder);
    return recorder.text();
}

// Keeps values in memory, each type apart, and notes the calls.
class MemoryStore : public IConfigStore
{
public:
    template <typename Value>
    using Values = std::map<std::string, Value>;

    template <typename Kept, typename Value>
    bool read(Values<Kept> const & values, char const * word, char const * name, Value * value)
    {
        calls += std::string("read") + word + " " + dump(name) + ";";
        if (onCall) {
            onCall(name);
        }
        auto const found = values.find(name ? name : "");
        if (refuses || found == values.end()) {
            return false;
        }
        *value = found->second;
        return true;
    }

#define CONFIG_STORE(Word, Value, Argument)                                                        \
    Values<Value> kept##Word;                                                                      \
    bool read##Word(char const * name, Value * value) override                                     \
    {                                                                                              \
        return read(kept##Word, #Word, name, value);                                               \
    }                                                                                              \
    void write##Word(char const * name, Argument value) override                                   \
    {                                                                                              \
        calls += std::string("write" #Word " ") + dump(name) + ";";                                \
        if (onCall) {                                                                              \
            onCall(name);                                                                          \
        }                                                                                          \
        if (!refuses) {                                                                            \
            kept##Word[name ? name : ""] = value;                                                  \
        }                                                                                          \
    }
    CONFIG_STORE(Color, QColor, QColor const &)
    CONFIG_STORE(Bool, bool, bool)
    CONFIG_STORE(Int, int, int)
    CONFIG_STORE(UInt, unsigned int, unsigned int)
    CONFIG_STORE(Int64, long long, long long const &)
    CONFIG_STORE(Pen, QPen, QPen const &)
    CONFIG_STORE(Font, QFont, QFont const &)
    CONFIG_STORE(Brush, QBrush, QBrush const &)
#undef CONFIG_STORE

    Values<QString> keptString;
    bool readString(char const * name, QString * value) override
    {
        return read(keptString, "String", name, value);
    }
    void writeString(char const * name, char const * value) override
    {
        calls += "writeString " + dump(name) + ";";
        if (onCall) {
            onCall(name);
        }
        if (!refuses) {
            keptString[name ? name : ""] = QString::fromLatin1(value);
        }
    }

    bool refuses = false;
    std::string calls;
    std::function<void(char const * name)> onCall;
};

} // namespace configtest
