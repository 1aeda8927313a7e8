#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/header/KHeaderItem.h"

#include <QColor>
#include <QWidget>

#include <memory>
#include <string>

class QCursor;
class QMouseEvent;
class QPixmap;

namespace zenu {

class IHeaderNotification;
class KPixmapSet;

/// What KHeader::hitTest found.
struct KHeaderHitInfo
{
    int item = -1;                 ///< index of the item, -1 for none
    bool nowhere = false;          ///< inside the header, but on no item
    bool onDivider = false;        ///< on the divider that resizes `item`
    bool onDividerNoWidth = false; ///< the same, where `item` has no width
    short outside = 0;             ///< 0 inside, 1 above, 2 below, 3 right, 4 left of the header
};

/// A strip of resizable items above or beside another widget. It draws its items and the space
/// after them, lets the user drag dividers, sizes items proportionally if asked to, and reports
/// each gesture to an IHeaderNotification. It never moves items and never resizes one on a double
/// click. Its owner places it; getLayout says how high. Items are named by their index in order of
/// insertion; a bad index is ignored, or answered with the failure value. Divider dragging, the
/// size of a proportional header and the sticking last item are meant for horizontal headers. GUI
/// thread only.
class ZENU_EXPORT KHeader : public QWidget
{
    Q_OBJECT

public:
    /// A header without items and without a sink for its notifications.
    explicit KHeader(QWidget * parent = nullptr);
    ~KHeader() override;

    // --- Items

    /// Inserts a copy of `item` at `index`, in order of insertion and on the screen; an index that
    /// is negative or above the count means the end. Always true. Throws what derives from
    /// std::bad_alloc, with nothing changed, when there are KHeaderItemVec::Limit items.
    bool insertItem(int index, KHeaderItem const & item);

    /// Removes an item; false for a bad index.
    bool deleteItem(int index);

    /// Removes all items. Totals and percentages are computed anew with the next item.
    void deleteAllItems();

    /// The item, or null for a bad index; valid until items are inserted or deleted.
    KHeaderItem const * getItem(int index) const;

    /// The number of items.
    int getItemsCount() const;

    /// Tells the header that `item` has changed. Without a change of width it is repainted; after
    /// one the caller repaints, since all items behind it have moved.
    void updateItem(KHeaderItem const & item, bool widthChanged);

    /// True when `index` names an item.
    bool checkItemInternal(int index) const;

    // The setters do nothing for a value that is there already.

    /// Sets the width, or the item's minimum if that is larger. Repaints nothing.
    void setWH(int index, int wh);
    /// Sets the minimum and raises the width to it. Repaints only when the width stays.
    void setMinWH(int index, int minWH);
    /// Sets the title, Latin-1.
    void setText(int index, std::string const & text);
    /// As above; null is the empty text.
    void setText(int index, char const * text);
    /// Sets all bits of EHeaderFormat.
    void setFormat(int index, int fmt);
    /// Sets the two arrow bits of the format, and leaves the others.
    void setSortBitmap(int index, EHeaderSortBitmap sortBitmap);
    /// Sets the application's value.
    void setLParam(int index, unsigned int lParam);
    /// Sets the index in the pixmap set, -1 for none.
    void setImage(int index, int image);
    /// The pixmap stays the caller's.
    void setPixmap(int index, QPixmap * pixmap);
    /// Stores a display position in the item alone: the item is drawn behind as many of the
    /// displayed items, the order array does not change, and the next insertion or deletion sets it
    /// anew.
    void setOrder(int index, int order);

    /// These store the value and repaint nothing.
    void setSizePercent(int index, double percent);
    void setJustify(int index, EHeaderJustify justify);
    void setToolTipText(int index, std::string const & text);
    void setToolTipText(int index, char const * text);

    // --- Geometry and look

    /// The item's rectangle in widget coordinates. Its right edge is left + width, so it is one
    /// pixel wider than the item and shares that pixel with its neighbour. Invalid for a bad index.
    QRect getItemRect(int index) const;
    QRect getItemRect(KHeaderItem const & item) const;

    /// `rect` with the height that the header needs: one and a half times that of its font, or none
    /// when it is hidden.
    QRect getLayout(QRect const & rect) const;

    /// Sets the geometry with its effect on the items at once. On a header that is not shown,
    /// QWidget::setGeometry alone resizes no item before the header is shown.
    void applyGeometry(QRect const & rect);

    /// What lies at `point`, in widget coordinates. Horizontal headers have a divider within four
    /// pixels of each border between items; on its right side it belongs to the item at the left.
    /// The space after the last item belongs to the divider of the item displayed last.
    KHeaderHitInfo hitTest(QPoint const & point) const;

    /// Repaints the item; nothing for a bad index.
    void invalidateItem(int index);
    void invalidateItem(KHeaderItem const & item);

    using QWidget::update;
    /// Repaints all. Qt erases before each repaint, so `erase` changes nothing.
    void update(bool erase);
    void update(QRect const & rect, bool erase);

    using QWidget::setFont;
    /// Sets the font of the titles, and repaints with `repaint`.
    void setFont(QFont const & font, bool repaint);
    /// The font of the titles.
    QFont const & getfont() const;

    /// Sets the colour of the titles and returns the old one. Before the first call it is system
    /// colour 4 of the palette as it is.
    QColor setTextColor(QColor const & color);
    QColor getTextColor() const;

    /// Sets the images that KHeader::setImage counts, not owned, null allowed; returns the old set.
    KPixmapSet * setPixmapSet(KPixmapSet * pixmapSet);
    KPixmapSet * getPixmapSet() const;

