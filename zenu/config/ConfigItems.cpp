#include "zenu/config/ConfigItems.h"

#include "zenu/config/IConfigStore.h"
#include "zenu/overlay/NarrowText.h"

#include <QtCore/QString>
#include <QtWidgets/QApplication>

#include <utility>

namespace zenu {

QColor IConfigItem::getColor() const
{
    return Qt::black;
}

bool IConfigItem::getBool() const
{
    return false;
}

int IConfigItem::getInt() const
{
    return 0;
}

unsigned int IConfigItem::getUInt() const
{
    return 0;
}

long long IConfigItem::getInt64() const
{
    return 0;
}

QPen IConfigItem::getPen() const
{
    return {Qt::black, 0, Qt::SolidLine};
}

QFont IConfigItem::getFont() const
{
    return QApplication::font();
}

QBrush IConfigItem::getBrush() const
{
    return {Qt::black, Qt::SolidPattern};
}

char const * IConfigItem::getString() const
{
    return "";
}

void IConfigItem::setColor(QColor const & /*value*/) {}
void IConfigItem::setBool(bool /*value*/) {}
void IConfigItem::setInt(int /*value*/) {}
void IConfigItem::setUInt(unsigned int /*value*/) {}
void IConfigItem::setInt64(long long const & /*value*/) {}
void IConfigItem::setPen(QPen const & /*value*/) {}
void IConfigItem::setFont(QFont const & /*value*/) {}
void IConfigItem::setBrush(QBrush const & /*value*/) {}
void IConfigItem::setString(char const * /*value*/) {}

// A store that answers true and fills nothing leaves the item's own value.
#define ZENU_CONFIG_ITEM(Type, Value, Argument)                                                    \
    K##Type##Item::K##Type##Item(Argument value)                                                   \
        : m_value(value)                                                                           \
    {                                                                                              \
    }                                                                                              \
                                                                                                   \
    IConfigItem * K##Type##Item::clone() const                                                     \
    {                                                                                              \
        return new K##Type##Item(m_value);                                                         \
    }                                                                                              \
                                                                                                   \
    IConfigItem * K##Type##Item::load(IConfigStore * store, char const * name) const               \
    {                                                                                              \
        Value value = m_value;                                                                     \
        return store && store->read##Type(name, &value) ? new K##Type##Item(value) : nullptr;      \
    }                                                                                              \
                                                                                                   \
    void K##Type##Item::save(IConfigStore * store, char const * name) const                        \
    {                                                                                              \
        if (store) {                                                                               \
            store->write##Type(name, m_value);                                                     \
        }                                                                                          \
    }                                                                                              \
                                                                                                   \
    void K##Type##Item::visit(int id, char const * name, IConfigVisitor * visitor) const           \
    {                                                                                              \
        if (visitor) {                                                                             \
            visitor->visit##Type(id, name, m_value);                                               \
        }                                                                                          \
    }                                                                                              \
                                                                                                   \
    Value K##Type##Item::get##Type() const                                                         \
    {                                                                                              \
        return m_value;                                                                            \
    }                                                                                              \
                                                                                                   \
    void K##Type##Item::set##Type(Argument value)                                                  \
    {                                                                                              \
        m_value = value;                                                                           \
    }

ZENU_CONFIG_ITEM(Color, QColor, QColor const &)
ZENU_CONFIG_ITEM(Bool, bool, bool)
ZENU_CONFIG_ITEM(Int, int, int)
ZENU_CONFIG_ITEM(UInt, unsigned int, unsigned int)
ZENU_CONFIG_ITEM(Int64, long long, long long const &)
ZENU_CONFIG_ITEM(Pen, QPen, QPen const &)
ZENU_CONFIG_ITEM(Font, QFont, QFont const &)
ZENU_CONFIG_ITEM(Brush, QBrush, QBrush const &)

#undef ZENU_CONFIG_ITEM

KStringItem::KStringItem(char const * value)
    : m_value(value ? value : "")
{
}

KStringItem::KStringItem(std::string value)
    : m_value(std::move(value))
{
}

IConfigItem * KStringItem::clone() const
{
    return new KStringItem(m_value);
}

IConfigItem * KStringItem::load(IConfigStore * store, char const * name) const
{
    QString value;
    return store && store->readString(name, &value) ? new KStringItem(qstring2chars(value))
                                                    : nullptr;
}

void KStringItem::save(IConfigStore * store, char const * name) const
{
    if (store) {
        store->writeString(name, m_value.c_str());
    }
}

void KStringItem::visit(int id, char const * name, IConfigVisitor * visitor) const
{
    if (visitor) {
        visitor->visitString(id, name, m_value.c_str());
    }
}

char const * KStringItem::getString() const
{
    return m_value.c_str();
}

void KStringItem::setString(char const * value)
{
    m_value = value ? value : "";
}

IConfigItem * KDummyItem::clone() const
{
    return new KDummyItem;
}

IConfigItem * KDummyItem::load(IConfigStore * /*store*/, char const * /*name*/) const
{
    return nullptr;
}

void KDummyItem::save(IConfigStore * /*store*/, char const * /*name*/) const {}
void KDummyItem::visit(int /*id*/, char const * /*name*/, IConfigVisitor * /*visitor*/) const {}

} // namespace zenu
