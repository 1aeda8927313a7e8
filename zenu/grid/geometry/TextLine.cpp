#include "zenu/grid/geometry/TextLine.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRect>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace zenu {

namespace {

constexpr char16_t variantSeparator = u'\x9c';
constexpr qreal endlessLine = 0x01000000; // what Qt gives a text that is not wrapped

bool breaksLine(QChar letter)
{
    return letter == u'\n' || letter == u'\r' || letter == u'\t';
}

// White space that breaks lines or columns stands as a space in a single line.
QString onOneLine(QString text)
{
    if (std::any_of(text.cbegin(), text.cend(), breaksLine)) {
        std::replace_if(text.begin(), text.end(), breaksLine, u' ');
    }
    return text;
}

} // namespace

TextLine::TextLine() = default;

TextLine::TextLine(QFont const & lineFont, QString const & text)
    : font(lineFont)
    , lineText(text)
    , hasVariants(text.contains(variantSeparator))
{
}

TextLine::~TextLine() = default;

TextLine::TextLine(TextLine && other) noexcept = default;

TextLine & TextLine::operator=(TextLine && other) noexcept = default;

QSize TextLine::size() const
{
    if (!shape()) {
        return lineText.isEmpty() ? QSize(0, 0)
                                  : QFontMetrics(font).size(Qt::TextSingleLine, lineText);
    }
    return QSize(static_cast<int>(std::ceil(extent.width())),
                 static_cast<int>(std::ceil(extent.height())));
}

qreal TextLine::advance() const
{
    if (!shape()) {
        return QFontMetricsF(font).horizontalAdvance(lineText);
    }
    return std::max(layout->lineAt(0).horizontalAdvance(), extent.width());
}

void TextLine::release() const
{
    layout.reset();
}

void TextLine::draw(QPainter * painter, QRect const & rect, Qt::Alignment alignment) const
{
    if (lineText.isEmpty() || !rect.isValid()) {
        return;
    }
    if (!shape()) {
        QFont const before = painter->font();
        painter->setFont(font);
        painter->drawText(
            rect, static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextForceLeftToRight,
            lineText);
        painter->setFont(before);
        return;
    }
    drawLine(painter, rect, alignment);
}

// False when there is nothing to shape, or only Qt can.
bool TextLine::shape() const
{
    if (layout) {
        return true;
    }
    if (lineText.isEmpty() || hasVariants) {
        return false;
    }
    layout = std::make_unique<QTextLayout>(onOneLine(lineText), font);
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    option.setAlignment(Qt::AlignLeft);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    QTextLine line = layout->createLine();
    line.setLineWidth(endlessLine);
    line.setPosition(QPointF(0, 0));
    layout->endLayout();
    extent = QSizeF(line.naturalTextWidth(), line.ascent() + line.descent());
    return true;
}

// The steps of Qt's own text drawing, fractions of pixels included. It clips only a text that does
// not fit, since glyphs may reach out of the room of a text that does.
void TextLine::drawLine(QPainter * painter, QRect const & rect, Qt::Alignment alignment) const
{
    QTextLine const line = layout->lineAt(0);
    qreal yOffset = 0;
    if (alignment & Qt::AlignBottom) {
        yOffset = rect.height() - extent.height();
    } else if (alignment & Qt::AlignVCenter) {
        yOffset = (rect.height() - extent.height()) / 2;
    }
    qreal xOffset = 0;
    qreal boundsOffset = 0;
    if (alignment & Qt::AlignRight) {
        xOffset = rect.width() - line.horizontalAdvance();
        boundsOffset = rect.width() - extent.width();
    } else if (alignment & Qt::AlignHCenter) {
        xOffset = (rect.width() - line.horizontalAdvance()) / 2;
        boundsOffset = (rect.width() - extent.width()) / 2;
    }
    QRectF const bounds(QPointF(rect.x() + boundsOffset, rect.y() + yOffset), extent);
    bool const clipped = !QRectF(rect).contains(bounds);
    if (clipped) {
        painter->save();
        painter->setClipRect(rect, Qt::IntersectClip);
    }
    line.draw(painter, QPointF(rect.x() + xOffset, rect.y() + yOffset));
    if (clipped) {
        painter->restore();
    }
}

} // namespace zenu
