#include "examples/gallery/Page.h"

#include <zenu/overlay/NarrowText.h>
#include <zenu/time/KTimeBox.h>
#include <zenu/time/KTimeEdit.h>

#include <QFormLayout>
#include <QLabel>

namespace gallery {

namespace {

QWidget * makeTimes()
{
    // [code]
    auto * const page = new QWidget;
    auto * const form = new QFormLayout(page);
    auto * const box = new zenu::KTimeBox;
    auto * const edit = new zenu::KTimeEdit;
    auto * const told = new QLabel;
    form->addRow(QStringLiteral("KTimeBox"), box);
    form->addRow(QStringLiteral("KTimeEdit"), edit);
    form->addRow(told);

    box->setValue(zenu::TimeValue(1.5, zenu::TimeUnit::ms, 1.0));
    edit->setUnit(zenu::TimeUnit::us);
    edit->setSigned(true);
    auto const add = [=] {
        zenu::TimeValue sum = box->getValue();
        sum += edit->getValue();
        told->setText(QStringLiteral("Together: ") +
                      zenu::chars2qstring(sum.str(3, false).c_str()));
    };
    edit->setValue(zenu::TimeValue(-250, zenu::TimeUnit::us, 1.0));
    QObject::connect(box, &zenu::KTimeBox::timeChanged, page, add);
    QObject::connect(edit, &zenu::KTimeEdit::timeChanged, page, add);
    add();
    // [code]
    form->setContentsMargins(0, 0, 0, 0);
    return page;
}

} // namespace

Page timeBoxPage()
{
    return {"TimeBox",
            "Fields for times with units: type, or step with arrows, keys and wheel in the box.",
            {"KTimeBox", "KTimeEdit"},
            makeTimes};
}

} // namespace gallery
