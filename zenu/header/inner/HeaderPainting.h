#pragma once

#include "zenu/header/KHeader.h"

#include <QFont>
#include <QRect>
#include <QString>

namespace zenu {

class KPainter;

/// What was measured for an item's text, and all that it depended on but for the text itself.
struct HeaderTextFit
{
    QFont font;
    qreal pixelRatio;
    QSize dotsPerInch;
    int availableWidth;
    QString shown; ///< the text as it fits
    int textWidth; ///< of `shown`, right less left of its bounding rectangle
};

/// Paints one item; lives for that only. `rect` is changed. The item, the header and its items may
/// be changed by the notification of an owner drawn item, so nothing is read after that call.
class ZENU_TEST_EXPORT HeaderItemPainting
{
public:
    HeaderItemPainting(KHeaderItem const & item, KHeader const & header, KPainter & painter,
                       int index, QRect & rect, bool pressed);

    void paint();

    /// The text as it fits into `width`; measured only when something changed since the last time.
    static HeaderTextFit const & fit(KHeaderItem const & item, KPainter & painter, int width);

private:
    bool has(int formatBit) const { return (m_item.m_fmt & formatBit) != 0; }
    int width() const { return m_rect.right() - m_rect.left(); }
    int height() const { return m_rect.bottom() - m_rect.top(); }

    void paintButton();
    void paintPlain();
    void paintPixmap(QPixmap const & pixmap);
    void paintText();
    void paintImage(int x);
    void paintArrow(QPixmap const & arrows, int arrowWidth, int textWidth);
    QPixmap const & pixmap() const;
    QPixmap const & arrows() const;
    QColor textColor() const;

    KHeaderItem const & m_item;
    KHeader const & m_header;
    KPainter & m_painter;
    int const m_index;
    QRect & m_rect;
    bool const m_pressed;
    bool const m_hot;
};

} // namespace zenu
