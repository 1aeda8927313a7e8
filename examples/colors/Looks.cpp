#include "Looks.h"

#include <zenu/widgets/KColorButton.h>
#include <zenu/widgets/KValueButton.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>

using zenu::KColorButton;
using zenu::KValueButton;

namespace {

constexpr QSize swatch(24, 12);

void giveSwatch(KColorButton * button, QColor const & color)
{
    button->setMinColorSize(swatch);
    button->setMaxColorSize(swatch);
    button->setFillColor(color);
}

} // namespace

Looks::Looks()
    : m_popup(std::make_unique<zenu::KColorPopup>())
    , m_picked(new QLabel(tr("Nothing picked yet.")))
{
    setWindowTitle(tr("Colours"));
    auto * const sides = new QHBoxLayout(this);
    auto * const left = new QWidget;
    m_grid = new QGridLayout(left);
    sides->addWidget(left, 1);
    addSwatches();
    addTexts();
    addPopups();
    addToggles();
    addToolBar(Qt::Horizontal);
    addToolBar(Qt::Vertical);
    m_grid->addWidget(m_picked, m_grid->rowCount(), 0, 1, 2);
    connect(m_popup.get(), &zenu::KColorPopup::colorSelected, this, &Looks::showPick);
}

KColorButton * Looks::add(QString const & what)
{
    int const row = m_grid->rowCount();
    auto * const button = new KColorButton;
    m_grid->addWidget(button, row, 0, Qt::AlignLeft | Qt::AlignVCenter);
    m_grid->addWidget(new QLabel(what), row, 1);
    return button;
}

void Looks::addSwatches()
{
    giveSwatch(add(tr("a swatch of 24 x 12")), QColor(0x33, 0x66, 0xff));
    KColorButton * const framed = add(tr("a swatch with a frame, margin 6"));
    giveSwatch(framed, QColor(0xff, 0x9e, 0x00));
    framed->setFrame(true);
    framed->setMargin(6);
    KColorButton * const border = add(tr("a border of its own, flat until hovered"));
    giveSwatch(border, Qt::white);
    border->setBorderColor(Qt::red);
    border->setAutoRaise(true);
}

void Looks::addTexts()
{
    KColorButton * const both = add(tr("swatch and text"));
    giveSwatch(both, QColor(0x31, 0x96, 0x63));
    both->setText(tr("Foreground"));
    KColorButton * const text = add(tr("a text alone, disabled"));
    text->setTextNoColor(tr("Nothing"));
    text->setEnabled(false);
    KColorButton * const arrow = add(tr("the arrow alone"));
    arrow->setArrow(Qt::DownArrow);
}

void Looks::addPopups()
{
    m_main = add(tr("swatch and arrow; hold it for the popup"));
    giveSwatch(m_main, Qt::black);
    m_main->setArrow(Qt::DownArrow);
    m_main->setPopup(m_popup.get());
    KColorButton * const parts = add(tr("a separate arrow part"));
    giveSwatch(parts, QColor(0x9c, 0x34, 0x63));
    parts->setText(tr("Lines"));
    parts->setPopup(m_popup.get());
    parts->setPopupDelay(0);
}

void Looks::addToggles()
{
    KColorButton * const on = add(tr("a toggle button that is on"));
    giveSwatch(on, QColor(0xff, 0xcf, 0x00));
    on->setToggleButton(true);
    on->setOn(true);
    auto * const values = new QWidget;
    auto * const row = new QHBoxLayout(values);
    row->setContentsMargins(0, 0, 0, 0);
    auto * const high = new KValueButton(QLatin1Char('1'), values);
    high->setChecked(true);
    row->addWidget(high);
    row->addWidget(new KValueButton(QLatin1Char('0'), values));
    int const at = m_grid->rowCount();
    m_grid->addWidget(values, at, 0, Qt::AlignLeft);
    m_grid->addWidget(new QLabel(tr("two value buttons, the first one on")), at, 1);
}

void Looks::addToolBar(Qt::Orientation orientation)
{
    auto * const bar = new QToolBar;
    bar->setOrientation(orientation);
    for (QColor const & color : {QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)}) {
        auto * const button = new KColorButton(bar);
        giveSwatch(button, color);
        button->setPopup(m_popup.get());
        button->setPopupDelay(color == QColor(Qt::red) ? 0 : -1);
        bar->addWidget(button);
    }
    if (orientation == Qt::Horizontal)
        m_grid->addWidget(bar, m_grid->rowCount(), 0, 1, 2);
    else
        layout()->addWidget(bar);
}

void Looks::showPick(QColor const & picked)
{
    m_picked->setText(tr("Picked %1").arg(picked.name()));
    m_main->setFillColor(picked);
    m_popup->setCurrentColor(picked);
}
