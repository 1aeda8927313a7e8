#include "examples/gallery/Page.h"

#include <zenu/widgets/KValueButton.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>

namespace gallery {

namespace {

QWidget * makeValues()
{
    // [code]
    auto * const page = new QWidget;
    auto * const layout = new QHBoxLayout(page);
    auto * const told = new QLabel(QStringLiteral("Z is on"));
    for (char const value : {'0', '1', 'X', 'Z'}) {
        auto * const button = new zenu::KValueButton(QLatin1Char(value));
        button->setChecked(value == 'Z');
        QObject::connect(button, &QAbstractButton::toggled, told, [=](bool on) {
            told->setText(QStringLiteral("%1 is %2")
                              .arg(QLatin1Char(value))
                              .arg(on ? QLatin1String("on") : QLatin1String("off")));
        });
        layout->addWidget(button);
    }
    layout->addWidget(told, 1);
    // [code]
    layout->setContentsMargins(0, 0, 0, 0);
    return page;
}

} // namespace

Page valueButtonPage()
{
    return {"ValueButton",
            "Tiny buttons with one character, which look the same under every style.",
            {"KValueButton"},
            makeValues};
}

} // namespace gallery
