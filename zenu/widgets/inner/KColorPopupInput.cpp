#include "zenu/widgets/inner/GridWalk.h"
#include "zenu/widgets/inner/KColorPopupPrivate.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOptionMenuItem>

namespace zenu {

QAction * KColorPopup::PrivateData::actionOf(KColorButton const * button) const
{
    if (!button)
        return nullptr;
    if (button == defaultButton)
        return defaultAction;
    return button == otherButton ? otherAction : gridAction;
}

bool KColorPopup::PrivateData::isEntry(QAction const * action) const
{
    return action && (action == defaultAction || action == gridAction || action == otherAction);
}

int KColorPopup::PrivateData::indexInGrid(KColorButton const * button) const
{
    auto const found = std::find(buttons.begin(), buttons.end(), button);
    return found == buttons.end() ? -1 : int(found - buttons.begin());
}

// The mouse makes the button under it the current one. A button that is pressed gets the moves
// over the others as well.
bool KColorPopup::eventFilter(QObject * watched, QEvent * event)
{
    auto * const button = qobject_cast<KColorButton *>(watched);
    if (!button)
        return QMenu::eventFilter(watched, event);
    if (event->type() == QEvent::Enter)
        makeCurrent(button);
    else if (event->type() == QEvent::MouseMove)
        makeCurrent(buttonAt(static_cast<QMouseEvent *>(event)->globalPosition().toPoint()));
    else if (event->type() == QEvent::Leave && d->lit == button)
        makeCurrent(nullptr);
    return QMenu::eventFilter(watched, event);
}

KColorButton * KColorPopup::buttonAt(QPoint const & global) const
{
    return qobject_cast<KColorButton *>(childAt(mapFromGlobal(global)));
}

bool KColorPopup::isOverEntry(QMouseEvent const & event) const
{
    return d->isEntry(actionAt(event.position().toPoint()));
}

void KColorPopup::makeCurrent(KColorButton * button)
{
    light(button);
    setActiveAction(d->actionOf(button));
}

// Over its own entries the popup gets what the buttons leave. Nothing of it goes on to the menu,
// which would take the entry for an ordinary one and close without a pick.
void KColorPopup::mousePressEvent(QMouseEvent * event)
{
    if (!isOverEntry(*event))
        QMenu::mousePressEvent(event);
}

void KColorPopup::mouseMoveEvent(QMouseEvent * event)
{
    if (!isOverEntry(*event))
        QMenu::mouseMoveEvent(event);
}

// The end of a drag over a button picks, as in any menu: of the press that opened the popup, or of
// one on another button. The press alone is no drag.
void KColorPopup::mouseReleaseEvent(QMouseEvent * event)
{
    if (!isOverEntry(*event)) {
        QMenu::mouseReleaseEvent(event);
        return;
    }
    QPoint const global = event->globalPosition().toPoint();
    KColorButton * const button = buttonAt(global);
    bool const dragged =
        (global - d->openedAt).manhattanLength() >= QApplication::startDragDistance();
    if (button && dragged && event->button() == Qt::LeftButton)
        button->click();
}

void KColorPopup::light(KColorButton * button)
{
    if (d->lit == button)
        return;
    if (d->lit)
        d->lit->setHovering(false);
    d->lit = button;
    if (button)
        button->setHovering(true);
    if (int const index = d->indexInGrid(button); index >= 0)
        d->column = index % d->columns;
}

// The menu has made `action` the current one.
void KColorPopup::lightEntryOf(QAction * action)
{
    if (d->lit && action == d->actionOf(d->lit))
        return;
    if (action == d->gridAction && !d->buttons.empty())
        light(
            d->buttons[size_t(d->fromBelow ? (d->rows - 1) * d->columns : 0) + size_t(d->column)]);
    else if (action == d->defaultAction)
        light(d->defaultButton);
    else
        light(action == d->otherAction ? d->otherButton : nullptr);
}

// Arrow keys walk the grid before they walk the menu.
void KColorPopup::keyPressEvent(QKeyEvent * event)
{
    int const key = event->key();
    if (d->lit && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)) {
        event->accept();
        d->lit->click();
        return;
    }
    int const next = gridWalk(d->indexInGrid(d->lit), key, d->rows, d->columns, isRightToLeft());
    if (next >= 0) {
        event->accept();
        light(d->buttons[size_t(next)]);
        return;
    }
    // The menu forgets its current action when the mouse leaves it, also where the keyboard has
    // moved on.
    if (d->lit && activeAction() != d->actionOf(d->lit))
        setActiveAction(d->actionOf(d->lit));
    d->fromBelow = key == Qt::Key_Up || key == Qt::Key_Backtab;
    QMenu::keyPressEvent(event);
}

// The entries show themselves which one is the current one.
void KColorPopup::initStyleOption(QStyleOptionMenuItem * option, QAction const * action) const
{
    QMenu::initStyleOption(option, action);
    if (d->isEntry(action)) {
        option->state &= ~QStyle::State_Selected;
        option->text.clear();
    }
}

} // namespace zenu
