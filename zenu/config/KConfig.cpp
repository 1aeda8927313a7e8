#include "zenu/config/KConfig.h"

#include "zenu/config/inner/ConfigTable.h"
#include "zenu/config/inner/ConfigTypes.h"

namespace zenu {

KConfig::KConfig()
    : m_table(std::make_unique<ConfigTable>())
{
}

KConfig::~KConfig() = default;

#define ZENU_CONFIG_FAMILIES(Type, Value, Argument)                                                \
    void KConfig::init##Type(int id, char const * name, Argument value)                            \
    {                                                                                              \
        m_table->declare<K##Type##Item>(id, name, value);                                          \
    }                                                                                              \
                                                                                                   \
    Value KConfig::get##Type(int id) const                                                         \
    {                                                                                              \
        return m_table->current(id).get##Type();                                                   \
    }                                                                                              \
                                                                                                   \
    void KConfig::set##Type(int id, Argument value)                                                \
    {                                                                                              \
        m_table->change<K##Type##Item>(id, [&](IConfigItem & item) { item.set##Type(value); });    \
    }                                                                                              \
                                                                                                   \
    Value KConfig::getDefault##Type(int id) const                                                  \
    {                                                                                              \
        return m_table->defaultOf(id).get##Type();                                                 \
    }

ZENU_CONFIG_TYPES(ZENU_CONFIG_FAMILIES)

#undef ZENU_CONFIG_FAMILIES

void KConfig::load(IConfigStore * store)
{
    m_table->load(store);
}

void KConfig::save(IConfigStore * store) const
{
    m_table->save(store);
}

void KConfig::visitAll(IConfigVisitor * visitor) const
{
    m_table->visitAll(visitor);
}

void KConfig::visitChanged(IConfigVisitor * visitor) const
{
    m_table->visitChanged(visitor);
}

} // namespace zenu
