#pragma once

#include <zenu/command/ICommandHandler.h>

#include <QtCore/QStringList>

#include <functional>
#include <map>
#include <set>

namespace zenutest {

// Takes the commands that it knows, and writes down what it is asked: "cmd 3", "update 3".
class Recorder : public zenu::ICommandHandler
{
public:
    struct State
    {
        bool enabled = true;
        int checked = 0;
        bool radio = false;
    };

    bool cmd(unsigned int id) override
    {
        // What follows may delete this.
        bool const isKnown = known.contains(id);
        calls << QStringLiteral("cmd %1").arg(id);
        if (std::function<void(unsigned)> const action = onCmd) {
            action(id);
        }
        return isKnown;
    }

    bool update(unsigned int id, zenu::ICommandUpdate * state) override
    {
        bool const isKnown = known.contains(id);
        if (isRecordingUpdates) {
            calls << QStringLiteral("update %1").arg(id);
        }
        if (isKnown) {
            state->setEnabled(known[id].enabled);
            state->setChecked(known[id].checked);
            state->setRadio(known[id].radio);
        }
        if (onUpdate) {
            std::function<void(unsigned)> const action = onUpdate;
            action(id);
        }
        return isKnown;
    }

    // What was written down since the last time.
    QString takeCalls()
    {
        QString const text = calls.join(QLatin1Char(' '));
        calls.clear();
        return text;
    }

    std::map<unsigned, State> known;
    QStringList calls;
    std::function<void(unsigned)> onCmd;
    std::function<void(unsigned)> onUpdate;
    bool isRecordingUpdates = true;
};

} // namespace zenutest
