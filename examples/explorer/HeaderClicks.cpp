#include "examples/explorer/HeaderClicks.h"

#include <zenu/header/KHeader.h>

#include <QMouseEvent>

#include <utility>

namespace explorer {

HeaderClicks::HeaderClicks(zenu::KHeader * watchedHeader)
    : QObject(watchedHeader)
    , header(watchedHeader)
{
    header->installEventFilter(this);
}

// -1 on dividers and beside all items.
int HeaderClicks::itemAt(QPoint const & point) const
{
    zenu::KHeaderHitInfo const hit = header->hitTest(point);
    bool const onBody = !hit.onDivider && !hit.onDividerNoWidth && hit.outside == 0;
    return onBody ? hit.item : -1;
}

// The second press of a double click is a press like others: each click turns the order once.
bool HeaderClicks::eventFilter(QObject * object, QEvent * event)
{
    bool const isDouble = event->type() == QEvent::MouseButtonDblClick;
    bool const isPress = isDouble || event->type() == QEvent::MouseButtonPress;
    if (isPress || event->type() == QEvent::MouseButtonRelease) {
        auto const & mouse = *static_cast<QMouseEvent *>(event);
        QPoint const point = mouse.position().toPoint();
        int const item = mouse.button() == Qt::LeftButton ? itemAt(point) : -1;
        int const before = std::exchange(pressedItem, isPress ? item : -1);
        if (!isPress && item != -1 && item == before) {
            Q_EMIT clicked(item);
        }
        if (isDouble && item == -1 && header->hitTest(point).onDivider) {
            Q_EMIT dividerDoubleClicked(header->hitTest(point).item);
        }
    }
    return QObject::eventFilter(object, event);
}

} // namespace explorer
