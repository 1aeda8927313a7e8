#pragma once

#include <zenu/command/CommandHandlers.h>

#include <map>

namespace editor {

// Binds command ids to methods of a class that derives from this one:
//
//     bind(Save, &Document::save, &Document::updateSave);
//     bind(About, &Document::about);                       // can always be performed
template <typename Derived>
class MethodHandler : public zenu::KMethodHandlerBase
{
public:
    using Command = void (Derived::*)(unsigned id);
    using Update = void (Derived::*)(unsigned id, zenu::ICommandUpdate * state);

    bool cmd(unsigned int id) override
    {
        auto const found = m_methods.find(id);
        if (found == m_methods.end()) {
            return false;
        }
        (self().*found->second.command)(id);
        return true;
    }

    bool update(unsigned int id, zenu::ICommandUpdate * state) override
    {
        auto const found = m_methods.find(id);
        if (found == m_methods.end()) {
            return false;
        }
        (self().*found->second.update)(id, state);
        return true;
    }

protected:
    void bind(unsigned id, Command command, Update update = &Derived::alwaysEnable)
    {
        m_methods[id] = {command, update};
    }

private:
    struct Methods
    {
        Command command;
        Update update;
    };

    Derived & self() { return static_cast<Derived &>(*this); }

    std::map<unsigned, Methods> m_methods;
};

} // namespace editor
