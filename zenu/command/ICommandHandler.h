#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

/// Takes the answer to the question how the user interface of a command should look.
///
/// What is not set stays as it is. Calls may repeat: the last one counts.
class ZENU_EXPORT ICommandUpdate
{
public:
    virtual ~ICommandUpdate() = default;

    /// Whether the command can be performed now.
    virtual void setEnabled(bool enabled) = 0;
    /// Whether the command stands checked: any number but 0 says yes.
    virtual void setChecked(int checked) = 0;
    /// Whether the check mark is that of one among several.
    virtual void setRadio(bool radio) = 0;
};

/// Performs commands and says how they should look. A command is a bare number, its id.
///
/// Handlers are composed like filters: see KDispatchHandler, KTranslatingHandler and
/// KDemultiplexingHandler. KActionManager stands at the top of a chain of them.
class ZENU_EXPORT ICommandHandler
{
public:
    /// Performs a command. Returns whether some handler took it.
    virtual bool cmd(unsigned int id) = 0;
    /// Reports the state of a command into `state`. Returns whether some handler took the question;
    /// who does not know the id returns false and leaves `state` alone. It is asked over and over,
    /// so it is cheap and changes nothing.
    virtual bool update(unsigned int id, ICommandUpdate * state) = 0;

    virtual ~ICommandHandler() = default;
};

} // namespace zenu
