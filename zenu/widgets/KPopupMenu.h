#pragma once

#include "zenu/ZenuExport.h"

#include <QMenu>

namespace zenu {

class KActionManager;

/// A menu of commands of a KActionManager, written as one chain of calls:
/// `menu.addCommand(cmdCut).addCommand(cmdCopy).addSeparator()`. The state of all commands is
/// brought up to date before each showing. It has no parent: its owner deletes it. GUI thread only.
class ZENU_EXPORT KPopupMenu : public QMenu
{
    Q_OBJECT

public:
    /// The manager stays the caller's and must outlive every use of addCommand. Null gives a menu
    /// without commands.
    explicit KPopupMenu(KActionManager * manager);
    ~KPopupMenu() override;

    /// Adds the action of a command; for an id that the manager doesn't know, its empty action.
    KPopupMenu & addCommand(unsigned int id);
    /// Adds a line between the items.
    KPopupMenu & addSeparator();
    /// Adds a menu under a text. It stays its owner's; null gives an item that does nothing.
    KPopupMenu & addSubmenu(KPopupMenu * menu, QString const & text);

    /// Shows the menu at a point of the screen and returns when it is closed.
    void execAt(QPoint const & point);
    /// The same at the cursor, moved by an offset in logical pixels.
    void execAtCursor(int dx, int dy);

private:
    KActionManager * m_manager;
};

} // namespace zenu
