#pragma once

#include "zenu/widgets/KColorButton.h"
#include "zenu/widgets/KColorPopup.h"

#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtGui/QAction>

#include <algorithm>
#include <vector>

namespace zenu {

struct KColorPopup::PrivateData
{
    PrivateData(int rowCount, int columnCount, unsigned int const * table)
        : rows(table && columnCount > 0 ? std::max(rowCount, 0) : 0)
        , columns(rows > 0 ? columnCount : 0)
        , colors(table)
    {
    }

    int rows;
    int columns;
    bool menuFadeEffect = false; // as it was before the popup was shown, if fadeIsOff
    bool fadeIsOff = false;
    // An application may remove entries, as from any menu.
    QPointer<QWidget> grid;
    QPointer<KColorButton> defaultButton;
    QPointer<KColorButton> otherButton;
    std::vector<KColorButton *> buttons; // children of the grid
    QColor defaultColor;
    QColor currentColor;
    unsigned int const * colors;

    // The menu's own current action and the button that looks hovered go together. The grid is one
    // action; which swatch of it is meant, only the button says.
    QAction * actionOf(KColorButton const * button) const;
    bool isEntry(QAction const * action) const;
    int indexInGrid(KColorButton const * button) const;

    QPointer<QAction> defaultAction;
    QPointer<QAction> gridAction;
    QPointer<QAction> otherAction;
    QPointer<KColorButton> lit;
    int column = 0;         // where the keyboard enters the grid
    bool fromBelow = false; // and from where
    QPoint openedAt;        // where the mouse was then, on the screen
};

} // namespace zenu
