#pragma once

#include "zenu/ZenuExport.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class QPixmap;
class QRect;
class QString;

namespace zenu {

class HeaderItemPainting;
class KHeader;
class KPainter;
struct HeaderLayout;
struct HeaderTextFit;

/// Bits of KHeaderItem::getFmt.
enum EHeaderFormat
{
    HeaderFormatFixed = 0x10,      ///< no proportional sizing, and the divider cannot be dragged
    HeaderFormatSortFirst = 0x20,  ///< upward sort arrow
    HeaderFormatSortSecond = 0x40, ///< downward sort arrow
    HeaderFormatSortMask = 0x60,   ///< both sort arrows
    HeaderFormatBitmap = 0x2000,   ///< draw the pixmap
    HeaderFormatText = 0x4000,     ///< draw the text
    HeaderFormatOwnerDraw = 0x8000 ///< IHeaderNotification::onDrawItem draws the item
};

/// Where an item's content stands. Any other value draws the text at the left, without room for the
/// image.
enum EHeaderJustify : int
{
    HeaderJustifyLeft = 1,
    HeaderJustifyRight = 2,
    HeaderJustifyCenter = 4
};

/// Which arrow KHeader::setSortBitmap shows.
enum EHeaderSortBitmap : int
{
    HeaderSortNone = 0,
    HeaderSortFirst = 1, ///< HeaderFormatSortFirst
    HeaderSortSecond = 2 ///< HeaderFormatSortSecond
};

/// One cell of a KHeader: size, format, text and images, and how they are painted. A value record
/// that the header keeps by value. It has no setters: changes go through KHeader, which keeps its
/// totals and repaints. Pixmaps are not owned and must outlive the item. Texts are Latin-1.
class ZENU_EXPORT KHeaderItem
{
public:
    /// A text item "Empty" of width 0, left justified, without image.
    KHeaderItem();

    /// An item with these values; `fmt` is made of EHeaderFormat. A null text is an empty one.
    KHeaderItem(char const * text, QPixmap * pixmap, int fmt, int minWH, int wh, int lParam);

    /// The width, or the height in a vertical header.
    int getWH() const { return m_wh; }
    /// The smallest width that KHeader::setWH gives.
    int getMinWH() const { return m_minWH; }
    /// The title.
    std::string const & getText() const { return m_text; }
    /// Bits of EHeaderFormat.
    int getFmt() const { return m_fmt; }
    /// The application's value; a grid keeps the column's identity here.
    unsigned int getLParam() const { return m_lParam; }
    /// The index in the header's KPixmapSet, -1 for none.
    int getImage() const { return m_image; }
    /// The item's own picture, null for none; not owned.
    QPixmap * getPixmap() const { return m_pixmap; }
    /// The display position, -1 until the item is inserted.
    int getOrder() const { return m_order; }
    /// A mark that the header neither sets nor reads; false.
    bool isValid() const { return m_valid; }
    /// The share of the width that proportional sizing gives.
    double getSizePercent() const { return m_sizePercent; }
    /// The share of the width during the divider drag that was begun last.
    double getTrackPercent() const { return m_trackPercent; }
    /// Where the title stands in the item.
    EHeaderJustify getJustify() const { return m_justify; }
    /// The tip that is asked for over the item.
    std::string const & getToolTipText() const { return m_toolTipText; }

private:
    friend class HeaderItemPainting;
    friend class KHeader;
    friend class KHeaderItemVec;
    friend struct HeaderLayout;

    /// The text as it fits in `width`; a cut text ends in "...".
    QString getDisplayText(KPainter * painter, int width) const;

    /// Paints the item, number `index` in order of insertion, into `rect`, which is changed.
    void drawItem(KHeader * header, KPainter * painter, int index, QRect * rect,
                  bool pressed) const;

    int m_wh = 0;
    int m_minWH = 0;
    QPixmap * m_pixmap = nullptr;
    int m_fmt = HeaderFormatText;
    unsigned int m_lParam = 0;
    double m_sizePercent = 0;
    double m_trackPercent = 0;
    std::string m_text;
    int m_image = -1;
    int m_order = -1;
    QPixmap * m_hotPixmap = nullptr;
    QPixmap * m_hotPressedPixmap = nullptr;
    std::string m_toolTipText;
    bool m_valid = false;
    /// m_sizePercent was computed or set since the items changed.
    bool m_percentKnown = false;
    EHeaderJustify m_justify = HeaderJustifyLeft;
    /// What the last painting measured, with all that it depended on; copies share it.
    mutable std::shared_ptr<HeaderTextFit const> m_fit;
};

/// The items of a KHeader in order of insertion, and their order on the screen. Positions along the
/// header are summed once after a change, so that reading one is O(1). Insertion and removal keep
/// each item's getOrder equal to its place in the order array.
class ZENU_EXPORT KHeaderItemVec
{
public:
    /// The largest number of items.
    static constexpr std::size_t Limit = 37025580;

    /// An empty vector for `header`, which may be null. A smaller limit is for tests.
    explicit KHeaderItemVec(KHeader * header = nullptr, std::size_t limit = Limit);

    /// What the constructor was given.
    KHeader * header() const { return m_header; }
    /// The number of items.
    int count() const { return static_cast<int>(m_items.size()); }
    /// True when `index` names an item.
    bool contains(int index) const { return index >= 0 && index < count(); }

    /// The item; the index must be in range. Valid until the next insertion or removal.
    KHeaderItem const & operator[](int index) const { return m_items[std::size_t(index)]; }

    /// Where position p holds the index of the item displayed at position p.
    std::vector<int> const & order() const { return m_order; }

    /// The index of the item displayed at `position`, -1 for none.
    int itemAt(int position) const;

    /// The sum of the widths displayed before `position`; one out of range counts as the nearest
    /// one.
    long long lengthBefore(int position) const;

    /// Puts a copy of `item` at `index`, in the vector and on the screen; an index out of range is
    /// the end. Past the limit it throws what derives from std::bad_alloc and says "bad
    /// allocation". After any exception the vector is as it was.
    void insert(int index, KHeaderItem const & item);

    /// Removes an item; false for a bad index.
    bool remove(int index);

    /// Removes all items.
    void clear();

    /// Sets an item's width, without regard to its minimum. The index must be in range.
    void setWH(int index, int wh);

    /// The item, for changes of all but its width. The index must be in range.
    KHeaderItem & edit(int index) { return m_items[std::size_t(index)]; }

private:
    void numberItems();

    KHeader * m_header;
    std::size_t m_limit;
    std::vector<KHeaderItem> m_items;
    std::vector<int> m_order;
    /// lengthBefore of each position; empty when it has to be summed again.
    mutable std::vector<long long> m_lengths;
};

} // namespace zenu
