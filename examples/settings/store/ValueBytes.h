#pragma once

#include <QByteArray>

class QBrush;
class QColor;
class QFont;
class QPen;

// The exact bytes of a value, and the value again. Colours keep their model and all their bits,
// brushes their gradient or the pixels of their texture, fonts which of their properties were set.
// The same value gives the same bytes.

QByteArray toBytes(QColor const & color);
QByteArray toBytes(QPen const & pen);
QByteArray toBytes(QFont const & font);
QByteArray toBytes(QBrush const & brush);

// False, and the value untouched, when the bytes end too early or too late. They are not to be
// trusted otherwise: who keeps them adds a checksum, since Qt believes the sizes of lists.
bool fromBytes(QByteArray const & bytes, QColor * color);
bool fromBytes(QByteArray const & bytes, QPen * pen);
bool fromBytes(QByteArray const & bytes, QFont * font);
bool fromBytes(QByteArray const & bytes, QBrush * brush);
