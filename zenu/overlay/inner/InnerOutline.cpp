#include "zenu/overlay/inner/InnerOutline.h"

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QRect>

namespace zenu {

void drawInnerOutline(QPainter * painter, QRect const & rect, QColor const & color)
{
    if (rect.isEmpty())
        return;
    QBrush const brush(color);
    painter->fillRect(rect.left(), rect.top(), rect.width(), 1, brush);
    if (rect.height() > 1)
        painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, brush);
    int const sideHeight = rect.height() - 2;
    if (sideHeight > 0) {
        painter->fillRect(rect.left(), rect.top() + 1, 1, sideHeight, brush);
        if (rect.width() > 1)
            painter->fillRect(rect.right(), rect.top() + 1, 1, sideHeight, brush);
    }
}

} // namespace zenu
