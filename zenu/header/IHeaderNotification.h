#pragma once

#include "zenu/ZenuExport.h"

class QRect;

namespace zenu {

class KPainter;

/// What a KHeader reports to its client. Every operation may be left out. The object belongs to the
/// client; it is set with KHeader::setNotification, and reset with null before it dies. Items are
/// named by their index in order of insertion, widths are logical pixels. An operation may change
/// or delete items and replace or delete the notification. It may also delete the header, but not
/// in `onFocusIn`, `onFocusOut` and `onDrawItem`: Qt itself goes on with the widget there, so
/// deleteLater is the way.
class ZENU_EXPORT IHeaderNotification
{
public:
    IHeaderNotification() = default;
    virtual ~IHeaderNotification();

    /// The left button was pressed anywhere on the header; comes before anything else.
    virtual void onLeftButtonDown() {}

    /// The right button was pressed anywhere on the header; comes before anything else.
    virtual void onRightButtonDown() {}

    /// A double click anywhere on the header; comes before anything else.
    virtual void onDoubleClick() {}

    /// A divider was pressed. `wh` points to the item's width. True refuses the drag.
    virtual bool onBeginTrack(int item, int * wh);

    /// The mouse moved during a divider drag. `wh` points to the width that the drag asks for. True
    /// cancels the drag and gives the item the width back that it had when the drag began.
    virtual bool onTrack(int item, int * wh);

    /// The header lost the focus after a press on an item's body. `wh` points to the width that was
    /// saved at the last press on a divider. The result is ignored.
    virtual bool onEndTrack(int item, int * wh);

    /// The left button was pressed on an item's body, in button mode only.
    virtual void onItemClick(int item);

    /// The right button was pressed on an item's body.
    virtual void onItemRightClick(int item);

    /// A double click on an item's body, in button mode only.
    virtual void onItemDoubleClick(int item);

    /// A double click on the divider of an item.
    virtual void onDividerDoubleClick(int item);

    /// The header gained or lost the keyboard focus.
    virtual void onFocusIn() {}
    virtual void onFocusOut() {}

    /// An item with HeaderFormatOwnerDraw is to be painted into `rect`. Nothing else paints it. The
    /// painter's state is restored afterwards.
    virtual void onDrawItem(KPainter * painter, int index, QRect * rect, bool pressed,
                            unsigned int lParam);

protected:
    IHeaderNotification(IHeaderNotification const &) = default;
    IHeaderNotification & operator=(IHeaderNotification const &) = default;
};

} // namespace zenu
