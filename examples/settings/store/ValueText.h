#pragma once

#include <QString>

class QBrush;
class QColor;
class QFont;
class QPen;

// Values as texts for a file, exact in both directions. What a person can read is written so, as
// "#ff8000" or "DashLine 1.5 SquareCap BevelJoin #0000ff"; a value of which such a text does not
// say everything is written as its bytes in base64, with a checksum.

QString toText(QColor const & color);
QString toText(QPen const & pen);
QString toText(QFont const & font);
QString toText(QBrush const & brush);

// False, and the value untouched, when the text is not that of such a value.
bool fromText(QString const & text, QColor * color);
bool fromText(QString const & text, QPen * pen);
bool fromText(QString const & text, QFont * font);
bool fromText(QString const & text, QBrush * brush);
