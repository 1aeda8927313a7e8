#include "examples/gallery/Page.h"

#include <zenu/widgets/Cursors.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

namespace gallery {

namespace {

QString cursorName()
{
    QCursor const * const cursor = QApplication::overrideCursor();
    return cursor == nullptr                   ? QStringLiteral("that of the widget")
           : cursor->shape() == Qt::WaitCursor ? QStringLiteral("the wait cursor")
                                               : QStringLiteral("another one");
}

QWidget * makeCursors()
{
    auto * const page = new QWidget;
    auto * const told = new QLabel;
    auto * const button = new QPushButton(QStringLiteral("Work for a second"));
    button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    // [code]
    auto const work = [told](unsigned long milliseconds) {
        zenu::KWaitCursor const wait;
        told->setText(QStringLiteral("While it works the cursor is %1.").arg(cursorName()));
        QThread::msleep(milliseconds);
    };
    // [code]
    work(0);
    QObject::connect(button, &QPushButton::clicked, page, [work] { work(1000); });
    auto * const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(button);
    layout->addWidget(told);
    return page;
}

} // namespace

Page cursorsPage()
{
    return {"Cursors",
            "A wait cursor over the whole application for as long as a guard lives.",
            {"KWaitCursor"},
            makeCursors};
}

} // namespace gallery
