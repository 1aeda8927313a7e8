#pragma once

#include "tests/command/Recorder.h"

#include <zenu/command/KActionManager.h>

#include <QtGui/QAction>

#include <memory>

namespace zenutest {

// One tick of the manager's timer, without a look-up by name, which would allocate.
inline void tick(zenu::KActionManager & manager)
{
    static int const slot = zenu::KActionManager::staticMetaObject.indexOfSlot("updateSingle()");
    void * arguments[] = {nullptr};
    manager.qt_metacall(QMetaObject::InvokeMetaMethod, slot, arguments);
}

// "text on checked" of each id, for actions without a text just the states.
inline QString stateOf(QAction const * action)
{
    QString state = action->isEnabled() ? QStringLiteral("on") : QStringLiteral("off");
    return action->isChecked() ? state + QStringLiteral(" checked") : state;
}

// A manager over a recorder. No event loop runs in most tests, so that the timer stands still and
// `tick` alone moves the cursor.
struct Managed
{
    explicit Managed(QObject * parent = nullptr)
        : manager(std::make_unique<zenu::KActionManager>(parent, &handler))
    {
    }

    // An action of the manager under `id`, owned by `owner`.
    QAction * add(unsigned id, bool isToggle = false)
    {
        auto * const action = new QAction(&owner);
        action->setCheckable(isToggle);
        manager->addAction(action, id);
        return action;
    }

    // The ids that `count` ticks ask for.
    QString ticks(int count)
    {
        handler.takeCalls();
        for (int i = 0; i < count && manager; ++i) {
            tick(*manager);
        }
        return handler.takeCalls().remove(QStringLiteral("update "));
    }

    Recorder handler;
    std::unique_ptr<zenu::KActionManager> manager;
    QObject owner;
};

} // namespace zenutest