    /// The two sort arrows side by side, the upward one at the left.
    QPixmap const & getSortPixmap() const;
    /// The sort arrows of the hot item: a null pixmap, which stands for getSortPixmap.
    QPixmap const & getSortHotPixmap() const;

    /// The item under the mouse while hot tracking is on, -1 for none.
    int getItemOver() const;

    /// The notification, not owned, null allowed.
    IHeaderNotification * getNotification() const;
    void setNotification(IHeaderNotification * notification);

    // --- Options, all off at first. A setter stores its value and repaints nothing.

    /// Whether setHidden(true) was called last, whatever the widget's own visibility.
    bool isHidden() const;
    /// Also hides or shows the widget.
    void setHidden(bool on);
    /// Items stand below each other. Such a header has no dividers.
    bool isVert() const;
    void setVert(bool on);
    /// Items share the header's width by their percentages.
    bool isProportional() const;
    void setProportional(bool on);
    /// The last item reaches to the header's end, and its divider cannot be dragged.
    bool isStickLastToEdge() const;
    void setStickLastToEdge(bool on);
    /// A divider drag resizes the item as it goes. Off, a drag shows a line and changes no width.
    bool isDragWhenResized() const;
    void setDragWhenResized(bool on);
    /// Items are buttons: raised, pressed by the mouse, with sort arrows.
    bool isButtons() const;
    void setButtons(bool on);
    /// Stored without effect.
    bool isUsePlusSettings() const;
    void setUsePlusSettings(bool on);
    /// The item under the mouse is shown in another colour.
    bool isHotTrack() const;
    void setHotTrack(bool on);
    /// Stored without effect.
    bool isDragDrop() const;
    void setDragDrop(bool on);
    /// A light look with lines along both edges of the strip.
    bool isFlatView() const;
    void setFlatView(bool on);
    /// Stored without effect; the header shows no tool tips of its own.
    bool isToolTip() const;
    void setToolTip(bool on);
    /// A text is meant for QWidget::setToolTip and its QString.
    void setToolTip(char const *) = delete;
    using QWidget::setToolTip;
    /// Stored without effect.
    bool isFlat3D() const;
    void setFlat3D(bool on);

    /// With true, suspends what depends on percentages, both their computation and the sizing by
    /// them. Returns the old value.
    bool blockControl(bool block);

    // --- Offered without behaviour

    /// Always 0.
    int setHotDivider(bool on, long divider);
    /// Does nothing.
    void drawDraggedButton(bool show);
    /// Does nothing.
    void hideTooltip();
    /// Does nothing.
    void trackButton();
    /// Sets `*item` to 0 and returns false: items cannot be dragged.
    bool canStartDragDrop(QRect * rect, int * item);

protected:
    /// Computes the totals of fixed and minimal widths.
    void calculateFixed();

    /// Computes each item's percentage from its width.
    void calculatePercent();

    /// Gives the items their part of `width` by percentage, computed from the widths where the
    /// items changed since. Does nothing when `width` is too small for the minima.
    void proportionateAllItems(int width);

    /// Gives the items from `first` on their percentages for a divider drag.
    void prepareTrack(int first);

    /// Whether the items behind `index` keep room in the header if it gets the width `wh`.
    bool canTrack(int index, int wh) const;

    /// Raises the items behind `index` to their minima and repaints them.
    void doTrack(int index, int wh);

    /// One step of a divider drag; does nothing outside of one.
    void trackDivider(QMouseEvent * event);

    /// Inverts a vertical line at `x` on the screen; a second time takes it away. Repaints keep it.
    void drawDragLine(int x);

    /// Copies the first `count` entries of the order array, or as many as there are. False only for
    /// a null `order` with a count.
    bool getOrderArray(int count, int * order) const;

    /// Brings totals, percentages and the sticking last item up to date after a change of items.
    void postItemsChange();

    /// Shows the resize cursor where a divider can be dragged.
    virtual void onSetCursor(QMouseEvent * event);

    /// Sets or takes back the application's override cursor, on a change only.
    void setResizeCursor(bool on);

    bool event(QEvent * event) override;
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseReleaseEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    void leaveEvent(QEvent * event) override;
    void hideEvent(QHideEvent * event) override;
    void focusInEvent(QFocusEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;
    void changeEvent(QEvent * event) override;
    void dragEnterEvent(QDragEnterEvent * event) override;
    void dragMoveEvent(QDragMoveEvent * event) override;
    void dragLeaveEvent(QDragLeaveEvent * event) override;
    void dropEvent(QDropEvent * event) override;

    /// Cursors for subclasses; null, and not used by the header.
    static QCursor * m_hcrNoDragOver;
    static QCursor * m_hcrVertSplit;

private:
    class PrivateData;
    friend class KHeaderItem;

    void applySize(QSize const & size);
    void changed(int index);
    template <typename Value>
    void setField(int index, Value KHeaderItem::*field, Value value);
    void paintEdges(KPainter & painter) const;
    void paintItems(KPainter & painter, QRect const & exposed);
    void paintSpace(KPainter & painter) const;
    void pressLeft(QMouseEvent * event);
    void pressRight(QMouseEvent * event);
    void beginTrack(int index, QMouseEvent * event);
    void moveDivider(int index, int x, int wh);
    void cancelTrack(int index);
    void stopTracking();
    void moveHot(QPoint const & point);

    std::unique_ptr<PrivateData> d;
};

} // namespace zenu
