#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/config/IConfigItem.h>
#include <zenu/config/IConfigStore.h>
#include <zenu/config/KConfig.h>
#include <zenu/overlay/NarrowText.h>

#include <QBrush>
#include <QFont>
#include <QPen>
#include <QVariant>

#include <map>

namespace gallery {

namespace {

// Keeps settings in memory.
class Memory : public zenu::IConfigStore
{
public:
    bool readColor(char const * name, QColor * value) override { return read(name, value); }
    bool readBool(char const * name, bool * value) override { return read(name, value); }
    bool readInt(char const * name, int * value) override { return read(name, value); }
    bool readUInt(char const * name, unsigned * value) override { return read(name, value); }
    bool readInt64(char const * name, long long * value) override { return read(name, value); }
    bool readPen(char const * name, QPen * value) override { return read(name, value); }
    bool readFont(char const * name, QFont * value) override { return read(name, value); }
    bool readBrush(char const * name, QBrush * value) override { return read(name, value); }
    bool readString(char const * name, QString * value) override { return read(name, value); }
    void writeColor(char const * name, QColor const & value) override { m_values[name] = value; }
    void writeBool(char const * name, bool value) override { m_values[name] = value; }
    void writeInt(char const * name, int value) override { m_values[name] = value; }
    void writeUInt(char const * name, unsigned value) override { m_values[name] = value; }
    void writeInt64(char const * name, long long const & value) override { m_values[name] = value; }
    void writePen(char const * name, QPen const & value) override { m_values[name] = value; }
    void writeFont(char const * name, QFont const & value) override { m_values[name] = value; }
    void writeBrush(char const * name, QBrush const & value) override { m_values[name] = value; }
    void writeString(char const * name, char const * value) override
    {
        m_values[name] = zenu::chars2qstring(value);
    }

    std::size_t size() const { return m_values.size(); }

private:
    template <typename Value>
    bool read(char const * name, Value * value) const
    {
        auto const found = m_values.find(name);
        if (found != m_values.end()) {
            *value = found->second.template value<Value>();
        }
        return found != m_values.end();
    }

    std::map<std::string, QVariant> m_values;
};

// [code]
enum Setting
{
    Title,
    Columns,
    Accent
};

// Lists the settings that were changed.
struct Changed : zenu::IConfigVisitor
{
    std::string names;
    void visitInt(int, char const * name, int) override { names += name; }
    void visitColor(int, char const * name, QColor const &) override { names += name; }
};

void declare(zenu::KConfig & config)
{
    config.initString(Title, "title", "Untitled");
    config.initInt(Columns, "columns", 2);
    config.initColor(Accent, "accent", QColor(0, 0, 127));
}

void fill(ValueGrid & values, zenu::IConfigStore & store)
{
    zenu::KConfig config;
    declare(config);
    config.setInt(Columns, 3);
    values.add(SHOW(config.getInt(Columns)));
    values.add(SHOW(config.getDefaultInt(Columns)));
    values.add(SHOW(config.getString(Title)));
    values.add(SHOW(config.getColor(Title))); // another type: black
    Changed changed;
    config.visitChanged(&changed);
    values.add(SHOW(changed.names));
    config.save(&store);

    zenu::KConfig next;
    declare(next);
    next.load(&store);
    values.add(SHOW(next.getInt(Columns)));
    values.add(SHOW(next.getColor(Accent)));
}
// [code]

QWidget * makeValues()
{
    auto * const values = new ValueGrid;
    Memory store;
    fill(*values, store);
    values->add(SHOW(store.size()));
    return values;
}

} // namespace

Page configPage()
{
    return {"Config",
            "Settings by number, with defaults; only what was changed is saved.",
            {"KConfig", "IConfigVisitor", "IConfigStore"},
            makeValues};
}

} // namespace gallery
