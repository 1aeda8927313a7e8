#pragma once

#include "zenu/ZenuExport.h"

#include <QFont>
#include <QSize>
#include <QString>

#include <memory>

class QPainter;
class QRect;
class QTextLayout;

namespace zenu {

// One line of Latin-1 text, shaped once and drawn again and again. The picture is, pixel for pixel,
// that of QPainter::drawText at every pixel ratio, which the quicker QStaticText does not keep.
// About a kilobyte once it is shaped, which is at the first question.
class ZENU_TEST_EXPORT TextLine
{
public:
    TextLine();
    // The font is resolved for the device that the line is drawn on.
    TextLine(QFont const & lineFont, QString const & lineText);
    ~TextLine();
    TextLine(TextLine && other) noexcept;
    TextLine & operator=(TextLine && other) noexcept;

    QString const & text() const { return lineText; }
    // Of the line as QFontMetrics::size measures it, (0, 0) when empty.
    QSize size() const;
    // Where the next letter would stand; spaces at the end count.
    qreal advance() const;
    // Forgets the shape until it is asked for again.
    void release() const;

    // As painter->drawText(rect, alignment | Qt::TextSingleLine, text) with the font of the line,
    // in the painter's pen, from left to right in every locale. Alignment both ways. Draws nothing
    // in an empty rectangle.
    void draw(QPainter * painter, QRect const & rect, Qt::Alignment alignment) const;

private:
    bool shape() const;
    void drawLine(QPainter * painter, QRect const & rect, Qt::Alignment alignment) const;

    QFont font;
    QString lineText;
    bool hasVariants = false; // U+009C separates variants of different lengths: Qt chooses
    mutable std::unique_ptr<QTextLayout> layout;
    mutable QSizeF extent; // of the layout's line
};

} // namespace zenu
