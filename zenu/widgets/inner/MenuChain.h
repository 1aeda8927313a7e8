#pragma once

#include <QtCore/QPointer>
#include <QtGui/QAction>

namespace zenu {

// Closes the menus that lead to a submenu, which has been closed itself, as a click on an ordinary
// item does. `cause` is the menuAction() of the submenu. Closing may delete anything.
void closeMenusAbove(QPointer<QAction> cause);

} // namespace zenu
