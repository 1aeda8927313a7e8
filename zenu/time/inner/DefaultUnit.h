#pragma once

#include "zenu/time/TimeUnit.h"

namespace zenu {

/// Replaces the default unit for as long as it lives.
class DefaultUnit
{
public:
    explicit DefaultUnit(TimeUnit::EUnit unit)
        : m_saved(TimeUnit::defaultUnit())
    {
        TimeUnit::setDefaultUnit(unit);
    }
    ~DefaultUnit() { TimeUnit::setDefaultUnit(m_saved); }

    DefaultUnit(DefaultUnit const &) = delete;
    DefaultUnit & operator=(DefaultUnit const &) = delete;

private:
    TimeUnit::EUnit m_saved;
};

} // namespace zenu
