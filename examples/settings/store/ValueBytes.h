#pragma once

#include <QByteArray>

// The exact bytes of a QBrush, QColor, QFont or QPen, and the value again. Colours keep their model
// and all their bits, brushes their gradient or the pixels of their texture, fonts which of their
// properties were set. The same value gives the same bytes.
template <typename Value>
QByteArray toBytes(Value const & value);

// False, and the value untouched, when the bytes end too early or too late. They are not to be
// trusted otherwise: who keeps them adds a checksum, since Qt believes the sizes of lists.
template <typename Value>
bool fromBytes(QByteArray const & bytes, Value * value);
