#pragma once

#include "zenu/ZenuExport.h"

#include <QFont>
#include <QString>

class QPainter;
class QRect;

namespace zenu {

// One line of text, ready to be drawn again and again without being shaped again. It is laid out
// at its first drawing. The picture is, pixel for pixel, that of QPainter::drawText.
class ZENU_TEST_EXPORT TextLine
{
public:
    TextLine() = default;
    TextLine(QFont const & lineFont, QString const & lineText);

    bool isEmpty() const { return text.isEmpty(); }

    // As painter->drawText(rect, alignment | Qt::TextSingleLine, text) with the font of the line;
    // the painter has this font already and draws in its pen. Alignment both ways.
    void draw(QPainter * painter, QRect const & rect, Qt::Alignment alignment) const;

private:
    QFont font;
    QString text;
};

} // namespace zenu
