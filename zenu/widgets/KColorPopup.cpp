#include "zenu/widgets/KColorPopup.h"

#include "zenu/widgets/KColorButton.h"
#include "zenu/widgets/inner/GridWalk.h"
#include "zenu/widgets/inner/StandardColors.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QStyleOptionMenuItem>
#include <QtWidgets/QWidgetAction>

#include <algorithm>
#include <utility>
#include <vector>

namespace zenu {

namespace {

constexpr QSize swatchSize(12, 12);
constexpr int entryMargin = 2;
constexpr int gridMargin = 1;
constexpr int defaultSpacing = 4;

KColorButton * makeEntry(QString const & text)
{
    auto * const button = new KColorButton;
    button->setText(text);
    button->setMargin(entryMargin);
    button->setAutoRaise(true);
    button->setFrame(true);
    return button;
}

KColorButton * makeDefaultEntry(QColor const & color)
{
    KColorButton * const button = makeEntry(QCoreApplication::translate("", "Default"));
    button->setMinColorSize(swatchSize);
    button->setMaxColorSize(swatchSize);
    button->setTextColorSpacing(defaultSpacing);
    button->setFillColor(color);
    return button;
}

KColorButton * makeSwatch(QWidget * parent, QColor const & color)
{
    auto * const button = new KColorButton(parent);
    button->setMinColorSize(swatchSize);
    button->setMaxColorSize(swatchSize);
    button->setMargin(gridMargin);
    button->setAutoRaise(true);
    button->setFillColor(color);
    button->setAccessibleName(color.name());
    return button;
}

} // namespace

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
    int column = 0; // where the keyboard enters the grid
    bool fromBelow = false;
};

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

KColorPopup::KColorPopup()
    : KColorPopup(standardRows, standardColumns, standardColors.data(), QColor(standardColors[0]))
{
}

KColorPopup::KColorPopup(int rows, int columns, unsigned int const * colors,
                         QColor const & defaultColor)
    : KColorPopup(rows, columns, colors, defaultColor, QColor())
{
}

KColorPopup::KColorPopup(int rows, int columns, unsigned int const * colors,
                         QColor const & defaultColor, QColor const & currentColor)
    : d(std::make_unique<PrivateData>(rows, columns, colors))
{
    d->defaultColor = defaultColor;
    d->currentColor = currentColor;
    d->defaultButton = makeDefaultEntry(defaultColor);
    d->otherButton = makeEntry(QCoreApplication::translate("", "Other"));
    makeGrid();

    d->defaultAction = addEntry(d->defaultButton);
    d->gridAction = addEntry(d->grid);
    d->gridAction->setVisible(!d->buttons.empty());
    d->otherAction = addEntry(d->otherButton);

    connect(d->defaultButton, &QAbstractButton::clicked, this, &KColorPopup::defaultSel);
    connect(d->otherButton, &QAbstractButton::clicked, this, &KColorPopup::otherSel);
    connect(this, &QMenu::aboutToShow, this, &KColorPopup::beforeShow);
    connect(this, &QMenu::aboutToHide, this, &KColorPopup::beforeHide);
    connect(this, &QMenu::hovered, this, &KColorPopup::lightEntryOf);
}

KColorPopup::~KColorPopup()
{
    restoreFadeEffect();
    light(nullptr);
    delete d->grid;
}

void KColorPopup::makeGrid()
{
    d->grid = new QWidget;
    auto * const layout = new QGridLayout(d->grid);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int row = 0; row < d->rows; ++row) {
        for (int column = 0; column < d->columns; ++column) {
            int const index = int(d->buttons.size());
            KColorButton * const button = makeSwatch(d->grid, QColor(d->colors[index]));
            layout->addWidget(button, row, column);
            button->installEventFilter(this);
            // Not a signal mapper: it would not survive a slot that deletes the popup.
            connect(button, &QAbstractButton::clicked, this, [this, index] { colorSel(index); });
            d->buttons.push_back(button);
        }
    }
}

// The text of the action is never drawn: it is for who looks at the actions.
QAction * KColorPopup::addEntry(QWidget * widget)
{
    auto * const action = new QWidgetAction(this);
    action->setDefaultWidget(widget);
    if (auto const * const button = qobject_cast<KColorButton *>(widget)) {
        action->setText(button->text());
        widget->installEventFilter(this);
    }
    addAction(action);
    return action;
}

void KColorPopup::setDefaultColor(QColor const & color)
{
    d->defaultColor = color;
}

QColor const & KColorPopup::getDefaultColor() const
{
    return d->defaultColor;
}

void KColorPopup::setCurrentColor(QColor const & color)
{
    d->currentColor = color;
}

QColor const & KColorPopup::getCurrentColor() const
{
    return d->currentColor;
}

void KColorPopup::colorSel(int index)
{
    if (index < 0 || index >= int(d->buttons.size()))
        return;
    if (closeWithCauses())
        Q_EMIT colorSelected(QColor(d->colors[index]));
}

void KColorPopup::defaultSel()
{
    if (closeWithCauses())
        Q_EMIT colorSelected(d->defaultColor);
}

void KColorPopup::otherSel()
{
    if (!closeWithCauses())
        return;
    QColor const start = d->currentColor.isValid() ? QColor(d->currentColor.rgb()) : Qt::white;
    QPointer<KColorPopup> const self(this);
    QColor const picked = QColorDialog::getColor(start);
    if (self && picked.isValid())
        Q_EMIT colorSelected(picked);
}

// Closes the popup, and the menus that it is a submenu of, as a click on an ordinary item does.
// False if that deleted the popup.
bool KColorPopup::closeWithCauses()
{
    QPointer<KColorPopup> const self(this);
    QPointer<QAction> cause = menuAction();
    close();
    while (cause) {
        auto * const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu || menu->activeAction() != cause)
            break;
        cause = menu->menuAction();
        if (!menu->close())
            break;
    }
    return self;
}

// A fading popup would show its buttons as they were.
void KColorPopup::beforeShow()
{
    if (!d->fadeIsOff) {
        d->menuFadeEffect = QApplication::isEffectEnabled(Qt::UI_FadeMenu);
        d->fadeIsOff = true;
    }
    QApplication::setEffectEnabled(Qt::UI_FadeMenu, false);
    if (d->defaultButton)
        d->defaultButton->setFillColor(d->defaultColor);
}

void KColorPopup::beforeHide()
{
    restoreFadeEffect();
    light(nullptr);
    d->column = 0;
}

void KColorPopup::restoreFadeEffect()
{
    if (std::exchange(d->fadeIsOff, false))
        QApplication::setEffectEnabled(Qt::UI_FadeMenu, d->menuFadeEffect);
}

// The mouse makes the button under it the current one.
bool KColorPopup::eventFilter(QObject * watched, QEvent * event)
{
    auto * const button = qobject_cast<KColorButton *>(watched);
    if (!button)
        return QMenu::eventFilter(watched, event);
    if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
        light(button);
        setActiveAction(d->actionOf(button));
    } else if (event->type() == QEvent::Leave && d->lit == button) {
        light(nullptr);
        setActiveAction(nullptr);
    }
    return QMenu::eventFilter(watched, event);
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
