#include "examples/gallery/Page.h"
#include "examples/gallery/support/Popups.h"

#include <zenu/widgets/KColorPopup.h>

#include <QLabel>
#include <QVBoxLayout>

namespace gallery {

namespace {

// [code]
constexpr unsigned int colors[] = {
    0x7f0000, 0xc83c32, 0xd79628, 0xe6d250, 0x3c8c50, 0x1e6e6e, //
    0x00007f, 0x3c5ac8, 0x783ca0, 0xc85096, 0x6e5032, 0x505050,
};

class Picker : public QWidget
{
public:
    Picker()
        : m_popup(2, 6, colors, QColor(0, 0, 127))
    {
        connect(&m_popup, &zenu::KColorPopup::colorSelected, this, &Picker::pick);
        pick(m_popup.getDefaultColor());
        auto * const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&m_told);
        layout->addWidget(new OpenButton(tr("Pick a colour"), m_popup));
        layout->addStretch();
    }

private:
    void pick(QColor const & color)
    {
        m_popup.setCurrentColor(color);
        m_told.setText(tr("The colour is %1").arg(color.name()));
    }

    zenu::KColorPopup m_popup;
    QLabel m_told;
};
// [code]

QWidget * makePicker()
{
    return new Picker;
}

} // namespace

Page colorPopupPage()
{
    return {"ColorPopup",
            "A menu of colours, with a default one and a way to all others.",
            {"KColorPopup"},
            makePicker};
}

} // namespace gallery
