#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/command/ICommandHandler.h"

namespace zenu {

/// The state of one command as its handlers report it. A command that none of them answers is
/// enabled, not checked and not radio.
class ZENU_EXPORT KCommandUpdate : public ICommandUpdate
{
public:
    KCommandUpdate() = default;

    void setEnabled(bool enabled) override { m_enabled = enabled; }
    void setChecked(int checked) override { m_checked = checked; }
    void setRadio(bool radio) override { m_radio = radio; }

    /// What was set last, or the starting value.
    bool isEnabled() const { return m_enabled; }
    bool isChecked() const { return m_checked != 0; }
    bool isRadio() const { return m_radio; }

private:
    bool m_enabled = true;
    int m_checked = 0;
    bool m_radio = false;
};

} // namespace zenu
