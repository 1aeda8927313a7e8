#pragma once

#include <QString>

// A QBrush, QColor, QFont or QPen as text for a file, exact in both directions. What a person can
// read is written so, as "#ff8000" or "DashLine 1.5 SquareCap BevelJoin #0000ff"; a value of which
// such a text does not say everything is written as its bytes in base64, with a checksum.
template <typename Value>
QString toText(Value const & value);

// False, and the value untouched, when the text is not that of such a value.
template <typename Value>
bool fromText(QString const & text, Value * value);
