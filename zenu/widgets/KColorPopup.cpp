#include "zenu/widgets/KColorPopup.h"

#include "zenu/widgets/KColorButton.h"
#include "zenu/widgets/inner/KColorPopupPrivate.h"
#include "zenu/widgets/inner/MenuChain.h"
#include "zenu/widgets/inner/StandardColors.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QWidgetAction>

#include <utility>

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
    QPointer<QAction> const cause = menuAction();
    close();
    closeMenusAbove(cause);
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
    d->openedAt = QCursor::pos();
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

} // namespace zenu
