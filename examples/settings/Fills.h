#pragma once

#include <QBrush>
#include <QColor>
#include <QString>

// The fills to choose from, among them some that no text says in a few words.
enum class Fill
{
    None,
    Solid,
    Dots,
    Lines,
    Slope,
    Glow,
    Tiles,
    Count
};

QString fillName(Fill fill);
QBrush makeFill(Fill fill, QColor const & color);

// What was made, found again from the brush.
Fill fillOf(QBrush const & brush);
QColor fillColor(QBrush const & brush);
