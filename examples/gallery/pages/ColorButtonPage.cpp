#include "examples/gallery/Page.h"

#include <zenu/widgets/KColorButton.h>
#include <zenu/widgets/KColorPopup.h>

#include <QFormLayout>

namespace gallery {

namespace {

// [code]
class Buttons : public QWidget
{
public:
    Buttons()
        : m_form(this)
    {
        connect(&m_popup, &zenu::KColorPopup::colorSelected, this,
                [this](QColor const & color) { m_swatch->setFillColor(color); });

        m_swatch = add(tr("A swatch with an arrow part"));
        m_swatch->setMinColorSize(QSize(40, 16));
        m_swatch->setMaxColorSize(QSize(40, 16));
        m_swatch->setFillColor(QColor(60, 140, 80));
        m_swatch->setBorderColor(Qt::black);
        m_swatch->setPopup(&m_popup);
        m_swatch->setPopupDelay(0);

        zenu::KColorButton * const both = add(tr("Swatch and text, in a frame"));
        both->setMinColorSize(QSize(16, 16));
        both->setMaxColorSize(QSize(16, 16));
        both->setFillColor(QColor(200, 60, 50));
        both->setText(tr("Red"));
        both->setFrame(true);

        add(tr("Text alone, flat until hovered"))->setTextNoColor(tr("Automatic"));
        m_last->setAutoRaise(true);

        add(tr("An arrow that opens the menu"))->setArrow(Qt::DownArrow);
        m_last->setPopup(&m_popup);

        add(tr("On and off"))->setTextNoColor(tr("On"));
        m_last->setToggleButton(true);
        m_last->setOn(true);
    }

private:
    zenu::KColorButton * add(QString const & label)
    {
        m_last = new zenu::KColorButton;
        m_last->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        m_form.addRow(label, m_last);
        return m_last;
    }

    QFormLayout m_form;
    zenu::KColorPopup m_popup;
    zenu::KColorButton * m_swatch = nullptr;
    zenu::KColorButton * m_last = nullptr;
};
// [code]

QWidget * makeButtons()
{
    auto * const page = new Buttons;
    page->layout()->setContentsMargins(0, 0, 0, 0);
    return page;
}

} // namespace

Page colorButtonPage()
{
    return {"ColorButton",
            "A button with a swatch, a text or an arrow, and a menu if it has one.",
            {"KColorButton"},
            makeButtons};
}

} // namespace gallery
