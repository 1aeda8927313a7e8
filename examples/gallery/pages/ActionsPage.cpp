#include "examples/gallery/Page.h"

#include <zenu/command/ICommandHandler.h>
#include <zenu/command/KActionManager.h>
#include <zenu/command/KCommandUpdate.h>

#include <QAction>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
enum Command : unsigned
{
    More = 1,
    Less,
    Hold
};

zenu::SAction const table[] = {
    {.kind = zenu::ActionPlain,
     .id = More,
     .text = "More",
     .accel = (Qt::CTRL | Qt::Key_Up).toCombined()},
    {.kind = zenu::ActionPlain,
     .id = Less,
     .text = "Less",
     .accel = (Qt::CTRL | Qt::Key_Down).toCombined()},
    {.kind = zenu::ActionToggle, .id = Hold, .text = "Hold"},
    {},
};

// A counter from 0 to 3. Nobody enables or checks an action: all of them follow `update`.
class Counter : public QWidget, private zenu::ICommandHandler
{
public:
    Counter()
        : m_actions(this, this)
    {
        m_actions.addActions(table, "Counter");
        for (unsigned const id : {More, Less, Hold}) {
            m_tools.addAction(m_actions.getAction(id));
        }
        zenu::KCommandUpdate state;
        update(More, &state);
        m_told.setText(state.isEnabled() ? tr("There can be more") : QString());
    }

private:
    bool cmd(unsigned int id) override
    {
        m_held = m_held != (id == Hold);
        m_count += id == More ? 1 : id == Less ? -1 : 0;
        m_told.setText(tr("The count is %1").arg(m_count));
        return true;
    }
    bool update(unsigned int id, zenu::ICommandUpdate * state) override
    {
        state->setChecked(id == Hold && m_held);
        state->setEnabled(id == Hold || (!m_held && (id == More ? m_count < 3 : m_count > 0)));
        return true;
    }

    zenu::KActionManager m_actions;
    int m_count = 0;
    bool m_held = false;
    // [code]

protected:
    QToolBar m_tools;
    QLabel m_told;
};

class CounterPage : public Counter
{
public:
    CounterPage()
    {
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_tools);
        layout->addWidget(&m_told);
    }
};

QWidget * makeCounter()
{
    return new CounterPage;
}

} // namespace

Page actionsPage()
{
    return {"Actions",
            "Commands with an action each; their states follow by themselves.",
            {"KActionManager", "ICommandHandler", "ICommandUpdate", "KCommandUpdate"},
            makeCounter};
}

} // namespace gallery
