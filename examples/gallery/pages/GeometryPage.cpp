#include "examples/gallery/Page.h"
#include "examples/gallery/support/ValueGrid.h"

#include <zenu/overlay/Geometry.h>

#include <QCursor>
#include <QFont>

namespace gallery {

namespace {

QWidget * makeGeometry()
{
    auto * const values = new ValueGrid;
    // [code]
    QRect frame(10, 10, 100, 50);
    values->add(SHOW(zenu::ptInRect(frame, QPoint(110, 20))));
    values->add(SHOW(zenu::ptInRect(frame, QPoint(111, 20))));
    zenu::inflateRect(&frame, 5, 1);
    values->add(SHOW(frame));

    QWidget window;
    QWidget part(&window);
    part.move(30, 40);
    values->add(SHOW(zenu::remapPoint(&part, &window, QPoint(1, 2))));
    values->add(SHOW(zenu::remapRect(&window, &part, QRect(30, 40, 8, 8))));
    values->add(SHOW(zenu::scaledRect(10, 10, 100, 50)));
    zenu::scaledResize(&window, 300, 200);
    values->add(SHOW(window.size()));
    values->add(SHOW(zenu::cursorsDifferent(Qt::ArrowCursor, Qt::WaitCursor)));
    // [code]
    return values;
}

} // namespace

Page geometryPage()
{
    return {"Geometry",
            "Rectangles, places of one widget in another, and sizes that follow the font.",
            {"Geometry.h"},
            makeGeometry};
}

} // namespace gallery
