#include "examples/gallery/Page.h"
#include "examples/gallery/support/Popups.h"

#include <zenu/command/KActionManager.h>
#include <zenu/widgets/KPopupMenu.h>

#include <QContextMenuEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace gallery {

namespace {

enum Command : unsigned
{
    Left = 1,
    Centre,
    Right,
    Bold
};

zenu::SAction const table[] = {
    {zenu::ActionToggle, Left, "Left"},
    {zenu::ActionToggle, Centre, "Centre"},
    {zenu::ActionToggle, Right, "Right"},
    {zenu::ActionToggle, Bold, "Bold"},
    {},
};

// [code]
// A text whose look is set by a menu of commands, and by its context menu.
class Aligned : public QLabel, private zenu::ICommandHandler
{
public:
    Aligned()
        : QLabel(tr("A text with a menu"))
        , m_actions(nullptr, this)
        , m_menu(&m_actions)
        , m_more(&m_actions)
    {
        m_actions.addActions(table, "gallery");
        m_more.addCommand(Bold);
        m_menu.addCommand(Left).addCommand(Centre).addCommand(Right);
        m_menu.addSeparator().addSubmenu(&m_more, tr("More"));
    }

    zenu::KPopupMenu & menu() { return m_menu; }

private:
    void contextMenuEvent(QContextMenuEvent *) override { m_menu.execAtCursor(0, 0); }

    bool cmd(unsigned int id) override
    {
        QFont changed = font();
        changed.setBold(id == Bold ? !changed.bold() : changed.bold());
        setFont(changed);
        setAlignment(id == Left     ? Qt::AlignLeft
                     : id == Centre ? Qt::AlignHCenter
                     : id == Right  ? Qt::AlignRight
                                    : alignment());
        return true;
    }
    bool update(unsigned int id, zenu::ICommandUpdate * state) override
    {
        Qt::Alignment const wanted = id == Left     ? Qt::AlignLeft
                                     : id == Centre ? Qt::AlignHCenter
                                                    : Qt::AlignRight;
        state->setChecked(id == Bold ? font().bold() : (alignment() & wanted) != 0);
        return true;
    }

    zenu::KActionManager m_actions;
    zenu::KPopupMenu m_menu;
    zenu::KPopupMenu m_more;
};
// [code]

QWidget * makeAligned()
{
    auto * const page = new QWidget;
    auto * const text = new Aligned;
    auto * const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text);
    layout->addWidget(new OpenButton(QStringLiteral("Open the menu"), text->menu()));
    layout->addStretch();
    return page;
}

} // namespace

Page popupMenuPage()
{
    return {"PopupMenu",
            "A menu of commands, whose check marks are brought up to date before it "
            "opens.",
            {"KPopupMenu"},
            makeAligned};
}

} // namespace gallery
