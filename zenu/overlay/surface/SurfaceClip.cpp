#include "zenu/overlay/surface/SurfaceClip.h"

#include <QtGui/QRegion>
#include <QtWidgets/QWidget>

namespace zenu {

namespace {

QRegion shapeOf(QWidget const & widget)
{
    QRegion const mask = widget.mask();
    return mask.isEmpty() ? QRegion(widget.rect()) : mask & widget.rect();
}

// Children are listed from the bottom to the top of the stack; null stands for below all of them.
QRegion shapeOfChildrenAbove(QWidget const & parent, QWidget const * below)
{
    QRegion covered;
    bool above = !below;
    for (QObject const * object : parent.children()) {
        auto const * const child = qobject_cast<QWidget const *>(object);
        if (child == below && below)
            above = true;
        else if (above && child && !child->isWindow() && child->isVisible())
            covered += shapeOf(*child).translated(child->pos());
    }
    return covered;
}

} // namespace

QRegion surfaceClip(QWidget const & host)
{
    QRegion clip = shapeOf(host) - shapeOfChildrenAbove(host, nullptr);
    QPoint origin; // of the host in the widget looked at
    for (QWidget const * widget = &host; !widget->isWindow() && widget->parentWidget();
         widget = widget->parentWidget()) {
        QWidget const & parent = *widget->parentWidget();
        origin += widget->pos();
        clip &= shapeOf(parent).translated(-origin);
        clip -= shapeOfChildrenAbove(parent, widget).translated(-origin);
    }
    return clip;
}

} // namespace zenu
