#include "zenu/grid/geometry/TextLine.h"

#include <QPainter>
#include <QRect>

namespace zenu {

TextLine::TextLine(QFont const & lineFont, QString const & lineText)
    : font(lineFont)
    , text(lineText)
{
}

void TextLine::draw(QPainter * painter, QRect const & rect, Qt::Alignment alignment) const
{
    if (!text.isEmpty() && rect.isValid()) {
        painter->drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, text);
    }
}

} // namespace zenu
