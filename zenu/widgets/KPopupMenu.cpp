#include "zenu/widgets/KPopupMenu.h"

#include "zenu/command/KActionManager.h"

#include <QCursor>

namespace zenu {

KPopupMenu::KPopupMenu(KActionManager * manager)
    : m_manager(manager)
{
    if (m_manager) {
        m_manager->autoUpdateMenu(this);
    }
}

KPopupMenu::~KPopupMenu() = default;

KPopupMenu & KPopupMenu::addCommand(unsigned int id)
{
    if (m_manager) {
        addAction(m_manager->getAction(id));
    }
    return *this;
}

KPopupMenu & KPopupMenu::addSeparator()
{
    QMenu::addSeparator();
    return *this;
}

// The text is the item's, not the menu's: one menu may stand under several texts.
KPopupMenu & KPopupMenu::addSubmenu(KPopupMenu * menu, QString const & text)
{
    addAction(text)->setMenu(menu);
    return *this;
}

void KPopupMenu::execAt(QPoint const & point)
{
    exec(point);
}

void KPopupMenu::execAtCursor(int dx, int dy)
{
    exec(QCursor::pos() + QPoint(dx, dy));
}

} // namespace zenu
