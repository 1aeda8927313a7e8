#pragma once

#include "zenu/ZenuExport.h"

#include <QtWidgets/QMenu>

#include <memory>

namespace zenu {

/// A menu with a grid of little pages, from which the user picks how many pages down and across:
/// moving the mouse selects the pages from the left top corner to the mouse, a press picks them.
/// Arrow keys and Return do the same. A line of text below the grid says what is selected.
///
/// It is shown as any menu, with popup, exec or QToolButton::setMenu, and may be shown again: the
/// last selection stands until the mouse moves. Whoever made it deletes it.
class ZENU_EXPORT KPageSelector : public QMenu
{
    Q_OBJECT
public:
    /// A grid of `rows` by `columns` pages; a negative number stands for 0. The menu has no parent,
    /// `parent` is ignored.
    KPageSelector(QWidget * parent, int rows, int columns);
    ~KPageSelector() override;

    /// The object itself, for connecting.
    QObject * qObject() { return this; }

    /// The fixed size of the menu: that of the grid and (6, 35).
    QSize sizeHint() const override;

    /// Handles the presses, moves and painting of the grid, and lets everything else pass.
    bool eventFilter(QObject * watched, QEvent * event) override;

Q_SIGNALS:
    /// Pages were picked; the menu, and the menus that it is a submenu of, hide when all receivers
    /// have returned. They may delete it. The numbers are (0, 0) if nothing has been selected yet.
    /// They can be outside of the grid when the mouse is, with a button held down.
    void pageRangeSelected(int rows, int columns);

protected:
    void changeEvent(QEvent * event) override;
    /// Arrow keys change the selection within the grid, Return picks it once there is one.
    void keyPressEvent(QKeyEvent * event) override;

private:
    struct PrivateData;

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
