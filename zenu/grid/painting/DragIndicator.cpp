#include "zenu/grid/painting/DragIndicator.h"

#include "zenu/grid/look/KGridImages.h"
#include "zenu/overlay/surface/WidgetSurface.h"

#include <QPixmap>
#include <QWidget>

namespace zenu {

namespace {

constexpr int above = 5; // pixels of the mark above its line
constexpr int barHeight = 3;
constexpr int barMargin = DragIndicator::arrowWidth + 1;

QRect markRect(int y, int width)
{
    return {0, y - above, width, DragIndicator::height};
}

void drawArrow(WidgetSurface & surface, QPixmap const & arrow, QPoint const & at)
{
    QRect const place(at, QSize(DragIndicator::arrowWidth, DragIndicator::height));
    surface.blend(arrow.scaled(surface.device(place).size()), place);
}

} // namespace

void DragIndicator::draw(QWidget * host, int y, int markWidth)
{
    QRect const mark = markRect(y, markWidth);
    drawnWidth = markWidth;
    saved = QImage();
    WidgetSurface surface(host);
    if (surface.target() != WidgetSurface::Target::Screen || !surface.begin(mark)) {
        return;
    }
    saved = surface.copy(mark);
    surface.flip(QRect(barMargin, y - 1, markWidth - 2 * barMargin, barHeight), Qt::white,
                 Qt::black);
    drawArrow(surface, makeRightArrow(), mark.topLeft());
    drawArrow(surface, makeLeftArrow(), QPoint(markWidth - arrowWidth, mark.top()));
    surface.end();
}

void DragIndicator::erase(QWidget * host, int y)
{
    QRect const mark = markRect(y, drawnWidth);
    WidgetSurface surface(host);
    if (!saved.isNull() && surface.target() == WidgetSurface::Target::Screen &&
        surface.device(mark).size() == saved.size() && surface.begin(mark)) {
        surface.put(saved, QPoint(), mark);
        surface.end();
    }
    saved = QImage();
    host->update(mark);
}

} // namespace zenu
