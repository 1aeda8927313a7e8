#include "zenu/widgets/inner/MenuChain.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

namespace zenu {

void closeMenusAbove(QPointer<QAction> cause)
{
    while (cause) {
        auto * const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu || menu->activeAction() != cause)
            return;
        cause = menu->menuAction();
        if (!menu->close())
            return;
    }
}

} // namespace zenu
