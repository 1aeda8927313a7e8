#include "zenu/grid/geometry/HitElement.h"

#include "zenu/grid/geometry/CElementRects.h"

#include <QPoint>

namespace zenu {

GCElement hitElement(CElementRects const & rects, QPoint const & point)
{
    struct Candidate
    {
        QRect const * rect;
        GCElement element;
    };
    Candidate const candidates[] = {
        {&rects.indentRect, GCEL_INDENT}, {&rects.buttonRect, GCEL_BUTTON},
        {&rects.imageRect, GCEL_IMAGE},   {&rects.textRect, GCEL_TEXT},
        {&rects.checkRect, GCEL_CHECK},   {&rects.leadRect, GCEL_LEAD},
    };
    for (Candidate const & candidate : candidates) {
        if (candidate.rect->contains(point)) {
            return candidate.element;
        }
    }
    return GCEL_CELL;
}

} // namespace zenu
